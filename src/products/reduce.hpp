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
        char *at[L], *beside[L];
        lane_objects(at, a, first);
        lane_objects(beside, b, first);
        load_from<T, H * W>(terms[0], ProductRuns<T>{{at}, {beside}});
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
    Runs<T> runs;

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
    char *at[lanes_per_register<T>];
    lane_objects(at, a, first);
    const Runs<T> runs = {at};
    load_from<T, 4>(row.terms, FoldedSquares<T, N>{runs});
    unroll<N % block_length>(ZELM_EACH(e) {
        const Lanes<T> x = runs.gathered((N - N % block_length + e) * Distance{sizeof(T)});
        row.terms[4 + e] = x * x;
    });
}

// The sum f of the squares of an object, one object in each lane. f takes register arrays of one
// scalar-like type, or rows folded.
template <int H, int W, class T, class F>
struct ReduceSquares {
    template <class A>
    ZELM_INLINE unsigned operator()(const Group &group, const Scalars<T> &r, const A &a) const {
        using S = Lanes<T>;
        if constexpr (H * W >= block_length && is_dense<A>) {
            Folded<S, H * W> row;
            load_squares<T, H * W>(row, a, group.first);
            store<S>(r.object(group.first), F{}(row));
        } else {
            S terms[H][W];
            load_lanes<T>(terms, a, group.first);
            unroll<H * W>(
                ZELM_EACH(e) { terms[e / W][e % W] = terms[e / W][e % W] * terms[e / W][e % W]; });
            store<S>(r.object(group.first), F{}(terms));
        }
        return 0;
    }
};
// Of the products of two objects.
template <int H, int W, class T, class F>
struct ReducePairs {
    template <class A, class B>
    ZELM_INLINE unsigned operator()(const Group &group, const Scalars<T> &r, const A &a,
                                    const B &b) const {
        Lanes<T> terms[H][W];
        load_products<T>(terms, a, b, group.first);
        store<Lanes<T>>(r.object(group.first), F{}(terms));
        return 0;
    }
};
// Of the products with one object, which is read once.
template <int H, int W, class T, class F>
struct ReduceWithOne {
    Lanes<T> fixed[H][W];

    template <class A>
    ZELM_INLINE unsigned operator()(const Group &group, const Scalars<T> &r, const A &a) const {
        Lanes<T> terms[H][W];
        load_lanes<T>(terms, a, group.first);
        unroll<H * W>(
            ZELM_EACH(e) { terms[e / W][e % W] = terms[e / W][e % W] * fixed[e / W][e % W]; });
        store<Lanes<T>>(r.object(group.first), F{}(terms));
        return 0;
    }
};

namespace detail {
template <class F, int H, int W, class T>
void reduce_squares(int count, const Scalars<T> &results, const Objects &a, const Single &single) {
    const auto to = walked_scalars(results);
    walk_lightly<T>(count, Overlap(count, to.objects, a), ReduceSquares<H, W, T, F>{}, single, to,
                    walked<T, H, W>(a));
}
template <class F, int H, int W, class T, bool b_is_array>
void reduce_products(int count, const Scalars<T> &results, const Objects &a, const Objects &b,
                     const Single &single) {
    const auto to = walked_scalars(results);
    const auto from = walked<T, H, W>(a);
    const Overlap overlap(count, to.objects, a, b);
    if constexpr (b_is_array) {
        walk_lightly<T>(count, overlap, ReducePairs<H, W, T, F>{}, single, to, from,
                        walked<T, H, W>(b));
    } else {
        ReduceWithOne<H, W, T, F> kernel;
        load_splat<T>(kernel.fixed[0], b);
        walk_lightly<T>(count, overlap, kernel, single, to, from);
    }
}
} // namespace detail

// results(n) = F of the products of object n of a with object n of b, or with itself, for objects
// of a fixed shape.
template <class F, int H, int W, class T, class A, class... B>
void reduce_lanes(int count, const Scalars<T> &results, const A &a, const B &...b) {
    static_assert(sizeof...(B) <= 1);
    constexpr Shape shape = {H, W};
    const auto single = [&](int n) {
        T terms[H][W];
        const auto x = view(a, n, shape);
        const auto multiply = [&](const auto &y) __attribute__((always_inline)) {
            unroll<H * W>(ZELM_EACH(e) {
                terms[e / W][e % W] = get(x, e / W, e % W) * get(y, e / W, e % W);
            });
        };
        if constexpr (sizeof...(B) == 0)
            multiply(x);
        else
            multiply(view(b..., n, shape));
        store<T>(results.object(n), F{}(terms));
        return zelStatusOk;
    };
    if constexpr (sizeof...(B) == 0)
        detail::reduce_squares<F, H, W, T>(count, results, with_even_strides(objects(a, shape)),
                                           single);
    else
        detail::reduce_products<F, H, W, T, (B::is_array && ...)>(count, results, objects(a, shape),
                                                                  objects(b, shape)..., single);
}

} // namespace zelm
