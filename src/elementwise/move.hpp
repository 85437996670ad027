// Elements moved from one description to another, as bit patterns: register moves keep signalling
// NaN and signs of zero.
#pragma once

#include "../frame/elementwise.hpp"
#include "../frame/overlap.hpp"

namespace zelm {

struct Unchanged {
    ZELM_INLINE auto operator()(auto x) const { return x; }
};

template <class T>
[[gnu::noinline]] void move_objects(int count, const Objects &destination, const Objects &source) {
    const Objects to = with_even_strides(destination), from = with_even_strides(source);
    // From planes two doubles at a time are slower than lines of single elements.
    if ((to.is_planar() || (from.is_planar() && sizeof(T) == 4)) &&
        Overlap(count, to, from).clear() && move_between_planes_and_rows<T>(from, to, count))
        return;
    elementwise::arrays<T>(count, Unchanged{}, to, from);
}
template <class D, class S>
ZELM_INLINE ZelStatus move_elements(int count, Shape shape, const D &destination, const S &source) {
    move_objects<typename D::Element>(count, objects(destination, shape), objects(source, shape));
    return zelStatusOk;
}

} // namespace zelm
