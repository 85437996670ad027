#include "solver.hpp"

#include <algorithm>
#include <gtest/gtest.h>
#include <numbers>
#include <set>

namespace zelm_test {

Grid object(const Placed &operand, int k) {
    Grid a{operand.columns(), {}};
    for (int i = 0; i < operand.rows(); ++i)
        for (int j = 0; j < operand.columns(); ++j)
            a.values.push_back(operand.get(k, i, j));
    return a;
}
Objects all_objects(const Placed &operand) {
    Objects all;
    for (int k = 0; k < operand.objects(); ++k)
        all.push_back(object(operand, k));
    return all;
}
void put(Placed &operand, int k, Grid a) {
    for (int i = 0; i < operand.rows(); ++i)
        for (int j = 0; j < operand.columns(); ++j)
            operand.put(k, i, j, a(i, j));
}

Problem filled(const Member &m, const Sizes &sizes, const std::vector<Placement> &placements,
               int seed, bool in_place, bool special) {
    Problem problem(m, sizes, placements, in_place ? std::optional(0) : std::nullopt);
    for (std::size_t o = 0; o < m.operands.size(); ++o) {
        Placed &to = problem.operands[o];
        if (m.operands[o].destination && m.operands[o].letter != 'b')
            to.for_each_element([&](int k, int i, int j) { to.put(k, i, j, 7777); });
    }
    problem.fill(unsigned(seed), special);
    return problem;
}

bool gives(Problem &problem, int expected, std::size_t first, const std::vector<Objects> &values) {
    const int status = problem.run();
    std::string difference = problem.disturbed();
    for (const Objects &objects : values) {
        const Placed &operand = problem.operands[first++];
        for (int k = 0; difference.empty() && k < operand.objects(); ++k) {
            const auto is = object(operand, k).values, &should = objects[std::size_t(k)].values;
            if (should.empty())
                continue;
            const auto [at, other] = std::mismatch(is.begin(), is.end(), should.begin(), same);
            if (at != is.end())
                difference = "object " + std::to_string(k) + " of operand " +
                             std::to_string(first) + " holds " + std::to_string(*at) +
                             ", should be " + std::to_string(*other);
        }
    }
    EXPECT_EQ(status, expected) << problem.describe();
    EXPECT_EQ(difference, "") << problem.describe();
    return status == expected && difference.empty();
}

std::vector<int> counts(const Member &m, int n) {
    if (!m.is_array())
        return {1};
    if (n > 16)
        return {1, 5};
    const int g = widest_group(m);
    if (n > 9)
        return {1, 3, 2 * g + 1, many};
    const std::set<int> all = {1, 2,     3, 4,     5,         6,     7,         8,
                               9, g - 1, g, g + 1, 2 * g - 1, 2 * g, 2 * g + 1, many};
    return {all.begin(), all.end()};
}
std::vector<Failure> failures(const Member &m, int n, int columns) {
    std::vector<Failure> all;
    const auto add = [&](int count, int k, int column, int shape) {
        all.push_back({count, k, column % columns, shape});
    };
    for (const int count : m.is_array() && n <= 17 ? std::vector{1, 2, 5} : std::vector{1})
        for (int c = 0; c < count * columns; ++c)
            add(count, c / columns, c, 2);
    const int count = two_groups_and_tail(m);
    for (int c = 0; count > 1 && n <= 17 && columns > 0 && c < 3 * count; ++c)
        add(count, c % count, c + c / columns, c / count);
    return all;
}
std::vector<Placement> placed(const Member &m, int shape, int step) {
    return shape == 0 ? all_in(m, packed) : shape == 1 ? all_in(m, planar) : mixed(m, step);
}

// Puts object k of an operand at first + k*step bytes from where its object 0 is.
void move(Problem &problem, int operand, std::ptrdiff_t first, std::ptrdiff_t step) {
    const char description = problem.member.operands[std::size_t(operand)].description;
    for (std::size_t q = 0; q < problem.slots.size(); ++q) {
        const Parameter &p = problem.member.parameters[q];
        Slot &slot = problem.slots[q];
        const bool here = p.operand == operand;
        auto *const table = static_cast<std::byte **>(slot.pointer);
        if (here && p.group == 's' && p.axis == 0)
            slot.integer = int(step);
        if (here && p.group == 'o')
            slot.integer += int(first);
        if (here && p.group == 'p' && description == 'S')
            slot.pointer = static_cast<std::byte *>(slot.pointer) + first;
        for (int k = 1; here && p.group == 'p' && description == 'L' && k < problem.sizes.count;
             ++k)
            table[k] = table[0] + k * step;
    }
}

double noise(int n, int i, int j) {
    const double x = std::sin(n + 12.9898 * (i + 1) + 78.233 * (j + 1)) * 43758.5453;
    return 2 * (x - std::floor(x)) - 1;
}

const std::vector<KnownMatrix> known_matrices = {
    {"random", 64, noise},
    {"Hilbert", 5, [](int, int i, int j) { return 1. / (i + j + 1); }},
    {"Frank", 10, [](int n, int i, int j) { return j < i - 1 ? 0. : n - std::max(i, j); }},
    {"Kahan", 64,
     [](int, int i, int j) {
         return std::pow(.93, i) * (j < i ? 0 : j == i ? 1 : -.36);
     }},
    {"Wilkinson", 63,
     [](int n, int i, int j) {
         return i == j ? std::fabs(i - (n - 1) / 2.) : std::abs(i - j) == 1;
     }},
    {"Pascal", 64, [](int, int i, int j) { return 1 / ((i + j + 1) * std::beta(i + 1., j + 1.)); }},
    {"Clement", 32, [](int n, int i, int j) { return j == i + 1   ? j
                                                     : j == i - 1 ? n - i
                                                                  : 0.; }},
    {"Grcar", 64, [](int, int i, int j) { return j == i - 1 ? -1. : j >= i && j <= i + 3; }},
    {"growth", 64, [](int n, int i, int j) { return i == j || j == n - 1 ? 1. : -(j < i); }},
    {"Vandermonde", 15, [](int n, int i, int j) { return std::pow((i + 1.) / n, j); }},
    {"graded", 64, [](int n, int i, int j) { return noise(n, i, j) * std::pow(10, -4. * i / n); }},
    {"orthogonal", 64,
     [](int n, int i, int j) {
         return std::sqrt(2. / (n + 1)) * std::sin(std::numbers::pi * (i + 1) * (j + 1) / (n + 1));
     }},
};

} // namespace zelm_test
