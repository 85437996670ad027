// The element-wise engine: destination element = op(first, second) for every element of every
// object.
//
// Standard and layout operands are nests of three axes (object, row, column), each operand with a
// stride per axis and stride 0 for what is repeated: a single operand beside an array, a constant.
// Axes that are dense in every operand merge; the axis that is contiguous in the destination goes
// innermost where the destination does not overlap itself. Packed, padded, planar and transposed
// memory so end in the same few loops. Operands in the pointer description are one line along the
// objects for every element.
//
// An element is read before its result is written and no other element is read in between, or only
// elements of the same register: a destination in the memory of a source, element for element, is
// safe in every loop.
#pragma once

#include "estimate.hpp"
#include "objects.hpp"
#include "parallel.hpp"

#include <tuple>

namespace zelm {
namespace elementwise {

// How a line's elements follow one another.
enum class Run { adjacent, repeated, apart };

template <int operands>
struct Axis {
    Distance extent = 1;
    Distance stride[operands] = {};
};

// What the loops keep of an operation: weights are copied, as a stored element might be suspected
// to change them.
template <class Op>
using Kept = std::conditional_t<std::is_empty_v<Op>, const Op &, const Op>;

// ---- a line: n elements along one axis ----

template <class S, Run run>
ZELM_INLINE S load_run(const char *p, Distance stride) {
    using T = ElementOf<S>;
    if constexpr (lanes_of<S> == 1)
        return load<T>(p);
    else if constexpr (run == Run::adjacent)
        return load<S>(p);
    else if constexpr (run == Run::repeated)
        return splat<S>(load<T>(p));
    else {
        const char *at[lanes_of<S>];
        unroll<lanes_of<S>>(ZELM_EACH(l) { at[l] = p + l * stride; });
        return Primitives<S>::gather(at, 0);
    }
}

// From the line's first element to its element j.
template <class S, Run run>
ZELM_INLINE Distance distance(Distance j, Distance stride) {
    if constexpr (run == Run::adjacent)
        return j * Distance{sizeof(ElementOf<S>)};
    else if constexpr (run == Run::repeated)
        return 0;
    else
        return j * stride;
}
// One step: a register (or an element) of every operand from element j on.
template <class S, Run to, Run... runs, class Op, std::size_t... k>
ZELM_INLINE void step(const Op &op, char *d, const char *const *s, const Distance *stride,
                      Distance j, std::index_sequence<k...>) {
    store<S>(d + distance<S, to>(j, stride[0]),
             op(load_run<S, runs>(s[k] + distance<S, runs>(j, stride[k + 1]), stride[k + 1])...));
}

// The loops copy what they are given: a stored element must not be suspected to change an address.
template <int n>
struct Copied {
    const char *s[n];
    Distance stride[n + 1];

