// Sums of products of two vectors, in the fixed orders of dot products and norms.
#pragma once

#include "../frame/operand.hpp"

namespace zelm {

inline constexpr int block_length = 8;

// A row of N products, its blocks of eight added up in two accumulators of four lanes and these
// lane by lane: the four sums, then the products behind the blocks.
template <class S, int N>
struct Folded {
    static_assert(N >= block_length);
    S terms[4 + N % block_length];
};
// Lane `l` of the four, or a register of lanes from there on. term(e) is the product of element e,
// or a register of products.
template <int N, class S, class Term>
ZELM_INLINE S folded(int l, const Term &term) {
    const auto accumulator = [&](int first) __attribute__((always_inline)) {
        S sum = term(first);
        unroll<1, N / block_length>(
            ZELM_EACH(block) { sum = sum + term(block * block_length + first); });
        return sum;
    };
    const S even = accumulator(l);
    return even + accumulator(4 + l);
}
template <int N, class S>
ZELM_INLINE S sum_of(const Folded<S, N> &row) {
    const S(&t)[4 + N % block_length] = row.terms;
    S sum = (t[0] + t[2]) + (t[1] + t[3]);
    unroll<4, 4 + N % block_length>(ZELM_EACH(e) { sum = sum + t[e]; });
    return sum;
}

// Straight-line, as one row: the products of objects of a fixed shape, one in each lane.
template <int H, int W, class S>
ZELM_INLINE S sum_of(const S (&terms)[H][W]) {
    constexpr int N = H * W;
    const auto term = [&](int e) __attribute__((always_inline)) { return terms[e / W][e % W]; };
    if constexpr (N < block_length) {
        S sum = terms[0][0];
        unroll<1, N>(ZELM_EACH(e) { sum = sum + term(e); });
        return sum;
    } else {
        Folded<S, N> row;
        unroll<4>(ZELM_EACH(l) { row.terms[l] = folded<N, S>(l, term); });
        unroll<N % block_length>(
            ZELM_EACH(e) { row.terms[4 + e] = term(N - N % block_length + e); });
        return sum_of(row);
    }
}

// A row whose elements are adjacent: the step is a constant.
template <class T>
struct AdjacentRow {
    ByteOf<T> *base;

    ZELM_INLINE ByteOf<T> *at(int, int k) const { return base + k * Distance{sizeof(T)}; }
};
template <class View>
inline constexpr bool is_adjacent = false;
template <class T>
inline constexpr bool is_adjacent<AdjacentRow<T>> = true;

// Elements k ... k + 3 of a row.
template <class T, class View>
ZELM_INLINE void load_four(RowLanes<T> (&out)[4 / lanes_per_row<T>], const View &v, int i, int k) {
    constexpr int L = lanes_per_row<T>;
    unroll<4 / L>(ZELM_EACH(r) {
        if constexpr (is_adjacent<View>)
            out[r] = load<RowLanes<T>>(v.at(i, k) + r * row_bytes);
        else {
            RowLanes<T> lanes = {};
            unroll<L>(ZELM_EACH(l) { lanes[int{l}] = get(v, i, k + r * L + l); });
            out[r] = lanes;
        }
    });
}

// Lanes 0 and 2, 1 and 3, then those two.
ZELM_INLINE float sum_of_four(const RowLanes<float> (&v)[1]) {
    const RowLanes<float> half = v[0] + __builtin_shufflevector(v[0], v[0], 2, 3, 2, 3);
    return half[0] + half[1];
}
ZELM_INLINE double sum_of_four(const RowLanes<double> (&v)[2]) {
    const RowLanes<double> half = v[0] + v[1];
    return half[0] + half[1];
}

// Adds the products of two rows to `sum`, or where they are no squares puts their sum there: the
// first `singles` one by one, then blocks of eight in two accumulators of four, which are added
// lane by lane, lanes 0 and 2, 1 and 3, and those two, and become one addend; then the rest one by
// one. No number is neutral in every rounding mode: sums of squares, of which none is -0, begin
// with 0, others, accumulators too, with their first term. Several objects take turns, so that none
// waits for its own additions.
template <bool squares, int objects, class T, class A, class B>
ZELM_INLINE void add_products(T (&sum)[objects], const A (&a)[objects], const B (&b)[objects],
                              int i, int len, int singles = 0) {
    constexpr int registers = 4 / lanes_per_row<T>;
    const auto product = [&](int o, int k) __attribute__((always_inline)) {
        return get(a[o], i, k) * get(b[o], i, k);
    };
    const auto add_one = [&](int k) __attribute__((always_inline)) {
        unroll<objects>(ZELM_EACH(o) { sum[o] = sum[o] + product(o, k); });
    };
    const int before = singles < len ? singles : len;
    int k = 0;
    if (!squares && (before != 0 || len < block_length)) {
        unroll<objects>(ZELM_EACH(o) { sum[o] = product(o, 0); });
        k = 1;
    }
    const bool begun = squares || k != 0;
    for (; k < before; ++k)
        add_one(k);
    if (len - k >= block_length) {
        RowLanes<T> even[objects][registers], odd[objects][registers];
        const auto add_four = [&](auto &to, int from, auto added) __attribute__((always_inline)) {
            unroll<objects>(ZELM_EACH(o) {
                RowLanes<T> x[registers], y[registers];
                load_four<T>(x, a[o], i, from);
                load_four<T>(y, b[o], i, from);
                unroll<registers>(ZELM_EACH(r) {
                    if constexpr (added)
                        to[o][r] = to[o][r] + x[r] * y[r];
                    else
                        to[o][r] = x[r] * y[r];
                });
            });
        };
        if constexpr (squares) {
            unroll<objects>(ZELM_EACH(o) {
                unroll<registers>(ZELM_EACH(r) { even[o][r] = odd[o][r] = splat<RowLanes<T>>(0); });
            });
        } else {
            add_four(even, k, std::false_type{});
            add_four(odd, k + 4, std::false_type{});
            k += block_length;
        }
        for (; k <= len - block_length; k += block_length) {
            add_four(even, k, std::true_type{});
            add_four(odd, k + 4, std::true_type{});
        }
        unroll<objects>(ZELM_EACH(o) {
            unroll<registers>(ZELM_EACH(r) { even[o][r] = even[o][r] + odd[o][r]; });
            const T blocks = sum_of_four(even[o]);
            sum[o] = begun ? sum[o] + blocks : blocks;
        });
    }
    for (; k < len; ++k)
        add_one(k);
}

template <class T, class A>
ZELM_INLINE T add_squares(T sum, const A &a, int i, int len) {
    T one[] = {sum};
    const A x[] = {a};
    add_products<true>(one, x, x, i, len);
    return one[0];
}
template <class T, class A, class B>
ZELM_INLINE T sum_of_products(const A &a, const B &b, int len, int singles) {
    T one[1] = {};
    const A x[] = {a};
    const B y[] = {b};
    add_products<false>(one, x, y, 0, len, singles);
    return one[0];
}

} // namespace zelm
