// Calls of the safe solvers with the operands of a problem.
#ifndef BENCH_SAFE_CALLS_HPP
#define BENCH_SAFE_CALLS_HPP

#include <zelmsafe.h>

#include "../library.hpp"

namespace zelm::bench {

inline ZelmView view(const BenchOperand &o) {
    return {o.base, o.object, o.row, o.element, nullptr};
}

// A vector, which is a row of the problem, as a column.
inline ZelmView column(const BenchOperand &o) { return {o.base, o.object, o.element, 0, nullptr}; }

template <class T>
int safe_solve(const Problem &p, ZelmStatusView status) {
    return BENCH_MEMBER(T, zelmSafeSolve)(view(p.a), column(p.b), column(p.c), p.rows, 1, p.count,
                                          status, {});
}

template <class T>
int safe_inverse(const Problem &p, ZelmStatusView status) {
    return BENCH_MEMBER(T, zelmSafeInverse)(view(p.a), view(p.c), p.rows, p.count, status, {});
}

template <class T>
int safe_determinant(const Problem &p, ZelmStatusView status) {
    return BENCH_MEMBER(T, zelmSafeDeterminant)(view(p.a), view(p.c), p.rows, p.count, status);
}

template <class T>
int safe_cholesky(const Problem &p, ZelmStatusView status) {
    return BENCH_MEMBER(T, zelmSafeCholesky)(view(p.a), view(p.c), p.rows, p.count, status);
}

template <class T>
int safe_symmetric(const Problem &p, ZelmStatusView status) {
    return BENCH_MEMBER(T, zelmSafeEigenSymmetric)(view(p.a), view(p.b), view(p.c), p.rows, p.count,
                                                   status);
}

} // namespace zelm::bench

#endif
