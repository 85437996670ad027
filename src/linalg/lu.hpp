// LU decomposition with partial pivoting and substitution, as algorithms over a scalar-like S.
// Golub, Van Loan: Matrix Computations, 3.4 (outer product form, row exchanges).
#pragma once

#include "../frame/lanes.hpp"

namespace zelm {

// Pivots below this are singular: orders 3 to 6.
template <class T>
inline constexpr T straight_line_threshold = sizeof(T) == 4 ? T(0x1p-125) : T(0x1p-1021);
// Pivots at or below this are singular: every other order.
template <class T>
inline constexpr T general_threshold = sizeof(T) == 4 ? T(0x1p-23) : T(0x1p-52);

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
        // One pass for the largest, then one exchange: a tie goes to the earliest. The pivot comes
        // out of the search, so that the division need not wait for the exchange.
        S best = magnitude(a[k][k]);
        S pivot = a[k][k];
        MaskOf<S> here[N];
        unroll<k + 1, N>(ZELM_EACH(i) {
            const S candidate = magnitude(a[i][k]);
            here[i] = candidate > best;
            best = select(here[i], candidate, best);
            pivot = select(here[i], a[i][k], pivot);
        });
        failing = failing | (best < splat<S>(threshold));
        if (lanes_of<S> == 1 && lane_bits(failing))
            return;
        // The last row that was larger than all before it is the pivot's.
        MaskOf<S> found = no_lane<S>();
        unroll<k + 1, N>(ZELM_EACH(back) {
            constexpr int i = N + k - back;
            here[i] = and_not(here[i], found);
            found = found | here[i];
        });

        S row[N];
        unroll<N>(ZELM_EACH(j) { row[j] = a[k][j]; });
        const IndexOf<S> number = p[k];
        unroll<k + 1, N>(ZELM_EACH(i) {
            unroll<N>(ZELM_EACH(j) {
                a[k][j] = select(here[i], a[i][j], a[k][j]);
                a[i][j] = select(here[i], row[j], a[i][j]);
            });
            p[k] = select(here[i], p[i], p[k]);
            p[i] = select(here[i], number, p[i]);
        });
        a[k][k] = pivot;
        row_is_final(k);

        const S r = splat<S>(1) / a[k][k];
        unroll<k + 1, N>(ZELM_EACH(i) {
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

} // namespace zelm
