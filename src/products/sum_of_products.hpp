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
// to.
template <bool adjacent, class T, class A, class B>
ZELM_INLINE T add_products(T sum, const A &a, const B &b, int i, int len, int singles = 0) {
    constexpr int L = lanes_per_register<T>, registers = 4 / L;
    int k = 0;
    const int before = singles < len ? singles : len;
    for (; k < before; ++k)
        sum = sum + get(a, i, k) * get(b, i, k);
    if (len - k >= block_length) {
        Lanes<T> even[registers], odd[registers], x[registers], y[registers];
        unroll<registers>(ZELM_EACH(r) { even[r] = odd[r] = splat<Lanes<T>>(T(-0.0)); });
        for (; k + block_length <= len; k += block_length) {
            load_four<adjacent, T>(x, a, i, k);
            load_four<adjacent, T>(y, b, i, k);
            unroll<registers>(ZELM_EACH(r) { even[r] = even[r] + x[r] * y[r]; });
            load_four<adjacent, T>(x, a, i, k + 4);
            load_four<adjacent, T>(y, b, i, k + 4);
            unroll<registers>(ZELM_EACH(r) { odd[r] = odd[r] + x[r] * y[r]; });
        }
        unroll<registers>(ZELM_EACH(r) { even[r] = even[r] + odd[r]; });
        const auto lane = [&](int l) { return even[l / L][l % L]; };
        sum = sum + ((lane(0) + lane(2)) + (lane(1) + lane(3)));
    }
    for (; k < len; ++k)
        sum = sum + get(a, i, k) * get(b, i, k);
    return sum;
}

} // namespace zelm
