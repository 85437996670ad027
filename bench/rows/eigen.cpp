// Eigenproblems, beside iterative solvers.
#include "eigen_calls.hpp"
#include "rows.hpp"

namespace zelm::bench {
namespace {

struct EigenOrder {
    int order;
    Floors vectors, values; // times the best SSE4.2-built peer
};
constexpr EigenOrder symmetric_orders[] = {
    {3, {5.7, 3.2}, {5.7, 3.2}},
    {4, {6.9, 3.4}, {6.9, 3.4}},
    {6, {4.5, 2.3}, {4.5, 2.3}},
    {8, {2, 2}, {2, 2}},
};
constexpr EigenOrder general_orders[] = {
    {3, {2, 2}, {2, 2}},
    {4, {2, 2}, {2, 2}},
    {6, {2, 2}, {2, 2}},
};

template <class T>
void add_eigen(Rows &rows) {
    const auto add = [&](const char *work, BenchWork kind, int n, LibraryCall call, Floors floors,
                         const char *bound) {
        for (Data data : {Data::repeated, Data::fresh})
            rows.add<T>({.work = work,
                         .kind = kind,
                         .shape = order(n),
                         .library = call,
                         .data = data,
                         .floor = times_best_sse(floors.of<T>()),
                         .bound = bound});
    };
    for (const EigenOrder &o : symmetric_orders) {
        add("eigen sym", bench_symmetric, o.order, symmetric<T>, o.vectors, "roots and quotients");
        add("values sym", bench_symmetric_values, o.order, symmetric_values<T>, o.values,
            "roots and quotients");
    }
    for (const EigenOrder &o : general_orders) {
        add("eigen right", bench_right_vectors, o.order, right_vectors<T>, o.vectors, "latency");
        add("values", bench_general_values, o.order, general_values<T>, o.values, "latency");
    }
}

} // namespace

void add_eigen_rows(Rows &rows) {
    add_eigen<float>(rows);
    add_eigen<double>(rows);
}

} // namespace zelm::bench
