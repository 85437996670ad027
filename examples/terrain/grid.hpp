#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace terrain {

// Numbers at the crossings of a regular grid, row by row.
struct Grid {
    int rows = 0;
    int columns = 0;
    std::vector<double> values;

    const double *row(int index) const {
        return values.data() + static_cast<std::ptrdiff_t>(index) * columns;
    }
};

// Reads a text file with one line per row and commas between the numbers. Throws
// std::runtime_error with file, line and column if the file is no such grid.
Grid read_grid(const std::string &path);

// The number of grid points that refine makes of `points` in one direction.
constexpr long long refined_points(int points, int factor) { return (points - 1LL) * factor + 1; }

// Puts factor - 1 new points between each two neighbours, on the uniform cubic B-spline that has
// the values as its control points. The spline smooths a little (a value counts 2/3, its two
// neighbours 1/6 each, in either direction) and has continuous second derivatives, so that slopes
// taken from the refined grid do not show the old one. Planes are reproduced.
Grid refine(const Grid &grid, int factor);

} // namespace terrain
