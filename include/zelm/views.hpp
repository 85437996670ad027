/*
 * zelm/views.hpp: where operands are
 *
 * A view says where the elements of an operand lie and what shape it has; the caller owns the
 * memory. Views are small values: they are copied, and copying or converting them costs nothing.
 * A view of const elements can only be read; every other one converts to it.
 *
 *   one object          arrays of objects      in memory
 *   matrix<T>           matrices<T>            strided: standard description
 *   vector<T>           vectors<T>, scalars<T>
 *   pointer_matrix<T>   pointer_matrices<T>    a table with one pointer per element
 *   pointer_vector<T>   pointer_vectors<T>
 *                       layout_matrices<T>     a table with one pointer per object
 *                       layout_vectors<T>, layout_scalars<T>
 *
 * T is float or double (int of row numbers and statuses), const or not. Sizes may be template
 * arguments, matrices<double, 3, 3>: then shapes that do not fit do not compile. Scalars are one
 * number per object, constants of a sum or results of a norm. Strides and shifts are bytes:
 *
 *   stride0   from an object of an array to the next one
 *   stride1   from a row of a matrix to the next one
 *   stride2   from an element of a row, or of a vector, to the next one
 *
 * The views of strided memory are also made of whatever zelm/adapt.hpp lists, by
 *
 *   view(x)                      as many indices as x has, ranges of objects being arrays
 *   matrices(x), vectors(x) ...  the view that is named, if x has as many indices
 *   matrices(x, rows, columns)   a run of elements, or an array of runs, divided
 *   member(bodies, &Body::m)     a member of every struct of a range
 *   planar(...)                  the same element of all objects side by side
 *   column_major(...)            columns without gaps
 *
 * transposed(a) is the view of any matrix or matrices, used transposed.
 *
 * A size that cannot be (below 0, beyond int) becomes -1, which every operation refuses. An index
 * outside of a view gives a null pointer, a part that reaches outside a count of -1; both are
 * refused as well.
 */
#ifndef ZELM_VIEWS_HPP
#define ZELM_VIEWS_HPP

#include "adapt.hpp"

