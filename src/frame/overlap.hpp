// Which objects may be worked on at once.
//
// A group of lanes reads all its objects before it writes any. That equals one object at a time, in
// order, where no destination object of the group overlaps another one, and no destination object
// overlaps the source of another lane.
#pragma once

#include "lane_access.hpp"

#include <tuple>

namespace zelm {

using Number = std::uintptr_t; // an address as a number

struct Span {
    Number low, high; // half open
    ZELM_INLINE bool meets(Span other) const { return low < other.high && other.low < high; }
};

// The bytes that each object of an operand spans, or a Part of it.
template <class Described, class Part = Whole>
class Footprint {
public:
    using Operand = Described;
    using T = typename Operand::Type;

    ZELM_INLINE Footprint(const Operand &op, Shape shape, Part = {}) : op_(op) {
        if constexpr (Operand::is_tabled) {
            const auto v = op.view(0, shape);
            Number low = ~Number{0}, high = 0;
            for (int i = 0; i < shape.height; ++i)
                for (int j = 0; j < Part::width(i, shape.width); ++j) {
                    const auto at = reinterpret_cast<Number>(v.at(i, j));
                    low = at < low ? at : low;
                    high = at > high ? at : high;
                }
            lowest_ = low;
            extent_ = high - low + sizeof(T);
        } else {
            const auto v = op.view(0);
            if constexpr (!Operand::has_table)
                lowest_ = reinterpret_cast<Number>(v.base);
            extent_ = static_cast<Number>((shape.height - 1) * v.stride1 +
                                          (shape.width - 1) * v.stride2) +
                      sizeof(T);
        }
    }

    ZELM_INLINE Span object(int n) const {
        Number low;
        if constexpr (Operand::has_table)
            low = reinterpret_cast<Number>(op_.object(n));
        else
            low = lowest_ + static_cast<Number>(n * op_.step());
        return {low, low + extent_};
    }
    // All objects together; of a layout operand nothing is known without reading its table.
    ZELM_INLINE Span all(int count) const {
        if constexpr (Operand::has_table)
            return {0, ~Number{0}};
        else
            return {object(0).low, object(count - 1).high};
    }
    // One behind the other, or interleaved in planar memory.
    ZELM_INLINE bool disjoint(Shape shape, int count) const {
        if constexpr (Operand::has_table) {
            return false;
        } else {
            const Distance step = op_.step();
            if (step >= static_cast<Distance>(extent_))
                return true;
            const Distance run = step * count;
            if constexpr (Operand::is_tabled) {
                return step >= Distance{sizeof(T)} && entries_apart(shape, run);
            } else {
                const auto v = op_.view(0);
                const Distance s1 = v.stride1, s2 = v.stride2;
                const bool rows_outside = s1 >= (shape.width - 1) * s2 + run || shape.height == 1;
                const bool columns_outside =
                    s2 >= (shape.height - 1) * s1 + run || shape.width == 1;
                return step >= Distance{sizeof(T)} &&
                       ((rows_outside && (s2 >= run || shape.width == 1)) ||
                        (columns_outside && (s1 >= run || shape.height == 1)));
            }
        }
    }
    ZELM_INLINE const Operand &operand() const { return op_; }
    ZELM_INLINE Number extent() const { return extent_; } // bytes

private:
    // Element pointers in ascending or descending order, at least `run` bytes apart.
    bool entries_apart(Shape shape, Distance run) const {
        const auto v = op_.view(0, shape);
        bool up = true, down = true;
        Number before = 0;
        for (int i = 0; i < shape.height; ++i)
            for (int j = 0; j < Part::width(i, shape.width); ++j) {
                const auto at = reinterpret_cast<Number>(v.at(i, j));
                if (i + j > 0) {
                    up = up && at >= before + static_cast<Number>(run);
                    down = down && before >= at + static_cast<Number>(run);
                }
                before = at;
            }
        return up || down;
    }

    const Operand &op_;
    Number lowest_ = 0, extent_;
};

namespace detail {
template <class A, class B>
ZELM_INLINE bool same_memory(const A &a, const B &b) {
    if constexpr (A::is_tabled != B::is_tabled || A::has_table != B::has_table ||
                  A::object_rank != B::object_rank || A::is_array != B::is_array)
        return false;
    else if constexpr (A::is_tabled)
        return static_cast<const void *>(a.table) == static_cast<const void *>(b.table) &&
               a.offset(0) == b.offset(0) && a.step() == b.step() && a.exchanged == b.exchanged;
    else if constexpr (A::has_table)
        return false;
    else
        return static_cast<const void *>(a.base) == static_cast<const void *>(b.base) &&
               a.step() == b.step() && a.view(0).stride1 == b.view(0).stride1 &&
               a.view(0).stride2 == b.view(0).stride2;
}
} // namespace detail

// Of footprints. Decides once per call where that is possible, else group by group.
template <class Destination, class... Sources>
class Overlap {
public:
    ZELM_INLINE Overlap(int count, Shape shape, const Destination &d, const Sources &...s)
        : destination_(d), sources_(s...) {
        if constexpr (Destination::Operand::has_table)
            scan(count);
        else
            clear_ =
                d.disjoint(shape, count) &&
                ((!d.all(count).meets(s.all(count)) ||
                  (d.extent() == s.extent() && detail::same_memory(d.operand(), s.operand()))) &&
                 ...);
    }

    // Whether any objects may be worked on at once.
    ZELM_INLINE bool clear() const { return clear_; }
    // Whether objects first ... first + live - 1 may be worked on at once.
    ZELM_INLINE bool clear(int first, int live) const { return clear_ || group_clear(first, live); }

private:
    // A table of objects is clear where it ascends and each source object lies between the
    // destination objects before and behind it, or all sources lie elsewhere.
    [[gnu::noinline]] void scan(int count) {
        bool ascends = true;
        Span all = destination_.object(0);
        for (int n = 1; n < count; ++n) {
            const Span d = destination_.object(n);
            ascends = ascends && d.low >= destination_.object(n - 1).high;
            all = {d.low < all.low ? d.low : all.low, d.high > all.high ? d.high : all.high};
        }
        clear_ = ascends &&
                 std::apply([&](const auto &...s) { return (source_clear(s, all, count) && ...); },
                            sources_);
    }
    template <class Source>
    bool source_clear(const Source &s, Span destinations, int count) const {
        bool between = true, outside = true;
        for (int n = 0; n < count; ++n) {
            const Span o = s.object(n);
            outside = outside && !o.meets(destinations);
            between = between && (n == 0 || o.low >= destination_.object(n - 1).high) &&
                      (n == count - 1 || o.high <= destination_.object(n + 1).low);
        }
        return between || outside;
    }
    [[gnu::noinline]] bool group_clear(int first, int live) const {
        for (int l = 0; l < live; ++l) {
            const Span d = destination_.object(first + l);
            for (int m = 0; m < live; ++m)
                if (m != l &&
                    (destination_.object(first + m).meets(d) ||
                     std::apply(
                         [&](const auto &...s) { return (s.object(first + m).meets(d) || ...); },
                         sources_)))
                    return false;
        }
        return true;
    }

    const Destination &destination_;
    std::tuple<const Sources &...> sources_;
    bool clear_ = false;
};

} // namespace zelm
