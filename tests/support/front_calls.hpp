#pragma once

#include "members.hpp"
#include "problem.hpp"

namespace zelm_test {

// Every member once more, called through zelm.hpp with views of the same memory.
struct FrontCall {
    std::string_view name;
    int (*call)(Problem &);
};
struct FixedFrontCall {
    std::string_view name;
    int (*call)(const std::vector<Slot> &);
};
const std::vector<FrontCall> &front_calls();
const std::vector<FixedFrontCall> &fixed_front_calls();

} // namespace zelm_test
