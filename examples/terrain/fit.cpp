#include "fit.hpp"

#include <zelm.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace terrain {
namespace {

constexpr int terms = 6;             // coefficients of the surface
constexpr int points = side * side;  // heights of a cell
constexpr int augmented = terms + 1; // columns of [A | z] and of [N | r], see Fitter

// Where the elements of an array of matrices are. All strides are in bytes: element (i, j) of
// object n lies n * stride0 + i * stride1 + j * stride2 behind the first element of the array.
struct Strides {
    int stride0;
    int stride1;
    int stride2;
};

constexpr int element = sizeof(double);

// Row by row, one object after the other, without gaps.
constexpr Strides packed(int rows, int columns) {
    return {rows * columns * element, columns * element, element};
}

using Design = std::array<double, points * terms>;

// Runs a library call, adds its time to the clock and throws unless it succeeds.
template <class Call>
void timed(double &clock, const char *name, Call call) {
    const auto start = std::chrono::steady_clock::now();
    const ZelStatus status = call();
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    clock += time.count();
    if (status != zelStatusOk)
        throw std::runtime_error(std::string(name) + " returns status " +
                                 std::to_string(static_cast<int>(status)));
}

// The rows are 1, x, y, x^2, xy, y^2 at the points of a cell. With x and y counted in half sides of
// the cell, from -1 to 1, the normal equations are well conditioned at any spacing of the grid.
Design design_matrix() {
    Design design{};
    constexpr double half = side / 2;
    for (int k = 0; k < points; ++k) {
        const double x = (k % side) / half - 1;
        const double y = (k / side) / half - 1;
        const std::array<double, terms> row = {1, x, y, x * x, x * y, y * y};
        std::copy(row.begin(), row.end(), design.begin() + k * terms);
    }
    return design;
}

// The residual up to which a height counts fully, after Huber: 1.345 standard deviations, where the
// standard deviation is estimated from the median magnitude of the residuals and is at least
// `least`. Huber's weights never vanish, so that no cell runs out of points and no system becomes
// singular.
double full_weight_limit(const double *residuals, double least) {
    std::array<double, points> magnitude;
    std::transform(residuals, residuals + points, magnitude.begin(),
                   [](double residual) { return std::abs(residual); });
    const auto median = magnitude.begin() + points / 2;
    std::nth_element(magnitude.begin(), median, magnitude.end());
    return 1.345 * std::max(1.4826 * *median, least);
}

// All cells go through an iteration together. With A the design matrix, W the diagonal matrix of
// the weights of a cell and z its heights, each iteration
//   1. weighs: W from the residuals, then W [A | z], 25 rows of 7 per cell;
//   2. multiplies: [N | r] = A^T (W [A | z]), the normal equations N c = r, 6 rows of 7 per cell;
//   3. solves N c = r;
//   4. computes the residuals z - A c for the next iteration.
class Fitter {
public:
    Fitter(const Grid &heights, double noise, Solver solver, Progress &progress)
        : heights_(heights),
          noise_(noise),
          solver_(solver),
          progress_(progress),
          rows_(heights.rows - side + 1),
          columns_(heights.columns - side + 1),
          cells_(rows_ * columns_),
          weighted_(of_each_cell(points * augmented)),
          normal_(of_each_cell(terms * augmented)),
          factors_(of_each_cell(terms * terms)),
          permutations_(of_each_cell(terms)),
          coefficients_(of_each_cell(terms)),
          residuals_(of_each_cell(points)),
          cell_heights_(of_each_cell(1)),
          cell_residuals_(of_each_cell(1)) {
        for (int cell = 0; cell < cells_; ++cell) {
            const std::size_t entry = static_cast<std::size_t>(cell);
            cell_heights_[entry] = heights_.row(cell / columns_) + cell % columns_;
            cell_residuals_[entry] = residuals_.data() + offset(cell, points);
        }
    }

    Fit run(double spacing) {
        // The residuals start as zeros, which gives all heights the same weight.
        for (iteration_ = 0; iteration_ < iterations; ++iteration_) {
            weigh();
            multiply();
            show(2, "decomposition and solution");
            solve(solver_, coefficients_, fit_.decomposition_seconds, fit_.solve_seconds);
            check();
            if (iteration_ + 1 < iterations)
                compute_residuals();
        }
        compare_solvers();
        progress_.show(1, "done");
        const double per_metre = 1 / (side / 2 * spacing);
        fit_.height = coefficient(0, 1);
        fit_.rise_by_column = coefficient(1, per_metre);
        fit_.rise_by_row = coefficient(2, per_metre);
        fit_.bend_by_column = coefficient(3, 2 * per_metre * per_metre);
        fit_.bend_mixed = coefficient(4, per_metre * per_metre);
        fit_.bend_by_row = coefficient(5, 2 * per_metre * per_metre);
        return std::move(fit_);
    }

private:
    std::size_t of_each_cell(int elements) const {
        return static_cast<std::size_t>(cells_) * static_cast<std::size_t>(elements);
    }

