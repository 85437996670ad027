// The walk over the objects of an array: lane groups where they are overlap, one object at a time
// elsewhere, stopping at the first object that fails.
//
// There is one commit rule. A kernel stores its group when no lane fails; a group that is not full,
// or in which a lane has failed, is computed on the stage and the objects before the first failure
// are copied back. Then the failing object is done alone, to leave it as a failure leaves it.
//
// A kernel is a type of its own, so that it is compiled once for each form and not for each
// description. The loop over groups, the stage and all copies are compiled once (walk.cpp,
// objects.cpp).
#pragma once

#include "block_access.hpp"
#include "overlap.hpp"

#include <algorithm>
#include <tuple>

namespace zelm {

// Where a kernel's group stands: objects first ... first + lanes - 1 of the arrays it is given.
struct Group {
    int first;
    bool staged;

    // A kernel stores what it computed unless this says no; on the stage it always stores.
    ZELM_INLINE bool stores(unsigned failing) const { return failing == 0 || staged; }
};
// The same for a kernel that takes groups of one register and of several.
template <int n>
struct GroupOf : Group {
    static constexpr int registers = n;
};

// ---- the arrays of a walk -----------------------------------------------------------------------

enum class Form { dense, gapless, rows, planes, blocks }; // blocks: of a shape known at run time

// Of a fixed shape: the kernel gets them in the form that it is compiled for.
template <class T, int H, int W, class Part>
struct Walked {
    static constexpr int most_elements = H * W;
    Objects objects;

    template <Form form>
    ZELM_INLINE static auto operand(const Objects &o) {
        if constexpr (form == Form::dense || form == Form::gapless)
            return Dense<T, H, W, form == Form::gapless>(o);
        else if constexpr (form == Form::rows)
            return ByRows<T, H, W>(o);
        else
            return Planes<T, H, W, Part>(o);
    }
};
// Of a shape known at run time, of up to `elements`: load_block and store_block take them.
template <int elements>
struct WalkedBlocks {
    static constexpr int most_elements = elements;
    Objects objects;

    template <Form>
    ZELM_INLINE static const Objects &operand(const Objects &o) {
        return o;
    }
};
// Row numbers, and results that are scalars, in every form alike.
template <class Int, int length>
struct WalkedNumbers {
    static constexpr int most_elements = length;
    Objects objects;

    template <Form>
    ZELM_INLINE static IndexRows<Int> operand(const Objects &o) {
        return {reinterpret_cast<Int *>(o.base), static_cast<int>(o.step / Distance{sizeof(Int)})};
    }
};
template <class T>
struct WalkedScalars {
    static constexpr int most_elements = 1;
    Objects objects;

