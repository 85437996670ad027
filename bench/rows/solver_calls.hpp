// Calls of the solvers beside LU with the operands of a problem.
#ifndef BENCH_SOLVER_CALLS_HPP
#define BENCH_SOLVER_CALLS_HPP

#include "../library.hpp"

namespace zelm::bench {

template <class T>
T *buffer(const Problem &p) {
    return static_cast<T *>(p.buffer);
}

template <class T>
void cholesky(const Problem &p) {
    must(BENCH_MEMBER(T, zelmCholeskyDecomp_ma)(base<T>(p.a), p.a.object, p.a.row, p.a.element,
                                                base<T>(p.c), p.c.object, p.c.row, p.c.element,
                                                p.rows, p.count));
}

template <class T>
void cholesky_solve(const Problem &p) {
    const BenchOperand &f = p.factors;
    must(BENCH_MEMBER(T, zelmCholeskyDecomp_ma)(base<T>(p.a), p.a.object, p.a.row, p.a.element,
                                                base<T>(f), f.object, f.row, f.element, p.rows,
                                                p.count));
    must(BENCH_MEMBER(T, zelmCholeskyBackSubst_mava)(
        base<T>(f), f.object, f.row, f.element, base<T>(p.b), p.b.object, p.b.element, base<T>(p.c),
        p.c.object, p.c.element, p.rows, p.count));
}

template <class T>
void invert(const Problem &p) {
    must(BENCH_MEMBER(T, zelmInvert_ma)(base<T>(p.a), p.a.object, p.a.row, p.a.element,
                                        buffer<T>(p), base<T>(p.c), p.c.object, p.c.row,
                                        p.c.element, p.rows, p.count));
}

template <class T>
void determinant(const Problem &p) {
    must(BENCH_MEMBER(T, zelmDet_ma)(base<T>(p.a), p.a.object, p.a.row, p.a.element, p.rows,
                                     buffer<T>(p), base<T>(p.c), p.count));
}

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

} // namespace zelm::bench

#endif
