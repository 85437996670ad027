// Sums of products of two vectors, in the fixed orders of dot products and norms.
#pragma once

#include "../frame/operand.hpp"

namespace zelm {

// Ascending, straight-line: the products of objects of a fixed shape, one in each lane.
template <int H, int W, class S>
ZELM_INLINE S sum_of(const S (&terms)[H][W]) {
    S sum = terms[0][0];
    unroll<1, H * W>(ZELM_EACH(e) { sum = sum + terms[e / W][e % W]; });
    return sum;
}

inline constexpr int block_length = 8;

// Elements k ... k + 3 of a row.
template <bool adjacent, class T, class View>
ZELM_INLINE void load_four(Lanes<T> (&out)[4 / lanes_per_register<T>], const View &v, int i,
                           int k) {
    constexpr int L = lanes_per_register<T>;
    unroll<4 / L>(ZELM_EACH(r) {
        if constexpr (adjacent)
            out[r] = load<Lanes<T>>(v.at(i, k) + r * register_bytes);
        else {
            Lanes<T> lanes = {};
            unroll<L>(ZELM_EACH(l) { lanes[int{l}] = get(v, i, k + r * L + l); });
            out[r] = lanes;
        }
    });
}

// Adds the products of two rows to `sum`: the first `singles` one by one, then blocks of eight in
// two accumulators of four, which are added lane by lane, lanes 0 and 2, 1 and 3, and those two,
// and become one addend; then the rest one by one. -0 is where a sum begins that nothing was added
// to. Several objects take turns, so that none waits for its own additions.
template <bool adjacent, int objects, class T, class A, class B>
ZELM_INLINE void add_products(T (&sum)[objects], const A (&a)[objects], const B (&b)[objects],
                              int i, int len, int singles = 0) {
    constexpr int L = lanes_per_register<T>, registers = 4 / L;
    const auto add_one = [&](int k) __attribute__((always_inline)) {
        unroll<objects>(ZELM_EACH(o) { sum[o] = sum[o] + get(a[o], i, k) * get(b[o], i, k); });
    };
    int k = 0;
    for (const int before = singles < len ? singles : len; k < before; ++k)
        add_one(k);
    if (len - k >= block_length) {
        Lanes<T> even[objects][registers], odd[objects][registers];
        unroll<objects>(ZELM_EACH(o) {
            unroll<registers>(ZELM_EACH(r) { even[o][r] = odd[o][r] = splat<Lanes<T>>(T(-0.0)); });
        });
        const auto add_four = [&](auto &to, int from) __attribute__((always_inline)) {
            unroll<objects>(ZELM_EACH(o) {
                Lanes<T> x[registers], y[registers];
                load_four<adjacent, T>(x, a[o], i, from);
                load_four<adjacent, T>(y, b[o], i, from);
                unroll<registers>(ZELM_EACH(r) { to[o][r] = to[o][r] + x[r] * y[r]; });
            });
        };
        for (; k + block_length <= len; k += block_length) {
            add_four(even, k);
            add_four(odd, k + 4);
        }
        unroll<objects>(ZELM_EACH(o) {
            unroll<registers>(ZELM_EACH(r) { even[o][r] = even[o][r] + odd[o][r]; });
            const auto lane = [&](int l) __attribute__((always_inline)) {
                return even[o][l / L][l % L];
            };
            sum[o] = sum[o] + ((lane(0) + lane(2)) + (lane(1) + lane(3)));
        });
    }
    for (; k < len; ++k)
        add_one(k);
}

template <bool adjacent, class T, class A, class B>
ZELM_INLINE T add_products(T sum, const A &a, const B &b, int i, int len, int singles = 0) {
    T one[] = {sum};
    const A x[] = {a};
    const B y[] = {b};
    add_products<adjacent>(one, x, y, i, len, singles);
    return one[0];
}

} // namespace zelm
