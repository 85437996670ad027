#include "sums.hpp"

using namespace zelm::sums;

ZELM_MEMBERS(Add, (mm, tm, tt), matrices<Sum>(src1, src2, dst, width, height))
ZELM_MEMBERS(Add, (mam), matrix_beside_array<Sum>(src1, src2, dst, width, height, count))
ZELM_MEMBERS(Add, (mat, mama, tam, tat, tama, tata),
             matrix_arrays<Sum>(src1, src2, dst, width, height, count))

ZELM_MEMBERS(Add, (vv), vectors<Sum>(src1, src2, dst, len))
ZELM_MEMBERS(Add, (vc), vectors<Sum>(src, Constant<T>{val}, dst, len))
ZELM_MEMBERS(Add, (vav), array_with_vector<Sum>(src1, src2, dst, len, count))
ZELM_MEMBERS(Add, (vava), vector_arrays<Sum>(src1, src2, dst, len, count))
ZELM_MEMBERS(Add, (vac), vector_arrays<Sum>(src, Constant<T>{val}, dst, len, count))
ZELM_MEMBERS(Add, (vca, vaca_32f, vaca_64f, vaca_64f_P, vaca_32f_L, vaca_64f_L),
             vector_arrays<Sum>(src, val, dst, len, count))
ZELM_MEMBERS(Add, (vaca_32f_P), vector_arrays_any_first_stride<Sum>(src, val, dst, len, count))
