// What the tests of the solvers share: objects as values, runs that are compared with them, known
// matrices, norms.
#pragma once

#include "results.hpp"

#include <cmath>
#include <limits>
#include <vector>
#include <zelcore.h>

namespace zelm_test {

inline constexpr int ok = 0, wrong = 1; // no status is positive
inline constexpr double infinite = std::numeric_limits<double>::infinity();
inline constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();

// A matrix, or a vector or row numbers in row 0.
struct Grid {
    int columns;
    std::vector<double> values;

    double &operator()(auto i, auto j) { return values[std::size_t(int(i) * columns + int(j))]; }
    double operator()(auto i, auto j) const {
        return values[std::size_t(int(i) * columns + int(j))];
    }
    double &operator()(auto j) { return (*this)(0, j); }
    double operator()(auto j) const { return (*this)(0, j); }
    bool operator==(const Grid &) const = default;
    template <class T>
    std::vector<T> as() const {
        return {values.begin(), values.end()};
    }
};
using Objects = std::vector<Grid>;

Grid object(const Placed &operand, int k);
Objects all_objects(const Placed &operand);
void put(Placed &operand, int k, Grid a);

inline double rounded(bool single, double x) { return single ? static_cast<float>(x) : x; }
double noise(int n, int i, int j); // in [-1, 1)

// Sources at random, results of numbers that show what has not been written.
Problem filled(const Member &m, const Sizes &sizes, const std::vector<Placement> &placements,
               int seed, bool in_place = false, bool special = false);

// Runs the problem; expects the status, the objects of the operands from number `first` on, and
// that nothing else has changed. Of an object without values nothing is expected.
bool gives(Problem &problem, int expected, std::size_t first, const std::vector<Objects> &values);

template <class Value>
void set_source(Problem &problem, Value value) {
    Placed &from = problem.operands[0];
    from.for_each_element([&](int k, int i, int j) { from.put(k, i, j, value(k, i, j)); });
}

// Up to order 9 all tails of narrow groups, one and two of the widest and their neighbours, and
// many; fewer above.
std::vector<int> counts(const Member &m, int n);
inline constexpr int many = 101;

// So many threads until it goes: one has all objects, in order and in full groups.
struct Threads {
    explicit Threads(int number) { zelSetNumThreads(number); }
    ~Threads() { zelSetNumThreads(0); }
    Threads(const Threads &) = delete;
    Threads &operator=(const Threads &) = delete;
};
inline int threads_for(int count) { return count == many ? 3 : 1; }

// Arrays in which one object fails, in one of so many columns: few objects in every column, two
// groups and a tail in one column each, in every shape of placed(). Orders above 16 are not done
// in lanes.
struct Failure {
    int count, object, column, shape;
};
std::vector<Failure> failures(const Member &m, int n, int columns);

// All packed, all planar, or a mix.
std::vector<Placement> placed(const Member &m, int shape, int step);

// Puts object k of an operand at first + k*step bytes from where its object 0 is.
void move(Problem &problem, int operand, std::ptrdiff_t first, std::ptrdiff_t step);

struct KnownMatrix {
    const char *name;
    int judged; // orders up to 64 that elimination finds regular in both types, at the least
    double (*element)(int n, int i, int j);
};
extern const std::vector<KnownMatrix> known_matrices;

using Long = long double;
inline Long epsilon(bool single) { return single ? 0x1p-23L : 0x1p-52L; }

// The largest sum of magnitudes of a column; NaN if there is one.
template <class Element>
Long norm(int rows, int columns, Element element) {
    Long largest = 0;
    for (int j = 0; j < columns; ++j) {
        Long sum = 0;
        for (int i = 0; i < rows; ++i)
            sum += std::fabs(Long(element(i, j)));
        largest = std::isnan(sum) || sum > largest ? sum : largest;
    }
    return largest;
}

} // namespace zelm_test
