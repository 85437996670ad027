// Inner loops of products and norms: as a rule one call of the library each.

#include "arguments.hpp"

#include <array>
#include <cmath>
#include <cstdlib>

namespace zelm_python {
namespace {

template <typename T, size_t N>
using Operands = std::array<Operand<T>, N>;

enum class Result { objects, scalars }; // scalars stand side by side in the library

constexpr bool is_stride(npy_intp stride) { return stride > 0 && stride <= INT_MAX; }

// Some of the objects.
template <typename T>
Operand<T> part(Operand<T> x, npy_intp first, npy_intp count) {
    x.data = &x.at(first, 0, 0);
    x.count = count;
    return x;
}
// The same objects without gaps, elsewhere.
template <typename T>
Operand<T> packed(Operand<T> x, char *there) {
    x.data = reinterpret_cast<T *>(there);
    x.stride2 = sizeof(T);
    x.stride1 = x.columns * x.stride2;
    x.stride0 = x.rows * x.stride1;
    return x;
}
template <typename T>
void copy(const Operand<T> &from, const Operand<T> &to) {
    for (npy_intp n = 0; n < from.count; ++n)
        for (npy_intp i = 0; i < from.rows; ++i)
            for (npy_intp j = 0; j < from.columns; ++j)
                to.at(n, i, j) = from.at(n, i, j);
}

// Calls `call(operands)` for all objects, as many at a time as the library takes; the result comes
// last. An operand of stride0 0 is a single one, for all objects: at most one is, and only of the
// first `may_repeat`. Where NumPy has other strides than the library the operand is copied, some
// objects at a time. False: a size is beyond int, or there is no memory.
template <typename T, size_t N, typename Call>
bool in_pieces(Operands<T, N> &given, size_t may_repeat, Result result, Call call) {
    constexpr npy_intp size = sizeof(T), bytes_at_once = 32768;
    const npy_intp count = given[0].count;
    bool copied[N];
    npy_intp scratch = 0; // for one object
    for (size_t i = 0; i < N; ++i) {
        Operand<T> &x = given[i];
        if (x.rows > INT_MAX || x.columns > INT_MAX)
            return false;
        if (x.columns == 1)
            x.stride2 = size;
        if (x.rows == 1)
            x.stride1 = x.stride2;
        if (count == 1)
            x.stride0 = size;
        const bool repeated = i < may_repeat && x.stride0 == 0;
        if (repeated)
            may_repeat = 0;
        copied[i] = !(repeated || is_stride(x.stride0)) || !is_stride(x.stride1) ||
                    !is_stride(x.stride2) ||
                    (i == N - 1 && result == Result::scalars && x.stride0 != size);
        if (copied[i])
            scratch += x.elements() * size;
    }
    npy_intp most = INT_MAX;
    if (scratch > 0)
        most = scratch < bytes_at_once ? bytes_at_once / scratch : 1;
    most = most < count ? most : count;
    char *const memory = scratch > 0
                             ? static_cast<char *>(std::malloc(static_cast<size_t>(most * scratch)))
                             : nullptr;
    if (scratch > 0 && !memory)
        return false;

    for (npy_intp first = 0; first < count; first += most) {
        const npy_intp n = most < count - first ? most : count - first;
        Operands<T, N> operands;
        char *free = memory;
        for (size_t i = 0; i < N; ++i) {
            operands[i] = part(given[i], first, n);
            if (copied[i]) {
                operands[i] = packed(operands[i], free);
                free += n * operands[i].elements() * size;
                if (i < N - 1)
                    copy(part(given[i], first, n), operands[i]);
            }
        }
        call(operands);
        if (copied[N - 1])
            copy(operands[N - 1], part(given[N - 1], first, n));
    }
    std::free(memory);
    return true;
}

// in_pieces() has left nothing to refuse.
void expect(zelm::status) {}

// Products of the operands (m, k), (k, n), (m, n).
template <typename T, typename Call>
void multiply(Operands<T, 3> operands, Result result, Call call) {
    const auto &[a, b, c] = operands;
    if (c.elements() == 0)
        return;
    if (a.columns == 0)
        return c.fill(0);
    if (in_pieces(operands, 2, result, call))
        return;
    for (npy_intp n = 0; n < c.count; ++n)
        for (npy_intp i = 0; i < c.rows; ++i)
            for (npy_intp j = 0; j < c.columns; ++j) {
                T sum = 0;
                for (npy_intp k = 0; k < a.columns; ++k)
                    sum += a.at(n, i, k) * b.at(n, k, j);
                c.at(n, i, j) = sum;
            }
}

template <typename T>
void matmul(char **data, const npy_intp *sizes, const npy_intp *steps, void *) {
    Arguments<T> given(data, sizes, steps, 3);
    const npy_intp m = given.size(0), k = given.size(1), n = given.size(2);
    const auto a = given.matrix(m, k), b = given.matrix(k, n), c = given.matrix(m, n);
    multiply<T>({a, b, c}, Result::objects, [](const Operands<T, 3> &x) {
        if (x[0].stride0 == 0)
            expect(zelm::multiply(x[0].matrix(), x[1].matrices(), x[2].matrices()));
        else if (x[1].stride0 == 0)
            expect(zelm::multiply(x[0].matrices(), x[1].matrix(), x[2].matrices()));
        else
            expect(zelm::multiply(x[0].matrices(), x[1].matrices(), x[2].matrices()));
    });
}

template <typename T>
void matvec(char **data, const npy_intp *sizes, const npy_intp *steps, void *) {
    Arguments<T> given(data, sizes, steps, 3);
    const npy_intp m = given.size(0), n = given.size(1);
    const auto a = given.matrix(m, n), x = given.column(n), y = given.column(m);
    multiply<T>({a, x, y}, Result::objects, [](const Operands<T, 3> &v) {
        if (v[0].stride0 == 0)
            expect(zelm::multiply(v[0].matrix(), v[1].vectors(), v[2].vectors()));
        else if (v[1].stride0 == 0)
            expect(zelm::multiply(v[0].matrices(), v[1].vector(), v[2].vectors()));
        else
            expect(zelm::multiply(v[0].matrices(), v[1].vectors(), v[2].vectors()));
    });
}

template <typename T>
void vecdot(char **data, const npy_intp *sizes, const npy_intp *steps, void *) {
    Arguments<T> given(data, sizes, steps, 3);
    const npy_intp n = given.size(0);
    const auto a = given.row(n), b = given.column(n), result = given.scalar();
    multiply<T>({a, b, result}, Result::scalars, [](const Operands<T, 3> &x) {
        if (x[0].stride0 == 0)
            expect(zelm::dot(x[0].vector(), x[1].vectors(), x[2].scalars()));
        else if (x[1].stride0 == 0)
            expect(zelm::dot(x[0].vectors(), x[1].vector(), x[2].scalars()));
        else
            expect(zelm::dot(x[0].vectors(), x[1].vectors(), x[2].scalars()));
    });
}

template <typename T>
void cross(char **data, const npy_intp *sizes, const npy_intp *steps, void *) {
    Arguments<T> given(data, sizes, steps, 3);
    const auto a = given.row(3), b = given.row(3), c = given.row(3);
    Operands<T, 3> operands = {a, b, c};
    const auto call = [](const Operands<T, 3> &x) {
        if (x[0].stride0 == 0)
            expect(zelm::cross(x[0].vector(), x[1].vectors(), x[2].vectors()));
        else if (x[1].stride0 == 0)
            expect(zelm::cross(x[0].vectors(), x[1].vector(), x[2].vectors()));
        else
            expect(zelm::cross(x[0].vectors(), x[1].vectors(), x[2].vectors()));
    };
    if (in_pieces(operands, 2, Result::objects, call))
        return;
    for (npy_intp n = 0; n < c.count; ++n)
        for (int i = 0; i < 3; ++i) {
            const int j = (i + 1) % 3, k = (i + 2) % 3;
            c.at(n, 0, i) = a.at(n, 0, j) * b.at(n, 0, k) - a.at(n, 0, k) * b.at(n, 0, j);
        }
}

template <typename T, typename Call>
void norms(Operands<T, 2> operands, Call call) {
    const auto &[a, result] = operands;
    if (a.elements() > 0 && in_pieces(operands, 0, Result::scalars, call))
        return;
    for (npy_intp n = 0; n < a.count; ++n) {
        T sum = 0;
        for (npy_intp i = 0; i < a.rows; ++i)
            for (npy_intp j = 0; j < a.columns; ++j)
                sum += a.at(n, i, j) * a.at(n, i, j);
        result.at(n, 0, 0) = std::sqrt(sum);
    }
}

template <typename T>
void norm(char **data, const npy_intp *sizes, const npy_intp *steps, void *) {
    Arguments<T> given(data, sizes, steps, 2);
    const auto a = given.row(given.size(0)), result = given.scalar();
    norms<T>({a, result}, [](const Operands<T, 2> &x) {
        expect(zelm::l2_norm(x[0].vectors(), x[1].scalars()));
    });
}

// A matrix without gaps is one vector, which is added up faster than row after row is, but for the
// orders that the library does so itself.
template <typename T>
void matrix_norm(char **data, const npy_intp *sizes, const npy_intp *steps, void *) {
    Arguments<T> given(data, sizes, steps, 2);
    auto a = given.matrix(given.size(0), given.size(1));
    const auto result = given.scalar();
    const bool gapless = a.stride1 == a.columns * a.stride2 || a.stride2 == a.rows * a.stride1;
    if (gapless && !(a.rows == a.columns && a.rows >= 3 && a.rows <= 5)) {
        a.stride2 = a.stride1 < a.stride2 ? a.stride1 : a.stride2;
        a.columns *= a.rows;
        a.rows = 1;
    }
    norms<T>({a, result}, [](const Operands<T, 2> &x) {
        if (x[0].rows == 1)
            expect(zelm::l2_norm(x[0].vectors(), x[1].scalars()));
        else
            expect(zelm::frobenius_norm(x[0].matrices(), x[1].scalars()));
    });
}

template <typename T>
void trace(char **data, const npy_intp *sizes, const npy_intp *steps, void *) {
    Arguments<T> given(data, sizes, steps, 2);
    const npy_intp order = given.size(0) < given.size(1) ? given.size(0) : given.size(1);
    const auto a = given.matrix(order, order), result = given.scalar();
    Operands<T, 2> operands = {a, result};
    const auto call = [](const Operands<T, 2> &x) {
        expect(zelm::trace(x[0].matrices(), x[1].scalars()));
    };
    if (order > 0 && in_pieces(operands, 0, Result::scalars, call))
        return;
    result.fill(0);
    for (npy_intp n = 0; n < a.count; ++n)
        for (npy_intp i = 0; i < order; ++i)
            result.at(n, 0, 0) += a.at(n, i, i);
}

// clang-format off
#define ZELM_LOOPS(function) { function<float>, function<double> }

Function table[] = {
    {"matmul", "(m?,k),(k,n?)->(m?,n?)", "ttt", 2, ZELM_LOOPS(matmul)},
    {"matvec", "(m,n),(n)->(m)", "ttt", 2, ZELM_LOOPS(matvec)},
    {"vecdot", "(n),(n)->()", "ttt", 2, ZELM_LOOPS(vecdot)},
    {"cross", "(3),(3)->(3)", "ttt", 2, ZELM_LOOPS(cross)},
    {"norm", "(n)->()", "tt", 1, ZELM_LOOPS(norm)},
    {"matrix_norm", "(m,n)->()", "tt", 1, ZELM_LOOPS(matrix_norm)},
    {"trace", "(m,n)->()", "tt", 1, ZELM_LOOPS(trace)},
};
// clang-format on

} // namespace

Functions products() { return {table, sizeof(table) / sizeof(*table)}; }

} // namespace zelm_python
