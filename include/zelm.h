/*
 * zelm.h: mathematics of small matrices and vectors
 *
 * Made by api/generate.py from api/zelm.h.in and api/members.txt. Edit those.
 *
 *
 * Memory
 *
 * The caller owns all memory and says where each operand lies. Matrices are row-major: element
 * (i, j) is row i, column j. All strides and shifts are signed 32-bit numbers of BYTES, not of
 * elements. They are positive multiples of the element size; a shift may also be 0. Nothing else
 * is required: rows may be padded, columns may be the contiguous direction (stride1 smaller than
 * stride2), objects may be interleaved. No alignment is required either.
 *
 *   stride0   from the first element of an object of an array to that of the next object
 *   stride1   from the start of a row of a matrix to the start of the next row
 *   stride2   from an element of a row, or of a vector, to the next one
 *   RoiShift  added to every pointer of a table
 *
 *
 * The three descriptions of an operand, here an array of matrices of 2 rows and 3 columns
 *
 * Standard: one pointer and strides.
 *
 *   pSrc -> +-----+-----+-----+--
 *           | a00 | a01 | a02 |       a00 to a01 of one object   srcStride2
 *           +-----+-----+-----+--     a00 to a10 of one object   srcStride1
 *           | a10 | a11 | a12 |       a00 of object n to a00 of object n + 1   srcStride0
 *           +-----+-----+-----+--
 *
 *   element (i, j) of object n:  pSrc + n * srcStride0 + i * srcStride1 + j * srcStride2
 *
 * Pointer (suffix _P): a table with one pointer per element of one object, row after row. The
 * elements of one object may lie anywhere, the objects follow one another by stride0.
 *
 *   ppSrc -> [0]  [1]  [2]  [3]  [4]  [5]
 *             |    |    |    |    |    |
 *             v    v    v    v    v    v
 *            a00  a01  a02  a10  a11  a12      of object 0; object n is n * srcStride0 further
 *
 *   element (i, j) of object n:  ppSrc[i * width + j] + srcRoiShift + n * srcStride0
 *
 * Layout (suffix _L): a table with one pointer per object. The objects may lie anywhere, the
 * elements of one object follow one another by strides.
 *
 *   ppSrc -> [0]         [1]         [2]    ...  [count - 1]
 *             |           |           |
 *             v           v           v
 *            a00 a01 a02 a00 a01 a02 a00 a01 a02
 *            a10 a11 a12 a10 a11 a12 a10 a11 a12
 *
 *   element (i, j) of object n:  ppSrc[n] + srcRoiShift + i * srcStride1 + j * srcStride2
 *
 * A vector has no stride1, a single object no stride0. In a _P function all matrices and vectors
 * are in pointer description; constant arrays stay pointer and stride0. In a _L function all
 * arrays, those of constants included, are in layout description; single operands stay standard.
 * A transposed operand is described as it is stored. In C, as opposed to C++, a table declared as
 * float ** needs a cast where const float *const * is taken.
 *
 *
 * Names: zelm + operation + _ + kinds of the inputs + _ + element type + description
 *
 *   v, va   a vector, an array of vectors          32f   float
 *   m, ma   a matrix, an array of matrices         64f   double
 *   t, ta   the same, used transposed              _P    pointer description
 *   c, ca   a constant by value, an array of them  _L    layout description
 *
 * zelmAdd_mam_32f_L adds one matrix to every matrix of an array in layout description. If any
 * input is an array, so is the result, and every array has count objects.
 *
 *
 * Order of the arguments: the description of each input in the order of the kind letters, the
 * description of the destination, sizes, count. Constants by value stand in their operand's place.
 * Where each operand has sizes of its own they follow its description.
 *
 *
 * Checks: every function tests its arguments before it touches any data and returns the status of
 * the first group that fails:
 *
 *   1  a pointer or table is null                                zelStatusNullPointer
 *   2  count is below 1                                          zelStatusBadCount
 *   3  a width, height, length or order is below 1               zelStatusBadSize
 *      then: sizes do not fit together                           zelStatusSizeMismatch
 *   4  a stride is below 1 or no multiple of the element size    zelStatusBadStride
 *   5  a shift is below 0 or no multiple of the element size     zelStatusBadOffset
 *
 * Functions that differ from this order say so. The pointers in a table are not tested. Nothing is
 * written when a check fails, nothing is printed, and there is no other error state.
 *
 *
 * Overlap: the comments of each family say where the destination may be a source. Where they do
 * not, it must not overlap one.
 *
 *
 * Results: the result of an object depends neither on its position in an array, nor on the objects
 * beside it, nor on the number of threads. It does not depend on the description and the strides
 * either, except for dot products of 8 and more elements, L2Norm, FrobNorm and Invert: these add,
 * or choose a method, as the memory suggests, and their last bits may differ.
 *
 *
 * Failures: an array call stops at the first object that fails. When several threads share it, each
 * stops at the first one of its own range, so what has been done behind a failure depends on the
 * number of threads; the status is that of one of the failing objects and does not say which.
 * zelmsafe.h has solvers that finish every object and have a status for each.
 *
 *
 * Rounding: calls compute in the caller's rounding mode, on all threads. In no mode does the sign
 * of a sum that is zero depend on descriptions and strides, or on whether an object stands alone or
 * in an array; zelmGaxpy says where its sums begin with 0.
 *
 *
 * Threads: every function may be called from several threads at once. Large arrays are divided
 * among OpenMP threads; zelcore.h tells how their number is set. A call is divided where an
 * estimate of its work, a product of its sizes and its count, reaches a limit. Estimates wrap to 32
 * bits: those of 2^31 and more (n * n * count, for example, from order 46341 on, or from a count of
 * 21371 at order 317) come out as any number, and the call may stay on one thread.
 *
 *
 * What a call needs beside its operands: 44 KiB of stack at the most, on the caller's thread and on
 * every worker. Where the stacks of workers are set, OMP_STACKSIZE=64K is enough. On one thread
 * nothing is allocated. Where several share an array, scratch for each of them is; if it cannot be
 * had, the call does its work on one thread. But the OpenMP runtime ends the process where it
 * cannot make its threads, or has no memory of its own for them. Where that must not happen, set
 * their number to 1 as zelcore.h tells: no threads are asked for then.
 */
#ifndef ZELM_H
#define ZELM_H

#ifndef ZELM_API
#if defined(__GNUC__)
#define ZELM_API __attribute__((visibility("default")))
#else
#define ZELM_API
#endif
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* The result of a call: zero, or a negative value that tells what was wrong. */
typedef enum ZelStatus {
    zelStatusOk = 0,                     /* success */
    zelStatusBadSize = -6,               /* a width, height, length or order is below 1 */
    zelStatusNullPointer = -8,           /* a required pointer or table is null */
    zelStatusDivByZero = -10,            /* the computation met a divisor too small to divide by */
    zelStatusNotPositiveDefinite = -179, /* the matrix is not positive definite */
    zelStatusBadStride = -182,           /* a stride is below 1 or not in whole elements */
    zelStatusSingular = -195,            /* the matrix is singular: a pivot is too small */
    zelStatusBadOffset = -202,           /* a shift is below 0 or not in whole elements */
    zelStatusBadCount = -203,            /* count is below 1 */
    zelStatusSizeMismatch = -204,        /* the sizes of two operands do not fit together */
    zelStatusNotConverged = -205         /* an iteration reached its limit */
} ZelStatus;

#if defined(__cplusplus)
#define ZELM_IN_HEADER inline
#elif defined(__GNUC__)
#define ZELM_IN_HEADER static __inline__
#else
#define ZELM_IN_HEADER static
#endif

/* What a status means, in a few words; also those of zelmsafe.h. It is never null. */
ZELM_IN_HEADER const char *zelStatusText(int status) {
    switch (status) {
    case zelStatusOk:
        return "success";
    case zelStatusBadSize:
        return "a width, height, length or order is below 1";
    case zelStatusNullPointer:
        return "a required pointer or table is null";
    case zelStatusDivByZero:
        return "the computation met a divisor too small to divide by";
    case zelStatusNotPositiveDefinite:
        return "the matrix is not positive definite";
    case zelStatusBadStride:
        return "a stride is below 1 or not in whole elements";
    case zelStatusSingular:
        return "the matrix is singular";
    case zelStatusBadOffset:
        return "a shift is below 0 or not in whole elements";
    case zelStatusBadCount:
        return "the count of objects is below 1";
    case zelStatusSizeMismatch:
        return "the sizes of two operands do not fit together";
    case zelStatusNotConverged:
        return "an iteration reached its limit";
    case -301: /* zelmSafeNotFinite */
        return "the object contains a NaN or an infinity";
    case -302: /* zelmSafeOutOfRange */
        return "the answer does not fit the element type";
    case -303: /* zelmSafeNoMemory */
        return "there is no memory for the scratch of the call";
    default:
        return "unknown status";
    }
}

/* Tells which build of the library is running. The texts live as long as the library is loaded. */
typedef struct ZelLibraryVersion {
    int majorVersion;        /* the first number of versionText */
    int minorVersion;        /* the second */
    int updateNumber;        /* the third */
    int revision;            /* the number in parentheses */
    char cpuCode[4];         /* processor code, padded with zero bytes */
    const char *libraryName; /* ends in + where the processor has SSE4.2 */
    const char *versionText; /* such as "7.1.1 (r37466)" */
    const char *buildDate;   /* such as "Sep 24 2012" */
} ZelLibraryVersion;

/* The version of the library. The record is constant and must not be freed. */
ZELM_API const ZelLibraryVersion *zelmGetLibVersion(void);

/* ============================================================================================== */
/* Add: Sums of matrices and vectors */
/* ============================================================================================== */

/* dst = first + second, element by element, the operands in the order of the kind letters.
 *
 * All matrices have the shape of the result, height rows by width columns, and all vectors have
 * len elements. width and height are those of the operand as it enters the sum: a t operand is
 * stored with width rows and height columns, and its element (i, j) is stored element (j, i).
 * A single operand beside an array is used for every object; a constant array gives constant n
 * to object n. Kinds that differ only in the order of the operands exist once (mam, not mma).
 *
 * Strides and roi shifts are bytes. The result is the IEEE one, infinities and NaNs included.
 *
 * In place: the destination may be a source of the same kind that is not transposed, at the same
 * address (table, roi shift) and with the same strides. No other overlap is allowed.
 *
 * Status, as under "Checks" above; in this order:
 *   null pointer, bad count, bad size, bad stride, bad offset.
 *   single objects:     no count.
 *   mam, standard:      null pointer, bad count, bad stride, bad size.
 *   vav, standard, _P:  null pointer, bad size, bad stride, bad count, bad offset.
 *   vav, _L:            null pointer, bad size, bad stride, bad offset, bad count.
 * zelmAdd_vaca_32f_P does not check srcStride0 and takes any value. */

/* Matrices: dst(i, j) = first(i, j) + second(i, j). */
ZELM_API ZelStatus zelmAdd_mm_32f(const float *pSrc1, int src1Stride1, int src1Stride2,
                                  const float *pSrc2, int src2Stride1, int src2Stride2, float *pDst,
                                  int dstStride1, int dstStride2, int width, int height);
ZELM_API ZelStatus zelmAdd_mm_64f(const double *pSrc1, int src1Stride1, int src1Stride2,
                                  const double *pSrc2, int src2Stride1, int src2Stride2,
                                  double *pDst, int dstStride1, int dstStride2, int width,
                                  int height);
ZELM_API ZelStatus zelmAdd_mm_32f_P(const float *const *ppSrc1, int src1RoiShift,
                                    const float *const *ppSrc2, int src2RoiShift,
                                    float *const *ppDst, int dstRoiShift, int width, int height);
ZELM_API ZelStatus zelmAdd_mm_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                    const double *const *ppSrc2, int src2RoiShift,
                                    double *const *ppDst, int dstRoiShift, int width, int height);
ZELM_API ZelStatus zelmAdd_tm_32f(const float *pSrc1, int src1Stride1, int src1Stride2,
                                  const float *pSrc2, int src2Stride1, int src2Stride2, float *pDst,
                                  int dstStride1, int dstStride2, int width, int height);
ZELM_API ZelStatus zelmAdd_tm_64f(const double *pSrc1, int src1Stride1, int src1Stride2,
                                  const double *pSrc2, int src2Stride1, int src2Stride2,
                                  double *pDst, int dstStride1, int dstStride2, int width,
                                  int height);
ZELM_API ZelStatus zelmAdd_tm_32f_P(const float *const *ppSrc1, int src1RoiShift,
                                    const float *const *ppSrc2, int src2RoiShift,
                                    float *const *ppDst, int dstRoiShift, int width, int height);
ZELM_API ZelStatus zelmAdd_tm_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                    const double *const *ppSrc2, int src2RoiShift,
                                    double *const *ppDst, int dstRoiShift, int width, int height);
ZELM_API ZelStatus zelmAdd_tt_32f(const float *pSrc1, int src1Stride1, int src1Stride2,
                                  const float *pSrc2, int src2Stride1, int src2Stride2, float *pDst,
                                  int dstStride1, int dstStride2, int width, int height);
ZELM_API ZelStatus zelmAdd_tt_64f(const double *pSrc1, int src1Stride1, int src1Stride2,
                                  const double *pSrc2, int src2Stride1, int src2Stride2,
                                  double *pDst, int dstStride1, int dstStride2, int width,
                                  int height);
ZELM_API ZelStatus zelmAdd_tt_32f_P(const float *const *ppSrc1, int src1RoiShift,
                                    const float *const *ppSrc2, int src2RoiShift,
                                    float *const *ppDst, int dstRoiShift, int width, int height);
ZELM_API ZelStatus zelmAdd_tt_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                    const double *const *ppSrc2, int src2RoiShift,
                                    double *const *ppDst, int dstRoiShift, int width, int height);

/* Arrays of matrices: dst_n(i, j) = first_n(i, j) + second_n(i, j), n = 0 .. count - 1. */
ZELM_API ZelStatus zelmAdd_mam_32f(const float *pSrc1, int src1Stride0, int src1Stride1,
                                   int src1Stride2, const float *pSrc2, int src2Stride1,
                                   int src2Stride2, float *pDst, int dstStride0, int dstStride1,
                                   int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmAdd_mam_64f(const double *pSrc1, int src1Stride0, int src1Stride1,
                                   int src1Stride2, const double *pSrc2, int src2Stride1,
                                   int src2Stride2, double *pDst, int dstStride0, int dstStride1,
                                   int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmAdd_mam_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                     const float *const *ppSrc2, int src2RoiShift,
                                     float *const *ppDst, int dstRoiShift, int dstStride0,
                                     int width, int height, int count);
ZELM_API ZelStatus zelmAdd_mam_64f_P(const double *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                     const double *const *ppSrc2, int src2RoiShift,
                                     double *const *ppDst, int dstRoiShift, int dstStride0,
                                     int width, int height, int count);
ZELM_API ZelStatus zelmAdd_mam_32f_L(const float *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                     int src1Stride2, const float *pSrc2, int src2Stride1,
                                     int src2Stride2, float *const *ppDst, int dstRoiShift,
                                     int dstStride1, int dstStride2, int width, int height,
                                     int count);
ZELM_API ZelStatus zelmAdd_mam_64f_L(const double *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                     int src1Stride2, const double *pSrc2, int src2Stride1,
                                     int src2Stride2, double *const *ppDst, int dstRoiShift,
                                     int dstStride1, int dstStride2, int width, int height,
                                     int count);
ZELM_API ZelStatus zelmAdd_mat_32f(const float *pSrc1, int src1Stride0, int src1Stride1,
                                   int src1Stride2, const float *pSrc2, int src2Stride1,
                                   int src2Stride2, float *pDst, int dstStride0, int dstStride1,
                                   int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmAdd_mat_64f(const double *pSrc1, int src1Stride0, int src1Stride1,
                                   int src1Stride2, const double *pSrc2, int src2Stride1,
                                   int src2Stride2, double *pDst, int dstStride0, int dstStride1,
                                   int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmAdd_mat_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                     const float *const *ppSrc2, int src2RoiShift,
                                     float *const *ppDst, int dstRoiShift, int dstStride0,
                                     int width, int height, int count);
ZELM_API ZelStatus zelmAdd_mat_64f_P(const double *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                     const double *const *ppSrc2, int src2RoiShift,
                                     double *const *ppDst, int dstRoiShift, int dstStride0,
                                     int width, int height, int count);
ZELM_API ZelStatus zelmAdd_mat_32f_L(const float *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                     int src1Stride2, const float *pSrc2, int src2Stride1,
                                     int src2Stride2, float *const *ppDst, int dstRoiShift,
                                     int dstStride1, int dstStride2, int width, int height,
                                     int count);
ZELM_API ZelStatus zelmAdd_mat_64f_L(const double *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                     int src1Stride2, const double *pSrc2, int src2Stride1,
                                     int src2Stride2, double *const *ppDst, int dstRoiShift,
                                     int dstStride1, int dstStride2, int width, int height,
                                     int count);
ZELM_API ZelStatus zelmAdd_mama_32f(const float *pSrc1, int src1Stride0, int src1Stride1,
                                    int src1Stride2, const float *pSrc2, int src2Stride0,
                                    int src2Stride1, int src2Stride2, float *pDst, int dstStride0,
                                    int dstStride1, int dstStride2, int width, int height,
                                    int count);
ZELM_API ZelStatus zelmAdd_mama_64f(const double *pSrc1, int src1Stride0, int src1Stride1,
                                    int src1Stride2, const double *pSrc2, int src2Stride0,
                                    int src2Stride1, int src2Stride2, double *pDst, int dstStride0,
                                    int dstStride1, int dstStride2, int width, int height,
                                    int count);
ZELM_API ZelStatus zelmAdd_mama_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                      const float *const *ppSrc2, int src2RoiShift, int src2Stride0,
                                      float *const *ppDst, int dstRoiShift, int dstStride0,
                                      int width, int height, int count);
ZELM_API ZelStatus zelmAdd_mama_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                      int src1Stride0, const double *const *ppSrc2,
                                      int src2RoiShift, int src2Stride0, double *const *ppDst,
                                      int dstRoiShift, int dstStride0, int width, int height,
                                      int count);
ZELM_API ZelStatus zelmAdd_mama_32f_L(const float *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                      int src1Stride2, const float *const *ppSrc2, int src2RoiShift,
                                      int src2Stride1, int src2Stride2, float *const *ppDst,
                                      int dstRoiShift, int dstStride1, int dstStride2, int width,
                                      int height, int count);
ZELM_API ZelStatus zelmAdd_mama_64f_L(const double *const *ppSrc1, int src1RoiShift,
                                      int src1Stride1, int src1Stride2, const double *const *ppSrc2,
                                      int src2RoiShift, int src2Stride1, int src2Stride2,
                                      double *const *ppDst, int dstRoiShift, int dstStride1,
                                      int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmAdd_tam_32f(const float *pSrc1, int src1Stride0, int src1Stride1,
                                   int src1Stride2, const float *pSrc2, int src2Stride1,
                                   int src2Stride2, float *pDst, int dstStride0, int dstStride1,
                                   int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmAdd_tam_64f(const double *pSrc1, int src1Stride0, int src1Stride1,
                                   int src1Stride2, const double *pSrc2, int src2Stride1,
                                   int src2Stride2, double *pDst, int dstStride0, int dstStride1,
                                   int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmAdd_tam_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                     const float *const *ppSrc2, int src2RoiShift,
                                     float *const *ppDst, int dstRoiShift, int dstStride0,
                                     int width, int height, int count);
ZELM_API ZelStatus zelmAdd_tam_64f_P(const double *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                     const double *const *ppSrc2, int src2RoiShift,
                                     double *const *ppDst, int dstRoiShift, int dstStride0,
                                     int width, int height, int count);
ZELM_API ZelStatus zelmAdd_tam_32f_L(const float *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                     int src1Stride2, const float *pSrc2, int src2Stride1,
                                     int src2Stride2, float *const *ppDst, int dstRoiShift,
                                     int dstStride1, int dstStride2, int width, int height,
                                     int count);
ZELM_API ZelStatus zelmAdd_tam_64f_L(const double *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                     int src1Stride2, const double *pSrc2, int src2Stride1,
                                     int src2Stride2, double *const *ppDst, int dstRoiShift,
                                     int dstStride1, int dstStride2, int width, int height,
                                     int count);
ZELM_API ZelStatus zelmAdd_tat_32f(const float *pSrc1, int src1Stride0, int src1Stride1,
                                   int src1Stride2, const float *pSrc2, int src2Stride1,
                                   int src2Stride2, float *pDst, int dstStride0, int dstStride1,
                                   int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmAdd_tat_64f(const double *pSrc1, int src1Stride0, int src1Stride1,
                                   int src1Stride2, const double *pSrc2, int src2Stride1,
                                   int src2Stride2, double *pDst, int dstStride0, int dstStride1,
                                   int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmAdd_tat_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                     const float *const *ppSrc2, int src2RoiShift,
                                     float *const *ppDst, int dstRoiShift, int dstStride0,
                                     int width, int height, int count);
ZELM_API ZelStatus zelmAdd_tat_64f_P(const double *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                     const double *const *ppSrc2, int src2RoiShift,
                                     double *const *ppDst, int dstRoiShift, int dstStride0,
                                     int width, int height, int count);
ZELM_API ZelStatus zelmAdd_tat_32f_L(const float *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                     int src1Stride2, const float *pSrc2, int src2Stride1,
                                     int src2Stride2, float *const *ppDst, int dstRoiShift,
                                     int dstStride1, int dstStride2, int width, int height,
                                     int count);
ZELM_API ZelStatus zelmAdd_tat_64f_L(const double *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                     int src1Stride2, const double *pSrc2, int src2Stride1,
                                     int src2Stride2, double *const *ppDst, int dstRoiShift,
                                     int dstStride1, int dstStride2, int width, int height,
                                     int count);
ZELM_API ZelStatus zelmAdd_tama_32f(const float *pSrc1, int src1Stride0, int src1Stride1,
                                    int src1Stride2, const float *pSrc2, int src2Stride0,
                                    int src2Stride1, int src2Stride2, float *pDst, int dstStride0,
                                    int dstStride1, int dstStride2, int width, int height,
                                    int count);
ZELM_API ZelStatus zelmAdd_tama_64f(const double *pSrc1, int src1Stride0, int src1Stride1,
                                    int src1Stride2, const double *pSrc2, int src2Stride0,
                                    int src2Stride1, int src2Stride2, double *pDst, int dstStride0,
                                    int dstStride1, int dstStride2, int width, int height,
                                    int count);
ZELM_API ZelStatus zelmAdd_tama_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                      const float *const *ppSrc2, int src2RoiShift, int src2Stride0,
                                      float *const *ppDst, int dstRoiShift, int dstStride0,
                                      int width, int height, int count);
ZELM_API ZelStatus zelmAdd_tama_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                      int src1Stride0, const double *const *ppSrc2,
                                      int src2RoiShift, int src2Stride0, double *const *ppDst,
                                      int dstRoiShift, int dstStride0, int width, int height,
                                      int count);
ZELM_API ZelStatus zelmAdd_tama_32f_L(const float *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                      int src1Stride2, const float *const *ppSrc2, int src2RoiShift,
                                      int src2Stride1, int src2Stride2, float *const *ppDst,
                                      int dstRoiShift, int dstStride1, int dstStride2, int width,
                                      int height, int count);
ZELM_API ZelStatus zelmAdd_tama_64f_L(const double *const *ppSrc1, int src1RoiShift,
                                      int src1Stride1, int src1Stride2, const double *const *ppSrc2,
                                      int src2RoiShift, int src2Stride1, int src2Stride2,
                                      double *const *ppDst, int dstRoiShift, int dstStride1,
                                      int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmAdd_tata_32f(const float *pSrc1, int src1Stride0, int src1Stride1,
                                    int src1Stride2, const float *pSrc2, int src2Stride0,
                                    int src2Stride1, int src2Stride2, float *pDst, int dstStride0,
                                    int dstStride1, int dstStride2, int width, int height,
                                    int count);
ZELM_API ZelStatus zelmAdd_tata_64f(const double *pSrc1, int src1Stride0, int src1Stride1,
                                    int src1Stride2, const double *pSrc2, int src2Stride0,
                                    int src2Stride1, int src2Stride2, double *pDst, int dstStride0,
                                    int dstStride1, int dstStride2, int width, int height,
                                    int count);
ZELM_API ZelStatus zelmAdd_tata_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                      const float *const *ppSrc2, int src2RoiShift, int src2Stride0,
                                      float *const *ppDst, int dstRoiShift, int dstStride0,
                                      int width, int height, int count);
ZELM_API ZelStatus zelmAdd_tata_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                      int src1Stride0, const double *const *ppSrc2,
                                      int src2RoiShift, int src2Stride0, double *const *ppDst,
                                      int dstRoiShift, int dstStride0, int width, int height,
                                      int count);
ZELM_API ZelStatus zelmAdd_tata_32f_L(const float *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                      int src1Stride2, const float *const *ppSrc2, int src2RoiShift,
                                      int src2Stride1, int src2Stride2, float *const *ppDst,
                                      int dstRoiShift, int dstStride1, int dstStride2, int width,
                                      int height, int count);
ZELM_API ZelStatus zelmAdd_tata_64f_L(const double *const *ppSrc1, int src1RoiShift,
                                      int src1Stride1, int src1Stride2, const double *const *ppSrc2,
                                      int src2RoiShift, int src2Stride1, int src2Stride2,
                                      double *const *ppDst, int dstRoiShift, int dstStride1,
                                      int dstStride2, int width, int height, int count);

/* Vectors: dst(k) = first(k) + second(k); vc adds the constant val to every element. */
ZELM_API ZelStatus zelmAdd_vv_32f(const float *pSrc1, int src1Stride2, const float *pSrc2,
                                  int src2Stride2, float *pDst, int dstStride2, int len);
ZELM_API ZelStatus zelmAdd_vv_64f(const double *pSrc1, int src1Stride2, const double *pSrc2,
                                  int src2Stride2, double *pDst, int dstStride2, int len);
ZELM_API ZelStatus zelmAdd_vv_32f_P(const float *const *ppSrc1, int src1RoiShift,
                                    const float *const *ppSrc2, int src2RoiShift,
                                    float *const *ppDst, int dstRoiShift, int len);
ZELM_API ZelStatus zelmAdd_vv_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                    const double *const *ppSrc2, int src2RoiShift,
                                    double *const *ppDst, int dstRoiShift, int len);
ZELM_API ZelStatus zelmAdd_vc_32f(const float *pSrc, int srcStride2, float val, float *pDst,
                                  int dstStride2, int len);
ZELM_API ZelStatus zelmAdd_vc_64f(const double *pSrc, int srcStride2, double val, double *pDst,
                                  int dstStride2, int len);
ZELM_API ZelStatus zelmAdd_vc_32f_P(const float *const *ppSrc, int srcRoiShift, float val,
                                    float *const *ppDst, int dstRoiShift, int len);
ZELM_API ZelStatus zelmAdd_vc_64f_P(const double *const *ppSrc, int srcRoiShift, double val,
                                    double *const *ppDst, int dstRoiShift, int len);

/* Arrays of vectors: dst_n(k) = first_n(k) + second_n(k), n = 0 .. count - 1. */
ZELM_API ZelStatus zelmAdd_vav_32f(const float *pSrc1, int src1Stride0, int src1Stride2,
                                   const float *pSrc2, int src2Stride2, float *pDst, int dstStride0,
                                   int dstStride2, int len, int count);
ZELM_API ZelStatus zelmAdd_vav_64f(const double *pSrc1, int src1Stride0, int src1Stride2,
                                   const double *pSrc2, int src2Stride2, double *pDst,
                                   int dstStride0, int dstStride2, int len, int count);
ZELM_API ZelStatus zelmAdd_vav_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                     const float *const *ppSrc2, int src2RoiShift,
                                     float *const *ppDst, int dstRoiShift, int dstStride0, int len,
                                     int count);
ZELM_API ZelStatus zelmAdd_vav_64f_P(const double *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                     const double *const *ppSrc2, int src2RoiShift,
                                     double *const *ppDst, int dstRoiShift, int dstStride0, int len,
                                     int count);
ZELM_API ZelStatus zelmAdd_vav_32f_L(const float *const *ppSrc1, int src1RoiShift, int src1Stride2,
                                     const float *pSrc2, int src2Stride2, float *const *ppDst,
                                     int dstRoiShift, int dstStride2, int len, int count);
ZELM_API ZelStatus zelmAdd_vav_64f_L(const double *const *ppSrc1, int src1RoiShift, int src1Stride2,
                                     const double *pSrc2, int src2Stride2, double *const *ppDst,
                                     int dstRoiShift, int dstStride2, int len, int count);
ZELM_API ZelStatus zelmAdd_vava_32f(const float *pSrc1, int src1Stride0, int src1Stride2,
                                    const float *pSrc2, int src2Stride0, int src2Stride2,
                                    float *pDst, int dstStride0, int dstStride2, int len,
                                    int count);
ZELM_API ZelStatus zelmAdd_vava_64f(const double *pSrc1, int src1Stride0, int src1Stride2,
                                    const double *pSrc2, int src2Stride0, int src2Stride2,
                                    double *pDst, int dstStride0, int dstStride2, int len,
                                    int count);
ZELM_API ZelStatus zelmAdd_vava_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                      const float *const *ppSrc2, int src2RoiShift, int src2Stride0,
                                      float *const *ppDst, int dstRoiShift, int dstStride0, int len,
                                      int count);
ZELM_API ZelStatus zelmAdd_vava_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                      int src1Stride0, const double *const *ppSrc2,
                                      int src2RoiShift, int src2Stride0, double *const *ppDst,
                                      int dstRoiShift, int dstStride0, int len, int count);
ZELM_API ZelStatus zelmAdd_vava_32f_L(const float *const *ppSrc1, int src1RoiShift, int src1Stride2,
                                      const float *const *ppSrc2, int src2RoiShift, int src2Stride2,
                                      float *const *ppDst, int dstRoiShift, int dstStride2, int len,
                                      int count);
ZELM_API ZelStatus zelmAdd_vava_64f_L(const double *const *ppSrc1, int src1RoiShift,
                                      int src1Stride2, const double *const *ppSrc2,
                                      int src2RoiShift, int src2Stride2, double *const *ppDst,
                                      int dstRoiShift, int dstStride2, int len, int count);

/* Arrays of vectors and constants: dst_n(k) = src_n(k) + val_n. vac has one constant for all
 * vectors, vca one vector for all constants. */
ZELM_API ZelStatus zelmAdd_vac_32f(const float *pSrc, int srcStride0, int srcStride2, float val,
                                   float *pDst, int dstStride0, int dstStride2, int len, int count);
ZELM_API ZelStatus zelmAdd_vac_64f(const double *pSrc, int srcStride0, int srcStride2, double val,
                                   double *pDst, int dstStride0, int dstStride2, int len,
                                   int count);
ZELM_API ZelStatus zelmAdd_vac_32f_P(const float *const *ppSrc, int srcRoiShift, int srcStride0,
                                     float val, float *const *ppDst, int dstRoiShift,
                                     int dstStride0, int len, int count);
ZELM_API ZelStatus zelmAdd_vac_64f_P(const double *const *ppSrc, int srcRoiShift, int srcStride0,
                                     double val, double *const *ppDst, int dstRoiShift,
                                     int dstStride0, int len, int count);
ZELM_API ZelStatus zelmAdd_vac_32f_L(const float *const *ppSrc, int srcRoiShift, int srcStride2,
                                     float val, float *const *ppDst, int dstRoiShift,
                                     int dstStride2, int len, int count);
ZELM_API ZelStatus zelmAdd_vac_64f_L(const double *const *ppSrc, int srcRoiShift, int srcStride2,
                                     double val, double *const *ppDst, int dstRoiShift,
                                     int dstStride2, int len, int count);
ZELM_API ZelStatus zelmAdd_vca_32f(const float *pSrc, int srcStride2, const float *pVal,
                                   int valStride0, float *pDst, int dstStride0, int dstStride2,
                                   int len, int count);
ZELM_API ZelStatus zelmAdd_vca_64f(const double *pSrc, int srcStride2, const double *pVal,
                                   int valStride0, double *pDst, int dstStride0, int dstStride2,
                                   int len, int count);
ZELM_API ZelStatus zelmAdd_vca_32f_P(const float *const *ppSrc, int srcRoiShift, const float *pVal,
                                     int valStride0, float *const *ppDst, int dstRoiShift,
                                     int dstStride0, int len, int count);
ZELM_API ZelStatus zelmAdd_vca_64f_P(const double *const *ppSrc, int srcRoiShift,
                                     const double *pVal, int valStride0, double *const *ppDst,
                                     int dstRoiShift, int dstStride0, int len, int count);
ZELM_API ZelStatus zelmAdd_vca_32f_L(const float *pSrc, int srcStride2, const float *const *ppVal,
                                     int valRoiShift, float *const *ppDst, int dstRoiShift,
                                     int dstStride2, int len, int count);
ZELM_API ZelStatus zelmAdd_vca_64f_L(const double *pSrc, int srcStride2, const double *const *ppVal,
                                     int valRoiShift, double *const *ppDst, int dstRoiShift,
                                     int dstStride2, int len, int count);
ZELM_API ZelStatus zelmAdd_vaca_32f(const float *pSrc, int srcStride0, int srcStride2,
                                    const float *pVal, int valStride0, float *pDst, int dstStride0,
                                    int dstStride2, int len, int count);
ZELM_API ZelStatus zelmAdd_vaca_64f(const double *pSrc, int srcStride0, int srcStride2,
                                    const double *pVal, int valStride0, double *pDst,
                                    int dstStride0, int dstStride2, int len, int count);
ZELM_API ZelStatus zelmAdd_vaca_32f_P(const float *const *ppSrc, int srcRoiShift, int srcStride0,
                                      const float *pVal, int valStride0, float *const *ppDst,
                                      int dstRoiShift, int dstStride0, int len, int count);
ZELM_API ZelStatus zelmAdd_vaca_64f_P(const double *const *ppSrc, int srcRoiShift, int srcStride0,
                                      const double *pVal, int valStride0, double *const *ppDst,
                                      int dstRoiShift, int dstStride0, int len, int count);
ZELM_API ZelStatus zelmAdd_vaca_32f_L(const float *const *ppSrc, int srcRoiShift, int srcStride2,
                                      const float *const *ppVal, int valRoiShift,
                                      float *const *ppDst, int dstRoiShift, int dstStride2, int len,
                                      int count);
