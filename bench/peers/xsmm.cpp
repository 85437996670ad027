// LIBXSMM writes its kernels at run time for a target that belongs to the process, so each build
// links a copy of its own. It stores by columns: memory with rows holds the transposes, and the
// factors change places.
#include <libxsmm.h>

#include "peer_list.hpp"

namespace {

template <class T>
auto dispatch(int m, int n, int k) {
    const T alpha = 1, beta = 0;
    const int flags = LIBXSMM_GEMM_FLAG_NONE | LIBXSMM_GEMM_FLAG_BETA_0;
    if constexpr (sizeof(T) == 4)
        return libxsmm_smmdispatch(m, n, k, &m, &k, &m, &alpha, &beta, &flags, nullptr);
    else
        return libxsmm_dmmdispatch(m, n, k, &m, &k, &m, &alpha, &beta, &flags, nullptr);
}

template <class T, int Rows, int Inner, int Columns, bool SingleA, bool SingleB>
void mul(const BenchProblem *p) {
    static const auto kernel = dispatch<T>(Columns, Rows, Inner);
    for (int n = 0; n < p->count; ++n)
        kernel(object_at<const T>(p->b, SingleB ? 0 : n), object_at<const T>(p->a, SingleA ? 0 : n),
               object_at<T>(p->c, n));
}

template <class T, int N>
void mul_vector_by_columns(const BenchProblem *p) {
    static const auto kernel = dispatch<T>(N, 1, N);
    for (int n = 0; n < p->count; ++n)
        kernel(object_at<const T>(p->a, n), object_at<const T>(p->b, n), object_at<T>(p->c, n));
}

template <class T>
void offer_all(PeerList &list) {
    for_orders<3, 4, 5, 6, 8>([&](auto n) {
        if (!dispatch<T>(n, n, n))
            return;
        list.offer<T>("LIBXSMM", bench_mul, square(n), bench_packed, mul<T, n, n, n, false, false>);
        list.offer<T>("LIBXSMM", bench_mul_mam, square(n), bench_packed,
                      mul<T, n, n, n, false, true>);
        list.offer<T>("LIBXSMM", bench_mul_mma, square(n), bench_packed,
                      mul<T, n, n, n, true, false>);
    });
    for_orders<3, 4, 6>([&](auto n) {
        if (dispatch<T>(1, n, n))
            list.offer<T>("LIBXSMM", bench_mul_vector, matrix_vector(n), bench_packed,
                          mul<T, n, n, 1, false, false>);
        if (dispatch<T>(n, 1, n))
            list.offer<T>("LIBXSMM", bench_mul_vector, matrix_vector(n), bench_columns,
                          mul_vector_by_columns<T, n>);
    });
}

} // namespace

BenchPeerList bench_peers() {
    return listed([](PeerList &made) {
        libxsmm_init();
#ifdef BENCH_SSE
        libxsmm_set_target_archid(LIBXSMM_X86_SSE4);
#endif
        offer_all<float>(made);
        offer_all<double>(made);
    });
}
