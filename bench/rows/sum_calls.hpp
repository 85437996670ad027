// Calls of the Add members with the operands of a problem.
#ifndef BENCH_SUM_CALLS_HPP
#define BENCH_SUM_CALLS_HPP

#include "../library.hpp"

namespace zelm::bench {

template <class T>
void add(const Problem &p) {
    must(BENCH_MEMBER(T, zelmAdd_mama)(base<T>(p.a), p.a.object, p.a.row, p.a.element, base<T>(p.b),
                                       p.b.object, p.b.row, p.b.element, base<T>(p.c), p.c.object,
                                       p.c.row, p.c.element, p.columns, p.rows, p.count));
}

template <class T>
void add_vectors(const Problem &p) {
    must(BENCH_MEMBER(T, zelmAdd_vava)(base<T>(p.a), p.a.object, p.a.element, base<T>(p.b),
                                       p.b.object, p.b.element, base<T>(p.c), p.c.object,
                                       p.c.element, p.columns, p.count));
}

} // namespace zelm::bench

#endif
