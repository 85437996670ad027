/*
 * zelmsafe.h: solvers that finish every object, for C and for the fronts built on it
 *
 * The functions of zelm.h stop an array at its first failing object and compare pivots with
 * absolute thresholds. Those of this header work on the same kinds of data by the same algorithms
 * and differ in what they promise:
 *
 *   - Every object is finished, whatever becomes of the others and however many threads work. An
 *     object that fails is filled with NaN, and its status says why.
 *   - Results do not depend on scale: an object multiplied by a power of two (of four for Cholesky
 *     factors) has the same status and the same digits, as long as the data, the answer and what
 *     lies between are normal numbers.
 *   - zelStatusOk never comes with an infinity or a NaN.
 *   - Poor condition is no failure. Singular is a pivot that is exactly zero.
 *
 * Scratch is theirs. A view tells where count objects lie:
 *
 *   element (i, j) of object n:  data + n * stride0 + i * stride1 + j * stride2        (bytes)
 *
 * with signed distances of any size; 0 and negative ones are allowed, and no alignment is needed.
 * If `table` is not null, object n starts at table[n] + stride0 instead. Elements that are written
 * must not overlap one another. A destination may be a source, at the same address with the same
 * strides; no other overlap is allowed.
 *
 * Every function returns the status of the first object that failed, the one with the smallest
 * number, or zelStatusOk. Before that it checks its arguments, in this order, and writes nothing if
 * one is wrong: zelStatusNullPointer, zelStatusBadCount (below 0; 0 is an empty array, of which
 * nothing is touched), zelStatusBadSize (a size below 1, or matrices of more than 2^28 elements).
 *
 * `status` may be null, or points to one int per object, statusStride bytes apart.
 * `rcond` may be null, or is a view of one element per object: an estimate of 1 / (|A| |inverse|)
 * in the 1-norm, 0 for a singular matrix, NaN where the object is not finite.
 */
#ifndef ZELMSAFE_H
#define ZELMSAFE_H

#include "zelm.h"

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Statuses that the functions of zelm.h do not have. */
enum {
    zelmSafeNotFinite = -301,  /* the object contains a NaN or an infinity */
    zelmSafeOutOfRange = -302, /* the answer, or what leads to it, does not fit the element type */
    zelmSafeNoMemory = -303    /* there is no memory for the scratch of this call */
};

/* Where the objects of an operand lie. */
typedef struct ZelmView {
    void *data;         /* read only, where the operand is a source */
    ptrdiff_t stride0;  /* from an object to the next one; with a table, from its entries on */
    ptrdiff_t stride1;  /* from a row to the next one */
    ptrdiff_t stride2;  /* from an element of a row to the next one */
    void *const *table; /* null, or a pointer for each object */
} ZelmView;

/* Where one int per object lies; `first` may be null. */
typedef struct ZelmStatusView {
    int *first;       /* of object 0 */
    ptrdiff_t stride; /* bytes from one to the next */
} ZelmStatusView;

/* Solves a[n] * x[n] = b[n] by LU decomposition with partial pivoting. a: order x order; b and x:
 * order rows, rightHandSides columns. Golub, Van Loan: Matrix Computations, 3.4. zelStatusSingular:
 * a pivot is exactly zero. zelmSafeOutOfRange: an element of x does not fit. */
ZELM_API int zelmSafeSolve_32f(ZelmView a, ZelmView b, ZelmView x, int order, int rightHandSides,
                               ptrdiff_t count, ZelmStatusView status, ZelmView rcond);
ZELM_API int zelmSafeSolve_64f(ZelmView a, ZelmView b, ZelmView x, int order, int rightHandSides,
                               ptrdiff_t count, ZelmStatusView status, ZelmView rcond);

/* The inverse x[n] of a[n], order x order, by the same decomposition. Statuses as above. */
ZELM_API int zelmSafeInverse_32f(ZelmView a, ZelmView x, int order, ptrdiff_t count,
                                 ZelmStatusView status, ZelmView rcond);
ZELM_API int zelmSafeInverse_64f(ZelmView a, ZelmView x, int order, ptrdiff_t count,
                                 ZelmStatusView status, ZelmView rcond);

/* The determinant of a[n], one element per object. A singular matrix has the determinant 0 and is
 * no failure. zelmSafeOutOfRange: the determinant is too large, or so small that it is no normal
 * number; ask for its logarithm. */
ZELM_API int zelmSafeDeterminant_32f(ZelmView a, ZelmView determinant, int order, ptrdiff_t count,
                                     ZelmStatusView status);
