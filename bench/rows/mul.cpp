// Products of matrices, and of matrices and vectors.
#include "mul_calls.hpp"
#include "rows.hpp"

namespace zelm::bench {
namespace {

// Times the best SSE4.2-built peer.
constexpr Order products[] = {
    {3, {1.0, 1.0}, "shuffles"},    {4, {1.0, 0.95}, "multiplies, stores"},
    {5, {1.2, 1.1}, "shuffles"},    {6, {1.35, 1.0}, "multiplies"},
    {8, {1.25, 1.1}, "multiplies"},
};
constexpr Order vector_products[] = {
    {3, {1.2, 1.0}, "shuffles"},
    {4, {1.0, 1.2}, "shuffles"},
    {6, {1.0, 1.0}, "loads"},
};

template <class T>
void add_products(Rows &rows) {
    for (const Order &o : products)
        rows.add<T>({.work = "Mul mama",
                     .kind = bench_mul,
                     .shape = order(o.order),
                     .library = mul<T>,
                     .floor = times_best_sse(o.floors.of<T>()),
                     .bound = o.bound});
    for (int n : {3, 4, 6}) {
        rows.add<T>({.work = "Mul mam",
                     .kind = bench_mul_mam,
                     .shape = order(n),
                     .library = mul_mam<T>,
                     .bound = "multiplies, stores"});
        rows.add<T>({.work = "Mul mma",
                     .kind = bench_mul_mma,
                     .shape = order(n),
                     .library = mul_mma<T>,
                     .bound = "multiplies, stores"});
    }
    for (const Order &o : vector_products)
        rows.add<T>({.work = "Mul mava",
                     .kind = bench_mul_vector,
                     .shape = {o.order, o.order, 1},
                     .library = mul_vector<T>,
                     .floor = times_best_sse(o.floors.of<T>()),
                     .bound = o.bound});
    for (int n : {3, 4, 6})
        rows.add<T>({.work = "Mul mava",
                     .kind = bench_mul_vector,
                     .shape = {n, n, 1},
                     .library = mul_vector<T>,
                     .memory = bench_columns,
                     .bound = "loads"});
}

} // namespace

void add_mul_rows(Rows &rows) {
    add_products<float>(rows);
    add_products<double>(rows);
    add_descriptions<float>(rows, "Mul mama", bench_mul, mul<float>, mul_pointer<float>,
                            mul_layout<float>);
    add_descriptions<double>(rows, "Mul mama", bench_mul, mul<double>, mul_pointer<double>,
                             mul_layout<double>);
}

} // namespace zelm::bench
