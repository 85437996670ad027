#include "qr.hpp"

#include "../frame/checks.hpp"
#include "../frame/element_at.hpp"
#include "../frame/estimate.hpp"
#include "../frame/member.hpp"
#include "../frame/parallel.hpp"
#include "../frame/walk.hpp"

namespace zelm {
namespace {

// One matrix: of w*h + (w + h)*count. Matrix arrays: of (w*(h + 1) + h)*count.
constexpr Limits standard_limits = {2801, 2801}, table_limits = {1801, 1801};

// ---- one object, in the buffer ----

template <class Factor, class Vector, class Result>
ZelStatus y8_ownzelmQRBackSubst_mv(const Factor &factor, const Vector &b, const Result &x,
                                   Shape shape, int object, void *buffer) {
    using T = typename Factor::Element;
    const int width = shape.width, height = shape.height;
    const auto f = view(factor, object, shape);
    const auto from = view(b, object, {1, height});
    const auto to = view(x, object, {1, width});
    const StridedView<T> y = {static_cast<char *>(buffer), 0, sizeof(T)};
    for (int i = 0; i < height; ++i)
        put(y, 0, i, T{get(from, 0, i)});
    const auto element = [&](int i, int j) { return get(f, i, j); };
    substitute_qr<T>(
        width, height, element, [&](int k) { return reflection_scale<T>(k, height, element); },
        [&](int i) { return element_at<T>(y, 0, i); });
    for (int i = 0; i < width; ++i)
        put(to, 0, i, T{get(y, 0, i)});
    return zelStatusOk;
}

// ---- arrays ----

// One factor beside an array of vectors is loaded once, into every lane.
template <int N, class Factor, class Vector, class Result, class Allowed, class Single>
void solve_array(const Factor &factor, const Vector &b, const Result &x, int count,
                 const Allowed &allowed, const Single &alone) {
    using T = typename Vector::Element;
    using S = Lanes<T>;
    const auto solve = [](const Group &group, const S(&f)[N][N], const S(&beta)[N],
                          const auto &from, const auto &to) __attribute__((always_inline)) {
        S v[1][N];
        load_lanes<T>(v, from, group.first);
        substitute_qr<N>(f, beta, v[0]);
        store_lanes<T>(to, group.first, v);
        return 0u;
    };
    if constexpr (Factor::is_array) {
        walk<T>(
            count, allowed,
            [&](const Group &group, const auto &f, const auto &v, const auto &y)
                __attribute__((always_inline)) {
                    S a[N][N], beta[N];
                    load_lanes<T>(a, f, group.first);
                    reflection_scales<N>(beta, a);
                    return solve(group, a, beta, v, y);
                },
            alone, walked<N, N>(factor), walked<1, N>(b), walked<1, N>(x));
    } else {
        S a[N][N], beta[N];
        load_splat<T>(a, view(factor, 0, {N, N}));
        reflection_scales<N>(beta, a);
        walk<T>(
            count, allowed,
            [&](const Group &group, const auto &v, const auto &y)
                __attribute__((always_inline)) { return solve(group, a, beta, v, y); },
            alone, walked<1, N>(b), walked<1, N>(x));
    }
}

constexpr int most_lane_elements = 256; // 4 KiB of registers, of a factor or of a vector

template <class Factor, class Vector, class Result, class Allowed, class Single>
void solve_array(Shape shape, const Factor &factor, const Vector &b, const Result &x, int count,
                 const Allowed &allowed, const Single &alone) {
    using T = typename Vector::Element;
    using S = Lanes<T>;
    constexpr int most = most_lane_elements;
    const int width = shape.width, height = shape.height;
    const auto solve = [&](const Group &group, const auto &element, const auto &beta,
                           const auto &from, const auto &to) __attribute__((always_inline)) {
        S y[most];
        const auto all = [&](int n, const auto &f) __attribute__((always_inline)) {
            in_steps<T>(
                0, n, [&](int j, auto K) __attribute__((always_inline)) {
                    f(j, *reinterpret_cast<S(*)[K]>(y + j));
                });
        };
        all(
            height, [&](int j, auto &part) __attribute__((always_inline)) {
                load_row<T>(part, from, group.first, {1, height}, 0, j);
            });
        substitute_qr<S>(width, height, element, beta, [&](int i) -> S & { return y[i]; });
        all(
            width, [&](int j, auto &part) __attribute__((always_inline)) {
                store_row<T>(to, group.first, {1, width}, 0, j, part);
            });
        return 0u;
    };
    const auto from = walked<most>(b, {1, height});
    const auto to = walked<most>(x, {1, width});
    if constexpr (Factor::is_array) {
        walk<T>(
            count, allowed,
            [&](const Group &group, const auto &f, const auto &v, const auto &y) {
                S a[most];
                for (int i = 0; i < height; ++i)
                    in_steps<T>(
                        0, width, [&](int j, auto K) __attribute__((always_inline)) {
                            load_row<T>(*reinterpret_cast<S(*)[K]>(a + i * width + j), f,
                                        group.first, shape, i, j);
                        });
                const auto element = [&](int i, int j) { return a[i * width + j]; };
                return solve(
                    group, element, [&](int k) { return reflection_scale<S>(k, height, element); },
                    v, y);
            },
            alone, walked<most>(factor, shape), from, to);
    } else {
        S scales[most];
        const auto f = view(factor, 0, shape);
        const auto element = [&](int i, int j) { return splat<S>(get(f, i, j)); };
        for (int k = 0; k < reflections(width, height); ++k)
            scales[k] = reflection_scale<S>(k, height, element);
        walk<T>(
            count, allowed,
            [&](const Group &group, const auto &v, const auto &y) {
                return solve(
                    group, element, [&](int k) { return scales[k]; }, v, y);
            },
            alone, from, to);
    }
}

template <class Factor, class Vector, class Result>
ZelStatus y8_ownzelmQRBackSubst(void *buffer, int count, const Factor &factor, const Vector &b,
                                const Result &x, Shape shape) {
    const int width = shape.width, height = shape.height;
    const auto alone = [&](int k) __attribute__((noinline)) {
        return y8_ownzelmQRBackSubst_mv(factor, b, x, shape, k, buffer);
    };
    if (height > most_lane_elements / (Factor::is_array ? width : 1))
        return walk_singly(count, alone);
    const Footprint factors(factor, shape);
    const Footprint from(b, {1, height});
    const Footprint to(x, {1, width});
    const Overlap overlap(count, {1, width}, to, factors, from);
    const auto general = [&] { solve_array(shape, factor, b, x, count, overlap, alone); };
    if (width != height)
        general();
    else
        with_order<3, 6>(
            width, [&](auto N) { solve_array<N>(factor, b, x, count, overlap, alone); }, general);
    return zelStatusOk;
}

// ---- entries ----

template <class Factor, class T, class Vector, class Result>
ZELM_INLINE ZelStatus qr_backsubst(const Factor &factor, T *buffer, const Vector &b,
                                   const Result &x, int width, int height) {
    if (const ZelStatus s =
            first_failure(pointers(factor, buffer, b, x), sizes(width, height),
                          strides(factor, b, x), shifts(factor, b, x), at_most(width, height)))
        return s;
    return y8_ownzelmQRBackSubst_mv(factor, b, x, {height, width}, 0, buffer);
}

template <class Factor, class T, class Vector, class Result>
ZELM_INLINE ZelStatus qr_backsubst(const Factor &factor, T *buffer, const Vector &b,
                                   const Result &x, int width, int height, int count) {
    if (const ZelStatus s =
            first_failure(pointers(factor, buffer, b, x), counts(count), sizes(width, height),
                          strides(factor, b, x), shifts(factor, b, x), at_most(width, height)))
        return s;
    constexpr Limits limits =
        description_of<Result> == Description::standard ? standard_limits : table_limits;
    const Estimate w = width, h = height;
    const Estimate work = Factor::is_array ? (w * (h + 1) + h) * count : w * h + (w + h) * count;
    return run_objects_in(
        Scratch{buffer, static_cast<std::size_t>(height) * sizeof(T)}, limits.serial(work, true),
        [width, height](void *scratch, int objects, const Factor &f, const Vector &from,
                        const Result &to) {
            const Shape shape = {height, width};
            return with_strides(
                [&](const auto &p, const auto &v, const auto &y) {
                    return y8_ownzelmQRBackSubst(scratch, objects, p, v, y, shape);
                },
                shaped(f, shape), shaped(from, {1, height}), shaped(to, {1, width}));
        },
        count, factor, b, x);
}

} // namespace
} // namespace zelm

