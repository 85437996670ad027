// Solvers by LU decomposition with partial pivoting that finish every object.
//
// An elimination does not feel a power of two. So a group is tried as it stands, by the kernels of
// the array functions; where a pivot or an answer leaves a wide range around 1 in a lane, the
// lane's object may have suffered from overflow or underflow, or may not be finite, or is singular:
// then it is done again, brought to one exponent. Both do the same operations on every element.
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
    // The sum of magnitudes in the largest column of the inverse. x: n elements of scratch.
    S inverse_norm(S *x) const {
        S norm = splat<S>(0);
        for (int c = 0; c < n; ++c) {
            for (int i = 0; i < n; ++i)
                x[i] = splat<S>(i == c ? 1 : 0);
            substitute(x);
            S sum = splat<S>(0);
            for (int i = 0; i < n; ++i)
                sum = sum + magnitude(x[i]);
            norm = larger(sum, norm);
        }
        return norm;
    }
};
template <class S>
S column_norm(const S *a, int n) {
    S norm = splat<S>(0);
    for (int j = 0; j < n; ++j) {
        S sum = splat<S>(0);
        for (int i = 0; i < n; ++i)
            sum = sum + magnitude(a[i * n + j]);
        norm = larger(sum, norm);
    }
    return norm;
}

// Of a group that is brought to one exponent.
template <class T>
struct Careful {
    using S = Lanes<T>;

    S *f, *x, *b; // n x n, n, n elements of scratch
    IndexOf<S> *p;
    int n;

    MaskOf<S> finite, singular;
    IndexOf<S> exponent; // the power of two by which the matrix is larger than the object
    S norm;              // of the matrix

    Careful(S *scratch, int order)
        : f(scratch),
          x(f + order * order),
          b(x + order),
          p(reinterpret_cast<IndexOf<S> *>(b + order)),
          n(order) {}

    // Factors the matrix in f.
    void factor(bool wants_norm) {
        Extent<S> extent;
        for (int e = 0; e < n * n; ++e)
            extent.note(f[e]);
        finite = extent.finite();
        const Scale<T> scale(extent.largest);
        exponent = scale.exponent;
        for (int e = 0; e < n * n; ++e)
            f[e] = scale(f[e]);
        if (wants_norm)
            norm = column_norm(f, n);
        singular = factor_lanes<S>(f, p, n, T{0}, x);
    }
    Factors<S> factors() const { return {f, p, n}; }
};
template <class T>
constexpr std::size_t careful_elements(int n) { // of scratch, in registers
    return static_cast<std::size_t>(n) * static_cast<std::size_t>(n) +
           3 * static_cast<std::size_t>(n);
}

// The solution of the factored matrix of `careful` for the right-hand side in careful.b, in `to`,
// n elements. Sets the status of lanes that have none.
template <class T>
void solve_carefully(Careful<T> &careful, Lanes<T> *to, int *statuses) {
    using S = Lanes<T>;
    const int n = careful.n;
    Extent<S> extent;
    for (int i = 0; i < n; ++i)
        extent.note(careful.b[i]);
    set_status(statuses, ~(careful.finite & extent.finite()), zelmSafeNotFinite);
    set_status(statuses, careful.singular, zelStatusSingular);
    // The first that no lane overflows with: mostly the answer is near 1, of matrices with a wide
    // range it may be far above.
    const Scale<T> scale(extent.largest);
    constexpr int working = Format<T>::working_exponent;
    MaskOf<S> done = ~(careful.finite & extent.finite()) | careful.singular;
    for (const int down : {working * 3 / 8, working * 11 / 8, working * 17 / 8}) {
        const IndexOf<S> shift = splat_index<S>(-down);
        careful.factors().permute(careful.x, careful.b);
        for (int i = 0; i < n; ++i)
            careful.x[i] = scaled<T>(scale(careful.x[i]), shift);
        careful.factors().substitute(careful.x);
        Extent<S> result;
        for (int i = 0; i < n; ++i) {
            careful.x[i] = scaled<T>(careful.x[i], careful.exponent - scale.exponent - shift);
            result.note(careful.x[i]);
        }
        const MaskOf<S> now = result.finite() & ~done;
        for (int i = 0; i < n; ++i)
            to[i] = down == working * 3 / 8 ? careful.x[i] : select(now, careful.x[i], to[i]);
        done = done | now;
        if (lane_bits(done) == all_lanes<S>)
            break;
    }
    set_status(statuses, ~done, zelmSafeOutOfRange);
}

} // namespace zelm::safe
