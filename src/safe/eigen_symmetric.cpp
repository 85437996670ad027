#include "objects.hpp"
#include "scale.hpp"

#include "../eigen/symmetric.hpp"

namespace zelm::safe {
namespace {

// Thresholds of the iteration are absolute, so every object is brought to a norm near 1 first. What
// still does not converge is tried again with a smaller norm, which makes more elements negligible.

template <class T>
using Two = Interleaved<Lanes<T>, 2>; // what a group computes in

// Of one register of a: the scale of each lane, which is applied; lanes that are not finite become
// zero, so that nobody waits for them. Only the lower triangle is looked at.
template <class T>
MaskOf<Lanes<T>> bring_to_norm_one(Two<T> *a, int n, int r, IndexOf<Lanes<T>> &back) {
    using S = Lanes<T>;
    Extent<S> extent;
    S norm = splat<S>(0);
    for (int i = 0; i < n; ++i) {
        S sum = splat<S>(0);
        for (int j = 0; j < n; ++j) {
            const S x = (j <= i ? a[i * n + j] : a[j * n + i]).r[r];
            sum = sum + magnitude(x);
            if (j <= i)
                extent.note(x);
        }
        norm = larger(sum, norm);
    }
    // The sum may overflow where no element does; then the largest element stands for it.
    const MaskOf<S> finite = extent.finite();
    norm = select(norm <= splat<S>(std::numeric_limits<T>::max()), norm, extent.largest);
    const Scale<T> scale(norm);
    const S down = splat<S>(power<T>(-Format<T>::working_exponent));
    const auto zero = norm == splat<S>(0);
    for (int i = 0; i < n; ++i)
        for (int j = 0; j <= i; ++j) {
            S &x = a[i * n + j].r[r];
            x = select(finite & ~zero, scale(x) * down, splat<S>(0));
        }
    back = select(zero, splat_index<S>(0), Format<T>::working_exponent - scale.exponent);
    return finite;
}

template <class T, bool vectors>
struct Work {
    using S = Two<T>;
    S *kept, *a, *d, *e, *z;
    int n;

    Work(char *memory, int order)
        : kept(reinterpret_cast<S *>(memory)),
          a(kept + order * order),
          d(a + order * order),
          e(d + order),
          z(e + order),
          n(order) {}
    static std::size_t bytes(int n) {
        const auto order = static_cast<std::size_t>(n);
        return ((vectors ? 3 : 2) * order * order + 2 * order) * sizeof(S);
    }

