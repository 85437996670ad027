#include "curvature.hpp"

#include <zelm.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <stdexcept>
#include <string>

namespace terrain {
namespace {

constexpr int element = sizeof(double);

// The library's thresholds for symmetric matrices are absolute, and an array call ends at its first
// singular matrix. So a matrix whose values are at most 1 in magnitude is given as M + shift * I:
// the vectors stay, the values move by the shift and none comes near zero.
constexpr double shift = 3;

// Values, descending, and vectors, as columns, of packed symmetric matrices of order n.
void solve(std::vector<double> &matrices, std::vector<double> &values, int n, double &seconds) {
    const int object = n * n * element;
    const int count = static_cast<int>(matrices.size()) / (n * n);
    std::vector<double> scratch(static_cast<std::size_t>(n * n));
    values.resize(static_cast<std::size_t>(count) * static_cast<std::size_t>(n));
    const auto start = std::chrono::steady_clock::now();
    const ZelStatus status = zelmEigenValuesVectorsSym_ma_64f(
        matrices.data(), object, n * element, element, scratch.data(), // source and scratch
        matrices.data(), object, n * element, element,                 // in place
        values.data(), n, count);
    seconds += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    if (status != zelStatusOk)
        throw std::runtime_error("zelmEigenValuesVectorsSym_ma_64f returns status " +
                                 std::to_string(static_cast<int>(status)));
    for (double &value : values)
        value -= shift;
}

// Gradient of a cell and the factor that makes its normal (-east, -north, 1) a unit vector.
struct Slope {
    double east, north, cosine;
};
Slope slope_of(const Fit &fit, std::size_t cell) {
    const double east = -fit.rise_by_column.values[cell], north = fit.rise_by_row.values[cell];
    return {east, north, 1 / std::sqrt(1 + east * east + north * north)};
}

Form form_of(double most, double least, double flat) {
    const bool hollow = most > flat, hump = least < -flat;
    if (hollow && hump)
        return Form::saddle;
    if (hollow)
        return least > flat ? Form::pit : Form::valley;
    if (hump)
        return most < -flat ? Form::peak : Form::ridge;
    return Form::plain;
}

// The principal curvatures are the values of II with respect to I, the fundamental forms of the
// surface. I^(-1/2) shortens along the gradient, so I^(-1/2) II I^(-1/2) is symmetric and has the
// same values.
void find_principal_curvatures(const Fit &fit, double flat, Curvature &result) {
    const std::size_t cells = fit.height.values.size();
    std::vector<double> matrices(cells * 4), values;
    double largest = 1e-12;
    for (std::size_t cell = 0; cell < cells; ++cell) {
        const Slope s = slope_of(fit, cell);
        const double gradient = s.east * s.east + s.north * s.north;
        const double less = gradient > 0 ? (1 - s.cosine) / gradient : 0;
        const double r[2][2] = {{1 - less * s.east * s.east, -less * s.east * s.north},
                                {-less * s.east * s.north, 1 - less * s.north * s.north}};
        const double mixed = -fit.bend_mixed.values[cell];
        const double h[2][2] = {{fit.bend_by_column.values[cell], mixed},
                                {mixed, fit.bend_by_row.values[cell]}};
        for (int i = 0; i < 2; ++i)
            for (int j = 0; j < 2; ++j) {
                double sum = 0;
                for (int k = 0; k < 2; ++k)
                    for (int l = 0; l < 2; ++l)
                        sum += r[i][k] * h[k][l] * r[l][j];
                matrices[cell * 4 + static_cast<std::size_t>(i * 2 + j)] = s.cosine * sum;
                largest = std::max(largest, std::abs(s.cosine * sum));
            }
    }
    const double scale = 1 / (2 * largest); // values at most 1
    for (std::size_t e = 0; e < matrices.size(); ++e)
        matrices[e] = matrices[e] * scale + (e % 4 == 0 || e % 4 == 3 ? shift : 0);
    solve(matrices, values, 2, result.seconds);
    for (std::size_t cell = 0; cell < cells; ++cell) {
        result.most.push_back(values[cell * 2] / scale);
        result.least.push_back(values[cell * 2 + 1] / scale);
        result.forms.push_back(form_of(result.most.back(), result.least.back(), flat));
    }
}

// The structure tensor of the normals: the mean of n n^T over the 3 x 3 cells around a cell. Its
// first vector is the mean normal, along its last one the normals change least.
void find_lines(const Fit &fit, Curvature &result) {
    const int rows = fit.height.rows, columns = fit.height.columns;
    std::vector<double> tensors, values;
    tensors.reserve(fit.height.values.size() * 9);
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column) {
            std::array<double, 9> sum{};
            for (int around = 0; around < 9; ++around) {
                const int i = std::clamp(row + around / 3 - 1, 0, rows - 1);
                const int j = std::clamp(column + around % 3 - 1, 0, columns - 1);
                const Slope s =
                    slope_of(fit, static_cast<std::size_t>(i) * static_cast<std::size_t>(columns) +
                                      static_cast<std::size_t>(j));
                const double n[3] = {-s.east * s.cosine, -s.north * s.cosine, s.cosine};
                for (std::size_t e = 0; e < 9; ++e)
                    sum[e] += n[e / 3] * n[e % 3] / 9;
            }
            for (std::size_t e = 0; e < 9; ++e)
                tensors.push_back(sum[e] + (e % 4 == 0 ? shift : 0));
        }
    solve(tensors, values, 3, result.seconds);
    for (std::size_t cell = 0; cell * 3 < values.size(); ++cell) {
        const double *value = values.data() + cell * 3, *vector = tensors.data() + cell * 9;
        const double across = std::max(value[1], 1e-12), along = std::max(value[2], 0.0);
        result.definiteness.push_back(std::clamp(1 - along / across, 0.0, 1.0));
        result.line_east.push_back(vector[2]);
        result.line_north.push_back(vector[5]);
    }
}

} // namespace

double Curvature::share(Form form) const {
    return static_cast<double>(std::count(forms.begin(), forms.end(), form)) /
           static_cast<double>(forms.size());
}

Curvature find_curvature(const Fit &fit, double flat) {
    Curvature result;
    result.columns = fit.height.columns;
    find_principal_curvatures(fit, flat, result);
    find_lines(fit, result);
    return result;
}

} // namespace terrain
