// Eigen's iterative solvers of eigenproblems, on matrices of Eigen's own storage order. A module of
// its own: it takes the compiler minutes.
#include <Eigen/Eigenvalues>

#include "peer_list.hpp"

namespace {

template <class T, int N>
using Rows = Eigen::Matrix<T, N, N, Eigen::RowMajor>;
template <class T, int N>
using Columns = Eigen::Matrix<T, N, N, Eigen::ColMajor>;
template <class T, int N>
using Vector = Eigen::Matrix<T, N, 1>;

template <class T, int N, bool Vectors>
void symmetric(const BenchProblem *p) {
    const auto *a = objects<Columns<T, N>>(p->a);
    auto *values = results<Vector<T, N>>(Vectors ? p->b : p->c);
    for (int n = 0; n < p->count; ++n) {
        const Eigen::SelfAdjointEigenSolver<Columns<T, N>> solver(
            a[n], Vectors ? Eigen::ComputeEigenvectors : Eigen::EigenvaluesOnly);
        values[n] = solver.eigenvalues();
        if constexpr (Vectors)
            results<Rows<T, N>>(p->c)[n] = solver.eigenvectors();
    }
}

template <class T, int N, bool Vectors>
void general(const BenchProblem *p) {
    const auto *a = objects<Rows<T, N>>(p->a);
    auto *re = results<Vector<T, N>>(Vectors ? p->b : p->c);
    auto *im = results<Vector<T, N>>(p->factors);
    for (int n = 0; n < p->count; ++n) {
        const Eigen::EigenSolver<Columns<T, N>> solver(Columns<T, N>(a[n]), Vectors);
        re[n] = solver.eigenvalues().real();
        im[n] = solver.eigenvalues().imag();
        if constexpr (Vectors)
            results<Rows<T, N>>(p->c)[n] = solver.pseudoEigenvectors();
    }
}

template <class T>
void offer_all(PeerList &list) {
    for_orders<3, 4, 6, 8>([&](auto n) {
        list.offer<T>("Eigen", bench_symmetric, square(n), bench_packed, symmetric<T, n, true>);
        list.offer<T>("Eigen", bench_symmetric_values, square(n), bench_packed,
                      symmetric<T, n, false>);
    });
    for_orders<3, 4, 6>([&](auto n) {
        list.offer<T>("Eigen", bench_right_vectors, square(n), bench_packed, general<T, n, true>);
        list.offer<T>("Eigen", bench_general_values, square(n), bench_packed, general<T, n, false>);
    });
}

} // namespace

BenchPeerList bench_peers() {
    return listed([](PeerList &made) {
        offer_all<float>(made);
        offer_all<double>(made);
    });
}
