#include "walk.hpp"

namespace zelm {
namespace {

// An array like o in its room.
Objects in_room(const Objects &o, char *room, Form form, int objects) {
    Objects r = o;
    const Distance element = o.element_size;
    const bool planes = form == Form::planes && !o.numbers;
    r.description = Description::standard;
    r.base = room;
    r.offset = 0;
    r.stride2 = planes ? objects * element : element;
    r.stride1 = o.shape.width * r.stride2;
    r.step = planes ? element : o.shape.height * r.stride1;
    return r;
}

class Walk {
public:
    Walk(int count, const Overlap &allowed, const Kernel &kernel, const Single &single, Form form,
         const Staged &staged)
        : count_(count),
          allowed_(allowed),
          kernel_(kernel),
          single_(single),
          form_(form),
          staged_(staged) {}

    // run(n, groups) does full groups from object n on until a lane fails; returns the objects
    // done.
    template <class Run>
    ZELM_INLINE ZelStatus over_groups(int most_groups, const Run &run) {
        const int L = kernel_.lanes;
        for (int n = 0; n < count_;) {
            int live = count_ - n < L ? count_ - n : L;
            if (live == 1 || !allowed_.clear(n, live)) [[unlikely]] {
                if (const ZelStatus status =
                        walk_singly(live, [&](int l) { return single_(n + l); }))
                    return status;
                n += live;
                continue;
            }
            if (live == L) {
                // Where all objects are clear, the groups that follow ask nothing more.
                const int full = allowed_.clear() ? (count_ - n) / L : 1;
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
        Objects arrays[most_arrays];
        for (int k = 0; k < staged_.arrays; ++k) {
            const Objects &from = staged_.array[k];
            arrays[k] = in_room(from, staged_.room[k], form_, staged_.objects);
            if (from.written)
                continue;
            copy_objects(from.from(n), arrays[k], live);
            for (int lane = live; lane < L; ++lane)
                copy_objects(from.from(n + live - 1), arrays[k].from(lane), 1);
        }
        int first = 0;
        const unsigned failing = kernel_.run(kernel_.context, arrays, &first, 1, true);
        const int first_failing = failing == 0 ? L : __builtin_ctz(failing);
        const int commit = first_failing < live ? first_failing : live;
        for (int k = 0; k < staged_.arrays; ++k)
            if (staged_.array[k].written)
                copy_objects(arrays[k], staged_.array[k].from(n), commit);
        n += commit;
        return commit < live ? single_(n++) : zelStatusOk;
    }

    const int count_;
    const Overlap &allowed_;
    const Kernel &kernel_;
    const Single &single_;
    const Form form_;
    const Staged &staged_;
};

} // namespace

ZelStatus walk_groups(int count, const Overlap &allowed, const Kernel &kernel, const Single &single,
                      Form form, const Staged &staged) {
    Walk walk(count, allowed, kernel, single, form, staged);
    return walk.over_groups(count,
                            [&](int n, int groups) { return walk.run(staged.array, n, groups); });
}

ZelStatus walk_staged(int count, const Overlap &allowed, const Kernel &kernel, const Single &single,
                      const Staged &staged) {
    bool all_direct = true;
    for (int k = 0; k < staged.arrays; ++k)
        all_direct = all_direct && staged.array[k].is_direct_plane();
    if (all_direct)
        return walk_groups(count, allowed, kernel, single, Form::planes, staged);

    Walk walk(count, allowed, kernel, single, Form::planes, staged);
    const int groups_in_room = staged.objects / kernel.lanes;
    return walk.over_groups(groups_in_room, [&](int n, int groups) {
        Objects arrays[most_arrays];
        for (int k = 0; k < staged.arrays; ++k) {
            const Objects from = staged.array[k].from(n);
            if (from.is_direct_plane()) {
                arrays[k] = from;
                continue;
            }
            arrays[k] = in_room(from, staged.room[k], Form::planes, staged.objects);
            if (!from.written)
                copy_objects(from, arrays[k], groups * kernel.lanes);
        }
        const int done = walk.run(arrays, 0, groups);
        for (int k = 0; k < staged.arrays; ++k)
            if (staged.array[k].written && !staged.array[k].is_direct_plane())
                copy_objects(arrays[k], staged.array[k].from(n), done);
        return done;
    });
}

} // namespace zelm
