// Partial pivoting of straight-line eliminations: rows in registers, exchanged by select.
#pragma once

#include "../frame/lanes.hpp"

namespace zelm {

template <int N, class S>
struct Pivot {
    S magnitude, value;
    MaskOf<S> here[N]; // the lanes whose pivot is in row i
};

// The largest element of column k from row k on. A tie goes to the earliest. The value comes out of
// the search, so that a division need not wait for the exchange.
template <int k, int N, class S>
ZELM_INLINE Pivot<N, S> find_pivot(const S (&a)[N][N]) {
    Pivot<N, S> pivot;
    pivot.magnitude = magnitude(a[k][k]);
    pivot.value = a[k][k];
    unroll<k + 1, N>(ZELM_EACH(i) {
        const S candidate = magnitude(a[i][k]);
        pivot.here[i] = candidate > pivot.magnitude;
        pivot.magnitude = larger(candidate, pivot.magnitude);
        pivot.value = select(pivot.here[i], a[i][k], pivot.value);
    });
    // The last row that was larger than all before it is the pivot's.
    MaskOf<S> found = no_lane<S>();
    unroll<k + 1, N>(ZELM_EACH(back) {
        constexpr int i = N + k - back;
        pivot.here[i] = and_not(pivot.here[i], found);
        found = found | pivot.here[i];
    });
    return pivot;
}

// Brings the pivot's row to row k, and row k to its place; with them their numbers. Calls
// row_is_final() once row k is what it stays, then update(i) as soon as row i is in place.
template <int k, int N, class S, class RowIsFinal, class Update>
ZELM_INLINE void exchange_rows(S (&a)[N][N], IndexOf<S> (&p)[N], const Pivot<N, S> &pivot,
                               const RowIsFinal &row_is_final, const Update &update) {
    S row[N];
    unroll<N>(ZELM_EACH(j) { row[j] = a[k][j]; });
    const IndexOf<S> number = p[k];
    a[k][k] = pivot.value;
    unroll<k + 1, N>(ZELM_EACH(i) {
        const auto here = pivot.here[i];
        unroll<N>(ZELM_EACH(j) {
            if constexpr (j != k)
                a[k][j] = select(here, a[i][j], a[k][j]);
        });
        p[k] = select(here, p[i], p[k]);
        p[i] = select(here, number, p[i]);
    });
    row_is_final();
    unroll<k + 1, N>(ZELM_EACH(i) {
        unroll<N>(ZELM_EACH(j) { a[i][j] = select(pivot.here[i], row[j], a[i][j]); });
        update(i);
    });
}

} // namespace zelm
