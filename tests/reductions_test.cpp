// Dot and cross products, norms, traces and Gaxpy: bit for bit in the order of addition that each
// is documented to have.

#include "support/solver.hpp"

#include <cmath>
#include <gtest/gtest.h>

using namespace zelm_test;

namespace {

// Adds the products of two vectors to s: `singles` in order, blocks of eight, the rest in order.
template <class T>
T add_products(T s, const std::vector<T> &x, const std::vector<T> &y, std::size_t singles) {
    std::size_t k = 0;
    for (; k < std::min(singles, x.size()); ++k)
        s = s + x[k] * y[k];
    if (x.size() - k >= 8) {
        T first[4] = {}, second[4] = {};
        for (; k + 8 <= x.size(); k += 8)
            for (std::size_t l = 0; l < 4; ++l) {
                first[l] = first[l] + x[k + l] * y[k + l];
                second[l] = second[l] + x[k + 4 + l] * y[k + 4 + l];
            }
        T sum[4];
        for (std::size_t l = 0; l < 4; ++l)
            sum[l] = first[l] + second[l];
        s = s + ((sum[0] + sum[2]) + (sum[1] + sum[3]));
    }
    for (; k < x.size(); ++k)
        s = s + x[k] * y[k];
    return s;
}

template <class T>
std::vector<T> row(const Placed &p, int n, int i) {
    std::vector<T> values;
    for (int j = 0; j < p.columns(); ++j)
        values.push_back(static_cast<T>(p.get(n, i, j)));
    return values;
}

// What a single pair adds before its blocks: up to a multiple of 16 of the address of the second
// vector where both are adjacent floats, of the address of its table in pointer description.
template <class T>
std::size_t singles_of(const Problem &problem) {
    const Placed &a = problem.operands[0], &b = problem.operands[1];
    if (problem.member.is_array() || b.columns() < 8)
        return 0;
    std::uintptr_t at = 0, step = sizeof(T);
    if (problem.member.description == "P") {
        for (std::size_t k = 0; k < problem.slots.size(); ++k)
            if (problem.member.parameters[k].group == 'p' &&
                problem.member.parameters[k].operand == 1)
                at = reinterpret_cast<std::uintptr_t>(problem.slots[k].pointer);
        step = sizeof(void *);
    } else {
        const auto adjacent = [](const Placed &p) {
            return p.address(0, 0, 1) - p.address(0, 0, 0) == sizeof(float);
        };
        if (sizeof(T) == 8 || !adjacent(a) || !adjacent(b))
            return 0;
        at = reinterpret_cast<std::uintptr_t>(b.address(0, 0, 0));
    }
    return at % step != 0 ? 1000 : (16 - at % 16) % 16 / step;
}

template <class T>
T expected(const Problem &problem, int n, int k) {
    const std::string &family = problem.member.family;
    const Placed &a = problem.operands[0];
    if (family == "DotProduct")
        return add_products(T(-0.0), row<T>(a, n, 0), row<T>(problem.operands[1], n, 0),
                            singles_of<T>(problem));
    if (family == "L2Norm" || family == "FrobNorm") {
        T sum = 0;
        std::vector<T> x;
        const bool as_row = a.rows() == a.columns() && a.rows() >= 3 && a.rows() <= 5;
        for (int i = 0; i < a.rows(); ++i) {
            const std::vector<T> next = row<T>(a, n, i);
            x.insert(x.end(), next.begin(), next.end());
            if (!as_row || i == a.rows() - 1) {
                sum = add_products(sum, x, x, 0);
                x.clear();
            }
        }
        return std::sqrt(sum);
    }
    if (family == "Trace") {
        T sum = static_cast<T>(a.get(n, 0, 0));
        for (int i = 1; i < a.rows(); ++i)
            sum = sum + static_cast<T>(a.get(n, i, i));
        return sum;
    }
    const std::vector<T> x = row<T>(problem.operands[1], n, 0);
    if (family == "Gaxpy") {
        T sum = 0;
        for (int j = 0; j < a.columns(); ++j)
            sum = sum + static_cast<T>(a.get(0, k, j)) * x[static_cast<std::size_t>(j)];
        return sum + static_cast<T>(problem.operands[2].get(n, 0, k));
    }
    const std::vector<T> y = row<T>(a, n, 0);
    const auto p = static_cast<std::size_t>((k + 1) % 3), q = static_cast<std::size_t>((k + 2) % 3);
    return y[p] * x[q] - y[q] * x[p];
}

template <class T>
bool is_as_expected(Problem &problem) {
    std::vector<T> all;
    Placed &result = problem.destination();
    result.for_each_element([&](int n, int, int k) { all.push_back(expected<T>(problem, n, k)); });
    EXPECT_EQ(problem.run(), 0) << problem.describe();
    const std::string disturbed = problem.disturbed();
    EXPECT_EQ(disturbed, "") << problem.describe();
    bool right = disturbed.empty();
    std::size_t e = 0;
    result.for_each_element([&](int n, int, int k) {
        const double is = result.get(n, 0, k), should = all[e++];
        if (right && is != should && !(std::isnan(is) && std::isnan(should))) {
            right = false;
            ADD_FAILURE() << problem.describe() << ": (" << n << ", " << k << ") is " << is
                          << ", should be " << should;
        }
    });
    return right;
}

TEST(Reductions, EveryMemberInEveryMixOfMemoryShapes) {
    for (const Member *member : family("DotProduct CrossProduct L2Norm FrobNorm Trace Gaxpy", 84)) {
        const Member &m = *member;
        int step = 0;
        bool right = true;
        for (int size = 1; size <= 40; size += size < 20 ? 1 : 11)
            for (const int count : {1, 2, 3, 4, 5, 9, size < 7 ? 101 : size % 8 == 1 ? 301 : 6})
                for (int k = 0; right && k < 4; ++k, ++step) {
                    const int height = k == 3 ? size % 5 + 1 : size;
                    Problem problem(m, {height, size, 1, count},
                                    k < 2 ? all_in(m, k == 0 ? packed : planar) : mixed(m, step));
                    problem.fill(static_cast<unsigned>(step), step % 3 == 0);
                    right = m.is_float ? is_as_expected<float>(problem)
                                       : is_as_expected<double>(problem);
                }
    }
}

// Nothing is scaled: squares overflow to infinity and vanish below the subnormal numbers.
TEST(Reductions, NormsAreNotScaled) {
    float x[9], norm[3];
    for (const float value : {2e19f, 1e-30f}) {
        std::fill(x, x + 9, value);
        ASSERT_EQ(zelmL2Norm_va_32f(x, 12, 4, norm, 3, 3), 0);
        EXPECT_EQ(norm[1], value > 1 ? INFINITY : 0.0f);
        ASSERT_EQ(zelmFrobNorm_m_32f(x, 12, 4, 3, 3, norm), 0);
        EXPECT_EQ(norm[0], value > 1 ? INFINITY : 0.0f);
    }
}

// Planar objects, whose results are the diagonal elements `at`: the running sum begins with 0 there
// and is read as it stands. Orders 3 to 6 are not summed there.
TEST(Reductions, TraceIntoItsOwnDiagonal) {
    for (const Member *m : family("Trace", 10))
        for (int order = 1; order <= 9; ++order)
            for (int at = 0; at < order; ++at) {
                Problem problem(*m, {order, order, 1, 3}, all_in(*m, planar));
                problem.fill(unsigned(order));
                const Placed &a = problem.operands[0];
                Objects expected = all_objects(a);
                for (Grid &x : expected) {
                    const bool running = order < 3 || order > 6;
                    double sum = running ? x(at, at) = 0 : 0;
                    for (int i = 0; i < order; ++i) {
                        sum = rounded(m->is_float, sum + x(i, i));
                        x(at, at) = running ? sum : x(at, at);
                    }
                    x(at, at) = sum;
                }
                for (std::size_t k = 0; k < problem.slots.size(); ++k)
                    if (m->parameters[k].group == 'p' && m->parameters[k].operand == 1)
                        problem.slots[k].pointer = a.address(0, at, at);
                ASSERT_EQ(problem.run(), 0);
                for (int n = 0; n < a.objects(); ++n)
                    ASSERT_EQ(object(a, n).values, expected[std::size_t(n)].values)
                        << problem.describe() << " at " << at;
            }
}

// The result in the memory of a source. The sum stands there from 0 on and is stored after every
// two columns: an addend has become the sum when it is added, a factor is read as the sum has left
// it. Not where square matrices of order 3 to 6 have adjacent elements.
TEST(Reductions, GaxpyIntoItsSources) {
    for (const Member *m : family("Gaxpy", 16))
        for (int order = 1; order <= 9; ++order)
            for (const int source : {1, 2})
                for (const int shape : {packed, strided, planar}) {
                    const bool adjacent = m->description != "P" &&
                                          (shape == packed || (shape == planar && !m->is_array()));
                    if ((adjacent && order >= 3 && order <= 6) ||
                        m->operands[std::size_t(source)].array != m->is_array())
                        continue;
                    Problem problem(*m, {order, order, 1, 4}, all_in(*m, shape), source);
                    problem.fill(unsigned(order));
                    const Grid a = object(problem.operands[0], 0);
                    Objects expected;
                    for (int n = 0; n < problem.destination().objects(); ++n) {
                        const auto round = [&](double x) { return rounded(m->is_float, x); };
                        Grid x = object(problem.operands[1], n), b = object(problem.operands[2], n);
                        Grid &d = source == 1 ? x : b;
                        for (int i = 0; i < order; ++i) {
                            double sum = d(i) = 0;
                            for (int j = 0; j < order; ++j) {
                                sum = round(sum + round(a(i, j) * x(j)));
                                d(i) = j % 2 == 1 || j == order - 1 ? sum : d(i);
                            }
                            d(i) = round(sum + b(i));
                        }
                        expected.push_back(d);
                    }
                    ASSERT_TRUE(gives(problem, ok, 3, {expected}));
                }
}

// Where all terms are -0, sums from 0 on are 0 and those from the first product on are -0.
TEST(Reductions, GaxpyOfNegativeZeros) {
    for (const Member *member : family("Gaxpy", 16)) {
        const Member &m = *member;
        for (int order = 2; order <= 7; ++order)
            for (const auto shape : {packed, strided}) {
                Problem problem(m, {order, order, 1, 9}, all_in(m, shape));
                for (std::size_t q = 0; q < 3; ++q)
                    problem.operands[q].for_each_element([&](int k, int i, int j) {
                        problem.operands[q].put(k, i, j, q == 0 ? 1 : -0.0);
                    });
                ASSERT_EQ(problem.run(), 0);
                const bool fixed = order >= 3 && order <= 6 && shape == packed;
                const bool negative = m.is_array() && m.description != "P" && fixed;
                problem.destination().for_each_element([&](int k, int i, int j) {
                    const double is = problem.destination().get(k, i, j);
                    EXPECT_TRUE(is == 0 && std::signbit(is) == negative) << problem.describe();
                });
            }
    }
}

TEST(Reductions, InPlaceCrossProduct) {
    for (const char *name : {"zelmCrossProduct_vava_32f", "zelmCrossProduct_vav_64f_L",
                             "zelmCrossProduct_vva_32f_P", "zelmCrossProduct_vava_64f_P"})
        for (int step = 0; step < 12; ++step) {
            const Member &m = member(name);
            Problem problem(m, {1, 3, 1, 11}, mixed(m, step), m.kinds == "vva" ? 1 : 0);
            problem.fill(static_cast<unsigned>(step));
            const bool right =
                m.is_float ? is_as_expected<float>(problem) : is_as_expected<double>(problem);
            ASSERT_TRUE(right);
        }
}

} // namespace