namespace zelm {

namespace detail {

template <int... N>
using if_known = std::enable_if_t<((N != dynamic) && ...)>;
template <int... N>
using if_unknown = std::enable_if_t<((N == dynamic) && ...)>;

/* Non-const becomes const, and a known size one at run time. */
template <class From, class To>
inline constexpr bool converts = false;
template <class U, int... F, class T, int... E>
inline constexpr bool converts<strided<U, F...>, strided<T, E...>> = [] {
    if constexpr (sizeof...(F) == sizeof...(E))
        return std::is_convertible_v<U(*)[], T(*)[]> && ((E == dynamic || E == F) && ...);
    else
        return false;
}();

/* A size as the C functions take it; -1, which they refuse, if it is none. */
constexpr int size_or_bad(std::ptrdiff_t n) {
    return n >= 0 && n <= INT_MAX ? static_cast<int>(n) : -1;
}
template <int N>
constexpr int size_or_bad(std::ptrdiff_t n) {
    return N == dynamic ? size_or_bad(n) : N;
}

/* The bytes of so many elements, or rows of elements, without gaps. */
template <class T>
constexpr std::ptrdiff_t bytes_of(std::ptrdiff_t rows, std::ptrdiff_t columns) {
    return times(rows, times(columns, size_of<T>));
}

template <std::size_t N>
constexpr std::ptrdiff_t all_bits(const std::array<std::ptrdiff_t, N> &a) {
    if constexpr (N == 0)
        return 0;
    else if constexpr (N == 1)
        return a[0];
    else if constexpr (N == 2)
        return a[0] | a[1];
    else
        return a[0] | a[1] | a[2];
}

template <class T>
constexpr T *moved(T *p, std::ptrdiff_t bytes) {
    using byte = std::conditional_t<std::is_const_v<T>, const char, char>;
    return bytes == 0 ? p : reinterpret_cast<T *>(reinterpret_cast<byte *>(p) + bytes);
}

/* Whether n steps from first on lie in 0 .. length - 1. */
constexpr bool contains(std::ptrdiff_t length, std::ptrdiff_t first, std::ptrdiff_t n = 1) {
    return first >= 0 && n >= 0 && first <= length && n <= length - first;
}

/* Object n of an array, `n` of its objects from number `first` on; refused if they are outside. */
template <class T, int... E>
constexpr strided<T, E...> object(const strided<T, dynamic, E...> &a, std::ptrdiff_t n) {
    strided<T, E...> result{
        contains(a.extents[0], n) ? moved(a.data, n * a.strides[0]) : nullptr, {}, {}};
    for (std::size_t i = 0; i < sizeof...(E); ++i) {
        result.extents[i] = a.extents[i + 1];
        result.strides[i] = a.strides[i + 1];
    }
    return result;
}
template <class S>
constexpr S part(S a, std::ptrdiff_t first, std::ptrdiff_t n) {
    const bool inside = contains(a.extents[0], first, n);
    a.extents[0] = inside ? n : -1;
    a.data = inside ? moved(a.data, first * a.strides[0]) : a.data;
    return a;
}

/* The same, every matrix of it transposed. */
template <class T, int R, int C>
constexpr strided<T, C, R> exchanged(const strided<T, R, C> &a) {
    return {a.data, {a.extents[1], a.extents[0]}, {a.strides[1], a.strides[0]}};
}
template <class T, int N, int R, int C>
constexpr strided<T, N, C, R> exchanged(const strided<T, N, R, C> &a) {
    return {a.data,
            {a.extents[0], a.extents[2], a.extents[1]},
            {a.strides[0], a.strides[2], a.strides[1]}};
}

/* Row i of it, or of every matrix. */
template <class T, int R, int C>
constexpr strided<T, C> row_of(const strided<T, R, C> &a, std::ptrdiff_t i) {
    return object(strided<T, dynamic, C>{a.data, a.extents, a.strides}, i);
}
template <class T, int N, int R, int C>
constexpr strided<T, N, C> row_of(const strided<T, N, R, C> &a, std::ptrdiff_t i) {
    return {contains(a.extents[1], i) ? moved(a.data, i * a.strides[1]) : nullptr,
            {a.extents[0], a.extents[2]},
            {a.strides[0], a.strides[2]}};
}

/* The block of it, or of every matrix, that begins at (i, j). */
template <int Rows, int Columns, class T, int... E>
constexpr auto block_of(const strided<T, E...> &a, std::ptrdiff_t i, std::ptrdiff_t j,
                        std::ptrdiff_t rows, std::ptrdiff_t columns) {
    constexpr std::size_t k = sizeof...(E) - 2; /* the index of a row */
    const bool inside = contains(a.extents[k], i, rows) && contains(a.extents[k + 1], j, columns);
    T *const data = inside ? moved(a.data, i * a.strides[k] + j * a.strides[k + 1]) : nullptr;
    if constexpr (k == 0)
        return strided<T, Rows, Columns>{
            data, {inside ? rows : -1, inside ? columns : -1}, a.strides};
    else
        return strided<T, dynamic, Rows, Columns>{
            data, {a.extents[0], inside ? rows : -1, inside ? columns : -1}, a.strides};
}

/* The sizes of operands. Sizes that are template arguments are constants. */
template <kind Kind, int... Extents>
class sizes;

template <int Length>
class sizes<kind::v, Length> {
public:
    static constexpr int static_length = Length;
    constexpr int length() const { return Length == dynamic ? length_ : Length; }

protected:
    constexpr std::array<std::ptrdiff_t, 1> extents() const { return {length()}; }
    constexpr explicit sizes(const std::array<std::ptrdiff_t, 1> &n) : length_(size_or_bad(n[0])) {}

private:
    int length_;
};

template <int Rows, int Columns>
class sizes<kind::m, Rows, Columns> {
public:
    static constexpr int static_rows = Rows, static_columns = Columns;
    constexpr int rows() const { return Rows == dynamic ? rows_ : Rows; }
    constexpr int columns() const { return Columns == dynamic ? columns_ : Columns; }

protected:
    constexpr std::array<std::ptrdiff_t, 2> extents() const { return {rows(), columns()}; }
    constexpr explicit sizes(const std::array<std::ptrdiff_t, 2> &n)
        : rows_(size_or_bad(n[0])), columns_(size_or_bad(n[1])) {}

private:
    int rows_, columns_;
};

template <>
class sizes<kind::ca, dynamic> {
public:
    constexpr std::ptrdiff_t count() const { return count_; }

protected:
    constexpr std::array<std::ptrdiff_t, 1> extents() const { return {count_}; }
    constexpr explicit sizes(const std::array<std::ptrdiff_t, 1> &n) : count_(n[0]) {}

private:
    std::ptrdiff_t count_;
};

template <int Length>
class sizes<kind::va, dynamic, Length> : public sizes<kind::ca, dynamic>,
                                         public sizes<kind::v, Length> {
protected:
    constexpr std::array<std::ptrdiff_t, 2> extents() const {
        return {this->count(), this->length()};
    }
    constexpr explicit sizes(const std::array<std::ptrdiff_t, 2> &n)
        : sizes<kind::ca, dynamic>({n[0]}), sizes<kind::v, Length>({n[1]}) {}
};

template <int Rows, int Columns>
class sizes<kind::ma, dynamic, Rows, Columns> : public sizes<kind::ca, dynamic>,
                                                public sizes<kind::m, Rows, Columns> {
protected:
    constexpr std::array<std::ptrdiff_t, 3> extents() const {
        return {this->count(), this->rows(), this->columns()};
    }
    constexpr explicit sizes(const std::array<std::ptrdiff_t, 3> &n)
        : sizes<kind::ca, dynamic>({n[0]}), sizes<kind::m, Rows, Columns>({n[1], n[2]}) {}
};

template <class T, kind Kind, description Description>
struct view_base {
    static_assert(std::is_same_v<std::remove_const_t<T>, float> ||
                      std::is_same_v<std::remove_const_t<T>, double> ||
                      std::is_same_v<std::remove_const_t<T>, int>,
                  "elements are float or double; row numbers and statuses are int");
    using element_type = T;
    using value_type = std::remove_const_t<T>;
    static constexpr kind used_as = Kind;
    static constexpr description described = Description;
};

/* Element (n, i, j) at data + n * stride0 + i * stride1 + j * stride2; which of these indices there
 * are depends on the kind. */
template <class T, kind Kind, int... Extents>
class strided_view : public view_base<T, Kind, description::S>, public sizes<Kind, Extents...> {
public:
    using strided_type = strided<T, Extents...>;

