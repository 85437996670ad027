// Eigenvalues and eigenvectors of symmetric matrices, as one algorithm over a scalar-like S:
// Householder reduction to tridiagonal form and implicit QL iteration.
// Golub, Van Loan: Matrix Computations, 8.3. Wilkinson, Reinsch: Handbook for Automatic
// Computation II, contributions II/2 and II/4.
//
// Thresholds are absolute; what a caller may choose of them is a Tolerance. Lanes do what the
// scalar instance does, each with its own block, count of sweeps and direction: a lane that has
// nothing to do keeps its values by select.
#pragma once

#include "../frame/interleaved.hpp"
#include "../frame/lane_access.hpp"

namespace zelm {

inline constexpr int largest_sweeps = 30; // for one eigenvalue

// Of any matrix: elements of the reduction up to epsilon count as zero, with them columns shorter
// than its root beside a subdiagonal element near 1; so does a determinant.
struct OfAnyNorm {
    template <class T>
    static constexpr T negligible = epsilon<T>;
    static constexpr bool drops_short_columns = true, singular_fails = true;
};
// Of matrices that were brought to a norm near 1: the reduction drops nothing that shows.
struct OfNormOne {
    template <class T>
    static constexpr T negligible = smallest_normal<T>;
    static constexpr bool drops_short_columns = false, singular_fails = false;
};

// ---- loops over orders known when compiled (integral constants: unrolled) or at run time --------

#define ZELM_EACH2(i, j) [&](auto i, auto j) __attribute__((always_inline))

template <int v>
using Fixed = std::integral_constant<int, v>;

template <int distance, class I>
ZELM_INLINE constexpr auto behind(I i) {
    if constexpr (std::is_same_v<I, int>)
        return i + distance;
    else
        return Fixed<I::value + distance>{};
}
template <class I, class J>
ZELM_INLINE constexpr auto minus(I i, J j) {
    if constexpr (std::is_same_v<I, int> || std::is_same_v<J, int>)
        return i - j;
    else
        return Fixed<I::value - J::value>{};
}
template <class I>
ZELM_INLINE constexpr auto half_of(I i) {
    if constexpr (std::is_same_v<I, int>)
        return i / 2;
    else
        return Fixed<I::value / 2>{};
}
template <class From, class To, class F>
ZELM_INLINE void ascending(From from, To to, const F &f) {
    if constexpr (std::is_same_v<From, int> || std::is_same_v<To, int>)
        for (int i = from; i < to; ++i)
            f(i);
    else
        unroll<From::value, To::value>(f);
}
template <class From, class To, class F>
ZELM_INLINE void descending(From from, To to, const F &f) {
    if constexpr (std::is_same_v<From, int> || std::is_same_v<To, int>)
        for (int i = to - 1; i >= from; --i)
            f(i);
    else
        unroll<To::value - From::value>(ZELM_EACH(i) { f(Fixed<To::value - 1 - i>{}); });
}

// Calls f(i, lanes) for the index that each lane names, of those from ... to - 1: once for a
// scalar, for every i with the lanes that name it otherwise.
template <class S, class From, class To, class F>
ZELM_INLINE void at_index(IndexOf<S> index, From from, To to, const F &f) {
    if constexpr (lanes_of<S> == 1)
        f(index, true);
    else
        ascending(
            from, to, ZELM_EACH(i) { f(i, index == splat_index<S>(i)); });
}

// ---- eigenvectors -------------------------------------------------------------------------------
// What the reduction and the iteration do to the matrix of vectors. Vector j is column j.

template <class V>
ZELM_INLINE void rotate(V &x, V &y, V c, V s) {
    const V old = x;
    x = c * old - s * y;
    y = s * old + c * y;
}
// Zeros of either sign to +0: lanes that pass through rotations that are not theirs, by an angle of
// zero, keep everything but the sign of a zero.
template <class S>
ZELM_INLINE S without_signed_zero(S x) {
    return select(x == splat<S>(0), splat<S>(0), x);
}

// Eigenvalues alone.
struct NoVectors {
    template <class... Any>
    ZELM_INLINE void reflect(const Any &...) const {}
    template <class... Any>
    ZELM_INLINE void rotate(const Any &...) const {}
    template <class... Any>
    ZELM_INLINE void exchange(const Any &...) const {}
};

// Vector j in S[n] from z + j * n on.
template <class S, class Order>
struct LaneVectors {
    S *z;
    Order n;

