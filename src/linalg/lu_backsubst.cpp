#include "lu.hpp"

#include "../frame/checks.hpp"
#include "../frame/estimate.hpp"
#include "../frame/member.hpp"
#include "../frame/parallel.hpp"
#include "../frame/walk.hpp"

namespace zelm {
namespace {

constexpr Limits one_matrix_limits = {701, 701};     // of (n + 2*count)*n
constexpr Limits matrix_array_limits = {1201, 1201}; // of (n + 2)*n*count

// ---- one object ----

template <int N, class T, class Factor, class Vector, class Result>
void solve_object(const Factor &factor, const int *index, const Vector &b, const Result &result) {
    T f[N][N], x[N];
    unroll<N>(ZELM_EACH(i) {
        unroll<N>(ZELM_EACH(j) { f[i][j] = get(factor, index[i], j); });
        x[i] = get(b, 0, index[i]);
    });
    substitute<N>(f, x);
    unroll<N>(ZELM_EACH(i) { put(result, 0, i, x[i]); });
}

// Any order: x grows in the result.
template <class T, class Factor, class Vector, class Result>
void solve_object(int n, const Factor &factor, const int *index, const Vector &b, const Result &x) {
    const auto subtract = [&](T value, int i, int first, int last) {
        for (int j = first; j < last; ++j)
            value = value - get(factor, index[i], j) * get(x, 0, j);
        return value;
    };
    for (int i = 0; i < n; ++i)
        put(x, 0, i, subtract(get(b, 0, index[i]), i, 0, i));
    for (int i = n - 1; i >= 0; --i)
        put(x, 0, i, T{subtract(get(x, 0, i), i, i + 1, n) / get(factor, index[i], i)});
}

template <class Factor, class Vector, class Result>
ZelStatus y8_ownzelmLUBackSubst_mv(const Factor &factor, const int *index, const Vector &b,
                                   const Result &x, int n, int object) {
    using T = typename Factor::Element;
    const auto f = view(factor, object, {n, n});
    const auto from = view(b, object, {1, n});
    const auto to = view(x, object, {1, n});
    with_order<3, 6>(
        n, [&](auto N) { solve_object<N, T>(f, index, from, to); },
        [&] { solve_object<T>(n, f, index, from, to); });
    return zelStatusOk;
}

// ---- arrays ----

// One factor beside an array of vectors is loaded once, into every lane.
template <int N, class Factor, class Index, class Vector, class Result, class Allowed>
void solve_array(const Factor &factor, const Index &index, const Vector &b, const Result &x,
                 int count, const Allowed &allowed) {
    using T = typename Vector::Element;
    using S = Lanes<T>;
    const auto solve = [](const Group &group, const S(&f)[N][N], const auto &numbers,
                          const auto &from, const auto &to) __attribute__((always_inline)) {
        S v[N][1], row[1][N];
        load_lanes<T>(v, from, group.first, stored_rows<T>(numbers, group.first));
        unroll<N>(ZELM_EACH(i) { row[0][i] = v[i][0]; });
        substitute<N>(f, row[0]);
        store_lanes<T>(to, group.first, row);
        return 0u;
    };
    const auto alone = [&](int n) __attribute__((noinline)) {
        return y8_ownzelmLUBackSubst_mv(factor, index.row(n), b, x, N, n);
    };
    // The vector as a column, so that its elements are the rows that the numbers permute.
    const auto from = walked<N, 1>(b.as_column());
    const auto to = walked<1, N>(x);
    const auto numbers = walked<N>(index, {});
    if constexpr (Factor::is_array) {
        walk<T>(
            count, allowed,
            [&](const Group &group, const auto &f, const auto &p, const auto &v, const auto &y)
                __attribute__((always_inline)) {
                    S a[N][N];
                    load_lanes<T>(a, f, group.first, stored_rows<T>(p, group.first));
                    return solve(group, a, p, v, y);
                },
            alone, walked<N, N>(factor), numbers, from, to);
    } else {
        S a[N][N];
        const auto v = view(factor, 0, {N, N});
        unroll<N>(ZELM_EACH(i) {
            unroll<N>(ZELM_EACH(j) { a[i][j] = splat<S>(get(v, index.row(0)[i], j)); });
        });
        walk<T>(
            count, allowed,
            [&](const Group &group, const auto &p, const auto &f, const auto &y)
                __attribute__((always_inline)) { return solve(group, a, p, f, y); },
            alone, numbers, from, to);
    }
}

// Any other order: x grows in registers' memory, the factor's rows are read as they are used.
template <int largest, class Factor, class Index, class Vector, class Result, class Allowed>
void solve_array(int n, const Factor &factor, const Index &index, const Vector &b, const Result &x,
                 int count, const Allowed &allowed) {
    using T = typename Vector::Element;
    using S = Lanes<T>;
    const Shape shape = {n, n};
    const auto solve = [&](const Group &group, const auto &f, const auto &numbers, const auto &from,
                           const auto &to) {
        const int first = group.first;
        const auto rows = stored_rows<T>(numbers, first);
        S y[largest];
        const auto subtract = [&](S value, int i, int begin, int end)
            __attribute__((always_inline)) {
            in_steps<T>(
                begin, end, [&](int j, auto K) __attribute__((always_inline)) {
                    S part[K];
                    load_row<T>(part, f, first, shape, i, j, rows);
                    unroll<K>(ZELM_EACH(e) { value = value - part[e] * y[j + e]; });
                });
            return value;
        };
        for (int i = 0; i < n; ++i) {
            S v[1];
            load_row<T>(v, from, first, {n, 1}, i, 0, rows);
            y[i] = subtract(v[0], i, 0, i);
        }
        for (int i = n - 1; i >= 0; --i) {
            S diagonal[1];
            load_row<T>(diagonal, f, first, shape, i, i, rows);
            y[i] = subtract(y[i], i, i + 1, n) / diagonal[0];
        }
        in_steps<T>(
            0, n, [&](int j, auto K) __attribute__((always_inline)) {
                store_row<T>(to, first, {1, n}, 0, j, *reinterpret_cast<S(*)[K]>(y + j));
            });
        return 0u;
    };
    const auto alone = [&](int k) __attribute__((noinline)) {
        return y8_ownzelmLUBackSubst_mv(factor, index.row(k), b, x, n, k);
    };
    const auto from = walked<largest>(b.as_column(), {n, 1});
    const auto to = walked<largest>(x, {1, n});
    const auto numbers = walked<largest>(index, {});
    if constexpr (Factor::is_array)
        walk<T>(count, allowed, solve, alone, walked<largest * largest>(factor, shape), numbers,
                from, to);
    else
        walk<T>(
            count, allowed,
            [&](const Group &group, const auto &p, const auto &v, const auto &y) {
                return solve(group, factor, p, v, y);
            },
            alone, numbers, from, to);
}

template <class Factor, class Index, class Vector, class Result>
ZelStatus y8_ownzelmLUBackSubst(int count, const Factor &factor, const Index &index,
                                const Vector &b, const Result &x, int n) {
    const Footprint factors(factor, {n, n});
    const Footprint from(b, {1, n});
    const Footprint to(x, {1, n});
    const Overlap overlap(count, {1, n}, to, factors, from);
    with_order<3, 6>(
        n, [&](auto N) { solve_array<N>(factor, index, b, x, count, overlap); },
        [&] {
            // The stage holds whole factors, or vectors alone.
            constexpr int largest = Factor::is_array ? 16 : 256;
            if (n <= largest)
                return solve_array<largest>(n, factor, index, b, x, count, overlap);
            walk_singly(count, [&](int k) {
                return y8_ownzelmLUBackSubst_mv(factor, index.row(k), b, x, n, k);
            });
        });
    return zelStatusOk;
}

// ---- entries ----

template <class Factor, class Vector, class Result>
ZELM_INLINE ZelStatus lu_backsubst(const Factor &factor, const int *index, const Vector &b,
                                   const Result &x, int n) {
    if (const ZelStatus s = first_failure(pointers(factor, index, b, x), sizes(n),
                                          strides(factor, b, x), shifts(factor, b, x)))
        return s;
    return y8_ownzelmLUBackSubst_mv(factor, index, b, x, n, 0);
}

template <class Factor, class Vector, class Result>
ZELM_INLINE ZelStatus lu_backsubst(const Factor &factor, const int *index, const Vector &b,
                                   const Result &x, int n, int count) {
    if (const ZelStatus s = first_failure(pointers(factor, index, b, x), counts(count), sizes(n),
                                          strides(factor, b, x), shifts(factor, b, x)))
        return s;
    const IndexRows<const int> rows = {index, Factor::is_array ? n : 0};
    const bool serial =
        Factor::is_array ? matrix_array_limits.serial((Estimate(n) + 2) * n * count, true)
                         : one_matrix_limits.serial((Estimate(n) + Estimate(2) * count) * n, true);
    return run_objects(
        serial,
        [n](int objects, const Factor &f, const IndexRows<const int> &i, const Vector &from,
            const Result &to) {
            return with_strides(
                [&](const auto &p, const auto &v, const auto &y) {
                    return y8_ownzelmLUBackSubst(objects, p, i, v, y, n);
                },
                shaped(f, {n, n}), shaped(from, {1, n}), shaped(to, {1, n}));
        },
        count, factor, rows, b, x);
}

} // namespace
} // namespace zelm

