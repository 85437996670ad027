// Mul of a matrix with a matrix or a vector: kernels, limits and entries.
#pragma once

#include "product.hpp"

#include "../frame/checks.hpp"
#include "../frame/estimate.hpp"
#include "../frame/member.hpp"
#include "../frame/parallel.hpp"
#include "../frame/walk.hpp"

namespace zelm::products {

template <class T, Description d>
inline constexpr Limits limits = d == Description::pointer ? Limits{1441, 1441}
                                 : d == Description::standard && sizeof(T) == 4
                                     ? Limits{2501, 1441}
                                     : Limits{3601, 1441};

// The product as it is computed: (M x K) * (K x N). A vector is a matrix of one column.
struct Sizes {
    int M, K, N;
};

// ---- kernels ----

// Where rows are adjacent, products of these shapes are faster by rows than with an object in each
// lane.
template <class T, int N>
inline constexpr bool rows_win = sizeof(T) == 8 || N > 3;

template <int n, int N>
struct AlongRows {
    template <class A, class B, class D>
    ZELM_INLINE void operator()(int count, const A a, const B b, const D d) const {
        for (int object = 0; object < count; ++object)
            multiply_rows<n, n, N>(a.view(object), b.view(object), d.view(object));
    }
};

// Matrix times vector, adjacent elements everywhere: registers along the columns where whole ones
// make up a column. A matrix that serves all vectors is kept as columns. Pairs of lanes are too few
// to pay for one object in each, so doubles go this way in odd orders too.
template <class T, int n>
inline constexpr bool columns_win = n % lanes_per_row<T> == 0;
template <class T, int n>
inline constexpr bool products_win = columns_win<T, n> || sizeof(T) == 8;

template <int n>
struct AlongColumns {
    template <class A, class B, class D>
    ZELM_INLINE void operator()(int count, const A a, const B b, const D d) const {
        using T = typename D::Element;
        if constexpr (A::is_array) {
            for (int object = 0; object < count; ++object)
                multiply_row_products<n>(a.view(object), b.object(object), d.object(object));
        } else {
            ColumnsOf<T, n> columns;
            columns.load(a.view(0));
            for (int object = 0; object < count; ++object)
                multiply_columns(columns, b.object(object), d.object(object));
        }
    }
};

// Adjacent columns instead of rows, which are those of the transpose: d^T = b^T * a^T.
template <int n>
struct AlongTransposedRows {
    template <class A, class B, class D>
    ZELM_INLINE void operator()(int count, const A transposed, const B b, const D d) const {
        using T = typename D::Element;
        constexpr Distance none = 0, element = sizeof(T);
        for (int object = 0; object < count; ++object)
            multiply_row_tile<1, n, n, T>({b.object(object), none, element},
                                          transposed.view(object),
                                          {d.object(object), none, element}, 0);
    }
};

template <class Kernel, class T, bool a_is_array, bool b_is_array, bool tables>
[[gnu::noinline]] void with_any_rows(int count, const Objects &a, const Objects &b,
                                     const Objects &d) {
    Kernel{}(count, AdjacentRows<const T, a_is_array, tables>(a),
             AdjacentRows<const T, b_is_array, tables>(b), AdjacentRows<T, true, tables>(d));
}
// The kernel where all rows have adjacent elements; a and d have n rows, b and d N columns. Returns
// whether they have. For strided arrays without gaps it has code of its own: with distances that
// are constants no address waits in a register.
template <class Kernel, int n, int N, class A, class B, class D>
ZELM_INLINE bool along(int count, const A &a, const B &b, const D &d) {
    constexpr Shape square = {n, n}, shape = {n, N};
    if constexpr (D::is_array && !D::has_table)
        if (is_gapless(a, square) && is_gapless(b, shape) && is_gapless(d, shape)) {
            Kernel{}(count, as_gapless<n, n>(a), as_gapless<n, N>(b), as_gapless<n, N>(d));
            return true;
        }
    const bool vectors = N == 1;
    if (!rows_adjacent(a) || !(vectors ? column_adjacent(b) : rows_adjacent(b)) ||
        !(vectors ? column_adjacent(d) : rows_adjacent(d)))
        return false;
    with_any_rows<Kernel, typename D::Element, A::is_array, B::is_array, D::has_table>(
        count, objects(a, square), objects(b, shape), objects(d, shape));
    return true;
}

template <class A, class B, class D>
void any_shape(Sizes s, const A &a, const B &b, const D &d, int object) {
    using T = typename D::Element;
    const auto x = view(a, object, {s.M, s.K});
    const auto y = view(b, object, {s.K, s.N});
    const auto z = view(d, object, {s.M, s.N});
    if (rows_adjacent(b) && rows_adjacent(d))
        multiply_any<true, T>(x, y, z, s.M, s.K, s.N);
    else
        multiply_any<false, T>(x, y, z, s.M, s.K, s.N);
}

// Products of arrays with an object in each lane; `transposed` says that p holds the transpose.
template <int n, int N, class T, bool transposed = false>
struct MultiplyGroup {
    template <class P, class Q, class R>
    ZELM_INLINE unsigned operator()(const Group &group, const P &p, const Q &q, const R &r) const {
        Lanes<T> x[n][n], y[n][N], product[n][N];
        load_lanes<T>(x, p, group.first);
        load_lanes<T>(y, q, group.first);
        if constexpr (transposed)
            unroll<n>(ZELM_EACH(i) { unroll<i>(ZELM_EACH(j) { std::swap(x[i][j], x[j][i]); }); });
        multiply(x, y, product);
        store_lanes<T>(r, group.first, product);
        return 0;
    }
};
// A single operand is loaded once, into every lane.
template <int n, int N, class T>
struct MultiplyByOneLeft {
    Lanes<T> x[n][n];

