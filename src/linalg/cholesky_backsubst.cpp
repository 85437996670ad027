#include "cholesky.hpp"

#include "../frame/checks.hpp"
#include "../frame/element_at.hpp"
#include "../frame/estimate.hpp"
#include "../frame/member.hpp"
#include "../frame/parallel.hpp"
#include "../frame/walk.hpp"

namespace zelm {
namespace {

// One matrix: of (n + 2*count)*n. Matrix arrays: of (n + 2)*n*count; the pointer description has
// the limit of adjacent elements.
constexpr Limits one_matrix_standard = {1201, 1201}, one_matrix_tables = {721, 721};
constexpr Limits matrix_array_standard = {2051, 1701}, matrix_array_layout = {1701, 1701};

// ---- one object ----

template <int N, class T, class Factor, class Vector, class Result>
void solve_object(const Factor &factor, const Vector &b, const Result &result) {
    T f[N][N], x[N];
    unroll<N>(ZELM_EACH(i) {
        unroll<i + 1>(ZELM_EACH(j) { f[i][j] = get(factor, i, j); });
        x[i] = get(b, 0, i);
    });
    substitute_cholesky<N>(f, x);
    unroll<N>(ZELM_EACH(i) { put(result, 0, i, x[i]); });
}

// Any order: x grows in the result.
template <class T, class Factor, class Vector, class Result>
void solve_object(int n, const Factor &factor, const Vector &b, const Result &x) {
    for (int i = 0; i < n; ++i)
        put(x, 0, i, T{get(b, 0, i)});
    substitute_cholesky<T>(
        n, [&](int i, int k) { return get(factor, i, k); },
        [&](int i) { return element_at<T>(x, 0, i); });
}

template <class Factor, class Vector, class Result>
ZelStatus y8_ownzelmCholeskyBackSubst_mv(const Factor &factor, const Vector &b, const Result &x,
                                         int n, int object) {
    using T = typename Factor::Element;
    const auto f = view(factor, object, {n, n});
    const auto from = view(b, object, {1, n});
    const auto to = view(x, object, {1, n});
    with_order<3, 6>(
        n, [&](auto N) { solve_object<N, T>(f, from, to); },
        [&] { solve_object<T>(n, f, from, to); });
    return zelStatusOk;
}

// ---- arrays ----

// One factor beside an array of vectors is loaded once, into every lane.
template <int N, class Factor, class Vector, class Result, class Allowed>
void solve_array(const Factor &factor, const Vector &b, const Result &x, int count,
                 const Allowed &allowed) {
    using T = typename Vector::Element;
    using S = Lanes<T>;
    const auto solve = [](const Group &group, const S(&f)[N][N], const auto &from, const auto &to)
        __attribute__((always_inline)) {
        S v[1][N];
        load_lanes<T>(v, from, group.first);
        substitute_cholesky<N>(f, v[0]);
        store_lanes<T>(to, group.first, v);
        return 0u;
    };
    const auto alone = [&](int n) __attribute__((noinline)) {
        return y8_ownzelmCholeskyBackSubst_mv(factor, b, x, N, n);
    };
    if constexpr (Factor::is_array) {
        walk<T>(
            count, allowed,
            [&](const Group &group, const auto &f, const auto &v, const auto &y)
                __attribute__((always_inline)) {
                    S own[N][N];
                    load_lanes<T, LowerTriangle>(own, f, group.first);
                    return solve(group, own, v, y);
                },
            alone, walked<N, N, LowerTriangle>(factor), walked<1, N>(b), walked<1, N>(x));
    } else {
        S a[N][N];
        load_splat<T, LowerTriangle>(a, view(factor, 0, {N, N}));
        walk<T>(
            count, allowed,
            [&](const Group &group, const auto &v, const auto &y)
                __attribute__((always_inline)) { return solve(group, a, v, y); },
            alone, walked<1, N>(b), walked<1, N>(x));
    }
}

// Any other order: x grows in registers' memory.
template <int largest, class Factor, class Vector, class Result, class Allowed>
void solve_array(int n, const Factor &factor, const Vector &b, const Result &x, int count,
                 const Allowed &allowed) {
    using T = typename Vector::Element;
    using S = Lanes<T>;
    const Shape shape = {n, n}, row = {1, n};
    const auto solve = [&](const Group &group, const auto &element, const auto &from,
                           const auto &to) __attribute__((always_inline)) {
        S y[largest];
        const auto all = [&](const auto &f) __attribute__((always_inline)) {
            in_steps<T>(
                0, n, [&](int j, auto K) __attribute__((always_inline)) {
                    f(j, *reinterpret_cast<S(*)[K]>(y + j));
                });
        };
        all([&](int j, auto &part) __attribute__((always_inline)) {
            load_row<T>(part, from, group.first, row, 0, j);
        });
        substitute_cholesky<S>(n, element, [&](int i) -> S & { return y[i]; });
        all([&](int j, auto &part)
                __attribute__((always_inline)) { store_row<T>(to, group.first, row, 0, j, part); });
        return 0u;
    };
    const auto alone = [&](int k) __attribute__((noinline)) {
        return y8_ownzelmCholeskyBackSubst_mv(factor, b, x, n, k);
    };
    const auto from = walked<largest>(b, row);
    const auto to = walked<largest>(x, row);
    if constexpr (Factor::is_array)
        walk<T>(
            count, allowed,
            [&](const Group &group, const auto &f, const auto &v, const auto &y) {
                S a[largest * largest];
                for (int i = 0; i < n; ++i)
                    in_steps<T>(
                        0, i + 1, [&](int j, auto K) __attribute__((always_inline)) {
                            load_row<T>(*reinterpret_cast<S(*)[K]>(a + i * n + j), f, group.first,
                                        shape, i, j);
                        });
                return solve(
                    group, [&](int i, int k) { return a[i * n + k]; }, v, y);
            },
            alone, walked<largest * largest, LowerTriangle>(factor, shape), from, to);
    else
        walk<T>(
            count, allowed,
            [&](const Group &group, const auto &v, const auto &y) {
                const auto f = view(factor, 0, shape);
                return solve(
                    group, [&](int i, int k) { return splat<S>(get(f, i, k)); }, v, y);
            },
            alone, from, to);
}

template <class Factor, class Vector, class Result>
ZelStatus y8_ownzelmCholeskyBackSubst(int count, const Factor &factor, const Vector &b,
                                      const Result &x, int n) {
    const Footprint factors(factor, {n, n}, LowerTriangle{});
    const Footprint from(b, {1, n});
    const Footprint to(x, {1, n});
    const Overlap overlap(count, {1, n}, to, factors, from);
    with_order<3, 6>(
        n, [&](auto N) { solve_array<N>(factor, b, x, count, overlap); },
        [&] {
            // The stage holds whole factors, or vectors alone.
            constexpr int largest = Factor::is_array ? 16 : 256;
            if (n <= largest)
                return solve_array<largest>(n, factor, b, x, count, overlap);
            walk_singly(count,
                        [&](int k) { return y8_ownzelmCholeskyBackSubst_mv(factor, b, x, n, k); });
        });
    return zelStatusOk;
}

// ---- entries ----

template <class Factor, class Vector, class Result>
ZELM_INLINE ZelStatus cholesky_backsubst(const Factor &factor, const Vector &b, const Result &x,
                                         int n) {
    if (const ZelStatus s = first_failure(pointers(factor, b, x), sizes(n), strides(factor, b, x),
                                          shifts(factor, b, x)))
        return s;
    return y8_ownzelmCholeskyBackSubst_mv(factor, b, x, n, 0);
}

template <class Factor, class Vector, class Result>
ZELM_INLINE ZelStatus check_arrays(const Factor &factor, const Vector &b, const Result &x, int n,
                                   int count) {
    const CheckGroup p = pointers(factor, b, x), s = strides(factor, b, x);
    const CheckGroup o = shifts(factor, b, x);
    if constexpr (!Factor::is_array && Result::has_table)
        return first_failure(p, s, o, sizes(n), counts(count));
    else
        return first_failure(p, counts(count), sizes(n), s, o);
}

template <class Factor, class Vector, class Result>
ZELM_INLINE ZelStatus cholesky_backsubst(const Factor &factor, const Vector &b, const Result &x,
                                         int n, int count) {
    if (const ZelStatus s = check_arrays(factor, b, x, n, count))
        return s;
    constexpr Description description = description_of<Result>;
    constexpr Limits limits =
        Factor::is_array
            ? (description == Description::layout ? matrix_array_layout : matrix_array_standard)
            : (description == Description::standard ? one_matrix_standard : one_matrix_tables);
    const Estimate work =
        Factor::is_array ? (Estimate(n) + 2) * n * count : (Estimate(n) + Estimate(2) * count) * n;
    return run_objects(
        limits.serial(work, factor.packed() && b.packed() && x.packed()),
        [n](int objects, const Factor &f, const Vector &from, const Result &to) {
            return with_strides(
                [&](const auto &p, const auto &v, const auto &y) {
                    return y8_ownzelmCholeskyBackSubst(objects, p, v, y, n);
                },
                shaped(f, {n, n}), shaped(from, {1, n}), shaped(to, {1, n}));
        },
        count, factor, b, x);
}

} // namespace
} // namespace zelm