#define LU_MV(D, T, suffix, kinds, f, v)                                                           \
    ZELM_MEMBER(zelmLUBackSubst_##kinds##_##suffix,                                                \
                (ZELM_PARAMETERS(D, f, const T, src), const int *index,                            \
                 ZELM_PARAMETERS(D, v, const T, src2), ZELM_PARAMETERS(D, v, T, dst), int n),      \
                zelm::lu_backsubst(ZELM_OPERAND(D, f, const T, src), index,                        \
                                   ZELM_OPERAND(D, v, const T, src2), ZELM_OPERAND(D, v, T, dst),  \
                                   n))
#define LU_MVA(D, T, suffix, kinds, f, v)                                                          \
    ZELM_MEMBER(zelmLUBackSubst_##kinds##_##suffix,                                                \
                (ZELM_PARAMETERS(D, f, const T, src), const int *index,                            \
                 ZELM_PARAMETERS(D, v, const T, src2), ZELM_PARAMETERS(D, v, T, dst), int n,       \
                 int count),                                                                       \
                zelm::lu_backsubst(ZELM_OPERAND(D, f, const T, src), index,                        \
                                   ZELM_OPERAND(D, v, const T, src2), ZELM_OPERAND(D, v, T, dst),  \
                                   n, count))

ZELM_SINGLE(LU_MV, mv, m, v)
ZELM_ARRAY(LU_MVA, mva, m, va)
ZELM_ARRAY(LU_MVA, mava, ma, va)
