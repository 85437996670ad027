#include "walk.hpp"

namespace zelm {
namespace {

// An array like o in its room.
Objects in_room(const Objects &o, char *room, Form form, int capacity) {
    Objects r = o;
    const Distance element = o.element_size;
    const bool planes = form == Form::planes && !o.numbers;
    r.description = Description::standard;
    r.base = room;
    r.offset = 0;
    r.stride2 = planes ? capacity * element : element;
    r.stride1 = o.shape.width * r.stride2;
    r.step = planes ? element : o.shape.height * r.stride1;
    return r;
}

class Walk {
public:
    Walk(int count, const Overlap &overlap, const Kernel &kernel, const Single &single, Form form,
         const WithRooms &arrays)
        : count_(count),
          overlap_(overlap),
          kernel_(kernel),
          single_(single),
          form_(form),
          arrays_(arrays) {}

    // run(n, groups) does full groups from object n on until a lane fails; returns the objects
    // done.
    template <class Run>
    ZELM_INLINE ZelStatus over_groups(int most_groups, const Run &run) {
        const int L = kernel_.lanes;
        for (int n = 0; n < count_;) {
            int live = count_ - n < L ? count_ - n : L;
            if (live == 1 || !overlap_.clear(n, live)) [[unlikely]] {
                if (const ZelStatus status =
                        walk_singly(live, [&](int l) { return single_(n + l); }))
                    return status;
                n += live;
                continue;
            }
            if (live == L) {
                // Where all objects are clear, the groups that follow ask nothing more.
                const int full = overlap_.clear() ? (count_ - n) / L : 1;
                const int groups = full < most_groups ? full : most_groups;
                const int done = run(n, groups);
                n += done;
                if (done == groups * L)
                    continue;
            }
            if (const ZelStatus status = on_stage(n, live))
                return status;
        }
        return zelStatusOk;
    }
    // Returns the objects before the first group with a failing lane.
    ZELM_INLINE int run(const Objects *arrays, int first, int groups) {
        int at = first;
        return kernel_.run(kernel_.context, arrays, &at, groups, false) != 0
                   ? at - first
                   : groups * kernel_.lanes;
    }

private:
    // Objects n ... n + live - 1 up to the first that fails, which is then done alone. The lanes
    // behind them repeat the last. Moves n behind what is done.
    [[gnu::noinline]] ZelStatus on_stage(int &n, int live) {
        const int L = kernel_.lanes;
        Objects staged[most_arrays];
        for (int k = 0; k < arrays_.arrays; ++k) {
            const Objects &from = arrays_.array[k];
            staged[k] = in_room(from, arrays_.room[k], form_, arrays_.capacity);
            if (from.written)
                continue;
            copy_objects(from.from(n), staged[k], live);
            for (int lane = live; lane < L; ++lane)
                copy_objects(from.from(n + live - 1), staged[k].from(lane), 1);
        }
        int first = 0;
        const unsigned failing = kernel_.run(kernel_.context, staged, &first, 1, true);
        const int first_failing = failing == 0 ? L : __builtin_ctz(failing);
        const int commit = first_failing < live ? first_failing : live;
        for (int k = 0; k < arrays_.arrays; ++k)
            if (arrays_.array[k].written)
                copy_objects(staged[k], arrays_.array[k].from(n), commit);
        n += commit;
        return commit < live ? single_(n++) : zelStatusOk;
    }

    const int count_;
    const Overlap &overlap_;
    const Kernel &kernel_;
    const Single &single_;
    const Form form_;
    const WithRooms &arrays_;
};

} // namespace

ZelStatus walk_groups(int count, const Overlap &overlap, const Kernel &kernel, const Single &single,
                      Form form, const WithRooms &arrays) {
    Walk walk(count, overlap, kernel, single, form, arrays);
    return walk.over_groups(count,
                            [&](int n, int groups) { return walk.run(arrays.array, n, groups); });
}

ZelStatus walk_staged(int count, const Overlap &overlap, const Kernel &kernel, const Single &single,
                      const WithRooms &arrays) {
    bool all_direct = true;
    for (int k = 0; k < arrays.arrays; ++k)
        all_direct = all_direct && arrays.array[k].serves_as_planes();
    if (all_direct)
        return walk_groups(count, overlap, kernel, single, Form::planes, arrays);

    Walk walk(count, overlap, kernel, single, Form::planes, arrays);
    const int groups_in_room = arrays.capacity / kernel.lanes;
    return walk.over_groups(groups_in_room, [&](int n, int groups) {
        Objects planes[most_arrays];
        for (int k = 0; k < arrays.arrays; ++k) {
            const Objects from = arrays.array[k].from(n);
            if (from.serves_as_planes()) {
                planes[k] = from;
                continue;
            }
            planes[k] = in_room(from, arrays.room[k], Form::planes, arrays.capacity);
            if (!from.written)
                copy_objects(from, planes[k], groups * kernel.lanes);
        }
        const int done = walk.run(planes, 0, groups);
        for (int k = 0; k < arrays.arrays; ++k)
            if (arrays.array[k].written && !arrays.array[k].serves_as_planes())
                copy_objects(planes[k], arrays.array[k].from(n), done);
        return done;
    });
}

} // namespace zelm
