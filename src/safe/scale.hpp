// Powers of two, lane by lane: what makes answers independent of scale.
#pragma once

#include "../frame/interleaved.hpp"

namespace zelm::safe {

template <class T>
struct Format {
    static constexpr bool single = sizeof(T) == 4;
    static constexpr int mantissa_bits = single ? 23 : 52;
    static constexpr int bias = single ? 127 : 1023;
    // Objects are brought here before they are worked on: as far up as leaves room for the growth
    // of an elimination, so that small elements beside large ones stay normal numbers.
    static constexpr int working_exponent = single ? 96 : 900;
    // Columns that are to be divided by: quotients of numbers near the working exponent are far
    // from either end of the range.
    static constexpr int factor_exponent = single ? 40 : 400;
    // What comes within 2^-reach and 2^reach has been computed without leaving the normal numbers.
    static constexpr int reach = single ? 60 : 500;
};

// Of closed forms, as powers of two: the least determinant, beside what bounds it, of which they
// are accurate, and the elements that no product of a few of them takes out of the range.
template <class T>
inline constexpr int determinant_ratio = sizeof(T) == 4 ? 9 : 12;
template <class T>
inline constexpr int element_reach = Format<T>::reach / 3;

template <class T>
constexpr T power(int exponent) { // of two
    return static_cast<T>(__builtin_ldexp(1.0, exponent));
}

// Lanes of integers as wide as an element.
template <class S>
ZELM_INLINE IndexOf<S> bits_of(S x) {
    return (IndexOf<S>)x;
}
// The exponent e of |x| = m * 2^e, 1 <= m < 2, of a normal number.
template <class T>
ZELM_INLINE IndexOf<Lanes<T>> exponent_of(Lanes<T> x) {
    using F = Format<T>;
    return ((bits_of(x) >> F::mantissa_bits) & (2 * F::bias + 1)) - F::bias;
}
// m with the sign of x.
template <class T>
ZELM_INLINE Lanes<T> mantissa_of(Lanes<T> x) {
    using F = Format<T>;
    using I = IndexOf<Lanes<T>>;
    const I exponent_bits = splat_index<Lanes<T>>(2 * F::bias + 1) << F::mantissa_bits;
    const I one = splat_index<Lanes<T>>(F::bias) << F::mantissa_bits;
    return (Lanes<T>)((bits_of(x) & ~exponent_bits) | one);
}
template <class I>
ZELM_INLINE I clamped(I x, int low, int high) {
    const I lo = I{} + low, hi = I{} + high;
    x = x < lo ? lo : x;
    return x > hi ? hi : x;
}
// 2^e for normal results.
template <class T>
ZELM_INLINE Lanes<T> power_of_two(IndexOf<Lanes<T>> e) {
    return (Lanes<T>)((e + Format<T>::bias) << Format<T>::mantissa_bits);
}
// x * 2^e, e of any size: rounded, if at all, where the result is subnormal.
template <class T>
ZELM_INLINE Lanes<T> scaled(Lanes<T> x, IndexOf<Lanes<T>> e) {
    constexpr int most = Format<T>::bias - 1;
    for (int step = 0; step < 3; ++step) {
        const auto part = clamped(e, -most, most);
        x = x * power_of_two<T>(part);
        e = e - part;
    }
    return x;
}

// The factor that brings the largest magnitude of an object to the exponent `to`, in two parts that
// are applied one after the other; subnormal objects come as far as that reaches.
template <class T>
struct Scale {
    using S = Lanes<T>;
    S first, second;
    IndexOf<S> exponent; // of the product

    ZELM_INLINE explicit Scale(S largest, int to = Format<T>::working_exponent) {
        const int low = to - Format<T>::bias;
        const auto small = largest < splat<S>(power<T>(low));
        first = select(small, splat<S>(power<T>(to)), splat<S>(1));
        // The factor is no smaller than the smallest normal number.
        const int high = to < 1 ? to + Format<T>::bias - 1 : Format<T>::bias;
        const auto e = clamped(exponent_of<T>(largest * first), low, high);
        second = power_of_two<T>(to - e);
        exponent = to - e + select(small, splat_index<S>(to), splat_index<S>(0));
    }
    ZELM_INLINE S operator()(S x) const { return x * first * second; }
};

// The largest magnitude, and whether all elements are finite.
template <class S>
struct Extent {
    S largest = splat<S>(0);
    S nothing = splat<S>(0); // NaN once an element was not finite

    ZELM_INLINE void note(S x) {
        largest = larger(magnitude(x), largest);
        nothing = nothing + (x - x);
    }
    ZELM_INLINE MaskOf<S> finite() const { return nothing == nothing; }
};

// Sets the status of the lanes of `mask` that have none.
template <class M>
ZELM_INLINE void set_status(int *statuses, const M &mask, int status) {
    for (unsigned bits = lane_bits(mask); bits != 0; bits &= bits - 1) {
        int &s = statuses[__builtin_ctz(bits)];
        s = s == 0 ? status : s;
    }
}

// NaN in the lanes that failed.
template <class S>
void blank_failures(const int *statuses, S *a, int elements) {
    using T = ElementOf<S>;
    for (int l = 0; l < lanes_of<S>; ++l)
        if (statuses[l] != 0)
            for (int e = 0; e < elements; ++e)
                reinterpret_cast<T *>(a + e)[l] = std::numeric_limits<T>::quiet_NaN();
}

} // namespace zelm::safe
