// LU decomposition and substitution. All forms are compared bit for bit with one reference that
// rounds every operation to the element type; residuals are judged in long double.

#include "support/results.hpp"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <numbers>
#include <numeric>
#include <random>
#include <tuple>

using namespace zelm_test;

namespace {

using Matrix = std::vector<double>; // row by row
using Numbers = std::vector<int>;

constexpr int ok = 0, singular = -195, canary = 7777;
constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr int orders[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 33, 64, 65, 100};
constexpr int small_orders[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 16, 17};

std::size_t index(int i) { return static_cast<std::size_t>(i); }

std::vector<const Member *> family(const char *name) {
    std::vector<const Member *> those;
    for (const Member &m : members())
        if (m.family == name)
            those.push_back(&m);
    return those;
}

bool is_straight_line(int n) { return n >= 3 && n <= 6; }
double threshold(bool single, int n) {
    if (is_straight_line(n))
        return single ? 0x1p-125 : 0x1p-1021;
    return single ? 0x1p-23 : 0x1p-52;
}
double rounded(bool single, double x) { return single ? static_cast<float>(x) : x; }

// Factors `a` and changes `to` and `p` as the destination and the permutation array change: orders
// 3 to 6 write a row when it is final, the others write all that they have computed.
int factor(bool single, int n, Matrix a, Matrix &to, Numbers &p) {
    const auto row = [&](int i) { return a.begin() + p[index(i)] * n; };
    std::iota(p.begin(), p.end(), 0);
    int status = ok;
    for (int k = 0; k < n && status == ok; ++k) {
        int best = k;
        for (int i = k + 1; i < n; ++i)
            if (std::fabs(row(i)[k]) > std::fabs(row(best)[k]))
                best = i;
        const double pivot = std::fabs(row(best)[k]), limit = threshold(single, n);
        if (is_straight_line(n) ? pivot < limit : pivot <= limit) {
            status = singular;
            break;
        }
        std::swap(p[index(k)], p[index(best)]);
        if (is_straight_line(n))
            std::copy_n(row(k), n, to.begin() + p[index(k)] * n);
        const double r = rounded(single, 1 / row(k)[k]);
        for (int i = k + 1; i < n; ++i) {
            const double f = row(i)[k] = rounded(single, row(i)[k] * r);
            for (int j = k + 1; j < n; ++j)
                row(i)[j] = rounded(single, row(i)[j] - rounded(single, f * row(k)[j]));
        }
    }
    if (!is_straight_line(n))
        to = a;
    return status;
}

// The solution with the products subtracted one by one, j ascending.
Matrix substitute(bool single, int n, const Matrix &f, const Numbers &p, const Matrix &b) {
    Matrix x(index(n));
    const auto entry = [&](int i, int j) { return f[index(p[index(i)] * n + j)]; };
    const auto subtract = [&](int i, int first, int last) {
        for (int j = first; j < last; ++j)
            x[index(i)] = rounded(single, x[index(i)] - rounded(single, entry(i, j) * x[index(j)]));
    };
    for (int i = 0; i < n; ++i) {
        x[index(i)] = b[index(p[index(i)])];
        subtract(i, 0, i);
    }
    for (int i = n - 1; i >= 0; --i) {
        subtract(i, i + 1, n);
        x[index(i)] = rounded(single, x[index(i)] / entry(i, i));
    }
    return x;
}

// By the library's single form on packed memory, where the order of summation is the library's.
template <class T>
Matrix solved(int n, const Matrix &f, const Numbers &p, const Matrix &b) {
    constexpr int e = sizeof(T);
    const std::vector<T> factors(f.begin(), f.end()), from(b.begin(), b.end());
    std::vector<T> x(index(n));
    if constexpr (e == 4)
        zelmLUBackSubst_mv_32f(factors.data(), n * e, e, p.data(), from.data(), e, x.data(), e, n);
    else
        zelmLUBackSubst_mv_64f(factors.data(), n * e, e, p.data(), from.data(), e, x.data(), e, n);
    return {x.begin(), x.end()};
}
Matrix expected_solution(bool single, int n, const Matrix &f, const Numbers &p, const Matrix &b) {
    if (n <= 6)
        return substitute(single, n, f, p, b);
    return single ? solved<float>(n, f, p, b) : solved<double>(n, f, p, b);
}

Matrix object(const Placed &operand, int k) {
    Matrix a;
    for (int i = 0; i < operand.rows(); ++i)
        for (int j = 0; j < operand.columns(); ++j)
            a.push_back(operand.get(k, i, j));
    return a;
}
Numbers numbers(const Placed &operand, int k) {
    const Matrix a = object(operand, k);
    return {a.begin(), a.end()};
}

// Whether `is` holds the expected bits; tells the first difference.
testing::AssertionResult equal(const Matrix &is, const Matrix &expected) {
    for (std::size_t e = 0; e < expected.size(); ++e)
        if (!same(is[e], expected[e]))
            return testing::AssertionFailure()
                   << "element " << e << " is " << is[e] << ", should be " << expected[e];
    return testing::AssertionSuccess();
}

// Runs a decomposition, compares the state of every object with the reference and returns the
// status; no value after a failure. Objects behind a singular one keep what they hold.
std::optional<int> decomposed(Problem &problem) {
    const Placed &from = problem.operands[0], &rows = problem.operands[1];
    const Placed &to = problem.destination();
    const int n = problem.sizes.width;
    std::vector<Matrix> factors, permutations;
    int expected = ok;
    for (int k = 0; k < to.objects(); ++k) {
        Matrix a = object(to, k);
        Numbers p = numbers(rows, k);
        if (expected == ok)
            expected = factor(problem.member.is_float, n, object(from, k), a, p);
        factors.push_back(a);
        permutations.emplace_back(p.begin(), p.end());
    }
    const int status = problem.run();
    const std::string disturbed = problem.disturbed();
    EXPECT_EQ(status, expected) << problem.describe();
    EXPECT_EQ(disturbed, "") << problem.describe();
    bool right = status == expected && disturbed.empty();
    for (int k = 0; right && k < to.objects(); ++k) {
        const auto values = equal(object(to, k), factors[index(k)]);
        const auto exchanges = equal(object(rows, k), permutations[index(k)]);
        EXPECT_TRUE(values) << problem.describe() << " object " << k;
        EXPECT_TRUE(exchanges) << problem.describe() << " permutation " << k;
        right = values && exchanges;
    }
    return right ? std::optional(status) : std::nullopt;
}

// In place, or into memory that shows what has not been written.
Problem decomposition(const Member &m, int n, int count, const std::vector<Placement> &placements,
                      bool in_place, unsigned seed, bool special = false) {
    Problem problem(m, {n, n, 1, count}, placements,
                    in_place ? std::optional(0) : std::optional<int>());
    Placed &to = problem.destination();
    to.for_each_element([&](int k, int i, int j) { to.put(k, i, j, canary); });
    problem.fill(seed, special);
    return problem;
}

// -1, 0 and 1, so that most columns have ties; regular.
void fill_with_ties(Placed &source, bool single, unsigned seed) {
    std::minstd_rand random(seed);
    const int n = source.rows();
    for (int k = 0; k < source.objects(); ++k) {
        Matrix unused(index(n * n));
        Numbers p(index(n));
        do
            for (int e = 0; e < n * n; ++e)
                source.put(k, e / n, e % n, static_cast<int>(random() % 3) - 1);
        while (factor(single, n, object(source, k), unused, p) != ok);
    }
}

std::vector<int> counts(const Member &m, int n) {
    if (!m.is_array())
        return {1};
    if (n > 16)
        return {1, 3, 4};
    return {1, 2, 3, 4, 5, 6, 7, 8, 9, 301 / n};
}

TEST(LUDecomp, EveryOrderAndCountInEveryMixOfMemoryShapes) {
    for (const Member *m : family("LUDecomp")) {
        int step = 0;
        for (const int n : orders)
            for (const int count : counts(*m, n))
                for (int shape = 0; shape < 8; ++shape) {
                    Problem problem = decomposition(*m, n, count,
                                                    shape < 2   ? all_in(*m, packed)
                                                    : shape < 4 ? all_in(*m, planar)
                                                                : mixed(*m, ++step / 2),
                                                    shape % 2 == 1, index(n + count));
                    if (shape % 4 >= 2 && n <= 16)
                        fill_with_ties(problem.operands[0], m->is_float, unsigned(step));
                    ASSERT_EQ(decomposed(problem), ok);
                }
    }
}

// After the first exchange rows 1 and 0 tie: row 1 is the earlier one in pivot order, row 0 in the
// caller's.
TEST(LUDecomp, TiesGoToTheEarliestInPivotOrder) {
    constexpr double a[3][3] = {{0, 1, 5}, {0, -1, 3}, {2, 4, 6}};
    constexpr double f[3][3] = {{0, -1, 8}, {0, -1, 3}, {2, 4, 6}};
    for (const Member *m : family("LUDecomp"))
        for (const int n : {3, 4, 5, 6, 7, 8, 16, 17}) {
            Problem problem(*m, {n, n, 1, 5}, mixed(*m, n));
            Placed &from = problem.operands[0], &to = problem.operands[2];
            const auto value = [](const auto &corner, int i, int j) {
                return std::max(i, j) < 3 ? corner[i][j] : i == j ? 1. : 0.;
            };
            from.for_each_element([&](int k, int i, int j) { from.put(k, i, j, value(a, i, j)); });
            ASSERT_EQ(problem.run(), ok);
            to.for_each_element([&](int k, int i, int j) {
                ASSERT_EQ(to.get(k, i, j), value(f, i, j)) << problem.describe();
                ASSERT_EQ(problem.operands[1].get(k, 0, i), i < 3 ? 2 - i : i);
            });
        }
}

// A diagonal matrix whose candidate k has a given magnitude, in row k or at the end of the column,
// behind a zero. A NaN fails no comparison and is not chosen before a number.
TEST(LUDecomp, ThresholdsAtEveryPivot) {
    for (const Member *m : family("LUDecomp"))
        for (const int n : small_orders) {
            const double limit = threshold(m->is_float, n);
            const double below =
                m->is_float ? std::nextafterf(float(limit), 0) : std::nextafter(limit, 0);
            const double above =
                m->is_float ? std::nextafterf(float(limit), 1) : std::nextafter(limit, 1);
            const int on = is_straight_line(n) ? ok : singular;
            const std::pair<double, int> cases[] = {{0, singular}, {below, singular}, {limit, on},
                                                    {above, ok},   {infinite, ok},    {nan, ok}};
            for (int k = 0; k < n; ++k)
                for (int variant = 0; variant < 4; ++variant)
                    for (const auto &[value, status] : cases) {
                        const int end = variant / 2 == 1 ? n - 1 : k;
                        Problem problem = decomposition(*m, n, 5, mixed(*m, k + variant), false, 1);
                        Placed &from = problem.operands[0];
                        from.for_each_element([&](int object, int i, int j) {
                            const int column = i == k ? end : i == end ? k : i;
                            const bool probed = object == (m->is_array() ? k % 5 : 0) && j == k;
                            from.put(object, i, j,
                                     j != column ? 0
                                     : !probed   ? 1
                                                 : (variant % 2 == 1 ? -value : value));
                        });
                        const bool is_passed_over = std::isnan(value) && end != k;
                        ASSERT_EQ(decomposed(problem), is_passed_over ? singular : status)
                            << value << " at pivot " << k;
                    }
        }
}

TEST(LUDecomp, TakesSpecialValues) {
    for (const Member *m : family("LUDecomp"))
        for (const int n : orders) {
            for (unsigned seed = 0; seed < 20; ++seed) {
                Problem problem =
                    decomposition(*m, n, 6, mixed(*m, int(seed)), seed % 2 == 1, seed, true);
                ASSERT_TRUE(decomposed(problem).has_value());
            }
            Problem problem = decomposition(*m, n, 5, mixed(*m, n), false, 1);
            Placed &from = problem.operands[0];
            from.for_each_element([&](int k, int i, int j) { from.put(k, i, j, nan); });
            ASSERT_EQ(decomposed(problem), ok);
        }
}

// A column of zeros fails at its own step, when all before it have been eliminated. Behind the
// failing object come one of NaNs or infinities and another failing one.
TEST(LUDecomp, StateAfterAFailureAtEveryObjectAndColumn) {
    for (const Member *m : family("LUDecomp")) {
        int step = 0;
        for (const int n : small_orders)
            for (int count = 1; count <= (m->is_array() ? std::min(9, 1000 / n / n) : 1); ++count)
                for (int failing = 0; failing < count; ++failing)
                    for (int column = 0; column < n; ++column) {
                        Problem problem =
                            decomposition(*m, n, count, mixed(*m, ++step / 2), step % 2 == 0, 1);
                        Placed &from = problem.operands[0];
                        from.for_each_element([&](int k, int i, int j) {
                            if (k == failing + 1)
                                from.put(k, i, j, step % 3 == 0 ? infinite : nan);
                            if ((k == failing || k == failing + 2) && j == column)
                                from.put(k, i, j, 0);
                        });
                        ASSERT_EQ(decomposed(problem), singular)
                            << "object " << failing << " column " << column;
                    }
    }
}

// Matrices or vectors within a block: element (i, j) of object k is first + k*step + i*row + j.
struct Window {
    int first, step, row;
};

// One block of memory that all operands of a call lie in, as numbers and in the element type.
struct Block {
    const Member &m;
    int n, count;
    Matrix values;
    std::vector<std::byte> bytes;
    std::vector<Slot> slots;
    std::vector<std::vector<std::byte *>> tables;

