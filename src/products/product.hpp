// Matrix products, as algorithms over registers. The sum of every element runs over k in ascending
// order and starts with the first product, so every kernel gives the same bits.
#pragma once

#include "../frame/operand.hpp"

namespace zelm {

// d = a * b, everything in registers: one object, or one object a lane.
template <int M, int K, int N, class S>
ZELM_INLINE void multiply(const S (&a)[M][K], const S (&b)[K][N], S (&d)[M][N]) {
    unroll<M>(ZELM_EACH(i) {
        unroll<N>(ZELM_EACH(j) {
            d[i][j] = a[i][0] * b[0][j];
            unroll<1, K>(ZELM_EACH(k) { d[i][j] = d[i][j] + a[i][k] * b[k][j]; });
        });
    });
}

// ---- rows in registers ----

// N adjacent elements: whole registers and one that is partly used.
template <class T, int N>
struct RowOf {
    static constexpr int L = lanes_per_row<T>, full = N / L, rest = N % L;
    static constexpr int registers = full + (rest != 0);
    RowLanes<T> v[registers];

    ZELM_INLINE void load(const char *p) {
        unroll<full>(ZELM_EACH(c) { v[c] = zelm::load<RowLanes<T>>(p + c * row_bytes); });
        if constexpr (rest != 0)
            v[full] = load_part<rest, RowLanes<T>>(p + full * row_bytes);
    }
    ZELM_INLINE void store(char *p) const {
        unroll<full>(ZELM_EACH(c) { zelm::store<RowLanes<T>>(p + c * row_bytes, v[c]); });
        if constexpr (rest != 0)
            store_part<rest, RowLanes<T>>(p + full * row_bytes, v[full]);
    }
};

// Element k of a row of a, in every lane. From memory a double costs no shuffle.
template <class T, int K, int k>
ZELM_INLINE RowLanes<T> splat_element(const RowOf<T, K> &row, const char *p) {
    if constexpr (sizeof(T) == 8)
        return splat<RowLanes<T>>(load<T>(p + k * sizeof(T)));
    else
        return splat_lane<k % RowOf<T, K>::L>(row.v[k / RowOf<T, K>::L]);
}

// Rows i ... i + R - 1 of d = a * b where the elements of all rows are adjacent: sums of rows of b,
// each times one element of a.
template <int R, int K, int N, class T>
ZELM_INLINE void multiply_row_tile(const StridedView<const T> &a, const StridedView<const T> &b,
                                   const StridedView<T> &d, int i) {
    RowOf<T, K> left[R];
    RowOf<T, N> row[R];
    unroll<R>(ZELM_EACH(r) { left[r].load(a.at(i + r, 0)); });
    unroll<K>(ZELM_EACH(k) {
        RowOf<T, N> right;
        right.load(b.at(k, 0));
        unroll<R>(ZELM_EACH(r) {
            const RowLanes<T> x = splat_element<T, K, k>(left[r], a.at(i + r, 0));
            unroll<RowOf<T, N>::registers>(ZELM_EACH(c) {
                if constexpr (k == 0)
                    row[r].v[c] = x * right.v[c];
                else
                    row[r].v[c] = row[r].v[c] + x * right.v[c];
            });
        });
    });
    unroll<R>(ZELM_EACH(r) { row[r].store(d.at(i + r, 0)); });
}
// As many rows at a time as fit the registers with their sums, a row of b and an element of a.
template <int M, int K, int N, class T>
ZELM_INLINE void multiply_rows(const StridedView<const T> &a, const StridedView<const T> &b,
                               const StridedView<T> &d) {
    constexpr int R = M == 4 ? 4 : 3, whole = M - M % R;
    for (int i = 0; i < whole; i += R)
        multiply_row_tile<R, K, N>(a, b, d, i);
    if constexpr (whole < M)
        multiply_row_tile<M - whole, K, N>(a, b, d, whole);
}

// ---- columns in registers: a matrix times a vector ----

// The columns of an N x N matrix with adjacent rows, N a multiple of the lanes.
template <class T, int N>
struct ColumnsOf {
    static constexpr int L = lanes_per_row<T>;
    RowLanes<T> v[N][N / L];

