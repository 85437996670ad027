#include "lu.hpp"

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
    ZELM_INLINE void negate(MaskOf<S> lanes) { mantissa = select(lanes, -mantissa, mantissa); }
};

template <int N, class T, class A>
ZELM_INLINE MaskOf<Lanes<T>> try_order(const A &a, Product<T> &product) {
    using S = Lanes<T>;
    S f[N][N];
    IndexOf<S> p[N];
    load_lanes<T>(f, a, 0);
    factor<N>(f, p, T{0}, ZELM_EACH(){});
    Pivots<S> pivots;
    unroll<N>(ZELM_EACH(i) {
        pivots.note(f[i][i]);
        product.multiply(f[i][i]);
        unroll<i>(ZELM_EACH(j) { product.negate(p[j] > p[i]); });
    });
    return pivots.fine;
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

// The lanes that are not fine. A singular one has the product 0.
template <class T, class A>
[[gnu::noinline]] void multiply_rest(const A &a, int n, MaskOf<Lanes<T>> fine, Product<T> &product,
                                     Lanes<T> *scratch, int *statuses) {
    using S = Lanes<T>;
    Careful<T> careful(scratch, n);
    load_objects(careful.f, a, n, n);
    careful.factor();
    Product<T> again;
    for (int i = 0; i < n; ++i) { // a pivot may be subnormal
        S &pivot = careful.f[i * n + i];
        const Scale<T> scale(magnitude(pivot), 0);
        pivot = scale(pivot);
        again.exponent = again.exponent - scale.exponent - careful.exponent[i];
    }
    multiply_pivots(careful.f, careful.p, n, again);
    again.normalize();
    again.mantissa = select(careful.singular, splat<S>(0), again.mantissa);
    product.mantissa = select(fine, product.mantissa, again.mantissa);
    product.exponent = select(fine, product.exponent, again.exponent);
    set_status(statuses, ~(fine | careful.finite), zelmSafeNotFinite);
}

template <class T>
Product<T> multiply_group(const Objects<const T, lanes_of<Lanes<T>>> &a, int n, char *memory,
                          int *statuses) {
    using S = Lanes<T>;
    S *const scratch = reinterpret_cast<S *>(memory);
    Product<T> product;
    const MaskOf<S> fine = with_order<2, largest_straight_line_order>(
        n, [&](auto N) { return try_order<N, T>(a, product); },
        [&] {
            const Careful<T> m(scratch, n); // its memory
            load_objects(m.f, a, n, n);
            factor_lanes<S>(m.f, m.p, n, T{0}, m.x);
            return multiply_pivots(m.f, m.p, n, product).fine;
        });
    product.normalize();
    if (lane_bits(fine) != all_lanes<S>) [[unlikely]]
        multiply_rest<T>(a, n, fine, product, scratch, statuses);
    return product;
}

template <class T, class Finish>
int determinants(const ZelmView &a, int n, Distance count, ZelmStatusView status,
                 const Finish &finish) {
    constexpr int L = lanes_of<Lanes<T>>;
    const double order = n;
    return finish_objects<L>(
        count, order * order * order / 3, careful_elements<T>(n) * sizeof(Lanes<T>), status,
        [&](const Group &group, char *memory, int *statuses) {
            finish(group, multiply_group<T>(group.objects<const T, L>(a), n, memory, statuses),
                   statuses);
            return true;
        });
}

template <class T>
int determinant(const ZelmView &a, const ZelmView &to, int n, Distance count,
                ZelmStatusView status) {
    using S = Lanes<T>;
    return determinants<T>(
        a, n, count, status, [&](const Group &group, const Product<T> &product, int *statuses) {
            S d = scaled<T>(product.mantissa, product.exponent);
            const S m = magnitude(d);
            const MaskOf<S> lost = ~((m >= splat<S>(smallest_normal<T>)) &
                                     (m <= splat<S>(std::numeric_limits<T>::max()))) &
                                   (product.mantissa != splat<S>(0));
            set_status(statuses, lost, zelmSafeOutOfRange);
            blank_failures(statuses, &d, 1);
            store_objects(group.objects<T, lanes_of<S>>(to), &d, 1, 1);
        });
}

template <class T>
int log_determinant(const ZelmView &a, const ZelmView &sign, const ZelmView &logarithm, int n,
                    Distance count, ZelmStatusView status) {
    using S = Lanes<T>;
    constexpr int L = lanes_of<S>;
    return determinants<T>(
        a, n, count, status, [&](const Group &group, const Product<T> &product, int *statuses) {
            S s, x;
            for (int l = 0; l < L; ++l) {
                const T m = product.mantissa[l];
                s[l] = static_cast<T>((m > 0) - (m < 0));
                x[l] =
                    static_cast<T>(std::log(double{magnitude(m)}) +
                                   static_cast<double>(product.exponent[l]) * 0x1.62e42fefa39efp-1);
            }
            blank_failures(statuses, &s, 1);
            blank_failures(statuses, &x, 1);
            const MaskOf<S> singular = product.mantissa == splat<S>(0);
            set_status(statuses, singular, zelStatusSingular);
            store_objects(group.objects<T, L>(sign), &s, 1, 1);
            store_objects(group.objects<T, L>(logarithm), &x, 1, 1);
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
