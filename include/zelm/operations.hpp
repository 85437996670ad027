/*
 * zelm/operations.hpp: sums, products, norms, moves
 *
 * Operands come first, the result last; whatever view() takes is an operand, numbers are constants.
 * A single operand beside arrays is used for every object, and arrays pair object n with object n.
 * If any operand is an array, so is the result. All have the same type of elements.
 *
 * The status is what the C function tells (zelm.h has the details, and its comments of overlap
 * hold), but that shapes come first: zelStatusSizeMismatch if sizes or counts of operands do not
 * fit together, then zelStatusOk for arrays without objects. Nothing is written then. Counts beyond
 * int are refused as zelStatusBadCount, strides beyond int as zelStatusBadStride.
 */
#ifndef ZELM_OPERATIONS_HPP
#define ZELM_OPERATIONS_HPP

#include "call.hpp"

namespace zelm {
namespace detail {

template <class D, class... Sources>
constexpr void check_destination() {
    static_assert(is_array(D::used_as) == (... || is_array(Sources::used_as)),
                  "the result is an array if an operand is one, and a single object otherwise");
    static_assert(is_matrix(D::used_as) || is_vector(D::used_as),
                  "the result of this operation is a vector or a matrix");
}

/* Sums, differences and products by constants: all of the same shape. */
template <operation Op, class A, class B, class D>
ZELM_FRONT status by_elements(const A &a, const B &b, const D &d) {
    check_destination<D, A, B>();
    const auto function = find<Op, typename D::value_type>(sources(a, b), d);
    return run(function, difference(a, d) | difference(b, d), count_of(d), a, b, d,
               size_arguments(d), count_arguments(d));
}
template <operation Op, class A, class B, class D>
inline constexpr bool has_function =
    exists<Op, typename D::value_type, types<A, B>, types<A, B, D>>;

template <class A, class B, class D>
ZELM_FRONT status product(const A &a, const B &b, const D &d) {
    check_destination<D, A, B>();
    const auto function = find<operation::Mul, typename D::value_type>(sources(a, b), d);
    std::ptrdiff_t differences =
        count_difference(a, d) | count_difference(b, d) | rows_difference(a, d);
    if constexpr (is_matrix(B::used_as)) {
        static_assert(is_matrix(D::used_as), "the product of two matrices is a matrix");
        static_assert(may_be_equal<A::static_columns, B::static_rows>,
                      "the first matrix must have as many columns as the second one has rows");
        differences |= columns_difference(b, d);
    } else {
        static_assert(is_vector(D::used_as), "the product of a matrix and a vector is a vector");
        static_assert(may_be_equal<A::static_columns, B::static_length>,
                      "the matrix must have as many columns as the vector has elements");
    }
    return run(function, differences, count_of(d), a, stored_size_arguments(a), b,
               stored_size_arguments(b), d, count_arguments(d));
}

/* A plain result: elements without gaps. */
template <class T, class R>
auto result(R &&r) {
    const auto all = gapless(r);
    static_assert(!std::is_const_v<std::remove_pointer_t<decltype(all.data)>>,
                  "the result is read-only");
    static_assert(std::is_same_v<decltype(all.data), T *>,
                  "the result has another type of elements than the operands");
    return all;
}

/* One number per object; parameters tell the order of the C function. */
template <class Function, class T, class... Parameters>
ZELM_FRONT status reduce(Function function, std::ptrdiff_t differences, std::ptrdiff_t count,
                         const run_of<T> &to, const Parameters &...parameters) {
    if (!to.gapless)
        return zelStatusBadStride;
    return run(function, differences | (to.size ^ count), count, parameters...);
}

/* Single objects as arrays of one, whose stride0 is not used. */
template <class V>
constexpr auto as_array(const V &v) {
    using T = typename V::element_type;
    if constexpr (V::described == description::L && V::used_as == kind::ca) {
        return layout_vectors<T>(v.table(), 1, v.count(), size_of<T>, v.shift());
    } else if constexpr (V::used_as == kind::ca) {
        return vectors<T, 1>(v.data(), v.count(), {v.stride0(), size_of<T>});
    } else if constexpr (is_array(V::used_as)) {
        return v;
    } else if constexpr (V::described == description::P) {
        if constexpr (V::used_as == kind::v)
            return pointer_vectors<T>(v.table(), v.length(), 1, size_of<T>, v.shift());
        else
            return pointer_matrices<T>(v.table(), v.rows(), v.columns(), 1, size_of<T>, v.shift());
    } else if constexpr (V::used_as == kind::v) {
        return vectors<T>(v.data(), v.length(), 1, {size_of<T>, v.stride2()});
    } else {
        return matrices<T>(v.data(), v.rows(), v.columns(), 1,
                           {size_of<T>, v.stride1(), v.stride2()});
    }
}

} // namespace detail

/* ---------------------------------------------------------------------------------------------- */
/* Element by element                                                                             */
/* ---------------------------------------------------------------------------------------------- */

/* d = a + b. Matrices and matrices, vectors and vectors, vectors and constants, in any order. */
template <class A, class B, class D>
ZELM_FRONT status add(const A &a, const B &b, D &&d) {
    using namespace detail;
    using T = value_of<D>;
    const auto x = operand<T>(a);
    const auto y = operand<T>(b);
    const auto z = destination(d);
    if constexpr (has_function<operation::Add, decltype(x), decltype(y), decltype(z)>) {
        return by_elements<operation::Add>(x, y, z);
    } else {
        static_assert(has_function<operation::Add, decltype(y), decltype(x), decltype(z)>,
                      "these operands cannot be added: two matrices, two vectors, a vector and "
                      "constants");
        return by_elements<operation::Add>(y, x, z);
    }
}

/* d = a - b. Matrices and matrices, vectors and vectors, vectors and constants, in any order. */
template <class A, class B, class D>
ZELM_FRONT status subtract(const A &a, const B &b, D &&d) {
    using namespace detail;
    using T = value_of<D>;
    const auto x = operand<T>(a);
    const auto y = operand<T>(b);
    const auto z = destination(d);
    static_assert(has_function<operation::Sub, decltype(x), decltype(y), decltype(z)>,
                  "these operands cannot be subtracted: two matrices, two vectors, a vector and "
                  "constants");
    return by_elements<operation::Sub>(x, y, z);
}

/* d = a * b. Matrix and matrix, matrix and vector, row vector and matrix; matrix and constant,
 * vector and constants, in any order. d must not overlap a source, but for products of constants.
 */
template <class A, class B, class D>
ZELM_FRONT status multiply(const A &a, const B &b, D &&d) {
    using namespace detail;
    using T = value_of<D>;
    const auto x = operand<T>(a);
    const auto y = operand<T>(b);
    const auto z = destination(d);
    constexpr kind first = decltype(x)::used_as, second = decltype(y)::used_as;
    if constexpr (is_constant(first) || is_constant(second)) {
        if constexpr (has_function<operation::Mul, decltype(x), decltype(y), decltype(z)>) {
            return by_elements<operation::Mul>(x, y, z);
        } else {
            static_assert(has_function<operation::Mul, decltype(y), decltype(x), decltype(z)>,
                          "these operands cannot be multiplied: matrices are multiplied by one "
                          "constant, vectors by one or by an array of them");
            return by_elements<operation::Mul>(y, x, z);
        }
    } else if constexpr (is_matrix(first)) {
        return product(x, y, z);
    } else {
        static_assert(is_matrix(second),
                      "vectors are multiplied by dot(a, b, results) or cross(a, b, vectors)");
        return product(transposed(y), x, z);
    }
}

/* d = scale * x + y, for vectors. */
template <class X, class Y, class D>
ZELM_FRONT status axpy(detail::value_of<D> scale, const X &x, const Y &y, D &&d) {
    using namespace detail;
    using T = value_of<D>;
    const auto a = operand<T>(x);
    const auto b = operand<T>(y);
    const auto z = destination(d);
    check_destination<decltype(z), decltype(a), decltype(b)>();
    const auto function = find<operation::Saxpy, T>(sources(a, b), z);
    return run(function, difference(a, z) | difference(b, z), count_of(z), a, b, z, z.length(),
               count_arguments(z), scale);
}

/* d = alpha * x + beta * y, for vectors. Both weights multiply, then there is one addition. */
template <class X, class Y, class D>
ZELM_FRONT status linear_combination(detail::value_of<D> alpha, const X &x,
                                     detail::value_of<D> beta, const Y &y, D &&d) {
    using namespace detail;
    using T = value_of<D>;
    const auto a = operand<T>(x);
    const auto b = operand<T>(y);
    const auto z = destination(d);
    if constexpr (a.used_as == kind::v && b.used_as == kind::va) {
        return linear_combination(beta, b, alpha, a, z);
    } else {
        check_destination<decltype(z), decltype(a), decltype(b)>();
        const auto function = find<operation::LComb, T>(sources(a, b), z);
        return run(function, difference(a, z) | difference(b, z), count_of(z), a, b, z, z.length(),
                   count_arguments(z), alpha, beta);
    }
}

/* d = a * x + b, for one matrix a: one x and b, an array of both, or an array of x and one b. */
template <class A, class X, class B, class D>
ZELM_FRONT status gaxpy(const A &a, const X &x, const B &b, D &&d) {
    using namespace detail;
    using T = value_of<D>;
    const auto m = plain_operand<T>(a);
    const auto v = operand<T>(x);
    const auto w = operand<T>(b);
    const auto z = destination(d);
    static_assert(m.used_as == kind::m, "gaxpy() takes a single matrix");
    check_destination<decltype(z), decltype(v), decltype(w)>();
    const auto differences = rows_difference(m, z) | rows_difference(m, w) |
                             columns_difference(m, v) | count_difference(v, z) |
                             count_difference(w, z);
    const auto call = [&](auto function) {
        return run(function, differences, count_of(z), m, m.columns(), m.rows(), v, v.length(), w,
                   w.length(), z, count_arguments(z));
    };
    if constexpr (v.used_as == w.used_as)
        return call(find<operation::Gaxpy, T>(sources(m, v), w, z));
    else
        return call(find<operation::Gaxpy, T>(sources(m, v, w), z));
}

/* ---------------------------------------------------------------------------------------------- */
/* Numbers                                                                                        */
/* ---------------------------------------------------------------------------------------------- */

/* The results of the following are a number for single operands, else one per object: whatever has
 * count elements without gaps. They must not overlap an operand. */

/* results[n] = the dot product of a[n] and b[n]. */
template <class A, class B, class R>
ZELM_FRONT status dot(const A &a, const B &b, R &&results) {
    using namespace detail;
    using T = value_of<const A &>;
    const auto x = operand<T>(a);
    const auto y = operand<T>(b);
    if constexpr (x.used_as == kind::v && y.used_as == kind::va) {
        return dot(b, a, results);
    } else {
        const auto to = result<T>(results);
        const auto function = find<operation::DotProduct, T>(sources(x, y));
        return reduce(function, difference(x, y), count_of(x), to, x, y, to.data, x.length(),
                      count_arguments(x));
    }
}

/* results[n] = the Euclidean norm of the vector a[n]. The sum of squares is not scaled. */
template <class A, class R>
ZELM_FRONT status l2_norm(const A &a, R &&results) {
    using namespace detail;
    using T = value_of<const A &>;
    const auto x = operand<T>(a);
    const auto to = result<T>(results);
    const auto function = find<operation::L2Norm, T>(sources(x));
    return reduce(function, 0, count_of(x), to, x, to.data, x.length(), count_arguments(x));
}

/* results[n] = the Frobenius norm of the matrix a[n]. The sum of squares is not scaled. */
template <class A, class R>
ZELM_FRONT status frobenius_norm(const A &a, R &&results) {
    using namespace detail;
    using T = value_of<const A &>;
    const auto x = plain_operand<T>(a);
    const auto to = result<T>(results);
    const auto function = find<operation::FrobNorm, T>(sources(x));
    return reduce(function, 0, count_of(x), to, x, size_arguments(x), to.data, count_arguments(x));
}

/* results[n] = the trace of the square matrix a[n]. */
template <class A, class R>
ZELM_FRONT status trace(const A &a, R &&results) {
    using namespace detail;
    using T = value_of<const A &>;
    const auto x = plain_operand<T>(a);
    const auto to = result<T>(results);
    const auto function = find<operation::Trace, T>(sources(x));
    return reduce(function, square_difference(x), count_of(x), to, x, x.rows(), to.data,
                  count_arguments(x));
}

/* d = the cross product of a and b, vectors of three elements. d may be a or b. */
template <class A, class B, class D>
ZELM_FRONT status cross(const A &a, const B &b, D &&d) {
    using namespace detail;
    using T = value_of<D>;
    const auto x = operand<T>(a);
    const auto y = operand<T>(b);
    const auto z = destination(d);
    static_assert(may_be_equal<z.static_length, 3>, "cross() takes vectors of three elements");
    check_destination<decltype(z), decltype(x), decltype(y)>();
    const auto function = find<operation::CrossProduct, T>(sources(x, y), z);
    return run(function, difference(x, z) | difference(y, z) | (z.length() ^ 3), count_of(z), x, y,
               z, count_arguments(z));
}

/* ---------------------------------------------------------------------------------------------- */
/* Moves                                                                                          */
/* ---------------------------------------------------------------------------------------------- */

/* d = a, bit by bit, between any two descriptions: strided memory, pointer tables, layout tables.
 */
template <class A, class D>
ZELM_FRONT status copy(const A &a, D &&d) {
    using namespace detail;
    using T = value_of<D>;
    const auto x = as_array(plain_operand<T>(a));
    const auto z = as_array(destination(d));
    static_assert(x.used_as == z.used_as, "vectors are copied to vectors, matrices to matrices");
    const auto move = function<operation::Copy, T, x.described, z.described, x.used_as>;
    return run(move, difference(x, z), z.count(), x, z, size_arguments(z), count_arguments(z));
}

/* Packs the objects of a without gaps, row after row and object after object, into whatever has as
 * many elements without gaps. */
template <class A, class R>
ZELM_FRONT status extract(const A &a, R &&elements) {
    using namespace detail;
    using T = value_of<const A &>;
    const auto x = operand<T>(a);
    const auto to = result<T>(elements);
    const auto function = find<operation::Extract, T>(sources(x));
    std::ptrdiff_t size = size_of_one(x);
    if (__builtin_mul_overflow(size, count_of(x), &size))
        size = -1;
    if (!to.gapless)
        return zelStatusBadStride;
    return run(function, to.size ^ size, count_of(x), x, to.data, size_arguments(x),
               count_arguments(x));
}

/* d = 1 where the row equals the column, else 0; any shape. */
template <class D>
ZELM_FRONT status load_identity(D &&d) {
    using namespace detail;
    const auto z = as_array(destination(d));
    const auto function = find<operation::LoadIdentity, value_of<D>>(sources(z));
    return run(function, 0, z.count(), z, size_arguments(z), count_arguments(z));
}

/* d = a transposed, bit by bit. As an operand, transposed(a) needs no copy. */
template <class A, class D>
ZELM_FRONT status transpose(const A &a, D &&d) {
    using namespace detail;
    using T = value_of<D>;
    const auto x = plain_operand<T>(a);
    const auto z = destination(d);
    static_assert(may_be_equal<x.static_rows, z.static_columns> &&
                      may_be_equal<x.static_columns, z.static_rows>,
                  "the result has as many rows as the source has columns, and the reverse");
    check_destination<decltype(z), decltype(x)>();
    const auto function = find<operation::Transpose, T>(sources(x), z);
    return run(function,
               count_difference(x, z) | (x.rows() ^ z.columns()) | (x.columns() ^ z.rows()),
               count_of(z), x, size_arguments(x), z, count_arguments(z));
}

} // namespace zelm

#endif
