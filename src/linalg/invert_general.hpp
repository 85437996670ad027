// Inversion of every order, and of rows that are not adjacent. By definition an inverse is made of
// cofactors, each the result of an elimination of its own, whose small pivots have a meaning: n^5
// operations. Where no pivot can be small the elimination of the matrix alone, n^3 operations, or
// of orders 2 to 4 a closed form, gives the same up to rounding.
#pragma once

#include "elimination.hpp"
#include "invert.hpp"

#include "../frame/walk.hpp"

namespace zelm {

// A minor's elimination that meets something small gives the threshold.
template <class S>
ZELM_INLINE S value_of(const Elimination<S> &minor, ElementOf<S> threshold) {
    const S t = splat<S>(threshold);
    return select(minor.small, t, select(magnitude(minor.last) > t, minor.determinant(), t));
}

// ---- by cofactors ----

// Up to this order several cofactors of an object are computed in lanes: 15 KiB of registers.
// Beyond, one is computed after the other, in the buffer.
inline constexpr int largest_cofactors_in_lanes = largest_lane_elimination;

// `largest`: of the order; what is on the stack is of that size.
template <class T, int largest>
[[gnu::noinline]] ZelStatus invert_by_cofactors(int n, const Objects from, const Objects to,
                                                char *buffer) {
    using S = Lanes<T>;
    constexpr int L = lanes_of<S>, largest_minor = largest - 1;
    const T threshold = elimination_threshold<T>(n);
    const auto size = static_cast<std::size_t>(n) * static_cast<std::size_t>(n) * sizeof(T);
    const bool lanes = n <= largest;
    S w[largest_minor * largest_minor];
    char *const determinant = lanes ? reinterpret_cast<char *>(w) : buffer;
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j)
            store<T>(buffer + (i * Distance{n} + j) * Distance{sizeof(T)}, get<T>(from, i, j));
    if (lanes)
        __builtin_memcpy(determinant, buffer, size);
    const Elimination<T> found = eliminate<OfInverse, T>(determinant, n, threshold);
    const T d = found.determinant();
    if (found.small || threshold >= magnitude(d))
        return zelStatusSingular;
    const T r = T{1} / d;
    const auto write = [&](int i, int j, T minor) {
        const T x = minor * r;
        put(to, j, i, (i + j) % 2 == 0 ? x : -x);
    };
    if (!lanes) {
        for (int i = 0; i < n; ++i)
            for (int j = 0; j < n; ++j) {
                char *at = buffer;
                for (int row = 0; row < n; ++row)
                    for (int column = 0; column < n; ++column)
                        if (row != i && column != j) {
                            store<T>(at, get<T>(from, row, column));
                            at += sizeof(T);
                        }
                write(i, j, value_of(eliminate<OfMinor, T>(buffer, n - 1, threshold), threshold));
            }
        return zelStatusOk;
    }
    const auto element = [&](int i, int j) {
        return load<T>(buffer + (i * n + j) * int{sizeof(T)});
    };
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; j += L) { // a lane beyond the last column repeats it
            S *to_element = w;
            for (int row = 0; row < n; ++row) {
                if (row == i)
                    continue;
                for (int column = 0; column < n - 1; ++column, ++to_element) {
                    const int first = column < j ? column : column + 1;
                    if (column < j || column >= j + L - 1) {
                        *to_element = splat<S>(element(row, first));
                        continue;
                    }
                    S x = splat<S>(element(row, column));
                    for (int l = 0; l < L; ++l)
                        x[l] = element(row, column + (column >= (j + l < n ? j + l : n - 1)));
                    *to_element = x;
                }
            }
            const S minors = value_of(eliminate_lanes<OfMinor>(w, n - 1, threshold), threshold);
            for (int l = 0; l < L && j + l < n; ++l)
                write(i, j + l, minors[l]);
        }
    return zelStatusOk;
}

// ---- far from all thresholds ----

