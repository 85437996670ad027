#include "mul_product.hpp"

// clang-format off
ZELM_SINGLE(ZELM_MUL_VECTOR, mv, m, v)
ZELM_SINGLE(ZELM_MUL_VECTOR, tv, t, v)

ZELM_ARRAY(ZELM_MUL_VECTOR_ARRAYS, mav,  ma, v)
ZELM_ARRAY(ZELM_MUL_VECTOR_ARRAYS, tav,  ta, v)
ZELM_ARRAY(ZELM_MUL_VECTOR_ARRAYS, mva,  m,  va)
ZELM_ARRAY(ZELM_MUL_VECTOR_ARRAYS, tva,  t,  va)
ZELM_ARRAY(ZELM_MUL_VECTOR_ARRAYS, mava, ma, va)
ZELM_ARRAY(ZELM_MUL_VECTOR_ARRAYS, tava, ta, va)
// clang-format on