    ZELM_INLINE Copied(const char *const *from, const Distance *apart) {
        unroll<n>(ZELM_EACH(k) { s[k] = from[k]; });
        unroll<n + 1>(ZELM_EACH(k) { stride[k] = apart[k]; });
    }
};

// The destination adjacent: registers, then the rest element by element.
template <class T, class Op, Run... runs>
void line_adjacent(const Op &given, char *d, const char *const *from, const Distance *apart,
                   Distance n) {
    Kept<Op> op = given;
    using S = Lanes<T>;
    constexpr auto sources = std::make_index_sequence<sizeof...(runs)>{};
    constexpr Distance L = lanes_of<S>;
    const Copied<sizeof...(runs)> c(from, apart);
    Distance j = 0;
    for (; j <= n - 4 * L; j += 4 * L)
        unroll<4>(ZELM_EACH(u) {
            step<S, Run::adjacent, runs...>(op, d, c.s, c.stride, j + u * L, sources);
        });
    for (; j <= n - L; j += L)
        step<S, Run::adjacent, runs...>(op, d, c.s, c.stride, j, sources);
    for (; j < n; ++j)
        step<T, Run::adjacent, runs...>(op, d, c.s, c.stride, j, sources);
}
template <class T, class Op, std::size_t... k>
void line_apart(const Op &given, char *d, const char *const *from, const Distance *apart,
                Distance n, std::index_sequence<k...> sources) {
    Kept<Op> op = given;
    const Copied<sizeof...(k)> c(from, apart);
    for (Distance j = 0; j < n; ++j)
        step<T, Run::apart, (void(k), Run::apart)...>(op, d, c.s, c.stride, j, sources);
}

// Chooses the loop for each source's run.
template <class T, int sources, class Op, Run... chosen>
ZELM_INLINE void line(const Op &op, char *d, const char *const *s, const Distance *stride,
                      Distance n) {
    constexpr int k = sizeof...(chosen);
    constexpr Distance element = sizeof(T);
    if constexpr (k == 0)
        if (stride[0] != element)
            return line_apart<T>(op, d, s, stride, n, std::make_index_sequence<sources>{});
    if constexpr (k == sources)
        line_adjacent<T, Op, chosen...>(op, d, s, stride, n);
    else if (stride[k + 1] == element)
        line<T, sources, Op, chosen..., Run::adjacent>(op, d, s, stride, n);
    else if (stride[k + 1] == 0)
        line<T, sources, Op, chosen..., Run::repeated>(op, d, s, stride, n);
    else
        line<T, sources, Op, chosen..., Run::apart>(op, d, s, stride, n);
}

// ---- short rows: W elements, W known at compile time ----

template <class T, int W, Run to, Run... runs, class Op, std::size_t... k>
ZELM_INLINE void short_row(const Op &op, char *d, const char *const *s, const Distance *stride,
                           std::index_sequence<k...> sources) {
    if constexpr (to == Run::apart) {
        unroll<W>(ZELM_EACH(j) { step<T, to, runs...>(op, d, s, stride, j, sources); });
        return;
    }
    using S = Lanes<T>;
    constexpr int L = lanes_of<S>, rest = W % L;
    unroll<W / L>(ZELM_EACH(c) { step<S, to, runs...>(op, d, s, stride, c * L, sources); });
    if constexpr (rest == 1) {
        step<T, to, runs...>(op, d, s, stride, W - 1, sources);
    } else if constexpr (rest > 1) {
        constexpr Distance at = (W - rest) * Distance{sizeof(T)};
        const auto part = [&]<Run run>(const char *p, Distance apart)
            __attribute__((always_inline)) {
            if constexpr (run == Run::adjacent)
                return load_part<rest, S>(p + at);
            else if constexpr (run == Run::repeated)
                return splat<S>(load<T>(p));
            else {
                S v = {};
                unroll<rest>(ZELM_EACH(e) { v[int{e}] = load<T>(p + (W - rest + e) * apart); });
                return v;
            }
        };
        store_part<rest, S>(d + at, op(part.template operator()<runs>(s[k], stride[k + 1])...));
    }
}

// ---- nests: two axes of each object inside, the objects outside ----

template <int operands>
struct Nest {
    Axis<operands> object, outer, inner;
};

// Where object n of every operand begins: at a distance from the first one, or by a table where
// some have one.
template <int n, bool tables>
struct ObjectOrigins {
    static constexpr int operands = n;

    char *base[n]; // of a table, its first entry
    Distance step[n], shift[n];
    bool by_table[n];

