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

// The objects that need care, to y.
template <class T, class A>
[[gnu::noinline]] void factor_rest(const A &a, int n, Lanes<T> *y, Lanes<T> *residuals,
                                   int *statuses) {
    using S = Lanes<T>;
    load_objects(y, a, n, n);
    Extent<S> extent, result;
    auto *const root = reinterpret_cast<IndexOf<S> *>(residuals + n); // of each row's scale
    for (int i = 0; i < n; ++i)
        root[i] = Scale<T>(magnitude(y[i * n + i]), 1).exponent >> 1;
    for (int i = 0; i < n; ++i)
        for (int j = 0; j <= i; ++j) {
            S &x = y[i * n + j];
            extent.note(x);
            x = scaled<T>(x, root[i] + root[j]);
        }
    MaskOf<S> failing;
    factor_in_memory<T>(y, n, residuals, failing);
    for (int i = 0; i < n; ++i)
        for (int j = 0; j <= i; ++j) {
            S &x = y[i * n + j];
            x = scaled<T>(x, -root[i]);
            result.note(x);
        }
    set_status(statuses, ~extent.finite(), zelmSafeNotFinite);
    set_status(statuses, failing | ~result.finite(), zelStatusNotPositiveDefinite);
}
template <class S>
void clear_above_diagonal(S *y, int n) {
    for (int i = 0; i < n; ++i)
        for (int j = i + 1; j < n; ++j)
            y[i * n + j] = splat<S>(0);
}

// Two registers side by side: one's roots wait while the other works, as in the array functions.
template <class T>
using Pair = Interleaved<Lanes<T>, 2>;

// A group as it stands: returns the lanes that need no more care. If these are all, or `apart`, the
// factor is stored, else left in y, register by register.
template <int N, class T, class From, class To>
ZELM_INLINE unsigned try_order(const From &a, const To &l, bool apart, Lanes<T> *y) {
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
    if (fine == all_lanes<S> || apart) [[likely]]
        store_lanes<T>(l, 0, f);
    else
        unroll<2>(ZELM_EACH(r) {
            unroll<N * N>(ZELM_EACH(e) { y[r * N * N + e] = f[e / N][e % N].r[r]; });
        });
    return fine;
}
// Always left in y.
template <class T>
unsigned try_any_order(const Objects<const T, 2 * lanes_per_register<T>> &a, int n, Lanes<T> *y,
                       Lanes<T> *residuals) {
    using S = Lanes<T>;
    unsigned fine = 0;
    for (int r = 0; r < 2; ++r) {
        S *const f = y + r * n * n;
        MaskOf<S> failing;
        load_objects(f, a.template part<lanes_of<S>>(r * lanes_of<S>), n, n);
        const MaskOf<S> in_reach = factor_in_memory<T>(f, n, residuals, failing);
        fine |= lane_bits(in_reach & ~failing) << (r * lanes_of<S>);
        clear_above_diagonal(f, n);
    }
    return fine;
}

template <class T>
int cholesky(const ZelmView &from, const ZelmView &to, int n, Distance count,
             ZelmStatusView status) {
    using S = Lanes<T>;
    constexpr int L = lanes_of<S>;
    const double order = n;
    const auto elements = static_cast<std::size_t>(n) * static_cast<std::size_t>(n);
    const bool apart = are_apart(from, to);
    const bool dense = is_dense_view<T>(from, n, n) && is_dense_view<T>(to, n, n);
    return finish_objects<2 * L, L>(
        count, order * order * order / 6,
        (2 * elements + 2 * static_cast<std::size_t>(n)) * sizeof(S), status,
        [&](Group &group, int groups, char *memory) {
            S *const y = reinterpret_cast<S *>(memory);
            const auto store_halves = [&](const Group &g, unsigned fine) {
                const auto l = g.objects<T, 2 * L>(to);
                for (int r = 0; r < 2; ++r)
                    store_some(l.template part<L>(r * L), fine >> (r * L) & all_lanes<S>,
                               y + r * n * n, n, n);
            };
            const auto run = [&](const auto &trial) __attribute__((always_inline)) {
                return in_run<2 * L>(
                    group, groups, [&](const Group &g) __attribute__((always_inline)) {
                        const unsigned fine = trial(g);
                        if (fine != all_lanes<Pair<T>> && !apart) [[unlikely]]
                            store_halves(g, fine);
                        return fine;
                    });
            };
            return with_order<2, largest_straight_line_order>(
                n,
                [&](auto N) __attribute__((always_inline)) {
                    if (dense && group.live == 2 * L)
                        return run([&](const Group &g) __attribute__((always_inline)) {
                            return try_order<N, T>(g.dense<const T, N, N>(from),
                                                   g.dense<T, N, N>(to), apart, y);
                        });
                    return run([&](const Group &g) __attribute__((always_inline)) {
                        return try_order<N, T>(g.objects<const T, 2 * L>(from),
                                               g.objects<T, 2 * L>(to), apart, y);
                    });
                },
                [&] {
                    return in_run<2 * L>(group, groups, [&](const Group &g) {
                        const auto a = g.objects<const T, 2 * L>(from);
                        const unsigned fine = try_any_order<T>(a, n, y, y + 2 * elements);
                        store_halves(g, fine);
                        return fine;
                    });
                });
        },
        [&](const Group &group, char *memory, int *statuses) {
            S *const y = reinterpret_cast<S *>(memory);
            factor_rest<T>(group.objects<const T, L>(from), n, y, y + elements, statuses);
            clear_above_diagonal(y, n);
            blank_failures(statuses, y, n * n);
            store_objects(group.objects<T, L>(to), y, n, n);
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