ZELM_API ZelStatus zelmAdd_vaca_64f_L(const double *const *ppSrc, int srcRoiShift, int srcStride2,
                                      const double *const *ppVal, int valRoiShift,
                                      double *const *ppDst, int dstRoiShift, int dstStride2,
                                      int len, int count);

/* ============================================================================================== */
/* Sub: Differences of matrices and vectors */
/* ============================================================================================== */

/* dst = first - second, element by element, the operands in the order of the kind letters. Where
 * the constant stands first it is the minuend: cv is val - src, vc is src - val.
 *
 * All matrices have the shape of the result, height rows by width columns, and all vectors have
 * len elements. width and height are those of the operand as it enters the difference: a t
 * operand is stored with width rows and height columns, and its element (i, j) is stored element
 * (j, i). A single operand beside an array is used for every object; a constant array gives
 * constant n to object n.
 *
 * Strides and roi shifts are bytes. The result is the IEEE one, infinities and NaNs included.
 *
 * In place: the destination may be a source of the same kind that is not transposed, at the same
 * address (table, roi shift) and with the same strides. No other overlap is allowed.
 *
 * Status, as under "Checks" above; in this order:
 *   null pointer, bad count, bad size, bad stride, bad offset.
 *   single objects:      no count.
 *   mam, mma, standard:  null pointer, bad count, bad stride, bad size.
 *   vav, standard, _P:   null pointer, bad size, bad stride, bad count, bad offset.
 *   vav, _L:             null pointer, bad size, bad stride, bad offset, bad count. */

/* Matrices: dst(i, j) = first(i, j) - second(i, j). */
ZELM_API ZelStatus zelmSub_mm_32f(const float *pSrc1, int src1Stride1, int src1Stride2,
                                  const float *pSrc2, int src2Stride1, int src2Stride2, float *pDst,
                                  int dstStride1, int dstStride2, int width, int height);
ZELM_API ZelStatus zelmSub_mm_64f(const double *pSrc1, int src1Stride1, int src1Stride2,
                                  const double *pSrc2, int src2Stride1, int src2Stride2,
                                  double *pDst, int dstStride1, int dstStride2, int width,
                                  int height);
ZELM_API ZelStatus zelmSub_mm_32f_P(const float *const *ppSrc1, int src1RoiShift,
                                    const float *const *ppSrc2, int src2RoiShift,
                                    float *const *ppDst, int dstRoiShift, int width, int height);
ZELM_API ZelStatus zelmSub_mm_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                    const double *const *ppSrc2, int src2RoiShift,
                                    double *const *ppDst, int dstRoiShift, int width, int height);
ZELM_API ZelStatus zelmSub_mt_32f(const float *pSrc1, int src1Stride1, int src1Stride2,
                                  const float *pSrc2, int src2Stride1, int src2Stride2, float *pDst,
                                  int dstStride1, int dstStride2, int width, int height);
ZELM_API ZelStatus zelmSub_mt_64f(const double *pSrc1, int src1Stride1, int src1Stride2,
                                  const double *pSrc2, int src2Stride1, int src2Stride2,
                                  double *pDst, int dstStride1, int dstStride2, int width,
                                  int height);
ZELM_API ZelStatus zelmSub_mt_32f_P(const float *const *ppSrc1, int src1RoiShift,
                                    const float *const *ppSrc2, int src2RoiShift,
                                    float *const *ppDst, int dstRoiShift, int width, int height);
ZELM_API ZelStatus zelmSub_mt_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                    const double *const *ppSrc2, int src2RoiShift,
                                    double *const *ppDst, int dstRoiShift, int width, int height);
ZELM_API ZelStatus zelmSub_tm_32f(const float *pSrc1, int src1Stride1, int src1Stride2,
                                  const float *pSrc2, int src2Stride1, int src2Stride2, float *pDst,
                                  int dstStride1, int dstStride2, int width, int height);
ZELM_API ZelStatus zelmSub_tm_64f(const double *pSrc1, int src1Stride1, int src1Stride2,
                                  const double *pSrc2, int src2Stride1, int src2Stride2,
                                  double *pDst, int dstStride1, int dstStride2, int width,
                                  int height);
ZELM_API ZelStatus zelmSub_tm_32f_P(const float *const *ppSrc1, int src1RoiShift,
                                    const float *const *ppSrc2, int src2RoiShift,
                                    float *const *ppDst, int dstRoiShift, int width, int height);
ZELM_API ZelStatus zelmSub_tm_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                    const double *const *ppSrc2, int src2RoiShift,
                                    double *const *ppDst, int dstRoiShift, int width, int height);
ZELM_API ZelStatus zelmSub_tt_32f(const float *pSrc1, int src1Stride1, int src1Stride2,
                                  const float *pSrc2, int src2Stride1, int src2Stride2, float *pDst,
                                  int dstStride1, int dstStride2, int width, int height);
ZELM_API ZelStatus zelmSub_tt_64f(const double *pSrc1, int src1Stride1, int src1Stride2,
                                  const double *pSrc2, int src2Stride1, int src2Stride2,
                                  double *pDst, int dstStride1, int dstStride2, int width,
                                  int height);
ZELM_API ZelStatus zelmSub_tt_32f_P(const float *const *ppSrc1, int src1RoiShift,
                                    const float *const *ppSrc2, int src2RoiShift,
                                    float *const *ppDst, int dstRoiShift, int width, int height);
ZELM_API ZelStatus zelmSub_tt_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                    const double *const *ppSrc2, int src2RoiShift,
                                    double *const *ppDst, int dstRoiShift, int width, int height);

/* Arrays of matrices: dst_n(i, j) = first_n(i, j) - second_n(i, j), n = 0 .. count - 1. */
ZELM_API ZelStatus zelmSub_mam_32f(const float *pSrc1, int src1Stride0, int src1Stride1,
                                   int src1Stride2, const float *pSrc2, int src2Stride1,
                                   int src2Stride2, float *pDst, int dstStride0, int dstStride1,
                                   int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmSub_mam_64f(const double *pSrc1, int src1Stride0, int src1Stride1,
                                   int src1Stride2, const double *pSrc2, int src2Stride1,
                                   int src2Stride2, double *pDst, int dstStride0, int dstStride1,
                                   int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmSub_mam_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                     const float *const *ppSrc2, int src2RoiShift,
                                     float *const *ppDst, int dstRoiShift, int dstStride0,
                                     int width, int height, int count);
ZELM_API ZelStatus zelmSub_mam_64f_P(const double *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                     const double *const *ppSrc2, int src2RoiShift,
                                     double *const *ppDst, int dstRoiShift, int dstStride0,
                                     int width, int height, int count);
ZELM_API ZelStatus zelmSub_mam_32f_L(const float *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                     int src1Stride2, const float *pSrc2, int src2Stride1,
                                     int src2Stride2, float *const *ppDst, int dstRoiShift,
                                     int dstStride1, int dstStride2, int width, int height,
                                     int count);
ZELM_API ZelStatus zelmSub_mam_64f_L(const double *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                     int src1Stride2, const double *pSrc2, int src2Stride1,
                                     int src2Stride2, double *const *ppDst, int dstRoiShift,
                                     int dstStride1, int dstStride2, int width, int height,
                                     int count);
ZELM_API ZelStatus zelmSub_mma_32f(const float *pSrc1, int src1Stride1, int src1Stride2,
                                   const float *pSrc2, int src2Stride0, int src2Stride1,
                                   int src2Stride2, float *pDst, int dstStride0, int dstStride1,
                                   int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmSub_mma_64f(const double *pSrc1, int src1Stride1, int src1Stride2,
                                   const double *pSrc2, int src2Stride0, int src2Stride1,
                                   int src2Stride2, double *pDst, int dstStride0, int dstStride1,
                                   int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmSub_mma_32f_P(const float *const *ppSrc1, int src1RoiShift,
                                     const float *const *ppSrc2, int src2RoiShift, int src2Stride0,
                                     float *const *ppDst, int dstRoiShift, int dstStride0,
                                     int width, int height, int count);
ZELM_API ZelStatus zelmSub_mma_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                     const double *const *ppSrc2, int src2RoiShift, int src2Stride0,
                                     double *const *ppDst, int dstRoiShift, int dstStride0,
                                     int width, int height, int count);
ZELM_API ZelStatus zelmSub_mma_32f_L(const float *pSrc1, int src1Stride1, int src1Stride2,
                                     const float *const *ppSrc2, int src2RoiShift, int src2Stride1,
                                     int src2Stride2, float *const *ppDst, int dstRoiShift,
                                     int dstStride1, int dstStride2, int width, int height,
                                     int count);
ZELM_API ZelStatus zelmSub_mma_64f_L(const double *pSrc1, int src1Stride1, int src1Stride2,
                                     const double *const *ppSrc2, int src2RoiShift, int src2Stride1,
                                     int src2Stride2, double *const *ppDst, int dstRoiShift,
                                     int dstStride1, int dstStride2, int width, int height,
                                     int count);
ZELM_API ZelStatus zelmSub_mat_32f(const float *pSrc1, int src1Stride0, int src1Stride1,
                                   int src1Stride2, const float *pSrc2, int src2Stride1,
                                   int src2Stride2, float *pDst, int dstStride0, int dstStride1,
                                   int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmSub_mat_64f(const double *pSrc1, int src1Stride0, int src1Stride1,
                                   int src1Stride2, const double *pSrc2, int src2Stride1,
                                   int src2Stride2, double *pDst, int dstStride0, int dstStride1,
                                   int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmSub_mat_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                     const float *const *ppSrc2, int src2RoiShift,
                                     float *const *ppDst, int dstRoiShift, int dstStride0,
                                     int width, int height, int count);
ZELM_API ZelStatus zelmSub_mat_64f_P(const double *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                     const double *const *ppSrc2, int src2RoiShift,
                                     double *const *ppDst, int dstRoiShift, int dstStride0,
                                     int width, int height, int count);
ZELM_API ZelStatus zelmSub_mat_32f_L(const float *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                     int src1Stride2, const float *pSrc2, int src2Stride1,
                                     int src2Stride2, float *const *ppDst, int dstRoiShift,
                                     int dstStride1, int dstStride2, int width, int height,
                                     int count);
ZELM_API ZelStatus zelmSub_mat_64f_L(const double *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                     int src1Stride2, const double *pSrc2, int src2Stride1,
                                     int src2Stride2, double *const *ppDst, int dstRoiShift,
                                     int dstStride1, int dstStride2, int width, int height,
                                     int count);
ZELM_API ZelStatus zelmSub_mta_32f(const float *pSrc1, int src1Stride1, int src1Stride2,
                                   const float *pSrc2, int src2Stride0, int src2Stride1,
                                   int src2Stride2, float *pDst, int dstStride0, int dstStride1,
                                   int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmSub_mta_64f(const double *pSrc1, int src1Stride1, int src1Stride2,
                                   const double *pSrc2, int src2Stride0, int src2Stride1,
                                   int src2Stride2, double *pDst, int dstStride0, int dstStride1,
                                   int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmSub_mta_32f_P(const float *const *ppSrc1, int src1RoiShift,
                                     const float *const *ppSrc2, int src2RoiShift, int src2Stride0,
                                     float *const *ppDst, int dstRoiShift, int dstStride0,
                                     int width, int height, int count);
ZELM_API ZelStatus zelmSub_mta_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                     const double *const *ppSrc2, int src2RoiShift, int src2Stride0,
                                     double *const *ppDst, int dstRoiShift, int dstStride0,
                                     int width, int height, int count);
ZELM_API ZelStatus zelmSub_mta_32f_L(const float *pSrc1, int src1Stride1, int src1Stride2,
                                     const float *const *ppSrc2, int src2RoiShift, int src2Stride1,
                                     int src2Stride2, float *const *ppDst, int dstRoiShift,
                                     int dstStride1, int dstStride2, int width, int height,
                                     int count);
ZELM_API ZelStatus zelmSub_mta_64f_L(const double *pSrc1, int src1Stride1, int src1Stride2,
                                     const double *const *ppSrc2, int src2RoiShift, int src2Stride1,
                                     int src2Stride2, double *const *ppDst, int dstRoiShift,
                                     int dstStride1, int dstStride2, int width, int height,
                                     int count);
ZELM_API ZelStatus zelmSub_mama_32f(const float *pSrc1, int src1Stride0, int src1Stride1,
                                    int src1Stride2, const float *pSrc2, int src2Stride0,
                                    int src2Stride1, int src2Stride2, float *pDst, int dstStride0,
                                    int dstStride1, int dstStride2, int width, int height,
                                    int count);
ZELM_API ZelStatus zelmSub_mama_64f(const double *pSrc1, int src1Stride0, int src1Stride1,
                                    int src1Stride2, const double *pSrc2, int src2Stride0,
                                    int src2Stride1, int src2Stride2, double *pDst, int dstStride0,
                                    int dstStride1, int dstStride2, int width, int height,
                                    int count);
ZELM_API ZelStatus zelmSub_mama_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                      const float *const *ppSrc2, int src2RoiShift, int src2Stride0,
                                      float *const *ppDst, int dstRoiShift, int dstStride0,
                                      int width, int height, int count);
ZELM_API ZelStatus zelmSub_mama_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                      int src1Stride0, const double *const *ppSrc2,
                                      int src2RoiShift, int src2Stride0, double *const *ppDst,
                                      int dstRoiShift, int dstStride0, int width, int height,
                                      int count);
ZELM_API ZelStatus zelmSub_mama_32f_L(const float *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                      int src1Stride2, const float *const *ppSrc2, int src2RoiShift,
                                      int src2Stride1, int src2Stride2, float *const *ppDst,
                                      int dstRoiShift, int dstStride1, int dstStride2, int width,
                                      int height, int count);
ZELM_API ZelStatus zelmSub_mama_64f_L(const double *const *ppSrc1, int src1RoiShift,
                                      int src1Stride1, int src1Stride2, const double *const *ppSrc2,
                                      int src2RoiShift, int src2Stride1, int src2Stride2,
                                      double *const *ppDst, int dstRoiShift, int dstStride1,
                                      int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmSub_mata_32f(const float *pSrc1, int src1Stride0, int src1Stride1,
                                    int src1Stride2, const float *pSrc2, int src2Stride0,
                                    int src2Stride1, int src2Stride2, float *pDst, int dstStride0,
                                    int dstStride1, int dstStride2, int width, int height,
                                    int count);
ZELM_API ZelStatus zelmSub_mata_64f(const double *pSrc1, int src1Stride0, int src1Stride1,
                                    int src1Stride2, const double *pSrc2, int src2Stride0,
                                    int src2Stride1, int src2Stride2, double *pDst, int dstStride0,
                                    int dstStride1, int dstStride2, int width, int height,
                                    int count);
ZELM_API ZelStatus zelmSub_mata_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                      const float *const *ppSrc2, int src2RoiShift, int src2Stride0,
                                      float *const *ppDst, int dstRoiShift, int dstStride0,
                                      int width, int height, int count);
ZELM_API ZelStatus zelmSub_mata_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                      int src1Stride0, const double *const *ppSrc2,
                                      int src2RoiShift, int src2Stride0, double *const *ppDst,
                                      int dstRoiShift, int dstStride0, int width, int height,
                                      int count);
ZELM_API ZelStatus zelmSub_mata_32f_L(const float *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                      int src1Stride2, const float *const *ppSrc2, int src2RoiShift,
                                      int src2Stride1, int src2Stride2, float *const *ppDst,
                                      int dstRoiShift, int dstStride1, int dstStride2, int width,
                                      int height, int count);
ZELM_API ZelStatus zelmSub_mata_64f_L(const double *const *ppSrc1, int src1RoiShift,
                                      int src1Stride1, int src1Stride2, const double *const *ppSrc2,
                                      int src2RoiShift, int src2Stride1, int src2Stride2,
                                      double *const *ppDst, int dstRoiShift, int dstStride1,
                                      int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmSub_tam_32f(const float *pSrc1, int src1Stride0, int src1Stride1,
                                   int src1Stride2, const float *pSrc2, int src2Stride1,
                                   int src2Stride2, float *pDst, int dstStride0, int dstStride1,
                                   int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmSub_tam_64f(const double *pSrc1, int src1Stride0, int src1Stride1,
                                   int src1Stride2, const double *pSrc2, int src2Stride1,
                                   int src2Stride2, double *pDst, int dstStride0, int dstStride1,
                                   int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmSub_tam_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                     const float *const *ppSrc2, int src2RoiShift,
                                     float *const *ppDst, int dstRoiShift, int dstStride0,
                                     int width, int height, int count);
ZELM_API ZelStatus zelmSub_tam_64f_P(const double *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                     const double *const *ppSrc2, int src2RoiShift,
                                     double *const *ppDst, int dstRoiShift, int dstStride0,
                                     int width, int height, int count);
ZELM_API ZelStatus zelmSub_tam_32f_L(const float *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                     int src1Stride2, const float *pSrc2, int src2Stride1,
                                     int src2Stride2, float *const *ppDst, int dstRoiShift,
                                     int dstStride1, int dstStride2, int width, int height,
                                     int count);
ZELM_API ZelStatus zelmSub_tam_64f_L(const double *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                     int src1Stride2, const double *pSrc2, int src2Stride1,
                                     int src2Stride2, double *const *ppDst, int dstRoiShift,
                                     int dstStride1, int dstStride2, int width, int height,
                                     int count);
ZELM_API ZelStatus zelmSub_tma_32f(const float *pSrc1, int src1Stride1, int src1Stride2,
                                   const float *pSrc2, int src2Stride0, int src2Stride1,
                                   int src2Stride2, float *pDst, int dstStride0, int dstStride1,
                                   int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmSub_tma_64f(const double *pSrc1, int src1Stride1, int src1Stride2,
                                   const double *pSrc2, int src2Stride0, int src2Stride1,
                                   int src2Stride2, double *pDst, int dstStride0, int dstStride1,
                                   int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmSub_tma_32f_P(const float *const *ppSrc1, int src1RoiShift,
                                     const float *const *ppSrc2, int src2RoiShift, int src2Stride0,
                                     float *const *ppDst, int dstRoiShift, int dstStride0,
                                     int width, int height, int count);
ZELM_API ZelStatus zelmSub_tma_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                     const double *const *ppSrc2, int src2RoiShift, int src2Stride0,
                                     double *const *ppDst, int dstRoiShift, int dstStride0,
                                     int width, int height, int count);
ZELM_API ZelStatus zelmSub_tma_32f_L(const float *pSrc1, int src1Stride1, int src1Stride2,
                                     const float *const *ppSrc2, int src2RoiShift, int src2Stride1,
                                     int src2Stride2, float *const *ppDst, int dstRoiShift,
                                     int dstStride1, int dstStride2, int width, int height,
                                     int count);
ZELM_API ZelStatus zelmSub_tma_64f_L(const double *pSrc1, int src1Stride1, int src1Stride2,
                                     const double *const *ppSrc2, int src2RoiShift, int src2Stride1,
                                     int src2Stride2, double *const *ppDst, int dstRoiShift,
                                     int dstStride1, int dstStride2, int width, int height,
                                     int count);
ZELM_API ZelStatus zelmSub_tat_32f(const float *pSrc1, int src1Stride0, int src1Stride1,
                                   int src1Stride2, const float *pSrc2, int src2Stride1,
                                   int src2Stride2, float *pDst, int dstStride0, int dstStride1,
                                   int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmSub_tat_64f(const double *pSrc1, int src1Stride0, int src1Stride1,
                                   int src1Stride2, const double *pSrc2, int src2Stride1,
                                   int src2Stride2, double *pDst, int dstStride0, int dstStride1,
                                   int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmSub_tat_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                     const float *const *ppSrc2, int src2RoiShift,
                                     float *const *ppDst, int dstRoiShift, int dstStride0,
                                     int width, int height, int count);
ZELM_API ZelStatus zelmSub_tat_64f_P(const double *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                     const double *const *ppSrc2, int src2RoiShift,
                                     double *const *ppDst, int dstRoiShift, int dstStride0,
                                     int width, int height, int count);
ZELM_API ZelStatus zelmSub_tat_32f_L(const float *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                     int src1Stride2, const float *pSrc2, int src2Stride1,
                                     int src2Stride2, float *const *ppDst, int dstRoiShift,
                                     int dstStride1, int dstStride2, int width, int height,
                                     int count);
ZELM_API ZelStatus zelmSub_tat_64f_L(const double *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                     int src1Stride2, const double *pSrc2, int src2Stride1,
                                     int src2Stride2, double *const *ppDst, int dstRoiShift,
                                     int dstStride1, int dstStride2, int width, int height,
                                     int count);
ZELM_API ZelStatus zelmSub_tta_32f(const float *pSrc1, int src1Stride1, int src1Stride2,
                                   const float *pSrc2, int src2Stride0, int src2Stride1,
                                   int src2Stride2, float *pDst, int dstStride0, int dstStride1,
                                   int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmSub_tta_64f(const double *pSrc1, int src1Stride1, int src1Stride2,
                                   const double *pSrc2, int src2Stride0, int src2Stride1,
                                   int src2Stride2, double *pDst, int dstStride0, int dstStride1,
                                   int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmSub_tta_32f_P(const float *const *ppSrc1, int src1RoiShift,
                                     const float *const *ppSrc2, int src2RoiShift, int src2Stride0,
                                     float *const *ppDst, int dstRoiShift, int dstStride0,
                                     int width, int height, int count);
ZELM_API ZelStatus zelmSub_tta_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                     const double *const *ppSrc2, int src2RoiShift, int src2Stride0,
                                     double *const *ppDst, int dstRoiShift, int dstStride0,
                                     int width, int height, int count);
ZELM_API ZelStatus zelmSub_tta_32f_L(const float *pSrc1, int src1Stride1, int src1Stride2,
                                     const float *const *ppSrc2, int src2RoiShift, int src2Stride1,
                                     int src2Stride2, float *const *ppDst, int dstRoiShift,
                                     int dstStride1, int dstStride2, int width, int height,
                                     int count);
ZELM_API ZelStatus zelmSub_tta_64f_L(const double *pSrc1, int src1Stride1, int src1Stride2,
                                     const double *const *ppSrc2, int src2RoiShift, int src2Stride1,
                                     int src2Stride2, double *const *ppDst, int dstRoiShift,
                                     int dstStride1, int dstStride2, int width, int height,
                                     int count);
ZELM_API ZelStatus zelmSub_tama_32f(const float *pSrc1, int src1Stride0, int src1Stride1,
                                    int src1Stride2, const float *pSrc2, int src2Stride0,
                                    int src2Stride1, int src2Stride2, float *pDst, int dstStride0,
                                    int dstStride1, int dstStride2, int width, int height,
                                    int count);
ZELM_API ZelStatus zelmSub_tama_64f(const double *pSrc1, int src1Stride0, int src1Stride1,
                                    int src1Stride2, const double *pSrc2, int src2Stride0,
                                    int src2Stride1, int src2Stride2, double *pDst, int dstStride0,
                                    int dstStride1, int dstStride2, int width, int height,
                                    int count);
ZELM_API ZelStatus zelmSub_tama_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                      const float *const *ppSrc2, int src2RoiShift, int src2Stride0,
                                      float *const *ppDst, int dstRoiShift, int dstStride0,
                                      int width, int height, int count);
ZELM_API ZelStatus zelmSub_tama_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                      int src1Stride0, const double *const *ppSrc2,
                                      int src2RoiShift, int src2Stride0, double *const *ppDst,
                                      int dstRoiShift, int dstStride0, int width, int height,
                                      int count);
ZELM_API ZelStatus zelmSub_tama_32f_L(const float *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                      int src1Stride2, const float *const *ppSrc2, int src2RoiShift,
                                      int src2Stride1, int src2Stride2, float *const *ppDst,
                                      int dstRoiShift, int dstStride1, int dstStride2, int width,
                                      int height, int count);
ZELM_API ZelStatus zelmSub_tama_64f_L(const double *const *ppSrc1, int src1RoiShift,
                                      int src1Stride1, int src1Stride2, const double *const *ppSrc2,
                                      int src2RoiShift, int src2Stride1, int src2Stride2,
                                      double *const *ppDst, int dstRoiShift, int dstStride1,
                                      int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmSub_tata_32f(const float *pSrc1, int src1Stride0, int src1Stride1,
                                    int src1Stride2, const float *pSrc2, int src2Stride0,
                                    int src2Stride1, int src2Stride2, float *pDst, int dstStride0,
                                    int dstStride1, int dstStride2, int width, int height,
                                    int count);
ZELM_API ZelStatus zelmSub_tata_64f(const double *pSrc1, int src1Stride0, int src1Stride1,
                                    int src1Stride2, const double *pSrc2, int src2Stride0,
                                    int src2Stride1, int src2Stride2, double *pDst, int dstStride0,
                                    int dstStride1, int dstStride2, int width, int height,
                                    int count);
ZELM_API ZelStatus zelmSub_tata_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                      const float *const *ppSrc2, int src2RoiShift, int src2Stride0,
                                      float *const *ppDst, int dstRoiShift, int dstStride0,
                                      int width, int height, int count);
ZELM_API ZelStatus zelmSub_tata_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                      int src1Stride0, const double *const *ppSrc2,
                                      int src2RoiShift, int src2Stride0, double *const *ppDst,
                                      int dstRoiShift, int dstStride0, int width, int height,
                                      int count);
ZELM_API ZelStatus zelmSub_tata_32f_L(const float *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                      int src1Stride2, const float *const *ppSrc2, int src2RoiShift,
                                      int src2Stride1, int src2Stride2, float *const *ppDst,
                                      int dstRoiShift, int dstStride1, int dstStride2, int width,
                                      int height, int count);
ZELM_API ZelStatus zelmSub_tata_64f_L(const double *const *ppSrc1, int src1RoiShift,
                                      int src1Stride1, int src1Stride2, const double *const *ppSrc2,
                                      int src2RoiShift, int src2Stride1, int src2Stride2,
                                      double *const *ppDst, int dstRoiShift, int dstStride1,
                                      int dstStride2, int width, int height, int count);

/* Vectors: dst(k) = first(k) - second(k); vc is src(k) - val, cv is val - src(k). */
ZELM_API ZelStatus zelmSub_vv_32f(const float *pSrc1, int src1Stride2, const float *pSrc2,
                                  int src2Stride2, float *pDst, int dstStride2, int len);
ZELM_API ZelStatus zelmSub_vv_64f(const double *pSrc1, int src1Stride2, const double *pSrc2,
                                  int src2Stride2, double *pDst, int dstStride2, int len);
ZELM_API ZelStatus zelmSub_vv_32f_P(const float *const *ppSrc1, int src1RoiShift,
                                    const float *const *ppSrc2, int src2RoiShift,
                                    float *const *ppDst, int dstRoiShift, int len);
ZELM_API ZelStatus zelmSub_vv_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                    const double *const *ppSrc2, int src2RoiShift,
                                    double *const *ppDst, int dstRoiShift, int len);
ZELM_API ZelStatus zelmSub_vc_32f(const float *pSrc, int srcStride2, float val, float *pDst,
                                  int dstStride2, int len);
ZELM_API ZelStatus zelmSub_vc_64f(const double *pSrc, int srcStride2, double val, double *pDst,
                                  int dstStride2, int len);
ZELM_API ZelStatus zelmSub_vc_32f_P(const float *const *ppSrc, int srcRoiShift, float val,
                                    float *const *ppDst, int dstRoiShift, int len);
ZELM_API ZelStatus zelmSub_vc_64f_P(const double *const *ppSrc, int srcRoiShift, double val,
                                    double *const *ppDst, int dstRoiShift, int len);
ZELM_API ZelStatus zelmSub_cv_32f(float val, const float *pSrc, int srcStride2, float *pDst,
                                  int dstStride2, int len);
ZELM_API ZelStatus zelmSub_cv_64f(double val, const double *pSrc, int srcStride2, double *pDst,
                                  int dstStride2, int len);
ZELM_API ZelStatus zelmSub_cv_32f_P(float val, const float *const *ppSrc, int srcRoiShift,
                                    float *const *ppDst, int dstRoiShift, int len);
ZELM_API ZelStatus zelmSub_cv_64f_P(double val, const double *const *ppSrc, int srcRoiShift,
                                    double *const *ppDst, int dstRoiShift, int len);

/* Arrays of vectors: dst_n(k) = first_n(k) - second_n(k), n = 0 .. count - 1. */
ZELM_API ZelStatus zelmSub_vav_32f(const float *pSrc1, int src1Stride0, int src1Stride2,
                                   const float *pSrc2, int src2Stride2, float *pDst, int dstStride0,
                                   int dstStride2, int len, int count);
ZELM_API ZelStatus zelmSub_vav_64f(const double *pSrc1, int src1Stride0, int src1Stride2,
                                   const double *pSrc2, int src2Stride2, double *pDst,
                                   int dstStride0, int dstStride2, int len, int count);
ZELM_API ZelStatus zelmSub_vav_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                     const float *const *ppSrc2, int src2RoiShift,
                                     float *const *ppDst, int dstRoiShift, int dstStride0, int len,
                                     int count);
ZELM_API ZelStatus zelmSub_vav_64f_P(const double *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                     const double *const *ppSrc2, int src2RoiShift,
                                     double *const *ppDst, int dstRoiShift, int dstStride0, int len,
                                     int count);
ZELM_API ZelStatus zelmSub_vav_32f_L(const float *const *ppSrc1, int src1RoiShift, int src1Stride2,
                                     const float *pSrc2, int src2Stride2, float *const *ppDst,
                                     int dstRoiShift, int dstStride2, int len, int count);
ZELM_API ZelStatus zelmSub_vav_64f_L(const double *const *ppSrc1, int src1RoiShift, int src1Stride2,
                                     const double *pSrc2, int src2Stride2, double *const *ppDst,
                                     int dstRoiShift, int dstStride2, int len, int count);
ZELM_API ZelStatus zelmSub_vva_32f(const float *pSrc1, int src1Stride2, const float *pSrc2,
                                   int src2Stride0, int src2Stride2, float *pDst, int dstStride0,
                                   int dstStride2, int len, int count);
ZELM_API ZelStatus zelmSub_vva_64f(const double *pSrc1, int src1Stride2, const double *pSrc2,
                                   int src2Stride0, int src2Stride2, double *pDst, int dstStride0,
                                   int dstStride2, int len, int count);
ZELM_API ZelStatus zelmSub_vva_32f_P(const float *const *ppSrc1, int src1RoiShift,
                                     const float *const *ppSrc2, int src2RoiShift, int src2Stride0,
                                     float *const *ppDst, int dstRoiShift, int dstStride0, int len,
                                     int count);
ZELM_API ZelStatus zelmSub_vva_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                     const double *const *ppSrc2, int src2RoiShift, int src2Stride0,
                                     double *const *ppDst, int dstRoiShift, int dstStride0, int len,
                                     int count);
ZELM_API ZelStatus zelmSub_vva_32f_L(const float *pSrc1, int src1Stride2,
                                     const float *const *ppSrc2, int src2RoiShift, int src2Stride2,
                                     float *const *ppDst, int dstRoiShift, int dstStride2, int len,
                                     int count);
ZELM_API ZelStatus zelmSub_vva_64f_L(const double *pSrc1, int src1Stride2,
                                     const double *const *ppSrc2, int src2RoiShift, int src2Stride2,
                                     double *const *ppDst, int dstRoiShift, int dstStride2, int len,
                                     int count);
ZELM_API ZelStatus zelmSub_vava_32f(const float *pSrc1, int src1Stride0, int src1Stride2,
                                    const float *pSrc2, int src2Stride0, int src2Stride2,
                                    float *pDst, int dstStride0, int dstStride2, int len,
                                    int count);
ZELM_API ZelStatus zelmSub_vava_64f(const double *pSrc1, int src1Stride0, int src1Stride2,
                                    const double *pSrc2, int src2Stride0, int src2Stride2,
                                    double *pDst, int dstStride0, int dstStride2, int len,
                                    int count);
ZELM_API ZelStatus zelmSub_vava_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                      const float *const *ppSrc2, int src2RoiShift, int src2Stride0,
                                      float *const *ppDst, int dstRoiShift, int dstStride0, int len,
                                      int count);
ZELM_API ZelStatus zelmSub_vava_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                      int src1Stride0, const double *const *ppSrc2,
                                      int src2RoiShift, int src2Stride0, double *const *ppDst,
                                      int dstRoiShift, int dstStride0, int len, int count);
ZELM_API ZelStatus zelmSub_vava_32f_L(const float *const *ppSrc1, int src1RoiShift, int src1Stride2,
                                      const float *const *ppSrc2, int src2RoiShift, int src2Stride2,
                                      float *const *ppDst, int dstRoiShift, int dstStride2, int len,
                                      int count);
ZELM_API ZelStatus zelmSub_vava_64f_L(const double *const *ppSrc1, int src1RoiShift,
                                      int src1Stride2, const double *const *ppSrc2,
                                      int src2RoiShift, int src2Stride2, double *const *ppDst,
                                      int dstRoiShift, int dstStride2, int len, int count);

/* Arrays of vectors less constants: dst_n(k) = src_n(k) - val_n. vac has one constant for all
 * vectors, vca one vector for all constants. */
ZELM_API ZelStatus zelmSub_vac_32f(const float *pSrc, int srcStride0, int srcStride2, float val,
                                   float *pDst, int dstStride0, int dstStride2, int len, int count);
ZELM_API ZelStatus zelmSub_vac_64f(const double *pSrc, int srcStride0, int srcStride2, double val,
                                   double *pDst, int dstStride0, int dstStride2, int len,
                                   int count);
ZELM_API ZelStatus zelmSub_vac_32f_P(const float *const *ppSrc, int srcRoiShift, int srcStride0,
                                     float val, float *const *ppDst, int dstRoiShift,
                                     int dstStride0, int len, int count);
ZELM_API ZelStatus zelmSub_vac_64f_P(const double *const *ppSrc, int srcRoiShift, int srcStride0,
                                     double val, double *const *ppDst, int dstRoiShift,
                                     int dstStride0, int len, int count);
ZELM_API ZelStatus zelmSub_vac_32f_L(const float *const *ppSrc, int srcRoiShift, int srcStride2,
                                     float val, float *const *ppDst, int dstRoiShift,
                                     int dstStride2, int len, int count);
ZELM_API ZelStatus zelmSub_vac_64f_L(const double *const *ppSrc, int srcRoiShift, int srcStride2,
                                     double val, double *const *ppDst, int dstRoiShift,
                                     int dstStride2, int len, int count);
ZELM_API ZelStatus zelmSub_vca_32f(const float *pSrc, int srcStride2, const float *pVal,
                                   int valStride0, float *pDst, int dstStride0, int dstStride2,
                                   int len, int count);
