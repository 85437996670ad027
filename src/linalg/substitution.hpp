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
// Factors of any size, as `View` shows them.
template <class Family, class T, class View>
struct SolveBlocksWithOne {
    using S = Lanes<T>;
    const View view;
    const int *const numbers; // of the factor's rows, or null
    const Shape shape;
    typename Family::template PreparedBlock<S, largest_lane_elements> factor;

    SolveBlocksWithOne(const View &v, const int *rows, Shape s) : view(v), numbers(rows), shape(s) {
        factor.prepare(shape, element());
    }
    ZELM_INLINE auto element() const {
        return [this](int i, int j) __attribute__((always_inline)) {
            return splat<S>(get(view, numbers == nullptr ? i : numbers[i], j));
        };
    }
    template <class... Numbers>
    unsigned operator()(const Group &group, const Objects &b, const Objects &x,
                        const Numbers &...rows) const {
        S y[largest_lane_elements];
        load_block(y, b, group.first, rows_of<T>(group.first, rows...));
        factor.solve(shape, element(), y);
        store_block(x, group.first, y);
        return 0;
    }
};

} // namespace detail

// alone(n) does object n. `numbers`: of the factors' rows, if they have any.
template <class Family, class Factor, class Vector, class Result, class Single, class... Numbers>
void solve_arrays(int count, Shape shape, const Factor &factor, const Vector &b, const Result &x,
                  const Single &alone, const Numbers &...numbers) {
    using T = typename Factor::Element;
    using Part = typename Family::Part;
    constexpr bool by_number = sizeof...(Numbers) != 0;
    constexpr int most = largest_lane_elements;
    const Shape in = by_number ? Shape{shape.height, 1} : Shape{1, shape.height};
    const Shape out = {1, shape.width};
    if (shape.height > most / (Factor::is_array ? shape.width : 1)) {
        walk_singly(count, alone);
        return;
    }
    const Objects result = objects(x, out);
    const Overlap overlap(count, result, objects<Part>(factor, shape),
                          objects(b, {1, shape.height}));
    with_order<3, 6>(
        shape.width == shape.height ? shape.width : 0,
        [&](auto N) {
            const auto from = walked<N, 1>(b.as_column());
            const auto to = walked<N, 1>(x.as_column());
            if constexpr (Factor::is_array) {
                walk<T>(count, overlap, detail::SolveEach<Family, N, T>{}, alone,
                        walked<N, N, Part>(factor), from, to, walked<N>(numbers, N)...);
            } else {
                detail::SolveWithOne<Family, N, T> kernel;
                const auto f = view(factor, 0, shape);
                unroll<N>(ZELM_EACH(i) {
                    int row = i;
                    ((row = numbers.row(0)[int{i}]), ...);
                    unroll<Part::width(i, N)>(
                        ZELM_EACH(j) { kernel.factor.f[i][j] = splat<Lanes<T>>(get(f, row, j)); });
                });
                kernel.factor.prepare();
                walk<T>(count, overlap, kernel, alone, from, to, walked<N>(numbers, N)...);
            }
        },
        [&] {
            const auto from = [&] {
                if constexpr (by_number)
                    return walked<most>(b.as_column(), in);
                else
                    return walked<most>(b, in);
            }();
            const WalkedBlocks<most> to = {result};
            if constexpr (Factor::is_array) {
                walk_blocks<T>(count, overlap, detail::SolveEachBlock<Family, T>{}, alone,
                               walked<most, Part>(factor, shape), from, to,
                               walked<largest_lane_order>(numbers, shape.height)...);
            } else {
                const int *rows = nullptr;
                ((rows = numbers.row(0)), ...);
                const auto f = view(factor, 0, shape);
                const detail::SolveBlocksWithOne<Family, T, decltype(f)> kernel(f, rows, shape);
                walk_blocks<T>(count, overlap, kernel, alone, from, to,
                               walked<most>(numbers, shape.height)...);
            }
        });
}

} // namespace zelm
