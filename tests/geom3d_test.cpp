// The fixed-size 3D set: every member against a reference that rounds as the formulas say, in
// memory that ends at inaccessible pages; what its users expect of the matrices; its failures.

#include "support/problem.hpp"
#include "support/results.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <map>
#include <numbers>
#include <random>
#include <span>

using namespace zelm_test;

namespace {

using Floats = std::vector<float>;
using Matrix = std::array<float, 16>;
constexpr float nan = std::numeric_limits<float>::quiet_NaN();
constexpr float infinite = std::numeric_limits<float>::infinity();

bool same_floats(const Floats &a, const Floats &b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](float x, float y) { return same(x, y); });
}

// ---- the reference ----

float dot(const float *a, const float *b, std::size_t n) {
    float sum = a[0] * b[0];
    for (std::size_t i = 1; i < n; ++i)
        sum += a[i] * b[i];
    return sum;
}
Floats normalized(Floats v) {
    const float length = std::sqrt(dot(v.data(), v.data(), v.size()));
    for (float &x : v)
        x = x / length;
    return v;
}
Floats cross(const Floats &a, const Floats &b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}
Floats cross4(const Floats &a, const Floats &b, const Floats &c) {
    const auto m = [&](std::size_t i, std::size_t j) { return b[i] * c[j] - b[j] * c[i]; };
    return {a[1] * m(2, 3) - a[2] * m(1, 3) + a[3] * m(1, 2),
            0 - (a[0] * m(2, 3) - a[2] * m(0, 3) + a[3] * m(0, 2)),
            a[0] * m(1, 3) - a[1] * m(0, 3) + a[3] * m(0, 1),
            0 - (a[0] * m(1, 2) - a[1] * m(0, 2) + a[2] * m(0, 1))};
}
float hermite(float p1, float t1, float p2, float t2, float s) {
    const float square = s * s, cube = square * s;
    const double s1 = s, s2 = square, s3 = cube;
    const float w1 = static_cast<float>(((s1 - s2) - s2) + s3);
    const float wp = static_cast<float>((s3 - 3 * s2) + s3), w2 = static_cast<float>(s3 - s2);
    return (p1 - p2) * wp + ((p1 + t1 * w1) + t2 * w2);
}
Floats multiplied(const Floats &a, const Floats &b) {
    Floats c(16);
    for (std::size_t i = 0; i < 4; ++i)
        for (std::size_t j = 0; j < 4; ++j) {
            float sum = a[4 * i] * b[j];
            for (std::size_t k = 1; k < 4; ++k)
                sum += a[4 * i + k] * b[4 * k + j];
            c[4 * i + j] = sum;
        }
    return c;
}
Floats transposed(const Floats &a) {
    Floats b(16);
    for (std::size_t i = 0; i < 16; ++i)
        b[i % 4 * 4 + i / 4] = a[i];
    return b;
}
Floats look(const Floats &eye, const Floats &from, const Floats &to, const Floats &up) {
    const Floats z = normalized({to[0] - from[0], to[1] - from[1], to[2] - from[2]});
    const Floats x = normalized(cross(up, z)), y = cross(z, x);
    Floats m(16);
    for (std::size_t i = 0; i < 3; ++i) {
        const float *const axis = std::array{x.data(), y.data(), z.data()}[i];
        for (std::size_t r = 0; r < 3; ++r)
            m[4 * r + i] = axis[r];
        m[12 + i] = 0 - dot(axis, eye.data(), 3);
    }
    m[15] = 1;
    return m;
}
Floats about_axis(const Floats &axis, float angle) {
    const Floats u = normalized(axis);
    const float x = u[0], y = u[1], z = u[2], s = std::sin(angle), c = std::cos(angle), t = 1 - c;
    return {t * x * x + c,
            t * y * x + s * z,
            t * z * x - s * y,
            0,
            t * x * y - s * z,
            t * y * y + c,
            y * (t * z) + s * x,
            0,
            s * y + t * x * z,
            t * y * z - s * x,
            c + z * (t * z),
            0,
            0,
            0,
            0,
            1};
}
Floats yaw_pitch_roll(float yaw, float pitch, float roll) {
    const float sy = std::sin(yaw), cy = std::cos(yaw), sp = std::sin(pitch), cp = std::cos(pitch);
    const float sr = std::sin(roll), cr = std::cos(roll);
    return {sy * sp * sr + cy * cr,
            cp * sr,
            cy * sp * sr - sy * cr,
            0,
            sy * sp * cr - cy * sr,
            cp * cr,
            sy * sr + cy * sp * cr,
            0,
            sy * cp,
            0 - sp,
            cy * cp,
            0,
            0,
            0,
            0,
            1};
}
// l r b t n f of the projections; the depth row and column differ by hand.
Floats projection(const std::string &name, std::span<const float> v) {
    const bool left = name.ends_with("LH"), ortho = name.starts_with("Ortho");
    const bool window = name.find("OffCenter") != std::string::npos;
    const float n = v[window ? 4 : 2], f = v[window ? 5 : 3];
    float m00, m11, a = 0, b = 0;
    const float unit = ortho ? 2 : n + n;
    if (window) {
        const float width = v[1] - v[0], height = v[3] - v[2];
        const bool negative = left || ortho;
        m00 = unit / width;
        m11 = unit / height;
        a = (v[0] + v[1]) / (negative ? 0 - width : width);
        b = (v[2] + v[3]) / (negative ? 0 - height : height);
    } else if (name.find("Fov") != std::string::npos) {
        m11 = std::cos(v[0] * 0.5f) / std::sin(v[0] * 0.5f);
        m00 = m11 / v[1];
    } else {
        m00 = unit / v[0];
        m11 = unit / v[1];
    }
    const float m22 = (ortho ? 1 : f) / (left ? f - n : n - f);
    const float top = ortho ? n : n * f;
    const float m32 = name == "PerspectiveFovLH" ? (0 - n * f) / (f - n)
                      : left                     ? top / (0 - (f - n))
                                                 : top / (n - f);
    if (ortho)
        return {m00, 0, 0, 0, 0, m11, 0, 0, 0, 0, m22, 0, a, b, m32, 1};
    return {m00, 0, 0, 0, 0, m11, 0, 0, a, b, m22, left ? 1.f : -1.f, 0, 0, m32, 0};
}
Floats affine(const std::string &operation, const Floats &m, const Floats &p) {
    const auto at = [&](std::size_t j) {
        const float x = p[0] * m[j], y = p[1] * m[4 + j], t = m[12 + j];
        const float z = p.size() > 2 ? p[2] * m[8 + j] : 0;
        if (operation == "AffineTransform")
            return p.size() == 2   ? (x + y) + t
                   : p.size() == 3 ? ((x + y) + z) + t
                                   : (x + y) + (z + p[3] * t);
        if (operation == "AffineTransformCoord")
            return p.size() == 2 ? (x + t) + y : (t + z) + (x + y);
        return p.size() == 2 ? x + y : (x + y) + z;
    };
    Floats h = {at(0), at(1), at(2), at(3)};
    if (operation == "AffineTransformCoord")
        h = {h[0] / h[3], h[1] / h[3], h[2] / h[3], 1};
    h.resize(operation == "AffineTransform" ? 4 : p.size());
    return h;
}
Floats projected(const std::vector<Floats> &in, std::span<const float> v) {
    Floats q = {in[3][0], in[3][1], in[3][2], 1};
    for (const std::size_t matrix : {2u, 1u, 0u})
        q = affine("AffineTransform", in[matrix], q);
    return {v[0] * 0.5f + v[0] * 0.5f * (q[0] / q[3]),
            v[1] * 0.5f + (0 - v[1] * 0.5f) * (q[1] / q[3]), v[2] + (v[3] - v[2]) * (q[2] / q[3])};
}

