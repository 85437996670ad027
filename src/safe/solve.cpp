#include "lu.hpp"

namespace zelm::safe {
namespace {

template <class T>
struct Call {
    ZelmView a, b, x, rcond;
    int n, columns;

    bool wants_rcond() const { return !is_null(rcond); }
};

// 1 / (norm * inverse_norm), without leaving the range on the way.
template <class S>
S reciprocal_condition(S norm, S inverse_norm) {
    return splat<S>(1) / norm / inverse_norm;
}

// ---- a group as it stands: returns the lanes that need no more care ----

// The pivots and the answers of a group that is tried.
template <class S>
struct Trial {
    Pivots<S> pivots;
    S nothing = splat<S>(0); // NaN once an answer was not finite

    ZELM_INLINE void note_answer(S x) { nothing = nothing + (x - x); }
    ZELM_INLINE MaskOf<S> fine() const { return pivots.fine & (nothing == nothing); }
};

template <int N, class S>
ZELM_INLINE void factor_order(S (&f)[N][N], IndexOf<S> (&p)[N], Trial<S> &trial) {
    factor<N>(f, p, ElementOf<S>{0}, ZELM_EACH(){});
    unroll<N>(ZELM_EACH(i) { trial.pivots.note(f[i][i]); });
}
template <int N, class S, class B>
ZELM_INLINE void solve_order(const S (&f)[N][N], const IndexOf<S> (&p)[N], const B &b, S (&x)[N],
                             Trial<S> &trial) {
    using T = ElementOf<S>;
    S v[N][1];
    load_lanes<T>(v, b, 0, ComputedRows<T, N>{p});
    unroll<N>(ZELM_EACH(i) { x[i] = v[i][0]; });
    substitute<N>(f, x);
    unroll<N>(ZELM_EACH(i) { trial.note_answer(x[i]); });
}

// One right-hand side; the answer goes to x, an operand of one row, if all lanes are fine or x is
// apart from the sources, else to y.
template <int N, class T, class A, class B, class X>
ZELM_INLINE unsigned try_one_side(const A &a, const B &b, const X &x, bool apart, Lanes<T> *y) {
    using S = Lanes<T>;
    S f[N][N], row[1][N];
    IndexOf<S> p[N];
    Trial<S> trial;
    load_lanes<T>(f, a, 0);
    factor_order(f, p, trial);
    solve_order(f, p, b, row[0], trial);
    const unsigned fine = lane_bits(trial.fine());
    if (fine == all_lanes<S> || apart) [[likely]]
        store_lanes<T>(x, 0, row);
    else
        unroll<N>(ZELM_EACH(i) { y[i] = row[0][i]; });
    return fine;
}

// Several, and the condition if `rcond` is not null: all to y.
template <int N, class T, class A, class B>
unsigned try_order(const A &a, const B &b, int columns, Lanes<T> *y, Lanes<T> *rcond) {
    using S = Lanes<T>;
    S f[N][N], norm = splat<S>(0);
    IndexOf<S> p[N];
    Trial<S> trial;
    load_lanes<T>(f, a, 0);
    if (rcond != nullptr)
        norm = column_norm(f[0], N);
    factor_order(f, p, trial);
    for (int c = 0; c < columns; ++c) {
        S x[N];
        solve_order(f, p, b.column(c), x, trial);
        unroll<N>(ZELM_EACH(i) { y[i * columns + c] = x[i]; });
    }
    if (rcond != nullptr) {
        S column[N];
        *rcond = reciprocal_condition(norm, Factors<S>{f[0], p, N}.inverse_norm(column));
    }
    return lane_bits(trial.fine());
}
template <class T, class A, class B>
unsigned try_any_order(const A &a, const B &b, int n, int columns, Lanes<T> *y, Lanes<T> *rcond,
                       Lanes<T> *scratch) {
    using S = Lanes<T>;
    S *const f = scratch, *const x = f + n * n, *const in = x + n;
    auto *const p = reinterpret_cast<IndexOf<S> *>(in + n);
    const Factors<S> factors = {f, p, n};
    Trial<S> trial;
    load_objects(f, a, n, n);
    S norm = splat<S>(0);
    if (rcond != nullptr)
        norm = column_norm(f, n);
    factor_lanes<S>(f, p, n, T{0}, x);
    for (int i = 0; i < n; ++i)
        trial.pivots.note(f[i * n + i]);
    for (int c = 0; c < columns; ++c) {
        load_objects(in, b.column(c), n, 1);
        factors.permute(x, in);
        factors.substitute(x);
        for (int i = 0; i < n; ++i) {
            trial.note_answer(x[i]);
            y[i * columns + c] = x[i];
        }
    }
    if (rcond != nullptr)
        *rcond = reciprocal_condition(norm, factors.inverse_norm(x));
    return lane_bits(trial.fine());
}

// ---- the others ----

template <class T, class A, class B>
[[gnu::noinline]] void solve_rest(const A &a, const B &b, int n, int columns, Lanes<T> *y,
                                  Lanes<T> *rcond, Lanes<T> *scratch, int *statuses) {
    using S = Lanes<T>;
    S *const x = scratch;
    Careful<T> careful(x + n, n);
    load_objects(careful.f, a, n, n);
    careful.factor(rcond != nullptr);
    for (int c = 0; c < columns; ++c) {
        load_objects(careful.b, b.column(c), n, 1);
        solve_carefully(careful, x, statuses);
        for (int i = 0; i < n; ++i)
            y[i * columns + c] = x[i];
    }
    if (rcond != nullptr)
        *rcond = careful.reciprocal_condition();
    blank_failures(statuses, y, n * columns);
}

template <class T>
int solve(const Call<T> &call, Distance count, ZelmStatusView status) {
    using S = Lanes<T>;
    constexpr int L = lanes_of<S>;
    const int n = call.n, columns = call.columns;
    const double order = n;
    const auto results = static_cast<std::size_t>(n) * static_cast<std::size_t>(columns);
    const std::size_t elements = results + static_cast<std::size_t>(n) + careful_elements<T>(n);
    const bool one_side = columns == 1 && !call.wants_rcond();
    const bool dense = is_dense_view<T>(call.a, n, n) && is_dense_view<T>(call.b, n, 1) &&
                       is_dense_view<T>(call.x, n, 1);
    const bool apart = are_apart(call.a, call.x) && are_apart(call.b, call.x);
    // Of a trial that leaves its answers in y.
    const auto store_trial = [&](const Group &group, const S *y, const auto &trial) {
        S rcond;
        const unsigned fine = trial(call.wants_rcond() ? &rcond : nullptr);
        store_some(group.objects<T, L>(call.x), fine, y, n, columns);
        if (call.wants_rcond())
            store_some(group.objects<T, L>(call.rcond), fine, &rcond, 1, 1);
        return fine;
    };
    return finish_objects<L, L>(
        count, order * order * (order / 3 + columns), elements * sizeof(S), status,
        [&](Group &group, int groups, char *memory) {
            S *const y = reinterpret_cast<S *>(memory), *const scratch = y + results;
            return with_order<2, largest_straight_line_order>(
                n,
                [&](auto N) __attribute__((always_inline)) {
                    if (one_side && dense && group.live == L)
                        return in_run<L>(
                            group, groups, [&](const Group &g) __attribute__((always_inline)) {
                                const unsigned fine = try_one_side<N, T>(
                                    g.dense<const T, N, N>(call.a), g.dense<const T, N, 1>(call.b),
                                    g.dense<T, 1, N>(call.x), apart, y);
                                if (fine != all_lanes<S> && !apart) [[unlikely]]
                                    store_some(g.objects<T, L>(call.x), fine, y, n, 1);
                                return fine;
                            });
                    return in_run<L>(
                        group, groups, [&](const Group &g) __attribute__((always_inline)) {
                            const auto a = g.objects<const T, L>(call.a);
                            const auto b = g.objects<const T, L>(call.b);
                            const auto x = g.objects<T, L>(call.x);
                            if (!one_side)
                                return store_trial(g, y, [&](S *rcond) {
                                    return try_order<N, T>(a, b, columns, y, rcond);
                                });
                            const unsigned fine =
                                try_one_side<N, T>(a, b, x.transposed(), apart, y);
                            if (fine != all_lanes<S> && !apart) [[unlikely]]
                                store_some(x, fine, y, n, 1);
                            return fine;
                        });
                },
                [&] {
                    return in_run<L>(group, groups, [&](const Group &g) {
                        return store_trial(g, y, [&](S *rcond) {
                            return try_any_order<T>(g.objects<const T, L>(call.a),
                                                    g.objects<const T, L>(call.b), n, columns, y,
                                                    rcond, scratch);
                        });
                    });
                });
        },
        [&](const Group &group, char *memory, int *statuses) {
            S *const y = reinterpret_cast<S *>(memory), *const scratch = y + results;
            S rcond;
            S *const r = call.wants_rcond() ? &rcond : nullptr;
            solve_rest<T>(group.objects<const T, L>(call.a), group.objects<const T, L>(call.b), n,
                          columns, y, r, scratch, statuses);
            store_objects(group.objects<T, L>(call.x), y, n, columns);
            if (r != nullptr)
                store_objects(group.objects<T, L>(call.rcond), r, 1, 1);
        });
}

} // namespace
} // namespace zelm::safe

#define SOLVE(T, suffix)                                                                           \
    extern "C" int zelmSafeSolve_##suffix(ZelmView a, ZelmView b, ZelmView x, int order,           \
                                          int rightHandSides, ptrdiff_t count,                     \
                                          ZelmStatusView status, ZelmView rcond) {                 \
        using namespace zelm::safe;                                                                \
        if (const int wrong = first_wrong(count, {order, order, rightHandSides}, a, b, x))         \
            return wrong;                                                                          \
        return solve<T>({a, b, x, rcond, order, rightHandSides}, count, status);                   \
    }
SOLVE(float, 32f)
SOLVE(double, 64f)
