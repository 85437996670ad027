// Operands that reach over more than 4 GiB: objects, rows or elements lie far apart, and what is
// between them is inaccessible. The results have the bits of those in near memory.

#include "support/problem.hpp"

#include <gtest/gtest.h>

using namespace zelm_test;

namespace {

Problem solved(const Member &m, const Sizes &sizes, int shape) {
    std::vector<Placement> placements = all_in(m, shape);
    for (Placement &each : placements)
        each.edge = Edge::first; // the first elements have one alignment everywhere
    Problem problem(m, sizes, placements);
    problem.fill(8);
    EXPECT_EQ(problem.run(), 0) << problem.describe();
    EXPECT_EQ(problem.disturbed(), "") << problem.describe();
    return problem;
}

TEST(Far, ObjectsRowsAndElements) {
    const auto described =
        those(members(), 783, [](const Member &m) { return !m.family.ends_with("GetBufSize"); });
    for (const Member *m : described)
        for (const int shape : {far_objects, far_rows, far_elements})
            for (const int order : {3, 4, 5, 9, 17}) {
                const Sizes sizes = {order, order, order, 6};
                const Problem near = solved(*m, sizes, shape == far_elements ? strided : padded);
                const Problem away = solved(*m, sizes, shape);
                int wrong = 0;
                for (std::size_t k = 0; k < m->operands.size(); ++k)
                    if (m->operands[k].destination && m->operands[k].letter != 'b')
                        away.operands[k].for_each_element([&](int n, int i, int j) {
                            wrong +=
                                near.operands[k].bits(n, i, j) != away.operands[k].bits(n, i, j);
                        });
                ASSERT_EQ(wrong, 0) << away.describe();
            }
}

} // namespace
