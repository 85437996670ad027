// Lane groups in and out of memory: lane l of a register holds one element of object first + l.
//
// Memory comes in three shapes: planar (the same element of consecutive objects adjacent: one
// register load per element), packed rows (loads along each object's rows and a transpose), and
// anything else (element by element). Lanes behind the last object load that last object again, so
// that nothing behind the operands is read; only the committed lanes are stored.
#pragma once

#include "operand.hpp"

namespace zelm {

template <class T>
struct Group {
    static constexpr int lanes = lanes_per_register<T>;
    int first; // object in lane 0
    int live;  // lanes that hold an object of their own

    ZELM_INLINE int object(int lane) const { return first + (lane < live ? lane : live - 1); }
    ZELM_INLINE bool full() const { return live == lanes; }

    // Lanes that may be stored: those before the first failing one.
    ZELM_INLINE int passing(MaskOf<Lanes<T>> failing) const {
        const unsigned bits = lane_bits(failing);
        if (bits == 0) [[likely]]
            return live;
        const int lane = __builtin_ctz(bits);
        return lane < live ? lane : live;
    }
};

// Which row of each lane's object stands in row i of the register array: row(i, lane) of the
// object, or as many registers of row numbers.
template <class T>
struct NaturalRows {
    static constexpr bool natural = true;
};
// Row numbers in registers, lane by lane.
template <class T, int H>
struct ComputedRows {
    static constexpr bool natural = false;
    const IndexOf<Lanes<T>> (&p)[H];

