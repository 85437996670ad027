// Two builds of the library, bit for bit: every member of both is called with the same arguments in
// the same memory, all of which is then compared.
//
//   builds_test FIRST SECOND [--seed N] [--rounds N] [--member REGEX] [--except REGEX] [--nan bits]
//
// The sign of a NaN changes with the order in which a compiler puts operands, so one NaN is as good
// as another, but for members that only move elements. With --nan bits it is not.
//
// Round r of seed s is round 0 of seed s + r, for each member by itself. A difference is reported
// with the options that show it again.

#include "support/problem.hpp"

#include <algorithm>
#include <chrono>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <limits>
#include <random>
#include <regex.h>
#include <set>
#include <unistd.h>
#include <zelcore.h>

using namespace zelm_test;

namespace {

constexpr std::size_t all_members = 873; // all exports but zelmGetLibVersion
using Memory = std::vector<GuardedBytes::Part>;
using Saved = std::vector<std::vector<std::byte>>;

class Random : public std::mt19937_64 {
public:
    using std::mt19937_64::mt19937_64;
    int from(int first, int last) {
        return first + static_cast<int>((*this)() % static_cast<unsigned>(last - first + 1));
    }
    bool one_in(int n) { return from(1, n) == 1; }
    double uniform() { return static_cast<double>((*this)() >> 11) * 0x1p-52 - 1; }
    template <class... T>
    auto pick(T... values) {
        const std::array all{values...};
        return all[(*this)() % all.size()];
    }
    void fill(const Memory &memory) {
        for (const GuardedBytes::Part part : memory)
            for (std::size_t at = 0; at < part.size(); at += sizeof(result_type)) {
                const result_type word = (*this)();
                std::memcpy(&part[at], &word, sizeof word);
            }
    }
};

// What an object holds. Good ones are random; their diagonals may dominate.
enum Sort { good, integers, zeros, special, scaled, singular, sorts };

double value(Random &random, Sort sort, bool is_float) {
    using Double = std::numeric_limits<double>;
    using Single = std::numeric_limits<float>;
    const double tiny = is_float ? Single::denorm_min() : Double::denorm_min();
    const double huge = is_float ? Single::max() : Double::max(), infinite = Double::infinity();
    // The NaN that processors make: where two NaNs meet, compilers choose which one is taken.
    const double nan = -Double::quiet_NaN();
    return sort == integers                    ? random.from(-3, 3)
           : sort == zeros && random.one_in(2) ? random.pick(0., -0.)
           : sort != special || random.from(0, 7)
               ? random.uniform()
               : random.pick(nan, infinite, -infinite, 0., -0., 3 * tiny, -tiny, huge, -huge);
}

struct Element {
    const std::byte *begin = nullptr; // null of none
    char type = 0;                    // f, d, i
    std::string name = "memory outside the elements";

    double value(const std::byte *copy) const {
        const auto as = [copy](auto x) {
            std::memcpy(&x, copy, sizeof x);
            return static_cast<double>(x);
        };
        return type == 'f' ? as(0.f) : type == 'd' ? as(0.) : type == 'i' ? as(0) : 0;
    }
};

// One call of an ordinary member.
class Case {
public:
    Case(const Member &member, Random &random)
        : m(member), random_(random), problem_(placed_problem()) {
        random_.fill(problem_.memory(false));
        for (std::size_t k = 0; k < m.operands.size(); ++k)
            if (!m.operands[k].destination)
                fill(k);
        for (std::size_t q = 0; q < m.parameters.size(); ++q)
            if (const Parameter &p = m.parameters[q]; p.group == '-')
                problem_.slots[q] = problem_.operands[std::size_t(p.operand)].slot(p);
        if (random_.one_in(8))
            spoil();
    }

