// What the number of threads must not change, with the real companion library.

#include "support/problem.hpp"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <gtest/gtest.h>
#include <immintrin.h>
#include <memory>
#include <numeric>
#include <omp.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <zelcore.h>

using namespace zelm_test;

namespace {

// The team that the runtime grants when this many threads are requested.
int granted(int threads) {
    int team = 1;
#pragma omp parallel num_threads(threads)
#pragma omp single
    team = omp_get_num_threads();
    return team;
}

// The thread that takes object n: the first count % team threads take one object more.
int thread_of(int n, int team, int count) {
    const int q = count / team, r = count % team;
    return n < (q + 1) * r ? n / (q + 1) : r + (n - (q + 1) * r) / q;
}

// The families that can fail, the status, and whether a failing matrix leaves a trace of itself.
constexpr struct {
    const char *family;
    int status;
    bool leaves_a_trace;
} can_fail[] = {{"LUDecomp", -195, true},
                {"Invert", -195, false},
                {"CholeskyDecomp", -179, false},
                {"QRDecomp", -10, true}};

// Every thread stops at its own first failing matrix. Which objects have been worked on shows the
// split: the outputs of an untouched one stay as they were.
void check_failures(const Member &m, int threads, int count, const std::vector<int> &failing,
                    int failure, bool leaves_a_trace) {
    Problem problem(m, {6, 6, 1, count}, all_in(m, count % 4)); // no objects that overlap
    problem.fill(3);
    for (const int n : failing)
        for (int i = 0; i < 6; ++i)
            problem.operands[0].put(n, i, 0, 0);
    const int team = count < threads ? 1 : granted(threads);
    zelSetNumThreads(threads);
    const int status = problem.run();
    EXPECT_EQ(status, failing.empty() ? 0 : failure) << problem.describe();
    EXPECT_EQ(problem.disturbed(), "") << problem.describe();
    std::vector<bool> stopped(static_cast<std::size_t>(team), false);
    for (int n = 0; n < count; ++n) {
        auto has_stopped = stopped[static_cast<std::size_t>(thread_of(n, team, count))];
        const bool fails = std::count(failing.begin(), failing.end(), n) != 0;
        const bool touched = m.family == "LUDecomp"
                                 ? problem.operands[1].get(n, 0, 0) != -1
                                 : !std::isnan(problem.destination().get(n, 5, 0));
        const bool complete =
            m.family == "LUDecomp" ? !std::isnan(problem.destination().get(n, 5, 5)) : touched;
        ASSERT_EQ(touched, !has_stopped && (!fails || leaves_a_trace))
            << problem.describe() << " team " << team << " object " << n;
        ASSERT_TRUE(m.family == "QRDecomp" || complete == (!has_stopped && !fails))
            << problem.describe() << " object " << n;
        has_stopped = has_stopped || fails;
    }
}

TEST(Threads, EachStopsAtItsFirstFailure) {
    for (const auto &each : can_fail) {
        const auto arrays = those(
            members(), 6, [&](const Member &m) { return m.family == each.family && m.is_array(); });
        for (const Member *m : arrays)
            for (const int threads : {1, 2, 3, 4, 7})
                for (const int count : {228, 240, 241, 243}) {
                    std::vector<int> all(static_cast<std::size_t>(count));
                    std::iota(all.begin(), all.end(), 0);
                    const std::vector<int> none, some = {3, 7, 15, 130, count - 2},
                                                 last = {count - 1};
                    for (const auto &failing : {none, all, some, last})
                        check_failures(*m, threads, count, failing, each.status,
                                       each.leaves_a_trace);
                }
    }
}

// A control word of the floating-point unit: round upward, take and give subnormals as zero.
constexpr unsigned upward_and_flush = 0xC040 | 0x1F80, status_bits = 0x3F;

std::vector<std::byte> run_with(Problem &problem, int threads, unsigned control) {
    problem.clear_destinations();
    zelSetNumThreads(threads);
    granted(threads); // a thread keeps the mode in which it is created: let that be the usual one
    const unsigned before = _mm_getcsr();
    _mm_setcsr(control);
    const int status = problem.run();
    const unsigned after = _mm_getcsr();
    _mm_setcsr(before);
    EXPECT_EQ(status, 0) << problem.describe();
    EXPECT_EQ(after & ~status_bits, control & ~status_bits) << problem.describe();
    return problem.image();
}

TEST(Threads, GiveTheBitsOfOneInEveryFloatingPointMode) {
    int step = 0;
    const auto arrays = those(members(), 529, [](const Member &m) {
        return m.is_array() && !among(m.family, "Copy Extract LoadIdentity Transpose");
    });
    for (const Member *member : arrays) {
        const Member &m = *member;
        Problem problem(m, parallel_sizes(m), mixed(m, ++step));
        problem.fill(4);
        // Results of sums and products become subnormal. Solvers fail where tiny, squares vanish.
        const bool keeps = m.is_square() || m.family.starts_with("QR") ||
                           among(m.family, "AffineTransform3DH L2Norm FrobNorm Gaxpy");
        const bool product = among(m.family, "Mul DotProduct CrossProduct");
        const std::size_t tiny = keeps ? 0 : product ? 1 : 2;
        for (std::size_t k = 0; k < tiny; ++k) {
            Placed &operand = problem.operands[k];
            operand.for_each_element([&](int n, int i, int j) {
                operand.put(n, i, j, std::ldexp(operand.get(n, i, j), m.is_float ? -127 : -1023));
            });
        }
        const unsigned usual = _mm_getcsr();
        const auto serial = run_with(problem, 1, usual);
        const auto serial_upward = run_with(problem, 1, upward_and_flush);
        ASSERT_FALSE(serial == serial_upward) << problem.describe() << ": the mode must matter";
        for (const int threads : {2, 3, 4, 7}) {
            ASSERT_TRUE(run_with(problem, threads, upward_and_flush) == serial_upward)
                << problem.describe() << ", threads " << threads;
            ASSERT_TRUE(run_with(problem, threads, usual) == serial)
                << problem.describe() << ", threads " << threads;
        }
    }
}

// The floating-point modes of the threads of a team, which a call in another mode must leave.
TEST(Threads, WorkersGetTheirFloatingPointModeBack) {
    constexpr int threads = 4;
    constexpr unsigned toward_zero = 0x6000;
    const auto modes = [&] {
        std::vector<unsigned> of(threads);
#pragma omp parallel num_threads(threads)
        of[std::size_t(omp_get_thread_num())] = _mm_getcsr() & ~status_bits;
        return of;
    };
#pragma omp parallel num_threads(threads)
    _mm_setcsr(_mm_getcsr() | (omp_get_thread_num() == 2 ? toward_zero : 0));
    const std::vector<unsigned> before = modes();
    const Member &m = member("zelmAdd_mama_32f");
    Problem problem(m, parallel_sizes(m), all_in(m, packed));
    problem.fill(6);
    run_with(problem, threads, upward_and_flush);
    EXPECT_EQ(modes(), before);
#pragma omp parallel num_threads(threads)
    _mm_setcsr(_mm_getcsr() & ~toward_zero);
}

// Parallel calls in memory of their own, with their serial results.
struct Call {
    std::unique_ptr<Problem> problem;
    std::vector<std::byte> expected;
};
using Calls = std::vector<Call>;

// One set of calls for each caller; from then on every call asks for so many threads.
std::vector<Calls> prepare(int callers, int threads) {
    zelSetNumThreads(1);
    std::vector<Calls> sets(static_cast<std::size_t>(callers));
    for (Calls &calls : sets)
        for (const char *name :
             {"zelmAdd_mama_32f", "zelmSub_vaca_64f_P", "zelmMul_mam_32f_L", "zelmMul_tava_64f",
              "zelmLUDecomp_ma_32f", "zelmLUBackSubst_mava_64f_L", "zelmDet_ma_64f",
              "zelmInvert_ma_32f_P", "zelmQRBackSubst_mava_32f", "zelmEigenValuesVectorsSym_ma_32f",
              "zelmEigenValuesVectors_ma_64f_P"}) {
            const Member &m = member(name);
            auto problem = std::make_unique<Problem>(m, parallel_sizes(m), mixed(m, 5));
            problem->fill(5);
            problem->run();
            std::vector<std::byte> expected = problem->image();
            calls.push_back({std::move(problem), std::move(expected)});
        }
    zelSetNumThreads(threads);
    return sets;
}

int failures(Calls &calls) {
    int wrong = 0;
    for (Call &call : calls) {
        call.problem->clear_destinations();
        wrong += call.problem->run() != 0 || call.problem->image() != call.expected;
    }
    return wrong;
}

TEST(Threads, InsideAParallelRegion) {
    const int levels = omp_get_max_active_levels();
    for (const int active : {1, 2}) {
        omp_set_max_active_levels(active);
        std::vector<Calls> sets = prepare(3, 4);
        int wrong = 0;
#pragma omp parallel for num_threads(3) schedule(static, 1) reduction(+ : wrong)
        for (std::size_t t = 0; t < 3; ++t)
            wrong += failures(sets[t]);
        EXPECT_EQ(wrong, 0) << "active levels " << active;
    }
    omp_set_max_active_levels(levels);
}

TEST(Threads, FewerGrantedThanAskedFor) {
    omp_set_dynamic(1);
    std::vector<Calls> sets = prepare(1, 7);
    EXPECT_EQ(failures(sets[0]), 0) << "granted " << granted(7);
    omp_set_dynamic(0);
}

TEST(Threads, ThirtyTwoCallersAtOnce) {
    std::vector<Calls> sets = prepare(32, 3);
    std::atomic<int> wrong{0};
    std::vector<std::thread> callers;
    for (Calls &own : sets)
        callers.emplace_back([&own, &wrong] { wrong += failures(own) + failures(own); });
    for (std::thread &caller : callers)
        caller.join();
    EXPECT_EQ(wrong, 0);
}

TEST(Threads, AfterAFork) {
    std::vector<Calls> sets = prepare(1, 4);
    EXPECT_EQ(failures(sets[0]), 0); // the parent's threads exist now
    const pid_t child = fork();
    if (child == 0) {
        alarm(60);
        _exit(failures(sets[0]));
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "status " << status;
    EXPECT_EQ(failures(sets[0]), 0);
}

} // namespace
