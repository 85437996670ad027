// Gaussian elimination with row exchanges for determinants and cofactors, in lanes and alone. Both
// do the same operations on every element.
#pragma once

#include "../frame/parallel.hpp"
#include "blocks.hpp"

namespace zelm {

// Multipliers of the elements below a pivot.
template <class S>
struct Quotients {
    S pivot;
    ZELM_INLINE S operator()(S x) const { return x / pivot; }
};
template <class S>
struct Products {
    S reciprocal;
    ZELM_INLINE explicit Products(S pivot) : reciprocal(splat<S>(1) / pivot) {}
    ZELM_INLINE S operator()(S x) const { return x * reciprocal; }
};

// What the uses differ in: the multipliers, and when a magnitude is small. A NaN is small for a
// minor alone.
struct SmallBelow {
    template <class S>
    ZELM_INLINE static auto small(S magnitude, S threshold) {
        return threshold > magnitude;
    }
};
struct OfDeterminant : SmallBelow {
    template <class S>
    using Multipliers = Quotients<S>;
};
struct OfInverse : SmallBelow {
    template <class S>
    using Multipliers = Products<S>;
};
struct OfMinor {
    template <class S>
    using Multipliers = Products<S>;
    template <class S>
    ZELM_INLINE static auto small(S magnitude, S threshold) {
        return (magnitude > threshold) == 0;
    }
};

// What an elimination finds.
template <class S>
struct Elimination {
    S product; // of all pivots but the last
    S sign;    // of the exchanges
    S last;
    MaskOf<S> small; // lanes with a small pivot
    ZELM_INLINE S determinant() const { return last * sign * product; }
};

// Eliminates a, n x n, row by row, in lanes. Of equal candidates the topmost becomes the pivot.
// Work goes on behind a small pivot.
template <class Use, class S>
Elimination<S> eliminate_lanes(S *a, int n, ElementOf<S> threshold) {
    Elimination<S> found = {splat<S>(1), splat<S>(1), S{}, no_lane<S>()};
    for (int k = 0; k < n - 1; ++k) {
        S *const top = a + k * n;
        S best = magnitude(top[k]);
        IndexOf<S> where = splat_index<S>(k);
        for (int i = k + 1; i < n; ++i) {
            const S candidate = magnitude(a[i * n + k]);
            const auto larger = candidate > best;
            best = select(larger, candidate, best);
            where = select(larger, splat_index<S>(i), where);
        }
        found.small = found.small | Use::small(best, splat<S>(threshold));

        // The exchange and the update of C columns, column k first.
        const auto columns = [&](int j, auto C, const auto &update) __attribute__((always_inline)) {
            S old[C], pivot[C];
            unroll<C>(ZELM_EACH(c) { old[c] = pivot[c] = top[j + c]; });
            for (int i = k + 1; i < n; ++i) {
                const auto here = where == splat_index<S>(i);
                unroll<C>(ZELM_EACH(c) { pivot[c] = select(here, a[i * n + j + c], pivot[c]); });
            }
            unroll<C>(ZELM_EACH(c) { top[j + c] = pivot[c]; });
            for (int i = k + 1; i < n; ++i) {
                const auto here = where == splat_index<S>(i);
                unroll<C>(ZELM_EACH(c) {
                    S &x = a[i * n + j + c];
                    x = update(i, select(here, old[c], x), pivot[c]);
                });
            }
        };
        columns(
            k, std::integral_constant<int, 1>{},
            [](int, S x, S) __attribute__((always_inline)) { return x; });
        const S pivot = top[k];
        const typename Use::template Multipliers<S> multiplier{pivot};
        for (int i = k + 1; i < n; ++i)
            a[i * n + k] = multiplier(a[i * n + k]);
        const auto subtract = [&](int i, S x, S y) __attribute__((always_inline)) {
            return x - a[i * n + k] * y;
        };
        in_blocks(
            k + 1,
            n, [&](int j, auto C) __attribute__((always_inline)) { columns(j, C, subtract); });
        found.product = found.product * pivot;
        const auto moved = where > splat_index<S>(k);
        found.sign = select(moved, -found.sign, found.sign);
    }
    found.last = a[n * n - 1];
    return found;
}

// The same for one object, n x n, packed at `a`. Ends at a small pivot.
template <class Use, class T>
Elimination<T> eliminate(char *a, int n, T threshold) {
    using S = Lanes<T>;
    const StridedView<T> v = {a, n * Distance{sizeof(T)}, sizeof(T)};
    Elimination<T> found = {1, 1, 0, false};
    for (int k = 0; k < n - 1; ++k) {
        T best = magnitude(get(v, k, k));
        int where = k;
        for (int i = k + 1; i < n; ++i) {
            const T candidate = magnitude(get(v, i, k));
            where = candidate > best ? i : where;
            best = candidate > best ? candidate : best;
        }
        if (Use::small(best, threshold)) {
            found.small = true;
            return found;
        }
        if (where != k) {
            for (int j = k; j < n; ++j) {
                const T x = get(v, k, j);
                put(v, k, j, T{get(v, where, j)});
                put(v, where, j, x);
            }
            found.sign = -found.sign;
        }
        const T pivot = get(v, k, k);
        const typename Use::template Multipliers<T> multiplier{pivot};
        for (int i = k + 1; i < n; ++i) {
            const T f = multiplier(get(v, i, k));
            const S ff = splat<S>(f);
            int j = k + 1;
            for (; j + lanes_of<S> <= n; j += lanes_of<S>)
                store<S>(v.at(i, j), load<S>(v.at(i, j)) - ff * load<S>(v.at(k, j)));
            for (; j < n; ++j)
                put(v, i, j, get(v, i, j) - f * get(v, k, j));
        }
        found.product = found.product * pivot;
    }
    found.last = get(v, n - 1, n - 1);
    return found;
}

// The threshold of general elimination, 2 * n^3 smallest normal numbers. The product wraps.
template <class T>
inline T elimination_threshold(int n) {
    const auto u = static_cast<std::uint32_t>(n);
    const auto product = static_cast<std::int32_t>(2 * u * (u * u));
    return static_cast<T>(product) * (sizeof(T) == 4 ? T(0x1p-126) : T(0x1p-1022));
}

// The buffer of elimination, n*(n + 1) elements.
template <class T>
inline Scratch scratch_matrix(T *buffer, int n) {
    const auto order = static_cast<std::size_t>(n);
    return {buffer, order * (order + 1) * sizeof(T)};
}

// A copy of an object, packed.
template <class View>
inline void pack(const View &from, int n, char *to) {
    using T = decltype(get(from, 0, 0));
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j, to += sizeof(T))
            store<T>(to, get(from, i, j));
}

} // namespace zelm
