/*
 * zelm.hpp: mathematics of small matrices and vectors, for C++17
 *
 *   std::vector<std::array<std::array<double, 3>, 3>> a(100000), b(100000), c(100000);
 *   std::vector<std::array<double, 3>> v(100000), x(100000);
 *
 *   zelm::multiply(a, zelm::transposed(b), c).or_throw();     every c[n] = a[n] * transpose(b[n])
 *   zelm::solve(a, v, x).or_throw();                          every a[n] * x[n] = v[n]
 *
 * Everything is in namespace zelm:
 *
 *   zelm/status.hpp      what calls return: a status with a text; exceptions only where asked for
 *   zelm/views.hpp       where operands are: containers, structs, pointers and strides, tables
 *   zelm/operations.hpp  sums, products, norms, moves
 *   zelm/solvers.hpp     linear systems, inverses, least squares, eigenproblems: every object is
 *                        finished, at any scale
 *   zelm/raw.hpp         the solvers of zelm.h, which stop at the first object that fails
 *   zelm/geometry.hpp    vectors of 2, 3 and 4 floats and 4x4 matrices
 *
 * The library's functions are found by the operands when a call is compiled, and a call costs what
 * the C call costs. Nothing is allocated but where it says so, memory stays the caller's, and every
 * function may be called from several threads at once. Link as for zelm.h.
 */
#ifndef ZELM_HPP
#define ZELM_HPP

#include "zelm/geometry.hpp"
#include "zelm/operations.hpp"
#include "zelm/raw.hpp"
#include "zelm/solvers.hpp"
#include "zelm/status.hpp"
#include "zelm/views.hpp"

#endif
