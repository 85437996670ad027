// Arrays of objects as the parts of the frame see them that are compiled once: any description, any
// element type. And the forms that kernels of a fixed shape are compiled for.
#pragma once

#include "operand.hpp"

namespace zelm {

struct Objects {
    Description description;
    bool lower;       // the elements on and below the diagonal alone
    bool written;     // else read
    bool numbers;     // of rows, which stay as they are where other arrays pass as planes
    int element_size; // bytes
    Shape shape;
    char *base;       // object 0, or the table
    Distance step;    // bytes from object to object; of a layout 0
    Distance offset;  // bytes, added to what a table says
    Distance stride1; // from row to row: bytes, in the pointer description entries of the table
    Distance stride2; // from element to element of a row, likewise

    ZELM_INLINE char *object(int n) const { // not in the pointer description
        return description == Description::layout
                   ? load<char *>(base + n * Distance{sizeof(char *)}) + offset
                   : base + n * step;
    }
    // Element (i, j) of object 0 in the pointer description.
    ZELM_INLINE char *entry(int i, int j) const {
        return load<char *>(base + (i * stride1 + j * stride2) * Distance{sizeof(char *)}) + offset;
    }
    ZELM_INLINE char *element(int n, int i, int j) const {
        return description == Description::pointer ? entry(i, j) + n * step
                                                   : object(n) + i * stride1 + j * stride2;
    }
    // The elements of row i that the operation touches.
    ZELM_INLINE int width(int i) const {
        return lower ? LowerTriangle::width(i, shape.width) : shape.width;
    }
    // The array from object n on.
    ZELM_INLINE Objects from(int n) const {
        Objects rest = *this;
        if (description == Description::layout)
            rest.base += n * Distance{sizeof(char *)};
        else if (description == Description::pointer)
            rest.offset += n * step;
        else
            rest.base += n * step;
        return rest;
    }

