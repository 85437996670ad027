/*
 * zelm/solvers.hpp: solvers that finish every object
 *
 * Objects that fail are filled with NaN, all others are solved. Results do not depend on scale, and
 * zelStatusOk never comes with an infinity or a NaN; zelmsafe.h says exactly what is promised. The
 * status is that of the first object that failed. More is told where an option gives room:
 *
 *   zelm::solve(a, b, x, {statuses})         one int per object: a range, member(bodies, &Body::s)
 *   zelm::solve(a, b, x, {statuses, rcond})  and an estimate of 1 / condition
 *
 * Arrays pair object n with object n; a single source beside arrays is used for every object.
 * Shapes come first: zelStatusSizeMismatch if they do not fit together, zelStatusOk if there are no
 * objects. Strides may be of any size, 0 and negative ones too. A destination may be a source, at
 * the same address with the same strides. Operands in pointer description are copied on the way.
 *
 * Statuses: zelStatusSingular, zelStatusNotPositiveDefinite, zelStatusNotConverged,
 * zelmSafeNotFinite (the object contains a NaN or an infinity), zelmSafeOutOfRange (the answer does
 * not fit the type), zelmSafeNoMemory.
 */
#ifndef ZELM_SOLVERS_HPP
#define ZELM_SOLVERS_HPP

#include "operations.hpp"

#include <cstdlib>

namespace zelm {

/* Where one status per object goes. */
struct options {
    scalars<int> statuses = {};
};
/* ... and one estimate of 1 / (|a| |inverse of a|) in the 1-norm. */
template <class T>
struct solve_options {
    scalars<int> statuses = {};
    scalars<T> rcond = {};
};

namespace detail {

template <class T, class F32, class F64>
constexpr auto by_type(F32 float_function, F64 double_function) {
    if constexpr (std::is_same_v<T, float>)
        return float_function;
    else
        return double_function;
}

/* A vector is a column where equations are meant, a row where values are. */
enum class vector_as { column, row };

template <class V>
ZelmView strided_view_of(const V &v, vector_as role) {
    using T = typename V::value_type;
    ZelmView result = {const_cast<T *>(v.data()), 0, 0, 0, nullptr};
    const auto all = v.elements();
    constexpr std::size_t rank = decltype(all)::rank;
    if constexpr (is_array(V::used_as))
        result.stride0 = all.strides[0];
    if constexpr (is_matrix(V::used_as)) {
        result.stride1 = all.strides[rank - 2];
        result.stride2 = all.strides[rank - 1];
    } else if constexpr (is_vector(V::used_as)) {
        (role == vector_as::column ? result.stride1 : result.stride2) = all.strides[rank - 1];
    }
    return result;
}
template <class V>
ZelmView layout_view_of(const V &v, vector_as role) {
    ZelmView result = {
        nullptr, v.shift(), 0, 0,
        reinterpret_cast<void *const *>(const_cast<typename V::value_type *const *>(v.table()))};
    if constexpr (V::used_as == kind::ma)
        result.stride1 = v.strides()[0], result.stride2 = v.strides()[1];
    else if constexpr (V::used_as == kind::va)
        (role == vector_as::column ? result.stride1 : result.stride2) = v.strides()[0];
    return result;
}

/* An operand as the safe solvers take it: in place, or, in pointer description, copied to a block
 * without gaps before the call, and back after it if it is a result. */
template <class V, vector_as Role>
class in_place {
public:
    explicit in_place(const V &v) : v_(v) {}
    ZelmView view() const {
        if constexpr (V::described == description::L)
            return layout_view_of(v_, Role);
        else
            return strided_view_of(v_, Role);
    }
    static constexpr int prepare() { return zelStatusOk; }
    static constexpr int finish(int) { return zelStatusOk; }

private:
    V v_;
};

template <class V, vector_as Role, bool Result>
class by_copy {
    using T = typename V::value_type;

public:
    explicit by_copy(const V &v) : v_(v) {}
    by_copy(const by_copy &) = delete;
    by_copy &operator=(const by_copy &) = delete;
    ~by_copy() { std::free(block_); }
    ZelmView view() const { return strided_view_of(block(), Role); }

