// Rows and how they are measured: the library and all others take turns on one CPU, and the
// minimum and the median of many turns are kept.
#ifndef BENCH_HARNESS_HPP
#define BENCH_HARNESS_HPP

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace zelm::bench {

enum class Build { library, sse, machine, reference };

// One of those that do the work of a row.
struct Competitor {
    std::string name;
    Build build;
    std::function<void()> run;
    std::function<void()> before = {};       // untimed, before each turn
    std::function<std::string()> check = {}; // runs, and tells what is wrong with the result
};

// Thrown by a run that stopped early because the random data happened to be singular.
struct BadLuck : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// What a row needs while it is measured.
struct Contest {
    std::vector<Competitor> competitors;
    std::function<void(unsigned seed)> fill = {}; // if set, every turn gets new data
    double units = 1;                             // objects or calls per run
    std::shared_ptr<void> memory = {};
};

// What the library's time is held against: the fastest peer built for SSE4.2, or a competitor by
// name.
struct Floor {
    enum class Kind { none, shown, at_least, at_most };
    std::string_view against = {};
    Kind kind = Kind::none;
    double factor = 0;
};

inline constexpr std::string_view best_sse_peer = "best SSE peer";

// At least that many times as fast.
constexpr Floor at_least(double factor, std::string_view against) {
    return {against, Floor::Kind::at_least, factor};
}
constexpr Floor times_best_sse(double factor) { return at_least(factor, best_sse_peer); }
// At most that many times as slow.
constexpr Floor at_most(double factor, std::string_view against) {
    return {against, Floor::Kind::at_most, factor};
}
// How many times as slow is shown, nothing is asked of it.
constexpr Floor shown(std::string_view against) { return {against, Floor::Kind::shown}; }

struct Row {
    std::string work, type, shape, memory, data;
    int count = 1;
    std::string bound; // what limits the time
    Floor floor = {};
    int threads = 1;
    std::function<Contest()> open;

    std::string name() const;
};

struct Time {
    std::string name;
    Build build;
    double min, median; // ns per unit
};

struct Outcome {
    const Row *row = nullptr;
    std::vector<Time> times; // the library first
    std::vector<std::string> complaints;

    const Time &library() const { return times.front(); }
    const Time *best(Build build) const;
    const Time *floor_time() const;

    // The time that the floor names over the library's for at_least, else the inverse.
    std::optional<double> ratio() const;
    bool has_floor() const {
        return row->floor.kind == Floor::Kind::at_least || row->floor.kind == Floor::Kind::at_most;
    }
    bool floor_met() const; // 5 % are left for noise
};

struct Effort {
    int rounds = 200;
    int fewest_rounds = 10; // even if the budget is used up
    double budget = 0.8;    // seconds per row
    double turn = 50e-6;    // seconds of timed work per turn
};

Outcome measure(const Row &row, const Effort &effort);

// The CPUs that the process may use, the one for measuring first.
class Cpus {
public:
    explicit Cpus(std::optional<int> wanted);
    int count() const { return static_cast<int>(cpus_.size()); }
    int first() const { return cpus_.front(); }
    // Binds this thread to the first CPU, or the threads of a team of two to the first two.
    void bind(int threads) const;

private:
    std::vector<int> cpus_;
};

} // namespace zelm::bench

#endif
