#include "overlap.hpp"

namespace zelm {

Footprint::Footprint(const Objects &o) : objects_(o), lowest_(0) {
    const Shape shape = o.shape;
    const auto size = static_cast<Number>(o.element_size);
    if (o.description == Description::pointer) {
        Number low = ~Number{0}, high = 0;
        for (int i = 0; i < shape.height; ++i)
            for (int j = 0; j < o.width(i); ++j) {
                const auto at = reinterpret_cast<Number>(o.entry(i, j));
                low = at < low ? at : low;
                high = at > high ? at : high;
            }
        lowest_ = low;
        extent_ = high - low + size;
    } else {
        if (o.description == Description::standard)
            lowest_ = reinterpret_cast<Number>(o.base);
        extent_ =
            static_cast<Number>((shape.height - 1) * o.stride1 + (shape.width - 1) * o.stride2) +
            size;
    }
}

Span Footprint::object(int n) const {
    const Number low = is_layout() ? reinterpret_cast<Number>(objects_.object(n))
                                   : lowest_ + static_cast<Number>(n * objects_.step);
    return {low, low + extent_};
}

Span Footprint::all(int count) const {
    if (is_layout())
        return {0, ~Number{0}};
    return {object(0).low, object(count - 1).high};
}

bool Footprint::is_disjoint(int count) const {
    const Objects &o = objects_;
    const Distance size = o.element_size, run = o.step * count;
    if (is_layout())
        return false;
    if (o.step >= static_cast<Distance>(extent_))
        return true;
    if (o.step < size)
        return false;
    if (o.description == Description::pointer)
        return are_entries_apart(static_cast<Number>(run));
    const int height = o.shape.height, width = o.shape.width;
    const bool rows_outside = height == 1 || o.stride1 >= (width - 1) * o.stride2 + run;
    const bool columns_outside = width == 1 || o.stride2 >= (height - 1) * o.stride1 + run;
    return (rows_outside && (width == 1 || o.stride2 >= run)) ||
           (columns_outside && (height == 1 || o.stride1 >= run));
}

// Element pointers in ascending or descending order, at least `run` bytes apart.
bool Footprint::are_entries_apart(Number run) const {
    bool up = true, down = true;
    Number before = 0;
    for (int i = 0; i < objects_.shape.height; ++i)
        for (int j = 0; j < objects_.width(i); ++j) {
            const auto at = reinterpret_cast<Number>(objects_.entry(i, j));
            if (i + j > 0) {
                up = up && at >= before + run;
                down = down && before >= at + run;
            }
            before = at;
        }
    return up || down;
}

bool Footprint::is_same_memory(const Footprint &other) const {
    const Objects &a = objects_, &b = other.objects_;
    return !is_layout() && a.description == b.description && extent_ == other.extent_ &&
           a.base == b.base && a.step == b.step && a.offset == b.offset && a.stride1 == b.stride1 &&
           a.stride2 == b.stride2;
}

void Overlap::decide(int count) {
    if (destination_.is_layout()) {
        clear_ = table_clear(count);
        return;
    }
    clear_ = destination_.is_disjoint(count);
    const Span all = destination_.all(count);
    for (int k = 0; k < sources_; ++k)
        clear_ = clear_ &&
                 (!all.meets(source_[k].all(count)) || destination_.is_same_memory(source_[k]));
}

// A table of objects is clear where it ascends and each source object lies between the destination
// objects before and behind it, or all sources lie elsewhere.
bool Overlap::table_clear(int count) const {
    Span all = destination_.object(0);
    for (int n = 1; n < count; ++n) {
        const Span d = destination_.object(n);
        if (d.low < destination_.object(n - 1).high)
            return false;
        all = {d.low < all.low ? d.low : all.low, d.high > all.high ? d.high : all.high};
    }
    for (int k = 0; k < sources_; ++k)
        if (!source_clear(source_[k], all, count))
            return false;
    return true;
}

bool Overlap::source_clear(const Footprint &source, Span destinations, int count) const {
    bool between = true, outside = true;
    for (int n = 0; n < count; ++n) {
        const Span o = source.object(n);
        outside = outside && !o.meets(destinations);
        between = between && (n == 0 || o.low >= destination_.object(n - 1).high) &&
                  (n == count - 1 || o.high <= destination_.object(n + 1).low);
    }
    return between || outside;
}

bool Overlap::group_clear(int first, int live) const {
    for (int l = 0; l < live; ++l) {
        const Span d = destination_.object(first + l);
        for (int m = 0; m < live; ++m) {
            if (m == l)
                continue;
            if (destination_.object(first + m).meets(d))
                return false;
            for (int k = 0; k < sources_; ++k)
                if (source_[k].object(first + m).meets(d))
                    return false;
        }
    }
    return true;
}

} // namespace zelm
