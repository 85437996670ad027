// Slopes of a volcano: fits a quadratic surface around every point of a grid of heights, with
// zelmMul and a decomposition (LU, Cholesky or QR) on arrays, and shows them in perspective, with
// the builders and transforms of the 3D set. The use of the library is in fit.cpp and view.cpp.

#include "fit.hpp"
#include "grid.hpp"
#include "picture.hpp"
#include "progress.hpp"
#include "view.hpp"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <exception>
#include <filesystem>
#include <limits>
#include <memory>
#include <new>
#include <numbers>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr double grid_spacing = 10;     // metres
constexpr double rounding_noise = 0.29; // metres, the standard deviation of rounding to whole ones
constexpr int most_whole = 1000;
constexpr double flat = 0.003;              // 1/m, a third of a kilometre of radius is straight
constexpr long long most_cells = 1'300'000; // a cell takes about 2.3 kB

// A solve with a residual beyond so many epsilon is wrong.
constexpr double residual_limit = 10;
constexpr double epsilon = std::numeric_limits<double>::epsilon();

constexpr const char *usage =
    "Usage: terrain [OPTION]...\n"
    "\n"
    "Fits a quadratic surface to the 5 x 5 heights around every inner point of a grid\n"
    "and draws it in perspective, coloured by slope.\n"
    "\n"
    "  --input FILE      heights in metres, 10 m apart, a line per row, commas between\n"
    "                    them; the first row is the southern edge, the first number of\n"
    "                    a row the eastern one (default: Maunga Whau, Auckland)\n"
    "  --output FILE     the picture, a PNG (default: terrain.png)\n"
    "  --map FILE        a map of the slopes as well\n"
    "  --yaw DEGREES     seen from the south (0), east (90) ... (default: -60)\n"
    "  --pitch DEGREES   seen from so far above the horizon, -89 to 89 (default: 34)\n"
    "  --distance METRES seen from so far (default: all of it in view)\n"
    "  --turntable N     once around in N pictures: terrain-000.png ...\n"
    "  --refine N        work on a grid that is N times finer in both directions; 14\n"
    "                    makes a million points of the default grid (about 2.4 GB)\n"
    "  --solver NAME     what solves the systems: lu (default), cholesky or qr\n"
    "  --forms           colour the map by form (peak, ridge, saddle, valley, pit)\n"
    "  --help            this text\n";

struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct Options {
    std::string input = TERRAIN_DEFAULT_INPUT;
    std::string output = "terrain.png";
    std::string map;
    terrain::Camera camera;
    int turntable = 0; // pictures
    int refine = 1;
    terrain::Solver solver = terrain::Solver::lu;
    bool forms = false;
    bool help = false;
};

int parse_whole(const std::string &name, const std::string &text) {
    int number = 0;
    const char *end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end || number < 1 || number > most_whole)
        throw UsageError(name + " takes a whole number from 1 to " + std::to_string(most_whole) +
                         ", not '" + text + "'");
    return number;
}

double parse_number(const std::string &name, const std::string &text, double least, double most) {
    double number = 0;
    const char *end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end || !(number >= least && number <= most)) {
        char limits[64];
        std::snprintf(limits, sizeof limits, " takes a number from %g to %g, not '", least, most);
        throw UsageError(name + limits + text + "'");
    }
    return number;
}

terrain::Solver parse_solver(const std::string &text) {
    const auto &names = terrain::solver_names;
    const auto found = std::find(names.begin(), names.end(), text);
    if (found == names.end())
        throw UsageError("--solver takes lu, cholesky or qr, not '" + text + "'");
    return static_cast<terrain::Solver>(found - names.begin());
}

// Takes both "--name value" and "--name=value".
Options parse(int argc, char **argv) {
    Options options;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        const std::size_t equals = argument.find('=');
        const std::string name = argument.substr(0, equals);
        const auto value = [&]() -> std::string {
            if (equals != std::string::npos)
                return argument.substr(equals + 1);
            if (i + 1 == argc)
                throw UsageError(name + " needs a value");
            return argv[++i];
        };
        if (argument == "--help")
            options.help = true;
        else if (argument == "--forms")
            options.forms = true;
        else if (name == "--input")
            options.input = value();
        else if (name == "--output")
            options.output = value();
        else if (name == "--refine")
            options.refine = parse_whole(name, value());
        else if (name == "--map")
            options.map = value();
        else if (name == "--yaw")
            options.camera.yaw = parse_number(name, value(), -360, 360);
        else if (name == "--pitch")
            options.camera.pitch = parse_number(name, value(), -89, 89);
        else if (name == "--distance")
            options.camera.distance = parse_number(name, value(), 1, 1e6);
        else if (name == "--turntable")
            options.turntable = parse_whole(name, value());
        else if (name == "--solver")
            options.solver = parse_solver(value());
        else
            throw UsageError("unknown option '" + argument + "'");
    }
    return options;
}

