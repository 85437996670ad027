#include "inverse.hpp"
#include "matrix.hpp"

#include "../frame/member.hpp"

#include <math.h>

namespace zelm::geom3d {
namespace {

constexpr float singular_threshold = 0x1p-119f;

struct Turn {
    float s, c;
    explicit Turn(float angle) { sincosf(angle, &s, &c); }
};

ZELM_INLINE Matrix scaling(float x, float y, float z) {
    return rows({x, 0, 0, 0}, {0, y, 0, 0}, {0, 0, z, 0}, {0, 0, 0, 1});
}
ZELM_INLINE Matrix translation(float x, float y, float z) {
    return rows({1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {x, y, z, 1});
}

ZELM_INLINE bool is_identity(const Matrix &m) {
    const Matrix identity = scaling(1, 1, 1);
    auto equal = m.r[0] == identity.r[0];
    unroll<1, 4>(ZELM_EACH(i) { equal = equal & (m.r[i] == identity.r[i]); });
    return lane_bits(equal) == 0xf;
}

// A negation written as a difference from zero leaves +0 where there is nothing to negate.

ZELM_INLINE Matrix rotation_x(const Turn &a) {
    return rows({1, 0, 0, 0}, {0, a.c, a.s, 0}, {0, 0 - a.s, a.c, 0}, {0, 0, 0, 1});
}
ZELM_INLINE Matrix rotation_y(const Turn &a) {
    return rows({a.c, 0, 0 - a.s, 0}, {0, 1, 0, 0}, {a.s, 0, a.c, 0}, {0, 0, 0, 1});
}
ZELM_INLINE Matrix rotation_z(const Turn &a) {
    return rows({a.c, a.s, 0, 0}, {0 - a.s, a.c, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1});
}

ZELM_INLINE Matrix rotation_axis(const Small<3> &axis, const Turn &a) {
    const Small<3> unit = normalized(axis);
    const float x = unit.e[0], y = unit.e[1], z = unit.e[2], s = a.s, c = a.c, t = 1 - c;
    return rows({(t * x) * x + c, (t * y) * x + s * z, (t * z) * x - s * y, 0},
                {(t * x) * y - s * z, (t * y) * y + c, y * (t * z) + s * x, 0},
                {s * y + (t * x) * z, (t * y) * z - s * x, c + z * (t * z), 0}, {0, 0, 0, 1});
}

ZELM_INLINE Matrix yaw_pitch_roll(const Turn &yaw, const Turn &pitch, const Turn &roll) {
    const float sy = yaw.s, cy = yaw.c, sp = pitch.s, cp = pitch.c, sr = roll.s, cr = roll.c;
    return rows({sy * sp * sr + cy * cr, cp * sr, cy * sp * sr - sy * cr, 0},
                {sy * sp * cr - cy * sr, cp * cr, sy * sr + cy * sp * cr, 0},
                {sy * cp, 0 - sp, cy * cp, 0}, {0, 0, 0, 1});
}

// z points from `from` to `to`.
ZELM_INLINE Matrix look(const float *eye, const float *from, const float *to, const float *up) {
    const Small<3> e = load_small<3>(eye);
    const Small<3> z = normalized(difference(load_small<3>(to), load_small<3>(from)));
    const Small<3> x = normalized(cross(load_small<3>(up), z));
    const Small<3> y = cross(z, x);
    return rows({x.e[0], y.e[0], z.e[0], 0}, {x.e[1], y.e[1], z.e[1], 0},
                {x.e[2], y.e[2], z.e[2], 0}, {0 - dot(x, e), 0 - dot(y, e), 0 - dot(z, e), 1});
}

// The depth of a projection: m22 and m32. The numerator of m32 is n * f or n.
struct Depth {
    float m22, m32;
};
ZELM_INLINE Depth left_handed(float numerator22, float numerator32, float n, float f) {
    return {numerator22 / (f - n), numerator32 / (0 - (f - n))};
}
ZELM_INLINE Depth right_handed(float numerator22, float numerator32, float n, float f) {
    return {numerator22 / (n - f), numerator32 / (n - f)};
}

// What is seen, at the distance n: a window around the axis, or anywhere.
ZELM_INLINE Matrix perspective(float m00, float m11, float m20, float m21, Depth depth, float w) {
    return rows({m00, 0, 0, 0}, {0, m11, 0, 0}, {m20, m21, depth.m22, w}, {0, 0, depth.m32, 0});
}
ZELM_INLINE Matrix orthographic(float m00, float m11, float m30, float m31, Depth depth) {
    return rows({m00, 0, 0, 0}, {0, m11, 0, 0}, {0, 0, depth.m22, 0}, {m30, m31, depth.m32, 1});
}

ZELM_INLINE Matrix perspective_lh(float width, float height, float n, float f) {
    return perspective((n + n) / width, (n + n) / height, 0, 0, left_handed(f, n * f, n, f), 1);
}
ZELM_INLINE Matrix perspective_rh(float width, float height, float n, float f) {
    return perspective((n + n) / width, (n + n) / height, 0, 0, right_handed(f, n * f, n, f), -1);
}
ZELM_INLINE Matrix perspective_fov_lh(float fov, float aspect, float n, float f) {
    const Turn half(fov * 0.5f);
    const float y = half.c / half.s;
    return perspective(y / aspect, y, 0, 0, {f / (f - n), (0 - n * f) / (f - n)}, 1);
}
ZELM_INLINE Matrix perspective_fov_rh(float fov, float aspect, float n, float f) {
    const Turn half(fov * 0.5f);
    const float y = half.c / half.s;
    return perspective(y / aspect, y, 0, 0, right_handed(f, n * f, n, f), -1);
}
ZELM_INLINE Matrix perspective_off_center_lh(float l, float r, float b, float t, float n, float f) {
    return perspective((n + n) / (r - l), (n + n) / (t - b), (l + r) / (0 - (r - l)),
                       (b + t) / (0 - (t - b)), left_handed(f, n * f, n, f), 1);
}
ZELM_INLINE Matrix perspective_off_center_rh(float l, float r, float b, float t, float n, float f) {
    return perspective((n + n) / (r - l), (n + n) / (t - b), (l + r) / (r - l), (b + t) / (t - b),
                       right_handed(f, n * f, n, f), -1);
}
ZELM_INLINE Matrix ortho_lh(float width, float height, float n, float f) {
    return orthographic(2 / width, 2 / height, 0, 0, left_handed(1, n, n, f));
}
ZELM_INLINE Matrix ortho_rh(float width, float height, float n, float f) {
    return orthographic(2 / width, 2 / height, 0, 0, right_handed(1, n, n, f));
}
ZELM_INLINE Matrix ortho_off_center(float l, float r, float b, float t, Depth depth) {
    return orthographic(2 / (r - l), 2 / (t - b), (l + r) / (0 - (r - l)), (b + t) / (0 - (t - b)),
                        depth);
}
ZELM_INLINE Matrix ortho_off_center_lh(float l, float r, float b, float t, float n, float f) {
    return ortho_off_center(l, r, b, t, left_handed(1, n, n, f));
}
ZELM_INLINE Matrix ortho_off_center_rh(float l, float r, float b, float t, float n, float f) {
    return ortho_off_center(l, r, b, t, right_handed(1, n, n, f));
}

ZELM_INLINE Matrix transposed(Matrix m) {
    transpose(m.r);
    return m;
}

// The products of two rows' elements are shared by the minors of rows 1 to 3.
ZELM_INLINE float determinant(const float *p) {
    const auto m = [&](int r, int c) __attribute__((always_inline)) {
        return load<float>(p + 4 * r + c);
    };
    const auto pair = [&](int i, int j) __attribute__((always_inline)) {
        return m(2, i) * m(3, j) - m(2, j) * m(3, i);
    };
    const float p01 = pair(0, 1), p02 = pair(0, 2), p03 = pair(0, 3);
    const float p12 = pair(1, 2), p13 = pair(1, 3), p23 = pair(2, 3);
    const float minor0 = m(1, 1) * p23 - m(1, 2) * p13 + m(1, 3) * p12;
    const float minor1 = m(1, 0) * p23 - m(1, 2) * p03 + m(1, 3) * p02;
    const float minor2 = m(1, 0) * p13 - m(1, 1) * p03 + m(1, 3) * p01;
    const float minor3 = m(1, 0) * p12 - m(1, 1) * p02 + m(1, 2) * p01;
    return (m(0, 0) * minor0 - m(0, 1) * minor1) + (m(0, 2) * minor2 - m(0, 3) * minor3);
}

// Rows are source_row and destination_row bytes apart.
ZELM_INLINE ZelStatus y8_own3dzelmInvert_m_32f_4x4(const char *source, Distance source_row,
                                                   float *det, char *destination,
                                                   Distance destination_row) {
    Row m[4];
    float d;
    unroll<4>(ZELM_EACH(i) { m[i] = load<Row>(source + i * source_row); });
    const bool regular = invert<float>(m, singular_threshold, d);
    if (det != nullptr)
        store<float>(det, regular ? d : 0);
    if (!regular)
        return zelStatusSingular;
    unroll<4>(ZELM_EACH(i) { store<Row>(destination + i * destination_row, m[i]); });
    return zelStatusOk;
}

} // namespace
} // namespace zelm::geom3d

using namespace zelm::geom3d;

#define MATRIX(operation, ...) ZELM_MEMBERS(operation, (m4), store_matrix(pDst, __VA_ARGS__))

MATRIX(Identity, scaling(1, 1, 1))
MATRIX(Translation, translation(tx, ty, tz))
MATRIX(Scaling, scaling(sx, sy, sz))
MATRIX(RotationX, rotation_x(Turn(angle)))
MATRIX(RotationY, rotation_y(Turn(angle)))
MATRIX(RotationZ, rotation_z(Turn(angle)))
MATRIX(RotationYawPitchRoll, yaw_pitch_roll(Turn(yaw), Turn(pitch), Turn(roll)))
MATRIX(LookAtLH, look(pEye, pEye, pAt, pUp))
MATRIX(LookAtRH, look(pEye, pAt, pEye, pUp))
MATRIX(PerspectiveLH, perspective_lh(width, height, zNear, zFar))
MATRIX(PerspectiveRH, perspective_rh(width, height, zNear, zFar))
MATRIX(PerspectiveFovLH, perspective_fov_lh(fovY, aspect, zNear, zFar))
MATRIX(PerspectiveFovRH, perspective_fov_rh(fovY, aspect, zNear, zFar))
MATRIX(PerspectiveOffCenterLH, perspective_off_center_lh(left, right, bottom, top, zNear, zFar))
MATRIX(PerspectiveOffCenterRH, perspective_off_center_rh(left, right, bottom, top, zNear, zFar))
MATRIX(OrthoLH, ortho_lh(width, height, zNear, zFar))
MATRIX(OrthoRH, ortho_rh(width, height, zNear, zFar))
MATRIX(OrthoOffCenterLH, ortho_off_center_lh(left, right, bottom, top, zNear, zFar))
MATRIX(OrthoOffCenterRH, ortho_off_center_rh(left, right, bottom, top, zNear, zFar))
MATRIX(Transpose, transposed(load_matrix(pSrc)))
MATRIX(MulTranspose, transposed(product(load_matrix(pSrc1), load_matrix(pSrc2))))

ZELM_MEMBERS(RotationAxis, (v3m4),
             store_matrix(pDst, rotation_axis(load_small<3>(pAxis), Turn(angle))))
ZELM_MEMBERS(Mul, (mm4x4),
             pSrc1 == nullptr || pSrc2 == nullptr || pDst == nullptr
                 ? zelStatusNullPointer
                 : store_matrix(pDst, product(load_matrix(pSrc1), load_matrix(pSrc2))))
ZELM_MEMBERS(IsIdentity, (m4), (store<int>(pResult, is_identity(load_matrix(pSrc))), zelStatusOk))
ZELM_MEMBERS(Det, (m4), (store<float>(pDet, determinant(pSrc)), zelStatusOk))
ZELM_MEMBERS(Invert, (m4),
             y8_own3dzelmInvert_m_32f_4x4(reinterpret_cast<const char *>(pSrc), packed_row, pDet,
                                          reinterpret_cast<char *>(pDst), packed_row))
