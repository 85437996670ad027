// LU decomposition of one object of any order: rows stay where they are, exchanges are made on row
// numbers, and the rows' updates run along registers where elements are adjacent.
#pragma once

#include "../frame/operand.hpp"
#include "lu.hpp"

namespace zelm {

// d(i, j) -= f * u(j) for j from first to n - 1.
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
    constexpr T threshold = general_threshold<T>;
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
        if (best <= threshold)
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