    Block(const Member &member, int order, int objects)
        : m(member),
          n(order),
          count(objects),
          values(index(3 * objects * (order * order + 9))),
          bytes(values.size() * index(m.element())) {
        tables.reserve(3);
        std::minstd_rand random(index(n));
        for (double &value : values)
            value = rounded(m.is_float, double(random()) / 0x1p30 - 1);
        for (std::size_t e = 0; e < values.size(); ++e)
            store(e);
    }
    void store(std::size_t e) {
        const float narrow = static_cast<float>(values[e]);
        const void *const from = m.is_float ? static_cast<const void *>(&narrow) : &values[e];
        std::memcpy(&bytes[e * index(m.element())], from, index(m.element()));
    }
    void add(const Window &w, bool array = true) {
        const int e = m.element(), height = w.row == 0 ? 1 : n;
        const char description = !array && m.description == "L" ? 'S' : m.description[0];
        const auto at = [&](int element) { return &bytes[index(element * e)]; };
        const auto add_int = [&](int value) { slots.push_back({nullptr, value * e}); };
        auto &table = tables.emplace_back();
        for (int i = 0; description == 'P' && i < height * n; ++i)
            table.push_back(at(w.first + i / n * w.row + i % n));
        for (int k = 0; description == 'L' && k < count; ++k)
            table.push_back(at(w.first + k * w.step));
        slots.push_back({at(w.first)});
        if (description != 'S') {
            slots.back().pointer = table.data();
            add_int(0);
        }
        if (description != 'L' && array)
            add_int(w.step);
        if (description != 'P' && w.row != 0)
            add_int(w.row);
        if (description != 'P')
            add_int(1);
    }
    Matrix get(const Window &w, int k) const {
        Matrix a;
        for (int i = 0; i < (w.row == 0 ? 1 : n); ++i)
            std::copy_n(values.begin() + w.first + k * w.step + i * w.row, n, back_inserter(a));
        return a;
    }
    void put(const Window &w, int k, const Matrix &a) {
        for (int i = 0; i < (w.row == 0 ? 1 : n); ++i)
            std::copy_n(a.begin() + i * n, n, values.begin() + w.first + k * w.step + i * w.row);
    }
    // Calls, and compares the whole block with the values.
    testing::AssertionResult agrees() {
        slots.push_back({nullptr, n});
        slots.push_back({nullptr, count});
        if (m.call(slots) != ok)
            return testing::AssertionFailure() << "status";
        const std::vector<std::byte> is = bytes;
        for (std::size_t e = 0; e < values.size(); ++e)
            store(e);
        const auto [at, unused] = std::mismatch(is.begin(), is.end(), bytes.begin());
        if (at == is.end())
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << "element " << (at - is.begin()) / m.element();
    }
};

TEST(LUDecomp, InterleavedAndOverlappingObjects) {
    for (const Member *m : family("LUDecomp"))
        for (int n = 1; m->is_array() && n <= 9; ++n) {
            const int size = n * n, count = 9;
            const Window windows[][2] = {
                {{0, 2 * size + 3, n}, {size + 1, 2 * size + 3, n}}, // arrays of structures
                {{size + 1, 2 * size + 3, n}, {0, 2 * size + 3, n}},
                {{0, 2 * size, 2 * n}, {n, 2 * size, 2 * n}}, // side by side, row by row
                {{0, 1, n}, {size + count, size, n}},         // sources overlap
                {{0, size, n}, {size, size, n}},              // each is the next one's source
                {{size, size, n}, {0, size, n}},
            };
            for (const auto &[from, to] : windows) {
                Block block(*m, n, count);
                Numbers rows(index(count * n)), p(index(n)), expected;
                block.add(from);
                block.slots.push_back({rows.data()});
                block.add(to);
                for (int k = 0; k < count; ++k) {
                    Matrix a = block.get(to, k);
                    ASSERT_EQ(factor(m->is_float, n, block.get(from, k), a, p), ok);
                    block.put(to, k, a);
                    expected.insert(expected.end(), p.begin(), p.end());
                }
                ASSERT_TRUE(block.agrees()) << m->name << " " << n << " window " << to.first;
                ASSERT_EQ(rows, expected) << m->name << " " << n << " window " << to.first;
            }
        }
}

// ---- substitution ------------------------------------------------------------------------------

// Factors with random exchanges and a diagonal that is not small.
Problem substitution(const Member &m, int n, int count, const std::vector<Placement> &placements,
                     unsigned seed, bool special = false) {
    Problem problem(m, {n, n, 1, count}, placements);
    problem.fill(seed, special);
    Placed &factors = problem.operands[0], &rows = problem.operands[1];
    std::minstd_rand random(seed);
    for (int k = 0; k < rows.objects(); ++k) {
        Numbers p = numbers(rows, k);
        std::shuffle(p.begin(), p.end(), random);
        for (int i = 0; i < n; ++i) {
            const int row = p[index(i)];
            rows.put(k, 0, i, row);
            factors.put(k, row, i, factors.get(k, row, i) + 1.5);
        }
    }
    return problem;
}

bool substitutes(Problem &problem) {
    const auto of = [](const Placed &operand, int k) { return operand.objects() == 1 ? 0 : k; };
    const auto &[factors, rows, from, to] = std::tie(problem.operands[0], problem.operands[1],
                                                     problem.operands[2], problem.operands[3]);
    const int status = problem.run();
    const std::string disturbed = problem.disturbed();
    EXPECT_EQ(status, ok) << problem.describe();
    EXPECT_EQ(disturbed, "") << problem.describe();
    bool right = status == ok && disturbed.empty();
    for (int k = 0; right && k < to.objects(); ++k) {
        const auto values =
            equal(object(to, k), expected_solution(problem.member.is_float, problem.sizes.width,
                                                   object(factors, of(factors, k)),
                                                   numbers(rows, of(rows, k)), object(from, k)));
        EXPECT_TRUE(values) << problem.describe() << " object " << k;
        right = values;
    }
    return right;
}

// Up to order 6 the operations are fixed; beyond that every form gives what the single form gives.
TEST(LUBackSubst, EveryOrderAndCountInEveryMixOfMemoryShapes) {
    for (const Member *m : family("LUBackSubst")) {
        int step = 0;
        for (const int n : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 13, 16, 17, 33, 64, 65, 100, 256, 257})
            for (const int count : counts(*m, n))
                for (int shape = 0; shape < 5; ++shape) {
                    Problem problem = substitution(*m, n, count,
                                                   shape == 0   ? all_in(*m, packed)
                                                   : shape == 1 ? all_in(*m, planar)
                                                                : mixed(*m, ++step),
                                                   index(step), shape == 4);
                    ASSERT_TRUE(substitutes(problem));
                }
    }
}

