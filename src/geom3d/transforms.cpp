#include "inverse.hpp"
#include "matrix.hpp"
#include "points.hpp"

#include "../frame/member.hpp"

namespace zelm::geom3d {
namespace {

// The groupings differ on purpose. p are the coordinates of a point and r the rows of the matrix:
// a coordinate in every lane and whole rows, or four points and one element of each row.

template <int n>
struct Affine {
    static constexpr int size = 4;
    static constexpr bool by_pairs = true; // coordinates 0 and 1 meet in one addition, 2 and 3 too
    static constexpr bool divides = false;
    ZELM_INLINE static Row at(const Row (&p)[n], const Row (&r)[4]) {
        if constexpr (n == 2)
            return (p[0] * r[0] + p[1] * r[1]) + r[3];
        else if constexpr (n == 3)
            return ((p[0] * r[0] + p[1] * r[1]) + p[2] * r[2]) + r[3];
        else
            return (p[0] * r[0] + p[1] * r[1]) + (p[2] * r[2] + p[3] * r[3]);
    }
};
template <int n>
struct Coordinate {
    static constexpr int size = n;
    static constexpr bool by_pairs = n == 3;
    static constexpr bool divides = true; // by column 3
    ZELM_INLINE static Row at(const Row (&p)[n], const Row (&r)[4]) {
        if constexpr (n == 2)
            return (p[0] * r[0] + r[3]) + p[1] * r[1];
        else
            return (r[3] + p[2] * r[2]) + (p[0] * r[0] + p[1] * r[1]);
    }
};
template <int n>
struct Direction {
    static constexpr int size = n;
    static constexpr bool by_pairs = true;
    static constexpr bool divides = false;
    ZELM_INLINE static Row at(const Row (&p)[n], const Row (&r)[4]) {
        if constexpr (n == 2)
            return p[0] * r[0] + p[1] * r[1];
        else
            return (p[0] * r[0] + p[1] * r[1]) + p[2] * r[2];
    }
};
// A point with w = 1 that a product of four components follows.
struct Homogeneous {
    ZELM_INLINE static Row at(const Row (&p)[3], const Row (&r)[4]) {
        return (p[0] * r[0] + p[1] * r[1]) + (p[2] * r[2] + r[3]);
    }
};

// ---- points as rows ----

// What becomes of a point is a function of its coordinates in registers, a row of results.

// Two coordinates in turn, x y x y, and the other way round, y x y x: one shuffle instead of two.
// The rows of the matrix are crossed to match, and only the operands of an addition change places.
template <int n, bool by_pairs>
ZELM_INLINE void load_point(Row (&p)[n], const char *at) {
    if constexpr (by_pairs) {
        unroll<n / 2>(ZELM_EACH(pair) {
            const Row v = (Row)splat<RowLanes<double>>(load<double>(at + pair * sizeof(double)));
            p[2 * pair] = v;
            p[2 * pair + 1] = __builtin_shufflevector(v, v, 1, 0, 3, 2);
        });
        if constexpr (n % 2 == 1)
            p[n - 1] = splat<Row>(load<float>(at + (n - 1) * sizeof(float)));
    } else {
        unroll<n>(ZELM_EACH(i) { p[i] = splat<Row>(load<float>(at + i * sizeof(float))); });
    }
}
template <int n, bool by_pairs>
ZELM_INLINE Matrix crossed(Matrix m) {
    if constexpr (by_pairs)
        unroll<n / 2>(ZELM_EACH(pair) {
            const Row a = m.r[2 * pair], b = m.r[2 * pair + 1];
            m.r[2 * pair] = __builtin_shufflevector(a, b, 0, 5, 2, 7);
            m.r[2 * pair + 1] = __builtin_shufflevector(b, a, 0, 5, 2, 7);
        });
    return m;
}

// `size` results of each vector of n elements, in ascending order. Where three results have no gaps
// between points, four at a time are stored with one element more, which the next one overwrites.
template <int n, int size, bool by_pairs, class Image>
ZELM_INLINE void all_points(const Source &src, const Destination &dst, int count,
                            const Image &image) {
    Distance k = 0;
    if constexpr (size == 3)
        if (dst.stride == packed_point && apart<n, size>(src, dst, count))
            for (; k <= count - 4; k += 4) {
                Row p[4][n];
                unroll<4>(ZELM_EACH(l) { load_point<n, by_pairs>(p[l], src.at(k + l)); });
                unroll<3>(ZELM_EACH(l) { store<Row>(dst.at(k + l), image(p[l])); });
                store_part<size, Row>(dst.at(k + 3), image(p[3]));
            }
#pragma GCC unroll 4
    for (; k < count; ++k) {
        Row p[n];
        load_point<n, by_pairs>(p, src.at(k));
        store_part<size, Row>(dst.at(k), image(p));
    }
}

template <int n, int size, class Image>
ZELM_INLINE void one_point(const void *src, void *dst, const Image &image) {
    const Small<n> v = load_small<n>(src);
    Row p[n];
    unroll<n>(ZELM_EACH(i) { p[i] = splat<Row>(v.e[i]); });
    store_part<size, Row>(static_cast<char *>(dst), image(p));
}

template <class Transform, int n>
struct Through {
    Matrix m;

