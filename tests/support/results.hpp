#pragma once

#include "problem.hpp"

#include <span>

namespace zelm_test {

// The result of Add, Sub or Mul for one element of the destination. rounded has every operation
// rounded to the element type, in the order of the sum; exact and magnitude (the sum of |a||b|)
// are long double.
struct Reference {
    double rounded;
    long double exact, magnitude;
};
Reference reference(const Problem &problem, int n, int i, int j);

// Equal bits, or both NaN.
bool same(double a, double b);

// Runs the problem, expects every element of the destination to be as the reference says and
// nothing else to have changed; false if that fails.
bool agrees(Problem &problem);

// agrees() for every case in seven mixes of memory shapes, all packed, and all planar.
void agrees_in_every_shape(const Member &member, std::span<const Sizes> cases, bool special);

// agrees() where the objects of the result overlap one another.
void agrees_with_overlapping_results(const Member &member);

} // namespace zelm_test