TEST(LUBackSubst, DividesByZeroWithoutAnError) {
    for (const Member *m : family("LUBackSubst"))
        for (int n = 1; n <= 9; ++n)
            for (int i = 0; i < n; ++i) {
                Problem problem = substitution(*m, n, 5, mixed(*m, n + i), index(n));
                Placed &factors = problem.operands[0], &x = problem.destination();
                for (int k = 0; k < factors.objects(); ++k)
                    factors.put(k, numbers(problem.operands[1], k)[index(i)], i, 0);
                ASSERT_TRUE(substitutes(problem));
                for (int k = 0; k < x.objects(); ++k)
                    ASSERT_FALSE(std::isfinite(x.get(k, 0, i))) << problem.describe();
            }
}

TEST(LUBackSubst, InterleavedAndOverlappingObjects) {
    for (const Member *m : family("LUBackSubst"))
        for (int n = 1; m->is_array() && n <= 9; ++n) {
            const int size = n * n, count = 9, step = size + 2 * n;
            const bool array = m->kinds == "mava";
            const Window windows[][3] = {
                {{0, step, n}, {size, step, 0}, {size + n, step, 0}}, // arrays of structures
                {{2 * n, step, n}, {n, step, 0}, {0, step, 0}},
                {{0, step, n}, {count * step, 1, 0}, {size + n, step, 0}}, // sources overlap
            };
            for (const auto &[f, b, x] : windows) {
                Block block(*m, n, count);
                Numbers rows;
                for (int k = 0; k < count; ++k)
                    for (int i = 0; i < n; ++i)
                        rows.push_back((i * (n - 1) + k) % n); // a reversal, turned
                block.add(f, array);
                block.slots.push_back({rows.data()});
                block.add(b);
                block.add(x);
                for (int k = 0; k < count; ++k) {
                    const int one = array ? k : 0;
                    const Numbers p(rows.begin() + one * n, rows.begin() + (one + 1) * n);
                    block.put(
                        x, k,
                        expected_solution(m->is_float, n, block.get(f, one), p, block.get(b, k)));
                }
                ASSERT_TRUE(block.agrees()) << m->name << " " << n << " window " << x.first;
            }
        }
}

