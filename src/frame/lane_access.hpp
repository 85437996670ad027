// Lane groups in and out of memory: lane l of a register holds one element of object first + l.
//
// Groups of a fixed shape are loaded in the form that their kernel is compiled for: dense objects
// and rows by loads along each object's rows and a transpose, planes by one register load per
// element. Groups of a shape known at run time, and those that are given by an address for each
// lane, choose at run time and know elements apart as well. A group is always full: the walk stages
// what is not.
#pragma once

#include "interleaved.hpp"
#include "objects.hpp"

namespace zelm {

// Which row of each lane's object belongs to row i of the register array.
template <class T>
struct NaturalRows {
    static constexpr bool natural = true;
};
// Row numbers in registers, lane by lane.
template <class T, int H>
struct ComputedRows {
    static constexpr bool natural = false;
    const IndexOf<Lanes<T>> (&p)[H];

    // Not negative: what takes a register's lane out widens it for nothing.
    ZELM_INLINE Distance operator()(int i, int lane) const {
        using Unsigned = std::make_unsigned_t<std::remove_cvref_t<decltype(p[i][lane])>>;
        return static_cast<Distance>(static_cast<Unsigned>(p[i][lane]));
    }
    ZELM_INLINE IndexOf<Lanes<T>> all_lanes(int i) const { return p[i]; }
};
// The same for as many rows as there are at run time.
template <class T>
struct ComputedNumbers {
    static constexpr bool natural = false;
    const IndexOf<Lanes<T>> *p;

    ZELM_INLINE int operator()(int i, int lane) const { return static_cast<int>(p[i][lane]); }
};
// Row numbers in memory, a row of them for each lane's object.
template <class T>
struct StoredRows {
    static constexpr bool natural = false;
    const int *row[lanes_per_register<T>];

    ZELM_INLINE int operator()(int i, int lane) const { return row[lane][i]; }
    ZELM_INLINE IndexOf<Lanes<T>> all_lanes(int i) const {
        IndexOf<Lanes<T>> p;
        unroll<lanes_per_register<T>>(ZELM_EACH(l) { p[int{l}] = row[l][i]; });
        return p;
    }
};
template <class T, class Index>
ZELM_INLINE StoredRows<T> stored_rows(const Index &index, int first) {
    StoredRows<T> rows;
    unroll<lanes_per_register<T>>(ZELM_EACH(l) { rows.row[l] = index.row(first + l); });
    return rows;
}

namespace detail {

template <class T, class Byte>
ZELM_INLINE Lanes<T> gather(Byte *const (&at)[lanes_per_register<T>], Distance offset) {
    return Primitives<Lanes<T>>::gather(at, offset);
}
template <class T>
ZELM_INLINE void scatter(char *const (&at)[lanes_per_register<T>], Distance offset, Lanes<T> v) {
    unroll<lanes_per_register<T>>(ZELM_EACH(l) { store<T>(at[l] + offset, v[int{l}]); });
}

// Consecutive elements from each lane's address: K of one lane, or one of every lane.
template <class T>
struct Runs {
    const char *const (&at)[lanes_per_register<T>];

    template <int K>
    ZELM_INLINE Lanes<T> part(int lane, Distance offset) const {
        return load_part<K, Lanes<T>>(at[lane] + offset);
    }
    ZELM_INLINE Lanes<T> gathered(Distance offset) const { return gather<T>(at, offset); }
};
// The products of two such runs, element by element.
template <class T>
struct ProductRuns {
    Runs<T> a, b;

