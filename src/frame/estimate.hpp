// Work estimates: products of the sizes and the count, wrapped to 32 bits; a wrapped, negative
// estimate stays serial. Limits say where a call goes parallel.
#pragma once

#include <cstdint>

namespace zelm {

class Estimate {
public:
    constexpr Estimate(int x) : bits_(static_cast<std::uint32_t>(x)) {}
    constexpr int value() const { return static_cast<std::int32_t>(bits_); }

    friend constexpr Estimate operator+(Estimate a, Estimate b) { return raw(a.bits_ + b.bits_); }
    friend constexpr Estimate operator*(Estimate a, Estimate b) { return raw(a.bits_ * b.bits_); }

private:
    static constexpr Estimate raw(std::uint32_t bits) {
        Estimate e{0};
        e.bits_ = bits;
        return e;
    }
    std::uint32_t bits_;
};

// Serial while the estimate is below: `packed` where every stride2 of the call equals the element
// size (and in the pointer description, which has no stride2), `general` elsewhere.
struct Limits {
    int packed, general;
    constexpr bool serial(Estimate w, bool all_packed) const {
        return w.value() < (all_packed ? packed : general);
    }
};

// Elements that an operand brings to an element-wise operation on objects of `size` elements: those
// of an array for every object, others once.
template <class Operand>
constexpr Estimate elements(Estimate size, int count) {
    if constexpr (!Operand::is_array)
        return size;
    else
        return (Operand::object_rank == 0 ? Estimate(1) : size) * count;
}

} // namespace zelm