    Memory memory() const { return problem_.memory(); }
    int run(const Member &build) {
        zelSetNumThreads(threads_);
        const int status = build.call(problem_.slots);
        for (std::size_t k = 0; k < m.operands.size(); ++k) // the contents of scratch are lost
            if (Placed &scratch = problem_.operands[k]; m.operands[k].letter == 'b')
                scratch.for_each_element([&](int n, int i, int j) { scratch.put(n, i, j, 0); });
        return status;
    }
    Element element(const std::byte *there) const {
        Element found;
        for (std::size_t k = 0; k < m.operands.size(); ++k)
            problem_.operands[k].for_each_element([&](int n, int i, int j) {
                const std::byte *const at = problem_.operands[k].address(n, i, j);
                const bool integer = m.operands[k].letter == 'i';
                if (there < at || there >= at + (integer ? 4 : m.element()))
                    return;
                char place[64];
                std::snprintf(place, sizeof place, " %d (%d, %d)", n, i, j);
                found = {at, integer ? 'i' : m.is_float ? 'f' : 'd', m.operands[k].name + place};
            });
        return found;
    }
    bool only_moves() const { return among(m.family, "Copy Extract Transpose"); }
    std::string describe() const {
        return problem_.describe() + (in_place_ ? ", in place" : "") + ", threads " +
               std::to_string(threads_) + spoiled_;
    }

private:
    bool may_be_in_place(std::size_t source, const Sizes &sizes) const {
        const auto to = std::find_if(m.operands.begin(), m.operands.end(),
                                     [](const Operand &each) { return each.destination; });
        const Operand &from = m.operands[source];
        if (from.destination || from.letter != to->letter || from.array != to->array ||
            from.description != to->description)
            return false;
        const bool small = 3 <= sizes.width && sizes.width <= 6 && sizes.width == sizes.height;
        return among(m.family, "Add Sub Copy LComb Saxpy LUDecomp Invert CholeskyDecomp QRDecomp "
                               "CholeskyBackSubst QRBackSubst AffineTransform3DH "
                               "EigenValuesVectorsSym EigenValuesVectors EigenValuesVectorsRight "
                               "EigenValuesVectorsLeft") ||
               (m.family == "CrossProduct" && to->array) ||
               (m.family == "Mul" && m.operands[1].letter == 'c') ||
               (m.family == "Transpose" && from.description != 'P' && small) ||
               (m.family == "Gaxpy" && source == 2 && !small);
    }

    Problem placed_problem() {
        const bool matrices = m.kinds.find_first_of("mt") != std::string::npos;
        const int longest = random_.from(0, 3) ? 8 : matrices ? 20 : 40;
        const auto size = [&] { return random_.from(1, longest); };
        Sizes sizes{size(), size(), size(), random_.from(1, 40)};
        if (random_.one_in(2))
            sizes.height = sizes.inner = sizes.width;
        const bool far = random_.one_in(64);
        if (far) // every element has a page
            sizes = {size() % 4 + 1, size() % 4 + 1, size() % 4 + 1, size() % 6 + 1};
        // Inverses by cofactors take a time of order n^5.
        const int elements = sizes.width * (matrices ? sizes.height : 1);
        const int most = m.family == "Invert" && longest > 16 ? 400 : 4000;
        sizes.count = std::min(sizes.count, std::max(1, most / elements));
        if (!far && m.is_array() && random_.one_in(32)) {
            sizes = parallel_sizes(m);
            sizes.count += random_.from(0, 5);
            threads_ = random_.from(2, 4);
        }
        if (m.family.starts_with("QR"))
            sizes.height = std::max(sizes.height, sizes.width);

        const auto source = random_() % m.operands.size();
        if (random_.one_in(2) && may_be_in_place(source, sizes))
            in_place_ = static_cast<int>(source);
        // What has kernels of its own is frequent: all packed, all planar, tables in order.
        const auto order = [&] {
            return random_.pick(Order::natural, Order::natural, Order::reversed, Order::shuffled);
        };
        const bool alike = random_.one_in(2);
        const Placement usual{
            random_.pick(packed, packed, planar, planar, random_.from(0, overlapping - 1)),
            Edge::last, order()};
        std::vector<Placement> placements;
        for (std::size_t k = 0; k < m.operands.size(); ++k) {
            // A symmetric matrix overlapped by the next one is none.
            const bool apart = m.operands[k].destination || m.family.ends_with("Sym") ||
                               in_place_ == static_cast<int>(k);
            Placement own{random_.from(0, overlapping - apart), Edge::last, order()};
            if (alike)
                own = usual;
            if (far)
                own.shape = random_.from(far_objects, far_elements);
            if (in_place_ && m.family == "Transpose")
                own.shape = random_.from(packed, padded);
            own.edge = random_.pick(Edge::first, Edge::last, Edge::odd);
            own.shift = random_.from(0, 3);
            placements.push_back(own);
        }
        return {m, sizes, placements, in_place_};
    }

