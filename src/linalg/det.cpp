#include "det.hpp"
#include "elimination.hpp"

#include "../frame/checks.hpp"
#include "../frame/estimate.hpp"
#include "../frame/member.hpp"
#include "../frame/parallel.hpp"
#include "../frame/walk.hpp"

namespace zelm {
namespace {

constexpr Limits limits = {14401, 14401}; // of n*count

// 0 where a pivot or the last element is too small.
template <class S>
ZELM_INLINE S result(const Elimination<S> &found, ElementOf<S> threshold) {
    const auto large = magnitude(found.last) > splat<S>(threshold);
    return select(found.small, splat<S>(0), select(large, found.determinant(), splat<S>(0)));
}

template <class T, class Source>
T y8_ownzelmDet_m(const Source &source, int n, int object, void *buffer) {
    const auto from = view(source, object, {n, n});
    return with_order<3, 6>(
        n,
        [&](auto N) {
            T a[N][N];
            unroll<N>(ZELM_EACH(i) { unroll<N>(ZELM_EACH(j) { a[i][j] = get(from, i, j); }); });
            return determinant(a);
        },
        [&] {
            const T threshold = elimination_threshold<T>(n);
            pack(from, n, static_cast<char *>(buffer));
            return result(eliminate<OfDeterminant, T>(static_cast<char *>(buffer), n, threshold),
                          threshold);
        });
}

template <int N, class Source, class T, class Single>
void det_array(const Source &source, const Scalars<T> &results, int count, const Single &single) {
    const Footprint from(source, {N, N});
    const Footprint to(results, {1, 1});
    const Overlap overlap(count, {1, 1}, to, from);
    walk<T>(
        count, overlap,
        [](const Group &group, const auto &x, const auto &y) __attribute__((always_inline)) {
            Lanes<T> a[N][N];
            load_lanes<T>(a, x, group.first);
            store<Lanes<T>>(y.object(group.first), determinant(a));
            return 0u;
        },
        single, walked<N, N>(source), walked<1, 1>(results));
}

constexpr int largest_lane_order = 16; // 4 KiB of registers
static_assert(largest_lane_order <= largest_lane_elimination);

template <class Source, class T, class Single>
void det_array(int n, const Source &source, const Scalars<T> &results, int count,
               const Single &single) {
    using S = Lanes<T>;
    constexpr int elements = largest_lane_order * largest_lane_order;
    const Shape shape = {n, n};
    const T threshold = elimination_threshold<T>(n);
    const Footprint from(source, shape);
    const Footprint to(results, {1, 1});
    const Overlap overlap(count, {1, 1}, to, from);
    walk<T>(
        count, overlap,
        [&](const Group &group, const auto &x, const auto &y) {
            S a[elements];
            for (int i = 0; i < n; ++i)
                in_steps<T>(
                    0, n, [&](int j, auto K) __attribute__((always_inline)) {
                        load_row<T>(*reinterpret_cast<S(*)[K]>(a + i * n + j), x, group.first,
                                    shape, i, j);
                    });
            const auto found = eliminate_lanes<OfDeterminant>(a, n, threshold);
            store<S>(y.object(group.first), result(found, threshold));
            return 0u;
        },
        single, walked<elements>(source, shape), walked<1, 1>(results));
}

template <class Source, class T>
ZelStatus y8_ownzelmDet_ma(void *buffer, int count, const Source &source, const Scalars<T> &results,
                           int n) {
    const auto single = [&](int k) __attribute__((noinline)) {
        store<T>(results.object(k), y8_ownzelmDet_m<T>(source, n, k, buffer));
        return zelStatusOk;
    };
    with_order<3, 6>(
        n, [&](auto N) { det_array<N>(source, results, count, single); },
        [&] {
            if (n <= largest_lane_order)
                det_array(n, source, results, count, single);
            else
                walk_singly(count, single);
        });
    return zelStatusOk;
}

template <class Source, class T>
ZELM_INLINE ZelStatus det(const Source &source, int n, T *buffer, T *result) {
    if (const ZelStatus s = first_failure(pointers(source, buffer, result), sizes(n),
                                          strides(source), shifts(source)))
        return s;
    store<T>(result, y8_ownzelmDet_m<T>(source, n, 0, buffer));
    return zelStatusOk;
}

template <class Source, class T>
ZELM_INLINE ZelStatus det(const Source &source, int n, T *buffer, T *result, int count) {
    if (const ZelStatus s = first_failure(pointers(source, buffer, result), counts(count), sizes(n),
                                          strides(source), shifts(source)))
        return s;
    return run_objects_in(
        scratch_matrix(buffer, n), limits.serial(Estimate(n) * count, true),
        [n](void *scratch, int objects, const Source &from, const Scalars<T> &to) {
            return with_strides(
                [&](const auto &x) { return y8_ownzelmDet_ma(scratch, objects, x, to, n); },
                shaped(from, {n, n}));
        },
        count, source, Scalars<T>{result});
}

} // namespace
} // namespace zelm

#define DET_M(D, T, suffix, kind)                                                                  \
    ZELM_MEMBER(zelmDet_##kind##_##suffix,                                                         \
                (ZELM_PARAMETERS(D, kind, const T, src), int n, T *buffer, T *dst),                \
                zelm::det(ZELM_OPERAND(D, kind, const T, src), n, buffer, dst))
#define DET_MA(D, T, suffix, kind)                                                                 \
    ZELM_MEMBER(zelmDet_##kind##_##suffix,                                                         \
                (ZELM_PARAMETERS(D, kind, const T, src), int n, T *buffer, T *dst, int count),     \
                zelm::det(ZELM_OPERAND(D, kind, const T, src), n, buffer, dst, count))

ZELM_SINGLE(DET_M, m)
ZELM_ARRAY(DET_MA, ma)
