// Which row of each lane's object belongs to row i of a register array.
#pragma once

#include "operand.hpp"

namespace zelm {

// As they are.
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

template <class Rows>
ZELM_INLINE auto row_of(const Rows &rows, int i, int lane) {
    if constexpr (Rows::natural)
        return i;
    else
        return rows(i, lane);
}

} // namespace zelm
