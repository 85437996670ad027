// Rigid alignment: how a body with eight markers is turned in each of many pictures, the quaternion
// that is an eigenvector of a symmetric matrix. (Where it is, is the mean of its markers.) B. K. P.
// Horn, "Closed-form solution of absolute orientation using unit quaternions", 1987.
#include "compare.hpp"

using Markers = Matrix<double, 8, 3>; // one in each row
using Square = Matrix<double, 3, 3>;
using Form = Matrix<double, 4, 4>;
using Quaternion = Matrix<double, 4, 1>; // the real part first

Form form(const Square &s) {
    Form f;
    const double trace = f(0, 0) = s(0, 0) + s(1, 1) + s(2, 2);
    for (int i = 0; i < 3; ++i) {
        const int next = (i + 1) % 3, last = (i + 2) % 3;
        f(0, i + 1) = f(i + 1, 0) = s(next, last) - s(last, next);
        for (int j = 0; j < 3; ++j)
            f(i + 1, j + 1) = s(i, j) + s(j, i) - (i == j ? trace : 0);
    }
    return f;
}
Square turn(int axis, double angle) {
    const int next = (axis + 1) % 3, last = (axis + 2) % 3;
    Square r = Square::Identity();
    r(next, next) = r(last, last) = std::cos(angle);
    r(last, next) = std::sin(angle), r(next, last) = -std::sin(angle);
    return r;
}
int main() {
    const std::size_t count = 5000;
    Markers body; // the corners of a box; their mean is 0
    for (int m = 0; m < 8; ++m)
        body(m, 0) = m % 2 ? 1 : -1, body(m, 1) = m % 4 > 1 ? 2 : -2, body(m, 2) = m > 3 ? 3 : -3;
    std::vector<Markers> seen(count);
    std::vector<Square> products(count);
    std::vector<Form> forms(count), vectors(count);
    std::vector<Quaternion> truths(count), values(count), others(count);
    for (std::size_t n = 0; n < count; ++n) {
        const double a = 0.001 * double(n), b = 1 - a;
        seen[n] = body * turn(0, 2 * a).transpose() * turn(2, 2 * b).transpose();
        truths[n] = Quaternion{std::cos(b) * std::cos(a), std::cos(b) * std::sin(a),
                               std::sin(b) * std::sin(a), std::sin(b) * std::cos(a)};
    }
    const auto zelm_way = [&] {
        zelm::multiply(zelm::transposed(body), seen, products).or_throw();
        std::transform(products.begin(), products.end(), forms.begin(), form);
        zelm::eigen_symmetric(forms, values, vectors).or_throw();
    };
    const auto usual_way = [&] {
        for (std::size_t n = 0; n < count; ++n)
            others[n] = eigenvector(form(body.transpose() * seen[n]), 3);
    };
    compare("turns", zelm_way, usual_way);
    std::vector<double> cosines(count);
    zelm::dot(zelm::column(vectors, 3), truths, cosines).or_throw();
    for (double cosine : cosines)
        expect(std::abs(std::abs(cosine) - 1) < 1e-12);
    return verdict();
}
