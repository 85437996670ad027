// The program of ten_lines.c again, through the C++ front.
#include <array>
#include <cstdio>
#include <vector>

#include <zelm.hpp>

int main() {
    using Matrix = std::array<std::array<double, 3>, 3>;
    std::vector<Matrix> a(1000);
    std::vector<std::array<double, 3>> b(1000), x(1000);
    for (std::size_t n = 0; n < a.size();
         ++n) { // (n + 1) y + z = 2 n + 5,  x + z = 4,  2 x + y = 4
        const double k = static_cast<double>(n);
        a[n] = {{{0, k + 1, 1}, {1, 0, 1}, {2, 1, 0}}};
        b[n] = {2 * k + 5, 4, 4};
    }
    const zelm::status status = zelm::solve(a, b, x);
    const auto &last = x.back();
    std::printf("status %d, the last solution: %.3f %.3f %.3f\n", status.code(), last[0], last[1],
                last[2]);
    return zelm::threads() < 1;
}
