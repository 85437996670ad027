// Solvers by LU decomposition with partial pivoting that finish every object.
//
// An elimination does not feel a power of two. So a group is tried as it stands, by the kernels of
// the array functions; where a pivot or an answer leaves a wide range around 1 in a lane, the
// lane's object may have suffered from overflow or underflow, or may not be finite, or is singular:
// then it is done again, every column brought to one exponent: the pivots are the same. Both do the
// same operations on every element.
#pragma once

#include "objects.hpp"
#include "scale.hpp"

#include "../linalg/lu_general.hpp"

namespace zelm::safe {

// What an object's pivots tell without another look at its elements.
template <class S>
struct Pivots {
    using T = ElementOf<S>;
    MaskOf<S> fine = splat<S>(0) == splat<S>(0);

    ZELM_INLINE void note(S pivot) {
        constexpr int reach = Format<T>::reach;
        const S m = magnitude(pivot);
        fine = fine & (m >= splat<S>(power<T>(-reach))) & (m <= splat<S>(power<T>(reach)));
    }
};

// A factored group: rows in pivot order, n x n, row by row, and their numbers.
template <class S>
struct Factors {
    const S *f;
    const IndexOf<S> *p;
    int n;

    // x holds a right-hand side in pivot order and becomes the solution.
    void substitute(S *x) const {
        for (int i = 1; i < n; ++i)
            for (int j = 0; j < i; ++j)
                x[i] = x[i] - f[i * n + j] * x[j];
        for (int i = n - 1; i >= 0; --i) {
            for (int j = i + 1; j < n; ++j)
                x[i] = x[i] - f[i * n + j] * x[j];
            x[i] = x[i] / f[i * n + i];
        }
    }
    // b in the order of the pivots.
    void permute(S *x, const S *b) const {
        for (int i = 0; i < n; ++i)
            for (int l = 0; l < lanes_of<S>; ++l)
                x[i][l] = b[p[i][l]][l];
    }
    // The sum of magnitudes in the largest column of the inverse, whose row i is weighted by
    // weight(i, x); infinite where that is more than a number holds. x: n elements of scratch.
    template <class Weight>
    S inverse_norm(S *x, const Weight &weight) const {
        S norm = splat<S>(0), nothing = splat<S>(0);
        for (int c = 0; c < n; ++c) {
            for (int i = 0; i < n; ++i)
                x[i] = splat<S>(i == c ? 1 : 0);
            substitute(x);
            S sum = splat<S>(0);
            for (int i = 0; i < n; ++i)
                sum = sum + magnitude(weight(i, x[i]));
            norm = larger(sum, norm);
            nothing = nothing + (sum - sum);
        }
        return select(nothing == nothing, norm,
                      splat<S>(std::numeric_limits<ElementOf<S>>::infinity()));
    }
    S inverse_norm(S *x) const {
        return inverse_norm(x, [](int, const S &element) { return element; });
    }
};
// The largest of the columns' sums of magnitudes, of which that of column j is weighted by
// weight(j, sum).
template <class S, class Weight>
S column_norm(const S *a, int n, const Weight &weight) {
    S norm = splat<S>(0);
    for (int j = 0; j < n; ++j) {
        S sum = splat<S>(0);
        for (int i = 0; i < n; ++i)
            sum = sum + magnitude(a[i * n + j]);
        norm = larger(weight(j, sum), norm);
    }
    return norm;
}
template <class S>
S column_norm(const S *a, int n) {
    return column_norm(a, n, [](int, const S &sum) { return sum; });
}

// Factors n x n registers, straight-line where that is kept in registers; x: n of scratch. Returns
// the lanes with a pivot of zero.
template <class S>
[[gnu::noinline]] MaskOf<S> factor_in_memory(S *f, IndexOf<S> *p, int n, S *x) {
    return with_order<2, largest_straight_line_order>(
        n,
        [&](auto N) {
            S a[N][N];
            IndexOf<S> q[N];
            MaskOf<S> singular = no_lane<S>();
            unroll<N * N>(ZELM_EACH(e) { a[e / N][e % N] = f[e]; });
            factor<N>(a, q, ElementOf<S>{0}, ZELM_EACH(){});
            unroll<N>(ZELM_EACH(i) {
                singular = singular | (a[i][i] == splat<S>(0));
                p[i] = q[i];
                unroll<N>(ZELM_EACH(j) { f[i * N + j] = a[i][j]; });
            });
            return singular;
        },
        [&] { return factor_lanes<S>(f, p, n, ElementOf<S>{0}, x); });
}

// Of a group whose columns are brought to one exponent.
template <class T>
struct Careful {
    using S = Lanes<T>;

    S *f, *x, *b; // n x n, n, n elements of scratch
    IndexOf<S> *p;
    IndexOf<S> *exponent; // the powers of two by which the columns are larger than the object's
    int n;

