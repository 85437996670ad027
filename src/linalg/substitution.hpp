// Solving with factors: arrays of right-hand sides beside an array of factors, or beside one factor
// that serves them all. A family says what its factors are:
//
//   Part                      the elements that are read
//   Prepared<N, S>            of order N: f[N][N], prepare() once f is loaded, solve(x)
//   PreparedBlock<S, columns> of any shape: prepare(shape, f), solve(shape, f, x)
//
// where f(i, j) is element (i, j) of a factor and x, a right-hand side, becomes the solution.
#pragma once

#include "../frame/walk.hpp"

namespace zelm {

// What a family has whose factors need no preparation.
template <int N, class S>
struct UnpreparedFactor {
    S f[N][N];
    ZELM_INLINE void prepare() {}
};
struct UnpreparedBlock {
    template <class F>
    void prepare(Shape, const F &) {}
};

namespace detail {

// The order of a factor's rows and of the right-hand side's elements: as they are, or by number.
template <class T>
ZELM_INLINE NaturalRows<T> rows_of(int) {
    return {};
}
template <class T>
ZELM_INLINE StoredRows<T> rows_of(int first, const IndexRows<const int> &numbers) {
    return stored_rows<T>(numbers, first);
}

// Vectors are matrices of one column, whose rows the numbers permute.
template <class Prepared, int N, class T, class B, class X, class... Numbers>
ZELM_INLINE void solve_vectors(const Prepared &factor, int first, const B &b, const X &x,
                               const Numbers &...numbers) {
    Lanes<T> v[N][1], y[N];
    load_lanes<T>(v, b, first, rows_of<T>(first, numbers...));
    unroll<N>(ZELM_EACH(i) { y[i] = v[i][0]; });
    factor.solve(y);
    unroll<N>(ZELM_EACH(i) { v[i][0] = y[i]; });
    store_lanes<T>(x, first, v);
}

template <class Family, int N, class T>
struct SolveEach {
    template <class F, class B, class X, class... Numbers>
    ZELM_INLINE unsigned operator()(const Group &group, const F &f, const B &b, const X &x,
                                    const Numbers &...numbers) const {
        using Prepared = typename Family::template Prepared<N, Lanes<T>>;
        Prepared factor;
        load_lanes<T, typename Family::Part>(factor.f, f, group.first,
                                             rows_of<T>(group.first, numbers...));
        factor.prepare();
        solve_vectors<Prepared, N, T>(factor, group.first, b, x, numbers...);
        return 0;
    }
};
// One factor, in every lane.
template <class Family, int N, class T>
struct SolveWithOne {
    using Prepared = typename Family::template Prepared<N, Lanes<T>>;
    Prepared factor;

    template <class B, class X, class... Numbers>
    ZELM_INLINE unsigned operator()(const Group &group, const B &b, const X &x,
                                    const Numbers &...numbers) const {
        solve_vectors<Prepared, N, T>(factor, group.first, b, x, numbers...);
        return 0;
    }
};

template <class Family, class T>
struct SolveEachBlock {
    template <class... Numbers>
    unsigned operator()(const Group &group, const Objects &f, const Objects &b, const Objects &x,
                        const Numbers &...numbers) const {
        using S = Lanes<T>;
        const auto rows = rows_of<T>(group.first, numbers...);
        const int width = f.shape.width;
        S a[largest_lane_elements], y[largest_lane_elements];
        load_block(a, f, group.first, rows);
        load_block(y, b, group.first, rows);
        const auto element = [&](int i, int j) __attribute__((always_inline)) {
            return a[i * width + j];
        };
        typename Family::template PreparedBlock<S, largest_lane_order> factor;
        factor.prepare(f.shape, element);
        factor.solve(f.shape, element, y);
        store_block(x, group.first, y);
        return 0;
    }
};
// One factor of any size, in a table or not.
template <class Family, class T, bool tabled>
struct SolveBlocksWithOne {
    using S = Lanes<T>;
    const Objects factor;
    const int *const numbers; // of the factor's rows, or null
    typename Family::template PreparedBlock<S, largest_lane_elements> prepared;

    SolveBlocksWithOne(const Objects &f, const int *rows) : factor(f), numbers(rows) {
        prepared.prepare(factor.shape, element());
    }
    ZELM_INLINE auto element() const {
        return [this](int i, int j) __attribute__((always_inline)) {
            const int row = numbers == nullptr ? i : numbers[i];
            return splat<S>(load<T>(tabled
                                        ? factor.entry(row, j)
                                        : factor.base + row * factor.stride1 + j * factor.stride2));
        };
    }
    template <class... Numbers>
    unsigned operator()(const Group &group, const Objects &b, const Objects &x,
                        const Numbers &...rows) const {
        S y[largest_lane_elements];
        load_block(y, b, group.first, rows_of<T>(group.first, rows...));
        prepared.solve(factor.shape, element(), y);
        store_block(x, group.first, y);
        return 0;
    }
};

template <class T, class Family, bool one_factor, class... Numbers>
void solve_objects(int count, const Objects &factor, const Objects &b, const Objects &x,
                   const Single &alone, const Numbers &...numbers) {
    using Part = typename Family::Part;
    constexpr int most = largest_lane_elements;
    const Shape shape = factor.shape;
    if (shape.height > most / (one_factor ? 1 : shape.width)) {
        walk_singly(count, alone);
        return;
    }
    const Overlap overlap(count, x, factor, b);
    const int *rows = nullptr;
    ((rows = numbers.row(0)), ...);
    with_order<3, 6>(
        shape.width == shape.height ? shape.width : 0,
        [&](auto N) {
            const auto from = walked<T, N, 1>(as_column(b)), to = walked<T, N, 1>(as_column(x));
            if constexpr (one_factor) {
                SolveWithOne<Family, N, T> kernel;
                load_splat<T>(kernel.factor.f[0], factor, rows);
                kernel.factor.prepare();
                walk<T>(count, overlap, kernel, alone, from, to, walked_numbers<N>(numbers, N)...);
            } else {
                walk<T>(count, overlap, SolveEach<Family, N, T>{}, alone,
                        walked<T, N, N, Part>(factor), from, to, walked_numbers<N>(numbers, N)...);
            }
        },
        [&] {
            // Rows by number are the rows of a column.
            const auto from = walked_blocks<most>(rows == nullptr ? b : as_column(b));
            const auto to = walked_blocks<most>(x);
            const auto with_one = [&](const auto &kernel) {
                walk_blocks<T>(count, overlap, kernel, alone, from, to,
                               walked_numbers<most>(numbers, shape.height)...);
            };
            if constexpr (!one_factor)
                walk_blocks<T>(count, overlap, SolveEachBlock<Family, T>{}, alone,
                               walked_blocks<most>(factor), from, to,
                               walked_numbers<largest_lane_order>(numbers, shape.height)...);
            else if (factor.description == Description::pointer)
                with_one(SolveBlocksWithOne<Family, T, true>(factor, rows));
            else
                with_one(SolveBlocksWithOne<Family, T, false>(factor, rows));
        });
}

} // namespace detail

// alone(n) does object n. `numbers`: of the factors' rows, if they have any.
template <class Family, class Factor, class Vector, class Result, class... Numbers>
void solve_arrays(int count, Shape shape, const Factor &factor, const Vector &b, const Result &x,
                  const Single &alone, const Numbers &...numbers) {
    detail::solve_objects<typename Factor::Element, Family, !Factor::is_array>(
        count, objects_of_part<typename Family::Part>(factor, shape), objects(b, {1, shape.height}),
        objects(x, {1, shape.width}), alone, numbers...);
}

} // namespace zelm
