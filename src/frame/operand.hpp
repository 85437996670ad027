// Operands: where the objects of a call lie, as its arguments say it. Entries, checks and objects
// done alone work with them; arrays that are walked become Objects (objects.hpp).
//
// An operand is an array of objects or one object that stands for every object of the array; an
// object is a matrix (rank 2), a vector (rank 1, one row of len elements) or a constant (rank 0).
// There are three descriptions:
//
//   Standard  base + n*stride0 + i*stride1 + j*stride2
//   Layout    table[n] + shift + i*stride1 + j*stride2
//   Tabled    table[i*width + j] + shift + n*stride0       (the pointer description)
//
// All distances are bytes. A view is one object: strided (Standard and Layout) or tabled.
#pragma once

#include "lanes.hpp"
#include "zelm.h"

#include <cstddef>
#include <cstdint>
#include <tuple>

namespace zelm {

using Distance = std::ptrdiff_t; // bytes

template <class T>
using ByteOf = std::conditional_t<std::is_const_v<T>, const char, char>;

// ---- views of one object ------------------------------------------------------------------------

template <class T>
struct StridedView {
    ByteOf<T> *base;
    Distance stride1, stride2;

    ZELM_INLINE ByteOf<T> *at(int i, int j) const { return base + i * stride1 + j * stride2; }
};

template <class T, int rank>
ZELM_INLINE StridedView<T> strided_view(ByteOf<T> *object, int stride1, int stride2,
                                        bool exchanged) {
    if constexpr (rank == 2)
        return exchanged ? StridedView<T>{object, stride2, stride1}
                         : StridedView<T>{object, stride1, stride2};
    else
        return {object, 0, rank == 1 ? stride2 : 0};
}

template <class T>
struct TabledView {
    T *const *table;
    int row, column; // entries from row to row, from column to column
    Distance offset;

    ZELM_INLINE ByteOf<T> *at(int i, int j) const {
        return reinterpret_cast<ByteOf<T> *>(entry(i, j)) + offset;
    }
    // The address as a number, of a null entry too.
    ZELM_INLINE std::uintptr_t number(int i, int j) const {
        return reinterpret_cast<std::uintptr_t>(entry(i, j)) + static_cast<std::uintptr_t>(offset);
    }

private:
    ZELM_INLINE T *entry(int i, int j) const {
        return table[static_cast<std::size_t>(i) * static_cast<std::size_t>(row) +
                     static_cast<std::size_t>(j) * static_cast<std::size_t>(column)];
    }
};

template <class T, template <class> class View>
ZELM_INLINE std::remove_const_t<T> get(const View<T> &v, int i, int j) {
    return load<std::remove_const_t<T>>(v.at(i, j));
}
template <class T, template <class> class View>
ZELM_INLINE void put(const View<T> &v, int i, int j, T x) {
    store<T>(v.at(i, j), x);
}

// ---- operands -----------------------------------------------------------------------------------

enum class Description { standard, pointer, layout };

struct Shape {
    int height, width;
};

// The elements of an object that an operation touches: row i from its first column on. Others are
// not looked at; in a table their pointers may be null.
struct Whole {
    static constexpr int width(int, int columns) { return columns; }
};
struct LowerTriangle {
    static constexpr int width(int i, int columns) { return i < columns ? i + 1 : columns; }
};

// packed() is about the call's own stride2: it chooses limits, and the method where that depends on
// the arguments. What a kernel needs to know of adjacent elements it asks the view, which is the
// object as it enters the operation.

template <class T, int rank, bool array>
struct Standard {
    using Type = T;
    using Element = std::remove_const_t<T>;
    static constexpr bool is_array = array, is_tabled = false, has_table = false;
    static constexpr int object_rank = rank;

    T *base;
    int stride0, stride1, stride2;
    bool exchanged = false; // used transposed: the same memory with stride1 and stride2 exchanged

