// Several registers as one scalar-like type: while one waits for a root or a quotient the others
// work. An operation is done register by register; lanes are counted through all registers.
#pragma once

#include "lanes.hpp"

namespace zelm {

template <class R, int n>
struct Interleaved {
    R r[n];

    template <class F>
    ZELM_INLINE static Interleaved each(const F &f) {
        return [&]<int... i>(std::integer_sequence<int, i...>) __attribute__((always_inline)) {
            return Interleaved{{f(i)...}};
        }
        (std::make_integer_sequence<int, n>{});
    }
    template <class X>
    ZELM_INLINE static Interleaved splat(X x) {
        return each([&](int) __attribute__((always_inline)) { return zelm::splat<R>(x); });
    }
};

namespace detail {
template <class R, int n>
struct Traits<Interleaved<R, n>> {
    using Element = ElementOf<R>;
    using Mask = Interleaved<MaskOf<R>, n>;
    using Index = Interleaved<IndexOf<R>, n>;
    static constexpr int lanes = n * lanes_of<R>;
    static constexpr bool is_register = false;
};
} // namespace detail

// clang-format off
#define ZELM_OPERATOR(op, Result)                                                                  \
    template <class R, int n>                                                                      \
    ZELM_INLINE Result operator op(const Interleaved<R, n> &a, const Interleaved<R, n> &b) {       \
        return Result::each(                                                                       \
            [&](int i) __attribute__((always_inline)) { return a.r[i] op b.r[i]; });               \
    }
#define ZELM_OF_SAME Interleaved<R, n>
#define ZELM_OF_MASKS MaskOf<Interleaved<R, n>>
ZELM_OPERATOR(+, ZELM_OF_SAME)
ZELM_OPERATOR(-, ZELM_OF_SAME)
ZELM_OPERATOR(*, ZELM_OF_SAME)
ZELM_OPERATOR(/, ZELM_OF_SAME)
ZELM_OPERATOR(&, ZELM_OF_SAME)
ZELM_OPERATOR(|, ZELM_OF_SAME)
ZELM_OPERATOR(==, ZELM_OF_MASKS)
ZELM_OPERATOR(<, ZELM_OF_MASKS)
ZELM_OPERATOR(>, ZELM_OF_MASKS)
ZELM_OPERATOR(<=, ZELM_OF_MASKS)
ZELM_OPERATOR(>=, ZELM_OF_MASKS)
#undef ZELM_OPERATOR
#undef ZELM_OF_SAME
#undef ZELM_OF_MASKS
// clang-format on

template <class R, int n>
ZELM_INLINE Interleaved<R, n> operator~(const Interleaved<R, n> &a) {
    return Interleaved<R, n>::each([&](int i) __attribute__((always_inline)) { return ~a.r[i]; });
}
template <class M, class R, int n>
ZELM_INLINE Interleaved<R, n> select(const Interleaved<M, n> &mask, const Interleaved<R, n> &yes,
                                     const Interleaved<R, n> &no) {
    return Interleaved<R, n>::each([&](int i) __attribute__((always_inline)) {
        return select(mask.r[i], yes.r[i], no.r[i]);
    });
}
template <class R, int n>
ZELM_INLINE Interleaved<R, n> magnitude(const Interleaved<R, n> &x) {
    return Interleaved<R, n>::each([&](int i) __attribute__((always_inline)) {
        return magnitude(x.r[i]);
    });
}
template <class R, int n>
ZELM_INLINE Interleaved<R, n> larger(const Interleaved<R, n> &x, const Interleaved<R, n> &y) {
    return Interleaved<R, n>::each([&](int i) __attribute__((always_inline)) {
        return larger(x.r[i], y.r[i]);
    });
}
template <class R, int n>
ZELM_INLINE Interleaved<R, n> smaller(const Interleaved<R, n> &x, const Interleaved<R, n> &y) {
    return Interleaved<R, n>::each([&](int i) __attribute__((always_inline)) {
        return smaller(x.r[i], y.r[i]);
    });
}
template <class R, int n>
ZELM_INLINE Interleaved<R, n> square_root(const Interleaved<R, n> &x) {
    return Interleaved<R, n>::each([&](int i) __attribute__((always_inline)) {
        return square_root(x.r[i]);
    });
}
template <class R, int n>
ZELM_INLINE Interleaved<R, n> refined_reciprocal(const Interleaved<R, n> &x) {
    return Interleaved<R, n>::each([&](int i) __attribute__((always_inline)) {
        return refined_reciprocal(x.r[i]);
    });
}
template <class R, int n>
ZELM_INLINE Interleaved<R, n> refined_reciprocal_root(const Interleaved<R, n> &x) {
    return Interleaved<R, n>::each([&](int i) __attribute__((always_inline)) {
        return refined_reciprocal_root(x.r[i]);
    });
}
template <class M, int n>
ZELM_INLINE unsigned lane_bits(const Interleaved<M, n> &mask) {
    unsigned bits = 0;
    unroll<n>(ZELM_EACH(i) { bits |= lane_bits(mask.r[i]) << (i * lanes_of<M>); });
    return bits;
}

// Whether any lane is set.
template <class M>
ZELM_INLINE bool any(M mask) {
    return lane_bits(mask) != 0;
}
template <class M, int n>
ZELM_INLINE bool any(const Interleaved<M, n> &mask) {
    M all = mask.r[0];
    unroll<1, n>(ZELM_EACH(i) { all = all | mask.r[i]; });
    return any(all);
}

} // namespace zelm
