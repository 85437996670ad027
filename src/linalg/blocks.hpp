// Rows or columns in blocks whose sums run side by side in registers.
#pragma once

#include "../frame/lanes.hpp"

namespace zelm {

// f(j, C) for the blocks of C = 4 from `from` to to - 1, then for one block of what is left.
template <class F>
ZELM_INLINE void in_blocks(int from, int to, const F &f) {
    int j = from;
    for (; j <= to - 4; j += 4)
        f(j, std::integral_constant<int, 4>{});
    with_order<1, 3>(
        to - j, [&](auto C) __attribute__((always_inline)) { f(j, C); }, [] {});
}

} // namespace zelm
