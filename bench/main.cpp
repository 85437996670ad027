// zelm_bench: the library beside its peers, in one table.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <map>
#include <optional>
#include <regex>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <zelcore.h>

#include "harness.hpp"
#include "peers.hpp"
#include "report.hpp"
#include "rows/rows.hpp"

namespace {

using namespace zelm::bench;

constexpr const char *usage =
    "zelm_bench [--filter REGEX] [--quick] [--details] [--json FILE] [--cpu N] [--list]\n"
    "  --filter REGEX  only rows whose name, as --list shows it, has a match\n"
    "  --quick         a fifth of the turns\n"
    "  --details       the times of all peers\n"
    "  --json FILE     write the results, for compare.py\n"
    "  --cpu N         the CPU to measure on, by default the last\n"
    "Returns 1 if a result is wrong. Missed floors are told at the end.\n";

struct Options {
    std::string filter = ".";
    std::string json;
    std::optional<int> cpu;
    bool quick = false, details = false, list = false;
};

std::optional<Options> parse(int argc, char **argv) {
    Options options;
    for (int i = 1; i < argc; ++i) {
        const std::string option = argv[i];
        const bool has_value = i + 1 < argc;
        if (option == "--quick")
            options.quick = true;
        else if (option == "--details")
            options.details = true;
        else if (option == "--list")
            options.list = true;
        else if (option == "--filter" && has_value)
            options.filter = argv[++i];
        else if (option == "--json" && has_value)
            options.json = argv[++i];
        else if (option == "--cpu" && has_value)
            options.cpu = std::atoi(argv[++i]);
        else
            return {};
    }
    return options;
}

int run(const Options &options, char *program) {
    const Peers peers(std::filesystem::canonical("/proc/self/exe").parent_path().string());
    for (const std::string &missing : peers.missing())
        std::fprintf(stderr, "left out: %s\n", missing.c_str());

    Rows rows(peers);
    add_lu_rows(rows);
    add_cholesky_rows(rows);
    add_invert_rows(rows);
    add_qr_rows(rows);
    add_eigen_rows(rows);
    add_mul_rows(rows);
    add_sum_rows(rows);
    add_combination_rows(rows);
    add_reduction_rows(rows);
    add_move_rows(rows);
    add_geometry_rows(rows);
    add_call_rows(rows);
    add_thread_rows(rows);
    add_safe_rows(rows);

    const Cpus cpus(options.cpu);
    Effort effort;
    if (options.quick)
        effort = {effort.rounds / 5, effort.fewest_rounds / 5, effort.budget / 5, effort.turn};

    std::map<std::string, Outcome> outcomes;
    bool any = false;
    const std::regex filter(options.filter, std::regex::ECMAScript | std::regex::icase);
    for (const Row &row : rows.all()) {
        if (!std::regex_search(row.name(), filter))
            continue;
        any = true;
        if (options.list)
            std::puts(row.name().c_str());
        if (options.list || row.threads > cpus.count())
            continue;
        benchmark::RegisterBenchmark(
            row.name().c_str(),
            [&](benchmark::State &state) {
                for (auto _ : state) {
                    cpus.bind(row.threads);
                    zelSetNumThreads(1);
                    Outcome &outcome = outcomes[row.name()];
                    try {
                        outcome = measure(row, effort);
                    } catch (const std::exception &failure) {
                        outcome = {&row, {}, {failure.what()}};
                    }
                    state.SetIterationTime(outcome.times.empty() ? 0
                                                                 : outcome.library().min * 1e-9);
                }
            })
            ->Iterations(1)
            ->UseManualTime();
    }

    if (!any)
        throw std::runtime_error("no row matches " + options.filter);
    if (options.list)
        return 0;

    int count = 1;
    benchmark::Initialize(&count, &program);
    TableReporter table(outcomes, options.details);
    benchmark::RunSpecifiedBenchmarks(&table);

    std::vector<const Outcome *> in_order;
    for (const Row &row : rows.all())
        if (const auto found = outcomes.find(row.name()); found != outcomes.end())
            in_order.push_back(&found->second);
    const bool right = print_summary(in_order);
    if (!options.json.empty())
        write_json(options.json, in_order, cpus.first());
    return right ? 0 : 1;
}

} // namespace

int main(int argc, char **argv) {
    const auto options = parse(argc, argv);
    if (!options) {
        std::fputs(usage, stderr);
        return 2;
    }
    try {
        return run(*options, argv[0]);
    } catch (const std::exception &failure) {
        std::fprintf(stderr, "zelm_bench: %s\n", failure.what());
        return 1;
    }
}
