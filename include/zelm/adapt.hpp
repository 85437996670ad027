/*
 * zelm/adapt.hpp: which memory a view can be made of
 *
 *   objects of fixed size    T[3][3], std::array<std::array<T, 3>, 3>, fixed-size matrices of the
 *                            Eigen kind, and every type that object_traits describes
 *   ranges of them           whatever has data() and size(): std::vector, std::array, std::span
 *   mdspan-like              data_handle(), extent(i), stride(i), rank()
 *   Eigen-like               data(), rows(), cols(), innerStride(), outerStride(), IsRowMajor
 *
 * No header of those libraries is included. A type of one's own becomes known by
 *
 *   template <> struct zelm::object_traits<Inertia> : zelm::row_major_object<double, 3, 3> {};
 *   template <> struct zelm::object_traits<Point>   : zelm::row_major_object<float, 3> {};
 */
#ifndef ZELM_ADAPT_HPP
#define ZELM_ADAPT_HPP

#include "kinds.hpp"

#include <array>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <utility>

namespace zelm {

/* A size that is known at run time only. */
inline constexpr int dynamic = -1;

namespace detail {

template <class T>
inline constexpr std::ptrdiff_t size_of = static_cast<std::ptrdiff_t>(sizeof(T));

/* Elements of any rank; strides are bytes, the last index runs along a row or a vector. An extent
 * is a number, or dynamic; all are given in `extents` too. */
template <class T, int... Extents>
struct strided {
    static constexpr int rank = sizeof...(Extents);
    static constexpr std::array<int, rank> known = {Extents...};
    using element_type = T;
    T *data;
    std::array<std::ptrdiff_t, rank> extents, strides;
};

template <class S, int... Extents>
struct object_of {
    using element = S;
    template <class T>
    using strided_as = strided<T, Extents...>;
    template <class T>
    using range_as = strided<T, dynamic, Extents...>;
    template <int N>
    using array_of = object_of<S, N, Extents...>;
    static constexpr int rank = sizeof...(Extents);
    static constexpr std::array<std::ptrdiff_t, rank> extents = {Extents...};
    static constexpr std::array<std::ptrdiff_t, rank> row_major_strides() {
        std::array<std::ptrdiff_t, rank> strides{};
        std::ptrdiff_t next = size_of<S>;
        for (std::size_t i = rank; i-- > 0;) {
            strides[i] = next;
            next *= extents[i];
        }
        return strides;
    }
};

template <int Rank>
ZELM_FRONT constexpr std::array<std::ptrdiff_t, Rank + 1>
prepended(std::ptrdiff_t first, const std::array<std::ptrdiff_t, Rank> &rest) {
    std::array<std::ptrdiff_t, Rank + 1> result = {first};
    for (std::size_t i = 0; i < Rank; ++i)
        result[i + 1] = rest[i];
    return result;
}

} // namespace detail

/* Objects of one vector (one extent: its length) or one matrix (two: rows, columns) without gaps,
 * which begins at the object's address. */
template <class T, int... Extents>
struct row_major_object : detail::object_of<T, Extents...> {
    static constexpr auto strides = detail::object_of<T, Extents...>::row_major_strides();
};
template <class T, int Rows, int Columns>
struct column_major_object : detail::object_of<T, Rows, Columns> {
    static constexpr std::array<std::ptrdiff_t, 2> strides = {sizeof(T), Rows * sizeof(T)};
};

/* To be specialised, as above, for types of one's own. */
template <class X, class = void>
struct object_traits;

template <>
struct object_traits<float> : row_major_object<float> {};
template <>
struct object_traits<double> : row_major_object<double> {};
template <>
struct object_traits<int> : row_major_object<int> {};

namespace detail {

template <class X, std::size_t N>
struct array_traits : object_traits<X>::template array_of<static_cast<int>(N)> {
    static constexpr auto strides =
        prepended<object_traits<X>::rank>(size_of<X>, object_traits<X>::strides);
};

} // namespace detail

template <class X, std::size_t N>
struct object_traits<X[N], std::void_t<typename object_traits<X>::element>>
    : detail::array_traits<X, N> {};
template <class X, std::size_t N>
struct object_traits<std::array<X, N>, std::void_t<typename object_traits<X>::element>>
    : detail::array_traits<X, N> {};

/* Eigen-like matrices and vectors of fixed size that hold their elements themselves: those that
 * refer to others have no default constructor. */
template <class X>
struct object_traits<
    X, std::enable_if_t<(X::RowsAtCompileTime > 0 && X::ColsAtCompileTime > 0 &&
                         std::is_default_constructible_v<X> &&
                         sizeof(X) == sizeof(typename X::Scalar) * X::RowsAtCompileTime *
                                          X::ColsAtCompileTime)>>
    : std::conditional_t<
          X::RowsAtCompileTime == 1 || X::ColsAtCompileTime == 1,
          row_major_object<typename X::Scalar, X::RowsAtCompileTime * X::ColsAtCompileTime>,
          std::conditional_t<
              X::IsRowMajor,
              row_major_object<typename X::Scalar, X::RowsAtCompileTime, X::ColsAtCompileTime>,
              column_major_object<typename X::Scalar, X::RowsAtCompileTime,
                                  X::ColsAtCompileTime>>> {};

namespace detail {

template <class X, class = void>
inline constexpr bool is_object = false;
template <class X>
inline constexpr bool is_object<X, std::void_t<typename object_traits<X>::element>> = true;

/* Whether it is an object without gaps. */
template <class X>
constexpr bool has_row_major_strides() {
    if constexpr (is_object<X>) {
        constexpr auto strides = object_traits<X>::row_major_strides();
        for (std::size_t i = 0; i < strides.size(); ++i)
            if (strides[i] != object_traits<X>::strides[i])
                return false;
    }
    return is_object<X>;
}
template <class X>
inline constexpr bool is_row_major = has_row_major_strides<X>();

template <class X, class T>
using as_const_as = std::conditional_t<std::is_const_v<X>, const T, T>;

template <class X, class = void>
inline constexpr bool is_operand = false; /* a view of zelm */
template <class X>
inline constexpr bool is_operand<X, std::void_t<decltype(X::described)>> = true;
template <class X, class = void>
inline constexpr bool is_view = false; /* ... in standard description */
template <class X>
inline constexpr bool is_view<X, std::void_t<decltype(std::declval<X &>().elements())>> =
    is_operand<X>;

template <class X, class = void>
inline constexpr bool is_mdspan = false;
template <class X>
inline constexpr bool
    is_mdspan<X, std::void_t<decltype(*std::declval<X &>().data_handle()),
                             decltype(std::declval<X &>().extent(0)),
                             decltype(std::declval<X &>().stride(0)), decltype(X::rank())>> = true;

template <class X, class = void>
inline constexpr bool is_eigen = false;
template <class X>
inline constexpr bool is_eigen<
    X, std::void_t<decltype(*std::declval<X &>().data()),
                   decltype(std::declval<X &>().rows() + std::declval<X &>().cols()),
                   decltype(std::declval<X &>().innerStride() + std::declval<X &>().outerStride()),
                   decltype(X::IsRowMajor)>> = true;

/* Of objects or elements. */
template <class X, class = void>
inline constexpr bool is_range = false;
template <class X>
inline constexpr bool is_range<
    X, std::void_t<decltype(std::declval<X &>().size()),
                   typename object_traits<std::remove_cv_t<
                       std::remove_reference_t<decltype(*std::declval<X &>().data())>>>::element>> =
    true;

constexpr int static_extent(std::size_t n) {
    return n >= 1 && n <= INT_MAX ? static_cast<int>(n) : dynamic;
}

/* An object in memory, its own traits known. */
template <class X>
ZELM_FRONT auto elements_of_object(X &x) {
    using traits = object_traits<std::remove_const_t<X>>;
    using T = as_const_as<X, typename traits::element>;
    return typename traits::template strided_as<T>{reinterpret_cast<T *>(&x), traits::extents,
                                                   traits::strides};
}

/* `count` such objects, `stride` bytes apart. */
template <class X>
ZELM_FRONT auto elements_of_objects(X *first, std::ptrdiff_t count, std::ptrdiff_t stride) {
    using traits = object_traits<std::remove_const_t<X>>;
    using T = as_const_as<X, typename traits::element>;
    return typename traits::template range_as<T>{reinterpret_cast<T *>(first),
                                                 prepended<traits::rank>(count, traits::extents),
                                                 prepended<traits::rank>(stride, traits::strides)};
}

template <class X, std::size_t... I>
ZELM_FRONT auto elements_of_mdspan(X &x, std::index_sequence<I...>) {
    using T = std::remove_reference_t<decltype(*x.data_handle())>;
    return strided<T, static_extent(X::static_extent(I))...>{
        x.data_handle(),
        {static_cast<std::ptrdiff_t>(x.extent(I))...},
        {static_cast<std::ptrdiff_t>(x.stride(I)) * size_of<T>...}};
}

template <class X>
ZELM_FRONT auto elements_of_eigen(X &x) {
    using T = std::remove_reference_t<decltype(*x.data())>;
    constexpr int rows = X::RowsAtCompileTime, columns = X::ColsAtCompileTime;
    const std::ptrdiff_t inner = x.innerStride() * size_of<T>;
    if constexpr (rows == 1 || columns == 1) {
        constexpr int length = rows > 0 && columns > 0 ? rows * columns : dynamic;
        return strided<T, length>{x.data(), {x.rows() * x.cols()}, {inner}};
    } else {
        const std::ptrdiff_t outer = x.outerStride() * size_of<T>;
        return strided<T, (rows > 0 ? rows : dynamic), (columns > 0 ? columns : dynamic)>{
            x.data(),
            {x.rows(), x.cols()},
            {X::IsRowMajor ? outer : inner, X::IsRowMajor ? inner : outer}};
    }
}

template <class X>
inline constexpr bool is_adaptable =
    is_view<X> || is_mdspan<X> || is_object<std::remove_const_t<X>> || is_eigen<X> || is_range<X>;

/* Of a range, which may be an array of the language. */
template <class X>
constexpr auto *data_of(X &x) {
    if constexpr (std::is_array_v<X>)
        return &x[0];
    else
        return x.data();
}
template <class X>
constexpr std::ptrdiff_t length_of_range(const X &x) {
    if constexpr (std::is_array_v<X>)
        return std::extent_v<X>;
    else
        return static_cast<std::ptrdiff_t>(x.size());
}

/* The elements of x, with as many indices as it has. */
template <class X, class = std::enable_if_t<is_adaptable<X>>>
ZELM_FRONT auto elements(X &x) {
    if constexpr (is_view<X>)
        return x.elements();
    else if constexpr (is_mdspan<X>)
        return elements_of_mdspan(x, std::make_index_sequence<X::rank()>());
    else if constexpr (is_object<std::remove_const_t<X>>)
        return elements_of_object(x);
    else if constexpr (is_eigen<X>)
        return elements_of_eigen(x);
    else
        return elements_of_objects(x.data(), length_of_range(x), size_of<decltype(*x.data())>);
}

/* The product of sizes and bytes; 0 if there is no such number of bytes. */
constexpr std::ptrdiff_t times(std::ptrdiff_t a, std::ptrdiff_t b) {
    std::ptrdiff_t result = 0;
    return a < 0 || b < 0 || __builtin_mul_overflow(a, b, &result) ? 0 : result;
}

/* The number of objects of n elements each in all of them; -1, which is refused later, if that
 * leaves a remainder. */
constexpr std::ptrdiff_t divided(std::ptrdiff_t all, std::ptrdiff_t n) {
    return n > 0 && all % n == 0 ? all / n : -1;
}

/* A run of elements as an array of vectors of n elements. */
template <class T, int N>
constexpr strided<T, dynamic, dynamic> divided(const strided<T, N> &run, std::ptrdiff_t n) {
    const std::ptrdiff_t step = run.strides[0];
    return {run.data, {divided(run.extents[0], n), n}, {times(n, step), step}};
}
/* ... as one matrix. */
template <class T, int N>
constexpr strided<T, dynamic, dynamic> as_rows(const strided<T, N> &run, std::ptrdiff_t rows,
                                               std::ptrdiff_t columns) {
    const std::ptrdiff_t step = run.strides[0];
    return {run.data,
            {divided(run.extents[0], columns) == rows ? rows : -1, columns},
            {times(columns, step), step}};
}
/* ... as an array of matrices. */
template <class T, int N>
constexpr strided<T, dynamic, dynamic, dynamic>
divided(const strided<T, N> &run, std::ptrdiff_t rows, std::ptrdiff_t columns) {
    const std::ptrdiff_t size = times(rows, columns), step = run.strides[0];
    return {run.data,
            {divided(run.extents[0], size), rows, columns},
            {times(size, step), times(columns, step), step}};
}
/* An array of vectors, each of them as a matrix. */
template <class T, int M, int N>
constexpr strided<T, dynamic, dynamic, dynamic>
divided(const strided<T, M, N> &runs, std::ptrdiff_t rows, std::ptrdiff_t columns) {
    const std::ptrdiff_t size = times(rows, columns), step = runs.strides[1];
    return {runs.data,
            {runs.extents[1] == size ? runs.extents[0] : -1, rows, columns},
            {runs.strides[0], times(columns, step), step}};
}

/* What the elements of x are, if a view can be made of it. */
template <class X>
using elements_t = decltype(elements(std::declval<X &>()));
template <class From, int Rank>
using element_of = std::enable_if_t<From::rank == Rank, typename From::element_type>;
template <class From, std::size_t I>
inline constexpr int extent_of = From::known[I];
/* Whether ranges of them are arrays of objects: containers of vectors are vectors, T[3][3] and its
 * like are one matrix. */
template <class X>
inline constexpr bool is_array_of_objects =
    !is_view<X> && !is_mdspan<X> && !is_object<std::remove_const_t<X>> && !is_eigen<X>;

} // namespace detail
} // namespace zelm

#endif
