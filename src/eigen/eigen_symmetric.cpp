#include "symmetric.hpp"

#include "../frame/checks.hpp"
#include "../frame/estimate.hpp"
#include "../frame/member.hpp"
#include "../frame/parallel.hpp"
#include "../frame/walk.hpp"

namespace zelm {
namespace {

constexpr Limits values_limits = {1001, 1001}; // of n*(n + 1)*count
constexpr Limits vectors_limits = {701, 701};  // of n*(2*n + 1)*count

inline constexpr int largest_lane_order = 16;

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

// ---- one object ----

template <class Source, class Destination, class T>
ZelStatus solve_small(const Source &source, const Destination &destination, const Values<T> &values,
                      int n, int object) {
    constexpr bool vectors = wants_vectors<Destination>;
    const auto from = view(source, object, {n, n});
    const auto value = values.view(object);
    if (n == 1) {
        put(value, 0, 0, get(from, 0, 0));
        if constexpr (vectors)
            put(view(destination, object, {n, n}), 0, 0, T{1});
        return zelStatusOk;
    }
    const T a[3] = {get(from, 0, 0), get(from, 0, 1), get(from, 1, 1)};
    T d[2], x[2];
    if (solve_order_2<T, vectors>(a, d, x))
        return zelStatusSingular;
    put(value, 0, 0, d[0]);
    put(value, 0, 1, d[1]);
    if constexpr (vectors) {
        const auto to = view(destination, object, {n, n});
        put(to, 0, 0, x[0]);
        put(to, 1, 0, x[1]);
        put(to, 0, 1, T{0} - x[1]);
        put(to, 1, 1, x[0]);
    }
    return zelStatusOk;
}

template <class T, class Vectors>
[[gnu::noinline]] Outcome<T> solve_in_memory(int n, Unaligned<T> *a, Unaligned<T> *d,
                                             const Vectors &vectors) {
    return solve_symmetric<T>(n, a, d, a, vectors);
}

template <class Source, class Destination, class T>
ZelStatus y8_ownzelmEigenValuesSym_m(const Source &source, const Destination &destination,
                                     const Values<T> &values, void *buffer, int n, int object) {
    if (n <= 2)
        return solve_small(source, destination, values, n, object);
    // The matrix in the buffer; once it is reduced its first row becomes the off-diagonal.
    auto *const a = static_cast<Unaligned<T> *>(buffer);
    auto *const d = reinterpret_cast<Unaligned<T> *>(values.object(object));
    const auto from = view(source, object, {n, n});
    for (std::ptrdiff_t i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j)
            a[i * n + j] = get(from, static_cast<int>(i), j);
    Outcome<T> outcome;
    if constexpr (wants_vectors<Destination>) {
        const auto to = view(destination, object, {n, n});
        const MemoryVectors<T, decltype(to)> vectors = {to, n, rows_adjacent(destination)};
        outcome = solve_in_memory<T>(n, a, d, vectors);
        vectors.finish();
    } else {
        outcome = solve_in_memory<T>(n, a, d, NoVectors{});
    }
    return outcome.not_converged ? zelStatusNotConverged
           : outcome.singular    ? zelStatusSingular
                                 : zelStatusOk;
}

// ---- arrays ----

template <class Source, class Destination, class T>
ZelStatus y8_ownzelmEigenValuesSym_ma(int count, void *buffer, const Source &source,
                                      const Destination &destination, const Values<T> &values,
                                      int n) {
    for (int k = 0; k < count; ++k)
        if (const ZelStatus status =
                y8_ownzelmEigenValuesSym_m(source, destination, values, buffer, n, k))
            return status;
    return zelStatusOk;
}

// ---- entries ----

template <class Source, class Destination, class T>
ZELM_INLINE ZelStatus eigen_symmetric(const Source &source, T *buffer,
                                      const Destination &destination, T *values, int n) {
    const Standard<T, 0, false> b = {buffer, 0, 0, 0}, v = {values, 0, 0, 0};
    ZelStatus s;
    if constexpr (wants_vectors<Destination>)
        s = first_failure(pointers(source, b, v, destination), sizes(n),
                          shifts(source, destination), strides(source, destination));
    else
        s = first_failure(pointers(source, b, v), sizes(n), shifts(source), strides(source));
    if (s)
        return s;
    return y8_ownzelmEigenValuesSym_m(source, destination, packed_values(values, n), buffer, n, 0);
}

template <class Source, class Destination, class T>
ZELM_INLINE ZelStatus eigen_symmetric(const Source &source, T *buffer,
                                      const Destination &destination, T *values, int n, int count) {
    constexpr bool vectors = wants_vectors<Destination>;
    const Standard<T, 0, false> b = {buffer, 0, 0, 0}, v = {values, 0, 0, 0};
    ZelStatus s;
    if constexpr (vectors)
        s = first_failure(pointers(source, b, v, destination), sizes(n), counts(count),
                          shifts(source, destination), strides(source, destination));
    else
        s = first_failure(pointers(source, b, v), sizes(n), counts(count), shifts(source),
                          strides(source));
    if (s)
        return s;
    const Estimate size = n;
    const bool serial = vectors ? vectors_limits.serial(size * (size * 2 + 1) * count, true)
                                : values_limits.serial(size * (size + 1) * count, true);
    const auto elements = static_cast<std::size_t>(n) * static_cast<std::size_t>(n);
    return run_objects(
        serial,
        [n](int objects, void *scratch, const Source &from, const Destination &to,
            const Values<T> &d) {
            return y8_ownzelmEigenValuesSym_ma(objects, scratch, from, to, d, n);
        },
        count, Scratch{buffer, elements * sizeof(T)}, source, destination,
        packed_values(values, n));
}

} // namespace
} // namespace zelm

