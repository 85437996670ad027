// Transposes, and copies from one description to another.
#include "rows.hpp"

namespace zelm::bench {
namespace {

template <class T>
void transpose(const Problem &p) {
    must(BENCH_MEMBER(T, zelmTranspose_ma)(base<T>(p.a), p.a.object, p.a.row, p.a.element,
                                           p.columns, p.rows, base<T>(p.c), p.c.object, p.c.row,
                                           p.c.element, p.count));
}
template <class T>
void transpose_one(const Problem &p) {
    must(BENCH_MEMBER(T, zelmTranspose_m)(base<T>(p.a), p.a.row, p.a.element, p.columns, p.rows,
                                          base<T>(p.c), p.c.row, p.c.element));
}

template <class T>
void copy(const Problem &p) {
    must(BENCH_MEMBER(T, zelmCopy_ma, _SS)(base<T>(p.a), p.a.object, p.a.row, p.a.element,
                                           base<T>(p.c), p.c.object, p.c.row, p.c.element,
                                           p.columns, p.rows, p.count));
}
template <class T>
void copy_to_pointers(const Problem &p) {
    must(BENCH_MEMBER(T, zelmCopy_ma, _SP)(base<T>(p.a), p.a.object, p.a.row, p.a.element,
                                           destinations<T>(p.c_elements), 0, p.c.object, p.columns,
                                           p.rows, p.count));
}
template <class T>
void copy_from_layout(const Problem &p) {
    must(BENCH_MEMBER(T, zelmCopy_ma, _LS)(sources<T>(p.a_objects), 0, p.a.row, p.a.element,
                                           base<T>(p.c), p.c.object, p.c.row, p.c.element,
                                           p.columns, p.rows, p.count));
}
template <class T>
void copy_pointers_to_layout(const Problem &p) {
    must(BENCH_MEMBER(T, zelmCopy_ma, _PL)(sources<T>(p.a_elements), 0, p.a.object,
                                           destinations<T>(p.c_objects), 0, p.c.row, p.c.element,
                                           p.columns, p.rows, p.count));
}

// Times the best SSE4.2-built peer; 0 is shown only.
struct Large {
    int order;
    Floors floors;
};
constexpr Large large[] = {{512, {2.1, 1.1}}, {1000, {0, 0}}, {2048, {3.0, 1.1}}};

template <class T>
void add_transposes(Rows &rows) {
    for (int n : {3, 4})
        rows.add<T>({.work = "Transpose ma",
                     .kind = bench_transpose,
                     .shape = {n, 0, n},
                     .library = transpose<T>,
                     .floor = times_best_sse(1),
                     .bound = "stores"});
    for (const Large &l : large)
        rows.add<T>({.work = "Transpose m",
                     .kind = bench_transpose,
                     .shape = {l.order, 0, l.order},
                     .library = transpose_one<T>,
                     .count = 1,
                     .floor = l.floors.of<T>() > 0 ? times_best_sse(l.floors.of<T>())
                                                   : shown(best_sse_peer),
                     .bound = "cache lines"});
}

template <class T>
void add_copies(Rows &rows) {
    constexpr int in_memory = 1'000'000;
    for (int count : {1000, in_memory})
        for (int n : {3, 4})
            rows.add<T>({.work = "Copy SS",
                         .kind = bench_copy,
                         .shape = {n, 0, n},
                         .library = copy<T>,
                         .count = count,
                         .floor = at_least(count == 1000 ? 1 : 0.9, "flat loop"),
                         .bound = count == 1000 ? "stores" : "memory bandwidth"});
    struct {
        const char *work;
        BenchWork kind;
        BenchMemory memory;
        Description description;
        LibraryCall call;
    } constexpr conversions[] = {
        {"Copy LS", bench_copy, bench_packed, Description::layout, copy_from_layout<T>},
        {"Copy SP", bench_copy, bench_packed, Description::pointer, copy_to_pointers<T>},
        {"Copy SP", bench_unpack, bench_planar, Description::pointer, copy_to_pointers<T>},
        {"Copy PL", bench_pack, bench_planar, Description::pointer, copy_pointers_to_layout<T>},
    };
    for (int count : {1000, in_memory})
        for (const auto &c : conversions)
            rows.add<T>({.work = c.work,
                         .kind = c.kind,
                         .shape = {4, 0, 4},
                         .library = c.call,
                         .memory = c.memory,
                         .description = c.description,
                         .count = count,
                         .floor = shown("contiguous"),
                         .bound = count == 1000 ? "stores" : "memory bandwidth",
                         .contiguous = copy<T>});
    for (const BenchWork kind : {bench_pack, bench_unpack})
        rows.add<T>({.work = kind == bench_pack ? "Copy SS from" : "Copy SS to",
                     .kind = kind,
                     .shape = {4, 0, 4},
                     .library = copy<T>,
                     .memory = bench_planar,
                     .floor = shown(best_sse_peer),
                     .bound = "stores"});
}

} // namespace

void add_move_rows(Rows &rows) {
    add_transposes<float>(rows);
    add_transposes<double>(rows);
    add_copies<float>(rows);
    add_copies<double>(rows);
}

} // namespace zelm::bench
