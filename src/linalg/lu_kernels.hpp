// LU decomposition of one object, and of arrays of one order.
#pragma once

#include "lu_general.hpp"

#include "../frame/walk.hpp"

namespace zelm {

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

template <int N, class Source, class Destination>
ZelStatus factor_array(const Source &source, const IndexRows<int> &index,
                       const Destination &destination, int count) {
    using T = typename Source::Element;
    using S = Lanes<T>;
    const Shape shape = {N, N};
    const Footprint from(source, shape);
    const Footprint to(destination, shape);
    const Overlap overlap(count, shape, to, from);
    return walk<T>(
        count, overlap,
        [](const Group &group, const auto &x, const auto &numbers, const auto &y)
            __attribute__((always_inline)) {
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
            },
        [&](int n) __attribute__((noinline)) {
            return y8_ownzelmLUDecomp_m(source, index.row(n), destination, N, n);
        },
        walked<N, N>(source), walked<N>(index, {}), walked<N, N>(destination));
}

// The kernels that lu_small.cpp compiles. They all but fit the registers, and gain from scheduling
// that costs the larger ones their registers.
template <class T>
using StandardMatrices = Standard<T, 2, true>;
template <class T>
using LayoutMatrices = Layout<T, 2>;
template <class T>
using TabledMatrices = Tabled<T, 2, true>;

#define ZELM_LU_KERNEL(extern_or_not, N, T, Matrices)                                              \
    extern_or_not template ZelStatus factor_array<N>(                                              \
        const Matrices<const T> &, const IndexRows<int> &, const Matrices<T> &, int);
#define ZELM_LU_KERNELS(extern_or_not, N, T)                                                       \
    ZELM_LU_KERNEL(extern_or_not, N, T, StandardMatrices)                                          \
    ZELM_LU_KERNEL(extern_or_not, N, T, LayoutMatrices)                                            \
    ZELM_LU_KERNEL(extern_or_not, N, T, TabledMatrices)
#define ZELM_LU_SMALL(extern_or_not)                                                               \
    ZELM_LU_KERNELS(extern_or_not, 3, float)                                                       \
    ZELM_LU_KERNELS(extern_or_not, 3, double)                                                      \
    ZELM_LU_KERNELS(extern_or_not, 4, double)

ZELM_LU_SMALL(extern)

} // namespace zelm
