#pragma once

#include "fit.hpp"

#include <array>
#include <cstddef>
#include <vector>

namespace terrain {

enum class Form { plain, peak, ridge, saddle, valley, pit };
constexpr std::array<const char *, 6> form_names = {"plain",  "peak",   "ridge",
                                                    "saddle", "valley", "pit"};
constexpr std::array<std::array<double, 3>, 6> form_colours = {{{226, 226, 210},
                                                                {196, 60, 48},
                                                                {236, 158, 74},
                                                                {150, 110, 170},
                                                                {104, 168, 204},
                                                                {40, 74, 150}}};

// The shape of the surface at every cell, from eigenvalues.
struct Curvature {
    int columns = 0;
    std::vector<Form> forms;          // row by row, as the cells
    std::vector<double> most, least;  // principal curvatures, 1/m, positive where a hollow
    std::vector<double> line_east;    // direction along which the surface bends least, and how
    std::vector<double> line_north;   // much less it bends along it than across it, from 0 to 1:
    std::vector<double> definiteness; // near 1 on the line of a ridge or a valley
    double seconds = 0;               // in the library

    Form form(int row, int column) const {
        return forms[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) +
                     static_cast<std::size_t>(column)];
    }
    double share(Form form) const; // of all cells
};

// Cells that bend by less than `flat` (1/m) in a direction count as straight in it.
Curvature find_curvature(const Fit &fit, double flat);

} // namespace terrain
