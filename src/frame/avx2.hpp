// AVX2: registers of 32 bytes, two halves side by side. What exchanges elements works in each half
// as it does in a register of 16 bytes, and moves whole halves.
#pragma once

namespace zelm {

namespace detail {
template <>
struct Traits<Simd<float, 8>> : RegisterTraits<float, std::int32_t, 8> {};
template <>
struct Traits<Simd<double, 4>> : RegisterTraits<double, std::int64_t, 4> {};
template <>
struct Traits<Simd<std::int32_t, 8>> : RegisterTraits<std::int32_t, std::int32_t, 8> {};
template <>
struct Traits<Simd<std::int64_t, 4>> : RegisterTraits<std::int64_t, std::int64_t, 4> {};

// What does not depend on the element but by the number of lanes.
template <class T, int N>
struct Halves {
    static constexpr int half = N / 2;
    using V = Simd<T, N>;
    using Half = Simd<T, half>;
    using OfHalf = Primitives<Half>;

    ZELM_INLINE static Half low(V v) { return (Half)_mm256_castsi256_si128((__m256i)v); }
    ZELM_INLINE static Half high(V v) { return (Half)_mm256_extracti128_si256((__m256i)v, 1); }
    ZELM_INLINE static V both(Half lower, Half upper) {
        return (V)_mm256_inserti128_si256(_mm256_castsi128_si256((__m128i)lower), (__m128i)upper,
                                          1);
    }
    // Half i of a below half j of b.
    template <int i, int j>
    ZELM_INLINE static V halves(V a, V b) {
        return (V)_mm256_permute2x128_si256((__m256i)a, (__m256i)b, i | (2 + j) << 4);
    }

    template <int K>
    ZELM_INLINE static V load_part(const char *p) {
        static_assert(K >= 1 && K <= N);
        if constexpr (K == N)
            return load<V>(p);
        else if constexpr (K <= half)
            return both(OfHalf::template load_part<K>(p), Half{});
        else
            return both(load<Half>(p), OfHalf::template load_part<K - half>(p + sizeof(Half)));
    }
    template <int K>
    ZELM_INLINE static void store_part(char *p, V v) {
        static_assert(K >= 1 && K <= N);
        if constexpr (K == N) {
            store<V>(p, v);
        } else if constexpr (K <= half) {
            OfHalf::template store_part<K>(p, low(v));
        } else {
            store<Half>(p, low(v));
            OfHalf::template store_part<K - half>(p + sizeof(Half), high(v));
        }
    }
    template <class Byte>
    ZELM_INLINE static V gather(Byte *const *at, std::ptrdiff_t offset) {
        return both(OfHalf::gather(at, offset), OfHalf::gather(at + half, offset));
    }
    ZELM_INLINE static void store_pairs(char *const *at, std::ptrdiff_t offset, V a, V b) {
        OfHalf::store_pairs(at, offset, low(a), low(b));
        OfHalf::store_pairs(at + half, offset, high(a), high(b));
    }
    ZELM_INLINE static void stream(char *p, V v) {
        _mm256_stream_si256(reinterpret_cast<__m256i *>(p), (__m256i)v);
    }
    // Six halves in the order of memory, to two series of three and back.
    ZELM_INLINE static void part_triples(V (&v)[3]) {
        const V a = v[0], b = v[1], c = v[2];
        v[0] = halves<0, 1>(a, b);
        v[1] = halves<1, 0>(a, c);
        v[2] = halves<0, 1>(b, c);
    }
    ZELM_INLINE static void rejoin_triples(V (&v)[3]) {
        const V a = v[0], b = v[1], c = v[2];
        v[0] = halves<0, 0>(a, b);
        v[1] = halves<0, 1>(c, a);
        v[2] = halves<1, 1>(b, c);
    }
};
} // namespace detail

template <>
struct Primitives<Simd<float, 8>> : detail::Halves<float, 8> {
    ZELM_INLINE static V splat(float x) { return (V)_mm256_set1_ps(x); }
    ZELM_INLINE static V larger(V x, V y) { return (V)_mm256_max_ps((__m256)x, (__m256)y); }
    ZELM_INLINE static V smaller(V x, V y) { return (V)_mm256_min_ps((__m256)x, (__m256)y); }
    ZELM_INLINE static V square_root(V x) { return (V)_mm256_sqrt_ps((__m256)x); }
    ZELM_INLINE static V reciprocal(V x) { return (V)_mm256_rcp_ps((__m256)x); }
    ZELM_INLINE static V reciprocal_root(V x) { return (V)_mm256_rsqrt_ps((__m256)x); }

