// Arrays of objects for solvers that finish every object: any signed distances, any number of
// objects, and a status for each.
//
// A group of lanes is given by an address per lane. Behind the last object the lanes take its
// address again: they compute and store what its own lane does.
#pragma once

#include "../frame/block_access.hpp"
#include "../frame/parallel.hpp"
#include "zelmsafe.h"

#include <cstdlib>

namespace zelm::safe {

inline constexpr int largest_straight_line_order = 6;

// The objects of an array that are worked on at once: first ... first + live - 1, or those that
// `numbers` lists.
struct Group {
    Distance first;
    int live;
    const Distance *numbers = nullptr;

    ZELM_INLINE Distance number(int lane) const {
        const int l = lane < live ? lane : live - 1;
        return numbers == nullptr ? first + l : numbers[l];
    }
    template <class T, int L>
    ZELM_INLINE LaneObjects<T, L> objects(const ZelmView &v) const {
        LaneObjects<T, L> o;
        o.stride1 = v.stride1;
        o.stride2 = v.stride2;
        o.is_planar = v.table == nullptr && v.stride0 == Distance{sizeof(T)} && live == L &&
                      numbers == nullptr;
        unroll<L>(ZELM_EACH(l) {
            const Distance n = number(l);
            o.at[l] = v.table == nullptr ? static_cast<ByteOf<T> *>(v.data) + n * v.stride0
                                         : static_cast<ByteOf<T> *>(v.table[n]) + v.stride0;
        });
        return o;
    }
    // Of a full group, where is_dense_view says so.
    template <class T, int H, int W>
    ZELM_INLINE Dense<T, H, W> dense(const ZelmView &v) const {
        return {static_cast<ByteOf<T> *>(v.data) + first * v.stride0, v.stride0};
    }
};

// Whether a destination is certainly no source: then objects that need care may be stored before.
inline bool are_apart(const ZelmView &source, const ZelmView &to) {
    return source.table == nullptr && to.table == nullptr && source.data != to.data;
}

// Whether the objects, rows x columns, have no gaps inside.
template <class T>
bool is_dense_view(const ZelmView &v, int rows, int columns) {
    constexpr Distance element = sizeof(T);
    return v.table == nullptr && (columns == 1 || v.stride2 == element) &&
           (rows == 1 || v.stride1 == columns * element);
}

ZELM_INLINE bool is_null(const ZelmView &v) { return v.data == nullptr && v.table == nullptr; }

// The first failure of all, whichever thread meets it: the number of the object and its status.
class FirstFailure {
public:
    ZELM_INLINE void note(Distance object, int status) {
        if (__atomic_load_n(&object_, __ATOMIC_RELAXED) > object) {
#pragma omp critical(zelm_first_failure)
            if (object < object_) {
                __atomic_store_n(&object_, object, __ATOMIC_RELAXED);
                status_ = status;
            }
        }
    }
    int status() const { return status_; }

private:
    Distance object_ = PTRDIFF_MAX;
    int status_ = zelStatusOk;
};

// Below this many multiplications and additions a call stays on its thread: some 20 microseconds.
inline constexpr double parallel_work = 1e5;
inline constexpr std::size_t scratch_alignment = 64;

// Does groups of L lanes, the first of which is `group`, until one is not `fine` in all lanes;
// `group` is then the last one done. Returns its lanes that are fine, as bits.
template <int L, class F>
ZELM_INLINE unsigned in_run(Group &group, int groups, const F &f) {
    for (;;) {
        const unsigned fine = f(group);
        if (fine != (1u << L) - 1 || --groups == 0) [[unlikely]]
            return fine;
        group.first += L;
    }
}

// Finishes all objects. attempt(group, groups, scratch) does a run of groups of L lanes as in_run
// says, and stores the objects that need no more care. The others are collected, so that few of
// them cost little: rest(group, scratch, statuses) finishes up to R, whose numbers ascend, and sets
// statuses[lane] where a lane fails. `scratch` has scratch_bytes, aligned; `work` counts the
// operations of one object.
template <int L, int R, class Attempt, class Rest>
int finish_objects(Distance count, double work, std::size_t scratch_bytes, ZelmStatusView status,
                   const Attempt &attempt, const Rest &rest) {
    FirstFailure failure;
    Distance base = 0; // ranges are numbered by int
    const auto set = [&](Distance object, int value) {
        store<int>(reinterpret_cast<char *>(status.first) + object * status.stride, value);
    };
    const auto range = [&](int first, int n, void *memory) {
        char *const scratch =
            static_cast<char *>(memory) +
            (scratch_alignment - reinterpret_cast<std::uintptr_t>(memory) % scratch_alignment);
        if (status.first != nullptr)
            for (int done = 0; done < n; ++done)
                set(base + first + done, zelStatusOk);
        Distance numbers[R];
        int waiting = 0;
        const auto finish_waiting = [&] {
            const bool adjacent = numbers[waiting - 1] - numbers[0] == waiting - 1;
            const Group group = {numbers[0], waiting, adjacent ? nullptr : numbers};
            int statuses[R] = {};
            rest(group, scratch, statuses);
            for (int l = 0; l < waiting; ++l)
                if (statuses[l] != zelStatusOk) {
                    failure.note(numbers[l], statuses[l]);
                    if (status.first != nullptr)
                        set(numbers[l], statuses[l]);
                }
            waiting = 0;
        };
        const Distance end = base + first + n;
        for (Group group = {base + first, L}; group.first < end; group.first += L) {
            const auto left = static_cast<int>(end - group.first);
            group.live = left < L ? left : L;
            const unsigned fine = attempt(group, left < L ? 1 : left / L, scratch);
            for (unsigned open = ((2u << (group.live - 1)) - 1) & ~fine; open != 0;
                 open &= open - 1) {
                numbers[waiting++] = group.first + __builtin_ctz(open);
                if (waiting == R)
                    finish_waiting();
            }
        }
        if (waiting != 0)
            finish_waiting();
        return zelStatusOk;
    };
    using Range = decltype(range);
    const RangeKernel ranges = {[](const void *context, int first, int n, void *memory) {
                                    return (*static_cast<const Range *>(context))(first, n, memory);
                                },
                                &range};
    alignas(scratch_alignment) char local[8192];
    const std::size_t bytes = scratch_bytes + scratch_alignment;
    void *const own = bytes <= sizeof local ? local : std::malloc(bytes);
    if (own == nullptr)
        return zelmSafeNoMemory;
    constexpr Distance most = 1 << 30; // objects at once
    for (; base < count; base += most) {
        const int n = static_cast<int>(count - base < most ? count - base : most);
        if (work * n < parallel_work)
            range(0, n, own);
        else
            y8_ownOMP_zelm_ranges(ranges, n, bytes, own);
    }
    if (own != local)
        std::free(own);
    return failure.status();
}
// Without an attempt.
template <int L, class Kernel>
int finish_objects(Distance count, double work, std::size_t scratch_bytes, ZelmStatusView status,
                   const Kernel &kernel) {
    return finish_objects<L, L>(
        count, work, scratch_bytes, status, [](const Group &, int, char *) { return 0u; }, kernel);
}

// The order of checks of every function. Elements of scratch are numbered by int: a matrix of any
// two of the sizes may not have more. An order is given twice.
template <class... Views>
int first_wrong(Distance count, std::initializer_list<int> sizes, const Views &...views) {
    constexpr Distance most = 1 << 28;
    if ((is_null(views) || ...))
        return zelStatusNullPointer;
    if (count < 0)
        return zelStatusBadCount;
    for (const int &size : sizes)
        for (const int &other : sizes)
            if (size < 1 || (&size != &other && Distance{size} * other > most))
                return zelStatusBadSize;
    return zelStatusOk;
}

// ---- whole objects, or a Part of each, in registers' memory, row by row ----

template <class Part = Whole, class S, class T, int L>
ZELM_INLINE void load_objects(S *a, const LaneObjects<T, L> &from, int rows, int columns) {
    using E = ElementOf<S>;
    constexpr int lanes = lanes_per_register<E>;
    unroll<lanes_of<S> / lanes>(ZELM_EACH(r) {
        const auto part = from.template part<lanes>(r * lanes);
        for (int i = 0; i < rows; ++i)
            load_row<E>(
                part, i, Part::width(i, columns),
                NaturalRows<E>{}, [&](int j, const auto &run) __attribute__((always_inline)) {
                    unroll<sizeof run / sizeof *run>(
                        ZELM_EACH(k) { register_of(a[i * columns + j + k], r) = run[k]; });
                });
    });
}
// Which elements of a are stored; zeros stand for the others.
struct AllElements {
    static constexpr bool all = true;
};
struct LowerElements {
    static constexpr bool all = false;
};
template <class Elements = AllElements, class S, class T, int L>
ZELM_INLINE void store_objects(const LaneObjects<T, L> &to, const S *a, int rows, int columns) {
    constexpr int lanes = lanes_per_register<T>;
    unroll<lanes_of<S> / lanes>(ZELM_EACH(r) {
        const auto part = to.template part<lanes>(r * lanes);
        for (int i = 0; i < rows; ++i)
            store_row<T>(
                part, i, columns,
                NaturalRows<T>{}, [&](int j, auto &run) __attribute__((always_inline)) {
                    const bool above = !Elements::all && j > i; // not even loaded
                    unroll<sizeof run / sizeof *run>(ZELM_EACH(k) {
                        if (above || (!Elements::all && k > 0 && j + k > i))
                            run[k] = splat<Lanes<T>>(0);
                        else
                            run[k] = register_of(a[i * columns + j + k], r);
                    });
                });
    });
}
// The lanes of `lanes` alone.
template <class Elements = AllElements, class S, class T, int L>
void store_some(const LaneObjects<T, L> &to, unsigned lanes, const S *a, int rows, int columns) {
    static_assert(lanes_of<S> == L);
    if (lanes == all_lanes<S>) [[likely]]
        return store_objects<Elements>(to, a, rows, columns);
    for (; lanes != 0; lanes &= lanes - 1) {
        const int l = __builtin_ctz(lanes);
        const auto v = to.view(l);
        for (int i = 0; i < rows; ++i)
            for (int j = 0; j < columns; ++j)
                put(v, i, j,
                    Elements::all || j <= i
                        ? load<T>(reinterpret_cast<const T *>(a + i * columns + j) + l)
                        : T{0});
    }
}
// The lower triangle, and what completes its last runs of a register's lanes.
template <class T>
struct LowerRuns {
    static constexpr int width(int i, int columns) {
        const int runs = (i / lanes_per_register<T> + 1) * lanes_per_register<T>;
        return runs < columns ? runs : columns;
    }
};

} // namespace zelm::safe
