// Inner loops that solve, one call of the library each. The last operand receives the statuses.
// The library has no matrices without elements; what NumPy makes of them is made here.

#include "arguments.hpp"

namespace zelm_python {
namespace {

enum class RightHandSide { vector, matrix };
enum class Wanted { all, less };
// The library reads and writes lower triangles; the upper one is that of the transposed matrix.
enum class Triangle { lower, upper };

constexpr auto vector = RightHandSide::vector, matrix = RightHandSide::matrix;
constexpr auto all = Wanted::all, less = Wanted::less;
constexpr auto lower = Triangle::lower, upper = Triangle::upper;

// a, or its transpose.
template <Triangle triangle, typename T>
zelm::matrices<T> with_lower(const Operand<T> &a) {
    Operand<T> result = a;
    if (triangle == upper) {
        result.stride1 = a.stride2;
        result.stride2 = a.stride1;
    }
    return result.matrices();
}

template <typename T>
void inverse(char **data, const npy_intp *sizes, const npy_intp *steps, void *) {
    Arguments<T> given(data, sizes, steps, 3);
    const npy_intp n = given.size(0);
    const auto a = given.matrix(n, n), x = given.matrix(n, n);
    const Statuses status = given.statuses();
    if (n == 0)
        return status.fill(zelStatusOk);
    status.after(zelm::inverse(a.matrices(), x.matrices(), {status.all}));
}

template <typename T, RightHandSide kind>
void solve(char **data, const npy_intp *sizes, const npy_intp *steps, void *) {
    Arguments<T> given(data, sizes, steps, 4);
    const npy_intp n = given.size(0), k = kind == vector ? 1 : given.size(1);
    const auto a = given.matrix(n, n), b = kind == vector ? given.column(n) : given.matrix(n, k),
               x = kind == vector ? given.column(n) : given.matrix(n, k);
    const Statuses status = given.statuses();
    if (n == 0 || k == 0)
        return status.fill(zelStatusOk);
    status.after(zelm::solve(a.matrices(), b.matrices(), x.matrices(), {status.all}));
}

template <typename T>
void determinant(char **data, const npy_intp *sizes, const npy_intp *steps, void *) {
    Arguments<T> given(data, sizes, steps, 3);
    const npy_intp n = given.size(0);
    const auto a = given.matrix(n, n), value = given.scalar();
    const Statuses status = given.statuses();
    if (n == 0) {
        value.fill(1);
        return status.fill(zelStatusOk);
    }
    status.after(zelm::determinant(a.matrices(), value.scalars(), {status.all}));
}

template <typename T>
void log_determinant(char **data, const npy_intp *sizes, const npy_intp *steps, void *) {
    Arguments<T> given(data, sizes, steps, 4);
    const npy_intp n = given.size(0);
    const auto a = given.matrix(n, n), sign = given.scalar(), logarithm = given.scalar();
    const Statuses status = given.statuses();
    if (n == 0) {
        sign.fill(1);
        logarithm.fill(0);
        return status.fill(zelStatusOk);
    }
    status.after(
        zelm::log_determinant(a.matrices(), sign.scalars(), logarithm.scalars(), {status.all}));
}

template <typename T, Triangle triangle>
void cholesky(char **data, const npy_intp *sizes, const npy_intp *steps, void *) {
    Arguments<T> given(data, sizes, steps, 3);
    const npy_intp n = given.size(0);
    const auto a = given.matrix(n, n), l = given.matrix(n, n);
    const Statuses status = given.statuses();
    if (n == 0)
        return status.fill(zelStatusOk);
    status.after(zelm::cholesky(with_lower<triangle>(a), with_lower<triangle>(l), {status.all}));
}

// q has as many columns as core dimension columns_of_q says: 0 (rows) or 1 (columns).
template <typename T, Wanted wanted, int columns_of_q>
void qr(char **data, const npy_intp *sizes, const npy_intp *steps, void *) {
    Arguments<T> given(data, sizes, steps, wanted == all ? 4 : 3);
    const npy_intp rows = given.size(0), columns = given.size(1), k = given.size(columns_of_q);
    const auto a = given.matrix(rows, columns);
    const auto q = wanted == all ? given.matrix(rows, k) : a;
    const auto r = given.matrix(k, columns);
    const Statuses status = given.statuses();
    if (rows == 0 || columns == 0) {
        if (wanted == all) {
            q.fill(0);
            for (npy_intp n = 0; n < q.count; ++n)
                for (npy_intp i = 0; i < k; ++i)
                    q.at(n, i, i) = 1;
        }
        return status.fill(zelStatusOk);
    }
    if constexpr (wanted == all)
        status.after(zelm::qr(a.matrices(), q.matrices(), r.matrices(), {status.all}));
    else
        status.after(zelm::qr(a.matrices(), r.matrices(), {status.all}));
}

template <typename T, RightHandSide kind>
void least_squares(char **data, const npy_intp *sizes, const npy_intp *steps, void *) {
    Arguments<T> given(data, sizes, steps, 5);
    const npy_intp rows = given.size(0), columns = given.size(1),
                   k = kind == vector ? 1 : given.size(2);
    const auto a = given.matrix(rows, columns),
               b = kind == vector ? given.column(rows) : given.matrix(rows, k),
               x = kind == vector ? given.column(columns) : given.matrix(columns, k),
               residuals = given.row(k);
    const Statuses status = given.statuses();
    if (rows == 0 && columns > 0)
        return status.fill(zelStatusSizeMismatch);
    if (columns == 0 || k == 0) {
        residuals.fill(0);
        for (npy_intp n = 0; n < b.count; ++n)
            for (npy_intp i = 0; i < rows; ++i)
                for (npy_intp j = 0; j < k; ++j)
                    residuals.at(n, 0, j) += b.at(n, i, j) * b.at(n, i, j);
        return status.fill(zelStatusOk);
    }
    status.after(zelm::least_squares(a.matrices(), b.matrices(), x.matrices(), residuals.vectors(),
                                     {status.all}));
}

template <typename T, Wanted wanted, Triangle triangle>
void eigen_symmetric(char **data, const npy_intp *sizes, const npy_intp *steps, void *) {
    Arguments<T> given(data, sizes, steps, wanted == all ? 4 : 3);
    const npy_intp n = given.size(0);
    const auto a = given.matrix(n, n), values = given.row(n);
    const auto vectors = wanted == all ? given.matrix(n, n) : a;
    const Statuses status = given.statuses();
    if (n == 0)
        return status.fill(zelStatusOk);
    const auto m = with_lower<triangle>(a);
    if constexpr (wanted == all)
        status.after(zelm::eigen_symmetric(m, values.vectors(), vectors.matrices(), {status.all}));
    else
        status.after(zelm::eigen_symmetric(m, values.vectors(), {status.all}));
}

// The imaginary parts of what holds real parts of complex numbers.
template <typename T>
Operand<T> imaginary(Operand<T> re) {
    ++re.data;
    return re;
}

// Makes complex vectors of Euclidean norm 1 of what the library leaves in their real parts: real
// vectors, and the real and imaginary parts of the first of two conjugate ones.
template <typename T>
void complete_vectors(const Operand<T> &values, const Operand<T> &re, npy_intp n) {
    const Operand<T> im = imaginary(re), im_values = imaginary(values);
    const npy_intp order = re.rows;
    for (npy_intp j = 0; j < order; ++j) {
        const npy_intp last = j + (j + 1 < order && im_values.at(n, 0, j) > 0);
        T largest = 0, sum = 0;
        for (npy_intp i = 0; i < order; ++i)
            for (npy_intp k = j; k <= last; ++k) {
                const T x = re.at(n, i, k), size = x < 0 ? -x : x;
                largest = size > largest ? size : largest;
            }
        for (npy_intp i = 0; i < order; ++i)
            for (npy_intp k = j; k <= last; ++k) {
                const T part = re.at(n, i, k) /= largest;
                sum += part * part;
            }
        const T norm = static_cast<T>(__builtin_sqrt(static_cast<double>(sum)));
        for (npy_intp i = 0; i < order; ++i) {
            const T x = re.at(n, i, j) / norm, y = re.at(n, i, last) / norm;
            re.at(n, i, j) = x;
            im.at(n, i, j) = last == j ? 0 : y;
            if (last != j) {
                re.at(n, i, last) = x;
                im.at(n, i, last) = -y;
            }
        }
        j = last;
    }
}

template <typename T, Wanted wanted>
void eigen(char **data, const npy_intp *sizes, const npy_intp *steps, void *) {
    Arguments<T> given(data, sizes, steps, wanted == all ? 4 : 3);
    const npy_intp n = given.size(0);
    const auto a = given.matrix(n, n), values = given.row(n);
    const auto vectors = wanted == all ? given.matrix(n, n) : a;
    const Statuses status = given.statuses();
    if (n == 0)
        return status.fill(zelStatusOk);
    const auto re = values.vectors(), im = imaginary(values).vectors();
    if constexpr (wanted == all) {
        status.after(zelm::eigen(a.matrices(), re, im, vectors.matrices(), {status.all}));
        for (npy_intp i = 0; i < vectors.count; ++i)
            complete_vectors(values, vectors, i);
    } else {
        status.after(zelm::eigen(a.matrices(), re, im, {status.all}));
    }
}

// clang-format off
#define ZELM_LOOPS(function, ...) \
    { function<float __VA_OPT__(,) __VA_ARGS__>, function<double __VA_OPT__(,) __VA_ARGS__> }

Function table[] = {
    {"inv", "(n,n)->(n,n),()", "tti", 1, ZELM_LOOPS(inverse)},
    {"solve", "(n,n),(n,k)->(n,k),()", "ttti", 2, ZELM_LOOPS(solve, matrix)},
    {"solve_vector", "(n,n),(n)->(n),()", "ttti", 2, ZELM_LOOPS(solve, vector)},
    {"det", "(n,n)->(),()", "tti", 1, ZELM_LOOPS(determinant)},
    {"slogdet", "(n,n)->(),(),()", "ttti", 1, ZELM_LOOPS(log_determinant)},
    {"cholesky_lower", "(n,n)->(n,n),()", "tti", 1, ZELM_LOOPS(cholesky, lower)},
    {"cholesky_upper", "(n,n)->(n,n),()", "tti", 1, ZELM_LOOPS(cholesky, upper)},
    // q of k columns: k = n where there are more rows than columns, and k = m
    {"qr_n", "(m,n)->(m,n),(n,n),()", "ttti", 1, ZELM_LOOPS(qr, all, 1)},
    {"qr_m", "(m,n)->(m,m),(m,n),()", "ttti", 1, ZELM_LOOPS(qr, all, 0)},
    {"qr_n_r", "(m,n)->(n,n),()", "tti", 1, ZELM_LOOPS(qr, less, 1)},
    {"qr_m_r", "(m,n)->(m,n),()", "tti", 1, ZELM_LOOPS(qr, less, 0)},
    {"lstsq", "(m,n),(m,k)->(n,k),(k),()", "tttti", 2, ZELM_LOOPS(least_squares, matrix)},
    {"lstsq_vector", "(m,n),(m)->(n),(1),()", "tttti", 2, ZELM_LOOPS(least_squares, vector)},
    {"eigh_lower", "(n,n)->(n),(n,n),()", "ttti", 1, ZELM_LOOPS(eigen_symmetric, all, lower)},
    {"eigh_upper", "(n,n)->(n),(n,n),()", "ttti", 1, ZELM_LOOPS(eigen_symmetric, all, upper)},
    {"eigvalsh_lower", "(n,n)->(n),()", "tti", 1, ZELM_LOOPS(eigen_symmetric, less, lower)},
    {"eigvalsh_upper", "(n,n)->(n),()", "tti", 1, ZELM_LOOPS(eigen_symmetric, less, upper)},
    {"eig", "(n,n)->(n),(n,n),()", "tcci", 1, ZELM_LOOPS(eigen, all)},
    {"eigvals", "(n,n)->(n),()", "tci", 1, ZELM_LOOPS(eigen, less)},
};
// clang-format on

} // namespace

Functions solvers() { return {table, sizeof(table) / sizeof(*table)}; }

} // namespace zelm_python
