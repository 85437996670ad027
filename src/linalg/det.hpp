// Determinants of order 3 to 6 in closed form, as algorithms over a scalar-like S: expansion by
// complementary minors (Laplace). Orders 4 to 6 expand the first rows against the last.
#pragma once

#include "../frame/lanes.hpp"

namespace zelm {

// Pairs of columns i < j in lexical order.
template <int N>
constexpr int pair_number(int i, int j) {
    return i * (2 * N - i - 1) / 2 + j - i - 1;
}
// The minors of two rows, by pairs of columns.
template <int N, class S>
ZELM_INLINE void minors2(S (&m)[N * (N - 1) / 2], const S (&a)[N], const S (&b)[N]) {
    unroll<N>(ZELM_EACH(i) {
        unroll<i + 1, N>(ZELM_EACH(j) { m[pair_number<N>(i, j)] = a[i] * b[j] - a[j] * b[i]; });
    });
}
// The minor of three rows in columns i < j < k: two rows' minors against the third.
template <int N, int i, int j, int k, class S>
ZELM_INLINE S minor3(const S (&m)[N * (N - 1) / 2], const S (&c)[N]) {
    return m[pair_number<N>(i, j)] * c[k] - m[pair_number<N>(i, k)] * c[j] +
           m[pair_number<N>(j, k)] * c[i];
}

// The first column from there on that is none of the three.
constexpr int column_from(int from, int i, int j, int k) {
    while (from == i || from == j || from == k)
        ++from;
    return from;
}

template <class S>
ZELM_INLINE S determinant(const S (&a)[3][3]) {
    return (a[0][0] * a[1][1] - a[0][1] * a[1][0]) * a[2][2] -
           (a[0][0] * a[1][2] - a[1][0] * a[0][2]) * a[2][1] +
           (a[0][1] * a[1][2] - a[1][1] * a[0][2]) * a[2][0];
}
template <class S>
ZELM_INLINE S determinant(const S (&a)[4][4]) {
    S p[6], q[6];
    minors2<4>(p, a[0], a[1]);
    minors2<4>(q, a[2], a[3]);
    return p[0] * q[5] - p[1] * q[4] + p[2] * q[3] + p[3] * q[2] - p[4] * q[1] + p[5] * q[0];
}
template <class S>
ZELM_INLINE S determinant(const S (&a)[5][5]) {
    S p[10], q[10], d;
    minors2<5>(p, a[0], a[1]);
    minors2<5>(q, a[2], a[3]);
    unroll<5>(ZELM_EACH(i) {
        unroll<i + 1, 5>(ZELM_EACH(j) {
            constexpr int first = column_from(0, i, j, i);
            constexpr int second = column_from(first + 1, i, j, i);
            constexpr int third = 10 - i - j - first - second;
            const S term = p[pair_number<5>(i, j)] * minor3<5, first, second, third>(q, a[4]);
            if constexpr (i == 0 && j == 1)
                d = term;
            else if constexpr ((i + j) % 2 == 1)
                d = d + term;
            else
                d = d - term;
        });
    });
    return d;
}
template <class S>
ZELM_INLINE S determinant(const S (&a)[6][6]) {
    S p[15], q[15], d = splat<S>(0);
    minors2<6>(p, a[0], a[1]);
    minors2<6>(q, a[3], a[4]);
    unroll<6>(ZELM_EACH(i) {
        unroll<i + 1, 6>(ZELM_EACH(j) {
            unroll<j + 1, 6>(ZELM_EACH(k) {
                constexpr int x = column_from(0, i, j, k), y = column_from(x + 1, i, j, k);
                constexpr int z = 15 - i - j - k - x - y;
                const S term = minor3<6, i, j, k>(p, a[2]) * minor3<6, x, y, z>(q, a[5]);
                if constexpr (i == 0 && j == 1 && k == 2)
                    d = term;
                else if constexpr ((i + j + k) % 2 == 1)
                    d = d + term;
                else
                    d = d - term;
            });
        });
    });
    return d;
}

} // namespace zelm
