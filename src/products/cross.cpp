#include "../frame/checks.hpp"
#include "../frame/estimate.hpp"
#include "../frame/member.hpp"
#include "../frame/parallel.hpp"
#include "../frame/walk.hpp"

namespace zelm {
namespace {

template <class S>
using Triple = S[1][3];

template <class S>
ZELM_INLINE void cross(const Triple<S> &a, const Triple<S> &b, Triple<S> &r) {
    r[0][0] = a[0][1] * b[0][2] - a[0][2] * b[0][1];
    r[0][1] = a[0][2] * b[0][0] - a[0][0] * b[0][2];
    r[0][2] = a[0][0] * b[0][1] - a[0][1] * b[0][0];
}

constexpr Shape triple = {1, 3};

template <class T, class Operand>
ZELM_INLINE void load_triple(Triple<T> &x, const Operand &op, int n) {
    const auto v = view(op, n, triple);
    unroll<3>(ZELM_EACH(k) { x[0][k] = get(v, 0, k); });
}
template <class A, class B, class D>
ZELM_INLINE void cross_object(const A &a, const B &b, const D &d, int n) {
    using T = typename D::Element;
    Triple<T> x, y, r;
    load_triple<T>(x, a, n);
    load_triple<T>(y, b, n);
    cross<T>(x, y, r);
    const auto to = view(d, n, triple);
    unroll<3>(ZELM_EACH(k) { put(to, 0, k, r[0][k]); });
}

template <class T>
struct CrossPairs {
    template <class Z, class X, class Y>
    ZELM_INLINE unsigned operator()(const Group &group, const Z &z, const X &x, const Y &y) const {
        Triple<Lanes<T>> v, w, r;
        load_lanes<T>(v, x, group.first);
        load_lanes<T>(w, y, group.first);
        cross<Lanes<T>>(v, w, r);
        store_lanes<T>(z, group.first, r);
        return 0;
    }
};
// A single vector is read once.
template <class T, bool fixed_is_left>
struct CrossWithOne {
    Triple<Lanes<T>> fixed;

    template <class Z, class X>
    ZELM_INLINE unsigned operator()(const Group &group, const Z &z, const X &x) const {
        Triple<Lanes<T>> v, r;
        load_lanes<T>(v, x, group.first);
        if constexpr (fixed_is_left)
            cross<Lanes<T>>(fixed, v, r);
        else
            cross<Lanes<T>>(v, fixed, r);
        store_lanes<T>(z, group.first, r);
        return 0;
    }
};

template <class T, bool a_is_array, bool b_is_array>
ZelStatus cross_arrays(int count, const Objects &a, const Objects &b, const Objects &d,
                       const Single &single) {
    const auto to = walked<T, 1, 3>(d), x = walked<T, 1, 3>(a), y = walked<T, 1, 3>(b);
    const Overlap overlap(count, d, a, b);
    if constexpr (a_is_array && b_is_array) {
        return walk_lightly<T>(count, overlap, CrossPairs<T>{}, single, to, x, y);
    } else {
        CrossWithOne<T, b_is_array> kernel;
        load_splat<T>(kernel.fixed[0], a_is_array ? b : a);
        return walk_lightly<T>(count, overlap, kernel, single, to, a_is_array ? x : y);
    }
}

template <class A, class B, class D>
ZelStatus y8_ownzelmCrossProduct(int count, const A &a, const B &b, const D &d) {
    return cross_arrays<typename D::Element, A::is_array, B::is_array>(
        count, with_even_strides(objects(a, triple)), with_even_strides(objects(b, triple)),
        with_even_strides(objects(d, triple)), [&](int n) {
            cross_object(a, b, d, n);
            return zelStatusOk;
        });
}

template <class A, class B, class D>
ZELM_INLINE ZelStatus run(const A &a, const B &b, const D &d, int count) {
    constexpr bool pairs = A::is_array && B::is_array;
    constexpr Limits limits = pairs ? Limits{3001, 3001} : Limits{3000, 3000};
    return run_objects(
        limits.serial(Estimate(pairs ? 3 : 2) * count, true),
        [](int n, const D &z, const A &x, const B &y) {
            return y8_ownzelmCrossProduct(n, x, y, z);
        },
        count, d, a, b);
}

// ---- entries, each with its order of checks ----

template <class A, class B, class D>
ZELM_INLINE ZelStatus pair(const A &a, const B &b, const D &d) {
    if (const ZelStatus s = first_failure(pointers(a, b, d), strides(a, b, d), shifts(a, b, d)))
        return s;
    cross_object(a, b, d, 0);
    return zelStatusOk;
}
// An array with one vector: the count after the strides, in layout form last of all.
template <class A, class B, class D>
ZELM_INLINE ZelStatus array_with_vector(const A &a, const B &b, const D &d, int count) {
    constexpr bool count_last = description_of<D> == Description::layout;
    const auto number = counts(count);
    const auto offset = shifts(a, b, d);
    if (const ZelStatus s =
            first_failure(pointers(a, b, d), strides(a, b, d), count_last ? offset : number,
                          count_last ? number : offset))
        return s;
    return run(a, b, d, count);
}
template <class A, class B, class D>
ZELM_INLINE ZelStatus arrays(const A &a, const B &b, const D &d, int count) {
    if (const ZelStatus s =
            first_failure(pointers(a, b, d), counts(count), strides(a, b, d), shifts(a, b, d)))
        return s;
    return run(a, b, d, count);
}

} // namespace
} // namespace zelm

ZELM_MEMBERS(CrossProduct, (vv), pair(src1, src2, dst))
ZELM_MEMBERS(CrossProduct, (vav), array_with_vector(src1, src2, dst, count))
ZELM_MEMBERS(CrossProduct, (vva, vava), arrays(src1, src2, dst, count))
