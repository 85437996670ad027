#include "lu.hpp"
#include "substitution.hpp"

#include "../frame/checks.hpp"
#include "../frame/estimate.hpp"
#include "../frame/member.hpp"
#include "../frame/parallel.hpp"

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

struct Factored {
    using Part = Whole;

    template <int N, class S>
    struct Prepared : UnpreparedFactor<N, S> {
        ZELM_INLINE void solve(S (&x)[N]) const { substitute<N>(this->f, x); }
    };
    template <class S, int>
    struct PreparedBlock : UnpreparedBlock {
        template <class F>
        void solve(Shape shape, const F &f, S *x) const {
            substitute<S>(shape.width, f, x);
        }
    };
};

template <class Factor, class Index, class Vector, class Result>
ZelStatus y8_ownzelmLUBackSubst(int count, const Factor &factor, const Index &index,
                                const Vector &b, const Result &x, int n) {
    const auto alone = [&](int k) __attribute__((noinline)) {
        return y8_ownzelmLUBackSubst_mv(factor, index.row(k), b, x, n, k);
    };
    solve_arrays<Factored>(count, {n, n}, factor, b, x, alone, index);
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

ZELM_MEMBERS(LUBackSubst, (mv), lu_backsubst(src, pSrcIndex, src2, dst, widthHeight))
ZELM_MEMBERS(LUBackSubst, (mva, mava), lu_backsubst(src, pSrcIndex, src2, dst, widthHeight, count))
