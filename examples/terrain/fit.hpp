#pragma once

#include "grid.hpp"
#include "progress.hpp"

#include <array>
#include <string_view>

namespace terrain {

constexpr int iterations = 5;

// What can solve the normal equations: they are symmetric and positive definite, so all of these.
enum class Solver { lu, cholesky, qr };
constexpr std::array<std::string_view, 3> solver_names = {"lu", "cholesky", "qr"};

// A cell is a grid point with a full neighbourhood of side x side points around it.
constexpr int side = 5;

constexpr long long cell_count(long long rows, long long columns) {
    return (rows - side + 1) * (columns - side + 1);
}

struct Fit {
    // One value per cell, taken from the fitted surface at the middle of the cell.
    Grid height;
    Grid rise_by_row;    // metres of height per metre towards the next row
    Grid rise_by_column; // and towards the next column
    Grid bend_by_row;    // second derivatives, 1/m
    Grid bend_by_column;
    Grid bend_mixed;

    // Time in the library by purpose, and in the weighing, which is done outside it.
    double product_seconds = 0; // normal equations
    double decomposition_seconds = 0;
    double solve_seconds = 0;
    double residual_seconds = 0;
    double extract_seconds = 0;
    double weigh_seconds = 0;

    double largest_residual = 0; // of all solves: |b - A x| / (|A| |x|), 1-norms
    // The systems of the last iteration by each solver: time of decomposition and solution, and the
    // largest difference, in metres, of a height from that of the chosen solver.
    std::array<double, solver_names.size()> solver_seconds{};
    double largest_difference = 0;

    double reduced_share = 0; // heights with a weight below 1 in the last iteration, of all
};

// Fits to every cell the quadratic surface
//     z = c0 + c1 x + c2 y + c3 x^2 + c4 x y + c5 y^2
// by iteratively reweighted least squares. `spacing` is the distance of the grid points in metres;
// heights that miss the surface by about `noise` metres are not taken for outliers.
Fit fit_surfaces(const Grid &heights, double spacing, double noise, Solver solver,
                 Progress &progress);

} // namespace terrain
