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

// ---- a group as it stands: y is n x columns. Returns the lanes that need no more care. ----

// One right-hand side without a condition goes to its place at once if all lanes are fine.
template <int N, class T, class A, class B, class X>
ZELM_INLINE MaskOf<Lanes<T>> try_order(const A &a, const B &b, const X &x, int columns, Lanes<T> *y,
                                       Lanes<T> *rcond, bool &stored) {
    using S = Lanes<T>;
    S f[N][N], norm = splat<S>(0);
    IndexOf<S> p[N];
    load_lanes<T>(f, a, 0);
    if (rcond != nullptr)
        norm = column_norm(f[0], N);
    factor<N>(f, p, T{0}, ZELM_EACH(){});
    Pivots<S> pivots;
    unroll<N>(ZELM_EACH(i) { pivots.note(f[i][i]); });
    S nothing = splat<S>(0);
    const auto solve_column = [&](const B &column, S(&row)[N]) __attribute__((always_inline)) {
        S v[N][1];
        load_lanes<T>(v, column, 0, ComputedRows<T, N>{p});
        unroll<N>(ZELM_EACH(i) { row[i] = v[i][0]; });
        substitute<N>(f, row);
        unroll<N>(ZELM_EACH(i) { nothing = nothing + (row[i] - row[i]); });
    };
    if (columns == 1 && rcond == nullptr) [[likely]] {
        S row[1][N];
        solve_column(b, row[0]);
        const MaskOf<S> fine = pivots.fine & (nothing == nothing);
        stored = lane_bits(fine) == all_lanes<S>;
        if (stored) [[likely]]
            store_lanes<T>(x.transposed(), 0, row);
        else
            unroll<N>(ZELM_EACH(i) { y[i] = row[0][i]; });
        return fine;
    }
    for (int c = 0; c < columns; ++c) {
        S row[N];
        solve_column(b.column(c), row);
        unroll<N>(ZELM_EACH(i) { y[i * columns + c] = row[i]; });
    }
    if (rcond != nullptr) {
        S column[N];
        *rcond = reciprocal_condition(norm, Factors<S>{f[0], p, N}.inverse_norm(column));
    }
    return pivots.fine & (nothing == nothing);
}

template <class T, class A, class B>
MaskOf<Lanes<T>> try_any_order(const A &a, const B &b, int n, int columns, Lanes<T> *y,
                               Lanes<T> *rcond, Lanes<T> *scratch) {
    using S = Lanes<T>;
    S *const f = scratch, *const x = f + n * n, *const in = x + n;
    auto *const p = reinterpret_cast<IndexOf<S> *>(in + n);
    const Factors<S> factors = {f, p, n};
    load_objects(f, a, n, n);
    S norm = splat<S>(0);
    if (rcond != nullptr)
        norm = column_norm(f, n);
    factor_lanes<S>(f, p, n, T{0}, x);
    Pivots<S> pivots;
    for (int i = 0; i < n; ++i)
        pivots.note(f[i * n + i]);
    S nothing = splat<S>(0);
    for (int c = 0; c < columns; ++c) {
        load_objects(in, b.column(c), n, 1);
        factors.permute(x, in);
        factors.substitute(x);
        for (int i = 0; i < n; ++i) {
            nothing = nothing + (x[i] - x[i]);
            y[i * columns + c] = x[i];
        }
    }
    if (rcond != nullptr)
        *rcond = reciprocal_condition(norm, factors.inverse_norm(x));
    return pivots.fine & (nothing == nothing);
}

// ---- the lanes that are not fine ----

template <class T, class A, class B>
[[gnu::noinline]] void solve_rest(const A &a, const B &b, int n, int columns, MaskOf<Lanes<T>> fine,
                                  Lanes<T> *y, Lanes<T> *rcond, Lanes<T> *scratch, int *statuses) {
    using S = Lanes<T>;
    S *const x = scratch;
    Careful<T> careful(x + n, n);
    load_objects(careful.f, a, n, n);
    careful.factor(rcond != nullptr);
    for (int c = 0; c < columns; ++c) {
        load_objects(careful.b, b.column(c), n, 1);
        solve_carefully(careful, x, statuses);
        for (int i = 0; i < n; ++i)
            y[i * columns + c] = select(fine, y[i * columns + c], x[i]);
    }
    if (rcond != nullptr) {
        const S r = careful.reciprocal_condition();
        *rcond = select(fine, *rcond, r);
    }
    for (int l = 0; l < lanes_of<S>; ++l)
        if (lane_bits(fine) >> l & 1)
            statuses[l] = zelStatusOk;
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
    return finish_objects<L>(
        count, order * order * (order / 3 + columns), elements * sizeof(S), status,
        [&](const Group &group, char *memory, int *statuses) {
            S *const y = reinterpret_cast<S *>(memory), *const scratch = y + results;
            const auto a = group.objects<const T, L>(call.a);
            const auto b = group.objects<const T, L>(call.b);
            const auto x = group.objects<T, L>(call.x);
            S rcond;
            S *const r = call.wants_rcond() ? &rcond : nullptr;
            bool stored = false;
            const MaskOf<S> fine = with_order<2, largest_straight_line_order>(
                n,
                [&](auto N) __attribute__((always_inline)) {
                    return try_order<N, T>(a, b, x, columns, y, r, stored);
                },
                [&] { return try_any_order<T>(a, b, n, columns, y, r, scratch); });
            if (stored) [[likely]]
                return false;
            const bool failed = lane_bits(fine) != all_lanes<S>;
            if (failed)
                solve_rest<T>(a, b, n, columns, fine, y, r, scratch, statuses);
            store_objects(x, y, n, columns);
            if (r != nullptr)
                store_objects(group.objects<T, L>(call.rcond), r, 1, 1);
            return failed;
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
