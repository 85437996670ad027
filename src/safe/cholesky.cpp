#include "objects.hpp"
#include "scale.hpp"

#include "../linalg/cholesky.hpp"

namespace zelm::safe {
namespace {

// Factors by the kernels of the array functions, whose diagonals are the reciprocals of L's. Their
// roots are sure within a wide range; an object with a diagonal element outside it is done again.
// Rows and columns are brought there by powers of two that make every diagonal element nearly 1:
// the digits are the same, and no element of a positive definite matrix is above 4 then.

// The residuals of a factor's diagonal: whether their roots are sure. Once one is NaN the last one
// is.
template <class S>
class Residuals {
public:
    using T = ElementOf<S>;

    ZELM_INLINE void note(const S &d) {
        smallest_ = smaller(d, smallest_);
        largest_ = larger(d, largest_);
        last_ = d;
    }
    ZELM_INLINE MaskOf<S> fine() const {
        constexpr int reach = Format<T>::reach;
        return (smallest_ >= splat<S>(power<T>(-reach))) & (largest_ <= splat<S>(power<T>(reach))) &
               (last_ == last_);
    }

private:
    S smallest_ = splat<S>(std::numeric_limits<T>::infinity()), largest_ = splat<S>(0), last_;
};

// Factors the lower triangle of a; the diagonal becomes L's. Returns the lanes with a residual that
// is not positive.
template <int N, class S>
ZELM_INLINE MaskOf<S> factor_order(S (&a)[N][N], Residuals<S> &residuals) {
    S d[N];
    const MaskOf<S> failing = factor_cholesky<N>(
        a, [](int, int) {},
        [&](int i, const S &x) __attribute__((always_inline)) {
            d[i] = x;
            residuals.note(x);
        });
    unroll<N>(ZELM_EACH(i) { a[i][i] = d[i] * a[i][i]; });
    return failing;
}
// The same of n x n registers; d: n of scratch.
template <class T>
MaskOf<Lanes<T>> factor_in_memory(Lanes<T> *a, int n, Lanes<T> *d, Residuals<Lanes<T>> &residuals) {
    using S = Lanes<T>;
    return with_order<2, largest_straight_line_order>(
        n,
        [&](auto N) {
            S f[N][N];
            unroll<N>(ZELM_EACH(i) { unroll<i + 1>(ZELM_EACH(j) { f[i][j] = a[i * N + j]; }); });
            const MaskOf<S> failing = factor_order(f, residuals);
            unroll<N>(ZELM_EACH(i) { unroll<i + 1>(ZELM_EACH(j) { a[i * N + j] = f[i][j]; }); });
            return failing;
        },
        [&] {
            const MaskOf<S> failing =
                factor_cholesky<S>(a, n, [&](int i, const S &x) { d[i] = x; });
            Residuals<S> r;
            for (int i = 0; i < n; ++i) {
                r.note(d[i]);
                a[i * n + i] = d[i] * a[i * n + i];
            }
            residuals = r;
            return failing;
        });
}

// The objects that need care: their lower triangles, to y.
template <class T, class A>
[[gnu::noinline]] void factor_rest(const A &a, int n, Lanes<T> *y, Lanes<T> *scratch,
                                   int *statuses) {
    using S = Lanes<T>;
    load_objects<LowerRuns<T>>(y, a, n, n);
    const auto each = [&](const auto &f) {
        for (int i = 0; i < n; ++i)
            for (int j = 0; j <= i; ++j)
                f(i, j, y[i * n + j]);
    };
    auto *const root = reinterpret_cast<IndexOf<S> *>(scratch + n); // of each row's scale
    for (int i = 0; i < n; ++i)
        root[i] = Scale<T>(magnitude(y[i * n + i]), 1).exponent >> 1;
    Extent<S> extent, result;
    each([&](int i, int j, S &x) {
        extent.note(x);
        x = scaled<T>(x, root[i] + root[j]);
    });
    Residuals<S> residuals;
    const MaskOf<S> failing = factor_in_memory<T>(y, n, scratch, residuals);
    each([&](int i, int, S &x) {
        x = scaled<T>(x, -root[i]);
        result.note(x);
    });
    set_status(statuses, ~extent.finite(), zelmSafeNotFinite);
    set_status(statuses, failing | ~result.finite(), zelStatusNotPositiveDefinite);
}

// A group as it stands: returns the lanes that need no more care. If these are all, or `apart`, the
// factor is stored, else left in y, register by register. S is one register or several.
template <int N, class S, class From, class To>
ZELM_INLINE unsigned try_order(const From &a, const To &l, bool apart, Lanes<ElementOf<S>> *y) {
    using T = ElementOf<S>;
    S f[N][N];
    Residuals<S> residuals;
    load_lanes<T, LowerTriangle>(f, a, 0);
    factor_order(f, residuals);
    unroll<N>(ZELM_EACH(i) { unroll<i + 1, N>(ZELM_EACH(j) { f[i][j] = splat<S>(0); }); });
    const unsigned fine = lane_bits(residuals.fine());
    if (fine == all_lanes<S> || apart) [[likely]]
        store_lanes<T>(l, 0, f);
    else
        unroll<lanes_of<S> / lanes_per_register<T>>(ZELM_EACH(r) {
            unroll<N * N>(ZELM_EACH(e) {
                if constexpr (std::is_same_v<S, Lanes<T>>)
                    y[e] = f[e / N][e % N];
                else
                    y[r * N * N + e] = f[e / N][e % N].r[r];
            });
        });
    return fine;
}

// Zeros above the diagonal.
template <class S>
void clear_above(S *a, int n) {
    for (int i = 0; i < n; ++i)
        for (int j = i + 1; j < n; ++j) {
            a[i * n + j] = splat<S>(0);
            __asm__ volatile(""); // or each row becomes a call of memset
        }
}

template <class T>
struct Call {
    ZelmView from, to;
    int n;
};

// Stores the lanes of `fine` from y, register by register: after all of the group has been read.
template <int registers, class T>
void store_registers(const Call<T> &call, const Group &group, unsigned fine, Lanes<T> *y) {
    constexpr int L = lanes_per_register<T>;
    const int n = call.n;
    const auto l = group.objects<T, registers * L>(call.to);
    for (int r = 0; r < registers; ++r)
        store_some<LowerElements>(l.template part<L>(r * L), fine >> (r * L) & all_lanes<Lanes<T>>,
                                  y + r * n * n, n, n);
}

// Runs of groups, as in_run says. Dense objects go by two registers side by side, where one's roots
// wait while the other works, as in the array functions.
template <int registers>
inline constexpr bool for_dense = registers == 2;

template <int N, int registers, class T>
ZELM_INLINE unsigned try_run(const Call<T> &call, Group &group, int groups, Lanes<T> *y) {
    constexpr int L = registers * lanes_per_register<T>;
    using S = std::conditional_t<registers == 1, Lanes<T>, Interleaved<Lanes<T>, registers>>;
    const bool apart = are_apart(call.from, call.to);
    const auto run = [&](const auto &attempt) __attribute__((always_inline)) {
        return in_run<L>(
            group, groups, [&](const Group &g) __attribute__((always_inline)) {
                const unsigned fine = attempt(g);
                if (fine != all_lanes<S> && !apart) [[unlikely]]
                    store_registers<registers>(call, g, fine, y);
                return fine;
            });
    };
    if (for_dense<registers> && group.live == L)
        return run([&](const Group &g) __attribute__((always_inline)) {
            return try_order<N, S>(g.dense<const T, N, N>(call.from), g.dense<T, N, N>(call.to),
                                   apart, y);
        });
    return run([&](const Group &g) __attribute__((always_inline)) {
        return try_order<N, S>(g.objects<const T, L>(call.from), g.objects<T, L>(call.to), apart,
                               y);
    });
}
template <int registers, class T>
unsigned try_run(const Call<T> &call, Group &group, int groups, Lanes<T> *y, Lanes<T> *scratch) {
    using S = Lanes<T>;
    constexpr int L = lanes_of<S>;
    const int n = call.n;
    return in_run<registers * L>(group, groups, [&](const Group &g) {
        const auto a = g.objects<const T, registers * L>(call.from);
        unsigned fine = 0;
        for (int r = 0; r < registers; ++r) {
            S *const f = y + r * n * n;
            load_objects<LowerRuns<T>>(f, a.template part<L>(r * L), n, n);
            Residuals<S> residuals;
            factor_in_memory<T>(f, n, scratch, residuals);
            fine |= lane_bits(residuals.fine()) << (r * L);
        }
        store_registers<registers>(call, g, fine, y);
        return fine;
    });
}

template <int registers, class T>
int cholesky(const Call<T> &call, Distance count, ZelmStatusView status) {
    using S = Lanes<T>;
    constexpr int L = lanes_of<S>;
    const int n = call.n;
    const double order = n;
    const auto elements = static_cast<std::size_t>(n) * static_cast<std::size_t>(n);
    return finish_objects<registers * L, L>(
        count, order * order * order / 6,
        (registers * elements + 2 * static_cast<std::size_t>(n)) * sizeof(S), status,
        [&](Group &group, int groups, char *memory) {
            S *const y = reinterpret_cast<S *>(memory);
            return with_order<2, largest_straight_line_order>(
                n,
                [&](auto N) __attribute__((always_inline)) {
                    return try_run<N, registers>(call, group, groups, y);
                },
                [&] {
                    return try_run<registers>(call, group, groups, y, y + registers * elements);
                });
        },
        [&](const Group &group, char *memory, int *statuses) {
            S *const y = reinterpret_cast<S *>(memory);
            factor_rest<T>(group.objects<const T, L>(call.from), n, y, y + elements, statuses);
            clear_above(y, n);
            blank_failures(statuses, y, n * n);
            store_objects(group.objects<T, L>(call.to), y, n, n);
        });
}
template <class T>
int cholesky(const Call<T> &call, Distance count, ZelmStatusView status) {
    return is_dense_view<T>(call.from, call.n, call.n) && is_dense_view<T>(call.to, call.n, call.n)
               ? cholesky<2>(call, count, status)
               : cholesky<1>(call, count, status);
}

} // namespace
} // namespace zelm::safe

#define CHOLESKY(T, suffix)                                                                        \
    extern "C" int zelmSafeCholesky_##suffix(ZelmView a, ZelmView l, int order, ptrdiff_t count,   \
                                             ZelmStatusView status) {                              \
        using namespace zelm::safe;                                                                \
        if (const int wrong = first_wrong(count, {order, order}, a, l))                            \
            return wrong;                                                                          \
        return cholesky<T>({a, l, order}, count, status);                                          \
    }
CHOLESKY(float, 32f)
CHOLESKY(double, 64f)