    template <int K>
    ZELM_INLINE Lanes<T> part(int lane, Distance offset) const {
        return a.template part<K>(lane, offset) * b.template part<K>(lane, offset);
    }
    ZELM_INLINE Lanes<T> gathered(Distance offset) const {
        return a.gathered(offset) * b.gathered(offset);
    }
};
template <class T, int N, class From>
ZELM_INLINE void load_from(Lanes<T> *out, const From &from) {
    constexpr int L = lanes_per_register<T>, rest = N % L;
    unroll<N / L>(ZELM_EACH(chunk) {
        Lanes<T> v[L];
        unroll<L>(ZELM_EACH(l) { v[l] = from.template part<L>(l, chunk * register_bytes); });
        transpose(v);
        unroll<L>(ZELM_EACH(e) { out[chunk * L + e] = v[e]; });
    });
    if constexpr (rest == 1)
        out[N - 1] = from.gathered((N - 1) * Distance{sizeof(T)});
    else if constexpr (rest != 0) { // the last run may overlap the one before
        constexpr int length = N > L && rest == L - 1 && rest > 2 ? L : rest, start = N - length;
        Lanes<T> v[L];
        unroll<L>(
            ZELM_EACH(l) { v[l] = from.template part<length>(l, start * Distance{sizeof(T)}); });
        transpose(v);
        unroll<rest>(ZELM_EACH(e) { out[N - rest + e] = v[length - rest + e]; });
    }
}
template <class T, int N>
ZELM_INLINE void load_runs(Lanes<T> *out, const char *const (&at)[lanes_per_register<T>]) {
    load_from<T, N>(out, Runs<T>{at});
}
template <class T, int N>
ZELM_INLINE void store_runs(char *const (&at)[lanes_per_register<T>], const Lanes<T> *in) {
    constexpr int L = lanes_per_register<T>, rest = N % L;
    unroll<N / L>(ZELM_EACH(chunk) {
        Lanes<T> v[L];
        unroll<L>(ZELM_EACH(e) { v[e] = in[chunk * L + e]; });
        transpose(v);
        unroll<L>(ZELM_EACH(l) { store<Lanes<T>>(at[l] + chunk * register_bytes, v[l]); });
    });
    constexpr bool overlapping = N > L && rest == L - 1 && rest > 2; // the run before
    if constexpr (overlapping) {
        constexpr int start = N - L;
        Lanes<T> v[L];
        unroll<L>(ZELM_EACH(e) { v[e] = in[start + e]; });
        transpose(v);
        unroll<L>(ZELM_EACH(l) { store<Lanes<T>>(at[l] + start * sizeof(T), v[l]); });
    } else {
        unroll<rest / 2>(ZELM_EACH(pair) {
            constexpr int e = N - rest + 2 * pair;
            Primitives<Lanes<T>>::store_pairs(at, e * Distance{sizeof(T)}, in[e], in[e + 1]);
        });
        if constexpr (rest % 2 == 1)
            scatter<T>(at, (N - 1) * Distance{sizeof(T)}, in[N - 1]);
    }
}

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

template <class Rows>
ZELM_INLINE auto row_of(const Rows &rows, int i, int lane) {
    if constexpr (Rows::natural)
        return i;
    else
        return rows(i, lane);
}

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
                              const Rows<T, H, W> &op, int first) {
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

} // namespace detail

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
    detail::lane_objects(base, op, first);
    if constexpr (Rows::natural)
        detail::load_runs<T, H * W>(a[0], base);
    else
        detail::load_rows<T, Part>(a, base, W * Distance{sizeof(T)}, rows);
}
template <class T, class Part = Whole, int H, int W, class E, class Numbers = NaturalRows<T>>
ZELM_INLINE void load_lanes(Lanes<T> (&a)[H][W], const Rows<E, H, W> &op, int first,
                            const Numbers &rows = {}) {
    char *base[lanes_per_register<T>];
    detail::lane_objects(base, op, first);
    if constexpr (Numbers::natural && !detail::rows_fill_registers<T, H, W>)
        if (op.stride1 == W * Distance{sizeof(T)})
            return detail::load_runs<T, H * W>(a[0], base);
    detail::load_rows<T, Part>(a, base, op.stride1, rows);
}
template <class T, class Part = Whole, int H, int W, class E, class Rows = NaturalRows<T>>
ZELM_INLINE void load_lanes(Lanes<T> (&a)[H][W], const Planes<E, H, W, Part> &op, int first,
                            const Rows &rows = {}) {
    if constexpr (detail::loads_registers<T, H, Rows>)
        detail::load_planes<T, Part>(
            a, rows, [&](int i, int j) __attribute__((always_inline)) {
                return op.element(first, i, j);
            });
    else
        unroll<H>(ZELM_EACH(i) {
            unroll<Part::width(i, W)>(ZELM_EACH(j) {
                const char *at[lanes_per_register<T>];
                unroll<lanes_per_register<T>>(
                    ZELM_EACH(l) { at[l] = op.element_of_row(first + l, rows(i, l), j); });
                a[i][j] = detail::gather<T>(at, 0);
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
    detail::lane_objects(base, op, first);
    if constexpr (Rows::natural && std::is_same_v<Part, Whole>)
        detail::store_runs<T, H * W>(base, a[0]);
    else
        detail::store_rows<T, Part>(a, base, W * Distance{sizeof(T)}, rows);
}
template <class T, class Part = Whole, int H, int W, class Numbers = NaturalRows<T>>
ZELM_INLINE void store_lanes(const Rows<T, H, W> &op, int first, const Lanes<T> (&a)[H][W],
                             const Numbers &rows = {}) {
    char *base[lanes_per_register<T>];
    detail::lane_objects(base, op, first);
    if constexpr (Numbers::natural && std::is_same_v<Part, Whole> &&
                  !detail::rows_fill_registers<T, H, W>)
        if (op.stride1 == W * Distance{sizeof(T)})
            return detail::store_runs<T, H * W>(base, a[0]);
    detail::store_rows<T, Part>(a, base, op.stride1, rows);
}
template <class T, class Part = Whole, int H, int W, class Rows = NaturalRows<T>>
ZELM_INLINE void store_lanes(const Planes<T, H, W, Part> &op, int first, const Lanes<T> (&a)[H][W],
                             const Rows &rows = {}) {
    if constexpr (detail::stores_registers<T, Rows>)
        detail::store_planes<T, Part>(
            a, rows, [&](int i, int j) __attribute__((always_inline)) {
                return op.element(first, i, j);
            });
    else
        unroll<H>(ZELM_EACH(i) {
            unroll<Part::width(i, W)>(ZELM_EACH(j) {
                char *at[lanes_per_register<T>];
                unroll<lanes_per_register<T>>(
                    ZELM_EACH(l) { at[l] = op.element_of_row(first + l, rows(i, l), j); });
                detail::scatter<T>(at, 0, a[i][j]);
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

template <class T, class Part = Whole, int H, int W, class E, class Rows = NaturalRows<T>>
ZELM_INLINE void load_lanes(Lanes<T> (&a)[H][W], const LaneObjects<E> &op, int,
                            const Rows &rows = {}) {
    if constexpr (detail::loads_registers<T, H, Rows>)
        if (op.is_planar)
            return detail::load_planes<T, Part>(
                a, rows, [&](int i, int j) __attribute__((always_inline)) {
                    return op.view(0).at(i, j);
                });
    const bool adjacent = W == 1 || op.stride2 == Distance{sizeof(T)};
    if (Rows::natural && adjacent && (H == 1 || op.stride1 == W * Distance{sizeof(T)})) {
        detail::load_runs<T, H * W>(a[0], op.at);
    } else if (adjacent) {
        detail::load_rows<T, Part>(a, op.at, op.stride1, rows);
    } else {
        unroll<H>(ZELM_EACH(i) {
            const char *row[lanes_per_register<T>];
            unroll<lanes_per_register<T>>(
                ZELM_EACH(l) { row[l] = op.at[l] + detail::row_of(rows, i, l) * op.stride1; });
            unroll<Part::width(i, W)>(
                ZELM_EACH(j) { a[i][j] = detail::gather<T>(row, j * op.stride2); });
        });
    }
}
template <class T, class Part = Whole, int H, int W, class Rows = NaturalRows<T>>
ZELM_INLINE void store_lanes(const LaneObjects<T> &op, int, const Lanes<T> (&a)[H][W],
                             const Rows &rows = {}) {
    if constexpr (detail::stores_registers<T, Rows>)
        if (op.is_planar)
            return detail::store_planes<T, Part>(
                a, rows, [&](int i, int j) __attribute__((always_inline)) {
                    return op.view(0).at(i, j);
                });
    const bool adjacent = W == 1 || op.stride2 == Distance{sizeof(T)};
    if (Rows::natural && std::is_same_v<Part, Whole> && adjacent &&
        (H == 1 || op.stride1 == W * Distance{sizeof(T)})) {
        detail::store_runs<T, H * W>(op.at, a[0]);
    } else if (adjacent) {
        detail::store_rows<T, Part>(a, op.at, op.stride1, rows);
    } else {
        unroll<H>(ZELM_EACH(i) {
            char *row[lanes_per_register<T>];
            unroll<lanes_per_register<T>>(
                ZELM_EACH(l) { row[l] = op.at[l] + detail::row_of(rows, i, l) * op.stride1; });
            unroll<Part::width(i, W)>(
                ZELM_EACH(j) { detail::scatter<T>(row, j * op.stride2, a[i][j]); });
        });
    }
}

// Groups of several registers, register by register.
template <class T, class Part = Whole, int n, int H, int W, class Operand>
ZELM_INLINE void load_lanes(Interleaved<Lanes<T>, n> (&a)[H][W], const Operand &op, int first) {
    unroll<n>(ZELM_EACH(r) {
        Lanes<T> part[H][W];
        if constexpr (requires { op.is_planar; })
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
        if constexpr (requires { op.is_planar; })
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
            detail::store_runs<T, N>(at, v);
        }
    } else { // two numbers make one element
        unroll<N / 2>(ZELM_EACH(pair) {
            const auto both = (Lanes<T>)(p[2 * pair] | (p[2 * pair + 1] << 32));
            detail::scatter<T>(at, pair * Distance{sizeof(T)}, both);
        });
        if constexpr (N % 2 == 1)
            unroll<L>(ZELM_EACH(l) {
                store<int>(at[l] + (N - 1) * sizeof(int), static_cast<int>(p[N - 1][int{l}]));
            });
    }
}

// ---- groups of a shape known at run time: row by row in registers' memory -----------------------

// The largest order whose objects fit the stack, one in each lane: 4 KiB of narrow registers.
inline constexpr int largest_lane_order = 16;
inline constexpr int largest_lane_elements = largest_lane_order * largest_lane_order;

// f(j, K) over from ... to - 1 in steps of a register's lanes, then of one: K is a constant.
template <class T, class F>
ZELM_INLINE void in_steps(int from, int to, const F &f) {
    constexpr int L = lanes_per_register<T>;
    int j = from;
    for (; j <= to - L; j += L)
        f(j, std::integral_constant<int, L>{});
    for (; j < to; ++j)
        f(j, std::integral_constant<int, 1>{});
}

// The addresses of row i of every lane's object, the row by number.
template <class T, class E, class Rows, class Byte>
ZELM_INLINE void row_addresses(Byte *(&at)[lanes_per_register<T>], const LaneObjects<E> &o, int i,
                               const Rows &rows) {
    unroll<lanes_per_register<T>>(
        ZELM_EACH(l) { at[l] = o.at[l] + detail::row_of(rows, i, l) * o.stride1; });
}

// f(j, run) for the first `width` elements of row i of every lane's object, the row by number: runs
// of registers, element j and those behind it.
template <class T, class E, class Rows, class F>
ZELM_INLINE void load_row(const LaneObjects<E> &o, int i, int width, const Rows &rows, const F &f) {
    const char *at[lanes_per_register<T>];
    row_addresses<T>(at, o, i, rows);
    const Distance stride2 = o.stride2;
    if (Rows::natural && o.is_planar) {
        for (int j = 0; j < width; ++j) {
            const Lanes<T> run[] = {load<Lanes<T>>(at[0] + j * stride2)};
            f(j, run);
        }
    } else if (stride2 == Distance{sizeof(T)}) {
        in_steps<T>(
            0, width, [&](int j, auto K) __attribute__((always_inline)) {
                Lanes<T> run[decltype(K)::value];
                const char *from[lanes_per_register<T>];
                unroll<lanes_per_register<T>>(
                    ZELM_EACH(l) { from[l] = at[l] + j * Distance{sizeof(T)}; });
                detail::load_runs<T, decltype(K)::value>(run, from);
                f(j, run);
            });
    } else {
        for (int j = 0; j < width; ++j) {
            const Lanes<T> run[] = {detail::gather<T>(at, j * stride2)};
            f(j, run);
        }
    }
}
// f(j, run) fills the runs, which are then stored.
template <class T, class Rows, class F>
ZELM_INLINE void store_row(const LaneObjects<T> &o, int i, int width, const Rows &rows,
                           const F &f) {
    char *at[lanes_per_register<T>];
    row_addresses<T>(at, o, i, rows);
    const Distance stride2 = o.stride2;
    if (Rows::natural && o.is_planar) {
        for (int j = 0; j < width; ++j) {
            Lanes<T> run[1];
            f(j, run);
            store<Lanes<T>>(at[0] + j * stride2, run[0]);
        }
    } else if (stride2 == Distance{sizeof(T)}) {
        in_steps<T>(
            0, width, [&](int j, auto K) __attribute__((always_inline)) {
                Lanes<T> run[decltype(K)::value];
                char *to[lanes_per_register<T>];
                unroll<lanes_per_register<T>>(
                    ZELM_EACH(l) { to[l] = at[l] + j * Distance{sizeof(T)}; });
                f(j, run);
                detail::store_runs<T, decltype(K)::value>(to, run);
            });
    } else {
        for (int j = 0; j < width; ++j) {
            Lanes<T> run[1];
            f(j, run);
            detail::scatter<T>(at, j * stride2, run[0]);
        }
    }
}

namespace detail {

// The lanes' objects, first ... first + lanes - 1, of strided memory or a layout.
template <class T>
ZELM_INLINE LaneObjects<T> lane_objects(const Objects &o, int first) {
    LaneObjects<T> lanes;
    unroll<lanes_per_register<std::remove_const_t<T>>>(
        ZELM_EACH(l) { lanes.at[l] = o.object(first + l); });
    lanes.stride1 = o.stride1;
    lanes.stride2 = o.stride2;
    lanes.is_planar = o.is_planar();
    return lanes;
}
// The addresses of an element in the pointer description.
template <class T, class Byte, class Rows>
ZELM_INLINE void entries(Byte *(&at)[lanes_per_register<T>], const Objects &o, int first, int i,
                         int j, const Rows &rows) {
    unroll<lanes_per_register<T>>(
        ZELM_EACH(l) { at[l] = o.entry(row_of(rows, i, l), j) + (first + l) * o.step; });
}
// Register r of S, which is one or several.
template <class S>
ZELM_INLINE auto &register_of(S &x, int r) {
    if constexpr (requires { x.r[0]; })
        return x.r[r];
    else
        return x;
}

} // namespace detail

// Row i of `a`, as long as the objects' rows, is row i of each lane's object, or row
// rows(i, lane); of a Part its elements alone.
template <class S, class Rows = NaturalRows<ElementOf<S>>>
[[gnu::noinline]] void load_block(S *a, const Objects o, int first, const Rows rows = {}) {
    using T = ElementOf<S>;
    constexpr int L = lanes_per_register<T>;
    const Shape shape = o.shape;
    for (int r = 0; r < lanes_of<S> / L; ++r, first += L) {
        if (o.description == Description::pointer) {
            for (int i = 0; i < shape.height; ++i)
                for (int j = 0; j < o.width(i); ++j) {
                    const char *at[L];
                    detail::entries<T>(at, o, first, i, j, rows);
                    detail::register_of(a[i * shape.width + j], r) = Rows::natural && o.is_planar()
                                                                         ? load<Lanes<T>>(at[0])
                                                                         : detail::gather<T>(at, 0);
                }
            continue;
        }
        const auto lanes = detail::lane_objects<const T>(o, first);
        for (int i = 0; i < shape.height; ++i) {
            S *const row = a + i * shape.width;
            load_row<T>(
                lanes, i, o.width(i),
                rows, [&](int j, const auto &run) __attribute__((always_inline)) {
                    unroll<sizeof run / sizeof *run>(
                        ZELM_EACH(k) { detail::register_of(row[j + k], r) = run[k]; });
                });
        }
    }
}
// Row i of `a` goes to row i of each lane's object, or to row rows(i, lane).
template <class S, class Rows = NaturalRows<ElementOf<S>>>
[[gnu::noinline]] void store_block(const Objects o, int first, const S *a, const Rows rows = {}) {
    using T = ElementOf<S>;
    constexpr int L = lanes_per_register<T>;
    const Shape shape = o.shape;
    for (int r = 0; r < lanes_of<S> / L; ++r, first += L) {
        if (o.description == Description::pointer) {
            for (int i = 0; i < shape.height; ++i)
                for (int j = 0; j < o.width(i); ++j) {
                    char *at[L];
                    const Lanes<T> x = detail::register_of(a[i * shape.width + j], r);
                    detail::entries<T>(at, o, first, i, j, rows);
                    if (Rows::natural && o.is_planar())
                        store<Lanes<T>>(at[0], x);
                    else
                        detail::scatter<T>(at, 0, x);
                }
            continue;
        }
        const auto lanes = detail::lane_objects<T>(o, first);
        for (int i = 0; i < shape.height; ++i) {
            const S *const row = a + i * shape.width;
            store_row<T>(
                lanes, i, o.width(i), rows, [&](int j, auto &run) __attribute__((always_inline)) {
                    unroll<sizeof run / sizeof *run>(
                        ZELM_EACH(k) { run[k] = detail::register_of(row[j + k], r); });
                });
        }
    }
}

} // namespace zelm
