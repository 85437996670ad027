#include "lu_kernels.hpp"

#include "../frame/checks.hpp"
#include "../frame/estimate.hpp"
#include "../frame/member.hpp"
#include "../frame/parallel.hpp"

namespace zelm {
namespace {

constexpr Limits limits = {1001, 1001}; // of n*n*count

template <class Source, class Destination>
ZelStatus factor_array_general(const Source &source, const IndexRows<int> &index,
                               const Destination &destination, int count) {
    using T = typename Source::Element;
    using S = Lanes<T>;
    constexpr int elements = largest_lane_order * largest_lane_order;
    const int n = index.length;
    const Shape shape = {n, n};
    const Footprint from(source, shape);
    const Footprint to(destination, shape);
    const Overlap overlap(count, shape, to, from);
    return walk<T>(
        count, overlap,
        [&](const Group &group, const auto &x, const auto &numbers, const auto &y) {
            S a[elements], multipliers[largest_lane_order];
            IndexOf<S> p[largest_lane_order];
            const auto all = [&](const auto &f) __attribute__((always_inline)) {
                for (int i = 0; i < n; ++i)
                    in_steps<T>(
                        0, n, [&](int j, auto K) __attribute__((always_inline)) {
                            f(i, j, *reinterpret_cast<S(*)[K]>(a + i * n + j));
                        });
            };
            all([&](int i, int j, auto &part) __attribute__((always_inline)) {
                load_row<T>(part, x, group.first, shape, i, j);
            });
            const unsigned failing =
                lane_bits(factor_lanes<S>(a, p, n, general_threshold<T>, multipliers));
            if (group.stores(failing)) {
                const auto row = [&](int i, int lane) { return static_cast<int>(p[i][lane]); };
                all([&](int i, int j, auto &part) __attribute__((always_inline)) {
                    store_row<T>(y, group.first, shape, i, j, part, RowNumbers{row});
                });
                for (int l = 0; l < lanes_of<S>; ++l)
                    for (int i = 0; i < n; ++i)
                        numbers.row(group.first + l)[i] = row(i, l);
            }
            return failing;
        },
        [&](int k) __attribute__((noinline)) {
            return y8_ownzelmLUDecomp_m(source, index.row(k), destination, n, k);
        },
        walked<elements>(source, shape), walked<largest_lane_order>(index, {}),
        walked<elements>(destination, shape));
}

template <class Source, class Destination>
ZelStatus y8_ownzelmLUDecomp_ma(int count, const Source &source, const IndexRows<int> &index,
                                const Destination &destination) {
    return with_order<3, 6>(
        index.length, [&](auto N) { return factor_array<N>(source, index, destination, count); },
        [&] {
            if (index.length > 1 && index.length <= largest_lane_order)
                return factor_array_general(source, index, destination, count);
            return walk_singly(count, [&](int k) {
                return y8_ownzelmLUDecomp_m(source, index.row(k), destination, index.length, k);
            });
        });
}

template <class Source, class Destination>
ZELM_INLINE ZelStatus lu_decomp(const Source &source, int *index, const Destination &destination,
                                int n) {
    if (const ZelStatus s =
            first_failure(pointers(source, index, destination), sizes(n),
                          strides(source, destination), shifts(source, destination)))
        return s;
    return y8_ownzelmLUDecomp_m(source, index, destination, n, 0);
}

template <class Source, class Destination>
ZELM_INLINE ZelStatus lu_decomp(const Source &source, int *index, const Destination &destination,
                                int n, int count) {
    if (const ZelStatus s =
            first_failure(pointers(source, index, destination), counts(count), sizes(n),
                          strides(source, destination), shifts(source, destination)))
        return s;
    return run_objects(
        limits.serial(Estimate(n) * n * count, true),
        [n](int objects, const Source &from, const IndexRows<int> &rows, const Destination &to) {
            return with_strides(
                [&](const auto &x, const auto &y) {
                    return y8_ownzelmLUDecomp_ma(objects, x, rows, y);
                },
                shaped(from, {n, n}), shaped(to, {n, n}));
        },
        count, source, IndexRows<int>{index, n}, destination);
}

} // namespace
} // namespace zelm

#define LU_M(D, T, suffix, kind)                                                                   \
    ZELM_MEMBER(zelmLUDecomp_##kind##_##suffix,                                                    \
                (ZELM_PARAMETERS(D, kind, const T, src), int *index,                               \
                 ZELM_PARAMETERS(D, kind, T, dst), int n),                                         \
                zelm::lu_decomp(ZELM_OPERAND(D, kind, const T, src), index,                        \
                                ZELM_OPERAND(D, kind, T, dst), n))
#define LU_MA(D, T, suffix, kind)                                                                  \
    ZELM_MEMBER(zelmLUDecomp_##kind##_##suffix,                                                    \
                (ZELM_PARAMETERS(D, kind, const T, src), int *index,                               \
                 ZELM_PARAMETERS(D, kind, T, dst), int n, int count),                              \
                zelm::lu_decomp(ZELM_OPERAND(D, kind, const T, src), index,                        \
                                ZELM_OPERAND(D, kind, T, dst), n, count))

ZELM_SINGLE(LU_M, m)
ZELM_ARRAY(LU_MA, ma)
