/*
 * zelm/geometry.hpp: vectors of 2, 3 and 4 floats and 4x4 matrices
 *
 * In namespace zelm::geometry. Vectors are rows, and a matrix stands behind them: v' = v * M, so
 * the translation is row 3 and A * B applies A first. Angles are in radians. _lh and _rh are left-
 * and right-handed view spaces: what is seen lies in -1 <= x, y <= 1 and 0 <= z <= 1. zelm.h has
 * the formulas.
 *
 * An operand is whatever view() takes, float, with sizes that are known when compiled: float[3],
 * std::array<float, 4>, vector<const float, 3>(p), types of one's own, matrices of 4 rows and
 * columns in row-major or column-major memory. Arrays are vectors<float, 2 to 4> whose elements
 * are adjacent, with any stride0. Results of one number go to a float. A result may be any of the
 * sources.
 *
 * zelStatusNullPointer and, for arrays of points, zelStatusSizeMismatch and zelStatusBadStride are
 * found here; the C functions check nothing.
 */
#ifndef ZELM_GEOMETRY_HPP
#define ZELM_GEOMETRY_HPP

#include "operations.hpp"

namespace zelm {
namespace detail {

/* Where the N floats of one vector or matrix are; whether they are adjacent may be known when
 * compiled. */
template <class T, int N, bool Adjacent>
struct floats {
    static constexpr bool known_adjacent = Adjacent;
    T *data;
    std::ptrdiff_t stride1, stride2;
    int row; /* floats to a row */

