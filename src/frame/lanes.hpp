// Registers of lanes: the one place that knows how wide a register is.
//
// An algorithm is a template over a scalar-like type S: an element type T (float, double) or
// Lanes<T>, one object per lane. It uses + - * /, comparisons, select, magnitude and nothing else,
// so a lane computes exactly what the scalar instance computes.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <immintrin.h>
#include <limits>
#include <type_traits>
#include <utility>

#define ZELM_INLINE [[gnu::always_inline]] inline

namespace zelm {

inline constexpr int register_bytes = 16;

template <class T>
inline constexpr int lanes_per_register = register_bytes / static_cast<int>(sizeof(T));

namespace detail {
template <class T>
struct Register {
    typedef T type __attribute__((vector_size(register_bytes)));
};
template <class S>
struct Traits { // a plain element: one lane
    using Element = S;
    using Mask = bool;
    using Index = int;
    static constexpr int lanes = 1;
};
template <class T, class Int>
struct LaneTraits {
    using Element = T;
    using Mask = typename Register<Int>::type;
    using Index = typename Register<Int>::type;
    static constexpr int lanes = lanes_per_register<T>;
};
template <>
struct Traits<Register<float>::type> : LaneTraits<float, std::int32_t> {};
template <>
struct Traits<Register<double>::type> : LaneTraits<double, std::int64_t> {};
} // namespace detail

template <class T>
using Lanes = typename detail::Register<T>::type;
template <class S>
using ElementOf = typename detail::Traits<S>::Element;
template <class S>
using MaskOf = typename detail::Traits<S>::Mask;
template <class S>
using IndexOf = typename detail::Traits<S>::Index; // as wide as an element, lane by lane
template <class S>
inline constexpr int lanes_of = detail::Traits<S>::lanes;
template <class S>
inline constexpr unsigned all_lanes = (1u << lanes_of<S>)-1; // as lane_bits() gives them

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
    else if constexpr (requires { S::splat(x); })
        return S::splat(x);
    else
        return S{} + x;
}
template <>
ZELM_INLINE Lanes<float> splat<Lanes<float>>(float x) {
    return Lanes<float>{x, x, x, x};
}
template <>
ZELM_INLINE Lanes<double> splat<Lanes<double>>(double x) {
    return Lanes<double>{x, x};
}
// Lane l of v in every lane.
template <int l>
ZELM_INLINE Lanes<float> splat_lane(Lanes<float> v) {
    return (Lanes<float>)_mm_shuffle_epi32((__m128i)v, l * 0x55);
}
template <int l>
ZELM_INLINE Lanes<double> splat_lane(Lanes<double> v) {
    return (Lanes<double>)_mm_shuffle_epi32((__m128i)v, l == 0 ? 0x44 : 0xee);
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

ZELM_INLINE float magnitude(float x) { return __builtin_fabsf(x); }
ZELM_INLINE double magnitude(double x) { return __builtin_fabs(x); }
ZELM_INLINE Lanes<float> magnitude(Lanes<float> x) {
    return (Lanes<float>)((Lanes<std::int32_t>)x & 0x7fffffff);
}
ZELM_INLINE Lanes<double> magnitude(Lanes<double> x) {
    return (Lanes<double>)((Lanes<std::int64_t>)x & 0x7fffffffffffffff);
}

// x where it is greater, or smaller, than y, else y: y too where one of them is NaN.
template <class T>
ZELM_INLINE T larger(T x, T y) {
    return x > y ? x : y;
}
template <class T>
ZELM_INLINE T smaller(T x, T y) {
    return x < y ? x : y;
}
template <>
ZELM_INLINE Lanes<float> larger(Lanes<float> x, Lanes<float> y) {
    return (Lanes<float>)_mm_max_ps((__m128)x, (__m128)y);
}
template <>
ZELM_INLINE Lanes<float> smaller(Lanes<float> x, Lanes<float> y) {
    return (Lanes<float>)_mm_min_ps((__m128)x, (__m128)y);
}
template <>
ZELM_INLINE Lanes<double> larger(Lanes<double> x, Lanes<double> y) {
    return (Lanes<double>)_mm_max_pd((__m128d)x, (__m128d)y);
}
template <>
ZELM_INLINE Lanes<double> smaller(Lanes<double> x, Lanes<double> y) {
    return (Lanes<double>)_mm_min_pd((__m128d)x, (__m128d)y);
}

// Correctly rounded.
ZELM_INLINE float square_root(float x) { return std::sqrt(x); }
ZELM_INLINE double square_root(double x) { return std::sqrt(x); }
ZELM_INLINE Lanes<float> square_root(Lanes<float> x) {
    return (Lanes<float>)_mm_sqrt_ps((__m128)x);
}
ZELM_INLINE Lanes<double> square_root(Lanes<double> x) {
    return (Lanes<double>)_mm_sqrt_pd((__m128d)x);
}

// 1 / x and 1 / sqrt(x): exact roots and quotients in double; in float the processor's
// approximation after one Newton step, within about 2 units in the last place, 3 for roots. A step
// forms no square of the approximation, which could be subnormal or infinite. Of a float that is 0,
// subnormal or infinite the result is infinite or NaN; of one from 2^126 on the reciprocal is 0.
ZELM_INLINE Lanes<float> refined_reciprocal(Lanes<float> x) {
    const auto r = (Lanes<float>)_mm_rcp_ps((__m128)x);
    return r * (2.0f - x * r);
}
ZELM_INLINE Lanes<float> refined_reciprocal_root(Lanes<float> x) {
    const auto r = (Lanes<float>)_mm_rsqrt_ps((__m128)x);
    return -0.5f * r * (x * r * r - 3.0f);
}
ZELM_INLINE float refined_reciprocal(float x) {
    return refined_reciprocal(splat<Lanes<float>>(x))[0];
}
ZELM_INLINE float refined_reciprocal_root(float x) {
    return refined_reciprocal_root(splat<Lanes<float>>(x))[0];
}
template <class S>
ZELM_INLINE S refined_reciprocal(S x) {
    return 1.0 / x;
}
template <class S>
ZELM_INLINE S refined_reciprocal_root(S x) {
    return 1.0 / square_root(x);
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
ZELM_INLINE unsigned lane_bits(Lanes<std::int32_t> mask) {
    return static_cast<unsigned>(_mm_movemask_ps((__m128)mask));
}
ZELM_INLINE unsigned lane_bits(Lanes<std::int64_t> mask) {
    return static_cast<unsigned>(_mm_movemask_pd((__m128d)mask));
}

// ---- memory -----------------------------------------------------------------------------------
// Addresses need no alignment, not even the element's.

template <class V>
ZELM_INLINE V load(const void *p) {
    V v;
    __builtin_memcpy(&v, p, sizeof v);
    return v;
}
template <class V>
ZELM_INLINE void store(void *p, std::type_identity_t<V> v) {
    __builtin_memcpy(p, &v, sizeof v);
}

// v, loaded as a whole: the compiler may not take its load apart into loads of elements.
template <class V>
ZELM_INLINE V whole(V v) {
    __asm__("" : "+x"(v));
    return v;
}

// The first K elements at p, in the low lanes; the other lanes are 0.
template <int K, class T>
ZELM_INLINE Lanes<T> load_part(const char *p) {
    static_assert(K >= 1 && K <= lanes_per_register<T>);
    if constexpr (K == lanes_per_register<T>)
        return load<Lanes<T>>(p);
    else if constexpr (sizeof(T) == 8)
        return Lanes<T>{load<T>(p), T{0}};
    else if constexpr (K == 1)
        return Lanes<T>{load<T>(p), T{0}, T{0}, T{0}};
    else {
        const Lanes<T> low = (Lanes<T>)_mm_loadl_epi64(reinterpret_cast<const __m128i *>(p));
        if constexpr (K == 2)
            return low;
        else
            return (Lanes<T>)_mm_movelh_ps(
                (__m128)low, (__m128)Lanes<T>{load<T>(p + 2 * sizeof(T)), T{0}, T{0}, T{0}});
    }
}
// The low K lanes of v to p.
template <int K, class T>
ZELM_INLINE void store_part(char *p, Lanes<T> v) {
    static_assert(K >= 1 && K <= lanes_per_register<T>);
    if constexpr (K == lanes_per_register<T>)
        store<Lanes<T>>(p, v);
    else if constexpr (K == 1)
        store<T>(p, v[0]);
    else {
        store<double>(p, ((Lanes<double>)v)[0]);
        if constexpr (K == 3)
            store<T>(p + 2 * sizeof(T), v[2]);
    }
}

// ---- transposes ---------------------------------------------------------------------------------

// Rows to columns: v[l] holds consecutive elements of object l; afterwards v[e] holds element e of
// every object. The same exchange turns columns back into rows.
ZELM_INLINE void transpose(Lanes<float> (&v)[4]) {
    const __m128 a = (__m128)v[0], b = (__m128)v[1], c = (__m128)v[2], d = (__m128)v[3];
    const __m128 ab = _mm_unpacklo_ps(a, b), cd = _mm_unpacklo_ps(c, d);
    const __m128 AB = _mm_unpackhi_ps(a, b), CD = _mm_unpackhi_ps(c, d);
    v[0] = (Lanes<float>)_mm_movelh_ps(ab, cd);
    v[1] = (Lanes<float>)_mm_movehl_ps(cd, ab);
    v[2] = (Lanes<float>)_mm_movelh_ps(AB, CD);
    v[3] = (Lanes<float>)_mm_movehl_ps(CD, AB);
}
ZELM_INLINE void transpose(Lanes<double> (&v)[2]) {
    const __m128d a = (__m128d)v[0], b = (__m128d)v[1];
    v[0] = (Lanes<double>)_mm_unpacklo_pd(a, b);
    v[1] = (Lanes<double>)_mm_unpackhi_pd(a, b);
}

// The same for objects of three elements that follow one another without gaps: three registers hold
// them all.
ZELM_INLINE void split_triples(Lanes<float> (&v)[3]) {
    const __m128 a = (__m128)v[0], b = (__m128)v[1], c = (__m128)v[2];
    const __m128 yz = _mm_shuffle_ps(a, b, _MM_SHUFFLE(1, 0, 2, 1)); // y0 z0 y1 z1
    const __m128 xy = _mm_shuffle_ps(b, c, _MM_SHUFFLE(2, 1, 3, 2)); // x2 y2 x3 y3
    v[0] = (Lanes<float>)_mm_shuffle_ps(a, xy, _MM_SHUFFLE(2, 0, 3, 0));
    v[1] = (Lanes<float>)_mm_shuffle_ps(yz, xy, _MM_SHUFFLE(3, 1, 2, 0));
    v[2] = (Lanes<float>)_mm_shuffle_ps(yz, c, _MM_SHUFFLE(3, 0, 3, 1));
}
ZELM_INLINE void join_triples(Lanes<float> (&v)[3]) {
    const __m128 x = (__m128)v[0], y = (__m128)v[1], z = (__m128)v[2];
    const __m128 xy = _mm_shuffle_ps(x, y, _MM_SHUFFLE(2, 0, 2, 0)); // x0 x2 y0 y2
    const __m128 yz = _mm_shuffle_ps(y, z, _MM_SHUFFLE(3, 1, 3, 1)); // y1 y3 z1 z3
    const __m128 zx = _mm_shuffle_ps(z, x, _MM_SHUFFLE(3, 1, 2, 0)); // z0 z2 x1 x3
    v[0] = (Lanes<float>)_mm_shuffle_ps(xy, zx, _MM_SHUFFLE(2, 0, 2, 0));
    v[1] = (Lanes<float>)_mm_shuffle_ps(yz, xy, _MM_SHUFFLE(3, 1, 2, 0));
    v[2] = (Lanes<float>)_mm_shuffle_ps(zx, yz, _MM_SHUFFLE(3, 1, 3, 1));
}
ZELM_INLINE void split_triples(Lanes<double> (&v)[3]) {
    const __m128d a = (__m128d)v[0], b = (__m128d)v[1], c = (__m128d)v[2];
    v[0] = (Lanes<double>)_mm_shuffle_pd(a, b, 2);
    v[1] = (Lanes<double>)_mm_shuffle_pd(a, c, 1);
    v[2] = (Lanes<double>)_mm_shuffle_pd(b, c, 2);
}
ZELM_INLINE void join_triples(Lanes<double> (&v)[3]) {
    const __m128d x = (__m128d)v[0], y = (__m128d)v[1], z = (__m128d)v[2];
    v[0] = (Lanes<double>)_mm_unpacklo_pd(x, y);
    v[1] = (Lanes<double>)_mm_shuffle_pd(z, x, 2);
    v[2] = (Lanes<double>)_mm_unpackhi_pd(y, z);
}

} // namespace zelm
