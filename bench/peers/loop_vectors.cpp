// Plain loops over vectors and over matrices that only move, with small sizes known at compile
// time.
#include <cmath>
#include <cstring>

#include "peer_list.hpp"

namespace {

template <class T, int R, int C>
struct Matrix {
    T at[R][C];
};
template <class T, int N>
struct Vector {
    T at[N];
};

template <class T, int N>
void dot(const BenchProblem *p) {
    const auto *a = objects<Vector<T, N>>(p->a);
    const auto *b = objects<Vector<T, N>>(p->b);
    auto *__restrict c = results<T>(p->c);
    for (int n = 0; n < p->count; ++n) {
        T s = 0;
        for (int k = 0; k < N; ++k)
            s += a[n].at[k] * b[n].at[k];
        c[n] = s;
    }
}

template <class T>
void cross(const BenchProblem *p) {
    const auto *a = objects<Vector<T, 3>>(p->a);
    const auto *b = objects<Vector<T, 3>>(p->b);
    auto *__restrict c = results<Vector<T, 3>>(p->c);
    for (int n = 0; n < p->count; ++n) {
        c[n].at[0] = a[n].at[1] * b[n].at[2] - a[n].at[2] * b[n].at[1];
        c[n].at[1] = a[n].at[2] * b[n].at[0] - a[n].at[0] * b[n].at[2];
        c[n].at[2] = a[n].at[0] * b[n].at[1] - a[n].at[1] * b[n].at[0];
    }
}

template <class T, int N>
void norm(const BenchProblem *p) {
    const auto *a = objects<Vector<T, N>>(p->a);
    auto *__restrict c = results<T>(p->c);
    for (int n = 0; n < p->count; ++n) {
        T s = 0;
        for (int k = 0; k < N; ++k)
            s += a[n].at[k] * a[n].at[k];
        c[n] = std::sqrt(s);
    }
}

template <class T, int N>
void transpose(const BenchProblem *p) {
    const auto *a = objects<Matrix<T, N, N>>(p->a);
    auto *__restrict c = results<Matrix<T, N, N>>(p->c);
    for (int n = 0; n < p->count; ++n)
        for (int i = 0; i < N; ++i)
            for (int j = 0; j < N; ++j)
                c[n].at[j][i] = a[n].at[i][j];
}

template <class T>
void transpose_large(const BenchProblem *p) {
    const T *a = objects<T>(p->a);
    T *__restrict c = results<T>(p->c);
    const std::ptrdiff_t rows = p->rows, columns = p->columns;
    for (std::ptrdiff_t i = 0; i < rows; ++i)
        for (std::ptrdiff_t j = 0; j < columns; ++j)
            c[j * rows + i] = a[i * columns + j];
}

template <class T, BenchWork work>
void weighted_sum(const BenchProblem *p) {
    const T *a = objects<T>(p->a);
    const T *b = objects<T>(p->b);
    T *__restrict c = results<T>(p->c);
    const auto scale1 = static_cast<T>(p->scale1), scale2 = static_cast<T>(p->scale2);
    const std::ptrdiff_t size = std::ptrdiff_t{p->count} * p->columns;
    for (std::ptrdiff_t i = 0; i < size; ++i)
        c[i] = a[i] * scale1 + (work == bench_lcomb ? b[i] * scale2 : b[i]);
}

template <class T>
void copy(const BenchProblem *p) {
    const T *a = objects<T>(p->a);
    T *__restrict c = results<T>(p->c);
    const std::ptrdiff_t size = std::ptrdiff_t{p->count} * p->rows * p->columns;
    for (std::ptrdiff_t i = 0; i < size; ++i)
        c[i] = a[i];
}

template <class T, int R, int C>
void move(const BenchProblem *p) {
    const std::ptrdiff_t from_row = in_elements<T>(p->a.row), to_row = in_elements<T>(p->c.row);
    const std::ptrdiff_t from = in_elements<T>(p->a.element), to = in_elements<T>(p->c.element);
    for (int n = 0; n < p->count; ++n) {
        const T *a = object_at<const T>(p->a, n);
        T *__restrict c = object_at<T>(p->c, n);
        for (int i = 0; i < R; ++i)
            for (int j = 0; j < C; ++j)
                c[i * to_row + j * to] = a[i * from_row + j * from];
    }
}

template <class T, int N, bool one_addend>
void gaxpy(const BenchProblem *p) {
    const auto a = objects<Matrix<T, N, N>>(p->a)[0];
    const auto *b = objects<Vector<T, N>>(p->b);
    const auto *d = objects<Vector<T, N>>(p->d);
    auto *__restrict c = results<Vector<T, N>>(p->c);
    for (int n = 0; n < p->count; ++n)
        for (int i = 0; i < N; ++i) {
            T s = 0;
            for (int k = 0; k < N; ++k)
                s += a.at[i][k] * b[n].at[k];
            c[n].at[i] = s + d[one_addend ? 0 : n].at[i];
        }
}

template <class T>
void offer_all(PeerList &list) {
    for_orders<3, 4, 6, 64>(
        [&](auto n) { list.offer<T>("loop", bench_dot, sum(1, n), bench_packed, dot<T, n>); });
    list.offer<T>("loop", bench_cross, sum(1, 3), bench_packed, cross<T>);
    for_orders<3, 4, 64>(
        [&](auto n) { list.offer<T>("loop", bench_norm, sum(1, n), bench_packed, norm<T, n>); });
    list.offer<T>("loop", bench_norm, sum(4, 4), bench_packed, norm<T, 16>);
    for_orders<3, 4>([&](auto n) {
        list.offer<T>("loop", bench_transpose, sum(n, n), bench_packed, transpose<T, n>);
        list.offer<T>("flat loop", bench_saxpy, sum(1, n), bench_packed,
                      weighted_sum<T, bench_saxpy>);
        list.offer<T>("flat loop", bench_lcomb, sum(1, n), bench_packed,
                      weighted_sum<T, bench_lcomb>);
        list.offer<T>("flat loop", bench_copy, sum(n, n), bench_packed, copy<T>);
        list.offer<T>("loop", bench_pack, sum(n, n), bench_strided, move<T, n, n>);
        list.offer<T>("loop", bench_unpack, sum(n, n), bench_strided, move<T, n, n>);
        list.offer<T>("loop", bench_gaxpy, matrix_vector(n), bench_packed, gaxpy<T, n, false>);
        list.offer<T>("loop", bench_gaxpy_one, matrix_vector(n), bench_packed, gaxpy<T, n, true>);
    });
    for (int n : {512, 1000, 2048})
        list.offer<T>("loop", bench_transpose, sum(n, n), bench_packed, transpose_large<T>);
}

} // namespace

BenchPeerList bench_peers() {
    return listed([](PeerList &made) {
        offer_all<float>(made);
        offer_all<double>(made);
    });
}
