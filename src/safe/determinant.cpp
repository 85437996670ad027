#include "lu.hpp"

#include "../linalg/det.hpp"

#include <cmath>

namespace zelm::safe {
namespace {

// mantissa * 2^exponent: no product of pivots leaves the range.
template <class T>
struct Product {
    using S = Lanes<T>;
    S mantissa = splat<S>(1);
    IndexOf<S> exponent = splat_index<S>(0);

    ZELM_INLINE void multiply(S pivot) {
        mantissa = mantissa * mantissa_of<T>(pivot);
        exponent = exponent + exponent_of<T>(pivot);
    }
    ZELM_INLINE void normalize() {
        exponent = exponent + exponent_of<T>(mantissa);
        mantissa = mantissa_of<T>(mantissa);
    }
    ZELM_INLINE S value() const {
        const MaskOf<S> as_it_is = exponent == splat_index<S>(0);
        return lane_bits(as_it_is) == all_lanes<S> ? mantissa : scaled<T>(mantissa, exponent);
    }
    ZELM_INLINE void negate(MaskOf<S> lanes) { mantissa = select(lanes, -mantissa, mantissa); }
};

// Closed forms are fast, and as accurate as elimination as long as the determinant is not small
// beside the product of the columns' largest elements, which bounds every term of its expansion.

template <class S>
ZELM_INLINE S closed_form(const S (&a)[2][2]) {
    return a[0][0] * a[1][1] - a[0][1] * a[1][0];
}
template <int N, class S>
ZELM_INLINE S closed_form(const S (&a)[N][N]) {
    return zelm::determinant(a);
}
// Returns the lanes where the closed form is accurate; product is 1 before.
template <int N, class T>
ZELM_INLINE MaskOf<Lanes<T>> expand(const Lanes<T> (&a)[N][N], Product<T> &product) {
    using S = Lanes<T>;
    S least = splat<S>(power<T>(-determinant_ratio<T>)), smallest, largest;
    unroll<N>(ZELM_EACH(j) {
        S column = magnitude(a[0][j]);
        unroll<1, N>(ZELM_EACH(i) { column = larger(magnitude(a[i][j]), column); });
        least = least * column;
        smallest = j == 0 ? column : smaller(column, smallest);
        largest = j == 0 ? column : larger(column, largest);
    });
    product.mantissa = closed_form(a);
    const S m = magnitude(product.mantissa);
    return (m >= least) & (m >= splat<S>(smallest_normal<T>)) &
           (m <= splat<S>(std::numeric_limits<T>::max())) &
           (smallest >= splat<S>(power<T>(-element_reach<T>))) &
           (largest <= splat<S>(power<T>(element_reach<T>)));
}
// Of n x n elements near 2^exponent.
template <class T>
[[gnu::noinline]] MaskOf<Lanes<T>> expand_in_memory(const Lanes<T> *f, int n, int exponent,
                                                    Product<T> &product) {
    using S = Lanes<T>;
    product.exponent = product.exponent + n * exponent;
    return with_order<2, largest_straight_line_order>(
        n,
        [&](auto N) {
            S a[N][N];
            for (int e = 0; e < N * N; ++e)
                a[e / N][e % N] = f[e] * splat<S>(power<T>(-exponent));
            return expand(a, product);
        },
        [] { return no_lane<S>(); });
}

template <class T>
Pivots<Lanes<T>> multiply_pivots(const Lanes<T> *f, const IndexOf<Lanes<T>> *p, int n,
                                 Product<T> &product) {
    using S = Lanes<T>;
    Pivots<S> pivots;
    for (int i = 0; i < n; ++i) {
        pivots.note(f[i * n + i]);
        product.multiply(f[i * n + i]);
        if (i % 32 == 31)
            product.normalize();
        for (int j = 0; j < i; ++j)
            product.negate(p[j] > p[i]);
    }
    return pivots;
}

// A group as it stands, of any order: returns the lanes that need no more care.
template <class T, class A>
unsigned try_any_order(const A &a, int n, Product<T> &product, char *memory) {
    using S = Lanes<T>;
    const Careful<T> m(reinterpret_cast<S *>(memory), n); // its memory
    load_objects(m.f, a, n, n);
    factor_lanes<S>(m.f, m.p, n, T{0}, m.x);
    const MaskOf<S> fine = multiply_pivots(m.f, m.p, n, product).fine;
    product.normalize();
    return lane_bits(fine);
}

// The others. The determinant of a singular matrix is the product 0.
template <class T, class A>
[[gnu::noinline]] Product<T> multiply_rest(const A &a, int n, char *memory, int *statuses) {
    using S = Lanes<T>;
    Careful<T> careful(reinterpret_cast<S *>(memory), n);
    load_objects(careful.f, a, n, n);
    careful.scale_columns();
    Product<T> product, again;
    for (int j = 0; j < n; ++j)
        product.exponent = product.exponent - careful.exponent[j];
    again.exponent = product.exponent;
    const MaskOf<S> accurate =
        expand_in_memory(careful.f, n, Format<T>::factor_exponent, product) & careful.finite;
    MaskOf<S> overgrown = no_lane<S>();
    if (lane_bits(accurate) != all_lanes<S>) {
        careful.eliminate();
        for (int i = 0; i < n; ++i) { // a pivot may be subnormal
            S &pivot = careful.f[i * n + i];
            const Scale<T> scale(magnitude(pivot), 0);
            pivot = scale(pivot);
            again.exponent = again.exponent - scale.exponent;
        }
        multiply_pivots(careful.f, careful.p, n, again);
        again.normalize();
        again.mantissa = select(careful.singular, splat<S>(0), again.mantissa);
        product.mantissa = select(accurate, product.mantissa, again.mantissa);
        product.exponent = select(accurate, product.exponent, again.exponent);
        overgrown = careful.overgrown & ~accurate & ~careful.singular;
    }
    set_status(statuses, ~careful.finite, zelmSafeNotFinite);
    set_status(statuses, overgrown, zelmSafeOutOfRange);
    return product;
}

// answer(product, out, statuses) computes `results` elements for each lane and returns the lanes
// that fail; it sets their status where statuses is not null.
template <class T, int results, class Answer>
int determinants(const ZelmView &a, const ZelmView (&to)[results], int n, Distance count,
                 ZelmStatusView status, const Answer &answer) {
    using S = Lanes<T>;
    constexpr int L = lanes_of<S>;
    const double order = n;
    bool apart = true;
    for (const ZelmView &result : to)
        apart = apart && are_apart(a, result);
    const bool dense = is_dense_view<T>(a, n, n);
    return finish_objects<L, L>(
        count, order * order * order / 3, careful_elements<T>(n) * sizeof(S), status,
        [&](Group &group, int groups, char *memory) {
            const auto run = [&](const auto &trial) __attribute__((always_inline)) {
                return in_run<L>(
                    group, groups, [&](const Group &g) __attribute__((always_inline)) {
                        Product<T> product;
                        unsigned fine = trial(g, product);
                        S out[results];
                        fine &= ~lane_bits(answer(product, out, nullptr));
                        for (int r = 0; r < results; ++r)
                            store_some(g.objects<T, L>(to[r]), apart ? all_lanes<S> : fine, out + r,
                                       1, 1);
                        return fine;
                    });
            };
            return with_order<2, largest_straight_line_order>(
                n,
                [&](auto N) __attribute__((always_inline)) {
                    constexpr int size = decltype(N)::value;
                    const auto trial = [](const auto &operand, Product<T> &product)
                        __attribute__((always_inline)) {
                        S x[size][size];
                        load_lanes<T>(x, operand, 0);
                        return lane_bits(expand<size, T>(x, product));
                    };
                    if (dense && group.live == L)
                        return run([&](const Group &g, Product<T> &product) __attribute__((
                            always_inline)) { return trial(g.dense<const T, N, N>(a), product); });
                    return run([&](const Group &g, Product<T> &product) __attribute__((
                        always_inline)) { return trial(g.objects<const T, L>(a), product); });
                },
                [&] {
                    return run([&](const Group &g, Product<T> &product) {
                        return try_any_order<T>(g.objects<const T, L>(a), n, product, memory);
                    });
                });
        },
        [&](const Group &group, char *memory, int *statuses) {
            const Product<T> product =
                multiply_rest<T>(group.objects<const T, L>(a), n, memory, statuses);
            S out[results];
            answer(product, out, statuses);
            for (int r = 0; r < results; ++r)
                store_objects(group.objects<T, L>(to[r]), out + r, 1, 1);
        });
}

template <class T>
int determinant(const ZelmView &a, const ZelmView &to, int n, Distance count,
                ZelmStatusView status) {
    using S = Lanes<T>;
    return determinants<T, 1>(
        a, {to}, n, count, status,
        [](const Product<T> &product, S(&out)[1], int *statuses) __attribute__((always_inline)) {
            const S d = product.value(), m = magnitude(d);
            const MaskOf<S> normal = (m >= splat<S>(smallest_normal<T>)) &
                                     (m <= splat<S>(std::numeric_limits<T>::max()));
            const MaskOf<S> lost = ~normal & ~(product.mantissa == splat<S>(0));
            out[0] = d;
            if (statuses != nullptr) {
                set_status(statuses, lost, zelmSafeOutOfRange);
                blank_failures(statuses, out, 1);
            }
            return lost;
        });
}

template <class T>
int log_determinant(const ZelmView &a, const ZelmView &sign, const ZelmView &logarithm, int n,
                    Distance count, ZelmStatusView status) {
    using S = Lanes<T>;
    constexpr int L = lanes_of<S>;
    return determinants<T, 2>(a, {sign, logarithm}, n, count, status,
                              [](const Product<T> &product, S(&out)[2], int *statuses) {
                                  for (int l = 0; l < L; ++l) {
                                      const T m = product.mantissa[l];
                                      out[0][l] = static_cast<T>((m > 0) - (m < 0));
                                      out[1][l] =
                                          static_cast<T>(std::log(double{magnitude(m)}) +
                                                         static_cast<double>(product.exponent[l]) *
                                                             0x1.62e42fefa39efp-1);
                                  }
                                  const MaskOf<S> singular = product.mantissa == splat<S>(0);
                                  if (statuses != nullptr) {
                                      blank_failures(statuses, out, 2);
                                      set_status(statuses, singular, zelStatusSingular);
                                  }
                                  return singular;
                              });
}

} // namespace
} // namespace zelm::safe

#define DETERMINANT(T, suffix)                                                                     \
    extern "C" int zelmSafeDeterminant_##suffix(ZelmView a, ZelmView to, int order,                \
                                                ptrdiff_t count, ZelmStatusView status) {          \
        using namespace zelm::safe;                                                                \
        if (const int wrong = first_wrong(count, {order, order}, a, to))                           \
            return wrong;                                                                          \
        return determinant<T>(a, to, order, count, status);                                        \
    }                                                                                              \
    extern "C" int zelmSafeLogDeterminant_##suffix(ZelmView a, ZelmView sign, ZelmView logarithm,  \
                                                   int order, ptrdiff_t count,                     \
                                                   ZelmStatusView status) {                        \
        using namespace zelm::safe;                                                                \
        if (const int wrong = first_wrong(count, {order, order}, a, sign, logarithm))              \
            return wrong;                                                                          \
        return log_determinant<T>(a, sign, logarithm, order, count, status);                       \
    }
DETERMINANT(float, 32f)
DETERMINANT(double, 64f)
