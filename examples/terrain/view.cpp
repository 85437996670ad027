#include "view.hpp"

#include "font.hpp"

#include <zelm.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <limits>
#include <numbers>
#include <stdexcept>

namespace terrain {
namespace {

constexpr int width = 1120, height = 660; // of the picture, in pixels
constexpr int samples = 2;                // per pixel, in both directions
constexpr int wide = width * samples, high = height * samples;

constexpr double field_of_view = 24; // degrees, vertical
constexpr double exaggeration = 1.5; // of heights
constexpr double wall_height = 45;   // metres below the lowest point
constexpr double sun_height =
    0.55; // its tangent, for the cast shadows; it stands in the north-west
constexpr int point_bytes = 3 * sizeof(float);

double radians(double degrees) { return degrees * std::numbers::pi / 180; }

void must(ZelStatus status, const char *name) {
    if (status != zelStatusOk)
        throw std::runtime_error(std::string(name) + " returns status " +
                                 std::to_string(static_cast<int>(status)));
}

// How much of the sun reaches each point, from 0 to 1: rays towards the north-west, with a soft
// rim.
std::vector<float> sunlight(const Grid &heights, double spacing) {
    const double highest = *std::max_element(heights.values.begin(), heights.values.end());
    constexpr int step = 2;
    const double rise = sun_height * spacing * step * std::numbers::sqrt2 / exaggeration;
    std::vector<float> light;
    light.reserve(heights.values.size());
    for (int row = 0; row < heights.rows; ++row)
        for (int column = 0; column < heights.columns; ++column) {
            double ray = heights.row(row)[column], least = std::numeric_limits<double>::infinity();
            for (int r = row, c = column, k = 1;; ++k) {
                r += step; // to the north, and to the west
                c += step;
                ray += rise;
                if (r >= heights.rows || c >= heights.columns || ray > highest)
                    break;
                least = std::min(least, (ray - heights.row(r)[c]) / (0.06 * rise * k + 0.4));
            }
            light.push_back(static_cast<float>(std::clamp(0.5 + 0.5 * least, 0.0, 1.0)));
        }
    return light;
}

Colour background(int y) {
    return mix({214, 226, 236}, {250, 247, 240}, std::min(1.0, 1.25 * y / height));
}

} // namespace

Scene::Scene(const Fit &fit, double spacing) {
    add_surface(fit, spacing);
    add_walls();
    projected_.resize(positions_.size());
}

// A vertex about every metre, coloured as on the map, and two triangles between four of them.
void Scene::add_surface(const Fit &fit, double spacing) {
    constexpr int wanted = 900, largest_scale = 16;
    const int longer = std::max(fit.height.rows, fit.height.columns);
    const int scale = std::clamp(wanted / longer, 1, largest_scale);
    const Grid heights = refine(fit.height, scale);
    const Grid rises_by_row = refine(fit.rise_by_row, scale);
    const Grid rises_by_column = refine(fit.rise_by_column, scale);
    rows_ = heights.rows;
    columns_ = heights.columns;
    const double step = spacing / scale;
    radius_ = std::max(0.5 * step * std::hypot(rows_, columns_), 1.0);
    const auto [lowest, highest] =
        std::minmax_element(heights.values.begin(), heights.values.end());
    const double middle = 0.5 * (*lowest + *highest);
    const std::vector<float> sun = sunlight(heights, step);

    for (int row = 0; row < rows_; ++row)
        for (int column = 0; column < columns_; ++column) {
            const std::size_t point = colours_.size();
            const double z = heights.row(row)[column];
            const double north = rises_by_row.row(row)[column];
            const double east = -rises_by_column.row(row)[column];
            for (const double x : {(0.5 * (columns_ - 1) - column) * step, z - middle,
                                   (0.5 * (rows_ - 1) - row) * step})
                positions_.push_back(static_cast<float>(x));
            colours_.push_back(surface_colour(z, east, north, step, sun[point]));
        }
    for (int row = 0; row + 1 < rows_; ++row)
        for (int column = 0; column + 1 < columns_; ++column) {
            const int a = row * columns_ + column, b = a + 1, c = a + columns_, d = c + 1;
            triangles_.push_back({{a, b, c}});
            triangles_.push_back({{b, d, c}});
        }
}

// Walls down from the edges, so that the ground is a solid block.
void Scene::add_walls() {
    std::vector<int> edge; // once around
    for (int column = 0; column + 1 < columns_; ++column)
        edge.push_back(column);
    for (int row = 0; row + 1 < rows_; ++row)
        edge.push_back(row * columns_ + columns_ - 1);
    for (int column = columns_ - 1; column > 0; --column)
        edge.push_back((rows_ - 1) * columns_ + column);
    for (int row = rows_ - 1; row > 0; --row)
        edge.push_back(row * columns_);
    if (rows_ == 1 || columns_ == 1)
        return;

    float bottom = 0;
    for (std::size_t k = 1; k < positions_.size(); k += 3)
        bottom = std::min(bottom, positions_[k]);
    bottom -= static_cast<float>(wall_height);
    const int first = points();
    for (const int vertex : edge) {
        const auto at = static_cast<std::size_t>(vertex) * 3;
        const float x = positions_[at], y = positions_[at + 1], z = positions_[at + 2];
        const std::size_t around = (colours_.size() - static_cast<std::size_t>(first)) / 2;
        const bool faces_south_or_north =
            around < static_cast<std::size_t>(columns_ - 1) ||
            (around >= static_cast<std::size_t>(columns_ + rows_ - 2) &&
             around < static_cast<std::size_t>(2 * columns_ + rows_ - 3));
        const double shade = faces_south_or_north ? 0.82 : 1;
        for (const float end : {y, bottom}) {
            positions_.insert(positions_.end(), {x, end, z});
            const Colour ground = end == bottom ? Colour{96, 78, 72} : Colour{150, 124, 104};
            colours_.push_back(mix({34, 28, 58}, ground, shade));
        }
    }
    const int count = static_cast<int>(edge.size());
    for (int k = 0; k < count; ++k) {
        const int a = first + 2 * k, b = first + 2 * ((k + 1) % count);
        triangles_.push_back({{a, b, a + 1}});
        triangles_.push_back({{b, b + 1, a + 1}});
    }
}

// All points through three matrices in one call. The library's vectors are rows, v' = v * M; the
// view space is right-handed, and what is between the two planes gets depths from 0 to 1.
void Scene::project(const Camera &camera) {
    const double yaw = radians(camera.yaw), pitch = radians(camera.pitch);
    const double all = 0.79 * radius_ / std::tan(radians(field_of_view) / 2);
    const double distance = camera.distance > 0 ? camera.distance : all;
    const std::array<float, 3> eye = {
        static_cast<float>(distance * std::cos(pitch) * std::sin(yaw)),
        static_cast<float>(distance * std::sin(pitch)),
        static_cast<float>(distance * std::cos(pitch) * std::cos(yaw))};
    // A little below the middle, which leaves the caption free.
    const std::array<float, 3> at = {0, static_cast<float>(-0.075 * distance), 0}, up = {0, 1, 0};
    const double far = distance + 2 * radius_, near = std::max(far / 1000, distance - 2 * radius_);

    std::array<float, 16> world, view, projection;
    must(zelmScaling_m4_32f(world.data(), 1, static_cast<float>(exaggeration), 1), "zelmScaling");
    must(zelmLookAtRH_m4_32f(eye.data(), at.data(), up.data(), view.data()), "zelmLookAtRH");
    must(zelmPerspectiveFovRH_m4_32f(projection.data(), static_cast<float>(radians(field_of_view)),
                                     static_cast<float>(wide) / high, static_cast<float>(near),
                                     static_cast<float>(far)),
         "zelmPerspectiveFovRH");
    const auto start = std::chrono::steady_clock::now();
    must(zelmProject_m4v3a_32f(projection.data(), view.data(), world.data(), positions_.data(),
                               point_bytes, projected_.data(), point_bytes, points(), wide, high, 0,
                               1),
         "zelmProject");
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    seconds_ += time.count();
}

// The nearest of all triangles at every sample. The depth is linear on the picture; so are, nearly
// enough on such small triangles, the colours.
void Scene::draw_triangles(std::vector<Colour> &pixels) const {
    std::vector<float> depths(pixels.size(), 1);
    for (const Triangle &triangle : triangles_) {
        const float *p[3];
        const Colour *c[3];
        bool visible = true; // between the near plane and the far one
        for (std::size_t k = 0; k < 3; ++k) {
            p[k] = projected_.data() + static_cast<std::ptrdiff_t>(triangle.corner[k]) * 3;
            c[k] = &colours_[static_cast<std::size_t>(triangle.corner[k])];
            visible = visible && p[k][2] >= 0 && p[k][2] <= 1;
        }
        const double x0 = p[0][0], y0 = p[0][1], z0 = p[0][2];
        const double x1 = p[1][0] - x0, y1 = p[1][1] - y0, x2 = p[2][0] - x0, y2 = p[2][1] - y0;
        const double area = x1 * y2 - x2 * y1;
        if (!visible || area == 0)
            continue;
        const auto first = [](double a, double b, double d, int end) {
            return static_cast<int>(
                std::clamp(std::ceil(std::min({a, b, d}) - 0.5), 0.0, 1.0 * end));
        };
        const auto last = [](double a, double b, double d, int end) {
            return static_cast<int>(
                std::clamp(std::floor(std::max({a, b, d}) - 0.5), -1.0, end - 1.0));
        };
        const int right = last(p[0][0], p[1][0], p[2][0], wide);
        const int bottom = last(p[0][1], p[1][1], p[2][1], high);
        for (int y = first(p[0][1], p[1][1], p[2][1], high); y <= bottom; ++y)
            for (int x = first(p[0][0], p[1][0], p[2][0], wide); x <= right; ++x) {
                const double dx = x + 0.5 - x0, dy = y + 0.5 - y0;
                const double b = (dx * y2 - x2 * dy) / area, d = (x1 * dy - dx * y1) / area;
                constexpr double rim = -1e-6; // no gaps between neighbours
                if (b < rim || d < rim || b + d > 1 - rim)
                    continue;
                const auto depth = static_cast<float>(z0 + b * (p[1][2] - z0) + d * (p[2][2] - z0));
                const std::size_t sample =
                    static_cast<std::size_t>(y) * wide + static_cast<std::size_t>(x);
                if (!(depth < depths[sample]))
                    continue;
                depths[sample] = depth;
                const double a = 1 - b - d;
                pixels[sample] = {a * c[0]->red + b * c[1]->red + d * c[2]->red,
                                  a * c[0]->green + b * c[1]->green + d * c[2]->green,
                                  a * c[0]->blue + b * c[1]->blue + d * c[2]->blue};
            }
    }
}

Picture Scene::look(const Camera &camera, const std::vector<std::string> &caption) {
    project(camera);
    std::vector<Colour> pixels;
    pixels.reserve(std::size_t{wide} * high);
    for (int y = 0; y < high; ++y)
        pixels.insert(pixels.end(), wide, background(y / samples));
    draw_triangles(pixels);

    Picture picture{width, height, {}};
    picture.rgb.reserve(std::size_t{3} * width * height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            Colour sum = {0, 0, 0};
            for (int k = 0; k < samples * samples; ++k) {
                const Colour &c = pixels[(static_cast<std::size_t>(y) * samples +
                                          static_cast<std::size_t>(k / samples)) *
                                             wide +
                                         static_cast<std::size_t>(x * samples + k % samples)];
                sum = {sum.red + c.red, sum.green + c.green, sum.blue + c.blue};
            }
            constexpr double share = 1.0 / (samples * samples);
            put_pixel(picture, x, y, {sum.red * share, sum.green * share, sum.blue * share});
        }

    // The scale: a bar of slope colours with a number every ten degrees.
    constexpr int margin = 24, line = 20, bar = 225, degrees = 45, bar_height = 12;
    constexpr Colour ink = {58, 52, 66};
    const int left = width - margin - bar, top = height - margin - bar_height - line;
    for (int x = 0; x < bar; ++x)
        for (int y = 0; y < bar_height; ++y)
            put_pixel(picture, left + x, top + y, slope_colour(1.0 * degrees * x / bar));
    for (int label = 0; label <= degrees; label += 15) {
        const std::string text = std::to_string(label) + (label == degrees ? " deg" : "");
        const int centre = left + label * bar / degrees;
        draw_text(picture, label == degrees ? left + bar - text_width("45") : centre,
                  top + bar_height + 6, label == degrees ? "45" : text, ink);
    }
    draw_text(picture, left, top - line, "slope in degrees", ink);
    int y = height - margin - line * static_cast<int>(caption.size()) + line - 14;
    for (const std::string &text : caption) {
        draw_text(picture, margin, y, text, ink);
        y += line;
    }
    return picture;
}

} // namespace terrain