    void fill(std::size_t k) {
        if (only_moves() && random_.one_in(2))
            return; // any bits
        const bool dominated = m.family == "CholeskyDecomp" || random_.one_in(2);
        // Two threads may fail in two ways.
        const bool may_fail = threads_ == 1 || !m.family.ends_with("Sym");
        const int exponent = random_.from(-10, 10),
                  bad = may_fail ? random_.pick(0, 0, 1, 4, 16) : 0;
        const auto any = [&] { return static_cast<Sort>(random_.from(good, sorts - 1)); };
        const Sort usual = any();
        for (int n = 0; n < problem_.operands[k].objects(); ++n) {
            const bool is_bad = bad != 0 && random_.one_in(bad);
            put_object(k, n, is_bad ? random_.pick(usual, any()) : good, exponent, dominated);
        }
    }
    void put_object(std::size_t k, int n, Sort sort, int exponent, bool dominated) {
        Placed &x = problem_.operands[k];
        const int rows = x.rows(), columns = x.columns();
        if (m.operands[k].letter == 'i') { // row numbers in any order
            for (int j = 0; j < columns; ++j) {
                const int other = random_.from(0, j);
                x.put(n, 0, j, x.get(n, 0, other));
                x.put(n, 0, other, j);
            }
            return;
        }
        if (sort == scaled)
            exponent = m.is_float ? random_.from(-150, 120) : random_.from(-1075, 1000);
        if (sort == integers || sort == special)
            exponent = 0;
        for (int i = 0; i < rows; ++i)
            for (int j = 0; j < columns; ++j) {
                const int more = dominated && rows > 1 && i == j ? columns : 0;
                x.put(n, i, j, std::ldexp(value(random_, sort, m.is_float) + more, exponent));
            }
        const int from = random_.from(0, rows - 1), to = random_.from(0, rows - 1);
        for (int j = 0; sort == singular && rows == columns && j < columns; ++j)
            x.put(n, to, j, from == to ? 0 : x.get(n, from, j));
        for (int i = 0; m.family.ends_with("Sym") && i < rows; ++i)
            for (int j = i + 1; j < columns; ++j)
                x.put(n, i, j, x.get(n, j, i));
    }

    // One or two arguments that no call may have.
    void spoil() {
        const std::size_t one = random_() % m.parameters.size(),
                          two = random_() % m.parameters.size();
        for (const std::size_t q : std::set{one, two}) {
            const Parameter &p = m.parameters[q];
            int &argument = problem_.slots[q].integer;
            if (p.group == 'p')
                problem_.slots[q].pointer = nullptr;
            else if (m.name == "zelmAdd_vaca_32f_P" && p.group == 's' && p.operand == 0)
                argument = 0; // which is right here
            else if (p.group == 's')
                argument = random_.pick(0, -m.element(), argument + 1, INT_MIN);
            else if (p.group == 'o')
                argument = random_.pick(-m.element(), argument + 1, INT_MIN);
            else if (among(p.name, "src2Len src3Len"))
                ++argument; // does not fit the other sizes
            else
                argument = random_.pick(0, -1, INT_MIN);
            spoiled_ += ", bad " + p.name + " " + p.group;
        }
    }