ZELM_API ZelStatus zelmSub_vca_64f(const double *pSrc, int srcStride2, const double *pVal,
                                   int valStride0, double *pDst, int dstStride0, int dstStride2,
                                   int len, int count);
ZELM_API ZelStatus zelmSub_vca_32f_P(const float *const *ppSrc, int srcRoiShift, const float *pVal,
                                     int valStride0, float *const *ppDst, int dstRoiShift,
                                     int dstStride0, int len, int count);
ZELM_API ZelStatus zelmSub_vca_64f_P(const double *const *ppSrc, int srcRoiShift,
                                     const double *pVal, int valStride0, double *const *ppDst,
                                     int dstRoiShift, int dstStride0, int len, int count);
ZELM_API ZelStatus zelmSub_vca_32f_L(const float *pSrc, int srcStride2, const float *const *ppVal,
                                     int valRoiShift, float *const *ppDst, int dstRoiShift,
                                     int dstStride2, int len, int count);
ZELM_API ZelStatus zelmSub_vca_64f_L(const double *pSrc, int srcStride2, const double *const *ppVal,
                                     int valRoiShift, double *const *ppDst, int dstRoiShift,
                                     int dstStride2, int len, int count);
ZELM_API ZelStatus zelmSub_vaca_32f(const float *pSrc, int srcStride0, int srcStride2,
                                    const float *pVal, int valStride0, float *pDst, int dstStride0,
                                    int dstStride2, int len, int count);
ZELM_API ZelStatus zelmSub_vaca_64f(const double *pSrc, int srcStride0, int srcStride2,
                                    const double *pVal, int valStride0, double *pDst,
                                    int dstStride0, int dstStride2, int len, int count);
ZELM_API ZelStatus zelmSub_vaca_32f_P(const float *const *ppSrc, int srcRoiShift, int srcStride0,
                                      const float *pVal, int valStride0, float *const *ppDst,
                                      int dstRoiShift, int dstStride0, int len, int count);
ZELM_API ZelStatus zelmSub_vaca_64f_P(const double *const *ppSrc, int srcRoiShift, int srcStride0,
                                      const double *pVal, int valStride0, double *const *ppDst,
                                      int dstRoiShift, int dstStride0, int len, int count);
ZELM_API ZelStatus zelmSub_vaca_32f_L(const float *const *ppSrc, int srcRoiShift, int srcStride2,
                                      const float *const *ppVal, int valRoiShift,
                                      float *const *ppDst, int dstRoiShift, int dstStride2, int len,
                                      int count);
ZELM_API ZelStatus zelmSub_vaca_64f_L(const double *const *ppSrc, int srcRoiShift, int srcStride2,
                                      const double *const *ppVal, int valRoiShift,
                                      double *const *ppDst, int dstRoiShift, int dstStride2,
                                      int len, int count);

/* Constants less arrays of vectors: dst_n(k) = val_n - src_n(k). cva has one constant for all
 * vectors, cav one vector for all constants. */
ZELM_API ZelStatus zelmSub_cva_32f(float val, const float *pSrc, int srcStride0, int srcStride2,
                                   float *pDst, int dstStride0, int dstStride2, int len, int count);
ZELM_API ZelStatus zelmSub_cva_64f(double val, const double *pSrc, int srcStride0, int srcStride2,
                                   double *pDst, int dstStride0, int dstStride2, int len,
                                   int count);
ZELM_API ZelStatus zelmSub_cva_32f_P(float val, const float *const *ppSrc, int srcRoiShift,
                                     int srcStride0, float *const *ppDst, int dstRoiShift,
                                     int dstStride0, int len, int count);
ZELM_API ZelStatus zelmSub_cva_64f_P(double val, const double *const *ppSrc, int srcRoiShift,
                                     int srcStride0, double *const *ppDst, int dstRoiShift,
                                     int dstStride0, int len, int count);
ZELM_API ZelStatus zelmSub_cva_32f_L(float val, const float *const *ppSrc, int srcRoiShift,
                                     int srcStride2, float *const *ppDst, int dstRoiShift,
                                     int dstStride2, int len, int count);
ZELM_API ZelStatus zelmSub_cva_64f_L(double val, const double *const *ppSrc, int srcRoiShift,
                                     int srcStride2, double *const *ppDst, int dstRoiShift,
                                     int dstStride2, int len, int count);
ZELM_API ZelStatus zelmSub_cav_32f(const float *pVal, int valStride0, const float *pSrc,
                                   int srcStride2, float *pDst, int dstStride0, int dstStride2,
                                   int len, int count);
ZELM_API ZelStatus zelmSub_cav_64f(const double *pVal, int valStride0, const double *pSrc,
                                   int srcStride2, double *pDst, int dstStride0, int dstStride2,
                                   int len, int count);
ZELM_API ZelStatus zelmSub_cav_32f_P(const float *pVal, int valStride0, const float *const *ppSrc,
                                     int srcRoiShift, float *const *ppDst, int dstRoiShift,
                                     int dstStride0, int len, int count);
ZELM_API ZelStatus zelmSub_cav_64f_P(const double *pVal, int valStride0, const double *const *ppSrc,
                                     int srcRoiShift, double *const *ppDst, int dstRoiShift,
                                     int dstStride0, int len, int count);
ZELM_API ZelStatus zelmSub_cav_32f_L(const float *const *ppVal, int valRoiShift, const float *pSrc,
                                     int srcStride2, float *const *ppDst, int dstRoiShift,
                                     int dstStride2, int len, int count);
ZELM_API ZelStatus zelmSub_cav_64f_L(const double *const *ppVal, int valRoiShift,
                                     const double *pSrc, int srcStride2, double *const *ppDst,
                                     int dstRoiShift, int dstStride2, int len, int count);
ZELM_API ZelStatus zelmSub_cava_32f(const float *pVal, int valStride0, const float *pSrc,
                                    int srcStride0, int srcStride2, float *pDst, int dstStride0,
                                    int dstStride2, int len, int count);
ZELM_API ZelStatus zelmSub_cava_64f(const double *pVal, int valStride0, const double *pSrc,
                                    int srcStride0, int srcStride2, double *pDst, int dstStride0,
                                    int dstStride2, int len, int count);
ZELM_API ZelStatus zelmSub_cava_32f_P(const float *pVal, int valStride0, const float *const *ppSrc,
                                      int srcRoiShift, int srcStride0, float *const *ppDst,
                                      int dstRoiShift, int dstStride0, int len, int count);
ZELM_API ZelStatus zelmSub_cava_64f_P(const double *pVal, int valStride0,
                                      const double *const *ppSrc, int srcRoiShift, int srcStride0,
                                      double *const *ppDst, int dstRoiShift, int dstStride0,
                                      int len, int count);
ZELM_API ZelStatus zelmSub_cava_32f_L(const float *const *ppVal, int valRoiShift,
                                      const float *const *ppSrc, int srcRoiShift, int srcStride2,
                                      float *const *ppDst, int dstRoiShift, int dstStride2, int len,
                                      int count);
ZELM_API ZelStatus zelmSub_cava_64f_L(const double *const *ppVal, int valRoiShift,
                                      const double *const *ppSrc, int srcRoiShift, int srcStride2,
                                      double *const *ppDst, int dstRoiShift, int dstStride2,
                                      int len, int count);

/* ============================================================================================== */
/* Mul: Products of matrices, vectors and constants */
/* ============================================================================================== */

/* dst = A * B, where A and B are the first and the second operand after the transposition of t
 * operands. A single operand beside an array is used for every object; arrays pair object n with
 * object n.
 *
 * In matrix and matrix-vector products every matrix is followed by its own width and height, which
 * are those of the stored matrix: a t operand of width 3 and height 2 enters the product with 3
 * rows and 2 columns. The destination has no sizes of its own. The constant products take one
 * width and height, those of the result.
 *
 * Strides and roi shifts are bytes. Sums are kept in the element type; the order of the terms of
 * an inner product is not promised. The result is the IEEE one, infinities and NaNs included.
 *
 * Status, as under "Checks" above; in this order:
 *   null pointer, bad count, bad size, size mismatch, bad stride, bad offset.
 *   single objects:     no count.
 *   constant products:  no size mismatch. */

/* Matrix by matrix: dst(i, j) = sum over k of A(i, k) * B(k, j). dst has as many rows as A and as
 * many columns as B.
 *
 * A size mismatch is returned unless, in stored sizes,
 *   mm  src1Width  = src2Height        mt  src1Width  = src2Width
 *   tm  src1Height = src2Height        tt  src1Height = src2Width
 * and alike for the array kinds of the same letters.
 *
 * The destination must not overlap a source. */
ZELM_API ZelStatus zelmMul_mm_32f(const float *pSrc1, int src1Stride1, int src1Stride2,
                                  int src1Width, int src1Height, const float *pSrc2,
                                  int src2Stride1, int src2Stride2, int src2Width, int src2Height,
                                  float *pDst, int dstStride1, int dstStride2);
ZELM_API ZelStatus zelmMul_mm_64f(const double *pSrc1, int src1Stride1, int src1Stride2,
                                  int src1Width, int src1Height, const double *pSrc2,
                                  int src2Stride1, int src2Stride2, int src2Width, int src2Height,
                                  double *pDst, int dstStride1, int dstStride2);
ZELM_API ZelStatus zelmMul_mm_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Width,
                                    int src1Height, const float *const *ppSrc2, int src2RoiShift,
                                    int src2Width, int src2Height, float *const *ppDst,
                                    int dstRoiShift);
ZELM_API ZelStatus zelmMul_mm_64f_P(const double *const *ppSrc1, int src1RoiShift, int src1Width,
                                    int src1Height, const double *const *ppSrc2, int src2RoiShift,
                                    int src2Width, int src2Height, double *const *ppDst,
                                    int dstRoiShift);
ZELM_API ZelStatus zelmMul_mt_32f(const float *pSrc1, int src1Stride1, int src1Stride2,
                                  int src1Width, int src1Height, const float *pSrc2,
                                  int src2Stride1, int src2Stride2, int src2Width, int src2Height,
                                  float *pDst, int dstStride1, int dstStride2);
ZELM_API ZelStatus zelmMul_mt_64f(const double *pSrc1, int src1Stride1, int src1Stride2,
                                  int src1Width, int src1Height, const double *pSrc2,
                                  int src2Stride1, int src2Stride2, int src2Width, int src2Height,
                                  double *pDst, int dstStride1, int dstStride2);
ZELM_API ZelStatus zelmMul_mt_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Width,
                                    int src1Height, const float *const *ppSrc2, int src2RoiShift,
                                    int src2Width, int src2Height, float *const *ppDst,
                                    int dstRoiShift);
ZELM_API ZelStatus zelmMul_mt_64f_P(const double *const *ppSrc1, int src1RoiShift, int src1Width,
                                    int src1Height, const double *const *ppSrc2, int src2RoiShift,
                                    int src2Width, int src2Height, double *const *ppDst,
                                    int dstRoiShift);
ZELM_API ZelStatus zelmMul_tm_32f(const float *pSrc1, int src1Stride1, int src1Stride2,
                                  int src1Width, int src1Height, const float *pSrc2,
                                  int src2Stride1, int src2Stride2, int src2Width, int src2Height,
                                  float *pDst, int dstStride1, int dstStride2);
ZELM_API ZelStatus zelmMul_tm_64f(const double *pSrc1, int src1Stride1, int src1Stride2,
                                  int src1Width, int src1Height, const double *pSrc2,
                                  int src2Stride1, int src2Stride2, int src2Width, int src2Height,
                                  double *pDst, int dstStride1, int dstStride2);
ZELM_API ZelStatus zelmMul_tm_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Width,
                                    int src1Height, const float *const *ppSrc2, int src2RoiShift,
                                    int src2Width, int src2Height, float *const *ppDst,
                                    int dstRoiShift);
ZELM_API ZelStatus zelmMul_tm_64f_P(const double *const *ppSrc1, int src1RoiShift, int src1Width,
                                    int src1Height, const double *const *ppSrc2, int src2RoiShift,
                                    int src2Width, int src2Height, double *const *ppDst,
                                    int dstRoiShift);
ZELM_API ZelStatus zelmMul_tt_32f(const float *pSrc1, int src1Stride1, int src1Stride2,
                                  int src1Width, int src1Height, const float *pSrc2,
                                  int src2Stride1, int src2Stride2, int src2Width, int src2Height,
                                  float *pDst, int dstStride1, int dstStride2);
ZELM_API ZelStatus zelmMul_tt_64f(const double *pSrc1, int src1Stride1, int src1Stride2,
                                  int src1Width, int src1Height, const double *pSrc2,
                                  int src2Stride1, int src2Stride2, int src2Width, int src2Height,
                                  double *pDst, int dstStride1, int dstStride2);
ZELM_API ZelStatus zelmMul_tt_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Width,
                                    int src1Height, const float *const *ppSrc2, int src2RoiShift,
                                    int src2Width, int src2Height, float *const *ppDst,
                                    int dstRoiShift);
ZELM_API ZelStatus zelmMul_tt_64f_P(const double *const *ppSrc1, int src1RoiShift, int src1Width,
                                    int src1Height, const double *const *ppSrc2, int src2RoiShift,
                                    int src2Width, int src2Height, double *const *ppDst,
                                    int dstRoiShift);

/* Matrix by matrix, arrays: dst_n(i, j) = sum over k of A_n(i, k) * B_n(k, j), with the sizes as
 * for one matrix. The destination must not overlap a source. */
