// A bank of Kalman filters: each follows an object in space by its position every second, from a
// sensor of its own quality. R. E. Kalman, "A new approach to linear filtering and prediction
// problems", 1960. P. R. Kalata, "The tracking index", 1984, knows what the gains converge to.
#include "usual/kalman.hpp"
#include "compare.hpp"

constexpr std::size_t count = 1000;
constexpr double I[6][3] = {{1}, {0, 1}, {0, 0, 1}};
template <int Rows, int Columns>
struct Array : std::vector<Matrix<double, Rows, Columns>> {
    Array() : Array::vector(count, Matrix<double, Rows, Columns>::Identity()) {}
};
struct Bank {
    Matrix<double, 6, 6> F, Q; // F: what a second does to x; Q: what accelerations add to P
    Array<6, 1> x, d;          // positions and velocities; their corrections
    Array<6, 6> P, A, B;       // covariances of x; I - K H; scratch
    Array<3, 1> y;             // what was not expected of the measurements
    Array<3, 3> R, S;          // covariances of measurements and of y
    Array<3, 6> K;             // gains, transposed
};

void step(Bank &b, const Array<3, 1> &z) {
    zelm::multiply(b.F, b.x, b.d).or_throw();
    std::swap(b.x, b.d);
    zelm::multiply(b.F, b.P, b.B).or_throw();
    zelm::multiply(b.B, zelm::transposed(b.F), b.P).or_throw();
    zelm::add(b.P, b.Q, b.P).or_throw();
    const zelm::vectors<double, 3> position(&b.x[0](0), count, {sizeof b.x[0], sizeof(double)});
    zelm::subtract(z, position, b.y).or_throw();
    zelm::add(zelm::block<3, 3>(b.P, 0, 0), b.R, b.S).or_throw();
    zelm::solve(b.S, zelm::block<3, 6>(b.P, 0, 0), b.K).or_throw();
    zelm::multiply(zelm::transposed(b.K), b.y, b.d).or_throw();
    zelm::add(b.x, b.d, b.x).or_throw();
    zelm::subtract(I, zelm::transposed(b.K), zelm::block<6, 3>(b.A, 0, 0)).or_throw();
    zelm::multiply(b.A, b.P, b.B).or_throw();
    std::swap(b.P, b.B);
}
int main() {
    Bank b;
    b.F = b.Q = Matrix<double, 6, 6>::Identity();
    for (int i = 0; i < 3; ++i)
        b.F(i, i + 3) = 1, b.Q(i, i) = 0.25, b.Q(i, i + 3) = b.Q(i + 3, i) = 0.5;
    Array<3, 1> z;
    for (std::size_t n = 0; n < count; ++n) {
        b.R[n] *= double(1 + n % 7);
        z[n] = Matrix<double, 3, 1>{double(n), 2.0, -double(n)}; // they do not move
    }
    compare(
        "steps", [&] { step(b, z); }, [&] { usual::step(b, z); });
    for (int second = 0; second < 400; ++second)
        step(b, z);
    for (std::size_t n = 0; n < count; ++n) {
        const double s = std::sqrt(double(1 + n % 7)), r = 1 + (1 - std::sqrt(8 * s + 1)) / (4 * s);
        const double alpha = 1 - r * r, beta = 2 * (1 - r) * (1 - r);
        expect(std::abs(b.K[n](0, 0) - alpha) < 1e-12 && std::abs(b.K[n](0, 3) - beta) < 1e-12);
        expect(std::abs(b.x[n](2) - z[n](2)) < 1e-9);
    }
    return verdict();
}
