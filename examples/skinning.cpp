// Skinning: every vertex of a twisted tube moves by the weighted mean of four bones' affine
// transforms. N. Magnenat-Thalmann and others, "Joint-dependent local deformations for hand
// animation and object grasping", 1988.
#include "compare.hpp"

using Affine = Matrix<float, 4, 4>;
using Vertex = Matrix<float, 4, 1>; // the last element is 1

Affine turned(float angle) { // about the third axis
    Affine a = Affine::Identity();
    a(0, 0) = a(1, 1) = std::cos(angle);
    a(1, 0) = std::sin(angle), a(0, 1) = -std::sin(angle);
    return a;
}

int main() {
    const std::size_t count = 20000;
    const std::vector<Affine> bones = {turned(0), turned(0.6f), turned(1.2f), turned(1.8f)};
    std::vector<Affine> blended(count);
    std::vector<Vertex> weights(count), tube(count), moved(count), others(count);
    for (std::size_t n = 0; n < count; ++n) {
        const float angle = float(n % 100), z = float(n) * (3.0f / count);
        tube[n] = Vertex{std::cos(angle), std::sin(angle), z, 1.0f};
        for (int b = 0; b < 4; ++b)
            weights[n](b) = std::fmax(0.0f, 1 - std::abs(z - float(b)));
    }
    const zelm::matrix<const float> bone_rows(&bones[0](0, 0), 4, 16);
    const zelm::matrix<float> blended_rows(&blended[0](0, 0), count, 16);
    const auto zelm_way = [&] {
        zelm::multiply(zelm::matrix(weights), bone_rows, blended_rows).or_throw();
        zelm::multiply(blended, tube, moved).or_throw();
    };
    const auto usual_way = [&] {
        for (std::size_t n = 0; n < count; ++n) {
            const Vertex &w = weights[n];
            const Affine a = w(0) * bones[0] + w(1) * bones[1] + w(2) * bones[2] + w(3) * bones[3];
            others[n] = a * tube[n];
        }
    };
    compare("vertices", zelm_way, usual_way);
    for (std::size_t n = 0; n < count; ++n) {
        // The mean of two points that are turned by 0.6 against one another.
        const float z = tube[n](2), between = z - std::floor(z);
        const float angle = float(n % 100) + 0.6f * std::floor(z);
        const float x = (1 - between) * std::cos(angle) + between * std::cos(angle + 0.6f);
        const float y = (1 - between) * std::sin(angle) + between * std::sin(angle + 0.6f);
        expect(std::abs(moved[n](0) - x) < 1e-5f && std::abs(moved[n](1) - y) < 1e-5f);
        expect(std::abs(moved[n](2) - z) < 1e-5f && std::abs(moved[n](3) - 1) < 1e-6);
    }
    return verdict();
}