terrain::Grid read_checked(const Options &options) {
    terrain::Grid grid = terrain::read_grid(options.input);
    const std::string size = std::to_string(grid.rows) + " rows of " + std::to_string(grid.columns);
    if (grid.rows < terrain::side || grid.columns < terrain::side)
        throw std::runtime_error(options.input + ": " + size +
                                 " heights are too few, a fit needs 5 rows of 5");
    const long long cells =
        terrain::cell_count(terrain::refined_points(grid.rows, options.refine),
                            terrain::refined_points(grid.columns, options.refine));
    if (cells > most_cells)
        throw std::runtime_error(
            options.input + ": " + size + " heights, refined by " + std::to_string(options.refine) +
            ", make " + std::to_string(cells) + " cells, more than " + std::to_string(most_cells));
    return grid;
}

using File = std::unique_ptr<std::FILE, int (*)(std::FILE *)>;

// Opened before the computation, so that a long one is not in vain.
File open_output(const Options &options, const std::string &path) {
    std::error_code ignored;
    if (std::filesystem::equivalent(options.input, path, ignored))
        throw std::runtime_error(path + ": is the input as well");
    File file(std::fopen(path.c_str(), "wb"), std::fclose);
    if (!file)
        throw std::runtime_error(path + ": " + std::strerror(errno));
    return file;
}

// terrain.png becomes terrain-007.png.
std::string numbered(const std::string &path, int number) {
    const std::filesystem::path whole(path);
    std::string digits = std::to_string(number);
    digits.insert(0, digits.size() < 3 ? 3 - digits.size() : 0, '0');
    return (whole.parent_path() / whole.stem()).string() + "-" + digits +
           whole.extension().string();
}

void write_picture(const terrain::Picture &picture, std::FILE *file, const std::string &path) {
    terrain::write_png(picture, file, path);
    std::printf("picture     %s, %d x %d pixels\n", path.c_str(), picture.width, picture.height);
}

// With numbers that stay the same from one picture of a turntable to the next.
std::vector<std::string> caption(const std::string &input, const terrain::Fit &fit) {
    const int cells = fit.height.rows * fit.height.columns;
    const double systems = static_cast<double>(cells) * terrain::iterations;
    char text[2][96];
    std::snprintf(text[0], sizeof text[0], "%d surfaces fitted, %.0f systems of order 6", cells,
                  systems);
    std::snprintf(text[1], sizeof text[1], "%.2f million systems solved per second",
                  systems / (fit.decomposition_seconds + fit.solve_seconds) / 1e6);
    return {std::filesystem::path(input).stem().string() + ", drawn 1.5 times as high", text[0],
            text[1]};
}

void show(const Options &options, const terrain::Fit &fit, double spacing, File output) {
    terrain::Scene scene(fit, spacing);
    std::vector<std::string> lines = caption(options.input, fit);
    lines.push_back(std::to_string(scene.points()) + " points projected");
    if (options.turntable == 0) {
        write_picture(scene.look(options.camera, lines), output.get(), options.output);
    } else {
        terrain::Progress progress(true);
        for (int k = 0; k < options.turntable; ++k) {
            progress.show(static_cast<double>(k) / options.turntable, "turntable");
            terrain::Camera camera = options.camera;
            camera.yaw += 360.0 * k / options.turntable;
            const std::string path = numbered(options.output, k);
            const File file = open_output(options, path);
            terrain::write_png(scene.look(camera, lines), file.get(), path);
        }
        progress.show(1, "turntable");
    }
    const int looks = std::max(options.turntable, 1);
    std::printf("projection  %d points through three matrices, %.0f million per second\n",
                scene.points(), scene.points() * 1.0 * looks / scene.seconds() / 1e6);
}

void report_fit(const terrain::Fit &fit) {
    const int cells = fit.height.rows * fit.height.columns;
    const double systems = static_cast<double>(cells) * terrain::iterations;
    const double library = fit.product_seconds + fit.decomposition_seconds + fit.solve_seconds +
                           fit.residual_seconds + fit.extract_seconds;
    const double all = library + fit.weigh_seconds;
    std::printf("cells       %d, %d iterations, %.0f systems of order 6\n", cells,
                terrain::iterations, systems);
    std::printf("speed       %.2f million systems solved per second (decomposition and solution)\n",
                systems / (fit.decomposition_seconds + fit.solve_seconds) / 1e6);
    std::printf("fit         %.1f ms without the check, %.0f %% of it in the library:\n"
                "            normal equations %.1f ms, decompositions %.1f ms, solutions %.1f ms,\n"
                "            residuals %.1f ms\n",
                1e3 * all, 100 * library / all, 1e3 * fit.product_seconds,
                1e3 * fit.decomposition_seconds, 1e3 * fit.solve_seconds,
                1e3 * fit.residual_seconds);
    std::printf("weights     %.1f %% of the heights count less than fully\n",
                100 * fit.reduced_share);
    std::printf("check       |b - A x| / (|A| |x|) is at most %.2g in all solves, %.1f epsilon\n",
                fit.largest_residual, fit.largest_residual / epsilon);
}

