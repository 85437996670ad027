#include "cholesky.hpp"
#include "substitution.hpp"

#include "../frame/checks.hpp"
#include "../frame/element_at.hpp"
#include "../frame/estimate.hpp"
#include "../frame/member.hpp"
#include "../frame/parallel.hpp"

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

struct Factored {
    using Part = LowerTriangle;

    template <int N, class S>
    struct Prepared : UnpreparedFactor<N, S> {
        ZELM_INLINE void solve(S (&x)[N]) const { substitute_cholesky<N>(this->f, x); }
    };
    template <class S, int>
    struct PreparedBlock : UnpreparedBlock {
        template <class F>
        void solve(Shape shape, const F &f, S *x) const {
            substitute_cholesky<S>(shape.width, f, [&](int i) -> S & { return x[i]; });
        }
    };
};

template <class Factor, class Vector, class Result>
ZelStatus y8_ownzelmCholeskyBackSubst(int count, const Factor &factor, const Vector &b,
                                      const Result &x, int n) {
    const auto alone = [&](int k) __attribute__((noinline)) {
        return y8_ownzelmCholeskyBackSubst_mv(factor, b, x, n, k);
    };
    solve_arrays<Factored>(count, {n, n}, factor, b, x, alone);
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

ZELM_MEMBERS(CholeskyBackSubst, (mv), cholesky_backsubst(src, src2, dst, widthHeight))
ZELM_MEMBERS(CholeskyBackSubst, (mva, mava), cholesky_backsubst(src, src2, dst, widthHeight, count))
