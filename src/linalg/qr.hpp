// QR decomposition by Householder reflections and the solution with it, as algorithms over a
// scalar-like S. Golub, Van Loan: Matrix Computations, 5.1 and 5.2.
//
// Reflection k is I + beta * u * u', u(k) = 1, beta = -2 / u'u; u below the diagonal is column k of
// the factor. Sums are formed one by one, rows ascending.
#pragma once

#include "blocks.hpp"

namespace zelm {

constexpr int reflections(int width, int height) { return width < height ? width : height - 1; }

// Columns with a sum of squares below this have no reflection.
template <class T>
inline constexpr T column_threshold = epsilon<T>;

// Sums of squares below this have lost accuracy to underflow.
template <class T>
inline constexpr T least_square = sizeof(T) == 4 ? T(0x1p-90) : T(0x1p-900);

// The root of the sum of squares, with the sign of the diagonal element; zero counts as negative.
template <class S>
ZELM_INLINE S signed_root(S squares, S diagonal) {
    const S root = square_root(squares);
    return select(diagonal <= splat<S>(0), -root, root);
}

// Factors d in place. Returns the lanes that met a small column; with one lane the work ends there,
// before anything of that column has changed.
template <int H, int W, class S>
ZELM_INLINE MaskOf<S> factor_qr(S (&d)[H][W]) {
    MaskOf<S> failing = no_lane<S>();
    unroll<reflections(W, H)>(ZELM_EACH(k) {
        if (lanes_of<S> == 1 && lane_bits(failing))
            return;
        S squares = d[k][k] * d[k][k];
        unroll<k + 1, H>(ZELM_EACH(i) { squares = squares + d[i][k] * d[i][k]; });
        failing = failing | (splat<S>(column_threshold<ElementOf<S>>) > magnitude(squares));
        if (lanes_of<S> == 1 && lane_bits(failing))
            return;
        const S alpha = signed_root(squares, d[k][k]);
        const S r = splat<S>(1) / (d[k][k] + alpha);
        S length = splat<S>(1);
        unroll<k + 1, H>(ZELM_EACH(i) {
            d[i][k] = d[i][k] * r;
            length = length + d[i][k] * d[i][k];
        });
        const S beta = splat<S>(-2) / length;
        d[k][k] = -alpha;
        unroll<k + 1, W>(ZELM_EACH(j) {
            S s = d[k][j];
            unroll<k + 1, H>(ZELM_EACH(i) { s = s + d[i][k] * d[i][j]; });
            s = beta * s;
            d[k][j] = d[k][j] + s;
            unroll<k + 1, H>(ZELM_EACH(i) { d[i][j] = d[i][j] + s * d[i][k]; });
        });
    });
    return failing;
}

// The same for sizes known at run time: d(i, j) refers to an element. With `any_column` a column
// fails if it is zero from the diagonal on; its reflection changes the sign of row k.
template <class S, bool any_column = false, class Matrix>
ZELM_INLINE MaskOf<S> factor_qr(int width, int height, const Matrix &d) {
    MaskOf<S> failing = no_lane<S>();
    for (int k = 0; k < reflections(width, height); ++k) {
        const S diagonal = d(k, k);
        S squares = diagonal * diagonal;
        for (int i = k + 1; i < height; ++i) {
            const S x = d(i, k);
            squares = squares + x * x;
        }
        // Squares that underflow are formed again of what is lifted by a power of two.
        S lift = splat<S>(1);
        if constexpr (any_column)
            if (const MaskOf<S> low = squares < splat<S>(least_square<ElementOf<S>>);
                lane_bits(low) != 0) [[unlikely]] {
                lift = select(low, splat<S>(1 / least_square<ElementOf<S>>), lift);
                squares = diagonal * lift * (diagonal * lift);
                for (int i = k + 1; i < height; ++i) {
                    const S x = d(i, k) * lift;
                    squares = squares + x * x;
                }
            }
        const auto small = any_column
                               ? squares == splat<S>(0)
                               : splat<S>(column_threshold<ElementOf<S>>) > magnitude(squares);
        failing = failing | small;
        if (lanes_of<S> == 1 && lane_bits(failing))
            return failing;
        S alpha = signed_root(squares, diagonal);
        S r = splat<S>(1) / (diagonal * lift + alpha);
        if constexpr (any_column) {
            r = select(small, splat<S>(0), r);
            alpha = alpha / lift;
        }
        S length = splat<S>(1);
        for (int i = k + 1; i < height; ++i) {
            const S x = d(i, k) * lift * r;
            d(i, k) = x;
            length = length + x * x;
        }
        const S beta = splat<S>(-2) / length;
        d(k, k) = -alpha;
        in_blocks(
            k + 1, width, [&](int j, auto C) __attribute__((always_inline)) {
                S s[C];
                unroll<C>(ZELM_EACH(c) { s[c] = d(k, j + c); });
                for (int i = k + 1; i < height; ++i) {
                    const S u = d(i, k);
                    unroll<C>(ZELM_EACH(c) { s[c] = s[c] + u * d(i, j + c); });
                }
                unroll<C>(ZELM_EACH(c) {
                    s[c] = beta * s[c];
                    d(k, j + c) = d(k, j + c) + s[c];
                });
                for (int i = k + 1; i < height; ++i) {
                    const S u = d(i, k);
                    unroll<C>(ZELM_EACH(c) { d(i, j + c) = d(i, j + c) + s[c] * u; });
                }
            });
    }
    return failing;
}

// beta of reflection k of a factor.
template <class S, class Factor>
ZELM_INLINE S reflection_scale(int k, int height, const Factor &factor) {
    S length = splat<S>(1);
    for (int i = k + 1; i < height; ++i) {
        const S u = factor(i, k);
        length = length + u * u;
    }
    return splat<S>(-2) / length;
}

// Solves with a square factor: x holds the right-hand side and becomes the solution.
template <int N, class S>
ZELM_INLINE void reflection_scales(S (&beta)[N], const S (&f)[N][N]) {
    unroll<N - 1>(ZELM_EACH(k) {
        S length = splat<S>(1);
        unroll<k + 1, N>(ZELM_EACH(i) { length = length + f[i][k] * f[i][k]; });
        beta[k] = splat<S>(-2) / length;
    });
}
template <int N, class S>
ZELM_INLINE void substitute_qr(const S (&f)[N][N], const S (&beta)[N], S (&x)[N]) {
    unroll<N - 1>(ZELM_EACH(k) {
        S s = x[k];
        unroll<k + 1, N>(ZELM_EACH(i) { s = s + f[i][k] * x[i]; });
        s = beta[k] * s;
        x[k] = x[k] + s;
        unroll<k + 1, N>(ZELM_EACH(i) { x[i] = x[i] + s * f[i][k]; });
    });
    unroll<N>(ZELM_EACH(back) {
        constexpr int i = N - 1 - back;
        unroll<i + 1, N>(ZELM_EACH(j) { x[i] = x[i] - f[i][j] * x[j]; });
        x[i] = x[i] / f[i][i];
    });
}

// The same for sizes known at run time: x(i), i < height, refers to an element of the right-hand
// side, of which the first `width` become the solution.
template <class S, class Factor, class Scale, class Vector>
ZELM_INLINE void substitute_qr(int width, int height, const Factor &factor, const Scale &beta,
                               const Vector &x) {
    for (int k = 0; k < reflections(width, height); ++k) {
        S s = x(k);
        for (int i = k + 1; i < height; ++i)
            s = s + factor(i, k) * x(i);
        s = beta(k) * s;
        x(k) = x(k) + s;
        for (int i = k + 1; i < height; ++i)
            x(i) = x(i) + s * factor(i, k);
    }
    for (int i = width - 1; i >= 0; --i) {
        S value = x(i);
        for (int j = i + 1; j < width; ++j)
            value = value - factor(i, j) * x(j);
        x(i) = value / factor(i, i);
    }
}

} // namespace zelm
