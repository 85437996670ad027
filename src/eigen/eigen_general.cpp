#include "general.hpp"
#include "values.hpp"

#include "../frame/checks.hpp"
#include "../frame/estimate.hpp"
#include "../frame/member.hpp"
#include "../frame/parallel.hpp"

namespace zelm {
namespace {

constexpr Limits values_limits = {251, 251};  // of n*(n + 1)*count
constexpr Limits vectors_limits = {501, 501}; // of 3*n*n*count

// Elements of scratch for each row: of the matrix, of two matrices of vectors where any are wanted,
// and of 5 vectors.
template <bool vectors>
constexpr std::size_t scratch_width(int n) {
    return (vectors ? 3 : 1) * static_cast<std::size_t>(n) + 5;
}

// The buffer holds the matrix, two matrices of vectors where any are wanted, 5 vectors. The values
// come out in the first two of these.
template <class T, bool right, bool left, int order>
[[gnu::noinline]] bool solve_in_buffer(Unaligned<T> *matrix, int n) {
    constexpr bool vectors = right || left;
    const std::ptrdiff_t elements = std::ptrdiff_t{n} * n;
    auto *const first = matrix + elements, *const second = first + elements;
    GeneralEigen<T, vectors, order> eigen(matrix, first, vectors ? second + elements : first, n);
    if (!eigen.decompose())
        return false;
    if constexpr (right && left)
        for (std::ptrdiff_t e = 0; e < elements; ++e)
            second[e] = first[e];
    if constexpr (right)
        eigen.template find_vectors<false>(first);
    if constexpr (left)
        eigen.template find_vectors<true>(right ? second : first);
    eigen.unscale();
    return true;
}
template <class T, bool right, bool left>
bool solve_in_buffer(Unaligned<T> *matrix, int n) {
    switch (n) {
    case 3:
        return solve_in_buffer<T, right, left, 3>(matrix, n);
    case 4:
        return solve_in_buffer<T, right, left, 4>(matrix, n);
    case 6:
        return solve_in_buffer<T, right, left, 6>(matrix, n);
    default:
        return solve_in_buffer<T, right, left, 0>(matrix, n);
    }
}

template <class Source, class Right, class Left, class T>
ZelStatus y8_ownzelmEigenValuesVectors_m(void *buffer, const Source &source, const Right &right,
                                         const Left &left, const Values<T> &re, const Values<T> &im,
                                         int n, int object) {
    constexpr bool wants_right = wants_vectors<Right>, wants_left = wants_vectors<Left>;
    constexpr int matrices = wants_right || wants_left ? 3 : 1;
    const std::ptrdiff_t elements = std::ptrdiff_t{n} * n;
    auto *const matrix = static_cast<Unaligned<T> *>(buffer);
    const auto *const values = matrix + matrices * elements;

    const auto from = view(source, object, {n, n});
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j)
            matrix[std::ptrdiff_t{i} * n + j] = get(from, i, j);
    if (!solve_in_buffer<T, wants_right, wants_left>(matrix, n))
        return zelStatusNotConverged;
    const auto to_re = re.view(object), to_im = im.view(object);
    for (int i = 0; i < n; ++i) {
        put(to_re, 0, i, T{values[i]});
        put(to_im, 0, i, T{values[n + i]});
    }
    const auto copy = [&](const Unaligned<T> *vector, const auto &destination) {
        const auto to = view(destination, object, {n, n});
        for (int j = 0; j < n; ++j)
            for (int i = 0; i < n; ++i)
                put(to, i, j, T{vector[std::ptrdiff_t{j} * n + i]});
    };
    if constexpr (wants_right)
        copy(matrix + elements, right);
    if constexpr (wants_left)
        copy(matrix + (wants_right ? 2 : 1) * elements, left);
    return zelStatusOk;
}

template <class Source, class Right, class Left, class T>
ZelStatus y8_ownzelmEigenValuesVectors_ma(int count, void *buffer, const Source &source,
                                          const Right &right, const Left &left, const Values<T> &re,
                                          const Values<T> &im, int n) {
    for (int k = 0; k < count; ++k)
        if (const ZelStatus status =
                y8_ownzelmEigenValuesVectors_m(buffer, source, right, left, re, im, n, k))
            return status;
    return zelStatusOk;
}

// ---- entries ----

// Checks in the order of this family; f takes those of the operands that the call has.
template <class T, class Source, class Right, class Left>
ZELM_INLINE ZelStatus general_failure(const Source &source, const Right &right, const Left &left,
                                      const T *re, const T *im, const T *buffer, int n, int count) {
    const Standard<const T, 0, false> r = {re, 0, 0, 0}, i = {im, 0, 0, 0}, b = {buffer, 0, 0, 0};
    const auto of = [&](const auto &...o) __attribute__((always_inline)) {
        return first_failure(pointers(o..., r, i, b), sizes(n), counts(count), shifts(o...),
                             strides(o...));
    };
    if constexpr (wants_vectors<Right> && wants_vectors<Left>)
        return of(source, right, left);
    else if constexpr (wants_vectors<Right>)
        return of(source, right);
    else if constexpr (wants_vectors<Left>)
        return of(source, left);
    else
        return of(source);
}

template <class Source, class Right, class Left, class T>
ZELM_INLINE ZelStatus eigen_general(const Source &source, const Right &right, const Left &left,
                                    T *re, T *im, int n, T *buffer) {
    if (const ZelStatus s = general_failure<T>(source, right, left, re, im, buffer, n, 1))
        return s;
    return y8_ownzelmEigenValuesVectors_m(buffer, source, right, left, packed_values(re, n),
                                          packed_values(im, n), n, 0);
}

template <class Source, class Right, class Left, class T>
ZELM_INLINE ZelStatus eigen_general(const Source &source, const Right &right, const Left &left,
                                    T *re, T *im, int n, int count, T *buffer) {
    if (const ZelStatus s = general_failure<T>(source, right, left, re, im, buffer, n, count))
        return s;
    constexpr bool vectors = wants_vectors<Right> || wants_vectors<Left>;
    const Estimate size = n;
    const bool serial = vectors ? vectors_limits.serial(size * 3 * size * count, true)
                                : values_limits.serial(size * (size + 1) * count, true);
    // The threads' scratch has the larger of the two sizes.
    return run_objects_in(
        scratch_of(buffer, static_cast<std::size_t>(n), scratch_width<true>(n)), serial,
        [n](void *scratch, int objects, const Source &from, const Right &v, const Left &u,
            const Values<T> &real, const Values<T> &imaginary) {
            return y8_ownzelmEigenValuesVectors_ma(objects, scratch, from, v, u, real, imaginary,
                                                   n);
        },
        count, source, right, left, packed_values(re, n), packed_values(im, n));
}

template <class T, bool vectors>
ZELM_INLINE ZelStatus scratch_size(int n, int *size) {
    if (const ZelStatus s = first_failure(pointers(size), sizes(n)))
        return s;
    const Scratch scratch =
        scratch_of<T>(nullptr, static_cast<std::size_t>(n), scratch_width<vectors>(n));
    if (scratch.bytes > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        return zelStatusBadSize;
    *size = static_cast<int>(scratch.bytes);
    return zelStatusOk;
}

} // namespace
} // namespace zelm

