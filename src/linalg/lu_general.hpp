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
//
// Rows are exchanged lane by lane in memory. A register that is stored in parts and loaded whole
// soon after waits for its stores: the pivot row is collected before row k is put in its place, and
// the pivot's column, which is needed at once, is exchanged by select.
template <class T>
MaskOf<Lanes<T>> factor_lanes(Lanes<T> *a, IndexOf<Lanes<T>> *p, int n, T threshold) {
    using S = Lanes<T>;
    MaskOf<S> failing = no_lane<S>();
    for (int i = 0; i < n; ++i)
        p[i] = splat_index<S>(i);

    for (int k = 0; k < n; ++k) {
        S *const top = a + k * n;
        S best = magnitude(top[k]);
        IndexOf<S> where = splat_index<S>(k);
#pragma GCC unroll 1 // its few turns are not worth the code
        for (int i = k + 1; i < n; ++i) {
            const S candidate = magnitude(a[i * n + k]);
            const auto here = candidate > best;
            best = larger(candidate, best);
            where = select(here, splat_index<S>(i), where);
        }
        failing = failing | (best <= splat<S>(threshold));

        char *row[lanes_of<S>]; // the pivot's
        unroll<lanes_of<S>>(ZELM_EACH(l) {
            const int i = static_cast<int>(where[int{l}]);
            row[l] = reinterpret_cast<char *>(a + i * n) + l * sizeof(T);
            const auto number = p[k][int{l}];
            p[k][int{l}] = p[i][int{l}];
            p[i][int{l}] = number;
        });
        const auto pivot_row = [&](int j) __attribute__((always_inline)) {
            return detail::gather<T>(row, j * Distance{sizeof(S)});
        };
        const auto exchange = [&](int from, int to) __attribute__((always_inline)) {
            for (int j = from; j < to; ++j) {
                const S pivot = pivot_row(j);
                detail::scatter<T>(row, j * Distance{sizeof(S)}, top[j]);
                top[j] = pivot;
            }
        };

        const S old = top[k];
        top[k] = pivot_row(k);
        const S r = splat<S>(1) / top[k];
        S f[largest_lane_order];
#pragma GCC unroll 1
        for (int i = k + 1; i < n; ++i)
            f[i] = a[i * n + k] = select(where == splat_index<S>(i), old, a[i * n + k]) * r;
        exchange(0, k);
        exchange(k + 1, n);

        const auto update = [&](int j, auto C) __attribute__((always_inline)) {
            S pivot[C];
            unroll<C>(ZELM_EACH(c) { pivot[c] = top[j + c]; });
#pragma GCC unroll 1
            for (int i = k + 1; i < n; ++i)
                unroll<C>(ZELM_EACH(c) {
                    S &x = a[i * n + j + c];
                    x = x - f[i] * pivot[c];
                });
        };
        int j = k + 1;
        for (; j + 4 <= n; j += 4)
            update(j, std::integral_constant<int, 4>{});
        for (; j < n; ++j)
            update(j, std::integral_constant<int, 1>{});
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
