// Calls of the Mul members with the operands of a problem.
#ifndef BENCH_MUL_CALLS_HPP
#define BENCH_MUL_CALLS_HPP

#include "../library.hpp"

namespace zelm::bench {

template <class T>
void mul(const Problem &p) {
    must(BENCH_MEMBER(T, zelmMul_mama)(base<T>(p.a), p.a.object, p.a.row, p.a.element, p.inner,
                                       p.rows, base<T>(p.b), p.b.object, p.b.row, p.b.element,
                                       p.columns, p.inner, base<T>(p.c), p.c.object, p.c.row,
                                       p.c.element, p.count));
}

template <class T>
void mul_mam(const Problem &p) {
    must(BENCH_MEMBER(T, zelmMul_mam)(
        base<T>(p.a), p.a.object, p.a.row, p.a.element, p.inner, p.rows, base<T>(p.b), p.b.row,
        p.b.element, p.columns, p.inner, base<T>(p.c), p.c.object, p.c.row, p.c.element, p.count));
}

template <class T>
void mul_mma(const Problem &p) {
    must(BENCH_MEMBER(T, zelmMul_mma)(
        base<T>(p.a), p.a.row, p.a.element, p.inner, p.rows, base<T>(p.b), p.b.object, p.b.row,
        p.b.element, p.columns, p.inner, base<T>(p.c), p.c.object, p.c.row, p.c.element, p.count));
}

template <class T>
void mul_pointer(const Problem &p) {
    must(BENCH_MEMBER(T, zelmMul_mama, _P)(
        sources<T>(p.a_elements), 0, p.a.object, p.inner, p.rows, sources<T>(p.b_elements), 0,
        p.b.object, p.columns, p.inner, destinations<T>(p.c_elements), 0, p.c.object, p.count));
}

template <class T>
void mul_layout(const Problem &p) {
    must(BENCH_MEMBER(T, zelmMul_mama,
                      _L)(sources<T>(p.a_objects), 0, p.a.row, p.a.element, p.inner, p.rows,
                          sources<T>(p.b_objects), 0, p.b.row, p.b.element, p.columns, p.inner,
                          destinations<T>(p.c_objects), 0, p.c.row, p.c.element, p.count));
}

template <class T>
void mul_vector(const Problem &p) {
    must(BENCH_MEMBER(T, zelmMul_mava)(base<T>(p.a), p.a.object, p.a.row, p.a.element, p.inner,
                                       p.rows, base<T>(p.b), p.b.object, p.b.element, p.inner,
                                       base<T>(p.c), p.c.object, p.c.element, p.count));
}

} // namespace zelm::bench

#endif