    ZELM_FRONT T *parameter() const { return data; }
    ZELM_FRONT bool is_null() const { return data == nullptr; }
    ZELM_FRONT bool is_adjacent() const {
        return Adjacent || (stride2 == size_of<T> && (row == N || stride1 == row * size_of<T>));
    }
    T *at(int i) const { return moved(data, i / row * stride1 + i % row * stride2); }
};

/* A float by value, or the place of a result of one float. */
template <class P>
struct one_float {
    static constexpr bool known_adjacent = true;
    P value;
    ZELM_FRONT P parameter() const { return value; }
    static constexpr bool is_null() { return false; }
    static constexpr bool is_adjacent() { return true; }
    static void store() {}
};
using number = one_float<float>;
using one_result = one_float<float *>;

/* A copy of floats that are not adjacent. Those of a result are not read; they are stored after a
 * call that did not fail. */
template <class T, int N>
struct copied {
    explicit copied(const floats<T, N, false> &of) : original(of) {
        if constexpr (std::is_const_v<T>)
            for (int i = 0; i < N; ++i)
                __builtin_memcpy(&copy[i], original.at(i), sizeof(T));
    }
    T *parameter() { return copy; }
    void store() const {
        if constexpr (!std::is_const_v<T>)
            for (int i = 0; i < N; ++i)
                __builtin_memcpy(original.at(i), &copy[i], sizeof(T));
    }
    floats<T, N, false> original;
    std::remove_const_t<T> copy[N];
};
template <class T, int N, bool Adjacent>
copied<T, N> copy_of(const floats<T, N, Adjacent> &of) {
    return copied<T, N>({of.data, of.stride1, of.stride2, of.row});
}
template <class P>
one_float<P> copy_of(one_float<P> value) {
    return value;
}

template <class Function, class... Copies>
status call_with(Function function, Copies... copies) {
    const status result = function(copies.parameter()...);
    if (result.ok())
        (copies.store(), ...);
    return result;
}
template <class Function, class... Parameters>
__attribute__((noinline)) status call_with_copies(Function function, Parameters... parameters) {
    return call_with(function, copy_of(parameters)...);
}

template <class V>
constexpr int known_length() {
    if constexpr (is_vector(V::used_as))
        return V::static_length;
    else
        return V::static_rows == dynamic || V::static_columns == dynamic
                   ? dynamic
                   : V::static_rows * V::static_columns;
}

/* Of a vector of N floats, or a matrix of N = 16. */
template <int N, class X>
ZELM_FRONT auto floats_of(X &x) {
    const auto v = view(x);
    using V = std::remove_const_t<decltype(v)>;
    static_assert(std::is_same_v<typename V::value_type, float>, "these operations take floats");
    static_assert(known_length<V>() == N,
                  "the sizes of these operands must be known when compiled, as float[3] or "
                  "zelm::vector<float, 3> say it, and fit the operation");
    using F = floats<typename V::element_type, N, is_row_major<std::remove_const_t<X>>>;
    if constexpr (is_vector(V::used_as)) {
        return F{v.data(), 0, v.stride2(), N};
    } else {
        const auto all = v.elements();
        return F{all.data, all.strides[0], all.strides[1], V::static_columns};
    }
}
template <int N, class X>
ZELM_FRONT auto from(const X &x) {
    const auto f = floats_of<N>(x);
    return floats<const float, N, f.known_adjacent>{f.data, f.stride1, f.stride2, f.row};
}
template <int N, class X>
ZELM_FRONT auto to(X &&x) {
    const auto f = floats_of<N>(x);
    static_assert(!std::is_const_v<std::remove_pointer_t<decltype(f.data)>>,
                  "the destination is read-only");
    return f;
}
template <class X>
inline constexpr int length_of = view_t<X>::static_length;

template <int N>
inline constexpr fixed vector_of = [] {
    static_assert(N >= 2 && N <= 4, "vectors have 2, 3 or 4 floats, known when compiled");
    return N == 2 ? fixed::v2 : N == 3 ? fixed::v3 : fixed::v4;
}();
template <int N, bool Array>
inline constexpr fixed transformed = [] {
    static_assert(N >= 2 && N <= 4, "vectors have 2, 3 or 4 floats, known when compiled");
    return Array    ? N == 2   ? fixed::m4v2a
                      : N == 3 ? fixed::m4v3a
                               : fixed::m4v4a
           : N == 2 ? fixed::m4v2
           : N == 3 ? fixed::m4v3
                    : fixed::m4v4;
}();

template <operation Op, fixed Operands, class... Parameters>
ZELM_FRONT status run_fixed(Parameters... parameters) {
    const auto function = fixed_function<Op, Operands>;
    static_assert(!std::is_same_v<decltype(function), const no_function>,
                  "there is no such operation for vectors of this length");
    if ((... || parameters.is_null()))
        return zelStatusNullPointer;
    if constexpr ((... && Parameters::known_adjacent))
        return function(parameters.parameter()...);
    else if ((... && parameters.is_adjacent()))
        return function(parameters.parameter()...);
    else
        return call_with_copies(function, parameters...);
}

/* Arrays of N floats each: what can be wrong with them. */
template <class A, class B>
int vectors_status(const A &a, const B &b) {
    const auto fits = [](const auto &v) {
        return v.stride2() == size_of<float> && as_int(v.stride0()) == v.stride0();
    };
    return a.count() != b.count()                                ? zelStatusSizeMismatch
           : a.count() == 0                                      ? zelStatusOk
           : a.data() == nullptr || b.data() == nullptr          ? zelStatusNullPointer
           : a.count() < 0 || size_or_bad(a.count()) < a.count() ? zelStatusBadCount
           : !fits(a) || !fits(b)                                ? zelStatusBadStride
                                                                 : zelStatusOk;
}

/* Vectors of as many floats as the source, or of M, through matrices: through(f) is f(matrices...).
 */
template <operation Op, int M, class V, class D, class Through, class... Numbers>
ZELM_FRONT status transform_by(const V &v, D &&d, Through through, Numbers... numbers) {
    const auto x = view(v);
    const auto z = view(d);
    using T = typename decltype(z)::element_type;
    static_assert(std::is_same_v<T, float> &&
                      std::is_same_v<typename decltype(x)::value_type, float>,
                  "these operations take floats, and the destination must not be read-only");
    constexpr int n = decltype(x)::static_length, to_n = M == 0 ? n : M;
    constexpr bool array = is_array(decltype(x)::used_as);
    static_assert(decltype(z)::used_as == decltype(x)::used_as &&
                      decltype(z)::static_length == to_n,
                  "the results are vectors of this length, one for every source");
    if constexpr (array) {
        if (const int wrong = vectors_status(x, z); wrong != zelStatusOk || x.count() == 0)
            return wrong;
        const auto function = fixed_function<Op, transformed<n, true>>;
        static_assert(!std::is_same_v<decltype(function), const no_function>,
                      "there is no such operation for vectors of this length");
        const auto call = [&](auto... m) __attribute__((always_inline)) {
            return status(function(m..., x.data(), as_int(x.stride0()), z.data(),
                                   as_int(z.stride0()), as_int(x.count()), numbers...));
        };
        return through([&](auto... m) __attribute__((always_inline)) {
            if ((... || m.is_null()))
                return status(zelStatusNullPointer);
            if constexpr ((... && decltype(m)::known_adjacent))
                return call(m.parameter()...);
            else
                return (... && m.is_adjacent()) ? call(m.parameter()...)
                                                : call_with_copies(call, m...);
        });
    } else {
        return through([&](auto... m) __attribute__((always_inline)) {
            return run_fixed<Op, transformed<n, false>>(m..., from<n>(x), to<to_n>(z),
                                                        number{numbers}...);
        });
    }
}

} // namespace detail

namespace geometry {

/* ---------------------------------------------------------------------------------------------- */
/* Vectors                                                                                        */
/* ---------------------------------------------------------------------------------------------- */

/* d = a + b. */
template <class A, class B, class D>
ZELM_FRONT status add(const A &a, const B &b, D &&d) {
    using namespace detail;
    constexpr int n = length_of<D &>;
    return run_fixed<operation::Add, vector_of<n>>(from<n>(a), from<n>(b), to<n>(d));
}

/* d = a - b. */
template <class A, class B, class D>
ZELM_FRONT status subtract(const A &a, const B &b, D &&d) {
    using namespace detail;
    constexpr int n = length_of<D &>;
    return run_fixed<operation::Sub, vector_of<n>>(from<n>(a), from<n>(b), to<n>(d));
}

/* Element by element the smaller one; of b where either is NaN. */
template <class A, class B, class D>
ZELM_FRONT status minimum(const A &a, const B &b, D &&d) {
    using namespace detail;
    constexpr int n = length_of<D &>;
    return run_fixed<operation::Min, vector_of<n>>(from<n>(a), from<n>(b), to<n>(d));
}

/* Element by element the larger one; of b where either is NaN. */
template <class A, class B, class D>
ZELM_FRONT status maximum(const A &a, const B &b, D &&d) {
    using namespace detail;
    constexpr int n = length_of<D &>;
    return run_fixed<operation::Max, vector_of<n>>(from<n>(a), from<n>(b), to<n>(d));
}

/* d = a * by. */
template <class A, class D>
ZELM_FRONT status scale(const A &a, float by, D &&d) {
    using namespace detail;
    constexpr int n = length_of<D &>;
    return run_fixed<operation::MulC, vector_of<n>>(from<n>(a), to<n>(d), number{by});
}

/* d = a / length(a). */
template <class A, class D>
ZELM_FRONT status normalize(const A &a, D &&d) {
    using namespace detail;
    constexpr int n = length_of<D &>;
    return run_fixed<operation::Normalize, vector_of<n>>(from<n>(a), to<n>(d));
}

/* The sum of the squares. */
template <class A>
ZELM_FRONT status length_squared(const A &a, float &result) {
    using namespace detail;
    constexpr int n = length_of<const A &>;
    return run_fixed<operation::LenSqr, vector_of<n>>(from<n>(a), one_result{&result});
}

/* Its root. */
template <class A>
ZELM_FRONT status length(const A &a, float &result) {
    using namespace detail;
    constexpr int n = length_of<const A &>;
    return run_fixed<operation::Len, vector_of<n>>(from<n>(a), one_result{&result});
}

/* The dot product of a and b. */
template <class A, class B>
ZELM_FRONT status dot(const A &a, const B &b, float &result) {
    using namespace detail;
    constexpr int n = length_of<const A &>;
    return run_fixed<operation::DotProduct, vector_of<n>>(from<n>(a), from<n>(b),
                                                          one_result{&result});
}

/* The cross product: of two vectors of 3 floats, a number of two vectors of 2, and the vector that
 * is orthogonal to three of 4. */
template <class A, class B, class D>
ZELM_FRONT status cross(const A &a, const B &b, D &&d) {
    using namespace detail;
    if constexpr (is_number<D>) {
        static_assert(std::is_same_v<D, float &>, "the result is a float");
        return run_fixed<operation::CrossProduct, fixed::v2>(from<2>(a), from<2>(b),
                                                             one_result{&d});
    } else {
        return run_fixed<operation::CrossProduct, fixed::v3>(from<3>(a), from<3>(b), to<3>(d));
    }
}
template <class A, class B, class C, class D>
ZELM_FRONT status cross(const A &a, const B &b, const C &c, D &&d) {
    using namespace detail;
    return run_fixed<operation::CrossProduct, fixed::v4>(from<4>(a), from<4>(b), from<4>(c),
                                                         to<4>(d));
}

/* From a (s = 0) to b (s = 1). */
template <class A, class B, class D>
ZELM_FRONT status interpolate_linear(const A &a, const B &b, float s, D &&d) {
    using namespace detail;
    constexpr int n = length_of<D &>;
    return run_fixed<operation::InterpolationLinear, vector_of<n>>(from<n>(a), from<n>(b), to<n>(d),
                                                                   number{s});
}

/* The point (1 - f - g, f, g) of the triangle a, b, c. */
template <class A, class B, class C, class D>
ZELM_FRONT status barycentric(const A &a, const B &b, const C &c, float f, float g, D &&d) {
    using namespace detail;
    constexpr int n = length_of<D &>;
    return run_fixed<operation::BaryCentric, vector_of<n>>(from<n>(a), from<n>(b), from<n>(c),
                                                           to<n>(d), number{f}, number{g});
}

/* The cubic from p with tangent t (s = 0) to q with tangent u (s = 1). */
template <class P, class T, class Q, class U, class D>
ZELM_FRONT status hermite(const P &p, const T &t, const Q &q, const U &u, float s, D &&d) {
    using namespace detail;
    constexpr int n = length_of<D &>;
    return run_fixed<operation::Hermite, vector_of<n>>(from<n>(p), from<n>(t), from<n>(q),
                                                       from<n>(u), to<n>(d), number{s});
}

/* The curve through a, b, c, e, from b (s = 0) to c (s = 1). */
template <class A, class B, class C, class E, class D>
ZELM_FRONT status catmull_rom(const A &a, const B &b, const C &c, const E &e, float s, D &&d) {
    using namespace detail;
    constexpr int n = length_of<D &>;
    return run_fixed<operation::InterpolationCatmullRom, vector_of<n>>(
        from<n>(a), from<n>(b), from<n>(c), from<n>(e), to<n>(d), number{s});
}

/* ---------------------------------------------------------------------------------------------- */
/* Matrices                                                                                       */
/* ---------------------------------------------------------------------------------------------- */

/* The identity. */
template <class M>
ZELM_FRONT status identity(M &&m) {
    using namespace detail;
    return run_fixed<operation::Identity, fixed::m4>(to<16>(m));
}

/* Whether every element equals that of the identity. */
template <class M>
ZELM_FRONT status is_identity(const M &m, bool &result) {
    using namespace detail;
    int is = 0;
    const status s =
        run_fixed<operation::IsIdentity, fixed::m4>(from<16>(m), one_float<int *>{&is});
    result = is != 0;
    return s;
}

/* Moves by (x, y, z). */
template <class M>
ZELM_FRONT status translation(float x, float y, float z, M &&m) {
    using namespace detail;
    return run_fixed<operation::Translation, fixed::m4>(to<16>(m), number{x}, number{y}, number{z});
}

/* Stretches by x, y and z. */
template <class M>
ZELM_FRONT status scaling(float x, float y, float z, M &&m) {
    using namespace detail;
    return run_fixed<operation::Scaling, fixed::m4>(to<16>(m), number{x}, number{y}, number{z});
}

/* Rotations about the axes: y to z, z to x, x to y. */
template <class M>
ZELM_FRONT status rotation_x(float angle, M &&m) {
    using namespace detail;
    return run_fixed<operation::RotationX, fixed::m4>(to<16>(m), number{angle});
}

template <class M>
ZELM_FRONT status rotation_y(float angle, M &&m) {
    using namespace detail;
    return run_fixed<operation::RotationY, fixed::m4>(to<16>(m), number{angle});
}

template <class M>
ZELM_FRONT status rotation_z(float angle, M &&m) {
    using namespace detail;
    return run_fixed<operation::RotationZ, fixed::m4>(to<16>(m), number{angle});
}

/* About any axis, 3 floats. */
template <class Axis, class M>
ZELM_FRONT status rotation_axis(const Axis &axis, float angle, M &&m) {
    using namespace detail;
    return run_fixed<operation::RotationAxis, fixed::v3m4>(from<3>(axis), to<16>(m), number{angle});
}

/* Roll about z, then pitch about x, then yaw about y. */
template <class M>
ZELM_FRONT status rotation_yaw_pitch_roll(float yaw, float pitch, float roll, M &&m) {
    using namespace detail;
    return run_fixed<operation::RotationYawPitchRoll, fixed::m4>(to<16>(m), number{yaw},
                                                                 number{pitch}, number{roll});
}

/* The view from eye towards at; up is what points upwards. 3 floats each. */
template <class Eye, class At, class Up, class M>
ZELM_FRONT status look_at_lh(const Eye &eye, const At &at, const Up &up, M &&m) {
    using namespace detail;
    return run_fixed<operation::LookAtLH, fixed::m4>(from<3>(eye), from<3>(at), from<3>(up),
                                                     to<16>(m));
}

template <class Eye, class At, class Up, class M>
ZELM_FRONT status look_at_rh(const Eye &eye, const At &at, const Up &up, M &&m) {
    using namespace detail;
    return run_fixed<operation::LookAtRH, fixed::m4>(from<3>(eye), from<3>(at), from<3>(up),
                                                     to<16>(m));
}

/* Perspective; width x height are what is seen at z_near. */
template <class M>
ZELM_FRONT status perspective_lh(float width, float height, float z_near, float z_far, M &&m) {
    using namespace detail;
    return run_fixed<operation::PerspectiveLH, fixed::m4>(to<16>(m), number{width}, number{height},
                                                          number{z_near}, number{z_far});
}

template <class M>
ZELM_FRONT status perspective_rh(float width, float height, float z_near, float z_far, M &&m) {
    using namespace detail;
    return run_fixed<operation::PerspectiveRH, fixed::m4>(to<16>(m), number{width}, number{height},
                                                          number{z_near}, number{z_far});
}

/* ... of the vertical angle of view fov_y and aspect = width / height. */
template <class M>
ZELM_FRONT status perspective_fov_lh(float fov_y, float aspect, float z_near, float z_far, M &&m) {
    using namespace detail;
    return run_fixed<operation::PerspectiveFovLH, fixed::m4>(
        to<16>(m), number{fov_y}, number{aspect}, number{z_near}, number{z_far});
}

template <class M>
ZELM_FRONT status perspective_fov_rh(float fov_y, float aspect, float z_near, float z_far, M &&m) {
    using namespace detail;
    return run_fixed<operation::PerspectiveFovRH, fixed::m4>(
        to<16>(m), number{fov_y}, number{aspect}, number{z_near}, number{z_far});
}

/* ... of the window left <= x <= right, bottom <= y <= top at z_near. */
template <class M>
ZELM_FRONT status perspective_off_center_lh(float left, float right, float bottom, float top,
                                            float z_near, float z_far, M &&m) {
    using namespace detail;
    return run_fixed<operation::PerspectiveOffCenterLH, fixed::m4>(
        to<16>(m), number{left}, number{right}, number{bottom}, number{top}, number{z_near},
        number{z_far});
}

template <class M>
ZELM_FRONT status perspective_off_center_rh(float left, float right, float bottom, float top,
                                            float z_near, float z_far, M &&m) {
    using namespace detail;
    return run_fixed<operation::PerspectiveOffCenterRH, fixed::m4>(
        to<16>(m), number{left}, number{right}, number{bottom}, number{top}, number{z_near},
        number{z_far});
}

/* Orthographic; width x height are what is seen at any distance. */
template <class M>
ZELM_FRONT status orthographic_lh(float width, float height, float z_near, float z_far, M &&m) {
    using namespace detail;
    return run_fixed<operation::OrthoLH, fixed::m4>(to<16>(m), number{width}, number{height},
                                                    number{z_near}, number{z_far});
}

template <class M>
ZELM_FRONT status orthographic_rh(float width, float height, float z_near, float z_far, M &&m) {
    using namespace detail;
    return run_fixed<operation::OrthoRH, fixed::m4>(to<16>(m), number{width}, number{height},
                                                    number{z_near}, number{z_far});
}

/* ... of the window left <= x <= right, bottom <= y <= top. */
template <class M>
ZELM_FRONT status orthographic_off_center_lh(float left, float right, float bottom, float top,
                                             float z_near, float z_far, M &&m) {
    using namespace detail;
    return run_fixed<operation::OrthoOffCenterLH, fixed::m4>(to<16>(m), number{left}, number{right},
                                                             number{bottom}, number{top},
                                                             number{z_near}, number{z_far});
}

template <class M>
ZELM_FRONT status orthographic_off_center_rh(float left, float right, float bottom, float top,
                                             float z_near, float z_far, M &&m) {
    using namespace detail;
    return run_fixed<operation::OrthoOffCenterRH, fixed::m4>(to<16>(m), number{left}, number{right},
                                                             number{bottom}, number{top},
                                                             number{z_near}, number{z_far});
}

/* m = a transposed. */
template <class A, class M>
ZELM_FRONT status transpose(const A &a, M &&m) {
    using namespace detail;
    return run_fixed<operation::Transpose, fixed::m4>(from<16>(a), to<16>(m));
}

/* m = a * b. */
template <class A, class B, class M>
ZELM_FRONT status multiply(const A &a, const B &b, M &&m) {
    using namespace detail;
    return run_fixed<operation::Mul, fixed::mm4x4>(from<16>(a), from<16>(b), to<16>(m));
}

/* m = (a * b) transposed. */
template <class A, class B, class M>
ZELM_FRONT status multiply_transposed(const A &a, const B &b, M &&m) {
    using namespace detail;
    return run_fixed<operation::MulTranspose, fixed::m4>(from<16>(a), from<16>(b), to<16>(m));
}

template <class A>
ZELM_FRONT status determinant(const A &a, float &result) {
    using namespace detail;
    return run_fixed<operation::Det, fixed::m4>(from<16>(a), one_result{&result});
}

/* m = the inverse of a. zelStatusSingular: its determinant is below 2^-119 in magnitude; m is left
 * as it was. The second form tells the determinant too, then 0. */
template <class A, class M>
ZELM_FRONT status inverse(const A &a, M &&m) {
    using namespace detail;
    return run_fixed<operation::Invert, fixed::m4>(from<16>(a), one_result{nullptr}, to<16>(m));
}
template <class A, class M>
ZELM_FRONT status inverse(const A &a, M &&m, float &determinant) {
    using namespace detail;
    return run_fixed<operation::Invert, fixed::m4>(from<16>(a), one_result{&determinant},
                                                   to<16>(m));
}

/* ---------------------------------------------------------------------------------------------- */
/* Points and directions, one or an array of them, through a matrix                               */
/* ---------------------------------------------------------------------------------------------- */

/* All four elements of the product of (v, 1) and m: d has 4 floats. */
template <class M, class V, class D>
ZELM_FRONT status transform(const M &m, const V &v, D &&d) {
    using namespace detail;
    return transform_by<operation::AffineTransform, 4>(
        v, d, [&](auto f) __attribute__((always_inline)) { return f(from<16>(m)); });
}

/* Points of 2 or 3 floats: the product divided by its w. */
template <class M, class V, class D>
ZELM_FRONT status transform_points(const M &m, const V &v, D &&d) {
    using namespace detail;
    return transform_by<operation::AffineTransformCoord, 0>(
        v, d, [&](auto f) __attribute__((always_inline)) { return f(from<16>(m)); });
}

/* Directions of 2 or 3 floats: without translation and w. */
template <class M, class V, class D>
ZELM_FRONT status transform_directions(const M &m, const V &v, D &&d) {
    using namespace detail;
    return transform_by<operation::AffineTransformNormal, 0>(
        v, d, [&](auto f) __attribute__((always_inline)) { return f(from<16>(m)); });
}

/* What is seen is shown on width x height pixels, its depth as min_z to max_z. */
struct viewport {
    float width, height, min_z, max_z;
};

/* Points of 3 floats from the world to the viewport, and back. zelStatusSingular: there is no way
 * back through these matrices. */
template <class Projection, class View, class World, class V, class D>
ZELM_FRONT status project(const Projection &projection, const View &view, const World &world,
                          const viewport &port, const V &v, D &&d) {
    using namespace detail;
    return transform_by<operation::Project, 3>(
        v, d,
        [&](auto f) __attribute__((always_inline)) {
            return f(from<16>(projection), from<16>(view), from<16>(world));
        },
        port.width, port.height, port.min_z, port.max_z);
}
template <class Projection, class View, class World, class V, class D>
ZELM_FRONT status unproject(const Projection &projection, const View &view, const World &world,
                            const viewport &port, const V &v, D &&d) {
    using namespace detail;
    return transform_by<operation::Unproject, 3>(
        v, d,
        [&](auto f) __attribute__((always_inline)) {
            return f(from<16>(projection), from<16>(view), from<16>(world));
        },
        port.width, port.height, port.min_z, port.max_z);
}

/* d = (m * (x, y, z, 1)) / w, of column vectors, for every point of an array, of any strides.
 * zelStatusDivByZero: some w is too small; those points are the largest float. */
template <class M, class V, class D>
ZELM_FRONT status transform_homogeneous(const M &m, const V &points, D &&d) {
    using namespace detail;
    const auto a = plain_operand<float>(m);
    const auto x = operand<float>(points);
    const auto z = destination(d);
    static_assert(may_be_equal<decltype(a)::static_rows, 4> &&
                      may_be_equal<decltype(a)::static_columns, 4> &&
                      may_be_equal<decltype(z)::static_length, 3>,
                  "the matrix is 4x4, the points have three elements");
    const auto function = find<operation::AffineTransform3DH, float>(sources(a, x), z);
    return run(function, (a.rows() ^ 4) | (a.columns() ^ 4) | (z.length() ^ 3) | difference(x, z),
               z.count(), a, x, z, count_arguments(z));
}

} // namespace geometry
} // namespace zelm

#endif
