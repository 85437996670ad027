// Elements moved from one description to another, as bit patterns: register moves keep signalling
// NaN and signs of zero.
#pragma once

#include "../frame/elementwise.hpp"

namespace zelm {

struct Unchanged {
    ZELM_INLINE auto operator()(auto x) const { return x; }
};

// Tables with even distances are strided memory, whose rows move in registers.
template <class D, class S>
ZelStatus move_elements(int count, Shape shape, const D &destination, const S &source) {
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
    return y8_ownzelm_elementwise(count, shape, Unchanged{}, destination, source);
}

} // namespace zelm
