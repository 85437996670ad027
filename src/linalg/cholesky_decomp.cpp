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

template <int N, class T>
struct FactorGroup {
    template <class G, class X, class Y>
    ZELM_INLINE unsigned operator()(const G &group, const X &x, const Y &y) const {
        LanesOf<T, G> a[N][N];
        load_lanes<T, LowerTriangle>(a, x, group.first);
        const unsigned failing = lane_bits(factor_cholesky<N>(a, [](int, int) {}));
        if (group.stores(failing)) [[likely]]
            store_lanes<T, LowerTriangle>(y, group.first, a);
        return failing;
    }
};

// Any other order up to largest_lane_order.
template <class T>
struct FactorBlock {
    unsigned operator()(const Group &group, const Objects &x, const Objects &y) const {
        Lanes<T> a[largest_lane_elements];
        load_block(a, x, group.first);
        const unsigned failing = lane_bits(factor_cholesky<Lanes<T>>(a, x.shape.width));
        if (group.stores(failing))
            store_block(y, group.first, a);
        return failing;
    }
};

template <class T>
ZelStatus factor_arrays(int count, const Objects &x, const Objects &y, const Single &single) {
    using Part = LowerTriangle;
    const int n = x.shape.width;
    if (n == 1 || n > largest_lane_order)
        return walk_singly(count, single);
    const Overlap overlap(count, y, x);
    return with_order<3, 6>(
        n,
        [&](auto N) {
            return walk<T, side_by_side>(count, overlap, FactorGroup<N, T>{}, single,
                                         walked<T, N, N, Part>(x), walked<T, N, N, Part>(y));
        },
        [&] {
            return walk_blocks<T>(count, overlap, FactorBlock<T>{}, single,
                                  walked_blocks<largest_lane_elements>(x),
                                  walked_blocks<largest_lane_elements>(y));
        });
}

template <class Source, class Destination>
ZelStatus y8_ownzelmCholeskyDecomp_ma(int count, const Source &source,
                                      const Destination &destination, int n) {
    return factor_arrays<typename Source::Element>(
        count, objects_of_part<LowerTriangle>(source, {n, n}),
        objects_of_part<LowerTriangle>(destination, {n, n}),
        [&](int k) { return y8_ownzelmCholeskyDecomp_m(source, destination, n, k); });
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

ZELM_MEMBERS(CholeskyDecomp, (m), cholesky_decomp(src, dst, widthHeight))
ZELM_MEMBERS(CholeskyDecomp, (ma), cholesky_decomp(src, dst, widthHeight, count))