    void show(double stage, const char *name) const {
        constexpr double stages = 6;
        progress_.show((iteration_ + stage / stages) / iterations, name);
    }

    void weigh() {
        const auto start = std::chrono::steady_clock::now();
        long long reduced = 0;
        double *out = weighted_.data();
        const double *residual = residuals_.data();
        for (int cell = 0; cell < cells_; ++cell, residual += points) {
            if (cell % columns_ == 0)
                show(static_cast<double>(cell) / cells_, "weights");
            const double *z = cell_heights_[static_cast<std::size_t>(cell)];
            const double limit = full_weight_limit(residual, noise_);
            for (int k = 0; k < points; ++k) {
                const double magnitude = std::abs(residual[k]);
                const double weight = magnitude > limit ? limit / magnitude : 1;
                reduced += weight < 1;
                for (int j = 0; j < terms; ++j)
                    *out++ = weight * design_[static_cast<std::size_t>(k * terms + j)];
                *out++ = weight * z[k / side * heights_.columns + k % side];
            }
        }
        fit_.reduced_share = static_cast<double>(reduced) / (static_cast<double>(cells_) * points);
        const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
        fit_.weigh_seconds += time.count();
    }

    // tma: one matrix that enters transposed, times an array of matrices. Widths and heights are
    // those of the matrices as they are stored.
    void multiply() {
        show(1, "normal equations");
        constexpr Strides a = packed(points, terms);
        constexpr Strides w = packed(points, augmented);
        constexpr Strides n = packed(terms, augmented);
        timed(fit_.product_seconds, "zelmMul_tma_64f", [&] {
            return zelmMul_tma_64f(
                design_.data(), a.stride1, a.stride2, terms, points,                  // A^T
                weighted_.data(), w.stride0, w.stride1, w.stride2, augmented, points, // W [A | z]
                normal_.data(), n.stride0, n.stride1, n.stride2, cells_);             // [N | r]
        });
    }

    // N and r are parts of one matrix of 6 rows of 7, and strides are all it takes to use them
    // where they are. N starts at the first element, its rows are 7 elements apart. r is the last
    // column: it starts at element 6, and its elements are one row apart.
    void solve(Solver solver, std::vector<double> &solution, double &decomposition_seconds,
               double &solve_seconds) {
        constexpr Strides n = packed(terms, augmented);
        constexpr Strides f = packed(terms, terms);
        constexpr Strides c = packed(1, terms);
        const double *const matrices = normal_.data(), *const sides = normal_.data() + terms;
        double *const factors = factors_.data();
        std::array<double, terms> buffer; // of QR
        switch (solver) {
        case Solver::lu:
            timed(decomposition_seconds, "zelmLUDecomp_ma_64f", [&] {
                return zelmLUDecomp_ma_64f(matrices, n.stride0, n.stride1, n.stride2, // N
                                           permutations_.data(),                      //
                                           factors, f.stride0, f.stride1, f.stride2,  // LU
                                           terms, cells_);
            });
            timed(solve_seconds, "zelmLUBackSubst_mava_64f", [&] {
                return zelmLUBackSubst_mava_64f(factors, f.stride0, f.stride1, f.stride2, // LU
                                                permutations_.data(),                     //
                                                sides, n.stride0, n.stride1,              // r
                                                solution.data(), c.stride0, c.stride2,    // c
                                                terms, cells_);
            });
            break;
        case Solver::cholesky: // reads the lower triangles of N alone
            timed(decomposition_seconds, "zelmCholeskyDecomp_ma_64f", [&] {
                return zelmCholeskyDecomp_ma_64f(matrices, n.stride0, n.stride1, n.stride2, // N
                                                 factors, f.stride0, f.stride1, f.stride2,  // L
                                                 terms, cells_);
            });
            timed(solve_seconds, "zelmCholeskyBackSubst_mava_64f", [&] {
                return zelmCholeskyBackSubst_mava_64f(factors, f.stride0, f.stride1, f.stride2, // L
                                                      sides, n.stride0, n.stride1,              // r
                                                      solution.data(), c.stride0, c.stride2,    // c
                                                      terms, cells_);
            });
            break;
        case Solver::qr:
            timed(decomposition_seconds, "zelmQRDecomp_ma_64f", [&] {
                return zelmQRDecomp_ma_64f(matrices, n.stride0, n.stride1, n.stride2, // N
                                           buffer.data(),                             //
                                           factors, f.stride0, f.stride1, f.stride2,  // QR
                                           terms, terms, cells_);
            });
            timed(solve_seconds, "zelmQRBackSubst_mava_64f", [&] {
                return zelmQRBackSubst_mava_64f(factors, f.stride0, f.stride1, f.stride2, // QR
                                                buffer.data(),                            //
                                                sides, n.stride0, n.stride1,              // r
                                                solution.data(), c.stride0, c.stride2,    // c
                                                terms, terms, cells_);
            });
            break;
        }
    }