// eigen_general(source, right vectors, left vectors, ...)
constexpr zelm::NoDestination none{};

ZELM_MEMBERS(EigenValues, (m),
             eigen_general(src, none, none, pDstValuesRe, pDstValuesIm, widthHeight, pBuffer))
ZELM_MEMBERS(EigenValues, (ma),
             eigen_general(src, none, none, pDstValuesRe, pDstValuesIm, widthHeight, count,
                           pBuffer))
ZELM_MEMBERS(EigenValuesVectors, (m),
             eigen_general(src, dstRight, dstLeft, pDstValuesRe, pDstValuesIm, widthHeight,
                           pBuffer))
ZELM_MEMBERS(EigenValuesVectors, (ma),
             eigen_general(src, dstRight, dstLeft, pDstValuesRe, pDstValuesIm, widthHeight, count,
                           pBuffer))
ZELM_MEMBERS(EigenValuesVectorsRight, (m),
             eigen_general(src, dst, none, pDstValuesRe, pDstValuesIm, widthHeight, pBuffer))
ZELM_MEMBERS(EigenValuesVectorsRight, (ma),
             eigen_general(src, dst, none, pDstValuesRe, pDstValuesIm, widthHeight, count, pBuffer))
ZELM_MEMBERS(EigenValuesVectorsLeft, (m),
             eigen_general(src, none, dst, pDstValuesRe, pDstValuesIm, widthHeight, pBuffer))
ZELM_MEMBERS(EigenValuesVectorsLeft, (ma),
             eigen_general(src, none, dst, pDstValuesRe, pDstValuesIm, widthHeight, count, pBuffer))

ZELM_MEMBERS(EigenValuesGetBufSize, (32f, 64f), scratch_size<T, false>(widthHeight, pSize))
ZELM_MEMBERS(EigenValuesVectorsGetBufSize, (32f, 64f), scratch_size<T, true>(widthHeight, pSize))
