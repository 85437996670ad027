// LU decomposition with partial pivoting and substitution, as algorithms over a scalar-like S.
// Golub, Van Loan: Matrix Computations, 3.4 (outer product form, row exchanges).
#pragma once

#include "pivot.hpp"

namespace zelm {

// Pivots below this are singular: orders 3 to 6.
template <class T>
inline constexpr T straight_line_threshold = 2 * smallest_normal<T>;
// Pivots at or below this are singular: every other order.
template <class T>
inline constexpr T general_threshold = epsilon<T>;

// Factors `a` in place. Rows stand in pivot order afterwards: p[i] is the caller's row in row i,
// row i holds the multipliers of L before the diagonal and U from it on. Returns the lanes that met
// a candidate below the threshold. row_is_final(i) is called once row i and p[0..i] are final; with
// one lane the elimination ends at a failure, before the failing row is final.
template <int N, class S, class RowIsFinal>
ZELM_INLINE MaskOf<S> factor(S (&a)[N][N], IndexOf<S> (&p)[N], ElementOf<S> threshold,
                             const RowIsFinal &row_is_final) {
    MaskOf<S> failing = no_lane<S>();
    unroll<N>(ZELM_EACH(i) { p[i] = splat_index<S>(i); });
    unroll<N>(ZELM_EACH(k) {
        if (lanes_of<S> == 1 && lane_bits(failing))
            return;
        const auto pivot = find_pivot<k>(a);
        failing = failing | (pivot.magnitude < splat<S>(threshold));
        if (lanes_of<S> == 1 && lane_bits(failing))
            return;
        S r;
        exchange_rows<k>(
            a, p, pivot,
            [&]() __attribute__((always_inline)) {
                row_is_final(k);
                r = splat<S>(1) / pivot.value;
            },
            ZELM_EACH(i) {
                a[i][k] = a[i][k] * r;
                unroll<k + 1, N>(ZELM_EACH(j) { a[i][j] = a[i][j] - a[i][k] * a[k][j]; });
            });
    });
    return failing;
}

// Solves with a factor f whose rows stand in pivot order; x holds the right-hand side in the same
// order and becomes the solution. Products are subtracted one by one, j ascending in both
// directions.
template <int N, class S>
ZELM_INLINE void substitute(const S (&f)[N][N], S (&x)[N]) {
    unroll<1, N>(ZELM_EACH(i) { unroll<i>(ZELM_EACH(j) { x[i] = x[i] - f[i][j] * x[j]; }); });
    unroll<N>(ZELM_EACH(back) {
        constexpr int i = N - 1 - back;
        unroll<i + 1, N>(ZELM_EACH(j) { x[i] = x[i] - f[i][j] * x[j]; });
        x[i] = x[i] / f[i][i];
    });
}

// The same for an order known at run time: factor(i, j) is an element of the factor. Forwards it
// goes column by column, so that no sum waits for itself; backwards the order of the products
// forbids it.
template <class S, class Factor>
ZELM_INLINE void substitute(int n, const Factor &factor, S *x) {
    for (int j = 0; j < n - 1; ++j)
        for (int i = j + 1; i < n; ++i)
            x[i] = x[i] - factor(i, j) * x[j];
    for (int i = n - 1; i >= 0; --i) {
        S value = x[i];
        for (int j = i + 1; j < n; ++j)
            value = value - factor(i, j) * x[j];
        x[i] = value / factor(i, i);
    }
}

} // namespace zelm