    ZELM_INLINE Distance step() const { return array ? stride0 : 0; }
    ZELM_INLINE ByteOf<T> *object(int n) const {
        return reinterpret_cast<ByteOf<T> *>(base) + n * step();
    }
    ZELM_INLINE StridedView<T> view(int n) const {
        return strided_view<T, rank>(object(n), stride1, stride2, exchanged);
    }
    ZELM_INLINE bool packed() const { return rank == 0 || stride2 == int{sizeof(T)}; }
    ZELM_INLINE bool planar() const { return array && stride0 == int{sizeof(T)}; }
    ZELM_INLINE Standard from(int first) const {
        return {reinterpret_cast<T *>(object(first)), stride0, stride1, stride2, exchanged};
    }
    ZELM_INLINE Standard transposed() const {
        return {base, stride0, stride1, stride2, !exchanged};
    }
    // A vector as a matrix of one column.
    ZELM_INLINE Standard<T, 2, array> as_column() const {
        return {base, stride0, stride2, sizeof(T)};
    }
    ZELM_INLINE Standard<T, 2, array> as_row() const { return {base, stride0, 0, stride2}; }
};

template <class T, int rank>
struct Layout {
    using Type = T;
    using Element = std::remove_const_t<T>;
    static constexpr bool is_array = true, is_tabled = false, has_table = true;
    static constexpr int object_rank = rank;

    T *const *table;
    int shift, stride1, stride2;
    bool exchanged = false;

    ZELM_INLINE ByteOf<T> *object(int n) const {
        return reinterpret_cast<ByteOf<T> *>(table[n]) + shift;
    }
    ZELM_INLINE StridedView<T> view(int n) const {
        return strided_view<T, rank>(object(n), stride1, stride2, exchanged);
    }
    ZELM_INLINE bool packed() const { return rank == 0 || stride2 == int{sizeof(T)}; }
    ZELM_INLINE Layout from(int first) const {
        return {table + first, shift, stride1, stride2, exchanged};
    }
    ZELM_INLINE Layout transposed() const { return {table, shift, stride1, stride2, !exchanged}; }
    ZELM_INLINE Layout<T, 2> as_column() const { return {table, shift, stride2, sizeof(T)}; }
    ZELM_INLINE Layout<T, 2> as_row() const { return {table, shift, 0, stride2}; }
};

template <class T, int rank, bool array>
struct Tabled {
    using Type = T;
    using Element = std::remove_const_t<T>;
    static constexpr bool is_array = array, is_tabled = true, has_table = false;
    static constexpr int object_rank = rank;

    T *const *table;
    int shift, stride0;
    Distance moved = 0;     // the objects of this operand start here
    bool exchanged = false; // the table lists the transposed object

    ZELM_INLINE Distance step() const { return array ? stride0 : 0; }
    ZELM_INLINE Distance offset(int n) const { return shift + moved + n * step(); }
    // The shape is that of the object as it enters the operation.
    ZELM_INLINE TabledView<T> view(int n, Shape s) const {
        return {table, exchanged ? 1 : s.width, exchanged ? s.height : 1, offset(n)};
    }
    ZELM_INLINE bool packed() const { return true; }
    ZELM_INLINE bool planar() const { return array && stride0 == int{sizeof(T)}; }
    ZELM_INLINE Tabled from(int first) const {
        return {table, shift, stride0, moved + first * step(), exchanged};
    }
    ZELM_INLINE Tabled transposed() const { return {table, shift, stride0, moved, !exchanged}; }
    ZELM_INLINE Tabled<T, 2, array> as_column() const { return {table, shift, stride0, moved}; }
};

// A constant by value: every element of every object.
template <class T>
struct Constant {
    using Type = const T;
    using Element = T;
    static constexpr bool is_array = false, is_tabled = false, has_table = false;
    static constexpr int object_rank = 0;

    T value;

    ZELM_INLINE Distance step() const { return 0; }
    ZELM_INLINE const char *object(int) const { return reinterpret_cast<const char *>(&value); }
    ZELM_INLINE StridedView<const T> view(int) const { return {object(0), 0, 0}; }
    ZELM_INLINE bool packed() const { return true; }
    ZELM_INLINE Constant from(int) const { return *this; }
};

// One adjacent element for each object: results that are scalars.
template <class T>
struct Scalars {
    using Type = T;
    using Element = T;
    static constexpr bool is_array = true, is_tabled = false, has_table = false;
    static constexpr int object_rank = 0;

    T *base;

    ZELM_INLINE Distance step() const { return sizeof(T); }
    ZELM_INLINE char *object(int n) const { return reinterpret_cast<char *>(base) + n * step(); }
    ZELM_INLINE StridedView<T> view(int n) const { return {object(n), 0, 0}; }
    ZELM_INLINE Scalars from(int first) const { return {reinterpret_cast<T *>(object(first))}; }
};

// Objects without gaps inside or between.
template <class T>
struct Buffer {
    using Type = T;
    using Element = T;
    static constexpr bool is_array = true, is_tabled = false, has_table = false;
    static constexpr int object_rank = 2;

