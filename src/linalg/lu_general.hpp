// LU decomposition of orders known at run time. In lanes, a group of objects in registers' memory;
// alone, one object whose exchanges are made on row numbers and whose rows' updates run along
// registers. Both do the same operations on every element.
#pragma once

#include "../frame/lane_access.hpp"
#include "lu.hpp"

namespace zelm {

inline constexpr int largest_lane_order = 16; // 4 KiB of registers

// ---- in lanes ----

// Factors a (n x n, row by row) in place; rows stand in pivot order afterwards, p[i] is the
// caller's row in row i. Returns the lanes that met a candidate at or below the threshold.
template <class S>
MaskOf<S> factor_lanes(S *a, IndexOf<S> *p, int n, ElementOf<S> threshold) {
    MaskOf<S> failing = no_lane<S>();
    MaskOf<S> here[largest_lane_order]; // the lanes whose pivot is row i
    S f[largest_lane_order];
    for (int i = 0; i < n; ++i)
        p[i] = splat_index<S>(i);

    for (int k = 0; k < n; ++k) {
        S *const top = a + k * n;
        S best = magnitude(top[k]);
        IndexOf<S> where = splat_index<S>(k);
        for (int i = k + 1; i < n; ++i) {
            const S candidate = magnitude(a[i * n + k]);
            const auto larger = candidate > best;
            best = select(larger, candidate, best);
            where = select(larger, splat_index<S>(i), where);
        }
        failing = failing | (best <= splat<S>(threshold));

        // The exchange and the update of C columns: the pivot row is picked from the rows, then
        // each row that was it becomes the old row k.
        const auto columns = [&](int j, auto C, const auto &update) __attribute__((always_inline)) {
            S old[C], pivot[C];
            unroll<C>(ZELM_EACH(c) { old[c] = pivot[c] = top[j + c]; });
            for (int i = k + 1; i < n; ++i)
                unroll<C>(ZELM_EACH(c) { pivot[c] = select(here[i], a[i * n + j + c], pivot[c]); });
            unroll<C>(ZELM_EACH(c) { top[j + c] = pivot[c]; });
            for (int i = k + 1; i < n; ++i)
                unroll<C>(ZELM_EACH(c) {
                    S &x = a[i * n + j + c];
                    x = update(i, select(here[i], old[c], x), pivot[c]);
                });
        };
        const auto in_columns = [&](int from, int to, const auto &update)
            __attribute__((always_inline)) {
            int j = from;
            for (; j + 4 <= to; j += 4)
                columns(j, std::integral_constant<int, 4>{}, update);
            for (; j < to; ++j)
                columns(j, std::integral_constant<int, 1>{}, update);
        };

        const IndexOf<S> number = p[k];
        for (int i = k + 1; i < n; ++i) {
            here[i] = where == splat_index<S>(i);
            p[k] = select(here[i], p[i], p[k]);
            p[i] = select(here[i], number, p[i]);
        }
        in_columns(
            0, k + 1, [](int, S x, S) __attribute__((always_inline)) { return x; });
        const S r = splat<S>(1) / top[k];
        for (int i = k + 1; i < n; ++i)
            f[i] = a[i * n + k] = a[i * n + k] * r;
        in_columns(
            k + 1, n, [&](int i, S x, S pivot) __attribute__((always_inline)) {
                return x - f[i] * pivot;
            });
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
        for (; j + lanes_of<Lanes<T>> <= n; j += lanes_of<Lanes<T>>)
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
        T best = magnitude(get(d, p[k], k));
        int where = k;
        for (int i = k + 1; i < n; ++i) {
            const T candidate = magnitude(get(d, p[i], k));
            where = candidate > best ? i : where;
            best = candidate > best ? candidate : best;
        }
        if (best <= general_threshold<T>)
            return zelStatusSingular;
        const int pivot = p[where];
        p[where] = p[k];
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
