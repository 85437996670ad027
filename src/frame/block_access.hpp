// Lane groups of a shape known at run time: each group is a block of registers in memory, row by
// row. How its objects lie is known at run time too, so that this is compiled once for an element
// type.
#pragma once

#include "lane_access.hpp"

namespace zelm {

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
        ZELM_EACH(l) { at[l] = o.at[l] + row_of(rows, i, l) * o.stride1; });
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
                load_runs<T, decltype(K)::value>(run, from);
                f(j, run);
            });
    } else {
        for (int j = 0; j < width; ++j) {
            const Lanes<T> run[] = {gather<T>(at, j * stride2)};
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
                store_runs<T, decltype(K)::value>(to, run);
            });
    } else {
        for (int j = 0; j < width; ++j) {
            Lanes<T> run[1];
            f(j, run);
            scatter<T>(at, j * stride2, run[0]);
        }
    }
}

// The lanes' objects, first ... first + lanes - 1, of strided memory or a layout.
template <class T>
ZELM_INLINE LaneObjects<T> lane_objects_of(const Objects &o, int first) {
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
                    entries<T>(at, o, first, i, j, rows);
                    register_of(a[i * shape.width + j], r) =
                        Rows::natural && o.is_planar() ? load<Lanes<T>>(at[0]) : gather<T>(at, 0);
                }
            continue;
        }
        const auto lanes = lane_objects_of<const T>(o, first);
        for (int i = 0; i < shape.height; ++i) {
            S *const row = a + i * shape.width;
            load_row<T>(
                lanes, i, o.width(i),
                rows, [&](int j, const auto &run) __attribute__((always_inline)) {
                    unroll<sizeof run / sizeof *run>(
                        ZELM_EACH(k) { register_of(row[j + k], r) = run[k]; });
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
                    const Lanes<T> x = register_of(a[i * shape.width + j], r);
                    entries<T>(at, o, first, i, j, rows);
                    if (Rows::natural && o.is_planar())
                        store<Lanes<T>>(at[0], x);
                    else
                        scatter<T>(at, 0, x);
                }
            continue;
        }
        const auto lanes = lane_objects_of<T>(o, first);
        for (int i = 0; i < shape.height; ++i) {
            const S *const row = a + i * shape.width;
            store_row<T>(
                lanes, i, o.width(i), rows, [&](int j, auto &run) __attribute__((always_inline)) {
                    unroll<sizeof run / sizeof *run>(
                        ZELM_EACH(k) { run[k] = register_of(row[j + k], r); });
                });
        }
    }
}

} // namespace zelm
