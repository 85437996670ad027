// Add, Sub, products with constants and weighted sums: every kind and description in every memory
// shape, bit for bit.

#include "support/results.hpp"

#include <gtest/gtest.h>

using namespace zelm_test;

namespace {

// height, width, -, count
constexpr Sizes cases[] = {
    {1, 1, 1, 1},   {1, 1, 1, 7},  {2, 2, 1, 2},  {3, 3, 1, 1}, {3, 3, 1, 3},   {3, 3, 1, 4},
    {3, 3, 1, 301}, {4, 4, 1, 1},  {4, 4, 1, 5},  {4, 4, 1, 8}, {4, 4, 1, 257}, {5, 5, 1, 1},
    {5, 5, 1, 6},   {6, 6, 1, 2},  {6, 6, 1, 9},  {7, 7, 1, 3}, {8, 8, 1, 4},   {9, 9, 1, 1},
    {1, 8, 1, 5},   {8, 1, 1, 9},  {3, 5, 1, 8},  {5, 3, 1, 7}, {3, 4, 1, 6},   {4, 3, 1, 2},
    {2, 9, 1, 3},   {9, 2, 1, 1},  {6, 7, 1, 4},  {7, 6, 1, 5}, {3, 6, 1, 6},   {31, 45, 1, 1},
    {40, 19, 1, 3}, {2, 99, 1, 5}, {99, 2, 1, 1},
};

bool is_elementwise(const Member &m) {
    return among(m.family, "Add Sub LComb Saxpy") ||
           (m.family == "Mul" && m.kinds.find('c') != std::string::npos);
}

TEST(Elementwise, EveryKindInEveryMixOfMemoryShapes) {
    for (const Member *m : those(members(), 326, is_elementwise))
        agrees_in_every_shape(*m, cases, true);
}

// The pointer description goes element by element and leaves the order of objects open.
TEST(Elementwise, OverlappingResultsAreWrittenInOrder) {
    const auto in_order = those(
        members(), 206, [](const Member &m) { return is_elementwise(m) && m.description != "P"; });
    for (const Member *m : in_order)
        agrees_with_overlapping_results(*m);
}

TEST(Elementwise, InPlaceAtTheSameAddress) {
    int sources = 0;
    for (const Member *m : those(members(), 326, is_elementwise))
        for (int k = 0; k < 2; ++k) {
            const Operand &source = m->operands[static_cast<std::size_t>(k)];
            bool right = source.letter != 'c' && source.array == m->is_array();
            sources += right;
            for (int step = 0; right && step < static_cast<int>(std::size(cases)); ++step) {
                Problem problem(*m, cases[step], step % 3 ? mixed(*m, step) : all_in(*m, packed),
                                k);
                problem.fill(static_cast<unsigned>(step), true);
                right = agrees(problem);
            }
        }
    EXPECT_EQ(sources, 412);
}

} // namespace
