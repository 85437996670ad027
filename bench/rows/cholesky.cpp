// Cholesky decomposition, alone and with the solve of one system per matrix.
#include "rows.hpp"
#include "solver_calls.hpp"

namespace zelm::bench {
namespace {

// Times the best SSE4.2-built peer.
constexpr Order decompositions[] = {
    {3, {3.0, 1.9}, "stores, roots"}, {4, {4.0, 2.1}, "stores, roots"},
    {5, {4.6, 2.7}, "stores, roots"}, {6, {5.4, 3.4}, "stores, roots"},
    {8, {3.6, 2.3}, "loads"},         {16, {3.0, 1.8}, "loads"},
};
constexpr Order solutions[] = {
    {3, {6.2, 4.4}, "loads, roots"}, {4, {8.7, 4.8}, "loads, roots"}, {5, {8.6, 4.4}, "loads"},
    {6, {8.6, 4.0}, "loads"},        {8, {2.0, 2.0}, "loads"},        {16, {1.6, 1.6}, "loads"},
};
constexpr Order planar_decompositions[] = {{3, {5.0, 1.7}, "roots"}, {4, {4.7, 1.9}, "roots"}};

template <class T>
void add_cholesky(Rows &rows) {
    const auto add = [&](const char *work, BenchWork kind, const Order &o, LibraryCall call,
                         BenchMemory memory) {
        rows.add<T>({.work = work,
                     .kind = kind,
                     .shape = order(o.order),
                     .library = call,
                     .memory = memory,
                     .floor = times_best_sse(o.floors.of<T>()),
                     .bound = o.bound});
    };
    for (const Order &o : decompositions)
        add("Cholesky", bench_cholesky, o, cholesky<T>, bench_packed);
    for (const Order &o : solutions)
        add("Cholesky and solve", bench_cholesky_solve, o, cholesky_solve<T>, bench_packed);
    for (const Order &o : planar_decompositions)
        add("Cholesky", bench_cholesky, o, cholesky<T>, bench_planar);
}

} // namespace

void add_cholesky_rows(Rows &rows) {
    add_cholesky<float>(rows);
    add_cholesky<double>(rows);
}

} // namespace zelm::bench
