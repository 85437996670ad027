// Register types, and what an instruction set must provide for each of them.
//
// Primitives<V> is specialized in one file per instruction set; nothing else names an intrinsic.
// There is no general version: what is missing for a width does not compile.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <immintrin.h>
#include <type_traits>
#include <utility>

#define ZELM_INLINE [[gnu::always_inline]] inline

namespace zelm {

namespace detail {
template <class T, int N>
struct Register {
    typedef T type __attribute__((vector_size(N * sizeof(T))));
};
} // namespace detail

// N elements in one register.
template <class T, int N>
using Simd = typename detail::Register<T, N>::type;

// Which lanes: what comparisons give, converted.
template <class Int, int N>
struct Mask {
    Simd<Int, N> lanes; // all bits of a lane or none

    Mask() = default;
    template <class Comparison, class = std::enable_if_t<!std::is_class_v<Comparison> &&
                                                         sizeof(Comparison) == N * sizeof(Int)>>
    ZELM_INLINE Mask(Comparison c) : lanes((Simd<Int, N>)c) {}

    ZELM_INLINE friend Mask operator&(Mask a, Mask b) { return a.lanes & b.lanes; }
    ZELM_INLINE friend Mask operator|(Mask a, Mask b) { return a.lanes | b.lanes; }
    ZELM_INLINE friend Mask operator~(Mask a) { return ~a.lanes; }
};

namespace detail {
template <class S>
struct Traits;
template <class S>
requires std::is_arithmetic_v<S>
struct Traits<S> { // a plain element: one lane
    using Element = S;
    using Mask = bool;
    using Index = int;
    static constexpr int lanes = 1;
    static constexpr bool is_register = false;
};
template <class Int, int N>
struct Traits<Mask<Int, N>> {
    using Element = Int;
    using Mask = zelm::Mask<Int, N>;
    using Index = Simd<Int, N>;
    static constexpr int lanes = N;
    static constexpr bool is_register = false;
};
// Of a register of N elements; its lanes are numbered by Int, as wide as an element.
template <class T, class Int, int N>
struct RegisterTraits {
    using Element = T;
    using Mask = zelm::Mask<Int, N>;
    using Index = Simd<Int, N>;
    static constexpr int lanes = N;
    static constexpr bool is_register = true;
};
} // namespace detail

// Static functions, of a register of floating-point numbers and the addresses of its lanes:
//
//   splat(x), splat_lane<l>(v), larger(x, y), smaller(x, y), square_root(x)
//   reciprocal(x), reciprocal_root(x)       the processor's approximations, of floats
//   load_part<K>(p), store_part<K>(p, v)    the low K lanes; the others are loaded as 0
//   gather(at, offset)                      one element from each address
//   store_pairs(at, offset, a, b)           a's lane and b's behind it, to each address
//   transpose(v)                            as many registers as lanes
//   split_triples(v), join_triples(v)       three registers
//   stream(p, v)                            past the cache
//
// and of a register of integers: bits(mask), lane 0 lowest.
template <class V>
struct Primitives;

template <class V>
concept Register = detail::Traits<V>::is_register;

template <class V>
ZELM_INLINE V load(const void *p) { // addresses need no alignment, not even the element's
    V v;
    __builtin_memcpy(&v, p, sizeof v);
    return v;
}
template <class V>
ZELM_INLINE void store(void *p, std::type_identity_t<V> v) {
    __builtin_memcpy(p, &v, sizeof v);
}

} // namespace zelm

#include "sse42.hpp"
#ifdef __AVX2__
#include "avx2.hpp"
#endif

namespace zelm {

// The width that lane groups have.
#ifdef __AVX2__
inline constexpr int register_bytes = 32;
#else
inline constexpr int register_bytes = 16;
#endif
template <class T>
inline constexpr int lanes_per_register = register_bytes / static_cast<int>(sizeof(T));
template <class T>
using Lanes = Simd<T, lanes_per_register<T>>;

// Rows of one object, of up to four floats, and what is documented to be added in fours: a width of
// its own on every processor.
inline constexpr int row_bytes = 16;
template <class T>
inline constexpr int lanes_per_row = row_bytes / static_cast<int>(sizeof(T));
template <class T>
using RowLanes = Simd<T, lanes_per_row<T>>;

} // namespace zelm