    // The same element of consecutive objects is adjacent.
    ZELM_INLINE bool is_planar() const {
        return description != Description::layout && step == element_size;
    }
    // A kernel by planes takes the array as it is.
    ZELM_INLINE bool serves_as_planes() const {
        return numbers || (description == Description::standard && is_planar());
    }
    ZELM_INLINE bool has_adjacent_rows() const {
        return description != Description::pointer && (shape.width == 1 || stride2 == element_size);
    }
    // There are no gaps inside the objects, nor between them.
    ZELM_INLINE bool is_dense() const {
        return description == Description::standard && has_adjacent_rows() &&
               (shape.height == 1 || stride1 == shape.width * Distance{element_size});
    }
    ZELM_INLINE bool is_gapless() const {
        return is_dense() && step == shape.height * (shape.width * Distance{element_size});
    }
};

// Elements of object 0.
template <class T>
ZELM_INLINE T get(const Objects &o, int i, int j) {
    return load<T>(o.element(0, i, j));
}
template <class T>
ZELM_INLINE void put(const Objects &o, int i, int j, T x) {
    store<T>(o.element(0, i, j), x);
}

namespace detail {
template <class T>
ZELM_INLINE Objects objects(Description d, Shape shape, const void *base, Distance step,
                            Distance offset, Distance stride1, Distance stride2) {
    return {d,
            false,
            !std::is_const_v<T>,
            false,
            sizeof(T),
            shape,
            const_cast<char *>(static_cast<const char *>(base)),
            step,
            offset,
            stride1,
            stride2};
}
} // namespace detail

template <class T, int rank, bool array>
ZELM_INLINE Objects objects(const Standard<T, rank, array> &op, Shape shape) {
    const auto v = op.view(0);
    return detail::objects<T>(Description::standard, shape, v.base, op.step(), 0, v.stride1,
                              v.stride2);
}
template <class T, int rank>
ZELM_INLINE Objects objects(const Layout<T, rank> &op, Shape shape) {
    const auto v = strided_view<T, rank>(nullptr, op.stride1, op.stride2, op.exchanged);
    return detail::objects<T>(Description::layout, shape, op.table, 0, op.shift, v.stride1,
                              v.stride2);
}
template <class T, int rank, bool array>
ZELM_INLINE Objects objects(const Tabled<T, rank, array> &op, Shape shape) {
    const auto v = op.view(0, shape);
    return detail::objects<T>(Description::pointer, shape, op.table, op.step(), v.offset, v.row,
                              v.column);
}
template <class T>
ZELM_INLINE Objects objects(const Constant<T> &op, Shape shape) { // as long as the operand lives
    return detail::objects<const T>(Description::standard, shape, &op.value, 0, 0, 0, 0);
}
template <class T>
ZELM_INLINE Objects objects(const Scalars<T> &op, Shape) {
    return detail::objects<T>(Description::standard, {1, 1}, op.base, op.step(), 0, 0, 0);
}
template <class T>
ZELM_INLINE Objects objects(const Buffer<T> &op, Shape shape) {
    return detail::objects<T>(Description::standard, shape, op.base, op.step(), 0, op.row(),
                              sizeof(T));
}
template <class Int>
ZELM_INLINE Objects objects(const IndexRows<Int> &op, Shape shape) {
    Objects o = detail::objects<Int>(Description::standard, {1, shape.width}, op.base,
                                     op.length * Distance{sizeof(Int)}, 0, 0, sizeof(Int));
    o.numbers = true;
    return o;
}
template <class Part, class Operand>
ZELM_INLINE Objects objects_of_part(const Operand &op, Shape shape) {
    Objects o = objects(op, shape);
    o.lower = std::is_same_v<Part, LowerTriangle>;
    return o;
}

ZELM_INLINE Objects transposed(Objects o) {
    std::swap(o.shape.height, o.shape.width);
    std::swap(o.stride1, o.stride2);
    return o;
}
// Vectors as matrices of one column.
ZELM_INLINE Objects as_column(Objects o) {
    o.shape = {o.shape.width, 1};
    o.stride1 = o.stride2;
    return o;
}

// ---- forms --------------------------------------------------------------------------------------
// A kernel of a fixed shape is compiled for each way in which its arrays may lie.

// Strided objects without gaps inside: the distances are known to the compiler; with `gapless`
// those between objects too.
template <class T, int H, int W, bool gapless = false>
struct Dense {
    using Type = T;
    using Element = std::remove_const_t<T>;

    char *base;
    Distance stride0;

    explicit Dense(const Objects &o) : base(o.base), stride0(o.step) {}
    ZELM_INLINE Dense(const void *first, Distance step)
        : base(const_cast<char *>(static_cast<const char *>(first))), stride0(step) {}

    ZELM_INLINE Distance step() const { return gapless ? H * W * Distance{sizeof(T)} : stride0; }
    ZELM_INLINE char *object(int n) const { return base + n * step(); }
};

// Adjacent elements in every row, an address for each object.
template <class T, int H, int W>
struct ByRows {
    using Type = T;
    using Element = std::remove_const_t<T>;

    char *base;
    bool is_table; // of objects
    Distance step, offset, stride1;

    explicit ByRows(const Objects &o)
        : base(o.base),
          is_table(o.description == Description::layout),
          step(o.step),
          offset(o.offset),
          stride1(o.stride1) {}
};

// Planar strided memory: the same element of consecutive objects is adjacent. Of larger objects the
// address of every element is kept in memory, where that costs less than registers for distances.
template <class T, int H, int W, class Part>
struct Planes {
    using Type = T;
    using Element = std::remove_const_t<T>;
    static constexpr bool lists_addresses = H * W > 9;

    char *base;
    Distance stride1, stride2;
    char *at[lists_addresses ? H * W : 1];

