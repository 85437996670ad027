#include "symmetric.hpp"
#include "values.hpp"

#include "../frame/checks.hpp"
#include "../frame/element_at.hpp"
#include "../frame/estimate.hpp"
#include "../frame/member.hpp"
#include "../frame/parallel.hpp"
#include "../frame/walk.hpp"

namespace zelm {
namespace {

constexpr Limits values_limits = {1001, 1001}; // of n*(n + 1)*count
constexpr Limits vectors_limits = {701, 701};  // of n*(2*n + 1)*count

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
        put(to, 0, 0, without_signed_zero(x[0]));
        put(to, 1, 0, without_signed_zero(x[1]));
        put(to, 0, 1, without_signed_zero(T{0} - x[1]));
        put(to, 1, 1, without_signed_zero(x[0]));
    }
    return zelStatusOk;
}

template <class T, class Vectors>
[[gnu::noinline]] Outcome<T> solve_in_memory(int n, UnalignedRun<T> a, UnalignedRun<T> d,
                                             const Vectors &vectors) {
    return solve_symmetric<T>(n, a, d, a, vectors);
}

template <class Source, class Destination, class T>
ZelStatus y8_ownzelmEigenValuesSym_m(const Source &source, const Destination &destination,
                                     const Values<T> &values, void *buffer, int n, int object) {
    if (n <= 2)
        return solve_small(source, destination, values, n, object);
    // The matrix in the buffer; once it is reduced its first row becomes the off-diagonal.
    const UnalignedRun<T> a = {static_cast<char *>(buffer)};
    const UnalignedRun<T> d = {values.object(object)};
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

constexpr int side_by_side = 2; // registers that a group computes in
template <class T>
using Pair = Interleaved<Lanes<T>, side_by_side>;
// In blocks, where the stack has room for pairs: 8 KiB each for a matrix and its vectors.
template <class T>
constexpr bool pairs_fit = largest_lane_elements * sizeof(Pair<T>) <= 8192;
template <class T>
using PairInBlock = std::conditional_t<pairs_fit<T>, Pair<T>, Lanes<T>>;

// Without vectors y is not given.

// Order N in dense memory.
template <int N, class T>
struct SolveGroup {
    template <class X, class D, class... Y>
    ZELM_INLINE unsigned operator()(const Group &group, const X &x, const D &values,
                                    const Y &...y) const {
        constexpr bool vectors = sizeof...(Y) != 0;
        using S = Pair<T>;
        S a[N][N], d[1][N], e[N], z[vectors ? N : 1][N];
        load_lanes<T>(a, x, group.first);
        const unsigned failing = solve_lanes<S, vectors>(a[0], d[0], e, z[0], N);
        if (group.stores(failing)) [[likely]] {
            store_lanes<T>(values, group.first, d);
            if constexpr (vectors) {
                S v[N][N];
                unroll<N>(ZELM_EACH(i) {
                    unroll<N>(ZELM_EACH(j) { v[i][j] = without_signed_zero(z[j][i]); });
                });
                (store_lanes<T>(y, group.first, v), ...);
            }
        }
        return failing;
    }
};

// f(N) for the orders N that have kernels of their own, else otherwise().
template <class F, class G>
ZELM_INLINE ZelStatus with_dense_order(int n, const F &f, const G &otherwise) {
    if (n == 6)
        return f(std::integral_constant<int, 6>{});
    return with_order<2, 4>(n, f, otherwise);
}

// Orders 2 to largest_lane_order in any memory.
template <class T>
struct SolveBlock {
    template <class... Y>
    unsigned operator()(const Group &group, const Objects &x, const Objects &values,
                        const Y &...y) const {
        constexpr bool vectors = sizeof...(Y) != 0;
        using S = PairInBlock<T>;
        const int n = x.shape.width;
        S a[largest_lane_elements], d[largest_lane_order], e[largest_lane_order];
        S z[vectors ? largest_lane_elements : 1];
        load_block(a, x, group.first);
        const unsigned failing = solve_lanes<S, vectors>(a, d, e, z, n);
        if (group.stores(failing)) {
            store_block(values, group.first, d);
            if constexpr (vectors) {
                for (int i = 0; i < n; ++i)
                    for (int j = 0; j < n; ++j)
                        a[i * n + j] = without_signed_zero(z[j * n + i]);
                (store_block(y, group.first, a), ...);
            }
        }
        return failing;
    }
};

template <class T, class... Vectors>
ZelStatus solve_arrays(int count, const Single &alone, const Objects &x, const Objects &d,
                       const Vectors &...y) {
    const int n = x.shape.width;
    if (n == 1 || n > largest_lane_order)
        return walk_singly(count, alone);
    const Objects *results[] = {&y..., &d};
    const Overlap overlap(count, *results[0], x); // values beside vectors share memory with nothing
    const bool dense = (x.is_dense() && ... && y.is_dense());
    return with_dense_order(
        dense ? n : 0,
        [&](auto N) {
            return walk_in<T, Form::dense, side_by_side>(count, overlap, SolveGroup<N, T>{}, alone,
                                                         walked<T, N, N>(x), walked<T, 1, N>(d),
                                                         walked<T, N, N>(y)...);
        },
        [&] {
            constexpr int most = largest_lane_elements;
            return walk_blocks < T,
                   pairs_fit<T>
                       ? side_by_side
                       : 1 > (count, overlap, SolveBlock<T>{}, alone, walked_blocks<most>(x),
                              walked_blocks<largest_lane_order>(d), walked_blocks<most>(y)...);
        });
}

template <class Source, class Destination, class T>
ZelStatus y8_ownzelmEigenValuesSym_ma(int count, void *buffer, const Source &source,
                                      const Destination &destination, const Values<T> &values,
                                      int n) {
    const auto alone = [&](int k) {
        return y8_ownzelmEigenValuesSym_m(source, destination, values, buffer, n, k);
    };
    const Objects x = objects(source, {n, n}), d = objects(values, {1, n});
    if constexpr (wants_vectors<Destination>)
        return solve_arrays<T>(count, alone, x, d, objects(destination, {n, n}));
    else
        return solve_arrays<T>(count, alone, x, d);
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
    const auto order = static_cast<std::size_t>(n);
    return run_objects_in(
        scratch_of(buffer, order, order), serial,
        [n](void *scratch, int objects, const Source &from, const Destination &to,
            const Values<T> &d) {
            return with_strides(
                [&](const auto &x, const auto &y) {
                    return y8_ownzelmEigenValuesSym_ma(objects, scratch, x, y, d, n);
                },
                shaped(from, {n, n}), shaped(to, {n, n}));
        },
        count, source, destination, packed_values(values, n));
}

} // namespace
} // namespace zelm

constexpr zelm::NoDestination none{};

ZELM_MEMBERS(EigenValuesSym, (m), eigen_symmetric(src, pBuffer, none, pDstValues, widthHeight))
ZELM_MEMBERS(EigenValuesSym, (ma),
             eigen_symmetric(src, pBuffer, none, pDstValues, widthHeight, count))
ZELM_MEMBERS(EigenValuesVectorsSym, (m),
             eigen_symmetric(src, pBuffer, dst, pDstValues, widthHeight))
ZELM_MEMBERS(EigenValuesVectorsSym, (ma),
             eigen_symmetric(src, pBuffer, dst, pDstValues, widthHeight, count))
