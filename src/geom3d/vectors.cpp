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
constexpr auto smaller = [](auto a, auto b) { return select(a < b, a, b); };
constexpr auto larger = [](auto a, auto b) { return select(a > b, a, b); };
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

// clang-format off
#define VECTORS(n)                                                                                 \
    VECTOR(Add, n, (const float *a, const float *b, float *dst), each<n>(dst, sum, a, b))          \
    VECTOR(Sub, n, (const float *a, const float *b, float *dst), each<n>(dst, less, a, b))         \
    VECTOR(Min, n, (const float *a, const float *b, float *dst), each<n>(dst, smaller, a, b))      \
    VECTOR(Max, n, (const float *a, const float *b, float *dst), each<n>(dst, larger, a, b))       \
    VECTOR(MulC, n, (const float *a, float *dst, float scale), each<n>(dst, scaled(scale), a))     \
    VECTOR(LenSqr, n, (const float *a, float *dst),                                                \
           give(dst, dot(load_small<n>(a), load_small<n>(a))))                                     \
    VECTOR(Len, n, (const float *a, float *dst), give(dst, length(load_small<n>(a))))              \
    VECTOR(Normalize, n, (const float *a, float *dst), give(dst, normalized(load_small<n>(a))))    \
    VECTOR(DotProduct, n, (const float *a, const float *b, float *dst),                            \
           give(dst, dot(load_small<n>(a), load_small<n>(b))))                                     \
    VECTOR(InterpolationLinear, n, (const float *a, const float *b, float *dst, float s),          \
           each<n>(dst, between(s), a, b))                                                         \
    VECTOR(BaryCentric, n,                                                                         \
           (const float *a, const float *b, const float *c, float *dst, float f, float g),         \
           each<n>(dst, barycentric(f, g), a, b, c))                                               \
    VECTOR(Hermite, n,                                                                             \
           (const float *p1, const float *t1, const float *p2, const float *t2, float *dst,        \
            float s),                                                                              \
           each<n>(dst, hermite(s), p1, t1, p2, t2))                                               \
    VECTOR(InterpolationCatmullRom, n,                                                             \
           (const float *q0, const float *q1, const float *q2, const float *q3, float *dst,        \
            float s),                                                                              \
           each<n>(dst, catmull_rom(s), q0, q1, q2, q3))
#define VECTOR(operation, n, parameters, ...)                                                      \
    ZELM_MEMBER(zelm##operation##_v##n##_32f, parameters, __VA_ARGS__)
// clang-format on

using namespace zelm::geom3d;

VECTORS(2)
VECTORS(3)
VECTORS(4)
VECTOR(CrossProduct, 2, (const float *a, const float *b, float *dst),
       give(dst, cross(load_small<2>(a), load_small<2>(b))))
VECTOR(CrossProduct, 3, (const float *a, const float *b, float *dst),
       give(dst, cross(load_small<3>(a), load_small<3>(b))))
VECTOR(CrossProduct, 4, (const float *a, const float *b, const float *c, float *dst),
       give(dst, cross(load_small<4>(a), load_small<4>(b), load_small<4>(c))))
