// Vectors of 2, 3 and 4 floats in registers, and memory that holds exactly so many.
#pragma once

#include "../frame/lanes.hpp"
#include "zelm.h"

namespace zelm::geom3d {

using Row = RowLanes<float>; // four columns of a matrix, or one value of four points

template <int n>
struct Small {
    float e[n];
};

// Elements are loaded one by one: callers have often just stored them so, and a load that spans
// several stores waits for them.
template <int n>
ZELM_INLINE Small<n> load_small(const void *p) {
    Small<n> v;
    unroll<n>(ZELM_EACH(i) {
        v.e[i] = load<float>(static_cast<const char *>(p) + i * int{sizeof(float)});
    });
    return v;
}
template <int n>
ZELM_INLINE void store_small(void *p, const Small<n> &v) {
    unroll<n>(
        ZELM_EACH(i) { store<float>(static_cast<char *>(p) + i * int{sizeof(float)}, v.e[i]); });
}

// Sums run from left to right.
template <int n>
ZELM_INLINE float dot(const Small<n> &a, const Small<n> &b) {
    float sum = a.e[0] * b.e[0];
    unroll<1, n>(ZELM_EACH(i) { sum = sum + a.e[i] * b.e[i]; });
    return sum;
}
template <int n>
ZELM_INLINE float length(const Small<n> &a) {
    return __builtin_sqrtf(dot(a, a));
}
// Divides truly, all elements at once.
template <int n>
ZELM_INLINE Small<n> normalized(const Small<n> &a) {
    const Row v = {a.e[0], a.e[1], a.e[n == 2 ? 1 : 2], a.e[n - 1]};
    const Row quotient = v / splat<Row>(length(a));
    Small<n> result;
    unroll<n>(ZELM_EACH(i) { result.e[i] = quotient[int{i}]; });
    return result;
}
template <int n>
ZELM_INLINE Small<n> difference(const Small<n> &a, const Small<n> &b) {
    Small<n> result;
    unroll<n>(ZELM_EACH(i) { result.e[i] = a.e[i] - b.e[i]; });
    return result;
}

ZELM_INLINE float cross(const Small<2> &a, const Small<2> &b) {
    return a.e[0] * b.e[1] - a.e[1] * b.e[0];
}
ZELM_INLINE Small<3> cross(const Small<3> &a, const Small<3> &b) {
    return {{a.e[1] * b.e[2] - a.e[2] * b.e[1], a.e[2] * b.e[0] - a.e[0] * b.e[2],
             a.e[0] * b.e[1] - a.e[1] * b.e[0]}};
}
ZELM_INLINE Small<4> cross(const Small<4> &a, const Small<4> &b, const Small<4> &c) {
    const auto minor = [&](int i, int j) __attribute__((always_inline)) {
        return b.e[i] * c.e[j] - b.e[j] * c.e[i];
    };
    const float m01 = minor(0, 1), m02 = minor(0, 2), m03 = minor(0, 3);
    const float m12 = minor(1, 2), m13 = minor(1, 3), m23 = minor(2, 3);
    // Negations are subtractions from zero: a zero result is +0.
    return {{a.e[1] * m23 - a.e[2] * m13 + a.e[3] * m12,
             0 - (a.e[0] * m23 - a.e[2] * m03 + a.e[3] * m02),
             a.e[0] * m13 - a.e[1] * m03 + a.e[3] * m01,
             0 - (a.e[0] * m12 - a.e[1] * m02 + a.e[2] * m01)}};
}

} // namespace zelm::geom3d
