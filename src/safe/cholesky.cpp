#include "objects.hpp"
#include "scale.hpp"

#include "../linalg/cholesky.hpp"

namespace zelm::safe {
namespace {

// Factors by the kernels of the array functions, whose diagonals are the reciprocals of L's. Their
// roots are sure within a wide range; an object with a diagonal element outside it is done again,
// brought there by a power of four.

template <class T>
inline constexpr int root_reach = Format<T>::reach / 2;

// Turns the diagonal of a factor into L's. Returns the lanes where it is in reach.
template <class S>
struct Diagonal {
    using T = ElementOf<S>;
    MaskOf<S> fine = splat<S>(0) == splat<S>(0);

    ZELM_INLINE void finish(S &r) {
        fine = fine & (r >= splat<S>(power<T>(-root_reach<T>))) &
               (r <= splat<S>(power<T>(root_reach<T>)));
        r = refined_reciprocal(r);
    }
};

template <class T>
MaskOf<Lanes<T>> factor_in_memory(Lanes<T> *a, int n, MaskOf<Lanes<T>> &failing) {
    using S = Lanes<T>;
    Diagonal<S> diagonal;
    failing = with_order<2, 6>(
        n,
        [&](auto N) {
            S f[N][N];
            unroll<N>(ZELM_EACH(i) { unroll<i + 1>(ZELM_EACH(j) { f[i][j] = a[i * N + j]; }); });
            const auto lanes = factor_cholesky<N>(f, [](int, int) {});
            unroll<N>(ZELM_EACH(i) { unroll<i + 1>(ZELM_EACH(j) { a[i * N + j] = f[i][j]; }); });
            return lanes;
        },
        [&] { return factor_cholesky<S>(a, n); });
    for (int i = 0; i < n; ++i)
        diagonal.finish(a[i * n + i]);
    return diagonal.fine;
}

template <class T, class A>
[[gnu::noinline]] void factor_rest(const A &a, int n, MaskOf<Lanes<T>> fine, Lanes<T> *y,
                                   Lanes<T> *f, int *statuses) {
    using S = Lanes<T>;
    load_objects(f, a, n, n);
    Extent<S> extent;
    for (int i = 0; i < n; ++i)
        for (int j = 0; j <= i; ++j)
            extent.note(f[i * n + j]);
    const Scale<T> scale(extent.largest);
    const auto odd = scale.exponent & 1;
    const S half = select(odd != 0, splat<S>(T(0.5)), splat<S>(1));
    const IndexOf<S> root = (odd - scale.exponent) >> 1; // of the inverse of the scale
    for (int i = 0; i < n; ++i)
        for (int j = 0; j <= i; ++j)
            f[i * n + j] = scale(f[i * n + j]) * half;
    MaskOf<S> failing;
    factor_in_memory<T>(f, n, failing);
    Extent<S> result;
    for (int i = 0; i < n; ++i)
        for (int j = 0; j <= i; ++j) {
            S &x = f[i * n + j];
            x = scaled<T>(x, root);
            result.note(x);
            y[i * n + j] = select(fine, y[i * n + j], x);
        }
    set_status(statuses, ~(fine | extent.finite()), zelmSafeNotFinite);
    set_status(statuses, ~fine & failing, zelStatusNotPositiveDefinite);
    set_status(statuses, ~(fine | result.finite()), zelmSafeOutOfRange);
    blank_failures(statuses, y, n * n);
}

template <class T>
int cholesky(const ZelmView &from, const ZelmView &to, int n, Distance count,
             ZelmStatusView status) {
    using S = Lanes<T>;
    constexpr int L = lanes_of<S>;
    const double order = n;
    const auto elements = static_cast<std::size_t>(n) * static_cast<std::size_t>(n);
    return finish_objects<L>(
        count, order * order * order / 6, 2 * elements * sizeof(S), status,
        [&](const Group &group, char *memory, int *statuses) {
            S *const y = reinterpret_cast<S *>(memory), *const scratch = y + elements;
            const auto a = group.objects<const T, L>(from);
            const auto l = group.objects<T, L>(to);
            const bool stored = with_order<2, 6>(
                n,
                [&](auto N) __attribute__((always_inline)) {
                    S f[N][N];
                    load_lanes<T, LowerTriangle>(f, a, 0);
                    const auto failing = factor_cholesky<N>(f, [](int, int) {});
                    Diagonal<S> diagonal;
                    unroll<N>(ZELM_EACH(i) {
                        diagonal.finish(f[i][i]);
                        unroll<i + 1, N>(ZELM_EACH(j) { f[i][j] = splat<S>(0); });
                    });
                    const MaskOf<S> fine = diagonal.fine & ~failing;
                    if (lane_bits(fine) == all_lanes<S>) [[likely]] {
                        store_lanes<T>(l, 0, f);
                        return true;
                    }
                    unroll<N * N>(ZELM_EACH(e) { y[e] = f[e / N][e % N]; });
                    factor_rest<T>(a, n, fine, y, scratch, statuses);
                    return false;
                },
                [&] {
                    load_objects(y, a, n, n);
                    MaskOf<S> failing;
                    const MaskOf<S> fine = factor_in_memory<T>(y, n, failing) & ~failing;
                    for (int i = 0; i < n; ++i)
                        for (int j = i + 1; j < n; ++j)
                            y[i * n + j] = splat<S>(0);
                    if (lane_bits(fine) != all_lanes<S>)
                        factor_rest<T>(a, n, fine, y, scratch, statuses);
                    return false;
                });
            if (!stored)
                store_objects(l, y, n, n);
        });
}

} // namespace
} // namespace zelm::safe

#define CHOLESKY(T, suffix)                                                                        \
    extern "C" int zelmSafeCholesky_##suffix(ZelmView a, ZelmView l, int order, ptrdiff_t count,   \
                                             ZelmStatusView status) {                              \
        using namespace zelm::safe;                                                                \
        if (const int wrong = first_wrong(count, {order}, a, l))                                   \
            return wrong;                                                                          \
        return cholesky<T>(a, l, order, count, status);                                            \
    }
CHOLESKY(float, 32f)
CHOLESKY(double, 64f)
