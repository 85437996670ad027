// Sums and differences: what Add and Sub have in common.
#pragma once

#include "../frame/checks.hpp"
#include "../frame/elementwise.hpp"
#include "../frame/member.hpp"

namespace zelm::sums {

struct Sum {
    ZELM_INLINE auto operator()(auto a, auto b) const { return a + b; }
};
struct Difference {
    ZELM_INLINE auto operator()(auto a, auto b) const { return a - b; }
};

// ---- limits ----

template <class T, Description d>
inline constexpr Limits matrix_limits = d == Description::standard && sizeof(T) == 4
                                            ? Limits{3000, 2000}
                                            : Limits{2000, 2000};

template <class T, Description d>
inline constexpr Limits vector_limits = d == Description::layout    ? Limits{2501, 2501}
                                        : d == Description::pointer ? Limits{1501, 1501}
                                        : sizeof(T) == 4            ? Limits{4801, 4801}
                                                                    : Limits{1401, 1401};

// A constant minus each vector of an array: of 2*count, whatever the length.
template <class T, Description d>
inline constexpr Limits constant_first_limits = d == Description::layout    ? Limits{2500, 2500}
                                                : d == Description::pointer ? Limits{1500, 1500}
                                                : sizeof(T) == 4            ? Limits{4800, 4800}
                                                                            : Limits{1400, 1400};

// ---- work ----

template <class Op, class D, class A, class B>
ZELM_INLINE ZelStatus run_arrays(Limits limits, Shape shape, int count, const D &d, const A &a,
                                 const B &b) {
    const Estimate size = Estimate(shape.width) * shape.height;
    const Estimate work =
        elements<A>(size, count) + elements<B>(size, count) + elements<D>(size, count);
    return run_elementwise(limits, work, shape, count, Op{}, d, a, b);
}

// ---- entries, each with its order of checks ----

// Operands by value: what this needs in memory is put there on the way in, not in the entry.
template <class Op, class A, class B, class D>
[[gnu::noinline]] ZelStatus any_matrices(A a, B b, D d, int width, int height) {
    if (const ZelStatus s = first_failure(pointers(a, b, d), sizes(width, height), strides(a, b, d),
                                          shifts(a, b, d)))
        return s;
    return y8_ownzelm_elementwise({height, width}, Op{}, d, a, b);
}
template <class Op, class A, class B, class D>
ZELM_INLINE ZelStatus matrices(const A &a, const B &b, const D &d, int width, int height) {
    if constexpr (description_of<D> == Description::standard)
        if (small_dense_object(Op{}, width, height, d, a, b)) [[likely]]
            return zelStatusOk;
    return any_matrices<Op>(a, b, d, width, height);
}
template <class Op, class A, class B, class D>
ZELM_INLINE ZelStatus vectors(const A &a, const B &b, const D &d, int len) {
    if (const ZelStatus s =
            first_failure(pointers(a, b, d), sizes(len), strides(a, b, d), shifts(a, b, d)))
        return s;
    return y8_ownzelm_elementwise({1, len}, Op{}, d, a, b);
}

template <class Op, class A, class B, class D>
ZELM_INLINE ZelStatus matrix_arrays(const A &a, const B &b, const D &d, int width, int height,
                                    int count) {
    if (const ZelStatus s = first_failure(pointers(a, b, d), counts(count), sizes(width, height),
                                          strides(a, b, d), shifts(a, b, d)))
        return s;
    return run_arrays<Op>(matrix_limits<typename D::Element, description_of<D>>, {height, width},
                          count, d, a, b);
}
// One untransposed matrix beside an array of them: standard operands have their strides checked
// before the sizes.
template <class Op, class A, class B, class D>
ZELM_INLINE ZelStatus matrix_beside_array(const A &a, const B &b, const D &d, int width, int height,
                                          int count) {
    if constexpr (description_of<D> != Description::standard) {
        return matrix_arrays<Op>(a, b, d, width, height, count);
    } else {
        if (const ZelStatus s = first_failure(pointers(a, b, d), counts(count), strides(a, b, d),
                                              sizes(width, height)))
            return s;
        return run_arrays<Op>(matrix_limits<typename D::Element, Description::standard>,
                              {height, width}, count, d, a, b);
    }
}

template <class Op, class A, class B, class D>
ZELM_INLINE ZelStatus run_vectors(const A &a, const B &b, const D &d, int len, int count) {
    return run_arrays<Op>(vector_limits<typename D::Element, description_of<D>>, {1, len}, count, d,
                          a, b);
}
template <class Op, class A, class B, class D>
ZELM_INLINE ZelStatus vector_arrays(const A &a, const B &b, const D &d, int len, int count) {
    if (const ZelStatus s = first_failure(pointers(a, b, d), counts(count), sizes(len),
                                          strides(a, b, d), shifts(a, b, d)))
        return s;
    return run_vectors<Op>(a, b, d, len, count);
}
// An array with one vector: the count late, in layout form last of all.
template <class Op, class A, class B, class D>
ZELM_INLINE ZelStatus array_with_vector(const A &a, const B &b, const D &d, int len, int count) {
    if constexpr (description_of<D> == Description::layout) {
        if (const ZelStatus s = first_failure(pointers(a, b, d), sizes(len), strides(a, b, d),
                                              shifts(a, b, d), counts(count)))
            return s;
    } else {
        if (const ZelStatus s = first_failure(pointers(a, b, d), sizes(len), strides(a, b, d),
                                              counts(count), shifts(a, b, d)))
            return s;
    }
    return run_vectors<Op>(a, b, d, len, count);
}
// The distance between the objects of `a` may be anything.
template <class Op, class A, class B, class D>
ZELM_INLINE ZelStatus vector_arrays_any_first_stride(const A &a, const B &b, const D &d, int len,
                                                     int count) {
    if (const ZelStatus s = first_failure(pointers(a, b, d), counts(count), sizes(len),
                                          strides(b, d), shifts(a, b, d)))
        return s;
    return run_vectors<Op>(a, b, d, len, count);
}
template <class Op, class A, class B, class D>
ZELM_INLINE ZelStatus constant_with_array(const A &a, const B &b, const D &d, int len, int count) {
    if (const ZelStatus s = first_failure(pointers(a, b, d), counts(count), sizes(len),
                                          strides(a, b, d), shifts(a, b, d)))
        return s;
    return run_elementwise(constant_first_limits<typename D::Element, description_of<D>>,
                           Estimate(2) * count, {1, len}, count, Op{}, d, a, b);
}

} // namespace zelm::sums
