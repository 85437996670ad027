// Faulty arguments: the first failing group of the member's own order decides, and no memory is
// looked at. All pointers lead to inaccessible memory, so a single access ends the test.

#include "support/problem.hpp"

#include <climits>
#include <cstring>
#include <gtest/gtest.h>
#include <map>
#include <stdexcept>

using namespace zelm_test;

namespace {

// Groups: p pointers, c count, z sizes, a agreement of sizes, s strides, o shifts, d strides from
// object to object where there are two. Groups that a member lacks are passed over.
const std::map<char, int> statuses = {{'p', -8},   {'c', -203}, {'z', -6},  {'a', -204},
                                      {'s', -182}, {'o', -202}, {'d', -182}};
constexpr struct {
    const char *families, *kinds, *descriptions, *order;
    const char *type = "32f 64f";
} orders[] = {
    {"Add Sub", "mam", "S", "pcsz"},
    {"Sub", "mma", "S", "pcsz"},
    {"Add Sub", "vav", "S P", "pzsco"},
    {"Add Sub", "vav", "L", "pzsoc"},
    {"Copy", "", "PP", "pzcosd"},
    {"Copy", "va", "SP LP", "pzcosd", "32f"},
    {"Copy", "", "SS SP SL PS PL LS LP LL", "pzcsod"},
    {"Extract", "v", "P", "pzo", "32f"},
    {"Extract", "m t v", "P", "zpo"},
    {"Extract", "m t v", "S", "pzs"},
    {"Extract", "ma ta va", "S P L", "pzcos"},
    {"LoadIdentity", "", "S L", "pzcsdo"},
    {"LoadIdentity", "", "P", "pzocd", "32f"},
    {"LoadIdentity", "", "P", "pzcod", "64f"},
    {"CrossProduct", "vav", "L", "psoc"},
    {"CrossProduct", "vav", "S P", "psco"},
    {"Transpose DotProduct CrossProduct L2Norm FrobNorm Trace LComb Saxpy Gaxpy", "", "S P L",
     "pczaso"},
    {"CholeskyBackSubst", "mva", "L", "psozc"},
    {"QRDecomp QRBackSubst", "", "S P L", "pczsoa"},
    {"Add Sub Mul LUDecomp LUBackSubst Invert Det CholeskyDecomp CholeskyBackSubst "
     "AffineTransform3DH",
     "", "S P L", "pczaso"},
    {"EigenValuesSym EigenValuesVectorsSym", "", "S P L", "pzcos"},
    {"EigenValues EigenValuesVectors EigenValuesVectorsRight EigenValuesVectorsLeft", "", "S P L",
     "pzcos"},
    {"EigenValuesGetBufSize EigenValuesVectorsGetBufSize", "", "S", "pz"},
};

std::string order_of(const Member &m) {
    for (const auto &row : orders)
        if (among(m.family, row.families) && (*row.kinds == 0 || among(m.kinds, row.kinds)) &&
            among(m.description, row.descriptions) && among(m.is_float ? "32f" : "64f", row.type))
            return row.order;
    throw std::logic_error(m.name + ": no order of checks is given for this family");
}

// The group in which a parameter is checked. One member does not check this stride.
char group_of(const Member &m, const Parameter &p) {
    const bool unchecked = m.name == "zelmAdd_vaca_32f_P" && p.group == 's' && p.operand == 0;
    const bool apart = among(m.family, "Copy LoadIdentity") && p.group == 's' && p.axis == 0;
    return unchecked ? '-' : apart ? 'd' : p.group;
}

// Products: the inner sizes, as stored, are equal. QR: no more columns than rows.
bool sizes_agree(const Member &m, const std::vector<Slot> &slots) {
    if (m.family.starts_with("QR")) {
        const std::size_t width = slots.size() - (m.is_array() ? 3 : 2);
        return slots[width].integer <= slots[width + 1].integer;
    }
    const auto value = [&](const std::string &name) {
        for (std::size_t k = 0; k < slots.size(); ++k)
            if (m.parameters[k].name == name)
                return slots[k].integer;
        throw std::logic_error(m.name + " has no " + name);
    };
    if (m.family == "Gaxpy")
        return value("width") == value("src2Len") && value("height") == value("src3Len");
    if (m.family != "Mul" || m.kinds.find('c') != std::string::npos)
        return true;
    const char first = m.operands[0].letter, second = m.operands[1].letter;
    const char *const inner1 = first == 't' ? "src1Height" : "src1Width";
    const char *const inner2 = second == 'v'   ? "src2Len"
                               : second == 't' ? "src2Width"
                                               : "src2Height";
    return value(inner1) == value(inner2);
}

bool is_faulty(const Member &m, char group, const std::vector<Slot> &slots, std::size_t k) {
    const Slot &slot = slots[k];
    const bool misaligned = slot.integer % m.element() != 0;
    return group == 'p'                   ? slot.pointer == nullptr
           : group == 'c' || group == 'z' ? slot.integer < 1
           : group == 's'                 ? slot.integer < 1 || misaligned
           : group == 'd' ? (slot.integer < 1 || misaligned) && slots.back().integer >= 2
           : group == 'o' ? slot.integer < 0 || misaligned
                          : false;
}

int expected_status(const Member &m, const std::string &order, const std::vector<Slot> &slots) {
    for (const char group : order) {
        bool faulty = group == 'a' && !sizes_agree(m, slots);
        for (std::size_t k = 0; k < slots.size(); ++k)
            faulty |= group_of(m, m.parameters[k]) == group && is_faulty(m, group, slots, k);
        if (faulty)
            return statuses.at(group);
    }
    return 0;
}

// 7 disagrees where a size is an inner size of a product, and is no fault elsewhere.
std::vector<int> faults_of(const Member &m, const Parameter &p) {
    const int e = m.element();
    const std::map<char, std::vector<int>> faults = {
        {'p', {0}},
        {'c', {0, -1, INT_MIN}},
        {'z', {0, -1, INT_MIN, 7}},
        {'s', {0, -e, 1, e / 2, e + 2, 1 - e, INT_MIN, INT_MAX}},
        {'o', {-e, -1, 1, e / 2, e + 2, INT_MIN}},
        {'-', {}},
    };
    std::vector<int> some = faults.at(p.group);
    if (p.group == 'c')
        some.push_back(1); // no fault, and strides from object to object are none then
    return some;
}

// Calls m where the arguments amount to a fault.
::testing::AssertionResult status_is_right(const Member &m, const std::string &order,
                                           const std::vector<Slot> &slots) {
    const int expected = expected_status(m, order, slots);
    const int status = expected == 0 ? 0 : m.call(slots);
    if (status == expected)
        return ::testing::AssertionSuccess();
    auto failure = ::testing::AssertionFailure() << m.name;
    for (std::size_t k = 0; k < slots.size(); ++k)
        failure << " " << m.parameters[k].name << " " << m.parameters[k].group << " "
                << slots[k].integer << (slots[k].pointer ? "" : " or null");
    return failure << ": status " << status << ", should be " << expected;
}

// From sound calls on packed objects of this order: they are what a short cut past the checks
// takes.
std::vector<Slot> sound_arguments(const Member &m, int order) {
    std::vector<Slot> slots;
    for (const Parameter &p : m.parameters) {
        const int stride = m.element() * (p.axis == 2 ? 1 : p.axis == 1 ? order : order * order);
        slots.push_back({inaccessible(), p.group == 'o' ? 0 : p.group == 's' ? stride : order});
    }
    return slots;
}

void try_faults(const Member &m, int sizes) {
    const std::string order = order_of(m);
    const std::vector<Slot> sound = sound_arguments(m, sizes);
    ASSERT_EQ(expected_status(m, order, sound), 0) << m.name;
    std::vector<Slot> slots = sound;
    for (std::size_t a = 0; a < slots.size(); ++a) {
        for (const int fault_a : faults_of(m, m.parameters[a])) {
            slots[a] = {nullptr, fault_a};
            ASSERT_TRUE(status_is_right(m, order, slots));
            for (std::size_t b = a + 1; b < slots.size(); ++b) {
                for (const int fault_b : faults_of(m, m.parameters[b])) {
                    slots[b] = {nullptr, fault_b};
                    ASSERT_TRUE(status_is_right(m, order, slots));
                }
                slots[b] = sound[b];
            }
        }
        slots[a] = sound[a];
    }
}

TEST(Checks, EverySingleAndEveryPairOfFaultyArguments) {
    EXPECT_EQ(members().size(), 787u);
    for (const Member &m : members())
        for (const int sizes : {3, 4, 5, 6})
            try_faults(m, sizes);
}

// The source stride of this one member is an address difference and nothing else.
TEST(Checks, AddVacaPointerFormTakesAnySourceStride) {
    constexpr int len = 3, count = 5, reach = 4 * 4096 + 4;
    for (const int stride : {-12, -7, -4, -1, 0, 1, 2, 4, 7, 4096}) {
        GuardedBytes memory[len] = {{reach, Edge::last}, {reach, Edge::odd}, {reach, Edge::first}};
        const float *source[len];
        const float value[count] = {0, 1, 2, 3, 4};
        float result[len][count] = {}, expected[len][count], *destination[len];
        for (int k = 0; k < len; ++k) {
            std::byte *const first = memory[k].data() + (stride < 0 ? -stride * (count - 1) : 0);
            for (int b = 0; b < reach; ++b)
                memory[k].data()[b] = static_cast<std::byte>(b * 37 % 101 + k);
            for (int n = 0; n < count; ++n) {
                std::memcpy(&expected[k][n], first + n * stride, 4);
                expected[k][n] += value[n];
            }
            std::memcpy(&source[k], &first, sizeof first);
            destination[k] = result[k];
        }
        ASSERT_EQ(zelmAdd_vaca_32f_P(source, 0, stride, value, 4, destination, 0, 4, len, count),
                  0);
        EXPECT_EQ(std::memcmp(result, expected, sizeof expected), 0) << "stride " << stride;
    }
}

} // namespace