    template <class From, class = std::enable_if_t<converts<From, strided_type>>>
    ZELM_FRONT constexpr strided_view(const From &from)
        : sizes<Kind, Extents...>(from.extents), data_(from.data), strides_(from.strides) {}
    template <class X, class From = elements_t<X>,
              class = std::enable_if_t<converts<From, strided_type>>>
    ZELM_FRONT constexpr strided_view(X &&x) : strided_view(detail::elements(x)) {}

    constexpr T *data() const { return data_; }
    ZELM_FRONT constexpr strided_type elements() const {
        return {data_, this->extents(), strides_};
    }
    constexpr const auto &strides() const { return strides_; } /* stride0, stride1, stride2 */

protected:
    constexpr std::ptrdiff_t stride(std::size_t i) const { return strides_[i]; }

private:
    T *data_;
    std::array<std::ptrdiff_t, sizeof...(Extents)> strides_;
};

} // namespace detail

/* ---------------------------------------------------------------------------------------------- */
/* Strided memory                                                                                 */
/* ---------------------------------------------------------------------------------------------- */

template <class T, int Length = dynamic>
class vector : public detail::strided_view<T, kind::v, Length> {
    using base = detail::strided_view<T, kind::v, Length>;

public:
    using base::base;
    template <int N = Length, class = detail::if_unknown<N>>
    constexpr vector(T *data, std::ptrdiff_t length, std::ptrdiff_t stride2 = detail::size_of<T>)
        : base(detail::strided<T, N>{data, {length}, {stride2}}) {}
    template <int N = Length, class = detail::if_known<N>>
    constexpr explicit vector(T *data, std::ptrdiff_t stride2 = detail::size_of<T>)
        : base(detail::strided<T, N>{data, {N}, {stride2}}) {}

    constexpr std::ptrdiff_t stride2() const { return this->stride(0); }
    /* Element i, which must be aligned. */
    constexpr T &operator()(int i) const { return *detail::moved(this->data(), i * stride2()); }
};

/* One number per object. */
template <class T>
class scalars : public detail::strided_view<T, kind::ca, dynamic> {
    using base = detail::strided_view<T, kind::ca, dynamic>;

public:
    using base::base;
    constexpr scalars() : scalars(nullptr, 0) {} /* none */
    constexpr scalars(T *data, std::ptrdiff_t count, std::ptrdiff_t stride0 = detail::size_of<T>)
        : base(detail::strided<T, dynamic>{data, {count}, {stride0}}) {}

