// Products of matrices and of matrices with vectors. The sum runs over k in ascending order from
// the first product on, so every kernel gives the same bits.

#include "support/results.hpp"

#include <gtest/gtest.h>

using namespace zelm_test;

namespace {

// height, width, inner, count
constexpr Sizes cases[] = {
    {1, 1, 1, 1},    {1, 1, 1, 9},   {2, 2, 2, 1},   {2, 2, 2, 5},   {3, 3, 3, 1},  {3, 3, 3, 2},
    {3, 3, 3, 3},    {3, 3, 3, 4},   {3, 3, 3, 5},   {3, 3, 3, 301}, {4, 4, 4, 1},  {4, 4, 4, 6},
    {4, 4, 4, 7},    {4, 4, 4, 61},  {5, 5, 5, 1},   {5, 5, 5, 8},   {5, 5, 5, 35}, {6, 6, 6, 1},
    {6, 6, 6, 9},    {6, 6, 6, 23},  {7, 7, 7, 1},   {7, 7, 7, 3},   {8, 8, 8, 2},  {9, 9, 9, 3},
    {16, 16, 16, 2}, {3, 4, 5, 4},   {5, 4, 3, 5},   {4, 3, 3, 6},   {3, 3, 4, 7},  {3, 4, 3, 3},
    {1, 7, 4, 4},    {7, 1, 4, 3},   {4, 7, 1, 5},   {2, 3, 9, 8},   {9, 2, 3, 1},  {3, 9, 2, 2},
    {4, 4, 8, 5},    {8, 4, 4, 5},   {4, 8, 4, 5},   {6, 3, 6, 4},   {6, 6, 3, 4},  {3, 6, 6, 4},
    {17, 23, 19, 2}, {1, 1, 201, 2}, {201, 2, 3, 1}, {2, 201, 3, 1},
};

std::vector<const Member *> products() {
    return those(members(), 132, [](const Member &m) {
        return m.family == "Mul" && m.kinds.find('c') == std::string::npos;
    });
}

TEST(Mul, EveryKindInEveryMixOfMemoryShapes) {
    for (const Member *m : products())
        agrees_in_every_shape(*m, cases, false);
}

TEST(Mul, OverlappingResultsAreWrittenInOrder) {
    for (const Member *m : products())
        agrees_with_overlapping_results(*m);
}

// Where all products are -0 the sum is -0; it would be +0 if it began with 0.
TEST(Mul, TheSumBeginsWithTheFirstProduct) {
    for (const Member *m : products())
        for (int order = 1; order <= 8; ++order) {
            Problem problem(*m, {order, order, order, 6}, mixed(*m, order));
            for (std::size_t which = 0; which < 2; ++which)
                problem.operands[which].for_each_element([&](int n, int i, int j) {
                    problem.operands[which].put(n, i, j, which == 0 ? -0.0 : 1.0);
                });
            if (!agrees(problem))
                break;
        }
}

} // namespace
