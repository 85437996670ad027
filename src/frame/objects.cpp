#include "objects.hpp"

namespace zelm {
namespace {

// From planar memory to objects whose rows have adjacent elements, or the other way: registers in
// both, transposed on the way.
template <bool to_planes, bool tabled, class T>
void move_runs(char *const *planes, const Objects &objects, Distance inside, int first, int n) {
    constexpr int L = lanes_per_register<T>;
    constexpr Distance size = sizeof(T);
    const char *const base = objects.base;
    const Distance step = tabled ? Distance{sizeof(char *)} : objects.step;
    inside += objects.offset;
    const auto object_at = [&](int k) __attribute__((always_inline)) {
        const char *const at = base + k * step;
        return (tabled ? load<char *>(at) : const_cast<char *>(at)) + inside;
    };
    char *plane[L];
    unroll<L>(ZELM_EACH(k) { plane[k] = planes[k] + first * size; });
    int l = 0;
    for (; l <= n - L; l += L) {
        char *object[L];
        Lanes<T> v[L];
        unroll<L>(ZELM_EACH(o) { object[o] = object_at(first + l + o); });
        unroll<L>(
            ZELM_EACH(k) { v[k] = load<Lanes<T>>(to_planes ? object[k] : plane[k] + l * size); });
        transpose(v);
        unroll<L>(
            ZELM_EACH(k) { store<Lanes<T>>(to_planes ? plane[k] + l * size : object[k], v[k]); });
    }
    for (; l < n; ++l)
        unroll<L>(ZELM_EACH(k) {
            char *const object = object_at(first + l) + k * size;
            char *const at = plane[k] + l * size;
            store<T>(to_planes ? at : object, load<T>(to_planes ? object : at));
        });
}
template <bool to_planes, class T>
void move_planes(const Objects planes, const Objects objects, int count) {
    constexpr int L = lanes_per_register<T>, block = 64; // of objects, a few lines of each plane
    const Shape shape = objects.shape;
    const bool dense = shape.height == 1 || objects.stride1 == shape.width * Distance{sizeof(T)};
    const Shape runs = dense ? Shape{1, shape.height * shape.width} : shape;
    for (int first = 0, n; first < count; first += n) {
        n = count - first < block ? count - first : block;
        for (int i = 0; i < runs.height; ++i)
            for (int at = 0, j = 0; j < runs.width; j = at + L) {
                at = runs.width - j >= L ? j : runs.width - L; // some of them again
                char *plane[L];
                for (int k = at; k < at + L; ++k)
                    plane[k - at] = dense ? planes.element(0, k / shape.width, k % shape.width)
                                          : planes.element(0, i, k);
                const Distance inside = i * objects.stride1 + at * Distance{sizeof(T)};
                if (objects.description == Description::layout)
                    move_runs<to_planes, true, T>(plane, objects, inside, first, n);
                else
                    move_runs<to_planes, false, T>(plane, objects, inside, first, n);
            }
    }
}

// Between planar memories.
template <class T>
void copy_planes(const Objects &from, const Objects &to, int n) {
    for (int i = 0; i < to.shape.height; ++i)
        for (int j = 0; j < to.width(i); ++j)
            __builtin_memcpy(to.element(0, i, j), from.element(0, i, j),
                             static_cast<std::size_t>(n) * sizeof(T));
}

// Whether the objects have adjacent elements enough for registers.
template <class T>
bool has_runs(const Objects &o) {
    const bool dense = o.shape.height == 1 || o.stride1 == o.shape.width * Distance{sizeof(T)};
    const Distance run = dense ? Distance{o.shape.width} * o.shape.height : o.shape.width;
    return o.description != Description::pointer && o.stride2 == Distance{sizeof(T)} &&
           !o.is_planar() && !o.lower && run >= lanes_per_register<T> && run <= 0x7fffffff;
}

} // namespace

template <class T>
bool move_between_planes_and_rows(const Objects &from, const Objects &to, int count) {
    if (count < lanes_per_register<T>)
        return false;
    if (to.is_planar() && has_runs<T>(from))
        move_planes<true, T>(to, from, count);
    else if (from.is_planar() && has_runs<T>(to))
        move_planes<false, T>(from, to, count);
    else
        return false;
    return true;
}
template bool move_between_planes_and_rows<float>(const Objects &, const Objects &, int);
template bool move_between_planes_and_rows<double>(const Objects &, const Objects &, int);

namespace {

template <class T>
void copy(const Objects from, const Objects to, int n) {
    if (from.is_planar() && to.is_planar())
        return copy_planes<T>(from, to, n);
    if (move_between_planes_and_rows<T>(from, to, n) ||
        move_between_planes_and_rows<T>(transposed(from), transposed(to), n))
        return;
    for (int i = 0; i < to.shape.height; ++i)
        for (int j = 0; j < to.width(i); ++j)
            for (int k = 0; k < n; ++k)
                store<T>(to.element(k, i, j), load<T>(from.element(k, i, j)));
}

} // namespace

Objects with_even_strides(const Objects &o) {
    const Shape shape = o.shape;
    if (o.description != Description::pointer)
        return o;
    const auto at = [&](int i, int j) { return reinterpret_cast<std::uintptr_t>(o.entry(i, j)); };
    const auto origin = at(0, 0);
    const auto down = shape.height > 1 ? at(1, 0) - origin : 0;
    const auto across = shape.width > 1 ? at(0, 1) - origin : 0;
    for (int i = 0; i < shape.height; ++i)
        for (int j = 0; j < shape.width; ++j)
            if (at(i, j) != origin + static_cast<std::uintptr_t>(i) * down +
                                static_cast<std::uintptr_t>(j) * across)
                return o;
    Objects same = o;
    same.description = Description::standard;
    same.base = o.entry(0, 0);
    same.offset = 0;
    same.stride1 = static_cast<Distance>(down);
    same.stride2 = static_cast<Distance>(across);
    // Standard strides are positive; so what is said of their extents holds.
    const auto is_stride = [](Distance d) { return d >= 0 && d == static_cast<int>(d); };
    return is_stride(same.stride1) && is_stride(same.stride2) ? same : o;
}

// As bit patterns: row numbers are moved as floats.
void copy_objects(const Objects &from, const Objects &to, int n) {
    if (from.element_size == sizeof(float))
        copy<float>(from, to, n);
    else
        copy<double>(from, to, n);
}

} // namespace zelm
