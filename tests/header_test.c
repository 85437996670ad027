/* Compiled, not run: as C89, C99 and C++, with all warnings as errors. */
#include "zelcore.h"
#include "zelm.h"
/* A second time, for the include guards. */
#include "zelcore.h"
#include "zelm.h"

#define EQUAL(name, a, b) typedef char name[(a) == (b) ? 1 : -1]

EQUAL(ok, zelStatusOk, 0);
EQUAL(bad_size, zelStatusBadSize, -6);
EQUAL(null_pointer, zelStatusNullPointer, -8);
EQUAL(div_by_zero, zelStatusDivByZero, -10);
EQUAL(not_positive_definite, zelStatusNotPositiveDefinite, -179);
EQUAL(bad_stride, zelStatusBadStride, -182);
EQUAL(singular, zelStatusSingular, -195);
EQUAL(bad_offset, zelStatusBadOffset, -202);
EQUAL(bad_count, zelStatusBadCount, -203);
EQUAL(size_mismatch, zelStatusSizeMismatch, -204);
EQUAL(not_converged, zelStatusNotConverged, -205);
EQUAL(status_is_int, sizeof(ZelStatus), sizeof(int));
EQUAL(features_have_64_bits, sizeof(ZelCpuFeatures), 8);
EQUAL(record_size, sizeof(ZelLibraryVersion), 48);
EQUAL(sse42_code, zelCpuSse42, 128);

/* Argument lists, one of each shape. */
typedef const float *const *Sources;
typedef float *const *Results;
typedef const float *Source;
typedef float *Result;

ZelStatus (*mam)(Source, int, int, int, Source, int, int, Result, int, int, int, int, int,
                 int) = zelmAdd_mam_32f;
ZelStatus (*mam_P)(Sources, int, int, Sources, int, Results, int, int, int, int,
                   int) = zelmAdd_mam_32f_P;
ZelStatus (*mam_L)(Sources, int, int, int, Source, int, int, Results, int, int, int, int, int,
                   int) = zelmAdd_mam_32f_L;
ZelStatus (*vc_P)(Sources, int, float, Results, int, int) = zelmAdd_vc_32f_P;
ZelStatus (*vaca)(Source, int, int, Source, int, Result, int, int, int, int) = zelmAdd_vaca_32f;
ZelStatus (*vaca_P)(Sources, int, int, Source, int, Results, int, int, int,
                    int) = zelmAdd_vaca_32f_P;
ZelStatus (*vaca_L)(Sources, int, int, Sources, int, Results, int, int, int,
                    int) = zelmAdd_vaca_32f_L;
ZelStatus (*cva)(double, const double *, int, int, double *, int, int, int, int) = zelmSub_cva_64f;
ZelStatus (*mul_mm)(Source, int, int, int, int, Source, int, int, int, int, Result, int,
                    int) = zelmMul_mm_32f;
ZelStatus (*mul_mv)(Source, int, int, int, int, Source, int, int, Result, int) = zelmMul_mv_32f;
ZelStatus (*mul_mam)(Source, int, int, int, int, int, Source, int, int, int, int, Result, int, int,
                     int, int) = zelmMul_mam_32f;
ZelStatus (*mul_mc)(Source, int, int, float, Result, int, int, int, int) = zelmMul_mc_32f;
ZelStatus (*lu_P)(Sources, int, int, int *, Results, int, int, int, int) = zelmLUDecomp_ma_32f_P;
ZelStatus (*solve_mva_L)(Source, int, int, const int *, Sources, int, int, Results, int, int, int,
                         int) = zelmLUBackSubst_mva_32f_L;
ZelStatus (*solve_mava_L)(Sources, int, int, int, const int *, Sources, int, int, Results, int, int,
                          int, int) = zelmLUBackSubst_mava_32f_L;
