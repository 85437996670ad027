// OpenBLAS, linked statically so that each build has a copy of its own: the kernels are chosen when
// a copy is loaded, by OPENBLAS_CORETYPE. LAPACK stores by columns: memory with rows holds the
// transpose, and the solve is asked for the transposed system.
#include <algorithm>

#include <cblas.h>
#include <lapack.h>

#include "peer_list.hpp"

namespace {

template <class T, bool SingleA, bool SingleB>
void mul(const BenchProblem *p) {
    const int m = p->rows, k = p->inner, n = p->columns;
    for (int i = 0; i < p->count; ++i) {
        const T *a = object_at<const T>(p->a, SingleA ? 0 : i);
        const T *b = object_at<const T>(p->b, SingleB ? 0 : i);
        T *c = object_at<T>(p->c, i);
        if constexpr (sizeof(T) == 4)
            cblas_sgemm(CblasRowMajor, CblasNoTrans, CblasNoTrans, m, n, k, 1, a, k, b, n, 0, c, n);
        else
            cblas_dgemm(CblasRowMajor, CblasNoTrans, CblasNoTrans, m, n, k, 1, a, k, b, n, 0, c, n);
    }
}

template <class T, CBLAS_ORDER Order>
void mul_vector(const BenchProblem *p) {
    const int n = p->rows;
    for (int i = 0; i < p->count; ++i) {
        const T *a = object_at<const T>(p->a, i);
        const T *b = object_at<const T>(p->b, i);
        T *c = object_at<T>(p->c, i);
        if constexpr (sizeof(T) == 4)
            cblas_sgemv(Order, CblasNoTrans, n, n, 1, a, n, b, 1, 0, c, 1);
        else
            cblas_dgemv(Order, CblasNoTrans, n, n, 1, a, n, b, 1, 0, c, 1);
    }
}

template <class T>
void factor(int n, T *a, int *pivots) {
    int info = 0;
    if constexpr (sizeof(T) == 4)
        LAPACK_sgetrf(&n, &n, a, &n, pivots, &info);
    else
        LAPACK_dgetrf(&n, &n, a, &n, pivots, &info);
}

template <class T>
void lu(const BenchProblem *p) {
    const int n = p->rows;
    for (int i = 0; i < p->count; ++i) {
        const T *a = object_at<const T>(p->a, i);
        T *c = object_at<T>(p->c, i);
        std::copy(a, a + n * n, c);
        factor(n, c, p->index + std::ptrdiff_t{i} * n);
    }
}

template <class T>
void lu_solve(const BenchProblem *p) {
    constexpr int largest = 16;
    T factors[largest * largest];
    int pivots[largest];
    const int n = p->rows, one = 1;
    int info = 0;
    for (int i = 0; i < p->count; ++i) {
        const T *a = object_at<const T>(p->a, i);
        const T *b = object_at<const T>(p->b, i);
        T *c = object_at<T>(p->c, i);
        std::copy(a, a + n * n, factors);
        std::copy(b, b + n, c);
        factor(n, factors, pivots);
        if constexpr (sizeof(T) == 4)
            LAPACK_sgetrs("T", &n, &one, factors, &n, pivots, c, &n, &info);
        else
            LAPACK_dgetrs("T", &n, &one, factors, &n, pivots, c, &n, &info);
    }
}

// Of the lower triangle in rows, the upper one in columns.
template <class T>
void factor_definite(int n, T *a) {
    int info = 0;
    if constexpr (sizeof(T) == 4)
        LAPACK_spotrf("U", &n, a, &n, &info);
    else
        LAPACK_dpotrf("U", &n, a, &n, &info);
}

template <class T>
void cholesky(const BenchProblem *p) {
    const int n = p->rows;
    for (int i = 0; i < p->count; ++i) {
        const T *a = object_at<const T>(p->a, i);
        T *c = object_at<T>(p->c, i);
        std::copy(a, a + n * n, c);
        factor_definite(n, c);
    }
}

template <class T>
void cholesky_solve(const BenchProblem *p) {
    constexpr int largest = 16;
    T factors[largest * largest];
    const int n = p->rows, one = 1;
    int info = 0;
    for (int i = 0; i < p->count; ++i) {
        const T *a = object_at<const T>(p->a, i);
        const T *b = object_at<const T>(p->b, i);
        T *c = object_at<T>(p->c, i);
        std::copy(a, a + n * n, factors);
        std::copy(b, b + n, c);
        factor_definite(n, factors);
        if constexpr (sizeof(T) == 4)
            LAPACK_spotrs("U", &n, &one, factors, &n, c, &n, &info);
        else
            LAPACK_dpotrs("U", &n, &one, factors, &n, c, &n, &info);
    }
}

template <class T>
void invert(const BenchProblem *p) {
    constexpr int largest = 16, room = 64 * largest;
    T work[room];
    int pivots[largest];
    const int n = p->rows;
    int info = 0;
    for (int i = 0; i < p->count; ++i) {
        const T *a = object_at<const T>(p->a, i);
        T *c = object_at<T>(p->c, i);
        std::copy(a, a + n * n, c);
        factor(n, c, pivots);
        if constexpr (sizeof(T) == 4)
            LAPACK_sgetri(&n, c, &n, pivots, work, &room, &info);
        else
            LAPACK_dgetri(&n, c, &n, pivots, work, &room, &info);
    }
}

template <class T>
void dot(const BenchProblem *p) {
    const int n = p->columns;
    for (int i = 0; i < p->count; ++i) {
        const T *a = object_at<const T>(p->a, i);
        const T *b = object_at<const T>(p->b, i);
        if constexpr (sizeof(T) == 4)
            results<T>(p->c)[i] = cblas_sdot(n, a, 1, b, 1);
        else
            results<T>(p->c)[i] = cblas_ddot(n, a, 1, b, 1);
    }
}

template <class T>
void norm(const BenchProblem *p) {
    const int n = p->rows * p->columns;
    for (int i = 0; i < p->count; ++i) {
        const T *a = object_at<const T>(p->a, i);
        if constexpr (sizeof(T) == 4)
            results<T>(p->c)[i] = cblas_snrm2(n, a, 1);
        else
            results<T>(p->c)[i] = cblas_dnrm2(n, a, 1);
    }
}

template <class T>
void transpose(const BenchProblem *p) {
    const int rows = p->rows, columns = p->columns;
    for (int i = 0; i < p->count; ++i) {
        const T *a = object_at<const T>(p->a, i);
        T *c = object_at<T>(p->c, i);
        if constexpr (sizeof(T) == 4)
            cblas_somatcopy(CblasRowMajor, CblasTrans, rows, columns, 1, a, columns, c, rows);
        else
            cblas_domatcopy(CblasRowMajor, CblasTrans, rows, columns, 1, a, columns, c, rows);
    }
}

template <class T>
void offer_all(PeerList &list) {
    for (int n : {3, 4, 5, 6, 8}) {
        list.offer<T>("OpenBLAS", bench_mul, square(n), bench_packed, mul<T, false, false>);
        list.offer<T>("OpenBLAS", bench_mul_mam, square(n), bench_packed, mul<T, false, true>);
        list.offer<T>("OpenBLAS", bench_mul_mma, square(n), bench_packed, mul<T, true, false>);
        list.offer<T>("OpenBLAS", bench_mul_vector, matrix_vector(n), bench_packed,
                      mul_vector<T, CblasRowMajor>);
        list.offer<T>("OpenBLAS", bench_mul_vector, matrix_vector(n), bench_columns,
                      mul_vector<T, CblasColMajor>);
    }
    for (int n : {3, 4, 64}) {
        list.offer<T>("OpenBLAS", bench_dot, sum(1, n), bench_packed, dot<T>);
        list.offer<T>("OpenBLAS", bench_norm, sum(1, n), bench_packed, norm<T>);
    }
    list.offer<T>("OpenBLAS", bench_norm, sum(4, 4), bench_packed, norm<T>);
    for (int n : {3, 4, 512, 1000, 2048})
        list.offer<T>("OpenBLAS", bench_transpose, sum(n, n), bench_packed, transpose<T>);
    for (int n : {3, 4, 5, 6, 8, 16}) {
        list.offer<T>("LAPACK", bench_lu, square(n), bench_packed, lu<T>, bench_pivots_swaps_of_at);
        list.offer<T>("LAPACK", bench_lu_solve, square(n), bench_packed, lu_solve<T>);
        list.offer<T>("LAPACK", bench_cholesky, square(n), bench_packed, cholesky<T>, bench_factor);
        list.offer<T>("LAPACK", bench_cholesky_solve, square(n), bench_packed, cholesky_solve<T>);
        list.offer<T>("LAPACK", bench_invert, square(n), bench_packed, invert<T>);
    }
}

} // namespace

BenchPeerList bench_peers() {
    return listed([](PeerList &made) {
        offer_all<float>(made);
        offer_all<double>(made);
    });
}
