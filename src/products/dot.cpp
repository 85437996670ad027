#include "reduce.hpp"

#include "../frame/checks.hpp"
#include "../frame/estimate.hpp"
#include "../frame/member.hpp"
#include "../frame/parallel.hpp"

namespace zelm {
namespace {

template <class T, Description d>
constexpr Limits limits = d == Description::pointer
                              ? (sizeof(T) == 4 ? Limits{2401, 2401} : Limits{2001, 2001})
                          : d == Description::layout
                              ? (sizeof(T) == 4 ? Limits{2401, 2401} : Limits{4201, 3301})
                              : (sizeof(T) == 4 ? Limits{5001, 2621} : Limits{3501, 2001});

// Products that a single pair adds one by one before its blocks. Adjacent floats bring the second
// vector to a boundary of registers, tables bring the table there; where that cannot be, all of
// them.
template <class T, class A, class B>
int leading_singles(const A &a, const B &b, int len) {
    constexpr std::uintptr_t boundary =
        16; // of registers of four floats, whatever others there are
    std::uintptr_t at = 0, step = 1;
    if constexpr (B::is_tabled) {
        at = reinterpret_cast<std::uintptr_t>(b.table);
        step = sizeof(void *);
    } else if (sizeof(T) == 4 && a.packed() && b.packed()) {
        at = reinterpret_cast<std::uintptr_t>(b.base);
        step = sizeof(T);
    }
    if (at % step != 0)
        return len;
    return static_cast<int>(-at % boundary / step);
}

template <class T, class A, class B>
T dot_product(const A &a, const B &b, int n, int len, int singles) {
    const auto x = view(a, n, {1, len});
    const auto y = view(b, n, {1, len});
    if constexpr (!A::is_tabled)
        if (rows_adjacent(a) && rows_adjacent(b))
            return sum_of_products<T>(AdjacentRow<const T>{x.base}, AdjacentRow<const T>{y.base},
                                      len, singles);
    return sum_of_products<T>(x, y, len, singles);
}

// Long vectors: some pairs at a time where no result is stored among the sources.
template <class T, class A, class B>
void dot_products(int count, int len, const Scalars<T> results, const A a, const B b) {
    int n = 0;
    if constexpr (!A::is_tabled) {
        constexpr int together = sizeof(T) == 4 ? 2 : 1; // of doubles, more streams are slower
        const Shape shape = {1, len};
        if (len >= block_length && rows_adjacent(a) && rows_adjacent(b) &&
            Overlap(count, objects(results, {1, 1}), objects(a, shape), objects(b, shape)).clear())
            for (; n <= count - together; n += together) {
                T sum[together] = {};
                AdjacentRow<const T> x[together], y[together];
                unroll<together>(ZELM_EACH(o) {
                    x[o] = {view(a, n + o, shape).base};
                    y[o] = {view(b, n + o, shape).base};
                });
                add_products<false>(sum, x, y, 0, len);
                unroll<together>(ZELM_EACH(o) { store<T>(results.object(n + o), sum[o]); });
            }
    }
    for (; n < count; ++n)
        store<T>(results.object(n), dot_product<T>(a, b, n, len, 0));
}

struct Sum {
    template <int N, class S>
    ZELM_INLINE S operator()(const S (&terms)[1][N]) const {
        return sum_of(terms);
    }
};

template <class T, class A, class B>
ZelStatus y8_ownzelmDotProduct(int count, int len, const Scalars<T> &results, const A &a,
                               const B &b) {
    with_order<3, 6>(
        len, [&](auto N) { reduce_lanes<Sum, 1, N>(count, results, a, b); },
        [&] { dot_products(count, len, results, a, b); });
    return zelStatusOk;
}

template <class A, class B, class T>
ZELM_INLINE ZelStatus dot(const A &a, const B &b, T *dst, int len) {
    const Scalars<T> result = {dst};
    if (const ZelStatus s =
            first_failure(pointers(a, b, result), sizes(len), strides(a, b), shifts(a, b)))
        return s;
    const int singles = len < block_length ? 0 : leading_singles<T>(a, b, len);
    store<T>(dst, dot_product<T>(a, b, 0, len, singles));
    return zelStatusOk;
}
template <class A, class B, class T>
ZELM_INLINE ZelStatus dots(const A &a, const B &b, T *dst, int len, int count) {
    const Scalars<T> results = {dst};
    if (const ZelStatus s = first_failure(pointers(a, b, results), counts(count), sizes(len),
                                          strides(a, b), shifts(a, b)))
        return s;
    return run_objects(
        limits<T, description_of<A>>.serial(elements<A>(len, count) + elements<B>(len, count),
                                            a.packed() && b.packed()),
        [len](int n, const Scalars<T> &r, const A &x, const B &y) {
            return y8_ownzelmDotProduct(n, len, r, x, y);
        },
        count, results, a, b);
}

} // namespace
} // namespace zelm

ZELM_MEMBERS(DotProduct, (vv), dot(src1, src2, pDst, len))
ZELM_MEMBERS(DotProduct, (vav, vava), dots(src1, src2, pDst, len, count))
