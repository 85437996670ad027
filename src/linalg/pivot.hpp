// Steps of eliminations with partial pivoting.
#pragma once

#include "../frame/lane_access.hpp"
#include "blocks.hpp"

namespace zelm {

// ---- one object ----

template <class T>
struct Candidate {
    T magnitude;
    int where;
};

// The largest of x(k) ... x(n - 1). A tie goes to the earliest.
template <class X>
ZELM_INLINE auto largest_candidate(int k, int n, const X &x) {
    Candidate<decltype(magnitude(x(k)))> best = {magnitude(x(k)), k};
    for (int i = k + 1; i < n; ++i) {
        const auto candidate = magnitude(x(i));
        best.where = candidate > best.magnitude ? i : best.where;
        best.magnitude = larger(candidate, best.magnitude);
    }
    return best;
}

// ---- straight-line: rows in registers, exchanged by select ----

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

// ---- orders known at run time: a is n x n, row by row, in registers' memory ----

// Step k. The pivot row is collected lane by lane. The old row k takes its place by a select where
// rows are updated anyway; scattered there, lane by lane, it would be loaded whole too soon and
// wait for its stores.
template <class S>
class LaneStep {
public:
    using T = ElementOf<S>;

    // Finds the largest element of column k from row k on. A tie goes to the earliest.
    ZELM_INLINE LaneStep(S *a, int n, int k)
        : magnitude(zelm::magnitude(a[k * n + k])), where(splat_index<S>(k)), a_(a), n_(n), k_(k) {
#pragma GCC unroll 1 // its few turns are not worth the code
        for (int i = k + 1; i < n; ++i) {
            const S candidate = zelm::magnitude(a[i * n + k]);
            const auto here = candidate > magnitude;
            magnitude = larger(candidate, magnitude);
            where = select(here, splat_index<S>(i), where);
        }
        unroll<lanes_of<S>>(
            ZELM_EACH(l) { row_[l] = reinterpret_cast<char *>(a + row(l) * n) + l * sizeof(T); });
        old_ = top()[k];
        top()[k] = from_pivot_row(k);
    }

    S magnitude;
    IndexOf<S> where; // the pivot's row

    ZELM_INLINE int row(int lane) const { return static_cast<int>(where[lane]); }
    ZELM_INLINE S pivot() const { return top()[k_]; }

    // The elements below the pivot become their multipliers, which f[i] keeps for row i.
    template <class Multiplier>
    ZELM_INLINE void scale(S *f, const Multiplier &multiplier) const {
#pragma GCC unroll 1
        for (int i = k_ + 1; i < n_; ++i) {
            S &x = a_[i * n_ + k_];
            f[i] = x = multiplier(select(where == splat_index<S>(i), old_, x));
        }
    }
    // The exchange of columns that no step reads any more.
    ZELM_INLINE void exchange(int from, int to) const {
        for (int j = from; j < to; ++j) {
            const S x = from_pivot_row(j);
            scatter<T>(row_, j * Distance{sizeof(S)}, top()[j]);
            top()[j] = x;
        }
    }
    // The exchange of the columns behind k, and their update: the multiples of row k are subtracted
    // from the rows below.
    ZELM_INLINE void eliminate(const S *f) const {
        in_blocks(
            k_ + 1, n_, [&](int j, auto C) __attribute__((always_inline)) {
                update_columns<C, false>(
                    j, f, [](S x) __attribute__((always_inline)) { return x; });
            });
    }
    // The exchange of all columns, and their update for an inverse in place: the multiples of row k
    // are subtracted from all other rows, by factors that f[i] keeps for row i; below it as
    // eliminate() does that. Then row k is multiplied by r, the pivot's reciprocal.
    ZELM_INLINE void reduce(S *f, S r) const {
#pragma GCC unroll 1
        for (int i = 0; i < n_; ++i) {
            S &x = a_[i * n_ + k_];
            f[i] = select(where == splat_index<S>(i), old_, x) * r;
            x = -f[i];
        }
        top()[k_] = r;
        const auto update = [&](int j, auto C) __attribute__((always_inline)) {
            update_columns<C, true>(
                j, f, [r](S x) __attribute__((always_inline)) { return x * r; });
        };
        in_blocks(0, k_, update);
        in_blocks(k_ + 1, n_, update);
    }

private:
    ZELM_INLINE S *top() const { return a_ + k_ * n_; }
    ZELM_INLINE S from_pivot_row(int j) const { return gather<T>(row_, j * Distance{sizeof(S)}); }
    // Of the rows below k, and with `above` of those above it. Row k becomes scale() of itself.
    template <int C, bool above, class Scale>
    ZELM_INLINE void update_columns(int j, const S *f, const Scale &scale) const {
        S old[C], x[C];
        unroll<C>(ZELM_EACH(c) {
            old[c] = top()[j + c];
            x[c] = from_pivot_row(j + c);
        });
#pragma GCC unroll 1
        for (int i = above ? 0 : k_ + 1; i < n_; ++i) { // row k takes part, but is set below
            const auto here = where == splat_index<S>(i);
            unroll<C>(ZELM_EACH(c) {
                S &y = a_[i * n_ + j + c];
                y = select(here, old[c], y) - f[i] * x[c];
            });
        }
        unroll<C>(ZELM_EACH(c) { top()[j + c] = scale(x[c]); });
    }

    S *a_;
    int n_, k_;
    char *row_[lanes_of<S>]; // lane by lane
    S old_;                  // row k's element of column k
};

// The exchange of step k, of row numbers.
template <class S>
ZELM_INLINE void exchange_numbers(IndexOf<S> *p, int k, const LaneStep<S> &step) {
    unroll<lanes_of<S>>(ZELM_EACH(l) {
        constexpr int lane = l;
        const auto number = p[k][lane];
        p[k][lane] = p[step.row(l)][lane];
        p[step.row(l)][lane] = number;
    });
}

} // namespace zelm