// ---- residuals ---------------------------------------------------------------------------------

double noise(int n, int i, int j) {
    const double x = std::sin(n + 12.9898 * (i + 1) + 78.233 * (j + 1)) * 43758.5453;
    return 2 * (x - std::floor(x)) - 1;
}

struct Named {
    const char *name;
    double (*element)(int n, int i, int j);
    bool grows = false; // elements of U reach 2^(n - 1), and no solution can be trusted
};
constexpr Named matrices[] = {
    {"random", noise},
    {"Hilbert", [](int, int i, int j) { return 1. / (i + j + 1); }},
    {"Frank", [](int n, int i, int j) { return j < i - 1 ? 0. : n - std::max(i, j); }},
    {"Kahan",
     [](int, int i, int j) {
         return std::pow(std::sin(1.2), i) * (i == j) -
                std::pow(std::sin(1.2), i) * std::cos(1.2) * (j > i);
     }},
    {"Wilkinson",
     [](int n, int i, int j) {
         return i == j ? std::fabs(i - (n - 1) / 2.) : std::abs(i - j) == 1;
     }},
    {"Pascal", [](int, int i, int j) { return 1 / ((i + j + 1) * std::beta(i + 1., j + 1.)); }},
    {"Clement", [](int n, int i, int j) { return j == i + 1   ? j
                                                 : j == i - 1 ? n - i
                                                              : 0.; }},
    {"Grcar", [](int, int i, int j) { return j == i - 1 ? -1. : j >= i && j <= i + 3; }},
    {"growth", [](int n, int i, int j) { return i == j || j == n - 1 ? 1. : -(j < i); }, true},
    {"Vandermonde", [](int n, int i, int j) { return std::pow((i + 1.) / n, j); }},
    {"graded", [](int n, int i, int j) { return noise(n, i, j) * std::pow(10, -4. * i / n); }},
    {"orthogonal",
     [](int n, int i, int j) {
         return std::sqrt(2. / (n + 1)) * std::sin(std::numbers::pi * (i + 1) * (j + 1) / (n + 1));
     }},
};

