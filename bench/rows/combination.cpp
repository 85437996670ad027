// Weighted sums of vectors, and products with one matrix to which a vector is added.
#include "rows.hpp"

namespace zelm::bench {
namespace {

template <class T>
void saxpy(const Problem &p) {
    must(BENCH_MEMBER(T, zelmSaxpy_vava)(
        base<T>(p.a), p.a.object, p.a.element, base<T>(p.b), p.b.object, p.b.element, base<T>(p.c),
        p.c.object, p.c.element, p.columns, p.count, static_cast<T>(p.scale1)));
}
template <class T>
void lcomb(const Problem &p) {
    must(BENCH_MEMBER(T, zelmLComb_vava)(base<T>(p.a), p.a.object, p.a.element, base<T>(p.b),
                                         p.b.object, p.b.element, base<T>(p.c), p.c.object,
                                         p.c.element, p.columns, p.count, static_cast<T>(p.scale1),
                                         static_cast<T>(p.scale2)));
}
template <class T>
void gaxpy(const Problem &p) {
    must(BENCH_MEMBER(T, zelmGaxpy_mva)(base<T>(p.a), p.a.row, p.a.element, p.inner, p.rows,
                                        base<T>(p.b), p.b.object, p.b.element, p.inner,
                                        base<T>(p.d), p.d.object, p.d.element, p.rows, base<T>(p.c),
                                        p.c.object, p.c.element, p.count));
}
template <class T>
void gaxpy_one(const Problem &p) {
    must(BENCH_MEMBER(T, zelmGaxpy_mvav)(base<T>(p.a), p.a.row, p.a.element, p.inner, p.rows,
                                         base<T>(p.b), p.b.object, p.b.element, p.inner,
                                         base<T>(p.d), p.d.element, p.rows, base<T>(p.c),
                                         p.c.object, p.c.element, p.count));
}

template <class T>
void add_combinations(Rows &rows) {
    for (int n : {3, 4}) {
        rows.add<T>({.work = "Saxpy vava",
                     .kind = bench_saxpy,
                     .shape = {1, 0, n},
                     .library = saxpy<T>,
                     .floor = times_best_sse(1),
                     .bound = "stores"});
        rows.add<T>({.work = "LComb vava",
                     .kind = bench_lcomb,
                     .shape = {1, 0, n},
                     .library = lcomb<T>,
                     .floor = times_best_sse(1),
                     .bound = "stores"});
    }
    for (int n : {3, 4}) {
        const Floor floor = n == 4 ? times_best_sse(1) : shown(best_sse_peer);
        rows.add<T>({.work = "Gaxpy mva",
                     .kind = bench_gaxpy,
                     .shape = {n, n, 1},
                     .library = gaxpy<T>,
                     .floor = floor,
                     .bound = "multiplies"});
        rows.add<T>({.work = "Gaxpy mvav",
                     .kind = bench_gaxpy_one,
                     .shape = {n, n, 1},
                     .library = gaxpy_one<T>,
                     .floor = floor,
                     .bound = "multiplies"});
    }
}

} // namespace

void add_combination_rows(Rows &rows) {
    add_combinations<float>(rows);
    add_combinations<double>(rows);
}

} // namespace zelm::bench
