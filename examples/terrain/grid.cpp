#include "grid.hpp"

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstring>
#include <fstream>
#include <stdexcept>

namespace terrain {
namespace {

constexpr double height_limit = 1e5; // metres

[[noreturn]] void fail(const std::string &path, int line, std::size_t column,
                       const std::string &what) {
    throw std::runtime_error(path + ": line " + std::to_string(line) + ", column " +
                             std::to_string(column) + ": " + what);
}

// The text between two commas without the blanks around it, fit to be shown in a message.
std::string shown(std::string text) {
    constexpr std::size_t longest = 20;
    if (text.size() > longest)
        text = text.substr(0, longest) + "...";
    for (char &letter : text)
        if (!std::isprint(static_cast<unsigned char>(letter)))
            letter = '?';
    return "'" + text + "'";
}

void append_row(const std::string &path, int line, const std::string &text,
                std::vector<double> &values) {
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t comma = std::min(text.find(',', start), text.size());
        const std::size_t first = std::min(text.find_first_not_of(" \t\r", start), comma);
        const std::size_t last = comma == first ? first : text.find_last_not_of(" \t\r", comma - 1);
        const std::size_t end = comma == first ? first : last + 1;

        double value = 0;
        const auto [stop, error] = std::from_chars(text.data() + first, text.data() + end, value,
                                                   std::chars_format::general);
        if (first == end)
            fail(path, line, start + 1, "a number is missing");
        if (stop != text.data() + end)
            fail(path, line, first + 1,
                 shown(text.substr(first, end - first)) + " is not a number");
        if (error != std::errc() || !(std::abs(value) <= height_limit))
            fail(path, line, first + 1,
                 shown(text.substr(first, end - first)) + " is not a height within 100 km");
        values.push_back(value);
        start = comma + 1;
    }
}

// The values at `count` control points `step` apart in memory, with one more at either end that
// continues the line through the last two.
std::vector<double> control_points(const double *first, std::ptrdiff_t step, int count) {
    std::vector<double> points(static_cast<std::size_t>(count) + 2);
    for (int i = 0; i < count; ++i)
        points[static_cast<std::size_t>(i) + 1] = first[i * step];
    const std::size_t end = points.size() - 1;
    points[0] = count > 1 ? 2 * points[1] - points[2] : points[1];
    points[end] = count > 1 ? 2 * points[end - 1] - points[end - 2] : points[end - 1];
    return points;
}

void refine_line(const double *source, std::ptrdiff_t source_step, int count, double *destination,
                 std::ptrdiff_t destination_step, int factor) {
    const std::vector<double> points = control_points(source, source_step, count);
    const int refined = static_cast<int>(refined_points(count, factor));
    for (int i = 0; i < refined; ++i) {
        // The last point ends the last span, it does not begin another.
        const int span = std::min(i / factor, std::max(count - 2, 0));
        const double t = (i - span * factor) / static_cast<double>(factor);
        const std::array<double, 4> weight = {(1 - t) * (1 - t) * (1 - t), (3 * t - 6) * t * t + 4,
                                              ((3 - 3 * t) * t + 3) * t + 1, t * t * t};
        double sum = 0;
        for (std::size_t k = 0; k < weight.size(); ++k) {
            const std::size_t point = static_cast<std::size_t>(span) + k;
            sum += weight[k] * points[std::min(point, points.size() - 1)];
        }
        destination[i * destination_step] = sum / 6;
    }
}

} // namespace

Grid read_grid(const std::string &path) {
    std::ifstream file(path);
    if (!file)
        throw std::runtime_error(path + ": " + std::strerror(errno));

    Grid grid;
    std::string text;
    for (int line = 1; std::getline(file, text); ++line) {
        const std::size_t before = grid.values.size();
        append_row(path, line, text, grid.values);
        const std::size_t columns = grid.values.size() - before;
        if (grid.rows == 0)
            grid.columns = static_cast<int>(columns);
        if (columns != static_cast<std::size_t>(grid.columns))
            throw std::runtime_error(path + ": line " + std::to_string(line) + ": has " +
                                     std::to_string(columns) + " numbers, the lines before have " +
                                     std::to_string(grid.columns));
        ++grid.rows;
    }
    if (file.bad())
        throw std::runtime_error(path + ": " + std::strerror(errno));
    return grid;
}

Grid refine(const Grid &grid, int factor) {
    if (factor == 1)
        return grid;

    // First along the rows, then along the columns of the result.
    Grid wide{grid.rows, static_cast<int>(refined_points(grid.columns, factor)), {}};
    wide.values.resize(static_cast<std::size_t>(wide.rows) *
                       static_cast<std::size_t>(wide.columns));
    for (int row = 0; row < grid.rows; ++row)
        refine_line(grid.row(row), 1, grid.columns,
                    wide.values.data() + static_cast<std::ptrdiff_t>(row) * wide.columns, 1,
                    factor);

    Grid fine{static_cast<int>(refined_points(grid.rows, factor)), wide.columns, {}};
    fine.values.resize(static_cast<std::size_t>(fine.rows) *
                       static_cast<std::size_t>(fine.columns));
    for (int column = 0; column < wide.columns; ++column)
        refine_line(wide.values.data() + column, wide.columns, wide.rows,
                    fine.values.data() + column, fine.columns, factor);
    return fine;
}

} // namespace terrain
