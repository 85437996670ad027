#include "objects.hpp"
#include "scale.hpp"

#include "../linalg/cholesky.hpp"

namespace zelm::safe {
namespace {

// Factors by the kernels of the array functions, whose diagonals are the reciprocals of L's. Their
// roots are sure within a wide range; an object with a diagonal element outside it is done again.
// Rows and columns are brought there by powers of two that make every diagonal element nearly 1:
// the digits are the same, and no element of a positive definite matrix is above 4 then.

template <class T>
inline constexpr int root_reach = Format<T>::reach / 2;

// The diagonal of a factor holds reciprocal roots of the residuals d. Turns r into L's element d *
// r; returns the lanes where it is in reach.
template <class S>
ZELM_INLINE MaskOf<S> finish_diagonal(S &r, const S &d) {
    using T = ElementOf<S>;
    const auto fine =
        (r >= splat<S>(power<T>(-root_reach<T>))) & (r <= splat<S>(power<T>(root_reach<T>)));
    r = d * r;
    return fine;
}

template <class T>
MaskOf<Lanes<T>> factor_in_memory(Lanes<T> *a, int n, Lanes<T> *residuals,
                                  MaskOf<Lanes<T>> &failing) {
    using S = Lanes<T>;
    const auto note = [&](int i, const S &d) { residuals[i] = d; };
    failing = with_order<2, largest_straight_line_order>(
        n,
        [&](auto N) {
            S f[N][N];
            unroll<N>(ZELM_EACH(i) { unroll<i + 1>(ZELM_EACH(j) { f[i][j] = a[i * N + j]; }); });
            const auto lanes = factor_cholesky<N>(
                f, [](int, int) {}, note);
            unroll<N>(ZELM_EACH(i) { unroll<i + 1>(ZELM_EACH(j) { a[i * N + j] = f[i][j]; }); });
            return lanes;
        },
        [&] { return factor_cholesky<S>(a, n, note); });
    MaskOf<S> fine = splat<S>(0) == splat<S>(0);
    for (int i = 0; i < n; ++i)
        fine = fine & finish_diagonal(a[i * n + i], residuals[i]);
    return fine;
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
    S *const residuals = f + n * n;
    auto *const root = reinterpret_cast<IndexOf<S> *>(residuals + n); // of each row's scale
    for (int i = 0; i < n; ++i)
        root[i] = Scale<T>(magnitude(f[i * n + i]), 1).exponent >> 1;
    for (int i = 0; i < n; ++i)
        for (int j = 0; j <= i; ++j)
            f[i * n + j] = scaled<T>(f[i * n + j], root[i] + root[j]);
    MaskOf<S> failing;
    factor_in_memory<T>(f, n, residuals, failing);
    Extent<S> result;
    for (int i = 0; i < n; ++i)
        for (int j = 0; j <= i; ++j) {
            S &x = f[i * n + j];
            x = scaled<T>(x, -root[i]);
            result.note(x);
            y[i * n + j] = select(fine, y[i * n + j], x);
        }
    set_status(statuses, ~(fine | extent.finite()), zelmSafeNotFinite);
    set_status(statuses, ~fine & (failing | ~result.finite()), zelStatusNotPositiveDefinite);
    blank_failures(statuses, y, n * n);
}

// Two registers side by side: one's roots wait while the other works, as in the array functions.
template <class T>
using Pair = Interleaved<Lanes<T>, 2>;

template <int N, class T, class From, class To>
ZELM_INLINE unsigned try_order(const From &a, const To &l, Lanes<T> *y) {
    using S = Pair<T>;
    S f[N][N];
    load_lanes<T, LowerTriangle>(f, a, 0);
    S residuals[N];
    const auto failing = factor_cholesky<N>(
        f, [](int, int) {},
        [&](int i, const S &d) __attribute__((always_inline)) { residuals[i] = d; });
    MaskOf<S> in_reach = splat<S>(0) == splat<S>(0);
    unroll<N>(ZELM_EACH(i) {
        in_reach = in_reach & finish_diagonal(f[i][i], residuals[i]);
        unroll<i + 1, N>(ZELM_EACH(j) { f[i][j] = splat<S>(0); });
    });
    const unsigned fine = lane_bits(in_reach) & ~lane_bits(failing);
    if (fine == all_lanes<S>) [[likely]]
        store_lanes<T>(l, 0, f);
    else
        unroll<2>(ZELM_EACH(r) {
            unroll<N * N>(ZELM_EACH(e) { y[r * N * N + e] = f[e / N][e % N].r[r]; });
        });
    return fine;
}

template <class T>
int cholesky(const ZelmView &from, const ZelmView &to, int n, Distance count,
             ZelmStatusView status) {
    using S = Lanes<T>;
    constexpr int L = lanes_of<S>;
    const double order = n;
    const auto elements = static_cast<std::size_t>(n) * static_cast<std::size_t>(n);
    return finish_objects<2 * L>(
        count, order * order * order / 6,
        (3 * elements + 2 * static_cast<std::size_t>(n)) * sizeof(S), status,
        [&](const Group &group, char *memory, int *statuses) {
            S *const y = reinterpret_cast<S *>(memory), *const scratch = y + 2 * elements;
            const auto a = group.objects<const T, 2 * L>(from);
            const auto l = group.objects<T, 2 * L>(to);
            bool tried = true;
            const unsigned fine = with_order<2, largest_straight_line_order>(
                n, [&](auto N) __attribute__((always_inline)) { return try_order<N, T>(a, l, y); },
                [&] {
                    tried = false;
                    return 0u;
                });
            if (fine == all_lanes<Pair<T>>) [[likely]]
                return false;
            bool failed = false;
            for (int r = 0; r < 2; ++r) {
                S *const result = y + r * n * n;
                const auto half = a.template part<L>(r * L);
                auto here = splat_lanes<S>(fine >> (r * L));
                if (!tried) {
                    load_objects(result, half, n, n);
                    MaskOf<S> failing;
                    here = factor_in_memory<T>(result, n, scratch, failing) & ~failing;
                    for (int i = 0; i < n; ++i)
                        for (int j = i + 1; j < n; ++j)
                            result[i * n + j] = splat<S>(0);
                }
                if (lane_bits(here) != all_lanes<S>) {
                    factor_rest<T>(half, n, here, result, scratch, statuses + r * L);
                    failed = true;
                }
            }
            // Last of all: a lane behind the last object has the address of one of the other half.
            for (int r = 0; r < 2; ++r)
                store_objects(l.template part<L>(r * L), y + r * n * n, n, n);
            return failed;
        });
}

} // namespace
} // namespace zelm::safe

#define CHOLESKY(T, suffix)                                                                        \
    extern "C" int zelmSafeCholesky_##suffix(ZelmView a, ZelmView l, int order, ptrdiff_t count,   \
                                             ZelmStatusView status) {                              \
        using namespace zelm::safe;                                                                \
        if (const int wrong = first_wrong(count, {order, order}, a, l))                            \
            return wrong;                                                                          \
        return cholesky<T>(a, l, order, count, status);                                            \
    }
CHOLESKY(float, 32f)
CHOLESKY(double, 64f)
