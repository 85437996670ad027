// QR decomposition, alone and with the solve of one system per matrix.
#include "rows.hpp"

namespace zelm::bench {
namespace {

template <class T>
void qr(const Problem &p) {
    must(BENCH_MEMBER(T, zelmQRDecomp_ma)(base<T>(p.a), p.a.object, p.a.row, p.a.element,
                                          static_cast<T *>(p.buffer), base<T>(p.c), p.c.object,
                                          p.c.row, p.c.element, p.columns, p.rows, p.count));
}

template <class T>
void qr_solve(const Problem &p) {
    const BenchOperand &f = p.factors;
    const auto buffer = static_cast<T *>(p.buffer);
    must(BENCH_MEMBER(T, zelmQRDecomp_ma)(base<T>(p.a), p.a.object, p.a.row, p.a.element, buffer,
                                          base<T>(f), f.object, f.row, f.element, p.columns, p.rows,
                                          p.count));
    must(BENCH_MEMBER(T, zelmQRBackSubst_mava)(
        base<T>(f), f.object, f.row, f.element, buffer, base<T>(p.b), p.b.object, p.b.element,
        base<T>(p.c), p.c.object, p.c.element, p.columns, p.rows, p.count));
}

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
