#include "qr.hpp"

#include "../frame/checks.hpp"
#include "../frame/element_at.hpp"
#include "../frame/estimate.hpp"
#include "../frame/member.hpp"
#include "../frame/parallel.hpp"
#include "../frame/walk.hpp"

namespace zelm {
namespace {

constexpr Limits standard_limits = {2801, 2801}, table_limits = {1801, 1801}; // of 2*w*h*count

// In the destination, where a failure leaves the columns before the failing one factored.
template <class Source, class Destination>
ZelStatus y8_ownzelmQRDecomp_m(const Source &source, const Destination &destination, Shape shape,
                               int object) {
    using T = typename Source::Element;
    const auto from = view(source, object, shape);
    const auto to = view(destination, object, shape);
    for (int i = 0; i < shape.height; ++i)
        for (int j = 0; j < shape.width; ++j)
            put(to, i, j, T{get(from, i, j)});
    const bool failed = factor_qr<T>(shape.width, shape.height,
                                     [&](int i, int j) { return element_at<T>(to, i, j); });
    return failed ? zelStatusDivByZero : zelStatusOk;
}

template <int H, int W, class T>
struct FactorGroup {
    template <class X, class Y>
    ZELM_INLINE unsigned operator()(const Group &group, const X &x, const Y &y) const {
        Lanes<T> d[H][W];
        load_lanes<T>(d, x, group.first);
        const unsigned failing = lane_bits(factor_qr(d));
        if (group.stores(failing)) [[likely]]
            store_lanes<T>(y, group.first, d);
        return failing;
    }
};

// Any other shape of up to largest_lane_elements.
template <class T>
struct FactorBlock {
    unsigned operator()(const Group &group, const Objects &x, const Objects &y) const {
        using S = Lanes<T>;
        const int width = x.shape.width;
        S d[largest_lane_elements];
        load_block(d, x, group.first);
        const unsigned failing = lane_bits(factor_qr<S>(
            width, x.shape.height, [&](int i, int j) -> S & { return d[i * width + j]; }));
        if (group.stores(failing))
            store_block(y, group.first, d);
        return failing;
    }
};

template <class T>
ZelStatus factor_arrays(int count, const Objects &x, const Objects &y, const Single &single) {
    const Shape shape = x.shape;
    if (shape.height > largest_lane_elements / shape.width)
        return walk_singly(count, single);
    const Overlap overlap(count, y, x);
    const auto fixed = [&](auto H, auto W) {
        return walk<T>(count, overlap, FactorGroup<H, W, T>{}, single, walked<T, H, W>(x),
                       walked<T, H, W>(y));
    };
    // The one oblong shape of use in fits has straight-line code too.
    if (shape.height == 8 && shape.width == 4)
        return fixed(std::integral_constant<int, 8>{}, std::integral_constant<int, 4>{});
    return with_order<3, 6>(
        shape.width == shape.height ? shape.width : 0, [&](auto N) { return fixed(N, N); },
        [&] {
            return walk_blocks<T>(count, overlap, FactorBlock<T>{}, single,
                                  walked_blocks<largest_lane_elements>(x),
                                  walked_blocks<largest_lane_elements>(y));
        });
}

template <class Source, class Destination>
ZelStatus y8_ownzelmQRDecomp_ma(int count, const Source &source, const Destination &destination,
                                Shape shape) {
    return factor_arrays<typename Source::Element>(
        count, objects(source, shape), objects(destination, shape),
        [&](int k) { return y8_ownzelmQRDecomp_m(source, destination, shape, k); });
}

template <class Source, class T, class Destination>
ZELM_INLINE ZelStatus qr_decomp(const Source &source, T *buffer, const Destination &destination,
                                int width, int height) {
    if (const ZelStatus s = first_failure(pointers(source, buffer, destination),
                                          sizes(width, height), strides(source, destination),
                                          shifts(source, destination), at_most(width, height)))
        return s;
    return y8_ownzelmQRDecomp_m(source, destination, {height, width}, 0);
}

// The reflections live in the destination: the buffer is not needed.
template <class Source, class T, class Destination>
ZELM_INLINE ZelStatus qr_decomp(const Source &source, T *buffer, const Destination &destination,
                                int width, int height, int count) {
    if (const ZelStatus s = first_failure(pointers(source, buffer, destination), counts(count),
                                          sizes(width, height), strides(source, destination),
                                          shifts(source, destination), at_most(width, height)))
        return s;
    constexpr Limits limits =
        description_of<Destination> == Description::standard ? standard_limits : table_limits;
    return run_objects(
        limits.serial(Estimate(2) * width * height * count, true),
        [width, height](int objects, const Source &from, const Destination &to) {
            const Shape shape = {height, width};
            return with_strides(
                [&](const auto &x, const auto &y) {
                    return y8_ownzelmQRDecomp_ma(objects, x, y, shape);
                },
                shaped(from, shape), shaped(to, shape));
        },
        count, source, destination);
}

} // namespace
} // namespace zelm

ZELM_MEMBERS(QRDecomp, (m), qr_decomp(src, pBuffer, dst, width, height))
ZELM_MEMBERS(QRDecomp, (ma), qr_decomp(src, pBuffer, dst, width, height, count))
