#include "lu.hpp"

#include "../linalg/invert.hpp"

namespace zelm::safe {
namespace {

// Closed forms (orders 2 to 4) and Gauss-Jordan elimination in place are fast, and as accurate as
// substitution as long as the determinant is not small beside the elements, or the pivots are of
// one order of magnitude (Higham: Accuracy and Stability of Numerical Algorithms, 14.4). Elsewhere
// the columns of the inverse are solved for one by one.
//
// The elimination works on the transposed matrix: its columns k are then rows p[k] of the inverse.

inline constexpr int largest_closed_form = 4;

// As a power of two: the smallest pivot beside the largest.
template <class T>
inline constexpr int pivot_ratio = sizeof(T) == 4 ? 8 : 20;

template <class S>
struct Verdict {
    MaskOf<S> accurate, in_reach;

    ZELM_INLINE unsigned fine() const { return lane_bits(accurate & in_reach); }
};

template <class S>
class PivotExtremes {
public:
    using T = ElementOf<S>;

    ZELM_INLINE void note(S pivot) {
        const S m = magnitude(pivot);
        smallest_ = smaller(m, smallest_);
        largest_ = larger(m, largest_);
    }
    // However even the pivots are, elements of the result may overflow.
    ZELM_INLINE void note_sum(S result) { nothing_ = nothing_ + (result - result); }
    ZELM_INLINE Verdict<S> verdict() const {
        constexpr int reach = Format<T>::reach;
        return {(nothing_ == nothing_) & (largest_ > splat<S>(0)) &
                    (smallest_ >= largest_ * splat<S>(power<T>(-pivot_ratio<T>))),
                (smallest_ >= splat<S>(power<T>(-reach))) &
                    (largest_ <= splat<S>(power<T>(reach)))};
    }

private:
    S smallest_ = splat<S>(std::numeric_limits<T>::infinity()), largest_ = splat<S>(0);
    S nothing_ = splat<S>(0); // NaN once a number of the result was not finite
};

// Order 2 to 4: x becomes the inverse of a.
template <int N, class S>
ZELM_INLINE Verdict<S> invert_directly(S (&x)[N][N], const S (&a)[N][N]) {
    using T = ElementOf<S>;
    S largest = splat<S>(0), least = splat<S>(power<T>(-determinant_ratio<T>));
    unroll<N * N>(ZELM_EACH(e) { largest = larger(magnitude(a[e / N][e % N]), largest); });
    unroll<N>([&](auto) { least = least * largest; });
    const S d = cofactors(x, a);
    divide(x, refined_reciprocal(d));
    return {magnitude(d) >= least, (largest >= splat<S>(power<T>(-element_reach<T>))) &
                                       (largest <= splat<S>(power<T>(element_reach<T>)))};
}
// Inverts t, the transposed matrix, in place.
template <int N, class S>
ZELM_INLINE Verdict<S> reduce(S (&t)[N][N], IndexOf<S> (&p)[N]) {
    PivotExtremes<S> pivots;
    gauss_jordan(
        t, p, ElementOf<S>{0}, [&](S pivot) __attribute__((always_inline)) { pivots.note(pivot); });
    // Multipliers below the pivots are at most 1: of few rows the last one is sure.
    S sums[N];
    unroll<N>(ZELM_EACH(j) { sums[j] = t[0][j]; });
    unroll<1, N - 1>(ZELM_EACH(i) { unroll<N>(ZELM_EACH(j) { sums[j] = sums[j] + t[i][j]; }); });
    unroll<1, N>(ZELM_EACH(j) { sums[0] = sums[0] + sums[j]; });
    pivots.note_sum(sums[0]);
    return pivots.verdict();
}
template <class S>
Verdict<S> reduce(S *t, IndexOf<S> *p, int n, S *f) {
    PivotExtremes<S> pivots;
    for (int i = 0; i < n; ++i)
        p[i] = splat_index<S>(i);
    for (int k = 0; k < n; ++k) {
        const LaneStep<S> step(t, n, k);
        const S pivot = step.pivot();
        exchange_numbers(p, k, step);
        step.reduce(f, splat<S>(1) / pivot);
        pivots.note(pivot);
    }
    for (int i = 0; i < n; ++i) {
        S sum = t[i * n];
        for (int j = 1; j < n; ++j)
            sum = sum + t[i * n + j];
        pivots.note_sum(sum);
    }
    return pivots.verdict();
}
template <class S>
[[gnu::noinline]] Verdict<S> reduce_in_memory(S *t, IndexOf<S> *p, int n, S *f) {
    return with_order<2, largest_straight_line_order>(
        n,
        [&](auto N) {
            S x[N][N];
            Verdict<S> verdict;
            if constexpr (N <= largest_closed_form) {
                S a[N][N];
                for (int e = 0; e < N * N; ++e)
                    a[e % N][e / N] = t[e];
                verdict = invert_directly(x, a);
                for (int e = 0; e < N * N; ++e)
                    t[e] = x[e % N][e / N];
                for (int i = 0; i < N; ++i)
                    p[i] = splat_index<S>(i);
            } else {
                IndexOf<S> q[N];
                for (int e = 0; e < N * N; ++e)
                    x[e / N][e % N] = t[e];
                verdict = reduce<N>(x, q);
                for (int e = 0; e < N * N; ++e)
                    t[e] = x[e / N][e % N];
                for (int i = 0; i < N; ++i)
                    p[i] = q[i];
            }
            return verdict;
        },
        [&] { return reduce(t, p, n, f); });
}

template <class S>
void transpose_in_place(S *a, int n) {
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < i; ++j)
            std::swap(a[i * n + j], a[j * n + i]);
}

template <class T>
struct Call {
    ZelmView a, x, rcond;
    int n;
};

template <class S>
struct Memory {
    S *t, *f, *y, *rest;
    IndexOf<S> *p;