void report_solvers(const terrain::Fit &fit) {
    std::printf("solvers     one iteration by");
    for (std::size_t s = 0; s < fit.solver_seconds.size(); ++s)
        std::printf("%s %s %.1f ms", s == 0 ? "" : ",", terrain::solver_names[s].data(),
                    1e3 * fit.solver_seconds[s]);
    const auto fastest = std::min_element(fit.solver_seconds.begin(), fit.solver_seconds.end());
    std::printf(": %s is fastest;\n            their heights differ by %.2g m at most\n",
                terrain::solver_names[std::size_t(fastest - fit.solver_seconds.begin())].data(),
                fit.largest_difference);
}

void report_slopes(const terrain::Fit &fit) {
    double sum = 0;
    double least = std::numeric_limits<double>::infinity();
    double most = 0;
    for (std::size_t i = 0; i < fit.height.values.size(); ++i) {
        const double rise = std::hypot(fit.rise_by_row.values[i], fit.rise_by_column.values[i]);
        const double degrees = std::atan(rise) * 180 / std::numbers::pi;
        sum += degrees;
        least = std::min(least, degrees);
        most = std::max(most, degrees);
    }
    std::printf("slopes      %.1f to %.1f degrees, %.1f on average\n", least, most,
                sum / static_cast<double>(fit.height.values.size()));
}

void report_forms(const terrain::Curvature &curvature) {
    const auto [least, any] = std::minmax_element(curvature.least.begin(), curvature.least.end());
    const auto most = std::max_element(curvature.most.begin(), curvature.most.end());
    static_cast<void>(any);
    std::printf("curvature   %.3g to %.3g per metre, found in %.1f ms;", *least, *most,
                1e3 * curvature.seconds);
    for (std::size_t form = 0; form < terrain::form_names.size(); ++form)
        std::printf("%s %s %.1f %%", form == 0 ? "\n           " : ",", terrain::form_names[form],
                    100 * curvature.share(static_cast<terrain::Form>(form)));
    std::printf("\n");
}

void run(const Options &options) {
    const terrain::Grid measured = read_checked(options);
    File output(nullptr, std::fclose);
    if (options.turntable == 0)
        output = open_output(options, options.output);
    const File map =
        options.map.empty() ? File(nullptr, std::fclose) : open_output(options, options.map);
    const terrain::Grid grid = terrain::refine(measured, options.refine);
    const double spacing = grid_spacing / options.refine;
    std::printf("grid        %d x %d heights, %.3g m apart\n", grid.rows, grid.columns, spacing);
    std::fflush(stdout);

    // The rounding errors are refined with the heights. Of the cubic pieces of the spline a
    // quadratic surface misses the cubic part, which falls with the third power of the spacing.
    const double noise = rounding_noise / std::pow(options.refine, 3);
    const terrain::Fit fit = [&] {
        terrain::Progress progress(options.refine > 1);
        return terrain::fit_surfaces(grid, spacing, noise, options.solver, progress);
    }();
    report_fit(fit);
    if (!(fit.largest_residual <= residual_limit * epsilon))
        throw std::runtime_error("the solutions are not accurate");
    report_solvers(fit);
    report_slopes(fit);

    const terrain::Curvature curvature = terrain::find_curvature(fit, flat);
    report_forms(curvature);

    if (map)
        write_picture(terrain::draw(fit, spacing, options.forms ? &curvature : nullptr), map.get(),
                      options.map);
    show(options, fit, spacing, std::move(output));
    if (std::fflush(stdout) != 0)
        throw std::runtime_error(std::string("standard output: ") + std::strerror(errno));
}

} // namespace

int main(int argc, char **argv) {
    try {
        const Options options = parse(argc, argv);
        if (options.help)
            std::fputs(usage, stdout);
        else
            run(options);
        return 0;
    } catch (const UsageError &error) {
        std::fprintf(stderr, "terrain: %s\nTry terrain --help.\n", error.what());
        return 2;
    } catch (const std::bad_alloc &) {
        std::fprintf(stderr, "terrain: not enough memory, a smaller --refine may help\n");
    } catch (const std::exception &error) {
        std::fprintf(stderr, "terrain: %s\n", error.what());
    }
    return 1;
}
