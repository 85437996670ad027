// Calls of the eigenproblem members with the operands of a problem. Values go to b, or to c where
// no vectors are wanted, imaginary parts to factors.
#ifndef BENCH_EIGEN_CALLS_HPP
#define BENCH_EIGEN_CALLS_HPP

#include <array>

#include "../library.hpp"

namespace zelm::bench {

template <class T>
T *eigen_scratch() {
    constexpr int largest = 16;
    static std::array<T, largest *(3 * largest + 5)> scratch;
    return scratch.data();
}

template <class T>
void symmetric(const Problem &p) {
    must(BENCH_MEMBER(T, zelmEigenValuesVectorsSym_ma)(
        base<T>(p.a), p.a.object, p.a.row, p.a.element, eigen_scratch<T>(), base<T>(p.c),
        p.c.object, p.c.row, p.c.element, base<T>(p.b), p.rows, p.count));
}

template <class T>
void symmetric_values(const Problem &p) {
    must(BENCH_MEMBER(T, zelmEigenValuesSym_ma)(base<T>(p.a), p.a.object, p.a.row, p.a.element,
                                                eigen_scratch<T>(), base<T>(p.c), p.rows, p.count));
}

template <class T>
void right_vectors(const Problem &p) {
    must(BENCH_MEMBER(T, zelmEigenValuesVectorsRight_ma)(
        base<T>(p.a), p.a.object, p.a.row, p.a.element, base<T>(p.c), p.c.object, p.c.row,
        p.c.element, base<T>(p.b), base<T>(p.factors), p.rows, p.count, eigen_scratch<T>()));
}

template <class T>
void general_values(const Problem &p) {
    must(BENCH_MEMBER(T, zelmEigenValues_ma)(base<T>(p.a), p.a.object, p.a.row, p.a.element,
                                             base<T>(p.c), base<T>(p.factors), p.rows, p.count,
                                             eigen_scratch<T>()));
}

} // namespace zelm::bench

#endif