    const Member &m;
    Random &random_;
    int threads_ = 1;
    std::optional<int> in_place_;
    std::string spoiled_;
    Problem problem_;
};

// One call of a member of fixed size. Its operands are in one block, at any address.
class FixedCase {
public:
    FixedCase(const FixedMember &m, Random &random) : into_word_(random.from(0, 3)) {
        random.fill(memory());
        const auto sort = static_cast<Sort>(random.from(good, sorts - 1));
        const int exponent = sort == scaled ? random.from(-80, 60) : 0;
        // A vector may overlap a source, matrices are replaced as a whole.
        const bool vectors = m.kind[0] == 'v' && m.kind != "v3m4",
                   points = m.kind.starts_with("m4v");
        in_place_ = random.one_in(3) &&
                    (vectors || points || among(m.operation, "Transpose MulTranspose Mul Invert"));
        std::byte *source = nullptr;
        for (const FixedMember::Parameter &p : m.parameters) {
            const std::size_t q = slots_.size();
            slots_.push_back(
                {nullptr,
                 p.name == "count"
                     ? random.from(-1, 40)
                     : 4 * (random.one_in(4) ? random.from(-widest, widest) : random.from(2, 5)),
                 value(random, sort, true)});
            if (p.sort != 'p')
                continue;
            const int shift = p.name == "pResult" ? 0 : into_word_ + 4 * random.from(0, 3);
            std::byte *at = &block_[space * q + space / 2 + std::size_t(shift)];
            if (p.name.starts_with("pDst")) {
                if (in_place_)
                    at = source + (vectors || m.is_array() ? 4 * random.from(-5, 5) : 0);
            } else if (!among(p.name, "pDet pResult")) {
                source = source && !points && random.one_in(2) ? source : at;
                fill(at, p.floats, m.is_array() && p.floats < 16, random, sort, exponent);
            }
            const bool may_be_null =
                m.name == "zelmMul_mm4x4_32f" || (m.operation == "Invert" && p.name == "pDet");
            slots_[q].pointer = may_be_null && random.one_in(16) ? nullptr : at;
        }
    }

    Memory memory() { return {block_}; }
    int run(const FixedMember &build) { return build.call(slots_); }
    Element element(const std::byte *there) const {
        const auto into = (there - block_.data() + 4 - into_word_) % 4; // of a float
        return {there - into, 'f', "byte " + std::to_string(there - into - block_.data())};
    }
    bool only_moves() const { return false; }
    std::string describe() const { return in_place_ ? "in place" : ""; }

private:
    static constexpr int widest = 12; // floats from vector to vector
    static constexpr std::size_t space = 2 * (40 * 4 * widest + 32);

    // Vectors of an array lie where the stride leads: all that is near is filled.
    static void fill(std::byte *at, int floats, bool array, Random &random, Sort sort,
                     int exponent) {
        const bool identity = floats == 16 && random.one_in(8);
        const int around = array ? 40 * widest : 0;
        for (int k = -around; k < around + floats; ++k) {
            const double x =
                identity ? k % 5 == 0 : std::ldexp(value(random, sort, true), exponent);
            const auto element = static_cast<float>(x);
            std::memcpy(at + 4 * k, &element, sizeof element);
        }
    }

    bool in_place_;
    int into_word_; // byte of all addresses
    std::vector<std::byte> block_ = std::vector<std::byte>(12 * space);
    std::vector<Slot> slots_;
};

// What differs, "" if nothing does. The status is that of the first build.
template <class AnyCase, class M>
std::string difference(AnyCase &each, const M &first, const M &second, bool any_nan, int &status) {
    const Memory memory = each.memory();
    Saved before, after;
    for (const GuardedBytes::Part part : memory)
        before.emplace_back(part.begin(), part.end());
    status = each.run(first);
    for (const GuardedBytes::Part part : memory)
        after.emplace_back(part.begin(), part.end());
    for (std::size_t k = 0; k < memory.size(); ++k)
        std::copy(before[k].begin(), before[k].end(), memory[k].begin());
    const int other = each.run(second);
    if (other != status)
        return "status " + std::to_string(status) + " and " + std::to_string(other);
    for (std::size_t k = 0; k < memory.size(); ++k)
        for (std::size_t at = 0; at < memory[k].size(); ++at) {
            at += std::size_t(
                std::mismatch(&memory[k][at], memory[k].data() + memory[k].size(), &after[k][at])
                    .first -
                &memory[k][at]);
            if (at == memory[k].size())
                break;
            const Element e = each.element(&memory[k][at]);
            const auto begin = e.begin ? std::size_t(e.begin - memory[k].data()) : at;
            const double was = e.value(&after[k][begin]), is = e.value(&memory[k][begin]);
            if (any_nan && !each.only_moves() && std::isnan(was) && std::isnan(is))
                continue; // with the next byte
            char values[64];
            std::snprintf(values, sizeof values, " = %.17g and %.17g", was, is);
            return e.name + (e.begin ? values : "");
        }
    return "";
}

bool finds(const std::string &pattern, const std::string &name) {
    regex_t expression;
    if (regcomp(&expression, pattern.c_str(), REG_EXTENDED | REG_NOSUB) != 0)
        throw std::runtime_error("no expression " + pattern);
    const bool found = regexec(&expression, name.c_str(), 0, nullptr, 0) == 0;
    regfree(&expression);
    return found;
}

struct Run {
    void *libraries[2];
    unsigned seed = 1, rounds = 400;
    bool any_nan = true;
    std::string member, except = "^$";
    std::size_t members = 0, faulty = 0, failures = 0, calls = 0;

