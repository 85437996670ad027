// Calls that must not compile: one per value of REFUSED. front_refused.cmake has the messages.
#include <vector>
#include <zelm.hpp>

using Matrix3 = std::array<std::array<double, 3>, 3>;

zelm::status call(const std::vector<Matrix3> &a, std::vector<Matrix3> &c,
                  std::vector<std::array<double, 2>> &x, zelm::pointer_matrices<double> pointers,
                  float *numbers, double &number) {
#if REFUSED == 0 // nothing: this compiles
    return zelm::add(a, a, c);
#elif REFUSED == 1
    return zelm::multiply(a, x, zelm::vectors<double>(&number, 3, 1));
#elif REFUSED == 2
    return zelm::add(c, c, a);
#elif REFUSED == 3
    return zelm::add(a, pointers, c);
#elif REFUSED == 4
    return zelm::add(a, zelm::vectors<const float, 3>(numbers, 2), c);
#elif REFUSED == 5
    return zelm::multiply(a, zelm::scalars<double>(&number, 1), c);
#elif REFUSED == 6
    return zelm::add(a, a, c[0]);
#elif REFUSED == 7
    return zelm::multiply(x, x, c);
#elif REFUSED == 8
    return zelm::solve(a, a, x);
#elif REFUSED == 9
    return zelm::geometry::normalize(zelm::vector<float>(numbers, 3), numbers);
#elif REFUSED == 10
    return zelm::raw::determinant(zelm::matrix<double, 3, 2>(&number), number);
#elif REFUSED == 11
    return zelm::dot(x, x, numbers[0]);
#elif REFUSED == 12
    zelm::add(a, a, c);
    return 0;
#elif REFUSED == 13
    return zelm::add(zelm::vector<long double>(nullptr, 3), a, c);
#elif REFUSED == 14
    return zelm::geometry::normalize(zelm::vector(numbers, 3), zelm::vector<float, 3>(numbers));
#endif
}
