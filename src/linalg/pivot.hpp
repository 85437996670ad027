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
        pivot.magnitude = select(pivot.here[i], candidate, pivot.magnitude);
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

// Brings the pivot's row to row k, and row k to its place; with them their numbers.
template <int k, int N, class S>
ZELM_INLINE void exchange_rows(S (&a)[N][N], IndexOf<S> (&p)[N], const Pivot<N, S> &pivot) {
    S row[N];
    unroll<N>(ZELM_EACH(j) { row[j] = a[k][j]; });
    const IndexOf<S> number = p[k];
    unroll<k + 1, N>(ZELM_EACH(i) {
        const auto here = pivot.here[i];
        unroll<N>(ZELM_EACH(j) {
            a[k][j] = select(here, a[i][j], a[k][j]);
            a[i][j] = select(here, row[j], a[i][j]);
        });
        p[k] = select(here, p[i], p[k]);
        p[i] = select(here, number, p[i]);
    });
    a[k][k] = pivot.value;
}

} // namespace zelm
