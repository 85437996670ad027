// Products of vectors and norms.
#include "rows.hpp"

namespace zelm::bench {
namespace {

template <class T>
void dot(const Problem &p) {
    must(BENCH_MEMBER(T, zelmDotProduct_vava)(base<T>(p.a), p.a.object, p.a.element, base<T>(p.b),
                                              p.b.object, p.b.element, base<T>(p.c), p.columns,
                                              p.count));
}
template <class T>
void cross(const Problem &p) {
    must(BENCH_MEMBER(T, zelmCrossProduct_vava)(base<T>(p.a), p.a.object, p.a.element, base<T>(p.b),
                                                p.b.object, p.b.element, base<T>(p.c), p.c.object,
                                                p.c.element, p.count));
}
template <class T>
void length(const Problem &p) {
    must(BENCH_MEMBER(T, zelmL2Norm_va)(base<T>(p.a), p.a.object, p.a.element, base<T>(p.c),
                                        p.columns, p.count));
}
template <class T>
void frobenius(const Problem &p) {
    must(BENCH_MEMBER(T, zelmFrobNorm_ma)(base<T>(p.a), p.a.object, p.a.row, p.a.element, p.columns,
                                          p.rows, base<T>(p.c), p.count));
}

// The floors are those of float; in double they are shown.
template <class T>
void add_reductions(Rows &rows) {
    struct {
        const char *work;
        BenchWork kind;
        Shape shape;
        LibraryCall call;
        double floor;
        const char *bound;
    } constexpr reductions[] = {
        {"dot vava", bench_dot, {1, 0, 3}, dot<T>, 2, "shuffles"},
        {"dot vava", bench_dot, {1, 0, 4}, dot<T>, 0, "shuffles"},
        {"dot vava", bench_dot, {1, 0, 64}, dot<T>, 1, "loads"},
        {"cross vava", bench_cross, {1, 0, 3}, cross<T>, 1.5, "shuffles"},
        {"L2Norm va", bench_norm, {1, 0, 3}, length<T>, 3.5, "shuffles, roots"},
        {"L2Norm va", bench_norm, {1, 0, 64}, length<T>, 0, "loads"},
        {"FrobNorm ma", bench_norm, {4, 0, 4}, frobenius<T>, 1.2, "shuffles"},
    };
    for (const auto &r : reductions)
        rows.add<T>({.work = r.work,
                     .kind = r.kind,
                     .shape = r.shape,
                     .library = r.call,
                     .floor = sizeof(T) == 4 && r.floor > 0 ? times_best_sse(r.floor)
                                                            : shown(best_sse_peer),
                     .bound = r.bound});
}

} // namespace

void add_reduction_rows(Rows &rows) {
    add_reductions<float>(rows);
    add_reductions<double>(rows);
}

} // namespace zelm::bench
