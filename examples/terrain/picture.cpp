#include "picture.hpp"

#include <png.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <numbers>
#include <stdexcept>

namespace terrain {
namespace {

struct Stop {
    double degrees;
    Colour colour;
};

// Each step is darker than the one before, so that the order shows without colours as well.
constexpr std::array<Stop, 7> slope_colours = {{{0, {236, 239, 222}},
                                                {6, {204, 224, 180}},
                                                {13, {234, 208, 124}},
                                                {20, {240, 168, 86}},
                                                {27, {217, 104, 68}},
                                                {35, {160, 48, 72}},
                                                {45, {88, 20, 78}}}};

// The nearer to the line of its ridge or valley, the stronger.
Colour form_colour(const Curvature &curvature, int row, int column) {
    const auto &of_form = form_colours.at(static_cast<std::size_t>(curvature.form(row, column)));
    const std::size_t cell =
        static_cast<std::size_t>(row) * static_cast<std::size_t>(curvature.columns) +
        static_cast<std::size_t>(column);
    return mix({236, 236, 226}, {of_form[0], of_form[1], of_form[2]},
               0.6 + 0.4 * curvature.definiteness[cell]);
}

// Light on a surface that rises by `east` and `north` (metres per metre), 1 on level ground. A lamp
// in the north-west does most of it; two weak ones beside it keep slopes along its rays apart. The
// relief is shown steeper than it is.
double light(double east, double north, double sun) {
    constexpr double exaggeration = 1.6;
    constexpr double lamp_height = std::numbers::pi / 4;
    struct Lamp {
        double azimuth; // degrees from north to east
        double strength;
    };
    constexpr std::array<Lamp, 3> lamps = {{{315, 0.7}, {255, 0.15}, {15, 0.15}}};

    const double x = -exaggeration * east;
    const double y = -exaggeration * north;
    const double length = std::sqrt(x * x + y * y + 1);
    double sum = 0;
    for (const Lamp &lamp : lamps) {
        const double azimuth = lamp.azimuth * std::numbers::pi / 180;
        const double cosine =
            (std::cos(lamp_height) * (x * std::sin(azimuth) + y * std::cos(azimuth)) +
             std::sin(lamp_height)) /
            length;
        const double reaching = lamp.strength > 0.5 ? 0.3 + 0.7 * sun : 1;
        sum += reaching * lamp.strength * std::max(cosine, 0.0);
    }
    return sum / std::sin(lamp_height);
}

// Turns a colour towards a bluish black in the shadow and towards white in the light.
Colour shade(const Colour &colour, double brightness) {
    if (brightness < 1)
        return mix(colour, {34, 28, 58}, 0.62 * (1 - brightness));
    return mix(colour, {255, 250, 225}, 0.65 * (brightness - 1));
}

// How much of a pixel a contour line covers, from 0 to 1. `rise` is the slope in metres per metre.
// A line encloses the heights that round to its level or above. So it runs around the plateaus that
// heights in whole metres have at the level itself.
double contour(double height, double rise, double pixel_metres) {
    constexpr double step = 10;
    height += 0.5;
    const double level = std::round(height / step);
    const double half_width = std::fmod(level, 5) == 0 ? 1.0 : 0.6; // pixels
    // On almost level ground a line would spread into a patch.
    const double pixels = std::abs(height - level * step) / (std::max(rise, 0.02) * pixel_metres);
    return std::clamp(half_width + 0.5 - pixels, 0.0, 1.0);
}

std::uint8_t channel(double value) {
    return static_cast<std::uint8_t>(std::clamp(value, 0.0, 255.0) + 0.5);
}

} // namespace

Colour mix(const Colour &a, const Colour &b, double share_of_b) {
    const double share_of_a = 1 - share_of_b;
    return {a.red * share_of_a + b.red * share_of_b, a.green * share_of_a + b.green * share_of_b,
            a.blue * share_of_a + b.blue * share_of_b};
}

Colour slope_colour(double degrees) {
    for (std::size_t i = 1; i < slope_colours.size(); ++i) {
        const Stop &low = slope_colours[i - 1];
        const Stop &high = slope_colours[i];
        if (degrees < high.degrees)
            return mix(low.colour, high.colour,
                       (degrees - low.degrees) / (high.degrees - low.degrees));
    }
    return slope_colours.back().colour;
}

Colour surface_colour(double height, double east, double north, double pixel_metres, double sun,
                      const Colour *ground) {
    const double rise = std::hypot(north, east);
    const Colour colour = ground ? *ground : slope_colour(std::atan(rise) * 180 / std::numbers::pi);
    const Colour lit = shade(colour, light(east, north, sun));
    return mix(lit, {60, 40, 30}, 0.45 * contour(height, rise, pixel_metres));
}

void put_pixel(Picture &picture, int x, int y, const Colour &colour) {
    if (x < 0 || x >= picture.width || y < 0 || y >= picture.height)
        return;
    picture.rgb.resize(static_cast<std::size_t>(picture.width) *
                       static_cast<std::size_t>(picture.height) * 3);
    std::uint8_t *pixel =
        picture.rgb.data() + (static_cast<std::ptrdiff_t>(y) * picture.width + x) * 3;
    pixel[0] = channel(colour.red);
    pixel[1] = channel(colour.green);
    pixel[2] = channel(colour.blue);
}

Picture draw(const Fit &fit, double spacing, const Curvature *curvature) {
    constexpr int wanted = 1000; // pixels of the longer side
    constexpr int largest_scale = 16;
    const int longer = std::max(fit.height.rows, fit.height.columns);
    const int scale = std::clamp(wanted / longer, 1, largest_scale);
    const Grid heights = refine(fit.height, scale);
    const Grid rises_by_row = refine(fit.rise_by_row, scale);
    const Grid rises_by_column = refine(fit.rise_by_column, scale);

    Picture picture{heights.columns, heights.rows, {}};
    picture.rgb.reserve(heights.values.size() * 3);
    for (int row = heights.rows - 1; row >= 0; --row) {
        for (int column = heights.columns - 1; column >= 0; --column) {
            const double north = rises_by_row.row(row)[column];
            const double east = -rises_by_column.row(row)[column];
            Colour form;
            if (curvature)
                form = form_colour(*curvature, (row + scale / 2) / scale,
                                   (column + scale / 2) / scale);
            const Colour pixel = surface_colour(heights.row(row)[column], east, north,
                                                spacing / scale, 1, curvature ? &form : nullptr);
            picture.rgb.insert(picture.rgb.end(),
                               {channel(pixel.red), channel(pixel.green), channel(pixel.blue)});
        }
    }
    return picture;
}

void write_png(const Picture &picture, std::FILE *file, const std::string &path) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(picture.width);
    image.height = static_cast<png_uint_32>(picture.height);
    image.format = PNG_FORMAT_RGB;
    errno = 0;
    if (png_image_write_to_stdio(&image, file, 0, picture.rgb.data(), 0, nullptr) == 0 ||
        std::fflush(file) != 0)
        throw std::runtime_error(path + ": " + (errno != 0 ? std::strerror(errno) : image.message));
}

} // namespace terrain