ZELM_API int zelmSafeDeterminant_64f(ZelmView a, ZelmView determinant, int order, ptrdiff_t count,
                                     ZelmStatusView status);

/* The sign (-1, 0 or 1) and the natural logarithm of the magnitude of the determinant of a[n].
 * zelStatusSingular: sign 0 and logarithm minus infinity, the one exception to what is said of
 * failures above. */
ZELM_API int zelmSafeLogDeterminant_32f(ZelmView a, ZelmView sign, ZelmView logarithm, int order,
                                        ptrdiff_t count, ZelmStatusView status);
ZELM_API int zelmSafeLogDeterminant_64f(ZelmView a, ZelmView sign, ZelmView logarithm, int order,
                                        ptrdiff_t count, ZelmStatusView status);

/* The lower triangular l[n], zeros above the diagonal, with l * transpose(l) = a[n] for a symmetric
 * positive definite a[n], of which the lower triangle is read.
 * zelStatusNotPositiveDefinite: what remains of a diagonal element is not positive. */
ZELM_API int zelmSafeCholesky_32f(ZelmView a, ZelmView l, int order, ptrdiff_t count,
                                  ZelmStatusView status);
ZELM_API int zelmSafeCholesky_64f(ZelmView a, ZelmView l, int order, ptrdiff_t count,
                                  ZelmStatusView status);

/* a[n] = q * r by Householder reflections. a: rows x columns of any shape; r: k x columns, upper
 * triangular with zeros below; q: rows x k with orthonormal columns, where k is columnsOfQ: the
 * smaller of rows and columns, or rows. q.data and q.table may both be null: q is not wanted.
 * Golub, Van Loan: Matrix Computations, 5.1 and 5.2. */
ZELM_API int zelmSafeQR_32f(ZelmView a, ZelmView q, ZelmView r, int rows, int columns,
                            int columnsOfQ, ptrdiff_t count, ZelmStatusView status);
ZELM_API int zelmSafeQR_64f(ZelmView a, ZelmView q, ZelmView r, int rows, int columns,
                            int columnsOfQ, ptrdiff_t count, ZelmStatusView status);

/* The x[n] (columns x rightHandSides) of least |a[n] * x[n] - b[n]| by QR decomposition; a: rows x
 * columns, rows >= columns, of full column rank; b: rows x rightHandSides. `residual`, if it is
 * not null, receives the sum of squares of what remains, one element (0, j) per right-hand side.
 * zelStatusSingular: a column depends exactly on those before it.
 * zelStatusSizeMismatch: there are fewer rows than columns. */
ZELM_API int zelmSafeLeastSquares_32f(ZelmView a, ZelmView b, ZelmView x, ZelmView residual,
                                      int rows, int columns, int rightHandSides, ptrdiff_t count,
                                      ZelmStatusView status);
ZELM_API int zelmSafeLeastSquares_64f(ZelmView a, ZelmView b, ZelmView x, ZelmView residual,
                                      int rows, int columns, int rightHandSides, ptrdiff_t count,
                                      ZelmStatusView status);

/* Eigenvalues, ascending, of a symmetric a[n], of which the lower triangle is read, and orthonormal
 * eigenvectors in the columns of vectors[n], which may be null. `values`: element (0, j) of object
 * n. Householder reduction and implicit QL iteration. Golub, Van Loan: Matrix Computations, 8.3.
 * zelStatusNotConverged: an iteration reached its limit. */
ZELM_API int zelmSafeEigenSymmetric_32f(ZelmView a, ZelmView values, ZelmView vectors, int order,
                                        ptrdiff_t count, ZelmStatusView status);
ZELM_API int zelmSafeEigenSymmetric_64f(ZelmView a, ZelmView values, ZelmView vectors, int order,
                                        ptrdiff_t count, ZelmStatusView status);

/* Eigenvalues (real and imaginary parts, elements (0, j)) of a general a[n], and its right
 * eigenvectors, which may be null. They stand as zelmEigenValuesVectorsRight leaves them: the value
 * with the positive imaginary part of a conjugate pair first; columns j and j + 1 are the real and
 * the imaginary part of its vector. */
ZELM_API int zelmSafeEigen_32f(ZelmView a, ZelmView real, ZelmView imaginary, ZelmView vectors,
                               int order, ptrdiff_t count, ZelmStatusView status);
ZELM_API int zelmSafeEigen_64f(ZelmView a, ZelmView real, ZelmView imaginary, ZelmView vectors,
                               int order, ptrdiff_t count, ZelmStatusView status);

#ifdef __cplusplus
}
#endif

#endif