ZELM_API ZelStatus zelmMul_mam_32f(const float *pSrc1, int src1Stride0, int src1Stride1,
                                   int src1Stride2, int src1Width, int src1Height,
                                   const float *pSrc2, int src2Stride1, int src2Stride2,
                                   int src2Width, int src2Height, float *pDst, int dstStride0,
                                   int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_mam_64f(const double *pSrc1, int src1Stride0, int src1Stride1,
                                   int src1Stride2, int src1Width, int src1Height,
                                   const double *pSrc2, int src2Stride1, int src2Stride2,
                                   int src2Width, int src2Height, double *pDst, int dstStride0,
                                   int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_mam_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                     int src1Width, int src1Height, const float *const *ppSrc2,
                                     int src2RoiShift, int src2Width, int src2Height,
                                     float *const *ppDst, int dstRoiShift, int dstStride0,
                                     int count);
ZELM_API ZelStatus zelmMul_mam_64f_P(const double *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                     int src1Width, int src1Height, const double *const *ppSrc2,
                                     int src2RoiShift, int src2Width, int src2Height,
                                     double *const *ppDst, int dstRoiShift, int dstStride0,
                                     int count);
ZELM_API ZelStatus zelmMul_mam_32f_L(const float *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                     int src1Stride2, int src1Width, int src1Height,
                                     const float *pSrc2, int src2Stride1, int src2Stride2,
                                     int src2Width, int src2Height, float *const *ppDst,
                                     int dstRoiShift, int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_mam_64f_L(const double *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                     int src1Stride2, int src1Width, int src1Height,
                                     const double *pSrc2, int src2Stride1, int src2Stride2,
                                     int src2Width, int src2Height, double *const *ppDst,
                                     int dstRoiShift, int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_mat_32f(const float *pSrc1, int src1Stride0, int src1Stride1,
                                   int src1Stride2, int src1Width, int src1Height,
                                   const float *pSrc2, int src2Stride1, int src2Stride2,
                                   int src2Width, int src2Height, float *pDst, int dstStride0,
                                   int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_mat_64f(const double *pSrc1, int src1Stride0, int src1Stride1,
                                   int src1Stride2, int src1Width, int src1Height,
                                   const double *pSrc2, int src2Stride1, int src2Stride2,
                                   int src2Width, int src2Height, double *pDst, int dstStride0,
                                   int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_mat_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                     int src1Width, int src1Height, const float *const *ppSrc2,
                                     int src2RoiShift, int src2Width, int src2Height,
                                     float *const *ppDst, int dstRoiShift, int dstStride0,
                                     int count);
ZELM_API ZelStatus zelmMul_mat_64f_P(const double *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                     int src1Width, int src1Height, const double *const *ppSrc2,
                                     int src2RoiShift, int src2Width, int src2Height,
                                     double *const *ppDst, int dstRoiShift, int dstStride0,
                                     int count);
ZELM_API ZelStatus zelmMul_mat_32f_L(const float *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                     int src1Stride2, int src1Width, int src1Height,
                                     const float *pSrc2, int src2Stride1, int src2Stride2,
                                     int src2Width, int src2Height, float *const *ppDst,
                                     int dstRoiShift, int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_mat_64f_L(const double *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                     int src1Stride2, int src1Width, int src1Height,
                                     const double *pSrc2, int src2Stride1, int src2Stride2,
                                     int src2Width, int src2Height, double *const *ppDst,
                                     int dstRoiShift, int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_tam_32f(const float *pSrc1, int src1Stride0, int src1Stride1,
                                   int src1Stride2, int src1Width, int src1Height,
                                   const float *pSrc2, int src2Stride1, int src2Stride2,
                                   int src2Width, int src2Height, float *pDst, int dstStride0,
                                   int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_tam_64f(const double *pSrc1, int src1Stride0, int src1Stride1,
                                   int src1Stride2, int src1Width, int src1Height,
                                   const double *pSrc2, int src2Stride1, int src2Stride2,
                                   int src2Width, int src2Height, double *pDst, int dstStride0,
                                   int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_tam_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                     int src1Width, int src1Height, const float *const *ppSrc2,
                                     int src2RoiShift, int src2Width, int src2Height,
                                     float *const *ppDst, int dstRoiShift, int dstStride0,
                                     int count);
ZELM_API ZelStatus zelmMul_tam_64f_P(const double *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                     int src1Width, int src1Height, const double *const *ppSrc2,
                                     int src2RoiShift, int src2Width, int src2Height,
                                     double *const *ppDst, int dstRoiShift, int dstStride0,
                                     int count);
ZELM_API ZelStatus zelmMul_tam_32f_L(const float *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                     int src1Stride2, int src1Width, int src1Height,
                                     const float *pSrc2, int src2Stride1, int src2Stride2,
                                     int src2Width, int src2Height, float *const *ppDst,
                                     int dstRoiShift, int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_tam_64f_L(const double *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                     int src1Stride2, int src1Width, int src1Height,
                                     const double *pSrc2, int src2Stride1, int src2Stride2,
                                     int src2Width, int src2Height, double *const *ppDst,
                                     int dstRoiShift, int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_tat_32f(const float *pSrc1, int src1Stride0, int src1Stride1,
                                   int src1Stride2, int src1Width, int src1Height,
                                   const float *pSrc2, int src2Stride1, int src2Stride2,
                                   int src2Width, int src2Height, float *pDst, int dstStride0,
                                   int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_tat_64f(const double *pSrc1, int src1Stride0, int src1Stride1,
                                   int src1Stride2, int src1Width, int src1Height,
                                   const double *pSrc2, int src2Stride1, int src2Stride2,
                                   int src2Width, int src2Height, double *pDst, int dstStride0,
                                   int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_tat_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                     int src1Width, int src1Height, const float *const *ppSrc2,
                                     int src2RoiShift, int src2Width, int src2Height,
                                     float *const *ppDst, int dstRoiShift, int dstStride0,
                                     int count);
ZELM_API ZelStatus zelmMul_tat_64f_P(const double *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                     int src1Width, int src1Height, const double *const *ppSrc2,
                                     int src2RoiShift, int src2Width, int src2Height,
                                     double *const *ppDst, int dstRoiShift, int dstStride0,
                                     int count);
ZELM_API ZelStatus zelmMul_tat_32f_L(const float *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                     int src1Stride2, int src1Width, int src1Height,
                                     const float *pSrc2, int src2Stride1, int src2Stride2,
                                     int src2Width, int src2Height, float *const *ppDst,
                                     int dstRoiShift, int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_tat_64f_L(const double *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                     int src1Stride2, int src1Width, int src1Height,
                                     const double *pSrc2, int src2Stride1, int src2Stride2,
                                     int src2Width, int src2Height, double *const *ppDst,
                                     int dstRoiShift, int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_mma_32f(const float *pSrc1, int src1Stride1, int src1Stride2,
                                   int src1Width, int src1Height, const float *pSrc2,
                                   int src2Stride0, int src2Stride1, int src2Stride2, int src2Width,
                                   int src2Height, float *pDst, int dstStride0, int dstStride1,
                                   int dstStride2, int count);
ZELM_API ZelStatus zelmMul_mma_64f(const double *pSrc1, int src1Stride1, int src1Stride2,
                                   int src1Width, int src1Height, const double *pSrc2,
                                   int src2Stride0, int src2Stride1, int src2Stride2, int src2Width,
                                   int src2Height, double *pDst, int dstStride0, int dstStride1,
                                   int dstStride2, int count);
ZELM_API ZelStatus zelmMul_mma_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Width,
                                     int src1Height, const float *const *ppSrc2, int src2RoiShift,
                                     int src2Stride0, int src2Width, int src2Height,
                                     float *const *ppDst, int dstRoiShift, int dstStride0,
                                     int count);
ZELM_API ZelStatus zelmMul_mma_64f_P(const double *const *ppSrc1, int src1RoiShift, int src1Width,
                                     int src1Height, const double *const *ppSrc2, int src2RoiShift,
                                     int src2Stride0, int src2Width, int src2Height,
                                     double *const *ppDst, int dstRoiShift, int dstStride0,
                                     int count);
ZELM_API ZelStatus zelmMul_mma_32f_L(const float *pSrc1, int src1Stride1, int src1Stride2,
                                     int src1Width, int src1Height, const float *const *ppSrc2,
                                     int src2RoiShift, int src2Stride1, int src2Stride2,
                                     int src2Width, int src2Height, float *const *ppDst,
                                     int dstRoiShift, int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_mma_64f_L(const double *pSrc1, int src1Stride1, int src1Stride2,
                                     int src1Width, int src1Height, const double *const *ppSrc2,
                                     int src2RoiShift, int src2Stride1, int src2Stride2,
                                     int src2Width, int src2Height, double *const *ppDst,
                                     int dstRoiShift, int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_mta_32f(const float *pSrc1, int src1Stride1, int src1Stride2,
                                   int src1Width, int src1Height, const float *pSrc2,
                                   int src2Stride0, int src2Stride1, int src2Stride2, int src2Width,
                                   int src2Height, float *pDst, int dstStride0, int dstStride1,
                                   int dstStride2, int count);
ZELM_API ZelStatus zelmMul_mta_64f(const double *pSrc1, int src1Stride1, int src1Stride2,
                                   int src1Width, int src1Height, const double *pSrc2,
                                   int src2Stride0, int src2Stride1, int src2Stride2, int src2Width,
                                   int src2Height, double *pDst, int dstStride0, int dstStride1,
                                   int dstStride2, int count);
ZELM_API ZelStatus zelmMul_mta_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Width,
                                     int src1Height, const float *const *ppSrc2, int src2RoiShift,
                                     int src2Stride0, int src2Width, int src2Height,
                                     float *const *ppDst, int dstRoiShift, int dstStride0,
                                     int count);
ZELM_API ZelStatus zelmMul_mta_64f_P(const double *const *ppSrc1, int src1RoiShift, int src1Width,
                                     int src1Height, const double *const *ppSrc2, int src2RoiShift,
                                     int src2Stride0, int src2Width, int src2Height,
                                     double *const *ppDst, int dstRoiShift, int dstStride0,
                                     int count);
ZELM_API ZelStatus zelmMul_mta_32f_L(const float *pSrc1, int src1Stride1, int src1Stride2,
                                     int src1Width, int src1Height, const float *const *ppSrc2,
                                     int src2RoiShift, int src2Stride1, int src2Stride2,
                                     int src2Width, int src2Height, float *const *ppDst,
                                     int dstRoiShift, int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_mta_64f_L(const double *pSrc1, int src1Stride1, int src1Stride2,
                                     int src1Width, int src1Height, const double *const *ppSrc2,
                                     int src2RoiShift, int src2Stride1, int src2Stride2,
                                     int src2Width, int src2Height, double *const *ppDst,
                                     int dstRoiShift, int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_tma_32f(const float *pSrc1, int src1Stride1, int src1Stride2,
                                   int src1Width, int src1Height, const float *pSrc2,
                                   int src2Stride0, int src2Stride1, int src2Stride2, int src2Width,
                                   int src2Height, float *pDst, int dstStride0, int dstStride1,
                                   int dstStride2, int count);
ZELM_API ZelStatus zelmMul_tma_64f(const double *pSrc1, int src1Stride1, int src1Stride2,
                                   int src1Width, int src1Height, const double *pSrc2,
                                   int src2Stride0, int src2Stride1, int src2Stride2, int src2Width,
                                   int src2Height, double *pDst, int dstStride0, int dstStride1,
                                   int dstStride2, int count);
ZELM_API ZelStatus zelmMul_tma_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Width,
                                     int src1Height, const float *const *ppSrc2, int src2RoiShift,
                                     int src2Stride0, int src2Width, int src2Height,
                                     float *const *ppDst, int dstRoiShift, int dstStride0,
                                     int count);
ZELM_API ZelStatus zelmMul_tma_64f_P(const double *const *ppSrc1, int src1RoiShift, int src1Width,
                                     int src1Height, const double *const *ppSrc2, int src2RoiShift,
                                     int src2Stride0, int src2Width, int src2Height,
                                     double *const *ppDst, int dstRoiShift, int dstStride0,
                                     int count);
ZELM_API ZelStatus zelmMul_tma_32f_L(const float *pSrc1, int src1Stride1, int src1Stride2,
                                     int src1Width, int src1Height, const float *const *ppSrc2,
                                     int src2RoiShift, int src2Stride1, int src2Stride2,
                                     int src2Width, int src2Height, float *const *ppDst,
                                     int dstRoiShift, int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_tma_64f_L(const double *pSrc1, int src1Stride1, int src1Stride2,
                                     int src1Width, int src1Height, const double *const *ppSrc2,
                                     int src2RoiShift, int src2Stride1, int src2Stride2,
                                     int src2Width, int src2Height, double *const *ppDst,
                                     int dstRoiShift, int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_tta_32f(const float *pSrc1, int src1Stride1, int src1Stride2,
                                   int src1Width, int src1Height, const float *pSrc2,
                                   int src2Stride0, int src2Stride1, int src2Stride2, int src2Width,
                                   int src2Height, float *pDst, int dstStride0, int dstStride1,
                                   int dstStride2, int count);
ZELM_API ZelStatus zelmMul_tta_64f(const double *pSrc1, int src1Stride1, int src1Stride2,
                                   int src1Width, int src1Height, const double *pSrc2,
                                   int src2Stride0, int src2Stride1, int src2Stride2, int src2Width,
                                   int src2Height, double *pDst, int dstStride0, int dstStride1,
                                   int dstStride2, int count);
ZELM_API ZelStatus zelmMul_tta_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Width,
                                     int src1Height, const float *const *ppSrc2, int src2RoiShift,
                                     int src2Stride0, int src2Width, int src2Height,
                                     float *const *ppDst, int dstRoiShift, int dstStride0,
                                     int count);
ZELM_API ZelStatus zelmMul_tta_64f_P(const double *const *ppSrc1, int src1RoiShift, int src1Width,
                                     int src1Height, const double *const *ppSrc2, int src2RoiShift,
                                     int src2Stride0, int src2Width, int src2Height,
                                     double *const *ppDst, int dstRoiShift, int dstStride0,
                                     int count);
ZELM_API ZelStatus zelmMul_tta_32f_L(const float *pSrc1, int src1Stride1, int src1Stride2,
                                     int src1Width, int src1Height, const float *const *ppSrc2,
                                     int src2RoiShift, int src2Stride1, int src2Stride2,
                                     int src2Width, int src2Height, float *const *ppDst,
                                     int dstRoiShift, int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_tta_64f_L(const double *pSrc1, int src1Stride1, int src1Stride2,
                                     int src1Width, int src1Height, const double *const *ppSrc2,
                                     int src2RoiShift, int src2Stride1, int src2Stride2,
                                     int src2Width, int src2Height, double *const *ppDst,
                                     int dstRoiShift, int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_mama_32f(const float *pSrc1, int src1Stride0, int src1Stride1,
                                    int src1Stride2, int src1Width, int src1Height,
                                    const float *pSrc2, int src2Stride0, int src2Stride1,
                                    int src2Stride2, int src2Width, int src2Height, float *pDst,
                                    int dstStride0, int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_mama_64f(const double *pSrc1, int src1Stride0, int src1Stride1,
                                    int src1Stride2, int src1Width, int src1Height,
                                    const double *pSrc2, int src2Stride0, int src2Stride1,
                                    int src2Stride2, int src2Width, int src2Height, double *pDst,
                                    int dstStride0, int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_mama_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                      int src1Width, int src1Height, const float *const *ppSrc2,
                                      int src2RoiShift, int src2Stride0, int src2Width,
                                      int src2Height, float *const *ppDst, int dstRoiShift,
                                      int dstStride0, int count);
ZELM_API ZelStatus zelmMul_mama_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                      int src1Stride0, int src1Width, int src1Height,
                                      const double *const *ppSrc2, int src2RoiShift,
                                      int src2Stride0, int src2Width, int src2Height,
                                      double *const *ppDst, int dstRoiShift, int dstStride0,
                                      int count);
ZELM_API ZelStatus zelmMul_mama_32f_L(const float *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                      int src1Stride2, int src1Width, int src1Height,
                                      const float *const *ppSrc2, int src2RoiShift, int src2Stride1,
                                      int src2Stride2, int src2Width, int src2Height,
                                      float *const *ppDst, int dstRoiShift, int dstStride1,
                                      int dstStride2, int count);
ZELM_API ZelStatus zelmMul_mama_64f_L(const double *const *ppSrc1, int src1RoiShift,
                                      int src1Stride1, int src1Stride2, int src1Width,
                                      int src1Height, const double *const *ppSrc2, int src2RoiShift,
                                      int src2Stride1, int src2Stride2, int src2Width,
                                      int src2Height, double *const *ppDst, int dstRoiShift,
                                      int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_mata_32f(const float *pSrc1, int src1Stride0, int src1Stride1,
                                    int src1Stride2, int src1Width, int src1Height,
                                    const float *pSrc2, int src2Stride0, int src2Stride1,
                                    int src2Stride2, int src2Width, int src2Height, float *pDst,
                                    int dstStride0, int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_mata_64f(const double *pSrc1, int src1Stride0, int src1Stride1,
                                    int src1Stride2, int src1Width, int src1Height,
                                    const double *pSrc2, int src2Stride0, int src2Stride1,
                                    int src2Stride2, int src2Width, int src2Height, double *pDst,
                                    int dstStride0, int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_mata_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                      int src1Width, int src1Height, const float *const *ppSrc2,
                                      int src2RoiShift, int src2Stride0, int src2Width,
                                      int src2Height, float *const *ppDst, int dstRoiShift,
                                      int dstStride0, int count);
ZELM_API ZelStatus zelmMul_mata_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                      int src1Stride0, int src1Width, int src1Height,
                                      const double *const *ppSrc2, int src2RoiShift,
                                      int src2Stride0, int src2Width, int src2Height,
                                      double *const *ppDst, int dstRoiShift, int dstStride0,
                                      int count);
ZELM_API ZelStatus zelmMul_mata_32f_L(const float *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                      int src1Stride2, int src1Width, int src1Height,
                                      const float *const *ppSrc2, int src2RoiShift, int src2Stride1,
                                      int src2Stride2, int src2Width, int src2Height,
                                      float *const *ppDst, int dstRoiShift, int dstStride1,
                                      int dstStride2, int count);
ZELM_API ZelStatus zelmMul_mata_64f_L(const double *const *ppSrc1, int src1RoiShift,
                                      int src1Stride1, int src1Stride2, int src1Width,
                                      int src1Height, const double *const *ppSrc2, int src2RoiShift,
                                      int src2Stride1, int src2Stride2, int src2Width,
                                      int src2Height, double *const *ppDst, int dstRoiShift,
                                      int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_tama_32f(const float *pSrc1, int src1Stride0, int src1Stride1,
                                    int src1Stride2, int src1Width, int src1Height,
                                    const float *pSrc2, int src2Stride0, int src2Stride1,
                                    int src2Stride2, int src2Width, int src2Height, float *pDst,
                                    int dstStride0, int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_tama_64f(const double *pSrc1, int src1Stride0, int src1Stride1,
                                    int src1Stride2, int src1Width, int src1Height,
                                    const double *pSrc2, int src2Stride0, int src2Stride1,
                                    int src2Stride2, int src2Width, int src2Height, double *pDst,
                                    int dstStride0, int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_tama_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                      int src1Width, int src1Height, const float *const *ppSrc2,
                                      int src2RoiShift, int src2Stride0, int src2Width,
                                      int src2Height, float *const *ppDst, int dstRoiShift,
                                      int dstStride0, int count);
ZELM_API ZelStatus zelmMul_tama_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                      int src1Stride0, int src1Width, int src1Height,
                                      const double *const *ppSrc2, int src2RoiShift,
                                      int src2Stride0, int src2Width, int src2Height,
                                      double *const *ppDst, int dstRoiShift, int dstStride0,
                                      int count);
ZELM_API ZelStatus zelmMul_tama_32f_L(const float *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                      int src1Stride2, int src1Width, int src1Height,
                                      const float *const *ppSrc2, int src2RoiShift, int src2Stride1,
                                      int src2Stride2, int src2Width, int src2Height,
                                      float *const *ppDst, int dstRoiShift, int dstStride1,
                                      int dstStride2, int count);
ZELM_API ZelStatus zelmMul_tama_64f_L(const double *const *ppSrc1, int src1RoiShift,
                                      int src1Stride1, int src1Stride2, int src1Width,
                                      int src1Height, const double *const *ppSrc2, int src2RoiShift,
                                      int src2Stride1, int src2Stride2, int src2Width,
                                      int src2Height, double *const *ppDst, int dstRoiShift,
                                      int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_tata_32f(const float *pSrc1, int src1Stride0, int src1Stride1,
                                    int src1Stride2, int src1Width, int src1Height,
                                    const float *pSrc2, int src2Stride0, int src2Stride1,
                                    int src2Stride2, int src2Width, int src2Height, float *pDst,
                                    int dstStride0, int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_tata_64f(const double *pSrc1, int src1Stride0, int src1Stride1,
                                    int src1Stride2, int src1Width, int src1Height,
                                    const double *pSrc2, int src2Stride0, int src2Stride1,
                                    int src2Stride2, int src2Width, int src2Height, double *pDst,
                                    int dstStride0, int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_tata_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                      int src1Width, int src1Height, const float *const *ppSrc2,
                                      int src2RoiShift, int src2Stride0, int src2Width,
                                      int src2Height, float *const *ppDst, int dstRoiShift,
                                      int dstStride0, int count);
ZELM_API ZelStatus zelmMul_tata_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                      int src1Stride0, int src1Width, int src1Height,
                                      const double *const *ppSrc2, int src2RoiShift,
                                      int src2Stride0, int src2Width, int src2Height,
                                      double *const *ppDst, int dstRoiShift, int dstStride0,
                                      int count);
ZELM_API ZelStatus zelmMul_tata_32f_L(const float *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                      int src1Stride2, int src1Width, int src1Height,
                                      const float *const *ppSrc2, int src2RoiShift, int src2Stride1,
                                      int src2Stride2, int src2Width, int src2Height,
                                      float *const *ppDst, int dstRoiShift, int dstStride1,
                                      int dstStride2, int count);
ZELM_API ZelStatus zelmMul_tata_64f_L(const double *const *ppSrc1, int src1RoiShift,
                                      int src1Stride1, int src1Stride2, int src1Width,
                                      int src1Height, const double *const *ppSrc2, int src2RoiShift,
                                      int src2Stride1, int src2Stride2, int src2Width,
                                      int src2Height, double *const *ppDst, int dstRoiShift,
                                      int dstStride1, int dstStride2, int count);

/* Matrix by vector: dst(i) = sum over k of A(i, k) * v(k). dst has as many elements as A has rows.
 *
 * A size mismatch is returned unless, in stored sizes,
 *   mv  src1Width  = src2Len           tv  src1Height = src2Len
 * and alike for the array kinds of the same letters.
 *
 * The destination must not overlap a source. */
ZELM_API ZelStatus zelmMul_mv_32f(const float *pSrc1, int src1Stride1, int src1Stride2,
                                  int src1Width, int src1Height, const float *pSrc2,
                                  int src2Stride2, int src2Len, float *pDst, int dstStride2);
ZELM_API ZelStatus zelmMul_mv_64f(const double *pSrc1, int src1Stride1, int src1Stride2,
                                  int src1Width, int src1Height, const double *pSrc2,
                                  int src2Stride2, int src2Len, double *pDst, int dstStride2);
ZELM_API ZelStatus zelmMul_mv_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Width,
                                    int src1Height, const float *const *ppSrc2, int src2RoiShift,
                                    int src2Len, float *const *ppDst, int dstRoiShift);
ZELM_API ZelStatus zelmMul_mv_64f_P(const double *const *ppSrc1, int src1RoiShift, int src1Width,
                                    int src1Height, const double *const *ppSrc2, int src2RoiShift,
                                    int src2Len, double *const *ppDst, int dstRoiShift);
ZELM_API ZelStatus zelmMul_tv_32f(const float *pSrc1, int src1Stride1, int src1Stride2,
                                  int src1Width, int src1Height, const float *pSrc2,
                                  int src2Stride2, int src2Len, float *pDst, int dstStride2);
ZELM_API ZelStatus zelmMul_tv_64f(const double *pSrc1, int src1Stride1, int src1Stride2,
                                  int src1Width, int src1Height, const double *pSrc2,
                                  int src2Stride2, int src2Len, double *pDst, int dstStride2);
ZELM_API ZelStatus zelmMul_tv_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Width,
                                    int src1Height, const float *const *ppSrc2, int src2RoiShift,
                                    int src2Len, float *const *ppDst, int dstRoiShift);
ZELM_API ZelStatus zelmMul_tv_64f_P(const double *const *ppSrc1, int src1RoiShift, int src1Width,
                                    int src1Height, const double *const *ppSrc2, int src2RoiShift,
                                    int src2Len, double *const *ppDst, int dstRoiShift);

/* Matrix by vector, arrays: dst_n(i) = sum over k of A_n(i, k) * v_n(k), with the sizes as for one
 * matrix. The destination must not overlap a source. */
ZELM_API ZelStatus zelmMul_mav_32f(const float *pSrc1, int src1Stride0, int src1Stride1,
                                   int src1Stride2, int src1Width, int src1Height,
                                   const float *pSrc2, int src2Stride2, int src2Len, float *pDst,
                                   int dstStride0, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_mav_64f(const double *pSrc1, int src1Stride0, int src1Stride1,
                                   int src1Stride2, int src1Width, int src1Height,
                                   const double *pSrc2, int src2Stride2, int src2Len, double *pDst,
                                   int dstStride0, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_mav_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                     int src1Width, int src1Height, const float *const *ppSrc2,
                                     int src2RoiShift, int src2Len, float *const *ppDst,
                                     int dstRoiShift, int dstStride0, int count);
ZELM_API ZelStatus zelmMul_mav_64f_P(const double *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                     int src1Width, int src1Height, const double *const *ppSrc2,
                                     int src2RoiShift, int src2Len, double *const *ppDst,
                                     int dstRoiShift, int dstStride0, int count);
ZELM_API ZelStatus zelmMul_mav_32f_L(const float *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                     int src1Stride2, int src1Width, int src1Height,
                                     const float *pSrc2, int src2Stride2, int src2Len,
                                     float *const *ppDst, int dstRoiShift, int dstStride2,
                                     int count);
ZELM_API ZelStatus zelmMul_mav_64f_L(const double *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                     int src1Stride2, int src1Width, int src1Height,
                                     const double *pSrc2, int src2Stride2, int src2Len,
                                     double *const *ppDst, int dstRoiShift, int dstStride2,
                                     int count);
ZELM_API ZelStatus zelmMul_tav_32f(const float *pSrc1, int src1Stride0, int src1Stride1,
                                   int src1Stride2, int src1Width, int src1Height,
                                   const float *pSrc2, int src2Stride2, int src2Len, float *pDst,
                                   int dstStride0, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_tav_64f(const double *pSrc1, int src1Stride0, int src1Stride1,
                                   int src1Stride2, int src1Width, int src1Height,
                                   const double *pSrc2, int src2Stride2, int src2Len, double *pDst,
                                   int dstStride0, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_tav_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                     int src1Width, int src1Height, const float *const *ppSrc2,
                                     int src2RoiShift, int src2Len, float *const *ppDst,
                                     int dstRoiShift, int dstStride0, int count);
ZELM_API ZelStatus zelmMul_tav_64f_P(const double *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                     int src1Width, int src1Height, const double *const *ppSrc2,
                                     int src2RoiShift, int src2Len, double *const *ppDst,
                                     int dstRoiShift, int dstStride0, int count);
ZELM_API ZelStatus zelmMul_tav_32f_L(const float *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                     int src1Stride2, int src1Width, int src1Height,
                                     const float *pSrc2, int src2Stride2, int src2Len,
                                     float *const *ppDst, int dstRoiShift, int dstStride2,
                                     int count);
ZELM_API ZelStatus zelmMul_tav_64f_L(const double *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                     int src1Stride2, int src1Width, int src1Height,
                                     const double *pSrc2, int src2Stride2, int src2Len,
                                     double *const *ppDst, int dstRoiShift, int dstStride2,
                                     int count);
ZELM_API ZelStatus zelmMul_mva_32f(const float *pSrc1, int src1Stride1, int src1Stride2,
                                   int src1Width, int src1Height, const float *pSrc2,
                                   int src2Stride0, int src2Stride2, int src2Len, float *pDst,
                                   int dstStride0, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_mva_64f(const double *pSrc1, int src1Stride1, int src1Stride2,
                                   int src1Width, int src1Height, const double *pSrc2,
                                   int src2Stride0, int src2Stride2, int src2Len, double *pDst,
                                   int dstStride0, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_mva_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Width,
                                     int src1Height, const float *const *ppSrc2, int src2RoiShift,
                                     int src2Stride0, int src2Len, float *const *ppDst,
                                     int dstRoiShift, int dstStride0, int count);
ZELM_API ZelStatus zelmMul_mva_64f_P(const double *const *ppSrc1, int src1RoiShift, int src1Width,
                                     int src1Height, const double *const *ppSrc2, int src2RoiShift,
                                     int src2Stride0, int src2Len, double *const *ppDst,
                                     int dstRoiShift, int dstStride0, int count);
ZELM_API ZelStatus zelmMul_mva_32f_L(const float *pSrc1, int src1Stride1, int src1Stride2,
                                     int src1Width, int src1Height, const float *const *ppSrc2,
                                     int src2RoiShift, int src2Stride2, int src2Len,
                                     float *const *ppDst, int dstRoiShift, int dstStride2,
                                     int count);
ZELM_API ZelStatus zelmMul_mva_64f_L(const double *pSrc1, int src1Stride1, int src1Stride2,
                                     int src1Width, int src1Height, const double *const *ppSrc2,
                                     int src2RoiShift, int src2Stride2, int src2Len,
                                     double *const *ppDst, int dstRoiShift, int dstStride2,
                                     int count);
ZELM_API ZelStatus zelmMul_tva_32f(const float *pSrc1, int src1Stride1, int src1Stride2,
                                   int src1Width, int src1Height, const float *pSrc2,
                                   int src2Stride0, int src2Stride2, int src2Len, float *pDst,
                                   int dstStride0, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_tva_64f(const double *pSrc1, int src1Stride1, int src1Stride2,
                                   int src1Width, int src1Height, const double *pSrc2,
                                   int src2Stride0, int src2Stride2, int src2Len, double *pDst,
                                   int dstStride0, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_tva_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Width,
                                     int src1Height, const float *const *ppSrc2, int src2RoiShift,
                                     int src2Stride0, int src2Len, float *const *ppDst,
                                     int dstRoiShift, int dstStride0, int count);
ZELM_API ZelStatus zelmMul_tva_64f_P(const double *const *ppSrc1, int src1RoiShift, int src1Width,
                                     int src1Height, const double *const *ppSrc2, int src2RoiShift,
                                     int src2Stride0, int src2Len, double *const *ppDst,
                                     int dstRoiShift, int dstStride0, int count);
ZELM_API ZelStatus zelmMul_tva_32f_L(const float *pSrc1, int src1Stride1, int src1Stride2,
                                     int src1Width, int src1Height, const float *const *ppSrc2,
                                     int src2RoiShift, int src2Stride2, int src2Len,
                                     float *const *ppDst, int dstRoiShift, int dstStride2,
                                     int count);
ZELM_API ZelStatus zelmMul_tva_64f_L(const double *pSrc1, int src1Stride1, int src1Stride2,
                                     int src1Width, int src1Height, const double *const *ppSrc2,
                                     int src2RoiShift, int src2Stride2, int src2Len,
                                     double *const *ppDst, int dstRoiShift, int dstStride2,
                                     int count);
ZELM_API ZelStatus zelmMul_mava_32f(const float *pSrc1, int src1Stride0, int src1Stride1,
                                    int src1Stride2, int src1Width, int src1Height,
                                    const float *pSrc2, int src2Stride0, int src2Stride2,
                                    int src2Len, float *pDst, int dstStride0, int dstStride2,
                                    int count);
ZELM_API ZelStatus zelmMul_mava_64f(const double *pSrc1, int src1Stride0, int src1Stride1,
                                    int src1Stride2, int src1Width, int src1Height,
                                    const double *pSrc2, int src2Stride0, int src2Stride2,
                                    int src2Len, double *pDst, int dstStride0, int dstStride2,
                                    int count);
ZELM_API ZelStatus zelmMul_mava_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                      int src1Width, int src1Height, const float *const *ppSrc2,
                                      int src2RoiShift, int src2Stride0, int src2Len,
                                      float *const *ppDst, int dstRoiShift, int dstStride0,
                                      int count);
ZELM_API ZelStatus zelmMul_mava_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                      int src1Stride0, int src1Width, int src1Height,
                                      const double *const *ppSrc2, int src2RoiShift,
                                      int src2Stride0, int src2Len, double *const *ppDst,
                                      int dstRoiShift, int dstStride0, int count);
ZELM_API ZelStatus zelmMul_mava_32f_L(const float *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                      int src1Stride2, int src1Width, int src1Height,
                                      const float *const *ppSrc2, int src2RoiShift, int src2Stride2,
                                      int src2Len, float *const *ppDst, int dstRoiShift,
                                      int dstStride2, int count);
ZELM_API ZelStatus zelmMul_mava_64f_L(const double *const *ppSrc1, int src1RoiShift,
                                      int src1Stride1, int src1Stride2, int src1Width,
                                      int src1Height, const double *const *ppSrc2, int src2RoiShift,
                                      int src2Stride2, int src2Len, double *const *ppDst,
                                      int dstRoiShift, int dstStride2, int count);
ZELM_API ZelStatus zelmMul_tava_32f(const float *pSrc1, int src1Stride0, int src1Stride1,
                                    int src1Stride2, int src1Width, int src1Height,
                                    const float *pSrc2, int src2Stride0, int src2Stride2,
                                    int src2Len, float *pDst, int dstStride0, int dstStride2,
                                    int count);
ZELM_API ZelStatus zelmMul_tava_64f(const double *pSrc1, int src1Stride0, int src1Stride1,
                                    int src1Stride2, int src1Width, int src1Height,
                                    const double *pSrc2, int src2Stride0, int src2Stride2,
                                    int src2Len, double *pDst, int dstStride0, int dstStride2,
                                    int count);
ZELM_API ZelStatus zelmMul_tava_32f_P(const float *const *ppSrc1, int src1RoiShift, int src1Stride0,
                                      int src1Width, int src1Height, const float *const *ppSrc2,
                                      int src2RoiShift, int src2Stride0, int src2Len,
                                      float *const *ppDst, int dstRoiShift, int dstStride0,
                                      int count);
ZELM_API ZelStatus zelmMul_tava_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                      int src1Stride0, int src1Width, int src1Height,
                                      const double *const *ppSrc2, int src2RoiShift,
                                      int src2Stride0, int src2Len, double *const *ppDst,
                                      int dstRoiShift, int dstStride0, int count);
ZELM_API ZelStatus zelmMul_tava_32f_L(const float *const *ppSrc1, int src1RoiShift, int src1Stride1,
                                      int src1Stride2, int src1Width, int src1Height,
                                      const float *const *ppSrc2, int src2RoiShift, int src2Stride2,
                                      int src2Len, float *const *ppDst, int dstRoiShift,
                                      int dstStride2, int count);
ZELM_API ZelStatus zelmMul_tava_64f_L(const double *const *ppSrc1, int src1RoiShift,
                                      int src1Stride1, int src1Stride2, int src1Width,
                                      int src1Height, const double *const *ppSrc2, int src2RoiShift,
                                      int src2Stride2, int src2Len, double *const *ppDst,
                                      int dstRoiShift, int dstStride2, int count);

/* Matrix by constant: dst(i, j) = val * src(i, j), i < height, j < width. The stored matrix of a t
 * operand has width rows and height columns.
 *
 * In place: in mc and mac the destination may be the source, at the same address (table, roi
 * shift) and with the same strides. No other overlap is allowed. */
ZELM_API ZelStatus zelmMul_mc_32f(const float *pSrc, int srcStride1, int srcStride2, float val,
                                  float *pDst, int dstStride1, int dstStride2, int width,
                                  int height);
ZELM_API ZelStatus zelmMul_mc_64f(const double *pSrc, int srcStride1, int srcStride2, double val,
                                  double *pDst, int dstStride1, int dstStride2, int width,
                                  int height);
ZELM_API ZelStatus zelmMul_mc_32f_P(const float *const *ppSrc, int srcRoiShift, float val,
                                    float *const *ppDst, int dstRoiShift, int width, int height);
ZELM_API ZelStatus zelmMul_mc_64f_P(const double *const *ppSrc, int srcRoiShift, double val,
                                    double *const *ppDst, int dstRoiShift, int width, int height);
ZELM_API ZelStatus zelmMul_tc_32f(const float *pSrc, int srcStride1, int srcStride2, float val,
                                  float *pDst, int dstStride1, int dstStride2, int width,
                                  int height);
ZELM_API ZelStatus zelmMul_tc_64f(const double *pSrc, int srcStride1, int srcStride2, double val,
                                  double *pDst, int dstStride1, int dstStride2, int width,
                                  int height);
ZELM_API ZelStatus zelmMul_tc_32f_P(const float *const *ppSrc, int srcRoiShift, float val,
                                    float *const *ppDst, int dstRoiShift, int width, int height);
ZELM_API ZelStatus zelmMul_tc_64f_P(const double *const *ppSrc, int srcRoiShift, double val,
                                    double *const *ppDst, int dstRoiShift, int width, int height);
ZELM_API ZelStatus zelmMul_mac_32f(const float *pSrc, int srcStride0, int srcStride1,
                                   int srcStride2, float val, float *pDst, int dstStride0,
                                   int dstStride1, int dstStride2, int width, int height,
                                   int count);
ZELM_API ZelStatus zelmMul_mac_64f(const double *pSrc, int srcStride0, int srcStride1,
                                   int srcStride2, double val, double *pDst, int dstStride0,
                                   int dstStride1, int dstStride2, int width, int height,
                                   int count);
ZELM_API ZelStatus zelmMul_mac_32f_P(const float *const *ppSrc, int srcRoiShift, int srcStride0,
                                     float val, float *const *ppDst, int dstRoiShift,
                                     int dstStride0, int width, int height, int count);
ZELM_API ZelStatus zelmMul_mac_64f_P(const double *const *ppSrc, int srcRoiShift, int srcStride0,
                                     double val, double *const *ppDst, int dstRoiShift,
                                     int dstStride0, int width, int height, int count);
ZELM_API ZelStatus zelmMul_mac_32f_L(const float *const *ppSrc, int srcRoiShift, int srcStride1,
                                     int srcStride2, float val, float *const *ppDst,
                                     int dstRoiShift, int dstStride1, int dstStride2, int width,
                                     int height, int count);
ZELM_API ZelStatus zelmMul_mac_64f_L(const double *const *ppSrc, int srcRoiShift, int srcStride1,
                                     int srcStride2, double val, double *const *ppDst,
                                     int dstRoiShift, int dstStride1, int dstStride2, int width,
                                     int height, int count);
ZELM_API ZelStatus zelmMul_tac_32f(const float *pSrc, int srcStride0, int srcStride1,
                                   int srcStride2, float val, float *pDst, int dstStride0,
                                   int dstStride1, int dstStride2, int width, int height,
                                   int count);
ZELM_API ZelStatus zelmMul_tac_64f(const double *pSrc, int srcStride0, int srcStride1,
                                   int srcStride2, double val, double *pDst, int dstStride0,
                                   int dstStride1, int dstStride2, int width, int height,
                                   int count);
ZELM_API ZelStatus zelmMul_tac_32f_P(const float *const *ppSrc, int srcRoiShift, int srcStride0,
                                     float val, float *const *ppDst, int dstRoiShift,
                                     int dstStride0, int width, int height, int count);
ZELM_API ZelStatus zelmMul_tac_64f_P(const double *const *ppSrc, int srcRoiShift, int srcStride0,
                                     double val, double *const *ppDst, int dstRoiShift,
                                     int dstStride0, int width, int height, int count);
ZELM_API ZelStatus zelmMul_tac_32f_L(const float *const *ppSrc, int srcRoiShift, int srcStride1,
                                     int srcStride2, float val, float *const *ppDst,
                                     int dstRoiShift, int dstStride1, int dstStride2, int width,
                                     int height, int count);
ZELM_API ZelStatus zelmMul_tac_64f_L(const double *const *ppSrc, int srcRoiShift, int srcStride1,
                                     int srcStride2, double val, double *const *ppDst,
                                     int dstRoiShift, int dstStride1, int dstStride2, int width,
                                     int height, int count);

/* Vector by constant: dst_n(k) = val_n * src_n(k). vac has one constant for all vectors, vca one
 * vector for all constants.
 *
 * In place: in vc, vac and vaca the destination may be the source, at the same address (table, roi
 * shift) and with the same strides. No other overlap is allowed. */
ZELM_API ZelStatus zelmMul_vc_32f(const float *pSrc, int srcStride2, float val, float *pDst,
                                  int dstStride2, int len);
ZELM_API ZelStatus zelmMul_vc_64f(const double *pSrc, int srcStride2, double val, double *pDst,
                                  int dstStride2, int len);
ZELM_API ZelStatus zelmMul_vc_32f_P(const float *const *ppSrc, int srcRoiShift, float val,
                                    float *const *ppDst, int dstRoiShift, int len);
ZELM_API ZelStatus zelmMul_vc_64f_P(const double *const *ppSrc, int srcRoiShift, double val,
                                    double *const *ppDst, int dstRoiShift, int len);
ZELM_API ZelStatus zelmMul_vac_32f(const float *pSrc, int srcStride0, int srcStride2, float val,
                                   float *pDst, int dstStride0, int dstStride2, int len, int count);
ZELM_API ZelStatus zelmMul_vac_64f(const double *pSrc, int srcStride0, int srcStride2, double val,
                                   double *pDst, int dstStride0, int dstStride2, int len,
                                   int count);
ZELM_API ZelStatus zelmMul_vac_32f_P(const float *const *ppSrc, int srcRoiShift, int srcStride0,
                                     float val, float *const *ppDst, int dstRoiShift,
                                     int dstStride0, int len, int count);
ZELM_API ZelStatus zelmMul_vac_64f_P(const double *const *ppSrc, int srcRoiShift, int srcStride0,
                                     double val, double *const *ppDst, int dstRoiShift,
                                     int dstStride0, int len, int count);
ZELM_API ZelStatus zelmMul_vac_32f_L(const float *const *ppSrc, int srcRoiShift, int srcStride2,
                                     float val, float *const *ppDst, int dstRoiShift,
                                     int dstStride2, int len, int count);
ZELM_API ZelStatus zelmMul_vac_64f_L(const double *const *ppSrc, int srcRoiShift, int srcStride2,
                                     double val, double *const *ppDst, int dstRoiShift,
                                     int dstStride2, int len, int count);
ZELM_API ZelStatus zelmMul_vca_32f(const float *pSrc, int srcStride2, const float *pVal,
                                   int valStride0, float *pDst, int dstStride0, int dstStride2,
                                   int len, int count);
ZELM_API ZelStatus zelmMul_vca_64f(const double *pSrc, int srcStride2, const double *pVal,
                                   int valStride0, double *pDst, int dstStride0, int dstStride2,
                                   int len, int count);
ZELM_API ZelStatus zelmMul_vca_32f_P(const float *const *ppSrc, int srcRoiShift, const float *pVal,
                                     int valStride0, float *const *ppDst, int dstRoiShift,
                                     int dstStride0, int len, int count);
ZELM_API ZelStatus zelmMul_vca_64f_P(const double *const *ppSrc, int srcRoiShift,
                                     const double *pVal, int valStride0, double *const *ppDst,
                                     int dstRoiShift, int dstStride0, int len, int count);
ZELM_API ZelStatus zelmMul_vca_32f_L(const float *pSrc, int srcStride2, const float *const *ppVal,
                                     int valRoiShift, float *const *ppDst, int dstRoiShift,
                                     int dstStride2, int len, int count);
ZELM_API ZelStatus zelmMul_vca_64f_L(const double *pSrc, int srcStride2, const double *const *ppVal,
                                     int valRoiShift, double *const *ppDst, int dstRoiShift,
                                     int dstStride2, int len, int count);
ZELM_API ZelStatus zelmMul_vaca_32f(const float *pSrc, int srcStride0, int srcStride2,
                                    const float *pVal, int valStride0, float *pDst, int dstStride0,
                                    int dstStride2, int len, int count);
ZELM_API ZelStatus zelmMul_vaca_64f(const double *pSrc, int srcStride0, int srcStride2,
                                    const double *pVal, int valStride0, double *pDst,
                                    int dstStride0, int dstStride2, int len, int count);
ZELM_API ZelStatus zelmMul_vaca_32f_P(const float *const *ppSrc, int srcRoiShift, int srcStride0,
                                      const float *pVal, int valStride0, float *const *ppDst,
                                      int dstRoiShift, int dstStride0, int len, int count);
ZELM_API ZelStatus zelmMul_vaca_64f_P(const double *const *ppSrc, int srcRoiShift, int srcStride0,
                                      const double *pVal, int valStride0, double *const *ppDst,
                                      int dstRoiShift, int dstStride0, int len, int count);
ZELM_API ZelStatus zelmMul_vaca_32f_L(const float *const *ppSrc, int srcRoiShift, int srcStride2,
                                      const float *const *ppVal, int valRoiShift,
                                      float *const *ppDst, int dstRoiShift, int dstStride2, int len,
                                      int count);
ZELM_API ZelStatus zelmMul_vaca_64f_L(const double *const *ppSrc, int srcRoiShift, int srcStride2,
                                      const double *const *ppVal, int valRoiShift,
                                      double *const *ppDst, int dstRoiShift, int dstStride2,
                                      int len, int count);

/* ============================================================================================== */
/* Copy: Arrays moved from one description to another */
/* ============================================================================================== */

/* dst_n(i, j) = src_n(i, j), n = 0 .. count - 1: matrices of height rows and width columns, vectors
 * of len elements. The two letters of the name are the descriptions of source and destination:
 * S standard, P pointer, L layout. Elements move as bit patterns: signalling NaN and the sign of
 * zero arrive as they are.
 *
 * In place, at the same address with the same strides, nothing changes. No other overlap is
 * allowed. Always on the calling thread.
 *
 * Status, as under "Checks" above; in this order:
 *   null pointer, bad size, bad count, bad stride (Stride1, Stride2), bad offset, bad stride
 *   (Stride0).
 *   ma_PP, va_PP, va_32f_SP, va_32f_LP:  the offset before all strides.
 * The distances from object to object, Stride0, are checked only where count is at least 2: one
 * object does not need them. */
ZELM_API ZelStatus zelmCopy_ma_32f_SS(const float *pSrc, int srcStride0, int srcStride1,
                                      int srcStride2, float *pDst, int dstStride0, int dstStride1,
                                      int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmCopy_ma_64f_SS(const double *pSrc, int srcStride0, int srcStride1,
                                      int srcStride2, double *pDst, int dstStride0, int dstStride1,
                                      int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmCopy_ma_32f_SP(const float *pSrc, int srcStride0, int srcStride1,
                                      int srcStride2, float *const *ppDst, int dstRoiShift,
                                      int dstStride0, int width, int height, int count);
ZELM_API ZelStatus zelmCopy_ma_64f_SP(const double *pSrc, int srcStride0, int srcStride1,
                                      int srcStride2, double *const *ppDst, int dstRoiShift,
                                      int dstStride0, int width, int height, int count);
ZELM_API ZelStatus zelmCopy_ma_32f_SL(const float *pSrc, int srcStride0, int srcStride1,
                                      int srcStride2, float *const *ppDst, int dstRoiShift,
                                      int dstStride1, int dstStride2, int width, int height,
                                      int count);
ZELM_API ZelStatus zelmCopy_ma_64f_SL(const double *pSrc, int srcStride0, int srcStride1,
                                      int srcStride2, double *const *ppDst, int dstRoiShift,
                                      int dstStride1, int dstStride2, int width, int height,
                                      int count);
ZELM_API ZelStatus zelmCopy_ma_32f_PS(const float *const *ppSrc, int srcRoiShift, int srcStride0,
                                      float *pDst, int dstStride0, int dstStride1, int dstStride2,
                                      int width, int height, int count);
ZELM_API ZelStatus zelmCopy_ma_64f_PS(const double *const *ppSrc, int srcRoiShift, int srcStride0,
                                      double *pDst, int dstStride0, int dstStride1, int dstStride2,
                                      int width, int height, int count);
ZELM_API ZelStatus zelmCopy_ma_32f_PP(const float *const *ppSrc, int srcRoiShift, int srcStride0,
                                      float *const *ppDst, int dstRoiShift, int dstStride0,
                                      int width, int height, int count);
ZELM_API ZelStatus zelmCopy_ma_64f_PP(const double *const *ppSrc, int srcRoiShift, int srcStride0,
                                      double *const *ppDst, int dstRoiShift, int dstStride0,
                                      int width, int height, int count);
ZELM_API ZelStatus zelmCopy_ma_32f_PL(const float *const *ppSrc, int srcRoiShift, int srcStride0,
                                      float *const *ppDst, int dstRoiShift, int dstStride1,
                                      int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmCopy_ma_64f_PL(const double *const *ppSrc, int srcRoiShift, int srcStride0,
                                      double *const *ppDst, int dstRoiShift, int dstStride1,
                                      int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmCopy_ma_32f_LS(const float *const *ppSrc, int srcRoiShift, int srcStride1,
                                      int srcStride2, float *pDst, int dstStride0, int dstStride1,
                                      int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmCopy_ma_64f_LS(const double *const *ppSrc, int srcRoiShift, int srcStride1,
                                      int srcStride2, double *pDst, int dstStride0, int dstStride1,
                                      int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmCopy_ma_32f_LP(const float *const *ppSrc, int srcRoiShift, int srcStride1,
                                      int srcStride2, float *const *ppDst, int dstRoiShift,
                                      int dstStride0, int width, int height, int count);
ZELM_API ZelStatus zelmCopy_ma_64f_LP(const double *const *ppSrc, int srcRoiShift, int srcStride1,
                                      int srcStride2, double *const *ppDst, int dstRoiShift,
                                      int dstStride0, int width, int height, int count);
ZELM_API ZelStatus zelmCopy_ma_32f_LL(const float *const *ppSrc, int srcRoiShift, int srcStride1,
                                      int srcStride2, float *const *ppDst, int dstRoiShift,
                                      int dstStride1, int dstStride2, int width, int height,
                                      int count);
ZELM_API ZelStatus zelmCopy_ma_64f_LL(const double *const *ppSrc, int srcRoiShift, int srcStride1,
                                      int srcStride2, double *const *ppDst, int dstRoiShift,
                                      int dstStride1, int dstStride2, int width, int height,
                                      int count);
ZELM_API ZelStatus zelmCopy_va_32f_SS(const float *pSrc, int srcStride0, int srcStride2,
                                      float *pDst, int dstStride0, int dstStride2, int len,
                                      int count);
ZELM_API ZelStatus zelmCopy_va_64f_SS(const double *pSrc, int srcStride0, int srcStride2,
                                      double *pDst, int dstStride0, int dstStride2, int len,
                                      int count);
ZELM_API ZelStatus zelmCopy_va_32f_SP(const float *pSrc, int srcStride0, int srcStride2,
                                      float *const *ppDst, int dstRoiShift, int dstStride0, int len,
                                      int count);
ZELM_API ZelStatus zelmCopy_va_64f_SP(const double *pSrc, int srcStride0, int srcStride2,
                                      double *const *ppDst, int dstRoiShift, int dstStride0,
                                      int len, int count);
ZELM_API ZelStatus zelmCopy_va_32f_SL(const float *pSrc, int srcStride0, int srcStride2,
                                      float *const *ppDst, int dstRoiShift, int dstStride2, int len,
                                      int count);
ZELM_API ZelStatus zelmCopy_va_64f_SL(const double *pSrc, int srcStride0, int srcStride2,
                                      double *const *ppDst, int dstRoiShift, int dstStride2,
                                      int len, int count);
ZELM_API ZelStatus zelmCopy_va_32f_PS(const float *const *ppSrc, int srcRoiShift, int srcStride0,
                                      float *pDst, int dstStride0, int dstStride2, int len,
                                      int count);
ZELM_API ZelStatus zelmCopy_va_64f_PS(const double *const *ppSrc, int srcRoiShift, int srcStride0,
                                      double *pDst, int dstStride0, int dstStride2, int len,
                                      int count);
ZELM_API ZelStatus zelmCopy_va_32f_PP(const float *const *ppSrc, int srcRoiShift, int srcStride0,
                                      float *const *ppDst, int dstRoiShift, int dstStride0, int len,
                                      int count);
ZELM_API ZelStatus zelmCopy_va_64f_PP(const double *const *ppSrc, int srcRoiShift, int srcStride0,
                                      double *const *ppDst, int dstRoiShift, int dstStride0,
                                      int len, int count);
ZELM_API ZelStatus zelmCopy_va_32f_PL(const float *const *ppSrc, int srcRoiShift, int srcStride0,
                                      float *const *ppDst, int dstRoiShift, int dstStride2, int len,
                                      int count);
ZELM_API ZelStatus zelmCopy_va_64f_PL(const double *const *ppSrc, int srcRoiShift, int srcStride0,
                                      double *const *ppDst, int dstRoiShift, int dstStride2,
                                      int len, int count);
ZELM_API ZelStatus zelmCopy_va_32f_LS(const float *const *ppSrc, int srcRoiShift, int srcStride2,
                                      float *pDst, int dstStride0, int dstStride2, int len,
                                      int count);
ZELM_API ZelStatus zelmCopy_va_64f_LS(const double *const *ppSrc, int srcRoiShift, int srcStride2,
                                      double *pDst, int dstStride0, int dstStride2, int len,
                                      int count);
ZELM_API ZelStatus zelmCopy_va_32f_LP(const float *const *ppSrc, int srcRoiShift, int srcStride2,
                                      float *const *ppDst, int dstRoiShift, int dstStride0, int len,
                                      int count);
ZELM_API ZelStatus zelmCopy_va_64f_LP(const double *const *ppSrc, int srcRoiShift, int srcStride2,
                                      double *const *ppDst, int dstRoiShift, int dstStride0,
                                      int len, int count);
ZELM_API ZelStatus zelmCopy_va_32f_LL(const float *const *ppSrc, int srcRoiShift, int srcStride2,
                                      float *const *ppDst, int dstRoiShift, int dstStride2, int len,
                                      int count);
ZELM_API ZelStatus zelmCopy_va_64f_LL(const double *const *ppSrc, int srcRoiShift, int srcStride2,
                                      double *const *ppDst, int dstRoiShift, int dstStride2,
                                      int len, int count);

/* ============================================================================================== */
/* Extract: Objects packed into a buffer */
/* ============================================================================================== */

/* pDst is filled without gaps, row by row and object by object: element (i, j) of object n goes to
 * pDst[(n * height + i) * width + j], element k of vector n to pDst[n * len + k]. The shape is that
 * of the operand: of a t operand element (i, j) is stored element (j, i), it has width rows and
 * height columns in memory. Elements move as bit patterns. The buffer must not overlap the source.
 * Always on the calling thread.
 *
 * Status, as under "Checks" above; in this order:
 *   single objects, standard:  null pointer, bad size, bad stride.
 *   single objects, _P:        bad size, null pointer, bad offset; v_32f_P: the pointer first.
 *   arrays:                    null pointer, bad size, bad count, bad offset, bad stride. */
ZELM_API ZelStatus zelmExtract_m_32f(const float *pSrc, int srcStride1, int srcStride2, float *pDst,
                                     int width, int height);
ZELM_API ZelStatus zelmExtract_m_64f(const double *pSrc, int srcStride1, int srcStride2,
                                     double *pDst, int width, int height);
ZELM_API ZelStatus zelmExtract_m_32f_P(const float *const *ppSrc, int srcRoiShift, float *pDst,
                                       int width, int height);
ZELM_API ZelStatus zelmExtract_m_64f_P(const double *const *ppSrc, int srcRoiShift, double *pDst,
                                       int width, int height);
ZELM_API ZelStatus zelmExtract_t_32f(const float *pSrc, int srcStride1, int srcStride2, float *pDst,
                                     int width, int height);
ZELM_API ZelStatus zelmExtract_t_64f(const double *pSrc, int srcStride1, int srcStride2,
                                     double *pDst, int width, int height);
ZELM_API ZelStatus zelmExtract_t_32f_P(const float *const *ppSrc, int srcRoiShift, float *pDst,
                                       int width, int height);
ZELM_API ZelStatus zelmExtract_t_64f_P(const double *const *ppSrc, int srcRoiShift, double *pDst,
                                       int width, int height);
ZELM_API ZelStatus zelmExtract_v_32f(const float *pSrc, int srcStride2, float *pDst, int len);
ZELM_API ZelStatus zelmExtract_v_64f(const double *pSrc, int srcStride2, double *pDst, int len);
ZELM_API ZelStatus zelmExtract_v_32f_P(const float *const *ppSrc, int srcRoiShift, float *pDst,
                                       int len);
ZELM_API ZelStatus zelmExtract_v_64f_P(const double *const *ppSrc, int srcRoiShift, double *pDst,
                                       int len);
ZELM_API ZelStatus zelmExtract_ma_32f(const float *pSrc, int srcStride0, int srcStride1,
                                      int srcStride2, float *pDst, int width, int height,
                                      int count);
ZELM_API ZelStatus zelmExtract_ma_64f(const double *pSrc, int srcStride0, int srcStride1,
                                      int srcStride2, double *pDst, int width, int height,
                                      int count);
ZELM_API ZelStatus zelmExtract_ma_32f_P(const float *const *ppSrc, int srcRoiShift, int srcStride0,
                                        float *pDst, int width, int height, int count);
ZELM_API ZelStatus zelmExtract_ma_64f_P(const double *const *ppSrc, int srcRoiShift, int srcStride0,
                                        double *pDst, int width, int height, int count);
ZELM_API ZelStatus zelmExtract_ma_32f_L(const float *const *ppSrc, int srcRoiShift, int srcStride1,
                                        int srcStride2, float *pDst, int width, int height,
                                        int count);
ZELM_API ZelStatus zelmExtract_ma_64f_L(const double *const *ppSrc, int srcRoiShift, int srcStride1,
                                        int srcStride2, double *pDst, int width, int height,
                                        int count);
ZELM_API ZelStatus zelmExtract_ta_32f(const float *pSrc, int srcStride0, int srcStride1,
                                      int srcStride2, float *pDst, int width, int height,
                                      int count);
ZELM_API ZelStatus zelmExtract_ta_64f(const double *pSrc, int srcStride0, int srcStride1,
                                      int srcStride2, double *pDst, int width, int height,
                                      int count);
ZELM_API ZelStatus zelmExtract_ta_32f_P(const float *const *ppSrc, int srcRoiShift, int srcStride0,
                                        float *pDst, int width, int height, int count);
ZELM_API ZelStatus zelmExtract_ta_64f_P(const double *const *ppSrc, int srcRoiShift, int srcStride0,
                                        double *pDst, int width, int height, int count);
ZELM_API ZelStatus zelmExtract_ta_32f_L(const float *const *ppSrc, int srcRoiShift, int srcStride1,
                                        int srcStride2, float *pDst, int width, int height,
                                        int count);
ZELM_API ZelStatus zelmExtract_ta_64f_L(const double *const *ppSrc, int srcRoiShift, int srcStride1,
                                        int srcStride2, double *pDst, int width, int height,
                                        int count);
ZELM_API ZelStatus zelmExtract_va_32f(const float *pSrc, int srcStride0, int srcStride2,
                                      float *pDst, int len, int count);
ZELM_API ZelStatus zelmExtract_va_64f(const double *pSrc, int srcStride0, int srcStride2,
                                      double *pDst, int len, int count);
ZELM_API ZelStatus zelmExtract_va_32f_P(const float *const *ppSrc, int srcRoiShift, int srcStride0,
                                        float *pDst, int len, int count);
ZELM_API ZelStatus zelmExtract_va_64f_P(const double *const *ppSrc, int srcRoiShift, int srcStride0,
                                        double *pDst, int len, int count);
ZELM_API ZelStatus zelmExtract_va_32f_L(const float *const *ppSrc, int srcRoiShift, int srcStride2,
                                        float *pDst, int len, int count);
ZELM_API ZelStatus zelmExtract_va_64f_L(const double *const *ppSrc, int srcRoiShift, int srcStride2,
                                        double *pDst, int len, int count);

/* ============================================================================================== */
/* LoadIdentity: Identity matrices */
/* ============================================================================================== */

/* dst_n(i, j) = 1 where i = j, else 0; any shape. The objects of the array must not overlap. Always
 * on the calling thread.
 *
 * Status, as under "Checks" above; in this order:
 *   null pointer, bad size, bad count, bad stride, bad offset.
 *   64f_P:  bad offset before bad stride.     32f_P:  bad offset before bad count.
 * dstStride0 is checked only where count is at least 2. */
ZELM_API ZelStatus zelmLoadIdentity_ma_32f(float *pDst, int dstStride0, int dstStride1,
                                           int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmLoadIdentity_ma_64f(double *pDst, int dstStride0, int dstStride1,
                                           int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmLoadIdentity_ma_32f_P(float *const *ppDst, int dstRoiShift, int dstStride0,
                                             int width, int height, int count);
ZELM_API ZelStatus zelmLoadIdentity_ma_64f_P(double *const *ppDst, int dstRoiShift, int dstStride0,
                                             int width, int height, int count);
ZELM_API ZelStatus zelmLoadIdentity_ma_32f_L(float *const *ppDst, int dstRoiShift, int dstStride1,
                                             int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmLoadIdentity_ma_64f_L(double *const *ppDst, int dstRoiShift, int dstStride1,
                                             int dstStride2, int width, int height, int count);

/* ============================================================================================== */
/* Transpose: Transposed matrices */
/* ============================================================================================== */

/* dst(j, i) = src(i, j): the source has height rows and width columns, the destination width rows
 * and height columns. Elements move as bit patterns.
 *
 * In place at the same address: square matrices of order 3 to 6 whose rows are without gaps inside
 * (both Stride2 the element size). No other overlap is allowed. Always on the calling thread. Large
 * 32f matrices (more than 128 rows and columns) that do not fit the largest cache are written past
 * the caches.
 *
 * Status, as under "Checks" above; in this order:
 *   null pointer, bad count, bad size, bad stride, bad offset.
 *   single objects:  no count. */
ZELM_API ZelStatus zelmTranspose_m_32f(const float *pSrc, int srcStride1, int srcStride2, int width,
                                       int height, float *pDst, int dstStride1, int dstStride2);
ZELM_API ZelStatus zelmTranspose_m_64f(const double *pSrc, int srcStride1, int srcStride2,
                                       int width, int height, double *pDst, int dstStride1,
                                       int dstStride2);
ZELM_API ZelStatus zelmTranspose_m_32f_P(const float *const *ppSrc, int srcRoiShift, int width,
                                         int height, float *const *ppDst, int dstRoiShift);
ZELM_API ZelStatus zelmTranspose_m_64f_P(const double *const *ppSrc, int srcRoiShift, int width,
                                         int height, double *const *ppDst, int dstRoiShift);
ZELM_API ZelStatus zelmTranspose_ma_32f(const float *pSrc, int srcStride0, int srcStride1,
                                        int srcStride2, int width, int height, float *pDst,
                                        int dstStride0, int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmTranspose_ma_64f(const double *pSrc, int srcStride0, int srcStride1,
                                        int srcStride2, int width, int height, double *pDst,
                                        int dstStride0, int dstStride1, int dstStride2, int count);
ZELM_API ZelStatus zelmTranspose_ma_32f_P(const float *const *ppSrc, int srcRoiShift,
                                          int srcStride0, int width, int height,
                                          float *const *ppDst, int dstRoiShift, int dstStride0,
                                          int count);
ZELM_API ZelStatus zelmTranspose_ma_64f_P(const double *const *ppSrc, int srcRoiShift,
                                          int srcStride0, int width, int height,
                                          double *const *ppDst, int dstRoiShift, int dstStride0,
                                          int count);
ZELM_API ZelStatus zelmTranspose_ma_32f_L(const float *const *ppSrc, int srcRoiShift,
                                          int srcStride1, int srcStride2, int width, int height,
                                          float *const *ppDst, int dstRoiShift, int dstStride1,
                                          int dstStride2, int count);
ZELM_API ZelStatus zelmTranspose_ma_64f_L(const double *const *ppSrc, int srcRoiShift,
                                          int srcStride1, int srcStride2, int width, int height,
                                          double *const *ppDst, int dstRoiShift, int dstStride1,
                                          int dstStride2, int count);

/* ============================================================================================== */
/* DotProduct: Dot products of vectors */
/* ============================================================================================== */

/* pDst[n] = sum of src1_n(k) * src2_n(k), k = 0 .. len - 1, n = 0 .. count - 1, in the element
 * type. vav has one second vector for all objects.
 *
 * Lengths below 8 are summed in the order of k. Longer ones are summed in blocks of eight by two
 * accumulators of four; what stands before the blocks (a single pair of adjacent 32f vectors up to
 * a multiple of 16 of pSrc2's address, a single pair in pointer description up to that of the
 * table ppSrc2) and behind them is added in the order of k. So a single pair may round otherwise
 * than the same pair in an array.
 *
 * pDst must not overlap a source.
 *
 * Status, as under "Checks" above; in this order:
 *   null pointer, bad count, bad size, bad stride, bad offset.
 *   vv:  no count. */
ZELM_API ZelStatus zelmDotProduct_vv_32f(const float *pSrc1, int src1Stride2, const float *pSrc2,
                                         int src2Stride2, float *pDst, int len);
ZELM_API ZelStatus zelmDotProduct_vv_64f(const double *pSrc1, int src1Stride2, const double *pSrc2,
                                         int src2Stride2, double *pDst, int len);
ZELM_API ZelStatus zelmDotProduct_vv_32f_P(const float *const *ppSrc1, int src1RoiShift,
                                           const float *const *ppSrc2, int src2RoiShift,
                                           float *pDst, int len);
ZELM_API ZelStatus zelmDotProduct_vv_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                           const double *const *ppSrc2, int src2RoiShift,
                                           double *pDst, int len);
ZELM_API ZelStatus zelmDotProduct_vav_32f(const float *pSrc1, int src1Stride0, int src1Stride2,
                                          const float *pSrc2, int src2Stride2, float *pDst, int len,
                                          int count);
ZELM_API ZelStatus zelmDotProduct_vav_64f(const double *pSrc1, int src1Stride0, int src1Stride2,
                                          const double *pSrc2, int src2Stride2, double *pDst,
                                          int len, int count);
ZELM_API ZelStatus zelmDotProduct_vav_32f_P(const float *const *ppSrc1, int src1RoiShift,
                                            int src1Stride0, const float *const *ppSrc2,
                                            int src2RoiShift, float *pDst, int len, int count);
ZELM_API ZelStatus zelmDotProduct_vav_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                            int src1Stride0, const double *const *ppSrc2,
                                            int src2RoiShift, double *pDst, int len, int count);
ZELM_API ZelStatus zelmDotProduct_vav_32f_L(const float *const *ppSrc1, int src1RoiShift,
                                            int src1Stride2, const float *pSrc2, int src2Stride2,
                                            float *pDst, int len, int count);
ZELM_API ZelStatus zelmDotProduct_vav_64f_L(const double *const *ppSrc1, int src1RoiShift,
                                            int src1Stride2, const double *pSrc2, int src2Stride2,
                                            double *pDst, int len, int count);
ZELM_API ZelStatus zelmDotProduct_vava_32f(const float *pSrc1, int src1Stride0, int src1Stride2,
                                           const float *pSrc2, int src2Stride0, int src2Stride2,
                                           float *pDst, int len, int count);
ZELM_API ZelStatus zelmDotProduct_vava_64f(const double *pSrc1, int src1Stride0, int src1Stride2,
                                           const double *pSrc2, int src2Stride0, int src2Stride2,
                                           double *pDst, int len, int count);
ZELM_API ZelStatus zelmDotProduct_vava_32f_P(const float *const *ppSrc1, int src1RoiShift,
                                             int src1Stride0, const float *const *ppSrc2,
                                             int src2RoiShift, int src2Stride0, float *pDst,
                                             int len, int count);
ZELM_API ZelStatus zelmDotProduct_vava_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                             int src1Stride0, const double *const *ppSrc2,
                                             int src2RoiShift, int src2Stride0, double *pDst,
                                             int len, int count);
ZELM_API ZelStatus zelmDotProduct_vava_32f_L(const float *const *ppSrc1, int src1RoiShift,
                                             int src1Stride2, const float *const *ppSrc2,
                                             int src2RoiShift, int src2Stride2, float *pDst,
                                             int len, int count);
ZELM_API ZelStatus zelmDotProduct_vava_64f_L(const double *const *ppSrc1, int src1RoiShift,
                                             int src1Stride2, const double *const *ppSrc2,
                                             int src2RoiShift, int src2Stride2, double *pDst,
                                             int len, int count);

/* ============================================================================================== */
/* CrossProduct: Cross products of vectors of three elements */
/* ============================================================================================== */

/* dst_n = src1_n x src2_n, the operands in the order of the kind letters, n = 0 .. count - 1:
 *   dst(0) = src1(1) * src2(2) - src1(2) * src2(1)
 *   dst(1) = src1(2) * src2(0) - src1(0) * src2(2)
 *   dst(2) = src1(0) * src2(1) - src1(1) * src2(0)
 * A single operand beside an array is used for every object.
 *
 * In place: the destination array may be a source array, at the same address with the same strides.
 * No other overlap is allowed.
 *
 * Status, as under "Checks" above; in this order:
 *   vv:             null pointer, bad stride, bad offset.
 *   vav, standard:  null pointer, bad stride, bad count.
 *   vav, _L:        null pointer, bad stride, bad offset, bad count.
 *   vav, _P:        null pointer, bad stride, bad count, bad offset.
 *   vva, vava:      null pointer, bad count, bad stride, bad offset. */
ZELM_API ZelStatus zelmCrossProduct_vv_32f(const float *pSrc1, int src1Stride2, const float *pSrc2,
                                           int src2Stride2, float *pDst, int dstStride2);
ZELM_API ZelStatus zelmCrossProduct_vv_64f(const double *pSrc1, int src1Stride2,
                                           const double *pSrc2, int src2Stride2, double *pDst,
                                           int dstStride2);
ZELM_API ZelStatus zelmCrossProduct_vv_32f_P(const float *const *ppSrc1, int src1RoiShift,
                                             const float *const *ppSrc2, int src2RoiShift,
                                             float *const *ppDst, int dstRoiShift);
ZELM_API ZelStatus zelmCrossProduct_vv_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                             const double *const *ppSrc2, int src2RoiShift,
                                             double *const *ppDst, int dstRoiShift);
ZELM_API ZelStatus zelmCrossProduct_vav_32f(const float *pSrc1, int src1Stride0, int src1Stride2,
                                            const float *pSrc2, int src2Stride2, float *pDst,
                                            int dstStride0, int dstStride2, int count);
ZELM_API ZelStatus zelmCrossProduct_vav_64f(const double *pSrc1, int src1Stride0, int src1Stride2,
                                            const double *pSrc2, int src2Stride2, double *pDst,
                                            int dstStride0, int dstStride2, int count);
ZELM_API ZelStatus zelmCrossProduct_vav_32f_P(const float *const *ppSrc1, int src1RoiShift,
                                              int src1Stride0, const float *const *ppSrc2,
                                              int src2RoiShift, float *const *ppDst,
                                              int dstRoiShift, int dstStride0, int count);
ZELM_API ZelStatus zelmCrossProduct_vav_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                              int src1Stride0, const double *const *ppSrc2,
                                              int src2RoiShift, double *const *ppDst,
                                              int dstRoiShift, int dstStride0, int count);
ZELM_API ZelStatus zelmCrossProduct_vav_32f_L(const float *const *ppSrc1, int src1RoiShift,
                                              int src1Stride2, const float *pSrc2, int src2Stride2,
                                              float *const *ppDst, int dstRoiShift, int dstStride2,
                                              int count);
ZELM_API ZelStatus zelmCrossProduct_vav_64f_L(const double *const *ppSrc1, int src1RoiShift,
                                              int src1Stride2, const double *pSrc2, int src2Stride2,
                                              double *const *ppDst, int dstRoiShift, int dstStride2,
                                              int count);
ZELM_API ZelStatus zelmCrossProduct_vva_32f(const float *pSrc1, int src1Stride2, const float *pSrc2,
                                            int src2Stride0, int src2Stride2, float *pDst,
                                            int dstStride0, int dstStride2, int count);
ZELM_API ZelStatus zelmCrossProduct_vva_64f(const double *pSrc1, int src1Stride2,
                                            const double *pSrc2, int src2Stride0, int src2Stride2,
                                            double *pDst, int dstStride0, int dstStride2,
                                            int count);
ZELM_API ZelStatus zelmCrossProduct_vva_32f_P(const float *const *ppSrc1, int src1RoiShift,
                                              const float *const *ppSrc2, int src2RoiShift,
                                              int src2Stride0, float *const *ppDst, int dstRoiShift,
                                              int dstStride0, int count);
ZELM_API ZelStatus zelmCrossProduct_vva_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                              const double *const *ppSrc2, int src2RoiShift,
                                              int src2Stride0, double *const *ppDst,
                                              int dstRoiShift, int dstStride0, int count);
ZELM_API ZelStatus zelmCrossProduct_vva_32f_L(const float *pSrc1, int src1Stride2,
                                              const float *const *ppSrc2, int src2RoiShift,
                                              int src2Stride2, float *const *ppDst, int dstRoiShift,
                                              int dstStride2, int count);
ZELM_API ZelStatus zelmCrossProduct_vva_64f_L(const double *pSrc1, int src1Stride2,
                                              const double *const *ppSrc2, int src2RoiShift,
                                              int src2Stride2, double *const *ppDst,
                                              int dstRoiShift, int dstStride2, int count);
ZELM_API ZelStatus zelmCrossProduct_vava_32f(const float *pSrc1, int src1Stride0, int src1Stride2,
                                             const float *pSrc2, int src2Stride0, int src2Stride2,
                                             float *pDst, int dstStride0, int dstStride2,
                                             int count);
ZELM_API ZelStatus zelmCrossProduct_vava_64f(const double *pSrc1, int src1Stride0, int src1Stride2,
                                             const double *pSrc2, int src2Stride0, int src2Stride2,
                                             double *pDst, int dstStride0, int dstStride2,
                                             int count);
ZELM_API ZelStatus zelmCrossProduct_vava_32f_P(const float *const *ppSrc1, int src1RoiShift,
                                               int src1Stride0, const float *const *ppSrc2,
                                               int src2RoiShift, int src2Stride0,
                                               float *const *ppDst, int dstRoiShift, int dstStride0,
                                               int count);
ZELM_API ZelStatus zelmCrossProduct_vava_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                               int src1Stride0, const double *const *ppSrc2,
                                               int src2RoiShift, int src2Stride0,
                                               double *const *ppDst, int dstRoiShift,
                                               int dstStride0, int count);
ZELM_API ZelStatus zelmCrossProduct_vava_32f_L(const float *const *ppSrc1, int src1RoiShift,
                                               int src1Stride2, const float *const *ppSrc2,
                                               int src2RoiShift, int src2Stride2,
                                               float *const *ppDst, int dstRoiShift, int dstStride2,
                                               int count);
ZELM_API ZelStatus zelmCrossProduct_vava_64f_L(const double *const *ppSrc1, int src1RoiShift,
                                               int src1Stride2, const double *const *ppSrc2,
                                               int src2RoiShift, int src2Stride2,
                                               double *const *ppDst, int dstRoiShift,
                                               int dstStride2, int count);

/* ============================================================================================== */
/* L2Norm: Euclidean norms of vectors */
/* ============================================================================================== */

/* pDst[n] = square root of the sum of src_n(k)^2, k = 0 .. len - 1, n = 0 .. count - 1. The sum is
 * in the element type and is not scaled: it is infinite where a square overflows and loses what is
 * below the smallest normal number. Its order is that of zelmDotProduct, without a start before the
 * blocks. pDst must not overlap the source.
 *
 * Status, as under "Checks" above; in this order:
 *   null pointer, bad count, bad size, bad stride, bad offset.
 *   v:  no count. */
ZELM_API ZelStatus zelmL2Norm_v_32f(const float *pSrc, int srcStride2, float *pDst, int len);
ZELM_API ZelStatus zelmL2Norm_v_64f(const double *pSrc, int srcStride2, double *pDst, int len);
ZELM_API ZelStatus zelmL2Norm_v_32f_P(const float *const *ppSrc, int srcRoiShift, float *pDst,
                                      int len);
ZELM_API ZelStatus zelmL2Norm_v_64f_P(const double *const *ppSrc, int srcRoiShift, double *pDst,
                                      int len);
ZELM_API ZelStatus zelmL2Norm_va_32f(const float *pSrc, int srcStride0, int srcStride2, float *pDst,
                                     int len, int count);
ZELM_API ZelStatus zelmL2Norm_va_64f(const double *pSrc, int srcStride0, int srcStride2,
                                     double *pDst, int len, int count);
ZELM_API ZelStatus zelmL2Norm_va_32f_P(const float *const *ppSrc, int srcRoiShift, int srcStride0,
                                       float *pDst, int len, int count);
ZELM_API ZelStatus zelmL2Norm_va_64f_P(const double *const *ppSrc, int srcRoiShift, int srcStride0,
                                       double *pDst, int len, int count);
ZELM_API ZelStatus zelmL2Norm_va_32f_L(const float *const *ppSrc, int srcRoiShift, int srcStride2,
                                       float *pDst, int len, int count);
ZELM_API ZelStatus zelmL2Norm_va_64f_L(const double *const *ppSrc, int srcRoiShift, int srcStride2,
                                       double *pDst, int len, int count);

/* ============================================================================================== */
/* FrobNorm: Frobenius norms of matrices */
/* ============================================================================================== */

/* pDst[n] = square root of the sum of src_n(i, j)^2 over height rows and width columns. The sum is
 * in the element type and is not scaled. Rows are added one after the other, each as zelmL2Norm
 * adds its vector; square matrices of order 3 to 5 are added as one vector of all rows. pDst must
 * not overlap the source.
 *
 * Status, as under "Checks" above; in this order:
 *   null pointer, bad count, bad size, bad stride, bad offset.
 *   m:  no count. */
ZELM_API ZelStatus zelmFrobNorm_m_32f(const float *pSrc, int srcStride1, int srcStride2, int width,
                                      int height, float *pDst);
ZELM_API ZelStatus zelmFrobNorm_m_64f(const double *pSrc, int srcStride1, int srcStride2, int width,
                                      int height, double *pDst);
ZELM_API ZelStatus zelmFrobNorm_m_32f_P(const float *const *ppSrc, int srcRoiShift, int width,
                                        int height, float *pDst);
ZELM_API ZelStatus zelmFrobNorm_m_64f_P(const double *const *ppSrc, int srcRoiShift, int width,
                                        int height, double *pDst);
ZELM_API ZelStatus zelmFrobNorm_ma_32f(const float *pSrc, int srcStride0, int srcStride1,
                                       int srcStride2, int width, int height, float *pDst,
                                       int count);
ZELM_API ZelStatus zelmFrobNorm_ma_64f(const double *pSrc, int srcStride0, int srcStride1,
                                       int srcStride2, int width, int height, double *pDst,
                                       int count);
ZELM_API ZelStatus zelmFrobNorm_ma_32f_P(const float *const *ppSrc, int srcRoiShift, int srcStride0,
                                         int width, int height, float *pDst, int count);
ZELM_API ZelStatus zelmFrobNorm_ma_64f_P(const double *const *ppSrc, int srcRoiShift,
                                         int srcStride0, int width, int height, double *pDst,
                                         int count);
ZELM_API ZelStatus zelmFrobNorm_ma_32f_L(const float *const *ppSrc, int srcRoiShift, int srcStride1,
                                         int srcStride2, int width, int height, float *pDst,
                                         int count);
ZELM_API ZelStatus zelmFrobNorm_ma_64f_L(const double *const *ppSrc, int srcRoiShift,
                                         int srcStride1, int srcStride2, int width, int height,
                                         double *pDst, int count);

/* ============================================================================================== */
/* Trace: Traces of matrices */
/* ============================================================================================== */

/* pDst[n] = sum of src_n(i, i), i = 0 .. widthHeight - 1, in that order.
 *
 * Orders other than 3 to 6 keep the running sum in pDst[n], which begins with 0 and is stored after
 * every addition: where it is an element of the diagonal, that element is read as the sum has left
 * it. Orders 3 to 6 read everything first.
 *
 * Status, as under "Checks" above; in this order:
 *   null pointer, bad count, bad size, bad stride, bad offset.
 *   m:  no count. */
ZELM_API ZelStatus zelmTrace_m_32f(const float *pSrc, int srcStride1, int srcStride2,
                                   int widthHeight, float *pDst);
ZELM_API ZelStatus zelmTrace_m_64f(const double *pSrc, int srcStride1, int srcStride2,
                                   int widthHeight, double *pDst);
ZELM_API ZelStatus zelmTrace_m_32f_P(const float *const *ppSrc, int srcRoiShift, int widthHeight,
                                     float *pDst);
ZELM_API ZelStatus zelmTrace_m_64f_P(const double *const *ppSrc, int srcRoiShift, int widthHeight,
                                     double *pDst);
ZELM_API ZelStatus zelmTrace_ma_32f(const float *pSrc, int srcStride0, int srcStride1,
                                    int srcStride2, int widthHeight, float *pDst, int count);
ZELM_API ZelStatus zelmTrace_ma_64f(const double *pSrc, int srcStride0, int srcStride1,
                                    int srcStride2, int widthHeight, double *pDst, int count);
ZELM_API ZelStatus zelmTrace_ma_32f_P(const float *const *ppSrc, int srcRoiShift, int srcStride0,
                                      int widthHeight, float *pDst, int count);
ZELM_API ZelStatus zelmTrace_ma_64f_P(const double *const *ppSrc, int srcRoiShift, int srcStride0,
                                      int widthHeight, double *pDst, int count);
ZELM_API ZelStatus zelmTrace_ma_32f_L(const float *const *ppSrc, int srcRoiShift, int srcStride1,
                                      int srcStride2, int widthHeight, float *pDst, int count);
ZELM_API ZelStatus zelmTrace_ma_64f_L(const double *const *ppSrc, int srcRoiShift, int srcStride1,
                                      int srcStride2, int widthHeight, double *pDst, int count);

/* ============================================================================================== */
/* LComb: Linear combinations of two vectors */
/* ============================================================================================== */

/* dst_n(k) = src1_n(k) * scale1 + src2_n(k) * scale2: both weights multiply, then there is one
 * addition. 0 times infinity is NaN. vav has one second vector for all objects.
 *
 * In place: the destination may be a source of the same kind, at the same address (table, roi
 * shift) and with the same strides. No other overlap is allowed.
 *
 * Status, as under "Checks" above; in this order:
 *   null pointer, bad count, bad size, bad stride, bad offset.
 *   vv:  no count. */
ZELM_API ZelStatus zelmLComb_vv_32f(const float *pSrc1, int src1Stride2, const float *pSrc2,
                                    int src2Stride2, float *pDst, int dstStride2, int len,
                                    float scale1, float scale2);
ZELM_API ZelStatus zelmLComb_vv_64f(const double *pSrc1, int src1Stride2, const double *pSrc2,
                                    int src2Stride2, double *pDst, int dstStride2, int len,
                                    double scale1, double scale2);
ZELM_API ZelStatus zelmLComb_vv_32f_P(const float *const *ppSrc1, int src1RoiShift,
                                      const float *const *ppSrc2, int src2RoiShift,
                                      float *const *ppDst, int dstRoiShift, int len, float scale1,
                                      float scale2);
ZELM_API ZelStatus zelmLComb_vv_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                      const double *const *ppSrc2, int src2RoiShift,
                                      double *const *ppDst, int dstRoiShift, int len, double scale1,
                                      double scale2);
ZELM_API ZelStatus zelmLComb_vav_32f(const float *pSrc1, int src1Stride0, int src1Stride2,
                                     const float *pSrc2, int src2Stride2, float *pDst,
                                     int dstStride0, int dstStride2, int len, int count,
                                     float scale1, float scale2);
ZELM_API ZelStatus zelmLComb_vav_64f(const double *pSrc1, int src1Stride0, int src1Stride2,
                                     const double *pSrc2, int src2Stride2, double *pDst,
                                     int dstStride0, int dstStride2, int len, int count,
                                     double scale1, double scale2);
ZELM_API ZelStatus zelmLComb_vav_32f_P(const float *const *ppSrc1, int src1RoiShift,
                                       int src1Stride0, const float *const *ppSrc2,
                                       int src2RoiShift, float *const *ppDst, int dstRoiShift,
                                       int dstStride0, int len, int count, float scale1,
                                       float scale2);
ZELM_API ZelStatus zelmLComb_vav_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                       int src1Stride0, const double *const *ppSrc2,
                                       int src2RoiShift, double *const *ppDst, int dstRoiShift,
                                       int dstStride0, int len, int count, double scale1,
                                       double scale2);
ZELM_API ZelStatus zelmLComb_vav_32f_L(const float *const *ppSrc1, int src1RoiShift,
                                       int src1Stride2, const float *pSrc2, int src2Stride2,
                                       float *const *ppDst, int dstRoiShift, int dstStride2,
                                       int len, int count, float scale1, float scale2);
ZELM_API ZelStatus zelmLComb_vav_64f_L(const double *const *ppSrc1, int src1RoiShift,
                                       int src1Stride2, const double *pSrc2, int src2Stride2,
                                       double *const *ppDst, int dstRoiShift, int dstStride2,
                                       int len, int count, double scale1, double scale2);
ZELM_API ZelStatus zelmLComb_vava_32f(const float *pSrc1, int src1Stride0, int src1Stride2,
                                      const float *pSrc2, int src2Stride0, int src2Stride2,
                                      float *pDst, int dstStride0, int dstStride2, int len,
                                      int count, float scale1, float scale2);
ZELM_API ZelStatus zelmLComb_vava_64f(const double *pSrc1, int src1Stride0, int src1Stride2,
                                      const double *pSrc2, int src2Stride0, int src2Stride2,
                                      double *pDst, int dstStride0, int dstStride2, int len,
                                      int count, double scale1, double scale2);
ZELM_API ZelStatus zelmLComb_vava_32f_P(const float *const *ppSrc1, int src1RoiShift,
                                        int src1Stride0, const float *const *ppSrc2,
                                        int src2RoiShift, int src2Stride0, float *const *ppDst,
                                        int dstRoiShift, int dstStride0, int len, int count,
                                        float scale1, float scale2);
ZELM_API ZelStatus zelmLComb_vava_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                        int src1Stride0, const double *const *ppSrc2,
                                        int src2RoiShift, int src2Stride0, double *const *ppDst,
                                        int dstRoiShift, int dstStride0, int len, int count,
                                        double scale1, double scale2);
ZELM_API ZelStatus zelmLComb_vava_32f_L(const float *const *ppSrc1, int src1RoiShift,
                                        int src1Stride2, const float *const *ppSrc2,
                                        int src2RoiShift, int src2Stride2, float *const *ppDst,
                                        int dstRoiShift, int dstStride2, int len, int count,
                                        float scale1, float scale2);
ZELM_API ZelStatus zelmLComb_vava_64f_L(const double *const *ppSrc1, int src1RoiShift,
                                        int src1Stride2, const double *const *ppSrc2,
                                        int src2RoiShift, int src2Stride2, double *const *ppDst,
                                        int dstRoiShift, int dstStride2, int len, int count,
                                        double scale1, double scale2);

/* ============================================================================================== */
/* Saxpy: Scaled vectors plus vectors */
/* ============================================================================================== */

/* dst_n(k) = src1_n(k) * scale + src2_n(k), the operands in the order of the kind letters: in vva
 * the single vector is scaled.
 *
 * In place: the destination may be a source of the same kind, at the same address (table, roi
 * shift) and with the same strides. No other overlap is allowed.
 *
 * Status, as under "Checks" above; in this order:
 *   null pointer, bad count, bad size, bad stride, bad offset.
 *   vv:  no count. */
ZELM_API ZelStatus zelmSaxpy_vv_32f(const float *pSrc1, int src1Stride2, const float *pSrc2,
                                    int src2Stride2, float *pDst, int dstStride2, int len,
                                    float scale);
ZELM_API ZelStatus zelmSaxpy_vv_64f(const double *pSrc1, int src1Stride2, const double *pSrc2,
                                    int src2Stride2, double *pDst, int dstStride2, int len,
                                    double scale);
ZELM_API ZelStatus zelmSaxpy_vv_32f_P(const float *const *ppSrc1, int src1RoiShift,
                                      const float *const *ppSrc2, int src2RoiShift,
                                      float *const *ppDst, int dstRoiShift, int len, float scale);
ZELM_API ZelStatus zelmSaxpy_vv_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                      const double *const *ppSrc2, int src2RoiShift,
                                      double *const *ppDst, int dstRoiShift, int len, double scale);
ZELM_API ZelStatus zelmSaxpy_vav_32f(const float *pSrc1, int src1Stride0, int src1Stride2,
                                     const float *pSrc2, int src2Stride2, float *pDst,
                                     int dstStride0, int dstStride2, int len, int count,
                                     float scale);
ZELM_API ZelStatus zelmSaxpy_vav_64f(const double *pSrc1, int src1Stride0, int src1Stride2,
                                     const double *pSrc2, int src2Stride2, double *pDst,
                                     int dstStride0, int dstStride2, int len, int count,
                                     double scale);
ZELM_API ZelStatus zelmSaxpy_vav_32f_P(const float *const *ppSrc1, int src1RoiShift,
                                       int src1Stride0, const float *const *ppSrc2,
                                       int src2RoiShift, float *const *ppDst, int dstRoiShift,
                                       int dstStride0, int len, int count, float scale);
ZELM_API ZelStatus zelmSaxpy_vav_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                       int src1Stride0, const double *const *ppSrc2,
                                       int src2RoiShift, double *const *ppDst, int dstRoiShift,
                                       int dstStride0, int len, int count, double scale);
ZELM_API ZelStatus zelmSaxpy_vav_32f_L(const float *const *ppSrc1, int src1RoiShift,
                                       int src1Stride2, const float *pSrc2, int src2Stride2,
                                       float *const *ppDst, int dstRoiShift, int dstStride2,
                                       int len, int count, float scale);
ZELM_API ZelStatus zelmSaxpy_vav_64f_L(const double *const *ppSrc1, int src1RoiShift,
                                       int src1Stride2, const double *pSrc2, int src2Stride2,
                                       double *const *ppDst, int dstRoiShift, int dstStride2,
                                       int len, int count, double scale);
ZELM_API ZelStatus zelmSaxpy_vva_32f(const float *pSrc1, int src1Stride2, const float *pSrc2,
                                     int src2Stride0, int src2Stride2, float *pDst, int dstStride0,
                                     int dstStride2, int len, int count, float scale);
ZELM_API ZelStatus zelmSaxpy_vva_64f(const double *pSrc1, int src1Stride2, const double *pSrc2,
                                     int src2Stride0, int src2Stride2, double *pDst, int dstStride0,
                                     int dstStride2, int len, int count, double scale);
ZELM_API ZelStatus zelmSaxpy_vva_32f_P(const float *const *ppSrc1, int src1RoiShift,
                                       const float *const *ppSrc2, int src2RoiShift,
                                       int src2Stride0, float *const *ppDst, int dstRoiShift,
                                       int dstStride0, int len, int count, float scale);
ZELM_API ZelStatus zelmSaxpy_vva_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                       const double *const *ppSrc2, int src2RoiShift,
                                       int src2Stride0, double *const *ppDst, int dstRoiShift,
                                       int dstStride0, int len, int count, double scale);
ZELM_API ZelStatus zelmSaxpy_vva_32f_L(const float *pSrc1, int src1Stride2,
                                       const float *const *ppSrc2, int src2RoiShift,
                                       int src2Stride2, float *const *ppDst, int dstRoiShift,
                                       int dstStride2, int len, int count, float scale);
ZELM_API ZelStatus zelmSaxpy_vva_64f_L(const double *pSrc1, int src1Stride2,
                                       const double *const *ppSrc2, int src2RoiShift,
                                       int src2Stride2, double *const *ppDst, int dstRoiShift,
                                       int dstStride2, int len, int count, double scale);
ZELM_API ZelStatus zelmSaxpy_vava_32f(const float *pSrc1, int src1Stride0, int src1Stride2,
                                      const float *pSrc2, int src2Stride0, int src2Stride2,
                                      float *pDst, int dstStride0, int dstStride2, int len,
                                      int count, float scale);
ZELM_API ZelStatus zelmSaxpy_vava_64f(const double *pSrc1, int src1Stride0, int src1Stride2,
                                      const double *pSrc2, int src2Stride0, int src2Stride2,
                                      double *pDst, int dstStride0, int dstStride2, int len,
                                      int count, double scale);
ZELM_API ZelStatus zelmSaxpy_vava_32f_P(const float *const *ppSrc1, int src1RoiShift,
                                        int src1Stride0, const float *const *ppSrc2,
                                        int src2RoiShift, int src2Stride0, float *const *ppDst,
                                        int dstRoiShift, int dstStride0, int len, int count,
                                        float scale);
ZELM_API ZelStatus zelmSaxpy_vava_64f_P(const double *const *ppSrc1, int src1RoiShift,
                                        int src1Stride0, const double *const *ppSrc2,
                                        int src2RoiShift, int src2Stride0, double *const *ppDst,
                                        int dstRoiShift, int dstStride0, int len, int count,
                                        double scale);
ZELM_API ZelStatus zelmSaxpy_vava_32f_L(const float *const *ppSrc1, int src1RoiShift,
                                        int src1Stride2, const float *const *ppSrc2,
                                        int src2RoiShift, int src2Stride2, float *const *ppDst,
                                        int dstRoiShift, int dstStride2, int len, int count,
                                        float scale);
ZELM_API ZelStatus zelmSaxpy_vava_64f_L(const double *const *ppSrc1, int src1RoiShift,
                                        int src1Stride2, const double *const *ppSrc2,
                                        int src2RoiShift, int src2Stride2, double *const *ppDst,
                                        int dstRoiShift, int dstStride2, int len, int count,
                                        double scale);

/* ============================================================================================== */
/* Gaxpy: Products of a matrix with vectors plus vectors */
/* ============================================================================================== */

/* dst_n = A * x_n + b_n: src1 is A with height rows and width columns, src2 is x, src3 is b.
 *   mv    one x, one b         mvav  count vectors x, one b         mva   count vectors x and b
 * dst(i) is the sum of A(i, j) * x(j), from 0 on and j ascending, and then b(i).
 *
 * The running sum is kept in the destination: it is 0 at first, is stored after every two columns
 * and once more when b(i) is added. Where the destination shares memory with x or b this shows.
 * Square matrices of order 3 to 6 with all Stride2 the element size, in standard and layout
 * description, work in registers; there the destination must not overlap a source, and the sums of
 * arrays start with their first product: -0 where all products and b(i) are -0.
 *
 * Status, as under "Checks" above; in this order:
 *   null pointer, bad count, bad size (width, height, src2Len, src3Len), size mismatch (width and
 *   src2Len, height and src3Len differ), bad stride, bad offset.
 *   mv:  no count. */
ZELM_API ZelStatus zelmGaxpy_mv_32f(const float *pSrc1, int src1Stride1, int src1Stride2, int width,
                                    int height, const float *pSrc2, int src2Stride2, int src2Len,
                                    const float *pSrc3, int src3Stride2, int src3Len, float *pDst,
                                    int dstStride2);
ZELM_API ZelStatus zelmGaxpy_mv_64f(const double *pSrc1, int src1Stride1, int src1Stride2,
                                    int width, int height, const double *pSrc2, int src2Stride2,
                                    int src2Len, const double *pSrc3, int src3Stride2, int src3Len,
                                    double *pDst, int dstStride2);
ZELM_API ZelStatus zelmGaxpy_mv_32f_P(const float *const *ppSrc1, int src1RoiShift, int width,
                                      int height, const float *const *ppSrc2, int src2RoiShift,
                                      int src2Len, const float *const *ppSrc3, int src3RoiShift,
                                      int src3Len, float *const *ppDst, int dstRoiShift);
ZELM_API ZelStatus zelmGaxpy_mv_64f_P(const double *const *ppSrc1, int src1RoiShift, int width,
                                      int height, const double *const *ppSrc2, int src2RoiShift,
                                      int src2Len, const double *const *ppSrc3, int src3RoiShift,
                                      int src3Len, double *const *ppDst, int dstRoiShift);
ZELM_API ZelStatus zelmGaxpy_mva_32f(const float *pSrc1, int src1Stride1, int src1Stride2,
                                     int width, int height, const float *pSrc2, int src2Stride0,
                                     int src2Stride2, int src2Len, const float *pSrc3,
                                     int src3Stride0, int src3Stride2, int src3Len, float *pDst,
                                     int dstStride0, int dstStride2, int count);
ZELM_API ZelStatus zelmGaxpy_mva_64f(const double *pSrc1, int src1Stride1, int src1Stride2,
                                     int width, int height, const double *pSrc2, int src2Stride0,
                                     int src2Stride2, int src2Len, const double *pSrc3,
                                     int src3Stride0, int src3Stride2, int src3Len, double *pDst,
                                     int dstStride0, int dstStride2, int count);
ZELM_API ZelStatus zelmGaxpy_mva_32f_P(const float *const *ppSrc1, int src1RoiShift, int width,
                                       int height, const float *const *ppSrc2, int src2RoiShift,
                                       int src2Stride0, int src2Len, const float *const *ppSrc3,
                                       int src3RoiShift, int src3Stride0, int src3Len,
                                       float *const *ppDst, int dstRoiShift, int dstStride0,
                                       int count);
ZELM_API ZelStatus zelmGaxpy_mva_64f_P(const double *const *ppSrc1, int src1RoiShift, int width,
                                       int height, const double *const *ppSrc2, int src2RoiShift,
                                       int src2Stride0, int src2Len, const double *const *ppSrc3,
                                       int src3RoiShift, int src3Stride0, int src3Len,
                                       double *const *ppDst, int dstRoiShift, int dstStride0,
                                       int count);
ZELM_API ZelStatus zelmGaxpy_mva_32f_L(const float *pSrc1, int src1Stride1, int src1Stride2,
                                       int width, int height, const float *const *ppSrc2,
                                       int src2RoiShift, int src2Stride2, int src2Len,
                                       const float *const *ppSrc3, int src3RoiShift,
                                       int src3Stride2, int src3Len, float *const *ppDst,
                                       int dstRoiShift, int dstStride2, int count);
ZELM_API ZelStatus zelmGaxpy_mva_64f_L(const double *pSrc1, int src1Stride1, int src1Stride2,
                                       int width, int height, const double *const *ppSrc2,
                                       int src2RoiShift, int src2Stride2, int src2Len,
                                       const double *const *ppSrc3, int src3RoiShift,
                                       int src3Stride2, int src3Len, double *const *ppDst,
                                       int dstRoiShift, int dstStride2, int count);
ZELM_API ZelStatus zelmGaxpy_mvav_32f(const float *pSrc1, int src1Stride1, int src1Stride2,
                                      int width, int height, const float *pSrc2, int src2Stride0,
                                      int src2Stride2, int src2Len, const float *pSrc3,
                                      int src3Stride2, int src3Len, float *pDst, int dstStride0,
                                      int dstStride2, int count);
ZELM_API ZelStatus zelmGaxpy_mvav_64f(const double *pSrc1, int src1Stride1, int src1Stride2,
                                      int width, int height, const double *pSrc2, int src2Stride0,
                                      int src2Stride2, int src2Len, const double *pSrc3,
                                      int src3Stride2, int src3Len, double *pDst, int dstStride0,
                                      int dstStride2, int count);
ZELM_API ZelStatus zelmGaxpy_mvav_32f_P(const float *const *ppSrc1, int src1RoiShift, int width,
                                        int height, const float *const *ppSrc2, int src2RoiShift,
                                        int src2Stride0, int src2Len, const float *const *ppSrc3,
                                        int src3RoiShift, int src3Len, float *const *ppDst,
                                        int dstRoiShift, int dstStride0, int count);
ZELM_API ZelStatus zelmGaxpy_mvav_64f_P(const double *const *ppSrc1, int src1RoiShift, int width,
                                        int height, const double *const *ppSrc2, int src2RoiShift,
                                        int src2Stride0, int src2Len, const double *const *ppSrc3,
                                        int src3RoiShift, int src3Len, double *const *ppDst,
                                        int dstRoiShift, int dstStride0, int count);
ZELM_API ZelStatus zelmGaxpy_mvav_32f_L(const float *pSrc1, int src1Stride1, int src1Stride2,
                                        int width, int height, const float *const *ppSrc2,
                                        int src2RoiShift, int src2Stride2, int src2Len,
                                        const float *pSrc3, int src3Stride2, int src3Len,
                                        float *const *ppDst, int dstRoiShift, int dstStride2,
                                        int count);
ZELM_API ZelStatus zelmGaxpy_mvav_64f_L(const double *pSrc1, int src1Stride1, int src1Stride2,
                                        int width, int height, const double *const *ppSrc2,
                                        int src2RoiShift, int src2Stride2, int src2Len,
                                        const double *pSrc3, int src3Stride2, int src3Len,
                                        double *const *ppDst, int dstRoiShift, int dstStride2,
                                        int count);

/* ============================================================================================== */
/* LUDecomp: LU decomposition with row pivoting */
/* ============================================================================================== */

/* P * A = L * U: L is lower triangular with a unit diagonal, U is upper triangular, P exchanges
 * rows. All matrices are square of order n = widthHeight.
 *
 * pDstIndex holds n integers for every matrix, without gaps; those of matrix k begin at k * n.
 * Entry i is the row of the caller's matrix that became pivot row i. No row is moved: with
 * r = entry i, element (r, j) of the destination is L(i, j) for j < i and U(i, j) for j >= i. The
 * unit diagonal is not stored. Of equal candidates in a column the topmost in the current order
 * becomes the pivot.
 *
 * A pivot p is too small, and the matrix singular, when
 *   orders 3 to 6:  |p| <  2^-125 (32f), 2^-1021 (64f)
 *   other orders:   |p| <= 2^-23  (32f), 2^-52   (64f)
 * NaNs and infinities are not detected.
 *
 * In place: the destination may be the source, at the same address (table, roi shift) and with the
 * same strides. No other overlap is allowed, and none with pDstIndex.
 *
 * Status, as under "Checks" above; in this order:
 *   null pointer, bad count, bad size, bad stride, bad offset.
 *   single matrices:  no count.
 * zelStatusSingular: the outputs of the singular matrix are incomplete and must not be used. An
 * array is left at its first singular matrix: those before it are complete, those after it are
 * untouched. When several threads share an array, this holds in each thread's range of it. */
ZELM_API ZelStatus zelmLUDecomp_m_32f(const float *pSrc, int srcStride1, int srcStride2,
                                      int *pDstIndex, float *pDst, int dstStride1, int dstStride2,
                                      int widthHeight);
ZELM_API ZelStatus zelmLUDecomp_m_64f(const double *pSrc, int srcStride1, int srcStride2,
                                      int *pDstIndex, double *pDst, int dstStride1, int dstStride2,
                                      int widthHeight);
ZELM_API ZelStatus zelmLUDecomp_m_32f_P(const float *const *ppSrc, int srcRoiShift, int *pDstIndex,
                                        float *const *ppDst, int dstRoiShift, int widthHeight);
ZELM_API ZelStatus zelmLUDecomp_m_64f_P(const double *const *ppSrc, int srcRoiShift, int *pDstIndex,
                                        double *const *ppDst, int dstRoiShift, int widthHeight);
ZELM_API ZelStatus zelmLUDecomp_ma_32f(const float *pSrc, int srcStride0, int srcStride1,
                                       int srcStride2, int *pDstIndex, float *pDst, int dstStride0,
                                       int dstStride1, int dstStride2, int widthHeight, int count);
ZELM_API ZelStatus zelmLUDecomp_ma_64f(const double *pSrc, int srcStride0, int srcStride1,
                                       int srcStride2, int *pDstIndex, double *pDst, int dstStride0,
                                       int dstStride1, int dstStride2, int widthHeight, int count);
ZELM_API ZelStatus zelmLUDecomp_ma_32f_P(const float *const *ppSrc, int srcRoiShift, int srcStride0,
                                         int *pDstIndex, float *const *ppDst, int dstRoiShift,
                                         int dstStride0, int widthHeight, int count);
ZELM_API ZelStatus zelmLUDecomp_ma_64f_P(const double *const *ppSrc, int srcRoiShift,
                                         int srcStride0, int *pDstIndex, double *const *ppDst,
                                         int dstRoiShift, int dstStride0, int widthHeight,
                                         int count);
ZELM_API ZelStatus zelmLUDecomp_ma_32f_L(const float *const *ppSrc, int srcRoiShift, int srcStride1,
                                         int srcStride2, int *pDstIndex, float *const *ppDst,
                                         int dstRoiShift, int dstStride1, int dstStride2,
                                         int widthHeight, int count);
ZELM_API ZelStatus zelmLUDecomp_ma_64f_L(const double *const *ppSrc, int srcRoiShift,
                                         int srcStride1, int srcStride2, int *pDstIndex,
                                         double *const *ppDst, int dstRoiShift, int dstStride1,
                                         int dstStride2, int widthHeight, int count);

/* ============================================================================================== */
/* LUBackSubst: Solution of A * x = b from the LU decomposition */
/* ============================================================================================== */

/* pSrc and pSrcIndex are the factors and the row numbers that zelmLUDecomp wrote for A, of order
 * n = widthHeight; pSrc2 is the right-hand side b and pDst receives x, in natural order.
 *   mv    one matrix, one right-hand side
 *   mva   one matrix, count right-hand sides; pSrcIndex holds n integers
 *   mava  count matrices, each with its right-hand side; pSrcIndex holds count * n integers
 *
 * There is no test for singularity: a zero on the diagonal of U gives infinities or NaNs.
 *
 * The destination must not overlap a source, the right-hand side and pSrcIndex included.
 *
 * Status, as under "Checks" above; in this order:
 *   null pointer, bad count, bad size, bad stride, bad offset.
 *   mv:  no count. */
ZELM_API ZelStatus zelmLUBackSubst_mv_32f(const float *pSrc, int srcStride1, int srcStride2,
                                          const int *pSrcIndex, const float *pSrc2, int src2Stride2,
                                          float *pDst, int dstStride2, int widthHeight);
ZELM_API ZelStatus zelmLUBackSubst_mv_64f(const double *pSrc, int srcStride1, int srcStride2,
                                          const int *pSrcIndex, const double *pSrc2,
                                          int src2Stride2, double *pDst, int dstStride2,
                                          int widthHeight);
ZELM_API ZelStatus zelmLUBackSubst_mv_32f_P(const float *const *ppSrc, int srcRoiShift,
                                            const int *pSrcIndex, const float *const *ppSrc2,
                                            int src2RoiShift, float *const *ppDst, int dstRoiShift,
                                            int widthHeight);
ZELM_API ZelStatus zelmLUBackSubst_mv_64f_P(const double *const *ppSrc, int srcRoiShift,
                                            const int *pSrcIndex, const double *const *ppSrc2,
                                            int src2RoiShift, double *const *ppDst, int dstRoiShift,
                                            int widthHeight);
ZELM_API ZelStatus zelmLUBackSubst_mva_32f(const float *pSrc, int srcStride1, int srcStride2,
                                           const int *pSrcIndex, const float *pSrc2,
                                           int src2Stride0, int src2Stride2, float *pDst,
                                           int dstStride0, int dstStride2, int widthHeight,
                                           int count);
ZELM_API ZelStatus zelmLUBackSubst_mva_64f(const double *pSrc, int srcStride1, int srcStride2,
                                           const int *pSrcIndex, const double *pSrc2,
                                           int src2Stride0, int src2Stride2, double *pDst,
                                           int dstStride0, int dstStride2, int widthHeight,
                                           int count);
ZELM_API ZelStatus zelmLUBackSubst_mva_32f_P(const float *const *ppSrc, int srcRoiShift,
                                             const int *pSrcIndex, const float *const *ppSrc2,
                                             int src2RoiShift, int src2Stride0, float *const *ppDst,
                                             int dstRoiShift, int dstStride0, int widthHeight,
                                             int count);
ZELM_API ZelStatus zelmLUBackSubst_mva_64f_P(const double *const *ppSrc, int srcRoiShift,
                                             const int *pSrcIndex, const double *const *ppSrc2,
                                             int src2RoiShift, int src2Stride0,
                                             double *const *ppDst, int dstRoiShift, int dstStride0,
                                             int widthHeight, int count);
ZELM_API ZelStatus zelmLUBackSubst_mva_32f_L(const float *pSrc, int srcStride1, int srcStride2,
                                             const int *pSrcIndex, const float *const *ppSrc2,
                                             int src2RoiShift, int src2Stride2, float *const *ppDst,
                                             int dstRoiShift, int dstStride2, int widthHeight,
                                             int count);
ZELM_API ZelStatus zelmLUBackSubst_mva_64f_L(const double *pSrc, int srcStride1, int srcStride2,
                                             const int *pSrcIndex, const double *const *ppSrc2,
                                             int src2RoiShift, int src2Stride2,
                                             double *const *ppDst, int dstRoiShift, int dstStride2,
                                             int widthHeight, int count);
ZELM_API ZelStatus zelmLUBackSubst_mava_32f(const float *pSrc, int srcStride0, int srcStride1,
                                            int srcStride2, const int *pSrcIndex,
                                            const float *pSrc2, int src2Stride0, int src2Stride2,
                                            float *pDst, int dstStride0, int dstStride2,
                                            int widthHeight, int count);
ZELM_API ZelStatus zelmLUBackSubst_mava_64f(const double *pSrc, int srcStride0, int srcStride1,
                                            int srcStride2, const int *pSrcIndex,
                                            const double *pSrc2, int src2Stride0, int src2Stride2,
                                            double *pDst, int dstStride0, int dstStride2,
                                            int widthHeight, int count);
ZELM_API ZelStatus zelmLUBackSubst_mava_32f_P(const float *const *ppSrc, int srcRoiShift,
                                              int srcStride0, const int *pSrcIndex,
                                              const float *const *ppSrc2, int src2RoiShift,
                                              int src2Stride0, float *const *ppDst, int dstRoiShift,
                                              int dstStride0, int widthHeight, int count);
ZELM_API ZelStatus zelmLUBackSubst_mava_64f_P(const double *const *ppSrc, int srcRoiShift,
                                              int srcStride0, const int *pSrcIndex,
                                              const double *const *ppSrc2, int src2RoiShift,
                                              int src2Stride0, double *const *ppDst,
                                              int dstRoiShift, int dstStride0, int widthHeight,
                                              int count);
ZELM_API ZelStatus zelmLUBackSubst_mava_32f_L(const float *const *ppSrc, int srcRoiShift,
                                              int srcStride1, int srcStride2, const int *pSrcIndex,
                                              const float *const *ppSrc2, int src2RoiShift,
                                              int src2Stride2, float *const *ppDst, int dstRoiShift,
                                              int dstStride2, int widthHeight, int count);
ZELM_API ZelStatus zelmLUBackSubst_mava_64f_L(const double *const *ppSrc, int srcRoiShift,
                                              int srcStride1, int srcStride2, const int *pSrcIndex,
                                              const double *const *ppSrc2, int src2RoiShift,
                                              int src2Stride2, double *const *ppDst,
                                              int dstRoiShift, int dstStride2, int widthHeight,
                                              int count);

/* ============================================================================================== */
/* Invert: Inverse matrices */
/* ============================================================================================== */

/* dst = the inverse of src, square of order n = widthHeight. pBuffer is scratch of n * (n + 1)
 * elements, whose contents are lost; with several threads it is not used.
 *
 * m is the smallest normal number, 2^-126 (32f) or 2^-1022 (64f), and T(n) = 2 n^3 m, where 2 n^3
 * wraps to 32 bits, from order 1024 on, and may be negative. A matrix is singular when
 *   order 1:                                not |a| > 2 m
 *   orders 3 and 4, adjacent elements:      T(n) > |determinant| (32f), 2 T(n) > ... (64f)
 *   orders 5 and 6, adjacent elements:      T(n) > |pivot|
 *   other orders, strides, and _P:          T(n) > |pivot| or T(n) >= |determinant|
 * Elements are adjacent when every stride2 of the call is the size of an element.
 *
 * Methods, where elements are adjacent: the adjugate, orders 3 and 4; Gauss-Jordan elimination,
 * orders 5 and 6. For all else each cofactor is an elimination with row exchanges; one that meets a
 * pivot of magnitude at most T(n) counts as T(n): an inverse has elements of T(n) / determinant
 * where exact zeros might stand. Cofactors take time of order n^5. Up to order 16 only those are
 * computed that can be degenerate; the others, far from T(n) as they are, come of the adjugate
 * (orders 2 to 4) or of one Gauss-Jordan elimination. Results differ in rounding between the
 * methods.
 * 32f reciprocals of orders 3 to 6 with adjacent elements are approximations after one Newton step,
 * within about 2 units in the last place; of 2^126 and more they are 0.
 *
 * In place: the destination may be the source, at the same address (table, roi shift) and with the
 * same strides, up to order 32. No other overlap is allowed.
 *
 * Status, as under "Checks" above; in this order:
 *   null pointer, bad count, bad size, bad stride, bad offset.
 *   single matrices:  no count.
 * zelStatusSingular: nothing is written for the singular matrix. An array is left at its first
 * singular matrix: those before it are complete, those after it are untouched. Arrays of order 4 in
 * 32f with adjacent elements are inverted by pairs, 0 and 1, 2 and 3 ...: of a pair with a singular
 * matrix neither is written. When several threads share an array, this holds in each thread's
 * range. */
ZELM_API ZelStatus zelmInvert_m_32f(const float *pSrc, int srcStride1, int srcStride2,
                                    float *pBuffer, float *pDst, int dstStride1, int dstStride2,
                                    int widthHeight);
ZELM_API ZelStatus zelmInvert_m_64f(const double *pSrc, int srcStride1, int srcStride2,
                                    double *pBuffer, double *pDst, int dstStride1, int dstStride2,
                                    int widthHeight);
ZELM_API ZelStatus zelmInvert_m_32f_P(const float *const *ppSrc, int srcRoiShift, float *pBuffer,
                                      float *const *ppDst, int dstRoiShift, int widthHeight);
ZELM_API ZelStatus zelmInvert_m_64f_P(const double *const *ppSrc, int srcRoiShift, double *pBuffer,
                                      double *const *ppDst, int dstRoiShift, int widthHeight);
ZELM_API ZelStatus zelmInvert_ma_32f(const float *pSrc, int srcStride0, int srcStride1,
                                     int srcStride2, float *pBuffer, float *pDst, int dstStride0,
                                     int dstStride1, int dstStride2, int widthHeight, int count);
ZELM_API ZelStatus zelmInvert_ma_64f(const double *pSrc, int srcStride0, int srcStride1,
                                     int srcStride2, double *pBuffer, double *pDst, int dstStride0,
                                     int dstStride1, int dstStride2, int widthHeight, int count);
ZELM_API ZelStatus zelmInvert_ma_32f_P(const float *const *ppSrc, int srcRoiShift, int srcStride0,
                                       float *pBuffer, float *const *ppDst, int dstRoiShift,
                                       int dstStride0, int widthHeight, int count);
ZELM_API ZelStatus zelmInvert_ma_64f_P(const double *const *ppSrc, int srcRoiShift, int srcStride0,
                                       double *pBuffer, double *const *ppDst, int dstRoiShift,
                                       int dstStride0, int widthHeight, int count);
ZELM_API ZelStatus zelmInvert_ma_32f_L(const float *const *ppSrc, int srcRoiShift, int srcStride1,
                                       int srcStride2, float *pBuffer, float *const *ppDst,
                                       int dstRoiShift, int dstStride1, int dstStride2,
                                       int widthHeight, int count);
ZELM_API ZelStatus zelmInvert_ma_64f_L(const double *const *ppSrc, int srcRoiShift, int srcStride1,
                                       int srcStride2, double *pBuffer, double *const *ppDst,
                                       int dstRoiShift, int dstStride1, int dstStride2,
                                       int widthHeight, int count);

/* ============================================================================================== */
/* Det: Determinants */
/* ============================================================================================== */

/* pDst receives the determinant of src, square of order n = widthHeight; of arrays, that of matrix
 * k is element k of pDst, without gaps. pBuffer is scratch of n * (n + 1) elements, whose contents
 * are lost; with several threads it is not used.
 *
 * Orders 3 to 6 are expanded in closed form and give whatever comes of it. Other orders are reduced
 * by elimination with row exchanges: the determinant is 0 when T(n) > |pivot|, or the last element
 * is not above T(n), where T(n) = 2 n^3 m, 2 n^3 wraps to 32 bits, from order 1024 on, and may be
 * negative, and m is the smallest normal number, 2^-126 (32f) or 2^-1022 (64f). A singular matrix
 * is no error.
 *
 * pDst must not overlap a source.
 *
 * Status, as under "Checks" above; in this order:
 *   null pointer, bad count, bad size, bad stride, bad offset.
 *   single matrices:  no count. */
ZELM_API ZelStatus zelmDet_m_32f(const float *pSrc, int srcStride1, int srcStride2, int widthHeight,
                                 float *pBuffer, float *pDst);
ZELM_API ZelStatus zelmDet_m_64f(const double *pSrc, int srcStride1, int srcStride2,
                                 int widthHeight, double *pBuffer, double *pDst);
ZELM_API ZelStatus zelmDet_m_32f_P(const float *const *ppSrc, int srcRoiShift, int widthHeight,
                                   float *pBuffer, float *pDst);
ZELM_API ZelStatus zelmDet_m_64f_P(const double *const *ppSrc, int srcRoiShift, int widthHeight,
                                   double *pBuffer, double *pDst);
ZELM_API ZelStatus zelmDet_ma_32f(const float *pSrc, int srcStride0, int srcStride1, int srcStride2,
                                  int widthHeight, float *pBuffer, float *pDst, int count);
ZELM_API ZelStatus zelmDet_ma_64f(const double *pSrc, int srcStride0, int srcStride1,
                                  int srcStride2, int widthHeight, double *pBuffer, double *pDst,
                                  int count);
ZELM_API ZelStatus zelmDet_ma_32f_P(const float *const *ppSrc, int srcRoiShift, int srcStride0,
                                    int widthHeight, float *pBuffer, float *pDst, int count);
ZELM_API ZelStatus zelmDet_ma_64f_P(const double *const *ppSrc, int srcRoiShift, int srcStride0,
                                    int widthHeight, double *pBuffer, double *pDst, int count);
ZELM_API ZelStatus zelmDet_ma_32f_L(const float *const *ppSrc, int srcRoiShift, int srcStride1,
                                    int srcStride2, int widthHeight, float *pBuffer, float *pDst,
                                    int count);
ZELM_API ZelStatus zelmDet_ma_64f_L(const double *const *ppSrc, int srcRoiShift, int srcStride1,
                                    int srcStride2, int widthHeight, double *pBuffer, double *pDst,
                                    int count);

/* ============================================================================================== */
/* CholeskyDecomp: Cholesky decomposition */
/* ============================================================================================== */

/* A = L * L', A symmetric and positive definite, L lower triangular, L' its transpose. All matrices
 * are square of order n = widthHeight.
 *
 * Only the lower triangle of the source is read, the diagonal included, and only that of the
 * destination is written: the upper triangles may hold anything, and in a table of pointers (_P)
 * their entries may be null. Element (i, j) of the destination is L(i, j) for j < i, and the
 * diagonal holds reciprocals: element (i, i) is 1 / L(i, i).
 *
 * The reciprocal root is exact to rounding in 64f. In 32f it is the processor's approximation after
 * one Newton step, within 3 units in the last place, and infinite or NaN for a diagonal
 * residual that is subnormal or infinite; processors differ in its last bits.
 *
 * A is not positive definite when a diagonal residual d, A(i, i) less the squares of row i of L,
 * has 0 >= d. There is no tolerance, and NaNs are not detected.
 *
 * In place: the destination may be the source, at the same address (table, roi shift) and with the
 * same strides. No other overlap is allowed.
 *
 * Status, as under "Checks" above; in this order:
 *   null pointer, bad count, bad size, bad stride, bad offset.
 *   single matrices:  no count.
 * zelStatusNotPositiveDefinite: the rows before the failing one are written, and that row without
 * its diagonal element; the rows after it are untouched. An array is left at its first failing
 * matrix: those before it are complete, those after it are untouched. When several threads share
 * an array, this holds in each thread's range of it.
 *
 * Method: Golub, Van Loan, Matrix Computations, 4.2. */
ZELM_API ZelStatus zelmCholeskyDecomp_m_32f(const float *pSrc, int srcStride1, int srcStride2,
                                            float *pDst, int dstStride1, int dstStride2,
                                            int widthHeight);
ZELM_API ZelStatus zelmCholeskyDecomp_m_64f(const double *pSrc, int srcStride1, int srcStride2,
                                            double *pDst, int dstStride1, int dstStride2,
                                            int widthHeight);
ZELM_API ZelStatus zelmCholeskyDecomp_m_32f_P(const float *const *ppSrc, int srcRoiShift,
                                              float *const *ppDst, int dstRoiShift,
                                              int widthHeight);
ZELM_API ZelStatus zelmCholeskyDecomp_m_64f_P(const double *const *ppSrc, int srcRoiShift,
                                              double *const *ppDst, int dstRoiShift,
                                              int widthHeight);
ZELM_API ZelStatus zelmCholeskyDecomp_ma_32f(const float *pSrc, int srcStride0, int srcStride1,
                                             int srcStride2, float *pDst, int dstStride0,
                                             int dstStride1, int dstStride2, int widthHeight,
                                             int count);
ZELM_API ZelStatus zelmCholeskyDecomp_ma_64f(const double *pSrc, int srcStride0, int srcStride1,
                                             int srcStride2, double *pDst, int dstStride0,
                                             int dstStride1, int dstStride2, int widthHeight,
                                             int count);
ZELM_API ZelStatus zelmCholeskyDecomp_ma_32f_P(const float *const *ppSrc, int srcRoiShift,
                                               int srcStride0, float *const *ppDst, int dstRoiShift,
                                               int dstStride0, int widthHeight, int count);
ZELM_API ZelStatus zelmCholeskyDecomp_ma_64f_P(const double *const *ppSrc, int srcRoiShift,
                                               int srcStride0, double *const *ppDst,
                                               int dstRoiShift, int dstStride0, int widthHeight,
                                               int count);
ZELM_API ZelStatus zelmCholeskyDecomp_ma_32f_L(const float *const *ppSrc, int srcRoiShift,
                                               int srcStride1, int srcStride2, float *const *ppDst,
                                               int dstRoiShift, int dstStride1, int dstStride2,
                                               int widthHeight, int count);
ZELM_API ZelStatus zelmCholeskyDecomp_ma_64f_L(const double *const *ppSrc, int srcRoiShift,
                                               int srcStride1, int srcStride2, double *const *ppDst,
                                               int dstRoiShift, int dstStride1, int dstStride2,
                                               int widthHeight, int count);

/* ============================================================================================== */
/* CholeskyBackSubst: Solution of A * x = b from the Cholesky decomposition */
/* ============================================================================================== */

/* pSrc is the factor that zelmCholeskyDecomp wrote for A, of order n = widthHeight; pSrc2 is the
 * right-hand side b and pDst receives x. Only the lower triangle of the factor is read; in a table
 * of pointers (_P) the entries of the upper one may be null.
 *   mv    one matrix, one right-hand side
 *   mva   one matrix, count right-hand sides
 *   mava  count matrices, each with its right-hand side
 *
 * Nothing is divided by: the diagonal of the factor holds reciprocals. The factor is not tested.
 *
 * In place: the destination may be the right-hand side, at the same address (table, roi shift) and
 * with the same strides. No other overlap is allowed.
 *
 * Status, as under "Checks" above; in this order:
 *   null pointer, bad count, bad size, bad stride, bad offset.
 *   mv:       no count.
 *   mva, _L:  null pointer, bad stride, bad offset, bad size, bad count. */
ZELM_API ZelStatus zelmCholeskyBackSubst_mv_32f(const float *pSrc, int srcStride1, int srcStride2,
                                                const float *pSrc2, int src2Stride2, float *pDst,
                                                int dstStride2, int widthHeight);
ZELM_API ZelStatus zelmCholeskyBackSubst_mv_64f(const double *pSrc, int srcStride1, int srcStride2,
                                                const double *pSrc2, int src2Stride2, double *pDst,
                                                int dstStride2, int widthHeight);
ZELM_API ZelStatus zelmCholeskyBackSubst_mv_32f_P(const float *const *ppSrc, int srcRoiShift,
                                                  const float *const *ppSrc2, int src2RoiShift,
                                                  float *const *ppDst, int dstRoiShift,
                                                  int widthHeight);
ZELM_API ZelStatus zelmCholeskyBackSubst_mv_64f_P(const double *const *ppSrc, int srcRoiShift,
                                                  const double *const *ppSrc2, int src2RoiShift,
                                                  double *const *ppDst, int dstRoiShift,
                                                  int widthHeight);
ZELM_API ZelStatus zelmCholeskyBackSubst_mva_32f(const float *pSrc, int srcStride1, int srcStride2,
                                                 const float *pSrc2, int src2Stride0,
                                                 int src2Stride2, float *pDst, int dstStride0,
                                                 int dstStride2, int widthHeight, int count);
ZELM_API ZelStatus zelmCholeskyBackSubst_mva_64f(const double *pSrc, int srcStride1, int srcStride2,
                                                 const double *pSrc2, int src2Stride0,
                                                 int src2Stride2, double *pDst, int dstStride0,
                                                 int dstStride2, int widthHeight, int count);
ZELM_API ZelStatus zelmCholeskyBackSubst_mva_32f_P(const float *const *ppSrc, int srcRoiShift,
                                                   const float *const *ppSrc2, int src2RoiShift,
                                                   int src2Stride0, float *const *ppDst,
                                                   int dstRoiShift, int dstStride0, int widthHeight,
                                                   int count);
ZELM_API ZelStatus zelmCholeskyBackSubst_mva_64f_P(const double *const *ppSrc, int srcRoiShift,
                                                   const double *const *ppSrc2, int src2RoiShift,
                                                   int src2Stride0, double *const *ppDst,
                                                   int dstRoiShift, int dstStride0, int widthHeight,
                                                   int count);
ZELM_API ZelStatus zelmCholeskyBackSubst_mva_32f_L(const float *pSrc, int srcStride1,
                                                   int srcStride2, const float *const *ppSrc2,
                                                   int src2RoiShift, int src2Stride2,
                                                   float *const *ppDst, int dstRoiShift,
                                                   int dstStride2, int widthHeight, int count);
ZELM_API ZelStatus zelmCholeskyBackSubst_mva_64f_L(const double *pSrc, int srcStride1,
                                                   int srcStride2, const double *const *ppSrc2,
                                                   int src2RoiShift, int src2Stride2,
                                                   double *const *ppDst, int dstRoiShift,
                                                   int dstStride2, int widthHeight, int count);
ZELM_API ZelStatus zelmCholeskyBackSubst_mava_32f(const float *pSrc, int srcStride0, int srcStride1,
                                                  int srcStride2, const float *pSrc2,
                                                  int src2Stride0, int src2Stride2, float *pDst,
                                                  int dstStride0, int dstStride2, int widthHeight,
                                                  int count);
ZELM_API ZelStatus zelmCholeskyBackSubst_mava_64f(const double *pSrc, int srcStride0,
                                                  int srcStride1, int srcStride2,
                                                  const double *pSrc2, int src2Stride0,
                                                  int src2Stride2, double *pDst, int dstStride0,
                                                  int dstStride2, int widthHeight, int count);
ZELM_API ZelStatus zelmCholeskyBackSubst_mava_32f_P(const float *const *ppSrc, int srcRoiShift,
                                                    int srcStride0, const float *const *ppSrc2,
                                                    int src2RoiShift, int src2Stride0,
                                                    float *const *ppDst, int dstRoiShift,
                                                    int dstStride0, int widthHeight, int count);
ZELM_API ZelStatus zelmCholeskyBackSubst_mava_64f_P(const double *const *ppSrc, int srcRoiShift,
                                                    int srcStride0, const double *const *ppSrc2,
                                                    int src2RoiShift, int src2Stride0,
                                                    double *const *ppDst, int dstRoiShift,
                                                    int dstStride0, int widthHeight, int count);
ZELM_API ZelStatus zelmCholeskyBackSubst_mava_32f_L(const float *const *ppSrc, int srcRoiShift,
                                                    int srcStride1, int srcStride2,
                                                    const float *const *ppSrc2, int src2RoiShift,
                                                    int src2Stride2, float *const *ppDst,
                                                    int dstRoiShift, int dstStride2,
                                                    int widthHeight, int count);
ZELM_API ZelStatus zelmCholeskyBackSubst_mava_64f_L(const double *const *ppSrc, int srcRoiShift,
                                                    int srcStride1, int srcStride2,
                                                    const double *const *ppSrc2, int src2RoiShift,
                                                    int src2Stride2, double *const *ppDst,
                                                    int dstRoiShift, int dstStride2,
                                                    int widthHeight, int count);

/* ============================================================================================== */
/* QRDecomp: QR decomposition */
/* ============================================================================================== */

/* A = Q * R by Householder reflections, A of height rows and width columns, width <= height. Q is
 * not formed. On and above its diagonal the destination holds R. Below the diagonal of column k it
 * holds u(1), u(2) ... of the reflection I + beta * u * u' that made column k, where u(0) = 1 and
 * beta = -2 / (u' * u) are not stored. There are width reflections, width - 1 of a square matrix.
 *
 * R(k, k) is -alpha: alpha is the length of column k from the diagonal down, with the sign of the
 * diagonal element, and negative if that is 0. The sum of squares of such a column must be at least
 * 2^-23 (32f) or 2^-52 (64f). The last diagonal element of a square R is not tested, and NaNs are
 * not detected, nor are sums of squares that overflow. Divisions and roots are exact to rounding in
 * both types.
 *
 * pBuffer is scratch of height elements.
 *
 * In place: the destination may be the source, at the same address (table, roi shift) and with the
 * same strides. No other overlap is allowed.
 *
 * Status, as under "Checks" above; in this order:
 *   null pointer, bad count, bad size, bad stride, bad offset, size mismatch (width > height).
 *   single matrices:  no count.
 * zelStatusDivByZero: the sum of squares of column k is too small. The columns before it are final;
 * it and those after it hold what k reflections have made of them. An array is left at its first
 * failing matrix: those before it are complete, those after it are untouched. When several threads
 * share an array, this holds in each thread's range of it.
 *
 * Method: Golub, Van Loan, Matrix Computations, 5.2. */
ZELM_API ZelStatus zelmQRDecomp_m_32f(const float *pSrc, int srcStride1, int srcStride2,
                                      float *pBuffer, float *pDst, int dstStride1, int dstStride2,
                                      int width, int height);
ZELM_API ZelStatus zelmQRDecomp_m_64f(const double *pSrc, int srcStride1, int srcStride2,
                                      double *pBuffer, double *pDst, int dstStride1, int dstStride2,
                                      int width, int height);
ZELM_API ZelStatus zelmQRDecomp_m_32f_P(const float *const *ppSrc, int srcRoiShift, float *pBuffer,
                                        float *const *ppDst, int dstRoiShift, int width,
                                        int height);
ZELM_API ZelStatus zelmQRDecomp_m_64f_P(const double *const *ppSrc, int srcRoiShift,
                                        double *pBuffer, double *const *ppDst, int dstRoiShift,
                                        int width, int height);
ZELM_API ZelStatus zelmQRDecomp_ma_32f(const float *pSrc, int srcStride0, int srcStride1,
                                       int srcStride2, float *pBuffer, float *pDst, int dstStride0,
                                       int dstStride1, int dstStride2, int width, int height,
                                       int count);
ZELM_API ZelStatus zelmQRDecomp_ma_64f(const double *pSrc, int srcStride0, int srcStride1,
                                       int srcStride2, double *pBuffer, double *pDst,
                                       int dstStride0, int dstStride1, int dstStride2, int width,
                                       int height, int count);
ZELM_API ZelStatus zelmQRDecomp_ma_32f_P(const float *const *ppSrc, int srcRoiShift, int srcStride0,
                                         float *pBuffer, float *const *ppDst, int dstRoiShift,
                                         int dstStride0, int width, int height, int count);
ZELM_API ZelStatus zelmQRDecomp_ma_64f_P(const double *const *ppSrc, int srcRoiShift,
                                         int srcStride0, double *pBuffer, double *const *ppDst,
                                         int dstRoiShift, int dstStride0, int width, int height,
                                         int count);
ZELM_API ZelStatus zelmQRDecomp_ma_32f_L(const float *const *ppSrc, int srcRoiShift, int srcStride1,
                                         int srcStride2, float *pBuffer, float *const *ppDst,
                                         int dstRoiShift, int dstStride1, int dstStride2, int width,
                                         int height, int count);
ZELM_API ZelStatus zelmQRDecomp_ma_64f_L(const double *const *ppSrc, int srcRoiShift,
                                         int srcStride1, int srcStride2, double *pBuffer,
                                         double *const *ppDst, int dstRoiShift, int dstStride1,
                                         int dstStride2, int width, int height, int count);

/* ============================================================================================== */
/* QRBackSubst: Solution of A * x = b from the QR decomposition */
/* ============================================================================================== */

/* pSrc is the factor that zelmQRDecomp wrote for A; pSrc2 is the right-hand side b of height
 * elements, and pDst receives x of width elements, which makes the length of A * x - b least.
 *   mv    one matrix, one right-hand side
 *   mva   one matrix, count right-hand sides
 *   mava  count matrices, each with its right-hand side
 *
 * pBuffer is scratch of height elements, whose contents are lost; with several threads it is not
 * used. The factor is not tested: a zero on the diagonal of R gives infinities or NaNs.
 *
 * In place: the destination may be the right-hand side, at the same address (table, roi shift) and
 * with the same strides. No other overlap is allowed.
 *
 * Status, as under "Checks" above; in this order:
 *   null pointer, bad count, bad size, bad stride, bad offset, size mismatch (width > height).
 *   mv:  no count. */
ZELM_API ZelStatus zelmQRBackSubst_mv_32f(const float *pSrc, int srcStride1, int srcStride2,
                                          float *pBuffer, const float *pSrc2, int src2Stride2,
                                          float *pDst, int dstStride2, int width, int height);
ZELM_API ZelStatus zelmQRBackSubst_mv_64f(const double *pSrc, int srcStride1, int srcStride2,
                                          double *pBuffer, const double *pSrc2, int src2Stride2,
                                          double *pDst, int dstStride2, int width, int height);
ZELM_API ZelStatus zelmQRBackSubst_mv_32f_P(const float *const *ppSrc, int srcRoiShift,
                                            float *pBuffer, const float *const *ppSrc2,
                                            int src2RoiShift, float *const *ppDst, int dstRoiShift,
                                            int width, int height);
ZELM_API ZelStatus zelmQRBackSubst_mv_64f_P(const double *const *ppSrc, int srcRoiShift,
                                            double *pBuffer, const double *const *ppSrc2,
                                            int src2RoiShift, double *const *ppDst, int dstRoiShift,
                                            int width, int height);
ZELM_API ZelStatus zelmQRBackSubst_mva_32f(const float *pSrc, int srcStride1, int srcStride2,
                                           float *pBuffer, const float *pSrc2, int src2Stride0,
                                           int src2Stride2, float *pDst, int dstStride0,
                                           int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmQRBackSubst_mva_64f(const double *pSrc, int srcStride1, int srcStride2,
                                           double *pBuffer, const double *pSrc2, int src2Stride0,
                                           int src2Stride2, double *pDst, int dstStride0,
                                           int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmQRBackSubst_mva_32f_P(const float *const *ppSrc, int srcRoiShift,
                                             float *pBuffer, const float *const *ppSrc2,
                                             int src2RoiShift, int src2Stride0, float *const *ppDst,
                                             int dstRoiShift, int dstStride0, int width, int height,
                                             int count);
ZELM_API ZelStatus zelmQRBackSubst_mva_64f_P(const double *const *ppSrc, int srcRoiShift,
                                             double *pBuffer, const double *const *ppSrc2,
                                             int src2RoiShift, int src2Stride0,
                                             double *const *ppDst, int dstRoiShift, int dstStride0,
                                             int width, int height, int count);
ZELM_API ZelStatus zelmQRBackSubst_mva_32f_L(const float *pSrc, int srcStride1, int srcStride2,
                                             float *pBuffer, const float *const *ppSrc2,
                                             int src2RoiShift, int src2Stride2, float *const *ppDst,
                                             int dstRoiShift, int dstStride2, int width, int height,
                                             int count);
ZELM_API ZelStatus zelmQRBackSubst_mva_64f_L(const double *pSrc, int srcStride1, int srcStride2,
                                             double *pBuffer, const double *const *ppSrc2,
                                             int src2RoiShift, int src2Stride2,
                                             double *const *ppDst, int dstRoiShift, int dstStride2,
                                             int width, int height, int count);
ZELM_API ZelStatus zelmQRBackSubst_mava_32f(const float *pSrc, int srcStride0, int srcStride1,
                                            int srcStride2, float *pBuffer, const float *pSrc2,
                                            int src2Stride0, int src2Stride2, float *pDst,
                                            int dstStride0, int dstStride2, int width, int height,
                                            int count);
ZELM_API ZelStatus zelmQRBackSubst_mava_64f(const double *pSrc, int srcStride0, int srcStride1,
                                            int srcStride2, double *pBuffer, const double *pSrc2,
                                            int src2Stride0, int src2Stride2, double *pDst,
                                            int dstStride0, int dstStride2, int width, int height,
                                            int count);
ZELM_API ZelStatus zelmQRBackSubst_mava_32f_P(const float *const *ppSrc, int srcRoiShift,
                                              int srcStride0, float *pBuffer,
                                              const float *const *ppSrc2, int src2RoiShift,
                                              int src2Stride0, float *const *ppDst, int dstRoiShift,
                                              int dstStride0, int width, int height, int count);
ZELM_API ZelStatus zelmQRBackSubst_mava_64f_P(const double *const *ppSrc, int srcRoiShift,
                                              int srcStride0, double *pBuffer,
                                              const double *const *ppSrc2, int src2RoiShift,
                                              int src2Stride0, double *const *ppDst,
                                              int dstRoiShift, int dstStride0, int width,
                                              int height, int count);
ZELM_API ZelStatus zelmQRBackSubst_mava_32f_L(const float *const *ppSrc, int srcRoiShift,
                                              int srcStride1, int srcStride2, float *pBuffer,
                                              const float *const *ppSrc2, int src2RoiShift,
                                              int src2Stride2, float *const *ppDst, int dstRoiShift,
                                              int dstStride2, int width, int height, int count);
ZELM_API ZelStatus zelmQRBackSubst_mava_64f_L(const double *const *ppSrc, int srcRoiShift,
                                              int srcStride1, int srcStride2, double *pBuffer,
                                              const double *const *ppSrc2, int src2RoiShift,
                                              int src2Stride2, double *const *ppDst,
                                              int dstRoiShift, int dstStride2, int width,
                                              int height, int count);

/* ============================================================================================== */
/* AffineTransform3DH: Homogeneous transform of an array of points */
/* ============================================================================================== */

/* dst_n = (M * (x, y, z, 1)) / w for every 3-vector (x, y, z) of the array, as columns: with
 * m(i, j) row i and column j of the 4x4 matrix,
 *   w        =  m(3, 0) * x + m(3, 1) * y + m(3, 2) * z + m(3, 3)
 *   dst_n(i) = (m(i, 0) * x + m(i, 1) * y + m(i, 2) * z + m(i, 3)) * (1 / w),   i = 0, 1, 2
 * with sums from left to right. This is the one transform that takes column vectors and any
 * strides; zelmAffineTransformCoord_m4v3a_32f below takes row vectors.
 *
 * src1 is the matrix, src2 the array of vectors. There are no sizes.
 *
 * In place: the destination may be the array of vectors, at the same address and with the same
 * strides. No other overlap is allowed, and none with the matrix.
 *
 * Status, as under "Checks" above; in this order:
 *   null pointer, bad count, bad stride.
 * zelStatusDivByZero: |w| of at least one vector is not above 2^-126, the smallest normal number,
 * or is NaN. The three elements of every such vector are 3.4028235e38, the largest float. All
 * other vectors are transformed. */
ZELM_API ZelStatus zelmAffineTransform3DH_mva_32f(const float *pSrc1, int src1Stride1,
                                                  int src1Stride2, const float *pSrc2,
                                                  int src2Stride0, int src2Stride2, float *pDst,
                                                  int dstStride0, int dstStride2, int count);

/* ============================================================================================== */
/* Vectors3D: Vectors of 2, 3 and 4 floats */
/* ============================================================================================== */

/* A vector v2, v3 or v4 is 2, 3 or 4 floats one behind the other, at any address. Exactly these
 * are read and written. Scalar results go to pDst as one float. No argument is checked, and the
 * status is always zelStatusOk.
 *
 * Sums run from left to right in float: (x0*x0 + x1*x1) + x2*x2, then + x3*x3.
 *
 * In place: every source is read before the destination is written, so the destination may be any
 * of the sources, or overlap them. */

/* pDst[i] = pSrc1[i] + pSrc2[i], pSrc1[i] - pSrc2[i]. */
ZELM_API ZelStatus zelmAdd_v2_32f(const float *pSrc1, const float *pSrc2, float *pDst);
ZELM_API ZelStatus zelmAdd_v3_32f(const float *pSrc1, const float *pSrc2, float *pDst);
ZELM_API ZelStatus zelmAdd_v4_32f(const float *pSrc1, const float *pSrc2, float *pDst);
ZELM_API ZelStatus zelmSub_v2_32f(const float *pSrc1, const float *pSrc2, float *pDst);
ZELM_API ZelStatus zelmSub_v3_32f(const float *pSrc1, const float *pSrc2, float *pDst);
ZELM_API ZelStatus zelmSub_v4_32f(const float *pSrc1, const float *pSrc2, float *pDst);

/* Element by element the smaller or the larger one: pDst[i] = pSrc1[i] if pSrc1[i] < pSrc2[i]
 * (Max: if pSrc1[i] > pSrc2[i]), else pSrc2[i]. So the element of pSrc2 is taken where either is
 * NaN, and of zeros with different signs. */
ZELM_API ZelStatus zelmMin_v2_32f(const float *pSrc1, const float *pSrc2, float *pDst);
ZELM_API ZelStatus zelmMin_v3_32f(const float *pSrc1, const float *pSrc2, float *pDst);
ZELM_API ZelStatus zelmMin_v4_32f(const float *pSrc1, const float *pSrc2, float *pDst);
ZELM_API ZelStatus zelmMax_v2_32f(const float *pSrc1, const float *pSrc2, float *pDst);
ZELM_API ZelStatus zelmMax_v3_32f(const float *pSrc1, const float *pSrc2, float *pDst);
ZELM_API ZelStatus zelmMax_v4_32f(const float *pSrc1, const float *pSrc2, float *pDst);

/* pDst[i] = pSrc[i] * scale. */
ZELM_API ZelStatus zelmMulC_v2_32f(const float *pSrc, float *pDst, float scale);
ZELM_API ZelStatus zelmMulC_v3_32f(const float *pSrc, float *pDst, float scale);
ZELM_API ZelStatus zelmMulC_v4_32f(const float *pSrc, float *pDst, float scale);

/* One float: the sum of the squares, and its square root. */
ZELM_API ZelStatus zelmLenSqr_v2_32f(const float *pSrc, float *pDst);
ZELM_API ZelStatus zelmLenSqr_v3_32f(const float *pSrc, float *pDst);
ZELM_API ZelStatus zelmLenSqr_v4_32f(const float *pSrc, float *pDst);
ZELM_API ZelStatus zelmLen_v2_32f(const float *pSrc, float *pDst);
ZELM_API ZelStatus zelmLen_v3_32f(const float *pSrc, float *pDst);
ZELM_API ZelStatus zelmLen_v4_32f(const float *pSrc, float *pDst);

/* pDst[i] = pSrc[i] / length, true divisions. A vector of zeros becomes NaNs. Where the
 * squares underflow to 0, other elements become infinite; where they overflow, 0. */
ZELM_API ZelStatus zelmNormalize_v2_32f(const float *pSrc, float *pDst);
ZELM_API ZelStatus zelmNormalize_v3_32f(const float *pSrc, float *pDst);
ZELM_API ZelStatus zelmNormalize_v4_32f(const float *pSrc, float *pDst);

/* One float: pSrc1[0] * pSrc2[0] + pSrc1[1] * pSrc2[1] + ... */
ZELM_API ZelStatus zelmDotProduct_v2_32f(const float *pSrc1, const float *pSrc2, float *pDst);
ZELM_API ZelStatus zelmDotProduct_v3_32f(const float *pSrc1, const float *pSrc2, float *pDst);
ZELM_API ZelStatus zelmDotProduct_v4_32f(const float *pSrc1, const float *pSrc2, float *pDst);

/* Cross products of a = pSrc1, b = pSrc2, c = pSrc3.
 *   v2  one float: a0*b1 - a1*b0
 *   v3  (a1*b2 - a2*b1, a2*b0 - a0*b2, a0*b1 - a1*b0)
 *   v4  the vector that is orthogonal to all three, by expansion of the determinant:
 *       r0 =      a1*(b2*c3 - b3*c2) - a2*(b1*c3 - b3*c1) + a3*(b1*c2 - b2*c1)
 *       r1 = 0 - (a0*(b2*c3 - b3*c2) - a2*(b0*c3 - b3*c0) + a3*(b0*c2 - b2*c0))
 *       r2 =      a0*(b1*c3 - b3*c1) - a1*(b0*c3 - b3*c0) + a3*(b0*c1 - b1*c0)
 *       r3 = 0 - (a0*(b1*c2 - b2*c1) - a1*(b0*c2 - b2*c0) + a2*(b0*c1 - b1*c0)) */
ZELM_API ZelStatus zelmCrossProduct_v2_32f(const float *pSrc1, const float *pSrc2, float *pDst);
ZELM_API ZelStatus zelmCrossProduct_v3_32f(const float *pSrc1, const float *pSrc2, float *pDst);
ZELM_API ZelStatus zelmCrossProduct_v4_32f(const float *pSrc1, const float *pSrc2,
                                           const float *pSrc3, float *pDst);

/* From pSrc1 (s = 0) to pSrc2 (s = 1): pDst[i] = pSrc1[i] + (pSrc2[i] - pSrc1[i]) * s. */
ZELM_API ZelStatus zelmInterpolationLinear_v2_32f(const float *pSrc1, const float *pSrc2,
                                                  float *pDst, float s);
ZELM_API ZelStatus zelmInterpolationLinear_v3_32f(const float *pSrc1, const float *pSrc2,
                                                  float *pDst, float s);
ZELM_API ZelStatus zelmInterpolationLinear_v4_32f(const float *pSrc1, const float *pSrc2,
                                                  float *pDst, float s);

/* The point with barycentric coordinates (1 - f - g, f, g) in the triangle of the three sources:
 * pDst[i] = ((pSrc2[i] - pSrc1[i]) * f + pSrc1[i]) + (pSrc3[i] - pSrc1[i]) * g. */
ZELM_API ZelStatus zelmBaryCentric_v2_32f(const float *pSrc1, const float *pSrc2,
                                          const float *pSrc3, float *pDst, float f, float g);
ZELM_API ZelStatus zelmBaryCentric_v3_32f(const float *pSrc1, const float *pSrc2,
                                          const float *pSrc3, float *pDst, float f, float g);
ZELM_API ZelStatus zelmBaryCentric_v4_32f(const float *pSrc1, const float *pSrc2,
                                          const float *pSrc3, float *pDst, float f, float g);

/* The cubic Hermite curve from position P1 with tangent T1 (s = 0) to P2 with T2 (s = 1):
 *   (P1[i] - P2[i]) * (2s^3 - 3s^2) + ((P1[i] + T1[i] * (s^3 - 2s^2 + s)) + T2[i] * (s^3 - s^2))
 * The three weights are computed in double from the float powers s*s and (s*s)*s and rounded once.
 * s = 0 gives P1 exactly, unless something is infinite or NaN. */
ZELM_API ZelStatus zelmHermite_v2_32f(const float *pPos1, const float *pTan1, const float *pPos2,
                                      const float *pTan2, float *pDst, float s);
ZELM_API ZelStatus zelmHermite_v3_32f(const float *pPos1, const float *pTan1, const float *pPos2,
                                      const float *pTan2, float *pDst, float s);
ZELM_API ZelStatus zelmHermite_v4_32f(const float *pPos1, const float *pTan1, const float *pPos2,
                                      const float *pTan2, float *pDst, float s);

/* The Catmull-Rom curve through four points, from the second (s = 0) to the third (s = 1): the
 * Hermite curve with the tangents (pSrc3 - pSrc1) * 0.5 and (pSrc4 - pSrc2) * 0.5.
 * Source: E. Catmull, R. Rom, A class of local interpolating splines, 1974. */
ZELM_API ZelStatus zelmInterpolationCatmullRom_v2_32f(const float *pSrc1, const float *pSrc2,
                                                      const float *pSrc3, const float *pSrc4,
                                                      float *pDst, float s);
ZELM_API ZelStatus zelmInterpolationCatmullRom_v3_32f(const float *pSrc1, const float *pSrc2,
                                                      const float *pSrc3, const float *pSrc4,
                                                      float *pDst, float s);
ZELM_API ZelStatus zelmInterpolationCatmullRom_v4_32f(const float *pSrc1, const float *pSrc2,
                                                      const float *pSrc3, const float *pSrc4,
                                                      float *pDst, float s);

/* ============================================================================================== */
/* Matrices3D: Transformation matrices */
/* ============================================================================================== */

/* A matrix m4 is 16 floats, row by row, at any address: m(r, c) is float 4 * r + c. Exactly these
 * are read and written.
 *
 * Vectors are rows, and a matrix stands behind them: v' = v * M. So the translation is row 3,
 * column 3 makes the homogeneous w, and A * B applies A first. Where the tables below say nothing
 * the element is 0. Angles are in radians; sines and cosines are those of single precision.
 *
 * LH and RH: in a left-handed (LH) view space the camera looks along +z, in a right-handed one
 * (RH) along -z; in both, x goes to the right and y upwards. After the division by w, what is
 * seen lies in -1 <= x <= 1, -1 <= y <= 1 and, in depth, 0 <= z <= 1: 0 at zNear and 1 at zFar.
 * Distances zNear and zFar are positive in front of the camera, in both.
 *
 * Nothing is checked but by zelmMul_mm4x4_32f and zelmInvert_m4_32f: a width, distance or axis of
 * zero gives infinities or NaNs, and the status is zelStatusOk. */

/* The identity: m(i, i) = 1. */
ZELM_API ZelStatus zelmIdentity_m4_32f(float *pDst);

/* *pResult = 1 if every element equals that of the identity, else 0. There is no tolerance; -0
 * counts as 0, and a NaN is not equal to anything. */
ZELM_API ZelStatus zelmIsIdentity_m4_32f(const float *pSrc, int *pResult);

/* Translation: the identity with row 3 = (tx, ty, tz, 1). */
ZELM_API ZelStatus zelmTranslation_m4_32f(float *pDst, float tx, float ty, float tz);

/* Scaling: m(0,0) = sx, m(1,1) = sy, m(2,2) = sz, m(3,3) = 1. */
ZELM_API ZelStatus zelmScaling_m4_32f(float *pDst, float sx, float sy, float sz);

/* Rotation about an axis of coordinates, with s = sin(angle), c = cos(angle):
 *     X: 1   0   0   0       Y: c   0  -s   0       Z: c   s   0   0
 *        0   c   s   0          0   1   0   0         -s   c   0   0
 *        0  -s   c   0          s   0   c   0          0   0   1   0
 *        0   0   0   1          0   0   0   1          0   0   0   1
 * A positive angle takes y to z (X), z to x (Y), x to y (Z). */
ZELM_API ZelStatus zelmRotationX_m4_32f(float *pDst, float angle);
ZELM_API ZelStatus zelmRotationY_m4_32f(float *pDst, float angle);
ZELM_API ZelStatus zelmRotationZ_m4_32f(float *pDst, float angle);

/* Rotation about any axis (3 floats) through the origin. With (x, y, z) the axis divided by its
 * length, s and c as above and t = 1 - c:
 *     t*x*x + c    t*y*x + s*z  t*z*x - s*y  0
 *     t*x*y - s*z  t*y*y + c    t*z*y + s*x  0
 *     t*x*z + s*y  t*y*z - s*x  t*z*z + c    0
 *     0            0            0            1
 * An axis of length zero gives NaNs in rows 0 to 2. */
ZELM_API ZelStatus zelmRotationAxis_v3m4_32f(const float *pAxis, float *pDst, float angle);

/* Roll about z, then pitch about x, then yaw about y: RotationZ(roll) * RotationX(pitch) *
 * RotationY(yaw). With sy, cy the sine and cosine of yaw, sp, cp of pitch and sr, cr of roll:
 *     sy*sp*sr + cy*cr  cp*sr  cy*sp*sr - sy*cr  0
 *     sy*sp*cr - cy*sr  cp*cr  sy*sr + cy*sp*cr  0
 *     sy*cp             -sp    cy*cp             0
 *     0                 0      0                 1 */
ZELM_API ZelStatus zelmRotationYawPitchRoll_m4_32f(float *pDst, float yaw, float pitch, float roll);

/* The view from pEye towards pAt (3 floats each): world coordinates become those of the camera.
 * pUp need not be orthogonal to the line of sight, but not parallel to it. With
 *   z = normalize(pAt - pEye) for LH, normalize(pEye - pAt) for RH
 *   x = normalize(cross(pUp, z)),  y = cross(z, x)
 * the matrix is
 *     x0           y0           z0           0
 *     x1           y1           z1           0
 *     x2           y2           z2           0
 *     -dot(x,eye)  -dot(y,eye)  -dot(z,eye)  1 */
ZELM_API ZelStatus zelmLookAtLH_m4_32f(const float *pEye, const float *pAt, const float *pUp,
                                       float *pDst);
ZELM_API ZelStatus zelmLookAtRH_m4_32f(const float *pEye, const float *pAt, const float *pUp,
                                       float *pDst);

/* Perspective projection, in which width x height is what is seen at the distance zNear. n =
 * zNear, f = zFar:
 *     LH: 2n/width  0         0            0     RH: 2n/width  0         0            0
 *         0         2n/height 0            0         0         2n/height 0            0
 *         0         0         f/(f - n)    1         0         0         f/(n - f)   -1
 *         0         0         -n*f/(f - n) 0         0         0         n*f/(n - f)  0 */
ZELM_API ZelStatus zelmPerspectiveLH_m4_32f(float *pDst, float width, float height, float zNear,
                                            float zFar);
ZELM_API ZelStatus zelmPerspectiveRH_m4_32f(float *pDst, float width, float height, float zNear,
                                            float zFar);

/* Perspective projection with fovY the vertical angle of view and aspect = width / height: as
 * above with m(1,1) = cot(fovY / 2) and m(0,0) = m(1,1) / aspect. */
ZELM_API ZelStatus zelmPerspectiveFovLH_m4_32f(float *pDst, float fovY, float aspect, float zNear,
                                               float zFar);
ZELM_API ZelStatus zelmPerspectiveFovRH_m4_32f(float *pDst, float fovY, float aspect, float zNear,
                                               float zFar);

/* Perspective projection of the window left <= x <= right, bottom <= y <= top at the distance
 * zNear. l, r, b, t = left, right, bottom, top:
 *     LH: 2n/(r - l)         0                   0            0
 *         0                  2n/(t - b)          0            0
 *         -(l + r)/(r - l)   -(b + t)/(t - b)    f/(f - n)    1
 *         0                  0                   -n*f/(f - n) 0
 *     RH: 2n/(r - l)         0                   0            0
 *         0                  2n/(t - b)          0            0
 *         (l + r)/(r - l)    (b + t)/(t - b)     f/(n - f)   -1
 *         0                  0                   n*f/(n - f)  0 */
ZELM_API ZelStatus zelmPerspectiveOffCenterLH_m4_32f(float *pDst, float left, float right,
                                                     float bottom, float top, float zNear,
                                                     float zFar);
ZELM_API ZelStatus zelmPerspectiveOffCenterRH_m4_32f(float *pDst, float left, float right,
                                                     float bottom, float top, float zNear,
                                                     float zFar);

/* Orthographic projection: what is seen is width x height at any distance.
 *     LH: 2/width   0         0            0     RH: 2/width   0         0            0
 *         0         2/height  0            0         0         2/height  0            0
 *         0         0         1/(f - n)    0         0         0         1/(n - f)    0
 *         0         0         -n/(f - n)   1         0         0         n/(n - f)    1 */
ZELM_API ZelStatus zelmOrthoLH_m4_32f(float *pDst, float width, float height, float zNear,
                                      float zFar);
ZELM_API ZelStatus zelmOrthoRH_m4_32f(float *pDst, float width, float height, float zNear,
                                      float zFar);

/* Orthographic projection of the window left <= x <= right, bottom <= y <= top.
 *     LH: 2/(r - l)          0                   0            0
 *         0                  2/(t - b)           0            0
 *         0                  0                   1/(f - n)    0
 *         -(l + r)/(r - l)   -(b + t)/(t - b)    -n/(f - n)   1
 *     RH: the same with m(2,2) = 1/(n - f) and m(3,2) = n/(n - f). */
ZELM_API ZelStatus zelmOrthoOffCenterLH_m4_32f(float *pDst, float left, float right, float bottom,
                                               float top, float zNear, float zFar);
ZELM_API ZelStatus zelmOrthoOffCenterRH_m4_32f(float *pDst, float left, float right, float bottom,
                                               float top, float zNear, float zFar);

/* pDst(c, r) = pSrc(r, c). In place: pDst may be pSrc. */
ZELM_API ZelStatus zelmTranspose_m4_32f(const float *pSrc, float *pDst);

/* The product P = pSrc1 * pSrc2, every element summed from left to right: zelmMul_mm4x4_32f
 * stores it, zelmMulTranspose_m4_32f its transpose. In place: pDst may be either source or both.
 *
 * Status: zelmMul_mm4x4_32f tests its three pointers and returns zelStatusNullPointer if one is
 * null; zelmMulTranspose_m4_32f tests nothing. */
ZELM_API ZelStatus zelmMulTranspose_m4_32f(const float *pSrc1, const float *pSrc2, float *pDst);
ZELM_API ZelStatus zelmMul_mm4x4_32f(const float *pSrc1, const float *pSrc2, float *pDst);

/* The determinant, by expansion along row 0: (m00*M0 - m01*M1) + (m02*M2 - m03*M3) with the
 * minors Mk of rows 1 to 3 without column k. */
ZELM_API ZelStatus zelmDet_m4_32f(const float *pSrc, float *pDet);

/* The inverse: the adjugate, from products and adjugates of 2x2 blocks, times 1/determinant. *pDet
 * receives the determinant unless pDet is null. In place: pDst may be pSrc.
 *
 * zelStatusSingular: the determinant is below 2^-119 (about 1.5e-36) in magnitude; *pDet is 0,
 * pDst is untouched. A NaN is not below, and gives NaNs.
 * Source: the inverse of a matrix in blocks; see R. A. Horn, C. R. Johnson, Matrix Analysis,
 * 0.7.3. */
ZELM_API ZelStatus zelmInvert_m4_32f(const float *pSrc, float *pDet, float *pDst);

/* ============================================================================================== */
/* Transforms3D: Points and directions through 4x4 matrices */
/* ============================================================================================== */

/* Matrices are those of the builders above: 16 floats row by row, with row vectors in front of
 * them, v' = v * M. r0 to r3 are the rows of pMat. Vectors are 2, 3 or 4 floats; exactly these
 * are read and written.
 *
 * Arrays (kinds that end in a) have count vectors; srcStride and dstStride are the bytes from one
 * vector to the next. Any stride will do, 0 and negative ones too. The vectors are done in
 * ascending order; where the destination overlaps itself or the source that can be seen, and is
 * kept.
 * In place: the destination may be the source; in arrays with the same stride, of at least the
 * destination's vector. The destination must not overlap a matrix.
 *
 * Nothing is checked. An array of count below 1 is left alone. The status is zelStatusOk but for
 * zelmUnproject. */

/* All four columns of the product: pDst receives 4 floats per vector.
 *   m4v2  (x*r0 + y*r1) + r3
 *   m4v3  ((x*r0 + y*r1) + z*r2) + r3
 *   m4v4  (x*r0 + y*r1) + (z*r2 + w*r3) */
ZELM_API ZelStatus zelmAffineTransform_m4v2_32f(const float *pMat, const float *pSrc, float *pDst);
ZELM_API ZelStatus zelmAffineTransform_m4v3_32f(const float *pMat, const float *pSrc, float *pDst);
ZELM_API ZelStatus zelmAffineTransform_m4v4_32f(const float *pMat, const float *pSrc, float *pDst);
ZELM_API ZelStatus zelmAffineTransform_m4v2a_32f(const float *pMat, const float *pSrc,
                                                 int srcStride, float *pDst, int dstStride,
                                                 int count);
ZELM_API ZelStatus zelmAffineTransform_m4v3a_32f(const float *pMat, const float *pSrc,
                                                 int srcStride, float *pDst, int dstStride,
                                                 int count);
ZELM_API ZelStatus zelmAffineTransform_m4v4a_32f(const float *pMat, const float *pSrc,
                                                 int srcStride, float *pDst, int dstStride,
                                                 int count);

/* Points: the product divided by its w, as many floats as the source has. The divisions are true
 * ones. w = 0 gives infinities or NaNs.
 *   m4v2  h = (x*r0 + r3) + y*r1,                pDst = (h0, h1) / h3
 *   m4v3  h = (r3 + z*r2) + (x*r0 + y*r1),       pDst = (h0, h1, h2) / h3 */
ZELM_API ZelStatus zelmAffineTransformCoord_m4v2_32f(const float *pMat, const float *pSrc,
                                                     float *pDst);
ZELM_API ZelStatus zelmAffineTransformCoord_m4v3_32f(const float *pMat, const float *pSrc,
                                                     float *pDst);
ZELM_API ZelStatus zelmAffineTransformCoord_m4v2a_32f(const float *pMat, const float *pSrc,
                                                      int srcStride, float *pDst, int dstStride,
                                                      int count);
ZELM_API ZelStatus zelmAffineTransformCoord_m4v3a_32f(const float *pMat, const float *pSrc,
                                                      int srcStride, float *pDst, int dstStride,
                                                      int count);

/* Directions: no translation and no w, as many floats as the source has. Normals of surfaces need
 * the transpose of the inverse matrix instead of the matrix, unless it only rotates and moves.
 *   m4v2  x*r0 + y*r1
 *   m4v3  (x*r0 + y*r1) + z*r2 */
ZELM_API ZelStatus zelmAffineTransformNormal_m4v2_32f(const float *pMat, const float *pSrc,
                                                      float *pDst);
ZELM_API ZelStatus zelmAffineTransformNormal_m4v3_32f(const float *pMat, const float *pSrc,
                                                      float *pDst);
ZELM_API ZelStatus zelmAffineTransformNormal_m4v2a_32f(const float *pMat, const float *pSrc,
                                                       int srcStride, float *pDst, int dstStride,
                                                       int count);
ZELM_API ZelStatus zelmAffineTransformNormal_m4v3a_32f(const float *pMat, const float *pSrc,
                                                       int srcStride, float *pDst, int dstStride,
                                                       int count);

/* From world space to the viewport of width x height pixels, whose origin is the top left corner
 * and whose y goes down: pMat3 is the world, pMat2 the view, pMat1 the projection matrix.
 *   q = (((x, y, z, 1) * pMat3) * pMat2) * pMat1,  (d0, d1, d2) = (q0, q1, q2) / q3
 *   pDst = (width/2 + width/2 * d0, height/2 - height/2 * d1, minZ + (maxZ - minZ) * d2) */
ZELM_API ZelStatus zelmProject_m4v3_32f(const float *pMat1, const float *pMat2, const float *pMat3,
                                        const float *pSrc, float *pDst, float width, float height,
                                        float minZ, float maxZ);
ZELM_API ZelStatus zelmProject_m4v3a_32f(const float *pMat1, const float *pMat2, const float *pMat3,
                                         const float *pSrc, int srcStride, float *pDst,
                                         int dstStride, int count, float width, float height,
                                         float minZ, float maxZ);

/* Back from the viewport: with (s0, s1, s2) the source
 *   d = (2 * s0 / width - 1, 1 - 2 * s1 / height, (s2 - minZ) / (maxZ - minZ))
 * goes as a point through the inverse of pMat3 * pMat2 * pMat1. The product is formed in float,
 * the inverse in double and rounded to float.
 *
 * zelStatusSingular: the determinant is below 2^-1014 in magnitude. The single form has written d
 * to pDst then; the array form finds out before it touches any vector, even when count is below
 * 1, and leaves the destination alone. */
ZELM_API ZelStatus zelmUnproject_m4v3_32f(const float *pMat1, const float *pMat2,
                                          const float *pMat3, const float *pSrc, float *pDst,
                                          float width, float height, float minZ, float maxZ);
ZELM_API ZelStatus zelmUnproject_m4v3a_32f(const float *pMat1, const float *pMat2,
                                           const float *pMat3, const float *pSrc, int srcStride,
                                           float *pDst, int dstStride, int count, float width,
                                           float height, float minZ, float maxZ);

/* ============================================================================================== */
/* EigenValuesSym: Eigenvalues of symmetric matrices */
/* ============================================================================================== */

/* The eigenvalues of square matrices of order n = widthHeight that are taken as symmetric and not
 * tested for it: the elements above the diagonal need not equal those below, and which of the two
 * enter is not promised. The values of matrix k begin at element k * n of pDstValues, which has no
 * gaps. pBuffer is scratch of n * n elements, whatever count is.
 *
 *   order 1:             the element.
 *   order 2:             the value of the larger magnitude first. Where the trace is at most
 *                        epsilon in magnitude the values are taken as opposite, the positive
 *                        one first.
 *   order 3 and above:   descending. Of a singular matrix in no particular order.
 *
 * Method: Householder reduction to tridiagonal form, then QL iteration with implicit shifts, or
 * its mirror image QR where the first diagonal element is the larger one. Wilkinson, Reinsch:
 * Handbook for Automatic Computation II, contributions II/2 and II/4; Golub, Van Loan: Matrix
 * Computations, 8.3.
 *
 * Scale your matrices: all thresholds are absolute. With epsilon = 2^-23 (32f) or 2^-52 (64f),
 * off-diagonal elements of the tridiagonal form up to 2 * epsilon count as zero; columns below the
 * subdiagonal that are shorter than about sqrt(epsilon), beside a subdiagonal element near 1, are
 * dropped; and a matrix whose determinant is at most epsilon in magnitude is singular. Norms of
 * 1000 and more, up to 2^60 (32f) or 2^500 (64f), give errors of some epsilon of the norm. With
 * norms near 1 neighbouring or equal values may be wrong by sqrt(epsilon); with smaller ones more
 * and more elements count as zero and the matrix as singular. Multiply a matrix by a power of two
 * that brings its norm to 1000 or more, and divide the values by it; the vectors stay the same.
 * NaN and infinity end in zelStatusNotConverged or in values that are NaN.
 *
 * Status, in this order:
 *   null pointer, bad size, bad count, bad offset, bad stride.
 *   single matrices:  no count.
 * zelStatusSingular, order 2: nothing has been written for that matrix. Order 3 and above: its
 * values have been written, unsorted. Order 1 is never singular.
 * zelStatusNotConverged: 30 sweeps did not isolate a value; what has been written for that matrix
 * is of no use.
 * An array is left at its first failing matrix: those before it are complete, those after it are
 * untouched. When several threads share an array, this holds in each thread's range of it.
 *
 * pDstValues must not overlap the source or pBuffer, nor pBuffer the source. */
ZELM_API ZelStatus zelmEigenValuesSym_m_32f(const float *pSrc, int srcStride1, int srcStride2,
                                            float *pBuffer, float *pDstValues, int widthHeight);
ZELM_API ZelStatus zelmEigenValuesSym_m_64f(const double *pSrc, int srcStride1, int srcStride2,
                                            double *pBuffer, double *pDstValues, int widthHeight);
ZELM_API ZelStatus zelmEigenValuesSym_m_32f_P(const float *const *ppSrc, int srcRoiShift,
                                              float *pBuffer, float *pDstValues, int widthHeight);
ZELM_API ZelStatus zelmEigenValuesSym_m_64f_P(const double *const *ppSrc, int srcRoiShift,
                                              double *pBuffer, double *pDstValues, int widthHeight);
ZELM_API ZelStatus zelmEigenValuesSym_ma_32f(const float *pSrc, int srcStride0, int srcStride1,
                                             int srcStride2, float *pBuffer, float *pDstValues,
                                             int widthHeight, int count);
ZELM_API ZelStatus zelmEigenValuesSym_ma_64f(const double *pSrc, int srcStride0, int srcStride1,
                                             int srcStride2, double *pBuffer, double *pDstValues,
                                             int widthHeight, int count);
ZELM_API ZelStatus zelmEigenValuesSym_ma_32f_P(const float *const *ppSrc, int srcRoiShift,
                                               int srcStride0, float *pBuffer, float *pDstValues,
                                               int widthHeight, int count);
ZELM_API ZelStatus zelmEigenValuesSym_ma_64f_P(const double *const *ppSrc, int srcRoiShift,
                                               int srcStride0, double *pBuffer, double *pDstValues,
                                               int widthHeight, int count);
ZELM_API ZelStatus zelmEigenValuesSym_ma_32f_L(const float *const *ppSrc, int srcRoiShift,
                                               int srcStride1, int srcStride2, float *pBuffer,
                                               float *pDstValues, int widthHeight, int count);
ZELM_API ZelStatus zelmEigenValuesSym_ma_64f_L(const double *const *ppSrc, int srcRoiShift,
                                               int srcStride1, int srcStride2, double *pBuffer,
                                               double *pDstValues, int widthHeight, int count);

/* ============================================================================================== */
/* EigenValuesVectorsSym: Eigenvalues and eigenvectors of symmetric matrices */
/* ============================================================================================== */

/* As zelmEigenValuesSym, with the orthonormal eigenvectors: A * Z = Z * D. Column i of the
 * destination, an n x n matrix in the description of the source, belongs to value i. The vectors
 * have length 1 and no particular sign.
 *
 * What is said above of the method, the scale, the order of the values and the scratch holds; but
 * the values and vectors of a singular matrix of order 3 and above are written in descending order.
 *
 * In place: the destination may be the source, at the same address (table, roi shift) and with the
 * same strides. No other overlap is allowed, and none with pDstValues or pBuffer.
 *
 * Status, in this order:
 *   null pointer, bad size, bad count, bad offset, bad stride.
 *   single matrices:  no count.
 * zelStatusSingular, order 2: nothing has been written for that matrix. Order 3 and above: its
 * values and vectors are complete.
 * zelStatusNotConverged: what has been written for that matrix is of no use.
 * An array is left at its first failing matrix: those before it are complete, those after it are
 * untouched. When several threads share an array, this holds in each thread's range of it. */
ZELM_API ZelStatus zelmEigenValuesVectorsSym_m_32f(const float *pSrc, int srcStride1,
                                                   int srcStride2, float *pBuffer, float *pDst,
                                                   int dstStride1, int dstStride2,
                                                   float *pDstValues, int widthHeight);
ZELM_API ZelStatus zelmEigenValuesVectorsSym_m_64f(const double *pSrc, int srcStride1,
                                                   int srcStride2, double *pBuffer, double *pDst,
                                                   int dstStride1, int dstStride2,
                                                   double *pDstValues, int widthHeight);
ZELM_API ZelStatus zelmEigenValuesVectorsSym_m_32f_P(const float *const *ppSrc, int srcRoiShift,
                                                     float *pBuffer, float *const *ppDst,
                                                     int dstRoiShift, float *pDstValues,
                                                     int widthHeight);
ZELM_API ZelStatus zelmEigenValuesVectorsSym_m_64f_P(const double *const *ppSrc, int srcRoiShift,
                                                     double *pBuffer, double *const *ppDst,
                                                     int dstRoiShift, double *pDstValues,
                                                     int widthHeight);
ZELM_API ZelStatus zelmEigenValuesVectorsSym_ma_32f(const float *pSrc, int srcStride0,
                                                    int srcStride1, int srcStride2, float *pBuffer,
                                                    float *pDst, int dstStride0, int dstStride1,
                                                    int dstStride2, float *pDstValues,
                                                    int widthHeight, int count);
ZELM_API ZelStatus zelmEigenValuesVectorsSym_ma_64f(const double *pSrc, int srcStride0,
                                                    int srcStride1, int srcStride2, double *pBuffer,
                                                    double *pDst, int dstStride0, int dstStride1,
                                                    int dstStride2, double *pDstValues,
                                                    int widthHeight, int count);
ZELM_API ZelStatus zelmEigenValuesVectorsSym_ma_32f_P(const float *const *ppSrc, int srcRoiShift,
                                                      int srcStride0, float *pBuffer,
                                                      float *const *ppDst, int dstRoiShift,
                                                      int dstStride0, float *pDstValues,
                                                      int widthHeight, int count);
ZELM_API ZelStatus zelmEigenValuesVectorsSym_ma_64f_P(const double *const *ppSrc, int srcRoiShift,
                                                      int srcStride0, double *pBuffer,
                                                      double *const *ppDst, int dstRoiShift,
                                                      int dstStride0, double *pDstValues,
                                                      int widthHeight, int count);
ZELM_API ZelStatus zelmEigenValuesVectorsSym_ma_32f_L(const float *const *ppSrc, int srcRoiShift,
                                                      int srcStride1, int srcStride2,
                                                      float *pBuffer, float *const *ppDst,
                                                      int dstRoiShift, int dstStride1,
                                                      int dstStride2, float *pDstValues,
                                                      int widthHeight, int count);
ZELM_API ZelStatus zelmEigenValuesVectorsSym_ma_64f_L(const double *const *ppSrc, int srcRoiShift,
                                                      int srcStride1, int srcStride2,
                                                      double *pBuffer, double *const *ppDst,
                                                      int dstRoiShift, int dstStride1,
                                                      int dstStride2, double *pDstValues,
                                                      int widthHeight, int count);

/* ============================================================================================== */
/* EigenValues: Eigenvalues of general matrices */
/* ============================================================================================== */

/* The eigenvalues of real square matrices of order n = widthHeight. Value i of matrix k has its
 * real part in element k * n + i of pDstValuesRe and its imaginary part in element k * n + i of
 * pDstValuesIm, which have no gaps. Real values have the imaginary part 0. A pair of conjugate
 * values takes two consecutive places, the one with the positive imaginary part first, with equal
 * real parts. The values are not sorted: they stand as on the diagonal of the quasi-triangular
 * form, those of a triangular matrix as on its own diagonal.
 *
 * pBuffer is scratch of the size that zelmEigenValuesGetBufSize tells, whatever count is.
 *
 * Method: Householder reduction to Hessenberg form and double-shift QR iteration. Golub, Van Loan:
 * Matrix Computations, 7.4 and 7.5; Martin, Peters, Wilkinson: Handbook for Automatic Computation
 * II, contribution II/14. Negligible is what is small beside its neighbours. Matrices whose largest
 * element is very large or very small are scaled by a power of two on the way, so that any scale
 * will do.
 *
 * Status, in this order:
 *   null pointer, bad size, bad count, bad offset, bad stride.
 *   single matrices:  no count.
 * zelStatusNotConverged: 30 * n sweeps have not isolated all values; the outputs of that matrix are
 * of no use. Matrices with NaN or infinity may end so, or in values that are NaN. An array is left
 * at its first failing matrix: those before it are complete, those after it are untouched. When
 * several threads share an array, this holds in each thread's range of it.
 *
 * No output may overlap another output, pBuffer or the source. */
ZELM_API ZelStatus zelmEigenValues_m_32f(const float *pSrc, int srcStride1, int srcStride2,
                                         float *pDstValuesRe, float *pDstValuesIm, int widthHeight,
                                         float *pBuffer);
ZELM_API ZelStatus zelmEigenValues_m_64f(const double *pSrc, int srcStride1, int srcStride2,
                                         double *pDstValuesRe, double *pDstValuesIm,
                                         int widthHeight, double *pBuffer);
ZELM_API ZelStatus zelmEigenValues_m_32f_P(const float *const *ppSrc, int srcRoiShift,
                                           float *pDstValuesRe, float *pDstValuesIm,
                                           int widthHeight, float *pBuffer);
ZELM_API ZelStatus zelmEigenValues_m_64f_P(const double *const *ppSrc, int srcRoiShift,
                                           double *pDstValuesRe, double *pDstValuesIm,
                                           int widthHeight, double *pBuffer);
ZELM_API ZelStatus zelmEigenValues_ma_32f(const float *pSrc, int srcStride0, int srcStride1,
                                          int srcStride2, float *pDstValuesRe, float *pDstValuesIm,
                                          int widthHeight, int count, float *pBuffer);
ZELM_API ZelStatus zelmEigenValues_ma_64f(const double *pSrc, int srcStride0, int srcStride1,
                                          int srcStride2, double *pDstValuesRe,
                                          double *pDstValuesIm, int widthHeight, int count,
                                          double *pBuffer);
ZELM_API ZelStatus zelmEigenValues_ma_32f_P(const float *const *ppSrc, int srcRoiShift,
                                            int srcStride0, float *pDstValuesRe,
                                            float *pDstValuesIm, int widthHeight, int count,
                                            float *pBuffer);
ZELM_API ZelStatus zelmEigenValues_ma_64f_P(const double *const *ppSrc, int srcRoiShift,
                                            int srcStride0, double *pDstValuesRe,
                                            double *pDstValuesIm, int widthHeight, int count,
                                            double *pBuffer);
ZELM_API ZelStatus zelmEigenValues_ma_32f_L(const float *const *ppSrc, int srcRoiShift,
                                            int srcStride1, int srcStride2, float *pDstValuesRe,
                                            float *pDstValuesIm, int widthHeight, int count,
                                            float *pBuffer);
ZELM_API ZelStatus zelmEigenValues_ma_64f_L(const double *const *ppSrc, int srcRoiShift,
                                            int srcStride1, int srcStride2, double *pDstValuesRe,
                                            double *pDstValuesIm, int widthHeight, int count,
                                            double *pBuffer);

/* ============================================================================================== */
/* EigenValuesVectors: Eigenvalues, right and left eigenvectors of general matrices */
/* ============================================================================================== */

/* As zelmEigenValues, with the right eigenvectors v in pDstRight and the left eigenvectors u in
 * pDstLeft: A * v = lambda * v and u^H * A = lambda * u^H. Column i belongs to value i. Of two
 * conjugate values in places j and j + 1, column j holds the real part and column j + 1 the
 * imaginary part of the vector of value j, the one with the positive imaginary part; that of value
 * j + 1 is its conjugate. Every vector, real or complex, has Euclidean length 1.
 *
 * pBuffer is scratch of the size that zelmEigenValuesVectorsGetBufSize tells, whatever count is.
 *
 * A defective matrix has fewer directions than values: vectors then coincide up to rounding.
 *
 * Method: back-substitution on the quasi-triangular form. Golub, Van Loan: Matrix Computations,
 * 7.6.4; Peters, Wilkinson: Handbook for Automatic Computation II, contribution II/15.
 *
 * A destination may be the source, at the same address (table, roi shift) and with the same
 * strides. No other overlap is allowed. Status as for zelmEigenValues. */
ZELM_API ZelStatus zelmEigenValuesVectors_m_32f(const float *pSrc, int srcStride1, int srcStride2,
                                                float *pDstRight, int dstRightStride1,
                                                int dstRightStride2, float *pDstLeft,
                                                int dstLeftStride1, int dstLeftStride2,
                                                float *pDstValuesRe, float *pDstValuesIm,
                                                int widthHeight, float *pBuffer);
ZELM_API ZelStatus zelmEigenValuesVectors_m_64f(const double *pSrc, int srcStride1, int srcStride2,
                                                double *pDstRight, int dstRightStride1,
                                                int dstRightStride2, double *pDstLeft,
                                                int dstLeftStride1, int dstLeftStride2,
                                                double *pDstValuesRe, double *pDstValuesIm,
                                                int widthHeight, double *pBuffer);
ZELM_API ZelStatus zelmEigenValuesVectors_m_32f_P(const float *const *ppSrc, int srcRoiShift,
                                                  float *const *ppDstRight, int dstRightRoiShift,
                                                  float *const *ppDstLeft, int dstLeftRoiShift,
                                                  float *pDstValuesRe, float *pDstValuesIm,
                                                  int widthHeight, float *pBuffer);
ZELM_API ZelStatus zelmEigenValuesVectors_m_64f_P(const double *const *ppSrc, int srcRoiShift,
                                                  double *const *ppDstRight, int dstRightRoiShift,
                                                  double *const *ppDstLeft, int dstLeftRoiShift,
                                                  double *pDstValuesRe, double *pDstValuesIm,
                                                  int widthHeight, double *pBuffer);
ZELM_API ZelStatus zelmEigenValuesVectors_ma_32f(
    const float *pSrc, int srcStride0, int srcStride1, int srcStride2, float *pDstRight,
    int dstRightStride0, int dstRightStride1, int dstRightStride2, float *pDstLeft,
    int dstLeftStride0, int dstLeftStride1, int dstLeftStride2, float *pDstValuesRe,
    float *pDstValuesIm, int widthHeight, int count, float *pBuffer);
ZELM_API ZelStatus zelmEigenValuesVectors_ma_64f(
    const double *pSrc, int srcStride0, int srcStride1, int srcStride2, double *pDstRight,
    int dstRightStride0, int dstRightStride1, int dstRightStride2, double *pDstLeft,
    int dstLeftStride0, int dstLeftStride1, int dstLeftStride2, double *pDstValuesRe,
    double *pDstValuesIm, int widthHeight, int count, double *pBuffer);
ZELM_API ZelStatus zelmEigenValuesVectors_ma_32f_P(const float *const *ppSrc, int srcRoiShift,
                                                   int srcStride0, float *const *ppDstRight,
                                                   int dstRightRoiShift, int dstRightStride0,
                                                   float *const *ppDstLeft, int dstLeftRoiShift,
                                                   int dstLeftStride0, float *pDstValuesRe,
                                                   float *pDstValuesIm, int widthHeight, int count,
                                                   float *pBuffer);
ZELM_API ZelStatus zelmEigenValuesVectors_ma_64f_P(const double *const *ppSrc, int srcRoiShift,
                                                   int srcStride0, double *const *ppDstRight,
                                                   int dstRightRoiShift, int dstRightStride0,
                                                   double *const *ppDstLeft, int dstLeftRoiShift,
                                                   int dstLeftStride0, double *pDstValuesRe,
                                                   double *pDstValuesIm, int widthHeight, int count,
                                                   double *pBuffer);
ZELM_API ZelStatus zelmEigenValuesVectors_ma_32f_L(
    const float *const *ppSrc, int srcRoiShift, int srcStride1, int srcStride2,
    float *const *ppDstRight, int dstRightRoiShift, int dstRightStride1, int dstRightStride2,
    float *const *ppDstLeft, int dstLeftRoiShift, int dstLeftStride1, int dstLeftStride2,
    float *pDstValuesRe, float *pDstValuesIm, int widthHeight, int count, float *pBuffer);
ZELM_API ZelStatus zelmEigenValuesVectors_ma_64f_L(
    const double *const *ppSrc, int srcRoiShift, int srcStride1, int srcStride2,
    double *const *ppDstRight, int dstRightRoiShift, int dstRightStride1, int dstRightStride2,
    double *const *ppDstLeft, int dstLeftRoiShift, int dstLeftStride1, int dstLeftStride2,
    double *pDstValuesRe, double *pDstValuesIm, int widthHeight, int count, double *pBuffer);

/* ============================================================================================== */
/* EigenValuesVectorsRight: Eigenvalues and right eigenvectors of general matrices */
/* ============================================================================================== */

/* The values and right eigenvectors of zelmEigenValuesVectors, with the same scratch and status. */
ZELM_API ZelStatus zelmEigenValuesVectorsRight_m_32f(const float *pSrc, int srcStride1,
                                                     int srcStride2, float *pDst, int dstStride1,
                                                     int dstStride2, float *pDstValuesRe,
                                                     float *pDstValuesIm, int widthHeight,
                                                     float *pBuffer);
ZELM_API ZelStatus zelmEigenValuesVectorsRight_m_64f(const double *pSrc, int srcStride1,
                                                     int srcStride2, double *pDst, int dstStride1,
                                                     int dstStride2, double *pDstValuesRe,
                                                     double *pDstValuesIm, int widthHeight,
                                                     double *pBuffer);
ZELM_API ZelStatus zelmEigenValuesVectorsRight_m_32f_P(const float *const *ppSrc, int srcRoiShift,
                                                       float *const *ppDst, int dstRoiShift,
                                                       float *pDstValuesRe, float *pDstValuesIm,
                                                       int widthHeight, float *pBuffer);
ZELM_API ZelStatus zelmEigenValuesVectorsRight_m_64f_P(const double *const *ppSrc, int srcRoiShift,
                                                       double *const *ppDst, int dstRoiShift,
                                                       double *pDstValuesRe, double *pDstValuesIm,
                                                       int widthHeight, double *pBuffer);
ZELM_API ZelStatus zelmEigenValuesVectorsRight_ma_32f(const float *pSrc, int srcStride0,
                                                      int srcStride1, int srcStride2, float *pDst,
                                                      int dstStride0, int dstStride1,
                                                      int dstStride2, float *pDstValuesRe,
                                                      float *pDstValuesIm, int widthHeight,
                                                      int count, float *pBuffer);
ZELM_API ZelStatus zelmEigenValuesVectorsRight_ma_64f(const double *pSrc, int srcStride0,
                                                      int srcStride1, int srcStride2, double *pDst,
                                                      int dstStride0, int dstStride1,
                                                      int dstStride2, double *pDstValuesRe,
                                                      double *pDstValuesIm, int widthHeight,
                                                      int count, double *pBuffer);
ZELM_API ZelStatus zelmEigenValuesVectorsRight_ma_32f_P(const float *const *ppSrc, int srcRoiShift,
                                                        int srcStride0, float *const *ppDst,
                                                        int dstRoiShift, int dstStride0,
                                                        float *pDstValuesRe, float *pDstValuesIm,
                                                        int widthHeight, int count, float *pBuffer);
ZELM_API ZelStatus zelmEigenValuesVectorsRight_ma_64f_P(const double *const *ppSrc, int srcRoiShift,
                                                        int srcStride0, double *const *ppDst,
                                                        int dstRoiShift, int dstStride0,
                                                        double *pDstValuesRe, double *pDstValuesIm,
                                                        int widthHeight, int count,
                                                        double *pBuffer);
ZELM_API ZelStatus zelmEigenValuesVectorsRight_ma_32f_L(const float *const *ppSrc, int srcRoiShift,
                                                        int srcStride1, int srcStride2,
                                                        float *const *ppDst, int dstRoiShift,
                                                        int dstStride1, int dstStride2,
                                                        float *pDstValuesRe, float *pDstValuesIm,
                                                        int widthHeight, int count, float *pBuffer);
ZELM_API ZelStatus zelmEigenValuesVectorsRight_ma_64f_L(
    const double *const *ppSrc, int srcRoiShift, int srcStride1, int srcStride2,
    double *const *ppDst, int dstRoiShift, int dstStride1, int dstStride2, double *pDstValuesRe,
    double *pDstValuesIm, int widthHeight, int count, double *pBuffer);

/* ============================================================================================== */
/* EigenValuesVectorsLeft: Eigenvalues and left eigenvectors of general matrices */
/* ============================================================================================== */

/* The values and left eigenvectors of zelmEigenValuesVectors, with the same scratch and status. */
ZELM_API ZelStatus zelmEigenValuesVectorsLeft_m_32f(const float *pSrc, int srcStride1,
                                                    int srcStride2, float *pDst, int dstStride1,
                                                    int dstStride2, float *pDstValuesRe,
                                                    float *pDstValuesIm, int widthHeight,
                                                    float *pBuffer);
ZELM_API ZelStatus zelmEigenValuesVectorsLeft_m_64f(const double *pSrc, int srcStride1,
                                                    int srcStride2, double *pDst, int dstStride1,
                                                    int dstStride2, double *pDstValuesRe,
                                                    double *pDstValuesIm, int widthHeight,
                                                    double *pBuffer);
ZELM_API ZelStatus zelmEigenValuesVectorsLeft_m_32f_P(const float *const *ppSrc, int srcRoiShift,
                                                      float *const *ppDst, int dstRoiShift,
                                                      float *pDstValuesRe, float *pDstValuesIm,
                                                      int widthHeight, float *pBuffer);
ZELM_API ZelStatus zelmEigenValuesVectorsLeft_m_64f_P(const double *const *ppSrc, int srcRoiShift,
                                                      double *const *ppDst, int dstRoiShift,
                                                      double *pDstValuesRe, double *pDstValuesIm,
                                                      int widthHeight, double *pBuffer);
ZELM_API ZelStatus zelmEigenValuesVectorsLeft_ma_32f(const float *pSrc, int srcStride0,
                                                     int srcStride1, int srcStride2, float *pDst,
                                                     int dstStride0, int dstStride1, int dstStride2,
                                                     float *pDstValuesRe, float *pDstValuesIm,
                                                     int widthHeight, int count, float *pBuffer);
ZELM_API ZelStatus zelmEigenValuesVectorsLeft_ma_64f(const double *pSrc, int srcStride0,
                                                     int srcStride1, int srcStride2, double *pDst,
                                                     int dstStride0, int dstStride1, int dstStride2,
                                                     double *pDstValuesRe, double *pDstValuesIm,
                                                     int widthHeight, int count, double *pBuffer);
ZELM_API ZelStatus zelmEigenValuesVectorsLeft_ma_32f_P(const float *const *ppSrc, int srcRoiShift,
                                                       int srcStride0, float *const *ppDst,
                                                       int dstRoiShift, int dstStride0,
                                                       float *pDstValuesRe, float *pDstValuesIm,
                                                       int widthHeight, int count, float *pBuffer);
ZELM_API ZelStatus zelmEigenValuesVectorsLeft_ma_64f_P(const double *const *ppSrc, int srcRoiShift,
                                                       int srcStride0, double *const *ppDst,
                                                       int dstRoiShift, int dstStride0,
                                                       double *pDstValuesRe, double *pDstValuesIm,
                                                       int widthHeight, int count, double *pBuffer);
ZELM_API ZelStatus zelmEigenValuesVectorsLeft_ma_32f_L(const float *const *ppSrc, int srcRoiShift,
                                                       int srcStride1, int srcStride2,
                                                       float *const *ppDst, int dstRoiShift,
                                                       int dstStride1, int dstStride2,
                                                       float *pDstValuesRe, float *pDstValuesIm,
                                                       int widthHeight, int count, float *pBuffer);
ZELM_API ZelStatus zelmEigenValuesVectorsLeft_ma_64f_L(const double *const *ppSrc, int srcRoiShift,
                                                       int srcStride1, int srcStride2,
                                                       double *const *ppDst, int dstRoiShift,
                                                       int dstStride1, int dstStride2,
                                                       double *pDstValuesRe, double *pDstValuesIm,
                                                       int widthHeight, int count, double *pBuffer);

/* ============================================================================================== */
/* EigenValuesGetBufSize: Size of the scratch of zelmEigenValues */
/* ============================================================================================== */

/* Stores n * (n + 5) elements in bytes, for n = widthHeight, where that number fits an int.
 *
 * Status, in this order: null pointer, bad size. Bad size, and nothing stored, too where it does
 * not fit: from order 23168 (32f) and 16382 (64f) on. zelmEigenValues takes such orders. */
ZELM_API ZelStatus zelmEigenValuesGetBufSize_32f(int widthHeight, int *pSize);
ZELM_API ZelStatus zelmEigenValuesGetBufSize_64f(int widthHeight, int *pSize);

/* ============================================================================================== */
/* EigenValuesVectorsGetBufSize: Size of the scratch of zelmEigenValuesVectors, Right and Left */
/* ============================================================================================== */

/* Stores n * (3 * n + 5) elements in bytes, for n = widthHeight, where that number fits an int.
 *
 * Status, in this order: null pointer, bad size. Bad size, and nothing stored, too where it does
 * not fit: from order 13377 (32f) and 9459 (64f) on. zelmEigenValuesVectors takes such orders. */
ZELM_API ZelStatus zelmEigenValuesVectorsGetBufSize_32f(int widthHeight, int *pSize);
ZELM_API ZelStatus zelmEigenValuesVectorsGetBufSize_64f(int widthHeight, int *pSize);

#ifdef __cplusplus
}
#endif

#endif