#define QR_MV(D, T, suffix, kinds, f, v)                                                           \
    ZELM_MEMBER(zelmQRBackSubst_##kinds##_##suffix,                                                \
                (ZELM_PARAMETERS(D, f, const T, src), T * buffer,                                  \
                 ZELM_PARAMETERS(D, v, const T, src2), ZELM_PARAMETERS(D, v, T, dst), int width,   \
                 int height),                                                                      \
                zelm::qr_backsubst(ZELM_OPERAND(D, f, const T, src), buffer,                       \
                                   ZELM_OPERAND(D, v, const T, src2), ZELM_OPERAND(D, v, T, dst),  \
                                   width, height))
#define QR_MVA(D, T, suffix, kinds, f, v)                                                          \
    ZELM_MEMBER(zelmQRBackSubst_##kinds##_##suffix,                                                \
                (ZELM_PARAMETERS(D, f, const T, src), T * buffer,                                  \
                 ZELM_PARAMETERS(D, v, const T, src2), ZELM_PARAMETERS(D, v, T, dst), int width,   \
                 int height, int count),                                                           \
                zelm::qr_backsubst(ZELM_OPERAND(D, f, const T, src), buffer,                       \
                                   ZELM_OPERAND(D, v, const T, src2), ZELM_OPERAND(D, v, T, dst),  \
                                   width, height, count))

ZELM_SINGLE(QR_MV, mv, m, v)
ZELM_ARRAY(QR_MVA, mva, m, va)
ZELM_ARRAY(QR_MVA, mava, ma, va)
