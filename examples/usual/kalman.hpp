// The step of examples/kalman.cpp, one filter after the other.
#pragma once

#include "matrix.hpp"

#include <cstddef>

namespace usual {

template <class Bank, class Measurements>
void step(Bank &b, const Measurements &z) {
    for (std::size_t n = 0; n < z.size(); ++n) {
        Matrix<double, 6, 1> &x = b.x[n];
        Matrix<double, 6, 6> &P = b.P[n];
        x = b.F * x;
        P = b.F * P * b.F.transpose() + b.Q;
        const Matrix<double, 3, 6> HP = P.template block<3, 6>(0, 0);
        const Matrix<double, 3, 3> S = P.template block<3, 3>(0, 0) + b.R[n];
        b.K[n] = solved(S, HP);
        const Matrix<double, 3, 1> y = z[n] - x.template block<3, 1>(0, 0);
        x += b.K[n].transpose() * y;
        P = P - b.K[n].transpose() * HP;
    }
}

} // namespace usual
