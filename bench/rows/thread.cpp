// Two threads against one: where it pays, and what it costs where it does not.
#include "lu_calls.hpp"
#include "mul_calls.hpp"
#include "rows.hpp"
#include "solver_calls.hpp"
#include "sum_calls.hpp"

#include <zelcore.h>

namespace zelm::bench {
namespace {

struct ThreadRow {
    const char *work;
    BenchWork kind;
    Shape shape;
    LibraryCall library;
    int count;
    bool per_call; // time of a call instead of an object
    Floor floor;
    const char *bound;
    LibraryCall prepare = nullptr; // called once before
};

template <class T>
void add_threads(Rows &rows, const ThreadRow &row) {
    const auto open = [row] {
        const auto space = std::make_shared<Workspace>(row.kind, type_of<T>, row.shape,
                                                       bench_packed, row.count, false);
        space->fill(1);
        if (row.prepare)
            row.prepare(space->problem());
        Contest contest;
        const auto run = [library = row.library, &problem = space->problem()] { library(problem); };
        const auto compete = [&](const char *name, Build build, int threads) {
            const auto use_threads = [threads] { zelSetNumThreads(threads); };
            const auto check = [space, run,
                                pivots =
                                    row.kind == bench_lu ? bench_pivots_stay : bench_pivots_none] {
                space->poison();
                run();
                return space->error(pivots) <= 1 ? std::string() : "wrong result";
            };
            contest.competitors.push_back({name, build, run, use_threads, check});
        };
        compete("library", Build::library, 2);
        compete("1 thread", Build::reference, 1);
        contest.units = row.per_call ? 1 : row.count;
        contest.memory = space;
        return contest;
    };
    const std::string size = std::to_string(row.shape.rows);
    rows.add<T>({.work = row.work,
                 .type = {},
                 .shape = size + 'x' + size,
                 .memory = row.per_call ? "2 threads per call" : "2 threads",
                 .data = "repeated",
                 .count = row.count,
                 .bound = row.bound,
                 .floor = row.floor,
                 .threads = 2,
                 .open = open});
}

// The least count whose work estimate reaches the limit, given the estimate of one object.
constexpr int count_from(int limit, int per_object) {
    return (limit + per_object - 1) / per_object;
}

template <class T>
void add_million(Rows &rows) {
    for (int n : {4, 6})
        add_threads<T>(rows, {"LU and solve", bench_lu_solve, order(n), lu_solve<T>, 1'000'000,
                              false, at_least(1.8, "1 thread"), "memory bandwidth"});
    const Floor floor = at_least(1.7, "1 thread");
    add_threads<T>(rows, {"Cholesky and solve", bench_cholesky_solve, order(6), cholesky_solve<T>,
                          300'000, false, floor, "memory bandwidth"});
    add_threads<T>(rows, {"inverse", bench_invert, order(6), invert<T>, 300'000, false, floor,
                          "memory bandwidth"});
    add_threads<T>(rows, {"QR and solve", bench_qr_solve, order(6), qr_solve<T>, 300'000, false,
                          floor, "memory bandwidth"});
}

template <class T>
void add_limits(Rows &rows) {
    const bool is_float = type_of<T> == ElementType::f32;
    const Floor against = shown("1 thread");
    for (int n : {3, 4, 6}) {
        const int count = count_from(is_float ? 3000 : 2000, 3 * n * n);
        add_threads<T>(
            rows,
            {"Add mama", bench_add, {n, 0, n}, add<T>, count, true, against, "opening the region"});
    }
    for (int n : {3, 4, 6}) {
        const int count = count_from(is_float ? 2501 : 3601, 3 * n * n);
        add_threads<T>(rows, {"Mul mama", bench_mul, order(n), mul<T>, count, true, against,
                              "opening the region"});
    }
    for (int n : {3, 4, 6}) {
        const int count = count_from(1001, n * n);
        add_threads<T>(
            rows, {"LU", bench_lu, order(n), lu<T>, count, true, against, "opening the region"});
    }
    for (int n : {3, 4, 6}) {
        const int count = count_from(1201, (n + 2) * n);
        add_threads<T>(rows, {"LUBackSubst", bench_lu_solve, order(n), back_substitute<T>, count,
                              true, against, "opening the region", lu_solve<T>});
    }
}

} // namespace

void add_thread_rows(Rows &rows) {
    add_million<float>(rows);
    add_million<double>(rows);
    add_limits<float>(rows);
    add_limits<double>(rows);
}

} // namespace zelm::bench
