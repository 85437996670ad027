#include "lu_general.hpp"

#include "../frame/checks.hpp"
#include "../frame/estimate.hpp"
#include "../frame/member.hpp"
#include "../frame/parallel.hpp"
#include "../frame/walk.hpp"

namespace zelm {
namespace {

constexpr Limits limits = {1001, 1001}; // of n*n*count

// ---- one object ----

// Order 3 to 6. Each row is written once it is final: after a failure the rows before the failing
// one are, and the exchanges made so far.
template <int N, class T, class Source, class Destination>
ZelStatus factor_object(const Source &source, int *index, const Destination &destination) {
    T a[N][N];
    int p[N];
    unroll<N>(ZELM_EACH(i) { unroll<N>(ZELM_EACH(j) { a[i][j] = get(source, i, j); }); });
    const bool failed = factor<N>(
        a, p, straight_line_threshold<T>,
        ZELM_EACH(i) { unroll<N>(ZELM_EACH(j) { put(destination, p[i], j, a[i][j]); }); });
    unroll<N>(ZELM_EACH(i) { index[i] = p[i]; });
    return failed ? zelStatusSingular : zelStatusOk;
}

template <class From, class To>
ZELM_INLINE void copy_object(int n, const From &from, const To &to) {
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j)
            put(to, i, j, get(from, i, j));
}
template <int largest, class T, class Source, class Destination>
[[gnu::noinline]] ZelStatus factor_on_stack(int n, const Source source, int *index,
                                            const Destination destination) {
    alignas(row_bytes) char tile[largest * largest * sizeof(T)];
    const StridedView<T> t = {tile, n * Distance{sizeof(T)}, sizeof(T)};
    copy_object(n, source, t);
    const ZelStatus status = factor_in_place<T, true>(t, index, n);
    copy_object(n, t, destination);
    return status;
}
// Any other order, in the destination; where its elements are apart, on the stack: up to 32 KiB of
// double, but little where a walk's stage lies there too.
template <class T, class Source, class Destination>
ZelStatus factor_object(int n, const Source &source, int *index, const Destination &destination,
                        bool packed) {
    if (!packed && n <= largest_lane_order)
        return factor_on_stack<largest_lane_order, T>(n, source, index, destination);
    if (!packed && n <= 64)
        return factor_on_stack<64, T>(n, source, index, destination);
    copy_object(n, source, destination);
    return packed ? factor_in_place<T, true>(destination, index, n)
                  : factor_in_place<T, false>(destination, index, n);
}

template <class Source, class Destination>
ZelStatus y8_ownzelmLUDecomp_m(const Source &source, int *index, const Destination &destination,
                               int n, int object) {
    using T = typename Source::Element;
    const auto from = view(source, object, {n, n});
    const auto to = view(destination, object, {n, n});
    return with_order<3, 6>(
        n, [&](auto N) { return factor_object<N, T>(from, index, to); },
        [&] { return factor_object<T>(n, from, index, to, rows_adjacent(destination)); });
}

// ---- arrays ----

template <int N, class T>
struct FactorGroup {
    template <class X, class Y>
    ZELM_INLINE unsigned operator()(const Group &group, const X &x, const IndexRows<int> &numbers,
                                    const Y &y) const {
        using S = Lanes<T>;
        S a[N][N];
        IndexOf<S> p[N];
        load_lanes<T>(a, x, group.first);
        const unsigned failing =
            lane_bits(factor<N>(a, p, straight_line_threshold<T>, ZELM_EACH(){}));
        if (group.stores(failing)) [[likely]] {
            store_lanes<T>(y, group.first, a, ComputedRows<T, N>{p});
            store_numbers<T, N>(numbers, group.first, p);
        }
        return failing;
    }
};

// Any other order up to largest_lane_order.
template <class T>
struct FactorBlock {
    unsigned operator()(const Group &group, const Objects &x, const IndexRows<int> &numbers,
                        const Objects &y) const {
        using S = Lanes<T>;
        const int n = x.shape.width;
        S a[largest_lane_elements], multipliers[largest_lane_order];
        IndexOf<S> p[largest_lane_order];
        load_block(a, x, group.first);
        const unsigned failing =
            lane_bits(factor_lanes<S>(a, p, n, general_threshold<T>, multipliers));
        if (group.stores(failing)) {
            const ComputedNumbers<T> rows = {p};
            store_block(y, group.first, a, rows);
            for (int l = 0; l < lanes_of<S>; ++l)
                for (int i = 0; i < n; ++i)
                    numbers.row(group.first + l)[i] = rows(i, l);
        }
        return failing;
    }
};

template <class T>
ZelStatus factor_arrays(int count, const Objects &x, const IndexRows<int> &index, const Objects &y,
                        const Single &single) {
    const int n = index.length;
    if (n == 1 || n > largest_lane_order)
        return walk_singly(count, single);
    const Overlap overlap(count, y, x);
    return with_order<3, 6>(
        n,
        [&](auto N) {
            return walk<T>(count, overlap, FactorGroup<N, T>{}, single, walked<T, N, N>(x),
                           walked_numbers<N>(index, n), walked<T, N, N>(y));
        },
        [&] {
            constexpr int most = largest_lane_elements;
            return walk_blocks<T>(count, overlap, FactorBlock<T>{}, single, walked_blocks<most>(x),
                                  walked_numbers<largest_lane_order>(index, n),
                                  walked_blocks<most>(y));
        });
}

template <class Source, class Destination>
ZelStatus y8_ownzelmLUDecomp_ma(int count, const Source &source, const IndexRows<int> &index,
                                const Destination &destination) {
    const int n = index.length;
    return factor_arrays<typename Source::Element>(
        count, objects(source, {n, n}), index, objects(destination, {n, n}),
        [&](int k) { return y8_ownzelmLUDecomp_m(source, index.row(k), destination, n, k); });
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

ZELM_MEMBERS(LUDecomp, (m), lu_decomp(src, pDstIndex, dst, widthHeight))
ZELM_MEMBERS(LUDecomp, (ma), lu_decomp(src, pDstIndex, dst, widthHeight, count))
