// L2Norm, FrobNorm and Trace. Sums stay in the element type, without scaling.
#include "reduce.hpp"

#include "../frame/checks.hpp"
#include "../frame/estimate.hpp"
#include "../frame/member.hpp"
#include "../frame/parallel.hpp"

namespace zelm {
namespace {

struct RootOfSum {
    ZELM_INLINE auto operator()(const auto &terms) const { return square_root(sum_of(terms)); }
};

// Matrices that are summed as one row of their elements.
constexpr int largest_as_row = 5;
constexpr bool sums_as_row(Shape shape) {
    return shape.width == shape.height && shape.width >= 3 && shape.width <= largest_as_row;
}

// Row by row.
template <class T, class A>
T norm_of(const A &a, int n, Shape shape) {
    const auto x = view(a, n, shape);
    T sum = 0;
    for (int i = 0; i < shape.height; ++i)
        if constexpr (A::is_tabled)
            sum = add_squares(sum, x, i, shape.width);
        else if (rows_adjacent(a)) {
            const AdjacentRow<const T> row = {x.at(i, 0)};
            sum = add_squares(sum, row, i, shape.width);
        } else
            sum = add_squares(sum, x, i, shape.width);
    return square_root(sum);
}

template <int N, class T, class A>
ZELM_INLINE T norm_as_row(const A &a) {
    T terms[N][N];
    const auto x = view(a, 0, {N, N});
    unroll<N * N>(ZELM_EACH(e) {
        const T element = get(x, e / N, e % N);
        terms[e / N][e % N] = element * element;
    });
    return RootOfSum{}(terms);
}

template <int N, class T, class A>
ZELM_INLINE void fixed_norms(int count, const Scalars<T> &results, const A &a) {
    if constexpr (A::object_rank == 1)
        reduce_lanes<RootOfSum, 1, N>(count, results, a);
    else
        reduce_lanes<RootOfSum, N, N>(count, results, a);
}

template <class T, class A>
ZelStatus y8_ownzelmNorm(int count, Shape shape, const Scalars<T> &results, const A &a) {
    constexpr int largest = A::object_rank == 1 ? 6 : largest_as_row;
    const bool fixed = A::object_rank == 1 || sums_as_row(shape);
    with_order<3, largest>(
        fixed ? shape.width : 0, [&](auto N) { fixed_norms<N>(count, results, a); },
        [&] {
            for (int n = 0; n < count; ++n)
                store<T>(results.object(n), norm_of<T>(a, n, shape));
        });
    return zelStatusOk;
}

// Orders 3 to 6 in a register. Every other order keeps its running sum in the destination, which
// may be an element of the diagonal.
template <class T, class A>
void trace_object(const A &a, int n, int order, char *result) {
    const auto x = view(a, n, {order, order});
    with_order<3, 6>(
        order,
        [&](auto N) __attribute__((always_inline)) {
            T sum = get(x, 0, 0);
            unroll<1, N>(ZELM_EACH(i) { sum = sum + get(x, i, i); });
            store<T>(result, sum);
        },
        [&] {
            store<T>(result, T{0});
            for (int i = 0; i < order; ++i)
                store<T>(result, load<T>(result) + get(x, i, i));
        });
}
template <class T, class A>
ZelStatus y8_ownzelmTrace(int count, int order, const Scalars<T> &results, const A &a) {
    for (int n = 0; n < count; ++n)
        trace_object<T>(a, n, order, results.object(n));
    return zelStatusOk;
}

// ---- limits ----

template <class T, Description d, int rank>
constexpr Limits norm_limits = Limits{1501, 1501};
template <class T, Description d>
constexpr Limits norm_limits<T, d, 2> = d == Description::layout ? Limits{1601, 1601}
                                        : d == Description::pointer
                                            ? (sizeof(T) == 4 ? Limits{1501, 1501}
                                                              : Limits{2501, 2501})
                                        : sizeof(T) == 4 ? Limits{2501, 1801}
                                                         : Limits{1801, 1501};
constexpr Limits trace_limits = {3601, 3601};

// ---- entries ----

template <class A, class T>
ZELM_INLINE ZelStatus norm(const A &a, T *dst, Shape shape) {
    const Scalars<T> result = {dst};
    if (const ZelStatus s = first_failure(pointers(a, result), sizes(shape.width, shape.height),
                                          strides(a), shifts(a)))
        return s;
    const int order = A::object_rank == 2 && sums_as_row(shape) ? shape.width : 0;
    store<T>(dst, with_order<3, largest_as_row>(
                      order, [&](auto N) { return norm_as_row<N, T>(a); },
                      [&] { return norm_of<T>(a, 0, shape); }));
    return zelStatusOk;
}
template <class A, class T>
ZELM_INLINE ZelStatus norms(const A &a, T *dst, Shape shape, int count) {
    const Scalars<T> results = {dst};
    if (const ZelStatus s = first_failure(pointers(a, results), counts(count),
                                          sizes(shape.width, shape.height), strides(a), shifts(a)))
        return s;
    return run_objects(
        norm_limits<T, description_of<A>, A::object_rank>.serial(
            Estimate(shape.width) * shape.height * count, a.packed()),
        [shape](int n, const Scalars<T> &r, const A &x) { return y8_ownzelmNorm(n, shape, r, x); },
        count, results, a);
}
template <class A, class T>
ZELM_INLINE ZelStatus trace(const A &a, T *dst, int order) {
    const Scalars<T> result = {dst};
    if (const ZelStatus s = first_failure(pointers(a, result), sizes(order), strides(a), shifts(a)))
        return s;
    trace_object<T>(a, 0, order, result.object(0));
    return zelStatusOk;
}
template <class A, class T>
ZELM_INLINE ZelStatus traces(const A &a, T *dst, int order, int count) {
    const Scalars<T> results = {dst};
    if (const ZelStatus s =
            first_failure(pointers(a, results), counts(count), sizes(order), strides(a), shifts(a)))
        return s;
    return run_objects(
        trace_limits.serial(Estimate(order) * count, true),
        [order](int n, const Scalars<T> &r, const A &x) { return y8_ownzelmTrace(n, order, r, x); },
        count, results, a);
}

} // namespace
} // namespace zelm

ZELM_MEMBERS(L2Norm, (v), norm(src, pDst, {1, len}))
ZELM_MEMBERS(L2Norm, (va), norms(src, pDst, {1, len}, count))
ZELM_MEMBERS(FrobNorm, (m), norm(src, pDst, {height, width}))
ZELM_MEMBERS(FrobNorm, (ma), norms(src, pDst, {height, width}, count))
ZELM_MEMBERS(Trace, (m), trace(src, pDst, widthHeight))
ZELM_MEMBERS(Trace, (ma), traces(src, pDst, widthHeight, count))
