#include "rows.hpp"

#include <array>
#include <cmath>
#include <cstdio>

namespace zelm::bench {
namespace {

std::string shape_name(const ArrayRow &row) {
    const Shape &s = row.shape;
    if (row.kind == bench_qr || row.kind == bench_qr_solve)
        return std::to_string(s.rows) + 'x' + std::to_string(s.columns);
    if (s.rows == 1 && s.inner == 0)
        return std::to_string(s.columns);
    return std::to_string(s.rows) + 'x' + std::to_string(s.columns == 1 ? s.inner : s.columns);
}

std::string memory_name(const ArrayRow &row) {
    constexpr std::array names = {"packed",  "padded rows", "gaps",    "planar",
                                  "columns", "16 bytes",    "32 bytes"};
    const std::string memory = names.at(row.memory);
    switch (row.description) {
    case Description::pointer:
        return row.memory == bench_packed ? "pointer" : "pointer " + memory;
    case Description::layout:
        return row.memory == bench_packed ? "layout" : "layout " + memory;
    case Description::standard:
        break;
    }
    return memory;
}

// Runs on spoiled results and looks at what came of it.
std::string run_and_check(Workspace &workspace, const std::function<void()> &run,
                          BenchPivots pivots) {
    workspace.poison();
    try {
        run();
    } catch (const std::exception &failure) {
        return failure.what();
    }
    const double error = workspace.error(pivots);
    if (error <= 1)
        return "";
    char text[64];
    std::snprintf(text, sizeof text, "error is %.3g times what is allowed", error);
    return text;
}

} // namespace

void Rows::add_array(const ArrayRow &row, ElementType type) {
    const auto open = [row, type, this] {
        Contest contest;
        const bool tables = row.description != Description::standard;
        const auto own =
            std::make_shared<Workspace>(row.kind, type, row.shape, row.memory, row.count, tables);
        const auto packed = row.contiguous
                                ? std::make_shared<Workspace>(row.kind, type, row.shape,
                                                              bench_packed, row.count, false)
                                : nullptr;
        const BenchPivots stay = row.kind == bench_lu ? bench_pivots_stay : bench_pivots_none;
        const auto compete = [&](const std::string &name, Build build,
                                 const std::shared_ptr<Workspace> &workspace, auto call,
                                 BenchPivots pivots, bool checked) {
            const std::function<void()> run = [call, &problem = workspace->problem()] {
                call(problem);
            };
            Competitor competitor{name, build, run};
            if (checked)
                competitor.check = [workspace, run, pivots] {
                    return run_and_check(*workspace, run, pivots);
                };
            contest.competitors.push_back(std::move(competitor));
        };

        compete("library", Build::library, own, row.library, stay, true);
        if (row.contiguous)
            compete("contiguous", Build::reference, packed, row.contiguous, stay, true);
        if (row.description == Description::standard)
            for (const Peer &peer : peers_.find(row.kind, type, row.shape, row.memory)) {
                const auto call = [run = peer.entry->run](const Problem &p) { run(&p); };
                compete(peer.entry->name, peer.build, own, call, peer.entry->pivots,
                        !peer.entry->is_bound);
            }

        const auto fill = [own, packed](unsigned seed) {
            own->fill(seed);
            if (packed)
                packed->fill(seed);
        };
        fill(1);
        if (row.data == Data::fresh)
            contest.fill = fill;
        contest.units = row.count;
        contest.memory = own;
        return contest;
    };
    rows_.push_back({row.work, type == ElementType::f32 ? "32f" : "64f", shape_name(row),
                     memory_name(row), row.data == Data::fresh ? "fresh" : "repeated", row.count,
                     row.bound, row.floor, 1, open});
}

} // namespace zelm::bench