    ZELM_INLINE Row operator()(const Row (&p)[n]) const {
        const Row h = Transform::at(p, m.r);
        if constexpr (Transform::divides)
            return h / splat_lane<3>(h);
        else
            return h;
    }
};

template <class Transform, int n>
ZELM_INLINE ZelStatus transform_all(const float *mat, const Source &src, const Destination &dst,
                                    int count) {
    constexpr bool by_pairs = Transform::by_pairs;
    all_points<n, Transform::size, by_pairs>(
        src, dst, count, Through<Transform, n>{crossed<n, by_pairs>(load_matrix(mat))});
    return zelStatusOk;
}
template <class Transform, int n>
ZELM_INLINE ZelStatus transform_one(const float *mat, const float *src, float *dst) {
    one_point<n, Transform::size>(src, dst, Through<Transform, n>{load_matrix(mat)});
    return zelStatusOk;
}

// ---- the viewport ----

struct Viewport {
    float width, height, near, far;
};

// Through three matrices, from clip space to pixels and depth.
struct Projection {
    Matrix world, view, projection;
    Row offset, scale;

    ZELM_INLINE Projection(const float *mat1, const float *mat2, const float *mat3,
                           const Viewport &v)
        : world(load_matrix(mat3)),
          view(load_matrix(mat2)),
          projection(load_matrix(mat1)),
          offset{v.width * 0.5f, v.height * 0.5f, v.near, v.near},
          scale{v.width * 0.5f, 0 - v.height * 0.5f, v.far - v.near, v.far - v.near} {}

    ZELM_INLINE Row operator()(const Row (&p)[3]) const {
        const auto through = [](Row q, const Matrix &m) __attribute__((always_inline)) {
            return Affine<4>::at(
                {splat_lane<0>(q), splat_lane<1>(q), splat_lane<2>(q), splat_lane<3>(q)}, m.r);
        };
        const Row q = through(through(Homogeneous::at(p, world.r), view), projection);
        return offset + scale * (q / splat_lane<3>(q));
    }
};

ZELM_INLINE ZelStatus project_one(const float *mat1, const float *mat2, const float *mat3,
                                  const float *src, float *dst, const Viewport &v) {
    one_point<3, 3>(src, dst, Projection(mat1, mat2, mat3, v));
    return zelStatusOk;
}

// ---- four points: a register for each coordinate ----

// Every element of a matrix in all lanes, column by column.
struct Splats {
    Row column[4][4];

