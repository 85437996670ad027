// An element of memory as a reference, for algorithms that take d(i, j) and assign to it.
#pragma once

#include "operand.hpp"

namespace zelm {

template <class T, class View>
struct ElementAt {
    const View &view;
    int i, j;

    ZELM_INLINE operator T() const { return get(view, i, j); }
    ZELM_INLINE void operator=(T value) const { put(view, i, j, value); }
};
template <class T, class View>
ZELM_INLINE ElementAt<T, View> element_at(const View &view, int i, int j) {
    return {view, i, j};
}

} // namespace zelm
