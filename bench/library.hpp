// The library's members by element type, and calls of them with the operands of a problem.
#ifndef BENCH_LIBRARY_HPP
#define BENCH_LIBRARY_HPP

#include <stdexcept>
#include <string>
#include <type_traits>

#include <zelm.h>

#include "harness.hpp"
#include "problem.hpp"

// BENCH_MEMBER(T, zelmMul_mama, _L) is zelmMul_mama_32f_L or zelmMul_mama_64f_L.
#define BENCH_MEMBER(T, name, ...)                                                                 \
    (::zelm::bench::pick<T>(name##_32f##__VA_ARGS__, name##_64f##__VA_ARGS__))

namespace zelm::bench {

template <class T, class F, class D>
constexpr auto pick(F *of_float, D *of_double) {
    if constexpr (std::is_same_v<T, float>)
        return of_float;
    else
        return of_double;
}

template <class T>
constexpr ElementType type_of = std::is_same_v<T, float> ? ElementType::f32 : ElementType::f64;

template <class T>
T *base(const BenchOperand &operand) {
    return static_cast<T *>(operand.base);
}

template <class T>
const T *const *sources(const std::vector<void *> &table) {
    return reinterpret_cast<const T *const *>(table.data());
}
template <class T>
T *const *destinations(const std::vector<void *> &table) {
    return reinterpret_cast<T *const *>(table.data());
}

inline void must(ZelStatus status) {
    if (status == zelStatusSingular || status == zelStatusDivByZero)
        throw BadLuck("singular");
    if (status != zelStatusOk)
        throw std::runtime_error("status " + std::to_string(status));
}

} // namespace zelm::bench

#endif
