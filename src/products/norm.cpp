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

// clang-format off
#define NORM_V(D, T, suffix)                                                                      \
    ZELM_MEMBER(zelmL2Norm_v_##suffix, (ZELM_PARAMETERS(D, v, const T, src), T *pDst, int len),   \
                zelm::norm(ZELM_OPERAND(D, v, const T, src), pDst, {1, len}))
#define NORM_VA(D, T, suffix)                                                                     \
    ZELM_MEMBER(zelmL2Norm_va_##suffix,                                                           \
                (ZELM_PARAMETERS(D, va, const T, src), T *pDst, int len, int count),              \
                zelm::norms(ZELM_OPERAND(D, va, const T, src), pDst, {1, len}, count))
#define NORM_M(D, T, suffix)                                                                      \
    ZELM_MEMBER(zelmFrobNorm_m_##suffix,                                                          \
                (ZELM_PARAMETERS(D, m, const T, src), int width, int height, T *pDst),            \
                zelm::norm(ZELM_OPERAND(D, m, const T, src), pDst, {height, width}))
#define NORM_MA(D, T, suffix)                                                                     \
    ZELM_MEMBER(zelmFrobNorm_ma_##suffix,                                                         \
                (ZELM_PARAMETERS(D, ma, const T, src), int width, int height, T *pDst, int count), \
                zelm::norms(ZELM_OPERAND(D, ma, const T, src), pDst, {height, width}, count))
#define TRACE_M(D, T, suffix)                                                                     \
    ZELM_MEMBER(zelmTrace_m_##suffix,                                                             \
                (ZELM_PARAMETERS(D, m, const T, src), int widthHeight, T *pDst),                  \
                zelm::trace(ZELM_OPERAND(D, m, const T, src), pDst, widthHeight))
#define TRACE_MA(D, T, suffix)                                                                    \
    ZELM_MEMBER(zelmTrace_ma_##suffix,                                                            \
                (ZELM_PARAMETERS(D, ma, const T, src), int widthHeight, T *pDst, int count),      \
                zelm::traces(ZELM_OPERAND(D, ma, const T, src), pDst, widthHeight, count))
// clang-format on

#define SINGLE(M) M(S, float, 32f) M(S, double, 64f) M(P, float, 32f_P) M(P, double, 64f_P)
#define ARRAY(M) SINGLE(M) M(L, float, 32f_L) M(L, double, 64f_L)

SINGLE(NORM_V)
ARRAY(NORM_VA)
SINGLE(NORM_M)
ARRAY(NORM_MA)
SINGLE(TRACE_M)
ARRAY(TRACE_MA)
