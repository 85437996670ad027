// Optical flow: in every window of two pictures the affine motion that explains the change best.
// B. D. Lucas, T. Kanade, "An iterative image registration technique with an application to stereo
// vision", 1981; J. Shi, C. Tomasi, "Good features to track", 1994.
#include "compare.hpp"

using Motion = Matrix<double, 6, 1>; // u and v in pixels, what x adds to them, what y adds
constexpr int size = 256, side = 15, half = side / 2, reach = half + 2, columns = 48, horizon = 50;

Motion truth(int x, int y) { // a turn, a zoom and a shift
    return {0.001 * x - 0.002 * y + 0.3, 0.002 * x + 0.001 * y - 0.3, 0.001, 0.002, -0.002, 0.001};
}
std::vector<double> picture(double time) { // hills; nothing of the sky could be seen to move
    std::vector<double> p;
    for (int i = 0; i < size * size; ++i) {
        const Motion motion = truth(i % size, i / size);
        const double x = i % size - time * motion(0), y = i / size - time * motion(1);
        const double hills = std::sin(0.5 * x) + std::sin(0.4 * y) + std::sin(0.3 * x + 0.35 * y);
        p.push_back(i / size < horizon ? 0 : hills + std::sin(0.2 * x - 0.3 * y));
    }
    return p;
}
double slope(const double *p, int step) {
    return (8 * (p[step] - p[-step]) - (p[2 * step] - p[-2 * step])) / 12;
}
int middle_x(std::size_t window) { return reach + int(window) % columns * 5; }
int middle_y(std::size_t window) { return reach + int(window) / columns * 5; }
int main() {
    const auto before = picture(-0.5), after = picture(0.5);
    const std::size_t count = columns * columns;
    std::vector<Matrix<double, 6, 6>> tensors(count, Matrix<double, 6, 6>::Zero());
    std::vector<Motion> sides(count, Motion::Zero()), motions(count), others(count);
    for (std::size_t n = 0; n < count; ++n)
        for (int k = 0; k < side * side; ++k) {
            const int i = k % side - half, j = k / side - half;
            const double *p = before.data() + (middle_y(n) + j) * size + middle_x(n) + i;
            const double *q = after.data() + (p - before.data());
            const double fx = (slope(p, 1) + slope(q, 1)) / 2;
            const double fy = (slope(p, size) + slope(q, size)) / 2;
            const Motion g{fx, fy, i * fx, i * fy, j * fx, j * fy};
            tensors[n] += g * g.transpose();
            sides[n] += (*p - *q) * g;
        }
    zelm::status failed; // the first that did
    std::vector<int> statuses(count);
    const auto usual_way = [&] {
        for (std::size_t n = 0; n < count; ++n)
            others[n] = solved(tensors[n], sides[n]);
    };
    compare(
        "motions", [&] { failed = zelm::solve(tensors, sides, motions, {statuses}); }, usual_way);
    expect(failed == zelStatusSingular);
    for (std::size_t n = 0; n < count; ++n)
        if (middle_y(n) + reach < horizon)
            expect(statuses[n] == zelStatusSingular && std::isnan(motions[n](0)));
        else if (middle_y(n) - reach >= horizon)
            for (int i = 0; i < 6; ++i)
                expect(std::abs(motions[n](i) - truth(middle_x(n), middle_y(n))(i)) < 0.004);
    return verdict();
}
