// Eigenproblems. Numbers are judged by residuals in long double, single objects against the limits
// of the method; every other form must give the bits of the single one in packed memory.

#include "support/results.hpp"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <numbers>

using namespace zelm_test;

namespace {

constexpr int ok = 0, singular = -195, not_converged = -205;
constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
using Long = long double;

constexpr const char *symmetric = "EigenValuesSym EigenValuesVectorsSym";
constexpr const char *general =
    "EigenValues EigenValuesVectors EigenValuesVectorsRight EigenValuesVectorsLeft";

double rounded(bool single, double x) { return single ? static_cast<float>(x) : x; }
double epsilon(bool single) { return single ? 0x1p-23 : 0x1p-52; }

using Element = std::function<double(int k, int i, int j)>;

// Out of place, into numbers that show what has not been written; scratch is left as it is.
Problem eigen_problem(const Member &m, int n, int count, const std::vector<Placement> &placements,
                      const Element &element, bool in_place = false) {
    Problem problem(m, {n, n, 1, count}, placements, in_place ? std::optional(0) : std::nullopt);
    for (std::size_t k = m.operands.size(); k-- > 0;) {
        Placed &o = problem.operands[k];
        if (m.operands[k].letter != 'b')
            o.for_each_element([&](int object, int i, int j) {
                o.put(object, i, j, k == 0 ? element(object, i, j) : 7777);
            });
    }
    return problem;
}

struct Result {
    int status;
    std::vector<std::vector<double>> operands; // of results, in their order
};
// One object by the single form of the same operation, in packed memory.
Result alone(const Member &m, int n, const std::vector<double> &matrix) {
    std::string name = m.name;
    if (m.kinds == "ma")
        name.replace(name.find("_ma_"), 4, "_m_");
    if (m.description != "S")
        name.resize(name.size() - 2);
    const Member &single = member(name);
    std::vector<std::vector<double>> memory; // which holds float elements too
    for (const Operand &o : single.operands)
        memory.emplace_back(std::size_t(o.letter == 'b' ? buffer_elements(m, n) : n * n), 7777.);
    const auto element = [&](std::size_t operand, int e) {
        return reinterpret_cast<std::byte *>(memory[operand].data()) + e * m.element();
    };
    for (int e = 0; e < n * n; ++e) {
        const auto x = matrix[std::size_t(e)];
        const auto f = static_cast<float>(x);
        std::memcpy(element(0, e), m.is_float ? static_cast<const void *>(&f) : &x,
                    std::size_t(m.element()));
    }
    std::vector<Slot> slots;
    for (const Parameter &p : single.parameters)
        slots.push_back(p.group == 'p' ? Slot{memory[std::size_t(p.operand)].data()}
                        : p.group == 'z'
                            ? Slot{nullptr, n}
                            : Slot{nullptr, p.axis == 1 ? n * m.element() : m.element()});
    Result result{single.call(slots), {}};
    for (std::size_t k = 1; k < memory.size(); ++k) {
        result.operands.emplace_back();
        const int elements = single.operands[k].letter == 'o' ? n : n * n;
        for (int e = 0; e < elements; ++e) {
            float f;
            double x;
            std::memcpy(&f, element(k, e), sizeof f);
            std::memcpy(&x, element(k, m.is_float ? 0 : e), sizeof x);
            result.operands.back().push_back(m.is_float ? static_cast<double>(f) : x);
        }
    }
    return result;
}

// Runs the problem and compares each object with what it gives alone: those before the first
// failure, and that one too where its results are promised; none behind it has changed.
int agrees_with_singles(Problem &problem) {
    const Member &m = problem.member;
    const int n = problem.sizes.width, count = m.is_array() ? problem.sizes.count : 1;
    std::vector<Result> expected;
    int status = ok, compared = 0;
    for (int k = 0; k < count && status == ok; ++k) {
        std::vector<double> matrix;
        for (int e = 0; e < n * n; ++e)
            matrix.push_back(problem.operands[0].get(k, e / n, e % n));
        expected.push_back(alone(m, n, matrix));
        status = expected.back().status;
        compared = status == not_converged || (status == singular && n == 2) ? k : k + 1;
    }
    const int untouched = int(expected.size()) - (status == singular && n == 2);
    const Placed source = problem.operands[0]; // shares its memory with a result in place
    EXPECT_EQ(problem.run(), status) << problem.describe();
    EXPECT_EQ(problem.disturbed(), "") << problem.describe();
    for (std::size_t o = 1; o < m.operands.size(); ++o) {
        const Placed &operand = problem.operands[o];
        if (m.operands[o].letter == 'b')
            continue;
        const bool in_place = operand.address(0, 0, 0) == source.address(0, 0, 0);
        bool right = true;
        operand.for_each_element([&](int k, int i, int j) {
            const double is = operand.get(k, i, j);
            if (k < compared)
                right =
                    right && same(is, expected[std::size_t(k)]
                                          .operands[o - 1][std::size_t(i * operand.columns() + j)]);
            else if (k >= untouched && !in_place)
                right = right && is == 7777;
        });
        EXPECT_TRUE(right) << m.operands[o].name << " of " << problem.describe();
        if (!right)
            return 1;
    }
    return status;
}

double noise(int n, int i, int j) {
    const double x = std::sin(n + 12.9898 * (i + 1) + 78.233 * (j + 1)) * 43758.5453;
    return 2 * (x - std::floor(x)) - 1;
}

std::vector<Placement> placed(const Member &m, int shape, int step) {
    return shape == 0 ? all_in(m, packed) : shape == 1 ? all_in(m, planar) : mixed(m, step);
}

// Random matrices, some with a few special values; diagonal ones with zeros; in both directions of
// the iteration.
TEST(Eigen, EveryOrderAndCountInEveryMixOfMemoryShapes) {
    for (const char *families : {symmetric, general})
        for (const Member *m : family(families, families == symmetric ? 20 : 40)) {
            int step = 0;
            for (const int n : {1, 2, 3, 4, 5, 6, 7, 8, 11, 16, 17, 20})
                for (const int count : {1, 2, 3, 4, 5, 8, 9, 16, 17, 33}) {
                    if ((n > 8 && count > 5 && count != 17) || (!m->is_array() && count > 5))
                        continue;
                    for (int shape = 0; shape < 3; ++shape, ++step) {
                        const int kind = step % 5;
                        Problem problem = eigen_problem(
                            *m, n, count, placed(*m, shape, step),
                            [&](int k, int i, int j) {
                                const double x = noise(step + k, std::min(i, j), std::max(i, j));
                                const bool one = (i * n + j + k) % (n + 4) == 1;
                                return kind == 2 && i / 2 != j / 2 ? 0.
                                       : kind == 3 ? (i == j) * (i % 3 + 1.) * (k % 2 ? 1 : -1)
                                       : kind == 4 ? (one && k % 4 == 3 ? infinite : x * n)
                                                   : x + (i == j) * (k % 2 ? i : n - i);
                            },
                            step % 2 == 0);
                        // An order of several threads shows nothing.
                        if (kind != 4 || 3 * n * n * count < 250) {
                            ASSERT_NE(agrees_with_singles(problem), 1);
                        }
                    }
                }
        }
}

// A singular or hopeless object at every position.
TEST(Eigen, StateAfterAFailureAtEveryObject) {
    for (const char *families : {symmetric, general}) {
        const auto arrays = those(members(), families == symmetric ? 12 : 24, [&](const Member &m) {
            return m.is_array() && among(m.family, families);
        });
        for (const Member *m : arrays) {
            int step = 0;
            for (const int n : {2, 3, 4, 5, 6, 7, 8})
                for (const bool hopeless : {false, true})
                    for (int failing = 0; failing < 9; ++failing, ++step) {
                        const int count = std::min(9, 240 / (n * (2 * n + 1)));
                        Problem problem =
                            eigen_problem(*m, n, count, mixed(*m, step), [&](int k, int i, int j) {
                                const bool bad = k == failing || k == failing + 2;
                                if (bad && hopeless && n > 2)
                                    return std::abs(i - j) == 1 ? nan : 1.;
                                if (bad)
                                    return i == j ? double(i) - 1 : 0.;
                                return noise(k, std::min(i, j), std::max(i, j)) + 2 * (i == j);
                            });
                        const bool fails =
                            failing < count && (families == symmetric || (hopeless && n > 2));
                        const int status = n > 2 && hopeless ? not_converged : singular;
                        if (families == general && 3 * n * n * count > 500)
                            continue;
                        ASSERT_EQ(agrees_with_singles(problem), fails ? status : ok)
                            << problem.describe() << " failing " << failing;
                    }
        }
    }
}

// ---- symmetric, one object ----

struct Solution {
    int status, n;
    std::vector<double> matrix, values, im, vectors, left;
};
Solution solve(const char *family_name, bool single, int n, const Element &element) {
    const Member &m = member(std::string("zelm") + family_name + (single ? "_m_32f" : "_m_64f"));
    Problem problem = eigen_problem(m, n, 1, all_in(m, packed), element);
    Solution s{problem.run(), n, {}, {}, {}, {}, {}};
    const auto take = [&](std::size_t operand, std::vector<double> &to) {
        const Placed &o = problem.operands[operand];
        o.for_each_element([&](int, int i, int j) { to.push_back(o.get(0, i, j)); });
    };
    take(0, s.matrix);
    for (std::size_t k = 1; k < m.operands.size(); ++k) {
        const std::string &name = m.operands[k].name;
        if (name == "pDstValues" || name == "pDstValuesRe")
            take(k, s.values);
        else if (name == "pDstValuesIm")
            take(k, s.im);
        else if (name == "dstLeft" || (name == "dst" && m.family == "EigenValuesVectorsLeft"))
            take(k, s.left);
        else if (name.starts_with("dst"))
            take(k, s.vectors);
    }
    return s;
}

// The closed form, each operation rounded.
std::vector<double> order_2(bool single, double a, double b, double d) {
    const auto r = [&](double x) { return rounded(single, x); };
    const double eps = epsilon(single);
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
                solve("EigenValuesVectorsSym", single, 1, [&](int, int, int) { return x; });
            EXPECT_EQ(s.status, ok);
            EXPECT_EQ(s.values[0], x);
            EXPECT_EQ(s.vectors[0], 1);
        }
        const double eps = epsilon(single), v[] = {0, eps, -eps, 1, -1, 2, -2, .3, 1e-5, 1e4};
        const auto check = [&](double a, double b, double d) {
            const double m[] = {a, b, nan, d};
            const auto element = [&](int, int i, int j) { return m[2 * i + j]; };
            const Solution with = solve("EigenValuesVectorsSym", single, 2, element);
            const Solution without = solve("EigenValuesSym", single, 2, element);
            const auto expected = order_2(single, with.matrix[0], with.matrix[1], with.matrix[3]);
            const int status = expected.empty() ? singular : ok;
            ASSERT_EQ(with.status, status) << a << " " << b << " " << d;
            ASSERT_EQ(without.status, status);
            for (std::size_t k = 0; k < 6; ++k) {
                const double is = k < 2 ? with.values[k] : with.vectors[k - 2];
                const double should = expected.empty() ? 7777 : expected[k];
                ASSERT_EQ(is, should) << a << " " << b << " " << d << " result " << k;
                if (k < 2) {
                    ASSERT_EQ(without.values[k], should);
                }
            }
        };
        for (const double a : v)
            for (const double b : v)
                for (const double d : v)
                    check(a, b, d);
        for (int k = 0; k < 200; ++k)
            check(noise(k, 0, 0), noise(k, 0, 1), noise(k, 1, 1));
    }
}

