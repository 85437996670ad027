// Arrays of small vectors at any distance, negative and zero included.
#pragma once

#include "small.hpp"

#include "../frame/walk.hpp"

namespace zelm::geom3d {

template <class T>
struct Points {
    T *base;
    int stride;

    ZELM_INLINE ByteOf<T> *at(Distance n) const {
        return reinterpret_cast<ByteOf<T> *>(base) + n * stride;
    }
};
using Source = Points<const float>;
using Destination = Points<float>;

// The memory of all points, elements apart.
template <class T>
ZELM_INLINE Span span(const Points<T> &points, int elements, int count) {
    const auto first = reinterpret_cast<Number>(points.at(0));
    const auto last = reinterpret_cast<Number>(points.at(count - 1));
    const Number bytes = static_cast<Number>(elements) * sizeof(T);
    return {first < last ? first : last, (first < last ? last : first) + bytes};
}

// Whether several points may be done at once: no destination point overlaps another one or the
// source of another one.
struct Apart {
    bool all;
    ZELM_INLINE bool clear(int, int) const { return all; }
};
template <int n, int m>
ZELM_INLINE Apart apart(const Source &src, const Destination &dst, int count) {
    const Distance step = dst.stride < 0 ? -Distance{dst.stride} : Distance{dst.stride};
    const bool same = src.base == dst.base && src.stride == dst.stride;
    constexpr Distance size = m * sizeof(float), larger = (n > m ? n : m) * sizeof(float);
    return {count > 0 && (same ? step >= larger
                               : step >= size && !span(src, n, count).meets(span(dst, m, count)))};
}

// kernel(v, result) makes m values of n, one register each for four points; single(n) does point n.
template <int n, int m, class Kernel, class Single>
ZELM_INLINE void each_point(const Source &src, const Destination &dst, int count,
                            const Kernel &kernel, const Single &single) {
    walk<float>(
        count, apart<n, m>(src, dst, count),
        [&](const Group &group, const auto &x, const auto &y) __attribute__((always_inline)) {
            Row v[1][n], result[1][m];
            load_lanes<float>(v, x, group.first);
            kernel(v[0], result[0]);
            store_lanes<float>(y, group.first, result);
            return 0u;
        },
        [&](int k) __attribute__((noinline)) {
            single(src.at(k), dst.at(k));
            return zelStatusOk;
        },
        walked<1, n>(Dense<const float, 1, n>{src.at(0), src.stride}),
        walked<1, m>(Dense<float, 1, m>{dst.at(0), dst.stride}));
}

} // namespace zelm::geom3d
