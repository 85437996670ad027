#include "cholesky.hpp"

#include "../frame/checks.hpp"
#include "../frame/estimate.hpp"
#include "../frame/member.hpp"
#include "../frame/parallel.hpp"
#include "../frame/walk.hpp"

namespace zelm {
namespace {

constexpr Limits standard_limits = {7501, 7501}, table_limits = {2001, 2001}; // of n*n*count

// After a failure the rows before the failing one are written, and of it what is left of the
// diagonal.
template <int N, class T, class Source, class Destination>
ZelStatus factor_object(const Source &source, const Destination &destination) {
    T a[N][N];
    unroll<N>(ZELM_EACH(i) { unroll<i + 1>(ZELM_EACH(j) { a[i][j] = get(source, i, j); }); });
    const bool failed = factor_cholesky<N>(
        a, [&](int i, int j) __attribute__((always_inline)) { put(destination, i, j, a[i][j]); });
    return failed ? zelStatusNotPositiveDefinite : zelStatusOk;
}

template <class T, class Source, class Destination>
ZelStatus factor_object(int n, const Source &source, const Destination &f) {
    const auto rest = [&](int i, int j) {
        T x = get(source, i, j);
        for (int k = 0; k < j; ++k)
            x = x - get(f, i, k) * get(f, j, k);
        return x;
    };
    for (int i = 0; i < n; ++i) {
        for (int j = 0; j < i; ++j)
            put(f, i, j, rest(i, j) * get(f, j, j));
        const T d = rest(i, i);
        if (0 >= d)
            return zelStatusNotPositiveDefinite;
        put(f, i, i, refined_reciprocal_root(d));
    }
    return zelStatusOk;
}

template <class Source, class Destination>
ZelStatus y8_ownzelmCholeskyDecomp_m(const Source &source, const Destination &destination, int n,
                                     int object) {
    using T = typename Source::Element;
    const auto from = view(source, object, {n, n});
    const auto to = view(destination, object, {n, n});
    return with_order<3, 6>(
        n, [&](auto N) { return factor_object<N, T>(from, to); },
        [&] { return factor_object<T>(n, from, to); });
}

// Registers of dense objects. Roots wait for one another; those of another register fill the time
// where the processor does not get as far as the next group by itself.
constexpr int side_by_side = 2;

template <int N, class Source, class Destination>
ZelStatus factor_array(const Source &source, const Destination &destination, int count) {
    using T = typename Source::Element;
    const Shape shape = {N, N};
    const Footprint from(source, shape, LowerTriangle{});
    const Footprint to(destination, shape, LowerTriangle{});
    const Overlap overlap(count, shape, to, from);
    return walk<T, side_by_side, 1>(
        count, overlap,
        [](const auto &group, const auto &x, const auto &y) __attribute__((always_inline)) {
            LanesOf<T, decltype(group)> a[N][N];
            load_lanes<T, LowerTriangle>(a, x, group.first);
            const unsigned failing = lane_bits(factor_cholesky<N>(a, [](int, int) {}));
            if (group.stores(failing)) [[likely]]
                store_lanes<T, LowerTriangle>(y, group.first, a);
            return failing;
        },
        [&](int n) __attribute__((noinline)) {
            return y8_ownzelmCholeskyDecomp_m(source, destination, N, n);
        },
        walked<N, N, LowerTriangle>(source), walked<N, N, LowerTriangle>(destination));
}

constexpr int largest_lane_order = 16; // 4 KiB of registers

template <class Source, class Destination>
ZelStatus factor_array(int n, const Source &source, const Destination &destination, int count) {
    using T = typename Source::Element;
    using S = Lanes<T>;
    constexpr int elements = largest_lane_order * largest_lane_order;
    const Shape shape = {n, n};
    const Footprint from(source, shape, LowerTriangle{});
    const Footprint to(destination, shape, LowerTriangle{});
    const Overlap overlap(count, shape, to, from);
    return walk<T>(
        count, overlap,
        [&](const Group &group, const auto &x, const auto &y) {
            S a[elements];
            const auto all = [&](const auto &f) __attribute__((always_inline)) {
                for (int i = 0; i < n; ++i)
                    in_steps<T>(
                        0, i + 1, [&](int j, auto K) __attribute__((always_inline)) {
                            f(i, j, *reinterpret_cast<S(*)[K]>(a + i * n + j));
                        });
            };
            all([&](int i, int j, auto &part) __attribute__((always_inline)) {
                load_row<T>(part, x, group.first, shape, i, j);
            });
            const unsigned failing = lane_bits(factor_cholesky<S>(a, n));
            if (group.stores(failing))
                all([&](int i, int j, auto &part) __attribute__((always_inline)) {
                    store_row<T>(y, group.first, shape, i, j, part);
                });
            return failing;
        },
        [&](int k) __attribute__((noinline)) {
            return y8_ownzelmCholeskyDecomp_m(source, destination, n, k);
        },
        walked<elements, LowerTriangle>(source, shape),
        walked<elements, LowerTriangle>(destination, shape));
}

template <class Source, class Destination>
ZelStatus y8_ownzelmCholeskyDecomp_ma(int count, const Source &source,
                                      const Destination &destination, int n) {
    return with_order<3, 6>(
        n, [&](auto N) { return factor_array<N>(source, destination, count); },
        [&] {
            if (n > 1 && n <= largest_lane_order)
                return factor_array(n, source, destination, count);
            return walk_singly(count, [&](int k) {
                return y8_ownzelmCholeskyDecomp_m(source, destination, n, k);
            });
        });
}

template <class Source, class Destination>
ZELM_INLINE ZelStatus cholesky_decomp(const Source &source, const Destination &destination, int n) {
    if (const ZelStatus s =
            first_failure(pointers(source, destination), sizes(n), strides(source, destination),
                          shifts(source, destination)))
        return s;
    return y8_ownzelmCholeskyDecomp_m(source, destination, n, 0);
}

template <class Source, class Destination>
ZELM_INLINE ZelStatus cholesky_decomp(const Source &source, const Destination &destination, int n,
                                      int count) {
    if (const ZelStatus s =
            first_failure(pointers(source, destination), counts(count), sizes(n),
                          strides(source, destination), shifts(source, destination)))
        return s;
    constexpr Limits limits =
        description_of<Destination> == Description::standard ? standard_limits : table_limits;
    return run_objects(
        limits.serial(Estimate(n) * n * count, true),
        [n](int objects, const Source &from, const Destination &to) {
            return with_strides(
                [&](const auto &x, const auto &y) {
                    return y8_ownzelmCholeskyDecomp_ma(objects, x, y, n);
                },
                shaped(from, {n, n}), shaped(to, {n, n}));
        },
        count, source, destination);
}

} // namespace
} // namespace zelm

#define CHOLESKY_M(D, T, suffix, kind)                                                             \
    ZELM_MEMBER(zelmCholeskyDecomp_##kind##_##suffix,                                              \
                (ZELM_PARAMETERS(D, kind, const T, src), ZELM_PARAMETERS(D, kind, T, dst), int n), \
                zelm::cholesky_decomp(ZELM_OPERAND(D, kind, const T, src),                         \
                                      ZELM_OPERAND(D, kind, T, dst), n))
#define CHOLESKY_MA(D, T, suffix, kind)                                                            \
    ZELM_MEMBER(zelmCholeskyDecomp_##kind##_##suffix,                                              \
                (ZELM_PARAMETERS(D, kind, const T, src), ZELM_PARAMETERS(D, kind, T, dst), int n,  \
                 int count),                                                                       \
                zelm::cholesky_decomp(ZELM_OPERAND(D, kind, const T, src),                         \
                                      ZELM_OPERAND(D, kind, T, dst), n, count))

ZELM_SINGLE(CHOLESKY_M, m)
ZELM_ARRAY(CHOLESKY_MA, ma)
