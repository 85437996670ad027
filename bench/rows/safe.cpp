// The solvers that finish every object, with a status for each: beside the array functions that do
// the same work, and with every tenth object failing beside none.
#include "eigen_calls.hpp"
#include "lu_calls.hpp"
#include "rows.hpp"
#include "safe_calls.hpp"
#include "solver_calls.hpp"

#include <algorithm>
#include <limits>

namespace zelm::bench {
namespace {

using SafeCall = int (*)(const Problem &, ZelmStatusView);

struct SafeRow {
    const char *work;
    BenchWork kind;
    SafeCall safe;
    LibraryCall array;
    double most = 0;   // times the array functions' time
    int most_from = 2; // from this order on
};

struct Place {
    const char *name;
    BenchMemory memory;
    int count;
};
constexpr Place places[] = {
    {"packed", bench_packed, 1000},
    {"packed", bench_packed, 1003}, // leaves objects behind the last whole group
    {"padded rows", bench_padded, 1000},
    {"planar", bench_planar, 1000},
};

// A problem and the statuses of its objects.
struct SafeSpace {
    Workspace workspace;
    std::vector<int> statuses;

    int call(SafeCall safe) { return safe(workspace.problem(), {statuses.data(), sizeof(int)}); }
};

// Spoils every tenth object: in turn a NaN, and a row of zeros with a diagonal that is not positive
// where the matrix may be singular. Tells how many of them have to fail.
template <class T>
int spoil(const Problem &p, BenchWork kind) {
    int failing = 0;
    for (int n = 0; n < p.count; n += 10) {
        const auto element = [&](int i, int j) -> T & {
            return *reinterpret_cast<T *>(
                static_cast<std::byte *>(p.a.base) + std::ptrdiff_t{n} * p.a.object +
                std::ptrdiff_t{i} * p.a.row + std::ptrdiff_t{j} * p.a.element);
        };
        const int k = n / 20 % p.rows;
        if (n % 20 == 0 || kind == bench_symmetric)
            element(k, k / 2) = std::numeric_limits<T>::quiet_NaN();
        else
            for (int j = 0; j < p.rows; ++j)
                element(k, j) = 0;
        failing += n % 20 == 0 || kind != bench_det; // 0 is a determinant
    }
    return failing;
}

template <class T>
void add_safe(Rows &rows, const SafeRow &row, int n, const Place &place, bool failing) {
    const auto open = [=] {
        const auto make = [&] {
            const auto space = std::make_shared<SafeSpace>(
                Workspace(row.kind, type_of<T>, order(n), place.memory, place.count, false),
                std::vector<int>(static_cast<std::size_t>(place.count)));
            space->workspace.fill(1);
            return space;
        };
        const auto good = make();
        const Problem &problem = good->workspace.problem();
        Contest contest;
        const auto compete = [&](const char *name, Build build, std::function<void()> run,
                                 BenchPivots stored) {
            const auto check = [good, run, stored] {
                good->workspace.poison();
                run();
                return good->workspace.error(stored) <= 1 ? std::string() : "wrong result";
            };
            contest.competitors.push_back({name, build, run, {}, check});
        };
        const auto safe = [=, call = row.safe] {
            if (const int status = good->call(call); status != zelStatusOk)
                throw std::runtime_error("status " + std::to_string(status));
        };
        if (failing) {
            const auto bad = make();
            const int expected = spoil<T>(bad->workspace.problem(), row.kind);
            const auto run = [=, call = row.safe] { bad->call(call); };
            const auto check = [=] {
                run();
                const auto failed = [](int status) { return status != zelStatusOk; };
                return std::ranges::count_if(bad->statuses, failed) == expected ? std::string()
                                                                                : "wrong statuses";
            };
            contest.competitors.push_back({"library", Build::library, run, {}, check});
            compete("none fails", Build::reference, safe, bench_factor);
        } else {
            compete("library", Build::library, safe, bench_factor);
            compete(
                "array", Build::reference, [&problem, call = row.array] { call(problem); },
                bench_pivots_none);
        }
        contest.units = place.count;
        contest.memory = good;
        return contest;
    };
    const bool limited = row.most > 0 && n >= row.most_from;
    rows.add<T>({.work = row.work,
                 .type = {},
                 .shape = std::to_string(n) + 'x' + std::to_string(n),
                 .memory = place.name,
                 .data = failing ? "failing" : "repeated",
                 .count = place.count,
                 .bound = "",
                 .floor = failing   ? at_most(2, "none fails")
                          : limited ? at_most(row.most, "array")
                                    : shown("array"),
                 .threads = 1,
                 .open = open});
}

template <class T>
void add_safe(Rows &rows) {
    const SafeRow works[] = {
        {"safe solve", bench_lu_solve, safe_solve<T>, lu_solve<T>, 1.1},
        {"safe inverse", bench_invert, safe_inverse<T>, invert<T>, 1.1, 6},
        {"safe det", bench_det, safe_determinant<T>, determinant<T>},
        {"safe Cholesky", bench_cholesky, safe_cholesky<T>, cholesky<T>, 1.1},
        {"safe sym", bench_symmetric, safe_symmetric<T>, symmetric<T>, 1.25},
    };
    for (const SafeRow &row : works)
        for (bool failing : {false, true})
            for (const Place &place : places)
                for (int n : {2, 3, 4, 5, 6, 8, 16})
                    add_safe<T>(rows, row, n, place, failing);
}

} // namespace

void add_safe_rows(Rows &rows) {
    add_safe<float>(rows);
    add_safe<double>(rows);
}

} // namespace zelm::bench
