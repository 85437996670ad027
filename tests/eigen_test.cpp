// Eigenproblems. Numbers are judged by residuals in long double, single objects against the limits
// of the method; every other form must give the bits of the single one in packed memory.

#include "support/solver.hpp"

#include <algorithm>
#include <gtest/gtest.h>
#include <numbers>
#include <set>

using namespace zelm_test;

namespace {

constexpr int singular = -195, not_converged = -205;

constexpr const char *symmetric = "EigenValuesSym EigenValuesVectorsSym";
constexpr const char *general =
    "EigenValues EigenValuesVectors EigenValuesVectorsRight EigenValuesVectorsLeft";

// The same operation on one object in packed memory.
Problem alone(const Member &m, int n) {
    const Member &one = member("zelm" + m.family + (m.is_float ? "_m_32f" : "_m_64f"));
    return {one, {n, n, 1, 1}, all_in(one, packed)};
}

// Runs the problem and compares each object with what it gives alone: those before the first
// failure, and that one too where its results are promised; those behind it keep what they hold.
int agrees_with_singles(Problem &problem, Problem &single) {
    const Member &m = problem.member;
    std::vector<Objects> results;
    for (std::size_t o = 1; o < m.operands.size(); ++o)
        results.push_back(m.operands[o].letter == 'b' ? Objects(1)
                                                      : all_objects(problem.operands[o]));
    int status = ok;
    for (int k = 0; k < problem.operands[0].objects() && status == ok; ++k) {
        put(single.operands[0], 0, object(problem.operands[0], k));
        status = single.run();
        const bool untouched = status == singular && problem.sizes.width == 2;
        for (std::size_t o = 1; o < m.operands.size() && !untouched; ++o)
            if (m.operands[o].letter != 'b')
                results[o - 1][std::size_t(k)] =
                    status == not_converged ? Grid{} : object(single.operands[o], 0);
    }
    return gives(problem, status, 1, results) ? status : wrong;
}

// Random matrices, some with a few special values; diagonal ones with zeros; in both directions of
// the iteration.
TEST(Eigen, EveryOrderAndCountInEveryMixOfMemoryShapes) {
    for (const char *families : {symmetric, general})
        for (const Member *m : family(families, families == symmetric ? 20 : 40)) {
            int step = 0;
            for (const int n : {1, 2, 3, 4, 5, 6, 7, 8, 11, 16, 17, 20}) {
                Problem single = alone(*m, n);
                for (const int count : counts(*m, n)) {
                    if (count > 5 && (n > 8 || families == general) &&
                        count != 2 * widest_group(*m) + 1)
                        continue;
                    const Threads threads(threads_for(count));
                    for (int shape = 0; shape < 3; ++shape, ++step) {
                        const int kind = count == many ? step % 4 : step % 5;
                        Problem problem = filled(*m, {n, n, 1, count}, placed(*m, shape, step),
                                                 step, step % 2 == 0);
                        set_source(problem, [&](int k, int i, int j) {
                            const double x = noise(step + k, std::min(i, j), std::max(i, j));
                            const bool one = (i * n + j + k) % (n + 4) == 1;
                            return kind == 2 && i / 2 != j / 2 ? 0.
                                   : kind == 3 ? (i == j) * (i % 3 + 1.) * (k % 2 ? 1 : -1)
                                   : kind == 4 ? (one && k % 4 == 3 ? infinite : x * n)
                                               : x + (i == j) * (k % 2 ? i : n - i);
                        });
                        ASSERT_NE(agrees_with_singles(problem, single), wrong);
                    }
                }
            }
        }
}

// A singular object or one that never converges, and, half the time, another one behind it.
TEST(Eigen, StateAfterAFailureAtEveryObject) {
    const Threads threads(1);
    for (const char *families : {symmetric, general}) {
        const auto arrays = those(members(), families == symmetric ? 12 : 24, [&](const Member &m) {
            return m.is_array() && among(m.family, families);
        });
        for (const Member *m : arrays) {
            int step = 0;
            for (const int n : {2, 3, 4, 5, 6, 9, 17}) {
                Problem single = alone(*m, n);
                const bool in_lanes = families == symmetric && n < 17;
                for (const auto &[count, failing, column, shape] : failures(*m, n, 1))
                    for (const bool hopeless : {false, true}) {
                        if (count > 5 && !in_lanes)
                            continue;
                        ++step;
                        const int second = failing + (step / 2 % 2 == 0 ? 2 : count);
                        Problem problem = filled(*m, {n, n, 1, count}, placed(*m, shape, step), 1);
                        set_source(problem, [&](int k, int i, int j) {
                            const bool bad = k == failing || k == second;
                            if (bad && hopeless && n > 2)
                                return std::abs(i - j) == 1 ? not_a_number : 1.;
                            if (bad)
                                return i == j ? i - 1. : 0.;
                            return noise(k, std::min(i, j), std::max(i, j)) + 2 * (i == j);
                        });
                        const int status = n > 2 && hopeless       ? not_converged
                                           : families == symmetric ? singular
                                                                   : ok;
                        ASSERT_EQ(agrees_with_singles(problem, single), status) << failing;
                    }
            }
        }
    }
}

// ---- symmetric, one object ----

struct Solution {
    int status;
    Grid matrix, values, im, vectors, left;
};
Solution solve(const char *family_name, bool single, int n, auto element) {
    const Member &m = member(std::string("zelm") + family_name + (single ? "_m_32f" : "_m_64f"));
    Problem problem = filled(m, {n, n, 1, 1}, all_in(m, packed), 0);
    set_source(problem, [&](int, int i, int j) { return element(i, j); });
    Solution s{problem.run(), object(problem.operands[0], 0), {}, {}, {}, {}};
    for (std::size_t k = 1; k < m.operands.size(); ++k) {
        const std::string &name = m.operands[k].name;
        const bool left = name == "dstLeft" || m.family == "EigenValuesVectorsLeft";
        if (name != "pBuffer")
            (name == "pDstValuesIm"         ? s.im
             : name.starts_with("pDstValu") ? s.values
             : left                         ? s.left
                                            : s.vectors) = object(problem.operands[k], 0);
    }
    return s;
}

// The closed form, each operation rounded.
std::vector<double> order_2(bool single, double a, double b, double d) {
    const auto r = [&](double x) { return rounded(single, x); };
    const double eps = double(epsilon(single));
    const double det = r(r(a * d) - r(b * b)), t = r(a + d), u = r(a - d), q = r(2 * b);
    if (std::fabs(det) <= eps)
        return {};
    const double s = r(std::sqrt(r(r(u * u) + r(q * q))));
    double first = r(.5 * s), second = r(-.5 * s);
    if (t > eps || t < -eps) {
        first = r(.5 * r(t > eps ? t + s : t - s));
        second = r(det / first);
    }
    const bool minus = u < -eps;
    const double w = r(minus ? u - s : u + s);
    double x = 1, y = 0;
    if (std::fabs(w) > std::fabs(q)) {
        const double ratio = r(-q / w);
        y = r(1 / r(std::sqrt(r(r(ratio * ratio) + 1))));
        x = r(ratio * y);
    } else if (std::fabs(q) > eps) {
        const double ratio = r(-w / q);
        x = r(1 / r(std::sqrt(r(1 + r(ratio * ratio)))));
        y = r(ratio * x);
    }
    if ((t < -eps) == minus) {
        const double old = x;
        x = -y;
        y = old;
    }
    return {first, second, x, -y, y, x};
}

TEST(EigenSymmetric, OrdersOneAndTwo) {
    for (const bool single : {true, false}) {
        for (const double x : {0., -3., infinite}) {
            const Solution s =
                solve("EigenValuesVectorsSym", single, 1, [&](int, int) { return x; });
            EXPECT_EQ(s.status, ok);
            EXPECT_EQ(s.values(0), x);
            EXPECT_EQ(s.vectors(0), 1);
        }
        const double eps = double(epsilon(single)),
                     v[] = {0, eps, -eps, 1, -1, 2, -2, .3, 1e-5, 1e4};
        const auto check = [&](double a, double b, double d) {
            const double m[] = {a, b, not_a_number, d};
            const auto element = [&](int i, int j) { return m[2 * i + j]; };
            const Solution with = solve("EigenValuesVectorsSym", single, 2, element);
            const Solution without = solve("EigenValuesSym", single, 2, element);
            const auto expected = order_2(single, with.matrix(0), with.matrix(1), with.matrix(3));
            const int status = expected.empty() ? singular : ok;
            ASSERT_EQ(with.status, status) << a << " " << b << " " << d;
            ASSERT_EQ(without.status, status);
            for (int k = 0; k < 6; ++k) {
                const double is = k < 2 ? with.values(k) : with.vectors(k - 2);
                const double should = expected.empty() ? 7777 : expected[std::size_t(k)];
                ASSERT_EQ(is, should) << a << " " << b << " " << d << " result " << k;
            }
            ASSERT_EQ(without.values, with.values);
        };
        for (const double a : v)
            for (const double b : v)
                for (const double d : v)
                    check(a, b, d);
        for (int k = 0; k < 200; ++k)
            check(noise(k, 0, 0), noise(k, 0, 1), noise(k, 1, 1));
    }
}

// What the reduction drops by its absolute thresholds, as a bound of the norm.
Long dropped(bool single, const Grid &matrix) {
    const int n = matrix.columns;
    const Long eps = epsilon(single);
    std::vector<Long> a = matrix.as<Long>();
    const auto at = [&](int i, int j) -> Long & { return a[std::size_t(i * n + j)]; };
    Long all = 0;
    for (int k = 0; k + 2 < n; ++k) {
        Long square = 0;
        for (int i = k + 2; i < n; ++i)
            square += at(i, k) * at(i, k);
        const Long x = at(k + 1, k), sigma = std::sqrt(square + x * x);
        const Long change = x > eps ? sigma : x < -eps ? -sigma : 0;
        const Long h = 2 * (square + x * x + x * change);
        if (sigma - x <= 2 * eps + n * eps * sigma || h <= 2 * eps) {
            all += 4 * std::sqrt(square);
            continue;
        }
        std::vector<Long> u(std::size_t(n), 0), p = u;
        for (int i = k + 1; i < n; ++i)
            u[std::size_t(i)] = at(i, k);
        u[std::size_t(k + 1)] = change == 0 ? sigma : x + change;
        for (const bool rows : {true, false})
            for (int j = 0; j < n; ++j) {
                Long w = 0;
                for (int i = k + 1; i < n; ++i)
                    w += u[std::size_t(i)] * (rows ? at(i, j) : at(j, i));
                for (int i = k + 1; i < n; ++i)
                    (rows ? at(i, j) : at(j, i)) -= 2 / h * w * u[std::size_t(i)];
            }
    }
    return all;
}

void judge_symmetric(bool single, const Solution &s) {
    const Grid &a = s.matrix, &z = s.vectors;
    const int n = a.columns;
    const Long eps = epsilon(single);
    const Long rest = norm(n, n, [&](int i, int j) {
        Long sum = a(i, j);
        for (int k = 0; k < n; ++k)
            sum -= Long(z(i, k)) * s.values(k) * z(j, k);
        return sum;
    });
    const Long skew = norm(n, n, [&](int i, int j) {
        Long sum = i == j;
        for (int k = 0; k < n; ++k)
            sum -= Long(z(k, i)) * z(k, j);
        return sum;
    });
    // Couplings of up to 2 epsilon count as zero, whatever the norm.
    EXPECT_LE(rest, 60 * n * norm(n, n, a) * eps + 4 * n * eps + dropped(single, a));
    EXPECT_LE(skew, 15 * n * eps);
    EXPECT_TRUE(std::is_sorted(s.values.values.rbegin(), s.values.values.rend()));
}

double toeplitz(int i, int j, double a, double b) {
    return i == j ? a : std::abs(i - j) == 1 ? b : 0;
}
// An orthogonal matrix: reflection along a vector of random elements.
double reflected(int n, int i, int j, double (*value)(int n, int k)) {
    std::vector<double> u;
    double square = 0, sum = 0;
    for (int k = 0; k < n; ++k)
        u.push_back(noise(n, k, 77)), square += u.back() * u.back();
    const auto h = [&](int r, int c) {
        return (r == c) - 2 * u[std::size_t(r)] * u[std::size_t(c)] / square;
    };
    for (int k = 0; k < n; ++k)
        sum += h(i, k) * value(n, k) * h(j, k);
    return sum;
}
const KnownMatrix symmetric_matrices[] = {
    {"random", 60, [](int n, int i, int j) { return 3 * noise(n, i, j) + 9 * (i == j); }},
    {"scaled identity", 62, [](int, int i, int j) { return 2. * (i == j); }},
    {"clustered", 62,
     [](int n, int i, int j) {
         return reflected(n, i, j, [](int, int k) { return 1 + k % 3 * .5 + k * 1e-6; });
     }},
    {"repeated", 62,
     [](int n, int i, int j) {
         return reflected(n, i, j, [](int, int k) { return k % 2 ? 3. : -2.; });
     }},
    {"graded", 20,
     [](int n, int i, int j) {
         return reflected(n, i, j,
                          [](int order, int k) { return 100 * std::pow(10, -3. * k / order); });
     }},
    {"graded diagonal", 9,
     [](int, int i, int j) { return std::pow(.7, i + j) * (i == j ? 9 : 1); }},
    {"Wilkinson", 31,
     [](int n, int i, int j) { return toeplitz(i, j, std::fabs(i - (n - 1) / 2.), 1); }},
    {"second difference", 62, [](int, int i, int j) { return toeplitz(i, j, 2, -1); }},
    {"Clement", 31,
     [](int n, int i, int j) {
         return std::abs(i - j) == 1 ? std::sqrt(std::max(i, j) * double(n - std::max(i, j))) : 0;
     }},
    {"Hilbert", 1, [](int, int i, int j) { return 8. / (i + j + 1); }},
    {"Fiedler", 60, [](int, int i, int j) { return std::abs(i - j) * 1.; }},
    {"tiny coupling", 62, [](int, int i, int j) { return i == j ? 2 - i * 1e-3 : 1e-8 * (i + j); }},
};

// In both directions of the iteration: from the other end the matrix is another one.
TEST(EigenSymmetric, ResidualsOfHardMatrices) {
    for (const bool single : {true, false})
        for (const KnownMatrix &matrix : symmetric_matrices)
            for (const bool flipped : {false, true}) {
                const testing::ScopedTrace trace(
                    __FILE__, __LINE__, std::string(matrix.name) + (single ? " 32f" : " 64f"));
                int judged = 0;
                for (int n = 3; n <= 64; ++n) {
                    const auto element = [&](int i, int j) {
                        const int low = std::min(i, j), high = std::max(i, j);
                        return flipped ? matrix.element(n, n - 1 - high, n - 1 - low)
                                       : matrix.element(n, low, high);
                    };
                    const Solution s = solve("EigenValuesVectorsSym", single, n, element);
                    ASSERT_NE(s.status, not_converged) << n;
                    Long product = 1;
                    for (const double value : s.values.values)
                        product *= value;
                    // Products beside the threshold, or that leave the range, may go either way.
                    const Long size = std::fabs(product) / epsilon(single);
                    EXPECT_TRUE(s.status == ok || !(size > 2 && size < 1e30)) << n;
                    EXPECT_TRUE(s.status == singular || !(size < .5)) << n;
                    judge_symmetric(single, s);
                    judged += s.status == ok;

                    const Solution values = solve("EigenValuesSym", single, n, s.matrix);
                    EXPECT_EQ(values.status, s.status);
                    auto sorted = values.values.values;
                    if (s.status == singular)
                        std::sort(sorted.rbegin(), sorted.rend());
                    EXPECT_EQ(sorted, s.values.values) << n;
                    if (testing::Test::HasFailure())
                        return;
                }
                EXPECT_GE(judged, matrix.judged);
            }
}

// No rotation is made, so the values of a singular matrix come in the order of the diagonal.
TEST(EigenSymmetric, SingularDiagonalMatrices) {
    for (const bool single : {true, false})
        for (const auto &d : {std::array{1., 0., 3., 3.}, {3., 0., 1., 1.}, {-1., 2., 2., 0.}})
            for (const int n : {3, 4}) {
                const auto element = [&](int i, int j) { return i == j ? d[std::size_t(i)] : 0.; };
                const Solution values = solve("EigenValuesSym", single, n, element);
                const Solution s = solve("EigenValuesVectorsSym", single, n, element);
                if (n == 3 && d[0] < 0)
                    continue; // not singular
                EXPECT_EQ(values.status, singular);
                EXPECT_EQ(values.values.values, std::vector(d.begin(), d.begin() + n));
                EXPECT_EQ(s.status, singular);
                judge_symmetric(single, s);
                // Of equal values the first stays first.
                std::vector<int> order;
                for (int k = 0; k < n; ++k)
                    for (int i = 0; i < n; ++i)
                        if (s.vectors(i, k) == 1)
                            order.push_back(i);
                ASSERT_EQ(order.size(), std::size_t(n));
                EXPECT_TRUE(d[0] != 1 || n == 3 || order == (std::vector{2, 3, 0, 1}));
            }
}

TEST(EigenSymmetric, WhatNeverConverges) {
    for (const bool single : {true, false})
        for (const int n : {3, 4, 6, 9, 17})
            for (const double value : {not_a_number, infinite}) {
                const Solution s = solve("EigenValuesVectorsSym", single, n, [&](int i, int j) {
                    return i + j == 2 * n - 3 ? value : 1. + (i == j);
                });
                EXPECT_EQ(s.status, not_converged) << n;
            }
}

// ---- general, one object ----

// The largest 1-norm of A v - lambda v, v being columns of `vectors`: one of them, or two side by
// side as real and imaginary part. Of left ones the matrix is transposed and lambda conjugate.
Long worst_residual(const Solution &s, const Grid &vectors, bool left) {
    const int n = s.matrix.columns;
    const auto part = [&](int i, int j) { return j < 0 ? 0 : Long(vectors(i, j)); };
    return norm(1, n, [&](int, int j) {
        const Long re = s.values(j), im = left ? -s.im(j) : s.im(j);
        const bool second = s.im(j) < 0;
        const int x = second ? j - 1 : j, y = s.im(j) == 0 ? -1 : x + 1;
        const Long sign = second ? -1 : 1;
        Long sum = 0, length = 0;
        for (int i = 0; i < n; ++i) {
            Long p = 0, q = 0;
            for (int k = 0; k < n; ++k) {
                const Long a = left ? s.matrix(k, i) : s.matrix(i, k);
                p += a * part(k, x);
                q += a * sign * part(k, y);
            }
            const Long v = part(i, x), w = sign * part(i, y);
            sum += std::hypot(p - re * v + im * w, q - re * w - im * v);
            length += v * v + w * w;
        }
        EXPECT_NEAR(double(length), 1, 1e-5);
        return sum;
    });
}

void judge_general(bool single, const Solution &s) {
    const int n = s.matrix.columns;
    const Long allowed = 60 * n * norm(n, n, s.matrix) * epsilon(single);
    EXPECT_LE(worst_residual(s, s.vectors, false), allowed);
    EXPECT_LE(worst_residual(s, s.left, true), allowed);
    Long rest = 0; // of the trace
    for (int i = 0; i < n; ++i)
        rest += Long(s.matrix(i, i)) - s.values(i);
    EXPECT_LE(std::fabs(rest), allowed);
    for (int i = 0; i < n; ++i)
        if (s.im(i) != 0) { // a pair
            ASSERT_LT(i + 1, n);
            EXPECT_GT(s.im(i), 0);
            EXPECT_EQ(s.im(i + 1), -s.im(i));
            EXPECT_EQ(s.values(i + 1), s.values(i));
            ++i;
        }
}

// Besides the known ones; all of them have values.
const KnownMatrix general_matrices[] = {
    {"cyclic permutation", 64, [](int n, int i, int j) { return (i + 1) % n == j ? 1. : 0.; }},
    {"reversed cyclic", 64, [](int n, int i, int j) { return i == (j + 1) % n ? 1. : 0.; }},
    {"companion", 64, [](int n, int i, int j) { return i == 0 ? noise(n, 0, j) : i == j + 1; }},
    {"Jordan", 64, [](int, int i, int j) { return i == j ? 2. : j == i + 1; }},
    {"nilpotent", 64, [](int, int i, int j) { return j > i ? 1. : 0.; }},
    {"lower nilpotent", 64, [](int, int i, int j) { return i > j ? 1. : 0.; }},
    {"zero", 64, [](int, int, int) { return 0.; }},
    {"skew", 64,
     [](int n, int i, int j) { return i == j  ? 0
                                      : i < j ? noise(n, i, j)
                                              : -noise(n, j, i); }},
    {"rotations", 64,
     [](int, int i, int j) {
         return i == j ? .5 : i / 2 != j / 2 ? 0. : i < j ? -1. : 1.;
     }},
    {"graded", 64,
     [](int n, int i, int j) { return noise(n, i, j) * std::pow(10, -2. * (i + j) / n); }},
    {"large", 64, [](int n, int i, int j) { return noise(n, i, j) * 0x1p120; }},
    {"small", 64, [](int n, int i, int j) { return noise(n, i, j) * 0x1p-110; }},
    {"upper", 64, [](int n, int i, int j) { return i <= j ? noise(n, i, j) : 0; }},
    {"blocks", 64, [](int n, int i, int j) { return i / 3 <= j / 3 ? noise(n, i, j) : 0; }},
};

TEST(EigenGeneral, ResidualsOfHardMatrices) {
    std::vector<KnownMatrix> all = known_matrices;
    all.insert(all.end(), std::begin(general_matrices), std::end(general_matrices));
    for (const bool single : {true, false})
        for (const KnownMatrix &matrix : all)
            for (int n = 1; n <= 64; n += n < 40 ? 1 : 3) {
                const testing::ScopedTrace trace(__FILE__, __LINE__,
                                                 std::string(matrix.name) + " " +
                                                     std::to_string(n) +
                                                     (single ? " 32f" : " 64f"));
                const auto element = [&](int i, int j) { return matrix.element(n, i, j); };
                const Solution s = solve("EigenValuesVectors", single, n, element);
                ASSERT_EQ(s.status, ok);
                judge_general(single, s);
                // One side alone is the same.
                EXPECT_EQ(solve("EigenValuesVectorsRight", single, n, s.matrix).vectors, s.vectors);
                EXPECT_EQ(solve("EigenValuesVectorsLeft", single, n, s.matrix).left, s.left);
                const Solution values = solve("EigenValues", single, n, s.matrix);
                EXPECT_EQ(values.status, ok);
                if (std::string_view(matrix.name) == "upper")
                    for (int i = 0; i < n; ++i) {
                        EXPECT_EQ(s.values(i), s.matrix(i, i));
                        EXPECT_EQ(values.values(i), s.values(i));
                        EXPECT_EQ(values.im(i), 0);
                    }
                if (testing::Test::HasFailure())
                    return;
            }
}

// Values alone, of matrices whose values are known and well conditioned.
TEST(EigenGeneral, KnownValues) {
    for (const bool single : {true, false}) {
        for (int n = 3; n <= 24; ++n) {
            Solution s = solve("EigenValues", single, n, [&](int i, int j) {
                return (i + 1) % n == j ? 1. : 0.; // roots of unity
            });
            ASSERT_EQ(s.status, ok);
            const double allowed = double(60 * n * epsilon(single));
            std::set<int> angles;
            for (int k = 0; k < n; ++k) {
                const double angle = std::atan2(s.im(k), s.values(k)) / (2 * std::numbers::pi) * n;
                EXPECT_NEAR(angle, std::round(angle), n * allowed);
                EXPECT_NEAR(std::hypot(s.im(k), s.values(k)), 1, allowed);
                angles.insert((int(std::round(angle)) + n) % n);
            }
            EXPECT_EQ(angles.size(), std::size_t(n));

            s = solve("EigenValues", single, n,
                      [&](int i, int j) { return toeplitz(i, j, 2, -1); });
            std::sort(s.values.values.begin(), s.values.values.end());
            for (int k = 0; k < n; ++k)
                EXPECT_NEAR(s.values(k), 2 - 2 * std::cos(std::numbers::pi * (k + 1) / (n + 1)),
                            allowed);
        }
        const Solution turn = solve("EigenValuesVectors", single, 2, [](int i, int j) {
            return i == j ? 0. : i < j ? -1. : 1.;
        });
        EXPECT_EQ(turn.values, (Grid{2, {0, 0}}));
        EXPECT_EQ(turn.im, (Grid{2, {1, -1}}));
    }
}

TEST(EigenGeneral, WhatNeverConverges) {
    for (const char *name :
         {"EigenValues", "EigenValuesVectors", "EigenValuesVectorsRight", "EigenValuesVectorsLeft"})
        for (const bool single : {true, false})
            for (const int n : {3, 4, 7, 12})
                for (const double value : {not_a_number, infinite})
                    EXPECT_EQ(solve(name, single, n,
                                    [&](int i, int j) { return i + j == n ? value : 1. + j; })
                                  .status,
                              not_converged);
}

TEST(EigenGeneral, SizesOfScratch) {
    int size = 0;
    EXPECT_EQ(zelmEigenValuesGetBufSize_32f(4, &size), ok);
    EXPECT_EQ(size, 144);
    EXPECT_EQ(zelmEigenValuesGetBufSize_64f(4, &size), ok);
    EXPECT_EQ(size, 288);
    EXPECT_EQ(zelmEigenValuesVectorsGetBufSize_32f(4, &size), ok);
    EXPECT_EQ(size, 272);
    EXPECT_EQ(zelmEigenValuesVectorsGetBufSize_64f(4, &size), ok);
    EXPECT_EQ(size, 544);
}

} // namespace