    int prepare() {
        std::ptrdiff_t size = size_of_one(v_);
        if (v_.table() == nullptr)
            return zelStatusNullPointer;
        if (size < 0 || count_of(v_) < 0)
            return size < 0 ? zelStatusBadSize : zelStatusBadCount;
        if (v_.shift() < 0 || v_.shift() % size_of<T> != 0)
            return zelStatusBadOffset;
        if (count_of(v_) > 1 && (v_.stride0() < 1 || v_.stride0() % size_of<T> != 0))
            return zelStatusBadStride;
        if (__builtin_mul_overflow(size, count_of(v_), &size) || size > PTRDIFF_MAX / size_of<T>)
            return zelmSafeNoMemory;
        block_ = static_cast<T *>(std::malloc(static_cast<std::size_t>(size) * sizeof(T)));
        if (block_ == nullptr)
            return zelmSafeNoMemory;
        return Result ? int(zelStatusOk) : copy(v_, block()).code();
    }
    /* There are results unless an argument was wrong: those of failed objects are results too. */
    int finish(int result) {
        const bool none = result == zelStatusNullPointer || result == zelStatusBadCount ||
                          result == zelStatusBadSize || result == zelStatusSizeMismatch ||
                          result == zelmSafeNoMemory;
        if constexpr (Result)
            return none ? int(zelStatusOk) : copy(block(), v_).code();
        else
            return zelStatusOk;
    }

private:
    auto block() const {
        if constexpr (V::used_as == kind::m)
            return matrix<T>(block_, v_.rows(), v_.columns());
        else if constexpr (V::used_as == kind::ma)
            return matrices<T>(block_, v_.rows(), v_.columns(), v_.count());
        else if constexpr (V::used_as == kind::v)
            return vector<T>(block_, v_.length());
        else
            return vectors<T>(block_, v_.length(), v_.count());
    }
    V v_;
    T *block_ = nullptr;
};

template <class V, vector_as Role, bool Result>
using safe_operand =
    std::conditional_t<V::described == description::P, by_copy<V, Role, Result>, in_place<V, Role>>;

template <vector_as Role = vector_as::column, class V>
safe_operand<V, Role, false> read_from(const V &v) {
    return safe_operand<V, Role, false>(v);
}
template <vector_as Role = vector_as::column, class V>
safe_operand<V, Role, true> written_to(const V &v) {
    return safe_operand<V, Role, true>(v);
}

/* One number per object, or for one object. */
template <class T, class R>
auto per_object(R &r) {
    if constexpr (is_number<R>) {
        static_assert(std::is_same_v<R, T>, "the result has another type than the elements");
        return scalars<T>(&r, 1);
    } else if constexpr (is_operand<R>) {
        static_assert(std::is_same_v<typename R::element_type, T>,
                      "the results are read-only or have another type than the elements");
        if constexpr (R::described == description::L)
            return r;
        else
            return scalars<T>(r);
    } else {
        return scalars<T>(r);
    }
}

/* `order` values for every object: vectors, or a run of all of them. */
template <class T, class R, class A>
auto values_per_object(R &r, const A &a) {
    const auto v = view(r);
    static_assert(std::is_same_v<typename decltype(v)::element_type, T>,
                  "the results are read-only or have another type than the elements");
    if constexpr (is_array(A::used_as) && v.used_as == kind::v && v.described == description::S)
        return vectors<T>(divided(v.elements(), a.rows()));
    else
        return v;
}

constexpr ZelmView no_view() { return {nullptr, 0, 0, 0, nullptr}; }

template <class T>
bool is_given(const scalars<T> &s) {
    return s.data() != nullptr || s.count() != 0;
}
template <class T>
std::ptrdiff_t option_difference(const scalars<T> &s, std::ptrdiff_t count) {
    return is_given(s) ? s.count() ^ count : 0;
}
template <class T>
ZelmView option_view(const scalars<T> &s) {
    return is_given(s) ? strided_view_of(s, vector_as::row) : no_view();
}

/* In the place of a result that is not wanted. */
struct nothing {};
template <class V>
inline constexpr bool is_nothing = std::is_same_v<std::remove_cv_t<V>, nothing>;
struct nowhere {
    static constexpr ZelmView view() { return no_view(); }
    static constexpr int prepare() { return zelStatusOk; }
    static constexpr int finish(int) { return zelStatusOk; }
};
template <vector_as Role = vector_as::column>
nowhere written_to(nothing) {
    return {};
}

/* Tells results from options, which are the last argument. */
template <class... R>
using if_no_options = std::enable_if_t<(
    ... && !std::is_same_v<std::remove_cv_t<std::remove_reference_t<R>>, options>)>;

template <class D, class M>
auto optional_destination(D &d, const M &) {
    if constexpr (is_nothing<D>) {
        return nothing();
    } else {
        const auto z = destination(d);
        check_destination<decltype(z), M>();
        return z;
    }
}
template <class M, class D>
std::ptrdiff_t optional_difference(const M &m, const D &d) {
    if constexpr (is_nothing<D>)
        return 0;
    else
        return difference(m, d);
}

/* Right-hand sides. */
template <class V>
int columns_of(const V &v) {
    if constexpr (is_matrix(V::used_as))
        return v.columns();
    else
        return 1;
}
template <class M, class B, class X>
std::ptrdiff_t solution_difference(const M &m, const B &b, const X &x) {
    static_assert(is_matrix(B::used_as) == is_matrix(X::used_as),
                  "right-hand sides and solutions are both vectors or both matrices");
    std::ptrdiff_t columns = 0;
    if constexpr (is_matrix(X::used_as))
        columns = (m.columns() ^ x.rows()) | columns_difference(b, x);
    else
        columns = columns_difference(m, x);
    return columns | count_difference(m, x) | count_difference(b, x);
}
template <class T, class X, class R>
auto residuals_of(R &r) {
    if constexpr (is_nothing<R>)
        return nothing();
    else if constexpr (is_matrix(X::used_as))
        return destination(r);
    else
        return per_object<T>(r);
}
template <class R, class X>
std::ptrdiff_t residual_difference(const R &r, const X &x) {
    if constexpr (is_nothing<R>)
        return 0;
    else if constexpr (is_matrix(X::used_as))
        return columns_difference(x, r) | count_difference(x, r);
    else
        return r.count() ^ count_of(x);
}

template <class M>
std::ptrdiff_t columns_of_q_difference(const M &m, int k) {
    const int least = m.rows() < m.columns() ? m.rows() : m.columns();
    return k == m.rows() ? 0 : k ^ least;
}

/* call(statuses) between the copies of its operands, which come in any order. */
template <class Call, class... Operands>
status run_safe(std::ptrdiff_t differences, std::ptrdiff_t count, const scalars<int> &statuses,
                Call call, Operands &...operands) {
    if ((differences | option_difference(statuses, count)) != 0)
        return zelStatusSizeMismatch;
    if (count == 0)
        return zelStatusOk;
    int failed = zelStatusOk;
    if ((... || ((failed = operands.prepare()) != zelStatusOk)))
        return failed;
    const int result = call(ZelmStatusView{statuses.data(), statuses.stride0()});
    if ((... || ((failed = operands.finish(result)) != zelStatusOk)))
        return failed;
    return result;
}

} // namespace detail

/* Solves a * x = b. b and x are vectors, or matrices with a right-hand side in every column. To
 * decompose one a for many vectors once, give them as the columns of one matrix. */
template <class A, class B, class X>
status solve(const A &a, const B &b, X &&x, const solve_options<detail::value_of<X>> &o = {}) {
    using namespace detail;
    using T = value_of<X>;
    const auto m = plain_operand<T>(a);
    const auto v = plain_operand<T>(b);
    const auto z = destination(x);
    check_destination<decltype(z), decltype(m), decltype(v)>();
    static_assert(is_matrix(m.used_as), "the first operand of solve() is a matrix or matrices");
    const std::ptrdiff_t count = count_of(z);
    auto in = read_from(m);
    auto right = read_from(v);
    auto out = written_to(z);
    return run_safe(
        square_difference(m) | rows_difference(m, v) | difference(v, z) | count_difference(m, z) |
            option_difference(o.rcond, count),
        count, o.statuses,
        [&](ZelmStatusView s) {
            return by_type<T>(zelmSafeSolve_32f,
                              zelmSafeSolve_64f)(in.view(), right.view(), out.view(), m.rows(),
                                                 columns_of(z), count, s, option_view(o.rcond));
        },
        in, right, out);
}

/* x = the inverse of a. */
template <class A, class X>
status inverse(const A &a, X &&x, const solve_options<detail::value_of<X>> &o = {}) {
    using namespace detail;
    using T = value_of<X>;
    const auto m = plain_operand<T>(a);
    const auto z = destination(x);
    check_destination<decltype(z), decltype(m)>();
    const std::ptrdiff_t count = count_of(z);
    auto in = read_from(m);
    auto out = written_to(z);
    return run_safe(
        square_difference(m) | difference(m, z) | option_difference(o.rcond, count), count,
        o.statuses,
        [&](ZelmStatusView s) {
            return by_type<T>(zelmSafeInverse_32f, zelmSafeInverse_64f)(
                in.view(), out.view(), m.rows(), count, s, option_view(o.rcond));
        },
        in, out);
}

/* determinants[n] = the determinant of a[n]; 0 of a singular matrix, which is no failure. */
template <class A, class R>
status determinant(const A &a, R &&determinants, const options &o = {}) {
    using namespace detail;
    using T = value_of<const A &>;
    const auto m = plain_operand<T>(a);
    const auto z = per_object<T>(determinants);
    auto in = read_from(m);
    auto out = written_to(z);
    return run_safe(
        square_difference(m) | (z.count() ^ count_of(m)), z.count(), o.statuses,
        [&](ZelmStatusView s) {
            return by_type<T>(zelmSafeDeterminant_32f, zelmSafeDeterminant_64f)(
                in.view(), out.view(), m.rows(), z.count(), s);
        },
        in, out);
}

/* The sign of the determinants, -1, 0 or 1, and the natural logarithm of their magnitude: 0 and
 * minus infinity of a singular matrix, with zelStatusSingular. */
template <class A, class Sign, class Logarithm>
status log_determinant(const A &a, Sign &&signs, Logarithm &&logarithms, const options &o = {}) {
    using namespace detail;
    using T = value_of<const A &>;
    const auto m = plain_operand<T>(a);
    const auto first = per_object<T>(signs);
    const auto second = per_object<T>(logarithms);
    auto in = read_from(m);
    auto sign = written_to(first);
    auto logarithm = written_to(second);
    const std::ptrdiff_t count = count_of(m);
    return run_safe(
        square_difference(m) | (first.count() ^ count) | (second.count() ^ count), count,
        o.statuses,
        [&](ZelmStatusView s) {
            return by_type<T>(zelmSafeLogDeterminant_32f, zelmSafeLogDeterminant_64f)(
                in.view(), sign.view(), logarithm.view(), m.rows(), count, s);
        },
        in, sign, logarithm);
}

/* The lower triangular l with l * transpose(l) = a, zeros above the diagonal, for a symmetric
 * positive definite a, of which the lower triangle is read. */
template <class A, class L>
status cholesky(const A &a, L &&l, const options &o = {}) {
    using namespace detail;
    using T = value_of<L>;
    const auto m = plain_operand<T>(a);
    const auto z = destination(l);
    check_destination<decltype(z), decltype(m)>();
    auto in = read_from(m);
    auto out = written_to(z);
    return run_safe(
        square_difference(m) | difference(m, z), count_of(z), o.statuses,
        [&](ZelmStatusView s) {
            return by_type<T>(zelmSafeCholesky_32f, zelmSafeCholesky_64f)(in.view(), out.view(),
                                                                          m.rows(), count_of(z), s);
        },
        in, out);
}

/* a = q * r. a: m x n; q: m x k with orthonormal columns; r: k x n, upper triangular with zeros
 * below, where k is the smaller of m and n, or m. The second form is for r alone. */
template <class A, class Q, class R, class = detail::if_no_options<Q, R>>
status qr(const A &a, Q &&q, R &&r, const options &o = {}) {
    using namespace detail;
    using T = value_of<R>;
    const auto m = plain_operand<T>(a);
    const auto first = destination(q);
    const auto second = destination(r);
    check_destination<decltype(first), decltype(m)>();
    check_destination<decltype(second), decltype(m)>();
    static_assert(may_be_equal<first.static_columns, second.static_rows>,
                  "q must have as many columns as r has rows");
    const int k = second.rows();
    auto in = read_from(m);
    auto left = written_to(first);
    auto right = written_to(second);
    return run_safe(
        rows_difference(m, first) | columns_difference(m, second) | (first.columns() ^ k) |
            columns_of_q_difference(m, k) | count_difference(m, first) |
            count_difference(m, second),
        count_of(m), o.statuses,
        [&](ZelmStatusView s) {
            return by_type<T>(zelmSafeQR_32f, zelmSafeQR_64f)(
                in.view(), left.view(), right.view(), m.rows(), m.columns(), k, count_of(m), s);
        },
        in, left, right);
}
template <class A, class R, class = detail::if_no_options<R>>
status qr(const A &a, R &&r, const options &o = {}) {
    using namespace detail;
    using T = value_of<R>;
    const auto m = plain_operand<T>(a);
    const auto z = destination(r);
    check_destination<decltype(z), decltype(m)>();
    auto in = read_from(m);
    auto right = written_to(z);
    return run_safe(
        columns_difference(m, z) | columns_of_q_difference(m, z.rows()) | count_difference(m, z),
        count_of(m), o.statuses,
        [&](ZelmStatusView s) {
            return by_type<T>(zelmSafeQR_32f, zelmSafeQR_64f)(in.view(), no_view(), right.view(),
                                                              m.rows(), m.columns(), z.rows(),
                                                              count_of(m), s);
        },
        in, right);
}

/* The x of least |a * x - b|, for an a of full column rank with at least as many rows as columns. b
 * and x are vectors, or matrices with a right-hand side in every column. residuals receives the
 * sums of squares of what remains: a number per object, or a vector where b and x are matrices. */
template <class A, class B, class X, class R, class = detail::if_no_options<R>>
status least_squares(const A &a, const B &b, X &&x, R &&residuals, const options &o = {}) {
    using namespace detail;
    using T = value_of<X>;
    const auto m = plain_operand<T>(a);
    const auto v = plain_operand<T>(b);
    const auto z = destination(x);
    check_destination<decltype(z), decltype(m), decltype(v)>();
    const auto rest = residuals_of<T, decltype(z)>(residuals);
    const std::ptrdiff_t count = count_of(z);
    auto in = read_from(m);
    auto right = read_from(v);
    auto out = written_to(z);
    auto remains = written_to<vector_as::row>(rest);
    return run_safe(
        rows_difference(m, v) | solution_difference(m, v, z) | residual_difference(rest, z), count,
        o.statuses,
        [&](ZelmStatusView s) {
            return by_type<T>(zelmSafeLeastSquares_32f, zelmSafeLeastSquares_64f)(
                in.view(), right.view(), out.view(), remains.view(), m.rows(), m.columns(),
                columns_of(z), count, s);
        },
        in, right, out, remains);
}
template <class A, class B, class X>
status least_squares(const A &a, const B &b, X &&x, const options &o = {}) {
    return least_squares(a, b, x, detail::nothing(), o);
}

/* Eigenvalues, ascending, of a symmetric a, of which the lower triangle is read: `order` per
 * object. The orthonormal eigenvectors stand in the columns of vectors. */
template <class A, class R, class D, class = detail::if_no_options<D>>
status eigen_symmetric(const A &a, R &&values, D &&vectors, const options &o = {}) {
    using namespace detail;
    using T = value_of<const A &>;
    const auto m = plain_operand<T>(a);
    const auto w = values_per_object<T>(values, m);
    const auto z = optional_destination(vectors, m);
    auto in = read_from(m);
    auto first = written_to<vector_as::row>(w);
    auto second = written_to(z);
    return run_safe(
        square_difference(m) | rows_difference(m, w) | count_difference(m, w) |
            optional_difference(m, z),
        count_of(m), o.statuses,
        [&](ZelmStatusView s) {
            return by_type<T>(zelmSafeEigenSymmetric_32f, zelmSafeEigenSymmetric_64f)(
                in.view(), first.view(), second.view(), m.rows(), count_of(m), s);
        },
        in, first, second);
}
template <class A, class R>
status eigen_symmetric(const A &a, R &&values, const options &o = {}) {
    return eigen_symmetric(a, values, detail::nothing(), o);
}

/* The real and imaginary parts of the eigenvalues of any a, `order` per object; of a conjugate pair
 * the value with the positive imaginary part first. Columns of vectors are the right eigenvectors:
 * those of a pair are the real and the imaginary part of its first value's vector. */
template <class A, class Re, class Im, class D, class = detail::if_no_options<D>>
status eigen(const A &a, Re &&real, Im &&imaginary, D &&vectors, const options &o = {}) {
    using namespace detail;
    using T = value_of<const A &>;
    const auto m = plain_operand<T>(a);
    const auto re = values_per_object<T>(real, m);
    const auto im = values_per_object<T>(imaginary, m);
    const auto z = optional_destination(vectors, m);
    auto in = read_from(m);
    auto first = written_to<vector_as::row>(re);
    auto second = written_to<vector_as::row>(im);
    auto third = written_to(z);
    return run_safe(
        square_difference(m) | rows_difference(m, re) | count_difference(m, re) |
            rows_difference(m, im) | count_difference(m, im) | optional_difference(m, z),
        count_of(m), o.statuses,
        [&](ZelmStatusView s) {
            return by_type<T>(zelmSafeEigen_32f, zelmSafeEigen_64f)(
                in.view(), first.view(), second.view(), third.view(), m.rows(), count_of(m), s);
        },
        in, first, second, third);
}
template <class A, class Re, class Im>
status eigen(const A &a, Re &&real, Im &&imaginary, const options &o = {}) {
    return eigen(a, real, imaginary, detail::nothing(), o);
}

} // namespace zelm

#endif
