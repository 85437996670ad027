// Elements moved from one description to another, as bit patterns: register moves keep signalling
// NaN and signs of zero.
#pragma once

#include "../frame/elementwise.hpp"
#include "../frame/overlap.hpp"

namespace zelm {

struct Unchanged {
    ZELM_INLINE auto operator()(auto x) const { return x; }
};

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
        if constexpr (D::is_array && S::is_array) {
            // From planes two doubles at a time are slower than lines of single elements.
            using T = typename D::Element;
            const Objects from = objects(source, shape), to = objects(destination, shape);
            if ((to.is_planar() || (from.is_planar() && sizeof(T) == 4)) &&
                Overlap(count, to, from).clear() &&
                move_between_planes_and_rows<T>(from, to, count))
                return zelStatusOk;
        }
        return y8_ownzelm_elementwise(count, shape, Unchanged{}, destination, source);
    }
}

} // namespace zelm
