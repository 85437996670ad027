// Registers of lanes; simd.hpp says how wide they are.
//
// An algorithm is a template over a scalar-like type S: an element type T (float, double) or
// Lanes<T>, one object per lane. It uses + - * /, comparisons and the functions below and nothing
// else, so a lane computes exactly what the scalar instance computes.
#pragma once

#include "simd.hpp"

#include <cmath>
#include <limits>

namespace zelm {

template <class S>
using ElementOf = typename detail::Traits<S>::Element;
template <class S>
using MaskOf = typename detail::Traits<S>::Mask;
template <class S>
using IndexOf = typename detail::Traits<S>::Index; // as wide as an element, lane by lane
template <class S>
inline constexpr int lanes_of = detail::Traits<S>::lanes;
template <class S>
inline constexpr unsigned all_lanes = ~0u >> (32 - lanes_of<S>); // as lane_bits() gives them

template <class T>
inline constexpr T epsilon = std::numeric_limits<T>::epsilon(); // 2^-23, 2^-52
template <class T>
inline constexpr T smallest_normal = std::numeric_limits<T>::min(); // 2^-126, 2^-1022

// Runs f(0) ... f(N - 1) with the number as a compile-time constant: loops over register arrays
// written this way leave no index behind, so the arrays stay in registers.
template <int N, class F>
ZELM_INLINE constexpr void unroll(F &&f) {
    [&]<int... i>(std::integer_sequence<int, i...>) __attribute__((always_inline)) {
        (f(std::integral_constant<int, i>{}), ...);
    }
    (std::make_integer_sequence<int, N>{});
}
template <int From, int To, class F>
ZELM_INLINE constexpr void unroll(F &&f) {
    if constexpr (From < To)
        [&]<int... i>(std::integer_sequence<int, i...>) __attribute__((always_inline)) {
            (f(std::integral_constant<int, From + i>{}), ...);
        }
    (std::make_integer_sequence<int, To - From>{});
}
#define ZELM_EACH(i) [&](auto i) __attribute__((always_inline))

// f(n as a compile-time constant) where n is From ... To, else otherwise().
template <int From, int To, class F, class G>
ZELM_INLINE auto with_order(int n, const F &f, const G &otherwise) {
    if constexpr (From > To) {
        return otherwise();
    } else {
        if (n == From)
            return f(std::integral_constant<int, From>{});
        return with_order<From + 1, To>(n, f, otherwise);
    }
}

// Every lane x.
template <class S>
ZELM_INLINE S splat(ElementOf<S> x) {
    if constexpr (lanes_of<S> == 1)
        return x;
    else if constexpr (Register<S> && std::is_integral_v<ElementOf<S>>)
        return S{} + x;
    else if constexpr (Register<S>)
        return Primitives<S>::splat(x);
    else
        return S::splat(x);
}
// Lane l of v in every lane.
template <int l, Register V>
ZELM_INLINE V splat_lane(V v) {
    return Primitives<V>::template splat_lane<l>(v);
}
template <class S>
ZELM_INLINE IndexOf<S> splat_index(int i) {
    if constexpr (requires { IndexOf<S>::splat(i); })
        return IndexOf<S>::splat(i);
    else
        return IndexOf<S>{} + i;
}

template <class M, class V>
ZELM_INLINE V select(M mask, V yes, V no) {
    return mask ? yes : no;
}
template <class Int, int N, class V>
ZELM_INLINE V select(Mask<Int, N> mask, V yes, V no) {
    return mask.lanes ? yes : no;
}
template <class Int, int N>
ZELM_INLINE Mask<Int, N> select(Mask<Int, N> mask, Mask<Int, N> yes, Mask<Int, N> no) {
    return mask.lanes ? yes.lanes : no.lanes;
}

ZELM_INLINE float magnitude(float x) { return __builtin_fabsf(x); }
ZELM_INLINE double magnitude(double x) { return __builtin_fabs(x); }
template <Register V>
ZELM_INLINE V magnitude(V x) {
    using I = IndexOf<V>;
    using Int = std::remove_cvref_t<decltype(I{}[0])>;
    return (V)((I)x & std::numeric_limits<Int>::max());
}

// x where it is greater, or smaller, than y, else y: y too where one of them is NaN.
template <class T>
requires std::is_floating_point_v<T> ZELM_INLINE T larger(T x, T y) { return x > y ? x : y; }
template <class T>
requires std::is_floating_point_v<T> ZELM_INLINE T smaller(T x, T y) { return x < y ? x : y; }
template <Register V>
ZELM_INLINE V larger(V x, V y) {
    return Primitives<V>::larger(x, y);
}
template <Register V>
ZELM_INLINE V smaller(V x, V y) {
    return Primitives<V>::smaller(x, y);
}

// Correctly rounded.
ZELM_INLINE float square_root(float x) { return std::sqrt(x); }
ZELM_INLINE double square_root(double x) { return std::sqrt(x); }
template <Register V>
ZELM_INLINE V square_root(V x) {
    return Primitives<V>::square_root(x);
}

// 1 / x and 1 / sqrt(x): exact roots and quotients in double; in float the processor's
// approximation after one Newton step, within about 2 units in the last place, 3 for roots. A step
// forms no square of the approximation, which could be subnormal or infinite. Of a float that is 0,
// subnormal or infinite the result is infinite or NaN; of one from 2^126 on the reciprocal is 0.
template <class S>
ZELM_INLINE S refined_reciprocal(S x) {
    if constexpr (!std::is_same_v<ElementOf<S>, float>) {
        return 1.0 / x;
    } else if constexpr (lanes_of<S> == 1) {
        return refined_reciprocal(splat<RowLanes<float>>(x))[0];
    } else {
        const S r = Primitives<S>::reciprocal(x);
        return r * (2.0f - x * r);
    }
}
template <class S>
ZELM_INLINE S refined_reciprocal_root(S x) {
    if constexpr (!std::is_same_v<ElementOf<S>, float>) {
        return 1.0 / square_root(x);
    } else if constexpr (lanes_of<S> == 1) {
        return refined_reciprocal_root(splat<RowLanes<float>>(x))[0];
    } else {
        const S r = Primitives<S>::reciprocal_root(x);
        return -0.5f * r * (x * r * r - 3.0f);
    }
}

// The mask with no lane set, and the lanes of a mask as bits, lane 0 lowest.
template <class S>
ZELM_INLINE MaskOf<S> no_lane() {
    return MaskOf<S>{};
}
// The lanes of `mask` without those of `other`.
ZELM_INLINE bool and_not(bool mask, bool other) { return mask && !other; }
template <class M>
ZELM_INLINE M and_not(M mask, M other) {
    return mask & ~other;
}
ZELM_INLINE bool complement(bool mask) { return !mask; }
template <class M>
ZELM_INLINE M complement(M mask) {
    return ~mask;
}
ZELM_INLINE unsigned lane_bits(bool mask) { return mask; }
template <Register M>
ZELM_INLINE unsigned lane_bits(M comparison) {
    return Primitives<M>::bits(comparison);
}
template <class Int, int N>
ZELM_INLINE unsigned lane_bits(Mask<Int, N> mask) {
    return lane_bits(mask.lanes);
}

// v, loaded as a whole: the compiler may not take its load apart into loads of elements.
template <class V>
ZELM_INLINE V whole(V v) {
    __asm__("" : "+x"(v));
    return v;
}

// The first K elements at p, in the low lanes; the other lanes are 0.
template <int K, Register V>
ZELM_INLINE V load_part(const char *p) {
    return Primitives<V>::template load_part<K>(p);
}
// The low K lanes of v to p.
template <int K, Register V>
ZELM_INLINE void store_part(char *p, V v) {
    Primitives<V>::template store_part<K>(p, v);
}

// Rows to columns: v[l] holds consecutive elements of object l; afterwards v[e] holds element e of
// every object. The same exchange turns columns back into rows.
template <Register V>
ZELM_INLINE void transpose(V (&v)[lanes_of<V>]) {
    Primitives<V>::transpose(v);
}
// The same for objects of three elements that follow one another without gaps: three registers hold
// them all.
template <Register V>
ZELM_INLINE void split_triples(V (&v)[3]) {
    Primitives<V>::split_triples(v);
}
template <Register V>
ZELM_INLINE void join_triples(V (&v)[3]) {
    Primitives<V>::join_triples(v);
}

} // namespace zelm