    template <Form>
    ZELM_INLINE static Scalars<T> operand(const Objects &o) {
        return {reinterpret_cast<T *>(o.base)};
    }
};

template <class T, int H, int W, class Part = Whole>
ZELM_INLINE Walked<T, H, W, Part> walked(const Objects &o) {
    return {o};
}
template <int elements>
ZELM_INLINE WalkedBlocks<elements> walked_blocks(const Objects &o) {
    return {o};
}
template <int length, class Int>
ZELM_INLINE WalkedNumbers<Int, length> walked_numbers(const IndexRows<Int> &op, int n) {
    return {objects(op, {1, n})};
}
template <class T>
ZELM_INLINE WalkedScalars<T> walked_scalars(const Scalars<T> &op) {
    return {objects(op, {1, 1})};
}

// ---- what is compiled once ----------------------------------------------------------------------

// A kernel, compiled for a form: does groups from object *first on until one has failing lanes,
// which it returns as bits; *first is then the first object of that group, or of the last one.
struct Kernel {
    unsigned (*run)(const void *context, const Objects *arrays, int *first, int groups,
                    bool staged);
    const void *context;
    int lanes; // objects in a group
};
// single(n) does object n alone and returns its status; made of a function that outlives it.
class Single {
public:
    template <class F>
    ZELM_INLINE Single(const F &f)
        : run_([](const void *context, int object) {
              return (*static_cast<const F *>(context))(object);
          }),
          context_(&f) {}
    ZELM_INLINE ZelStatus operator()(int object) const { return run_(context_, object); }

private:
    ZelStatus (*run_)(const void *context, int object);
    const void *context_;
};

inline constexpr int most_arrays = 4;

// The arrays, and room on the stack for some objects of each.
struct WithRooms {
    int arrays;
    const Objects *array;
    char *const *room;
    int capacity; // objects
};

// In `form`, where all arrays have it.
ZelStatus walk_groups(int count, const Overlap &overlap, const Kernel &kernel, const Single &single,
                      Form form, const WithRooms &arrays);
// By planes, where arrays that are not planar pass through the stage.
ZelStatus walk_staged(int count, const Overlap &overlap, const Kernel &kernel, const Single &single,
                      const WithRooms &arrays);

// Objects 0 ... count - 1 one by one, up to the first that fails.
template <class F>
ZELM_INLINE ZelStatus walk_singly(int count, const F &single) {
    for (int n = 0; n < count; ++n)
        if (const ZelStatus status = single(n))
            return status;
    return zelStatusOk;
}

// ---- kernels of a form --------------------------------------------------------------------------

namespace detail {

template <class T, Form form, int registers, class F, class... Arrays>
unsigned run_groups(const void *context, const Objects *arrays, int *first, int groups,
                    bool staged) {
    // A copy, unless it is large: nothing that is stored could change it.
    constexpr bool small = sizeof(F) <= 64 * register_bytes;
    const std::conditional_t<small, const F, const F &> f = *static_cast<const F *>(context);
    return [&]<std::size_t... k>(std::index_sequence<k...>) __attribute__((always_inline)) {
        const std::tuple operands(Arrays::template operand<form>(arrays[k])...);
        GroupOf<registers> group = {{*first, staged}};
        unsigned failing;
        for (;;) {
            failing = f(group, std::get<k>(operands)...);
            if (failing != 0 || --groups == 0) [[unlikely]]
                break;
            group.first += registers * lanes_per_register<T>;
        }
        *first = group.first;
        return failing;
    }
    (std::index_sequence_for<Arrays...>{});
}
template <class T, Form form, int registers, class... Arrays, class F>
ZELM_INLINE Kernel kernel_of(const F &f) {
    return {run_groups<T, form, registers, F, Arrays...>, &f, registers * lanes_per_register<T>};
}

// Of a block: up to 2 KiB, one group at least.
template <class T, int elements>
inline constexpr int objects_in_room = [] {
    constexpr int L = lanes_per_register<T>, most = 2048 / (elements * int{sizeof(T)}) / L * L;
    return most > 64 ? 64 : most < L ? L : most;
}();

template <int bytes>
struct Room {
    Room() {} // not set to zero
    alignas(8) char bytes_[bytes];
};

// f(the arrays with their rooms)
template <class T, int objects, class F, class... Arrays>
ZELM_INLINE ZelStatus with_rooms(const F &f, const Arrays &...array) {
    const Objects arrays[] = {array.objects...};
    std::tuple<Room<objects * Arrays::most_elements *int{sizeof(T)}>...> rooms;
    return std::apply(
        [&](auto &...r) __attribute__((always_inline)) {
            char *const room[] = {r.bytes_...};
            return f(WithRooms{sizeof...(Arrays), arrays, room, objects});
        },
        rooms);
}

} // namespace detail

// ---- walks --------------------------------------------------------------------------------------
//
// kernel(group, operands...) returns the failing lanes as bits; single(n) does object n in the
// arrays and returns its status; `allowed` tells which objects may be worked on at once. A group is
// as many objects as `registers` registers have lanes.

// In one form, which all arrays have.
template <class T, Form form, int registers = 1, class F, class... Arrays>
[[gnu::noinline]] ZelStatus walk_in(int count, const Overlap &overlap, const F &kernel,
                                    const Single &single, const Arrays &...array) {
    return detail::with_rooms<T, registers * lanes_per_register<T>>(
        [&](const WithRooms &arrays) __attribute__((always_inline)) {
            return walk_groups(count, overlap,
                               detail::kernel_of<T, form, registers, Arrays...>(kernel), single,
                               form, arrays);
        },
        array...);
}
// By planes, whatever the arrays are.
template <class T, class F, class... Arrays>
[[gnu::noinline]] ZelStatus walk_by_planes(int count, const Overlap &overlap, const F &kernel,
                                           const Single &single, const Arrays &...array) {
    constexpr int largest = (std::max)({Arrays::most_elements...});
    return detail::with_rooms<T, detail::objects_in_room<T, largest>>(
        [&](const WithRooms &arrays) __attribute__((always_inline)) {
            return walk_staged(count, overlap,
                               detail::kernel_of<T, Form::planes, 1, Arrays...>(kernel), single,
                               arrays);
        },
        array...);
}
// By rows, whose elements are adjacent in all arrays. Groups of dense objects may have several
// registers.
template <class T, int registers_of_dense = 1, class F, class... Arrays>
ZelStatus walk_by_rows(int count, const Overlap &overlap, const F &kernel, const Single &single,
                       const Arrays &...array) {
    if ((array.objects.is_dense() && ...))
        return walk_in<T, Form::dense, registers_of_dense>(count, overlap, kernel, single,
                                                           array...);
    return walk_in<T, Form::rows>(count, overlap, kernel, single, array...);
}
// In the form that the arrays have.
template <class T, int registers_of_dense = 1, class F, class... Arrays>
ZelStatus walk(int count, const Overlap &overlap, const F &kernel, const Single &single,
               const Arrays &...array) {
    const bool dense = (array.objects.is_dense() && ...);
    const bool rows = (array.objects.has_adjacent_rows() && ...);
    const bool planes = (array.objects.serves_as_planes() && ...);
    return dense || (rows && !planes)
               ? walk_by_rows<T, registers_of_dense>(count, overlap, kernel, single, array...)
               : walk_by_planes<T>(count, overlap, kernel, single, array...);
}
// Of shapes known at run time.
template <class T, int registers = 1, class F, class... Arrays>
ZELM_INLINE ZelStatus walk_blocks(int count, const Overlap &overlap, const F &kernel,
                                  const Single &single, const Arrays &...array) {
    return walk_in<T, Form::blocks, registers>(count, overlap, kernel, single, array...);
}
// For a kernel that never fails and takes a few instructions per group: dense objects pass in a
// bare loop, those behind the last full group singly.
template <class T, class F, class... Arrays>
ZelStatus walk_lightly(int count, const Overlap &overlap, const F &kernel, const Single &single,
                       const Arrays &...array) {
    constexpr int L = lanes_per_register<T>;
    if (!overlap.clear() || !(array.objects.is_dense() && ...))
        return walk<T>(count, overlap, kernel, single, array...);
    int first = 0;
    if (count >= L) {
        const Objects arrays[] = {array.objects...};
        const Kernel run = (array.objects.is_gapless() && ...)
                               ? detail::kernel_of<T, Form::gapless, 1, Arrays...>(kernel)
                               : detail::kernel_of<T, Form::dense, 1, Arrays...>(kernel);
        run.run(run.context, arrays, &first, count / L, false);
    }
    const int done = count - count % L;
    return walk_singly(count - done, [&](int n) { return single(done + n); });
}

} // namespace zelm
