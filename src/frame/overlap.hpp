// Which objects may be worked on at once.
//
// A group of lanes reads all its objects before it writes any. That equals one object at a time, in
// order, where no destination object of the group overlaps another one, and no destination object
// overlaps the source of another lane.
#pragma once

#include "objects.hpp"

namespace zelm {

using Number = std::uintptr_t; // an address as a number

struct Span {
    Number low, high; // half open
    ZELM_INLINE bool meets(Span other) const { return low < other.high && other.low < high; }
};

// The bytes that each object of an array spans. A single object is an array of step 0.
class Footprint {
public:
    Footprint() {}
    explicit Footprint(const Objects &o);

    Span object(int n) const;
    // All objects together; of a layout nothing is known without reading its table.
    Span all(int count) const;
    // One behind the other, or interleaved in planar memory.
    bool is_disjoint(int count) const;
    bool is_same_memory(const Footprint &other) const;
    bool is_layout() const { return objects_.description == Description::layout; }

private:
    bool are_entries_apart(Number run) const;

    Objects objects_;
    Number lowest_, extent_; // bytes
};

// Decides once per call where that is possible, else group by group.
class Overlap {
public:
    template <class... Sources>
    Overlap(int count, const Objects &destination, const Sources &...source)
        : destination_(destination), sources_(sizeof...(Sources)), source_{Footprint(source)...} {
        decide(count);
    }

    // Whether any objects may be worked on at once.
    bool clear() const { return clear_; }
    // Whether objects first ... first + live - 1 may be worked on at once.
    bool clear(int first, int live) const { return clear_ || group_clear(first, live); }

private:
    static constexpr int most_sources = 3;

    void decide(int count);
    bool table_clear(int count) const;
    bool source_clear(const Footprint &source, Span destinations, int count) const;
    bool group_clear(int first, int live) const;

    Footprint destination_;
    int sources_;
    Footprint source_[most_sources];
    bool clear_;
};

} // namespace zelm