    ZELM_INLINE int operator()(int i, int lane) const { return static_cast<int>(p[i][lane]); }
    ZELM_INLINE IndexOf<Lanes<T>> all_lanes(int i) const { return p[i]; }
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
ZELM_INLINE StoredRows<T> stored_rows(const Index &index, const Group<T> &g) {
    StoredRows<T> rows;
    unroll<lanes_per_register<T>>(ZELM_EACH(l) { rows.row[l] = index.row(g.object(l)); });
    return rows;
}

namespace detail {

template <class T>
ZELM_INLINE Lanes<T> gather(const char *const (&at)[lanes_per_register<T>], Distance offset) {
    if constexpr (lanes_per_register<T> == 4)
        return Lanes<T>{load<T>(at[0] + offset), load<T>(at[1] + offset), load<T>(at[2] + offset),
                        load<T>(at[3] + offset)};
    else
        return Lanes<T>{load<T>(at[0] + offset), load<T>(at[1] + offset)};
}
template <class T>
ZELM_INLINE void scatter(char *const (&at)[lanes_per_register<T>], Distance offset, Lanes<T> v) {
    unroll<lanes_per_register<T>>(ZELM_EACH(l) { store<T>(at[l] + offset, v[int{l}]); });
}

// N consecutive elements from each lane's address.
template <class T, int N>
ZELM_INLINE void load_runs(Lanes<T> *out, const char *const (&at)[lanes_per_register<T>]) {
    constexpr int L = lanes_per_register<T>, rest = N % L;
    unroll<N / L>(ZELM_EACH(chunk) {
        Lanes<T> v[L];
        unroll<L>(ZELM_EACH(l) { v[l] = load<Lanes<T>>(at[l] + chunk * register_bytes); });
        transpose(v);
        unroll<L>(ZELM_EACH(e) { out[chunk * L + e] = v[e]; });
    });
    if constexpr (rest == 1)
        out[N - 1] = gather<T>(at, (N - 1) * Distance{sizeof(T)});
    else if constexpr (rest != 0) { // the last run may overlap the one before
        constexpr int length = N > L && rest == 3 ? L : rest, start = N - length;
        Lanes<T> v[L];
        unroll<L>(ZELM_EACH(l) { v[l] = load_part<length, T>(at[l] + start * sizeof(T)); });
        transpose(v);
        unroll<rest>(ZELM_EACH(e) { out[N - rest + e] = v[length - rest + e]; });
    }
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
    if constexpr (rest == 1)
        scatter<T>(at, (N - 1) * Distance{sizeof(T)}, in[N - 1]);
    else if constexpr (rest != 0) {
        constexpr int length = N > L && rest == 3 ? L : rest, start = N - length;
        Lanes<T> v[L] = {};
        unroll<length>(ZELM_EACH(e) { v[e] = in[start + e]; });
        transpose(v);
        unroll<L>(ZELM_EACH(l) { store_part<length, T>(at[l] + start * sizeof(T), v[l]); });
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

} // namespace detail

// One object of a group for a single operand: every lane holds it.
template <class T, int H, int W, class View>
ZELM_INLINE void load_splat(Lanes<T> (&a)[H][W], const View &v) {
    unroll<H>(
        ZELM_EACH(i) { unroll<W>(ZELM_EACH(j) { a[i][j] = splat<Lanes<T>>(get(v, i, j)); }); });
}

template <class T, int H, int W, class Operand, class Rows = NaturalRows<T>>
ZELM_INLINE void load_lanes(Lanes<T> (&a)[H][W], const Operand &op, const Group<T> &g,
                            const Rows &rows = {}) {
    constexpr int L = lanes_per_register<T>;
    if constexpr (!Operand::is_array) {
        load_splat<T>(a, view(op, 0, {H, W}));
    } else if (op.planar() && g.full()) {
        const auto v = view(op, g.first, {H, W});
        Lanes<T> b[H][W];
        unroll<H>(
            ZELM_EACH(i) { unroll<W>(ZELM_EACH(j) { b[i][j] = load<Lanes<T>>(v.at(i, j)); }); });
        if constexpr (Rows::natural)
            unroll<H>(ZELM_EACH(i) { unroll<W>(ZELM_EACH(j) { a[i][j] = b[i][j]; }); });
        else
            detail::permute_rows<T, false>(a, b, rows);
    } else if constexpr (Operand::is_tabled) {
        Distance offset[L];
        unroll<L>(ZELM_EACH(l) { offset[l] = op.offset(g.object(l)); });
        const auto v = Operand(op).view(0, {H, W});
        unroll<H>(ZELM_EACH(i) {
            unroll<W>(ZELM_EACH(j) {
                const char *at[L];
                unroll<L>(ZELM_EACH(l) {
                    int r = i;
                    if constexpr (!Rows::natural)
                        r = rows(i, l);
                    at[l] = v.at(r, j) - v.offset + offset[l];
                });
                a[i][j] = detail::gather<T>(at, 0);
            });
        });
    } else {
        const char *base[L];
        unroll<L>(ZELM_EACH(l) { base[l] = op.object(g.object(l)); });
        const Distance s1 = op.view(0).stride1, s2 = op.view(0).stride2;
        const bool packed = W == 1 || s2 == Distance{sizeof(T)};
        if (Rows::natural && packed && (H == 1 || s1 == W * Distance{sizeof(T)})) {
            detail::load_runs<T, H * W>(a[0], base);
        } else {
            unroll<H>(ZELM_EACH(i) {
                const char *row[L];
                unroll<L>(ZELM_EACH(l) {
                    if constexpr (Rows::natural)
                        row[l] = base[l] + i * s1;
                    else
                        row[l] = base[l] + rows(i, l) * s1;
                });
                if (packed)
                    detail::load_runs<T, W>(a[i], row);
                else
                    unroll<W>(ZELM_EACH(j) { a[i][j] = detail::gather<T>(row, j * s2); });
            });
        }
    }
}

// K elements of one row of every lane's object, from column j on; the row by number. For orders
// known only at run time.
template <class T, int K, class Operand, class Rows>
ZELM_INLINE void load_row(Lanes<T> (&a)[1][K], const Operand &op, const Group<T> &g, Shape shape,
                          const Rows &rows, int i, int j) {
    constexpr int L = lanes_per_register<T>;
    if constexpr (!Operand::is_array) {
        const auto v = view(op, 0, shape);
        unroll<K>(ZELM_EACH(e) { a[0][e] = splat<Lanes<T>>(get(v, rows(i, 0), j + e)); });
    } else {
        const char *at[L];
        const bool packed = K == 1 || rows_adjacent(op);
        unroll<L>(ZELM_EACH(l) { at[l] = view(op, g.object(l), shape).at(rows(i, l), j); });
        if (packed)
            detail::load_runs<T, K>(a[0], at);
        else
            unroll<K>(ZELM_EACH(e) {
                unroll<L>(
                    ZELM_EACH(l) { at[l] = view(op, g.object(l), shape).at(rows(i, l), j + e); });
                a[0][e] = detail::gather<T>(at, 0);
            });
    }
}

// n registers to the first `commit` lanes' vectors.
template <class T, class Operand>
ZELM_INLINE void store_vector(const Operand &op, const Group<T> &g, int commit, const Lanes<T> *a,
                              int n) {
    for (int l = 0; l < commit; ++l) {
        const auto v = view(op, g.first + l, {1, n});
        for (int i = 0; i < n; ++i)
            put(v, 0, i,
                load<T>(reinterpret_cast<const char *>(a + i) +
                        static_cast<std::size_t>(l) * sizeof(T)));
    }
}

// Stores the first `commit` lanes. Row i of `a` goes to row i, or to row rows(i, lane).
template <class T, int H, int W, class Operand, class Rows = NaturalRows<T>>
ZELM_INLINE void store_lanes(const Operand &op, const Group<T> &g, int commit,
                             const Lanes<T> (&a)[H][W], const Rows &rows = {}) {
    constexpr int L = lanes_per_register<T>;
    if (commit < L) [[unlikely]] {
        T lanes[H * W][L];
        unroll<H * W>(ZELM_EACH(e) { store<Lanes<T>>(lanes[e], a[e / W][e % W]); });
        for (int l = 0; l < commit; ++l) {
            const auto v = view(op, g.first + l, {H, W});
#pragma GCC unroll 1
            for (int e = 0; e < H * W; ++e) {
                int r = e / W;
                if constexpr (!Rows::natural)
                    r = rows(r, l);
                put(v, r, e % W, lanes[e][l]);
            }
        }
    } else if (op.planar()) {
        const auto v = view(op, g.first, {H, W});
        const auto put_all = [&](const Lanes<T>(&b)[H][W]) __attribute__((always_inline)) {
            unroll<H>(ZELM_EACH(i) {
                unroll<W>(ZELM_EACH(j) { store<Lanes<T>>(v.at(i, j), b[i][j]); });
            });
        };
        if constexpr (Rows::natural) {
            put_all(a);
        } else {
            Lanes<T> b[H][W];
            detail::permute_rows<T, true>(b, a, rows);
            put_all(b);
        }
    } else if constexpr (Operand::is_tabled) {
        Distance offset[L];
        unroll<L>(ZELM_EACH(l) { offset[l] = op.offset(g.first + l); });
        const auto v = op.view(0, {H, W});
        unroll<H>(ZELM_EACH(i) {
            unroll<W>(ZELM_EACH(j) {
                char *at[L];
                unroll<L>(ZELM_EACH(l) {
                    int r = i;
                    if constexpr (!Rows::natural)
                        r = rows(i, l);
                    at[l] = v.at(r, j) - v.offset + offset[l];
                });
                detail::scatter<T>(at, 0, a[i][j]);
            });
        });
    } else {
        char *base[L];
        unroll<L>(ZELM_EACH(l) { base[l] = op.object(g.first + l); });
        const Distance s1 = op.view(0).stride1, s2 = op.view(0).stride2;
        const bool packed = W == 1 || s2 == Distance{sizeof(T)};
        if (Rows::natural && packed && (H == 1 || s1 == W * Distance{sizeof(T)})) {
            detail::store_runs<T, H * W>(base, a[0]);
        } else {
            unroll<H>(ZELM_EACH(i) {
                char *row[L];
                unroll<L>(ZELM_EACH(l) {
                    if constexpr (Rows::natural)
                        row[l] = base[l] + i * s1;
                    else
                        row[l] = base[l] + rows(i, l) * s1;
                });
                if (packed)
                    detail::store_runs<T, W>(row, a[i]);
                else
                    unroll<W>(ZELM_EACH(j) { detail::scatter<T>(row, j * s2, a[i][j]); });
            });
        }
    }
}

// The first `commit` lanes of N row numbers to their objects' rows of `index`, N ints each.
template <class T, int N, class Index>
ZELM_INLINE void store_numbers(const Index &index, const Group<T> &g, int commit,
                               const IndexOf<Lanes<T>> (&p)[N]) {
    constexpr int L = lanes_per_register<T>;
    if (commit < L) [[unlikely]] {
        IndexOf<Lanes<T>> q[N];
        unroll<N>(ZELM_EACH(i) { q[i] = p[i]; });
        for (int l = 0; l < commit; ++l)
            for (int i = 0; i < N; ++i)
                index.row(g.first + l)[i] = static_cast<int>(q[i][l]);
        return;
    }
    char *at[L];
    unroll<L>(ZELM_EACH(l) { at[l] = reinterpret_cast<char *>(index.row(g.first + l)); });
    if constexpr (sizeof(T) == sizeof(int)) {
        Lanes<T> v[N]; // moved as bit patterns
        unroll<N>(ZELM_EACH(i) { v[i] = (Lanes<T>)p[i]; });
        detail::store_runs<T, N>(at, v);
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

} // namespace zelm
