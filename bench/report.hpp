// The table, the summary of floors, and the results file.
#ifndef BENCH_REPORT_HPP
#define BENCH_REPORT_HPP

#include <map>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "harness.hpp"

namespace zelm::bench {

// Takes each row when its benchmark has run and prints it.
class TableReporter : public benchmark::BenchmarkReporter {
public:
    TableReporter(const std::map<std::string, Outcome> &outcomes, bool details)
        : outcomes_(outcomes), details_(details) {}

    bool ReportContext(const Context &context) override;
    void ReportRuns(const std::vector<Run> &runs) override;

private:
    const std::map<std::string, Outcome> &outcomes_;
    bool details_;
};

// Tells wrong results and missed floors, in the order of the rows. True if all results are right.
bool print_summary(const std::vector<const Outcome *> &outcomes);

// One line per row, for compare.py.
void write_json(const std::string &path, const std::vector<const Outcome *> &outcomes, int cpu);

} // namespace zelm::bench

#endif
