// The solvers that finish every object: what each object's status and result may depend on, and
// what not. safe_residuals_test.cpp judges the numbers.

#include "support/safe.hpp"
#include "support/solver.hpp"

#include <algorithm>
#include <cfenv>
#include <gtest/gtest.h>
#include <zelcore.h>

using namespace zelm_test;

namespace {

constexpr int ok_status = 0, group = 8; // lanes at most
constexpr int orders[] = {1, 2, 3, 4, 5, 6, 7, 9};

template <class T>
using Sources = std::vector<Stack<T>>;
template <class T>
struct Outcome {
    int returned;
    std::vector<int> statuses;
    std::vector<Stack<T>> results;
};

template <class T>
std::string about(const SafeFamily<T> &f, const std::string &what) {
    const std::string type = sizeof(T) == 4 ? "32f " : "64f ";
    return type + f.name + ", order " + std::to_string(f.sources[0].columns) + ", " + what;
}

// `count` good objects from number `first` on. What a family does not read is NaN.
template <class T>
Sources<T> good(const SafeFamily<T> &f, int count, int first = 0) {
    Sources<T> sources;
    for (const Size size : f.sources) {
        Stack<T> &stack = sources.emplace_back();
        const bool matrix = sources.size() == 1;
        for (int k = first; k < first + count; ++k) {
            Values<T> &a = stack.emplace_back(size.rows, size.columns);
            for (int i = 0; i < size.rows; ++i)
                for (int j = 0; j < size.columns; ++j)
                    a(i, j) = T(noise(k + 50 * int(sources.size()), i, j) +
                                (matrix && i == j ? f.symmetric ? size.rows + 1 : 2 : 0));
            for (int e = 0; f.symmetric && e < size.rows * size.rows; ++e)
                if (e % size.rows > e / size.rows)
                    a.at[std::size_t(e)] = T(not_a_number);
        }
    }
    return sources;
}

// Calls a family with operands in memory of the layouts given, one for each in turn, and expects
// what holds for any call. `in_place` >= 0: the first result of the size of that source is there.
template <class T>
Outcome<T> run(const SafeFamily<T> &f, const Sources<T> &sources, const std::string &what = "",
               std::vector<SafeLayout> layouts = {{}}, int in_place = -1) {
    const int count = int(sources[0].size());
    std::vector<SafeMemory<T>> memory;
    std::vector<ZelmView> views;
    const auto layout = [&] { return layouts[memory.size() % layouts.size()]; };
    for (std::size_t s = 0; s < sources.size(); ++s) {
        memory.emplace_back(f.sources[s], count, layout()).put(sources[s]);
        views.push_back(memory.back().view());
    }
    for (const Size size : f.results) {
        const bool here = in_place >= 0 && size == f.sources[std::size_t(in_place)];
        memory.push_back(here ? memory[std::size_t(in_place)]
                              : SafeMemory<T>(size, count, layout()));
        views.push_back(memory.back().view());
        in_place = here ? -1 : in_place;
    }
    std::vector<std::vector<std::byte>> before;
    for (std::size_t m = 0; m < memory.size(); ++m)
        before.push_back(m < sources.size() ? memory[m].image() : memory[m].gaps());
    constexpr int stride = 3; // ints
    std::vector<int> ints(std::size_t(stride * count), 99);
    const int returned = f.call(views.data(), count, {ints.data(), stride * sizeof(int)});

    Outcome<T> outcome = {returned, {}, {}};
    bool kept = true;
    for (std::size_t m = 0; m < memory.size(); ++m) {
        const bool shared =
            m < sources.size() &&
            std::any_of(views.begin() + int(sources.size()), views.end(), [&](const ZelmView &v) {
                return v.data == views[m].data && v.table == views[m].table;
            });
        if (!shared)
            kept &= (m < sources.size() ? memory[m].image() : memory[m].gaps()) == before[m];
        if (m >= sources.size())
            outcome.results.push_back(memory[m].get());
    }
    EXPECT_TRUE(kept) << about(f, what) << ": something beside the results was written";
    int first = ok_status;
    for (int k = 0; k < count; ++k) {
        const int status = ints[std::size_t(stride * k)];
        outcome.statuses.push_back(status);
        first = first == ok_status ? status : first;
        bool all = true, none = true; // finite, NaN
        for (const Stack<T> &result : outcome.results)
            for (const T x : result[std::size_t(k)].at) {
                all &= std::isfinite(x);
                none &= std::isnan(x);
            }
        // A condition is known of failures too, and a logarithm of 0 is one.
        const bool told = std::string_view(f.name).find("ondition") != std::string_view::npos ||
                          std::string_view(f.name) == "Solve, three sides" ||
                          (std::string_view(f.name) == "LogDeterminant" && status == singular);
        EXPECT_TRUE(status == ok_status ? all : none || told)
            << about(f, what) << ", object " << k << ", status " << status;
    }
    EXPECT_EQ(returned, first) << about(f, what);
    for (std::size_t e = 0; e < ints.size(); ++e)
        EXPECT_TRUE(e % stride == 0 || ints[e] == 99) << about(f, what);
    return outcome;
}

template <class T>
bool same_object(const Outcome<T> &a, std::size_t k, const Outcome<T> &b, std::size_t l) {
    bool equal = a.statuses[k] == b.statuses[l];
    for (std::size_t r = 0; r < a.results.size(); ++r)
        equal &= std::ranges::equal(a.results[r][k].at, b.results[r][l].at,
                                    [](T x, T y) { return same(x, y); });
    return equal;
}
template <class T>
void expect_same(const SafeFamily<T> &f, const Outcome<T> &is, const Outcome<T> &should,
                 const std::string &what) {
    for (std::size_t k = 0; k < is.statuses.size(); ++k)
        ASSERT_TRUE(same_object(is, k, should, k)) << about(f, what) << ", object " << k;
}

template <class Action>
void every_family(std::span<const int> of, const Action &action) {
    for (const int n : of) {
        for (const auto &f : safe_families<float>(n))
            action(f);
        for (const auto &f : safe_families<double>(n))
            action(f);
    }
}

// ---- failures ----

// Turns object k into one that fails, and returns its status.
template <class T>
int spoil(const SafeFamily<T> &f, Sources<T> &sources, std::size_t k, int way) {
    Values<T> &a = sources[0][k];
    const int last = std::min(a.rows, a.columns) - 1;
    const auto multiply = [](Values<T> &x, int exponent) {
        for (T &element : x.at)
            element = std::ldexp(element, exponent);
    };
    const bool single = sizeof(T) == 4;
    switch (way) {
    case 0:
        a(last, int(k) % (last + 1)) = T(not_a_number);
        return not_finite;
    case 1:
        sources.back()[k](0, 0) = T(k % 2 == 0 ? infinite : -infinite);
        return not_finite;
    case 2:
        for (int i = 0; i < a.rows; ++i)
            a(i, int(k) % a.columns) = f.symmetric && i < int(k) % a.columns ? a(i, i + 1) : T(0);
        return f.zero_column;
    default:
        if (f.leaves == 'q') { // a subnormal matrix, for inverses have no other side
            multiply(a, single ? -130 : -1030);
            if (sources.size() > 1)
                multiply(sources[1][k], single ? 100 : 1000);
        }
        if (f.leaves == 'p')
            multiply(a, (k % 2 == 0 ? 1 : -1) * (single ? 100 : 1000));
        if (f.leaves == 's')
            std::ranges::fill(a.at, std::numeric_limits<T>::max());
        return f.leaves == no_way ? ok_status : out_of_range;
    }
}

TEST(Safe, AFailureAtAnyPlaceIsItsObjectsAlone) {
    constexpr int count = 2 * group + 3;
    every_family(orders, [&]<class T>(const SafeFamily<T> &f) {
        const Outcome<T> well = run(f, good(f, count));
        for (int k = 0; k < count; ++k) {
            const Outcome<T> alone = run(f, good(f, 1, k), "alone");
            ASSERT_EQ(alone.returned, ok_status) << about(f, "object ") << k;
            ASSERT_TRUE(same_object(well, std::size_t(k), alone, 0)) << about(f, "object ") << k;
            for (int way = 0; way < 4; ++way) {
                Sources<T> sources = good(f, count);
                const int status = spoil(f, sources, std::size_t(k), way);
                const Outcome<T> is = run(f, sources, "spoilt " + std::to_string(way));
                for (int l = 0; l < count; ++l) {
                    const auto at = std::size_t(l);
                    ASSERT_TRUE(l == k ? is.statuses[at] == status : same_object(is, at, well, at))
                        << about(f, "way ") << way << ", objects " << k << " and " << l
                        << ", status " << is.statuses[at];
                }
            }
        }
    });
}

TEST(Safe, EveryElementThatIsNotFiniteIsFound) {
    every_family(std::array{2, 3, 6, 7}, [&]<class T>(const SafeFamily<T> &f) {
        const Outcome<T> well = run(f, good(f, 5));
        for (std::size_t s = 0; s < f.sources.size(); ++s)
            for (int e = 0; e < f.sources[s].rows * f.sources[s].columns; ++e)
                for (const double bad : {not_a_number, infinite, -infinite}) {
                    Sources<T> sources = good(f, 5);
                    Values<T> &a = sources[s][3];
                    const bool read = !f.symmetric || e % a.columns <= e / a.columns;
                    a.at[std::size_t(e)] = T(bad);
                    if (bad < 0 && f.zero_column == singular) // known before the failure
                        for (int i = 0; i < sources[0][3].rows; ++i)
                            sources[0][3](i, 0) *= s == 0;
                    const int status = run(f, sources, "element").statuses[3];
                    ASSERT_EQ(status, read ? not_finite : ok_status)
                        << about(f, "element ") << e << " of source " << s << " is " << bad;
                }
    });
}

TEST(Safe, ThreadsAndCountsChangeNothing) {
    constexpr int count = 1000;
    every_family(std::array{2, 4, 7}, [&]<class T>(const SafeFamily<T> &f) {
        Sources<T> sources = good(f, count);
        for (const int k : {31, 32, 400, 700, 701, 996})
            spoil(f, sources, std::size_t(k), k % 4);
        zelSetNumThreads(1);
        const Outcome<T> serial = run(f, sources);
        for (const int threads : {2, 3, 4, 7}) {
            zelSetNumThreads(threads);
            expect_same(f, run(f, sources), serial, std::to_string(threads) + " threads");
        }
        for (int few = 1; few <= 20; ++few) {
            Sources<T> part = sources;
            for (Stack<T> &stack : part)
                stack.erase(stack.begin() + few, stack.end());
            expect_same(f, run(f, part), serial, std::to_string(few) + " objects");
        }
        zelSetNumThreads(1);
    });
}

// ---- memory ----

TEST(Safe, MemoryOfAnyShapeHoldsTheSame) {
    const SafeLayout layouts[] = {{packed},
                                  {1, Edge::first},
                                  {strided, Edge::odd},
                                  {planar},
                                  {4, Edge::odd, true},
                                  {5, Edge::last, false, true},
                                  {6},
                                  {packed, Edge::first, true},
                                  {planar, Edge::odd, false, true},
                                  {1, Edge::last, true, true}};
    constexpr std::size_t kinds = std::size(layouts);
    every_family(std::array{1, 2, 3, 5, 6, 8}, [&]<class T>(const SafeFamily<T> &f) {
        for (const int count : {1, 5, 11, 16}) {
            Sources<T> sources = good(f, count);
            if (count > 1)
                spoil(f, sources, 3, count % 2);
            const Outcome<T> should = run(f, sources);
            for (std::size_t k = 0; k < kinds; ++k) {
                const std::string what = "layouts " + std::to_string(k);
                // All alike, every operand another, in place.
                expect_same(f, run(f, sources, what, {layouts[k]}), should, what);
                expect_same(f,
                            run(f, sources, what,
                                {layouts[k], layouts[(k + 3) % kinds], layouts[(k + 4) % kinds]}),
                            should, what);
                for (int s = 0; s < int(sources.size()); ++s)
                    expect_same(f, run(f, sources, what, {layouts[k], layouts[(k + 3) % kinds]}, s),
                                should, what + " in place");
            }
        }
    });
}

TEST(Safe, OneSourceServesAllObjects) {
    every_family(std::array{3, 7}, [&]<class T>(const SafeFamily<T> &f) {
        const Sources<T> one = good(f, 1);
        const Outcome<T> alone = run(f, one);
        std::vector<ZelmView> views;
        std::vector<SafeMemory<T>> memory;
        for (const Size size : f.sources) {
            memory.emplace_back(size, 1, SafeLayout{}).put(one[views.size()]);
            memory.back().repeat_first();
            views.push_back(memory.back().view());
        }
        for (const Size size : f.results)
            views.push_back(memory.emplace_back(size, 9, SafeLayout{}).view());
        EXPECT_EQ(f.call(views.data(), 9, {nullptr, 0}), ok_status);
        for (std::size_t r = 0; r < f.results.size(); ++r)
            for (const Values<T> &x : memory[f.sources.size() + r].get())
                EXPECT_EQ(x.at, alone.results[r][0].at) << about(f, "source repeated");
    });
}

// ---- numbers ----

TEST(Safe, ScaleChangesNothing) {
    every_family(orders, [&]<class T>(const SafeFamily<T> &f) {
        const bool single = sizeof(T) == 4;
        const auto scaled = [](T x, int e) { return std::ldexp(x, e); };
        for (const int slope : {0, 1, -2}) { // of exponents along columns, or rows and columns
            Sources<T> sources = good(f, 5);
            for (Values<T> &a : sources[0])
                for (int i = 0; i < a.rows; ++i)
                    for (int j = 0; j < a.columns; ++j)
                        a(i, j) = scaled(a(i, j), slope * (f.symmetric ? i + j
                                                           : slope < 0 ? i
                                                                       : j));
            const Outcome<T> base = run(f, sources);
            ASSERT_EQ(base.returned, ok_status) << about(f, "slope ") << slope;
            int compared = 0;
            for (const int part : {-90, -62, -20, -1, 1, 14, 62, 90})
                for (const int side : {0, -part / 2}) {
                    const int a_scale =
                        (single ? part : part * 9) & (f.powers[0].matrix == .5 ? ~1 : ~0);
                    const int b_scale = single ? side : 9 * side;
                    Sources<T> moved = sources;
                    for (std::size_t s = 0; s < moved.size(); ++s)
                        for (Values<T> &a : moved[s])
                            for (T &x : a.at)
                                x = scaled(x, s == 0 ? a_scale : b_scale);
                    Outcome<T> should = base;
                    bool normal = true;
                    for (std::size_t r = 0; r < f.powers.size(); ++r)
                        for (Values<T> &a : should.results[r])
                            for (T &x : a.at) {
                                const T moved_x = scaled(x, int(f.powers[r].matrix * a_scale +
                                                                f.powers[r].side * b_scale));
                                normal &= x == 0 || std::isnormal(moved_x);
                                x = moved_x;
                            }
                    if (!normal)
                        continue;
                    ++compared;
                    Outcome<T> is = run(f, moved);
                    is.results.resize(f.powers.size(), {});
                    should.results.resize(f.powers.size(), {});
                    expect_same(f, is, should,
                                "slope " + std::to_string(slope) + ", scale " +
                                    std::to_string(a_scale) + " and " + std::to_string(b_scale));
                }
            EXPECT_GE(compared, f.powers[0].matrix > 1 ? 4 : 10) << about(f, "compared");
        }
    });
}

TEST(Safe, EveryRoundingModeComesToAnEnd) {
    every_family(orders, [&]<class T>(const SafeFamily<T> &f) {
        for (const int mode : {FE_TONEAREST, FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
            Sources<T> sources = good(f, 13);
            const int status = spoil(f, sources, 9, 2);
            fesetround(mode);
            const Outcome<T> is = run(f, sources);
            fesetround(FE_TONEAREST);
            for (std::size_t k = 0; k < 13; ++k)
                ASSERT_EQ(is.statuses[k], k == 9 ? status : ok_status)
                    << about(f, "mode ") << mode << ", object " << k;
        }
    });
}

// ---- arguments ----

TEST(Safe, ArgumentsAreCheckedInOrderAndNothingIsTouched) {
    constexpr int null_pointer = -8, bad_count = -203, bad_size = -6, mismatch = -204;
    void *const nowhere = inaccessible();
    const ZelmView v = {nowhere, 1, 1, 1, nullptr}, null = {},
                   tabled = {nullptr, 0, 0, 0, static_cast<void *const *>(nowhere)};
    const ZelmStatusView status = {static_cast<int *>(nowhere), 4};
    const auto check = [&](const auto &call, int required, bool orders_are_sizes) {
        for (int k = 0; k < required; ++k)
            EXPECT_EQ(call(k, 0, -1), null_pointer);
        EXPECT_EQ(call(-1, 0, -1), bad_count);
        for (const int n : {0, -1, INT_MIN})
            EXPECT_EQ(call(-1, n, 0), bad_size);
        if (orders_are_sizes) {
            EXPECT_EQ(call(-1, 1 << 20, 1), bad_size); // elements beyond int
        }
        EXPECT_EQ(call(-1, 3, 0), ok_status);
    };
    const auto all = [&]<class T>(T) {
        for (const ZelmView &good_view : {v, tabled}) {
            const auto w = [&](int k, int missing) { return k == missing ? null : good_view; };
            check(
                [&](int m, int n, int c) {
                    return ZELM_SAFE(Solve)(w(0, m), w(1, m), w(2, m), n, 1, c, status, v);
                },
                3, true);
            check(
                [&](int m, int n, int c) {
                    return ZELM_SAFE(Solve)(w(0, m), w(1, m), w(2, m), 2, n, c, status, null);
                },
                3, false);
            check([&](int m, int n,
                      int c) { return ZELM_SAFE(Inverse)(w(0, m), w(1, m), n, c, status, v); },
                  2, true);
            check([&](int m, int n,
                      int c) { return ZELM_SAFE(Determinant)(w(0, m), w(1, m), n, c, status); },
                  2, true);
            check(
                [&](int m, int n, int c) {
                    return ZELM_SAFE(LogDeterminant)(w(0, m), w(1, m), w(2, m), n, c, status);
                },
                3, true);
            check([&](int m, int n,
                      int c) { return ZELM_SAFE(Cholesky)(w(0, m), w(1, m), n, c, status); },
                  2, true);
            check(
                [&](int m, int n, int c) {
                    return ZELM_SAFE(QR)(w(0, m), v, w(1, m), n, 2, n < 1 ? n : 2, c, status);
                },
                2, false);
            check(
                [&](int m, int n, int c) {
                    return ZELM_SAFE(LeastSquares)(w(0, m), w(1, m), w(2, m), v, n, n, 1, c,
                                                   status);
                },
                3, true);
            check(
                [&](int m, int n, int c) {
                    return ZELM_SAFE(EigenSymmetric)(w(0, m), w(1, m), v, n, c, status);
                },
                2, true);
            check(
                [&](int m, int n, int c) {
                    return ZELM_SAFE(Eigen)(w(0, m), w(1, m), w(2, m), v, n, c, status);
                },
                3, true);
        }
        EXPECT_EQ(ZELM_SAFE(QR)(v, v, v, 4, 3, 2, 1, status), bad_size);
        EXPECT_EQ(ZELM_SAFE(QR)(v, v, v, 4, 3, 5, 1, status), bad_size);
        EXPECT_EQ(ZELM_SAFE(LeastSquares)(v, v, v, v, 2, 3, 0, 1, status), bad_size);
        EXPECT_EQ(ZELM_SAFE(LeastSquares)(v, v, v, v, 2, 3, 1, 1, status), mismatch);
    };
    all(float{});
    all(double{});
}

} // namespace