// f of x(from) ... x(to - 1), in halves: none waits for all before it.
template <int from, int to, class X, class F>
ZELM_INLINE auto in_halves(const X &x, const F &f) {
    if constexpr (to - from == 1) {
        return x(std::integral_constant<int, from>{});
    } else {
        constexpr int middle = (from + to) / 2;
        const auto first = in_halves<from, middle>(x, f);
        return f(first, in_halves<middle, to>(x, f));
    }
}

template <class T>
ZELM_INLINE T power_of_two(int exponent) {
    return static_cast<T>(__builtin_ldexp(1, exponent));
}
template <class T>
inline constexpr int largest_exponent = sizeof(T) == 4 ? 126 : 1022;

// Does those of the lanes' minors over, by elimination, that are not far: exact zeros are common. a
// is n x n, row by row; far(i, j) tells of the minor without row i and column j, replace(i, j,
// lanes, minor) changes it.
template <class S, class IsFar, class Replace>
ZELM_INLINE void redo_small_minors(const S *a, int n, MaskOf<S> lanes, const IsFar &far,
                                   const Replace &replace) {
    constexpr int largest = largest_lane_order - 1;
    const ElementOf<S> threshold = elimination_threshold<ElementOf<S>>(n);
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j) {
            const MaskOf<S> is_far = far(i, j), small = and_not(lanes, is_far);
            if (lane_bits(small) == 0)
                continue;
            S w[largest * largest], *to = w;
            for (int row = 0; row < n; ++row)
                for (int column = 0; column < n; ++column)
                    if (row != i && column != j)
                        *to++ = a[row * n + column];
            replace(i, j, small,
                    value_of(eliminate_lanes<OfMinor>(w, n - 1, threshold), threshold));
        }
}

// What the closed form cannot decide, in memory: registers must have no address.
template <int N, class S>
struct Undecided {
    S matrix[N][N], minor[N][N];
    S determinant;
    MaskOf<S> regular; // lanes whose determinant is far; then those that are not singular

    [[gnu::noinline]] void decide(MaskOf<S> lanes, S minor_far) {
        using T = ElementOf<S>;
        const T threshold = elimination_threshold<T>(N);
        S w[N * N];
        __builtin_memcpy(w, matrix, sizeof w);
        const Elimination<S> found = eliminate_lanes<OfInverse>(w, N, threshold);
        const S d = found.determinant();
        const MaskOf<S> large = magnitude(d) > splat<S>(threshold);
        determinant = select(regular, determinant, d);
        regular = lanes & (regular | and_not(large, found.small));
        redo_small_minors(
            matrix[0], N, regular, [&](int i, int j) { return magnitude(minor[j][i]) > minor_far; },
            [&](int i, int j, MaskOf<S> small, S x) {
                minor[j][i] = select(small, x, minor[j][i]);
            });
    }
};

// Orders 2 to 4 in closed form. Returns the lanes that this does not invert, as bits. A minor in
// closed form that should be 0 is less than 2^4 epsilon times a product of the largest element; a
// determinant above 2^12 times that is one that no elimination takes for small. Within limits of
// that element all this is above the threshold and does not overflow.
template <int N, class S>
ZELM_INLINE unsigned invert_far_from_thresholds(Inverse<N, S> &inverse, const S (&a)[N][N]) {
    using T = ElementOf<S>;
    S(&c)[N][N] = inverse.row;
    const S one = splat<S>(1), d = cofactors(c, a);
    inverse.reciprocal = one / d;
    const S largest = in_halves<0, N * N>(
        ZELM_EACH(e) { return magnitude(a[e / N][e % N]); }, larger<S>);
    const S smallest = in_halves<0, N * N>(
        ZELM_EACH(e) { return magnitude(c[e / N][e % N]); }, smaller<S>);
    S product = largest;
    unroll<N - 2>(ZELM_EACH() { product = product * largest; });
    const S minor_far = splat<S>(16 * epsilon<T>) * product;
    constexpr int exponent = largest_exponent<T>;
    const MaskOf<S> above = largest > splat<S>(power_of_two<T>(-exponent / (2 * N)));
    const MaskOf<S> below = splat<S>(power_of_two<T>(exponent / N - 2)) > largest;
    const MaskOf<S> regular = magnitude(d) > splat<S>(4096 * epsilon<T>) * product * largest;
    const MaskOf<S> minors_far = smallest > minor_far, lanes = above & below;
    if (lane_bits(lanes & regular & minors_far) == all_lanes<S>) [[likely]]
        return 0;
    Undecided<N, S> rest;
    unroll<N>(ZELM_EACH(i) {
        unroll<N>(ZELM_EACH(j) {
            rest.matrix[i][j] = a[i][j];
            rest.minor[i][j] = c[i][j];
        });
    });
    rest.determinant = d;
    rest.regular = regular;
    rest.decide(lanes, minor_far);
    inverse.reciprocal = one / rest.determinant;
    unroll<N>(ZELM_EACH(i) { unroll<N>(ZELM_EACH(j) { c[i][j] = rest.minor[i][j]; }); });
    return lane_bits(complement(rest.regular));
}

