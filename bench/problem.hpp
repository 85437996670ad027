// The data of a row: operands in the memory that the row asks for, random contents, and the test
// whether a result is right.
#ifndef BENCH_PROBLEM_HPP
#define BENCH_PROBLEM_HPP

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <vector>

#include "peers/peer.h"

namespace zelm::bench {

struct Shape {
    int rows, inner, columns;
};

struct Problem : BenchProblem {
    std::vector<void *> a_elements, b_elements, c_elements; // of object 0, for pointer descriptions
    std::vector<void *> a_objects, b_objects, c_objects;    // for layout descriptions
    void *buffer;                                           // scratch of one object
};

enum class ElementType { f32, f64 };

class Workspace {
public:
    Workspace(BenchWork work, ElementType type, Shape shape, BenchMemory memory, int count,
              bool tables);

    const Problem &problem() const { return problem_; }

    // New random inputs from [-1, 1), the same for the same seed.
    void fill(unsigned seed);

    // Fills the results, not what is kept between two calls, with what no right result is.
    void poison();

    // The largest error of the results in units of the largest that rounding explains: wrong above
    // 1 or not a number. The factors of bench_lu are multiplied out, solutions are put into their
    // systems, eigenvectors into theirs; of values alone the invariants are compared. Products are
    // computed in a wider type, sums must be exact.
    double error(BenchPivots pivots) const;

private:
    bool is_symmetric() const {
        return work_ == bench_symmetric || work_ == bench_symmetric_values;
    }
    struct Free {
        void operator()(void *p) const { std::free(p); }
    };
    struct Extent {
        int rows, columns;
    };
    BenchOperand place(Extent extent, BenchMemory memory, bool single);

    BenchWork work_;
    ElementType type_;
    Extent a_{}, b_{}, c_{}, d_{};
    Problem problem_{};
    std::vector<int> index_;
    std::vector<double> buffer_;
    std::vector<std::unique_ptr<std::byte[], Free>> blocks_;
};

} // namespace zelm::bench

#endif
