// Every member called through zelm.hpp does what the C function does, bit for bit, in every memory
// shape.

#include "support/front_calls.hpp"

#include <cstring>
#include <gtest/gtest.h>
#include <random>

using namespace zelm_test;

namespace {

TEST(FrontMembers, AgreeWithTheCFunctionsBitForBit) {
    ASSERT_EQ(front_calls().size(), members().size());
    constexpr Sizes cases[] = {{3, 3, 3, 5}, {4, 2, 3, 2}, {5, 4, 2, 3}, {9, 8, 7, 1}};
    for (std::size_t k = 0; k < members().size(); ++k) {
        const Member &m = members()[k];
        ASSERT_EQ(front_calls()[k].name, m.name);
        int step = 0;
        for (const Sizes &sizes : cases)
            for (const auto &placements :
                 {all_in(m, packed), mixed(m, step += 5), mixed(m, step)}) {
                Problem problem(m, sizes, placements);
                problem.fill(static_cast<unsigned>(step));
                problem.clear_destinations();
                const int expected = problem.run();
                const auto image = problem.image();
                problem.clear_destinations();
                ASSERT_EQ(front_calls()[k].call(problem), expected) << problem.describe();
                ASSERT_EQ(problem.image(), image) << problem.describe();
            }
    }
}

TEST(FrontMembers, OfFixedSizeAgreeWithTheCFunctionsBitForBit) {
    ASSERT_EQ(fixed_front_calls().size(), fixed_members().size());
    constexpr int count = 5;
    std::mt19937 random(1);
    for (std::size_t k = 0; k < fixed_members().size(); ++k) {
        const FixedMember &m = fixed_members()[k];
        ASSERT_EQ(fixed_front_calls()[k].name, m.name);
        std::vector<std::vector<float>> memory;
        std::vector<Slot> slots;
        int stride = 0;
        for (const FixedMember::Parameter &p : m.parameters) {
            Slot slot;
            if (p.sort == 'p') {
                stride = p.floats * 4 + 8;
                memory.emplace_back(static_cast<std::size_t>(count * (p.floats + 2)));
                for (float &value : memory.back())
                    value = static_cast<float>(random() >> 8) * 0x1p-24f + 0.5f;
                slot.pointer = memory.back().data();
            }
            slot.integer = p.name == "count" ? count : stride;
            slot.real = 0.25 + static_cast<double>(slots.size());
            slots.push_back(slot);
        }
        const auto before = memory;
        const int expected = m.call(slots);
        const auto after = memory;
        for (std::size_t j = 0; j < memory.size(); ++j)
            std::copy(before[j].begin(), before[j].end(), memory[j].begin());
        ASSERT_EQ(fixed_front_calls()[k].call(slots), expected) << m.name;
        for (std::size_t j = 0; j < memory.size(); ++j)
            ASSERT_EQ(0, std::memcmp(memory[j].data(), after[j].data(), 4 * memory[j].size()))
                << m.name << ", memory " << j;
        ASSERT_NE(before, after) << m.name;
    }
}

} // namespace
