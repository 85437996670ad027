// Arrays of small vectors at any distance, negative and zero included.
#pragma once

#include "small.hpp"

#include "../frame/overlap.hpp"

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
template <int n, int m>
ZELM_INLINE bool apart(const Source &src, const Destination &dst, int count) {
    const Distance step = dst.stride < 0 ? -Distance{dst.stride} : Distance{dst.stride};
    const bool same = src.base == dst.base && src.stride == dst.stride;
    constexpr Distance size = m * sizeof(float), larger = (n > m ? n : m) * sizeof(float);
    return count > 0 && (same ? step >= larger
                              : step >= size && !span(src, n, count).meets(span(dst, m, count)));
}

inline constexpr Distance packed_point = 3 * sizeof(float);

// Four points without gaps, x0 y0 z0 x1 | y1 z1 x2 y2 | z2 x3 y3 z3, to a register for each
// coordinate. Blending leaves every coordinate in a register of its own, in an order that one
// shuffle mends; the same exchange turns coordinates back into points.
ZELM_INLINE void exchange(Row (&v)[3]) {
    const Row a = v[0], b = v[1], c = v[2];
    const Row x = __builtin_shufflevector(__builtin_shufflevector(a, b, 0, 1, 6, 3), c, 0, 5, 2, 3);
    const Row y = __builtin_shufflevector(__builtin_shufflevector(b, a, 0, 5, 2, 3), c, 0, 1, 6, 3);
    const Row z = __builtin_shufflevector(__builtin_shufflevector(c, b, 0, 5, 2, 3), a, 0, 1, 6, 3);
    v[0] = __builtin_shufflevector(x, x, 0, 3, 2, 1);
    v[1] = __builtin_shufflevector(y, y, 1, 0, 3, 2);
    v[2] = __builtin_shufflevector(z, z, 2, 1, 0, 3);
}
ZELM_INLINE void exchange_back(Row (&v)[3]) {
    const Row x = __builtin_shufflevector(v[0], v[0], 0, 3, 2, 1);
    const Row y = __builtin_shufflevector(v[1], v[1], 1, 0, 3, 2);
    const Row z = __builtin_shufflevector(v[2], v[2], 2, 1, 0, 3);
    v[0] = __builtin_shufflevector(__builtin_shufflevector(x, y, 0, 5, 2, 3), z, 0, 1, 6, 3);
    v[1] = __builtin_shufflevector(__builtin_shufflevector(y, z, 0, 5, 2, 3), x, 0, 1, 6, 3);
    v[2] = __builtin_shufflevector(__builtin_shufflevector(z, x, 0, 5, 2, 3), y, 0, 1, 6, 3);
}

// Four points at any distance.
ZELM_INLINE void load_points(Row (&v)[3], const char *at, Distance step) {
    const auto two = [](const char *p, const char *q) __attribute__((always_inline)) {
        return (Row)RowLanes<double>{load<double>(p), load<double>(q)};
    };
    const Row low = two(at, at + step), high = two(at + 2 * step, at + 3 * step);
    v[0] = __builtin_shufflevector(low, high, 0, 2, 4, 6);
    v[1] = __builtin_shufflevector(low, high, 1, 3, 5, 7);
    const char *const z = at + 2 * sizeof(float);
    v[2] = Row{load<float>(z), load<float>(z + step), load<float>(z + 2 * step),
               load<float>(z + 3 * step)};
}
ZELM_INLINE void store_points(char *at, Distance step, const Row (&v)[3]) {
    const auto low = (RowLanes<double>)__builtin_shufflevector(v[0], v[1], 0, 4, 1, 5);
    const auto high = (RowLanes<double>)__builtin_shufflevector(v[0], v[1], 2, 6, 3, 7);
    store<double>(at, low[0]);
    store<double>(at + step, low[1]);
    store<double>(at + 2 * step, high[0]);
    store<double>(at + 3 * step, high[1]);
    unroll<4>(ZELM_EACH(l) { store<float>(at + l * step + 2 * sizeof(float), v[2][int{l}]); });
}

// kernel(v) replaces three values of four points, a register for each; single(from, to) does one
// point. In ascending order.
template <class Kernel, class Single>
ZELM_INLINE void each_point(const Source &src, const Destination &dst, int count,
                            const Kernel &kernel, const Single &single) {
    Distance k = 0;
    if (apart<3, 3>(src, dst, count)) {
        Row v[3];
        if (src.stride == packed_point && dst.stride == packed_point)
            for (; k <= count - 4; k += 4) {
                unroll<3>(ZELM_EACH(i) { v[i] = load<Row>(src.at(k) + i * row_bytes); });
                exchange(v);
                kernel(v);
                exchange_back(v);
                unroll<3>(ZELM_EACH(i) { store<Row>(dst.at(k) + i * row_bytes, v[i]); });
            }
        else
            for (; k <= count - 4; k += 4) {
                load_points(v, src.at(k), src.stride);
                kernel(v);
                store_points(dst.at(k), dst.stride, v);
            }
    }
    for (; k < count; ++k)
        single(src.at(k), dst.at(k));
}

} // namespace zelm::geom3d