    ZELM_INLINE static void transpose(V (&v)[8]) {
        V t[8];
        for (int i = 0; i < 4; ++i) { // whole halves, then each half by itself
            t[i] = halves<0, 0>(v[i], v[i + 4]);
            t[i + 4] = halves<1, 1>(v[i], v[i + 4]);
        }
        for (int i = 0; i < 8; i += 4) {
            const __m256 a = (__m256)t[i], b = (__m256)t[i + 1];
            const __m256 c = (__m256)t[i + 2], d = (__m256)t[i + 3];
            const auto ab = (__m256d)_mm256_unpacklo_ps(a, b),
                       cd = (__m256d)_mm256_unpacklo_ps(c, d);
            const auto AB = (__m256d)_mm256_unpackhi_ps(a, b),
                       CD = (__m256d)_mm256_unpackhi_ps(c, d);
            v[i] = (V)_mm256_unpacklo_pd(ab, cd);
            v[i + 1] = (V)_mm256_unpackhi_pd(ab, cd);
            v[i + 2] = (V)_mm256_unpacklo_pd(AB, CD);
            v[i + 3] = (V)_mm256_unpackhi_pd(AB, CD);
        }
    }
    ZELM_INLINE static void split_triples(V (&v)[3]) {
        part_triples(v);
        const __m256 a = (__m256)v[0], b = (__m256)v[1], c = (__m256)v[2];
        const __m256 yz = _mm256_shuffle_ps(a, b, _MM_SHUFFLE(1, 0, 2, 1));
        const __m256 xy = _mm256_shuffle_ps(b, c, _MM_SHUFFLE(2, 1, 3, 2));
        v[0] = (V)_mm256_shuffle_ps(a, xy, _MM_SHUFFLE(2, 0, 3, 0));
        v[1] = (V)_mm256_shuffle_ps(yz, xy, _MM_SHUFFLE(3, 1, 2, 0));
        v[2] = (V)_mm256_shuffle_ps(yz, c, _MM_SHUFFLE(3, 0, 3, 1));
    }
    ZELM_INLINE static void join_triples(V (&v)[3]) {
        const __m256 x = (__m256)v[0], y = (__m256)v[1], z = (__m256)v[2];
        const __m256 xy = _mm256_shuffle_ps(x, y, _MM_SHUFFLE(2, 0, 2, 0));
        const __m256 yz = _mm256_shuffle_ps(y, z, _MM_SHUFFLE(3, 1, 3, 1));
        const __m256 zx = _mm256_shuffle_ps(z, x, _MM_SHUFFLE(3, 1, 2, 0));
        v[0] = (V)_mm256_shuffle_ps(xy, zx, _MM_SHUFFLE(2, 0, 2, 0));
        v[1] = (V)_mm256_shuffle_ps(yz, xy, _MM_SHUFFLE(3, 1, 2, 0));
        v[2] = (V)_mm256_shuffle_ps(zx, yz, _MM_SHUFFLE(3, 1, 3, 1));
        rejoin_triples(v);
    }
};

template <>
struct Primitives<Simd<double, 4>> : detail::Halves<double, 4> {
    ZELM_INLINE static V splat(double x) { return (V)_mm256_set1_pd(x); }
    ZELM_INLINE static V larger(V x, V y) { return (V)_mm256_max_pd((__m256d)x, (__m256d)y); }
    ZELM_INLINE static V smaller(V x, V y) { return (V)_mm256_min_pd((__m256d)x, (__m256d)y); }
    ZELM_INLINE static V square_root(V x) { return (V)_mm256_sqrt_pd((__m256d)x); }

    ZELM_INLINE static void transpose(V (&v)[4]) {
        const V a = halves<0, 0>(v[0], v[2]), b = halves<0, 0>(v[1], v[3]);
        const V c = halves<1, 1>(v[0], v[2]), d = halves<1, 1>(v[1], v[3]);
        v[0] = (V)_mm256_unpacklo_pd((__m256d)a, (__m256d)b);
        v[1] = (V)_mm256_unpackhi_pd((__m256d)a, (__m256d)b);
        v[2] = (V)_mm256_unpacklo_pd((__m256d)c, (__m256d)d);
        v[3] = (V)_mm256_unpackhi_pd((__m256d)c, (__m256d)d);
    }
    ZELM_INLINE static void split_triples(V (&v)[3]) {
        part_triples(v);
        const __m256d a = (__m256d)v[0], b = (__m256d)v[1], c = (__m256d)v[2];
        v[0] = (V)_mm256_shuffle_pd(a, b, 0xa);
        v[1] = (V)_mm256_shuffle_pd(a, c, 0x5);
        v[2] = (V)_mm256_shuffle_pd(b, c, 0xa);
    }
    ZELM_INLINE static void join_triples(V (&v)[3]) {
        const __m256d x = (__m256d)v[0], y = (__m256d)v[1], z = (__m256d)v[2];
        v[0] = (V)_mm256_unpacklo_pd(x, y);
        v[1] = (V)_mm256_shuffle_pd(z, x, 0xa);
        v[2] = (V)_mm256_unpackhi_pd(y, z);
        rejoin_triples(v);
    }
};

template <>
struct Primitives<Simd<std::int32_t, 8>> {
    ZELM_INLINE static unsigned bits(Simd<std::int32_t, 8> mask) {
        return static_cast<unsigned>(_mm256_movemask_ps((__m256)mask));
    }
};
template <>
struct Primitives<Simd<std::int64_t, 4>> {
    ZELM_INLINE static unsigned bits(Simd<std::int64_t, 4> mask) {
        return static_cast<unsigned>(_mm256_movemask_pd((__m256d)mask));
    }
};

} // namespace zelm