#define VALUES_M(D, T, suffix, kind)                                                               \
    ZELM_MEMBER(zelmEigenValuesSym_##kind##_##suffix,                                              \
                (ZELM_PARAMETERS(D, kind, const T, src), T * buffer, T * values, int n),           \
                zelm::eigen_symmetric(ZELM_OPERAND(D, kind, const T, src), buffer,                 \
                                      zelm::NoDestination{}, values, n))
#define VALUES_MA(D, T, suffix, kind)                                                              \
    ZELM_MEMBER(                                                                                   \
        zelmEigenValuesSym_##kind##_##suffix,                                                      \
        (ZELM_PARAMETERS(D, kind, const T, src), T * buffer, T * values, int n, int count),        \
        zelm::eigen_symmetric(ZELM_OPERAND(D, kind, const T, src), buffer, zelm::NoDestination{},  \
                              values, n, count))
#define VECTORS_M(D, T, suffix, kind)                                                              \
    ZELM_MEMBER(zelmEigenValuesVectorsSym_##kind##_##suffix,                                       \
                (ZELM_PARAMETERS(D, kind, const T, src), T * buffer,                               \
                 ZELM_PARAMETERS(D, kind, T, dst), T * values, int n),                             \
                zelm::eigen_symmetric(ZELM_OPERAND(D, kind, const T, src), buffer,                 \
                                      ZELM_OPERAND(D, kind, T, dst), values, n))
#define VECTORS_MA(D, T, suffix, kind)                                                             \
    ZELM_MEMBER(zelmEigenValuesVectorsSym_##kind##_##suffix,                                       \
                (ZELM_PARAMETERS(D, kind, const T, src), T * buffer,                               \
                 ZELM_PARAMETERS(D, kind, T, dst), T * values, int n, int count),                  \
                zelm::eigen_symmetric(ZELM_OPERAND(D, kind, const T, src), buffer,                 \
                                      ZELM_OPERAND(D, kind, T, dst), values, n, count))

ZELM_SINGLE(VALUES_M, m)
ZELM_ARRAY(VALUES_MA, ma)
ZELM_SINGLE(VECTORS_M, m)
ZELM_ARRAY(VECTORS_MA, ma)
