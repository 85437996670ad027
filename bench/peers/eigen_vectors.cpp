// Eigen's products of vectors, norms, transposes and weighted sums. Sizes are known at compile time
// but for large transposes.
#include <Eigen/Core>
#include <Eigen/Geometry>

#include "peer_list.hpp"

namespace {

using Eigen::Dynamic;

template <class T, int R, int C>
using Rows = Eigen::Matrix<T, R, C, Eigen::RowMajor>;
template <class T, int N>
using Vector = Eigen::Matrix<T, N, 1>;
template <class T>
using Flat = Eigen::Map<Eigen::Array<T, Dynamic, 1>>;

template <class T, int N>
void dot(const BenchProblem *p) {
    const auto *a = objects<Vector<T, N>>(p->a);
    const auto *b = objects<Vector<T, N>>(p->b);
    auto *c = results<T>(p->c);
    for (int n = 0; n < p->count; ++n)
        c[n] = a[n].dot(b[n]);
}

template <class T>
void cross(const BenchProblem *p) {
    const auto *a = objects<Vector<T, 3>>(p->a);
    const auto *b = objects<Vector<T, 3>>(p->b);
    auto *c = results<Vector<T, 3>>(p->c);
    for (int n = 0; n < p->count; ++n)
        c[n] = a[n].cross(b[n]);
}

template <class T, int R, int C>
void norm(const BenchProblem *p) {
    const auto *a = objects<Rows<T, R, C>>(p->a);
    auto *c = results<T>(p->c);
    for (int n = 0; n < p->count; ++n)
        c[n] = a[n].norm();
}

template <class T, int N>
void transpose(const BenchProblem *p) {
    const auto *a = objects<Rows<T, N, N>>(p->a);
    auto *c = results<Rows<T, N, N>>(p->c);
    for (int n = 0; n < p->count; ++n)
        c[n] = a[n].transpose();
}

template <class T>
void transpose_large(const BenchProblem *p) {
    using Matrix = Eigen::Map<Rows<T, Dynamic, Dynamic>>;
    const Matrix a(results<T>(p->a), p->rows, p->columns);
    Matrix(results<T>(p->c), p->columns, p->rows).noalias() = a.transpose();
}

template <class T, BenchWork work>
void weighted_sum(const BenchProblem *p) {
    const auto scale1 = static_cast<T>(p->scale1), scale2 = static_cast<T>(p->scale2);
    const Eigen::Index size = Eigen::Index{p->count} * p->columns;
    const Flat<T> a(results<T>(p->a), size), b(results<T>(p->b), size);
    Flat<T> c(results<T>(p->c), size);
    if constexpr (work == bench_saxpy)
        c = scale1 * a + b;
    else
        c = scale1 * a + scale2 * b;
}

template <class T, int N, bool one_addend>
void gaxpy(const BenchProblem *p) {
    const Rows<T, N, N> a = objects<Rows<T, N, N>>(p->a)[0];
    const auto *b = objects<Vector<T, N>>(p->b);
    const auto *d = objects<Vector<T, N>>(p->d);
    auto *c = results<Vector<T, N>>(p->c);
    for (int n = 0; n < p->count; ++n)
        c[n] = a * b[n] + d[one_addend ? 0 : n];
}

// All vectors at once: the array is a matrix.
template <class T, int N, bool one_addend>
void gaxpy_at_once(const BenchProblem *p) {
    using Array = Eigen::Map<Eigen::Matrix<T, N, Dynamic>>;
    const Rows<T, N, N> a = objects<Rows<T, N, N>>(p->a)[0];
    const Array b(results<T>(p->b), N, p->count);
    Array c(results<T>(p->c), N, p->count);
    if constexpr (one_addend)
        c = a.lazyProduct(b).colwise() + objects<Vector<T, N>>(p->d)[0];
    else
        c = a.lazyProduct(b) + Array(results<T>(p->d), N, p->count);
}

template <class T>
void offer_all(PeerList &list) {
    for_orders<3, 4, 6, 64>(
        [&](auto n) { list.offer<T>("Eigen", bench_dot, sum(1, n), bench_packed, dot<T, n>); });
    list.offer<T>("Eigen", bench_cross, sum(1, 3), bench_packed, cross<T>);
    for_orders<3, 4, 64>([&](auto n) {
        list.offer<T>("Eigen", bench_norm, sum(1, n), bench_packed, norm<T, 1, n>);
    });
    list.offer<T>("Eigen", bench_norm, sum(4, 4), bench_packed, norm<T, 4, 4>);
    for_orders<3, 4>([&](auto n) {
        list.offer<T>("Eigen", bench_transpose, sum(n, n), bench_packed, transpose<T, n>);
        list.offer<T>("Eigen", bench_saxpy, sum(1, n), bench_packed, weighted_sum<T, bench_saxpy>);
        list.offer<T>("Eigen", bench_lcomb, sum(1, n), bench_packed, weighted_sum<T, bench_lcomb>);
        list.offer<T>("Eigen", bench_gaxpy, matrix_vector(n), bench_packed, gaxpy<T, n, false>);
        list.offer<T>("Eigen", bench_gaxpy_one, matrix_vector(n), bench_packed, gaxpy<T, n, true>);
        list.offer<T>("Eigen array", bench_gaxpy, matrix_vector(n), bench_packed,
                      gaxpy_at_once<T, n, false>);
        list.offer<T>("Eigen array", bench_gaxpy_one, matrix_vector(n), bench_packed,
                      gaxpy_at_once<T, n, true>);
    });
    for (int n : {512, 1000, 2048})
        list.offer<T>("Eigen", bench_transpose, sum(n, n), bench_packed, transpose_large<T>);
}

} // namespace

BenchPeerList bench_peers() {
    return listed([](PeerList &made) {
        offer_all<float>(made);
        offer_all<double>(made);
    });
}