    explicit Planes(const Objects &o) : base(o.base), stride1(o.stride1), stride2(o.stride2) {
        if constexpr (lists_addresses)
            for (int i = 0; i < H; ++i)
                for (int j = 0; j < W; ++j)
                    at[i * W + j] = base + i * stride1 + j * stride2;
    }
    // Element (i, j) of object n.
    ZELM_INLINE char *element(int n, int i, int j) const {
        const Distance offset = n * Distance{sizeof(T)};
        if constexpr (lists_addresses)
            return at[i * W + j] + offset;
        else
            return base + offset + i * stride1 + j * stride2;
    }
    // Of a row whose number is not known when compiling.
    ZELM_INLINE char *element_of_row(int n, Distance row, int j) const {
        return base + n * Distance{sizeof(T)} + row * stride1 + j * stride2;
    }
};

// Objects, or a single one, whose rows have adjacent elements, for kernels that go object by
// object.
template <class T, bool array, bool table>
struct AdjacentRows {
    using Type = T;
    using Element = std::remove_const_t<T>;
    static constexpr bool is_array = array;

    char *base;
    Distance step, offset, stride1;

    explicit AdjacentRows(const Objects &o)
        : base(o.base), step(o.step), offset(o.offset), stride1(o.stride1) {}

    ZELM_INLINE char *object(int n) const {
        if constexpr (!array)
            return base;
        else if constexpr (table)
            return load<char *>(base + n * Distance{sizeof(char *)}) + offset;
        else
            return base + n * step;
    }
    ZELM_INLINE StridedView<T> view(int n) const { return {object(n), stride1, sizeof(T)}; }
};

template <class Operand>
inline constexpr bool is_dense = false;
template <class T, int H, int W, bool gapless>
inline constexpr bool is_dense<Dense<T, H, W, gapless>> = true;

// ---- tables with even distances -----------------------------------------------------------------

// A table of elements whose entries are rows and columns at even distances says the same as two
// strides: returns strided objects. All others are returned as they are.
Objects with_even_strides(const Objects &o);

// An operand and the shape of its objects.
template <class Operand>
struct Shaped {
    const Operand &operand;
    Shape shape;
};
template <class Operand>
ZELM_INLINE Shaped<Operand> shaped(const Operand &op, Shape shape) {
    return {op, shape};
}
namespace detail {
template <class Operand>
struct Strided { // what is no table
    using Type = Operand;
    static constexpr bool was_table = false;
    ZELM_INLINE static bool find(const Shaped<Operand> &op, Operand &same) {
        same = op.operand;
        return true;
    }
};
template <class T, int rank, bool array>
struct Strided<Tabled<T, rank, array>> {
    using Type = Standard<T, rank, array>;
    static constexpr bool was_table = true;
    static bool find(const Shaped<Tabled<T, rank, array>> &op, Type &same) {
        const Objects o = with_even_strides(objects(op.operand, op.shape));
        same = {reinterpret_cast<T *>(o.base), op.operand.stride0, static_cast<int>(o.stride1),
                static_cast<int>(o.stride2)};
        return o.description == Description::standard;
    }
};
} // namespace detail

// f(operands...), with strided operands in the place of tables if all tables are regular.
template <class F, class... Operands>
ZELM_INLINE auto with_strides(const F &f, const Shaped<Operands> &...op) {
    if constexpr ((detail::Strided<Operands>::was_table || ...)) {
        std::tuple<typename detail::Strided<Operands>::Type...> same;
        const bool regular = std::apply(
            [&](auto &...to) { return (detail::Strided<Operands>::find(op, to) && ...); }, same);
        if (regular)
            return std::apply(f, same);
    }
    return f(op.operand...);
}

// ---- copies of any objects ----------------------------------------------------------------------

// Objects 0 ... n - 1 to another array of their shape and part; the two are apart.
void copy_objects(const Objects &from, const Objects &to, int n);
// The same where one array is planar and the other's objects have rows long enough for registers.
// Returns whether that is so; if not, nothing is done.
template <class T>
bool move_between_planes_and_rows(const Objects &from, const Objects &to, int count);

} // namespace zelm