using Long = long double;
template <class Element>
Long norm(int rows, int columns, const Element &element) {
    Long largest = 0;
    for (int j = 0; j < columns; ++j) {
        Long sum = 0;
        for (int i = 0; i < rows; ++i)
            sum += std::fabs(Long(element(i, j)));
        largest = std::max(largest, sum);
    }
    return largest;
}

TEST(LUResiduals, OfHardMatrices) {
    for (const bool single : {true, false})
        for (const Named &matrix : matrices) {
            const Member &m = member(single ? "zelmLUDecomp_m_32f" : "zelmLUDecomp_m_64f");
            const Long eps = single ? 0x1p-23L : 0x1p-52L;
            int judged = 0;
            for (int n = 1; n <= 64; ++n) {
                Problem problem(m, {n, n}, all_in(m, packed));
                Placed &source = problem.operands[0];
                source.for_each_element(
                    [&](int k, int i, int j) { source.put(k, i, j, matrix.element(n, i, j)); });
                const std::optional<int> status = decomposed(problem);
                ASSERT_TRUE(status.has_value());
                if (*status == singular)
                    continue;
                ++judged;
                const Matrix a = object(source, 0), f = object(problem.destination(), 0);
                const Numbers p = numbers(problem.operands[1], 0);
                const auto in = [n](const Matrix &of, int i, int j) {
                    return Long(of[index(i * n + j)]);
                };
                const Long of_a = norm(n, n, [&](int i, int j) { return in(a, i, j); });
                const Long of_factors = norm(n, n, [&](int i, int j) {
                    const int row = p[index(i)];
                    Long sum = in(a, row, j) - (i <= j ? in(f, row, j) : 0);
                    for (int k = 0; k < i && k <= j; ++k)
                        sum -= in(f, row, k) * in(f, p[index(k)], j);
                    return sum;
                });
                EXPECT_LE(of_factors / (n * of_a * eps), 5)
                    << matrix.name << " " << n << " " << single;

                Matrix b;
                for (int i = 0; i < n; ++i)
                    b.push_back(rounded(single, noise(n, i, n)));
                const Matrix x = single ? solved<float>(n, f, p, b) : solved<double>(n, f, p, b);
                const Long of_x = norm(n, 1, [&](int i, int) { return x[index(i)]; });
                const Long of_solution = norm(n, 1, [&](int i, int) {
                    Long sum = b[index(i)];
                    for (int j = 0; j < n; ++j)
                        sum -= in(a, i, j) * x[index(j)];
                    return sum;
                });
                EXPECT_LE(of_solution / (of_a * of_x * eps), 10)
                    << matrix.name << " " << n << " " << single;
            }
            std::cout << matrix.name << " " << single << " judged " << judged << "\n";
        }
}

