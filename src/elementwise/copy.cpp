// Copy, Extract and LoadIdentity: elements move as they are, bit for bit.
#include "move.hpp"

#include "../frame/checks.hpp"
#include "../frame/member.hpp"

namespace zelm {
namespace {

// ---- Copy: the distances from object to object are checked last, where there are two ----

template <bool strides_first, class S, class D>
ZELM_INLINE ZelStatus copy(const S &source, const D &destination, Shape shape, int count) {
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

// clang-format off
#define COPY_MA(S, D, T, suffix, strides_first)                                                   \
    ZELM_MEMBER(zelmCopy_ma_##suffix##_##S##D,                                                    \
                (ZELM_PARAMETERS(S, ma, const T, src), ZELM_PARAMETERS(D, ma, T, dst), int width, \
                 int height, int count),                                                          \
                zelm::copy<strides_first>(ZELM_OPERAND(S, ma, const T, src),                      \
                                          ZELM_OPERAND(D, ma, T, dst), {height, width}, count))
#define COPY_VA(S, D, T, suffix, strides_first)                                                   \
    ZELM_MEMBER(zelmCopy_va_##suffix##_##S##D,                                                    \
                (ZELM_PARAMETERS(S, va, const T, src), ZELM_PARAMETERS(D, va, T, dst), int len,   \
                 int count),                                                                      \
                zelm::copy<strides_first>(ZELM_OPERAND(S, va, const T, src),                      \
                                          ZELM_OPERAND(D, va, T, dst), {1, len}, count))
// source, destination, whether strides are checked before shifts
#define COPY(M, T, suffix, SP, LP)                                                                \
    M(S, S, T, suffix, true)                                                                      \
    M(S, P, T, suffix, SP)                                                                        \
    M(S, L, T, suffix, true)                                                                      \
    M(P, S, T, suffix, true)                                                                      \
    M(P, P, T, suffix, false)                                                                     \
    M(P, L, T, suffix, true)                                                                      \
    M(L, S, T, suffix, true)                                                                      \
    M(L, P, T, suffix, LP)                                                                        \
    M(L, L, T, suffix, true)

COPY(COPY_MA, float,  32f, true,  true)
COPY(COPY_MA, double, 64f, true,  true)
COPY(COPY_VA, float,  32f, false, false)
COPY(COPY_VA, double, 64f, true,  true)

#define EXTRACT_M(D, T, suffix, kind)                                                             \
    ZELM_MEMBER(zelmExtract_##kind##_##suffix,                                                    \
                (ZELM_PARAMETERS(D, kind, const T, src), T *pDst, int width, int height),         \
                zelm::extract(ZELM_OPERAND(D, kind, const T, src), pDst, {height, width}))
#define EXTRACT_MA(D, T, suffix, kind)                                                            \
    ZELM_MEMBER(zelmExtract_##kind##_##suffix,                                                    \
                (ZELM_PARAMETERS(D, kind, const T, src), T *pDst, int width, int height,          \
                 int count),                                                                      \
                zelm::extract(ZELM_OPERAND(D, kind, const T, src), pDst, {height, width}, count))
#define EXTRACT_V(D, T, suffix, entry)                                                            \
    ZELM_MEMBER(zelmExtract_v_##suffix, (ZELM_PARAMETERS(D, v, const T, src), T *pDst, int len),  \
                zelm::entry(ZELM_OPERAND(D, v, const T, src), pDst, {1, len}))
#define EXTRACT_VA(D, T, suffix, kind)                                                            \
    ZELM_MEMBER(zelmExtract_va_##suffix,                                                          \
                (ZELM_PARAMETERS(D, va, const T, src), T *pDst, int len, int count),              \
                zelm::extract(ZELM_OPERAND(D, va, const T, src), pDst, {1, len}, count))

ZELM_SINGLE(EXTRACT_M, m)
ZELM_SINGLE(EXTRACT_M, t)
EXTRACT_V(S, float,  32f,   extract)
EXTRACT_V(S, double, 64f,   extract)
EXTRACT_V(P, float,  32f_P, extract_pointers_first)
EXTRACT_V(P, double, 64f_P, extract)
ZELM_ARRAY(EXTRACT_MA, ma)
ZELM_ARRAY(EXTRACT_MA, ta)
ZELM_ARRAY(EXTRACT_VA, va)

#define IDENTITY(D, T, suffix, entry)                                                             \
    ZELM_MEMBER(zelmLoadIdentity_ma_##suffix,                                                     \
                (ZELM_PARAMETERS(D, ma, T, dst), int width, int height, int count),               \
                zelm::entry(ZELM_OPERAND(D, ma, T, dst), width, height, count))

IDENTITY(S, float,  32f,   identity)
IDENTITY(S, double, 64f,   identity)
IDENTITY(L, float,  32f_L, identity)
IDENTITY(L, double, 64f_L, identity)
IDENTITY(P, float,  32f_P, identity_shift_early)
IDENTITY(P, double, 64f_P, identity_stride_last)
// clang-format on
