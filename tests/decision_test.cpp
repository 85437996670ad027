// Serial or parallel: seen through the stand-in companion library, which must come first in the
// library path. Limits are typed here, not read from the library.

#include "stub_core/stub_core.hpp"
#include "support/problem.hpp"

#include <algorithm>
#include <cmath>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <omp.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

using namespace zelm_test;

namespace {

// The largest estimates that stay serial: with every stride2 equal to the element size, and else.
struct Pair {
    int contiguous, general;
};
struct Limits {
    Pair standard32, standard64, layout32, layout64;
    int pointer32, pointer64 = pointer32;
};
constexpr Pair p1999 = {1999, 1999}, p2500 = {2500, 2500}, p3500 = {3500, 3500};
constexpr Pair p3600 = {3600, 1440}, p1400 = {1400, 1400}, p2100 = {2100, 2100};
constexpr Pair p1200 = {1200, 1200}, p1000 = {1000, 1000}, p700 = {700, 700};
constexpr Limits sum_matrix = {{2999, 1999}, p1999, p1999, p1999, 1999};
constexpr Limits sum_vector = {{4800, 4800}, p1400, p2500, p2500, 1500};
constexpr Limits sum_cva = {{4799, 4799}, {1399, 1399}, {2499, 2499}, {2499, 2499}, 1499};
constexpr Limits product = {{2500, 1440}, p3600, p3600, p3600, 1440};
constexpr Limits scaled_matrix = {p3500, p3500, {3500, 1500}, p3500, 1700};
constexpr Limits scaled_vector = {p2100, p2100, p1200, p1200, 650};
constexpr Limits decomposition = {p1000, p1000, p1000, p1000, 1000};
constexpr Limits solve_vectors = {p700, p700, p700, p700, 700};
constexpr Limits solve_pairs = {p1200, p1200, p1200, p1200, 1200};
constexpr Pair p2000 = {2000, 2000}, p7500 = {7500, 7500}, p720 = {720, 720};
constexpr Pair p2050 = {2050, 1700}, p1700 = {1700, 1700};
constexpr Pair p14400 = {14400, 14400}, p2800 = {2800, 2800}, p1800 = {1800, 1800};
constexpr Limits inversion = {p2500, p2500, p2500, p2500, 2500};
constexpr Limits determinants = {p14400, p14400, p14400, p14400, 14400};
constexpr Limits orthogonal = {p2800, p2800, p1800, p1800, 1800};
constexpr Limits cholesky = {p7500, p7500, p2000, p2000, 2000};
constexpr Limits cholesky_vectors = {p1200, p1200, p720, p720, 720};
constexpr Limits cholesky_pairs = {p2050, p2050, p1700, p1700, 2050};
constexpr Pair p2400 = {2400, 2400}, p3000 = {3000, 3000}, p2999 = {2999, 2999};
constexpr Pair p3600b = {3600, 3600}, p4500 = {4500, 4500}, p5000 = {5000, 5000};
constexpr Pair p1600 = {1600, 1600}, p1500 = {1500, 1500}, scaled = {3000, 2000};
constexpr Limits dots = {{5000, 2620}, {3500, 2000}, p2400, {4200, 3300}, 2400, 2000};
constexpr Limits cross_one = {p2999, p2999, p2999, p2999, 2999};
constexpr Limits cross_pairs = {p3000, p3000, p3000, p3000, 3000};
constexpr Limits lengths = {p1500, p1500, p1500, p1500, 1500};
constexpr Limits frobenius = {{2500, 1800}, {1800, 1500}, p1600, p1600, 1500, 2500};
constexpr Limits traces = {p3600b, p3600b, p3600b, p3600b, 3600};
constexpr Limits combinations = {p4500, p4500, p4500, p4500, 4500};
constexpr Limits saxpy = {scaled, scaled, scaled, scaled, 2000};
constexpr Limits gaxpy_one = {{7000, 5000}, p5000, {7000, 5000}, p5000, 4500, 7000};
constexpr Limits gaxpy_many = {{7000, 5000}, p5000, {7000, 7000}, {6000, 5000}, 4500, 7000};
constexpr Limits homogeneous = {{784, 784}, {}, {}, {}, 0};
constexpr Pair p250 = {250, 250}, p500 = {500, 500};
constexpr Limits symmetric_values = {p1000, p1000, p1000, p1000, 1000};
constexpr Limits symmetric_vectors = {p700, p700, p700, p700, 700};
constexpr Limits general_values = {p250, p250, p250, p250, 250};
constexpr Limits general_vectors = {p500, p500, p500, p500, 500};

// Sizes as they enter the operation: the result is h x w, products sum over k, c objects.
struct N {
    std::int64_t h, w, k, c;
};
using Estimate = std::int64_t (*)(N);
struct Row {
    const char *families, *kinds;
    const Limits &limits;
    Estimate estimate; // not wrapped
};
std::int64_t one_factor(N n) { return (n.w + 2 * n.c) * n.w; }
std::int64_t many_factors(N n) { return (n.w + 2) * n.w * n.c; }
const Row rows[] = {
    {"Add Sub", "mam mat tam tat mma mta tma tta", sum_matrix,
     [](N n) { return n.w * n.h * (2 * n.c + 1); }},
    {"Add Sub", "mama mata tama tata", sum_matrix, [](N n) { return 3 * n.c * n.w * n.h; }},
    {"Add Sub", "vav vva vac", sum_vector, [](N n) { return (2 * n.c + 1) * n.w; }},
    {"Add Sub", "vava", sum_vector, [](N n) { return 3 * n.c * n.w; }},
    {"Add Sub", "vaca cava", sum_vector, [](N n) { return n.c * (2 * n.w + 1); }},
    {"Add Sub", "vca cav", sum_vector, [](N n) { return n.w * (n.c + 1) + n.c; }},
    {"Sub", "cva", sum_cva, [](N n) { return 2 * n.c; }},
    {"Mul", "mam mat tam tat", product, [](N n) { return n.w * n.k + (n.w + n.k) * n.h * n.c; }},
    {"Mul", "mma mta tma tta", product,
     [](N n) { return n.k * n.h + (n.w * n.k + n.w * n.h) * n.c; }},
    {"Mul", "mama mata tama tata", product,
     [](N n) { return ((n.k + n.w) * n.h + n.w * n.k) * n.c; }},
    {"Mul", "mav tav", product, [](N n) { return (n.k * n.h + n.h) * n.c + n.k; }},
    {"Mul", "mva tva", product, [](N n) { return n.k * n.h + (n.k + n.h) * n.c; }},
    {"Mul", "mava tava", product, [](N n) { return (n.k * (n.h + 1) + n.h) * n.c; }},
    {"Mul", "mac tac", scaled_matrix, [](N n) { return 2 * n.w * n.h * n.c; }},
    {"Mul", "vac", product, [](N n) { return 2 * n.w * n.c; }},
    {"Mul", "vca", scaled_vector, [](N n) { return n.w * (n.c + 1) + n.c; }},
    {"Mul", "vaca", scaled_vector, [](N n) { return n.c * (2 * n.w + 1); }},
    {"DotProduct", "vav", dots, [](N n) { return n.w * (n.c + 1); }},
    {"DotProduct", "vava", dots, [](N n) { return 2 * n.w * n.c; }},
    {"CrossProduct", "vav vva", cross_one, [](N n) { return 2 * n.c; }},
    {"CrossProduct", "vava", cross_pairs, [](N n) { return 3 * n.c; }},
    {"L2Norm", "va", lengths, [](N n) { return n.w * n.c; }},
    {"FrobNorm", "ma", frobenius, [](N n) { return n.w * n.h * n.c; }},
    {"Trace", "ma", traces, [](N n) { return n.w * n.c; }},
    {"LComb", "vav", combinations, [](N n) { return (2 * n.c + 1) * n.w; }},
    {"LComb", "vava", combinations, [](N n) { return 3 * n.c * n.w; }},
    {"Saxpy", "vav vva", saxpy, [](N n) { return (2 * n.c + 1) * n.w; }},
    {"Saxpy", "vava", saxpy, [](N n) { return 3 * n.c * n.w; }},
    {"Gaxpy", "mvav", gaxpy_one, [](N n) { return n.w * n.c + n.h * (n.c + 1); }},
    {"Gaxpy", "mva", gaxpy_many, [](N n) { return (n.w + 2 * n.h) * n.c; }},
    {"LUDecomp", "ma", decomposition, [](N n) { return n.w * n.w * n.c; }},
    {"LUBackSubst", "mva", solve_vectors, one_factor},
    {"LUBackSubst", "mava", solve_pairs, many_factors},
    {"Invert", "ma", inversion, [](N n) { return n.w == 1 ? 0 : 2 * n.w * n.c; }},
    {"Det", "ma", determinants, [](N n) { return n.w * n.c; }},
    {"QRDecomp", "ma", orthogonal, [](N n) { return 2 * n.w * n.h * n.c; }},
    {"QRBackSubst", "mva", orthogonal, [](N n) { return n.w * n.h + (n.w + n.h) * n.c; }},
    {"QRBackSubst", "mava", orthogonal, [](N n) { return (n.w * (n.h + 1) + n.h) * n.c; }},
    {"CholeskyDecomp", "ma", cholesky, [](N n) { return n.w * n.w * n.c; }},
    {"CholeskyBackSubst", "mva", cholesky_vectors, one_factor},
    {"CholeskyBackSubst", "mava", cholesky_pairs, many_factors},
    {"AffineTransform3DH", "mva", homogeneous, [](N n) { return 2 * n.c; }},
    {"EigenValuesSym", "ma", symmetric_values, [](N n) { return n.w * (n.w + 1) * n.c; }},
    {"EigenValuesVectorsSym", "ma", symmetric_vectors,
     [](N n) { return n.w * (2 * n.w + 1) * n.c; }},
    {"EigenValues", "ma", general_values, [](N n) { return n.w * (n.w + 1) * n.c; }},
    {"EigenValuesVectors EigenValuesVectorsRight EigenValuesVectorsLeft", "ma", general_vectors,
     [](N n) { return 3 * n.w * n.w * n.c; }},
};

const Row &row_of(const Member &m) {
    for (const Row &row : rows)
        if (among(m.family, row.families) && among(m.kinds, row.kinds))
            return row;
    throw std::logic_error(m.name + ": no limit is given");
}

int limit_of(const Row &row, const Member &m, bool contiguous) {
    const Limits &limits = row.limits;
    if (m.description == "P")
        return m.is_float ? limits.pointer32 : limits.pointer64;
    const Pair &pair = m.description == "S" ? (m.is_float ? limits.standard32 : limits.standard64)
                                            : (m.is_float ? limits.layout32 : limits.layout64);
    return contiguous ? pair.contiguous : pair.general;
}

std::int64_t estimate(const Row &row, const Sizes &s) {
    return row.estimate({s.height, s.width, s.inner, s.count});
}

// Whether the member takes these sizes.
bool sound(const Row &row, const Sizes &s) {
    return std::string_view(row.families).substr(0, 2) != "QR" || s.width <= s.height;
}

// The nearest calls on both sides of the limit, for some shapes and among all small ones.
std::vector<Sizes> around(const Row &row, std::int64_t limit) {
    std::vector<Sizes> found;
    Sizes below, above;
    std::int64_t from_below = limit + 1, from_above = limit + 1;
    const auto both = [&](Sizes s, bool keep) {
        if (!sound(row, s))
            return;
        int low = 0, high = 1 << 14; // counts
        while (high - low > 1) {
            s.count = (low + high) / 2;
            (estimate(row, s) <= limit ? low : high) = s.count;
        }
        for (const bool over : {false, true}) {
            s.count = over ? high : low;
            const std::int64_t gap = std::abs(estimate(row, s) - limit);
            if (s.count > 0 && keep)
                found.push_back(s);
            if (s.count > 0 && gap < (over ? from_above : from_below)) {
                (over ? from_above : from_below) = gap;
                (over ? above : below) = s;
            }
        }
    };
    for (int shape = 0; shape < 512; ++shape)
        both({shape / 64 + 1, shape / 8 % 8 + 1, shape % 8 + 1}, false);
    for (const Sizes &s : {Sizes{2, 3, 5}, {5, 2, 3}, {4, 7, 2}, {3, 3, 3}})
        both(s, true);
    found.insert(found.end(), {below, above});
    return found;
}

std::vector<const Member *> array_members() {
    return those(members(), 529, [](const Member &m) {
        return m.is_array() && !among(m.family, "Copy Extract LoadIdentity Transpose");
    });
}

TEST(Decision, AtTheLimit) {
    for (const Member *m : array_members()) {
        const Row &row = row_of(*m);
        // Once with all elements contiguous, then with one operand after the other strided.
        for (std::size_t other = 0; other <= m->operands.size(); ++other) {
            std::vector<Placement> placements = all_in(*m, packed);
            const bool contiguous = other == m->operands.size();
            if (!contiguous) {
                if (m->description == "P" || !among({&m->operands[other].letter, 1}, "v m t"))
                    continue;
                placements[other].shape = strided;
            }
            const int limit = limit_of(row, *m, contiguous);
            for (const Sizes &sizes : around(row, limit)) {
                Problem problem(*m, sizes, placements);
                problem.fill(1);
                stub_core_answers({1});
                problem.run();
                ASSERT_EQ(stub_core_questions(), estimate(row, sizes) > limit)
                    << problem.describe() << ": " << estimate(row, sizes) << " against " << limit;
            }
        }
    }
}

// What a call on inaccessible memory does first: touch it on the serial path, ask for the number of
// threads on the parallel one. Huge counts can be tried so.
enum { touches = 7, asks = 8, returns = 9 };
int first_act(const Member &m, const Sizes &sizes) {
    const Problem shape(m, {sizes.height, sizes.width, sizes.inner}, all_in(m, packed));
    std::vector<Slot> slots = shape.slots;
    for (std::size_t k = 0; k < slots.size(); ++k)
        if (m.parameters[k].group == 'p')
            slots[k].pointer = inaccessible();
        else if (m.parameters[k].group == 's')
            slots[k].integer = m.element();
        else if (m.parameters[k].group == 'c')
            slots[k].integer = sizes.count;
    const pid_t child = fork();
    if (child == 0) {
        stub_core_exit(asks);
        std::signal(SIGSEGV, [](int) { _exit(touches); });
        m.invoke(m.function, slots.data());
        _exit(returns);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// Estimates are taken modulo 2^32: negative ones stay serial, positive ones go by the limit.
TEST(Decision, WrappedEstimates) {
    for (const Member *m : array_members()) {
        const Row &row = row_of(*m);
        bool seen_negative = false, seen_positive = false;
        for (const Sizes &shape : {Sizes{1, 1, 1}, {3, 3, 3}, {2, 5, 3}, {9, 7, 8}})
            for (int count = 1 << 26; count < 31 << 26; count += 1 << 26) {
                const Sizes sizes = {shape.height, shape.width, shape.inner, count};
                const std::int64_t full = estimate(row, sizes);
                const auto wrapped = static_cast<std::int32_t>(static_cast<std::uint32_t>(full));
                const bool positive = wrapped > limit_of(row, *m, true);
                bool &seen = positive ? seen_positive : seen_negative;
                if (wrapped == full || seen || (wrapped >= 0 && !positive) || !sound(row, sizes))
                    continue;
                seen = true;
                EXPECT_EQ(first_act(*m, sizes), positive ? asks : touches)
                    << m->name << " width " << sizes.width << " count " << count << ": estimate "
                    << full << " wraps to " << wrapped;
            }
        EXPECT_TRUE(seen_negative) << m->name;
    }
}

TEST(Decision, NumberOfQuestions) {
    for (const Member *m : array_members()) {
        Problem problem(*m, parallel_sizes(*m), all_in(*m, packed));
        problem.fill(2);
        const int count = problem.sizes.count;
        stub_core_answers({1});
        problem.run();
        const std::vector<std::byte> serial = problem.image();
        struct {
            std::vector<int> answers;
            int questions;
        } const cases[] = {
            {{1, 4}, 1},      {{0, 4}, 1}, {{-3, 4}, 1}, // no threads to be had
            {{count + 1}, 1},                            // fewer objects than threads
            {{count, 2}, 2},  {{2}, 2},    {{2, 3}, 2},  // the second answer is the request
            {{3, 1}, 2},      {{2, 0}, 2}, {{2, -1}, 2}, // which is raised to 1
        };
        for (const auto &each : cases) {
            problem.clear_destinations();
            stub_core_answers(each.answers);
            const auto answers = ::testing::PrintToString(each.answers);
            ASSERT_EQ(problem.run(), 0) << problem.describe() << ", answers " << answers;
            ASSERT_EQ(stub_core_questions(), each.questions) << m->name << ", answers " << answers;
            ASSERT_TRUE(problem.image() == serial) << m->name << ", answers " << answers;
        }
    }
}

// 80 threads have one object each, of a size that makes this worth it; more threads and objects
// where the size does not matter, or hardly.
TEST(Decision, RangesOfOneObject) {
    int team = 1;
#pragma omp parallel num_threads(80)
#pragma omp single
    team = omp_get_num_threads();
    ASSERT_EQ(team, 80);
    for (const Member *m : array_members()) {
        const Row &row = row_of(*m);
        Sizes sizes;
        for (const int order : {4, 7, 16, 33})
            if (estimate(row, sizes) <= limit_of(row, *m, true))
                sizes = {order, order, order, 80};
        while (estimate(row, sizes) <= limit_of(row, *m, true))
            ++sizes.count;
        Problem problem(*m, sizes, all_in(*m, far_objects));
        problem.fill(9);
        stub_core_answers({1});
        ASSERT_EQ(problem.run(), 0) << problem.describe();
        const std::vector<std::byte> serial = problem.image();
        problem.clear_destinations();
        stub_core_answers({sizes.count});
        ASSERT_EQ(problem.run(), 0) << problem.describe();
        ASSERT_EQ(stub_core_questions(), 2) << problem.describe();
        ASSERT_TRUE(problem.image() == serial) << problem.describe();
        ASSERT_EQ(problem.disturbed(), "") << problem.describe();
    }
}

TEST(Decision, MovesStaySerial) {
    for (const Member *m : family("Copy Extract LoadIdentity Transpose", 82)) {
        Problem problem(*m, {6, 6, 6, 3000}, all_in(*m, packed));
        problem.fill(3);
        stub_core_answers({2});
        EXPECT_EQ(problem.run(), 0) << m->name;
        EXPECT_EQ(stub_core_questions(), 0) << m->name;
    }
}

// The size of the largest cache is asked for where both sides are above 128, for 32f rows without
// gaps inside. The result is the same on all paths: past the cache, which takes heights that are a
// multiple of 4, with rows and columns left over from tiles of 16; from rows of 4,096 bytes.
TEST(Decision, TransposeAsksForTheCache) {
    constexpr struct {
        int height, width, cache, questions, apart = 0; // bytes from row to row of the source
    } cases[] = {
        {128, 400, 1 << 20, 0},     {300, 100, 1 << 20, 0},     {129, 129, 1 << 20, 1},
        {200, 200, 1 << 20, 1},     {400, 400, 1 << 20, 1},     {401, 401, 1 << 20, 1},
        {150, 272, 1000, 1},        {131, 144, 0, 1},           {132, 144, 1000, 1},
        {144, 135, 1000, 1},        {148, 141, 1000, 1},        {132, 137, 1 << 20, 1},
        {80, 64, 1 << 20, 0, 4096}, {90, 77, 1 << 20, 0, 4096}, {148, 141, 1 << 20, 1, 4096},
        {148, 141, 1000, 1, 4096},
    };
    for (const auto &c : cases)
        for (const char *name : {"zelmTranspose_m_32f", "zelmTranspose_m_64f"})
            for (const Edge edge : {Edge::first, Edge::last, Edge::odd}) {
                const Member &m = member(name);
                const int columns = c.apart == 0 ? c.width : c.apart / m.element();
                Problem problem(m, {c.height, columns, 1, 1},
                                {{packed, Edge::last}, {packed, edge}});
                for (std::size_t k = 0; k < problem.slots.size(); ++k)
                    if (m.parameters[k].name == "width")
                        problem.slots[k].integer = c.width;
                problem.fill(4);
                stub_core_cache(c.cache);
                EXPECT_EQ(problem.run(), 0);
                EXPECT_EQ(stub_core_cache_questions(), m.is_float ? c.questions : 0)
                    << problem.describe();
                int wrong = 0;
                const Placed &from = problem.operands[0], &to = problem.operands[1];
                from.for_each_element([&](int n, int i, int j) {
                    wrong += j < c.width ? from.bits(n, i, j) != to.bits(n, j, i)
                                         : !std::isnan(to.get(n, j, i));
                });
                EXPECT_EQ(wrong, 0) << problem.describe() << ", rows apart " << c.apart;
                EXPECT_EQ(problem.disturbed(), "") << problem.describe();
            }
}

// Scratch for threads is there unless a test says no.
bool scratch_is_short = false;

// The caller's buffer is used where one thread has all objects: on the serial path, and where there
// is no memory for the threads.
TEST(Decision, WhoseBufferIsUsed) {
    const auto with_buffers = those(members(), 24, [](const Member &m) {
        return m.is_array() && among(m.family, "Invert Det QRBackSubst");
    });
    for (const Member *m : with_buffers) {
        const bool qr = m->family == "QRBackSubst"; // of the last object alone, behind the groups
        const Sizes sizes =
            qr ? Sizes{9, 7, 1, 201} : Sizes{17, 17, 1, m->family == "Det" ? 851 : 81};
        Problem problem(*m, sizes, all_in(*m, packed));
        problem.fill(6);
        std::size_t buffer = 0;
        while (m->operands[buffer].letter != 'b')
            ++buffer;
        struct {
            int threads;
            bool is_short, uses_buffer;
        } const cases[] = {{1, false, true}, {4, false, false}, {4, true, true}};
        std::vector<std::byte> serial;
        for (const auto &[threads, is_short, uses_buffer] : cases) {
            problem.clear_destinations();
            stub_core_answers({threads});
            scratch_is_short = is_short;
            ASSERT_EQ(problem.run(), 0) << problem.describe();
            scratch_is_short = false;
            serial = serial.empty() ? problem.image() : serial;
            ASSERT_TRUE(problem.image() == serial) << problem.describe();
            ASSERT_EQ(problem.operands[buffer].bits(0, 0, 0) !=
                          ~std::uint64_t{0} >> (m->is_float ? 32 : 0),
                      uses_buffer)
                << problem.describe() << ", threads " << threads;
        }
    }
}

TEST(Decision, VersionRecordAsksForFeature128) {
    for (const int has : {0, 1, 0, 128}) {
        stub_core_feature(128, has);
        const ZelLibraryVersion &version = *zelmGetLibVersion();
        EXPECT_STREQ(version.libraryName, has ? "zelm SSE4.1/4.2 (y8)+" : "zelm SSE4.1/4.2 (y8)");
        EXPECT_STREQ(version.versionText, "7.1.1 (r37466)");
        EXPECT_STREQ(version.buildDate, "Sep 24 2012");
        EXPECT_EQ(std::memcmp(version.cpuCode, "y8\0\0", 4), 0);
        const int numbers[] = {version.majorVersion, version.minorVersion, version.updateNumber,
                               version.revision};
        EXPECT_TRUE(std::equal(numbers, numbers + 4, std::begin({7, 1, 1, 37466})));
    }
}

} // namespace

// In front of the runtime's.
extern "C" void *omp_alloc(std::size_t size, omp_allocator_handle_t allocator) {
    static const auto next = reinterpret_cast<void *(*)(std::size_t, omp_allocator_handle_t)>(
        dlsym(RTLD_NEXT, "omp_alloc"));
    return scratch_is_short ? nullptr : next(size, allocator);
}
