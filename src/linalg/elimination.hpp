// Gaussian elimination with row exchanges for determinants and cofactors, in lanes and alone. Both
// do the same operations on every element.
#pragma once

#include "../frame/parallel.hpp"
#include "blocks.hpp"
#include "pivot.hpp"

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

    static Elimination none() { return {splat<S>(1), splat<S>(1), S{}, no_lane<S>()}; }
    // Notes step k, which is not the last.
    template <class Use>
    ZELM_INLINE void note(const LaneStep<S> &step, int k, S pivot, ElementOf<S> threshold) {
        small = small | Use::small(step.magnitude, splat<S>(threshold));
        product = product * pivot;
        sign = select(step.where > splat_index<S>(k), -sign, sign);
    }
};

inline constexpr int largest_lane_elimination = 32; // the order; 16 KiB in the caller's registers

// Eliminates a, n x n, row by row, in lanes. Of equal candidates the topmost becomes the pivot.
// Work goes on behind a small pivot.
template <class Use, class S>
Elimination<S> eliminate_lanes(S *a, int n, ElementOf<S> threshold) {
    auto found = Elimination<S>::none();
    S f[largest_lane_elimination];
    for (int k = 0; k < n - 1; ++k) {
        const LaneStep<S> step(a, n, k);
        const S pivot = step.pivot();
        step.scale(f, typename Use::template Multipliers<S>{pivot});
        step.eliminate(f);
        found.template note<Use>(step, k, pivot, threshold);
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
        const auto best = largest_candidate(k, n, [&](int i) { return get(v, i, k); });
        if (Use::small(best.magnitude, threshold)) {
            found.small = true;
            return found;
        }
        if (best.where != k) {
            for (int j = k; j < n; ++j) {
                const T x = get(v, k, j);
                put(v, k, j, T{get(v, best.where, j)});
                put(v, best.where, j, x);
            }
            found.sign = -found.sign;
        }
        const T pivot = get(v, k, k);
        const typename Use::template Multipliers<T> multiplier{pivot};
        for (int i = k + 1; i < n; ++i) {
            const T f = multiplier(get(v, i, k));
            const S ff = splat<S>(f);
            int j = k + 1;
            for (; j <= n - lanes_of<S>; j += lanes_of<S>)
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
    return static_cast<T>(product) * smallest_normal<T>;
}

// The buffer of elimination, n*(n + 1) elements.
template <class T>
inline Scratch scratch_matrix(T *buffer, int n) {
    const auto order = static_cast<std::size_t>(n);
    return scratch_of(buffer, order, order + 1);
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
