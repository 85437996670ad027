#pragma once

#include "curvature.hpp"
#include "fit.hpp"

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace terrain {

struct Colour {
    double red;
    double green;
    double blue;
};

Colour mix(const Colour &a, const Colour &b, double share_of_b);
Colour slope_colour(double degrees);

// The colour of the ground at a height, where it rises by `east` and `north` (metres per metre): by
// the slope, shaded by the direction it faces, with a line every 10 m of height. A pixel is
// pixel_metres wide. `sun` is the part of the main lamp that is not cut off by other ground.
// With `ground` that colour stands for the slope.
Colour surface_colour(double height, double east, double north, double pixel_metres, double sun = 1,
                      const Colour *ground = nullptr);

struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> rgb; // from the top left corner, row by row
};

void put_pixel(Picture &picture, int x, int y, const Colour &colour); // outside: nothing

// A map with north on top: the colour tells the slope, the shading the direction it faces, the
// lines the height in steps of 10 m. Small grids are enlarged to about a thousand pixels. The rows
// of the fit follow one another from south to north, its columns from east to west. `spacing` is
// the distance of its cells in metres. With a curvature the colour tells the form instead.
Picture draw(const Fit &fit, double spacing, const Curvature *curvature = nullptr);

// Writes a PNG. `path` serves for the message of the std::runtime_error only.
void write_png(const Picture &picture, std::FILE *file, const std::string &path);

} // namespace terrain
