// The inverse of one 4x4 matrix, by 2x2 blocks: M = [A B; C D], and with # for the adjugate
//
//   M# = [ (|D|A - B(D#C))#   (|B|C - D(A#B)#)# ]
//        [ (|C|B - A(D#C)#)#  (|A|D - C(A#B))#  ]
//   |M| = |A||D| + |B||C| - tr((A#B)(D#C))
//
// Every term is a product of elements of M as in the expansion by cofactors.
#pragma once

#include "../frame/lanes.hpp"

namespace zelm::geom3d {

// A block row by row, or a row of the matrix; of doubles the compiler makes two registers.
template <class T>
struct QuadOf {
    typedef T type __attribute__((vector_size(4 * sizeof(T))));
};
template <class T>
using Quad = typename QuadOf<T>::type;

namespace detail {
template <int a, int b, int c, int d, class Q>
ZELM_INLINE void pick(Q &result, const Q &v, const Q &w) {
    result = __builtin_shufflevector(v, w, a, b, c, d);
}
template <int a, int b, int c, int d, class Q>
ZELM_INLINE void pick(Q &result, const Q &v) {
    result = __builtin_shufflevector(v, v, a, b, c, d);
}
template <class Q> // v * w
ZELM_INLINE void multiply(Q &result, const Q &v, const Q &w) {
    Q straight, crossed, other;
    pick<0, 3, 0, 3>(straight, w);
    pick<1, 0, 3, 2>(crossed, v);
    pick<2, 1, 2, 1>(other, w);
    result = v * straight + crossed * other;
}
template <class Q> // v# * w
ZELM_INLINE void adjugate_multiply(Q &result, const Q &v, const Q &w) {
    Q straight, crossed, other;
    pick<3, 3, 0, 0>(straight, v);
    pick<1, 1, 2, 2>(crossed, v);
    pick<2, 3, 0, 1>(other, w);
    result = straight * w - crossed * other;
}
template <class Q> // v * w#
ZELM_INLINE void multiply_adjugate(Q &result, const Q &v, const Q &w) {
    Q straight, crossed, other;
    pick<3, 0, 3, 0>(straight, w);
    pick<1, 0, 3, 2>(crossed, v);
    pick<2, 1, 2, 1>(other, w);
    result = v * straight - crossed * other;
}
} // namespace detail

// Replaces m by its inverse and returns true; leaves it alone where the determinant is below the
// threshold in magnitude. A NaN is not below it.
template <class T>
ZELM_INLINE bool invert(Quad<T> (&m)[4], T threshold, T &determinant) {
    using namespace detail;
    using Q = Quad<T>;
    Q a, b, c, d;
    pick<0, 1, 4, 5>(a, m[0], m[1]);
    pick<2, 3, 6, 7>(b, m[0], m[1]);
    pick<0, 1, 4, 5>(c, m[2], m[3]);
    pick<2, 3, 6, 7>(d, m[2], m[3]);

    Q even_upper, odd_upper, even_lower, odd_lower; // columns
    pick<0, 2, 4, 6>(even_upper, m[0], m[2]);
    pick<1, 3, 5, 7>(odd_upper, m[0], m[2]);
    pick<0, 2, 4, 6>(even_lower, m[1], m[3]);
    pick<1, 3, 5, 7>(odd_lower, m[1], m[3]);
    const Q minors = even_upper * odd_lower - odd_upper * even_lower; // |A| |B| |C| |D|
    Q of_a, of_b, of_c, of_d;
    pick<0, 0, 0, 0>(of_a, minors);
    pick<1, 1, 1, 1>(of_b, minors);
    pick<2, 2, 2, 2>(of_c, minors);
    pick<3, 3, 3, 3>(of_d, minors);

    Q ab, dc, dc_transposed, part;
    adjugate_multiply(ab, a, b);
    adjugate_multiply(dc, d, c);
    pick<0, 2, 1, 3>(dc_transposed, dc);
    const Q trace = ab * dc_transposed;
    determinant = (minors[0] * minors[3] + minors[1] * minors[2]) -
                  ((trace[0] + trace[1]) + (trace[2] + trace[3]));
    if (magnitude(determinant) < threshold)
        return false;

    const T reciprocal = 1 / determinant;
    const Q signs = {reciprocal, -reciprocal, -reciprocal, reciprocal};
    multiply(part, b, dc);
    const Q x = (of_d * a - part) * signs;
    multiply_adjugate(part, d, ab);
    const Q y = (of_b * c - part) * signs;
    multiply_adjugate(part, a, dc);
    const Q z = (of_c * b - part) * signs;
    multiply(part, c, ab);
    const Q w = (of_a * d - part) * signs;
    pick<3, 1, 7, 5>(m[0], x, y);
    pick<2, 0, 6, 4>(m[1], x, y);
    pick<3, 1, 7, 5>(m[2], z, w);
    pick<2, 0, 6, 4>(m[3], z, w);
    return true;
}

} // namespace zelm::geom3d
