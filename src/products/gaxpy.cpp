// Gaxpy: dst = A * x + b.
#include "../frame/checks.hpp"
#include "../frame/estimate.hpp"
#include "../frame/member.hpp"
#include "../frame/parallel.hpp"
#include "../frame/walk.hpp"

namespace zelm {
namespace {

template <class T, Description d, bool one_addend>
constexpr Limits limits = d == Description::pointer
                              ? (sizeof(T) == 4 ? Limits{4501, 4501} : Limits{7001, 7001})
                          : sizeof(T) == 8
                              ? (d == Description::layout && !one_addend ? Limits{6001, 5001}
                                                                         : Limits{5001, 5001})
                          : d == Description::layout && !one_addend ? Limits{7001, 7001}
                                                                    : Limits{7001, 5001};

// Everything in registers, in the order of the general loop: up the columns, then b. The sums of
// arrays start with their first product, others with 0, which tells where all terms are -0.
template <bool from_zero, int N, class S>
ZELM_INLINE void gaxpy(const S (&a)[N][N], const S (&x)[1][N], const S (&b)[1][N], S (&d)[1][N]) {
    unroll<N>(ZELM_EACH(i) {
        S sum = a[i][0] * x[0][0];
        if constexpr (from_zero)
            sum = splat<S>(0) + sum;
        unroll<1, N>(ZELM_EACH(j) { sum = sum + a[i][j] * x[0][j]; });
        d[0][i] = sum + b[0][i];
    });
}

// The running sum is kept in the destination, stored after every two columns: a destination that
// shares memory with x or b shows it.
template <class A, class X, class B, class D>
void gaxpy_object(const A &a, const X &x, const B &b, const D &d, Shape shape, int n) {
    using T = typename D::Element;
    const auto matrix = view(a, 0, shape);
    const auto factor = view(x, n, {1, shape.width});
    const auto addend = view(b, n, {1, shape.height});
    const auto to = view(d, n, {1, shape.height});
    const auto product = [&](int i, int j) __attribute__((always_inline)) {
        return get(matrix, i, j) * get(factor, 0, j);
    };
    for (int i = 0; i < shape.height; ++i) {
        put(to, 0, i, T{0});
        int j = 0;
        for (; j <= shape.width - 2; j += 2) {
            const T sum = load<T>(to.at(0, i)) + product(i, j);
            put(to, 0, i, sum + product(i, j + 1));
        }
        if (j < shape.width)
            put(to, 0, i, load<T>(to.at(0, i)) + product(i, j));
        put(to, 0, i, load<T>(to.at(0, i)) + get(addend, 0, i));
    }
}

template <int N, class A, class X, class B, class D>
void gaxpy_square(const A &a, const X &x, const B &b, const D &d, int n) {
    using T = typename D::Element;
    T m[N][N], v[1][N], w[1][N], r[1][N];
    const auto row = [n](T(&out)[1][N], const auto &op) __attribute__((always_inline)) {
        const auto from = view(op, n, {1, N});
        unroll<N>(ZELM_EACH(j) { out[0][j] = get(from, 0, j); });
    };
    const auto matrix = view(a, 0, {N, N});
    unroll<N>(ZELM_EACH(i) { unroll<N>(ZELM_EACH(j) { m[i][j] = get(matrix, i, j); }); });
    row(v, x);
    row(w, b);
    gaxpy<!D::is_array>(m, v, w, r);
    const auto to = view(d, n, {1, N});
    unroll<N>(ZELM_EACH(i) { put(to, 0, i, r[0][i]); });
}

// The matrix in every lane, a vector in each.
template <int N, class T>
struct GaxpyGroup {
    Lanes<T> m[N][N];

    template <class Z, class X, class B>
    ZELM_INLINE unsigned operator()(const Group &group, const Z &z, const X &x, const B &b) const {
        Lanes<T> in[1][N], add[1][N], out[1][N];
        load_lanes<T>(in, x, group.first);
        load_lanes<T>(add, b, group.first);
        gaxpy<false>(m, in, add, out);
        store_lanes<T>(z, group.first, out);
        return 0;
    }
};
template <int N, class T>
struct GaxpyWithOneAddend {
    Lanes<T> m[N][N], fixed[1][N];

