#include "objects.hpp"
#include "scale.hpp"

#include "../eigen/general.hpp"

namespace zelm::safe {
namespace {

// The array functions' algorithm, one object after another, each brought to one exponent.

template <class T, bool vectors, int order>
[[gnu::noinline]] bool solve_in_buffer(Unaligned<T> *matrix, int n, Effort<T> effort) {
    const std::ptrdiff_t elements = std::ptrdiff_t{n} * n;
    auto *const transform = matrix + elements;
    GeneralEigen<T, vectors, order> eigen(matrix, transform,
                                          vectors ? transform + elements : transform, n, effort);
    if (!eigen.decompose())
        return false;
    if constexpr (vectors)
        eigen.template find_vectors<false>(transform);
    eigen.unscale();
    return true;
}

template <class T, bool vectors>
int finish_object(const ZelmView &from, const ZelmView &real, const ZelmView &imaginary,
                  const ZelmView &to, int n, const Group &group, char *memory) {
    auto *const matrix = reinterpret_cast<Unaligned<T> *>(memory);
    const std::ptrdiff_t elements = std::ptrdiff_t{n} * n;
    const auto *const values = matrix + (vectors ? 2 : 1) * elements;
    const auto a = group.objects<const T, 1>(from).view(0);
    T largest = 0, nothing = 0;
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j) {
            const T x = get(a, i, j);
            largest = larger(magnitude(x), largest);
            nothing = nothing + (x - x);
        }
    const bool finite = nothing == nothing;
    int exponent = 0;
    bool solved = finite;
    if (finite) {
        if (largest > 0)
            std::frexp(largest, &exponent);
        // Double values may keep the iteration going in circles. Then it is shifted more often, and
        // what is negligible beside the matrix is negligible anywhere.
        for (const Effort<T> effort : {Effort<T>{}, Effort<T>{epsilon<T>, true}}) {
            for (int i = 0; i < n; ++i)
                for (int j = 0; j < n; ++j)
                    matrix[std::ptrdiff_t{i} * n + j] = std::ldexp(get(a, i, j), -exponent);
            solved = with_order<3, 4>(
                n, [&](auto N) { return solve_in_buffer<T, vectors, N>(matrix, n, effort); },
                [&] { return solve_in_buffer<T, vectors, 0>(matrix, n, effort); });
            if (solved)
                break;
        }
    }
    int status = !finite ? int{zelmSafeNotFinite} : solved ? zelStatusOk : zelStatusNotConverged;
    for (int i = 0; i < 2 * n && status == zelStatusOk; ++i)
        if (!(magnitude(std::ldexp(T(values[i]), exponent)) <= std::numeric_limits<T>::max()))
            status = zelmSafeOutOfRange;
    constexpr T nan = std::numeric_limits<T>::quiet_NaN();
    const bool ok = status == zelStatusOk;
    const auto re = group.objects<T, 1>(real).view(0), im = group.objects<T, 1>(imaginary).view(0);
    for (int i = 0; i < n; ++i) {
        put(re, 0, i, ok ? T(std::ldexp(T(values[i]), exponent)) : nan);
        put(im, 0, i, ok ? T(std::ldexp(T(values[n + i]), exponent)) : nan);
    }
    if constexpr (vectors) {
        const auto v = group.objects<T, 1>(to).view(0);
        for (int j = 0; j < n; ++j)
            for (int i = 0; i < n; ++i)
                put(v, i, j, ok ? T{matrix[elements + std::ptrdiff_t{j} * n + i]} : nan);
    }
    return status;
}

template <class T, bool vectors>
int eigen(const ZelmView &a, const ZelmView &real, const ZelmView &imaginary, const ZelmView &to,
          int n, Distance count, ZelmStatusView status) {
    const double order = n;
    const auto elements = static_cast<std::size_t>(n) * static_cast<std::size_t>(n);
    return finish_objects<1>(
        count, (vectors ? 25 : 10) * order * order * order,
        ((vectors ? 2 : 1) * elements + 5 * static_cast<std::size_t>(n)) * sizeof(T), status,
        [&](const Group &group, char *memory, int *statuses) {
            statuses[0] = finish_object<T, vectors>(a, real, imaginary, to, n, group, memory);
        });
}

} // namespace
} // namespace zelm::safe

#define EIGEN(T, suffix)                                                                           \
    extern "C" int zelmSafeEigen_##suffix(ZelmView a, ZelmView real, ZelmView imaginary,           \
                                          ZelmView vectors, int order, ptrdiff_t count,            \
                                          ZelmStatusView status) {                                 \
        using namespace zelm::safe;                                                                \
        if (const int wrong = first_wrong(count, {order, order}, a, real, imaginary))              \
            return wrong;                                                                          \
        return is_null(vectors)                                                                    \
                   ? eigen<T, false>(a, real, imaginary, vectors, order, count, status)            \
                   : eigen<T, true>(a, real, imaginary, vectors, order, count, status);            \
    }
EIGEN(float, 32f)
EIGEN(double, 64f)
