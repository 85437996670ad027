// LComb and Saxpy: weighted sums of vectors, element by element. Each weight multiplies first, then
// there is one addition.
#include "../frame/checks.hpp"
#include "../frame/elementwise.hpp"
#include "../frame/member.hpp"

namespace zelm {
namespace {

template <class T>
struct Combination {
    T scale1, scale2;
    template <class S>
    ZELM_INLINE S operator()(S a, S b) const {
        return a * splat<S>(scale1) + b * splat<S>(scale2);
    }
};
template <class T>
struct ScaledSum {
    T scale;
    template <class S>
    ZELM_INLINE S operator()(S a, S b) const {
        return a * splat<S>(scale) + b;
    }
};

template <class Op>
constexpr Limits limits = {4501, 4501};
template <class T>
constexpr Limits limits<ScaledSum<T>> = {3001, 2001};

template <class Op, class A, class B, class D>
ZELM_INLINE ZelStatus vectors(const A &a, const B &b, const D &d, int len, const Op &op) {
    if (const ZelStatus s =
            first_failure(pointers(a, b, d), sizes(len), strides(a, b, d), shifts(a, b, d)))
        return s;
    return y8_ownzelm_elementwise({1, len}, op, d, a, b);
}
template <class Op, class A, class B, class D>
ZELM_INLINE ZelStatus arrays(const A &a, const B &b, const D &d, int len, int count, const Op &op) {
    if (const ZelStatus s = first_failure(pointers(a, b, d), counts(count), sizes(len),
                                          strides(a, b, d), shifts(a, b, d)))
        return s;
    constexpr Limits both = limits<Op>;
    constexpr Limits own = D::is_tabled ? Limits{both.general, both.general} : both;
    return run_elementwise(
        own, elements<A>(len, count) + elements<B>(len, count) + elements<D>(len, count), {1, len},
        count, op, d, a, b);
}

} // namespace
} // namespace zelm

// clang-format off
#define COMBINE_PARAMETERS(D, T, a, b, d)                                                         \
    ZELM_PARAMETERS(D, a, const T, src1), ZELM_PARAMETERS(D, b, const T, src2),                   \
    ZELM_PARAMETERS(D, d, T, dst)
#define COMBINE_OPERANDS(D, T, a, b, d)                                                           \
    ZELM_OPERAND(D, a, const T, src1), ZELM_OPERAND(D, b, const T, src2), ZELM_OPERAND(D, d, T, dst)

#define LCOMB_V(D, T, suffix, kinds, a, b)                                                        \
    ZELM_MEMBER(zelmLComb_##kinds##_##suffix,                                                     \
                (COMBINE_PARAMETERS(D, T, a, b, v), int len, T scale1, T scale2),                 \
                zelm::vectors(COMBINE_OPERANDS(D, T, a, b, v), len,                               \
                              zelm::Combination<T>{scale1, scale2}))
#define LCOMB_VA(D, T, suffix, kinds, a, b)                                                       \
    ZELM_MEMBER(zelmLComb_##kinds##_##suffix,                                                     \
                (COMBINE_PARAMETERS(D, T, a, b, va), int len, int count, T scale1, T scale2),     \
                zelm::arrays(COMBINE_OPERANDS(D, T, a, b, va), len, count,                        \
                             zelm::Combination<T>{scale1, scale2}))
#define SAXPY_V(D, T, suffix, kinds, a, b)                                                        \
    ZELM_MEMBER(zelmSaxpy_##kinds##_##suffix,                                                     \
                (COMBINE_PARAMETERS(D, T, a, b, v), int len, T scale),                            \
                zelm::vectors(COMBINE_OPERANDS(D, T, a, b, v), len, zelm::ScaledSum<T>{scale}))
#define SAXPY_VA(D, T, suffix, kinds, a, b)                                                       \
    ZELM_MEMBER(zelmSaxpy_##kinds##_##suffix,                                                     \
                (COMBINE_PARAMETERS(D, T, a, b, va), int len, int count, T scale),                \
                zelm::arrays(COMBINE_OPERANDS(D, T, a, b, va), len, count,                        \
                             zelm::ScaledSum<T>{scale}))

ZELM_SINGLE(LCOMB_V, vv, v, v)
ZELM_ARRAY(LCOMB_VA, vav, va, v)
ZELM_ARRAY(LCOMB_VA, vava, va, va)

ZELM_SINGLE(SAXPY_V, vv, v, v)
ZELM_ARRAY(SAXPY_VA, vav, va, v)
ZELM_ARRAY(SAXPY_VA, vva, v, va)
ZELM_ARRAY(SAXPY_VA, vava, va, va)
// clang-format on