    // Values, ascending, in d, and vectors, vector after vector, in z: of the matrix kept, times
    // 2^exponent. Returns the lanes that do not converge.
    unsigned solve(int exponent) {
        const auto factor = splat<S>(power<T>(exponent));
        for (int i = 0; i < n; ++i)
            for (int j = 0; j <= i; ++j)
                a[i * n + j] = kept[i * n + j] * factor;
        if (n == 1) {
            d[0] = a[0];
            if constexpr (vectors)
                z[0] = splat<S>(1);
            return 0;
        }
        if (n == 2)
            a[1] = a[2];
        const unsigned failing = solve_lanes<S, vectors, OfNormOne>(a, d, e, z, n);
        const auto exchange = [](S &x, S &y, const MaskOf<S> &lanes) {
            const S old = x;
            x = select(lanes, y, x);
            y = select(lanes, old, y);
        };
        // Order 2 comes in the order of magnitudes, all others descending.
        const MaskOf<S> all = splat<S>(0) == splat<S>(0);
        const MaskOf<S> lanes = n == 2 ? d[0] > d[1] : all;
        for (int i = 0; i < n / 2; ++i) {
            const int j = n - 1 - i;
            exchange(d[i], d[j], lanes);
            if constexpr (vectors)
                for (int k = 0; k < n; ++k)
                    exchange(z[i * n + k], z[j * n + k], lanes);
        }
        const S back = splat<S>(power<T>(-exponent));
        for (int i = 0; i < n; ++i)
            d[i] = d[i] * back;
        return failing;
    }
};

// Again with the lanes that did not converge; what did stays as it is.
template <class T, bool vectors>
[[gnu::noinline]] unsigned retry(Work<T, vectors> &work, unsigned failing, char *memory) {
    using S = Two<T>;
    const int n = work.n;
    Work<T, vectors> again(memory, n);
    for (int i = 0; i < n * n; ++i)
        again.kept[i] = work.kept[i];
    for (const int exponent : {-3, -6, -9}) {
        const unsigned still = again.solve(exponent);
        const unsigned now = failing & ~still;
        for (int l = 0; l < lanes_of<S>; ++l)
            if (now >> l & 1) {
                const auto take = [&](S *to, const S *from, int elements) {
                    constexpr int L = lanes_of<Lanes<T>>;
                    for (int k = 0; k < elements; ++k)
                        to[k].r[l / L][l % L] = from[k].r[l / L][l % L];
                };
                take(work.d, again.d, n);
                if constexpr (vectors)
                    take(work.z, again.z, n * n);
            }
        failing &= still;
        if (failing == 0)
            break;
    }
    return failing;
}

template <class T, bool vectors>
int eigen_symmetric(const ZelmView &from, const ZelmView &values, const ZelmView &to, int n,
                    Distance count, ZelmStatusView status) {
    using S = Two<T>;
    constexpr int L = lanes_of<S>, half = L / 2;
    const double order = n;
    using Memory = Work<T, vectors>;
    return finish_objects<L>(
        count, (vectors ? 9 : 3) * order * order * order, 2 * Memory::bytes(n), status,
        [&](const Group &group, char *memory, int *statuses) {
            Memory work(memory, n);
            load_objects(work.kept, group.objects<const T, L>(from), n, n);
            IndexOf<Lanes<T>> back[2];
            for (int r = 0; r < 2; ++r)
                set_status(statuses + r * half, ~bring_to_norm_one<T>(work.kept, n, r, back[r]),
                           zelmSafeNotFinite);
            unsigned failing = work.solve(0);
            if (failing != 0) [[unlikely]]
                failing = retry(work, failing, memory + Memory::bytes(n));
            for (int l = 0; l < L; ++l)
                if ((failing >> l & 1) != 0 && statuses[l] == zelStatusOk)
                    statuses[l] = zelStatusNotConverged;
            for (int r = 0; r < 2; ++r) {
                Extent<Lanes<T>> result;
                for (int i = 0; i < n; ++i) {
                    Lanes<T> &x = work.d[i].r[r];
                    x = scaled<T>(x, back[r]);
                    result.note(x);
                }
                set_status(statuses + r * half, ~result.finite(), zelmSafeOutOfRange);
            }
            const auto blank = [&](S *a, int elements) {
                for (int l = 0; l < L; ++l)
                    if (statuses[l] != zelStatusOk)
                        for (int k = 0; k < elements; ++k)
                            a[k].r[l / half][l % half] = std::numeric_limits<T>::quiet_NaN();
            };
            blank(work.d, n);
            store_objects(group.objects<T, L>(values), work.d, 1, n);
            if constexpr (vectors) {
                blank(work.z, n * n);
                auto to_columns = group.objects<T, L>(to);
                std::swap(to_columns.stride1, to_columns.stride2);
                for (int k = 0; k < n * n; ++k)
                    work.a[k] = select(work.z[k] == splat<S>(0), splat<S>(0), work.z[k]);
                store_objects(to_columns, work.a, n, n);
            }
        });
}

} // namespace
} // namespace zelm::safe

#define EIGEN_SYMMETRIC(T, suffix)                                                                 \
    extern "C" int zelmSafeEigenSymmetric_##suffix(ZelmView a, ZelmView values, ZelmView vectors,  \
                                                   int order, ptrdiff_t count,                     \
                                                   ZelmStatusView status) {                        \
        using namespace zelm::safe;                                                                \
        if (const int wrong = first_wrong(count, {order, order}, a, values))                       \
            return wrong;                                                                          \
        return is_null(vectors)                                                                    \
                   ? eigen_symmetric<T, false>(a, values, vectors, order, count, status)           \
                   : eigen_symmetric<T, true>(a, values, vectors, order, count, status);           \
    }
EIGEN_SYMMETRIC(float, 32f)
EIGEN_SYMMETRIC(double, 64f)
