#include "sums.hpp"

// clang-format off
#define ADD_M(kinds, a, b)         ZELM_SINGLE(ZELM_SUM_M, zelmAdd, Sum, kinds, a, b, matrices)
#define ADD_MA(kinds, a, b, entry) ZELM_ARRAY(ZELM_SUM_MA, zelmAdd, Sum, kinds, a, b, entry)
#define ADD_V(kinds, a, b)         ZELM_SINGLE(ZELM_SUM_V, zelmAdd, Sum, kinds, a, b, vectors)
#define ADD_VA(kinds, a, b, entry) ZELM_ARRAY(ZELM_SUM_VA, zelmAdd, Sum, kinds, a, b, entry)

ADD_M(mm, m, m)
ADD_M(tm, t, m)
ADD_M(tt, t, t)
ADD_V(vv, v, v)
ADD_V(vc, v, c)

ADD_MA(mam,  ma, m,  matrix_beside_array)
ADD_MA(mat,  ma, t,  matrix_arrays)
ADD_MA(mama, ma, ma, matrix_arrays)
ADD_MA(tam,  ta, m,  matrix_arrays)
ADD_MA(tat,  ta, t,  matrix_arrays)
ADD_MA(tama, ta, ma, matrix_arrays)
ADD_MA(tata, ta, ta, matrix_arrays)

ADD_VA(vav,  va, v,  array_with_vector)
ADD_VA(vava, va, va, vector_arrays)
ADD_VA(vac,  va, c,  vector_arrays)
ADD_VA(vca,  v,  ca, vector_arrays)

// vaca is spelled out: one member differs from its twins.
ZELM_SUM_VA(S, float,  32f,   zelmAdd, Sum, vaca, va, ca, vector_arrays)
ZELM_SUM_VA(S, double, 64f,   zelmAdd, Sum, vaca, va, ca, vector_arrays)
ZELM_SUM_VA(P, float,  32f_P, zelmAdd, Sum, vaca, va, ca, vector_arrays_any_first_stride)
ZELM_SUM_VA(P, double, 64f_P, zelmAdd, Sum, vaca, va, ca, vector_arrays)
ZELM_SUM_VA(L, float,  32f_L, zelmAdd, Sum, vaca, va, ca, vector_arrays)
ZELM_SUM_VA(L, double, 64f_L, zelmAdd, Sum, vaca, va, ca, vector_arrays)
// clang-format on