    T *base;
    Shape shape;

    ZELM_INLINE Distance row() const { return shape.width * Distance{sizeof(T)}; }
    ZELM_INLINE Distance step() const { return shape.height * row(); }
    ZELM_INLINE char *object(int n) const { return reinterpret_cast<char *>(base) + n * step(); }
    ZELM_INLINE StridedView<T> view(int n) const { return {object(n), row(), sizeof(T)}; }
};

// Row numbers, `length` for each object; length 0 is one row for all of them.
template <class Int>
struct IndexRows {
    Int *base;
    int length;
    ZELM_INLINE Int *row(int n) const { return base + static_cast<Distance>(n) * length; }
    ZELM_INLINE IndexRows from(int first) const { return {row(first), length}; }
};

// One object of any operand; strided views need no shape.
template <class Operand>
ZELM_INLINE auto view(const Operand &op, int n, [[maybe_unused]] Shape s) {
    if constexpr (Operand::is_tabled)
        return op.view(n, s);
    else
        return op.view(n);
}

// Whether the elements of a row are adjacent.
template <class Operand>
ZELM_INLINE bool rows_adjacent(const Operand &op) {
    if constexpr (Operand::is_tabled)
        return false;
    else
        return op.view(0).stride2 == Distance{sizeof(typename Operand::Type)};
}

// Whether the elements of a matrix of one column are adjacent.
template <class Operand>
ZELM_INLINE bool column_adjacent(const Operand &op) {
    return op.view(0).stride1 == Distance{sizeof(typename Operand::Type)};
}

// Zero where a standard operand's objects, `width` elements to the row as they enter the operation,
// have no gaps inside. Such strides need no further check.
template <class T, int rank, bool array>
ZELM_INLINE int gaps(const Standard<T, rank, array> &op, int width) {
    const auto bits = [](int stride) { return static_cast<unsigned>(stride); };
    const unsigned row = static_cast<unsigned>(width) * unsigned{sizeof(T)}; // may wrap: no match
    const unsigned inner = bits(op.exchanged ? op.stride1 : op.stride2);
    const unsigned outer = bits(op.exchanged ? op.stride2 : op.stride1);
    return static_cast<int>((inner ^ unsigned{sizeof(T)}) | (outer ^ row));
}

// Whether a strided operand's objects, as they enter the operation, have no gaps inside; whether
// there are none between those of an array either. One comparison each.
template <class Operand>
ZELM_INLINE bool has_dense_objects(const Operand &op, Shape s) {
    constexpr Distance element = sizeof(typename Operand::Type);
    const auto v = op.view(0);
    return ((s.width == 1 ? 0 : v.stride2 ^ element) |
            (s.height == 1 ? 0 : v.stride1 ^ (s.width * element))) == 0;
}
template <class Operand>
ZELM_INLINE bool is_gapless(const Operand &op, Shape s) {
    constexpr Distance element = sizeof(typename Operand::Type);
    if constexpr (Operand::is_array && !Operand::has_table)
        if (op.step() != s.height * (s.width * element))
            return false;
    return has_dense_objects(op, s);
}

// The description that a destination array is in.
template <class Operand>
inline constexpr Description description_of = Operand::is_tabled   ? Description::pointer
                                              : Operand::has_table ? Description::layout
                                                                   : Description::standard;

// A strided operand of a fixed shape without gaps, inside the objects nor between those of an
// array: the distances are known to the compiler.
template <class Operand, int H, int W>
struct Gapless {
    using Type = typename Operand::Type;
    using Element = typename Operand::Element;
    static constexpr bool is_array = Operand::is_array, is_tabled = false;
    static constexpr bool has_table = Operand::has_table;
    static constexpr Distance row = W * Distance{sizeof(Type)};

    Operand operand;

    ZELM_INLINE ByteOf<Type> *object(int n) const {
        if constexpr (is_array && !has_table)
            return operand.object(0) + n * (H * row);
        else
            return operand.object(n);
    }
    ZELM_INLINE StridedView<Type> view(int n) const { return {object(n), row, sizeof(Type)}; }
};
template <int H, int W, class Operand>
ZELM_INLINE Gapless<Operand, H, W> as_gapless(const Operand &op) {
    return {op};
}

} // namespace zelm
