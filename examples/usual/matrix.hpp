// Matrices of fixed size: those of Eigen, or, where Eigen is missing, a struct and plain loops.
// zelm takes either where they lie.
#pragma once

#include <cmath>
#include <limits>
#include <utility>

#if defined(EXAMPLES_HAVE_EIGEN)
#include <Eigen/Dense>

inline constexpr const char *usual_name = "Eigen";

template <class T, int Rows, int Columns>
using Matrix =
    Eigen::Matrix<T, Rows, Columns, Columns == 1 ? int(Eigen::ColMajor) : int(Eigen::RowMajor)>;

template <class T, int N, int C>
Matrix<T, N, C> solved(const Matrix<T, N, N> &a, const Matrix<T, N, C> &b) {
    return a.partialPivLu().solve(b);
}

// The eigenvector of the smallest (0) or largest (N - 1) eigenvalue, or of one between.
template <class T, int N>
Matrix<T, N, 1> eigenvector(const Matrix<T, N, N> &a, int which) {
    return Eigen::SelfAdjointEigenSolver<Matrix<T, N, N>>(a).eigenvectors().col(which);
}

#else

inline constexpr const char *usual_name = "plain loops";

template <class T, int Rows, int Columns>
struct Matrix {
    using Scalar = T; // zelm looks at these three lines
    static constexpr int RowsAtCompileTime = Rows, ColsAtCompileTime = Columns;
    static constexpr bool IsRowMajor = true;
    T element[Rows * Columns];

    T &operator()(int i, int j = 0) { return element[i * Columns + j]; }
    const T &operator()(int i, int j = 0) const { return element[i * Columns + j]; }
    static Matrix Zero() { return {}; }
    static Matrix Identity() {
        Matrix m{};
        for (int i = 0; i < Rows && i < Columns; ++i)
            m(i, i) = 1;
        return m;
    }
    Matrix<T, Columns, Rows> transpose() const {
        Matrix<T, Columns, Rows> m;
        for (int i = 0; i < Rows; ++i)
            for (int j = 0; j < Columns; ++j)
                m(j, i) = (*this)(i, j);
        return m;
    }
    template <int R, int C>
    Matrix<T, R, C> block(int row, int column) const {
        Matrix<T, R, C> m;
        for (int i = 0; i < R; ++i)
            for (int j = 0; j < C; ++j)
                m(i, j) = (*this)(row + i, column + j);
        return m;
    }
    Matrix &operator+=(const Matrix &b) {
        for (int k = 0; k < Rows * Columns; ++k)
            element[k] += b.element[k];
        return *this;
    }
    Matrix &operator*=(T by) {
        for (T &x : element)
            x *= by;
        return *this;
    }
    friend Matrix operator*(T by, Matrix a) { return a *= by; }
    friend Matrix operator+(Matrix a, const Matrix &b) { return a += b; }
    friend Matrix operator-(Matrix a, const Matrix &b) { return a += T(-1) * b; }
};

template <class T, int M, int K, int N>
Matrix<T, M, N> operator*(const Matrix<T, M, K> &a, const Matrix<T, K, N> &b) {
    Matrix<T, M, N> c{};
    for (int i = 0; i < M; ++i)
        for (int k = 0; k < K; ++k)
            for (int j = 0; j < N; ++j)
                c(i, j) += a(i, k) * b(k, j);
    return c;
}

// Elimination with row exchanges.
template <class T, int N, int C>
Matrix<T, N, C> solved(Matrix<T, N, N> a, Matrix<T, N, C> b) {
    for (int k = 0; k < N; ++k) {
        int pivot = k;
        for (int i = k + 1; i < N; ++i)
            pivot = std::abs(a(i, k)) > std::abs(a(pivot, k)) ? i : pivot;
        for (int j = 0; j < N; ++j)
            std::swap(a(k, j), a(pivot, j));
        for (int j = 0; j < C; ++j)
            std::swap(b(k, j), b(pivot, j));
        for (int i = k + 1; i < N; ++i) {
            const T factor = a(i, k) / a(k, k);
            for (int j = k + 1; j < N; ++j)
                a(i, j) -= factor * a(k, j);
            for (int j = 0; j < C; ++j)
                b(i, j) -= factor * b(k, j);
        }
    }
    for (int k = N - 1; k >= 0; --k)
        for (int j = 0; j < C; ++j) {
            for (int i = k + 1; i < N; ++i)
                b(k, j) -= a(k, i) * b(i, j);
            b(k, j) /= a(k, k);
        }
    return b;
}

// Jacobi's rotations: v' * a * v becomes diagonal.
template <class T, int N>
Matrix<T, N, 1> eigenvector(Matrix<T, N, N> a, int which) {
    auto v = Matrix<T, N, N>::Identity();
    const auto rotate = [](T &x, T &y, T c, T s) {
        const T old = x;
        x = c * old - s * y;
        y = s * old + c * y;
    };
    bool rotated = true;
    for (int sweep = 0; rotated && sweep < 30; ++sweep) {
        rotated = false;
        for (int p = 0; p < N; ++p)
            for (int q = p + 1; q < N; ++q) {
                const T least = std::numeric_limits<T>::epsilon() / 2;
                if (std::abs(a(p, q)) <= least * (std::abs(a(p, p)) + std::abs(a(q, q))))
                    continue;
                rotated = true;
                const T half = (a(q, q) - a(p, p)) / (2 * a(p, q));
                const T t = std::copysign(1 / (std::abs(half) + std::hypot(half, T(1))), half);
                const T c = 1 / std::hypot(t, T(1)), s = t * c;
                for (int k = 0; k < N; ++k) {
                    rotate(a(k, p), a(k, q), c, s);
                    rotate(v(k, p), v(k, q), c, s);
                }
                for (int k = 0; k < N; ++k)
                    rotate(a(p, k), a(q, k), c, s);
            }
    }
    Matrix<T, N, 1> result{};
    for (int j = 0; j < N; ++j) {
        int smaller = 0;
        for (int i = 0; i < N; ++i)
            smaller += a(i, i) < a(j, j) || (a(i, i) == a(j, j) && i < j);
        for (int i = 0; smaller == which && i < N; ++i)
            result(i) = v(i, j);
    }
    return result;
}

#endif