    // The columns behind k times I - scale * u * u^T; nothing has been done before k = 0.
    template <class K, class U>
    ZELM_INLINE void reflect(K k, const U &u, S scale) const {
        if (k == 0)
            ascending(
                Fixed<0>{}, n, ZELM_EACH(j) {
                    ascending(
                        Fixed<0>{}, n, ZELM_EACH(r) {
                            const S one = splat<S>(r == j ? 1 : 0);
                            if (r == 0 || j == 0)
                                z[j * n + r] = one;
                            else
                                z[j * n + r] = one - u[r] * scale * u[j];
                        });
                });
        else
            ascending(
                Fixed<1>{}, n, ZELM_EACH(r) {
                    const auto first = behind<1>(k);
                    S w = z[first * n + r] * u[first];
                    ascending(
                        behind<1>(first), n, ZELM_EACH(j) { w = w + z[j * n + r] * u[j]; });
                    w = w * scale;
                    ascending(
                        first, n, ZELM_EACH(j) { z[j * n + r] = z[j * n + r] - w * u[j]; });
                });
    }
    // Columns i and i + 1 in the lanes that go on.
    template <class I>
    ZELM_INLINE void rotate(I i, S c, S s, MaskOf<S> go) const {
        c = select(go, c, splat<S>(1));
        s = select(go, s, splat<S>(0));
        ascending(
            Fixed<0>{}, n,
            ZELM_EACH(r) { zelm::rotate(z[i * n + r], z[behind<1>(i) * n + r], c, s); });
    }
    template <class I, class J>
    ZELM_INLINE void exchange(I i, J j, MaskOf<S> lanes) const {
        ascending(
            Fixed<0>{}, n, ZELM_EACH(r) {
                const S x = z[i * n + r], y = z[j * n + r];
                z[i * n + r] = select(lanes, y, x);
                z[j * n + r] = select(lanes, x, y);
            });
    }
};

// One object's matrix in the caller's memory, vector j in row j until `finish`: the rows of packed
// memory are worked on in registers.
template <class T, class View>
struct MemoryVectors {
    View to;
    int n;
    bool packed;

    template <class F>
    ZELM_INLINE void along(const F &f) const {
        int r = 0;
        if (packed)
            for (; r <= n - lanes_of<Lanes<T>>; r += lanes_of<Lanes<T>>)
                f(r, Lanes<T>{});
        for (; r < n; ++r)
            f(r, T{});
    }
    template <class V>
    ZELM_INLINE V part(int j, int r, V) const {
        return load<V>(to.at(j, r));
    }
    template <class V>
    ZELM_INLINE void set(int j, int r, V v) const {
        store<V>(to.at(j, r), v);
    }

