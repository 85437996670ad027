// Calls of the LU members with the operands of a problem.
#ifndef BENCH_LU_CALLS_HPP
#define BENCH_LU_CALLS_HPP

#include "../library.hpp"

namespace zelm::bench {

template <class T>
void lu(const Problem &p) {
    must(BENCH_MEMBER(T, zelmLUDecomp_ma)(base<T>(p.a), p.a.object, p.a.row, p.a.element, p.index,
                                          base<T>(p.c), p.c.object, p.c.row, p.c.element, p.rows,
                                          p.count));
}

template <class T>
void lu_pointer(const Problem &p) {
    must(BENCH_MEMBER(T, zelmLUDecomp_ma, _P)(sources<T>(p.a_elements), 0, p.a.object, p.index,
                                              destinations<T>(p.c_elements), 0, p.c.object, p.rows,
                                              p.count));
}

template <class T>
void lu_layout(const Problem &p) {
    must(BENCH_MEMBER(T, zelmLUDecomp_ma, _L)(sources<T>(p.a_objects), 0, p.a.row, p.a.element,
                                              p.index, destinations<T>(p.c_objects), 0, p.c.row,
                                              p.c.element, p.rows, p.count));
}

template <class T>
void back_substitute(const Problem &p) {
    const BenchOperand &f = p.factors;
    must(BENCH_MEMBER(T, zelmLUBackSubst_mava)(base<T>(f), f.object, f.row, f.element, p.index,
                                               base<T>(p.b), p.b.object, p.b.element, base<T>(p.c),
                                               p.c.object, p.c.element, p.rows, p.count));
}

template <class T>
void lu_solve(const Problem &p) {
    const BenchOperand &f = p.factors;
    must(BENCH_MEMBER(T, zelmLUDecomp_ma)(base<T>(p.a), p.a.object, p.a.row, p.a.element, p.index,
                                          base<T>(f), f.object, f.row, f.element, p.rows, p.count));
    back_substitute<T>(p);
}

} // namespace zelm::bench

#endif
