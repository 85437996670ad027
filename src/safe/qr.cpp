#include "objects.hpp"
#include "scale.hpp"

#include "../linalg/qr.hpp"

namespace zelm::safe {
namespace {

// Reflections do not feel the scale of a column, but sums of squares do. Every column is brought
// near 1 by a power of two before, and R's columns back to their scale afterwards.
template <class T>
struct Columns {
    using S = Lanes<T>;
    IndexOf<S> *exponent; // of each column's factor
    MaskOf<S> finite = splat<S>(0) == splat<S>(0);

    // a: rows x columns.
    void scale(S *a, int rows, int columns) {
        for (int j = 0; j < columns; ++j) {
            Extent<S> extent;
            for (int i = 0; i < rows; ++i)
                extent.note(a[i * columns + j]);
            finite = finite & extent.finite();
            const Scale<T> to_working(extent.largest);
            const auto zero = extent.largest == splat<S>(0);
            exponent[j] =
                select(zero, splat_index<S>(0), to_working.exponent - Format<T>::working_exponent);
            for (int i = 0; i < rows; ++i) {
                S &x = a[i * columns + j];
                // What is not finite is left out: its lane has failed.
                x = select(finite & ~zero,
                           to_working(x) * splat<S>(power<T>(-Format<T>::working_exponent)),
                           splat<S>(0));
            }
        }
    }
};

double operations(int rows, int columns, int others) {
    return 2.0 * rows * columns * (columns + others);
}
constexpr std::size_t product(int a, int b) {
    return static_cast<std::size_t>(a) * static_cast<std::size_t>(b);
}

// Loads, scales and factors a group. Returns the lanes with a column that depends on those before
// it, the last one of a square matrix aside.
template <class T, class A>
MaskOf<Lanes<T>> factor_group(const A &a, int rows, int columns, Lanes<T> *d, Columns<T> &scales) {
    using S = Lanes<T>;
    load_objects(d, a, rows, columns);
    scales.scale(d, rows, columns);
    return factor_qr<S, true>(columns, rows,
                              [&](int i, int j) -> S & { return d[i * columns + j]; });
}

template <class T>
int qr(const ZelmView &from, const ZelmView &to_q, const ZelmView &to_r, int rows, int columns,
       int k, Distance count, ZelmStatusView status) {
    using S = Lanes<T>;
    constexpr int L = lanes_of<S>;
    const bool wants_q = !is_null(to_q);
    const int count_of = reflections(columns, rows);
    const std::size_t size_d = product(rows, columns), size_q = product(rows, k),
                      size_r = product(k, columns);
    const auto scratch_columns = static_cast<std::size_t>(columns);
    return finish_objects<L>(
        count, operations(rows, columns, k),
        (size_d + size_q + size_r + scratch_columns) * sizeof(S), status,
        [&](const Group &group, char *memory, int *statuses) {
            S *const d = reinterpret_cast<S *>(memory), *const q = d + size_d,
                     *const r = q + size_q;
            Columns<T> scales = {reinterpret_cast<IndexOf<S> *>(r + size_r)};
            factor_group<T>(group.objects<const T, L>(from), rows, columns, d, scales);
            Extent<S> result;
            for (int i = 0; i < k; ++i)
                for (int j = 0; j < columns; ++j) {
                    S &x = r[i * columns + j];
                    x = i <= j ? scaled<T>(d[i * columns + j], -scales.exponent[j]) : splat<S>(0);
                    result.note(x);
                }
            if (wants_q) {
                for (int i = 0; i < rows; ++i)
                    for (int j = 0; j < k; ++j)
                        q[i * k + j] = splat<S>(i == j ? 1 : 0);
                for (int step = count_of - 1; step >= 0; --step) {
                    const auto u = [&](int i, int j) { return d[i * columns + j]; };
                    const S beta = reflection_scale<S>(step, rows, u);
                    for (int j = step; j < k; ++j) {
                        S s = q[step * k + j];
                        for (int i = step + 1; i < rows; ++i)
                            s = s + u(i, step) * q[i * k + j];
                        s = beta * s;
                        q[step * k + j] = q[step * k + j] + s;
                        for (int i = step + 1; i < rows; ++i)
                            q[i * k + j] = q[i * k + j] + s * u(i, step);
                    }
                }
            }
            set_status(statuses, ~scales.finite, zelmSafeNotFinite);
            set_status(statuses, ~result.finite(), zelmSafeOutOfRange);
            blank_failures(statuses, r, k * columns);
            store_objects(group.objects<T, L>(to_r), r, k, columns);
            if (wants_q) {
                blank_failures(statuses, q, rows * k);
                store_objects(group.objects<T, L>(to_q), q, rows, k);
            }
        });
}

template <class T>
int least_squares(const ZelmView &from, const ZelmView &b, const ZelmView &x,
                  const ZelmView &residual, int rows, int columns, int sides, Distance count,
                  ZelmStatusView status) {
    using S = Lanes<T>;
    constexpr int L = lanes_of<S>;
    const bool wants_residual = !is_null(residual);
    const std::size_t size_d = product(rows, columns), size_b = product(rows, sides);
    const auto numbers = static_cast<std::size_t>(columns) + static_cast<std::size_t>(sides);
    return finish_objects<L>(
        count, operations(rows, columns, sides),
        (size_d + size_b + static_cast<std::size_t>(sides) + numbers) * sizeof(S), status,
        [&](const Group &group, char *memory, int *statuses) {
            S *const d = reinterpret_cast<S *>(memory), *const v = d + size_d,
                     *const rest = v + size_b;
            auto *const exponents = reinterpret_cast<IndexOf<S> *>(rest + sides);
            Columns<T> scales = {exponents}, sides_scales = {exponents + columns};
            MaskOf<S> dependent =
                factor_group<T>(group.objects<const T, L>(from), rows, columns, d, scales);
            if (rows == columns) // the last column has no reflection
                dependent = dependent | (d[rows * columns - 1] == splat<S>(0));
            load_objects(v, group.objects<const T, L>(b), rows, sides);
            sides_scales.scale(v, rows, sides);
            const auto factor = [&](int i, int j) { return d[i * columns + j]; };
            Extent<S> result;
            for (int c = 0; c < sides; ++c) {
                substitute_qr<S>(
                    columns, rows, factor,
                    [&](int k) { return reflection_scale<S>(k, rows, factor); },
                    [&](int i) -> S & { return v[i * sides + c]; });
                S squares = splat<S>(0);
                for (int i = columns; i < rows; ++i)
                    squares = squares + v[i * sides + c] * v[i * sides + c];
                const auto e = sides_scales.exponent[c];
                rest[c] = scaled<T>(scaled<T>(squares, -e), -e);
                if (wants_residual)
                    result.note(rest[c]);
                for (int i = 0; i < columns; ++i) {
                    S &value = v[i * sides + c];
                    value = scaled<T>(value, scales.exponent[i] - e);
                    result.note(value);
                }
            }
            set_status(statuses, ~(scales.finite & sides_scales.finite), zelmSafeNotFinite);
            set_status(statuses, dependent, zelStatusSingular);
            set_status(statuses, ~result.finite(), zelmSafeOutOfRange);
            blank_failures(statuses, v, columns * sides);
            store_objects(group.objects<T, L>(x), v, columns, sides);
            if (wants_residual) {
                blank_failures(statuses, rest, sides);
                store_objects(group.objects<T, L>(residual), rest, 1, sides);
            }
        });
}

} // namespace
} // namespace zelm::safe

