#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>
#include <zelm.h>

namespace zelm_test {

// One argument of a call; the prototype decides which of the three is passed.
struct Slot {
    void *pointer = nullptr;
    int integer = 0;
    double real = 0;
};

struct Operand {
    std::string name;
    char letter; // v, m, t, c as in the kind string; i integers, o plain results, b scratch buffer
    bool array;  // one object per count
    bool destination; // written by the member
    char description; // S, P or L as it holds for this operand: _L leaves single ones standard
};

// Groups as they are checked: p pointer, c count, z size, s stride, o roi shift; - not checked.
struct Parameter {
    char group;
    int operand; // index into Member::operands, -1 for sizes and count
    int axis;    // of a stride: 0, 1, 2
    std::string name;
};

// One exported member as data, made from its line of api/members.inc.
struct Member {
    std::string name, family, kinds, description;
    bool is_float; // 32f, else 64f
    std::vector<Operand> operands;
    std::vector<Parameter> parameters;
    std::string signature; // of the prototype: p pointer, t table of pointers, i int, r constant

    using Function = void (*)();
    Function function;
    int (*invoke)(Function, const Slot *);

    int element() const { return is_float ? 4 : 8; }
    bool is_array() const { return count_parameter() >= 0; }
    int count_parameter() const; // its index, -1 if there is none
    bool is_square() const;      // takes widthHeight
    int call(const std::vector<Slot> &slots) const;
};

// A member of fixed size, float: its operands are exactly so many floats.
struct FixedMember {
    struct Parameter {
        std::string name;
        char sort;      // p pointer, i integer, r value
        int floats = 0; // of a pointer
    };
    std::string name, operation, kind;
    std::vector<Parameter> parameters;
    Member::Function function;
    int (*invoke)(Member::Function, const Slot *);

    bool is_array() const { return kind.back() == 'a'; }
    int call(const std::vector<Slot> &slots) const { return invoke(function, slots.data()); }
};

const std::vector<Member> &members(); // but those of fixed size
const std::vector<FixedMember> &fixed_members();
const Member &member(std::string_view name);

// The members that a test is about. It says how many there are: any other number throws.
template <class M, class Which>
std::vector<const M *> those(const std::vector<M> &all, std::size_t expected, Which which) {
    std::vector<const M *> found;
    for (const M &m : all)
        if (std::invoke(which, m))
            found.push_back(&m);
    if (found.size() != expected)
        throw std::logic_error("this test is for " + std::to_string(expected) + " members, not " +
                               std::to_string(found.size()));
    return found;
}
// All those of some families, named in a list of words.
std::vector<const Member *> family(std::string_view names, std::size_t expected);

// True when word is one of the blank-separated words of list.
bool among(std::string_view word, std::string_view list);

} // namespace zelm_test
