// Reductions: each object, or pair of objects, of arrays becomes one scalar.
#pragma once

#include "sum_of_products.hpp"

#include "../frame/walk.hpp"

namespace zelm {

// The products of two objects element by element, in each lane. Of dense objects the products are
// formed as the elements lie in memory, and only they are transposed.
template <class T, int H, int W, class A, class B>
ZELM_INLINE void load_products(Lanes<T> (&terms)[H][W], const A &a, const B &b, int first) {
    constexpr int L = lanes_per_register<T>;
    if constexpr (is_dense<A> && is_dense<B>) {
        constexpr Distance triple = 3 * Distance{sizeof(T)};
        const char *const x = a.object(first), *const y = b.object(first);
        if constexpr (H * W == 3)
            if (a.step() == triple && b.step() == triple) {
                Lanes<T> t[3];
                unroll<3>(ZELM_EACH(r) {
                    t[r] = load<Lanes<T>>(x + r * register_bytes) *
                           load<Lanes<T>>(y + r * register_bytes);
                });
                split_triples(t);
                unroll<3>(ZELM_EACH(r) { terms[r / W][r % W] = t[r]; });
                return;
            }
        const char *at[L], *beside[L];
        detail::lane_objects<T>(at, a, first);
        detail::lane_objects<T>(beside, b, first);
        detail::load_from<T, H * W>(terms[0], detail::ProductRuns<T>{{at}, {beside}});
    } else {
        Lanes<T> right[H][W];
        load_lanes<T>(terms, a, first);
        load_lanes<T>(right, b, first);
        unroll<H * W>(
            ZELM_EACH(e) { terms[e / W][e % W] = terms[e / W][e % W] * right[e / W][e % W]; });
    }
}

// The squares of dense objects of a fixed shape, folded as they lie in memory: only the four sums
// of each object are transposed.
template <class T, int N>
struct FoldedSquares {
    detail::Runs<T> runs;

    template <int K>
    ZELM_INLINE Lanes<T> part(int lane, Distance offset) const {
        return folded<N, Lanes<T>>(
            0, [&](int e) __attribute__((always_inline)) {
                const Lanes<T> x = runs.template part<K>(lane, offset + e * Distance{sizeof(T)});
                return x * x;
            });
    }
};
template <class T, int N, class A>
ZELM_INLINE void load_squares(Folded<Lanes<T>, N> &row, const A &a, int first) {
    const char *at[lanes_per_register<T>];
    detail::lane_objects<T>(at, a, first);
    const detail::Runs<T> runs = {at};
    detail::load_from<T, 4>(row.terms, FoldedSquares<T, N>{runs});
    unroll<N % block_length>(ZELM_EACH(e) {
        const Lanes<T> x = runs.gathered((N - N % block_length + e) * Distance{sizeof(T)});
        row.terms[4 + e] = x * x;
    });
}

// results(n) = f(the products of object n of a with object n of b, or with itself) for objects of a
// fixed shape, one in each lane. f takes register arrays of one scalar-like type, or rows folded. A
// single operand beside arrays is read once.
template <int H, int W, class T, class F, class A, class... B>
void reduce_lanes(int count, const Scalars<T> &results, const F &f, const A &a, const B &...b) {
    static_assert(sizeof...(B) <= 1);
    using S = Lanes<T>;
    constexpr Shape shape = {H, W};
    constexpr bool squares = sizeof...(B) == 0, pairs = !squares && (B::is_array && ...);
    const auto single = [&](int n) __attribute__((noinline)) {
        T terms[H][W];
        const auto x = view(a, n, shape);
        const auto multiply = [&](const auto &y) __attribute__((always_inline)) {
            unroll<H * W>(ZELM_EACH(e) {
                terms[e / W][e % W] = get(x, e / W, e % W) * get(y, e / W, e % W);
            });
        };
        if constexpr (squares)
            multiply(x);
        else
            multiply(view(b..., n, shape));
        store<T>(results.object(n), f(terms));
        return zelStatusOk;
    };
    S fixed[H][W];
    if constexpr (!squares && !pairs)
        load_splat<T>(fixed, view(b..., 0, shape));
    const auto kernel = [&](const Group &group, const auto &r, const auto &...o)
        __attribute__((always_inline)) {
        if constexpr (squares && H * W >= block_length)
            if constexpr ((is_dense<std::decay_t<decltype(o)>> && ...)) {
                Folded<S, H * W> row;
                load_squares<T, H * W>(row, o..., group.first);
                store<S>(r.object(group.first), f(row));
                return 0u;
            }
        S terms[H][W];
        if constexpr (pairs) {
            load_products<T>(terms, o..., group.first);
        } else {
            load_lanes<T>(terms, o..., group.first);
            unroll<H * W>(ZELM_EACH(e) {
                S &term = terms[e / W][e % W];
                term = term * (squares ? term : fixed[e / W][e % W]);
            });
        }
        store<S>(r.object(group.first), f(terms));
        return 0u;
    };
    const Footprint to(results, {1, 1});
    const Footprint from(a, shape);
    if constexpr (squares) {
        walk_lightly<T>(count, Overlap(count, {1, 1}, to, from), kernel, single,
                        walked<1, 1>(results), walked<H, W>(a));
    } else {
        const Footprint beside(b..., shape);
        const Overlap overlap(count, {1, 1}, to, from, beside);
        if constexpr (pairs)
            walk_lightly<T>(count, overlap, kernel, single, walked<1, 1>(results), walked<H, W>(a),
                            walked<H, W>(b...));
        else
            walk_lightly<T>(count, overlap, kernel, single, walked<1, 1>(results), walked<H, W>(a));
    }
}

} // namespace zelm
