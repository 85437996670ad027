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

template <int N, class T>
struct DetGroup {
    template <class X>
    ZELM_INLINE unsigned operator()(const Group &group, const X &x, const Scalars<T> &y) const {
        Lanes<T> a[N][N];
        load_lanes<T>(a, x, group.first);
        store<Lanes<T>>(y.object(group.first), determinant(a));
        return 0;
    }
};

static_assert(largest_lane_order <= largest_lane_elimination);

// Any other order up to largest_lane_order.
template <class T>
struct DetBlock {
    unsigned operator()(const Group &group, const Objects &x, const Scalars<T> &y) const {
        Lanes<T> a[largest_lane_elements];
        const int n = x.shape.width;
        const T threshold = elimination_threshold<T>(n);
        load_block(a, x, group.first);
        const auto found = eliminate_lanes<OfDeterminant>(a, n, threshold);
        store<Lanes<T>>(y.object(group.first), result(found, threshold));
        return 0;
    }
};

template <class T>
ZelStatus det_arrays(int count, const Objects &x, const Scalars<T> &results, const Single &single) {
    const int n = x.shape.width;
    if (n > largest_lane_order)
        return walk_singly(count, single);
    const auto y = walked_scalars(results);
    const Overlap overlap(count, y.objects, x);
    return with_order<3, 6>(
        n,
        [&](auto N) {
            return walk<T>(count, overlap, DetGroup<N, T>{}, single, walked<T, N, N>(x), y);
        },
        [&] {
            return walk_blocks<T>(count, overlap, DetBlock<T>{}, single,
                                  walked_blocks<largest_lane_elements>(x), y);
        });
}

template <class Source, class T>
ZelStatus y8_ownzelmDet_ma(void *buffer, int count, const Source &source, const Scalars<T> &results,
                           int n) {
    return det_arrays(count, objects(source, {n, n}), results, [&](int k) {
        store<T>(results.object(k), y8_ownzelmDet_m<T>(source, n, k, buffer));
        return zelStatusOk;
    });
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

ZELM_MEMBERS(Det, (m), det(src, widthHeight, pBuffer, pDst))
ZELM_MEMBERS(Det, (ma), det(src, widthHeight, pBuffer, pDst, count))