// Other orders by Gauss-Jordan elimination in place, in lanes. Its pivots are those of the
// elimination that decides whether the matrix is singular, to the bit.
template <class T>
class LaneInverse {
public:
    using S = Lanes<T>;

    explicit LaneInverse(int n) : n_(n) {}

    // The matrix and its inverse, n x n, row by row.
    ZELM_INLINE S *source() { return source_; }
    ZELM_INLINE const S *result() const { return result_; }

    // Returns the lanes that are not far from thresholds, as bits.
    unsigned invert() {
        for (int e = 0; e < n_ * n_; ++e)
            result_[e] = source_[e];
        const Elimination<S> found = reduce();
        const S d = magnitude(found.determinant()), a = highest(source_), x = highest(result_);
        // A minor is an element of the inverse times the determinant. A pivot of its elimination is
        // the minor over all other pivots: those before it make a minor, those behind it one whose
        // elements have grown up to 2^k times in k steps, and Hadamard's inequality bounds both.
        const T threshold = elimination_threshold<T>(n_);
        S minor = splat<S>(power_of_two<T>(n_ * n_ / 4 + 2 * n_ + 2) * threshold);
        const S at_least_1 = larger(a, splat<S>(1));
        for (int k = 0; k < n_ - 2; ++k)
            minor = minor * at_least_1;
        MaskOf<S> lanes = complement(found.small) & (d > minor * at_least_1);
        lanes = lanes & (splat<S>(power_of_two<T>(largest_exponent<T> / n_ - 2)) > a);
        // Rounding errors of the inverse grow with its condition, a * x.
        redo_small(lanes, larger(splat<S>(T(16) * epsilon<T>) * a * x * x, minor / d),
                   splat<S>(1) / found.determinant());
        return lane_bits(complement(lanes));
    }

private:
    S highest(const S *v) const {
        S most = magnitude(v[0]);
        for (int e = 1; e < n_ * n_; ++e)
            most = larger(magnitude(v[e]), most);
        return most;
    }
    // Column k of what is reduced is column number[k] of the inverse, lane by lane.
    Elimination<S> reduce() {
        auto found = Elimination<S>::none();
        IndexOf<S> number[largest_lane_order];
        S f[largest_lane_order];
        for (int i = 0; i < n_; ++i)
            number[i] = splat_index<S>(i);
        for (int k = 0; k < n_; ++k) {
            const LaneStep<S> step(result_, n_, k);
            exchange_numbers(number, k, step);
            const S pivot = step.pivot();
            if (k < n_ - 1)
                found.template note<OfInverse>(step, k, pivot, elimination_threshold<T>(n_));
            else
                found.last = pivot;
            step.reduce(f, splat<S>(1) / pivot);
        }
        for (int i = 0; i < n_; ++i) {
            S row[largest_lane_order];
            for (int k = 0; k < n_; ++k)
                row[k] = result_[i * n_ + k];
            for (int k = 0; k < n_; ++k)
                for (int l = 0; l < lanes_of<S>; ++l)
                    result_[i * n_ + static_cast<int>(number[k][l])][l] = row[k][l];
        }
        return found;
    }
    void redo_small(MaskOf<S> lanes, S far, S reciprocal) {
        redo_small_minors(
            source_, n_, lanes, [&](int i, int j) { return magnitude(result_[j * n_ + i]) > far; },
            [&](int i, int j, MaskOf<S> small, S minor) {
                S &x = result_[j * n_ + i];
                x = select(small, (i + j) % 2 == 0 ? minor * reciprocal : -(minor * reciprocal), x);
            });
    }

