/*
 * zelm/call.hpp: from operands to a call of a C function
 *
 * Internal. A call goes through four steps, of which the first three leave no code behind them:
 *
 *   operand<T>(x), destination(d)   views of what the caller gave
 *   find<Op>(a, b, ..., d)          the C function, by element type, descriptions and kinds
 *   bound(f, view)                  f with the view as its next parameters
 *   run(function, differences, ...) refuses shapes that differ and what is no int, leaves empty
 *                                   arrays alone, calls
 */
#ifndef ZELM_CALL_HPP
#define ZELM_CALL_HPP

#include "members.hpp"
#include "status.hpp"
#include "views.hpp"

namespace zelm::detail {

/* ---------------------------------------------------------------------------------------------- */
/* Operands                                                                                       */
/* ---------------------------------------------------------------------------------------------- */

/* A constant by value. */
template <class T>
struct constant {
    using value_type = T;
    static constexpr kind used_as = kind::c;
    static constexpr description described = description::S;
    T value;
};

constexpr bool is_array(kind k) {
    return k == kind::va || k == kind::ma || k == kind::ta || k == kind::ca;
}
constexpr bool is_matrix(kind k) {
    return k == kind::m || k == kind::ma || k == kind::t || k == kind::ta;
}
constexpr bool is_vector(kind k) { return k == kind::v || k == kind::va; }
constexpr bool is_constant(kind k) { return k == kind::c || k == kind::ca; }
constexpr bool is_transposed(kind k) { return k == kind::t || k == kind::ta; }

template <class X>
inline constexpr bool is_number = std::is_arithmetic_v<std::remove_reference_t<X>>;

template <class X>
using view_t = decltype(view(std::declval<X>()));

/* A source: numbers become constants of the element type. */
template <class T, class X>
ZELM_FRONT constexpr auto operand(const X &x) {
    if constexpr (is_number<X>) {
        return constant<T>{static_cast<T>(x)};
    } else {
        static_assert(std::is_same_v<typename view_t<const X &>::value_type, T>,
                      "all operands of a call have the same type of elements, float or double");
        return view(x);
    }
}

/* A transposed view as a plain one: strides exchanged. */
template <class V>
ZELM_FRONT constexpr auto plain(const V &v) {
    if constexpr (!is_transposed(V::used_as)) {
        return v;
    } else if constexpr (V::described == description::S) {
        if constexpr (V::used_as == kind::t)
            return matrix(v);
        else
            return matrices(v);
    } else {
        static_assert(V::described == description::L,
                      "this operand cannot be transposed in pointer description: exchange the "
                      "pointers of its table");
        const auto &a = v.stored();
        return layout_matrices<typename V::element_type>(
            a.table(), v.rows(), v.columns(), v.count(), {a.strides()[1], a.strides()[0]},
            a.shift());
    }
}

/* A source of an operation that has no transposed kinds. */
template <class T, class X>
ZELM_FRONT constexpr auto plain_operand(const X &x) {
    return plain(operand<T>(x));
}

template <class D>
ZELM_FRONT constexpr auto destination(D &&d) {
    static_assert(!is_number<D>, "the result of this operation is a vector or a matrix");
    const auto v = plain(view(d));
    static_assert(!std::is_const_v<typename decltype(v)::element_type>,
                  "the destination is read-only");
    return v;
}
template <class D>
using value_of = typename view_t<D>::value_type;

/* ---------------------------------------------------------------------------------------------- */
/* Shapes                                                                                         */
/* ---------------------------------------------------------------------------------------------- */

/* Differences of sizes are collected by |, so that a call asks one question. */
template <int A, int B>
inline constexpr bool may_be_equal = A == dynamic || B == dynamic || A == B;

template <class A, class B>
constexpr std::ptrdiff_t count_difference(const A &a, const B &b) {
    if constexpr (is_array(A::used_as) && is_array(B::used_as))
        return a.count() ^ b.count();
    else
        return 0;
}

/* Of two matrices or two vectors, and their counts. Constants have any shape. */
template <class A, class B>
constexpr std::ptrdiff_t difference(const A &a, const B &b) {
    const std::ptrdiff_t counts = count_difference(a, b);
    if constexpr (is_matrix(A::used_as) && is_matrix(B::used_as)) {
        static_assert(may_be_equal<A::static_rows, B::static_rows> &&
                          may_be_equal<A::static_columns, B::static_columns>,
                      "two matrices of this call have different shapes");
        return counts | (a.rows() ^ b.rows()) | (a.columns() ^ b.columns());
    } else if constexpr (is_vector(A::used_as) && is_vector(B::used_as)) {
        static_assert(may_be_equal<A::static_length, B::static_length>,
                      "two vectors of this call have different lengths");
        return counts | (a.length() ^ b.length());
    } else {
        static_assert(is_constant(A::used_as) || is_constant(B::used_as),
                      "one operand of this call is a matrix where the other is a vector");
        return counts;
    }
}

/* Of a matrix's rows and columns, and of a vector's length. */
template <class A, class B>
constexpr std::ptrdiff_t rows_difference(const A &a, const B &b) {
    if constexpr (is_matrix(B::used_as)) {
        static_assert(may_be_equal<A::static_rows, B::static_rows>,
                      "the rows of two operands of this call differ");
        return a.rows() ^ b.rows();
    } else {
        static_assert(may_be_equal<A::static_rows, B::static_length>,
                      "a vector of this call is not as long as a matrix has rows");
        return a.rows() ^ b.length();
    }
}
template <class A, class B>
constexpr std::ptrdiff_t columns_difference(const A &a, const B &b) {
    if constexpr (is_matrix(B::used_as)) {
        static_assert(may_be_equal<A::static_columns, B::static_columns>,
                      "the columns of two operands of this call differ");
        return a.columns() ^ b.columns();
    } else {
        static_assert(may_be_equal<A::static_columns, B::static_length>,
                      "a vector of this call is not as long as a matrix has columns");
        return a.columns() ^ b.length();
    }
}
template <class A>
constexpr std::ptrdiff_t square_difference(const A &a) {
    static_assert(may_be_equal<A::static_rows, A::static_columns>, "this matrix must be square");
    return a.rows() ^ a.columns();
}

template <class V>
constexpr std::ptrdiff_t size_of_one(const V &v) {
    if constexpr (is_matrix(V::used_as))
        return static_cast<std::ptrdiff_t>(v.rows()) * v.columns();
    else
        return v.length();
}
template <class V>
constexpr std::ptrdiff_t count_of(const V &v) {
    if constexpr (is_array(V::used_as))
        return v.count();
    else
        return 1;
}

/* ---------------------------------------------------------------------------------------------- */
/* Parameters                                                                                     */
/* ---------------------------------------------------------------------------------------------- */

constexpr int as_int(std::ptrdiff_t n) { return static_cast<int>(n); } /* run() has looked at it */

/* f with its first arguments. */
template <class F, class... First>
ZELM_FRONT constexpr auto bind(F f, First... first) {
    return [=](auto... rest) __attribute__((always_inline)) { return f(first..., rest...); };
}

/* f with the parameters of an operand, or with a pointer or number. */
template <class F, class V>
ZELM_FRONT constexpr auto bound(F f, const V &v) {
    if constexpr (!is_operand<V>) {
        return bind(f, v);
    } else if constexpr (is_transposed(V::used_as)) {
        return bound(f, v.stored());
    } else if constexpr (V::described == description::P) {
        const int shift = as_int(v.shift());
        if constexpr (is_array(V::used_as))
            return bind(f, v.table(), shift, as_int(v.stride0()));
        else
            return bind(f, v.table(), shift);
    } else if constexpr (V::described == description::L) {
        const int shift = as_int(v.shift());
        if constexpr (V::used_as == kind::ca)
            return bind(f, v.table(), shift);
        else if constexpr (V::used_as == kind::va)
            return bind(f, v.table(), shift, as_int(v.strides()[0]));
        else
            return bind(f, v.table(), shift, as_int(v.strides()[0]), as_int(v.strides()[1]));
    } else if constexpr (V::used_as == kind::c) {
        return bind(f, v.value);
    } else if constexpr (V::used_as == kind::v) {
        return bind(f, v.data(), as_int(v.stride2()));
    } else if constexpr (V::used_as == kind::va) {
        return bind(f, v.data(), as_int(v.stride0()), as_int(v.stride2()));
    } else if constexpr (V::used_as == kind::m) {
        return bind(f, v.data(), as_int(v.stride1()), as_int(v.stride2()));
    } else if constexpr (V::used_as == kind::ma) {
        return bind(f, v.data(), as_int(v.stride0()), as_int(v.stride1()), as_int(v.stride2()));
    } else {
        return bind(f, v.data(), as_int(v.stride0()));
    }
}

/* Sizes in the C order: width, height or length, and the count of arrays. */
struct none {};
template <class F>
ZELM_FRONT constexpr F bound(F f, none) {
    return f;
}

struct width_height {
    int width, height;
};
template <class F>
ZELM_FRONT constexpr auto bound(F f, width_height s) {
    return bind(f, s.width, s.height);
}

template <class V>
constexpr auto size_arguments(const V &v) {
    if constexpr (is_matrix(V::used_as))
        return width_height{v.columns(), v.rows()};
    else
        return v.length();
}
/* Of a matrix as it is stored. */
template <class V>
constexpr auto stored_size_arguments(const V &v) {
    if constexpr (is_transposed(V::used_as))
        return size_arguments(v.stored());
    else
        return size_arguments(v);
}
template <class V>
constexpr auto count_arguments(const V &v) {
    if constexpr (is_array(V::used_as))
        return as_int(v.count());
    else
        return none();
}

/* ---------------------------------------------------------------------------------------------- */
/* The call                                                                                       */
/* ---------------------------------------------------------------------------------------------- */

/* Whether operands may meet in a call of this description: all matrices and vectors in pointer
 * description, all arrays in layout description, or none in either. */
template <class V>
constexpr bool belongs_to(description d) {
    const bool described = d == description::P   ? !is_constant(V::used_as)
                           : d == description::L ? is_array(V::used_as)
                                                 : false;
    return V::described == (described ? d : description::S);
}
template <class... V>
constexpr description common_description() {
    if ((... || (V::described == description::P)))
        return description::P;
    return (... || (V::described == description::L)) ? description::L : description::S;
}

template <class... V>
struct types {};
template <class... V>
constexpr types<V...> sources(const V &...) {
    return {};
}

/* The C function for these sources and all matrices, vectors and arrays of the call. */
template <operation Op, class T, class Sources, class All>
struct finder;
template <operation Op, class T, class... Sources, class... All>
struct finder<Op, T, types<Sources...>, types<All...>> {
    static constexpr description d = common_description<All...>();
    static_assert(
        (... && belongs_to<All>(d)),
        "the operands of a call are described in different ways: copy() moves arrays from "
        "one description to another; constants stay scalars<T> beside pointer tables, "
        "single operands stay strided beside layout tables");
    static constexpr auto value = function<Op, T, d, d, Sources::used_as...>;
};
template <operation Op, class T, class Sources, class All>
inline constexpr bool exists =
    !std::is_same_v<decltype(finder<Op, T, Sources, All>::value), const no_function>;

template <operation Op, class T, class... Sources, class... Others>
constexpr auto find(types<Sources...>, const Others &...) {
    using F = finder<Op, T, types<Sources...>, types<Sources..., Others...>>;
    static_assert(!std::is_same_v<decltype(F::value), const no_function>,
                  "there is no such operation for these kinds of operands: its comment lists them");
    return F::value;
}

/* f with the parameters of all, in this order. */
template <class F>
ZELM_FRONT int call(F f) {
    return f();
}
template <class F, class V, class... Rest>
ZELM_FRONT int call(F f, const V &v, const Rest &...rest) {
    return call(bound(f, v), rest...);
}

/* All bits of the strides, and of the shift, of an operand. */
template <class P>
constexpr std::ptrdiff_t stride_bits(const P &p) {
    if constexpr (!is_operand<P>)
        return 0;
    else if constexpr (is_transposed(P::used_as))
        return stride_bits(p.stored());
    else if constexpr (P::described == description::P)
        return p.stride0();
    else if constexpr (P::used_as == kind::c)
        return 0;
    else
        return all_bits(p.strides());
}
template <class P>
constexpr std::ptrdiff_t shift_bits(const P &p) {
    if constexpr (!is_operand<P>)
        return 0;
    else if constexpr (is_transposed(P::used_as))
        return shift_bits(p.stored());
    else if constexpr (P::described != description::S)
        return p.shift();
    else
        return 0;
}

/* The status of what is below 0 or beyond int, where the C functions take an int. */
constexpr int out_of_int(std::ptrdiff_t count, std::ptrdiff_t strides) {
    return count >> 31 != 0     ? zelStatusBadCount
           : strides >> 31 != 0 ? zelStatusBadStride
                                : zelStatusBadOffset;
}

template <class Function, class... Parameters>
ZELM_FRONT status run(Function function, std::ptrdiff_t differences, std::ptrdiff_t count,
                      const Parameters &...parameters) {
    if (differences != 0)
        return zelStatusSizeMismatch;
    if (count == 0)
        return zelStatusOk;
    const std::ptrdiff_t strides = (stride_bits(parameters) | ... | 0);
    const std::ptrdiff_t shifts = (shift_bits(parameters) | ... | 0);
    if ((count | strides | shifts) >> 31 != 0)
        return out_of_int(count, strides);
    return call(function, parameters...);
}

/* ---------------------------------------------------------------------------------------------- */
/* Plain results: elements without gaps                                                           */
/* ---------------------------------------------------------------------------------------------- */

template <class T>
struct run_of {
    T *data;
    std::ptrdiff_t size;
    bool gapless;
};

/* Of one number, or of whatever has elements. */
template <class X>
auto gapless(X &x) {
    if constexpr (is_number<X>) {
        return run_of<X>{&x, 1, true};
    } else {
        const auto all = elements(x);
        using From = decltype(all);
        std::ptrdiff_t size = 1;
        bool gapless = true;
        for (std::size_t i = all.extents.size(); i-- > 0;) {
            gapless &= all.extents[i] == 1 ||
                       all.strides[i] == size * size_of<typename From::element_type>;
            if (__builtin_mul_overflow(size, all.extents[i], &size))
                size = -1;
        }
        return run_of<typename From::element_type>{all.data, size, gapless};
    }
}

} // namespace zelm::detail

#endif
