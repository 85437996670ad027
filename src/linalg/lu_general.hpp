// LU decomposition of orders known at run time. In lanes, a group of objects in registers' memory;
// alone, one object whose exchanges are made on row numbers and whose rows' updates run along
// registers. Both do the same operations on every element.
#pragma once

#include "lu.hpp"

namespace zelm {

// ---- in lanes ----

// Factors a (n x n, row by row) in place; rows stand in pivot order afterwards, p[i] is the
// caller's row in row i. Returns the lanes that met a candidate at or below the threshold. f: n
// elements of scratch.
template <class S>
MaskOf<S> factor_lanes(S *a, IndexOf<S> *p, int n, ElementOf<S> threshold, S *f) {
    MaskOf<S> failing = no_lane<S>();
    for (int i = 0; i < n; ++i)
        p[i] = splat_index<S>(i);

    for (int k = 0; k < n; ++k) {
        const LaneStep<S> step(a, n, k);
        failing = failing | (step.magnitude <= splat<S>(threshold));
        exchange_numbers(p, k, step);
        const S r = splat<S>(1) / step.pivot();
        step.scale(
            f, [r](S x) __attribute__((always_inline)) { return x * r; });
        step.exchange(0, k);
        step.eliminate(f);
    }
    return failing;
}

// ---- alone ----

// d(i, j) -= f * d(pivot, j) for j from first to n - 1.
template <class T, bool packed, template <class> class View>
ZELM_INLINE void subtract_row(const View<T> &d, int i, int pivot, T f, int first, int n) {
    int j = first;
    if constexpr (packed) {
        const Lanes<T> ff = splat<Lanes<T>>(f);
        for (; j <= n - lanes_of<Lanes<T>>; j += lanes_of<Lanes<T>>)
            store<Lanes<T>>(d.at(i, j),
                            load<Lanes<T>>(d.at(i, j)) - ff * load<Lanes<T>>(d.at(pivot, j)));
    }
    for (; j < n; ++j)
        put(d, i, j, get(d, i, j) - f * get(d, pivot, j));
}

// Factors d in place; p[i] is the row in pivot position i. On failure d holds the elimination of
// the columns before the failing one and p the exchanges made so far.
template <class T, bool packed, template <class> class View>
ZelStatus factor_in_place(const View<T> &d, int *p, int n) {
    for (int i = 0; i < n; ++i)
        p[i] = i;
    for (int k = 0; k < n; ++k) {
        const auto best = largest_candidate(k, n, [&](int i) { return get(d, p[i], k); });
        if (best.magnitude <= general_threshold<T>)
            return zelStatusSingular;
        const int pivot = p[best.where];
        p[best.where] = p[k];
        p[k] = pivot;

        const T r = T{1} / get(d, pivot, k);
        for (int i = k + 1; i < n; ++i) {
            const T f = get(d, p[i], k) * r;
            put(d, p[i], k, f);
            subtract_row<T, packed>(d, p[i], pivot, f, k + 1, n);
        }
    }
    return zelStatusOk;
}

} // namespace zelm