    S source_[largest_lane_elements], result_[largest_lane_elements];
    int n_;
};

// One object, in every lane; returns whether that inverts it. The stack that this takes is given
// back.
template <class T>
[[gnu::noinline]] bool invert_by_elimination(int n, const Objects from, const Objects to) {
    LaneInverse<T> m(n);
    load_splat<T>(m.source(), from);
    if (m.invert() != 0)
        return false;
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j)
            put<T>(to, i, j, m.result()[i * n + j][0]);
    return true;
}

// One object, which is in every lane.
template <class T>
ZelStatus invert_general(const Objects &from, const Objects &to, void *buffer) {
    const int n = from.shape.width;
    const auto by_cofactors = [&](auto largest) __attribute__((always_inline)) {
        return invert_by_cofactors<T, largest>(n, from, to, static_cast<char *>(buffer));
    };
    constexpr std::integral_constant<int, largest_lane_order> small;
    constexpr std::integral_constant<int, largest_cofactors_in_lanes> large;
    return with_order<2, 4>(
        n,
        [&](auto N) __attribute__((always_inline)) {
            Lanes<T> a[N][N];
            Inverse<N, Lanes<T>> inverse;
            load_splat<T>(a[0], from);
            if (invert_far_from_thresholds(inverse, a) != 0)
                return by_cofactors(small);
            inverse.finish();
            for (int i = 0; i < N; ++i)
                for (int j = 0; j < N; ++j)
                    put<T>(to, i, j, inverse.row[i][j][0]);
            return zelStatusOk;
        },
        [&]() __attribute__((always_inline)) {
            if (n > largest_lane_order)
                return by_cofactors(large);
            return invert_by_elimination<T>(n, from, to) ? zelStatusOk : by_cofactors(small);
        });
}

template <int N, class T>
struct InvertFarGroup {
    template <class G, class X, class Y>
    ZELM_INLINE unsigned operator()(const G &group, const X &x, const Y &y) const {
        return invert_group<N, T>(
            group, x, y, [](auto &inverse, const auto &a) __attribute__((always_inline)) {
                return invert_far_from_thresholds(inverse, a);
            },
            [](unsigned failing) { return failing; });
    }
};
template <class T>
struct InvertFarBlock {
    unsigned operator()(const Group &group, const Objects &x, const Objects &y) const {
        LaneInverse<T> m(x.shape.width);
        load_block(m.source(), x, group.first);
        const unsigned near = m.invert();
        if (group.stores(near))
            store_block(y, group.first, m.result());
        return near;
    }
};

template <class T>
ZelStatus invert_array_general(int count, const Objects &x, const Objects &y, void *buffer) {
    const int n = x.shape.width;
    const auto single = [&](int k) { return invert_general<T>(x.from(k), y.from(k), buffer); };
    if (n > largest_lane_order)
        return walk_singly(count, single);
    const Overlap overlap(count, y, x);
    return with_order<2, 4>(
        n,
        [&](auto N) {
            return walk<T>(count, overlap, InvertFarGroup<N, T>{}, single, walked<T, N, N>(x),
                           walked<T, N, N>(y));
        },
        [&] {
            return walk_blocks<T>(count, overlap, InvertFarBlock<T>{}, single,
                                  walked_blocks<largest_lane_elements>(x),
                                  walked_blocks<largest_lane_elements>(y));
        });
}

} // namespace zelm
