// Planar memory to or from objects whose elements are adjacent: registers both ways.
#pragma once

#include "operand.hpp"

namespace zelm {

// Runs of as many elements as a register has, from objects first ... first + n - 1.
template <bool tabled>
struct ObjectRuns {
    const char *base; // object 0, or the table of the objects
    Distance step, inside;

    ZELM_INLINE char *operator()(int n) const {
        const char *const at = base + n * step;
        return const_cast<char *>(tabled ? load<const char *>(at) : at) + inside;
    }
};
template <bool to_planes, class T, bool tabled>
void move_runs(char *const *planes, const ObjectRuns<tabled> objects, int first, int n) {
    constexpr int L = lanes_per_register<T>;
    constexpr Distance size = sizeof(T);
    char *plane[L];
    unroll<L>(ZELM_EACH(k) { plane[k] = planes[k] + first * size; });
    int l = 0;
    for (; l <= n - L; l += L) {
        char *object[L];
        Lanes<T> v[L];
        unroll<L>(ZELM_EACH(o) { object[o] = objects(first + l + o); });
        unroll<L>(
            ZELM_EACH(k) { v[k] = load<Lanes<T>>(to_planes ? object[k] : plane[k] + l * size); });
        transpose(v);
        unroll<L>(
            ZELM_EACH(k) { store<Lanes<T>>(to_planes ? plane[k] + l * size : object[k], v[k]); });
    }
    for (; l < n; ++l)
        unroll<L>(ZELM_EACH(k) {
            char *const object = objects(first + l) + k * size, *const at = plane[k] + l * size;
            store<T>(to_planes ? at : object, load<T>(to_planes ? object : at));
        });
}
// `row`: bytes from row to row of an object.
template <bool to_planes, class T, class Planes, bool tabled>
[[gnu::noinline]] void move_planes(int count, Shape shape, const Planes planes,
                                   ObjectRuns<tabled> objects, Distance row) {
    constexpr int L = lanes_per_register<T>, block = 64; // of objects, a few lines of each plane
    const bool dense = shape.height == 1 || row == shape.width * Distance{sizeof(T)};
    const Shape runs = dense ? Shape{1, shape.height * shape.width} : shape;
    const Distance start = objects.inside;
    for (int first = 0, n; first < count; first += n) {
        n = count - first < block ? count - first : block;
        for (int i = 0; i < runs.height; ++i)
            for (int at = 0, j = 0; j < runs.width; j = at + L) {
                at = runs.width - j >= L ? j : runs.width - L; // some of them again
                char *plane[L];
                for (int k = at; k < at + L; ++k)
                    plane[k - at] = const_cast<char *>(
                        dense ? planes.at(k / shape.width, k % shape.width) : planes.at(i, k));
                objects.inside = start + i * row + at * Distance{sizeof(T)};
                move_runs<to_planes, T>(plane, objects, first, n);
            }
    }
}

// Whether one operand is planar and the other's objects have elements enough for registers.
template <class Planes, class Objects>
ZELM_INLINE bool planes_and_objects(int count, Shape shape, const Planes &planes,
                                    const Objects &objects) {
    constexpr Distance size = sizeof(typename Planes::Element);
    constexpr int L = lanes_per_register<typename Planes::Element>;
    if constexpr (Planes::is_array && Objects::is_array && !Planes::has_table &&
                  !Objects::is_tabled) {
        bool planar = false;
        if constexpr (!Objects::has_table)
            planar = objects.step() == size;
        const auto o = objects.view(0);
        const bool dense = shape.height == 1 || o.stride1 == shape.width * size;
        const Distance run = dense ? Distance{shape.width} * shape.height : shape.width;
        return count >= L && planes.step() == size && o.stride2 == size && !planar && run >= L &&
               run <= 0x7fffffff;
    }
    return false;
}
template <bool to_planes, class Planes, class Objects>
ZELM_INLINE void move_planes_of(int count, Shape shape, const Planes &planes,
                                const Objects &objects) {
    using T = typename Planes::Element;
    if constexpr (Planes::is_array && Objects::is_array && !Planes::has_table &&
                  !Objects::is_tabled) {
        ObjectRuns<Objects::has_table> runs;
        if constexpr (Objects::has_table)
            runs = {reinterpret_cast<const char *>(objects.table), sizeof(char *), objects.shift};
        else
            runs = {objects.object(0), objects.step(), 0};
        move_planes<to_planes, T>(count, shape, view(planes, 0, shape), runs,
                                  objects.view(0).stride1);
    }
}

} // namespace zelm
