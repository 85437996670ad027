#include "small.hpp"

#include "../frame/member.hpp"

namespace zelm::geom3d {
namespace {

// Element i of the result from elements i of the sources, which are all read before it is written.
template <int n, class F, class... Source>
ZELM_INLINE ZelStatus each(float *dst, const F &f, const Source *...src) {
    if constexpr (n == lanes_of<Row>) {
        store<Row>(dst, f(load<Row>(src)...));
    } else {
        const auto of_elements = [&](const auto &...v) __attribute__((always_inline)) {
            Small<n> result;
            unroll<n>(ZELM_EACH(i) { result.e[i] = f(v.e[i]...); });
            return result;
        };
        store_small<n>(dst, of_elements(load_small<n>(src)...));
    }
    return zelStatusOk;
}

template <class T>
ZELM_INLINE ZelStatus give(float *dst, const T &value) {
    if constexpr (std::is_same_v<T, float>)
        store<float>(dst, value);
    else
        store_small(dst, value);
    return zelStatusOk;
}

constexpr auto sum = [](auto a, auto b) { return a + b; };
constexpr auto less = [](auto a, auto b) { return a - b; };
// Strict comparisons: where one is false, as it is with a NaN, the second element is taken.
constexpr auto lesser = [](auto a, auto b) { return select(a < b, a, b); };
constexpr auto greater = [](auto a, auto b) { return select(a > b, a, b); };
constexpr auto scaled = [](float scale) { return [=](auto a) { return a * scale; }; };
constexpr auto between = [](float s) { return [=](auto a, auto b) { return a + (b - a) * s; }; };
constexpr auto barycentric = [](float f, float g) {
    return [=](auto a, auto b, auto c) { return ((b - a) * f + a) + (c - a) * g; };
};

// The cubic Hermite basis with the weights of the first position folded into the others, so that
// s = 0 gives it exactly. The weights are computed in double from the rounded powers.
constexpr auto hermite = [](float s) {
    const float square = s * s, cube = square * s;
    const double s1 = s, s2 = square, s3 = cube;
    const auto tangent1 = static_cast<float>(((s1 - s2) - s2) + s3);
    const auto position = static_cast<float>((s3 - 3 * s2) + s3);
    const auto tangent2 = static_cast<float>(s3 - s2);
    return [=](auto p1, auto t1, auto p2, auto t2) {
        return (p1 - p2) * position + ((p1 + t1 * tangent1) + t2 * tangent2);
    };
};
// From q1 to q2, with half the distance of a point's neighbours as its tangent.
constexpr auto catmull_rom = [](float s) {
    return [curve = hermite(s)](auto q0, auto q1, auto q2, auto q3) {
        return curve(q1, (q2 - q0) * 0.5f, q2, (q3 - q1) * 0.5f);
    };
};

} // namespace
} // namespace zelm::geom3d

using namespace zelm::geom3d;

// clang-format off
#define VECTORS(n)                                                                                \
    ZELM_MEMBERS(Add, (v##n), each<n>(pDst, sum, pSrc1, pSrc2))                                   \
    ZELM_MEMBERS(Sub, (v##n), each<n>(pDst, less, pSrc1, pSrc2))                                  \
    ZELM_MEMBERS(Min, (v##n), each<n>(pDst, lesser, pSrc1, pSrc2))                                \
    ZELM_MEMBERS(Max, (v##n), each<n>(pDst, greater, pSrc1, pSrc2))                               \
    ZELM_MEMBERS(MulC, (v##n), each<n>(pDst, scaled(scale), pSrc))                                \
    ZELM_MEMBERS(LenSqr, (v##n), give(pDst, dot(load_small<n>(pSrc), load_small<n>(pSrc))))       \
    ZELM_MEMBERS(Len, (v##n), give(pDst, length(load_small<n>(pSrc))))                            \
    ZELM_MEMBERS(Normalize, (v##n), give(pDst, normalized(load_small<n>(pSrc))))                  \
    ZELM_MEMBERS(DotProduct, (v##n), give(pDst, dot(load_small<n>(pSrc1), load_small<n>(pSrc2)))) \
    ZELM_MEMBERS(InterpolationLinear, (v##n), each<n>(pDst, between(s), pSrc1, pSrc2))            \
    ZELM_MEMBERS(BaryCentric, (v##n), each<n>(pDst, barycentric(f, g), pSrc1, pSrc2, pSrc3))      \
    ZELM_MEMBERS(Hermite, (v##n), each<n>(pDst, hermite(s), pPos1, pTan1, pPos2, pTan2))          \
    ZELM_MEMBERS(InterpolationCatmullRom, (v##n),                                                 \
                 each<n>(pDst, catmull_rom(s), pSrc1, pSrc2, pSrc3, pSrc4))
// clang-format on

VECTORS(2)
VECTORS(3)
VECTORS(4)
ZELM_MEMBERS(CrossProduct, (v2), give(pDst, cross(load_small<2>(pSrc1), load_small<2>(pSrc2))))
ZELM_MEMBERS(CrossProduct, (v3), give(pDst, cross(load_small<3>(pSrc1), load_small<3>(pSrc2))))
ZELM_MEMBERS(CrossProduct, (v4),
             give(pDst, cross(load_small<4>(pSrc1), load_small<4>(pSrc2), load_small<4>(pSrc3))))
