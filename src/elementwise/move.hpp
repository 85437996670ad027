// Elements moved from one description to another, as bit patterns: register moves keep signalling
// NaN and signs of zero.
#pragma once

#include "../frame/elementwise.hpp"
#include "../frame/overlap.hpp"
#include "../frame/planes.hpp"

namespace zelm {

struct Unchanged {
    ZELM_INLINE auto operator()(auto x) const { return x; }
};

template <class D, class S>
[[gnu::noinline]] bool are_apart(int count, Shape shape, const D &destination, const S &source) {
    const Footprint to(destination, shape);
    const Footprint from(source, shape);
    return Overlap(count, shape, to, from).clear();
}

// Tables with even distances are strided memory, whose rows move in registers. Vectors are rows:
// what is compiled for matrices serves them too.
template <class D, class S>
ZelStatus move_elements(int count, Shape shape, const D &destination, const S &source) {
    if constexpr (D::object_rank == 1) {
        return move_elements(count, shape, destination.as_row(), source);
    } else if constexpr (S::object_rank == 1) {
        return move_elements(count, shape, destination, source.as_row());
    } else {
        if constexpr (D::is_tabled) {
            Standard<typename D::Type, 2, D::is_array> same;
            if (is_regular(destination, shape, same))
                return move_elements(count, shape, same, source);
        }
        if constexpr (S::is_tabled) {
            Standard<typename S::Type, 2, S::is_array> same;
            if (is_regular(source, shape, same))
                return move_elements(count, shape, destination, same);
        }
        if constexpr (D::is_array && S::is_array && D::has_table + S::has_table < 2 &&
                      D::is_tabled + S::is_tabled < 2) {
            // From planes two doubles at a time are slower than lines of single elements.
            constexpr bool both_ways = sizeof(typename D::Element) == 4;
            const bool to_planes = planes_and_objects(count, shape, destination, source);
            if ((to_planes ||
                 (both_ways && planes_and_objects(count, shape, source, destination))) &&
                are_apart(count, shape, destination, source)) {
                if (to_planes)
                    move_planes_of<true>(count, shape, destination, source);
                else if constexpr (both_ways)
                    move_planes_of<false>(count, shape, source, destination);
                return zelStatusOk;
            }
        }
        return y8_ownzelm_elementwise(count, shape, Unchanged{}, destination, source);
    }
}

} // namespace zelm
