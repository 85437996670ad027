#pragma once

#include "members.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <vector>

namespace zelm_test {

// Where data meets an inaccessible page: at its first byte, at its last, or one byte short of it,
// so that its address is odd.
enum class Edge { first, last, odd };

// Readable memory between two inaccessible pages, filled with bytes 0xFF (NaN in both types). From
// 1 GiB on, all pages are inaccessible but those that have been opened.
class GuardedBytes {
public:
    using Part = std::span<std::byte>;

    GuardedBytes(std::size_t size, Edge edge);
    GuardedBytes(const GuardedBytes &) = delete;
    GuardedBytes &operator=(const GuardedBytes &) = delete;
    ~GuardedBytes();

    std::byte *data() const { return data_; }
    std::byte *begin() const { return begin_; }
    std::size_t size() const { return size_; } // from begin(): whole pages, data() within
    void open(std::byte *at, int bytes);
    std::vector<Part> parts() const; // that are accessible

private:
    std::byte *begin_, *data_;
    std::size_t size_;
    std::set<std::byte *> opened_; // pages
};

// An address on an inaccessible page.
void *inaccessible();

// A memory shape: the axes object (n), row (r) and column (c) from the innermost out, and the
// elements left free behind one step of each. One shape has its objects overlap, each one element
// behind the other. The last ones reach over more than 4 GiB along an axis of four or more, and
// what lies between is inaccessible.
struct Shape {
    const char *name;
    char axes[4];
    std::array<int, 3> gaps;
};
inline constexpr int far = -2;
inline constexpr Shape shapes[] = {
    {"packed", "crn", {0, 0, 0}},           {"padded rows", "crn", {0, 3, 2}},
    {"strided elements", "crn", {1, 1, 3}}, {"planar", "ncr", {0, 0, 0}},
    {"column-major", "rcn", {0, 0, 0}},     {"interleaved rows", "cnr", {0, 1, 0}},
    {"planar columns", "nrc", {2, 0, 1}},   {"overlapping objects", "crn", {0, 0, -1}},
    {"far objects", "crn", {0, 0, far}},    {"far rows", "cnr", {0, 0, far}},
    {"far elements", "rnc", {0, 0, far}},
};
inline constexpr int packed = 0, padded = 1, strided = 2, planar = 3, overlapping = 7,
                     far_objects = 8, far_rows = 9, far_elements = 10;

// The order in which a table of pointers names the elements or objects of a shape.
enum class Order { natural, reversed, shuffled };

struct Placement {
    int shape = packed;
    Edge edge = Edge::last;
    Order order = Order::natural;
    int shift = 0; // roi shift in elements
};

// Sizes as they enter the operation: the result has height rows and width columns, products sum
// over inner. Vectors of element-wise members have width elements.
struct Sizes {
    int height = 1, width = 1, inner = 1, count = 1;
    int buffer = 0; // elements; 0: what the member needs
};

// One operand in memory. Indices are those of the operand as it enters the operation.
class Placed {
public:
    Placed(const Operand &operand, int element, bool is_float, const Sizes &sizes, int rows,
           int columns, const Placement &placement);
    // The same elements again, described for another operand.
    Placed(const Operand &operand, const Placed &same, const Placement &placement);

    int objects() const { return objects_; }
    int rows() const { return transposed_ ? columns_ : rows_; }
    int columns() const { return transposed_ ? rows_ : columns_; }
    bool is_constant() const { return letter_ == 'c'; }
    std::byte *address(int n, int i, int j) const;
    std::size_t place(int n, int i, int j) const; // elements from the lowest address
    template <class Action>
    void for_each_element(Action action) const {
        for (int n = 0; n < objects(); ++n)
            for (int i = 0; i < rows(); ++i)
                for (int j = 0; j < columns(); ++j)
                    action(n, i, j);
    }
    double get(int n, int i, int j) const;
    void put(int n, int i, int j, double value);
    std::uint64_t bits(int n, int i, int j) const;
    Slot slot(const Parameter &parameter) const;

private:
    friend class Problem;
    void describe(const Operand &operand, const Placement &placement);

    char letter_, description_;
    bool transposed_, is_float_;
    int element_, objects_, rows_, columns_; // of the stored object
    int shift_ = 0;                          // bytes
    std::array<std::ptrdiff_t, 3> stride_;
    std::vector<std::ptrdiff_t> origins_; // of elements (_P), of objects (_L), else 0
    std::shared_ptr<GuardedBytes> data_, table_;
};

// One call: a member, its operands in memory and its argument slots.
class Problem {
public:
    // In place: the first destination is the memory of the operand of that index.
    Problem(const Member &member, const Sizes &sizes, const std::vector<Placement> &placements,
            std::optional<int> in_place = {});

    const Member &member;
    Sizes sizes;
    std::vector<Placed> operands; // in the order of member.operands
    std::vector<Slot> slots;      // may be changed before run()

    Placed &destination(); // the last operand that is written
    int size_of(const std::string &parameter) const;
    // Every input at random: in [-1, 1), or with one special value (NaN, infinite, zero of either
    // sign, subnormal, huge) in four. Without special values a matrix to be factored by Cholesky's
    // method is dominated by its diagonal.
    void fill(unsigned seed, bool special = false);
    void clear_destinations();
    // All memory of the call, of which operands may share parts.
    std::vector<GuardedBytes::Part> memory(bool with_tables = true) const;

    int run();
    // What the last run has changed outside the elements of its destinations, "" if nothing.
    std::string disturbed();
    // The bytes of every destination but buffers, gaps included.
    std::vector<std::byte> image() const;
    std::string describe() const;

private:
    std::vector<Placement> placements_;
    std::vector<std::vector<std::byte>> before_;
};

// Placements that give every operand another shape; step walks through all pairs of shapes of two
// operands, edges, table orders and roi shifts.
std::vector<Placement> mixed(const Member &member, int step);
std::vector<Placement> all_in(const Member &member, int shape);

// Elements of scratch that a member needs for order n.
int buffer_elements(const Member &member, int n);

// The most objects that a kernel takes at once in any build: a lane each, of two registers.
inline int widest_group(const Member &m) { return 2 * 32 / m.element(); }
// What has every place of full groups and of the longest tail.
inline int two_groups_and_tail(const Member &m) {
    return m.is_array() ? 3 * widest_group(m) - 1 : 1;
}

// Sizes of an array call that is beyond every limit of the serial path.
Sizes parallel_sizes(const Member &member);

} // namespace zelm_test