    // A member is left at its first difference.
    template <class AnyCase, class M>
    void compare(const std::vector<M> &all) {
        for (const M &m : all) {
            if (!finds(member, m.name) || finds(except, m.name))
                continue;
            M first = m, second = m;
            for (const auto &[library, build] :
                 {std::pair{libraries[0], &first}, {libraries[1], &second}})
                build->function =
                    reinterpret_cast<Member::Function>(dlsym(library, m.name.c_str()));
            std::string what = !first.function || !second.function ? "missing"
                               : first.function == second.function ? "one function in both"
                                                                   : "";
            unsigned failed = 0, round = 0;
            for (; what.empty() && round < rounds; ++round) {
                const std::string key = m.name + ' ' + std::to_string(seed + round);
                std::seed_seq seeds(key.begin(), key.end());
                Random random(seeds);
                AnyCase each(first, random);
                int status = 0;
                what = difference(each, first, second, any_nan, status);
                failed += status != 0;
                if (!what.empty())
                    what += "\n  " + each.describe() + "\n  --rounds 1 --seed " +
                            std::to_string(seed + round) + " --member '^" + m.name + "$'";
            }
            if (what.empty() && failed == round && rounds >= 100)
                what = "no call succeeds";
            if (!what.empty())
                std::printf("%s: %s\n", m.name.c_str(), what.c_str());
            std::fflush(stdout); // another call may crash
            ++members, calls += round, failures += failed, faulty += !what.empty();
        }
    }
};

} // namespace

int main(int argc, char **argv) try {
    // Workers that wait busily take half of the time. The runtime reads this before main begins.
    if (std::getenv("OMP_WAIT_POLICY") == nullptr && setenv("OMP_WAIT_POLICY", "passive", 1) == 0)
        execv("/proc/self/exe", argv);
    Run run;
    bool some = false;
    if (argc < 3 || argc % 2 == 0)
        throw std::runtime_error("two libraries, then pairs of options and values");
    for (int k = 1; k < 3; ++k)
        if ((run.libraries[k - 1] = dlopen(argv[k], RTLD_NOW | RTLD_LOCAL)) == nullptr)
            throw std::runtime_error(dlerror());
    for (int k = 3; k < argc; k += 2) {
        const std::string option = argv[k], text = argv[k + 1];
        if (option == "--seed" || option == "--rounds")
            (option == "--seed" ? run.seed : run.rounds) = static_cast<unsigned>(std::stoul(text));
        else if (option == "--member" || option == "--except")
            (option == "--member" ? run.member : run.except) = text, some = true;
        else if (option == "--nan" && text == "bits")
            run.any_nan = false;
        else
            throw std::runtime_error("no option " + option + " " + text);
    }
    const auto begin = std::chrono::steady_clock::now();
    run.compare<Case>(members());
    run.compare<FixedCase>(fixed_members());
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begin;
    std::printf(
        "%zu members, %zu calls of each build, %zu of which fail, %.0f s: %zu members differ\n",
        run.members, run.calls, run.failures, seconds.count(), run.faulty);
    if (!some && run.members != all_members)
        throw std::runtime_error("not all members were called");
    return run.faulty == 0 ? 0 : 1;
} catch (const std::exception &error) {
    std::fprintf(stderr, "builds_test: %s\n", error.what());
    return 2;
}