    ZELM_INLINE void load(const StridedView<const T> &a) {
        unroll<N / L>(ZELM_EACH(i) {
            unroll<N / L>(ZELM_EACH(k) {
                RowLanes<T> block[L];
                unroll<L>(
                    ZELM_EACH(e) { block[e] = zelm::load<RowLanes<T>>(a.at(i * L + e, k * L)); });
                transpose(block);
                unroll<L>(ZELM_EACH(e) { v[k * L + e][i] = block[e]; });
            });
        });
    }
};

template <class T, int N>
ZELM_INLINE void multiply_columns(const ColumnsOf<T, N> &a, const char *x, char *y) {
    RowOf<T, N> vector, sum;
    vector.load(x);
    unroll<N>(ZELM_EACH(k) {
        const RowLanes<T> element = splat_element<T, N, k>(vector, x);
        unroll<RowOf<T, N>::registers>(ZELM_EACH(c) {
            if constexpr (k == 0)
                sum.v[c] = a.v[k][c] * element;
            else
                sum.v[c] = sum.v[c] + a.v[k][c] * element;
        });
    });
    sum.store(y);
}

// The same for a matrix that is used once: its rows times x, and the products transposed. N is a
// multiple of the lanes, or one more.
template <int N, class T>
ZELM_INLINE void multiply_row_products(const StridedView<const T> &a, const char *x, char *y) {
    constexpr int L = lanes_per_row<T>, blocks = N / L;
    static_assert(N % L <= 1);
    RowOf<T, N> vector, sum;
    vector.load(x);
    const auto products = [&](int i, auto k) __attribute__((always_inline)) {
        return load<RowLanes<T>>(a.at(i, k * L)) * vector.v[k];
    };
    unroll<blocks>(ZELM_EACH(i) {
        RowLanes<T> terms[blocks][L];
        unroll<blocks>(
            ZELM_EACH(k) { unroll<L>(ZELM_EACH(e) { terms[k][e] = products(i * L + e, k); }); });
        unroll<blocks>(ZELM_EACH(k) {
            transpose(terms[k]);
            unroll<L>(ZELM_EACH(e) {
                sum.v[i] = k == 0 && e == 0 ? terms[0][0] : sum.v[i] + terms[k][e];
            });
        });
        if constexpr (N % L == 1) {
            RowLanes<T> column;
            unroll<L>(ZELM_EACH(e) { column[int{e}] = load<T>(a.at(i * L + e, N - 1)); });
            sum.v[i] = sum.v[i] + column * splat_lane<0>(vector.v[blocks]);
        }
    });
    if constexpr (N % L == 1) {
        T last = 0;
        unroll<blocks>(ZELM_EACH(k) {
            const RowLanes<T> terms = products(N - 1, k);
            unroll<L>(ZELM_EACH(e) { last = k == 0 && e == 0 ? terms[0] : last + terms[int{e}]; });
        });
        last = last + load<T>(a.at(N - 1, N - 1)) * vector.v[blocks][0];
        sum.v[blocks] = RowLanes<T>{last};
    }
    sum.store(y);
}

// ---- any shape ----

// R rows and V registers of columns of d, from row i and column j on.
template <class S, int R, int V, class A, class B, class D>
ZELM_INLINE void multiply_block(const A &a, const B &b, const D &d, int i, int j, int K) {
    using T = ElementOf<S>;
    constexpr int L = lanes_of<S>;
    S sum[R][V];
    const auto add = [&](int k, bool first) __attribute__((always_inline)) {
        S row[V];
        unroll<V>(ZELM_EACH(v) { row[v] = load<S>(b.at(k, j + v * L)); });
        unroll<R>(ZELM_EACH(r) {
            const S x = splat<S>(T{get(a, i + r, k)});
            unroll<V>(ZELM_EACH(v) { sum[r][v] = first ? x * row[v] : sum[r][v] + x * row[v]; });
        });
    };
    add(0, true);
    for (int k = 1; k < K; ++k)
        add(k, false);
    unroll<R>(
        ZELM_EACH(r) { unroll<V>(ZELM_EACH(v) { store<S>(d.at(i + r, j + v * L), sum[r][v]); }); });
}
template <class S, int V, class A, class B, class D>
ZELM_INLINE void multiply_strip(const A &a, const B &b, const D &d, int M, int K, int j) {
    int i = 0;
    for (; i <= M - 4; i += 4)
        multiply_block<S, 4, V>(a, b, d, i, j, K);
    for (; i < M; ++i)
        multiply_block<S, 1, V>(a, b, d, i, j, K);
}
// `adjacent`: the elements of b's and of d's rows are.
template <bool adjacent, class T, class A, class B, class D>
void multiply_any(const A &a, const B &b, const D &d, int M, int K, int N) {
    int j = 0;
    if constexpr (adjacent) {
        constexpr int L = lanes_per_register<T>;
        for (; j <= N - 2 * L; j += 2 * L)
            multiply_strip<Lanes<T>, 2>(a, b, d, M, K, j);
        for (; j <= N - L; j += L)
            multiply_strip<Lanes<T>, 1>(a, b, d, M, K, j);
    }
    for (; j < N; ++j)
        multiply_strip<T, 1>(a, b, d, M, K, j);
}

} // namespace zelm
