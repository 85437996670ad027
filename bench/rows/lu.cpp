// LU decomposition, alone and with the solve of one system per matrix.
#include "lu_calls.hpp"
#include "rows.hpp"

namespace zelm::bench {
namespace {

// Times the best SSE4.2-built peer.
constexpr Order decompositions[] = {
    {3, {6.4, 3.6}, "shuffles, divide"}, {4, {4.4, 3.0}, "shuffles, selects"},
    {5, {5.0, 3.2}, "selects"},          {6, {4.5, 3.1}, "selects"},
    {8, {2.3, 1.4}, "pivot search"},     {16, {2.0, 1.0}, "row updates"},
};
constexpr Order solutions[] = {
    {3, {6.4, 5.5}, "shuffles, divide"}, {4, {7.5, 4.5}, "shuffles, selects"},
    {5, {6.8, 5.0}, "selects"},          {6, {6.3, 3.7}, "selects"},
    {8, {1.6, 1.4}, "pivot search"},     {16, {1.3, 1.1}, "row updates"},
};
constexpr Order planar_decompositions[] = {
    {3, {10, 4.3}, "divide, selects"},
    {4, {6, 3.1}, "selects"},
    {6, {6, 2.9}, "selects, spills"},
};

template <class T>
void add_lu(Rows &rows) {
    for (const Order &o : decompositions)
        for (Data data : {Data::repeated, Data::fresh})
            rows.add<T>({.work = "LU",
                         .kind = bench_lu,
                         .shape = order(o.order),
                         .library = lu<T>,
                         .data = data,
                         .floor = times_best_sse(o.floors.of<T>()),
                         .bound = o.bound});
    for (const Order &o : solutions)
        for (Data data : {Data::repeated, Data::fresh})
            rows.add<T>({.work = "LU and solve",
                         .kind = bench_lu_solve,
                         .shape = order(o.order),
                         .library = lu_solve<T>,
                         .data = data,
                         .floor = times_best_sse(o.floors.of<T>()),
                         .bound = o.bound});
    for (const Order &o : planar_decompositions)
        for (Data data : {Data::repeated, Data::fresh})
            rows.add<T>({.work = "LU",
                         .kind = bench_lu,
                         .shape = order(o.order),
                         .library = lu<T>,
                         .memory = bench_planar,
                         .data = data,
                         .floor = times_best_sse(o.floors.of<T>()),
                         .bound = o.bound});
}

} // namespace

void add_lu_rows(Rows &rows) {
    add_lu<float>(rows);
    add_lu<double>(rows);
    add_descriptions<float>(rows, "LU", bench_lu, lu<float>, lu_pointer<float>, lu_layout<float>);
    add_descriptions<double>(rows, "LU", bench_lu, lu<double>, lu_pointer<double>,
                             lu_layout<double>);
}

} // namespace zelm::bench
