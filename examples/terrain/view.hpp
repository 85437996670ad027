#pragma once

#include "fit.hpp"
#include "picture.hpp"

#include <string>
#include <vector>

namespace terrain {

// Where the terrain is seen from: `distance` metres from its middle, `pitch` degrees above the
// horizon, `yaw` degrees from the south towards the east. Distance 0 takes it all in.
struct Camera {
    double yaw = -60;
    double pitch = 34;
    double distance = 0;
};

// The fitted surface as a block of ground with colours, ready to be looked at from anywhere.
class Scene {
public:
    // `spacing` is the distance of the fit's cells in metres.
    Scene(const Fit &fit, double spacing);

    // In perspective, with hidden surfaces removed by a depth buffer; the lines of text and a scale
    // of the slopes below. Adds the time of the projection to seconds().
    Picture look(const Camera &camera, const std::vector<std::string> &caption);

    int points() const { return static_cast<int>(positions_.size() / 3); }
    double seconds() const { return seconds_; }

private:
    struct Triangle {
        int corner[3];
    };
    void add_surface(const Fit &fit, double spacing);
    void add_walls();
    void project(const Camera &camera);
    void draw_triangles(std::vector<Colour> &pixels) const;

    int rows_ = 0;
    int columns_ = 0;
    double radius_ = 0;            // metres, of the ground
    std::vector<float> positions_; // x to the east, y upwards, z to the south, in metres
    std::vector<Colour> colours_;
    std::vector<Triangle> triangles_;
    std::vector<float> projected_; // pixels from the left and the top, depth from 0 to 1
    double seconds_ = 0;
};

} // namespace terrain
