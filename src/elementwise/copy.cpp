// Copy, Extract and LoadIdentity: elements move as they are, bit for bit.
#include "move.hpp"

#include "../frame/checks.hpp"
#include "../frame/member.hpp"

namespace zelm {
namespace {

// ---- Copy: the distances from object to object are checked last, where there are two ----

// ma_PP, va_PP, va_32f_SP, va_32f_LP: the offset before all strides.
template <class S, class D>
constexpr bool shifts_first = D::is_tabled && (S::is_tabled || (D::object_rank == 1 &&
                                                                sizeof(typename D::Element) == 4));

template <class S, class D>
ZELM_INLINE ZelStatus copy(const S &source, const D &destination, Shape shape, int count) {
    constexpr bool strides_first = !shifts_first<S, D>;
    const auto inside = element_strides(source, destination);
    const auto offset = shifts(source, destination);
    if (const ZelStatus s = first_failure(
            pointers(source, destination), sizes(shape.width, shape.height), counts(count),
            strides_first ? inside : offset, strides_first ? offset : inside,
            object_strides(count, source, destination)))
        return s;
    return move_elements(count, shape, destination, source);
}

// ---- Extract: each description has its own order ----

template <class S, class T>
ZELM_INLINE ZelStatus extract(const S &source, T *dst, Shape shape) {
    const Buffer<T> destination = {dst, shape};
    if (const ZelStatus s = S::is_tabled
                                ? first_failure(sizes(shape.width, shape.height),
                                                pointers(source, destination), shifts(source))
                                : first_failure(pointers(source, destination),
                                                sizes(shape.width, shape.height), strides(source)))
        return s;
    return move_elements(1, shape, destination, source);
}
// One member asks for the pointers first.
template <class S, class T>
ZELM_INLINE ZelStatus extract_pointers_first(const S &source, T *dst, Shape shape) {
    const Buffer<T> destination = {dst, shape};
    if (const ZelStatus s = first_failure(pointers(source, destination),
                                          sizes(shape.width, shape.height), shifts(source)))
        return s;
    return move_elements(1, shape, destination, source);
}
template <class S, class T>
ZELM_INLINE ZelStatus extract(const S &source, T *dst, Shape shape, int count) {
    const Buffer<T> destination = {dst, shape};
    if (const ZelStatus s =
            first_failure(pointers(source, destination), sizes(shape.width, shape.height),
                          counts(count), shifts(source), strides(source)))
        return s;
    return move_elements(count, shape, destination, source);
}

// ---- LoadIdentity ----

template <class T>
[[gnu::noinline]] void y8_ownzelmLoadIdentity(int count, const Objects &destination) {
    const Objects d = with_even_strides(destination);
    const int ones = d.shape.width < d.shape.height ? d.shape.width : d.shape.height;
    elementwise::arrays<T>(count, Unchanged{}, d, objects(Constant<T>{0}, d.shape));
    for (int n = 0; n < count; ++n)
        for (int i = 0; i < ones; ++i)
            store<T>(d.element(n, i, i), T{1});
}
template <class D>
ZELM_INLINE ZelStatus loaded(ZelStatus failure, const D &destination, Shape shape, int count) {
    if (failure == zelStatusOk)
        y8_ownzelmLoadIdentity<typename D::Element>(count, objects(destination, shape));
    return failure;
}
template <class D>
ZELM_INLINE ZelStatus identity(const D &d, int width, int height, int count) {
    return loaded(first_failure(pointers(d), sizes(width, height), counts(count),
                                element_strides(d), object_strides(count, d), shifts(d)),
                  d, {height, width}, count);
}
template <class D>
ZELM_INLINE ZelStatus identity_stride_last(const D &d, int width, int height, int count) {
    return loaded(first_failure(pointers(d), sizes(width, height), counts(count), shifts(d),
                                object_strides(count, d)),
                  d, {height, width}, count);
}
template <class D>
ZELM_INLINE ZelStatus identity_shift_early(const D &d, int width, int height, int count) {
    return loaded(first_failure(pointers(d), sizes(width, height), shifts(d), counts(count),
                                object_strides(count, d)),
                  d, {height, width}, count);
}

} // namespace
} // namespace zelm

ZELM_MEMBERS(Copy, (ma), copy(src, dst, {height, width}, count))
ZELM_MEMBERS(Copy, (va), copy(src, dst, {1, len}, count))

ZELM_MEMBERS(Extract, (m, t), extract(src, pDst, {height, width}))
ZELM_MEMBERS(Extract, (ma, ta), extract(src, pDst, {height, width}, count))
ZELM_MEMBERS(Extract, (v_32f, v_64f, v_64f_P), extract(src, pDst, {1, len}))
ZELM_MEMBERS(Extract, (v_32f_P), extract_pointers_first(src, pDst, {1, len}))
ZELM_MEMBERS(Extract, (va), extract(src, pDst, {1, len}, count))

ZELM_MEMBERS(LoadIdentity, (ma_32f, ma_64f, ma_32f_L, ma_64f_L),
             identity(dst, width, height, count))
ZELM_MEMBERS(LoadIdentity, (ma_32f_P), identity_shift_early(dst, width, height, count))
ZELM_MEMBERS(LoadIdentity, (ma_64f_P), identity_stride_last(dst, width, height, count))
