// Inverses and determinants.
#include "rows.hpp"
#include "solver_calls.hpp"

namespace zelm::bench {
namespace {

// Times the best SSE4.2-built peer.
constexpr Order inverses[] = {
    {3, {1.9, 1.5}, "shuffles"},
    {4, {1.3, 1.2}, "multiplies, shuffles"},
    {5, {13, 7}, "selects, spills"},
    {6, {10, 5}, "selects, spills"},
};
// In planar memory the elements are apart: true divisions, and guards.
constexpr Order planar_inverses[] = {{3, {3.4, 1.4}, "loads"}, {4, {2.5, 1.1}, "multiplies"}};
constexpr Order determinants[] = {
    {3, {1.0, 1.0}, "shuffles"},
    {4, {1.0, 1.0}, "shuffles"},
    {6, {5, 5}, "shuffles"},
    {8, {1.8, 1.8}, "pivot search"},
};

template <class T>
void add_inverses(Rows &rows) {
    const auto add = [&](const char *work, BenchWork kind, int n, LibraryCall call,
                         BenchMemory memory, Floor floor, const char *bound) {
        rows.add<T>({.work = work,
                     .kind = kind,
                     .shape = order(n),
                     .library = call,
                     .memory = memory,
                     .floor = floor,
                     .bound = bound});
    };
    for (const Order &o : inverses)
        add("inverse", bench_invert, o.order, invert<T>, bench_packed,
            times_best_sse(o.floors.of<T>()), o.bound);
    for (int n : {8, 16})
        add("inverse", bench_invert, n, invert<T>, bench_packed, shown(best_sse_peer),
            "loads and stores");
    for (const Order &o : planar_inverses)
        add("inverse", bench_invert, o.order, invert<T>, bench_planar,
            times_best_sse(o.floors.of<T>()), o.bound);
    for (const Order &o : determinants)
        add("determinant", bench_det, o.order, determinant<T>, bench_packed,
            times_best_sse(o.floors.of<T>()), o.bound);
}

} // namespace

void add_invert_rows(Rows &rows) {
    add_inverses<float>(rows);
    add_inverses<double>(rows);
}

} // namespace zelm::bench
