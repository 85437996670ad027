#include "report.hpp"

#include <cstdio>
#include <ctime>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <unistd.h>

namespace zelm::bench {
namespace {

std::string format(const char *pattern, double value) {
    char text[64];
    std::snprintf(text, sizeof text, pattern, value);
    return text;
}

std::string nanoseconds(double ns) {
    return format(ns < 10 ? "%.2f" : ns < 1000 ? "%.1f" : "%.0f", ns);
}

std::string times(const Outcome &outcome, const Time *other) {
    if (!other || outcome.times.empty())
        return "-";
    return format("%.2f ", other->min / outcome.library().min) + other->name;
}

std::string floor_text(const Outcome &outcome) {
    const Floor &floor = outcome.row->floor;
    if (!outcome.has_floor())
        return "-";
    return (floor.kind == Floor::Kind::at_least ? ">= " : "<= ") + format("%.3g", floor.factor) +
           (!outcome.ratio()      ? " no peer"
            : outcome.floor_met() ? " met"
                                  : " MISSED");
}

// Floors against the best SSE4.2-built peer have a column of their own.
std::string against_text(const Outcome &outcome) {
    const Floor &floor = outcome.row->floor;
    const auto ratio = outcome.ratio();
    if (floor.against.empty() || floor.against == best_sse_peer || !ratio)
        return "-";
    return format(floor.kind == Floor::Kind::at_least ? "%.2f x " : "%.2f of ", *ratio) +
           std::string(floor.against) + " (" + nanoseconds(outcome.floor_time()->min) + ")";
}

constexpr const char *line = "%-13s %-4s %-5s %-18s %-8s %8s %9s %9s  %-19s %-19s %-26s %-14s %s\n";

void print_head() {
    std::printf(line, "work", "type", "shape", "memory", "data", "count", "ns min", "median",
                "x SSE4.2 build", "x machine build", "x other", "floor", "bound by");
}

void print_row(const Outcome &outcome) {
    const Row &row = *outcome.row;
    std::printf(line, row.work.c_str(), row.type.c_str(), row.shape.c_str(), row.memory.c_str(),
                row.data.c_str(), std::to_string(row.count).c_str(),
                nanoseconds(outcome.library().min).c_str(),
                nanoseconds(outcome.library().median).c_str(),
                times(outcome, outcome.best(Build::sse)).c_str(),
                times(outcome, outcome.best(Build::machine)).c_str(), against_text(outcome).c_str(),
                floor_text(outcome).c_str(), row.bound.c_str());
}

const char *build_name(Build build) {
    switch (build) {
    case Build::library:
        return "library";
    case Build::sse:
        return "sse4.2";
    case Build::machine:
        return "machine";
    case Build::reference:
        return "reference";
    }
    return "";
}

std::string quoted(const std::string &text) {
    std::string result = "\"";
    for (char c : text) {
        if (c == '"' || c == '\\')
            result += '\\';
        result += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
    }
    return result + '"';
}

std::string processor() {
    std::ifstream info("/proc/cpuinfo");
    for (std::string text; std::getline(info, text);)
        if (text.starts_with("model name"))
            return text.substr(text.find(':') + 2);
    return "unknown";
}

} // namespace

bool TableReporter::ReportContext(const Context &) {
    const benchmark::CPUInfo &cpu = benchmark::CPUInfo::Get();
    std::printf("%s, %d CPUs", processor().c_str(), cpu.num_cpus);
    for (const auto &cache : cpu.caches)
        std::printf(", L%d %s %d KiB", cache.level, cache.type.c_str(), cache.size / 1024);
    std::printf("\nns per object (per call where the memory says so), minimum and median;"
                " x: times as fast as\n\n");
    print_head();
    return true;
}

void TableReporter::ReportRuns(const std::vector<Run> &runs) {
    for (const Run &run : runs) {
        const auto found = outcomes_.find(run.run_name.function_name);
        if (found == outcomes_.end())
            continue;
        const Outcome &outcome = found->second;
        if (!outcome.times.empty())
            print_row(outcome);
        if (details_)
            for (const Time &time : outcome.times)
                std::printf("    %-10s %-14s %9s %9s\n", build_name(time.build), time.name.c_str(),
                            nanoseconds(time.min).c_str(), nanoseconds(time.median).c_str());
        for (const std::string &complaint : outcome.complaints)
            std::printf("WRONG %s: %s\n", outcome.row->name().c_str(), complaint.c_str());
        std::fflush(stdout);
    }
}

bool print_summary(const std::vector<const Outcome *> &outcomes) {
    int floors = 0;
    std::vector<const Outcome *> missed;
    bool right = true;
    for (const Outcome *outcome : outcomes) {
        right = right && outcome->complaints.empty();
        if (!outcome->has_floor() || !outcome->ratio())
            continue;
        ++floors;
        if (!outcome->floor_met())
            missed.push_back(outcome);
    }
    std::printf("\nFloors: %d, missed: %zu (5 %% allowed for noise)\n", floors, missed.size());
    for (const Outcome *outcome : missed)
        std::printf("    %-52s %6.2f, floor %.3g %s\n", outcome->row->name().c_str(),
                    *outcome->ratio(), outcome->row->floor.factor,
                    std::string(outcome->row->floor.against).c_str());
    for (const Outcome *outcome : outcomes)
        for (const std::string &complaint : outcome->complaints)
            std::printf("WRONG %s: %s\n", outcome->row->name().c_str(), complaint.c_str());
    return right;
}

void write_json(const std::string &path, const std::vector<const Outcome *> &outcomes, int cpu) {
    std::ofstream file(path);
    char date[32];
    const std::time_t now = std::time(nullptr);
    std::strftime(date, sizeof date, "%Y-%m-%dT%H:%M:%SZ", std::gmtime(&now));
    file << "{\"date\": " << quoted(date) << ", \"processor\": " << quoted(processor())
         << ", \"cpu\": " << cpu << ", \"compiler\": " << quoted(__VERSION__) << ",\n \"rows\": [";
    const char *separator = "\n";
    for (const Outcome *outcome : outcomes) {
        if (outcome->times.empty())
            continue;
        const Row &row = *outcome->row;
        file << separator << "  {\"name\": " << quoted(row.name())
             << ", \"bound\": " << quoted(row.bound)
             << ", \"floor\": " << quoted(floor_text(*outcome));
        if (const auto ratio = outcome->ratio())
            file << ", \"ratio\": " << *ratio
                 << ", \"against\": " << quoted(std::string(row.floor.against));
        file << ", \"right\": " << (outcome->complaints.empty() ? "true" : "false")
             << ", \"times\": [";
        const char *comma = "";
        for (const Time &time : outcome->times) {
            file << comma << "{\"name\": " << quoted(time.name) << ", \"build\": \""
                 << build_name(time.build) << "\", \"min\": " << time.min
                 << ", \"median\": " << time.median << '}';
            comma = ", ";
        }
        file << "]}";
        separator = ",\n";
    }
    file << "\n ]}\n";
    file.close();
    if (!file)
        throw std::runtime_error("cannot write " + path);
}

} // namespace zelm::bench
