// Inversion as algorithms over a scalar-like S, and of a group of objects of one order.
#pragma once

#include "det.hpp"
#include "pivot.hpp"

namespace zelm {

// The cofactors of `a` in the places of the inverse's elements: c[j][i] is that of a[i][j], without
// its sign. Returns the determinant, expanded along the first row.
template <class S>
ZELM_INLINE S cofactors(S (&c)[2][2], const S (&a)[2][2]) {
    unroll<2>(ZELM_EACH(i) { unroll<2>(ZELM_EACH(j) { c[j][i] = a[1 - i][1 - j]; }); });
    return a[0][0] * c[0][0] - a[0][1] * c[1][0];
}
template <class S>
ZELM_INLINE S cofactors(S (&c)[3][3], const S (&a)[3][3]) {
    S m[3];
    const auto row = [&](auto i, const S(&x)[3], const S(&y)[3]) __attribute__((always_inline)) {
        minors2<3>(m, x, y);
        unroll<3>(ZELM_EACH(j) { c[j][i] = m[2 - j]; });
    };
    row(std::integral_constant<int, 0>{}, a[1], a[2]);
    row(std::integral_constant<int, 1>{}, a[0], a[2]);
    row(std::integral_constant<int, 2>{}, a[0], a[1]);
    return a[0][0] * c[0][0] - a[0][1] * c[1][0] + a[0][2] * c[2][0];
}
template <class S>
ZELM_INLINE S cofactors(S (&c)[4][4], const S (&a)[4][4]) {
    S upper[6], lower[6];
    minors2<4>(upper, a[0], a[1]);
    minors2<4>(lower, a[2], a[3]);
    const auto row = [&](auto i, const S(&pairs)[6], const S(&third)[4])
        __attribute__((always_inline)) {
        unroll<4>(ZELM_EACH(j) {
            constexpr int x = j == 0, y = j <= 1 ? 2 : 1, z = j <= 2 ? 3 : 2;
            c[j][i] = minor3<4, x, y, z>(pairs, third);
        });
    };
    row(std::integral_constant<int, 0>{}, lower, a[1]);
    row(std::integral_constant<int, 1>{}, lower, a[0]);
    row(std::integral_constant<int, 2>{}, upper, a[3]);
    row(std::integral_constant<int, 3>{}, upper, a[2]);
    return a[0][0] * c[0][0] - a[0][1] * c[1][0] + a[0][2] * c[2][0] - a[0][3] * c[3][0];
}

// Makes the cofactors the inverse.
template <int N, class S>
ZELM_INLINE void divide(S (&c)[N][N], S reciprocal) {
    const S negative = -reciprocal;
    unroll<N>(ZELM_EACH(i) {
        unroll<N>(ZELM_EACH(j) { c[i][j] = c[i][j] * ((i + j) % 2 == 0 ? reciprocal : negative); });
    });
}

// Gauss-Jordan elimination in place with row exchanges (Higham: Accuracy and Stability of Numerical
// Algorithms, 14.4). Afterwards column k of `a` is column p[k] of the inverse. Of equal candidates
// the topmost becomes the pivot. Returns the lanes with a pivot below the threshold; note(pivot) is
// told every pivot.
template <int N, class S, class Note>
ZELM_INLINE MaskOf<S> gauss_jordan(S (&a)[N][N], IndexOf<S> (&p)[N], ElementOf<S> threshold,
                                   const Note &note) {
    MaskOf<S> failing = no_lane<S>();
    unroll<N>(ZELM_EACH(i) { p[i] = splat_index<S>(i); });
    unroll<N>(ZELM_EACH(k) {
        const auto pivot = find_pivot<k>(a);
        failing = failing | (splat<S>(threshold) > pivot.magnitude);
        exchange_rows<k>(
            a, p, pivot, [] {}, ZELM_EACH(){});
        note(a[k][k]);

        const S r = refined_reciprocal(a[k][k]);
        unroll<N>(ZELM_EACH(j) {
            if constexpr (j == k)
                a[k][j] = r;
            else
                a[k][j] = a[k][j] * r;
        });
        unroll<N>(ZELM_EACH(i) {
            if constexpr (i != k) {
                const S f = a[i][k];
                unroll<N>(ZELM_EACH(j) {
                    if constexpr (j == k)
                        a[i][j] = -f * r;
                    else
                        a[i][j] = a[i][j] - f * a[k][j];
                });
            }
        });
    });
    return failing;
}

// What a register, or a number, holds of the inverse: of orders 3 and 4 its cofactors until they
// are multiplied by the reciprocal, of 5 and 6 its rows, row i being row rows[i].
template <int N, class S>
struct Inverse {
    S row[N][N];
    S reciprocal;
    IndexOf<S> rows[N];

    ZELM_INLINE void finish() {
        if constexpr (N <= 4)
            divide(row, reciprocal);
    }
};

// Inverts a group by `method`, which leaves an Inverse to be finished and returns the lanes that it
// does not invert, as bits; those of all registers pass through `widened`.
template <int N, class T, class Group, class Source, class Destination, class Method, class Widened>
ZELM_INLINE unsigned invert_group(const Group &group, const Source &from, const Destination &to,
                                  const Method &method, const Widened &widened) {
    using S = Lanes<T>;
    Inverse<N, S> inverse[Group::registers];
    unsigned failing = 0;
    unroll<Group::registers>(ZELM_EACH(r) {
        S a[N][N];
        load_lanes<T>(a, from, group.first + r * lanes_of<S>);
        failing |= method(inverse[r], a) << (r * lanes_of<S>);
    });
    failing = widened(failing);
    if (group.stores(failing)) [[likely]]
        unroll<Group::registers>(ZELM_EACH(r) {
            const int first = group.first + r * lanes_of<S>;
            inverse[r].finish();
            if constexpr (N <= 4)
                store_lanes<T>(to, first, inverse[r].row);
            else
                store_lanes<T>(to, first, inverse[r].row, ComputedRows<T, N>{inverse[r].rows});
        });
    return failing;
}

} // namespace zelm
