// Sums of matrices and of vectors: memory is all that counts.
#include "rows.hpp"
#include "sum_calls.hpp"

namespace zelm::bench {
namespace {

template <class T>
ArrayRow matrices(int n, BenchMemory memory, int count, Floor floor, const char *bound) {
    return {.work = "Add mama",
            .kind = bench_add,
            .shape = {n, 0, n},
            .library = add<T>,
            .memory = memory,
            .count = count,
            .floor = floor,
            .bound = bound};
}

template <class T>
void add_sums(Rows &rows) {
    for (int n : {3, 4, 6})
        rows.add<T>(matrices<T>(n, bench_packed, 1000, times_best_sse(1), "stores"));
    for (int length : {3, 6})
        rows.add<T>({.work = "Add vava",
                     .kind = bench_add,
                     .shape = {1, 0, length},
                     .library = add_vectors<T>,
                     .floor = times_best_sse(1),
                     .bound = "stores"});
    for (int n : {3, 4, 6})
        rows.add<T>(matrices<T>(n, bench_planar, 1000, times_best_sse(1), "stores"));

    // "stores" does the least number of stores that the memory allows, and nothing else. That
    // bounds what lies in the first cache; further out the cache lines count as well.
    constexpr int l1_elements = 24 * 1024 / 3 / static_cast<int>(sizeof(T));
    const Floor stores = shown("stores");
    for (int n : {3, 4, 6})
        for (int count : {l1_elements / (n * (n + 1)), 1000})
            rows.add<T>(matrices<T>(n, bench_padded, count, stores, "stores of each row"));
    for (int n : {3, 4, 6})
        for (int count : {l1_elements / (n * n * 2), 1000})
            rows.add<T>(matrices<T>(n, bench_gaps, count, stores, "a store per element"));

    for (int n : {3, 4})
        rows.add<T>(matrices<T>(n, bench_packed, 1'000'000, at_least(0.9, "flat loop"),
                                "memory bandwidth"));
}

} // namespace

void add_sum_rows(Rows &rows) {
    add_sums<float>(rows);
    add_sums<double>(rows);
}

} // namespace zelm::bench
