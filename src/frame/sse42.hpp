// SSE4.2: registers of 16 bytes, and what is said to the processor itself.
#pragma once

namespace zelm {

namespace detail {
template <>
struct Traits<Simd<float, 4>> : RegisterTraits<float, std::int32_t, 4> {};
template <>
struct Traits<Simd<double, 2>> : RegisterTraits<double, std::int64_t, 2> {};
template <>
struct Traits<Simd<std::int32_t, 4>> : RegisterTraits<std::int32_t, std::int32_t, 4> {};
template <>
struct Traits<Simd<std::int64_t, 2>> : RegisterTraits<std::int64_t, std::int64_t, 2> {};
} // namespace detail

template <>
struct Primitives<Simd<float, 4>> {
    using V = Simd<float, 4>;

    ZELM_INLINE static V splat(float x) { return V{x, x, x, x}; }
    template <int l>
    ZELM_INLINE static V splat_lane(V v) {
        return (V)_mm_shuffle_epi32((__m128i)v, l * 0x55);
    }
    ZELM_INLINE static V larger(V x, V y) { return (V)_mm_max_ps((__m128)x, (__m128)y); }
    ZELM_INLINE static V smaller(V x, V y) { return (V)_mm_min_ps((__m128)x, (__m128)y); }
    ZELM_INLINE static V square_root(V x) { return (V)_mm_sqrt_ps((__m128)x); }
    ZELM_INLINE static V reciprocal(V x) { return (V)_mm_rcp_ps((__m128)x); }
    ZELM_INLINE static V reciprocal_root(V x) { return (V)_mm_rsqrt_ps((__m128)x); }

    template <int K>
    ZELM_INLINE static V load_part(const char *p) {
        static_assert(K >= 1 && K <= 4);
        if constexpr (K == 4)
            return load<V>(p);
        else if constexpr (K == 1)
            return V{load<float>(p), 0, 0, 0};
        else {
            const V low = (V)_mm_loadl_epi64(reinterpret_cast<const __m128i *>(p));
            if constexpr (K == 2)
                return low;
            else
                return (V)_mm_movelh_ps((__m128)low,
                                        (__m128)V{load<float>(p + 2 * sizeof(float)), 0, 0, 0});
        }
    }
    template <int K>
    ZELM_INLINE static void store_part(char *p, V v) {
        static_assert(K >= 1 && K <= 4);
        if constexpr (K == 4)
            store<V>(p, v);
        else if constexpr (K == 1)
            store<float>(p, v[0]);
        else {
            store<double>(p, ((Simd<double, 2>)v)[0]);
            if constexpr (K == 3)
                store<float>(p + 2 * sizeof(float), v[2]);
        }
    }
    template <class Byte>
    ZELM_INLINE static V gather(Byte *const *at, std::ptrdiff_t offset) {
        return V{load<float>(at[0] + offset), load<float>(at[1] + offset),
                 load<float>(at[2] + offset), load<float>(at[3] + offset)};
    }
    ZELM_INLINE static void store_pairs(char *const *at, std::ptrdiff_t offset, V a, V b) {
        const auto low = (Simd<double, 2>)_mm_unpacklo_ps((__m128)a, (__m128)b);
        const auto high = (Simd<double, 2>)_mm_unpackhi_ps((__m128)a, (__m128)b);
        store<double>(at[0] + offset, low[0]);
        store<double>(at[2] + offset, high[0]);
        store<double>(at[1] + offset, low[1]);
        store<double>(at[3] + offset, high[1]);
    }
    ZELM_INLINE static void stream(char *p, V v) {
        _mm_stream_si128(reinterpret_cast<__m128i *>(p), (__m128i)v);
    }

    ZELM_INLINE static void transpose(V (&v)[4]) {
        const __m128 a = (__m128)v[0], b = (__m128)v[1], c = (__m128)v[2], d = (__m128)v[3];
        const __m128 ab = _mm_unpacklo_ps(a, b), cd = _mm_unpacklo_ps(c, d);
        const __m128 AB = _mm_unpackhi_ps(a, b), CD = _mm_unpackhi_ps(c, d);
        v[0] = (V)_mm_movelh_ps(ab, cd);
        v[1] = (V)_mm_movehl_ps(cd, ab);
        v[2] = (V)_mm_movelh_ps(AB, CD);
        v[3] = (V)_mm_movehl_ps(CD, AB);
    }
    ZELM_INLINE static void split_triples(V (&v)[3]) {
        const __m128 a = (__m128)v[0], b = (__m128)v[1], c = (__m128)v[2];
        const __m128 yz = _mm_shuffle_ps(a, b, _MM_SHUFFLE(1, 0, 2, 1)); // y0 z0 y1 z1
        const __m128 xy = _mm_shuffle_ps(b, c, _MM_SHUFFLE(2, 1, 3, 2)); // x2 y2 x3 y3
        v[0] = (V)_mm_shuffle_ps(a, xy, _MM_SHUFFLE(2, 0, 3, 0));
        v[1] = (V)_mm_shuffle_ps(yz, xy, _MM_SHUFFLE(3, 1, 2, 0));
        v[2] = (V)_mm_shuffle_ps(yz, c, _MM_SHUFFLE(3, 0, 3, 1));
    }
    ZELM_INLINE static void join_triples(V (&v)[3]) {
        const __m128 x = (__m128)v[0], y = (__m128)v[1], z = (__m128)v[2];
        const __m128 xy = _mm_shuffle_ps(x, y, _MM_SHUFFLE(2, 0, 2, 0)); // x0 x2 y0 y2
        const __m128 yz = _mm_shuffle_ps(y, z, _MM_SHUFFLE(3, 1, 3, 1)); // y1 y3 z1 z3
        const __m128 zx = _mm_shuffle_ps(z, x, _MM_SHUFFLE(3, 1, 2, 0)); // z0 z2 x1 x3
        v[0] = (V)_mm_shuffle_ps(xy, zx, _MM_SHUFFLE(2, 0, 2, 0));
        v[1] = (V)_mm_shuffle_ps(yz, xy, _MM_SHUFFLE(3, 1, 2, 0));
        v[2] = (V)_mm_shuffle_ps(zx, yz, _MM_SHUFFLE(3, 1, 3, 1));
    }
};

template <>
struct Primitives<Simd<double, 2>> {
    using V = Simd<double, 2>;

