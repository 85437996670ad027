// 4x4 matrices as four rows in registers.
#pragma once

#include "small.hpp"

#include "../frame/operand.hpp"

namespace zelm::geom3d {

struct Matrix {
    Row r[4];
};

using Four = Small<4>;
ZELM_INLINE Row row(const Four &v) { return Row{v.e[0], v.e[1], v.e[2], v.e[3]}; }
ZELM_INLINE Matrix rows(const Four &r0, const Four &r1, const Four &r2, const Four &r3) {
    return {{row(r0), row(r1), row(r2), row(r3)}};
}

inline constexpr Distance packed_row = 4 * sizeof(float);

ZELM_INLINE Matrix load_matrix(const void *p) {
    Matrix m;
    unroll<4>(ZELM_EACH(i) { m.r[i] = load<Row>(static_cast<const char *>(p) + i * packed_row); });
    return m;
}
ZELM_INLINE ZelStatus store_matrix(void *p, const Matrix &m) {
    unroll<4>(ZELM_EACH(i) { store<Row>(static_cast<char *>(p) + i * packed_row, m.r[i]); });
    return zelStatusOk;
}

// Elements are summed from left to right.
ZELM_INLINE Matrix product(const Matrix &a, const Matrix &b) {
    Matrix c;
    unroll<4>(ZELM_EACH(i) {
        c.r[i] = splat_lane<0>(a.r[i]) * b.r[0];
        unroll<1, 4>(ZELM_EACH(k) { c.r[i] = c.r[i] + splat_lane<k>(a.r[i]) * b.r[k]; });
    });
    return c;
}

} // namespace zelm::geom3d
