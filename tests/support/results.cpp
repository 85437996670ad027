#include "results.hpp"

#include <algorithm>
#include <bit>
#include <cmath>
#include <gtest/gtest.h>
#include <stdexcept>

namespace zelm_test {

Reference reference(const Problem &problem, int n, int i, int j) {
    const auto rounded = [&](double x) {
        return problem.member.is_float ? static_cast<double>(static_cast<float>(x)) : x;
    };
    const Placed &a = problem.operands[0], &b = problem.operands[1];
    const std::string &family = problem.member.family, &kinds = problem.member.kinds;
    if (family != "Mul" || kinds.find('c') != std::string::npos) {
        const auto value = [&](const Placed &p) {
            return p.is_constant() ? p.get(n, 0, 0) : p.get(n, i, j);
        };
        const double x = value(a), y = value(b);
        const auto weight = [&](std::size_t k) { return problem.operands[k].get(0, 0, 0); };
        const double z =
            rounded(family == "Add"     ? x + y
                    : family == "Sub"   ? x - y
                    : family == "Mul"   ? x * y
                    : family == "Saxpy" ? rounded(x * weight(3)) + y
                    : family == "LComb" ? rounded(x * weight(3)) + rounded(y * weight(4))
                                        : throw std::logic_error("no reference for " + family));
        return {z, z, 0};
    }
    const bool vector = kinds.find('v') != std::string::npos;
    Reference r{0, 0, 0};
    for (int k = 0; k < a.columns(); ++k) {
        const double x = a.get(n, vector ? j : i, k), y = vector ? b.get(n, 0, k) : b.get(n, k, j);
        r.rounded = k == 0 ? rounded(x * y) : rounded(r.rounded + rounded(x * y));
        r.exact += static_cast<long double>(x) * y;
        r.magnitude += std::fabs(static_cast<long double>(x) * y);
    }
    return r;
}

bool same(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) ||
           (std::isnan(a) && std::isnan(b));
}

bool agrees(Problem &problem) {
    const Placed &result = problem.destination();
    const long double eps = problem.member.is_float ? 0x1p-23L : 0x1p-52L;
    // Before the call, which may be in place. Overlapping objects are written in order.
    std::vector<Reference> expected;
    result.for_each_element([&](int n, int i, int j) {
        expected.resize(std::max(expected.size(), result.place(n, i, j) + 1));
        expected[result.place(n, i, j)] = reference(problem, n, i, j);
    });

    const int status = problem.run();
    const std::string disturbed = problem.disturbed();
    EXPECT_EQ(status, 0) << problem.describe();
    EXPECT_EQ(disturbed, "") << problem.describe();

    bool right = true;
    result.for_each_element([&](int n, int i, int j) {
        const Reference &r = expected[result.place(n, i, j)];
        const double is = result.get(n, i, j);
        const bool within = std::isnan(r.rounded) || is == r.exact ||
                            std::fabs(is - r.exact) <= problem.sizes.inner * eps * r.magnitude;
        if (!right || (same(is, r.rounded) && within))
            return;
        right = false;
        ADD_FAILURE() << problem.describe() << ": (" << n << ", " << i << ", " << j << ") is " << is
                      << ", should be " << r.rounded << ", exactly " << r.exact;
    });
    return right && status == 0 && disturbed.empty();
}

void agrees_in_every_shape(const Member &member, std::span<const Sizes> cases, bool special) {
    int step = 0;
    for (const Sizes &sizes : cases)
        for (int k = 0; k < 9; ++k) {
            Problem problem(member, sizes,
                            k == 7   ? all_in(member, packed)
                            : k == 8 ? all_in(member, planar)
                                     : mixed(member, step++));
            problem.fill(static_cast<unsigned>(step), special);
            if (!agrees(problem))
                return;
        }
}

void agrees_with_overlapping_results(const Member &member) {
    for (int size = 1; size <= 7; ++size)
        for (int count = 2; count <= 7; ++count) {
            std::vector<Placement> placements = mixed(member, size * 7 + count);
            placements.back().shape = overlapping;
            placements.back().order = count % 2 == 0 ? Order::natural : Order::reversed;
            Problem problem(member, {size, size, size, count}, placements);
            problem.fill(7);
            if (!agrees(problem))
                return;
        }
}

} // namespace zelm_test
