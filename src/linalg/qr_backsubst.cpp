#include "qr.hpp"
#include "substitution.hpp"

#include "../frame/checks.hpp"
#include "../frame/element_at.hpp"
#include "../frame/estimate.hpp"
#include "../frame/member.hpp"
#include "../frame/parallel.hpp"

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

struct Factored {
    using Part = Whole;

    template <int N, class S>
    struct Prepared {
        S f[N][N], beta[N];
        ZELM_INLINE void prepare() { reflection_scales<N>(beta, f); }
        ZELM_INLINE void solve(S (&x)[N]) const { substitute_qr<N>(f, beta, x); }
    };
    template <class S, int most_columns>
    struct PreparedBlock {
        S beta[most_columns];

        template <class F>
        void prepare(Shape shape, const F &f) {
            for (int k = 0; k < reflections(shape.width, shape.height); ++k)
                beta[k] = reflection_scale<S>(k, shape.height, f);
        }
        template <class F>
        void solve(Shape shape, const F &f, S *x) const {
            substitute_qr<S>(
                shape.width, shape.height, f, [&](int k) { return beta[k]; },
                [&](int i) -> S & { return x[i]; });
        }
    };
};

template <class Factor, class Vector, class Result>
ZelStatus y8_ownzelmQRBackSubst(void *buffer, int count, const Factor &factor, const Vector &b,
                                const Result &x, Shape shape) {
    const auto alone = [&](int k) __attribute__((noinline)) {
        return y8_ownzelmQRBackSubst_mv(factor, b, x, shape, k, buffer);
    };
    solve_arrays<Factored>(count, shape, factor, b, x, alone);
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

ZELM_MEMBERS(QRBackSubst, (mv), qr_backsubst(src, pBuffer, src2, dst, width, height))
ZELM_MEMBERS(QRBackSubst, (mva, mava), qr_backsubst(src, pBuffer, src2, dst, width, height, count))
