// Mul of a matrix or a vector with a constant.
#include "../frame/checks.hpp"
#include "../frame/elementwise.hpp"
#include "../frame/member.hpp"

namespace zelm {
namespace {

struct Product {
    ZELM_INLINE auto operator()(auto a, auto b) const { return a * b; }
};

template <class T, Description d>
constexpr Limits matrix_limits = d == Description::pointer                    ? Limits{1701, 1701}
                                 : d == Description::layout && sizeof(T) == 4 ? Limits{3501, 1501}
                                                                              : Limits{3501, 3501};
template <class T, Description d>
constexpr Limits one_constant_limits = d == Description::pointer ? Limits{1441, 1441}
                                       : d == Description::standard && sizeof(T) == 4
                                           ? Limits{2501, 1441}
                                           : Limits{3601, 1441};
template <class T, Description d>
constexpr Limits constant_array_limits = d == Description::pointer  ? Limits{651, 651}
                                         : d == Description::layout ? Limits{1201, 1201}
                                                                    : Limits{2101, 2101};

template <class A, class B, class D>
ZELM_INLINE ZelStatus matrix(const A &a, const B &b, const D &d, int width, int height) {
    if (const ZelStatus s =
            first_failure(pointers(a, d), sizes(width, height), strides(a, d), shifts(a, d)))
        return s;
    return y8_ownzelm_elementwise({height, width}, Product{}, d, a, b);
}
template <class A, class B, class D>
ZELM_INLINE ZelStatus vector(const A &a, const B &b, const D &d, int len) {
    if (const ZelStatus s = first_failure(pointers(a, d), sizes(len), strides(a, d), shifts(a, d)))
        return s;
    return y8_ownzelm_elementwise({1, len}, Product{}, d, a, b);
}
template <class A, class B, class D>
ZELM_INLINE ZelStatus matrices(const A &a, const B &b, const D &d, int width, int height,
                               int count) {
    if (const ZelStatus s = first_failure(pointers(a, d), counts(count), sizes(width, height),
                                          strides(a, d), shifts(a, d)))
        return s;
    return run_elementwise(matrix_limits<typename D::Element, description_of<D>>,
                           Estimate(2) * width * height * count, {height, width}, count, Product{},
                           d, a, b);
}
template <class A, class B, class D>
ZELM_INLINE ZelStatus vectors(const A &a, const B &b, const D &d, int len, int count) {
    if (const ZelStatus s = first_failure(pointers(a, b, d), counts(count), sizes(len),
                                          strides(a, b, d), shifts(a, b, d)))
        return s;
    using T = typename D::Element;
    if constexpr (B::is_array)
        return run_elementwise(constant_array_limits<T, description_of<D>>,
                               elements<A>(len, count) + elements<B>(len, count) +
                                   elements<D>(len, count),
                               {1, len}, count, Product{}, d, a, b);
    else
        return run_elementwise(one_constant_limits<T, description_of<D>>, Estimate(2) * len * count,
                               {1, len}, count, Product{}, d, a, b);
}

} // namespace
} // namespace zelm

ZELM_MEMBERS(Mul, (mc, tc), matrix(src, Constant<T>{val}, dst, width, height))
ZELM_MEMBERS(Mul, (mac, tac), matrices(src, Constant<T>{val}, dst, width, height, count))
ZELM_MEMBERS(Mul, (vc), vector(src, Constant<T>{val}, dst, len))
ZELM_MEMBERS(Mul, (vac), vectors(src, Constant<T>{val}, dst, len, count))
ZELM_MEMBERS(Mul, (vca, vaca), vectors(src, val, dst, len, count))
