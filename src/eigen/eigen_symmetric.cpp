#include "symmetric.hpp"
#include "values.hpp"

#include "../frame/checks.hpp"
#include "../frame/element_at.hpp"
#include "../frame/estimate.hpp"
#include "../frame/member.hpp"
#include "../frame/parallel.hpp"
#include "../frame/walk.hpp"

namespace zelm {
namespace {

constexpr Limits values_limits = {1001, 1001}; // of n*(n + 1)*count
constexpr Limits vectors_limits = {701, 701};  // of n*(2*n + 1)*count

inline constexpr int largest_lane_order = 16;

// ---- one object ----

template <class Source, class Destination, class T>
ZelStatus solve_small(const Source &source, const Destination &destination, const Values<T> &values,
                      int n, int object) {
    constexpr bool vectors = wants_vectors<Destination>;
    const auto from = view(source, object, {n, n});
    const auto value = values.view(object);
    if (n == 1) {
        put(value, 0, 0, get(from, 0, 0));
        if constexpr (vectors)
            put(view(destination, object, {n, n}), 0, 0, T{1});
        return zelStatusOk;
    }
    const T a[3] = {get(from, 0, 0), get(from, 0, 1), get(from, 1, 1)};
    T d[2], x[2];
    if (solve_order_2<T, vectors>(a, d, x))
        return zelStatusSingular;
    put(value, 0, 0, d[0]);
    put(value, 0, 1, d[1]);
    if constexpr (vectors) {
        const auto to = view(destination, object, {n, n});
        put(to, 0, 0, without_signed_zero(x[0]));
        put(to, 1, 0, without_signed_zero(x[1]));
        put(to, 0, 1, without_signed_zero(T{0} - x[1]));
        put(to, 1, 1, without_signed_zero(x[0]));
    }
    return zelStatusOk;
}

template <class T, class Vectors>
[[gnu::noinline]] Outcome<T> solve_in_memory(int n, UnalignedRun<T> a, UnalignedRun<T> d,
                                             const Vectors &vectors) {
    return solve_symmetric<T>(n, a, d, a, vectors);
}

template <class Source, class Destination, class T>
ZelStatus y8_ownzelmEigenValuesSym_m(const Source &source, const Destination &destination,
                                     const Values<T> &values, void *buffer, int n, int object) {
    if (n <= 2)
        return solve_small(source, destination, values, n, object);
    // The matrix in the buffer; once it is reduced its first row becomes the off-diagonal.
    const UnalignedRun<T> a = {static_cast<char *>(buffer)};
    const UnalignedRun<T> d = {values.object(object)};
    const auto from = view(source, object, {n, n});
    for (std::ptrdiff_t i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j)
            a[i * n + j] = get(from, static_cast<int>(i), j);
    Outcome<T> outcome;
    if constexpr (wants_vectors<Destination>) {
        const auto to = view(destination, object, {n, n});
        const MemoryVectors<T, decltype(to)> vectors = {to, n, rows_adjacent(destination)};
        outcome = solve_in_memory<T>(n, a, d, vectors);
        vectors.finish();
    } else {
        outcome = solve_in_memory<T>(n, a, d, NoVectors{});
    }
    return outcome.not_converged ? zelStatusNotConverged
           : outcome.singular    ? zelStatusSingular
                                 : zelStatusOk;
}

// ---- arrays ----

template <class T>
using Group2 = Interleaved<Lanes<T>, 2>; // what a group computes in
constexpr int side_by_side = 2;

// Orders 2 to 16 in any memory.
template <class T, bool vectors, class Source, class Results, class Destination>
ZELM_INLINE unsigned solve_group(const Group &group, int n, const Source &x, const Results &values,
                                 const Destination &y) {
    using S = Group2<T>;
    constexpr int elements = largest_lane_order * largest_lane_order, L = lanes_of<Lanes<T>>;
    S a[elements], d[largest_lane_order], e[largest_lane_order], z[vectors ? elements : 1];
    // f(part, i, j, register) for runs of the rows.
    const auto all = [&](int rows, const auto &f) __attribute__((always_inline)) {
        for (int i = 0; i < rows; ++i)
            in_steps<T>(
                0, n, [&](int j, auto K) __attribute__((always_inline)) {
                    unroll<side_by_side>(ZELM_EACH(r) {
                        Lanes<T> part[decltype(K)::value];
                        f(part, i, j, r);
                    });
                });
    };
    const Shape shape = {n, n};
    all(
        n, [&](auto &part, int i, int j, int r) __attribute__((always_inline)) {
            load_row<T>(part, x, group.first + r * L, shape, i, j);
            unroll<sizeof part / sizeof *part>(ZELM_EACH(k) { a[i * n + j + k].r[r] = part[k]; });
        });
    const unsigned failing = solve_lanes<S, vectors>(a, d, e, z, n);
    if (!group.stores(failing))
        return failing;
    all(
        1, [&](auto &part, int, int j, int r) __attribute__((always_inline)) {
            unroll<sizeof part / sizeof *part>(ZELM_EACH(k) { part[k] = d[j + k].r[r]; });
            store_row<T>(values, group.first + r * L, {1, n}, 0, j, part);
        });
    if constexpr (vectors)
        all(
            n, [&](auto &part, int i, int j, int r) __attribute__((always_inline)) {
                unroll<sizeof part / sizeof *part>(
                    ZELM_EACH(k) { part[k] = without_signed_zero(z[(j + k) * n + i].r[r]); });
                store_row<T>(y, group.first + r * L, shape, i, j, part);
            });
    return failing;
}

// Order N in dense memory.
template <int N, class T, bool vectors, class Source, class Results, class Destination>
ZELM_INLINE unsigned solve_dense_group(const Group &group, const Source &x, const Results &values,
                                       const Destination &y) {
    using S = Group2<T>;
    S a[N][N], d[1][N], e[N], z[vectors ? N : 1][N];
    load_lanes<T>(a, x, group.first);
    const unsigned failing = solve_lanes<S, vectors>(a[0], d[0], e, z[0], N);
    if (group.stores(failing)) [[likely]] {
        store_lanes<T>(values, group.first, d);
        if constexpr (vectors) {
            S y_lanes[N][N];
            unroll<N>(ZELM_EACH(i) {
                unroll<N>(ZELM_EACH(j) { y_lanes[i][j] = without_signed_zero(z[j][i]); });
            });
            store_lanes<T>(y, group.first, y_lanes);
        }
    }
    return failing;
}

// walk(count, allowed, kernel(group, x, d, y), arrays of x, d and y); without vectors y is d.
template <class T, class Source, class Destination, class F>
ZELM_INLINE ZelStatus solve_array(const Source &source, const Destination &destination,
                                  const Values<T> &values, int n, int count, const F &run) {
    const Footprint from(source, {n, n});
    if constexpr (wants_vectors<Destination>) {
        const Shape shape = {n, n};
        const Footprint to(destination, shape);
        const Overlap overlap(count, shape, to, from);
        return run(overlap);
    } else {
        const Shape shape = {1, n};
        const Footprint to(values, shape);
        const Overlap overlap(count, shape, to, from);
        return run(overlap);
    }
}

template <int N, class T, class Destination>
[[gnu::noinline]] ZelStatus solve_dense_array(const Standard<const T, 2, true> &source,
                                              const Destination &destination,
                                              const Values<T> &values, void *buffer, int count) {
    const auto alone = [&](int k) __attribute__((noinline)) {
        return y8_ownzelmEigenValuesSym_m(source, destination, values, buffer, N, k);
    };
    const auto x = detail::as_dense(walked<N, N>(source));
    const auto d = detail::as_dense(walked<1, N>(values));
    return solve_array(
        source, destination, values, N,
        count, [&](const auto &overlap) __attribute__((always_inline)) {
            if constexpr (wants_vectors<Destination>)
                return walk_groups<T, side_by_side>(
                    count, overlap,
                    [](const Group &group, const auto &from, const auto &value, const auto &to)
                        __attribute__((always_inline)) {
                            return solve_dense_group<N, T, true>(group, from, value, to);
                        },
                    alone, x, d, detail::as_dense(walked<N, N>(destination)));
            else
                return walk_groups<T, side_by_side>(
                    count, overlap,
                    [](const Group &group, const auto &from, const auto &value)
                        __attribute__((always_inline)) {
                            return solve_dense_group<N, T, false>(group, from, value, value);
                        },
                    alone, x, d);
        });
}

template <class Source, class Destination, class T>
[[gnu::noinline]] ZelStatus solve_any_array(const Source &source, const Destination &destination,
                                            const Values<T> &values, void *buffer, int n,
                                            int count) {
    constexpr int elements = largest_lane_order * largest_lane_order;
    const auto alone = [&](int k) __attribute__((noinline)) {
        return y8_ownzelmEigenValuesSym_m(source, destination, values, buffer, n, k);
    };
    const Shape shape = {n, n};
    const auto x = walked<elements>(source, shape);
    const auto d = walked<largest_lane_order>(values, {1, n});
    return solve_array(
        source, destination, values, n,
        count, [&](const auto &overlap) __attribute__((always_inline)) {
            if constexpr (wants_vectors<Destination>)
                return walk_groups<T, side_by_side>(
                    count, overlap,
                    [n](const Group &group, const auto &from, const auto &value, const auto &to)
                        __attribute__((always_inline)) {
                            return solve_group<T, true>(group, n, from, value, to);
                        },
                    alone, x, d, walked<elements>(destination, shape));
            else
                return walk_groups<T, side_by_side>(
                    count, overlap,
                    [n](const Group &group, const auto &from, const auto &value)
                        __attribute__((always_inline)) {
                            return solve_group<T, false>(group, n, from, value, value);
                        },
                    alone, x, d);
        });
}

template <class T, bool array>
ZELM_INLINE bool has_gaps(const Standard<T, 2, array> &op, int n) {
    return gaps(op, n) != 0;
}
ZELM_INLINE bool has_gaps(NoDestination, int) { return false; }

template <class Source, class Destination, class T>
ZelStatus y8_ownzelmEigenValuesSym_ma(int count, void *buffer, const Source &source,
                                      const Destination &destination, const Values<T> &values,
                                      int n) {
    if constexpr (std::is_same_v<Source, Standard<const T, 2, true>>)
        if (!has_gaps(source, n) && !has_gaps(destination, n))
            switch (n) {
            case 2:
                return solve_dense_array<2, T>(source, destination, values, buffer, count);
            case 3:
                return solve_dense_array<3, T>(source, destination, values, buffer, count);
            case 4:
                return solve_dense_array<4, T>(source, destination, values, buffer, count);
            case 6:
                return solve_dense_array<6, T>(source, destination, values, buffer, count);
            default:
                break;
            }
    if (n >= 2 && n <= largest_lane_order)
        return solve_any_array(source, destination, values, buffer, n, count);
    for (int k = 0; k < count; ++k)
        if (const ZelStatus status =
                y8_ownzelmEigenValuesSym_m(source, destination, values, buffer, n, k))
            return status;
    return zelStatusOk;
}

// ---- entries ----

template <class Source, class Destination, class T>
ZELM_INLINE ZelStatus eigen_symmetric(const Source &source, T *buffer,
                                      const Destination &destination, T *values, int n) {
    const Standard<T, 0, false> b = {buffer, 0, 0, 0}, v = {values, 0, 0, 0};
    ZelStatus s;
    if constexpr (wants_vectors<Destination>)
        s = first_failure(pointers(source, b, v, destination), sizes(n),
                          shifts(source, destination), strides(source, destination));
    else
        s = first_failure(pointers(source, b, v), sizes(n), shifts(source), strides(source));
    if (s)
        return s;
    return y8_ownzelmEigenValuesSym_m(source, destination, packed_values(values, n), buffer, n, 0);
}

template <class Source, class Destination, class T>
ZELM_INLINE ZelStatus eigen_symmetric(const Source &source, T *buffer,
                                      const Destination &destination, T *values, int n, int count) {
    constexpr bool vectors = wants_vectors<Destination>;
    const Standard<T, 0, false> b = {buffer, 0, 0, 0}, v = {values, 0, 0, 0};
    ZelStatus s;
    if constexpr (vectors)
        s = first_failure(pointers(source, b, v, destination), sizes(n), counts(count),
                          shifts(source, destination), strides(source, destination));
    else
        s = first_failure(pointers(source, b, v), sizes(n), counts(count), shifts(source),
                          strides(source));
    if (s)
        return s;
    const Estimate size = n;
    const bool serial = vectors ? vectors_limits.serial(size * (size * 2 + 1) * count, true)
                                : values_limits.serial(size * (size + 1) * count, true);
    const auto order = static_cast<std::size_t>(n);
    return run_objects_in(
        scratch_of(buffer, order, order), serial,
        [n](void *scratch, int objects, const Source &from, const Destination &to,
            const Values<T> &d) {
            return with_strides(
                [&](const auto &x, const auto &y) {
                    return y8_ownzelmEigenValuesSym_ma(objects, scratch, x, y, d, n);
                },
                shaped(from, {n, n}), shaped(to, {n, n}));
        },
        count, source, destination, packed_values(values, n));
}

} // namespace
} // namespace zelm