    template <class U>
    void reflect(int k, const U &u, T scale) const {
        if (k == 0)
            for (int j = 0; j < n; ++j)
                for (int r = 0; r < n; ++r) {
                    const T one = r == j;
                    set(j, r, r == 0 || j == 0 ? one : one - u[r] * scale * u[j]);
                }
        else
            along([&](int r, auto v) __attribute__((always_inline)) {
                using V = decltype(v);
                V w = part(k + 1, r, v) * splat<V>(u[k + 1]);
                for (int j = k + 2; j < n; ++j)
                    w = w + part(j, r, v) * splat<V>(u[j]);
                w = w * splat<V>(scale);
                for (int j = k + 1; j < n; ++j)
                    set(j, r, part(j, r, v) - w * splat<V>(u[j]));
            });
    }
    void rotate(int i, T c, T s, bool go) const {
        if (!go)
            return;
        along([&](int r, auto v) __attribute__((always_inline)) {
            using V = decltype(v);
            V x = part(i, r, v), y = part(i + 1, r, v);
            zelm::rotate(x, y, splat<V>(c), splat<V>(s));
            set(i, r, x);
            set(i + 1, r, y);
        });
    }
    void exchange(int i, int j, bool lanes) const {
        if (lanes)
            along([&](int r, auto v) __attribute__((always_inline)) {
                const auto x = part(i, r, v);
                set(i, r, part(j, r, v));
                set(j, r, x);
            });
    }
    void finish() const {
        for (int i = 0; i < n; ++i)
            for (int j = 0; j <= i; ++j) {
                const T x = without_signed_zero(part(i, j, T{}));
                set(i, j, without_signed_zero(part(j, i, T{})));
                set(j, i, x);
            }
    }
};

// ---- the algorithm ------------------------------------------------------------------------------

// Order 2, closed form: `a` is (0,0), (0,1), (1,1). Returns the lanes whose determinant is too
// small.
template <class S, bool vectors>
ZELM_INLINE MaskOf<S> solve_order_2(const S (&a)[3], S (&d)[2], S (&column)[2]) {
    const S eps = splat<S>(epsilon<ElementOf<S>>), zero = splat<S>(0), one = splat<S>(1);
    const S minus = zero - eps, half = splat<S>(ElementOf<S>(0.5));
    const S det = a[0] * a[2] - a[1] * a[1];
    const S sum = a[0] + a[2], difference = a[0] - a[2], twice = a[1] + a[1];
    const S root = square_root(difference * difference + twice * twice);

    const auto up = sum > eps, down = (sum < minus);
    const S top = half * select(up, sum + root, select(down, sum - root, root));
    d[0] = top;
    d[1] = select(up | down, det / top, zero - half * root);
    if constexpr (vectors) {
        const auto below = difference < minus;
        const S w = select(below, difference - root, difference + root);
        const auto steep = magnitude(w) > magnitude(twice);
        const auto level = magnitude(twice) <= eps;
        const S ratio = zero - select(steep, twice, w) / select(steep, w, twice);
        const S unit = one / square_root(ratio * ratio + one);
        const S other = ratio * unit;
        const S x = select(steep, other, select(level, one, unit));
        const S y = select(steep, unit, select(level, zero, other));
        const auto unlike = select(below, complement(down), down);
        column[0] = select(unlike, x, zero - y);
        column[1] = select(unlike, y, x);
    }
    return magnitude(det) <= eps;
}

// Reduces `a`, n x n, of which the lower triangle is read, to the diagonal d and the subdiagonal e.
// The row of `a` above the diagonal holds the vector u of the reflection; d is the work vector
// until the end. `e` may be the first row of `a`.
template <class S, class Tolerance, class Order, class A, class D, class E, class Vectors>
ZELM_INLINE void reduce(Order n, A a, D d, E e, const Vectors &vectors) {
    const S eps = splat<S>(Tolerance::template negligible<ElementOf<S>>);
    const S zero = splat<S>(0), two = splat<S>(2);
    ascending(
        Fixed<0>{}, behind<-2>(n), ZELM_EACH(k) {
            const auto first = behind<1>(k);
            const S x = a[first * n + k];
            S square = x * x;
            ascending(
                behind<1>(first), n, ZELM_EACH(i) {
                    const S y = a[i * n + k];
                    square = square + y * y;
                });
            const S sigma = square_root(square);
            const auto positive = x > eps, negative = x < zero - eps;
            const S change = select(positive, sigma, select(negative, zero - sigma, zero));
            const S h = two * (square + x * change);
            auto needed = h > eps;
            if constexpr (Tolerance::drops_short_columns)
                needed = needed & complement(magnitude(sigma - x) <= eps);
            const S scale = select(needed, two / h, zero);

            // u, in row k.
            const auto u = a + k * n;
            const S head = select(positive, x + change, select(negative, x + change, sigma));
            u[first] = select(needed, head, zero);
            ascending(
                behind<1>(first), n,
                ZELM_EACH(i) { u[i] = select(needed, S(a[i * n + k]), zero); });
            a[first * n + k] = select(needed, select(negative, sigma, zero - sigma), x);
            vectors.reflect(k, u, scale);
            if (lanes_of<S> == 1 && !any(needed))
                return;

            // p = scale * A * u in d, then q = p - (scale / 2 * u^T p) * u, A = A - u * q^T - q *
            // u^T.
            ascending(
                first, n, ZELM_EACH(i) {
                    S p = a[i * n + first] * u[first];
                    ascending(
                        behind<1>(first), behind<1>(i),
                        ZELM_EACH(j) { p = p + a[i * n + j] * u[j]; });
                    d[i] = p;
                    ascending(
                        first, i, ZELM_EACH(j) { d[j] = d[j] + a[i * n + j] * u[i]; });
                });
            S product = zero;
            ascending(
                first, n, ZELM_EACH(i) {
                    d[i] = d[i] * scale;
                    product = product + u[i] * d[i];
                });
            const S half = splat<S>(ElementOf<S>(0.5)) * scale * product;
            ascending(
                first, n, ZELM_EACH(i) { d[i] = d[i] - half * u[i]; });
            ascending(
                first, n, ZELM_EACH(i) {
                    ascending(
                        first, behind<1>(i), ZELM_EACH(j) {
                            a[i * n + j] = a[i * n + j] - (u[i] * d[j] + d[i] * u[j]);
                        });
                });
        });
    ascending(
        Fixed<0>{}, n, ZELM_EACH(i) { d[i] = a[i * n + i]; });
    ascending(
        Fixed<0>{}, behind<-1>(n), ZELM_EACH(i) { e[i] = a[behind<1>(i) * n + i]; });
}

// A lane's first run of elements of e that are not negligible: rotations first ... last - 1. There
// is none where first is n - 1.
template <class S>
struct Block {
    IndexOf<S> first, last;
};
// All elements before `from` are negligible.
template <class S, class Order, class E>
ZELM_INLINE Block<S> first_block(Order n, const E &e, [[maybe_unused]] IndexOf<S> from) {
    const S eps = splat<S>(epsilon<ElementOf<S>>), half = splat<S>(ElementOf<S>(0.5));
    const auto end = behind<-1>(n);
    const auto negligible = [&](auto i) __attribute__((always_inline)) {
        return magnitude(half * e[i]) <= eps;
    };
    if constexpr (lanes_of<S> == 1) {
        while (from < end && negligible(from))
            ++from;
        int last = from;
        while (last < end && !negligible(last))
            ++last;
        return {from, last};
    } else {
        Block<S> block = {splat_index<S>(end), splat_index<S>(end)};
        MaskOf<S> opened = no_lane<S>(), closed = no_lane<S>();
        ascending(
            Fixed<0>{}, end, ZELM_EACH(i) {
                const auto ends = negligible(i), begins = complement(ends | opened);
                block.first = select(begins, splat_index<S>(i), block.first);
                opened = opened | begins;
                const auto closes = ends & opened & complement(closed);
                block.last = select(closes, splat_index<S>(i), block.last);
                closed = closed | closes;
            });
        return block;
    }
}

// QL iteration: d becomes the eigenvalues. Returns the lanes that use up the sweeps of a value.
template <class S, class Order, class D, class E, class Vectors>
ZELM_INLINE MaskOf<S> iterate(Order n, D d, E e, const Vectors &vectors) {
    const S eps = splat<S>(epsilon<ElementOf<S>>);
    const S zero = splat<S>(0), one = splat<S>(1), two = splat<S>(2);
    const auto end = behind<-1>(n);
    IndexOf<S> current = splat_index<S>(0), sweeps = splat_index<S>(0);
    for (;;) {
        const Block<S> block = first_block<S>(n, e, current);
        sweeps = select(block.first == current, sweeps, splat_index<S>(0));
        current = block.first;
        const auto left = current < splat_index<S>(end);
        const auto failed = left & (sweeps >= splat_index<S>(largest_sweeps));
        const MaskOf<S> active = left & complement(failed);
        if (!any(active))
            return failed;
        sweeps = sweeps + splat_index<S>(1);

        S d_first = zero, d_next = zero, d_last = zero, e_first = one;
        at_index<S>(
            block.first, Fixed<0>{}, end, ZELM_EACH2(i, here) {
                d_first = select(here, S(d[i]), d_first);
                d_next = select(here, S(d[behind<1>(i)]), d_next);
                e_first = select(here, S(e[i]), e_first);
            });
        at_index<S>(
            block.last, Fixed<1>{}, n,
            ZELM_EACH2(i, here) { d_last = select(here, S(d[i]), d_last); });
        S g = (d_next - d_first) / (two * e_first);
        const S length = square_root(g * g + one);
        g = d_last - d_first + e_first / select(g > eps, g + length, g - length);

        S s = one, c = one, p = zero;
        MaskOf<S> going = active;
        const auto turn = [&](auto i, MaskOf<S> turning) __attribute__((always_inline)) {
            const auto next = behind<1>(i);
            const S f = s * e[i], b = c * e[i];
            const S r = square_root(f * f + g * g);
            const MaskOf<S> ends = turning & (magnitude(r) <= eps);
            const MaskOf<S> goes_on = turning & complement(ends);
            const S sine = f / r, cosine = g / r;
            const S rest = d[next] - p;
            const S t = (d[i] - rest) * sine + two * cosine * b;
            const S shift = sine * t;
            e[next] = select(turning, r, S(e[next]));
            e[i] = select(ends, b, S(e[i])); // the element as rotated so far
            d[next] = select(turning, select(ends, rest, rest + shift), S(d[next]));
            s = select(goes_on, sine, s);
            c = select(goes_on, cosine, c);
            p = select(goes_on, shift, p);
            g = select(goes_on, cosine * t - b, g);
            going = going & complement(ends);
            vectors.rotate(i, cosine, sine, goes_on);
        };
        if constexpr (lanes_of<S> == 1)
            for (int i = block.last - 1; i >= block.first && going; --i)
                turn(i, true);
        else
            descending(
                Fixed<0>{}, end, ZELM_EACH(i) {
                    const auto turning = (block.first <= splat_index<S>(i)) &
                                         (splat_index<S>(i) < block.last) & going;
                    if (any(turning))
                        turn(i, turning);
                });
        at_index<S>(
            block.first, Fixed<0>{}, end, ZELM_EACH2(i, here) {
                d[i] = select(here & going, d[i] - p, S(d[i]));
                e[i] = select(here & going, g, S(e[i]));
            });
        at_index<S>(
            block.last, Fixed<1>{}, n,
            ZELM_EACH2(i, here) { e[i] = select(here & active, zero, S(e[i])); });
    }
}

// Exchanges first and last, second and last but one ... : iteration from the other end.
template <class S, class Order, class D, class Vectors>
ZELM_INLINE void mirror(Order n, D d, const Vectors &vectors, MaskOf<S> lanes) {
    ascending(
        Fixed<0>{}, half_of(n), ZELM_EACH(i) {
            const auto j = minus(behind<-1>(n), i);
            const S x = d[i], y = d[j];
            d[i] = select(lanes, y, x);
            d[j] = select(lanes, x, y);
            vectors.exchange(i, j, lanes);
        });
}

// Selection sort into descending order; of equal values the first comes first.
template <class S, class Order, class D, class Vectors>
ZELM_INLINE void sort(Order n, D d, const Vectors &vectors) {
    ascending(
        Fixed<0>{}, behind<-1>(n), ZELM_EACH(i) {
            S best = d[i];
            IndexOf<S> where = splat_index<S>(i);
            ascending(
                behind<1>(i), n, ZELM_EACH(j) {
                    const auto larger = S(d[j]) > best;
                    best = select(larger, S(d[j]), best);
                    where = select(larger, splat_index<S>(j), where);
                });
            const S old = d[i];
            d[i] = best;
            at_index<S>(
                where, behind<1>(i), n, ZELM_EACH2(j, here) {
                    if (!any(here) || (lanes_of<S> == 1 && j == i))
                        return;
                    d[j] = select(here, old, S(d[j]));
                    vectors.exchange(i, j, here);
                });
        });
}

template <class S>
struct Outcome {
    MaskOf<S> not_converged, singular;
};

// Order 3 and above. The values, and vectors, come out as they have to be stored. e has n elements.
template <class S, class Tolerance = OfAnyNorm, class Order, class A, class D, class E,
          class Vectors>
ZELM_INLINE Outcome<S> solve_symmetric(Order n, A a, D d, E e, const Vectors &vectors) {
    reduce<S, Tolerance>(n, a, d, e, vectors);
    // From the end with the larger value on, which is at the bottom unless mirrored.
    const MaskOf<S> mirrored = complement(magnitude(S(d[behind<-1>(n)])) > magnitude(S(d[0])));
    mirror<S>(n, d, vectors, mirrored);
    mirror<S>(behind<-1>(n), e, NoVectors{}, mirrored);
    const MaskOf<S> not_converged = iterate<S>(n, d, e, vectors);
    mirror<S>(n, d, vectors, mirrored);

    S product = d[0];
    ascending(
        Fixed<1>{}, n, ZELM_EACH(i) { product = product * d[i]; });
    const MaskOf<S> singular = magnitude(product) <= splat<S>(epsilon<ElementOf<S>>);
    // Values alone of a singular matrix stay as the iteration leaves them.
    constexpr bool alone = std::is_same_v<Vectors, NoVectors>;
    if (lanes_of < S >> 1 || !(any(not_converged) || (alone && any(singular))))
        sort<S>(n, d, vectors);
    return {not_converged, singular};
}

// ---- groups of objects in registers' memory ----

// Order N, or `order` where N is 0, of matrices, values and vectors (vector after vector) in
// registers' memory, off_diagonal being scratch of as many elements as values. Returns the failing
// lanes. Straight-line code works on copies of its own, but for vectors that no register file
// holds.
template <class S, int N, bool vectors, class Tolerance>
[[gnu::noinline]] unsigned solve_lanes(S *matrix, S *values, [[maybe_unused]] S *off_diagonal,
                                       [[maybe_unused]] S *vector, int order) {
    const auto solve = [&](auto n, S *a, S *d, S *e) __attribute__((always_inline)) {
        Outcome<S> outcome;
        if constexpr (!vectors) {
            outcome = solve_symmetric<S, Tolerance>(n, a, d, e, NoVectors{});
        } else if constexpr (N == 3) {
            S z[N * N];
            outcome = solve_symmetric<S, Tolerance>(n, a, d, e, LaneVectors<S, Fixed<N>>{z, n});
            unroll<N * N>(ZELM_EACH(i) { vector[i] = z[i]; });
        } else {
            outcome = solve_symmetric<S, Tolerance>(n, a, d, e, LaneVectors<S, int>{vector, order});
        }
        return lane_bits(Tolerance::singular_fails ? outcome.not_converged | outcome.singular
                                                   : outcome.not_converged);
    };
    if constexpr (N == 0) {
        return solve(order, matrix, values, off_diagonal);
    } else {
        S a[N * N], d[N], e[N];
        unroll<N>(
            ZELM_EACH(i) { unroll<i + 1>(ZELM_EACH(j) { a[i * N + j] = matrix[i * N + j]; }); });
        const unsigned failing = solve(Fixed<N>{}, a, d, e);
        unroll<N>(ZELM_EACH(i) { values[i] = d[i]; });
        return failing;
    }
}
template <class S, bool vectors, class Tolerance>
[[gnu::noinline]] unsigned solve_lanes_2(const S *matrix, S *values, [[maybe_unused]] S *vector) {
    const S a[3] = {matrix[0], matrix[1], matrix[3]};
    S d[2], column[2] = {};
    const unsigned failing = lane_bits(solve_order_2<S, vectors>(a, d, column));
    values[0] = d[0];
    values[1] = d[1];
    if constexpr (vectors) {
        vector[0] = vector[3] = column[0];
        vector[1] = column[1];
        vector[2] = splat<S>(0) - column[1];
    }
    return Tolerance::singular_fails ? failing : 0u;
}
template <class S, bool vectors, class Tolerance = OfAnyNorm>
unsigned solve_lanes(S *a, S *d, S *e, S *z, int n) {
    switch (n) {
    case 2:
        return solve_lanes_2<S, vectors, Tolerance>(a, d, z);
    case 3:
        return solve_lanes<S, 3, vectors, Tolerance>(a, d, e, z, n);
    case 4:
        return solve_lanes<S, 4, vectors, Tolerance>(a, d, e, z, n);
    default:
        return solve_lanes<S, 0, vectors, Tolerance>(a, d, e, z, n);
    }
}

} // namespace zelm
