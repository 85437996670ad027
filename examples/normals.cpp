// Normals of a point cloud: at every point the direction in which its neighbours spread least, the
// eigenvector that belongs to the smallest eigenvalue of their covariance. H. Hoppe and others,
// "Surface reconstruction from unorganized points", 1992.
#include "compare.hpp"

#include <fstream>

using Point = Matrix<double, 3, 1>;
using Covariance = Matrix<double, 3, 3>;

std::vector<Point> scan() { // a volcano, in metres
    std::vector<Point> points;
    std::ifstream file(EXAMPLES_DATA "/maunga-whau.csv");
    double height;
    for (int i = 0; file >> height; ++i, file.ignore()) // the comma
        points.push_back(Point{-10.0 * (i % 61), 10.0 * (i / 61), height});
    return points;
}
std::vector<Covariance> covariances(const std::vector<Point> &points, double radius) {
    std::vector<Covariance> result;
    for (const Point &p : points) {
        double n = 0;
        Point sum = Point::Zero();
        Covariance squares = Covariance::Zero();
        for (const Point &q : points)
            if (const Point d = q - p; d(0) * d(0) + d(1) * d(1) + d(2) * d(2) < radius * radius)
                n += 1, sum += d, squares += d * d.transpose();
        result.push_back(1 / n * squares - 1 / (n * n) * (sum * sum.transpose()));
    }
    return result;
}
std::vector<Point> normals(const std::vector<Covariance> &spread) {
    std::vector<Point> values(spread.size()), result(spread.size());
    std::vector<Covariance> vectors(spread.size());
    zelm::eigen_symmetric(spread, values, vectors).or_throw();
    zelm::copy(zelm::column(vectors, 0), result).or_throw();
    return result;
}

int main() {
    std::vector<Point> sphere; // of a micrometre; the normals show from its middle to the points
    for (int i = 0; i < 2000; ++i) {
        const double z = (i + 0.5) / 1000 - 1, r = std::sqrt(1 - z * z), angle = 2.39996323 * i;
        sphere.push_back(1e-6 * Point{r * std::cos(angle), r * std::sin(angle), z});
    }
    std::vector<double> cosines(sphere.size());
    zelm::dot(sphere, normals(covariances(sphere, 2e-7)), cosines).or_throw();
    for (double cosine : cosines)
        expect(std::abs(std::abs(cosine) - 1e-6) < 2e-10);
    auto spread = covariances(scan(), 30);
    std::vector<Point> others(spread.size());
    const auto usual_way = [&] {
        for (std::size_t n = 0; n < spread.size(); ++n)
            others[n] = eigenvector(spread[n], 0);
    };
    compare(
        "normals", [&] { normals(spread); }, usual_way);
    return verdict();
}