    ZELM_INLINE char *operator()(int k, Distance object) const {
        char *const at = base[k] + object * step[k];
        return tables && by_table[k] ? load<char *>(at) + shift[k] : at;
    }
};

template <int operands, class Origins, class Row>
ZELM_INLINE void for_each_row(const Nest<operands> &nest, const Origins &objects, const Row &row) {
    const Distance count = nest.object.extent, rows = nest.outer.extent;
    Distance next[operands];
    unroll<operands>(ZELM_EACH(k) { next[k] = nest.outer.stride[k]; });
    for (Distance n = 0; n < count; ++n) {
        char *p[operands];
        unroll<operands>(ZELM_EACH(k) { p[k] = objects(k, n); });
        for (Distance i = 0; i < rows; ++i) {
            row(p[0], p + 1);
            unroll<operands>(ZELM_EACH(k) { p[k] += next[k]; });
        }
    }
}

inline constexpr int longest_short_row = 6;

// A destination apart takes its sources as they come; beside an adjacent one each source is
// adjacent or is taken element by element.
template <class T, int W, int sources, class Origins, class Op, Run to, Run... chosen>
void short_rows(const Nest<sources + 1> &nest, const Origins &objects, const Op &op) {
    constexpr int k = sizeof...(chosen);
    if constexpr (k == sources) {
        Distance stride[sources + 1];
        unroll<sources + 1>(ZELM_EACH(i) { stride[i] = nest.inner.stride[i]; });
        const Origins own = objects;
        Kept<Op> own_op = op;
        for_each_row(
            nest, own, [&](char *d, const char *const *s) __attribute__((always_inline)) {
                short_row<T, W, to, chosen...>(own_op, d, s, stride,
                                               std::make_index_sequence<sources>{});
            });
    } else if (to == Run::adjacent && nest.inner.stride[k + 1] == Distance{sizeof(T)}) {
        if constexpr (to == Run::adjacent)
            short_rows<T, W, sources, Origins, Op, to, chosen..., Run::adjacent>(nest, objects, op);
    } else {
        short_rows<T, W, sources, Origins, Op, to, chosen..., Run::apart>(nest, objects, op);
    }
}

template <class T, int W, int sources, Run to, class Origins, class Op>
ZELM_INLINE void short_rows_of(const Nest<sources + 1> &nest, const Origins &objects,
                               const Op &op) {
    if (nest.inner.extent == W)
        return short_rows<T, W, sources, Origins, Op, to>(nest, objects, op);
    if constexpr (W > 1)
        short_rows_of<T, W - 1, sources, to>(nest, objects, op);
}

template <class T, int sources, class Origins, class Op>
void run(const Nest<sources + 1> &nest, const Origins &objects, const Op &op) {
    const bool adjacent = nest.inner.stride[0] == Distance{sizeof(T)};
    if (nest.inner.extent <= longest_short_row)
        return adjacent
                   ? short_rows_of<T, longest_short_row, sources, Run::adjacent>(nest, objects, op)
                   : short_rows_of<T, longest_short_row, sources, Run::apart>(nest, objects, op);
    for_each_row(nest, objects, [&](char *d, const char *const *s) {
        line<T, sources, Op>(op, d, s, nest.inner.stride, nest.inner.extent);
    });
}

// Merges `from` into `to`, which lies inside it, where both are one axis in every operand.
template <int operands>
ZELM_INLINE void merge(Axis<operands> &from, Axis<operands> &to) {
    bool one = true;
    for (int k = 0; k < operands; ++k)
        one = one && from.stride[k] == to.stride[k] * to.extent;
    if (from.extent == 1 || one) {
        to.extent *= from.extent;
        from = {};
    } else if (to.extent == 1) {
        to = from;
        from = {};
    }
}
// Whether the destination's elements lie apart, the axes given from the innermost on.
template <int operands>
ZELM_INLINE bool inside(const Axis<operands> &inner, const Axis<operands> &outer) {
    return outer.extent == 1 || outer.stride[0] >= inner.stride[0] * inner.extent;
}

template <int operands>
void merge_axes(Nest<operands> &nest) {
    merge(nest.outer, nest.inner);
    merge(nest.object, nest.outer);
    merge(nest.outer, nest.inner);
}

// Innermost the axis with the smallest step in the destination, then merge.
template <int operands>
void arrange(Nest<operands> &nest, bool objects_too) {
    Axis<operands> inner = nest.inner, outer = nest.outer, object = nest.object;
    const auto order = [](Axis<operands> &in, Axis<operands> &out) {
        if (in.extent == 1 || (out.extent != 1 && out.stride[0] < in.stride[0]))
            std::swap(in, out);
    };
    order(inner, outer);
    if (objects_too) {
        order(outer, object);
        order(inner, outer);
    }
    if (inside(inner, outer) && (!objects_too || inside(outer, object)))
        nest = {object, outer, inner};
    if (objects_too)
        merge_axes(nest);
    else
        merge(nest.outer, nest.inner);
}

// ---- arrays: the destination first, then the sources ----

template <class T, int operands, bool tables, class Op>
void run_nest(const Nest<operands> &nest, const Op &op, const Objects (&o)[operands]) {
    ObjectOrigins<operands, tables> origins;
    for (int k = 0; k < operands; ++k) {
        origins.by_table[k] = o[k].description == Description::layout;
        origins.base[k] = o[k].base;
        origins.step[k] = origins.by_table[k] ? Distance{sizeof(char *)} : nest.object.stride[k];
        origins.shift[k] = o[k].offset;
    }
    run<T, operands - 1>(nest, origins, op);
}
template <class T, int operands, class Op, std::size_t... k>
void nested(int count, const Op &op, const Objects (&o)[operands], std::index_sequence<k...>) {
    const Shape shape = o[0].shape;
    if ((o[0].is_gapless() && ... && o[k + 1].is_gapless())) { // the nest would become this line
        const char *const from[] = {o[k + 1].base...};
        const Distance stride[] = {sizeof(T), (void(k), Distance{sizeof(T)})...};
        return line_adjacent<T, Op, (void(k), Run::adjacent)...>(
            op, o[0].base, from, stride, Distance{count} * shape.height * shape.width);
    }
    Nest<operands> nest;
    nest.object.extent = count;
    nest.outer.extent = shape.height;
    nest.inner.extent = shape.width;
    bool tables = false;
    for (int i = 0; i < operands; ++i) {
        nest.object.stride[i] = o[i].step;
        nest.outer.stride[i] = o[i].stride1;
        nest.inner.stride[i] = o[i].stride2;
        tables = tables || o[i].description == Description::layout;
    }
    arrange(nest, !tables);
    if (tables)
        run_nest<T, operands, true>(nest, op, o);
    else
        run_nest<T, operands, false>(nest, op, o);
}

// Elements given by tables: a line along the objects for each. In blocks, so that memory in which
// objects lie whole is passed over once.
template <class T, int operands, class Op, std::size_t... k>
void along_objects(int count, const Op &op, const Objects (&o)[operands],
                   std::index_sequence<k...>) {
    constexpr int block = 256;
    const Distance stride[] = {o[0].step, o[k + 1].step...};
    for (int first = 0, n; first < count; first += n) {
        n = count - first < block ? count - first : block;
        for (int i = 0; i < o[0].shape.height; ++i)
            for (int j = 0; j < o[0].shape.width; ++j) {
                const char *const from[] = {o[k + 1].element(first, i, j)...};
                line<T, operands - 1, Op>(op, o[0].element(first, i, j), from, stride, n);
            }
    }
}

// The same element of every object: by its distance, or by the table of the objects.
struct AlongObjects {
    bool by_table;
    char *base;
    Distance step, inside; // of an object

