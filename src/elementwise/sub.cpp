#include "sums.hpp"

using namespace zelm::sums;

ZELM_MEMBERS(Sub, (mm, mt, tm, tt), matrices<Difference>(src1, src2, dst, width, height))
ZELM_MEMBERS(Sub, (mam, mma),
             matrix_beside_array<Difference>(src1, src2, dst, width, height, count))
ZELM_MEMBERS(Sub, (mat, mta, mama, mata, tam, tma, tat, tta, tama, tata),
             matrix_arrays<Difference>(src1, src2, dst, width, height, count))

ZELM_MEMBERS(Sub, (vv), vectors<Difference>(src1, src2, dst, len))
ZELM_MEMBERS(Sub, (vc), vectors<Difference>(src, Constant<T>{val}, dst, len))
ZELM_MEMBERS(Sub, (cv), vectors<Difference>(Constant<T>{val}, src, dst, len))
ZELM_MEMBERS(Sub, (vav), array_with_vector<Difference>(src1, src2, dst, len, count))
ZELM_MEMBERS(Sub, (vva, vava), vector_arrays<Difference>(src1, src2, dst, len, count))
ZELM_MEMBERS(Sub, (vac), vector_arrays<Difference>(src, Constant<T>{val}, dst, len, count))
ZELM_MEMBERS(Sub, (vca, vaca), vector_arrays<Difference>(src, val, dst, len, count))
ZELM_MEMBERS(Sub, (cav, cava), vector_arrays<Difference>(val, src, dst, len, count))
ZELM_MEMBERS(Sub, (cva), constant_with_array<Difference>(Constant<T>{val}, src, dst, len, count))
