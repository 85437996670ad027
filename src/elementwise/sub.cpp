#include "sums.hpp"

// clang-format off
#define SUB_M(kinds, a, b)         ZELM_SINGLE(ZELM_SUM_M, zelmSub, Difference, kinds, a, b, matrices)
#define SUB_MA(kinds, a, b, entry) ZELM_ARRAY(ZELM_SUM_MA, zelmSub, Difference, kinds, a, b, entry)
#define SUB_V(kinds, a, b)         ZELM_SINGLE(ZELM_SUM_V, zelmSub, Difference, kinds, a, b, vectors)
#define SUB_VA(kinds, a, b, entry) ZELM_ARRAY(ZELM_SUM_VA, zelmSub, Difference, kinds, a, b, entry)

SUB_M(mm, m, m)
SUB_M(mt, m, t)
SUB_M(tm, t, m)
SUB_M(tt, t, t)
SUB_V(vv, v, v)
SUB_V(vc, v, c)
SUB_V(cv, c, v)

SUB_MA(mam,  ma, m,  matrix_beside_array)
SUB_MA(mma,  m,  ma, matrix_beside_array)
SUB_MA(mat,  ma, t,  matrix_arrays)
SUB_MA(mta,  m,  ta, matrix_arrays)
SUB_MA(mama, ma, ma, matrix_arrays)
SUB_MA(mata, ma, ta, matrix_arrays)
SUB_MA(tam,  ta, m,  matrix_arrays)
SUB_MA(tma,  t,  ma, matrix_arrays)
SUB_MA(tat,  ta, t,  matrix_arrays)
SUB_MA(tta,  t,  ta, matrix_arrays)
SUB_MA(tama, ta, ma, matrix_arrays)
SUB_MA(tata, ta, ta, matrix_arrays)

SUB_VA(vav,  va, v,  array_with_vector)
SUB_VA(vva,  v,  va, vector_arrays)
SUB_VA(vava, va, va, vector_arrays)
SUB_VA(vac,  va, c,  vector_arrays)
SUB_VA(vca,  v,  ca, vector_arrays)
SUB_VA(vaca, va, ca, vector_arrays)
SUB_VA(cav,  ca, v,  vector_arrays)
SUB_VA(cva,  c,  va, constant_with_array)
SUB_VA(cava, ca, va, vector_arrays)
// clang-format on
