// QR decomposition, alone and with the solve of one system per matrix.
#include "rows.hpp"
#include "solver_calls.hpp"

namespace zelm::bench {
namespace {

struct Sizes {
    Shape shape;
    Floors floors;
};

// Times the best SSE4.2-built peer.
constexpr Sizes decompositions[] = {
    {order(4), {15, 8.5}}, {order(6), {10, 4.8}}, {{8, 4, 4}, {8.6, 4.1}}};

template <class T>
void add_qr(Rows &rows) {
    for (const Sizes &s : decompositions)
        rows.add<T>({.work = "QR",
                     .kind = bench_qr,
                     .shape = s.shape,
                     .library = qr<T>,
                     .floor = times_best_sse(s.floors.of<T>()),
                     .bound = "chains of sums"});
    for (const Sizes &s : decompositions)
        rows.add<T>({.work = "QR and solve",
                     .kind = bench_qr_solve,
                     .shape = s.shape,
                     .library = qr_solve<T>,
                     .floor = shown(best_sse_peer),
                     .bound = "chains of sums"});
}

} // namespace

void add_qr_rows(Rows &rows) {
    add_qr<float>(rows);
    add_qr<double>(rows);
}

} // namespace zelm::bench
