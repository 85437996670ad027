// Argument checks: groups of arguments in an entry's own order.
//
//   if (ZelStatus s = first_failure(pointers(a, b, d), counts(n), sizes(w, h), strides(a, b, d)))
//       return s;
//
// Each group folds its arguments into one word without branching, the words of all groups into one
// test; a sound call pays one branch. Only a failing call asks the groups in turn.
#pragma once

#include "operand.hpp"

#include <cstdint>

namespace zelm {

struct CheckGroup {
    std::uint32_t fault; // non-zero: at least one argument of the group is bad
    ZelStatus status;
};

namespace detail {

inline constexpr std::uint32_t sign_bit = 0x80000000u;

// Both must have the sign bit clear, and `bits` must be clear under the mask of the element size.
struct Fold {
    std::uint32_t bits = 0, sign = 0;

    ZELM_INLINE void at_least_one(int x) {
        const auto u = static_cast<std::uint32_t>(x);
        bits |= u;
        sign |= u - 1u; // 0 wraps to a set sign bit; so does nothing else that `bits` misses
    }
    ZELM_INLINE void at_least_zero(int x) { bits |= static_cast<std::uint32_t>(x); }
    ZELM_INLINE std::uint32_t fault(std::uint32_t mask) const {
        return (bits & (mask | sign_bit)) | (sign & sign_bit);
    }
};

template <class T, int r, bool a>
ZELM_INLINE const void *pointer_of(const Standard<T, r, a> &op) {
    return op.base;
}
template <class T, int r>
ZELM_INLINE const void *pointer_of(const Layout<T, r> &op) {
    return op.table;
}
template <class T, int r, bool a>
ZELM_INLINE const void *pointer_of(const Tabled<T, r, a> &op) {
    return op.table;
}
ZELM_INLINE const void *pointer_of(const void *plain) { return plain; }
template <class T>
ZELM_INLINE const void *pointer_of(const Scalars<T> &op) {
    return op.base;
}
template <class T>
ZELM_INLINE const void *pointer_of(const Buffer<T> &op) {
    return op.base;
}
template <class T>
ZELM_INLINE const void *pointer_of(const Constant<T> &) {
    return &sign_bit;
}

// stride0, and what remains.
template <class Operand>
ZELM_INLINE void fold_object_stride(Fold &f, const Operand &op) {
    if constexpr (requires { op.stride0; } && Operand::is_array)
        f.at_least_one(op.stride0);
}
template <class Operand>
ZELM_INLINE void fold_element_strides(Fold &f, const Operand &op) {
    if constexpr (requires { op.stride1; }) {
        if constexpr (Operand::object_rank == 2)
            f.at_least_one(op.stride1);
        if constexpr (Operand::object_rank >= 1)
            f.at_least_one(op.stride2);
    }
}

template <class Operand>
ZELM_INLINE void fold_shift(Fold &f, const Operand &op) {
    if constexpr (Operand::is_tabled || Operand::has_table)
        f.at_least_zero(op.shift);
}

template <class Operand, class...>
inline constexpr std::uint32_t alignment_mask = sizeof(typename Operand::Element) - 1;

} // namespace detail

// Required pointers: bases, tables, index arrays, buffers.
template <class... Operands>
ZELM_INLINE CheckGroup pointers(const Operands &...op) {
    return {(std::uint32_t{detail::pointer_of(op) == nullptr} | ...), zelStatusNullPointer};
}
ZELM_INLINE CheckGroup counts(int count) {
    detail::Fold f;
    f.at_least_one(count);
    return {f.fault(0), zelStatusBadCount};
}
template <class... Ints>
ZELM_INLINE CheckGroup sizes(Ints... n) {
    detail::Fold f;
    (f.at_least_one(n), ...);
    return {f.fault(0), zelStatusBadSize};
}
// Every stride that the operands have: at least 1 and a multiple of the element size.
template <class... Operands>
ZELM_INLINE CheckGroup strides(const Operands &...op) {
    detail::Fold f;
    (detail::fold_object_stride(f, op), ...);
    (detail::fold_element_strides(f, op), ...);
    return {f.fault(detail::alignment_mask<Operands...>), zelStatusBadStride};
}
// The strides inside an object only.
template <class... Operands>
ZELM_INLINE CheckGroup element_strides(const Operands &...op) {
    detail::Fold f;
    (detail::fold_element_strides(f, op), ...);
    return {f.fault(detail::alignment_mask<Operands...>), zelStatusBadStride};
}
// The strides from object to object, which one object does not need.
template <class... Operands>
ZELM_INLINE CheckGroup object_strides(int count, const Operands &...op) {
    detail::Fold f;
    (detail::fold_object_stride(f, op), ...);
    return {count < 2 ? 0 : f.fault(detail::alignment_mask<Operands...>), zelStatusBadStride};
}
// Every roi shift that the operands have: at least 0 and a multiple of the element size.
template <class... Operands>
ZELM_INLINE CheckGroup shifts(const Operands &...op) {
    detail::Fold f;
    (detail::fold_shift(f, op), ...);
    return {f.fault(detail::alignment_mask<Operands...>), zelStatusBadOffset};
}
ZELM_INLINE CheckGroup agreement(int a, int b) {
    return {static_cast<std::uint32_t>(a ^ b), zelStatusSizeMismatch};
}
// Of sizes.
ZELM_INLINE CheckGroup at_most(int a, int b) {
    return {std::uint32_t{a > b}, zelStatusSizeMismatch};
}

template <class... Groups>
ZELM_INLINE ZelStatus first_failure(const Groups &...group) {
    if ((group.fault | ...) == 0) [[likely]]
        return zelStatusOk;
    ZelStatus status = zelStatusOk;
    (void)((group.fault != 0 ? (status = group.status, true) : false) || ...);
    return status;
}

} // namespace zelm
