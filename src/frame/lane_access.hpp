// Lane groups in and out of memory: lane l of a register holds one element of object first + l.
//
// Groups of a fixed shape are loaded in the form that their kernel is compiled for: dense objects
// and rows by loads along each object's rows and a transpose, planes by one register load per
// element. A group is always full: the walk stages what is not.
#pragma once

#include "interleaved.hpp"
#include "objects.hpp"
#include "row_numbers.hpp"
#include "runs.hpp"

namespace zelm {

// Rows of a register array by number: out row r is in row rows(r), or the inverse of that.
template <class T, bool inverse, int H, int W, class Rows>
ZELM_INLINE void permute_rows(Lanes<T> (&out)[H][W], const Lanes<T> (&in)[H][W], const Rows &rows) {
    unroll<H>(ZELM_EACH(r) {
        unroll<W>(ZELM_EACH(j) { out[r][j] = in[0][j]; });
        unroll<1, H>(ZELM_EACH(i) {
            const auto here = inverse ? rows.all_lanes(i) == splat_index<Lanes<T>>(r)
                                      : rows.all_lanes(r) == splat_index<Lanes<T>>(i);
            unroll<W>(ZELM_EACH(j) { out[r][j] = select(here, in[i][j], out[r][j]); });
        });
    });
}

// Planar memory's rows by number: whole registers and selects, or accesses lane by lane. A select
// chooses among all rows, so the more rows there are for each lane the less it pays; a lane is
// stored less easily than it is loaded.
template <class T, int H, class Rows>
inline constexpr bool loads_registers = Rows::natural || H < lanes_per_register<T>;
template <class T, class Rows>
inline constexpr bool stores_registers = Rows::natural || lanes_per_register<T> > 2;

// The addresses of the lanes' objects.
template <class T, int H, int W, bool gapless>
ZELM_INLINE void lane_objects(char *(&base)[lanes_per_register<std::remove_const_t<T>>],
                              const Dense<T, H, W, gapless> &op, int first) {
    base[0] = op.object(first);
    unroll<1, lanes_per_register<std::remove_const_t<T>>>(
        ZELM_EACH(l) { base[l] = base[l - 1] + op.step(); });
}
template <class T, int H, int W>
ZELM_INLINE void lane_objects(char *(&base)[lanes_per_register<std::remove_const_t<T>>],
                              const ByRows<T, H, W> &op, int first) {
    constexpr int L = lanes_per_register<std::remove_const_t<T>>;
    if (op.is_table) {
        const char *const table = op.base + first * Distance{sizeof(char *)};
        unroll<L>(ZELM_EACH(l) {
            base[l] = load<char *>(table + l * Distance{sizeof(char *)}) + op.offset;
        });
    } else {
        base[0] = op.base + first * op.step;
        unroll<1, L>(ZELM_EACH(l) { base[l] = base[l - 1] + op.step; });
    }
}

// Elements (i, j) of all lanes at at(i, j), rows by number.
template <class T, class Part, int H, int W, class Rows, class At>
ZELM_INLINE void load_planes(Lanes<T> (&a)[H][W], const Rows &rows, const At &at) {
    Lanes<T> b[H][W];
    unroll<H>(ZELM_EACH(i) {
        unroll<Part::width(i, W)>(ZELM_EACH(j) { b[i][j] = load<Lanes<T>>(at(i, j)); });
    });
    if constexpr (Rows::natural)
        unroll<H>(ZELM_EACH(i) { unroll<Part::width(i, W)>(ZELM_EACH(j) { a[i][j] = b[i][j]; }); });
    else
        permute_rows<T, false>(a, b, rows);
}
template <class T, class Part, int H, int W, class Rows, class At>
ZELM_INLINE void store_planes(const Lanes<T> (&a)[H][W], const Rows &rows, const At &at) {
    Lanes<T> b[H][W];
    if constexpr (Rows::natural)
        unroll<H>(ZELM_EACH(i) { unroll<Part::width(i, W)>(ZELM_EACH(j) { b[i][j] = a[i][j]; }); });
    else
        permute_rows<T, true>(b, a, rows);
    unroll<H>(ZELM_EACH(i) {
        unroll<Part::width(i, W)>(ZELM_EACH(j) { store<Lanes<T>>(at(i, j), b[i][j]); });
    });
}

// Row by row, each lane's from base[lane] on.
template <class T, class Part, int H, int W, class Rows, class Byte>
ZELM_INLINE void load_rows(Lanes<T> (&a)[H][W], Byte *const (&base)[lanes_per_register<T>],
                           Distance stride1, const Rows &rows) {
    unroll<H>(ZELM_EACH(i) {
        const char *row[lanes_per_register<T>];
        unroll<lanes_per_register<T>>(
            ZELM_EACH(l) { row[l] = base[l] + row_of(rows, i, l) * stride1; });
        load_runs<T, Part::width(i, W)>(a[i], row);
    });
}
template <class T, class Part, int H, int W, class Rows>
ZELM_INLINE void store_rows(const Lanes<T> (&a)[H][W], char *const (&base)[lanes_per_register<T>],
                            Distance stride1, const Rows &rows) {
    unroll<H>(ZELM_EACH(i) {
        char *row[lanes_per_register<T>];
        unroll<lanes_per_register<T>>(
            ZELM_EACH(l) { row[l] = base[l] + row_of(rows, i, l) * stride1; });
        store_runs<T, Part::width(i, W)>(row, a[i]);
    });
}
// Whether a row holds whole registers, so that an object without gaps is best taken row by row.
template <class T, int H, int W>
inline constexpr bool rows_fill_registers = H == 1 || W % lanes_per_register<T> == 0;

// A single object in every lane, row by row; a row by its number, if there are numbers.
template <class T>
[[gnu::noinline]] void load_splat(Lanes<T> *a, const Objects &o, const int *numbers = nullptr) {
    for (int i = 0; i < o.shape.height; ++i)
        for (int j = 0; j < o.width(i); ++j)
            a[i * o.shape.width + j] =
                splat<Lanes<T>>(load<T>(o.element(0, numbers == nullptr ? i : numbers[i], j)));
}

// ---- groups of a fixed shape, in each form ------------------------------------------------------
// Row i of `a` is row i of each lane's object, or row rows(i, lane); of a Part its elements alone.
// In dense objects the bytes between these may be read.

template <class T, class Part = Whole, int H, int W, class E, bool gapless,
          class Rows = NaturalRows<T>>
ZELM_INLINE void load_lanes(Lanes<T> (&a)[H][W], const Dense<E, H, W, gapless> &op, int first,
                            const Rows &rows = {}) {
    if constexpr (Rows::natural && H * W == 3)
        if (op.step() == 3 * Distance{sizeof(T)}) {
            const char *const at = op.object(first);
            Lanes<T> t[3];
            unroll<3>(ZELM_EACH(r) { t[r] = load<Lanes<T>>(at + r * register_bytes); });
            split_triples(t);
            unroll<3>(ZELM_EACH(r) { a[r / W][r % W] = t[r]; });
            return;
        }
    char *base[lanes_per_register<T>];
    lane_objects(base, op, first);
    if constexpr (Rows::natural)
        load_runs<T, H * W>(a[0], base);
    else
        load_rows<T, Part>(a, base, W * Distance{sizeof(T)}, rows);
}
template <class T, class Part = Whole, int H, int W, class E, class Rows = NaturalRows<T>>
ZELM_INLINE void load_lanes(Lanes<T> (&a)[H][W], const ByRows<E, H, W> &op, int first,
                            const Rows &rows = {}) {
    char *base[lanes_per_register<T>];
    lane_objects(base, op, first);
    if constexpr (Rows::natural && !rows_fill_registers<T, H, W>)
        if (op.stride1 == W * Distance{sizeof(T)})
            return load_runs<T, H * W>(a[0], base);
    load_rows<T, Part>(a, base, op.stride1, rows);
}
template <class T, class Part = Whole, int H, int W, class E, class Rows = NaturalRows<T>>
ZELM_INLINE void load_lanes(Lanes<T> (&a)[H][W], const Planes<E, H, W, Part> &op, int first,
                            const Rows &rows = {}) {
    if constexpr (loads_registers<T, H, Rows>)
        load_planes<T, Part>(
            a, rows, [&](int i, int j) __attribute__((always_inline)) {
                return op.element(first, i, j);
            });
    else
        unroll<H>(ZELM_EACH(i) {
            unroll<Part::width(i, W)>(ZELM_EACH(j) {
                const char *at[lanes_per_register<T>];
                unroll<lanes_per_register<T>>(
                    ZELM_EACH(l) { at[l] = op.element_of_row(first + l, rows(i, l), j); });
                a[i][j] = gather<T>(at, 0);
            });
        });
}

// Row i of `a` goes to row i of each lane's object, or to row rows(i, lane).
template <class T, class Part = Whole, int H, int W, bool gapless, class Rows = NaturalRows<T>>
ZELM_INLINE void store_lanes(const Dense<T, H, W, gapless> &op, int first,
                             const Lanes<T> (&a)[H][W], const Rows &rows = {}) {
    if constexpr (Rows::natural && H * W == 3)
        if (op.step() == 3 * Distance{sizeof(T)}) {
            char *const at = op.object(first);
            Lanes<T> t[3];
            unroll<3>(ZELM_EACH(r) { t[r] = a[r / W][r % W]; });
            join_triples(t);
            unroll<3>(ZELM_EACH(r) { store<Lanes<T>>(at + r * register_bytes, t[r]); });
            return;
        }
    char *base[lanes_per_register<T>];
    lane_objects(base, op, first);
    if constexpr (Rows::natural && std::is_same_v<Part, Whole>)
        store_runs<T, H * W>(base, a[0]);
    else
        store_rows<T, Part>(a, base, W * Distance{sizeof(T)}, rows);
}
template <class T, class Part = Whole, int H, int W, class Rows = NaturalRows<T>>
ZELM_INLINE void store_lanes(const ByRows<T, H, W> &op, int first, const Lanes<T> (&a)[H][W],
                             const Rows &rows = {}) {
    char *base[lanes_per_register<T>];
    lane_objects(base, op, first);
    if constexpr (Rows::natural && std::is_same_v<Part, Whole> && !rows_fill_registers<T, H, W>)
        if (op.stride1 == W * Distance{sizeof(T)})
            return store_runs<T, H * W>(base, a[0]);
    store_rows<T, Part>(a, base, op.stride1, rows);
}
template <class T, class Part = Whole, int H, int W, class Rows = NaturalRows<T>>
ZELM_INLINE void store_lanes(const Planes<T, H, W, Part> &op, int first, const Lanes<T> (&a)[H][W],
                             const Rows &rows = {}) {
    if constexpr (stores_registers<T, Rows>)
        store_planes<T, Part>(
            a, rows, [&](int i, int j) __attribute__((always_inline)) {
                return op.element(first, i, j);
            });
    else
        unroll<H>(ZELM_EACH(i) {
            unroll<Part::width(i, W)>(ZELM_EACH(j) {
                char *at[lanes_per_register<T>];
                unroll<lanes_per_register<T>>(
                    ZELM_EACH(l) { at[l] = op.element_of_row(first + l, rows(i, l), j); });
                scatter<T>(at, 0, a[i][j]);
            });
        });
}

// ---- groups whose form is known at run time -----------------------------------------------------

// One object in each of L lanes: an address for each, the same signed distances in all.
template <class T, int L = lanes_per_register<std::remove_const_t<T>>>
struct LaneObjects {
    using Type = T;
    using Element = std::remove_const_t<T>;

