#include "harness.hpp"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <sched.h>

#include <omp.h>

namespace zelm::bench {
namespace {

constexpr double noise = 0.05;

using Clock = std::chrono::steady_clock;

double seconds_since(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// Code for wide registers does not always clear their upper halves when it is done, which makes
// every SSE instruction after them slow. No competitor is to pay for another.
__attribute__((target("avx"))) void clear_upper_halves() { __builtin_ia32_vzeroupper(); }

class Turns {
public:
    Turns(const Contest &contest, const Effort &effort) : contest_(contest), effort_(effort) {}

    // Seconds per run of one turn. A run before the clock starts brings code and results into the
    // caches; new data are written after it.
    double take(const Competitor &competitor, int runs, unsigned seed) const {
        for (unsigned attempt = 0;; ++attempt) {
            try {
                return try_take(competitor, runs, seed + 0x10000u * attempt);
            } catch (const BadLuck &) {
                if (!contest_.fill || attempt == 9)
                    throw;
            }
        }
    }

    int runs_per_turn(const Competitor &competitor) const {
        if (contest_.fill)
            return 1;
        const double once = std::max(take(competitor, 1, 1), 1e-9);
        return static_cast<int>(std::clamp(effort_.turn / once, 1.0, 1e5));
    }

private:
    double try_take(const Competitor &competitor, int runs, unsigned seed) const {
        if (competitor.before)
            competitor.before();
        if (__builtin_cpu_supports("avx"))
            clear_upper_halves();
        competitor.run();
        if (contest_.fill)
            contest_.fill(seed);
        const auto start = Clock::now();
        for (int i = 0; i < runs; ++i)
            competitor.run();
        return seconds_since(start) / runs;
    }

    const Contest &contest_;
    const Effort &effort_;
};

Time summary(const Competitor &competitor, std::vector<double> &samples, double units) {
    std::sort(samples.begin(), samples.end());
    const double to_ns = 1e9 / units;
    return {competitor.name, competitor.build, samples.front() * to_ns,
            samples[samples.size() / 2] * to_ns};
}

} // namespace

std::string Row::name() const {
    std::string name =
        work + '/' + type + '/' + shape + '/' + memory + '/' + data + '/' + std::to_string(count);
    std::replace(name.begin(), name.end(), ' ', '_');
    return name;
}

const Time *Outcome::best(Build build) const {
    const Time *best = nullptr;
    for (const Time &time : times)
        if (time.build == build && (!best || time.min < best->min))
            best = &time;
    return best;
}

const Time *Outcome::floor_time() const {
    if (row->floor.against == best_sse_peer)
        return best(Build::sse);
    for (const Time &time : times)
        if (time.name == row->floor.against && time.build != Build::machine)
            return &time;
    return nullptr;
}

std::optional<double> Outcome::ratio() const {
    const Time *against = floor_time();
    if (!against || times.empty())
        return {};
    return row->floor.kind == Floor::Kind::at_least ? against->min / library().min
                                                    : library().min / against->min;
}

bool Outcome::floor_met() const {
    const auto found = ratio();
    if (!has_floor() || !found)
        return true;
    return row->floor.kind == Floor::Kind::at_least ? *found >= row->floor.factor * (1 - noise)
                                                    : *found <= row->floor.factor * (1 + noise);
}

Outcome measure(const Row &row, const Effort &effort) {
    Outcome outcome{&row, {}, {}};
    Contest contest = row.open();

    // What is wrong is not timed, and without the library there is nothing to compare.
    std::erase_if(contest.competitors, [&](const Competitor &competitor) {
        if (competitor.before)
            competitor.before();
        const std::string complaint = competitor.check ? competitor.check() : "";
        if (!complaint.empty())
            outcome.complaints.push_back(competitor.name + ": " + complaint);
        return !complaint.empty();
    });
    if (contest.competitors.empty() || contest.competitors.front().build != Build::library)
        return outcome;

    const Turns turns(contest, effort);
    const std::size_t size = contest.competitors.size();
    std::vector<int> runs;
    const auto start = Clock::now();
    for (const Competitor &competitor : contest.competitors)
        runs.push_back(turns.runs_per_turn(competitor));
    std::vector<std::vector<double>> samples(size);

    // Each round begins with another competitor, so that none always follows the same one.
    int rounds = effort.rounds;
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t i = 0; i < size; ++i) {
            const std::size_t who = (i + static_cast<std::size_t>(round)) % size;
            samples[who].push_back(
                turns.take(contest.competitors[who], runs[who], static_cast<unsigned>(round) + 2));
        }
        if (round >= effort.fewest_rounds && seconds_since(start) > effort.budget)
            break;
    }
    for (std::size_t i = 0; i < size; ++i)
        outcome.times.push_back(summary(contest.competitors[i], samples[i], contest.units));
    return outcome;
}

Cpus::Cpus(std::optional<int> wanted) {
    cpu_set_t set;
    CPU_ZERO(&set);
    sched_getaffinity(0, sizeof set, &set);
    for (int cpu = CPU_SETSIZE; cpu-- > 0;)
        if (CPU_ISSET(cpu, &set))
            cpus_.push_back(cpu);
    if (wanted) {
        const auto found = std::find(cpus_.begin(), cpus_.end(), *wanted);
        if (found == cpus_.end())
            throw std::runtime_error("this process may not use CPU " + std::to_string(*wanted));
        std::rotate(cpus_.begin(), found, found + 1);
    }
}

namespace {
void bind_to(int cpu) {
    cpu_set_t set;
    CPU_ZERO(&set);
    CPU_SET(cpu, &set);
    sched_setaffinity(0, sizeof set, &set);
}
} // namespace

void Cpus::bind(int threads) const {
    bind_to(first());
    if (threads > 1) {
        // The OpenMP runtime keeps this team for the calls to come.
#pragma omp parallel num_threads(threads)
        bind_to(cpus_[static_cast<std::size_t>(omp_get_thread_num()) % cpus_.size()]);
    }
}

} // namespace zelm::bench
