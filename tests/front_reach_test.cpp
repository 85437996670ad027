// Every exported function is what its call through zelm.hpp calls: here they are functions that
// note their names, found in this program before those of the library.

#include "support/front_calls.hpp"

#include <gtest/gtest.h>
#include <zelm.hpp>

using namespace zelm_test;

std::string_view noted_member(); // the last one that was called

namespace {

TEST(FrontReach, EveryExportedFunctionIsCalled) {
    for (std::size_t k = 0; k < members().size(); ++k) {
        const Member &m = members()[k];
        Problem problem(m, {3, 3, 3, 2}, all_in(m, packed));
        front_calls()[k].call(problem);
        ASSERT_EQ(noted_member(), m.name);
    }
    std::vector<float> memory(64);
    const std::vector<Slot> slots(16, {memory.data(), 12, 1.0});
    for (std::size_t k = 0; k < fixed_members().size(); ++k) {
        fixed_front_calls()[k].call(slots);
        ASSERT_EQ(noted_member(), fixed_members()[k].name);
    }
    EXPECT_EQ(members().size() + fixed_members().size(), 873u);
    EXPECT_GT(zelm::version().majorVersion, 0);
}

} // namespace