    ByteOf<T> *at[L];
    Distance stride1, stride2;
    bool is_planar; // the lanes' elements are adjacent

    ZELM_INLINE StridedView<T> view(int lane) const { return {at[lane], stride1, stride2}; }
    // Of the lanes from `lane` on.
    template <int fewer>
    ZELM_INLINE LaneObjects<T, fewer> part(int lane) const {
        LaneObjects<T, fewer> p;
        for (int l = 0; l < fewer; ++l)
            p.at[l] = at[lane + l];
        p.stride1 = stride1;
        p.stride2 = stride2;
        p.is_planar = is_planar;
        return p;
    }
    // Rows and columns exchanged.
    ZELM_INLINE LaneObjects transposed() const {
        LaneObjects t = *this;
        t.stride1 = stride2;
        t.stride2 = stride1;
        return t;
    }
    // Column j as a matrix of one column.
    ZELM_INLINE LaneObjects column(int j) const {
        LaneObjects c = *this;
        for (auto &p : c.at)
            p += j * stride2;
        return c;
    }
};

template <class Operand>
inline constexpr bool is_lane_objects = false;
template <class T, int L>
inline constexpr bool is_lane_objects<LaneObjects<T, L>> = true;

template <class T, class Part = Whole, int H, int W, class E, class Rows = NaturalRows<T>>
ZELM_INLINE void load_lanes(Lanes<T> (&a)[H][W], const LaneObjects<E> &op, int,
                            const Rows &rows = {}) {
    if constexpr (loads_registers<T, H, Rows>)
        if (op.is_planar)
            return load_planes<T, Part>(
                a, rows, [&](int i, int j) __attribute__((always_inline)) {
                    return op.view(0).at(i, j);
                });
    const bool adjacent = W == 1 || op.stride2 == Distance{sizeof(T)};
    if (Rows::natural && adjacent && (H == 1 || op.stride1 == W * Distance{sizeof(T)})) {
        load_runs<T, H * W>(a[0], op.at);
    } else if (adjacent) {
        load_rows<T, Part>(a, op.at, op.stride1, rows);
    } else {
        unroll<H>(ZELM_EACH(i) {
            const char *row[lanes_per_register<T>];
            unroll<lanes_per_register<T>>(
                ZELM_EACH(l) { row[l] = op.at[l] + row_of(rows, i, l) * op.stride1; });
            unroll<Part::width(i, W)>(ZELM_EACH(j) { a[i][j] = gather<T>(row, j * op.stride2); });
        });
    }
}
template <class T, class Part = Whole, int H, int W, class Rows = NaturalRows<T>>
ZELM_INLINE void store_lanes(const LaneObjects<T> &op, int, const Lanes<T> (&a)[H][W],
                             const Rows &rows = {}) {
    if constexpr (stores_registers<T, Rows>)
        if (op.is_planar)
            return store_planes<T, Part>(
                a, rows, [&](int i, int j) __attribute__((always_inline)) {
                    return op.view(0).at(i, j);
                });
    const bool adjacent = W == 1 || op.stride2 == Distance{sizeof(T)};
    if (Rows::natural && std::is_same_v<Part, Whole> && adjacent &&
        (H == 1 || op.stride1 == W * Distance{sizeof(T)})) {
        store_runs<T, H * W>(op.at, a[0]);
    } else if (adjacent) {
        store_rows<T, Part>(a, op.at, op.stride1, rows);
    } else {
        unroll<H>(ZELM_EACH(i) {
            char *row[lanes_per_register<T>];
            unroll<lanes_per_register<T>>(
                ZELM_EACH(l) { row[l] = op.at[l] + row_of(rows, i, l) * op.stride1; });
            unroll<Part::width(i, W)>(ZELM_EACH(j) { scatter<T>(row, j * op.stride2, a[i][j]); });
        });
    }
}

// Groups of several registers, register by register.
template <class T, class Part = Whole, int n, int H, int W, class Operand>
ZELM_INLINE void load_lanes(Interleaved<Lanes<T>, n> (&a)[H][W], const Operand &op, int first) {
    unroll<n>(ZELM_EACH(r) {
        Lanes<T> part[H][W];
        if constexpr (is_lane_objects<Operand>)
            load_lanes<T, Part>(
                part, op.template part<lanes_per_register<T>>(r * lanes_per_register<T>), 0);
        else
            load_lanes<T, Part>(part, op, first + r * lanes_per_register<T>);
        unroll<H>(ZELM_EACH(i) {
            unroll<Part::width(i, W)>(ZELM_EACH(j) { a[i][j].r[r] = part[i][j]; });
        });
    });
}
template <class T, class Part = Whole, int n, int H, int W, class Operand>
ZELM_INLINE void store_lanes(const Operand &op, int first,
                             const Interleaved<Lanes<T>, n> (&a)[H][W]) {
    unroll<n>(ZELM_EACH(r) {
        Lanes<T> part[H][W];
        unroll<H>(ZELM_EACH(i) {
            unroll<Part::width(i, W)>(ZELM_EACH(j) { part[i][j] = a[i][j].r[r]; });
        });
        if constexpr (is_lane_objects<Operand>)
            store_lanes<T, Part>(op.template part<lanes_per_register<T>>(r * lanes_per_register<T>),
                                 0, part);
        else
            store_lanes<T, Part>(op, first + r * lanes_per_register<T>, part);
    });
}

// What the lanes of a group are: a register, or several as one.
template <class T, class Group, int n = std::remove_cvref_t<Group>::registers>
using LanesOf = std::conditional_t<n == 1, Lanes<T>, Interleaved<Lanes<T>, n>>;

// N row numbers per lane to the objects' rows of `index`, N ints each, one after another.
template <class T, int N, class Index>
ZELM_INLINE void store_numbers(const Index &index, int first, const IndexOf<Lanes<T>> (&p)[N]) {
    constexpr int L = lanes_per_register<T>;
    char *at[L];
    unroll<L>(ZELM_EACH(l) { at[l] = reinterpret_cast<char *>(index.row(first + l)); });
    if constexpr (sizeof(T) == sizeof(int)) {
        Lanes<T> v[N]; // moved as bit patterns
        unroll<N>(ZELM_EACH(i) { v[i] = (Lanes<T>)p[i]; });
        if constexpr (N == 3) {
            join_triples(v);
            unroll<N>(ZELM_EACH(i) { store<Lanes<T>>(at[0] + i * register_bytes, v[i]); });
        } else {
            store_runs<T, N>(at, v);
        }
    } else { // two numbers make one element
        unroll<N / 2>(ZELM_EACH(pair) {
            const auto both = (Lanes<T>)(p[2 * pair] | (p[2 * pair + 1] << 32));
            scatter<T>(at, pair * Distance{sizeof(T)}, both);
        });
        if constexpr (N % 2 == 1)
            unroll<L>(ZELM_EACH(l) {
                store<int>(at[l] + (N - 1) * sizeof(int), static_cast<int>(p[N - 1][int{l}]));
            });
    }
}

} // namespace zelm
