// What the rounding mode must not divide: every path gives one answer, signs of zero included.

#include "support/results.hpp"

#include <cmath>
#include <gtest/gtest.h>
#include <immintrin.h>

using namespace zelm_test;

namespace {

constexpr struct {
    const char *name;
    unsigned control;
} modes[] = {{"to nearest", 0}, {"downward", 0x2000}, {"upward", 0x4000}, {"toward zero", 0x6000}};
constexpr unsigned downward = 0x2000, rounding = 0x6000;

template <class Call>
[[gnu::noinline]] auto rounded_by(unsigned control, const Call &call) {
    const unsigned before = _mm_getcsr();
    _mm_setcsr((before & ~rounding) | control);
    const auto result = call();
    _mm_setcsr(before);
    return result;
}

// ---- sums of few small integers, which are exact ----

using Terms = std::vector<double>;

// In the order of addition.
Terms terms_of(const Problem &problem, int n, int i, int k) {
    const Member &m = problem.member;
    const Placed &a = problem.operands[0];
    Terms terms;
    if (m.family == "L2Norm" || m.family == "FrobNorm") {
        for (int r = 0; r < a.rows(); ++r)
            for (int c = 0; c < a.columns(); ++c)
                terms.push_back(a.get(n, r, c) * a.get(n, r, c));
        return terms;
    }
    // The running sum in memory begins with 0, those in registers do not.
    const int order = a.columns();
    const bool in_registers = order == a.rows() && order >= 3 && order <= 6;
    if (m.family == "Trace") {
        if (!in_registers)
            terms.push_back(0);
        for (int d = 0; d < order; ++d)
            terms.push_back(a.get(n, d, d));
        return terms;
    }
    const Placed &b = problem.operands[1];
    if (m.family == "DotProduct")
        for (int e = 0; e < a.columns(); ++e)
            terms.push_back(a.get(n, 0, e) * b.get(n, 0, e));
    else if (m.family == "CrossProduct")
        terms = {a.get(n, 0, (k + 1) % 3) * b.get(n, 0, (k + 2) % 3),
                 -(a.get(n, 0, (k + 2) % 3) * b.get(n, 0, (k + 1) % 3))};
    else if (m.family == "Gaxpy") {
        bool packed = m.is_array() && m.description != "P" && in_registers;
        for (const Parameter &p : m.parameters)
            if (p.group == 's' && p.axis == 2)
                packed = packed && problem.slots[std::size_t(&p - m.parameters.data())].integer ==
                                       m.element();
        if (!packed)
            terms.push_back(0);
        for (int e = 0; e < a.columns(); ++e)
            terms.push_back(a.get(0, k, e) * b.get(n, 0, e));
        terms.push_back(problem.operands[2].get(n, 0, k));
    } else { // Mul, of which the second operand or both may be vectors
        const bool vector = m.operands[1].letter == 'v';
        for (int e = 0; e < a.columns(); ++e)
            terms.push_back(a.get(n, vector ? k : i, e) * b.get(n, vector ? 0 : e, vector ? e : k));
    }
    return terms;
}

// An exact sum of zero is +0, downward -0, unless all terms are zeros of the other sign: then it is
// what they are.
double sum_of(const Terms &terms, unsigned control) {
    double sum = 0;
    bool all_positive = true, all_negative = true;
    for (const double term : terms) {
        sum += term;
        all_positive = all_positive && term == 0 && !std::signbit(term);
        all_negative = all_negative && term == 0 && std::signbit(term);
    }
    if (sum != 0)
        return sum;
    return (control == downward ? !all_positive : all_negative) ? -0. : 0.;
}

// Zeros of one sign and of both, and terms that cancel.
double element(int kind, std::size_t operand, unsigned n, unsigned e, unsigned elements) {
    const unsigned mirrored = std::min(e, elements - 1 - e);
    const unsigned noise = (n * 31 + mirrored * 7 + unsigned(operand) * 13) * 2654435761u >> 16;
    const double one = noise % 2 == 0 ? 1 : -1;
    switch (kind) {
    case 0:
        return operand == 0 ? 0. : operand == 1 ? 1. : 0.;
    case 1:
        return operand == 0 ? -0. : operand == 1 ? 1. : -0.;
    case 2:
        return operand == 0 ? (noise & 2 ? 0. : -0.) : operand == 1 ? one : 0.;
    default:
        return operand == 0   ? (2 * e < elements ? one : -one) * (noise & 4 ? 0 : 1)
               : operand == 1 ? one
                              : 0.;
    }
}

bool adds_exactly(Problem &problem, int kind) {
    for (std::size_t o = 0; o < problem.operands.size(); ++o) {
        Placed &operand = problem.operands[o];
        if (problem.member.operands[o].destination)
            continue;
        const int columns = operand.columns();
        operand.for_each_element([&](int n, int i, int j) {
            // The terms of a product are down the columns of its second operand.
            const bool down = problem.member.family == "Mul" && o == 1 && operand.rows() > 1;
            operand.put(n, i, j,
                        element(kind, o, unsigned(n), unsigned(down ? i : j),
                                unsigned(down ? operand.rows() : columns)));
        });
    }
    const bool root = problem.member.family.ends_with("Norm");
    const Placed &result = problem.destination();
    for (const auto &[name, control] : modes) {
        const int status = rounded_by(control, [&] { return problem.run(); });
        EXPECT_EQ(status, 0) << problem.describe();
        bool right = status == 0;
        result.for_each_element([&](int n, int i, int j) {
            double should = sum_of(terms_of(problem, n, i, j), control);
            if (root)
                should = rounded_by(control, [&] {
                    return problem.member.is_float
                               ? double(_mm_cvtss_f32(_mm_sqrt_ss(_mm_set_ss(float(should)))))
                               : _mm_cvtsd_f64(_mm_sqrt_sd(_mm_set_sd(0), _mm_set_sd(should)));
                });
            if (const double is = result.get(n, i, j); right && !same(is, should)) {
                right = false;
                ADD_FAILURE() << problem.describe() << ", kind " << kind << " " << name << ": ("
                              << n << ", " << i << ", " << j << ") is " << is << ", should be "
                              << should;
            }
        });
        if (!right)
            return false;
    }
    return true;
}

TEST(Rounding, SignsOfZerosOfEverySum) {
    int seen = 0;
    for (const Member &m : members()) {
        const bool product = m.family == "Mul" && m.kinds.find('c') == std::string::npos;
        if (!product && !among(m.family, "DotProduct CrossProduct L2Norm FrobNorm Trace Gaxpy"))
            continue;
        ++seen;
        int step = 0;
        bool right = true;
        for (int size = 1; size <= (product ? 9 : 33); size += size < 20 ? 1 : 6)
            for (const int count : {1, 2, 5, 9})
                for (int k = 0; right && k < 3 && (m.is_array() || count == 1); ++k, ++step) {
                    if (size > 6 && count > 2)
                        continue;
                    Problem problem(m, {size, size, size, count},
                                    k < 2 ? all_in(m, k == 0 ? packed : planar) : mixed(m, step));
                    for (int kind = 0; right && kind < 4; ++kind)
                        right = adds_exactly(problem, kind);
                }
    }
    EXPECT_EQ(seen, 216);
}

// ---- arrays, object by object ----

// The slots of a call for object n alone.
std::vector<Slot> slots_of_object(const Problem &problem, int n) {
    const Member &m = problem.member;
    std::vector<Slot> slots = problem.slots;
    for (std::size_t k = 0; k < slots.size(); ++k) {
        const Parameter &p = m.parameters[k];
        if (p.group == 'c')
            slots[k].integer = 1;
        if (p.operand < 0 || !m.operands[std::size_t(p.operand)].array)
            continue;
        const Operand &o = m.operands[std::size_t(p.operand)];
        const Placed &placed = problem.operands[std::size_t(p.operand)];
        const std::ptrdiff_t step = o.description == 'L' ? std::ptrdiff_t{sizeof(void *)}
                                    : placed.objects() > 1
                                        ? placed.address(1, 0, 0) - placed.address(0, 0, 0)
                                        : 0;
        if (p.group == (o.description == 'P' ? 'o' : 'p')) {
            if (p.group == 'p')
                slots[k].pointer = static_cast<std::byte *>(slots[k].pointer) + n * step;
            else
                slots[k].integer += int(n * step);
        }
    }
    return slots;
}

TEST(Rounding, ArraysAreTheirObjectsOneByOne) {
    int seen = 0;
    for (const Member &m : members()) {
        if (!m.is_array() || among(m.family, "Copy Extract LoadIdentity Transpose"))
            continue;
        ++seen;
        int step = 0;
        bool right = true;
        for (const int size : {2, 3, 4, 5, 6, 7, 9})
            for (int k = size % 2; right && k < 3; k += 2, ++step) {
                const bool tall = m.family.starts_with("QR") && k == 2;
                Problem problem(m, {size + tall, size, size, widest_group(m) + 3},
                                k < 2 ? all_in(m, k == 0 ? packed : planar) : mixed(m, step));
                problem.fill(unsigned(step));
                if (m.is_square()) // some matrices are diagonal
                    problem.operands[0].for_each_element([&](int n, int i, int j) {
                        if (n % 3 == 1 && i != j)
                            problem.operands[0].put(n, i, j, (n + i) % 2 ? 0. : -0.);
                    });
                for (const auto &[name, control] : {modes[1], modes[2]}) {
                    problem.clear_destinations();
                    const int status = rounded_by(control, [&] { return problem.run(); });
                    const auto together = problem.image();
                    problem.clear_destinations();
                    int first = 0;
                    for (int n = 0; n < problem.sizes.count && first == 0; ++n)
                        first = rounded_by(control,
                                           [&] { return m.call(slots_of_object(problem, n)); });
                    EXPECT_EQ(first, status) << problem.describe() << " " << name;
                    if (first != status || problem.image() != together) {
                        right = false;
                        ADD_FAILURE() << problem.describe() << " " << name;
                        break;
                    }
                }
            }
    }
    EXPECT_EQ(seen, 529);
}

} // namespace
