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
 * Threads: every function may be called from several threads at once. Large arrays are divided
 * among OpenMP threads; zelcore.h tells how their number is set.
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

/* Tells which build of the library is running. The texts live as long as the library is loaded. */
typedef struct ZelLibraryVersion {
    int majorVersion;
    int minorVersion;
    int updateNumber;
    int revision;
    char cpuCode[4];         /* processor code, padded with zero bytes */
    const char *libraryName; /* ends in + where the processor has SSE4.2 */
    const char *versionText;
    const char *buildDate;
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
 * will do; columns of the reduction that are shorter than the square root of the smallest normal
 * number beside that largest element count as zero.
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

/* Stores n * (n + 5) elements in bytes, for n = widthHeight.
 *
 * Status, in this order: null pointer, bad size. */
ZELM_API ZelStatus zelmEigenValuesGetBufSize_32f(int widthHeight, int *pSize);
ZELM_API ZelStatus zelmEigenValuesGetBufSize_64f(int widthHeight, int *pSize);

/* ============================================================================================== */
/* EigenValuesVectorsGetBufSize: Size of the scratch of zelmEigenValuesVectors, Right and Left */
/* ============================================================================================== */

/* Stores n * (3 * n + 5) elements in bytes, for n = widthHeight.
 *
 * Status, in this order: null pointer, bad size. */
ZELM_API ZelStatus zelmEigenValuesVectorsGetBufSize_32f(int widthHeight, int *pSize);
ZELM_API ZelStatus zelmEigenValuesVectorsGetBufSize_64f(int widthHeight, int *pSize);

#ifdef __cplusplus
}
#endif

#endif