    constexpr std::ptrdiff_t stride0() const { return this->stride(0); }
    /* Number n, which must be aligned. */
    constexpr T &operator[](std::ptrdiff_t n) const {
        return *detail::moved(this->data(), n * stride0());
    }
};

template <class T, int Rows = dynamic, int Columns = dynamic>
class matrix : public detail::strided_view<T, kind::m, Rows, Columns> {
    using base = detail::strided_view<T, kind::m, Rows, Columns>;
    using strides_type = std::array<std::ptrdiff_t, 2>; /* stride1, stride2 */

public:
    using base::base;
    template <int R = Rows, int C = Columns, class = detail::if_unknown<R, C>>
    constexpr matrix(T *data, std::ptrdiff_t rows, std::ptrdiff_t columns, const strides_type &s)
        : base(detail::strided<T, R, C>{data, {rows, columns}, s}) {}
    template <int R = Rows, int C = Columns, class = detail::if_unknown<R, C>>
    constexpr matrix(T *data, std::ptrdiff_t rows, std::ptrdiff_t columns)
        : matrix(data, rows, columns, {detail::bytes_of<T>(1, columns), detail::size_of<T>}) {}
    template <int R = Rows, int C = Columns, class = detail::if_known<R, C>>
    constexpr matrix(T *data, const strides_type &s)
        : base(detail::strided<T, R, C>{data, {R, C}, s}) {}
    template <int R = Rows, int C = Columns, class = detail::if_known<R, C>>
    constexpr explicit matrix(T *data)
        : matrix(data, {C * detail::size_of<T>, detail::size_of<T>}) {}
    /* A run of rows * columns elements. */
    template <class X, class From = decltype(detail::divided(detail::elements_t<X>(), 1))>
    constexpr matrix(X &&run, std::ptrdiff_t rows, std::ptrdiff_t columns)
        : base(detail::as_rows(detail::elements(run), rows, columns)) {}

    constexpr std::ptrdiff_t stride1() const { return this->stride(0); }
    constexpr std::ptrdiff_t stride2() const { return this->stride(1); }
    /* Element (i, j), which must be aligned. */
    constexpr T &operator()(int i, int j) const {
        return *detail::moved(this->data(), i * stride1() + j * stride2());
    }
};

/* strides: stride0, stride2. */
template <class T, int Length = dynamic>
class vectors : public detail::strided_view<T, kind::va, dynamic, Length> {
    using base = detail::strided_view<T, kind::va, dynamic, Length>;
    using strides_type = std::array<std::ptrdiff_t, 2>;

public:
    using base::base;
    template <int N = Length, class = detail::if_unknown<N>>
    constexpr vectors(T *data, std::ptrdiff_t length, std::ptrdiff_t count, const strides_type &s)
        : base(detail::strided<T, dynamic, N>{data, {count, length}, s}) {}
    template <int N = Length, class = detail::if_unknown<N>>
    constexpr vectors(T *data, std::ptrdiff_t length, std::ptrdiff_t count)
        : vectors(data, length, count, {detail::bytes_of<T>(1, length), detail::size_of<T>}) {}
    template <int N = Length, class = detail::if_known<N>>
    constexpr vectors(T *data, std::ptrdiff_t count, const strides_type &s)
        : base(detail::strided<T, dynamic, N>{data, {count, N}, s}) {}
    template <int N = Length, class = detail::if_known<N>>
    constexpr vectors(T *data, std::ptrdiff_t count)
        : vectors(data, count, {N * detail::size_of<T>, detail::size_of<T>}) {}
    /* A run of elements, `length` to a vector. */
    template <class X, class From = decltype(detail::divided(detail::elements_t<X>(), 1)),
              int N = Length, class = detail::if_unknown<N>>
    constexpr vectors(X &&run, std::ptrdiff_t length)
        : base(detail::divided(detail::elements(run), length)) {}