    ZELM_INLINE AlongObjects(const Objects &o, int i, int j)
        : by_table(o.description == Description::layout),
          base(by_table ? o.base : o.element(0, i, j)),
          step(by_table ? Distance{sizeof(char *)} : o.step),
          inside(o.offset + i * o.stride1 + j * o.stride2) {}

    ZELM_INLINE char *operator()(int n) const {
        char *const at = base + n * step;
        return by_table ? load<char *>(at) + inside : at;
    }
};
// A table of objects beside a table of elements.
template <class T, int operands, class Op, std::size_t... k>
void through_tables(int count, const Op &op, const Objects (&o)[operands],
                    std::index_sequence<k...>) {
    constexpr int block = 256;
    for (int first = 0, end; first < count; first = end) {
        end = count - first < block ? count : first + block;
        for (int i = 0; i < o[0].shape.height; ++i)
            for (int j = 0; j < o[0].shape.width; ++j) {
                const AlongObjects to(o[0], i, j), from[] = {AlongObjects(o[k + 1], i, j)...};
                for (int n = first; n < end; ++n)
                    store<T>(to(n), op(load<T>(from[k](n))...));
            }
    }
}

template <class T, class Op, class... Sources>
[[gnu::noinline]] ZelStatus arrays(int count, const Op &op, const Objects &d, const Sources &...s) {
    constexpr int operands = sizeof...(Sources) + 1;
    constexpr auto sources = std::make_index_sequence<operands - 1>{};
    const Objects o[] = {d, s...};
    bool elements = false, objects = false;
    for (const Objects &x : o) {
        elements = elements || x.description == Description::pointer;
        objects = objects || x.description == Description::layout;
    }
    if (elements && objects)
        through_tables<T, operands>(count, op, o, sources);
    else if (elements)
        along_objects<T, operands>(count, op, o, sources);
    else
        nested<T, operands>(count, op, o, sources);
    return zelStatusOk;
}

// ---- single objects ----

template <class Operand>
ZELM_INLINE char *element(const Operand &op, int n, Shape shape, int i, int j) {
    return const_cast<char *>(view(op, n, shape).at(i, j));
}

// N adjacent elements, straight-line.
template <class T, int N, class Op, class... Source>
ZELM_INLINE void adjacent(const Op &op, T *d, const Source *...s) {
    constexpr auto sources = std::make_index_sequence<sizeof...(Source)>{};
    const Distance stride[] = {sizeof(T), (void(s), Distance{sizeof(T)})...};
    const char *const from[] = {reinterpret_cast<const char *>(s)...};
    short_row<T, N, Run::adjacent, (void(sizeof(Source)), Run::adjacent)...>(
        op, reinterpret_cast<char *>(d), from, stride, sources);
}

// One object: its rows, as one line where they are one.
template <class T, class Op, class Destination, class... Sources>
ZELM_INLINE void object(Shape shape, const Op &op, const Destination &d, const Sources &...s) {
    constexpr int sources = sizeof...(Sources);
    if constexpr (Destination::is_tabled || (Sources::is_tabled || ...)) {
        for (int i = 0; i < shape.height; ++i)
            for (int j = 0; j < shape.width; ++j)
                store<T>(element(d, 0, shape, i, j), op(load<T>(element(s, 0, shape, i, j))...));
    } else {
        const Distance stride[] = {d.view(0).stride2, s.view(0).stride2...};
        const auto dense = [shape](const auto &o) {
            return o.view(0).stride1 == o.view(0).stride2 * shape.width;
        };
        const bool one = shape.height == 1 || (dense(d) && (dense(s) && ...));
        const Distance n = one ? Distance{shape.width} * shape.height : shape.width;
        for (int i = 0; i < (one ? 1 : shape.height); ++i) {
            const char *const from[] = {view(s, 0, shape).at(i, 0)...};
            line<T, sources, Op>(op, d.view(0).at(i, 0), from, stride, n);
        }
    }
}

} // namespace elementwise

// The short way into single standard matrices: one test for everything that could be wrong and for
// the shape that is worth it, 3x3 to 5x5 without gaps. False: nothing was done.
template <class Op, class D, class... S>
ZELM_INLINE bool small_dense_object(const Op &op, int width, int height,
                                    const Standard<D, 2, false> &d,
                                    const Standard<S, 2, false> &...s) {
    const bool null = (d.base == nullptr) | (... | (s.base == nullptr));
    const int other = (width ^ height) | gaps(d, width) | (... | gaps(s, width));
    if (null | (other != 0) | (static_cast<unsigned>(width) - 3u > 2u))
        return false;
    if (width == 3)
        elementwise::adjacent<D, 9>(op, d.base, s.base...);
    else if (width == 4)
        elementwise::adjacent<D, 16>(op, d.base, s.base...);
    else
        elementwise::adjacent<D, 25>(op, d.base, s.base...);
    return true;
}

// d = op(s...) on one object.
template <class Op, class Destination, class... Sources>
ZelStatus y8_ownzelm_elementwise(Shape shape, const Op &op, const Destination &d,
                                 const Sources &...s) {
    elementwise::object<typename Destination::Element>(shape, op, d, s...);
    return zelStatusOk;
}

// On all objects of arrays, serial or parallel by the work.
template <class T, class Op, class... Sources>
[[gnu::noinline]] ZelStatus run_elementwise_objects(bool serial, int count, const Op &op,
                                                    const Objects &d, const Sources &...s) {
    return run_objects(
        serial,
        [&op](int n, const Objects &to, const Sources &...from) {
            return elementwise::arrays<T>(n, op, to, from...);
        },
        count, d, s...);
}
template <class Op, class Destination, class... Sources>
ZELM_INLINE ZelStatus run_elementwise(Limits limits, Estimate work, Shape shape, int count,
                                      const Op &op, const Destination &d, const Sources &...s) {
    return run_elementwise_objects<typename Destination::Element>(
        limits.serial(work, (d.packed() && ... && s.packed())), count, op, objects(d, shape),
        objects(s, shape)...);
}

} // namespace zelm
