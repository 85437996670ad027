#include "problem.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <new>
#include <type_traits>

namespace zelm::bench {
namespace {

template <class T>
T &at(const BenchOperand &o, int n, int i, int j) {
    return *reinterpret_cast<T *>(static_cast<std::byte *>(o.base) + std::ptrdiff_t{n} * o.object +
                                  std::ptrdiff_t{i} * o.row + std::ptrdiff_t{j} * o.element);
}

// xorshift32: enough to keep branch predictors guessing.
class Random {
public:
    explicit Random(unsigned seed) : state_(seed * 2654435761u | 1u) {}
    double next() {
        state_ ^= state_ << 13;
        state_ ^= state_ >> 17;
        state_ ^= state_ << 5;
        return static_cast<std::int32_t>(state_) * 0x1p-31;
    }

private:
    std::uint32_t state_;
};

template <class T>
using Wider = std::conditional_t<sizeof(T) == 4, double, long double>;
template <class T>
constexpr Wider<T> epsilon = std::numeric_limits<T>::epsilon();

// Collects the largest |found - expected| / bound.
template <class T>
class Worst {
public:
    void add(Wider<T> found, Wider<T> expected, Wider<T> bound) {
        const Wider<T> difference = std::abs(found - expected);
        if (difference == 0)
            return;
        const auto ratio = static_cast<double>(difference / bound);
        worst_ = ratio <= worst_ ? worst_ : ratio; // takes NaN, and keeps it
    }
    double worst() const { return worst_; }

private:
    double worst_ = 0;
};

template <class T>
double sum_error(const BenchProblem &p) {
    Worst<T> worst;
    for (int n = 0; n < p.count; ++n)
        for (int i = 0; i < p.rows; ++i)
            for (int j = 0; j < p.columns; ++j)
                worst.add(at<T>(p.c, n, i, j), at<T>(p.a, n, i, j) + at<T>(p.b, n, i, j), 0);
    return worst.worst();
}

// vector: b and c are rows in memory, columns in the product.
template <class T>
double product_error(const BenchProblem &p, bool vector) {
    Worst<T> worst;
    for (int n = 0; n < p.count; ++n)
        for (int i = 0; i < p.rows; ++i)
            for (int j = 0; j < p.columns; ++j) {
                Wider<T> s = 0, magnitude = 0;
                for (int k = 0; k < p.inner; ++k) {
                    const auto b = vector ? at<T>(p.b, n, 0, k) : at<T>(p.b, n, k, j);
                    const auto term = Wider<T>{at<T>(p.a, n, i, k)} * Wider<T>{b};
                    s += term;
                    magnitude += std::abs(term);
                }
                worst.add(vector ? at<T>(p.c, n, 0, i) : at<T>(p.c, n, i, j), s,
                          p.inner * epsilon<T> * magnitude);
            }
    return worst.worst();
}

struct RowOrder {
    std::vector<int> source; // pivot row i is this row of a
    std::vector<int> stored; // and this row of c
};

RowOrder row_order(const int *index, int order, BenchPivots pivots) {
    RowOrder rows;
    for (int i = 0; i < order; ++i)
        rows.source.push_back(i);
    rows.stored = rows.source;
    for (int i = 0; i < order; ++i) {
        const auto at_i = static_cast<std::size_t>(i);
        const int last = pivots == bench_pivots_swaps_of_at ? order : order - 1;
        const int entry = std::clamp(index[i], 0, last);
        switch (pivots) {
        case bench_pivots_none:
        case bench_factor:
        case bench_factor_by_columns:
            break;
        case bench_pivots_stay:
            rows.source[at_i] = rows.stored[at_i] = entry;
            break;
        case bench_pivots_order:
            rows.source[at_i] = entry;
            break;
        case bench_pivots_inverse:
        case bench_pivots_inverse_of_at:
            rows.source[static_cast<std::size_t>(entry)] = i;
            break;
        case bench_pivots_swaps_of_at:
            std::swap(rows.source[at_i],
                      rows.source[static_cast<std::size_t>(std::max(entry, 1) - 1)]);
            break;
        }
    }
    return rows;
}

template <class T>
double factor_error(const BenchProblem &p, BenchPivots pivots) {
    Worst<T> worst;
    const int order = p.rows;
    const bool by_columns =
        pivots == bench_pivots_inverse_of_at || pivots == bench_pivots_swaps_of_at;
    const auto element = [&](const BenchOperand &o, int n, int i, int j) -> Wider<T> {
        return by_columns ? at<T>(o, n, j, i) : at<T>(o, n, i, j);
    };
    for (int n = 0; n < p.count; ++n) {
        const RowOrder rows = row_order(p.index + std::ptrdiff_t{n} * order, order, pivots);
        for (int i = 0; i < order; ++i) {
            const auto stored = rows.stored[static_cast<std::size_t>(i)];
            for (int j = 0; j < order; ++j) {
                Wider<T> s = 0, magnitude = 0;
                for (int k = 0; k <= std::min(i, j); ++k) {
                    const auto l = k == i ? Wider<T>{1} : element(p.c, n, stored, k);
                    const auto u = element(p.c, n, rows.stored[static_cast<std::size_t>(k)], j);
                    s += l * u;
                    magnitude += std::abs(l * u);
                }
                worst.add(s, element(p.a, n, rows.source[static_cast<std::size_t>(i)], j),
                          2 * order * epsilon<T> * magnitude);
                // Pivots are the largest of their columns, so no multiplier is above 1.
                if (j < i && !(std::abs(element(p.c, n, stored, j)) <= 1 + 4 * epsilon<T>))
                    worst.add(2, 0, 1);
            }
        }
    }
    return worst.worst();
}

// The residual in units of what backward stable elimination leaves, with room for the growth of
// the factors.
template <class T>
double solution_error(const BenchProblem &p) {
    Worst<T> worst;
    for (int n = 0; n < p.count; ++n)
        for (int i = 0; i < p.rows; ++i) {
            Wider<T> s = 0, largest = 0;
            for (int j = 0; j < p.rows; ++j) {
                s += Wider<T>{at<T>(p.a, n, i, j)} * Wider<T>{at<T>(p.c, n, 0, j)};
                largest = std::max(largest, std::abs(Wider<T>{at<T>(p.c, n, 0, j)}));
            }
            worst.add(s, at<T>(p.b, n, 0, i),
                      16 * p.rows * epsilon<T> * std::max<Wider<T>>(largest, 1));
        }
    return worst.worst();
}

// A point through the matrices of b, the last one first; with the sums of the magnitudes, which
// bound the rounding.
double transform_error(const BenchProblem &p, BenchWork work) {
    Worst<float> worst;
    constexpr double eps = epsilon<float>, scale[] = {320, -200, 1}, offset[] = {320, 200, 0};
    for (int n = 0; n < p.count; ++n) {
        double q[4] = {0, 0, 0, 1}, size[4] = {0, 0, 0, 1};
        for (int j = 0; j < 3; ++j)
            size[j] = std::abs(q[j] = at<float>(p.a, n, 0, j));
        for (int m = work == bench_project ? 2 : 0; m >= 0; --m) {
            double r[4] = {}, s[4] = {};
            for (int j = 0; j < 4; ++j)
                for (int k = 0; k < 4; ++k) {
                    const double element = at<float>(p.b, 0, 4 * m + k, j);
                    r[j] += q[k] * element;
                    s[j] += size[k] * std::abs(element);
                }
            std::copy_n(r, 4, q);
            std::copy_n(s, 4, size);
        }
        for (int j = 0; j < (work == bench_affine ? 4 : 3); ++j) {
            const double found = at<float>(p.c, n, 0, j);
            if (work == bench_affine) {
                worst.add(found, q[j], 4 * eps * size[j]);
                continue;
            }
            const double s = work == bench_project ? scale[j] : 1;
            const double o = work == bench_project ? offset[j] : 0;
            const double relative =
                size[j] / std::abs(q[3]) + std::abs(q[j]) * size[3] / (q[3] * q[3]);
            worst.add(found, o + s * q[j] / q[3], 16 * eps * (std::abs(s) * relative + o));
        }
    }
    return worst.worst();
}

double frame_error(const BenchProblem &p, BenchWork work) {
    Worst<float> worst;
    const auto length = [](const double(&v)[3]) { return std::hypot(v[0], v[1], v[2]); };
    for (int n = 0; n < p.count; ++n) {
        double v[3][3];
        for (int i = 0; i < p.rows; ++i)
            for (int j = 0; j < 3; ++j)
                v[i][j] = at<float>(p.a, n, i, j);
        if (work == bench_normalize) {
            for (int j = 0; j < 3; ++j)
                worst.add(at<float>(p.c, n, 0, j), v[0][j] / length(v[0]), 4 * epsilon<float>);
            continue;
        }
        double axis[3][3];
        const auto normalized_cross = [&](int to, const double(&a)[3], const double(&b)[3]) {
            for (int j = 0; j < 3; ++j)
                axis[to][j] = a[(j + 1) % 3] * b[(j + 2) % 3] - a[(j + 2) % 3] * b[(j + 1) % 3];
            const double l = length(axis[to]);
            for (double &x : axis[to])
                x /= l;
            return l;
        };
        for (int j = 0; j < 3; ++j)
            axis[2][j] = v[0][j] - v[1][j];
        const double distance = length(axis[2]);
        for (double &x : axis[2])
            x /= distance;
        const double across = normalized_cross(0, v[2], axis[2]);
        normalized_cross(1, axis[2], axis[0]);
        const double bound = 64 * epsilon<float> * (1 + 1 / distance) * (1 + 1 / across);
        for (int j = 0; j < 3; ++j) {
            double shift = 0;
            for (int i = 0; i < 3; ++i) {
                worst.add(at<float>(p.c, n, i, j), axis[j][i], bound);
                shift -= axis[j][i] * v[0][i];
            }
            worst.add(at<float>(p.c, n, 3, j), shift, 2 * bound);
        }
    }
    return worst.worst();
}

// L * L' against a. The diagonal of L is inverted where the factor is the library's.
template <class T>
double cholesky_error(const BenchProblem &p, BenchPivots stored) {
    Worst<T> worst;
    const auto l = [&](int n, int i, int k) -> Wider<T> {
        const Wider<T> x =
            stored == bench_factor_by_columns ? at<T>(p.c, n, k, i) : at<T>(p.c, n, i, k);
        return i == k && stored == bench_pivots_none ? 1 / x : x;
    };
    for (int n = 0; n < p.count; ++n)
        for (int i = 0; i < p.rows; ++i)
            for (int j = 0; j <= i; ++j) {
                Wider<T> s = 0, magnitude = 0;
                for (int k = 0; k <= j; ++k) {
                    s += l(n, i, k) * l(n, j, k);
                    magnitude += std::abs(l(n, i, k) * l(n, j, k));
                }
                worst.add(s, at<T>(p.a, n, i, j), 4 * p.rows * epsilon<T> * magnitude);
            }
    return worst.worst();
}

// a * c against 1. Cofactors may cost a condition number more than elimination.
template <class T>
double inverse_error(const BenchProblem &p) {
    Worst<T> worst;
    const int order = p.rows;
    for (int n = 0; n < p.count; ++n) {
        Wider<T> of_a = 0, of_c = 0;
        for (int i = 0; i < order * order; ++i) {
            of_a += std::abs(Wider<T>{at<T>(p.a, n, i / order, i % order)});
            of_c += std::abs(Wider<T>{at<T>(p.c, n, i / order, i % order)});
        }
        for (int i = 0; i < order; ++i)
            for (int j = 0; j < order; ++j) {
                Wider<T> s = 0;
                for (int k = 0; k < order; ++k)
                    s += Wider<T>{at<T>(p.a, n, i, k)} * Wider<T>{at<T>(p.c, n, k, j)};
                worst.add(s, i == j, epsilon<T> * (of_a * of_c) * (1 + of_a * of_c));
            }
    }
    return worst.worst();
}

// Against elimination in a wider type, in units of the product of the lengths of the rows.
template <class T>
double determinant_error(const BenchProblem &p) {
    Worst<T> worst;
    const int order = p.rows;
    for (int n = 0; n < p.count; ++n) {
        std::vector<std::vector<Wider<T>>> a;
        Wider<T> d = 1, bound = 1;
        for (int i = 0; i < order; ++i) {
            Wider<T> square = 0;
            a.emplace_back();
            for (int j = 0; j < order; ++j) {
                a.back().push_back(at<T>(p.a, n, i, j));
                square += a.back().back() * a.back().back();
            }
            bound *= std::sqrt(square);
        }
        for (std::size_t k = 0; k < a.size(); ++k) {
            std::size_t best = k;
            for (std::size_t i = k; i < a.size(); ++i)
                best = std::abs(a[i][k]) > std::abs(a[best][k]) ? i : best;
            std::swap(a[k], a[best]);
            d *= best == k ? a[k][k] : -a[k][k];
            for (std::size_t i = k + 1; i < a.size(); ++i)
                for (std::size_t j = a.size(); j-- > k;)
                    a[i][j] -= a[i][k] / a[k][k] * a[k][j];
        }
        worst.add(at<T>(p.c, n, 0, 0), d, 8 * order * epsilon<T> * bound);
    }
    return worst.worst();
}

// R' * R against a' * a.
template <class T>
double qr_error(const BenchProblem &p, BenchPivots stored) {
    Worst<T> worst;
    const auto r = [&](int n, int k, int j) -> Wider<T> {
        return stored == bench_factor_by_columns ? *(&at<T>(p.c, n, 0, 0) + j * p.rows + k)
                                                 : at<T>(p.c, n, k, j);
    };
    const auto a = [&](int n, int k, int j) -> Wider<T> {
        return stored == bench_factor_by_columns ? *(&at<T>(p.a, n, 0, 0) + j * p.rows + k)
                                                 : at<T>(p.a, n, k, j);
    };
    for (int n = 0; n < p.count; ++n)
        for (int i = 0; i < p.columns; ++i)
            for (int j = 0; j <= i; ++j) {
                Wider<T> s = 0, t = 0;
                for (int k = 0; k <= j; ++k)
                    s += r(n, k, i) * r(n, k, j);
                for (int k = 0; k < p.rows; ++k)
                    t += a(n, k, i) * a(n, k, j);
                worst.add(s, t, 32 * p.rows * p.rows * epsilon<T>);
            }
    return worst.worst();
}

// The residual of a least squares solution is orthogonal to the columns.
template <class T>
double least_squares_error(const BenchProblem &p) {
    Worst<T> worst;
    for (int n = 0; n < p.count; ++n) {
        std::vector<Wider<T>> rest;
        Wider<T> largest = 1;
        for (int i = 0; i < p.rows; ++i) {
            Wider<T> s = at<T>(p.b, n, 0, i);
            for (int j = 0; j < p.columns; ++j) {
                s -= Wider<T>{at<T>(p.a, n, i, j)} * Wider<T>{at<T>(p.c, n, 0, j)};
                largest = std::max(largest, std::abs(Wider<T>{at<T>(p.c, n, 0, j)}));
            }
            rest.push_back(s);
        }
        for (int j = 0; j < p.columns; ++j) {
            Wider<T> s = 0;
            for (int i = 0; i < p.rows; ++i)
                s += rest[static_cast<std::size_t>(i)] * Wider<T>{at<T>(p.a, n, i, j)};
            worst.add(s, 0, 32 * p.rows * p.rows * epsilon<T> * largest);
        }
    }
    return worst.worst();
}

// Residuals and, of symmetric matrices, the angles between the vectors.
template <class T>
double vector_error(const BenchProblem &p, bool symmetric) {
    Worst<T> worst;
    const int order = p.rows;
    const auto bound = 60 * order * order * epsilon<T>;
    for (int n = 0; n < p.count; ++n)
        for (int j = 0; j < order; ++j) {
            const Wider<T> re = at<T>(p.b, n, 0, j);
            const Wider<T> im = symmetric ? 0 : at<T>(p.factors, n, 0, j);
            const bool second = im < 0; // the conjugate of the vector before it
            const int x = second ? j - 1 : j;
            const auto imaginary = [&](int i) -> Wider<T> {
                return im == 0 ? 0 : at<T>(p.c, n, i, x + 1) * (second ? -1 : 1);
            };
            Wider<T> length = 0;
            for (int i = 0; i < order; ++i)
                length += std::abs(Wider<T>{at<T>(p.c, n, i, x)}) + std::abs(imaginary(i));
            for (int i = 0; i < order; ++i) {
                Wider<T> real = 0, other = 0, angle = i == j;
                for (int k = 0; k < order; ++k) {
                    const auto a = Wider<T>{at<T>(p.a, n, i, k)};
                    real += a * at<T>(p.c, n, k, x);
                    other += a * imaginary(k);
                    angle -= Wider<T>{at<T>(p.c, n, k, i)} * at<T>(p.c, n, k, j);
                }
                const Wider<T> v = at<T>(p.c, n, i, x), w = imaginary(i);
                worst.add(real, re * v - im * w, bound * length);
                worst.add(other, re * w + im * v, bound * length);
                if (symmetric)
                    worst.add(angle, 0, bound);
            }
        }
    return worst.worst();
}

// The sum of the values is the trace, that of their squares the trace of the square.
template <class T>
double value_error(const BenchProblem &p, bool symmetric) {
    Worst<T> worst;
    const int order = p.rows;
    for (int n = 0; n < p.count; ++n) {
        Wider<T> trace = 0, square = 0, sum = 0, sum_of_squares = 0;
        for (int i = 0; i < order; ++i) {
            const Wider<T> re = at<T>(p.c, n, 0, i);
            const Wider<T> im = symmetric ? 0 : at<T>(p.factors, n, 0, i);
            sum += re;
            sum_of_squares += re * re - im * im;
            trace += at<T>(p.a, n, i, i);
            for (int k = 0; k < order; ++k)
                square += Wider<T>{at<T>(p.a, n, i, k)} * at<T>(p.a, n, k, i);
        }
        const auto bound = 60 * order * order * order * epsilon<T>;
        worst.add(sum, trace, bound);
        worst.add(sum_of_squares, square, bound);
    }
    return worst.worst();
}

// The sum of the products of two objects, or of the squares of one.
template <class T>
double reduction_error(const BenchProblem &p, BenchWork work) {
    Worst<T> worst;
    for (int n = 0; n < p.count; ++n) {
        Wider<T> s = 0, magnitude = 0;
        for (int i = 0; i < p.rows; ++i)
            for (int j = 0; j < p.columns; ++j) {
                const Wider<T> a = at<T>(p.a, n, i, j);
                const Wider<T> term = a * (work == bench_dot ? Wider<T>{at<T>(p.b, n, i, j)} : a);
                s += term;
                magnitude += std::abs(term);
            }
        const Wider<T> expected = work == bench_dot ? s : std::sqrt(s);
        const Wider<T> bound = work == bench_dot ? magnitude : expected;
        worst.add(at<T>(p.c, n, 0, 0), expected, p.rows * p.columns * epsilon<T> * bound);
    }
    return worst.worst();
}

template <class T>
double cross_error(const BenchProblem &p) {
    Worst<T> worst;
    for (int n = 0; n < p.count; ++n)
        for (int j = 0; j < 3; ++j) {
            const int k = (j + 1) % 3, l = (j + 2) % 3;
            const auto a = [&](int i) -> Wider<T> { return at<T>(p.a, n, 0, i); };
            const auto b = [&](int i) -> Wider<T> { return at<T>(p.b, n, 0, i); };
            worst.add(at<T>(p.c, n, 0, j), a(k) * b(l) - a(l) * b(k),
                      2 * epsilon<T> * (std::abs(a(k) * b(l)) + std::abs(a(l) * b(k))));
        }
    return worst.worst();
}

template <class T>
double moved_error(const BenchProblem &p, bool transposed) {
    Worst<T> worst;
    for (int n = 0; n < p.count; ++n)
        for (int i = 0; i < p.rows; ++i)
            for (int j = 0; j < p.columns; ++j)
                worst.add(transposed ? at<T>(p.c, n, j, i) : at<T>(p.c, n, i, j),
                          at<T>(p.a, n, i, j), 0);
    return worst.worst();
}

template <class T>
double weighted_sum_error(const BenchProblem &p, BenchWork work) {
    Worst<T> worst;
    for (int n = 0; n < p.count; ++n)
        for (int j = 0; j < p.columns; ++j) {
            const auto a = Wider<T>{at<T>(p.a, n, 0, j)} * static_cast<Wider<T>>(p.scale1);
            const auto b = Wider<T>{at<T>(p.b, n, 0, j)} *
                           (work == bench_lcomb ? static_cast<Wider<T>>(p.scale2) : 1);
            worst.add(at<T>(p.c, n, 0, j), a + b, 2 * epsilon<T> * (std::abs(a) + std::abs(b)));
        }
    return worst.worst();
}

template <class T>
double gaxpy_error(const BenchProblem &p) {
    Worst<T> worst;
    for (int n = 0; n < p.count; ++n)
        for (int i = 0; i < p.rows; ++i) {
            Wider<T> s = at<T>(p.d, n, 0, i), magnitude = std::abs(s);
            for (int k = 0; k < p.inner; ++k) {
                const auto term = Wider<T>{at<T>(p.a, n, i, k)} * Wider<T>{at<T>(p.b, n, 0, k)};
                s += term;
                magnitude += std::abs(term);
            }
            worst.add(at<T>(p.c, n, 0, i), s, (p.inner + 1) * epsilon<T> * magnitude);
        }
    return worst.worst();
}

template <class T>
double work_error(const BenchProblem &p, BenchWork work, BenchPivots pivots) {
    switch (work) {
    case bench_add:
        return sum_error<T>(p);
    case bench_mul:
    case bench_mul_mam:
    case bench_mul_mma:
        return product_error<T>(p, false);
    case bench_mul_vector:
        return product_error<T>(p, true);
    case bench_lu:
        return factor_error<T>(p, pivots);
    case bench_lu_solve:
    case bench_cholesky_solve:
        return solution_error<T>(p);
    case bench_cholesky:
        return cholesky_error<T>(p, pivots);
    case bench_invert:
        return inverse_error<T>(p);
    case bench_det:
        return determinant_error<T>(p);
    case bench_qr:
        return qr_error<T>(p, pivots);
    case bench_qr_solve:
        return least_squares_error<T>(p);
    case bench_affine:
    case bench_coordinate:
    case bench_project:
        return transform_error(p, work);
    case bench_normalize:
    case bench_look_at:
        return frame_error(p, work);
    case bench_symmetric:
    case bench_right_vectors:
        return vector_error<T>(p, work == bench_symmetric);
    case bench_symmetric_values:
    case bench_general_values:
        return value_error<T>(p, work == bench_symmetric_values);
    case bench_dot:
    case bench_norm:
        return reduction_error<T>(p, work);
    case bench_cross:
        return cross_error<T>(p);
    case bench_transpose:
        return moved_error<T>(p, true);
    case bench_copy:
    case bench_pack:
    case bench_unpack:
        return moved_error<T>(p, false);
    case bench_saxpy:
    case bench_lcomb:
        return weighted_sum_error<T>(p, work);
    case bench_gaxpy:
    case bench_gaxpy_one:
        return gaxpy_error<T>(p);
    }
    return std::numeric_limits<double>::quiet_NaN();
}

} // namespace

Workspace::Workspace(BenchWork work, ElementType type, Shape shape, BenchMemory memory, int count,
                     bool tables)
    : work_(work), type_(type) {
    problem_.rows = shape.rows;
    problem_.inner = shape.inner;
    problem_.columns = shape.columns;
    problem_.count = count;
    problem_.scale1 = 0.75;
    problem_.scale2 = -1.25;

    const bool gaxpy = work == bench_gaxpy || work == bench_gaxpy_one;
    const bool scalars = work == bench_det || work == bench_dot || work == bench_norm;
    const bool one_matrix =
        work == bench_affine || work == bench_coordinate || work == bench_project;
    const Extent square{shape.rows, shape.rows}, vector{1, shape.rows};
    switch (work) {
    case bench_add:
    case bench_cross:
    case bench_saxpy:
    case bench_lcomb:
        a_ = b_ = c_ = {shape.rows, shape.columns};
        break;
    case bench_dot:
        a_ = b_ = {shape.rows, shape.columns};
        c_ = {1, 1};
        break;
    case bench_norm:
        a_ = {shape.rows, shape.columns};
        c_ = {1, 1};
        break;
    case bench_transpose:
        a_ = {shape.rows, shape.columns};
        c_ = {shape.columns, shape.rows};
        break;
    case bench_copy:
    case bench_pack:
    case bench_unpack:
        a_ = c_ = {shape.rows, shape.columns};
        break;
    case bench_gaxpy:
    case bench_gaxpy_one:
        a_ = {shape.rows, shape.inner};
        b_ = {1, shape.inner};
        c_ = d_ = vector;
        break;
    case bench_mul:
    case bench_mul_mam:
    case bench_mul_mma:
        a_ = {shape.rows, shape.inner};
        b_ = {shape.inner, shape.columns};
        c_ = {shape.rows, shape.columns};
        break;
    case bench_mul_vector:
        a_ = {shape.rows, shape.inner};
        b_ = {1, shape.inner};
        c_ = vector;
        break;
    case bench_lu:
    case bench_cholesky:
    case bench_invert:
        a_ = c_ = square;
        break;
    case bench_lu_solve:
    case bench_cholesky_solve:
        a_ = square;
        b_ = c_ = vector;
        break;
    case bench_det:
        a_ = square;
        c_ = {1, 1};
        break;
    case bench_qr:
        a_ = c_ = {shape.rows, shape.columns};
        break;
    case bench_qr_solve:
        a_ = {shape.rows, shape.columns};
        b_ = vector;
        c_ = {1, shape.columns};
        break;
    case bench_affine:
    case bench_coordinate:
    case bench_project:
        a_ = {1, 3};
        b_ = {work == bench_project ? 12 : 4, 4};
        c_ = {1, work == bench_affine ? 4 : 3};
        break;
    case bench_normalize:
        a_ = c_ = {1, 3};
        break;
    case bench_look_at:
        a_ = {3, 3};
        c_ = {4, 4};
        break;
    case bench_symmetric:
    case bench_right_vectors:
        a_ = c_ = square;
        b_ = vector;
        break;
    case bench_symmetric_values:
    case bench_general_values:
        a_ = square;
        c_ = vector;
        break;
    }
    problem_.a =
        place(a_, work == bench_unpack ? bench_packed : memory, work == bench_mul_mma || gaxpy);
    if (b_.rows > 0)
        problem_.b = place(b_, work == bench_symmetric ? bench_packed : memory,
                           work == bench_mul_mam || one_matrix);
    problem_.c = place(c_, scalars || work == bench_pack ? bench_packed : memory, false);
    if (d_.rows > 0)
        problem_.d = place(d_, memory, work == bench_gaxpy_one);
    if (work == bench_lu || work == bench_lu_solve) {
        index_.resize(static_cast<std::size_t>(count) * static_cast<std::size_t>(shape.rows));
        problem_.index = index_.data();
    }
    if (work == bench_lu_solve || work == bench_cholesky_solve || work == bench_qr_solve)
        problem_.factors = place(a_, memory, false);
    buffer_.resize(static_cast<std::size_t>(shape.rows) * static_cast<std::size_t>(shape.rows + 1));
    problem_.buffer = buffer_.data();
    if (work == bench_right_vectors || work == bench_general_values)
        problem_.factors = place(vector, memory, false);

    const auto list = [&](const BenchOperand &o, Extent extent, std::vector<void *> &elements,
                          std::vector<void *> &objects) {
        for (int i = 0; i < extent.rows; ++i)
            for (int j = 0; j < extent.columns; ++j)
                elements.push_back(&at<char>(o, 0, i, j));
        for (int n = 0; extent.rows > 0 && n < count; ++n)
            objects.push_back(&at<char>(o, n, 0, 0));
    };
    if (tables) {
        list(problem_.a, a_, problem_.a_elements, problem_.a_objects);
        list(problem_.b, b_, problem_.b_elements, problem_.b_objects);
        list(problem_.c, c_, problem_.c_elements, problem_.c_objects);
    }
}

// Operands start on cache lines, and no two at the same place of a 4096-byte page: there loads wait
// for stores to the other operand.
BenchOperand Workspace::place(Extent extent, BenchMemory memory, bool single) {
    const int size = type_ == ElementType::f32 ? 4 : 8;
    const int rows = extent.rows, columns = extent.columns, count = single ? 1 : problem_.count;
    BenchOperand o{};
    switch (memory) {
    case bench_packed:
    case bench_strided:
        o = {nullptr, rows * columns * size, columns * size, size};
        break;
    case bench_padded:
        o = {nullptr, rows * (columns + 1) * size, (columns + 1) * size, size};
        break;
    case bench_gaps:
        o = {nullptr, rows * columns * 2 * size, columns * 2 * size, 2 * size};
        break;
    case bench_planar:
        o = {nullptr, size, columns * count * size, count * size};
        break;
    case bench_columns:
        o = {nullptr, rows * columns * size, size, rows * size};
        break;
    case bench_stride16:
    case bench_stride32:
        o = {nullptr, memory == bench_stride16 ? 16 : 32, columns * size, size};
        break;
    }
    constexpr std::size_t page = 4096, stagger = 17 * 64;
    const std::size_t shift = blocks_.size() * stagger % page;
    const std::ptrdiff_t last = std::ptrdiff_t{count - 1} * o.object +
                                std::ptrdiff_t{rows - 1} * o.row +
                                std::ptrdiff_t{columns - 1} * o.element;
    const std::size_t bytes = (static_cast<std::size_t>(last + size) + shift + page) / page * page;
    blocks_.emplace_back(static_cast<std::byte *>(std::aligned_alloc(page, bytes)));
    if (!blocks_.back())
        throw std::bad_alloc();
    std::fill_n(blocks_.back().get(), bytes, std::byte{0});
    o.base = blocks_.back().get() + shift;
    if (single)
        o.object = 0;
    return o;
}

void Workspace::fill(unsigned seed) {
    Random random(seed);
    const auto fill_operand = [&]<class T>(const BenchOperand &o, Extent extent, T) {
        const int count = o.object == 0 ? 1 : problem_.count;
        for (int n = 0; n < count; ++n)
            for (int i = 0; i < extent.rows; ++i)
                for (int j = 0; j < extent.columns; ++j)
                    if (j >= i || !is_symmetric())
                        at<T>(o, n, i, j) = static_cast<T>(random.next());
                    else
                        at<T>(o, n, i, j) = at<T>(o, n, j, i);
    };
    for (const auto &[operand, extent] :
         {std::pair{problem_.a, a_}, std::pair{problem_.b, b_}, std::pair{problem_.d, d_}}) {
        if (type_ == ElementType::f32)
            fill_operand(operand, extent, float{});
        else
            fill_operand(operand, extent, double{});
    }
    // Symmetric and definite.
    const auto make_definite = [&]<class T>(T) {
        for (int n = 0; n < problem_.count; ++n)
            for (int i = 0; i < a_.rows; ++i) {
                at<T>(problem_.a, n, i, i) += static_cast<T>(a_.rows);
                for (int j = 0; j < i; ++j)
                    at<T>(problem_.a, n, j, i) = at<T>(problem_.a, n, i, j);
            }
    };
    if (work_ == bench_cholesky || work_ == bench_cholesky_solve)
        type_ == ElementType::f32 ? make_definite(float{}) : make_definite(double{});
}

void Workspace::poison() {
    const auto spoil = [&]<class T>(T value) {
        for (int n = 0; n < problem_.count; ++n)
            for (int i = 0; i < c_.rows; ++i)
                for (int j = 0; j < c_.columns; ++j)
                    at<T>(problem_.c, n, i, j) = value;
    };
    if (type_ == ElementType::f32)
        spoil(std::numeric_limits<float>::quiet_NaN());
    else
        spoil(std::numeric_limits<double>::quiet_NaN());
    if (work_ == bench_lu)
        std::fill(index_.begin(), index_.end(), -1);
}

double Workspace::error(BenchPivots pivots) const {
    return type_ == ElementType::f32 ? work_error<float>(problem_, work_, pivots)
                                     : work_error<double>(problem_, work_, pivots);
}

} // namespace zelm::bench
