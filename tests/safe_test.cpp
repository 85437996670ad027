// The solvers that finish every object: what each object's status and result may depend on, and
// what not. safe_residuals_test.cpp judges the numbers.

#include "support/safe.hpp"
#include "support/solver.hpp"

#include <algorithm>
#include <cfenv>
#include <climits>
#include <gtest/gtest.h>
#include <zelcore.h>

using namespace zelm_test;

namespace {

constexpr int orders[] = {1, 2, 3, 4, 5, 6, 7, 9};

template <class T>
using Sources = std::vector<Stack<T>>;
template <class T>
struct Outcome {
    std::vector<int> statuses;
    std::vector<Stack<T>> results;
};

template <class T>
std::string about(const SafeFamily<T> &f, const std::string &what) {
    return (sizeof(T) == 4 ? "32f " : "64f ") + std::string(f.name) + ", order " +
           std::to_string(f.order) + ": " + what;
}

// `count` good objects from number `first` on. What a family does not read is NaN.
template <class T>
Sources<T> good(const SafeFamily<T> &f, int count, int first = 0) {
    Sources<T> sources;
    for (const Size size : f.sources) {
        Stack<T> &stack = sources.emplace_back();
        for (int k = first; k < first + count; ++k) {
            Values<T> &a = stack.emplace_back(Values<T>{size.rows, size.columns});
            const int diagonal = sources.size() > 1 ? 0 : f.symmetric ? size.rows + 1 : 2;
            for (int i = 0; i < size.rows; ++i)
                for (int j = 0; j < size.columns; ++j)
                    a(i, j) = f.symmetric && j > i
                                  ? T(not_a_number)
                                  : T(noise(k + 50 * diagonal, i, j) + (i == j) * diagonal);
        }
    }
    return sources;
}

// Calls a family with operands in memory of the layouts given, one for each in turn, and expects
// what holds for any call. `in_place` >= 0: the first result of that source's size is there.
template <class T>
Outcome<T> run(const SafeFamily<T> &f, const Sources<T> &sources, const std::string &what,
               const std::vector<SafeLayout> &layouts = {{}}, int in_place = -1) {
    const int count = int(sources[0].size());
    const std::size_t inputs = sources.size();
    std::vector<SafeMemory<T>> memory;
    std::vector<ZelmView> views;
    std::vector<std::vector<std::byte>> before;
    for (std::size_t k = 0; k < inputs + f.results.size(); ++k) {
        const Size size = k < inputs ? f.sources[k] : f.results[k - inputs];
        if (k >= inputs && in_place >= 0 && size == f.sources[std::size_t(in_place)]) {
            memory.push_back(memory[std::size_t(in_place)]);
            before[std::size_t(in_place)].clear(); // will change
            in_place = -1;
        } else {
            memory.emplace_back(size, count, layouts[k % layouts.size()]);
        }
        if (k < inputs)
            memory[k].put(sources[k]);
        views.push_back(memory[k].view());
        before.push_back(memory[k].image(k >= inputs));
    }
    constexpr std::size_t step = 3; // ints
    std::vector<int> ints(step * std::size_t(count), 99);
    const int returned = f.call(views.data(), count, {ints.data(), step * sizeof(int)});

    for (std::size_t k = 0; k < memory.size(); ++k)
        EXPECT_TRUE(before[k].empty() || memory[k].image(k >= inputs) == before[k])
            << about(f, what) << ": more than the results was written, operand " << k;
    Outcome<T> outcome;
    for (std::size_t k = inputs; k < memory.size(); ++k)
        outcome.results.push_back(memory[k].get());
    int first = 0;
    for (std::size_t e = 0; e < ints.size(); ++e) {
        if (e % step != 0) {
            EXPECT_EQ(ints[e], 99) << about(f, what);
            continue;
        }
        const int status = outcome.statuses.emplace_back(ints[e]);
        first = first == 0 ? status : first;
        for (std::size_t r = 0; r < outcome.results.size(); ++r)
            for (const T x : outcome.results[r][e / step].at) {
                // A condition is known of failures too, and so is a logarithm of 0.
                const bool known = (f.results[r] == Size{1, 1} && int(r) == f.optional) ||
                                   (f.is("Log") && status == singular);
                EXPECT_TRUE(status == 0 ? std::isfinite(x) : known || std::isnan(x))
                    << about(f, what) << ", object " << e / step << ", status " << status;
            }
    }
    EXPECT_EQ(returned, first) << about(f, what);
    return outcome;
}

// Object k of one outcome and object l of another, as far as results are compared.
template <class T>
bool same_object(const Outcome<T> &a, std::size_t k, const Outcome<T> &b, std::size_t l) {
    bool equal = a.statuses[k] == b.statuses[l];
    for (std::size_t r = 0; r < std::min(a.results.size(), b.results.size()); ++r)
        equal &= std::equal(a.results[r][k].at.begin(), a.results[r][k].at.end(),
                            b.results[r][l].at.begin(), [](T x, T y) { return same(x, y); });
    return equal;
}
template <class T>
void expect_same(const SafeFamily<T> &f, const Outcome<T> &is, const Outcome<T> &should,
                 const std::string &what) {
    for (std::size_t k = 0; k < is.statuses.size(); ++k)
        ASSERT_TRUE(same_object(is, k, should, k)) << about(f, what) << ", object " << k;
}

template <class Action>
void every_family(const std::vector<int> &of, const Action &action) {
    for (const int n : of) {
        for (const auto &f : safe_families<float>(n))
            action(f);
        for (const auto &f : safe_families<double>(n))
            action(f);
    }
}
template <class T>
void scale(Values<T> &a, int exponent) {
    for (T &x : a.at)
        x = std::ldexp(x, exponent);
}

// Makes object k one that fails, and returns its status.
template <class T>
int spoil(const SafeFamily<T> &f, Sources<T> &sources, int object, int way) {
    const auto k = std::size_t(object);
    Values<T> &a = sources[0][k];
    const int last = std::min(a.rows, a.columns) - 1, column = object % (last + 1);
    const bool single = sizeof(T) == 4, odd = object % 2 == 1;
    switch (way) {
    case 0:
        a(last, column) = T(not_a_number);
        return not_finite;
    case 1:
        sources.back()[k](0, 0) = T(odd ? infinite : -infinite);
        return not_finite;
    case 2:
        for (int i = f.symmetric ? column : 0; i < a.rows; ++i)
            a(i, column) = 0;
        return f.zero_column;
    default:
        if (f.out == Way::quotient) // subnormal, for inverses have no other side
            scale(a, single ? -130 : -1030);
        if (f.out == Way::quotient && sources.size() > 1)
            scale(sources[1][k], single ? 100 : 1000);
        if (f.out == Way::product)
            scale(a, (odd ? 1 : -1) * (single ? 100 : 1000));
        if (f.out == Way::sum)
            std::fill(a.at.begin(), a.at.end(), std::numeric_limits<T>::max());
        return f.out == Way::none ? 0 : out_of_range;
    }
}

TEST(Safe, AFailureAtAnyPlaceIsItsObjectsAlone) {
    constexpr int count = 19; // two groups of 8 lanes and a tail
    every_family({std::begin(orders), std::end(orders)}, [&]<class T>(const SafeFamily<T> &f) {
        const Outcome<T> well = run(f, good(f, count), "all well");
        for (int k = 0; k < count; ++k) {
            const Outcome<T> alone = run(f, good(f, 1, k), "alone");
            ASSERT_TRUE(alone.statuses[0] == 0 && same_object(well, std::size_t(k), alone, 0))
                << about(f, "alone, object ") << k;
            for (int way = 0; way < 4; ++way) {
                Sources<T> sources = good(f, count);
                const int status = spoil(f, sources, k, way);
                const std::string what = "spoilt in way " + std::to_string(way);
                const Outcome<T> is = run(f, sources, what);
                for (std::size_t l = 0; l < count; ++l)
                    ASSERT_TRUE(int(l) == k ? is.statuses[l] == status
                                            : same_object(is, l, well, l))
                        << about(f, what) << ", objects " << k << " and " << l << ", status "
                        << is.statuses[l];
                expect_same(f, run(f, sources, what, {{}}, 0), is, what + " in place");
            }
        }
    });
}

TEST(Safe, AnyFailuresTogetherLeaveTheOthers) {
    constexpr int count = 43; // several groups of 8 lanes and a tail, which is failures in part
    every_family({2, 3, 4, 5, 6, 7}, [&]<class T>(const SafeFamily<T> &f) {
        const Outcome<T> well = run(f, good(f, count), "all well");
        for (const int share : {1, 2, 3, 4, 9, 31}) { // of 32
            Sources<T> sources = good(f, count);
            std::vector<int> statuses(count);
            std::vector<bool> spoilt(count);
            for (int k = 0; k < count; ++k)
                if ((spoilt[std::size_t(k)] = (k * k * 7 + k * 5) % 32 < share || k % 29 == 12))
                    statuses[std::size_t(k)] = spoil(f, sources, k, (k / 2 + share) % 4);
            const std::string what = "shares of 32: " + std::to_string(share);
            const Outcome<T> apart = run(f, sources, what);
            EXPECT_EQ(apart.statuses, statuses) << about(f, what);
            for (std::size_t k = 0; k < count; ++k)
                ASSERT_TRUE(spoilt[k] || same_object(apart, k, well, k))
                    << about(f, what) << ", object " << k;
            for (const SafeLayout &layout :
                 {SafeLayout{packed}, {planar}, {1, Edge::odd}, {packed, Edge::odd, false, true}}) {
                expect_same(f, run(f, sources, what, {layout}), apart, what + ", layout");
                for (int s = 0; s < int(sources.size()); ++s)
                    expect_same(f, run(f, sources, what, {layout}, s), apart, what + ", in place");
            }
        }
    });
}

TEST(Safe, EveryElementThatIsNotFiniteIsFound) {
    every_family({2, 3, 6, 7}, [&]<class T>(const SafeFamily<T> &f) {
        for (std::size_t s = 0; s < f.sources.size(); ++s)
            for (int e = 0; e < f.sources[s].rows * f.sources[s].columns; ++e)
                for (const double bad : {not_a_number, infinite, -infinite}) {
                    Sources<T> sources = good(f, 5);
                    if (s == 1 && bad > 0)
                        spoil(f, sources, 3, 2); // a singular matrix does not hide it
                    Values<T> &a = sources[s][3];
                    a.at[std::size_t(e)] = T(bad);
                    const bool is_read = !f.symmetric || e % a.columns <= e / a.columns;
                    ASSERT_EQ(run(f, sources, "element").statuses[3], is_read ? not_finite : 0)
                        << about(f, "element ") << e << " of source " << s << " is " << bad;
                }
    });
}

TEST(Safe, ThreadsAndCountsChangeNothing) {
    every_family({2, 4, 7}, [&]<class T>(const SafeFamily<T> &f) {
        Sources<T> sources = good(f, 1000);
        for (const int k : {31, 32, 400, 700, 701, 996})
            spoil(f, sources, k, k % 4);
        zelSetNumThreads(1);
        const Outcome<T> serial = run(f, sources, "serial");
        for (const int threads : {2, 3, 4, 7}) {
            zelSetNumThreads(threads);
            expect_same(f, run(f, sources, "threads"), serial,
                        std::to_string(threads) + " threads");
        }
        for (int count = 1; count <= 20; ++count) {
            Sources<T> part = sources;
            for (Stack<T> &stack : part)
                stack.resize(std::size_t(count), {0, 0});
            expect_same(f, run(f, part, "few"), serial, std::to_string(count) + " objects");
        }
    });
}

TEST(Safe, MemoryOfAnyShapeHoldsTheSame) {
    const std::vector<SafeLayout> layouts = {
        {packed},
        {1, Edge::first},
        {strided, Edge::odd},
        {planar},
        {4, Edge::odd, true},
        {5, Edge::last, false, true},
        {6},
        {packed, Edge::first, true},
        {planar, Edge::odd, false, true},
        {1, Edge::last, true, true},
    };
    every_family({1, 2, 3, 5, 6, 8}, [&]<class T>(const SafeFamily<T> &f) {
        for (const int count : {1, 5, 11, 16}) {
            Sources<T> sources = good(f, count);
            if (count > 1)
                spoil(f, sources, 3, count % 2);
            const Outcome<T> should = run(f, sources, "packed");
            for (std::size_t k = 0; k < layouts.size(); ++k) {
                const auto &next = layouts[(k + 3) % layouts.size()], &other = layouts[k / 2];
                const std::string what = "layout " + std::to_string(k);
                expect_same(f, run(f, sources, what, {layouts[k]}), should, what);
                expect_same(f, run(f, sources, what, {layouts[k], next, other}), should, what);
                for (int s = 0; s < int(sources.size()); ++s)
                    expect_same(f, run(f, sources, what + " in place", {layouts[k], next}, s),
                                should, what + " in place");
            }
            for (Stack<T> &stack : sources)
                std::fill(stack.begin(), stack.end(), stack[0]);
            std::vector<SafeLayout> one(sources.size() + f.results.size());
            std::fill_n(one.begin(), sources.size(), SafeLayout{1, Edge::odd, false, false, true});
            expect_same(f, run(f, sources, "one source for all", one), run(f, sources, "copies"),
                        "one source for all");
        }
    });
}

// Moves all numbers; false if one is not normal afterwards, but was not 0.
template <class T>
bool stays_normal(Stack<T> &stack, int exponent) {
    bool normal = true;
    for (Values<T> &a : stack)
        for (T &x : a.at) {
            const bool counts = x != 0 && !std::isnan(x);
            x = std::ldexp(x, exponent);
            normal &= !counts || std::isnormal(x);
        }
    return normal;
}

TEST(Safe, ScaleChangesNothing) {
    every_family({std::begin(orders), std::end(orders)}, [&]<class T>(const SafeFamily<T> &f) {
        int compared = 0;
        for (const int slope : {0, 1, -2}) { // of exponents along columns, rows, or both
            Sources<T> sources = good(f, 5);
            for (Values<T> &a : sources[0])
                for (int i = 0; i < a.rows; ++i)
                    for (int j = 0; j < a.columns; ++j) {
                        const int at = f.symmetric ? i + j : slope < 0 ? i : j;
                        a(i, j) = std::ldexp(a(i, j), slope * at);
                    }
            const Outcome<T> base = run(f, sources, "at scale 1");
            for (const int part : {-116, -90, -62, -20, -2, 2, 14, 62, 90, 120})
                for (const int side : {0, -part / 2}) {
                    const int unit = sizeof(T) == 4 ? 1 : 8;
                    Sources<T> moved = sources;
                    Outcome<T> should = base;
                    should.results.resize(f.powers.size());
                    bool normal = true;
                    for (std::size_t s = 0; s < moved.size(); ++s)
                        normal &= stays_normal(moved[s], unit * (s == 0 ? part : side));
                    for (std::size_t r = 0; r < f.powers.size(); ++r)
                        normal &=
                            stays_normal(should.results[r], unit * int(f.powers[r].matrix * part +
                                                                       f.powers[r].side * side));
                    if (!normal)
                        continue;
                    ++compared;
                    const std::string what = "slope " + std::to_string(slope) + ", scale " +
                                             std::to_string(part) + " and " + std::to_string(side);
                    expect_same(f, run(f, moved, what), should, what);
                }
        }
        EXPECT_GE(compared, f.is("Determinant") ? 12 : 40) << about(f, "scales compared");
    });
}

TEST(Safe, EveryRoundingModeComesToAnEnd) {
    every_family({std::begin(orders), std::end(orders)}, [&]<class T>(const SafeFamily<T> &f) {
        for (const int mode : {FE_TONEAREST, FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
            Sources<T> sources = good(f, 13);
            const int status = spoil(f, sources, 9, 2);
            fesetround(mode);
            const Outcome<T> is = run(f, sources, "rounding mode " + std::to_string(mode));
            fesetround(FE_TONEAREST);
            for (std::size_t k = 0; k < 13; ++k)
                ASSERT_EQ(is.statuses[k], k == 9 ? status : 0) << about(f, "mode ") << mode;
        }
    });
}

TEST(Safe, ArgumentsAreCheckedInOrderAndNothingIsTouched) {
    constexpr int null_pointer = -8, bad_count = -203, bad_size = -6, mismatch = -204;
    void *const nowhere = inaccessible();
    const ZelmView strided_view = {nowhere, 1, 1, 1, nullptr};
    const ZelmView tabled_view = {nullptr, 0, 0, 0, static_cast<void *const *>(nowhere)};
    const ZelmStatusView statuses = {static_cast<int *>(nowhere), 4};
    every_family({3, 0, -7, 1 << 20}, [&](const auto &f) {
        const int size_status = f.order == 3 ? 0 : bad_size; // elements beyond int
        for (const ZelmView &view : {strided_view, tabled_view}) {
            std::vector<ZelmView> views(f.sources.size() + f.results.size(), view);
            for (std::size_t k = 0; k < views.size(); ++k) {
                const bool optional = k == f.sources.size() + std::size_t(f.optional);
                views[k] = {};
                EXPECT_EQ(f.call(views.data(), 0, statuses), optional ? size_status : null_pointer);
                EXPECT_EQ(f.call(views.data(), -1, statuses), optional ? bad_count : null_pointer);
                views[k] = view;
            }
            EXPECT_EQ(f.call(views.data(), INT_MIN, statuses), bad_count) << about(f, "count");
            EXPECT_EQ(f.call(views.data(), 0, statuses), size_status) << about(f, "size");
            if (f.order != 3) {
                EXPECT_EQ(f.call(views.data(), 1, statuses), bad_size) << about(f, "size");
            }
        }
    });
    const ZelmView &v = strided_view;
    EXPECT_EQ(zelmSafeSolve_32f(v, v, v, 2, 0, 1, statuses, v), bad_size);
    EXPECT_EQ(zelmSafeQR_64f(v, v, v, 4, 3, 2, 1, statuses), bad_size);
    EXPECT_EQ(zelmSafeQR_32f(v, v, v, 4, 3, 5, 1, statuses), bad_size);
    EXPECT_EQ(zelmSafeLeastSquares_64f(v, v, v, v, 2, 3, 0, 1, statuses), bad_size);
    EXPECT_EQ(zelmSafeLeastSquares_32f(v, v, v, v, 2, 3, 1, 1, statuses), mismatch);
}

} // namespace
