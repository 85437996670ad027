#include "invert_general.hpp"

#include "../frame/checks.hpp"
#include "../frame/estimate.hpp"
#include "../frame/member.hpp"
#include "../frame/parallel.hpp"

namespace zelm {
namespace {

constexpr Limits limits = {2501, 2501}; // of 2*n*count

// Determinants (orders 3 and 4) and pivots (5 and 6) below this are singular, where rows are
// adjacent. The doubled values in double precision are part of the interface.
template <class T, int N>
inline constexpr T adjacent_threshold = (sizeof(T) == 8 && N <= 4 ? 4 : 2) *
                                        T(N *N *N) * smallest_normal<T>;

// ---- orders 3 to 6, adjacent rows ----

template <int N, class S>
ZELM_INLINE MaskOf<S> invert(Inverse<N, S> &inverse, const S (&a)[N][N]) {
    using T = ElementOf<S>;
    constexpr T threshold = adjacent_threshold<T, N>;
    if constexpr (N <= 4) {
        const S d = cofactors(inverse.row, a);
        inverse.reciprocal = refined_reciprocal(d);
        return splat<S>(threshold) > magnitude(d);
    } else {
        // Columns of the transpose are rows of the inverse.
        S t[N][N];
        unroll<N>(ZELM_EACH(i) { unroll<N>(ZELM_EACH(j) { t[j][i] = a[i][j]; }); });
        const auto failing = gauss_jordan(t, inverse.rows, threshold, ZELM_EACH(){});
        unroll<N>(ZELM_EACH(i) { unroll<N>(ZELM_EACH(j) { inverse.row[i][j] = t[j][i]; }); });
        return failing;
    }
}

template <int N, class T, class Source>
ZELM_INLINE void load_object(T (&a)[N][N], const Source &from) {
    unroll<N>(ZELM_EACH(i) { unroll<N>(ZELM_EACH(j) { a[i][j] = get(from, i, j); }); });
}

template <int N, class T, class Source, class Destination>
ZelStatus invert_object(const Source &from, const Destination &to) {
    T a[N][N];
    Inverse<N, T> inverse;
    load_object(a, from);
    if (invert(inverse, a))
        return zelStatusSingular;
    inverse.finish();
    unroll<N>(ZELM_EACH(i) {
        const int row = N <= 4 ? int{i} : inverse.rows[i];
        unroll<N>(ZELM_EACH(j) { put(to, row, j, inverse.row[i][j]); });
    });
    return zelStatusOk;
}

// Arrays of this order and type are inverted by pairs: 2k and 2k + 1 fail together.
template <class T, int N>
inline constexpr bool by_pairs = sizeof(T) == 4 && N == 4;

// Registers of dense objects. The second one's cofactors come between the first one's determinant
// and the products that wait for its reciprocal.
template <int N>
constexpr int in_turn = N <= 4 ? 2 : 1;

template <int N, class T>
struct InvertGroup {
    template <class G, class X, class Y>
    ZELM_INLINE unsigned operator()(const G &group, const X &x, const Y &y) const {
        return invert_group<N, T>(
            group, x, y, [](auto &inverse, const auto &a) __attribute__((always_inline)) {
                return lane_bits(invert(inverse, a));
            },
            [](unsigned failing) {
                constexpr unsigned even = 0x55555555;
                return by_pairs<T, N> ? failing | (failing & even) << 1 | (failing & ~even) >> 1
                                      : failing;
            });
    }
};

// Of order 3 to 6.
template <class T>
ZelStatus invert_arrays(int count, const Objects &x, const Objects &y, const Single &single) {
    return with_order<3, 6>(
        x.shape.width,
        [&](auto N) {
            return walk_by_rows<T, in_turn<N>>(count, Overlap(count, y, x), InvertGroup<N, T>{},
                                               single, walked<T, N, N>(x), walked<T, N, N>(y));
        },
        [] { return zelStatusOk; });
}

template <int N, class Source, class Destination>
ZelStatus invert_one(const Source &source, const Destination &destination, int n, int count) {
    using T = typename Source::Element;
    constexpr Shape shape = {N, N};
    if constexpr (by_pairs<T, N>)
        if (n % 2 == 0 && count - n > 1) { // the other one is not yet inverted
            T a[N][N];
            Inverse<N, T> unused;
            load_object(a, view(source, n + 1, shape));
            if (invert(unused, a))
                return zelStatusSingular;
        }
    return invert_object<N, T>(view(source, n, shape), view(destination, n, shape));
}

// ---- kernels and entries ----

template <class Source, class Destination>
ZELM_INLINE bool rows_are_adjacent(const Source &source, const Destination &destination) {
    return !Destination::is_tabled && source.packed() && destination.packed();
}

template <class Source, class Destination>
ZelStatus y8_ownzelmInvert_m(const Source &source, const Destination &destination, int n,
                             void *buffer) {
    using T = typename Source::Element;
    const auto general = [&] {
        return invert_general<T>(objects(source, {n, n}), objects(destination, {n, n}), buffer);
    };
    if (!rows_are_adjacent(source, destination))
        return general();
    return with_order<3, 6>(
        n,
        [&](auto N) {
            return invert_object<N, T>(view(source, 0, {n, n}), view(destination, 0, {n, n}));
        },
        general);
}

template <class Source, class Destination>
ZelStatus y8_ownzelmInvert_ma(void *buffer, int count, const Source &source,
                              const Destination &destination, int n) {
    using T = typename Source::Element;
    const Objects x = objects(source, {n, n}), y = objects(destination, {n, n});
    // Tables too: their method does not depend on what they say.
    const auto general = [&] {
        return invert_array_general<T>(count, with_even_strides(x), with_even_strides(y), buffer);
    };
    if constexpr (!Destination::is_tabled)
        if (source.packed() && destination.packed() && n >= 3 && n <= 6)
            return invert_arrays<T>(count, x, y, [&](int k) {
                return with_order<3, 6>(
                    n, [&](auto N) { return invert_one<N>(source, destination, k, count); },
                    [] { return zelStatusOk; });
            });
    return general();
}

template <class Source, class Destination>
ZelStatus invert_order_1(const Source &source, const Destination &destination, int count) {
    using T = typename Source::Element;
    return walk_singly(count, [&](int k) {
        const T x = get(view(source, k, {1, 1}), 0, 0);
        if (!(magnitude(x) > 2 * smallest_normal<T>))
            return zelStatusSingular;
        put(view(destination, k, {1, 1}), 0, 0, T{1} / x);
        return zelStatusOk;
    });
}

template <class Source, class T, class Destination>
ZELM_INLINE ZelStatus invert(const Source &source, T *buffer, const Destination &destination,
                             int n) {
    if (const ZelStatus s =
            first_failure(pointers(source, buffer, destination), sizes(n),
                          strides(source, destination), shifts(source, destination)))
        return s;
    if (n == 1)
        return invert_order_1(source, destination, 1);
    return y8_ownzelmInvert_m(source, destination, n, buffer);
}

template <class Source, class T, class Destination>
ZELM_INLINE ZelStatus invert(const Source &source, T *buffer, const Destination &destination, int n,
                             int count) {
    if (const ZelStatus s =
            first_failure(pointers(source, buffer, destination), counts(count), sizes(n),
                          strides(source, destination), shifts(source, destination)))
        return s;
    if (n == 1)
        return invert_order_1(source, destination, count);
    return run_objects_in(
        scratch_matrix(buffer, n), limits.serial(Estimate(2) * n * count, true),
        [n](void *scratch, int objects, const Source &from, const Destination &to) {
            return y8_ownzelmInvert_ma(scratch, objects, from, to, n);
        },
        count, source, destination);
}

} // namespace
} // namespace zelm

ZELM_MEMBERS(Invert, (m), invert(src, pBuffer, dst, widthHeight))
ZELM_MEMBERS(Invert, (ma), invert(src, pBuffer, dst, widthHeight, count))