    constexpr std::ptrdiff_t stride0() const { return this->stride(0); }
    constexpr std::ptrdiff_t stride2() const { return this->stride(1); }
    constexpr vector<T, Length> operator[](std::ptrdiff_t n) const {
        return detail::object(this->elements(), n);
    }
    /* `n` objects from number `from` on. */
    constexpr vectors part(std::ptrdiff_t from, std::ptrdiff_t n) const {
        return detail::part(this->elements(), from, n);
    }
    constexpr vectors first(std::ptrdiff_t n) const { return part(0, n); }
};

/* strides: stride0, stride1, stride2. */
template <class T, int Rows = dynamic, int Columns = dynamic>
class matrices : public detail::strided_view<T, kind::ma, dynamic, Rows, Columns> {
    using base = detail::strided_view<T, kind::ma, dynamic, Rows, Columns>;
    using strides_type = std::array<std::ptrdiff_t, 3>;

public:
    using base::base;
    template <int R = Rows, int C = Columns, class = detail::if_unknown<R, C>>
    constexpr matrices(T *data, std::ptrdiff_t rows, std::ptrdiff_t columns, std::ptrdiff_t count,
                       const strides_type &s)
        : base(detail::strided<T, dynamic, R, C>{data, {count, rows, columns}, s}) {}
    template <int R = Rows, int C = Columns, class = detail::if_unknown<R, C>>
    constexpr matrices(T *data, std::ptrdiff_t rows, std::ptrdiff_t columns, std::ptrdiff_t count)
        : matrices(data, rows, columns, count,
                   {detail::bytes_of<T>(rows, columns), detail::bytes_of<T>(1, columns),
                    detail::size_of<T>}) {}
    template <int R = Rows, int C = Columns, class = detail::if_known<R, C>>
    constexpr matrices(T *data, std::ptrdiff_t count, const strides_type &s)
        : base(detail::strided<T, dynamic, R, C>{data, {count, R, C}, s}) {}
    template <int R = Rows, int C = Columns, class = detail::if_known<R, C>>
    constexpr matrices(T *data, std::ptrdiff_t count)
        : matrices(data, count,
                   {detail::bytes_of<T>(R, C), detail::bytes_of<T>(1, C), detail::size_of<T>}) {}
    /* A run of elements, or an array of runs of rows * columns elements each. */
    template <class X, class From = decltype(detail::divided(detail::elements_t<X>(), 1, 1)),
              int R = Rows, int C = Columns, class = detail::if_unknown<R, C>>
    constexpr matrices(X &&runs, std::ptrdiff_t rows, std::ptrdiff_t columns)
        : base(detail::divided(detail::elements(runs), rows, columns)) {}

    constexpr std::ptrdiff_t stride0() const { return this->stride(0); }
    constexpr std::ptrdiff_t stride1() const { return this->stride(1); }
    constexpr std::ptrdiff_t stride2() const { return this->stride(2); }
    constexpr matrix<T, Rows, Columns> operator[](std::ptrdiff_t n) const {
        return detail::object(this->elements(), n);
    }
    /* `n` objects from number `from` on. */
    constexpr matrices part(std::ptrdiff_t from, std::ptrdiff_t n) const {
        return detail::part(this->elements(), from, n);
    }
    constexpr matrices first(std::ptrdiff_t n) const { return part(0, n); }
};

template <class T>
vector(T *, std::ptrdiff_t) -> vector<T>;
template <class T>
vector(T *, std::ptrdiff_t, std::ptrdiff_t) -> vector<T>;
template <class T>
vectors(T *, std::ptrdiff_t, std::ptrdiff_t) -> vectors<T>;
template <class T>
vectors(T *, std::ptrdiff_t, std::ptrdiff_t, const std::array<std::ptrdiff_t, 2> &) -> vectors<T>;
template <class T>
matrix(T *, std::ptrdiff_t, std::ptrdiff_t) -> matrix<T>;
template <class T>
matrix(T *, std::ptrdiff_t, std::ptrdiff_t, const std::array<std::ptrdiff_t, 2> &) -> matrix<T>;
template <class T>
matrices(T *, std::ptrdiff_t, std::ptrdiff_t, std::ptrdiff_t) -> matrices<T>;
template <class T>
matrices(T *, std::ptrdiff_t, std::ptrdiff_t, std::ptrdiff_t, const std::array<std::ptrdiff_t, 3> &)
    -> matrices<T>;

template <class T, int N>
vector(const detail::strided<T, N> &) -> vector<T, N>;
template <class T, int N>
scalars(const detail::strided<T, N> &) -> scalars<T>;
template <class T, int M, int N>
vectors(const detail::strided<T, M, N> &) -> vectors<T, N>;
template <class T, int R, int C>
matrix(const detail::strided<T, R, C> &) -> matrix<T, R, C>;
template <class T, int N, int R, int C>
matrices(const detail::strided<T, N, R, C> &) -> matrices<T, R, C>;
template <class X, class From = detail::elements_t<X>>
vector(X &&) -> vector<detail::element_of<From, 1>, detail::extent_of<From, 0>>;
template <class X, class From = detail::elements_t<X>>
scalars(X &&) -> scalars<detail::element_of<From, 1>>;
template <class X, class From = detail::elements_t<X>>
vectors(X &&) -> vectors<detail::element_of<From, 2>, detail::extent_of<From, 1>>;
template <class X, class From = detail::elements_t<X>>
matrix(X &&)
    -> matrix<detail::element_of<From, 2>, detail::extent_of<From, 0>, detail::extent_of<From, 1>>;
template <class X, class From = detail::elements_t<X>>
matrices(X &&) -> matrices<detail::element_of<From, 3>, detail::extent_of<From, 1>,
                           detail::extent_of<From, 2>>;
template <class X, class From = detail::elements_t<X>>
vectors(X &&, std::ptrdiff_t) -> vectors<detail::element_of<From, 1>>;
template <class X, class From = detail::elements_t<X>>
matrix(X &&, std::ptrdiff_t, std::ptrdiff_t) -> matrix<detail::element_of<From, 1>>;
template <class X, class From = decltype(detail::divided(detail::elements_t<X>(), 1, 1))>
matrices(X &&, std::ptrdiff_t, std::ptrdiff_t) -> matrices<typename From::element_type>;

/* ---------------------------------------------------------------------------------------------- */
/* Tables of pointers                                                                             */
/* ---------------------------------------------------------------------------------------------- */

namespace detail {

/* Element k of object n at table[k] + shift + n * stride0, where k counts the elements of one
 * object row after row. */
template <class T, kind Kind, int... Extents>
class pointer_view : public view_base<T, Kind, description::P>, public sizes<Kind, Extents...> {
public:
    using extents_type = std::array<std::ptrdiff_t, sizeof...(Extents)>;
    constexpr pointer_view(T *const *table, const extents_type &n, std::ptrdiff_t stride0,
                           std::ptrdiff_t shift)
        : sizes<Kind, Extents...>(n), table_(table), stride0_(stride0), shift_(shift) {}
    template <class U, class = std::enable_if_t<std::is_convertible_v<U (*)[], T (*)[]>>>
    constexpr pointer_view(const pointer_view<U, Kind, Extents...> &from)
        : pointer_view(from.table(), from.extents(), from.stride0(), from.shift()) {}

