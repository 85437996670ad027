// Reductions: each object, or pair of objects, of arrays becomes one scalar.
#pragma once

#include "../frame/walk.hpp"

namespace zelm {

// results(n) = f(object n of a, object n of b, ...) for objects of a fixed shape, one in each lane.
// f takes register arrays of one scalar-like type. A single operand beside arrays is read once.
template <int H, int W, class T, class F, class A, class... B>
void reduce_lanes(int count, const Scalars<T> &results, const F &f, const A &a, const B &...b) {
    static_assert(sizeof...(B) <= 1);
    using S = Lanes<T>;
    constexpr Shape shape = {H, W};
    const auto one = [&](const auto &op, int n, auto &x) __attribute__((always_inline)) {
        const auto v = view(op, n, shape);
        unroll<H>(ZELM_EACH(i) { unroll<W>(ZELM_EACH(j) { x[i][j] = get(v, i, j); }); });
    };
    const auto single = [&](int n) __attribute__((noinline)) {
        T x[H][W], y[H][W];
        one(a, n, x);
        (one(b, n, y), ...);
        if constexpr (sizeof...(B) == 0)
            results.base[n] = f(x);
        else
            results.base[n] = f(x, y);
        return zelStatusOk;
    };
    const Footprint to(results, {1, 1});
    const Footprint from(a, shape);
    if constexpr (sizeof...(B) == 0) {
        const Overlap overlap(count, {1, 1}, to, from);
        walk<T>(
            count, overlap,
            [&](const Group &group, const auto &r, const auto &x) __attribute__((always_inline)) {
                S left[H][W];
                load_lanes<T>(left, x, group.first);
                store<S>(r.object(group.first), f(left));
                return 0u;
            },
            single, walked<1, 1>(results), walked<H, W>(a));
    } else {
        const auto &second = std::get<0>(std::tie(b...));
        const Footprint beside(second, shape);
        const Overlap overlap(count, {1, 1}, to, from, beside);
        if constexpr (std::remove_reference_t<decltype(second)>::is_array) {
            walk<T>(
                count, overlap,
                [&](const Group &group, const auto &r, const auto &x, const auto &y)
                    __attribute__((always_inline)) {
                        S left[H][W], right[H][W];
                        load_lanes<T>(left, x, group.first);
                        load_lanes<T>(right, y, group.first);
                        store<S>(r.object(group.first), f(left, right));
                        return 0u;
                    },
                single, walked<1, 1>(results), walked<H, W>(a), walked<H, W>(second));
        } else {
            S right[H][W];
            load_splat<T>(right, view(second, 0, shape));
            walk<T>(
                count, overlap,
                [&](const Group &group, const auto &r, const auto &x)
                    __attribute__((always_inline)) {
                        S left[H][W];
                        load_lanes<T>(left, x, group.first);
                        store<S>(r.object(group.first), f(left, right));
                        return 0u;
                    },
                single, walked<1, 1>(results), walked<H, W>(a));
        }
    }
}

} // namespace zelm
