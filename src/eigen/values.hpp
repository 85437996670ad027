// What both eigenproblem families say of their arguments.
#pragma once

#include "../frame/operand.hpp"

namespace zelm {

// Where the vectors go of a call that wants none.
struct NoDestination {
    using Type = void;
    ZELM_INLINE NoDestination from(int) const { return {}; }
};
template <class Destination>
inline constexpr bool wants_vectors = !std::is_same_v<Destination, NoDestination>;

template <class T>
using Values = Standard<T, 1, true>; // n of each object, packed
template <class T>
ZELM_INLINE Values<T> packed_values(T *values, int n) {
    const auto bytes = static_cast<unsigned>(n) * unsigned{sizeof(T)};
    return {values, static_cast<int>(bytes), 0, sizeof(T)};
}

} // namespace zelm