    Memory(char *scratch, int n)
        : t(reinterpret_cast<S *>(scratch)),
          f(t + n * n),
          y(f + n),
          rest(y + n * n + n),
          p(reinterpret_cast<IndexOf<S> *>(y + n * n)) {}
    static std::size_t bytes(int n) { return 3 * careful_elements<ElementOf<S>>(n) * sizeof(S); }
};

// y = the inverse, row by row, from the reduced transposed matrix.
template <class S>
void put_in_order(S *y, const S *t, const IndexOf<S> *p, int n) {
    for (int k = 0; k < n; ++k)
        for (int l = 0; l < lanes_of<S>; ++l)
            for (int i = 0; i < n; ++i)
                y[p[k][l] * n + i][l] = t[i * n + k][l];
}

// 1 / (|a| |y|), both near 1 by the same power of two; `scratch` takes n x n elements.
template <class T, class A>
Lanes<T> reciprocal_condition(const A &a, const Lanes<T> *y, int n, Lanes<T> *scratch) {
    using S = Lanes<T>;
    load_objects(scratch, a, n, n);
    Extent<S> extent;
    for (int e = 0; e < n * n; ++e)
        extent.note(scratch[e]);
    const Scale<T> scale(extent.largest, 0);
    for (int e = 0; e < n * n; ++e)
        scratch[e] = scale(scratch[e]);
    const S norm = column_norm(scratch, n);
    for (int e = 0; e < n * n; ++e)
        scratch[e] = scaled<T>(y[e], -scale.exponent);
    return splat<S>(1) / norm / column_norm(scratch, n);
}

// The inverse by the same method of the object brought to an exponent near 1, so that small
// elements of the inverse stay normal numbers as well, in m.y. Returns the lanes where it is
// accurate.
template <class T, class A>
MaskOf<Lanes<T>> invert_scaled(const A &a, int n, const Memory<Lanes<T>> &m) {
    using S = Lanes<T>;
    constexpr int working = Format<T>::working_exponent;
    load_objects(m.t, a, n, n);
    transpose_in_place(m.t, n);
    Extent<S> extent, result;
    for (int e = 0; e < n * n; ++e)
        extent.note(m.t[e]);
    const Scale<T> scale(extent.largest);
    for (int e = 0; e < n * n; ++e)
        m.t[e] = scale(m.t[e]) * splat<S>(power<T>(-working));
    const MaskOf<S> accurate = reduce_in_memory(m.t, m.p, n, m.f).accurate;
    for (int e = 0; e < n * n; ++e) {
        m.t[e] = scaled<T>(m.t[e], scale.exponent - working);
        result.note(m.t[e]);
    }
    put_in_order(m.y, m.t, m.p, n);
    return accurate & extent.finite() & result.finite();
}

// The objects that need care, in m.y; `rcond` may be null.
template <class T, class A>
[[gnu::noinline]] void invert_rest(const A &a, int n, const Memory<Lanes<T>> &m, Lanes<T> *rcond,
                                   int *statuses) {
    using S = Lanes<T>;
    Careful<T> careful(m.rest, n);
    load_objects(careful.f, a, n, n);
    careful.factor(rcond != nullptr);
    if (rcond != nullptr)
        *rcond = careful.reciprocal_condition();
    const unsigned settled = lane_bits(~careful.finite | careful.singular);
    if (settled == all_lanes<S>) {
        set_status(statuses, ~careful.finite, zelmSafeNotFinite);
        set_status(statuses, careful.singular, zelStatusSingular);
    } else {
        const MaskOf<S> accurate = invert_scaled<T>(a, n, m);
        if (rcond != nullptr) {
            const S r = reciprocal_condition<T>(a, m.y, n, m.t);
            *rcond = select(accurate, r, *rcond);
        }
        for (int c = 0; c < n && (lane_bits(accurate) | settled) != all_lanes<S>; ++c) {
            for (int i = 0; i < n; ++i)
                careful.b[i] = splat<S>(i == c ? 1 : 0);
            solve_carefully(careful, m.f, statuses);
            for (int i = 0; i < n; ++i)
                m.y[i * n + c] = select(accurate, m.y[i * n + c], m.f[i]);
        }
        set_status(statuses, ~careful.finite, zelmSafeNotFinite);
        set_status(statuses, careful.singular, zelStatusSingular);
        for (int l = 0; l < lanes_of<S>; ++l)
            if (lane_bits(accurate) >> l & 1)
                statuses[l] = zelStatusOk;
    }
    blank_failures(statuses, m.y, n * n);
}

// Whether an attempt stores the inverse at once, or leaves it in m.y.
enum class Store { always, if_all_fine, never };
template <class S>
ZELM_INLINE bool stores(Store store, unsigned fine) {
    return store == Store::always || (store == Store::if_all_fine && fine == all_lanes<S>);
}

// A group as it stands: returns the lanes that need no more care.
template <int N, class T, class A, class X>
ZELM_INLINE unsigned try_order(const A &a, const X &to, Store store, const Memory<Lanes<T>> &m) {
    using S = Lanes<T>;
    S in[N][N], t[N][N];
    load_lanes<T>(in, a, 0);
    if constexpr (N <= largest_closed_form) {
        const unsigned fine = invert_directly(t, in).fine();
        if (stores<S>(store, fine)) [[likely]]
            store_lanes<T>(to, 0, t);
        else
            for (int e = 0; e < N * N; ++e)
                m.y[e] = t[e / N][e % N];
        return fine;
    } else {
        IndexOf<S> p[N];
        unroll<N>(ZELM_EACH(i) { unroll<N>(ZELM_EACH(j) { t[i][j] = in[j][i]; }); });
        const unsigned fine = reduce<N>(t, p).fine();
        if (stores<S>(store, fine)) [[likely]] {
            unroll<N>(ZELM_EACH(i) { unroll<N>(ZELM_EACH(j) { in[i][j] = t[j][i]; }); });
            store_lanes<T>(to, 0, in, ComputedRows<T, N>{p});
        } else {
            put_in_order(m.y, t[0], p, N);
        }
        return fine;
    }
}
template <class T, class A, class X>
unsigned try_any_order(const A &a, const X &to, int n, Store store, const Memory<Lanes<T>> &m) {
    using S = Lanes<T>;
    load_objects(m.t, a, n, n);
    transpose_in_place(m.t, n);
    const unsigned fine = reduce(m.t, m.p, n, m.f).fine();
    if (!stores<S>(store, fine)) {
        put_in_order(m.y, m.t, m.p, n);
        return fine;
    }
    transpose_in_place(m.t, n);
    for (int i = 0; i < n; ++i)
        store_row<T>(
            to, i, n,
            ComputedNumbers<T>{m.p}, [&](int j, auto &run) __attribute__((always_inline)) {
                unroll<sizeof run / sizeof *run>(ZELM_EACH(k) { run[k] = m.t[i * n + j + k]; });
            });
    return fine;
}

template <class T>
int invert(const Call<T> &call, Distance count, ZelmStatusView status) {
    using S = Lanes<T>;
    constexpr int L = lanes_of<S>;
    const int n = call.n;
    const double order = n;
    const bool wants_rcond = !is_null(call.rcond);
    const bool dense = is_dense_view<T>(call.a, n, n) && is_dense_view<T>(call.x, n, n);
    const Store when = wants_rcond                 ? Store::never
                       : are_apart(call.a, call.x) ? Store::always
                                                   : Store::if_all_fine;
    const auto store_inverse = [&](const Group &group, unsigned fine, const Memory<S> &m) {
        if (wants_rcond) { // before the destination, which may be the source
            const auto a = group.objects<const T, L>(call.a);
            const S r = reciprocal_condition<T>(a, m.y, n, m.rest);
            store_some(group.objects<T, L>(call.rcond), fine, &r, 1, 1);
        }
        store_some(group.objects<T, L>(call.x), fine, m.y, n, n);
    };
    return finish_objects<L, L>(
        count, order * order * order, Memory<S>::bytes(n), status,
        [&](Group &group, int groups, char *memory) {
            const Memory<S> m(memory, n);
            const auto store_trial = [&](const Group &g, unsigned fine)
                __attribute__((always_inline)) {
                if (!stores<S>(when, fine)) [[unlikely]]
                    store_inverse(g, fine, m);
                return fine;
            };
            return with_order<2, largest_straight_line_order>(
                n,
                [&](auto N) __attribute__((always_inline)) {
                    if (dense && group.live == L)
                        return in_run<L>(
                            group, groups, [&](const Group &g) __attribute__((always_inline)) {
                                return store_trial(
                                    g, try_order<N, T>(g.dense<const T, N, N>(call.a),
                                                       g.dense<T, N, N>(call.x), when, m));
                            });
                    return in_run<L>(
                        group, groups, [&](const Group &g) __attribute__((always_inline)) {
                            return store_trial(g,
                                               try_order<N, T>(g.objects<const T, L>(call.a),
                                                               g.objects<T, L>(call.x), when, m));
                        });
                },
                [&] {
                    return in_run<L>(group, groups, [&](const Group &g) {
                        return store_trial(g,
                                           try_any_order<T>(g.objects<const T, L>(call.a),
                                                            g.objects<T, L>(call.x), n, when, m));
                    });
                });
        },
        [&](const Group &group, char *memory, int *statuses) {
            const Memory<S> m(memory, n);
            S rcond;
            invert_rest<T>(group.objects<const T, L>(call.a), n, m, wants_rcond ? &rcond : nullptr,
                           statuses);
            store_objects(group.objects<T, L>(call.x), m.y, n, n);
            if (wants_rcond)
                store_objects(group.objects<T, L>(call.rcond), &rcond, 1, 1);
        });
}

} // namespace
} // namespace zelm::safe

#define INVERSE(T, suffix)                                                                         \
    extern "C" int zelmSafeInverse_##suffix(ZelmView a, ZelmView x, int order, ptrdiff_t count,    \
                                            ZelmStatusView status, ZelmView rcond) {               \
        using namespace zelm::safe;                                                                \
        if (const int wrong = first_wrong(count, {order, order}, a, x))                            \
            return wrong;                                                                          \
        return invert<T>({a, x, rcond, order}, count, status);                                     \
    }
INVERSE(float, 32f)
INVERSE(double, 64f)
