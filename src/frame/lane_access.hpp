// Lane groups in and out of memory: lane l of a register holds one element of object first + l.
//
// Memory comes in three shapes: planar (the same element of consecutive objects adjacent: one
// register load per element), packed rows (loads along each object's rows and a transpose), and
// anything else (element by element). A group is always full: the walk stages what is not.
#pragma once

#include "interleaved.hpp"
#include "operand.hpp"

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
// Row numbers by a function of row and lane.
template <class F>
struct RowNumbers {
    static constexpr bool natural = false;
    const F &number;

    ZELM_INLINE int operator()(int i, int lane) const { return number(i, lane); }
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

// The lanes' objects of a strided operand.
template <class T, class Operand, class Byte>
ZELM_INLINE void lane_objects(Byte *(&base)[lanes_per_register<T>], const Operand &op, int first) {
    if constexpr (Operand::has_table) {
        unroll<lanes_per_register<T>>(ZELM_EACH(l) { base[l] = op.object(first + l); });
    } else {
        base[0] = op.object(first);
        unroll<1, lanes_per_register<T>>(ZELM_EACH(l) { base[l] = base[l - 1] + op.step(); });
    }
}
template <class Rows>
ZELM_INLINE auto row_of(const Rows &rows, int i, int lane) {
    if constexpr (Rows::natural)
        return i;
    else
        return rows(i, lane);
}

} // namespace detail

// One object in every lane.
template <class T, class Part = Whole, int H, int W, class View>
ZELM_INLINE void load_splat(Lanes<T> (&a)[H][W], const View &v) {
    unroll<H>(ZELM_EACH(i) {
        unroll<Part::width(i, W)>(ZELM_EACH(j) { a[i][j] = splat<Lanes<T>>(get(v, i, j)); });
    });
}

// Row i of `a` is row i of each lane's object, or row rows(i, lane); of a Part its elements alone.
// In dense objects the bytes between these may be read.
template <class T, class Part = Whole, int H, int W, class Operand, class Rows = NaturalRows<T>>
ZELM_INLINE void load_lanes(Lanes<T> (&a)[H][W], const Operand &op, int first,
                            const Rows &rows = {}) {
    constexpr int L = lanes_per_register<T>;
    const auto planar = [&](const auto &at) __attribute__((always_inline)) {
        Lanes<T> b[H][W];
        unroll<H>(ZELM_EACH(i) {
            unroll<Part::width(i, W)>(ZELM_EACH(j) { b[i][j] = load<Lanes<T>>(at(i, j)); });
        });
        if constexpr (Rows::natural)
            unroll<H>(
                ZELM_EACH(i) { unroll<Part::width(i, W)>(ZELM_EACH(j) { a[i][j] = b[i][j]; }); });
        else
            detail::permute_rows<T, false>(a, b, rows);
    };
    if constexpr (Operand::is_tabled) {
        Distance lane[L]; // from object 0 to the lanes' objects
        unroll<L>(ZELM_EACH(l) { lane[l] = (first + l) * op.stride0; });
        if (detail::loads_registers<T, H, Rows> && op.planar())
            return planar([&](int i, int j) __attribute__((always_inline)) {
                return op.at[i * W + j] + lane[0];
            });
        unroll<H>(ZELM_EACH(i) {
            unroll<Part::width(i, W)>(ZELM_EACH(j) {
                const char *at[L];
                unroll<L>(
                    ZELM_EACH(l) { at[l] = op.at[detail::row_of(rows, i, l) * W + j] + lane[l]; });
                a[i][j] = detail::gather<T>(at, 0);
            });
        });
    } else {
        const auto v = op.view(first);
        if constexpr (!is_dense<Operand> && detail::loads_registers<T, H, Rows>)
            if (op.planar())
                return planar([&](int i, int j)
                                  __attribute__((always_inline)) { return v.at(i, j); });
        if constexpr (Rows::natural && H * W == 3 && is_dense<Operand>)
            if (op.step() == 3 * Distance{sizeof(T)}) {
                Lanes<T> t[3];
                unroll<3>(ZELM_EACH(r) { t[r] = load<Lanes<T>>(v.base + r * register_bytes); });
                split_triples(t);
                unroll<3>(ZELM_EACH(r) { a[r / W][r % W] = t[r]; });
                return;
            }
        const char *base[L];
        detail::lane_objects<T>(base, op, first);
        const bool packed = W == 1 || v.stride2 == Distance{sizeof(T)};
        if (Rows::natural && packed && (H == 1 || v.stride1 == W * Distance{sizeof(T)})) {
            detail::load_runs<T, H * W>(a[0], base);
        } else {
            unroll<H>(ZELM_EACH(i) {
                const char *row[L];
                unroll<L>(
                    ZELM_EACH(l) { row[l] = base[l] + detail::row_of(rows, i, l) * v.stride1; });
                constexpr int width = Part::width(i, W);
                if (packed)
                    detail::load_runs<T, width>(a[i], row);
                else
                    unroll<width>(
                        ZELM_EACH(j) { a[i][j] = detail::gather<T>(row, j * v.stride2); });
            });
        }
    }
}

