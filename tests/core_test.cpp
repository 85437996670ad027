#include "zelcore.h"

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <gtest/gtest.h>
#include <omp.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

// What a fresh process with these settings in its environment is told.
int threads_of_process(const std::string &settings) {
    char path[4096];
    const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
    if (length <= 0)
        return -1;
    const std::string program(path, static_cast<std::size_t>(length));
    const std::string command = "unset ZEL_NUM_THREADS; OMP_NUM_THREADS=5 OMP_DYNAMIC=false " +
                                settings + " '" + program + "' --print-threads";
    FILE *pipe = popen(command.c_str(), "r");
    int threads = -1;
    if (pipe == nullptr || std::fscanf(pipe, "%d", &threads) != 1)
        threads = -1;
    return pipe != nullptr && pclose(pipe) == 0 ? threads : -1;
}

// What a forked child is told when it does this first.
template <typename Action>
int threads_of_fork(Action action) {
    const pid_t child = fork();
    if (child == 0) {
        action();
        _exit(ownGetNumThreads());
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

struct Threads : testing::Test {
    ~Threads() override { zelSetNumThreads(0); }
};

TEST_F(Threads, Environment) {
    const struct {
        const char *settings;
        int expected;
    } cases[] = {
        {"", 5},
        {"OMP_NUM_THREADS=1", 1},
        {"ZEL_NUM_THREADS=3", 3},
        {"ZEL_NUM_THREADS=1", 1},
        {"ZEL_NUM_THREADS=' 7 '", 7},
        {"ZEL_NUM_THREADS=2147483647", INT_MAX},
        {"ZEL_NUM_THREADS=2147483648", 5},
        {"ZEL_NUM_THREADS=4294967298", 5},
        {"ZEL_NUM_THREADS=99999999999999999999", 5},
        {"ZEL_NUM_THREADS=0", 5},
        {"ZEL_NUM_THREADS=-2", 5},
        {"ZEL_NUM_THREADS=", 5},
        {"ZEL_NUM_THREADS=' '", 5},
        {"ZEL_NUM_THREADS=many", 5},
        {"ZEL_NUM_THREADS=3x", 5},
        {"ZEL_NUM_THREADS=2.5", 5},
    };
    for (const auto &c : cases)
        EXPECT_EQ(threads_of_process(c.settings), c.expected) << c.settings;
}

TEST_F(Threads, SetterOverridesAndIsWithdrawn) {
    const int before = ownGetNumThreads();
    EXPECT_GE(before, 1);
    for (const int n : {1, before + 3, INT_MAX}) {
        EXPECT_EQ(zelSetNumThreads(n), 0);
        EXPECT_EQ(ownGetNumThreads(), n);
        for (const int bad : {-1, INT_MIN}) {
            EXPECT_EQ(zelSetNumThreads(bad), -6);
            EXPECT_EQ(ownGetNumThreads(), n);
        }
    }
    EXPECT_EQ(zelSetNumThreads(0), 0);
    EXPECT_EQ(ownGetNumThreads(), before);
}

TEST_F(Threads, FollowTheOpenMpSettingOfTheCaller) {
    if (std::getenv("ZEL_NUM_THREADS") != nullptr)
        GTEST_SKIP() << "ZEL_NUM_THREADS is set";
    const int before = omp_get_max_threads();
    omp_set_num_threads(before + 2);
    EXPECT_EQ(ownGetNumThreads(), before + 2);
    omp_set_num_threads(before);
}

TEST_F(Threads, ForkedChildHasOne) {
    zelSetNumThreads(6);
    EXPECT_EQ(threads_of_fork([] {}), 1);
    EXPECT_EQ(threads_of_fork([] { zelSetNumThreads(4); }), 1);
    EXPECT_EQ(threads_of_fork([] { zelSetNumThreads(0); }), 1);
    EXPECT_EQ(ownGetNumThreads(), 6) << "the parent is not concerned";
}

// A data race here is for the thread sanitizer to find.
TEST_F(Threads, SetterAndQuestionFromSeveralThreads) {
    zelSetNumThreads(2);
    std::thread writer([] {
        for (int i = 0; i < 1000; ++i)
            zelSetNumThreads(2 + i % 2);
    });
    for (int i = 0; i < 1000; ++i) {
        const int n = ownGetNumThreads();
        EXPECT_TRUE(n == 2 || n == 3) << n;
    }
    writer.join();
}

TEST(Cache, LargestIsThatOfTheSystem) {
    const std::string folder = "/sys/devices/system/cpu/cpu0/cache/index";
    long long expected = 0;
    for (int index = 0; index < 10; ++index) {
        std::string type;
        long long size = 0;
        char unit = 0;
        std::ifstream(folder + std::to_string(index) + "/type") >> type;
        std::ifstream(folder + std::to_string(index) + "/size") >> size >> unit;
        size *= unit == 'K' ? 1024 : unit == 'M' ? 1024 * 1024 : 1;
        if (type != "Instruction" && size > expected)
            expected = size;
    }
    int size = -1;
    EXPECT_EQ(zelGetMaxCacheSizeB(nullptr), -8);
    EXPECT_EQ(zelGetMaxCacheSizeB(&size), 0);
    if (expected == 0)
        GTEST_SKIP() << "the system does not tell cache sizes";
    EXPECT_EQ(size, expected < INT_MAX ? expected : INT_MAX);
}

TEST(Features, AreThoseTheCompilerFinds) {
    const struct {
        int code;
        int expected;
    } cases[] = {
        {1, __builtin_cpu_supports("mmx")},     {2, __builtin_cpu_supports("sse")},
        {4, __builtin_cpu_supports("sse2")},    {8, __builtin_cpu_supports("sse3")},
        {16, __builtin_cpu_supports("ssse3")},  {32, __builtin_cpu_supports("popcnt")},
        {64, __builtin_cpu_supports("sse4.1")}, {128, __builtin_cpu_supports("sse4.2")},
        {256, __builtin_cpu_supports("avx")},   {512, __builtin_cpu_supports("fma")},
        {1024, __builtin_cpu_supports("avx2")}, {2048, __builtin_cpu_supports("avx512f")},
    };
    ZelCpuFeatures enabled = 0;
    for (const auto &c : cases) {
        EXPECT_EQ(ownGetFeature(c.code) != 0, c.expected != 0) << c.code;
        enabled |= c.expected != 0 ? static_cast<unsigned>(c.code) : 0u;
    }
    ZelCpuFeatures present = 0;
    EXPECT_EQ(zelGetEnabledCpuFeatures(), enabled);
    EXPECT_EQ(zelGetCpuFeatures(&present), 0);
    EXPECT_EQ(present & enabled, enabled);
    EXPECT_EQ(zelGetCpuFeatures(nullptr), -8);

    EXPECT_EQ(ownGetFeature(0), 0);
    EXPECT_NE(ownGetFeature(2 + 4), 0);
    for (const int unlisted : {4096, 1 << 30, INT_MIN, -1}) {
        EXPECT_EQ(ownGetFeature(unlisted), 0);
        EXPECT_EQ(ownGetFeature(unlisted | 2), 0);
    }
}

} // namespace

int main(int argc, char **argv) {
    if (argc == 2 && std::strcmp(argv[1], "--print-threads") == 0) {
        std::printf("%d\n", ownGetNumThreads());
        return 0;
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
