// Eigen with sizes known at compile time. Packed objects are arrays of Eigen matrices, other memory
// is mapped. "Eigen" uses the storage order that is Eigen's own, by columns: the memory then holds
// transposes, and the work is turned round so that the result is the same. "Eigen rows" stores by
// rows.
#include <Eigen/Core>
#include <Eigen/LU>

#include "peer_list.hpp"

namespace {

using Eigen::Dynamic;

template <class T, int R, int C>
using Rows = Eigen::Matrix<T, R, C, R == 1 || C != 1 ? Eigen::RowMajor : Eigen::ColMajor>;
template <class T, int N>
using Columns = Eigen::Matrix<T, N, N, Eigen::ColMajor>;
template <class T, int N>
using Vector = Eigen::Matrix<T, N, 1>;

template <class T, int R, int C>
void add(const BenchProblem *p) {
    const auto *a = objects<Rows<T, R, C>>(p->a);
    const auto *b = objects<Rows<T, R, C>>(p->b);
    auto *c = results<Rows<T, R, C>>(p->c);
    for (int n = 0; n < p->count; ++n)
        c[n] = a[n] + b[n];
}

template <class T>
void add_flat(const BenchProblem *p) {
    using Flat = Eigen::Array<T, Dynamic, 1>;
    const Eigen::Index size = Eigen::Index{p->count} * p->rows * p->columns;
    Eigen::Map<Flat>(results<T>(p->c), size) = Eigen::Map<const Flat>(objects<T>(p->a), size) +
                                               Eigen::Map<const Flat>(objects<T>(p->b), size);
}

template <class T, int R, int C>
auto map(const BenchOperand &operand, int n) {
    using Strides = Eigen::Stride<Dynamic, Dynamic>;
    return Eigen::Map<Rows<T, R, C>, Eigen::Unaligned, Strides>(
        object_at<T>(operand, n),
        Strides(in_elements<T>(operand.row), in_elements<T>(operand.element)));
}

template <class T, int R, int C>
auto map_dense(const BenchOperand &operand, int n) {
    using Strides = Eigen::OuterStride<>;
    return Eigen::Map<Rows<T, R, C>, Eigen::Unaligned, Strides>(
        object_at<T>(operand, n), Strides(in_elements<T>(operand.row)));
}

template <class T, int R, int C>
void add_strided(const BenchProblem *p) {
    for (int n = 0; n < p->count; ++n)
        map<T, R, C>(p->c, n) = map<T, R, C>(p->a, n) + map<T, R, C>(p->b, n);
}

template <class T, int R, int C>
void add_padded(const BenchProblem *p) {
    for (int n = 0; n < p->count; ++n)
        map_dense<T, R, C>(p->c, n) = map_dense<T, R, C>(p->a, n) + map_dense<T, R, C>(p->b, n);
}

template <class T, int N, bool SingleA, bool SingleB>
void mul(const BenchProblem *p) {
    const auto *a = objects<Columns<T, N>>(p->a);
    const auto *b = objects<Columns<T, N>>(p->b);
    auto *c = results<Columns<T, N>>(p->c);
    for (int n = 0; n < p->count; ++n)
        c[n].noalias() = b[SingleB ? 0 : n] * a[SingleA ? 0 : n];
}

template <class T, int N, bool SingleA, bool SingleB>
void mul_rows(const BenchProblem *p) {
    const auto *a = objects<Rows<T, N, N>>(p->a);
    const auto *b = objects<Rows<T, N, N>>(p->b);
    auto *c = results<Rows<T, N, N>>(p->c);
    for (int n = 0; n < p->count; ++n)
        c[n].noalias() = a[SingleA ? 0 : n] * b[SingleB ? 0 : n];
}

template <class T, int N>
void mul_strided(const BenchProblem *p) {
    for (int n = 0; n < p->count; ++n)
        map<T, N, N>(p->c, n).noalias() = map<T, N, N>(p->a, n) * map<T, N, N>(p->b, n);
}

template <class T, int N, class Matrix>
void mul_vector(const BenchProblem *p) {
    const auto *a = objects<Matrix>(p->a);
    const auto *b = objects<Vector<T, N>>(p->b);
    auto *c = results<Vector<T, N>>(p->c);
    for (int n = 0; n < p->count; ++n)
        c[n].noalias() = a[n] * b[n];
}

template <int N, class Matrix>
void lu(const BenchProblem *p) {
    const auto *a = objects<Matrix>(p->a);
    auto *c = results<Matrix>(p->c);
    auto *index = reinterpret_cast<Eigen::Matrix<int, N, 1> *>(p->index);
    for (int n = 0; n < p->count; ++n) {
        const Eigen::PartialPivLU<Matrix> factors(a[n]);
        c[n] = factors.matrixLU();
        index[n] = factors.permutationP().indices();
    }
}

template <class T, int N>
void lu_strided(const BenchProblem *p) {
    auto *index = reinterpret_cast<Eigen::Matrix<int, N, 1> *>(p->index);
    for (int n = 0; n < p->count; ++n) {
        const Eigen::PartialPivLU<Rows<T, N, N>> factors(map<T, N, N>(p->a, n));
        map<T, N, N>(p->c, n) = factors.matrixLU();
        index[n] = factors.permutationP().indices();
    }
}

template <class T, int N>
void lu_solve(const BenchProblem *p) {
    const auto *a = objects<Columns<T, N>>(p->a);
    const auto *b = objects<Vector<T, N>>(p->b);
    auto *c = results<Vector<T, N>>(p->c);
    for (int n = 0; n < p->count; ++n)
        c[n] = a[n].partialPivLu().transpose().solve(b[n]);
}

template <class T, int N>
void lu_solve_rows(const BenchProblem *p) {
    const auto *a = objects<Rows<T, N, N>>(p->a);
    const auto *b = objects<Vector<T, N>>(p->b);
    auto *c = results<Vector<T, N>>(p->c);
    for (int n = 0; n < p->count; ++n)
        c[n] = a[n].partialPivLu().solve(b[n]);
}

template <class T, int R, int C>
void offer_sums(PeerList &list) {
    constexpr PeerShape shape = sum(R, C);
    list.offer<T>("Eigen", bench_add, shape, bench_packed, add<T, R, C>);
    list.offer<T>("Eigen flat", bench_add, shape, bench_packed, add_flat<T>);
    list.offer<T>("Eigen flat", bench_add, shape, bench_planar, add_flat<T>);
    list.offer<T>("Eigen", bench_add, shape, bench_padded, add_padded<T, R, C>);
    list.offer<T>("Eigen", bench_add, shape, bench_gaps, add_strided<T, R, C>);
}

template <class T, int N>
void offer_products(PeerList &list) {
    constexpr PeerShape shape = square(N);
    list.offer<T>("Eigen", bench_mul, shape, bench_packed, mul<T, N, false, false>);
    list.offer<T>("Eigen", bench_mul_mam, shape, bench_packed, mul<T, N, false, true>);
    list.offer<T>("Eigen", bench_mul_mma, shape, bench_packed, mul<T, N, true, false>);
    list.offer<T>("Eigen rows", bench_mul, shape, bench_packed, mul_rows<T, N, false, false>);
    list.offer<T>("Eigen rows", bench_mul_mam, shape, bench_packed, mul_rows<T, N, false, true>);
    list.offer<T>("Eigen rows", bench_mul_mma, shape, bench_packed, mul_rows<T, N, true, false>);
}

template <class T>
void offer_all(PeerList &list) {
    for_orders<3, 4, 6>([&](auto n) {
        offer_sums<T, n, n>(list);
        offer_sums<T, 1, n>(list);
        list.offer<T>("Eigen rows", bench_mul_vector, matrix_vector(n), bench_packed,
                      mul_vector<T, n, Rows<T, n, n>>);
        list.offer<T>("Eigen", bench_mul_vector, matrix_vector(n), bench_columns,
                      mul_vector<T, n, Columns<T, n>>);
        list.offer<T>("Eigen", bench_mul, square(n), bench_strided, mul_strided<T, n>);
        list.offer<T>("Eigen", bench_lu, square(n), bench_strided, lu_strided<T, n>,
                      bench_pivots_inverse);
    });
    for_orders<3, 4, 5, 6, 8>([&](auto n) { offer_products<T, n>(list); });
    for_orders<3, 4, 5, 6, 8, 16>([&](auto n) {
        const PeerShape shape = square(n);
        list.offer<T>("Eigen", bench_lu, shape, bench_packed, lu<n, Columns<T, n>>,
                      bench_pivots_inverse_of_at);
        list.offer<T>("Eigen rows", bench_lu, shape, bench_packed, lu<n, Rows<T, n, n>>,
                      bench_pivots_inverse);
        list.offer<T>("Eigen", bench_lu_solve, shape, bench_packed, lu_solve<T, n>);
        list.offer<T>("Eigen rows", bench_lu_solve, shape, bench_packed, lu_solve_rows<T, n>);
    });
}

} // namespace

BenchPeerList bench_peers() {
    return listed([](PeerList &made) {
        offer_all<float>(made);
        offer_all<double>(made);
    });
}