// One norm of the n x n matrix of f(i, j).
template <class F>
Long norm(int n, F f) {
    Long largest = 0;
    for (int j = 0; j < n; ++j) {
        Long sum = 0;
        for (int i = 0; i < n; ++i)
            sum += std::fabs(Long(f(i, j)));
        largest = std::isnan(sum) || sum > largest ? sum : largest;
    }
    return largest;
}

// What the reduction drops by its absolute thresholds, as a bound of the norm.
Long dropped(bool single, Solution s) {
    const int n = s.n;
    const Long eps = epsilon(single);
    std::vector<Long> a(s.matrix.begin(), s.matrix.end());
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
    const int n = s.n;
    const Long eps = epsilon(single);
    const auto a = [&](int i, int j) { return Long(s.matrix[std::size_t(i * n + j)]); };
    const auto z = [&](int i, int j) { return Long(s.vectors[std::size_t(i * n + j)]); };
    const Long of_a = norm(n, a);
    const Long rest = norm(n, [&](int i, int j) {
        Long sum = a(i, j);
        for (int k = 0; k < n; ++k)
            sum -= z(i, k) * s.values[std::size_t(k)] * z(j, k);
        return sum;
    });
    const Long skew = norm(n, [&](int i, int j) {
        Long sum = i == j;
        for (int k = 0; k < n; ++k)
            sum -= z(k, i) * z(k, j);
        return sum;
    });
    // Couplings of up to 2 epsilon count as zero, whatever the norm.
    EXPECT_LE(rest, 60 * n * of_a * eps + 4 * n * eps + dropped(single, s));
    EXPECT_LE(skew, 15 * n * eps);
    EXPECT_TRUE(std::is_sorted(s.values.rbegin(), s.values.rend()));
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
constexpr struct {
    const char *name;
    int judged; // orders of which at least so many are not singular
    double (*element)(int n, int i, int j);
} symmetric_matrices[] = {
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
        for (const auto &matrix : symmetric_matrices)
            for (const bool flipped : {false, true}) {
                const testing::ScopedTrace trace(
                    __FILE__, __LINE__, std::string(matrix.name) + (single ? " 32f" : " 64f"));
                int judged = 0;
                for (int n = 3; n <= 64; ++n) {
                    const auto element = [&](int, int i, int j) {
                        const int low = std::min(i, j), high = std::max(i, j);
                        return flipped ? matrix.element(n, n - 1 - high, n - 1 - low)
                                       : matrix.element(n, low, high);
                    };
                    const Solution s = solve("EigenValuesVectorsSym", single, n, element);
                    ASSERT_NE(s.status, not_converged) << n;
                    Long product = 1;
                    for (const double value : s.values)
                        product *= value;
                    // Products beside the threshold, or that leave the range, may go either way.
                    const Long size = std::fabs(product) / epsilon(single);
                    EXPECT_TRUE(s.status == ok || !(size > 2 && size < 1e30)) << n;
                    EXPECT_TRUE(s.status == singular || !(size < .5)) << n;
                    judge_symmetric(single, s);
                    judged += s.status == ok;

                    const Solution values = solve("EigenValuesSym", single, n, element);
                    EXPECT_EQ(values.status, s.status);
                    auto sorted = values.values;
                    if (s.status == singular)
                        std::sort(sorted.rbegin(), sorted.rend());
                    EXPECT_EQ(sorted, s.values) << n;
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
                const auto element = [&](int, int i, int j) {
                    return i == j ? d[std::size_t(i)] : 0.;
                };
                const Solution values = solve("EigenValuesSym", single, n, element);
                const Solution s = solve("EigenValuesVectorsSym", single, n, element);
                if (n == 3 && d[0] < 0)
                    continue; // not singular
                EXPECT_EQ(values.status, singular);
                EXPECT_EQ(values.values, std::vector<double>(d.begin(), d.begin() + n));
                EXPECT_EQ(s.status, singular);
                judge_symmetric(single, s);
                // Of equal values the first stays first.
                std::vector<int> order;
                for (int k = 0; k < n; ++k)
                    for (int i = 0; i < n; ++i)
                        if (s.vectors[std::size_t(i * n + k)] == 1)
                            order.push_back(i);
                ASSERT_EQ(order.size(), std::size_t(n));
                EXPECT_TRUE(d[0] != 1 || n == 3 || order == (std::vector{2, 3, 0, 1}));
            }
}

TEST(EigenSymmetric, WhatNeverConverges) {
    for (const bool single : {true, false})
        for (const int n : {3, 4, 6, 9, 17})
            for (const double value : {nan, infinite}) {
                const Solution s =
                    solve("EigenValuesVectorsSym", single, n, [&](int, int i, int j) {
                        return i + j == 2 * n - 3 ? value : 1. + (i == j);
                    });
                EXPECT_EQ(s.status, not_converged) << n;
            }
}

// ---- general, one object ----

// A * v - lambda * v for the columns of `vectors`, or A^T for left ones with conjugate values.
Long worst_residual(const Solution &s, const std::vector<double> &vectors, bool left) {
    const int n = s.n;
    const auto column = [&](int i, int j) {
        return j < 0 ? Long(0) : Long(vectors[std::size_t(i * n + j)]);
    };
    Long worst = 0;
    for (int j = 0; j < n; ++j) {
        const Long re = s.values[std::size_t(j)];
        const Long im = left ? -s.im[std::size_t(j)] : s.im[std::size_t(j)];
        const bool second = s.im[std::size_t(j)] < 0;
        const int x = second ? j - 1 : j, y = s.im[std::size_t(j)] == 0 ? -1 : x + 1;
        const Long sign = second ? -1 : 1;
        Long sum = 0, length = 0;
        for (int i = 0; i < n; ++i) {
            Long p = 0, q = 0;
            for (int k = 0; k < n; ++k) {
                const Long a = s.matrix[std::size_t(left ? k * n + i : i * n + k)];
                p += a * column(k, x);
                q += a * sign * column(k, y);
            }
            const Long v = column(i, x), w = sign * column(i, y);
            sum += std::hypot(p - re * v + im * w, q - re * w - im * v);
            length += v * v + w * w;
        }
        EXPECT_NEAR(double(length), 1, 1e-5);
        worst = std::isnan(sum) || sum > worst ? sum : worst;
    }
    return worst;
}

void judge_general(bool single, const Solution &s, int limit = 60) {
    const int n = s.n;
    const Long of_a = norm(n, [&](int i, int j) { return s.matrix[std::size_t(i * n + j)]; });
    const Long allowed = limit * n * of_a * epsilon(single);
    EXPECT_LE(worst_residual(s, s.vectors, false), allowed);
    EXPECT_LE(worst_residual(s, s.left, true), allowed);
    Long trace = 0, sum = 0;
    for (int i = 0; i < n; ++i) {
        trace += s.matrix[std::size_t(i * n + i)];
        sum += s.values[std::size_t(i)];
    }
    EXPECT_LE(std::fabs(trace - sum), allowed);
    for (std::size_t i = 0; i < s.im.size(); ++i)
        if (s.im[i] != 0) { // a pair
            ASSERT_LT(i + 1, s.im.size());
            EXPECT_GT(s.im[i], 0);
            EXPECT_EQ(s.im[i + 1], -s.im[i]);
            EXPECT_EQ(s.values[i + 1], s.values[i]);
            ++i;
        }
}

constexpr struct {
    const char *name;
    double (*element)(int n, int i, int j);
} general_matrices[] = {
    {"random", noise},
    {"cyclic permutation", [](int n, int i, int j) { return (i + 1) % n == j ? 1. : 0.; }},
    {"reversed cyclic", [](int n, int i, int j) { return i == (j + 1) % n ? 1. : 0.; }},
    {"companion", [](int n, int i, int j) { return i == 0 ? noise(n, 0, j) : i == j + 1; }},
    {"Frank", [](int n, int i, int j) { return j < i - 1 ? 0. : n - std::max(i, j); }},
    {"Grcar", [](int, int i, int j) { return j == i - 1 ? -1. : j >= i && j <= i + 3; }},
    {"Clement", [](int n, int i, int j) { return j == i + 1   ? j
                                                 : j == i - 1 ? n - i
                                                              : 0.; }},
    {"Jordan", [](int, int i, int j) { return i == j ? 2. : j == i + 1; }},
    {"nilpotent", [](int, int i, int j) { return j > i ? 1. : 0.; }},
    {"lower nilpotent", [](int, int i, int j) { return i > j ? 1. : 0.; }},
    {"zero", [](int, int, int) { return 0.; }},
    {"orthogonal",
     [](int n, int i, int j) {
         return std::sqrt(2. / (n + 1)) * std::sin(std::numbers::pi * (i + 1) * (j + 1) / (n + 1));
     }},
    {"skew",
     [](int n, int i, int j) { return i == j  ? 0
                                      : i < j ? noise(n, i, j)
                                              : -noise(n, j, i); }},
    {"rotations",
     [](int, int i, int j) {
         return i == j ? .5 : i / 2 != j / 2 ? 0. : i < j ? -1. : 1.;
     }},
    {"graded",
     [](int n, int i, int j) { return noise(n, i, j) * std::pow(10, -2. * (i + j) / n); }},
    {"large", [](int n, int i, int j) { return noise(n, i, j) * 0x1p120; }},
    {"small", [](int n, int i, int j) { return noise(n, i, j) * 0x1p-110; }},
    {"upper", [](int n, int i, int j) { return i <= j ? noise(n, i, j) : 0; }},
    {"blocks", [](int n, int i, int j) { return i / 3 <= j / 3 ? noise(n, i, j) : 0; }},
};

TEST(EigenGeneral, ResidualsOfHardMatrices) {
    for (const bool single : {true, false})
        for (const auto &matrix : general_matrices)
            for (int n = 1; n <= 64; ++n) {
                const testing::ScopedTrace trace(__FILE__, __LINE__,
                                                 std::string(matrix.name) + " " +
                                                     std::to_string(n) +
                                                     (single ? " 32f" : " 64f"));
                const auto element = [&](int, int i, int j) { return matrix.element(n, i, j); };
                const Solution s = solve("EigenValuesVectors", single, n, element);
                ASSERT_EQ(s.status, ok);
                judge_general(single, s);
                // One side alone is the same.
                EXPECT_EQ(solve("EigenValuesVectorsRight", single, n, element).vectors, s.vectors);
                EXPECT_EQ(solve("EigenValuesVectorsLeft", single, n, element).left, s.left);
                const Solution values = solve("EigenValues", single, n, element);
                EXPECT_EQ(values.status, ok);
                if (std::string_view(matrix.name) == "upper")
                    for (int i = 0; i < n; ++i) {
                        EXPECT_EQ(s.values[std::size_t(i)], s.matrix[std::size_t(i * n + i)]);
                        EXPECT_EQ(values.values[std::size_t(i)], s.values[std::size_t(i)]);
                        EXPECT_EQ(values.im[std::size_t(i)], 0);
                    }
                if (testing::Test::HasFailure())
                    return;
            }
}

// Values alone, of matrices whose values are known and well conditioned.
TEST(EigenGeneral, KnownValues) {
    for (const bool single : {true, false}) {
        for (int n = 3; n <= 24; ++n) {
            Solution s = solve("EigenValues", single, n, [&](int, int i, int j) {
                return (i + 1) % n == j ? 1. : 0.; // roots of unity
            });
            ASSERT_EQ(s.status, ok);
            std::vector<bool> seen(static_cast<std::size_t>(n));
            for (std::size_t k = 0; k < s.values.size(); ++k) {
                const double angle = std::atan2(s.im[k], s.values[k]) / (2 * std::numbers::pi) * n;
                EXPECT_NEAR(angle, std::round(angle), 60 * n * n * epsilon(single));
                EXPECT_NEAR(std::hypot(s.im[k], s.values[k]), 1, 60 * n * epsilon(single));
                seen[static_cast<std::size_t>((int(std::round(angle)) + n) % n)] = true;
            }
            EXPECT_EQ(std::count(seen.begin(), seen.end(), true), n);

            s = solve("EigenValues", single, n,
                      [&](int, int i, int j) { return toeplitz(i, j, 2, -1); });
            std::sort(s.values.begin(), s.values.end());
            for (int k = 0; k < n; ++k)
                EXPECT_NEAR(s.values[std::size_t(k)],
                            2 - 2 * std::cos(std::numbers::pi * (k + 1) / (n + 1)),
                            60 * n * epsilon(single));
        }
        const Solution turn = solve("EigenValuesVectors", single, 2, [](int, int i, int j) {
            return i == j ? 0. : i < j ? -1. : 1.;
        });
        EXPECT_EQ(turn.values, (std::vector{0., 0.}));
        EXPECT_EQ(turn.im, (std::vector{1., -1.}));
    }
}

TEST(EigenGeneral, WhatNeverConverges) {
    for (const char *name :
         {"EigenValues", "EigenValuesVectors", "EigenValuesVectorsRight", "EigenValuesVectorsLeft"})
        for (const bool single : {true, false})
            for (const int n : {3, 4, 7, 12})
                for (const double value : {nan, infinite})
                    EXPECT_EQ(solve(name, single, n,
                                    [&](int, int i, int j) { return i + j == n ? value : 1. + j; })
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