    ZELM_INLINE static V splat(double x) { return V{x, x}; }
    template <int l>
    ZELM_INLINE static V splat_lane(V v) {
        return (V)_mm_shuffle_epi32((__m128i)v, l == 0 ? 0x44 : 0xee);
    }
    ZELM_INLINE static V larger(V x, V y) { return (V)_mm_max_pd((__m128d)x, (__m128d)y); }
    ZELM_INLINE static V smaller(V x, V y) { return (V)_mm_min_pd((__m128d)x, (__m128d)y); }
    ZELM_INLINE static V square_root(V x) { return (V)_mm_sqrt_pd((__m128d)x); }

    template <int K>
    ZELM_INLINE static V load_part(const char *p) {
        static_assert(K >= 1 && K <= 2);
        if constexpr (K == 2)
            return load<V>(p);
        else
            return V{load<double>(p), 0};
    }
    template <int K>
    ZELM_INLINE static void store_part(char *p, V v) {
        static_assert(K >= 1 && K <= 2);
        if constexpr (K == 2)
            store<V>(p, v);
        else
            store<double>(p, v[0]);
    }
    template <class Byte>
    ZELM_INLINE static V gather(Byte *const *at, std::ptrdiff_t offset) {
        return V{load<double>(at[0] + offset), load<double>(at[1] + offset)};
    }
    ZELM_INLINE static void store_pairs(char *const *at, std::ptrdiff_t offset, V a, V b) {
        store<V>(at[0] + offset, (V)_mm_unpacklo_pd((__m128d)a, (__m128d)b));
        store<V>(at[1] + offset, (V)_mm_unpackhi_pd((__m128d)a, (__m128d)b));
    }
    ZELM_INLINE static void stream(char *p, V v) {
        _mm_stream_si128(reinterpret_cast<__m128i *>(p), (__m128i)v);
    }

    ZELM_INLINE static void transpose(V (&v)[2]) {
        const __m128d a = (__m128d)v[0], b = (__m128d)v[1];
        v[0] = (V)_mm_unpacklo_pd(a, b);
        v[1] = (V)_mm_unpackhi_pd(a, b);
    }
    ZELM_INLINE static void split_triples(V (&v)[3]) {
        const __m128d a = (__m128d)v[0], b = (__m128d)v[1], c = (__m128d)v[2];
        v[0] = (V)_mm_shuffle_pd(a, b, 2);
        v[1] = (V)_mm_shuffle_pd(a, c, 1);
        v[2] = (V)_mm_shuffle_pd(b, c, 2);
    }
    ZELM_INLINE static void join_triples(V (&v)[3]) {
        const __m128d x = (__m128d)v[0], y = (__m128d)v[1], z = (__m128d)v[2];
        v[0] = (V)_mm_unpacklo_pd(x, y);
        v[1] = (V)_mm_shuffle_pd(z, x, 2);
        v[2] = (V)_mm_unpackhi_pd(y, z);
    }
};

template <>
struct Primitives<Simd<std::int32_t, 4>> {
    ZELM_INLINE static unsigned bits(Simd<std::int32_t, 4> mask) {
        return static_cast<unsigned>(_mm_movemask_ps((__m128)mask));
    }
};
template <>
struct Primitives<Simd<std::int64_t, 2>> {
    ZELM_INLINE static unsigned bits(Simd<std::int64_t, 2> mask) {
        return static_cast<unsigned>(_mm_movemask_pd((__m128d)mask));
    }
};

// Waits for what was streamed.
ZELM_INLINE void finish_streams() { _mm_sfence(); }

// How this thread rounds, flushes and traps.
ZELM_INLINE unsigned floating_point_control() { return _mm_getcsr(); }
ZELM_INLINE void set_floating_point_control(unsigned control) { _mm_setcsr(control); }

} // namespace zelm
