#include "zelcore.h"

#include <atomic>
#include <climits>
#include <cpuid.h>
#include <cstdint>
#include <cstdlib>
#include <omp.h>
#include <pthread.h>

namespace {

constexpr int ok = 0;
constexpr int bad_size = -6;
constexpr int null_pointer = -8;

// Written when the library is loaded, before anyone can ask, and not again.
int environment_threads = 0; // 0: not given
ZelCpuFeatures cpu_features = 0;
ZelCpuFeatures enabled_features = 0;
int largest_cache = 0;

constinit std::atomic<int> chosen_threads{0}; // 0: not set
constinit std::atomic<bool> is_forked_child{false};

struct Registers {
    unsigned eax = 0, ebx = 0, ecx = 0, edx = 0;
};

// All zero where the processor does not know the leaf.
Registers cpuid(unsigned leaf, unsigned subleaf = 0) {
    Registers r;
    __get_cpuid_count(leaf, subleaf, &r.eax, &r.ebx, &r.ecx, &r.edx);
    return r;
}

// The register states that the operating system saves, XCR0.
std::uint64_t saved_states() {
    constexpr unsigned osxsave = 1u << 27;
    if ((cpuid(1).ecx & osxsave) == 0)
        return 0;
    std::uint32_t low, high;
    __asm__ volatile("xgetbv" : "=a"(low), "=d"(high) : "c"(0));
    return std::uint64_t{high} << 32 | low;
}

void find_features() {
    constexpr std::uint64_t ymm_states = 0x06; // XMM, upper halves of YMM
    constexpr std::uint64_t zmm_states = 0xe6; // the same, mask registers, ZMM in two parts
    const Registers basic = cpuid(1), extended = cpuid(7);
    const struct {
        unsigned word;
        int bit;
        int feature;
        std::uint64_t needed_states;
    } table[] = {
        {basic.edx, 23, zelCpuMmx, 0},
        {basic.edx, 25, zelCpuSse, 0},
        {basic.edx, 26, zelCpuSse2, 0},
        {basic.ecx, 0, zelCpuSse3, 0},
        {basic.ecx, 9, zelCpuSsse3, 0},
        {basic.ecx, 23, zelCpuPopcnt, 0},
        {basic.ecx, 19, zelCpuSse41, 0},
        {basic.ecx, 20, zelCpuSse42, 0},
        {basic.ecx, 28, zelCpuAvx, ymm_states},
        {basic.ecx, 12, zelCpuFma, ymm_states},
        {extended.ebx, 5, zelCpuAvx2, ymm_states},
        {extended.ebx, 16, zelCpuAvx512f, zmm_states},
    };
    const std::uint64_t saved = saved_states();
    for (const auto &row : table) {
        if ((row.word >> row.bit & 1) == 0)
            continue;
        const auto feature = static_cast<ZelCpuFeatures>(row.feature);
        cpu_features |= feature;
        if ((saved & row.needed_states) == row.needed_states)
            enabled_features |= feature;
    }
}

// The largest cache among the subleaves of a leaf that describes one cache each; 0 if it has none.
std::uint64_t largest_described_cache(unsigned leaf) {
    enum { none = 0, data = 1, unified = 3 };
    std::uint64_t largest = 0;
    for (unsigned subleaf = 0; subleaf < 32; ++subleaf) {
        const Registers r = cpuid(leaf, subleaf);
        const unsigned type = r.eax & 0x1f;
        if (type == none)
            break;
        if (type != data && type != unified)
            continue;
        const std::uint64_t ways = (r.ebx >> 22) + 1, partitions = (r.ebx >> 12 & 0x3ff) + 1,
                            line = (r.ebx & 0xfff) + 1, sets = std::uint64_t{r.ecx} + 1;
        const std::uint64_t size = ways * partitions * line * sets;
        largest = size > largest ? size : largest;
    }
    return largest;
}

void find_largest_cache() {
    constexpr unsigned topology_extensions = 1u << 22;
    std::uint64_t size = 0;
    if (cpuid(0x80000001).ecx & topology_extensions)
        size = largest_described_cache(0x8000001d);
    if (size == 0)
        size = largest_described_cache(4);
    if (size == 0) { // older processors tell the size of each level
        const Registers first = cpuid(0x80000005), others = cpuid(0x80000006);
        const std::uint64_t levels[] = {
            std::uint64_t{first.ecx >> 24} << 10,  // KiB
            std::uint64_t{others.ecx >> 16} << 10, // KiB
            std::uint64_t{others.edx >> 18} << 19, // 512 KiB
        };
        for (const std::uint64_t level : levels)
            size = level > size ? level : size;
    }
    largest_cache = size < INT_MAX ? static_cast<int>(size) : INT_MAX;
}

void read_environment() {
    const char *text = std::getenv("ZEL_NUM_THREADS");
    if (text == nullptr)
        return;
    char *end = nullptr; // a number beyond long is returned as its limit, which is out of range
    const long n = std::strtol(text, &end, 10);
    while (*end == ' ' || *end == '\t')
        ++end;
    if (*end == '\0' && n >= 1 && n <= INT_MAX)
        environment_threads = static_cast<int>(n);
}

void after_fork_in_child() { is_forked_child.store(true, std::memory_order_relaxed); }

__attribute__((constructor)) void on_load() {
    find_features();
    find_largest_cache();
    read_environment();
    pthread_atfork(nullptr, nullptr, after_fork_in_child);
}

} // namespace

int ownGetNumThreads(void) {
    if (is_forked_child.load(std::memory_order_relaxed))
        return 1;
    if (const int n = chosen_threads.load(std::memory_order_relaxed); n > 0)
        return n;
    if (environment_threads > 0)
        return environment_threads;
    const int n = omp_get_max_threads();
    return n > 1 ? n : 1;
}

int zelSetNumThreads(int n) {
    if (n < 0)
        return bad_size;
    chosen_threads.store(n, std::memory_order_relaxed);
    return ok;
}

int ownGetFeature(int code) {
    const ZelCpuFeatures wanted = static_cast<unsigned>(code);
    return wanted != 0 && (enabled_features & wanted) == wanted;
}

int zelGetCpuFeatures(ZelCpuFeatures *mask) {
    if (mask == nullptr)
        return null_pointer;
    *mask = cpu_features;
    return ok;
}

ZelCpuFeatures zelGetEnabledCpuFeatures(void) { return enabled_features; }

int zelGetMaxCacheSizeB(int *sizeB) {
    if (sizeB == nullptr)
        return null_pointer;
    *sizeB = largest_cache;
    return ok;
}
