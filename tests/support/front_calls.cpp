#include "front_calls.hpp"

#include <algorithm>
#include <zelm.hpp>

namespace zelm_test {
namespace {

// A text as a template argument.
template <std::size_t N>
struct Text {
    char text[N];
    consteval Text(const char (&given)[N]) { std::copy_n(given, N, text); }
    constexpr operator std::string_view() const { return {text, N - 1}; }
};

// Word k of a list such as "src1:ma src2:m dst:ma", operands only.
struct Argument {
    std::string_view name, kind;
};
constexpr Argument argument(std::string_view words, int k) {
    for (;;) {
        const auto end = std::min(words.find(' '), words.size());
        const auto colon = words.find(':');
        if (colon < end && k-- == 0)
            return {words.substr(0, colon), words.substr(colon + 1, end - colon - 1)};
        words.remove_prefix(end + 1);
    }
}

// The parameters of operand k, as the problem would pass them to C.
struct Parameters {
    Problem &problem;
    int operand;
    const Slot &slot(char group, int axis = 0) const {
        for (std::size_t k = 0; k < problem.slots.size(); ++k)
            if (const Parameter &p = problem.member.parameters[k];
                p.operand == operand && p.group == group && p.axis == axis)
                return problem.slots[k];
        throw std::logic_error("no such parameter");
    }
    template <class T>
    T pointer() const {
        return static_cast<T>(slot('p').pointer);
    }
    int stride(int axis) const { return slot('s', axis).integer; }
    int shift() const { return slot('o').integer; }
    const Placed &placed() const { return problem.operands[static_cast<std::size_t>(operand)]; }
};

// The view of operand K.
template <class T, Text Arguments, Text Description, int K>
auto operand(Problem &problem) {
    constexpr Argument is = argument(Arguments, K);
    constexpr bool written = is.name.starts_with("dst"), array = is.kind.ends_with('a');
    constexpr std::string_view described = Description;
    constexpr char letter = is.kind[0], of_call = written ? described.back() : described[0];
    constexpr char d =
        (of_call == 'L' && !array) || (of_call == 'P' && letter == 'c') ? 'S' : of_call;
    using E = std::conditional_t<written, T, const T>;
    const Parameters p{problem, K};
    const Placed &placed = p.placed();
    const int count = placed.objects(), length = placed.columns();
    if constexpr (is.kind == "c" || is.kind == "value") {
        return static_cast<T>(placed.get(0, 0, 0));
    } else if constexpr (is.kind == "out" || is.kind == "buffer") {
        return zelm::vector<T>(p.pointer<T *>(), count * placed.rows() * length);
    } else if constexpr (is.kind == "index" || is.kind == "cindex") {
        return zelm::vector<int>(p.pointer<int *>(), count * placed.rows() * length);
    } else if constexpr (letter == 't' || letter == 'm') {
        constexpr bool transposed = letter == 't';
        const int rows = transposed ? length : placed.rows();
        const int columns = transposed ? placed.rows() : length;
        const auto stored = [&] {
            if constexpr (d == 'P' && array)
                return zelm::pointer_matrices(p.pointer<E *const *>(), rows, columns, count,
                                              p.stride(0), p.shift());
            else if constexpr (d == 'P')
                return zelm::pointer_matrix(p.pointer<E *const *>(), rows, columns, p.shift());
            else if constexpr (d == 'L')
                return zelm::layout_matrices(p.pointer<E *const *>(), rows, columns, count,
                                             {p.stride(1), p.stride(2)}, p.shift());
            else if constexpr (array)
                return zelm::matrices(p.pointer<E *>(), rows, columns, count,
                                      {p.stride(0), p.stride(1), p.stride(2)});
            else
                return zelm::matrix(p.pointer<E *>(), rows, columns, {p.stride(1), p.stride(2)});
        }();
        if constexpr (transposed)
            return zelm::transposed(stored);
        else
            return stored;
    } else if constexpr (letter == 'v') {
        if constexpr (d == 'P' && array)
            return zelm::pointer_vectors(p.pointer<E *const *>(), length, count, p.stride(0),
                                         p.shift());
        else if constexpr (d == 'P')
            return zelm::pointer_vector(p.pointer<E *const *>(), length, p.shift());
        else if constexpr (d == 'L')
            return zelm::layout_vectors(p.pointer<E *const *>(), length, count, p.stride(2),
                                        p.shift());
        else if constexpr (array)
            return zelm::vectors(p.pointer<E *>(), length, count, {p.stride(0), p.stride(2)});
        else
            return zelm::vector(p.pointer<E *>(), length, p.stride(2));
    } else if constexpr (d == 'L') {
        return zelm::layout_scalars(p.pointer<E *const *>(), count, p.shift());
    } else {
        return zelm::scalars(p.pointer<E *>(), count, p.stride(0));
    }
}

template <class T, Text Family, Text Arguments, Text Description>
int call(Problem &problem) {
    constexpr std::string_view family = Family;
    const auto o = [&]<int K>(std::integral_constant<int, K>) {
        return operand<T, Arguments, Description, K>(problem);
    };
    constexpr std::integral_constant<int, 0> _0;
    constexpr std::integral_constant<int, 1> _1;
    constexpr std::integral_constant<int, 2> _2;
    constexpr std::integral_constant<int, 3> _3;
    constexpr std::integral_constant<int, 4> _4;
    constexpr std::integral_constant<int, 5> _5;
    if constexpr (family == "Add")
        return zelm::add(o(_0), o(_1), o(_2)).code();
    else if constexpr (family == "Sub")
        return zelm::subtract(o(_0), o(_1), o(_2)).code();
    else if constexpr (family == "Mul")
        return zelm::multiply(o(_0), o(_1), o(_2)).code();
    else if constexpr (family == "Copy")
        return zelm::copy(o(_0), o(_1)).code();
    else if constexpr (family == "Extract")
        return zelm::extract(o(_0), o(_1)).code();
    else if constexpr (family == "LoadIdentity")
        return zelm::load_identity(o(_0)).code();
    else if constexpr (family == "Transpose")
        return zelm::transpose(o(_0), o(_1)).code();
    else if constexpr (family == "DotProduct")
        return zelm::dot(o(_0), o(_1), o(_2)).code();
    else if constexpr (family == "CrossProduct")
        return zelm::cross(o(_0), o(_1), o(_2)).code();
    else if constexpr (family == "L2Norm")
        return zelm::l2_norm(o(_0), o(_1)).code();
    else if constexpr (family == "FrobNorm")
        return zelm::frobenius_norm(o(_0), o(_1)).code();
    else if constexpr (family == "Trace")
        return zelm::trace(o(_0), o(_1)).code();
    else if constexpr (family == "LComb")
        return zelm::linear_combination(o(_3), o(_0), o(_4), o(_1), o(_2)).code();
    else if constexpr (family == "Saxpy")
        return zelm::axpy(o(_3), o(_0), o(_1), o(_2)).code();
    else if constexpr (family == "Gaxpy")
        return zelm::gaxpy(o(_0), o(_1), o(_2), o(_3)).code();
    else if constexpr (family == "LUDecomp")
        return zelm::raw::lu_decompose(o(_0), o(_2), o(_1)).code();
    else if constexpr (family == "LUBackSubst")
        return zelm::raw::lu_solve(o(_0), o(_1), o(_2), o(_3)).code();
    else if constexpr (family == "Invert")
        return zelm::raw::inverse(o(_0), o(_2), o(_1)).code();
    else if constexpr (family == "Det")
        return zelm::raw::determinant(o(_0), o(_2), o(_1)).code();
    else if constexpr (family == "CholeskyDecomp")
        return zelm::raw::cholesky_decompose(o(_0), o(_1)).code();
    else if constexpr (family == "CholeskyBackSubst")
        return zelm::raw::cholesky_solve(o(_0), o(_1), o(_2)).code();
    else if constexpr (family == "QRDecomp")
        return zelm::raw::qr_decompose(o(_0), o(_2), o(_1)).code();
    else if constexpr (family == "QRBackSubst")
        return zelm::raw::qr_solve(o(_0), o(_2), o(_3), o(_1)).code();
    else if constexpr (family == "AffineTransform3DH")
        return zelm::geometry::transform_homogeneous(o(_0), o(_1), o(_2)).code();
    else if constexpr (family == "EigenValuesSym")
        return zelm::raw::eigenvalues_symmetric(o(_0), o(_2), o(_1)).code();
    else if constexpr (family == "EigenValuesVectorsSym")
        return zelm::raw::eigen_symmetric(o(_0), o(_3), o(_2), o(_1)).code();
    else if constexpr (family == "EigenValues")
        return zelm::raw::eigenvalues(o(_0), o(_1), o(_2), o(_3)).code();
    else if constexpr (family == "EigenValuesVectors")
        return zelm::raw::eigen(o(_0), o(_3), o(_4), o(_1), o(_2), o(_5)).code();
    else if constexpr (family == "EigenValuesVectorsRight")
        return zelm::raw::eigen_right(o(_0), o(_2), o(_3), o(_1), o(_4)).code();
    else if constexpr (family == "EigenValuesVectorsLeft")
        return zelm::raw::eigen_left(o(_0), o(_2), o(_3), o(_1), o(_4)).code();
    else if constexpr (family == "EigenValuesGetBufSize")
        return zelm::raw::eigenvalues_scratch<T>(problem.sizes.width, *o(_0).data()).code();
    else if constexpr (family == "EigenValuesVectorsGetBufSize")
        return zelm::raw::eigen_scratch<T>(problem.sizes.width, *o(_0).data()).code();
}

template <Text Operation, Text Kind>
int fixed_call(const std::vector<Slot> &slots) {
    namespace g = zelm::geometry;
    constexpr std::string_view operation = Operation, kind = Kind;
    constexpr int n = kind[0] == 'v' ? kind[1] - '0' : kind.size() > 3 ? kind[3] - '0' : 4;
    constexpr bool array = kind.ends_with('a');
    const auto floats = [&](std::size_t k) { return static_cast<float *>(slots[k].pointer); };
    const auto v = [&](std::size_t k) { return zelm::vector<const float, n>(floats(k)); };
    const auto d = [&](std::size_t k) { return zelm::vector<float, n>(floats(k)); };
    const auto v3 = [&](std::size_t k) { return zelm::vector<const float, 3>(floats(k)); };
    const auto m = [&](std::size_t k) { return zelm::matrix<float, 4, 4>(floats(k)); };
    const auto r = [&](std::size_t k) -> float & { return *floats(k); };
    const auto f = [&](std::size_t k) { return static_cast<float>(slots[k].real); };
    // Operand k and what it is transformed to: one vector or an array of them.
    const auto transformed = [&]<int M>(std::integral_constant<int, M>, std::size_t k, auto by) {
        if constexpr (array) {
            const int count = slots[k + 4].integer;
            return by(zelm::vectors<const float, n>(floats(k), count, {slots[k + 1].integer, 4}),
                      zelm::vectors<float, M>(floats(k + 2), count, {slots[k + 3].integer, 4}));
        } else {
            return by(v(k), zelm::vector<float, M>(floats(k + 1)));
        }
    };
    constexpr std::integral_constant<int, n> same;
    const auto port = [&](std::size_t k) {
        return g::viewport{f(k), f(k + 1), f(k + 2), f(k + 3)};
    };
    if constexpr (operation == "Add")
        return g::add(v(0), v(1), d(2)).code();
    else if constexpr (operation == "Sub")
        return g::subtract(v(0), v(1), d(2)).code();
    else if constexpr (operation == "Min")
        return g::minimum(v(0), v(1), d(2)).code();
    else if constexpr (operation == "Max")
        return g::maximum(v(0), v(1), d(2)).code();
    else if constexpr (operation == "MulC")
        return g::scale(v(0), f(2), d(1)).code();
    else if constexpr (operation == "LenSqr")
        return g::length_squared(v(0), r(1)).code();
    else if constexpr (operation == "Len")
        return g::length(v(0), r(1)).code();
    else if constexpr (operation == "Normalize")
        return g::normalize(v(0), d(1)).code();
    else if constexpr (operation == "DotProduct")
        return g::dot(v(0), v(1), r(2)).code();
    else if constexpr (operation == "CrossProduct" && n == 2)
        return g::cross(v(0), v(1), r(2)).code();
    else if constexpr (operation == "CrossProduct" && n == 3)
        return g::cross(v(0), v(1), d(2)).code();
    else if constexpr (operation == "CrossProduct")
        return g::cross(v(0), v(1), v(2), d(3)).code();
    else if constexpr (operation == "InterpolationLinear")
        return g::interpolate_linear(v(0), v(1), f(3), d(2)).code();
    else if constexpr (operation == "BaryCentric")
        return g::barycentric(v(0), v(1), v(2), f(4), f(5), d(3)).code();
    else if constexpr (operation == "Hermite")
        return g::hermite(v(0), v(1), v(2), v(3), f(5), d(4)).code();
    else if constexpr (operation == "InterpolationCatmullRom")
        return g::catmull_rom(v(0), v(1), v(2), v(3), f(5), d(4)).code();
    else if constexpr (operation == "Identity")
        return g::identity(m(0)).code();
    else if constexpr (operation == "IsIdentity") {
        bool is = false;
        const int status = g::is_identity(m(0), is).code();
        *static_cast<int *>(slots[1].pointer) = is;
        return status;
    } else if constexpr (operation == "Translation")
        return g::translation(f(1), f(2), f(3), m(0)).code();
    else if constexpr (operation == "Scaling")
        return g::scaling(f(1), f(2), f(3), m(0)).code();
    else if constexpr (operation == "RotationX")
        return g::rotation_x(f(1), m(0)).code();
    else if constexpr (operation == "RotationY")
        return g::rotation_y(f(1), m(0)).code();
    else if constexpr (operation == "RotationZ")
        return g::rotation_z(f(1), m(0)).code();
    else if constexpr (operation == "RotationAxis")
        return g::rotation_axis(v3(0), f(2), m(1)).code();
    else if constexpr (operation == "RotationYawPitchRoll")
        return g::rotation_yaw_pitch_roll(f(1), f(2), f(3), m(0)).code();
    else if constexpr (operation == "LookAtLH")
        return g::look_at_lh(v3(0), v3(1), v3(2), m(3)).code();
    else if constexpr (operation == "LookAtRH")
        return g::look_at_rh(v3(0), v3(1), v3(2), m(3)).code();
    else if constexpr (operation == "PerspectiveLH")
        return g::perspective_lh(f(1), f(2), f(3), f(4), m(0)).code();
    else if constexpr (operation == "PerspectiveRH")
        return g::perspective_rh(f(1), f(2), f(3), f(4), m(0)).code();
    else if constexpr (operation == "PerspectiveFovLH")
        return g::perspective_fov_lh(f(1), f(2), f(3), f(4), m(0)).code();
    else if constexpr (operation == "PerspectiveFovRH")
        return g::perspective_fov_rh(f(1), f(2), f(3), f(4), m(0)).code();
    else if constexpr (operation == "PerspectiveOffCenterLH")
        return g::perspective_off_center_lh(f(1), f(2), f(3), f(4), f(5), f(6), m(0)).code();
    else if constexpr (operation == "PerspectiveOffCenterRH")
        return g::perspective_off_center_rh(f(1), f(2), f(3), f(4), f(5), f(6), m(0)).code();
    else if constexpr (operation == "OrthoLH")
        return g::orthographic_lh(f(1), f(2), f(3), f(4), m(0)).code();
    else if constexpr (operation == "OrthoRH")
        return g::orthographic_rh(f(1), f(2), f(3), f(4), m(0)).code();
    else if constexpr (operation == "OrthoOffCenterLH")
        return g::orthographic_off_center_lh(f(1), f(2), f(3), f(4), f(5), f(6), m(0)).code();
    else if constexpr (operation == "OrthoOffCenterRH")
        return g::orthographic_off_center_rh(f(1), f(2), f(3), f(4), f(5), f(6), m(0)).code();
    else if constexpr (operation == "Transpose")
        return g::transpose(m(0), m(1)).code();
    else if constexpr (operation == "MulTranspose")
        return g::multiply_transposed(m(0), m(1), m(2)).code();
    else if constexpr (operation == "Mul")
        return g::multiply(m(0), m(1), m(2)).code();
    else if constexpr (operation == "Det")
        return g::determinant(m(0), r(1)).code();
    else if constexpr (operation == "Invert")
        return g::inverse(m(0), m(2), r(1)).code();
    else if constexpr (operation == "AffineTransform")
        return transformed(std::integral_constant<int, 4>(), 1,
                           [&](auto from, auto to) { return g::transform(m(0), from, to).code(); });
    else if constexpr (operation == "AffineTransformCoord")
        return transformed(same, 1, [&](auto from, auto to) {
            return g::transform_points(m(0), from, to).code();
        });
    else if constexpr (operation == "AffineTransformNormal")
        return transformed(same, 1, [&](auto from, auto to) {
            return g::transform_directions(m(0), from, to).code();
        });
    else if constexpr (operation == "Project")
        return transformed(same, 3, [&](auto from, auto to) {
            return g::project(m(0), m(1), m(2), port(array ? 8 : 5), from, to).code();
        });
    else if constexpr (operation == "Unproject")
        return transformed(same, 3, [&](auto from, auto to) {
            return g::unproject(m(0), m(1), m(2), port(array ? 8 : 5), from, to).code();
        });
}

} // namespace

const std::vector<FrontCall> &front_calls() {
#define ZELM_FIXED_MEMBER(...)
#define ZELM_MEMBER(name, family, kinds, type, description, arguments)                             \
    FrontCall{#name, call<type, #family, arguments, #description>},
    static const std::vector<FrontCall> all = {
#include "members.inc"
    };
#undef ZELM_MEMBER
#undef ZELM_FIXED_MEMBER
    return all;
}

const std::vector<FixedFrontCall> &fixed_front_calls() {
#define ZELM_MEMBER(...)
#define ZELM_FIXED_MEMBER(name, operation, kind, arguments)                                        \
    FixedFrontCall{#name, fixed_call<#operation, #kind>},
    static const std::vector<FixedFrontCall> all = {
#include "members.inc"
    };
#undef ZELM_MEMBER
#undef ZELM_FIXED_MEMBER
    return all;
}

} // namespace zelm_test
