#include "mul_product.hpp"

using namespace zelm::products;

#define FACTORS src1, {src1Width, src1Height}, src2, src2Len

// Whether the matrix is used transposed.
ZELM_MEMBERS(Mul, (mv), vectors<false>(FACTORS, dst))
ZELM_MEMBERS(Mul, (tv), vectors<true>(FACTORS, dst))

ZELM_MEMBERS(Mul, (mav, mva, mava), vectors<false>(FACTORS, dst, count))
ZELM_MEMBERS(Mul, (tav, tva, tava), vectors<true>(FACTORS, dst, count))