    constexpr T *const *table() const { return table_; }
    constexpr std::ptrdiff_t shift() const { return shift_; }
    constexpr std::ptrdiff_t stride0() const { return stride0_; } /* 0 of a single object */
    using sizes<Kind, Extents...>::extents;

private:
    T *const *table_;
    std::ptrdiff_t stride0_, shift_;
};

/* Element (i, j) of object n at table[n] + shift + i * stride1 + j * stride2. */
template <class T, kind Kind, int... Extents>
class layout_view : public view_base<T, Kind, description::L>, public sizes<Kind, Extents...> {
public:
    using extents_type = std::array<std::ptrdiff_t, sizeof...(Extents)>;
    using strides_type = std::array<std::ptrdiff_t, sizeof...(Extents) - 1>;
    constexpr layout_view(T *const *table, const extents_type &n, const strides_type &strides,
                          std::ptrdiff_t shift)
        : sizes<Kind, Extents...>(n), table_(table), strides_(strides), shift_(shift) {}
    template <class U, class = std::enable_if_t<std::is_convertible_v<U (*)[], T (*)[]>>>
    constexpr layout_view(const layout_view<U, Kind, Extents...> &from)
        : layout_view(from.table(), from.extents(), from.strides(), from.shift()) {}

    constexpr T *const *table() const { return table_; }
    constexpr std::ptrdiff_t shift() const { return shift_; }
    constexpr const strides_type &strides() const { return strides_; } /* stride1, stride2 */
    using sizes<Kind, Extents...>::extents;

private:
    T *const *table_;
    strides_type strides_;
    std::ptrdiff_t shift_;
};

} // namespace detail

template <class T>
class pointer_vector : public detail::pointer_view<T, kind::v, dynamic> {
    using base = detail::pointer_view<T, kind::v, dynamic>;

public:
    using base::base;
    constexpr pointer_vector(T *const *table, std::ptrdiff_t length, std::ptrdiff_t shift = 0)
        : base(table, {length}, 0, shift) {}
};

template <class T>
class pointer_matrix : public detail::pointer_view<T, kind::m, dynamic, dynamic> {
    using base = detail::pointer_view<T, kind::m, dynamic, dynamic>;

public:
    using base::base;
    constexpr pointer_matrix(T *const *table, std::ptrdiff_t rows, std::ptrdiff_t columns,
                             std::ptrdiff_t shift = 0)
        : base(table, {rows, columns}, 0, shift) {}
};

template <class T>
class pointer_vectors : public detail::pointer_view<T, kind::va, dynamic, dynamic> {
    using base = detail::pointer_view<T, kind::va, dynamic, dynamic>;

public:
    using base::base;
    constexpr pointer_vectors(T *const *table, std::ptrdiff_t length, std::ptrdiff_t count,
                              std::ptrdiff_t stride0, std::ptrdiff_t shift = 0)
        : base(table, {count, length}, stride0, shift) {}
};

template <class T>
class pointer_matrices : public detail::pointer_view<T, kind::ma, dynamic, dynamic, dynamic> {
    using base = detail::pointer_view<T, kind::ma, dynamic, dynamic, dynamic>;

public:
    using base::base;
    constexpr pointer_matrices(T *const *table, std::ptrdiff_t rows, std::ptrdiff_t columns,
                               std::ptrdiff_t count, std::ptrdiff_t stride0,
                               std::ptrdiff_t shift = 0)
        : base(table, {count, rows, columns}, stride0, shift) {}
};

template <class T>
class layout_scalars : public detail::layout_view<T, kind::ca, dynamic> {
    using base = detail::layout_view<T, kind::ca, dynamic>;

public:
    using base::base;
    constexpr layout_scalars(T *const *table, std::ptrdiff_t count, std::ptrdiff_t shift = 0)
        : base(table, {count}, {}, shift) {}
};

template <class T>
class layout_vectors : public detail::layout_view<T, kind::va, dynamic, dynamic> {
    using base = detail::layout_view<T, kind::va, dynamic, dynamic>;

public:
    using base::base;
    constexpr layout_vectors(T *const *table, std::ptrdiff_t length, std::ptrdiff_t count,
                             std::ptrdiff_t stride2 = detail::size_of<T>, std::ptrdiff_t shift = 0)
        : base(table, {count, length}, {stride2}, shift) {}
};

/* strides: stride1, stride2. */
template <class T>
class layout_matrices : public detail::layout_view<T, kind::ma, dynamic, dynamic, dynamic> {
    using base = detail::layout_view<T, kind::ma, dynamic, dynamic, dynamic>;

public:
    using base::base;
    constexpr layout_matrices(T *const *table, std::ptrdiff_t rows, std::ptrdiff_t columns,
                              std::ptrdiff_t count, const std::array<std::ptrdiff_t, 2> &strides,
                              std::ptrdiff_t shift = 0)
        : base(table, {count, rows, columns}, strides, shift) {}
    constexpr layout_matrices(T *const *table, std::ptrdiff_t rows, std::ptrdiff_t columns,
                              std::ptrdiff_t count)
        : layout_matrices(table, rows, columns, count,
                          {detail::bytes_of<T>(1, columns), detail::size_of<T>}) {}
};

/* ---------------------------------------------------------------------------------------------- */
/* Views of views                                                                                 */
/* ---------------------------------------------------------------------------------------------- */

namespace detail {

/* A matrix or matrices used transposed: kinds t and ta. Where a destination or an operation knows
 * no such kind, strided memory becomes plain again by exchanged strides. */
template <class V>
class transposed_view
    : public view_base<typename V::element_type, V::used_as == kind::ma ? kind::ta : kind::t,
                       V::described> {
    static_assert(V::used_as == kind::m || V::used_as == kind::ma,
                  "only matrices can be transposed");

public:
    static constexpr int static_rows = V::static_columns, static_columns = V::static_rows;

    constexpr explicit transposed_view(const V &stored) : stored_(stored) {}
    constexpr const V &stored() const { return stored_; }
    constexpr int rows() const { return stored_.columns(); }
    constexpr int columns() const { return stored_.rows(); }
    template <class W = V>
    constexpr auto elements() const -> decltype(exchanged(std::declval<const W &>().elements())) {
        return exchanged(stored_.elements());
    }
    template <class W = V>
    constexpr auto count() const -> decltype(std::declval<const W &>().count()) {
        return stored_.count();
    }

private:
    V stored_;
};

} // namespace detail

/* The view of x: a view itself; else, by the number of indices that x has, one being a vector, two
 * a matrix, or vectors where x is a range of fixed-size vectors, three matrices. */
template <class X>
ZELM_FRONT constexpr auto view(X &&x) {
    using plain = std::remove_cv_t<std::remove_reference_t<X>>;
    if constexpr (detail::is_operand<plain>) {
        return plain(x);
    } else if constexpr (!detail::is_adaptable<std::remove_reference_t<X>>) {
        static_assert(detail::is_adaptable<std::remove_reference_t<X>>,
                      "this is no operand: a pointer needs sizes, as in zelm::vector(p, 3), a type "
                      "of your own needs object_traits; zelm/adapt.hpp lists what is known");
    } else if constexpr (detail::elements_t<X>::rank == 1) {
        return vector(x);
    } else if constexpr (detail::elements_t<X>::rank == 3) {
        return matrices(x);
    } else {
        static_assert(detail::elements_t<X>::rank == 2, "an operand has one, two or three indices");
        if constexpr (detail::is_array_of_objects<std::remove_reference_t<X>>)
            return vectors(x);
        else
            return matrix(x);
    }
}

/* The same matrix or matrices, used transposed. Twice is not at all. */
template <class X>
ZELM_FRONT constexpr auto transposed(X &&x) {
    const auto v = view(x);
    if constexpr (decltype(v)::used_as == kind::t || decltype(v)::used_as == kind::ta)
        return v.stored();
    else
        return detail::transposed_view(v);
}

/* Row i, column j and a block of a matrix, or of every matrix of an array, in strided memory.
 * Outside of it the pointer is null, the sizes of a block -1. */
template <class X>
constexpr auto row(X &&x, std::ptrdiff_t i) {
    const auto a = detail::elements(x);
    if constexpr (decltype(a)::rank == 2)
        return vector(detail::row_of(a, i));
    else
        return vectors(detail::row_of(a, i));
}
template <class X>
constexpr auto column(X &&x, std::ptrdiff_t j) {
    return row(transposed(x), j);
}
template <int Rows = dynamic, int Columns = dynamic, class X>
constexpr auto block(X &&x, std::ptrdiff_t row, std::ptrdiff_t column, std::ptrdiff_t rows = Rows,
                     std::ptrdiff_t columns = Columns) {
    const auto a = detail::block_of<Rows, Columns>(detail::elements(x), row, column, rows, columns);
    if constexpr (decltype(a)::rank == 2)
        return matrix(a);
    else
        return matrices(a);
}

/* The member m of every struct of a range, or of an array: scalars, vectors or matrices. */
template <class Range, class Class, class M>
auto member(Range &&range, M Class::*m) {
    auto *const objects = detail::data_of(range);
    const std::ptrdiff_t count = detail::length_of_range(range);
    auto *const first = count > 0 ? &(objects->*m) : nullptr;
    const auto all = detail::elements_of_objects(first, count, detail::size_of<decltype(*objects)>);
    if constexpr (decltype(all)::rank == 1)
        return scalars(all);
    else if constexpr (decltype(all)::rank == 2)
        return vectors(all);
    else
        return matrices(all);
}

/* Planar memory: element (i, j) of all objects is a run of count elements; these runs follow one
 * another in the order of a row-major matrix. */
template <class T>
constexpr matrices<T> planar(T *data, std::ptrdiff_t rows, std::ptrdiff_t columns,
                             std::ptrdiff_t count) {
    return {
        data,
        rows,
        columns,
        count,
        {detail::size_of<T>, detail::bytes_of<T>(columns, count), detail::bytes_of<T>(1, count)}};
}
template <class T>
constexpr vectors<T> planar(T *data, std::ptrdiff_t length, std::ptrdiff_t count) {
    return {data, length, count, {detail::size_of<T>, detail::bytes_of<T>(1, count)}};
}
template <int Rows, int Columns, class T>
constexpr matrices<T, Rows, Columns> planar(T *data, std::ptrdiff_t count) {
    return detail::strided<T, dynamic, Rows, Columns>{
        data,
        {count, Rows, Columns},
        {detail::size_of<T>, detail::bytes_of<T>(Columns, count), detail::bytes_of<T>(1, count)}};
}
template <int Length, class T>
constexpr vectors<T, Length> planar(T *data, std::ptrdiff_t count) {
    return {data, count, {detail::size_of<T>, detail::bytes_of<T>(1, count)}};
}

/* Matrices whose columns have no gaps. */
template <class T>
constexpr matrix<T> column_major(T *data, std::ptrdiff_t rows, std::ptrdiff_t columns) {
    return {data, rows, columns, {detail::size_of<T>, detail::bytes_of<T>(1, rows)}};
}
template <class T>
constexpr matrices<T> column_major(T *data, std::ptrdiff_t rows, std::ptrdiff_t columns,
                                   std::ptrdiff_t count) {
    return {data,
            rows,
            columns,
            count,
            {detail::bytes_of<T>(rows, columns), detail::size_of<T>, detail::bytes_of<T>(1, rows)}};
}

} // namespace zelm

#endif