// Row i of matrix k holds its one in column permutation[i]: no operation rounds.
TEST(LUResiduals, OfAllPermutationsOfOrderFourAreZero) {
    constexpr int n = 4, count = 24;
    for (const Member *m : family("LUDecomp")) {
        if (!m->is_array())
            continue;
        const Member &solver = member("zelmLUBackSubst_mava" + m->name.substr(15));
        Problem factors(*m, {n, n, 1, count}, mixed(*m, 5));
        Problem solve(solver, {n, n, 1, count}, mixed(solver, 6));
        Placed &a = factors.operands[0], &x = solve.destination();
        std::vector<Numbers> permutations;
        Numbers permutation = {0, 1, 2, 3};
        do
            permutations.push_back(permutation);
        while (std::next_permutation(permutation.begin(), permutation.end()));
        a.for_each_element(
            [&](int k, int i, int j) { a.put(k, i, j, permutations[index(k)][index(i)] == j); });
        solve.fill(7);
        ASSERT_EQ(factors.run(), ok);
        a.for_each_element([&](int k, int i, int j) {
            const int column = permutations[index(k)][index(i)];
            const double is = factors.destination().get(k, i, j);
            ASSERT_EQ(is, column == j);
            ASSERT_EQ(factors.operands[1].get(k, 0, column), i);
            solve.operands[0].put(k, i, j, is);
            solve.operands[1].put(k, 0, column, i);
        });
        ASSERT_EQ(solve.run(), ok);
        a.for_each_element([&](int k, int i, int) {
            const int column = permutations[index(k)][index(i)];
            ASSERT_EQ(x.get(k, 0, column), solve.operands[2].get(k, 0, i)) << solve.describe();
        });
    }
}

} // namespace