    template <class Z, class X>
    ZELM_INLINE unsigned operator()(const Group &group, const Z &z, const X &x) const {
        Lanes<T> in[1][N], out[1][N];
        load_lanes<T>(in, x, group.first);
        gaxpy<false>(m, in, fixed, out);
        store_lanes<T>(z, group.first, out);
        return 0;
    }
};

template <int N, class T, bool b_is_array>
void gaxpy_lanes(int count, const Objects &a, const Objects &x, const Objects &b, const Objects &d,
                 const Single &single) {
    const auto from = walked<T, 1, N>(x), to = walked<T, 1, N>(d);
    const Overlap overlap(count, d, x, b);
    // Vectors of three without gaps are the ones of use.
    const auto pass = [&](const auto &kernel, const auto &...arrays) {
        if constexpr (N == 3)
            if ((arrays.objects.is_gapless() && ...))
                return walk_in<T, Form::gapless>(count, overlap, kernel, single, arrays...);
        return walk_by_rows<T>(count, overlap, kernel, single, arrays...);
    };
    if constexpr (b_is_array) {
        GaxpyGroup<N, T> kernel;
        load_splat<T>(kernel.m[0], a);
        pass(kernel, to, from, walked<T, 1, N>(b));
    } else {
        GaxpyWithOneAddend<N, T> kernel;
        load_splat<T>(kernel.m[0], a);
        load_splat<T>(kernel.fixed[0], b);
        pass(kernel, to, from);
    }
}
template <int N, class A, class X, class B, class D>
void gaxpy_squares(int count, const A &a, const X &x, const B &b, const D &d) {
    constexpr Shape shape = {1, N};
    gaxpy_lanes<N, typename D::Element, B::is_array>(count, objects(a, {N, N}), objects(x, shape),
                                                     objects(b, shape), objects(d, shape),
                                                     [&](int n) {
                                                         gaxpy_square<N>(a, x, b, d, n);
                                                         return zelStatusOk;
                                                     });
}

// Columns that fill registers: a result is a sum of columns, which needs no transposes.
template <int N, class A, class X, class B, class D>
void gaxpy_columns(int count, const A a, const X x, const B b, const D d) {
    using T = typename D::Element;
    using S = RowLanes<T>;
    constexpr int L = lanes_of<S>, registers = N / L;
    S column[N][registers], addend[registers];
    const auto matrix = view(a, 0, {N, N});
    unroll<N>(ZELM_EACH(j) {
        unroll<registers>(ZELM_EACH(r) {
            unroll<L>(ZELM_EACH(l) { column[j][r][int{l}] = get(matrix, r * L + l, j); });
        });
    });
    const auto load_addend = [&](int n) __attribute__((always_inline)) {
        unroll<registers>(ZELM_EACH(r) { addend[r] = load<S>(b.object(n) + r * row_bytes); });
    };
    if constexpr (!B::is_array)
        load_addend(0);
    const auto one = [&](int n) __attribute__((always_inline)) {
        const char *const factors = x.object(n);
        S sum[registers];
        unroll<N>(ZELM_EACH(j) {
            S factor;
            if constexpr (registers == 1)
                factor = splat_lane<j>(load<S>(factors));
            else
                factor = splat<S>(load<T>(factors + j * sizeof(T)));
            unroll<registers>(ZELM_EACH(r) {
                const S term = column[j][r] * factor;
                sum[r] = j == 0 ? term : sum[r] + term;
            });
        });
        if constexpr (B::is_array)
            load_addend(n);
        unroll<registers>(
            ZELM_EACH(r) { store<S>(d.object(n) + r * row_bytes, sum[r] + addend[r]); });
    };
    int n = 0;
    for (; n <= count - 4; n += 4)
        unroll<4>(ZELM_EACH(k) { one(n + k); });
    for (; n < count; ++n)
        one(n);
}
template <int N, class A, class X, class B, class D>
ZELM_INLINE void gaxpy_gapless(int count, const A &a, const X &x, const B &b, const D &d) {
    if constexpr (!D::has_table) {
        constexpr Shape shape = {1, N};
        if (is_gapless(x, shape) && is_gapless(d, shape)) {
            const auto v = as_gapless<1, N>(x);
            const auto z = as_gapless<1, N>(d);
            if constexpr (!B::is_array)
                return gaxpy_columns<N>(count, a, v, b, z);
            else if (is_gapless(b, shape))
                return gaxpy_columns<N>(count, a, v, as_gapless<1, N>(b), z);
        }
    }
    gaxpy_columns<N>(count, a, x, b, d);
}

template <int N, class A, class X, class B, class D>
ZELM_INLINE void gaxpy_fixed(int count, const A &a, const X &x, const B &b, const D &d) {
    if constexpr (D::is_array && N % lanes_per_row<typename D::Element> == 0)
        gaxpy_gapless<N>(count, a, x, b, d);
    else if constexpr (D::is_array)
        gaxpy_squares<N>(count, a, x, b, d);
    else
        gaxpy_square<N>(a, x, b, d, 0);
}

template <class A, class X, class B, class D>
ZelStatus y8_ownzelmGaxpy(int count, Shape shape, const A &a, const X &x, const B &b, const D &d) {
    if constexpr (!D::is_tabled) {
        const bool packed = a.packed() && x.packed() && b.packed() && d.packed();
        const bool fixed = with_order<3, 6>(
            packed && shape.width == shape.height ? shape.width : 0,
            [&](auto N) {
                gaxpy_fixed<N>(count, a, x, b, d);
                return true;
            },
            [] { return false; });
        if (fixed)
            return zelStatusOk;
    }
    for (int n = 0; n < count; ++n)
        gaxpy_object(a, x, b, d, shape, n);
    return zelStatusOk;
}

template <class A, class X, class B, class D>
ZELM_INLINE ZelStatus gaxpy(const A &a, int width, int height, const X &x, int factors, const B &b,
                            int addends, const D &d, int count = 1) {
    if (const ZelStatus s =
            first_failure(pointers(a, x, b, d), counts(count),
                          sizes(width, height, factors, addends), agreement(width, factors),
                          agreement(height, addends), strides(a, x, b, d), shifts(a, x, b, d)))
        return s;
    const Shape shape = {height, width};
    if constexpr (!D::is_array) {
        return y8_ownzelmGaxpy(1, shape, a, x, b, d);
    } else {
        const Estimate work =
            elements<X>(factors, count) + elements<B>(addends, count) + elements<D>(addends, count);
        const bool packed = a.packed() && x.packed() && b.packed() && d.packed();
        return run_objects(
            limits<typename D::Element, description_of<D>, !B::is_array>.serial(work, packed),
            [shape](int n, const A &m, const X &v, const B &w, const D &to) {
                return y8_ownzelmGaxpy(n, shape, m, v, w, to);
            },
            count, a, x, b, d);
    }
}

} // namespace
} // namespace zelm

ZELM_MEMBERS(Gaxpy, (mv), gaxpy(src1, width, height, src2, src2Len, src3, src3Len, dst))
ZELM_MEMBERS(Gaxpy, (mva, mvav),
             gaxpy(src1, width, height, src2, src2Len, src3, src3Len, dst, count))
