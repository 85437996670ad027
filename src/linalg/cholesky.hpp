// Cholesky decomposition and substitution, as algorithms over a scalar-like S. The diagonal holds
// the reciprocals of L's. Golub, Van Loan: Matrix Computations, 4.2 (row by row).
//
// Products are subtracted one by one, k ascending, in every order.
#pragma once

#include "blocks.hpp"

namespace zelm {

// Factors the lower triangle of `a` in place. Returns the lanes that met a diagonal residual that
// is not positive; a NaN is not found out. is_final(i, j) is called once a[i][j] is final, row by
// row; with one lane the work ends at a failure, before the failing diagonal element is final.
// rooted(i, d) is told the diagonal residuals, whose roots are L's diagonal.
struct NotRooted {
    template <class S>
    ZELM_INLINE void operator()(int, const S &) const {}
};
template <int N, class S, class IsFinal, class Rooted = NotRooted>
ZELM_INLINE MaskOf<S> factor_cholesky(S (&a)[N][N], const IsFinal &is_final,
                                      const Rooted &rooted = {}) {
    MaskOf<S> failing = no_lane<S>();
    unroll<N>(ZELM_EACH(i) {
        if (lanes_of<S> == 1 && lane_bits(failing))
            return;
        unroll<i>(ZELM_EACH(j) {
            unroll<j>(ZELM_EACH(k) { a[i][j] = a[i][j] - a[i][k] * a[j][k]; });
            a[i][j] = a[i][j] * a[j][j];
            is_final(i, j);
        });
        unroll<i>(ZELM_EACH(k) { a[i][i] = a[i][i] - a[i][k] * a[i][k]; });
        failing = failing | (splat<S>(0) >= a[i][i]);
        if (lanes_of<S> == 1 && lane_bits(failing))
            return;
        rooted(i, a[i][i]);
        a[i][i] = refined_reciprocal_root(a[i][i]);
        is_final(i, i);
    });
    return failing;
}

// The same for an order known at run time, column by column: a is n x n, row by row.
template <class S, class Rooted = NotRooted>
MaskOf<S> factor_cholesky(S *a, int n, const Rooted &rooted = {}) {
    MaskOf<S> failing = no_lane<S>();
    for (int j = 0; j < n; ++j) {
        S r = splat<S>(0);
        in_blocks(
            j, n, [&](int i, auto C) __attribute__((always_inline)) {
                S x[C];
                unroll<C>(ZELM_EACH(c) { x[c] = a[(i + c) * n + j]; });
                for (int k = 0; k < j; ++k)
                    unroll<C>(ZELM_EACH(c) { x[c] = x[c] - a[(i + c) * n + k] * a[j * n + k]; });
                if (i == j) {
                    failing = failing | (splat<S>(0) >= x[0]);
                    rooted(j, x[0]);
                    r = refined_reciprocal_root(x[0]);
                    x[0] = splat<S>(1);
                }
                unroll<C>(ZELM_EACH(c) { a[(i + c) * n + j] = x[c] * r; });
            });
    }
    return failing;
}

// Solves with a factor: x holds the right-hand side and becomes the solution.
template <int N, class S>
ZELM_INLINE void substitute_cholesky(const S (&f)[N][N], S (&x)[N]) {
    unroll<N>(ZELM_EACH(i) {
        unroll<i>(ZELM_EACH(k) { x[i] = x[i] - f[i][k] * x[k]; });
        x[i] = x[i] * f[i][i];
    });
    unroll<N>(ZELM_EACH(back) {
        constexpr int i = N - 1 - back;
        unroll<i + 1, N>(ZELM_EACH(k) { x[i] = x[i] - f[k][i] * x[k]; });
        x[i] = x[i] * f[i][i];
    });
}

// The same for an order known at run time: factor(i, k) is an element of the lower triangle, x(i)
// refers to one of the vector. Forwards it goes column by column, so that no sum waits for itself.
template <class S, class Factor, class Vector>
ZELM_INLINE void substitute_cholesky(int n, const Factor &factor, const Vector &x) {
    for (int k = 0; k < n; ++k) {
        const S last = x(k) * factor(k, k);
        x(k) = last;
        for (int i = k + 1; i < n; ++i)
            x(i) = x(i) - factor(i, k) * last;
    }
    for (int i = n - 1; i >= 0; --i) {
        S value = x(i);
        for (int k = i + 1; k < n; ++k)
            value = value - factor(k, i) * x(k);
        x(i) = value * factor(i, i);
    }
}

} // namespace zelm