#define CHOLESKY_MV(D, T, suffix, kinds, f, v)                                                     \
    ZELM_MEMBER(zelmCholeskyBackSubst_##kinds##_##suffix,                                          \
                (ZELM_PARAMETERS(D, f, const T, src), ZELM_PARAMETERS(D, v, const T, src2),        \
                 ZELM_PARAMETERS(D, v, T, dst), int n),                                            \
                zelm::cholesky_backsubst(ZELM_OPERAND(D, f, const T, src),                         \
                                         ZELM_OPERAND(D, v, const T, src2),                        \
                                         ZELM_OPERAND(D, v, T, dst), n))
#define CHOLESKY_MVA(D, T, suffix, kinds, f, v)                                                    \
    ZELM_MEMBER(zelmCholeskyBackSubst_##kinds##_##suffix,                                          \
                (ZELM_PARAMETERS(D, f, const T, src), ZELM_PARAMETERS(D, v, const T, src2),        \
                 ZELM_PARAMETERS(D, v, T, dst), int n, int count),                                 \
                zelm::cholesky_backsubst(ZELM_OPERAND(D, f, const T, src),                         \
                                         ZELM_OPERAND(D, v, const T, src2),                        \
                                         ZELM_OPERAND(D, v, T, dst), n, count))

ZELM_SINGLE(CHOLESKY_MV, mv, m, v)
ZELM_ARRAY(CHOLESKY_MVA, mva, m, va)
ZELM_ARRAY(CHOLESKY_MVA, mava, ma, va)