    // The systems of the last iteration once more, by every solver.
    void compare_solvers() {
        show(5, "all solvers");
        std::vector<double> other(coefficients_.size());
        for (std::size_t s = 0; s < solver_names.size(); ++s) {
            double &seconds = fit_.solver_seconds[s];
            solve(static_cast<Solver>(s), other, seconds, seconds);
            for (std::size_t k = 0; k < other.size(); k += terms)
                fit_.largest_difference =
                    std::max(fit_.largest_difference, std::abs(other[k] - coefficients_[k]));
        }
    }

    // Residuals of all systems in extended precision, each as a multiple of |N| |c|.
    void check() {
        show(4, "check");
        for (int cell = 0; cell < cells_; ++cell) {
            const double *normal = normal_.data() + offset(cell, terms * augmented);
            const double *solution = coefficients_.data() + offset(cell, terms);
            std::array<long double, terms> column_sums{};
            long double residual_norm = 0;
            long double solution_norm = 0;
            for (int i = 0; i < terms; ++i) {
                long double residual = normal[i * augmented + terms];
                for (int j = 0; j < terms; ++j) {
                    const long double entry = normal[i * augmented + j];
                    residual -= entry * solution[j];
                    column_sums[static_cast<std::size_t>(j)] += std::abs(entry);
                }
                residual_norm += std::abs(residual);
                solution_norm += std::abs(static_cast<long double>(solution[i]));
            }
            const long double norm = *std::max_element(column_sums.begin(), column_sums.end());
            // Heights that are all zero have the solution zero.
            const double relative =
                residual_norm == 0 ? 0
                                   : static_cast<double>(residual_norm / (norm * solution_norm));
            // Nothing is greater than a NaN, so one that gets in stays.
            if (relative > fit_.largest_residual || std::isnan(relative))
                fit_.largest_residual = relative;
        }
    }

    // A c for all cells, then z - A c in place. The heights of a cell are a 5 x 5 matrix inside the
    // grid and overlap those of its neighbours; nothing is copied. As the cells are not evenly
    // spaced where a row of the grid ends, the subtraction takes tables that say where each cell
    // begins, instead of a stride0. The shift, here 0, would be added to all entries.
    void compute_residuals() {
        show(5, "residuals");
        constexpr Strides a = packed(points, terms);
        constexpr Strides c = packed(1, terms);
        constexpr Strides v = packed(1, points);
        timed(fit_.residual_seconds, "zelmMul_mva_64f", [&] {
            return zelmMul_mva_64f(design_.data(), a.stride1, a.stride2, terms, points, // A
                                   coefficients_.data(), c.stride0, c.stride2, terms,   // c
                                   residuals_.data(), v.stride0, v.stride2, cells_);    // A c
        });
        const int grid_row = heights_.columns * element;
        constexpr Strides r = packed(side, side);
        timed(fit_.residual_seconds, "zelmSub_mama_64f_L", [&] {
            return zelmSub_mama_64f_L(cell_heights_.data(), 0, grid_row, element,      // z
                                      cell_residuals_.data(), 0, r.stride1, r.stride2, // A c
                                      cell_residuals_.data(), 0, r.stride1, r.stride2, // z - A c
                                      side, side, cells_);
        });
    }

    // Coefficient `index` of all cells times a factor. To the library these are vectors of length
    // 1, far apart in the source and dense in the destination.
    Grid coefficient(int index, double factor) {
        Grid grid{rows_, columns_, std::vector<double>(of_each_cell(1))};
        constexpr Strides c = packed(1, terms);
        timed(fit_.extract_seconds, "zelmMul_vac_64f", [&] {
            return zelmMul_vac_64f(coefficients_.data() + index, c.stride0, c.stride2, factor, //
                                   grid.values.data(), element, element, 1, cells_);
        });
        return grid;
    }

    static std::ptrdiff_t offset(int cell, int elements) {
        return static_cast<std::ptrdiff_t>(cell) * elements;
    }

    const Grid &heights_;
    double noise_;
    Solver solver_;
    Progress &progress_;
    Fit fit_;
    int iteration_ = 0;
    int rows_;
    int columns_;
    int cells_;
    const Design design_ = design_matrix();
    std::vector<double> weighted_;
    std::vector<double> normal_;
    std::vector<double> factors_;
    std::vector<int> permutations_;
    std::vector<double> coefficients_;
    std::vector<double> residuals_;
    std::vector<const double *> cell_heights_;
    std::vector<double *> cell_residuals_;
};

} // namespace

Fit fit_surfaces(const Grid &heights, double spacing, double noise, Solver solver,
                 Progress &progress) {
    progress.show(0, "memory");
    return Fitter(heights, noise, solver, progress).run(spacing);
}

} // namespace terrain
