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

ZELM_MEMBERS(LComb, (vv), vectors(src1, src2, dst, len, Combination<T>{scale1, scale2}))
ZELM_MEMBERS(LComb, (vav, vava),
             arrays(src1, src2, dst, len, count, Combination<T>{scale1, scale2}))

ZELM_MEMBERS(Saxpy, (vv), vectors(src1, src2, dst, len, ScaledSum<T>{scale}))
ZELM_MEMBERS(Saxpy, (vav, vva, vava), arrays(src1, src2, dst, len, count, ScaledSum<T>{scale}))