// Row i of `a` goes to row i of each lane's object, or to row rows(i, lane).
template <class T, class Part = Whole, int H, int W, class Operand, class Rows = NaturalRows<T>>
ZELM_INLINE void store_lanes(const Operand &op, int first, const Lanes<T> (&a)[H][W],
                             const Rows &rows = {}) {
    constexpr int L = lanes_per_register<T>;
    const auto planar = [&](const auto &at) __attribute__((always_inline)) {
        Lanes<T> b[H][W];
        if constexpr (Rows::natural)
            unroll<H>(
                ZELM_EACH(i) { unroll<Part::width(i, W)>(ZELM_EACH(j) { b[i][j] = a[i][j]; }); });
        else
            detail::permute_rows<T, true>(b, a, rows);
        unroll<H>(ZELM_EACH(i) {
            unroll<Part::width(i, W)>(ZELM_EACH(j) { store<Lanes<T>>(at(i, j), b[i][j]); });
        });
    };
    if constexpr (Operand::is_tabled) {
        Distance lane[L]; // from object 0 to the lanes' objects
        unroll<L>(ZELM_EACH(l) { lane[l] = (first + l) * op.stride0; });
        if (detail::stores_registers<T, Rows> && op.planar())
            return planar([&](int i, int j) __attribute__((always_inline)) {
                return op.at[i * W + j] + lane[0];
            });
        unroll<H>(ZELM_EACH(i) {
            unroll<Part::width(i, W)>(ZELM_EACH(j) {
                char *at[L];
                unroll<L>(
                    ZELM_EACH(l) { at[l] = op.at[detail::row_of(rows, i, l) * W + j] + lane[l]; });
                detail::scatter<T>(at, 0, a[i][j]);
            });
        });
    } else {
        const auto v = op.view(first);
        if constexpr (!is_dense<Operand> && detail::stores_registers<T, Rows>)
            if (op.planar())
                return planar([&](int i, int j)
                                  __attribute__((always_inline)) { return v.at(i, j); });
        if constexpr (Rows::natural && H * W == 3 && is_dense<Operand>)
            if (op.step() == 3 * Distance{sizeof(T)}) {
                Lanes<T> t[3];
                unroll<3>(ZELM_EACH(r) { t[r] = a[r / W][r % W]; });
                join_triples(t);
                unroll<3>(ZELM_EACH(r) { store<Lanes<T>>(v.base + r * register_bytes, t[r]); });
                return;
            }
        char *base[L];
        detail::lane_objects<T>(base, op, first);
        const bool packed = W == 1 || v.stride2 == Distance{sizeof(T)};
        if (Rows::natural && std::is_same_v<Part, Whole> && packed &&
            (H == 1 || v.stride1 == W * Distance{sizeof(T)})) {
            detail::store_runs<T, H * W>(base, a[0]);
        } else {
            unroll<H>(ZELM_EACH(i) {
                char *row[L];
                unroll<L>(
                    ZELM_EACH(l) { row[l] = base[l] + detail::row_of(rows, i, l) * v.stride1; });
                constexpr int width = Part::width(i, W);
                if (packed)
                    detail::store_runs<T, width>(row, a[i]);
                else
                    unroll<width>(
                        ZELM_EACH(j) { detail::scatter<T>(row, j * v.stride2, a[i][j]); });
            });
        }
    }
}

// Groups of several registers, register by register.
template <class T, class Part = Whole, int n, int H, int W, class Operand>
ZELM_INLINE void load_lanes(Interleaved<Lanes<T>, n> (&a)[H][W], const Operand &op, int first) {
    unroll<n>(ZELM_EACH(r) {
        Lanes<T> part[H][W];
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

// ---- orders known at run time -------------------------------------------------------------------

// K elements of one row of every lane's object, from column j on; the row by number.
template <class T, int K, class Operand, class Rows = NaturalRows<T>>
ZELM_INLINE void load_row(Lanes<T> (&a)[K], const Operand &op, int first, Shape shape, int i, int j,
                          const Rows &rows = {}) {
    constexpr int L = lanes_per_register<T>;
    if constexpr (!Operand::is_array) {
        const auto v = view(op, 0, shape);
        unroll<K>(
            ZELM_EACH(e) { a[e] = splat<Lanes<T>>(get(v, detail::row_of(rows, i, 0), j + e)); });
    } else {
        const char *at[L];
        if (K == 1 || rows_adjacent(op)) {
            unroll<L>(ZELM_EACH(l) {
                at[l] = view(op, first + l, shape).at(detail::row_of(rows, i, l), j);
            });
            return detail::load_runs<T, K>(a, at);
        }
        unroll<K>(ZELM_EACH(e) {
            unroll<L>(ZELM_EACH(l) {
                at[l] = view(op, first + l, shape).at(detail::row_of(rows, i, l), j + e);
            });
            a[e] = detail::gather<T>(at, 0);
        });
    }
}
template <class T, int K, class Operand, class Rows = NaturalRows<T>>
ZELM_INLINE void store_row(const Operand &op, int first, Shape shape, int i, int j,
                           const Lanes<T> (&a)[K], const Rows &rows = {}) {
    constexpr int L = lanes_per_register<T>;
    char *at[L];
    if (K == 1 || rows_adjacent(op)) {
        unroll<L>(
            ZELM_EACH(l) { at[l] = view(op, first + l, shape).at(detail::row_of(rows, i, l), j); });
        return detail::store_runs<T, K>(at, a);
    }
    unroll<K>(ZELM_EACH(e) {
        unroll<L>(ZELM_EACH(l) {
            at[l] = view(op, first + l, shape).at(detail::row_of(rows, i, l), j + e);
        });
        detail::scatter<T>(at, 0, a[e]);
    });
}

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

} // namespace zelm
