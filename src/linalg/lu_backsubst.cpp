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

// ---- one object
// -----------------------------------------------------------------------------------

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
    switch (n) {
    case 3:
        solve_object<3, T>(f, index, from, to);
        break;
    case 4:
        solve_object<4, T>(f, index, from, to);
        break;
    case 5:
        solve_object<5, T>(f, index, from, to);
        break;
    case 6:
        solve_object<6, T>(f, index, from, to);
        break;
    default:
        solve_object<T>(n, f, index, from, to);
    }
    return zelStatusOk;
}

// ---- arrays
// ---------------------------------------------------------------------------------------

// The factors of a group, rows in pivot order: one factor for all lanes, or one factor a lane.
template <class T, int N, class Factor, class Index>
ZELM_INLINE void load_factor(Lanes<T> (&f)[N][N], const Factor &factor, const Index &index,
                             const Group<T> &g) {
    if constexpr (Factor::is_array) {
        load_lanes(f, factor, g, stored_rows(index, g));
    } else {
        const auto v = view(factor, 0, {N, N});
        unroll<N>(ZELM_EACH(i) {
            unroll<N>(ZELM_EACH(j) { f[i][j] = splat<Lanes<T>>(get(v, index.row(0)[i], j)); });
        });
    }
}

template <int N, class Factor, class Index, class Vector, class Result, class Allowed>
void solve_array(const Factor &factor, const Index &index, const Vector &b, const Result &x,
                 int count, const Allowed &allowed) {
    using T = typename Factor::Element;
    using S = Lanes<T>;
    S shared[N][N];
    if constexpr (!Factor::is_array)
        load_factor(shared, factor, index, Group<T>{0, 1});
    walk<T>(
        count, allowed,
        [&](const Group<T> &g) __attribute__((always_inline)) {
            // The vector as a column, so that its elements are the rows that p permutes.
            S f[N][N], v[N][1], y[N];
            if constexpr (Factor::is_array)
                load_factor(f, factor, index, g);
            load_lanes(v, b.as_column(), g, stored_rows(index, g));
            unroll<N>(ZELM_EACH(i) { y[i] = v[i][0]; });
            if constexpr (Factor::is_array)
                substitute<N>(f, y);
            else
                substitute<N>(shared, y);
            S row[1][N];
            unroll<N>(ZELM_EACH(i) { row[0][i] = y[i]; });
            store_lanes(x, g, g.live, row);
            return g.live;
        },
        [&](int n) __attribute__((noinline)) {
            return y8_ownzelmLUBackSubst_mv(factor, index.row(n), b, x, N, n);
        });
}

// Any other order: x grows in lanes on the stack, the factor's rows are read as they are used.
inline constexpr int largest_lane_order = 512; // 8 KiB of registers

template <class Factor, class Index, class Vector, class Result, class Allowed>
void solve_array(int n, const Factor &factor, const Index &index, const Vector &b, const Result &x,
                 int count, const Allowed &allowed) {
    using T = typename Factor::Element;
    using S = Lanes<T>;
    constexpr int L = lanes_of<S>;
    const Shape shape = {n, n};
    walk<T>(
        count, allowed,
        [&](const Group<T> &g) {
            const auto rows = stored_rows(index, g);
            S y[largest_lane_order];
            const auto subtract = [&](S value, int i, int first, int last) {
                int j = first;
                for (; j + L <= last; j += L) {
                    S f[1][L];
                    load_row(f, factor, g, shape, rows, i, j);
                    unroll<L>(ZELM_EACH(e) { value = value - f[0][e] * y[j + e]; });
                }
                for (; j < last; ++j) {
                    S f[1][1];
                    load_row(f, factor, g, shape, rows, i, j);
                    value = value - f[0][0] * y[j];
                }
                return value;
            };
            for (int i = 0; i < n; ++i) {
                S v[1][1];
                load_row(v, b.as_column(), g, {n, 1}, rows, i, 0);
                y[i] = subtract(v[0][0], i, 0, i);
            }
            for (int i = n - 1; i >= 0; --i) {
                S f[1][1];
                load_row(f, factor, g, shape, rows, i, i);
                y[i] = subtract(y[i], i, i + 1, n) / f[0][0];
            }
            store_vector(x, g, g.live, y, n);
            return g.live;
        },
        [&](int k) __attribute__((noinline)) {
            return y8_ownzelmLUBackSubst_mv(factor, index.row(k), b, x, n, k);
        });
}

template <class Factor, class Index, class Vector, class Result>
ZelStatus y8_ownzelmLUBackSubst(int count, const Factor &factor, const Index &index,
                                const Vector &b, const Result &x, int n) {
    const Footprint factors(factor, {n, n});
    const Footprint from(b, {1, n});
    const Footprint to(x, {1, n});
    const Overlap overlap(count, {1, n}, to, factors, from);
    switch (n) {
    case 3:
        solve_array<3>(factor, index, b, x, count, overlap);
        break;
    case 4:
        solve_array<4>(factor, index, b, x, count, overlap);
        break;
    case 5:
        solve_array<5>(factor, index, b, x, count, overlap);
        break;
    case 6:
        solve_array<6>(factor, index, b, x, count, overlap);
        break;
    default:
        if (n <= largest_lane_order)
            solve_array(n, factor, index, b, x, count, overlap);
        else
            for (int k = 0; k < count; ++k)
                y8_ownzelmLUBackSubst_mv(factor, index.row(k), b, x, n, k);
    }
    return zelStatusOk;
}

// ---- entries
// --------------------------------------------------------------------------------------

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
            const Result &to) { return y8_ownzelmLUBackSubst(objects, f, i, from, to, n); },
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
