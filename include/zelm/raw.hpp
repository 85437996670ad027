/*
 * zelm/raw.hpp: the solvers of zelm.h as they are
 *
 * In namespace zelm::raw. An array is left at its first object that fails, pivots are compared with
 * absolute thresholds, scratch is the caller's if it is given; zelm.h tells the details of each.
 * zelm/solvers.hpp has solvers that finish every object, whatever its scale.
 *
 * Matrices are square where nothing else is said. Plain results (numbers per object, row numbers)
 * are whatever has as many elements without gaps; those of object n follow those of object n - 1.
 * The last argument of many is scratch: elements without gaps, at least as many as is said. Without
 * it the call takes its own, on the stack where it is small (status zelmSafeNoMemory).
 */
#ifndef ZELM_RAW_HPP
#define ZELM_RAW_HPP

#include "operations.hpp"

#include <cstdlib>

namespace zelm {
namespace detail {

/* In the place of scratch that the caller does not give. */
struct own_scratch {};

template <class T, class S>
class scratch {
public:
    scratch(S &given, std::ptrdiff_t needed) {
        const auto all = result<T>(given);
        status_ = !all.gapless        ? zelStatusBadStride
                  : all.size < needed ? zelStatusSizeMismatch
                                      : zelStatusOk;
        data_ = all.data;
    }
    T *data() const { return data_; }
    int status() const { return status_; }

private:
    T *data_;
    int status_;
};

template <class T>
class scratch<T, own_scratch> {
public:
    scratch(own_scratch &, std::ptrdiff_t needed) {
        if (needed > in_place)
            allocated_ =
                needed <= PTRDIFF_MAX / size_of<T>
                    ? static_cast<T *>(std::malloc(static_cast<std::size_t>(needed) * sizeof(T)))
                    : nullptr;
        failed_ = needed > in_place && allocated_ == nullptr;
    }
    scratch(const scratch &) = delete;
    scratch &operator=(const scratch &) = delete;
    ~scratch() { std::free(allocated_); }
    T *data() { return allocated_ != nullptr ? allocated_ : elements_; }
    int status() const { return failed_ ? int(zelmSafeNoMemory) : int(zelStatusOk); }

private:
    static constexpr std::ptrdiff_t in_place = 2048 / size_of<T>;
    T *allocated_ = nullptr;
    bool failed_;
    T elements_[in_place];
};

/* The order as a size of scratch is computed of it: products of two orders fit. Impossible orders
 * need none, their call is refused. */
template <class M>
constexpr std::ptrdiff_t order_of(const M &m) {
    const std::ptrdiff_t most = std::ptrdiff_t(1) << 30;
    return m.rows() < 0 ? 0 : m.rows() < most ? m.rows() : most;
}

/* What differs, as bits, between the size of a plain result and `each` elements per object. */
template <class T>
constexpr std::ptrdiff_t size_difference(const run_of<T> &all, std::ptrdiff_t count,
                                         std::ptrdiff_t each) {
    std::ptrdiff_t size = 0;
    if (count < 0 || each < 0)
        return 0; /* refused by the C function */
    return __builtin_mul_overflow(count, each, &size) ? -1 : all.size ^ size;
}

} // namespace detail

namespace raw {

/* a = P^T * L * U with row pivoting: the factors as zelmLUDecomp leaves them, and the number of the
 * row that became pivot row i in rows, `order` ints per object. lu may be a. */
template <class A, class D, class R>
status lu_decompose(const A &a, D &&lu, R &&rows) {
    using namespace detail;
    using T = value_of<D>;
    const auto x = plain_operand<T>(a);
    const auto z = destination(lu);
    const auto index = result<int>(rows);
    check_destination<decltype(z), decltype(x)>();
    const auto function = find<operation::LUDecomp, T>(sources(x), z);
    if (!index.gapless)
        return zelStatusBadStride;
    return run(function,
               square_difference(x) | difference(x, z) |
                   size_difference(index, count_of(x), x.rows()),
               count_of(z), x, index.data, z, x.rows(), count_arguments(z));
}

/* a * x = b from what lu_decompose has left of a: one a and one or many b, or an a for every b. x
 * must not overlap b. */
template <class A, class R, class B, class X>
status lu_solve(const A &lu, const R &rows, const B &b, X &&x) {
    using namespace detail;
    using T = value_of<X>;
    const auto m = plain_operand<T>(lu);
    const auto v = operand<T>(b);
    const auto z = destination(x);
    const auto index = gapless(rows);
    static_assert(
        std::is_same_v<std::remove_const_t<std::remove_pointer_t<decltype(index.data)>>, int>,
        "row numbers are int");
    check_destination<decltype(z), decltype(m), decltype(v)>();
    const auto function = find<operation::LUBackSubst, T>(sources(m, v), z);
    if (!index.gapless)
        return zelStatusBadStride;
    return run(function,
               square_difference(m) | rows_difference(m, v) | difference(v, z) |
                   count_difference(m, z) | size_difference(index, count_of(m), m.rows()),
               count_of(z), m, static_cast<const int *>(index.data), v, z, m.rows(),
               count_arguments(z));
}

/* The inverse. x may be a, up to order 32. scratch: order * (order + 1). */
template <class A, class X, class S = detail::own_scratch>
status inverse(const A &a, X &&x, S &&scratch = S()) {
    using namespace detail;
    using T = value_of<X>;
    const auto m = plain_operand<T>(a);
    const auto z = destination(x);
    check_destination<decltype(z), decltype(m)>();
    const auto function = find<operation::Invert, T>(sources(m), z);
    const std::ptrdiff_t n = order_of(m);
    detail::scratch<T, std::remove_reference_t<S>> buffer(scratch, n * (n + 1));
    if (buffer.status() != zelStatusOk)
        return buffer.status();
    return run(function, square_difference(m) | difference(m, z), count_of(z), m, buffer.data(), z,
               m.rows(), count_arguments(z));
}

/* determinants[n] = the determinant of a[n]. scratch: order * (order + 1). */
template <class A, class R, class S = detail::own_scratch>
status determinant(const A &a, R &&determinants, S &&scratch = S()) {
    using namespace detail;
    using T = value_of<const A &>;
    const auto m = plain_operand<T>(a);
    const auto to = result<T>(determinants);
    const auto function = find<operation::Det, T>(sources(m));
    const std::ptrdiff_t n = order_of(m);
    detail::scratch<T, std::remove_reference_t<S>> buffer(scratch, n * (n + 1));
    if (buffer.status() != zelStatusOk)
        return buffer.status();
    return reduce(function, square_difference(m), count_of(m), to, m, m.rows(), buffer.data(),
                  to.data, count_arguments(m));
}

/* a = L * L^T. Only the lower triangles of a and l are read and written, and the diagonal of l
 * holds reciprocals. l may be a. */
template <class A, class L>
status cholesky_decompose(const A &a, L &&l) {
    using namespace detail;
    using T = value_of<L>;
    const auto m = plain_operand<T>(a);
    const auto z = destination(l);
    check_destination<decltype(z), decltype(m)>();
    const auto function = find<operation::CholeskyDecomp, T>(sources(m), z);
    return run(function, square_difference(m) | difference(m, z), count_of(z), m, z, m.rows(),
               count_arguments(z));
}

/* a * x = b from what cholesky_decompose has left of a: one a and one or many b, or an a for every
 * b. x may be b. */
template <class A, class B, class X>
status cholesky_solve(const A &l, const B &b, X &&x) {
    using namespace detail;
    using T = value_of<X>;
    const auto m = plain_operand<T>(l);
    const auto v = operand<T>(b);
    const auto z = destination(x);
    check_destination<decltype(z), decltype(m), decltype(v)>();
    const auto function = find<operation::CholeskyBackSubst, T>(sources(m, v), z);
    return run(function,
               square_difference(m) | rows_difference(m, v) | difference(v, z) |
                   count_difference(m, z),
               count_of(z), m, v, z, m.rows(), count_arguments(z));
}

/* a = Q * R by reflections, with at least as many rows as columns: R and the reflections as
 * zelmQRDecomp leaves them. qr may be a. scratch: rows. */
template <class A, class D, class S = detail::own_scratch>
status qr_decompose(const A &a, D &&qr, S &&scratch = S()) {
    using namespace detail;
    using T = value_of<D>;
    const auto m = plain_operand<T>(a);
    const auto z = destination(qr);
    check_destination<decltype(z), decltype(m)>();
    const auto function = find<operation::QRDecomp, T>(sources(m), z);
    detail::scratch<T, std::remove_reference_t<S>> buffer(scratch, m.rows());
    if (buffer.status() != zelStatusOk)
        return buffer.status();
    return run(function, difference(m, z), count_of(z), m, buffer.data(), z, size_arguments(m),
               count_arguments(z));
}

/* The x that makes a * x - b shortest, from what qr_decompose has left of a: one a and one or many
 * b, or an a for every b. x may be b if they are of the same length. scratch: rows of a. */
template <class A, class B, class X, class S = detail::own_scratch>
status qr_solve(const A &qr, const B &b, X &&x, S &&scratch = S()) {
    using namespace detail;
    using T = value_of<X>;
    const auto m = plain_operand<T>(qr);
    const auto v = operand<T>(b);
    const auto z = destination(x);
    check_destination<decltype(z), decltype(m), decltype(v)>();
    const auto function = find<operation::QRBackSubst, T>(sources(m, v), z);
    detail::scratch<T, std::remove_reference_t<S>> buffer(scratch, m.rows());
    if (buffer.status() != zelStatusOk)
        return buffer.status();
    return run(function,
               rows_difference(m, v) | columns_difference(m, z) | count_difference(v, z) |
                   count_difference(m, z),
               count_of(z), m, buffer.data(), v, z, size_arguments(m), count_arguments(z));
}

/* values: `order` eigenvalues of the symmetric a[n], descending. scratch: order * order. Scale your
 * matrices to norms of 1000 or more. */
template <class A, class R, class S = detail::own_scratch>
status eigenvalues_symmetric(const A &a, R &&values, S &&scratch = S()) {
    using namespace detail;
    using T = value_of<const A &>;
    const auto m = plain_operand<T>(a);
    const auto to = result<T>(values);
    const auto function = find<operation::EigenValuesSym, T>(sources(m));
    const std::ptrdiff_t n = order_of(m);
    detail::scratch<T, std::remove_reference_t<S>> buffer(scratch, n * n);
    if (buffer.status() != zelStatusOk)
        return buffer.status();
    if (!to.gapless)
        return zelStatusBadStride;
    return run(function, square_difference(m) | size_difference(to, count_of(m), m.rows()),
               count_of(m), m, buffer.data(), to.data, m.rows(), count_arguments(m));
}

/* ... and the eigenvectors in the columns of vectors, which may be a. */
template <class A, class R, class D, class S = detail::own_scratch>
status eigen_symmetric(const A &a, R &&values, D &&vectors, S &&scratch = S()) {
    using namespace detail;
    using T = value_of<D>;
    const auto m = plain_operand<T>(a);
    const auto to = result<T>(values);
    const auto z = destination(vectors);
    check_destination<decltype(z), decltype(m)>();
    const auto function = find<operation::EigenValuesVectorsSym, T>(sources(m), z);
    const std::ptrdiff_t n = order_of(m);
    detail::scratch<T, std::remove_reference_t<S>> buffer(scratch, n * n);
    if (buffer.status() != zelStatusOk)
        return buffer.status();
    if (!to.gapless)
        return zelStatusBadStride;
    return run(function,
               square_difference(m) | difference(m, z) | size_difference(to, count_of(m), m.rows()),
               count_of(m), m, buffer.data(), z, to.data, m.rows(), count_arguments(m));
}

/* Bytes of scratch for matrices of this order: eigenvalues, and the functions with vectors. */
template <class T>
status eigenvalues_scratch(int order, int &bytes) {
    return detail::function<detail::operation::EigenValuesGetBufSize, T, description::S,
                            description::S>(order, &bytes);
}
template <class T>
status eigen_scratch(int order, int &bytes) {
    return detail::function<detail::operation::EigenValuesVectorsGetBufSize, T, description::S,
                            description::S>(order, &bytes);
}

} // namespace raw

namespace detail {

/* The general eigenproblems: no, one or two matrices of vectors. The size of the scratch is
 * order * (factor * order + 5) elements. */
template <operation Op, int Factor, class A, class Re, class Im, class S, class... Vectors>
status general_eigen(const A &a, Re &re, Im &im, S &given, Vectors &...vectors) {
    using T = value_of<const A &>;
    const auto m = plain_operand<T>(a);
    const auto real = result<T>(re);
    const auto imaginary = result<T>(im);
    (check_destination<decltype(destination(vectors)), decltype(m)>(), ...);
    const auto function = find<Op, T>(sources(m), destination(vectors)...);
    const std::ptrdiff_t n = order_of(m), count = count_of(m);
    scratch<T, S> buffer(given, n * (Factor * n + 5));
    if (buffer.status() != zelStatusOk)
        return buffer.status();
    if (!real.gapless || !imaginary.gapless)
        return zelStatusBadStride;
    const auto differences =
        square_difference(m) | (difference(m, destination(vectors)) | ... | 0) |
        size_difference(real, count, m.rows()) | size_difference(imaginary, count, m.rows());
    return run(function, differences, count, m, destination(vectors)..., real.data, imaginary.data,
               m.rows(), count_arguments(m), buffer.data());
}

} // namespace detail

namespace raw {

/* The real and imaginary parts of the eigenvalues of any a[n], `order` each. scratch as
 * eigenvalues_scratch tells. */
template <class A, class Re, class Im, class S = detail::own_scratch>
status eigenvalues(const A &a, Re &&real, Im &&imaginary, S &&scratch = S()) {
    return detail::general_eigen<detail::operation::EigenValues, 1>(a, real, imaginary, scratch);
}

/* ... and the right eigenvectors, the left ones, or both, in columns, as zelmEigenValuesVectors
 * leaves them. They may be a. scratch as eigen_scratch tells. */
template <class A, class Re, class Im, class D, class S = detail::own_scratch>
status eigen_right(const A &a, Re &&real, Im &&imaginary, D &&right, S &&scratch = S()) {
    return detail::general_eigen<detail::operation::EigenValuesVectorsRight, 3>(a, real, imaginary,
                                                                                scratch, right);
}
template <class A, class Re, class Im, class D, class S = detail::own_scratch>
status eigen_left(const A &a, Re &&real, Im &&imaginary, D &&left, S &&scratch = S()) {
    return detail::general_eigen<detail::operation::EigenValuesVectorsLeft, 3>(a, real, imaginary,
                                                                               scratch, left);
}
template <class A, class Re, class Im, class Right, class Left, class S = detail::own_scratch>
status eigen(const A &a, Re &&real, Im &&imaginary, Right &&right, Left &&left, S &&scratch = S()) {
    return detail::general_eigen<detail::operation::EigenValuesVectors, 3>(a, real, imaginary,
                                                                           scratch, right, left);
}

} // namespace raw
} // namespace zelm

#endif
