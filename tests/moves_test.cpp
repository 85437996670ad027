// Copy, Extract, LoadIdentity and Transpose move bit patterns: random ones here, every fourth a
// signalling NaN or a zero of either sign.

#include "support/problem.hpp"
#include "zelm.h"

#include <climits>
#include <cstring>
#include <gtest/gtest.h>
#include <random>

using namespace zelm_test;

namespace {

// height, width, -, count
constexpr Sizes cases[] = {{1, 1, 1, 1},   {1, 1, 1, 5},     {2, 2, 1, 3},   {3, 3, 1, 1},
                           {3, 3, 1, 9},   {4, 4, 1, 2},     {4, 4, 1, 7},   {5, 5, 1, 5},
                           {6, 6, 1, 4},   {7, 7, 1, 3},     {8, 8, 1, 2},   {3, 5, 1, 6},
                           {5, 3, 1, 1},   {1, 9, 1, 3},     {9, 1, 1, 4},   {16, 16, 1, 2},
                           {17, 33, 1, 2}, {64, 65, 1, 1},   {66, 31, 1, 1}, {2, 2, 1, 600},
                           {3, 4, 1, 300}, {129, 130, 1, 1}, {80, 16, 1, 2}};

void fill_with_bits(Placed &operand, bool is_float, unsigned seed) {
    std::mt19937_64 random(seed);
    operand.for_each_element([&](int n, int i, int j) {
        std::uint64_t bits = random();
        if (bits % 4 == 0) {
            const std::uint64_t choices[] = {is_float ? 0x7f800001u
                                                      : 0x7ff0000000000001u, // signalling NaN
                                             is_float ? 0xff812345u : 0xfff0000012345678u,
                                             is_float ? 0x80000000u : 0x8000000000000000u, 0};
            bits = choices[bits / 4 % 4];
        }
        std::memcpy(operand.address(n, i, j), &bits, is_float ? 4 : 8);
    });
}

// Runs the problem; the destination has the source's elements, and nothing else has changed.
bool moves(Problem &problem, unsigned seed) {
    const Member &m = problem.member;
    Placed &source = problem.operands.front(), &destination = problem.destination();
    if (m.family != "LoadIdentity")
        fill_with_bits(source, m.is_float, seed);
    const std::uint64_t one = m.is_float ? 0x3f800000u : 0x3ff0000000000000u;
    const int status = problem.run();
    const std::string disturbed = problem.disturbed();
    EXPECT_EQ(status, 0) << problem.describe();
    EXPECT_EQ(disturbed, "") << problem.describe();
    int wrong = 0;
    destination.for_each_element([&](int n, int i, int j) {
        const std::uint64_t expected = m.family == "LoadIdentity" ? (i == j ? one : 0)
                                       : m.family == "Transpose"  ? source.bits(n, j, i)
                                                                  : source.bits(n, i, j);
        wrong += destination.bits(n, i, j) != expected;
    });
    EXPECT_EQ(wrong, 0) << problem.describe();
    return status == 0 && disturbed.empty() && wrong == 0;
}

TEST(Moves, EveryMemberInEveryMixOfMemoryShapes) {
    for (const Member *m : family("Copy Extract LoadIdentity Transpose", 82)) {
        int step = 0;
        bool right = true;
        for (const Sizes &sizes : cases)
            for (int k = 0; right && k < 9; ++k, ++step) {
                Problem problem(*m, sizes,
                                k == 7   ? all_in(*m, packed)
                                : k == 8 ? all_in(*m, planar)
                                         : mixed(*m, step));
                right = moves(problem, static_cast<unsigned>(step));
            }
    }
}

// One object: the distance to the next is not looked at.
TEST(Moves, OneObjectTakesAnyObjectStride) {
    for (const Member *m : family("Copy LoadIdentity", 42))
        for (const int stride : {0, -4, 3, 8, INT_MIN, INT_MAX})
            for (int shape = packed; shape < overlapping; ++shape) {
                Problem problem(*m, {3, 5, 1, 1}, all_in(*m, shape));
                for (std::size_t k = 0; k < problem.slots.size(); ++k)
                    if (m->parameters[k].group == 's' && m->parameters[k].axis == 0)
                        problem.slots[k].integer = stride;
                ASSERT_TRUE(moves(problem, 1)) << "stride " << stride;
            }
}

// The same memory on both sides: copies leave it, small transposes exchange it.
TEST(Moves, InPlace) {
    const auto copies = those(members(), 12, [](const Member &m) {
        return m.family == "Copy" && among(m.description, "SS PP LL");
    });
    for (const Member *m : copies) {
        Problem problem(*m, {3, 4, 1, 7}, mixed(*m, 5), 0);
        EXPECT_TRUE(moves(problem, 2));
    }
    const auto transposes = those(members(), 6, [](const Member &m) {
        return m.family == "Transpose" && m.description != "P";
    });
    for (const Member *m : transposes)
        for (int order = 3; order <= 6; ++order) {
            Problem problem(*m, {order, order, 1, 5}, all_in(*m, packed), 0);
            fill_with_bits(problem.operands[0], m->is_float, 3);
            std::vector<std::uint64_t> before;
            problem.operands[0].for_each_element(
                [&](int n, int i, int j) { before.push_back(problem.operands[0].bits(n, j, i)); });
            ASSERT_EQ(problem.run(), 0);
            std::size_t k = 0;
            problem.destination().for_each_element([&](int n, int i, int j) {
                ASSERT_EQ(problem.destination().bits(n, i, j), before[k++]) << problem.describe();
            });
        }
}

// Into overlapping objects, to planes and from planes: the later object stays.
TEST(Moves, OverlappingResultsAreCopiedInOrder) {
    constexpr int count = 9, len = 4;
    float source[count * len];
    for (int k = 0; k < count * len; ++k)
        source[k] = static_cast<float>(k + 1);
    struct {
        int object, element, to_object, to_element; // elements apart
    } constexpr strides[] = {{len, 1, 1, 2}, {1, count, 2, 1}};
    for (const auto &c : strides) {
        std::vector<float> expected(count * len), result(count * len);
        for (int n = 0; n < count; ++n)
            for (int k = 0; k < len; ++k)
                expected[static_cast<std::size_t>(n * c.to_object + k * c.to_element)] =
                    source[n * c.object + k * c.element];
        ASSERT_EQ(zelmCopy_va_32f_SS(source, 4 * c.object, 4 * c.element, result.data(),
                                     4 * c.to_object, 4 * c.to_element, len, count),
                  0);
        EXPECT_EQ(result, expected);
    }
}

} // namespace
