// The rows of the table. A row over arrays of objects is one ArrayRow: its peers are all those that
// offer its work, type, shape and memory.
#ifndef BENCH_ROWS_HPP
#define BENCH_ROWS_HPP

#include <utility>
#include <vector>

#include "../harness.hpp"
#include "../library.hpp"
#include "../peers.hpp"
#include "../problem.hpp"

namespace zelm::bench {

using LibraryCall = void (*)(const Problem &);

enum class Description { standard, pointer, layout };

// Data that stay the same from call to call let branch predictors learn them by heart.
enum class Data { repeated, fresh };

struct ArrayRow {
    const char *work;
    BenchWork kind;
    Shape shape;
    LibraryCall library;
    BenchMemory memory = bench_packed;
    Description description = Description::standard;
    Data data = Data::repeated;
    int count = 1000;
    Floor floor = {};
    const char *bound = "";
    LibraryCall contiguous = nullptr; // the same work on packed memory, as competitor "contiguous"
};

class Rows {
public:
    explicit Rows(const Peers &peers) : peers_(peers) {}

    template <class T>
    void add(const ArrayRow &row) {
        add_array(row, type_of<T>);
    }
    template <class T>
    void add(Row row) {
        row.type = type_of<T> == ElementType::f32 ? "32f" : "64f";
        rows_.push_back(std::move(row));
    }

    const std::vector<Row> &all() const { return rows_; }

private:
    void add_array(const ArrayRow &row, ElementType type);

    const Peers &peers_;
    std::vector<Row> rows_;
};

constexpr Shape order(int n) { return {n, n, n}; }

// Floors by type.
struct Floors {
    double f32, f64;
    template <class T>
    double of() const {
        return type_of<T> == ElementType::f32 ? f32 : f64;
    }
};

// A square shape, its floors times the best SSE4.2-built peer and what bounds it.
struct Order {
    int order;
    Floors floors;
    const char *bound;
};

// The same work on padded rows and in the other descriptions, against contiguous memory.
template <class T>
void add_descriptions(Rows &rows, const char *work, BenchWork kind, LibraryCall standard,
                      LibraryCall pointer, LibraryCall layout) {
    const struct {
        LibraryCall call;
        BenchMemory memory;
        Description description;
    } shapes[] = {
        {standard, bench_padded, Description::standard},
        {pointer, bench_packed, Description::pointer},
        {pointer, bench_planar, Description::pointer},
        {layout, bench_packed, Description::layout},
    };
    for (const auto &shape : shapes)
        for (int n : {3, 4, 6})
            rows.add<T>({.work = work,
                         .kind = kind,
                         .shape = order(n),
                         .library = shape.call,
                         .memory = shape.memory,
                         .description = shape.description,
                         .floor = at_most(2, "contiguous"),
                         .bound = "loads",
                         .contiguous = standard});
}

// Each file of rows. The order here is the order of the table.
void add_lu_rows(Rows &rows);
void add_cholesky_rows(Rows &rows);
void add_invert_rows(Rows &rows);
void add_qr_rows(Rows &rows);
void add_eigen_rows(Rows &rows);
void add_mul_rows(Rows &rows);
void add_sum_rows(Rows &rows);
void add_reduction_rows(Rows &rows);
void add_move_rows(Rows &rows);
void add_combination_rows(Rows &rows);
void add_geometry_rows(Rows &rows);
void add_call_rows(Rows &rows);
void add_thread_rows(Rows &rows);
void add_safe_rows(Rows &rows);

} // namespace zelm::bench

#endif
