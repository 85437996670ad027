#include "mul_product.hpp"

using namespace zelm::products;

// clang-format off
#define FACTORS src1, {src1Width, src1Height}, src2, {src2Width, src2Height}
// clang-format on

// Whether the first factor is used transposed, whether the second is.
ZELM_MEMBERS(Mul, (mm), matrices<false, false>(FACTORS, dst))
ZELM_MEMBERS(Mul, (mt), matrices<false, true>(FACTORS, dst))
ZELM_MEMBERS(Mul, (tm), matrices<true, false>(FACTORS, dst))
ZELM_MEMBERS(Mul, (tt), matrices<true, true>(FACTORS, dst))

ZELM_MEMBERS(Mul, (mam, mma, mama), matrices<false, false>(FACTORS, dst, count))
ZELM_MEMBERS(Mul, (mat, mta, mata), matrices<false, true>(FACTORS, dst, count))
ZELM_MEMBERS(Mul, (tam, tma, tama), matrices<true, false>(FACTORS, dst, count))
ZELM_MEMBERS(Mul, (tat, tta, tata), matrices<true, true>(FACTORS, dst, count))