#define QR(T, suffix)                                                                              \
    extern "C" int zelmSafeQR_##suffix(ZelmView a, ZelmView q, ZelmView r, int rows, int columns,  \
                                       int columnsOfQ, ptrdiff_t count, ZelmStatusView status) {   \
        using namespace zelm::safe;                                                                \
        if (const int wrong = first_wrong(count, {rows, columns, columnsOfQ}, a, r))               \
            return wrong;                                                                          \
        if (columnsOfQ != rows && columnsOfQ != (rows < columns ? rows : columns))                 \
            return zelStatusBadSize;                                                               \
        return qr<T>(a, q, r, rows, columns, columnsOfQ, count, status);                           \
    }                                                                                              \
    extern "C" int zelmSafeLeastSquares_##suffix(                                                  \
        ZelmView a, ZelmView b, ZelmView x, ZelmView residual, int rows, int columns,              \
        int rightHandSides, ptrdiff_t count, ZelmStatusView status) {                              \
        using namespace zelm::safe;                                                                \
        if (const int wrong = first_wrong(count, {rows, columns, rightHandSides}, a, b, x))        \
            return wrong;                                                                          \
        if (rows < columns)                                                                        \
            return zelStatusSizeMismatch;                                                          \
        return least_squares<T>(a, b, x, residual, rows, columns, rightHandSides, count, status);  \
    }
QR(float, 32f)
QR(double, 64f)
