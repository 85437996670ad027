#include "invert.hpp"
#include "elimination.hpp"

#include "../frame/checks.hpp"
#include "../frame/estimate.hpp"
#include "../frame/member.hpp"
#include "../frame/parallel.hpp"
#include "../frame/walk.hpp"

namespace zelm {
namespace {

constexpr Limits limits = {2501, 2501}; // of 2*n*count

template <class T>
inline constexpr T smallest_normal = sizeof(T) == 4 ? T(0x1p-126) : T(0x1p-1022);

// Determinants (orders 3 and 4) and pivots (5 and 6) below this are singular, where rows are
// adjacent. The doubled values in double precision are part of the interface.
template <class T, int N>
inline constexpr T adjacent_threshold = (sizeof(T) == 8 && N <= 4 ? 4 : 2) *
                                        T(N *N *N) * smallest_normal<T>;

// ---- orders 3 to 6, adjacent rows ----

// What a register, or a number, holds of the inverse: of orders 3 and 4 its cofactors until they
// are multiplied by the reciprocal, of 5 and 6 its rows, row i being row rows[i].
template <int N, class S>
struct Inverse {
    S row[N][N];
    S reciprocal;
    IndexOf<S> rows[N];

    ZELM_INLINE void finish() {
        if constexpr (N <= 4)
            divide(row, reciprocal);
    }
};

template <int N, class S>
ZELM_INLINE MaskOf<S> invert(Inverse<N, S> &inverse, const S (&a)[N][N]) {
    using T = ElementOf<S>;
    constexpr T threshold = adjacent_threshold<T, N>;
    if constexpr (N <= 4) {
        const S d = cofactors(inverse.row, a);
        inverse.reciprocal = refined_reciprocal(d);
        return splat<S>(threshold) > magnitude(d);
    } else {
        // Columns of the transpose are rows of the inverse.
        S t[N][N];
        unroll<N>(ZELM_EACH(i) { unroll<N>(ZELM_EACH(j) { t[j][i] = a[i][j]; }); });
        const auto failing = gauss_jordan(t, inverse.rows, threshold);
        unroll<N>(ZELM_EACH(i) { unroll<N>(ZELM_EACH(j) { inverse.row[i][j] = t[j][i]; }); });
        return failing;
    }
}

template <int N, class T, class Source>
ZELM_INLINE void load_object(T (&a)[N][N], const Source &from) {
    unroll<N>(ZELM_EACH(i) { unroll<N>(ZELM_EACH(j) { a[i][j] = get(from, i, j); }); });
}

template <int N, class T, class Source, class Destination>
ZelStatus invert_object(const Source &from, const Destination &to) {
    T a[N][N];
    Inverse<N, T> inverse;
    load_object(a, from);
    if (invert(inverse, a))
        return zelStatusSingular;
    inverse.finish();
    unroll<N>(ZELM_EACH(i) {
        const int row = N <= 4 ? int{i} : inverse.rows[i];
        unroll<N>(ZELM_EACH(j) { put(to, row, j, inverse.row[i][j]); });
    });
    return zelStatusOk;
}

// Arrays of this order and type are inverted by pairs: 2k and 2k + 1 fail together.
template <class T, int N>
inline constexpr bool by_pairs = sizeof(T) == 4 && N == 4;

// Registers of dense objects. The second one's cofactors come between the first one's determinant
// and the products that wait for its reciprocal.
template <int N>
constexpr int in_turn = N <= 4 ? 2 : 1;

// Inverts a group by `method`, which leaves an Inverse to be finished and returns the lanes that it
// does not invert; those of all registers pass through `widened`.
template <int N, class T, class Group, class Source, class Destination, class Method, class Widened>
ZELM_INLINE unsigned invert_group(const Group &group, const Source &from, const Destination &to,
                                  const Method &method, const Widened &widened) {
    using S = Lanes<T>;
    Inverse<N, S> inverse[Group::registers];
    unsigned failing = 0;
    unroll<Group::registers>(ZELM_EACH(r) {
        S a[N][N];
        load_lanes<T>(a, from, group.first + r * lanes_of<S>);
        failing |= lane_bits(method(inverse[r], a)) << (r * lanes_of<S>);
    });
    failing = widened(failing);
    if (group.stores(failing)) [[likely]]
        unroll<Group::registers>(ZELM_EACH(r) {
            const int first = group.first + r * lanes_of<S>;
            inverse[r].finish();
            if constexpr (N <= 4)
                store_lanes<T>(to, first, inverse[r].row);
            else
                store_lanes<T>(to, first, inverse[r].row, ComputedRows<T, N>{inverse[r].rows});
        });
    return failing;
}

template <int N, class Source, class Destination>
ZelStatus invert_array(const Source &source, const Destination &destination, int count) {
    using T = typename Source::Element;
    const Shape shape = {N, N};
    const Footprint from(source, shape);
    const Footprint to(destination, shape);
    const Overlap overlap(count, shape, to, from);
    return walk<T, in_turn<N>, 1>(
        count, overlap,
        [](const auto &group, const auto &x, const auto &y) __attribute__((always_inline)) {
            return invert_group<N, T>(
                group, x, y, [](auto &inverse, const auto &a) __attribute__((always_inline)) {
                    return invert(inverse, a);
                },
                [](unsigned failing) {
                    return by_pairs<T, N> ? failing | (failing & 0x55) << 1 | (failing & 0xaa) >> 1
                                          : failing;
                });
        },
        [&](int n) __attribute__((noinline)) {
            if constexpr (by_pairs<T, N>)
                if (n % 2 == 0 && n + 1 < count) { // the other one is not yet inverted
                    T a[N][N];
                    Inverse<N, T> unused;
                    load_object(a, view(source, n + 1, shape));
                    if (invert(unused, a))
                        return zelStatusSingular;
                }
            return invert_object<N, T>(view(source, n, shape), view(destination, n, shape));
        },
        walked<N, N>(source), walked<N, N>(destination));
}

// ---- every other order, and rows that are not adjacent ----

// Up to this order several cofactors of an object are computed in lanes: 15 KiB of registers.
// Beyond, one is computed after the other, in the buffer.
constexpr int largest_lane_order = largest_lane_elimination;

template <class T, class Source, class Destination>
ZelStatus invert_by_cofactors(int n, const Source &from, const Destination &to, char *buffer) {
    using S = Lanes<T>;
    constexpr int L = lanes_of<S>, largest_minor = largest_lane_order - 1;
    const T threshold = elimination_threshold<T>(n);
    const auto size = static_cast<std::size_t>(n) * static_cast<std::size_t>(n) * sizeof(T);
    const bool lanes = n <= largest_lane_order;
    S w[largest_minor * largest_minor];
    char *const determinant = lanes ? reinterpret_cast<char *>(w) : buffer;
    pack(from, n, buffer);
    if (lanes)
        __builtin_memcpy(determinant, buffer, size);
    const Elimination<T> found = eliminate<OfInverse, T>(determinant, n, threshold);
    const T d = found.determinant();
    if (found.small || threshold >= magnitude(d))
        return zelStatusSingular;
    const T r = T{1} / d;
    const auto write = [&](int i, int j, T minor) {
        const T x = minor * r;
        put(to, j, i, (i + j) % 2 == 0 ? x : -x);
    };
    const auto value = [&](const auto &minor) {
        using V = std::remove_cvref_t<decltype(minor.last)>;
        const V t = splat<V>(threshold);
        return select(minor.small, t, select(magnitude(minor.last) > t, minor.determinant(), t));
    };
    if (!lanes) {
        for (int i = 0; i < n; ++i)
            for (int j = 0; j < n; ++j) {
                char *at = buffer;
                for (int row = 0; row < n; ++row)
                    for (int column = 0; column < n; ++column)
                        if (row != i && column != j) {
                            store<T>(at, get(from, row, column));
                            at += sizeof(T);
                        }
                write(i, j, value(eliminate<OfMinor, T>(buffer, n - 1, threshold)));
            }
        return zelStatusOk;
    }
    const auto element = [&](int i, int j) {
        return load<T>(buffer + (i * n + j) * int{sizeof(T)});
    };
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; j += L) { // a lane beyond the last column repeats it
            S *to_element = w;
            for (int row = 0; row < n; ++row) {
                if (row == i)
                    continue;
                for (int column = 0; column < n - 1; ++column, ++to_element) {
                    const int first = column < j ? column : column + 1;
                    if (column < j || column >= j + L - 1) {
                        *to_element = splat<S>(element(row, first));
                        continue;
                    }
                    S x = splat<S>(element(row, column));
                    for (int l = 0; l < L; ++l)
                        x[l] = element(row, column + (column >= (j + l < n ? j + l : n - 1)));
                    *to_element = x;
                }
            }
            const S minors = value(eliminate_lanes<OfMinor>(w, n - 1, threshold));
            for (int l = 0; l < L && j + l < n; ++l)
                write(i, j + l, minors[l]);
        }
    return zelStatusOk;
}

// f of x(from) ... x(to - 1), in halves: none waits for all before it.
template <int from, int to, class X, class F>
ZELM_INLINE auto in_halves(const X &x, const F &f) {
    if constexpr (to - from == 1) {
        return x(std::integral_constant<int, from>{});
    } else {
        constexpr int middle = (from + to) / 2;
        const auto first = in_halves<from, middle>(x, f);
        return f(first, in_halves<middle, to>(x, f));
    }
}

// Orders 3 and 4 by cofactors in closed form, where that can decide nothing differently: all minors
// and the determinant are so far above the threshold that no elimination of them meets a small
// pivot, and nothing overflows. Returns the others.
template <int N, class S>
ZELM_INLINE MaskOf<S> invert_far_from_thresholds(Inverse<N, S> &inverse, const S (&a)[N][N]) {
    using T = ElementOf<S>;
    const S(&c)[N][N] = inverse.row;
    const S one = splat<S>(1), d = cofactors(inverse.row, a);
    inverse.reciprocal = one / d;
    // A NaN may count for neither, but it makes the determinant one.
    const S largest = larger(in_halves<0, N * N>(
                                 ZELM_EACH(e) { return magnitude(a[e / N][e % N]); }, larger<S>),
                             one);
    const S smallest = in_halves<0, N * N>(
        ZELM_EACH(e) { return magnitude(c[e / N][e % N]); }, smaller<S>);
    // An elimination of order N enlarges no element more than 2^(N - 1) times.
    S bound = splat<S>(T(1 << 14) * elimination_threshold<T>(N));
    unroll<N - 2>(ZELM_EACH() { bound = bound * largest; });
    auto far = smallest > bound;
    far = far & (magnitude(d) > bound * largest);
    far = far & (splat<S>(sizeof(T) == 4 ? T(0x1p24) : T(0x1p200)) > largest);
    return complement(far);
}

template <class Source, class Destination>
ZelStatus invert_general(const Source &source, const Destination &destination, int n, int object,
                         void *buffer) {
    using T = typename Source::Element;
    const auto from = view(source, object, {n, n});
    const auto to = view(destination, object, {n, n});
    const auto by_cofactors = [&] {
        return invert_by_cofactors<T>(n, from, to, static_cast<char *>(buffer));
    };
    return with_order<3, 4>(
        n,
        [&](auto N) {
            T a[N][N];
            Inverse<N, T> inverse;
            load_object(a, from);
            if (invert_far_from_thresholds(inverse, a))
                return by_cofactors();
            inverse.finish();
            unroll<N>(
                ZELM_EACH(i) { unroll<N>(ZELM_EACH(j) { put(to, i, j, inverse.row[i][j]); }); });
            return zelStatusOk;
        },
        by_cofactors);
}

template <class Source, class Destination>
ZelStatus invert_array_general(const Source &source, const Destination &destination, int n,
                               int count, void *buffer) {
    using T = typename Source::Element;
    if constexpr (Destination::is_tabled) {
        Standard<const T, 2, true> from;
        Standard<T, 2, true> to;
        if (is_regular(source, {n, n}, from) && is_regular(destination, {n, n}, to))
            return invert_array_general(from, to, n, count, buffer);
    }
    const auto single = [&](int k) __attribute__((noinline)) {
        return invert_general(source, destination, n, k, buffer);
    };
    return with_order<3, 4>(
        n,
        [&](auto N) {
            const Shape shape = {N, N};
            const Footprint from(source, shape);
            const Footprint to(destination, shape);
            const Overlap overlap(count, shape, to, from);
            return walk<T, 1, 1, true>(
                count, overlap,
                [N](const auto &group, const auto &x, const auto &y)
                    __attribute__((always_inline)) {
                        return invert_group<N, T>(
                            group, x, y,
                            [](auto &inverse, const auto &a) __attribute__((always_inline)) {
                                return invert_far_from_thresholds(inverse, a);
                            },
                            [](unsigned failing) { return failing; });
                    },
                single, walked<N, N>(source), walked<N, N>(destination));
        },
        [&] { return walk_singly(count, single); });
}

// ---- kernels and entries ----

template <class Source, class Destination>
ZELM_INLINE bool rows_are_adjacent(const Source &source, const Destination &destination) {
    return !Destination::is_tabled && source.packed() && destination.packed();
}

template <class Source, class Destination>
ZelStatus y8_ownzelmInvert_m(const Source &source, const Destination &destination, int n,
                             void *buffer) {
    using T = typename Source::Element;
    const auto general = [&] { return invert_general(source, destination, n, 0, buffer); };
    if (!rows_are_adjacent(source, destination))
        return general();
    return with_order<3, 6>(
        n,
        [&](auto N) {
            return invert_object<N, T>(view(source, 0, {n, n}), view(destination, 0, {n, n}));
        },
        general);
}

template <class Source, class Destination>
ZelStatus y8_ownzelmInvert_ma(void *buffer, int count, const Source &source,
                              const Destination &destination, int n) {
    const auto general = [&] {
        return invert_array_general(source, destination, n, count, buffer);
    };
    if constexpr (!Destination::is_tabled)
        if (source.packed() && destination.packed())
            return with_order<3, 6>(
                n, [&](auto N) { return invert_array<N>(source, destination, count); }, general);
    return general();
}

template <class Source, class Destination>
ZelStatus invert_order_1(const Source &source, const Destination &destination, int count) {
    using T = typename Source::Element;
    return walk_singly(count, [&](int k) {
        const T x = get(view(source, k, {1, 1}), 0, 0);
        if (!(magnitude(x) > 2 * smallest_normal<T>))
            return zelStatusSingular;
        put(view(destination, k, {1, 1}), 0, 0, T{1} / x);
        return zelStatusOk;
    });
}

template <class Source, class T, class Destination>
ZELM_INLINE ZelStatus invert(const Source &source, T *buffer, const Destination &destination,
                             int n) {
    if (const ZelStatus s =
            first_failure(pointers(source, buffer, destination), sizes(n),
                          strides(source, destination), shifts(source, destination)))
        return s;
    if (n == 1)
        return invert_order_1(source, destination, 1);
    return y8_ownzelmInvert_m(source, destination, n, buffer);
}

template <class Source, class T, class Destination>
ZELM_INLINE ZelStatus invert(const Source &source, T *buffer, const Destination &destination, int n,
                             int count) {
    if (const ZelStatus s =
            first_failure(pointers(source, buffer, destination), counts(count), sizes(n),
                          strides(source, destination), shifts(source, destination)))
        return s;
    if (n == 1)
        return invert_order_1(source, destination, count);
    return run_objects_in(
        scratch_matrix(buffer, n), limits.serial(Estimate(2) * n * count, true),
        [n](void *scratch, int objects, const Source &from, const Destination &to) {
            return y8_ownzelmInvert_ma(scratch, objects, from, to, n);
        },
        count, source, destination);
}

} // namespace
} // namespace zelm

#define INVERT_M(D, T, suffix, kind)                                                               \
    ZELM_MEMBER(zelmInvert_##kind##_##suffix,                                                      \
                (ZELM_PARAMETERS(D, kind, const T, src), T * buffer,                               \
                 ZELM_PARAMETERS(D, kind, T, dst), int n),                                         \
                zelm::invert(ZELM_OPERAND(D, kind, const T, src), buffer,                          \
                             ZELM_OPERAND(D, kind, T, dst), n))
#define INVERT_MA(D, T, suffix, kind)                                                              \
    ZELM_MEMBER(zelmInvert_##kind##_##suffix,                                                      \
                (ZELM_PARAMETERS(D, kind, const T, src), T * buffer,                               \
                 ZELM_PARAMETERS(D, kind, T, dst), int n, int count),                              \
                zelm::invert(ZELM_OPERAND(D, kind, const T, src), buffer,                          \
                             ZELM_OPERAND(D, kind, T, dst), n, count))

ZELM_SINGLE(INVERT_M, m)
ZELM_ARRAY(INVERT_MA, ma)