    ZELM_INLINE explicit Splats(const Matrix &m) {
        unroll<4>(
            ZELM_EACH(j) { unroll<4>(ZELM_EACH(i) { column[j][i] = splat_lane<j>(m.r[i]); }); });
    }
};

template <class Transform, int n, int size>
ZELM_INLINE void through(const Row (&p)[n], const Splats &m, Row (&result)[size]) {
    unroll<size>(ZELM_EACH(j) { result[j] = Transform::at(p, m.column[j]); });
}

// The same operations as for one point: by rows they would be as many, and twice the shuffles.
ZELM_INLINE ZelStatus project_all(const float *mat1, const float *mat2, const float *mat3,
                                  const Source &src, const Destination &dst, int count,
                                  const Viewport &v) {
    const Projection one(mat1, mat2, mat3, v);
    const Splats world(one.world), view(one.view), projection(one.projection);
    each_point(
        src, dst, count,
        [&](Row(&p)[3]) __attribute__((always_inline)) {
            Row in_world[4], in_view[4], q[4];
            through<Homogeneous>(p, world, in_world);
            through<Affine<4>>(in_world, view, in_view);
            through<Affine<4>>(in_view, projection, q);
            unroll<3>(ZELM_EACH(i) {
                p[i] = splat_lane<i>(one.offset) + splat_lane<i>(one.scale) * (q[i] / q[3]);
            });
        },
        [&](const void *from, void *to) { one_point<3, 3>(from, to, one); });
    return zelStatusOk;
}

// From pixels and depth to clip space. S is a float, or a register of four points' values.
template <class S>
ZELM_INLINE void to_clip_space(const Viewport &v, S (&s)[3]) {
    s[0] = 2 * s[0] / v.width - 1;
    s[1] = 1 + (-2 * s[1] / v.height);
    s[2] = (s[2] - v.near) / (v.far - v.near);
}

constexpr double singular_threshold = 0x1p-1014;

// The product of the three matrices in float, inverted in double. False where it is singular.
ZELM_INLINE bool invert_product(const float *mat1, const float *mat2, const float *mat3,
                                Matrix &inverse) {
    const Matrix m = product(product(load_matrix(mat3), load_matrix(mat2)), load_matrix(mat1));
    Quad<double> wide[4];
    double determinant;
    unroll<4>(ZELM_EACH(i) { wide[i] = __builtin_convertvector(m.r[i], Quad<double>); });
    if (!invert<double>(wide, singular_threshold, determinant))
        return false;
    unroll<4>(ZELM_EACH(i) { inverse.r[i] = __builtin_convertvector(wide[i], Row); });
    return true;
}

ZELM_INLINE Small<3> clip_space_point(const Viewport &v, const void *src) {
    Small<3> d = load_small<3>(src);
    to_clip_space(v, d.e);
    return d;
}

ZelStatus unproject_one(const float *mat1, const float *mat2, const float *mat3, const float *src,
                        float *dst, const Viewport &v) {
    const Small<3> d = clip_space_point(v, src);
    store_small(dst, d);
    Matrix inverse;
    if (!invert_product(mat1, mat2, mat3, inverse))
        return zelStatusSingular;
    one_point<3, 3>(&d, dst, Through<Coordinate<3>, 3>{inverse});
    return zelStatusOk;
}

ZelStatus unproject_all(const float *mat1, const float *mat2, const float *mat3, const Source &src,
                        const Destination &dst, int count, const Viewport &v) {
    Matrix inverse;
    if (!invert_product(mat1, mat2, mat3, inverse))
        return zelStatusSingular;
    const Splats s(inverse);
    each_point(
        src, dst, count,
        [&](Row(&p)[3]) __attribute__((always_inline)) {
            Row h[4];
            to_clip_space(v, p);
            through<Coordinate<3>>(p, s, h);
            unroll<3>(ZELM_EACH(j) { p[j] = h[j] / h[3]; });
        },
        [&](const void *from, void *to) {
            const Small<3> d = clip_space_point(v, from);
            one_point<3, 3>(&d, to, Through<Coordinate<3>, 3>{inverse});
        });
    return zelStatusOk;
}

} // namespace
} // namespace zelm::geom3d

using namespace zelm::geom3d;

#define TRANSFORM(name, Transform, n)                                                              \
    ZELM_MEMBERS(name, (m4v##n), transform_one<Transform<n>, n>(pMat, pSrc, pDst))                 \
    ZELM_MEMBERS(                                                                                  \
        name, (m4v##n##a),                                                                         \
        transform_all<Transform<n>, n>(pMat, {pSrc, srcStride}, {pDst, dstStride}, count))

TRANSFORM(AffineTransform, Affine, 2)
TRANSFORM(AffineTransform, Affine, 3)
TRANSFORM(AffineTransform, Affine, 4)
TRANSFORM(AffineTransformCoord, Coordinate, 2)
TRANSFORM(AffineTransformCoord, Coordinate, 3)
TRANSFORM(AffineTransformNormal, Direction, 2)
TRANSFORM(AffineTransformNormal, Direction, 3)

#define VIEWPORT(name, function)                                                                   \
    ZELM_MEMBERS(name, (m4v3),                                                                     \
                 function##_one(pMat1, pMat2, pMat3, pSrc, pDst, {width, height, minZ, maxZ}))     \
    ZELM_MEMBERS(name, (m4v3a),                                                                    \
                 function##_all(pMat1, pMat2, pMat3, {pSrc, srcStride}, {pDst, dstStride}, count,  \
                                {width, height, minZ, maxZ}))

VIEWPORT(Project, project)
VIEWPORT(Unproject, unproject)