// Of the sources in the order of the arguments and the values; empty where there is no exact one.
Floats reference(const FixedMember &m, const std::vector<Floats> &in, std::span<const float> v) {
    const std::string &op = m.operation;
    const auto each = [&](auto f) {
        Floats result;
        for (std::size_t i = 0; i < in[0].size(); ++i)
            result.push_back(f(i));
        return result;
    };
    if (op == "Add")
        return each([&](auto i) { return in[0][i] + in[1][i]; });
    if (op == "Sub")
        return each([&](auto i) { return in[0][i] - in[1][i]; });
    if (op == "Min")
        return each([&](auto i) { return in[0][i] < in[1][i] ? in[0][i] : in[1][i]; });
    if (op == "Max")
        return each([&](auto i) { return in[0][i] > in[1][i] ? in[0][i] : in[1][i]; });
    if (op == "MulC")
        return each([&](auto i) { return in[0][i] * v[0]; });
    if (op == "LenSqr")
        return {dot(in[0].data(), in[0].data(), in[0].size())};
    if (op == "Len")
        return {std::sqrt(dot(in[0].data(), in[0].data(), in[0].size()))};
    if (op == "Normalize")
        return normalized(in[0]);
    if (op == "DotProduct")
        return {dot(in[0].data(), in[1].data(), in[0].size())};
    if (op == "CrossProduct")
        return m.kind == "v2"   ? Floats{in[0][0] * in[1][1] - in[0][1] * in[1][0]}
               : m.kind == "v3" ? cross(in[0], in[1])
                                : cross4(in[0], in[1], in[2]);
    if (op == "InterpolationLinear")
        return each([&](auto i) { return in[0][i] + (in[1][i] - in[0][i]) * v[0]; });
    if (op == "BaryCentric")
        return each([&](auto i) {
            return ((in[1][i] - in[0][i]) * v[0] + in[0][i]) + (in[2][i] - in[0][i]) * v[1];
        });
    if (op == "Hermite")
        return each([&](auto i) { return hermite(in[0][i], in[1][i], in[2][i], in[3][i], v[0]); });
    if (op == "InterpolationCatmullRom")
        return each([&](auto i) {
            return hermite(in[1][i], (in[2][i] - in[0][i]) * 0.5f, in[2][i],
                           (in[3][i] - in[1][i]) * 0.5f, v[0]);
        });
    if (op == "Identity")
        return {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    if (op == "IsIdentity")
        return {0}; // the integer 0 has the bits of the float
    if (op == "Translation")
        return {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, v[0], v[1], v[2], 1};
    if (op == "Scaling")
        return {v[0], 0, 0, 0, 0, v[1], 0, 0, 0, 0, v[2], 0, 0, 0, 0, 1};
    if (op.size() == 9 && op.starts_with("Rotation")) {
        const float s = std::sin(v[0]), c = std::cos(v[0]);
        return op == "RotationX"   ? Floats{1, 0, 0, 0, 0, c, s, 0, 0, 0 - s, c, 0, 0, 0, 0, 1}
               : op == "RotationY" ? Floats{c, 0, 0 - s, 0, 0, 1, 0, 0, s, 0, c, 0, 0, 0, 0, 1}
                                   : Floats{c, s, 0, 0, 0 - s, c, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    }
    if (op == "RotationAxis")
        return about_axis(in[0], v[0]);
    if (op == "RotationYawPitchRoll")
        return yaw_pitch_roll(v[0], v[1], v[2]);
    if (op == "LookAtLH")
        return look(in[0], in[0], in[1], in[2]);
    if (op == "LookAtRH")
        return look(in[0], in[1], in[0], in[2]);
    if (op.starts_with("Perspective") || op.starts_with("Ortho"))
        return projection(op, v);
    if (op == "Transpose")
        return transposed(in[0]);
    if (op == "MulTranspose")
        return transposed(multiplied(in[0], in[1]));
    if (op == "Mul")
        return multiplied(in[0], in[1]);
    if (op.starts_with("Affine"))
        return affine(op, in[0], in[1]);
    if (op == "Project")
        return projected(in, v);
    return {};
}

// ---- calls ----

// One call of a member in memory of exactly the size of its operands.
class Call {
public:
    Call(const FixedMember &m, Edge edge) : member(m) {
        for (const auto &p : m.parameters) {
            slots.emplace_back();
            if (p.sort != 'p')
                continue;
            // Integers are int objects of the caller's and so aligned.
            const Edge own = p.name == "pResult" && edge == Edge::odd ? Edge::last : edge;
            blocks.push_back(std::make_unique<GuardedBytes>(std::size_t(p.floats) * 4, own));
            sizes.push_back(std::size_t(p.floats));
            is_source.push_back(!among(p.name, "pDst pDet pResult"));
            slots.back().pointer = blocks.back()->data();
        }
    }
    void fill(unsigned seed, bool special) {
        std::mt19937 random(seed);
        const std::array specials = {nan, infinite, -infinite, 0.f, -0.f, 1e-44f, 3e38f};
        const auto value = [&] {
            return special && random() % 4 == 0
                       ? specials[random() % specials.size()]
                       : std::ldexp(static_cast<float>(random() >> 8) - 0x1p23f, -23);
        };
        std::size_t block = 0;
        for (std::size_t k = 0; k < slots.size(); ++k)
            if (member.parameters[k].sort == 'r')
                slots[k].real = value();
            else if (member.parameters[k].sort == 'p') {
                for (std::size_t i = 0; i < sizes[block]; ++i) {
                    const float x = value();
                    if (is_source[block])
                        std::memcpy(blocks[block]->data() + 4 * i, &x, 4);
                }
                ++block;
            }
    }
    Floats floats(std::size_t block) const {
        Floats values(sizes[block]);
        std::memcpy(values.data(), blocks[block]->data(), sizes[block] * 4);
        return values;
    }
    std::vector<Floats> sources() const {
        std::vector<Floats> all;
        for (std::size_t k = 0; k < blocks.size(); ++k)
            if (is_source[k])
                all.push_back(floats(k));
        return all;
    }
    Floats values() const {
        Floats all;
        for (std::size_t k = 0; k < slots.size(); ++k)
            if (member.parameters[k].sort == 'r')
                all.push_back(static_cast<float>(slots[k].real));
        return all;
    }
    std::vector<std::byte> image() const { // but for the elements of the last operand
        std::vector<std::byte> bytes;
        for (std::size_t k = 0; k < blocks.size(); ++k) {
            const auto at = static_cast<std::size_t>(blocks[k]->data() - blocks[k]->begin());
            std::vector<std::byte> own(blocks[k]->begin(), blocks[k]->begin() + blocks[k]->size());
            if (k + 1 == blocks.size())
                std::fill_n(own.begin() + std::ptrdiff_t(at), 4 * sizes[k], std::byte{0});
            bytes.insert(bytes.end(), own.begin(), own.end());
        }
        return bytes;
    }
    std::size_t last() const { return blocks.size() - 1; }

    const FixedMember &member;
    std::vector<Slot> slots;
    std::vector<std::unique_ptr<GuardedBytes>> blocks;
    std::vector<std::size_t> sizes; // in floats
    std::vector<bool> is_source;
};

const FixedMember &fixed(const std::string &name) {
    for (const FixedMember &m : fixed_members())
        if (m.name == "zelm" + name)
            return m;
    throw std::logic_error("no member " + name);
}

bool has_reference(const FixedMember &m) {
    return !m.is_array() && !among(m.operation, "Det Invert Unproject");
}

TEST(Geometry, EveryMemberAgreesBitForBit) {
    for (const FixedMember *member : those(fixed_members(), 74, has_reference))
        for (unsigned step = 0; step < 60; ++step) {
            const FixedMember &m = *member;
            Call call(m, static_cast<Edge>(step % 3));
            call.fill(step, step >= 20);
            const Floats expected = reference(m, call.sources(), call.values());
            const auto before = call.image();
            ASSERT_EQ(m.call(call.slots), 0) << m.name;
            ASSERT_TRUE(same_floats(call.floats(call.last()), expected))
                << m.name << " step " << step << ": " << ::testing::PrintToString(expected)
                << " but " << ::testing::PrintToString(call.floats(call.last()));
            ASSERT_TRUE(call.image() == before) << m.name << " has changed what it must not";
        }
}

TEST(Geometry, TheDestinationMayBeASource) {
    for (const FixedMember *member :
         those(fixed_members(), 77, std::not_fn(&FixedMember::is_array)))
        for (unsigned step = 0; step < 4; ++step) {
            const FixedMember &m = *member;
            Call call(m, Edge::last);
            call.fill(step, false);
            m.call(call.slots);
            const Floats expected = call.floats(call.last());
            for (std::size_t k = 0; k < call.last(); ++k) {
                if (!call.is_source[k] || call.sizes[k] != expected.size())
                    continue;
                const Floats source = call.floats(k);
                Call again(m, Edge::last);
                again.fill(step, false);
                for (Slot &slot : again.slots)
                    if (slot.pointer == again.blocks[again.last()]->data())
                        slot.pointer = again.blocks[k]->data();
                ASSERT_EQ(m.call(again.slots), 0);
                EXPECT_TRUE(same_floats(again.floats(k), expected)) << m.name << " source " << k;
            }
        }
}

// ---- arrays ----

// Places for the source and the destination in one block, so that they may overlap, in bytes.
struct Places {
    int source, source_stride, destination, destination_stride;
};

// The array form against the single one, point by point in ascending order.
void compare_with_singles(const FixedMember &m, const Places &at, int count) {
    const std::string name = m.name.substr(0, m.name.find("a_32f")).substr(4) + "_32f";
    const FixedMember &one = fixed(name);
    constexpr int size = 4096;
    std::vector<std::byte> memory[2] = {std::vector<std::byte>(size), {}};
    const auto element = [&](int n, int i) { return at.source + n * at.source_stride + 4 * i; };
    Call call(one, Edge::last);
    call.fill(unsigned(count), false);
    std::mt19937 random(5);
    for (int k = 0; k < size; k += 4) {
        const float x = std::ldexp(static_cast<float>(random() >> 8) - 0x1p23f, -23);
        std::memcpy(&memory[0][std::size_t(k)], &x, 4);
    }
    if (at.source % 4 != 0 || at.source_stride % 4 != 0)
        for (int n = 0; n < count; ++n)
            for (int i = 0; i < 4; ++i) {
                const float x = static_cast<float>(n * 5 + i);
                std::memcpy(&memory[0][std::size_t(element(n, i))], &x, 4);
            }
    memory[1] = memory[0];

    std::vector<Slot> slots;
    for (std::size_t k = 0, own = 0; k < m.parameters.size(); ++k) {
        const std::string &parameter = m.parameters[k].name;
        const int integer = parameter == "count"       ? count
                            : parameter == "srcStride" ? at.source_stride
                                                       : at.destination_stride;
        slots.push_back(m.parameters[k].sort == 'i' ? Slot{nullptr, integer} : call.slots[own++]);
        if (parameter == "pSrc")
            slots.back().pointer = &memory[0][std::size_t(at.source)];
        if (parameter == "pDst")
            slots.back().pointer = &memory[0][std::size_t(at.destination)];
    }
    ASSERT_EQ(m.call(slots), 0) << m.name;
    for (int n = 0; n < count; ++n) {
        for (std::size_t k = 0; k < one.parameters.size(); ++k)
            if (one.parameters[k].name == "pSrc")
                call.slots[k].pointer = &memory[1][std::size_t(at.source + n * at.source_stride)];
            else if (one.parameters[k].name == "pDst")
                call.slots[k].pointer =
                    &memory[1][std::size_t(at.destination + n * at.destination_stride)];
        one.call(call.slots);
    }
    ASSERT_TRUE(memory[0] == memory[1])
        << m.name << " source " << at.source << " by " << at.source_stride << " destination "
        << at.destination << " by " << at.destination_stride << " count " << count;
}

TEST(Geometry, ArraysAreSinglesInAscendingOrder) {
    constexpr Places places[] = {
        {0, 12, 2048, 12},      {0, 16, 2048, 16},    {0, 32, 2048, 20},    {4, 8, 2048, 32},
        {1, 13, 2051, 19},      {2, 17, 2049, 16},    {900, -12, 2048, 16}, {900, -16, 3900, -16},
        {0, 0, 2048, 16},       {0, 12, 2048, 0},     {0, 4, 2048, 4},      {64, 16, 64, 16},
        {64, 20, 64, 20},       {900, -16, 900, -16}, {64, 12, 64, 12},     {64, 8, 64, 8},
        {64, 0, 64, 0},         {64, 16, 80, 16},     {80, 16, 64, 16},     {64, 16, 96, 16},
        {64, 16, 72, 16},       {64, 12, 64, 16},     {64, 16, 64, 12},     {64, 16, 512, -16},
        {512, -16, 64, 16},     {600, -12, 612, -12}, {64, 32, 80, 32},     {80, 32, 64, 32},
        {64, 24, 64, -16 + 32}, {500, -4, 480, 12},
    };
    for (const FixedMember *m : those(fixed_members(), 9, &FixedMember::is_array))
        for (const Places &at : places)
            for (const int count : {-1, 0, 1, 2, 3, 4, 5, 7, 8, 13, 20})
                compare_with_singles(*m, at, count);
}

// Both ends of both arrays at inaccessible pages, the points packed and apart, forward and back.
// What lies between the points is compared above, or inaccessible where they are 1 GiB apart.
TEST(Geometry, ArraysTouchTheirPointsAlone) {
    constexpr int gaps[] = {0, 4, 1 << 30};
    for (const FixedMember *member : those(fixed_members(), 9, &FixedMember::is_array))
        for (int step = 0; step < 144; ++step) {
            const FixedMember &m = *member;
            const auto edge = static_cast<Edge>(step % 3);
            const int count = step / 3 % 8 + 1, gap = gaps[step / 24 % 3];
            const bool backwards = step / 72 == 1;
            Call call(m, Edge::last);
            call.fill(unsigned(step), false);
            std::vector<std::unique_ptr<GuardedBytes>> blocks;
            for (std::size_t k = 0; k < m.parameters.size(); ++k) {
                const auto &p = m.parameters[k];
                const int bytes = p.floats * 4, stride = bytes + gap;
                const auto extent = std::ptrdiff_t{stride} * (count - 1) + bytes;
                if (p.name == "pSrc" || p.name == "pDst") {
                    blocks.push_back(
                        std::make_unique<GuardedBytes>(static_cast<std::size_t>(extent), edge));
                    for (int n = 0; n < count; ++n)
                        blocks.back()->open(blocks.back()->data() + std::ptrdiff_t{stride} * n,
                                            bytes);
                    call.slots[k].pointer =
                        blocks.back()->data() + (backwards ? extent - bytes : 0);
                    call.slots[k + 1].integer = backwards ? -stride : stride;
                }
                if (p.name == "count")
                    call.slots[k].integer = count;
            }
            ASSERT_EQ(m.call(call.slots), 0) << m.name;
        }
}

// ---- what users expect ----

template <class Builder, class... A>
Floats built(Builder builder, A... arguments) {
    Floats m(16, nan);
    EXPECT_EQ(builder(m.data(), arguments...), 0);
    return m;
}
Floats view(decltype(zelmLookAtLH_m4_32f) function) {
    const float eye[] = {3, 4, 5}, at[] = {-1, 2, 0.5f}, up[] = {0, 1, 0};
    Floats m(16);
    function(eye, at, up, m.data());
    return m;
}
Floats through(const Floats &m, Floats p) {
    Floats result(3);
    zelmAffineTransformCoord_m4v3_32f(m.data(), p.data(), result.data());
    return result;
}
void near(const Floats &a, const Floats &b, float tolerance, const std::string &what) {
    for (std::size_t i = 0; i < a.size(); ++i)
        EXPECT_NEAR(a[i], b[i], tolerance) << what << " element " << i;
}

TEST(Geometry, ProjectionsPutNearAt0AndFarAt1AndMirrorEachOther) {
    const float n = 0.5f, f = 20;
    struct {
        const char *name;
        Floats left, right;
    } const pairs[] = {
        {"Perspective", built(zelmPerspectiveLH_m4_32f, 2.f, 1.f, n, f),
         built(zelmPerspectiveRH_m4_32f, 2.f, 1.f, n, f)},
        {"PerspectiveFov", built(zelmPerspectiveFovLH_m4_32f, 1.2f, 1.5f, n, f),
         built(zelmPerspectiveFovRH_m4_32f, 1.2f, 1.5f, n, f)},
        {"PerspectiveOffCenter",
         built(zelmPerspectiveOffCenterLH_m4_32f, -1.f, 2.f, -3.f, 1.f, n, f),
         built(zelmPerspectiveOffCenterRH_m4_32f, -1.f, 2.f, -3.f, 1.f, n, f)},
        {"Ortho", built(zelmOrthoLH_m4_32f, 2.f, 1.f, n, f),
         built(zelmOrthoRH_m4_32f, 2.f, 1.f, n, f)},
        {"OrthoOffCenter", built(zelmOrthoOffCenterLH_m4_32f, -1.f, 2.f, -3.f, 1.f, n, f),
         built(zelmOrthoOffCenterRH_m4_32f, -1.f, 2.f, -3.f, 1.f, n, f)},
    };
    for (const auto &pair : pairs) {
        EXPECT_NEAR(through(pair.left, {0, 0, n})[2], 0, 1e-6) << pair.name;
        EXPECT_NEAR(through(pair.left, {0, 0, f})[2], 1, 1e-6) << pair.name;
        EXPECT_NEAR(through(pair.right, {0, 0, -n})[2], 0, 1e-6) << pair.name;
        EXPECT_NEAR(through(pair.right, {0, 0, -f})[2], 1, 1e-6) << pair.name;
        near(through(pair.left, {0.3f, -0.2f, 4}), through(pair.right, {0.3f, -0.2f, -4}), 1e-6f,
             pair.name);
    }
    // The window's corners are those of the picture.
    near(through(pairs[2].left, {-1, -3, n}), {-1, -1, 0}, 1e-6f, "lower left corner");
    near(through(pairs[4].right, {2, 1, -f}), {1, 1, 1}, 1e-6f, "upper right corner");
    const float angle = std::numbers::pi_v<float> / 2;
    near(through(built(zelmPerspectiveFovLH_m4_32f, angle, 2.f, n, f), {6, 3, 3}),
         {1, 1, 0.854701f}, 1e-5f, "edge of the field of view");
}

TEST(Geometry, ViewsAndRotationsMoveRigidly) {
    const float axis[] = {1, -2, 0.5f};
    Floats about(16), roll(16), pitch(16), product(16);
    zelmRotationAxis_v3m4_32f(axis, about.data(), 0.7f);
    zelmMul_mm4x4_32f(built(zelmRotationZ_m4_32f, 0.3f).data(),
                      built(zelmRotationX_m4_32f, -0.4f).data(), product.data());
    zelmMul_mm4x4_32f(product.data(), built(zelmRotationY_m4_32f, 1.1f).data(), product.data());
    near(built(zelmRotationYawPitchRoll_m4_32f, 1.1f, -0.4f, 0.3f), product, 1e-6f, "roll first");
    for (Floats m : {about, product, view(zelmLookAtLH_m4_32f), view(zelmLookAtRH_m4_32f)}) {
        for (const std::size_t t : {12u, 13u, 14u})
            m[t] = 0;
        Floats transpose(16), unit(16);
        float det;
        zelmTranspose_m4_32f(m.data(), transpose.data());
        zelmMul_mm4x4_32f(m.data(), transpose.data(), unit.data());
        near(unit, built(zelmIdentity_m4_32f), 1e-6f, "orthogonal");
        zelmDet_m4_32f(m.data(), &det);
        EXPECT_NEAR(det, 1, 1e-6);
    }
    // A quarter turn, and what an axis of coordinates gives.
    const float quarter = std::numbers::pi_v<float> / 2;
    near(through(built(zelmRotationX_m4_32f, quarter), {0, 1, 0}), {0, 0, 1}, 1e-6f, "y to z");
    near(through(built(zelmRotationY_m4_32f, quarter), {0, 0, 1}), {1, 0, 0}, 1e-6f, "z to x");
    near(through(built(zelmRotationZ_m4_32f, quarter), {1, 0, 0}), {0, 1, 0}, 1e-6f, "x to y");
    const float z_axis[] = {0, 0, 3};
    zelmRotationAxis_v3m4_32f(z_axis, about.data(), 0.7f);
    near(about, built(zelmRotationZ_m4_32f, 0.7f), 1e-6f, "about z");
    // The camera is at the origin and looks along +z or -z.
    near(through(view(zelmLookAtLH_m4_32f), {3, 4, 5}), {0, 0, 0}, 1e-5f, "eye");
    const float distance = std::sqrt(16 + 4 + 20.25f);
    near(through(view(zelmLookAtLH_m4_32f), {-1, 2, 0.5f}), {0, 0, distance}, 1e-5f, "left");
    near(through(view(zelmLookAtRH_m4_32f), {-1, 2, 0.5f}), {0, 0, -distance}, 1e-5f, "right");
}

TEST(Geometry, UnprojectReturnsWhatProjectWasGiven) {
    const Floats world = built(zelmRotationYawPitchRoll_m4_32f, 0.2f, 0.1f, -0.3f);
    const Floats camera = view(zelmLookAtRH_m4_32f);
    const Floats lens = built(zelmPerspectiveFovRH_m4_32f, 1.f, 1.6f, 1.f, 30.f);
    Floats points, pixels(60), back(60);
    for (int k = 0; k < 60; ++k)
        points.push_back(std::sin(static_cast<float>(k)));
    const float w = 640, h = 400, near_z = 0.25f, far_z = 0.75f;
    ASSERT_EQ(zelmProject_m4v3a_32f(lens.data(), camera.data(), world.data(), points.data(), 12,
                                    pixels.data(), 12, 20, w, h, near_z, far_z),
              0);
    ASSERT_EQ(zelmUnproject_m4v3a_32f(lens.data(), camera.data(), world.data(), pixels.data(), 12,
                                      back.data(), 12, 20, w, h, near_z, far_z),
              0);
    near(back, points, 2e-4f, "array");
    ASSERT_EQ(zelmUnproject_m4v3_32f(lens.data(), camera.data(), world.data(), pixels.data(),
                                     back.data(), w, h, near_z, far_z),
              0);
    near({back[0], back[1], back[2]}, {points[0], points[1], points[2]}, 2e-4f, "single");
    // What the camera looks at is in the middle, above it is further up.
    const Floats unit = built(zelmIdentity_m4_32f);
    Floats at = {-1, 2, 0.5f}, above = {-1, 2.5f, 0.5f};
    zelmProject_m4v3_32f(lens.data(), camera.data(), unit.data(), at.data(), at.data(), w, h, 0, 1);
    zelmProject_m4v3_32f(lens.data(), camera.data(), unit.data(), above.data(), above.data(), w, h,
                         0, 1);
    near({at[0], at[1]}, {w / 2, h / 2}, 1e-3f, "middle");
    EXPECT_LT(above[1], at[1] - 10);
}

TEST(Geometry, SplinesMeetTheirEnds) {
    const Floats p1 = {0.1f, 1e8f, -3, 7}, t1 = {5, 1, 2, -9}, p2 = {3, 4e7f, 1, 2},
                 t2 = {8, 6, 7, 5};
    Floats r(4);
    zelmHermite_v4_32f(p1.data(), t1.data(), p2.data(), t2.data(), r.data(), 0);
    EXPECT_EQ(r, p1);
    zelmHermite_v4_32f(p1.data(), t1.data(), p2.data(), t2.data(), r.data(), 1);
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_NEAR(r[i], p2[i], std::fabs(p1[i]) * 1e-6f);
    zelmInterpolationCatmullRom_v4_32f(t1.data(), p1.data(), p2.data(), t2.data(), r.data(), 0);
    EXPECT_EQ(r, p1);
}

// ---- failures ----

Floats inverse_of(const Floats &m, int status, float expected_det, float tolerance) {
    Floats result(16, 77);
    float det = nan;
    EXPECT_EQ(zelmInvert_m4_32f(m.data(), &det, result.data()), status);
    EXPECT_NEAR(det, expected_det, tolerance * std::fabs(expected_det));
    Floats again(16, 77);
    EXPECT_EQ(zelmInvert_m4_32f(m.data(), nullptr, again.data()), status);
    EXPECT_TRUE(same_floats(result, again));
    return result;
}

TEST(Geometry, InverseAndDeterminant) {
    std::mt19937 random(3);
    double average = 0;
    for (int round = 0; round < 500; ++round) {
        Floats m(16), product(16);
        for (float &x : m)
            x = std::ldexp(static_cast<float>(random() >> 8) - 0x1p23f, -23);
        float det, other = nan;
        zelmDet_m4_32f(m.data(), &det);
        Floats inverse(16);
        ASSERT_EQ(zelmInvert_m4_32f(m.data(), &other, inverse.data()), 0);
        EXPECT_NEAR(det, other, 3e-6);
        long double exact = 0, error = 0; // by permutations; |M X - I|
        std::array<std::size_t, 4> p = {0, 1, 2, 3};
        do {
            long double term = 1;
            for (std::size_t i = 0; i < 4; ++i)
                for (std::size_t j = 0; j < i; ++j)
                    term = p[j] > p[i] ? -term : term;
            for (std::size_t i = 0; i < 4; ++i)
                term *= m[4 * i + p[i]];
            exact += term;
        } while (std::next_permutation(p.begin(), p.end()));
        EXPECT_NEAR(static_cast<double>(exact), det, 2e-6);
        for (std::size_t i = 0; i < 16; ++i) {
            long double sum = i % 5 == 0 ? -1 : 0;
            for (std::size_t k = 0; k < 4; ++k)
                sum += static_cast<long double>(m[i / 4 * 4 + k]) * inverse[4 * k + i % 4];
            error += sum * sum;
        }
        average += static_cast<double>(std::sqrt(error) * std::fabs(exact)) * 0x1p23 / 500;
    }
    EXPECT_LT(average, 4);

    std::array<int, 4> p = {0, 1, 2, 3};
    do { // permutation matrices and their inverses are exact
        Floats m(16);
        for (int i = 0; i < 4; ++i)
            m[std::size_t(4 * i + p[std::size_t(i)])] = 1;
        float det;
        zelmDet_m4_32f(m.data(), &det);
        near(inverse_of(m, 0, det, 0), transposed(m), 1e-6f, "permutation");
    } while (std::next_permutation(p.begin(), p.end()));
}

TEST(Geometry, InverseAtItsThreshold) {
    const Floats untouched(16, 77);
    const auto diagonal = [](float last) {
        return Floats{0x1p-40f, 0, 0, 0, 0, 0x1p-40f, 0, 0, 0, 0, 0x1p-39f, 0, 0, 0, 0, last};
    };
    EXPECT_TRUE(same_floats(inverse_of(diagonal(0.99999994f), -195, 0, 0), untouched));
    EXPECT_TRUE(same_floats(inverse_of(diagonal(-0.99999994f), -195, 0, 0), untouched));
    EXPECT_TRUE(same_floats(inverse_of(Floats(16), -195, 0, 0), untouched));
    const Floats least = inverse_of(diagonal(-1), 0, -0x1p-119f, 0);
    EXPECT_NEAR(least[0], 0x1p40f, 0x1p18f);
    EXPECT_NEAR(least[15], -1, 1e-6);
    Floats bad = diagonal(1), result(16, 77);
    bad[3] = nan;
    float det = 0;
    EXPECT_EQ(zelmInvert_m4_32f(bad.data(), &det, result.data()), 0); // NaN is not below it
    EXPECT_TRUE(std::isnan(det) && std::isnan(result[0]));
}

TEST(Geometry, UnprojectWhatIsSingularAndWhatIsOnlySmall) {
    const auto scaled = [](float by) { return built(zelmScaling_m4_32f, by, by, by); };
    Floats lens = scaled(1e-4f), camera = scaled(1e-4f), world = scaled(1e-8f);
    const Floats source = {480, 100, 0.5f, 1, 2, 3};
    Floats single(3, 77), all(6, 77);
    const auto unproject = [&](Floats &dst, int count) {
        return count == 0 ? zelmUnproject_m4v3_32f(lens.data(), camera.data(), world.data(),
                                                   source.data(), dst.data(), 640, 400, 0, 1)
                          : zelmUnproject_m4v3a_32f(lens.data(), camera.data(), world.data(),
                                                    source.data(), 12, dst.data(), 12, count, 640,
                                                    400, 0, 1);
    };
    ASSERT_EQ(unproject(single, 0), 0); // the determinant is 1e-48
    EXPECT_NEAR(single[0] * 1e-16f, 0.5f, 1e-6);
    ASSERT_EQ(unproject(all, 1), 0);
    EXPECT_TRUE(same_floats({all[0], all[1], all[2], 77, 77, 77},
                            {single[0], single[1], single[2], all[3], all[4], all[5]}));
    world[10] = 0;
    single = all = Floats(6, 77);
    EXPECT_EQ(unproject(single, 0), -195);
    EXPECT_TRUE(same_floats(single, {0.5f, 0.5f, 0.5f, 77, 77, 77})); // normalised coordinates
    for (const int count : {2, 1, -1})
        EXPECT_EQ(unproject(all, count), -195);
    EXPECT_TRUE(same_floats(all, Floats(6, 77)));
}

TEST(Geometry, EdgesOfSingleMembers) {
    float m[16], r[4];
    int identity = 7;
    zelmIdentity_m4_32f(m);
    m[1] = -0.f;
    EXPECT_EQ((zelmIsIdentity_m4_32f(m, &identity), identity), 1);
    for (const float off : {1e-7f, nan, 1e-45f})
        for (int i = 0; i < 16; ++i) {
            zelmIdentity_m4_32f(m);
            m[i] = i % 5 == 0 && !std::isnan(off) ? 1.0000001f : off;
            EXPECT_EQ((zelmIsIdentity_m4_32f(m, &identity), identity), 0) << i;
        }
    for (int null = 0; null < 3; ++null)
        EXPECT_EQ(zelmMul_mm4x4_32f(null == 0 ? nullptr : m, null == 1 ? nullptr : m,
                                    null == 2 ? nullptr : m),
                  -8);
    const float zero[4] = {}, a[] = {nan, 1, 0.f, -0.f}, b[] = {2, nan, -0.f, 0.f};
    EXPECT_EQ(zelmNormalize_v4_32f(zero, r), 0);
    EXPECT_TRUE(std::isnan(r[0]) && std::isnan(r[3]));
    for (const auto member : {zelmMin_v4_32f, zelmMax_v4_32f}) {
        member(a, b, r);
        EXPECT_EQ(std::memcmp(r, b, 4), 0);
        EXPECT_TRUE(std::isnan(r[1]) && std::signbit(r[2]) && !std::signbit(r[3]));
    }
    const float ones[] = {1, 1, 1, 1};
    zelmCrossProduct_v4_32f(ones, ones, ones, r);
    for (const float x : r) // dependent vectors give +0
        EXPECT_TRUE(x == 0 && !std::signbit(x));
    EXPECT_EQ(zelmPerspectiveLH_m4_32f(m, 1, 1, 2, 2), 0);
    EXPECT_TRUE(std::isinf(m[10]) && std::isinf(m[14]));
}

// ---- the homogeneous transform ----

// Fails where |w| is not above the smallest normal number; fills and goes on.
bool homogeneous(const Floats &m, Floats &p) {
    const auto row = [&](std::size_t i) {
        return m[4 * i] * p[0] + m[4 * i + 1] * p[1] + m[4 * i + 2] * p[2] + m[4 * i + 3];
    };
    const float w = row(3), r = 1 / w;
    const bool divides = std::fabs(w) > 1.1754943508222875e-38f;
    p = divides ? Floats{row(0) * r, row(1) * r, row(2) * r} : Floats(3, 3.4028234663852886e38f);
    return divides;
}

TEST(Geometry, HomogeneousTransformFillsWhatItCannotDivide) {
    const Member &m = member("zelmAffineTransform3DH_mva_32f");
    int step = 0;
    for (const int count : {1, 2, 3, 4, 5, 8, 11, two_groups_and_tail(m)})
        for (int failing = -1; failing < count; ++failing)
            for (const bool in_place : {false, true})
                for (const float w :
                     {0.f, nan, 0x1p-126f, -0x1p-126f, 0x1.000002p-126f, infinite}) {
                    Problem problem(m, {1, 1, 1, count}, mixed(m, ++step),
                                    in_place ? std::optional<int>(1) : std::nullopt);
                    problem.fill(unsigned(step), false);
                    Placed &matrix = problem.operands[0], &v = problem.operands[1];
                    for (int j = 0; j < 3; ++j) // w is the third coordinate
                        matrix.put(0, 3, j, j == 2);
                    matrix.put(0, 3, 3, 0);
                    if (failing >= 0)
                        v.put(failing, 0, 2, w);
                    Floats a;
                    for (int k = 0; k < 16; ++k)
                        a.push_back(static_cast<float>(matrix.get(0, k / 4, k % 4)));
                    std::vector<Floats> expected;
                    bool divides = true;
                    for (int n = 0; n < count; ++n) {
                        Floats p;
                        for (int j = 0; j < 3; ++j)
                            p.push_back(static_cast<float>(v.get(n, 0, j)));
                        divides = homogeneous(a, p) && divides;
                        expected.push_back(p);
                    }
                    ASSERT_EQ(problem.run(), divides ? 0 : -10) << problem.describe();
                    ASSERT_EQ(problem.disturbed(), "") << problem.describe();
                    for (int n = 0; n < count; ++n)
                        for (int j = 0; j < 3; ++j)
                            ASSERT_TRUE(same(problem.destination().get(n, 0, j),
                                             expected[std::size_t(n)][std::size_t(j)]))
                                << problem.describe() << " object " << n << " of w " << w;
                }
}

} // namespace