    MaskOf<S> finite, singular;
    MaskOf<S> overgrown; // an element left the range during the elimination
    IndexOf<S> least;    // of the exponents
    S norm;              // of the object times 2^least

    Careful(S *scratch, int order)
        : f(scratch),
          x(f + order * order),
          b(x + order),
          p(reinterpret_cast<IndexOf<S> *>(b + order)),
          exponent(p + order),
          n(order) {}

    // Factors the matrix in f.
    void factor(bool wants_norm = false) {
        scale_columns();
        if (wants_norm)
            measure();
        eliminate();
    }
    void scale_columns() {
        // Elements may grow by 2^(n - 1).
        const int room = Format<T>::bias - 1 - n;
        const int start = clamped(room, 0, Format<T>::factor_exponent);
        S nothing = splat<S>(0);
        for (int j = 0; j < n; ++j) {
            Extent<S> extent;
            for (int i = 0; i < n; ++i)
                extent.note(f[i * n + j]);
            nothing = nothing + extent.nothing;
            const Scale<T> scale(extent.largest, start);
            exponent[j] = scale.exponent;
            for (int i = 0; i < n; ++i)
                f[i * n + j] = scale(f[i * n + j]);
        }
        finite = nothing == nothing;
    }
    void measure() {
        least = exponent[0];
        for (int j = 1; j < n; ++j)
            least = select(exponent[j] < least, exponent[j], least);
        norm = column_norm(
            f, n, [&](int j, const S &sum) { return scaled<T>(sum, least - exponent[j]); });
    }
    void eliminate() {
        singular = factor_in_memory(f, p, n, x);
        Extent<S> pivots;
        for (int i = 0; i < n; ++i)
            pivots.note(f[i * n + i]);
        overgrown = ~pivots.finite();
    }
    Factors<S> factors() const { return {f, p, n}; }

    // 1 / (|A| |inverse|), 0 for a singular matrix.
    S reciprocal_condition() const {
        const S inverse = factors().inverse_norm(
            x, [&](int i, const S &element) { return scaled<T>(element, exponent[i] - least); });
        S r = splat<S>(1) / norm / inverse;
        r = select(singular | overgrown, splat<S>(0), r);
        return select(finite, r, splat<S>(std::numeric_limits<T>::quiet_NaN()));
    }
};
template <class T>
constexpr std::size_t careful_elements(int n) { // of scratch, in registers
    return static_cast<std::size_t>(n) * static_cast<std::size_t>(n) +
           4 * static_cast<std::size_t>(n);
}

// The solution of the factored matrix of `careful` for the right-hand side in careful.b, in `to`,
// n elements, which have no meaning in lanes that fail. Sets the status of lanes that have none.
template <class T>
void solve_carefully(Careful<T> &careful, Lanes<T> *to, int *statuses) {
    using S = Lanes<T>;
    const int n = careful.n;
    Extent<S> extent;
    for (int i = 0; i < n; ++i)
        extent.note(careful.b[i]);
    const MaskOf<S> finite = careful.finite & extent.finite();
    for (int l = 0; l < lanes_of<S>; ++l)
        if ((lane_bits(finite) >> l & 1) == 0)
            statuses[l] = zelmSafeNotFinite; // whatever another right-hand side met
    set_status(statuses, careful.singular, zelStatusSingular);
    set_status(statuses, careful.overgrown, zelmSafeOutOfRange);
    // The first that no lane overflows with: mostly the answer is near 1, of matrices with a wide
    // range it may be far above.
    const Scale<T> scale(extent.largest);
    constexpr int working = Format<T>::working_exponent;
    MaskOf<S> done = ~finite | careful.singular;
    if (lane_bits(done) == all_lanes<S>)
        return;
    constexpr int first = working / 8;
    for (const int down : {first, working * 9 / 8, working * 17 / 8}) {
        const IndexOf<S> shift = splat_index<S>(-down);
        careful.factors().permute(careful.x, careful.b);
        for (int i = 0; i < n; ++i)
            careful.x[i] = scaled<T>(scale(careful.x[i]), shift);
        careful.factors().substitute(careful.x);
        Extent<S> result;
        for (int i = 0; i < n; ++i)
            result.note(careful.x[i]);
        const MaskOf<S> now = result.finite() & ~done;
        for (int i = 0; i < n; ++i) {
            const S x = scaled<T>(careful.x[i], careful.exponent[i] - scale.exponent - shift);
            to[i] = down == first ? x : select(now, x, to[i]);
        }
        done = done | now;
        if (lane_bits(done) == all_lanes<S>)
            break;
    }
    Extent<S> result;
    for (int i = 0; i < n; ++i)
        result.note(to[i]);
    set_status(statuses, ~result.finite(), zelmSafeOutOfRange);
}

} // namespace zelm::safe
