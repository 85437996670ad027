#include "../frame/checks.hpp"
#include "../frame/estimate.hpp"
#include "../frame/member.hpp"
#include "../frame/parallel.hpp"
#include "../frame/walk.hpp"

#include <float.h>

namespace zelm {
namespace {

constexpr Limits limits = {785, 785}; // of 2*count

// Replaces p by its image, or by the largest float where w is too small to divide by; returns where
// that is so. A NaN is not above the limit.
template <class S>
ZELM_INLINE MaskOf<S> transform(const S (&m)[4][4], S (&p)[3]) {
    const auto row = [&, x = p[0], y = p[1], z = p[2] ](int i) __attribute__((always_inline)) {
        return m[i][0] * x + m[i][1] * y + m[i][2] * z + m[i][3];
    };
    const S w = row(3), reciprocal = splat<S>(1) / w;
    const auto divides = magnitude(w) > splat<S>(FLT_MIN);
    unroll<3>(ZELM_EACH(i) { p[i] = select(divides, S(row(i) * reciprocal), splat<S>(FLT_MAX)); });
    return divides;
}

struct TransformGroup {
    Lanes<float> matrix[4][4];
    unsigned &divided; // the lanes in which no division has failed

    template <class X, class Y>
    ZELM_INLINE unsigned operator()(const Group &group, const X &x, const Y &y) const {
        Lanes<float> p[1][3];
        load_lanes<float>(p, x, group.first);
        divided &= lane_bits(transform(matrix, p[0]));
        store_lanes<float>(y, group.first, p);
        return 0;
    }
};

template <class Matrix, class Vector, class Result>
ZelStatus y8_ownzelmAffineTransform3DH_mva_32f(int count, const Matrix &matrix, const Vector &v,
                                               const Result &result) {
    using S = Lanes<float>;
    float m[4][4];
    const auto elements = matrix.view(0);
    unsigned divided = ~0u;
    TransformGroup kernel = {{}, divided};
    unroll<4>(ZELM_EACH(i) { unroll<4>(ZELM_EACH(j) { m[i][j] = get(elements, i, j); }); });
    load_splat<float>(kernel.matrix[0], objects(matrix, {4, 4}));
    const Objects from = objects(v, {1, 3}), to = objects(result, {1, 3});
    walk<float>(
        count, Overlap(count, to, from), kernel,
        [&](int n) __attribute__((noinline)) {
            float p[3];
            unroll<3>(ZELM_EACH(i) { p[i] = get(v.view(n), 0, i); });
            if (!transform<float>(m, p))
                divided = 0;
            unroll<3>(ZELM_EACH(i) { put(result.view(n), 0, i, p[i]); });
            return zelStatusOk; // the vectors behind a failure are done all the same
        },
        walked<float, 1, 3>(from), walked<float, 1, 3>(to));
    return (divided & all_lanes<S>) == all_lanes<S> ? zelStatusOk : zelStatusDivByZero;
}

template <class Matrix, class Vector, class Result>
ZELM_INLINE ZelStatus affine_transform_3dh(const Matrix &m, const Vector &v, const Result &result,
                                           int count) {
    if (const ZelStatus s =
            first_failure(pointers(m, v, result), counts(count), strides(m, v, result)))
        return s;
    return run_objects(limits.serial(Estimate(2) * count, true),
                       y8_ownzelmAffineTransform3DH_mva_32f<Matrix, Vector, Result>, count, m, v,
                       result);
}

} // namespace
} // namespace zelm

ZELM_MEMBERS(AffineTransform3DH, (mva), affine_transform_3dh(src1, src2, dst, count))
