// The walk over the objects of an array: lane groups where they are allowed, one object at a time
// elsewhere, stopping at the first object that fails.
//
// There is one commit rule. A kernel stores its group when no lane fails; a group that is not full,
// or in which a lane has failed, is computed on the stage and the objects before the first failure
// are copied back. Then the failing object is done alone, to leave it as a failure leaves it.
#pragma once

#include "overlap.hpp"
#include "stage.hpp"

#include <tuple>

namespace zelm {

// Where a kernel's group stands: objects first ... first + lanes - 1 of the operands it is given.
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

// An array operand of a walk, its objects' shape and the most elements that one can have. H and W
// are 0 where the shape is known at run time only.
template <class Operand, int elements, int H = 0, int W = 0, class Part = Whole>
struct Walked {
    template <int registers>
    using Stage = zelm::Stage<Operand, elements, Part, registers>;
    Operand operand;
    Shape shape;
};
template <int H, int W, class Part = Whole, class Operand>
ZELM_INLINE auto walked(const Operand &op) {
    const auto r = resolved<H, W, Part>(op);
    return Walked<std::remove_const_t<decltype(r)>, H * W, H, W, Part>{r, {H, W}};
}
template <int elements, class Part = Whole, class Operand>
ZELM_INLINE auto walked(const Operand &op, Shape shape) {
    return Walked<Operand, elements, 0, 0, Part>{op, shape};
}

namespace detail {
// Standard objects of a fixed shape may turn out dense; row numbers and scalars always are.
template <class W>
inline constexpr bool may_be_dense = false;
template <class T, int rank, int elements, int H, int W, class Part>
inline constexpr bool may_be_dense<Walked<Standard<T, rank, true>, elements, H, W, Part>> = H != 0;
template <class Int, int elements>
inline constexpr bool may_be_dense<Walked<IndexRows<Int>, elements>> = true;
template <class T>
inline constexpr bool may_be_dense<Walked<Scalars<T>, 1, 1, 1>> = true;

template <class Operand, int elements, int H, int W, class Part>
ZELM_INLINE bool dense_now(const Walked<Operand, elements, H, W, Part> &w) {
    return has_dense_objects(w.operand, {H, W});
}
template <class Int, int elements>
ZELM_INLINE bool dense_now(const Walked<IndexRows<Int>, elements> &) {
    return true;
}
template <bool gapless = false, class T, int rank, int elements, int H, int W, class Part>
ZELM_INLINE auto as_dense(const Walked<Standard<T, rank, true>, elements, H, W, Part> &w) {
    return Walked<Dense<T, H, W, gapless>, elements, H, W, Part>{
        {w.operand.object(0), w.operand.step()}, w.shape};
}
template <bool gapless = false, class Int, int elements>
ZELM_INLINE auto as_dense(const Walked<IndexRows<Int>, elements> &w) {
    return w;
}
template <bool gapless = false, class T>
ZELM_INLINE auto as_dense(const Walked<Scalars<T>, 1, 1, 1> &w) {
    return w;
}
template <class T, int rank, int elements, int H, int W, class Part>
ZELM_INLINE bool planar_now(const Walked<Standard<T, rank, true>, elements, H, W, Part> &w) {
    return w.operand.planar();
}
template <class T, int rank, int elements, int H, int W, class Part>
ZELM_INLINE auto as_planar(const Walked<Standard<T, rank, true>, elements, H, W, Part> &w) {
    const auto v = w.operand.view(0);
    return Walked<Planar<T>, elements, H, W, Part>{{v.base, v.stride1, v.stride2}, w.shape};
}
} // namespace detail

// Objects 0 ... count - 1 one by one, up to the first that fails.
template <class Single>
ZELM_INLINE ZelStatus walk_singly(int count, const Single &single) {
    for (int n = 0; n < count; ++n)
        if (const ZelStatus status = single(n))
            return status;
    return zelStatusOk;
}

// Groups begin at multiples of the lanes as long as no object fails.
template <class T, int registers = 1, class Allowed, class Kernel, class Single, class... Arrays>
ZELM_INLINE ZelStatus walk_groups(int count, const Allowed &allowed, const Kernel &kernel,
                                  const Single &single, const Arrays &...arrays) {
    constexpr int L = registers * lanes_per_register<T>;
    std::tuple<typename Arrays::template Stage<registers>...> stages;
    std::tuple operands(arrays.operand...);
    const auto each = [&](const auto &f) {
        [&]<std::size_t... k>(std::index_sequence<k...>) {
            (f(std::get<k>(stages), arrays, std::get<k>(operands)), ...);
        }
        (std::index_sequence_for<Arrays...>{});
    };

    bool failed_before = false; // and so computed once more, on the stage
    for (int n = 0; n < count;) {
        const int live = count - n < L ? count - n : L;
        if (live == 1 || !allowed.clear(n, live)) [[unlikely]] {
            if (const ZelStatus status = walk_singly(live, [&](int l) { return single(n + l); }))
                return status;
            n += live;
            continue;
        }
        GroupOf<registers> group = {{n, live < L || failed_before}};
        if (group.staged) [[unlikely]] {
            group.first = 0;
            each([&](auto &stage, const auto &array, auto &operand) {
                operand = stage.enter(array.operand, array.shape, n, live);
            });
        }
        // Where all objects are clear, the full groups that follow ask nothing more.
        int more = !group.staged && allowed.clear() ? (count - n) / L - 1 : 0;
        unsigned failing;
        for (;;) {
            failing = std::apply(
                [&](const auto &...o)
                    __attribute__((always_inline)) { return kernel(group, o...); },
                operands);
            if (failing != 0 || more-- == 0) [[unlikely]]
                break;
            group.first = n += L;
        }
        if (!group.staged) {
            if (failing == 0) {
                n += L;
                continue;
            }
            failed_before = true;
            // Nothing, but a branch: a select would have the next group's addresses wait for this
            // group's result.
            __asm__ volatile("");
            continue;
        }
        const int first_failing = failing == 0 ? L : __builtin_ctz(failing);
        const int commit = first_failing < live ? first_failing : live;
        each([&](auto &stage, const auto &array, auto &operand) {
            stage.leave(array.operand, array.shape, n, commit);
            operand = array.operand;
        });
        failed_before = false;
        n += commit;
        if (commit < live) {
            if (const ZelStatus status = single(n))
                return status;
            ++n;
        }
    }
    return zelStatusOk;
}

// kernel(group, operands...) returns the failing lanes as bits; single(n) does object n in the
// arrays and returns its status; `allowed` tells which objects may be worked on at once. Where all
// objects are dense the kernel is compiled for that, without a question asked in the loop. A group
// is as many objects as `registers` registers have lanes, or where objects are not dense, as many
// as `elsewhere` have. With `planes` the kernel is compiled for planar objects too.
template <class T, int registers = 1, int elsewhere = registers, bool planes = false, class Allowed,
          class Kernel, class Single, class... Arrays>
ZELM_INLINE ZelStatus walk(int count, const Allowed &allowed, const Kernel &kernel,
                           const Single &single, const Arrays &...arrays) {
    if constexpr ((detail::may_be_dense<Arrays> && ...))
        if ((detail::dense_now(arrays) && ...))
            return walk_groups<T, registers>(count, allowed, kernel, single,
                                             detail::as_dense(arrays)...);
    if constexpr (planes && (detail::may_be_dense<Arrays> && ...))
        if ((detail::planar_now(arrays) && ...))
            return walk_groups<T, elsewhere>(count, allowed, kernel, single,
                                             detail::as_planar(arrays)...);
    return walk_groups<T, elsewhere>(count, allowed, kernel, single, arrays...);
}

// The same for a kernel that never fails and for one that takes a few instructions per group: dense
// objects pass in a bare loop, those behind the last full group singly.
template <class T, class Allowed, class Kernel, class Single, class... Arrays>
ZELM_INLINE ZelStatus walk_lightly(int count, const Allowed &allowed, const Kernel &kernel,
                                   const Single &single, const Arrays &...arrays) {
    if constexpr ((detail::may_be_dense<Arrays> && ...))
        if (allowed.clear() && (detail::dense_now(arrays) && ...)) {
            constexpr int L = lanes_per_register<T>;
            const int full = count - count % L;
            const auto pass = [&](const auto... dense) __attribute__((always_inline)) {
                for (int n = 0; n < full; n += L)
                    kernel(Group{n, false}, dense.operand...);
            };
            if ((is_gapless(arrays.operand, arrays.shape) && ...))
                pass(detail::as_dense<true>(arrays)...);
            else
                pass(detail::as_dense(arrays)...);
            return walk_singly(count - full, [&](int n) { return single(full + n); });
        }
    return walk_groups<T>(count, allowed, kernel, single, arrays...);
}

} // namespace zelm
