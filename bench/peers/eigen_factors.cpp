// Eigen's factorizations of sizes known at compile time, but for LU. "Eigen" stores by columns, as
// Eigen does of its own: symmetric matrices, inverses and determinants do not care, and of QR the
// memory is read so. "Eigen rows" stores by rows.
#include <Eigen/Cholesky>
#include <Eigen/Core>
#include <Eigen/LU>
#include <Eigen/QR>

#include "peer_list.hpp"

namespace {

using Eigen::Dynamic;

template <class T, int R, int C>
using Rows = Eigen::Matrix<T, R, C, R == 1 || C != 1 ? Eigen::RowMajor : Eigen::ColMajor>;
template <class T, int N>
using Columns = Eigen::Matrix<T, N, N, Eigen::ColMajor>;
template <class T, int N>
using Vector = Eigen::Matrix<T, N, 1>;

template <class T, int N>
auto map(const BenchOperand &operand, int n) {
    using Strides = Eigen::Stride<Dynamic, Dynamic>;
    return Eigen::Map<Rows<T, N, N>, Eigen::Unaligned, Strides>(
        object_at<T>(operand, n),
        Strides(in_elements<T>(operand.row), in_elements<T>(operand.element)));
}

template <class Matrix>
void cholesky(const BenchProblem *p) {
    const auto *a = objects<Matrix>(p->a);
    auto *c = results<Matrix>(p->c);
    for (int n = 0; n < p->count; ++n)
        c[n] = a[n].llt().matrixLLT();
}

template <class T, int N>
void cholesky_strided(const BenchProblem *p) {
    for (int n = 0; n < p->count; ++n) {
        const Eigen::LLT<Rows<T, N, N>> factor(map<T, N>(p->a, n));
        map<T, N>(p->c, n) = factor.matrixLLT();
    }
}

template <class T, int N, class Matrix>
void cholesky_solve(const BenchProblem *p) {
    const auto *a = objects<Matrix>(p->a);
    const auto *b = objects<Vector<T, N>>(p->b);
    auto *c = results<Vector<T, N>>(p->c);
    for (int n = 0; n < p->count; ++n)
        c[n] = a[n].llt().solve(b[n]);
}

template <class Matrix>
void invert(const BenchProblem *p) {
    const auto *a = objects<Matrix>(p->a);
    auto *c = results<Matrix>(p->c);
    for (int n = 0; n < p->count; ++n)
        c[n] = a[n].inverse();
}

template <class T, int N>
void invert_strided(const BenchProblem *p) {
    for (int n = 0; n < p->count; ++n) {
        const Rows<T, N, N> a = map<T, N>(p->a, n);
        const Rows<T, N, N> inverse = a.inverse(); // of order 4 it is written without strides
        map<T, N>(p->c, n) = inverse;
    }
}

template <class T, class Matrix>
void determinant(const BenchProblem *p) {
    const auto *a = objects<Matrix>(p->a);
    auto *c = results<T>(p->c);
    for (int n = 0; n < p->count; ++n)
        c[n] = a[n].determinant();
}

template <class Matrix>
void qr(const BenchProblem *p) {
    const auto *a = objects<Matrix>(p->a);
    auto *c = results<Matrix>(p->c);
    for (int n = 0; n < p->count; ++n)
        c[n] = a[n].householderQr().matrixQR();
}

template <class T, int H, int W>
void qr_solve(const BenchProblem *p) {
    const auto *a = objects<Rows<T, H, W>>(p->a);
    const auto *b = objects<Vector<T, H>>(p->b);
    auto *c = results<Vector<T, W>>(p->c);
    for (int n = 0; n < p->count; ++n)
        c[n] = a[n].householderQr().solve(b[n]);
}

template <class T, int H, int W>
void offer_qr(PeerList &list) {
    constexpr PeerShape shape = {H, W, W};
    using Columns = Eigen::Matrix<T, H, W, Eigen::ColMajor>;
    list.offer<T>("Eigen", bench_qr, shape, bench_packed, qr<Columns>, bench_factor_by_columns);
    list.offer<T>("Eigen rows", bench_qr, shape, bench_packed, qr<Rows<T, H, W>>);
    list.offer<T>("Eigen rows", bench_qr_solve, shape, bench_packed, qr_solve<T, H, W>);
}

template <class T>
void offer_all(PeerList &list) {
    for_orders<3, 4, 5, 6, 8, 16>([&](auto n) {
        const PeerShape shape = square(n);
        list.offer<T>("Eigen", bench_cholesky, shape, bench_packed, cholesky<Columns<T, n>>,
                      bench_factor_by_columns);
        list.offer<T>("Eigen rows", bench_cholesky, shape, bench_packed, cholesky<Rows<T, n, n>>,
                      bench_factor);
        list.offer<T>("Eigen", bench_cholesky_solve, shape, bench_packed,
                      cholesky_solve<T, n, Columns<T, n>>);
        list.offer<T>("Eigen", bench_invert, shape, bench_packed, invert<Columns<T, n>>);
    });
    for_orders<3, 4, 6, 8>([&](auto n) {
        list.offer<T>("Eigen", bench_det, square(n), bench_packed, determinant<T, Columns<T, n>>);
    });
    for_orders<3, 4>([&](auto n) {
        list.offer<T>("Eigen", bench_cholesky, square(n), bench_strided, cholesky_strided<T, n>,
                      bench_factor);
        list.offer<T>("Eigen", bench_invert, square(n), bench_strided, invert_strided<T, n>);
    });
    offer_qr<T, 4, 4>(list);
    offer_qr<T, 6, 6>(list);
    offer_qr<T, 8, 4>(list);
}

} // namespace

BenchPeerList bench_peers() {
    return listed([](PeerList &made) {
        offer_all<float>(made);
        offer_all<double>(made);
    });
}