    template <class Q, class R>
    ZELM_INLINE unsigned operator()(const Group &group, const Q &q, const R &r) const {
        Lanes<T> y[n][N], product[n][N];
        load_lanes<T>(y, q, group.first);
        multiply(x, y, product);
        store_lanes<T>(r, group.first, product);
        return 0;
    }
};
template <int n, int N, class T>
struct MultiplyByOneRight {
    Lanes<T> y[n][N];

    template <class P, class R>
    ZELM_INLINE unsigned operator()(const Group &group, const P &p, const R &r) const {
        Lanes<T> x[n][n], product[n][N];
        load_lanes<T>(x, p, group.first);
        multiply(x, y, product);
        store_lanes<T>(r, group.first, product);
        return 0;
    }
};

template <int n, int N, class T, bool a_array, bool b_array>
void in_lanes(int count, const Objects &a, const Objects &b, const Objects &d,
              const Single &alone) {
    const Overlap overlap(count, d, a, b);
    const auto x = walked<T, n, n>(a);
    const auto y = walked<T, n, N>(b);
    const auto to = walked<T, n, N>(d);
    const auto pass = [&](const auto &kernel, const auto &...arrays)
        __attribute__((always_inline)) {
        if constexpr (N == 1 && n == 3) // too few instructions for a walk's bookkeeping
            walk_lightly<T>(count, overlap, kernel, alone, arrays...);
        else if constexpr (N > 1 && rows_win<T, n>) // adjacent rows do not come here
            walk_by_planes<T>(count, overlap, kernel, alone, arrays...);
        else
            walk<T>(count, overlap, kernel, alone, arrays...);
    };
    if constexpr (!a_array) {
        MultiplyByOneLeft<n, N, T> kernel;
        load_splat<T>(kernel.x[0], a);
        pass(kernel, y, to);
    } else if constexpr (!b_array) {
        MultiplyByOneRight<n, N, T> kernel;
        load_splat<T>(kernel.y[0], b);
        pass(kernel, x, to);
    } else {
        if constexpr (N == 1 && n == 3)
            if (!a.has_adjacent_rows() && transposed(a).has_adjacent_rows())
                return pass(MultiplyGroup<n, N, T, true>{}, walked<T, n, n>(transposed(a)), y, to);
        pass(MultiplyGroup<n, N, T>{}, x, y, to);
    }
}

// alone(n) does product n.
template <int n, int N, class A, class B, class D>
void square(int count, const A &a, const B &b, const D &d, const Single &alone) {
    using T = typename D::Element;
    // Tables of objects cost lanes a look at every address, rows none.
    if constexpr (N > 1 && !D::is_tabled && (rows_win<T, n> || D::has_table || !D::is_array))
        if (along<AlongRows<n, N>, n, N>(count, a, b, d))
            return;
    if constexpr (N == 1 && D::is_array && !D::is_tabled &&
                  (columns_win<T, n> || (A::is_array && products_win<T, n>)))
        if (along<AlongColumns<n>, n, N>(count, a, b, d))
            return;
    if constexpr (N == 1 && n > 3 && D::is_array && !D::is_tabled && A::is_array)
        if (along<AlongTransposedRows<n>, n, N>(count, a.transposed(), b, d))
            return;
    if constexpr (D::is_array)
        in_lanes<n, N, T, A::is_array, B::is_array>(count, objects(a, {n, n}), objects(b, {n, N}),
                                                    objects(d, {n, N}), alone);
    else
        alone(0);
}

template <bool vector, class A, class B, class D>
ZelStatus y8_ownzelmMul(int count, Sizes s, const A &a, const B &b, const D &d) {
    const auto alone = [&](int object) {
        any_shape(s, a, b, d, object);
        return zelStatusOk;
    };
    if (s.M == s.K && (vector || s.N == s.K)) {
        const bool done = with_order<3, 6>(
            s.K,
            [&](auto n) {
                square<n, vector ? 1 : int{n}>(count, a, b, d, alone);
                return true;
            },
            [] { return false; });
        if (done)
            return zelStatusOk;
        if constexpr (!vector && D::is_array && !D::is_tabled)
            if (s.K == 8 && along<AlongRows<8, 8>, 8, 8>(count, a, b, d))
                return zelStatusOk;
    }
    return walk_singly(count, alone);
}

// ---- entries ----

template <class Operand>
ZELM_INLINE auto as_matrix(const Operand &op) {
    if constexpr (Operand::object_rank == 1)
        return op.as_column();
    else
        return op;
}

template <class A, class B, class D>
ZELM_INLINE ZelStatus run(const A &a, const B &b, const D &d, Sizes s, int count) {
    constexpr bool vector = B::object_rank == 1;
    if constexpr (!D::is_array) {
        return y8_ownzelmMul<vector>(1, s, as_matrix(a), as_matrix(b), as_matrix(d));
    } else {
        const Estimate work = elements<A>(Estimate(s.M) * s.K, count) +
                              elements<B>(Estimate(s.K) * s.N, count) +
                              elements<D>(Estimate(s.M) * s.N, count);
        const bool packed = a.packed() && b.packed() && d.packed();
        return run_objects(
            limits<typename D::Element, description_of<D>>.serial(work, packed),
            [s](int n, const auto &x, const auto &y, const auto &z) {
                return with_strides(
                    [&](const auto &p, const auto &q, const auto &r) {
                        return y8_ownzelmMul<vector>(n, s, p, q, r);
                    },
                    shaped(x, {s.M, s.K}), shaped(y, {s.K, s.N}), shaped(z, {s.M, s.N}));
            },
            count, as_matrix(a), as_matrix(b), as_matrix(d));
    }
}

// The sizes of a matrix as stored become those of the operand as it enters the product.
struct Stored {
    int width, height;
};
template <bool transposed>
ZELM_INLINE Stored entering(Stored s) {
    return transposed ? Stored{s.height, s.width} : s;
}

// The short way into single standard products: one test for everything that could be wrong and for
// the shapes that are worth it, 3x3 and 4x4 without gaps. False: nothing was done.
template <class T>
ZELM_INLINE bool small_dense_product(const Standard<const T, 2, false> &a, Stored sa,
                                     const Standard<const T, 2, false> &b, Stored sb,
                                     const Standard<T, 2, false> &d) {
    const int n = sa.width;
    const bool null = (a.base == nullptr) | (b.base == nullptr) | (d.base == nullptr);
    const int other =
        (sa.height ^ n) | (sb.width ^ n) | (sb.height ^ n) | gaps(a, n) | gaps(b, n) | gaps(d, n);
    if (null | (other != 0) | (static_cast<unsigned>(n) - 3u > 1u))
        return false;
    const auto product = [&](auto N) __attribute__((always_inline)) {
        constexpr int element = sizeof(T), row = N * element;
        AlongRows<N, N>{}(1, Standard<const T, 2, false>{a.base, 0, row, element},
                          Standard<const T, 2, false>{b.base, 0, row, element},
                          Standard<T, 2, false>{d.base, 0, row, element});
    };
    if (n == 4)
        product(std::integral_constant<int, 4>{});
    else
        product(std::integral_constant<int, 3>{});
    return true;
}

// Operands by value: what this needs in memory is put there on the way in, not in the entry.
template <bool ta, bool tb, class A, class B, class D>
[[gnu::noinline]] ZelStatus any_matrices(A a, Stored sa, B b, Stored sb, D d, int count) {
    const Stored x = entering<ta>(sa), y = entering<tb>(sb);
    if (const ZelStatus s = first_failure(
            pointers(a, b, d), counts(count), sizes(sa.width, sa.height, sb.width, sb.height),
            agreement(x.width, y.height), strides(a, b, d), shifts(a, b, d)))
        return s;
    return run(a, b, d, {x.height, x.width, y.width}, count);
}
template <bool ta, bool tb, class A, class B, class D>
ZELM_INLINE ZelStatus matrices(const A &a, Stored sa, const B &b, Stored sb, const D &d,
                               int count = 1) {
    if constexpr (!D::is_array && !D::is_tabled)
        if (small_dense_product(a, sa, b, sb, d)) [[likely]]
            return zelStatusOk;
    return any_matrices<ta, tb>(a, sa, b, sb, d, count);
}
template <bool ta, class A, class B, class D>
ZELM_INLINE ZelStatus vectors(const A &a, Stored sa, const B &b, int len, const D &d,
                              int count = 1) {
    const Stored x = entering<ta>(sa);
    if (const ZelStatus s =
            first_failure(pointers(a, b, d), counts(count), sizes(sa.width, sa.height, len),
                          agreement(x.width, len), strides(a, b, d), shifts(a, b, d)))
        return s;
    return run(a, b, d, {x.height, x.width, 1}, count);
}

} // namespace zelm::products
