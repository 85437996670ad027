#pragma once

#include "curvature.hpp"
#include "fit.hpp"

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace terrain {

struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> rgb; // from the top left corner, row by row
};

// A map with north on top: the colour tells the slope, the shading the direction it faces, the
// lines the height in steps of 10 m. Small grids are enlarged to about a thousand pixels. The rows
// of the fit follow one another from south to north, its columns from east to west. `spacing` is
// the distance of its cells in metres. With a curvature the colour tells the form instead.
Picture draw(const Fit &fit, double spacing, const Curvature *curvature = nullptr);

// Writes a PNG. `path` serves for the message of the std::runtime_error only.
void write_png(const Picture &picture, std::FILE *file, const std::string &path);

} // namespace terrain