#define VALUES_M(D, T, suffix, kind)                                                               \
    ZELM_MEMBER(zelmEigenValuesSym_##kind##_##suffix,                                              \
                (ZELM_PARAMETERS(D, kind, const T, src), T * buffer, T * values, int n),           \
                zelm::eigen_symmetric(ZELM_OPERAND(D, kind, const T, src), buffer,                 \
                                      zelm::NoDestination{}, values, n))
#define VALUES_MA(D, T, suffix, kind)                                                              \
    ZELM_MEMBER(                                                                                   \
        zelmEigenValuesSym_##kind##_##suffix,                                                      \
        (ZELM_PARAMETERS(D, kind, const T, src), T * buffer, T * values, int n, int count),        \
        zelm::eigen_symmetric(ZELM_OPERAND(D, kind, const T, src), buffer, zelm::NoDestination{},  \
                              values, n, count))
#define VECTORS_M(D, T, suffix, kind)                                                              \
    ZELM_MEMBER(zelmEigenValuesVectorsSym_##kind##_##suffix,                                       \
                (ZELM_PARAMETERS(D, kind, const T, src), T * buffer,                               \
                 ZELM_PARAMETERS(D, kind, T, dst), T * values, int n),                             \
                zelm::eigen_symmetric(ZELM_OPERAND(D, kind, const T, src), buffer,                 \
                                      ZELM_OPERAND(D, kind, T, dst), values, n))
#define VECTORS_MA(D, T, suffix, kind)                                                             \
    ZELM_MEMBER(zelmEigenValuesVectorsSym_##kind##_##suffix,                                       \
                (ZELM_PARAMETERS(D, kind, const T, src), T * buffer,                               \
                 ZELM_PARAMETERS(D, kind, T, dst), T * values, int n, int count),                  \
                zelm::eigen_symmetric(ZELM_OPERAND(D, kind, const T, src), buffer,                 \
                                      ZELM_OPERAND(D, kind, T, dst), values, n, count))

ZELM_SINGLE(VALUES_M, m)
ZELM_ARRAY(VALUES_MA, ma)
ZELM_SINGLE(VECTORS_M, m)
ZELM_ARRAY(VECTORS_MA, ma)
