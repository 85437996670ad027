// LU decomposition and substitution. Every form is compared bit for bit with one reference that
// rounds each operation to the element type; residuals are judged in long double.

#include "support/solver.hpp"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

using namespace zelm_test;

namespace {

constexpr int singular = -195;

bool is_straight_line(int n) { return n >= 3 && n <= 6; }
double threshold(bool single, int n) {
    return is_straight_line(n) ? (single ? 0x1p-125 : 0x1p-1021) : (single ? 0x1p-23 : 0x1p-52);
}

// Factors `a` and changes `to` and `p` as the destination and the permutation array change: orders
// 3 to 6 write a row when it is final, the others everything that they compute.
int factor(bool single, Grid a, Grid &to, Grid &p) {
    const int n = a.columns;
    int status = ok;
    for (int i = 0; i < n; ++i)
        p(i) = i;
    for (int k = 0; k < n; ++k) {
        int best = k;
        for (int i = k + 1; i < n; ++i)
            if (std::fabs(a(p(i), k)) > std::fabs(a(p(best), k)))
                best = i;
        const double pivot = std::fabs(a(p(best), k)), limit = threshold(single, n);
        if (is_straight_line(n) ? pivot < limit : pivot <= limit) {
            status = singular;
            break;
        }
        std::swap(p(k), p(best));
        for (int j = 0; is_straight_line(n) && j < n; ++j)
            to(p(k), j) = a(p(k), j);
        const double r = rounded(single, 1 / a(p(k), k));
        for (int i = k + 1; i < n; ++i) {
            const double f = a(p(i), k) = rounded(single, a(p(i), k) * r);
            for (int j = k + 1; j < n; ++j)
                a(p(i), j) = rounded(single, a(p(i), j) - rounded(single, f * a(p(k), j)));
        }
    }
    if (!is_straight_line(n))
        to = a;
    return status;
}

// By the single form of the library on packed memory.
template <class T>
Grid solved(auto member, const Grid &f, const Grid &p, const Grid &b) {
    constexpr int e = sizeof(T);
    const int n = b.columns;
    std::vector<T> x(b.values.size());
    member(f.as<T>().data(), n * e, e, p.as<int>().data(), b.as<T>().data(), e, x.data(), e, n);
    return {n, {x.begin(), x.end()}};
}

// Up to order 6 the operations are fixed; beyond that every form does those of the single one.
Grid solution(bool single, Grid f, Grid p, Grid b) {
    const int n = b.columns;
    if (n > 6)
        return single ? solved<float>(zelmLUBackSubst_mv_32f, f, p, b)
                      : solved<double>(zelmLUBackSubst_mv_64f, f, p, b);
    Grid x = b;
    const auto subtract = [&](int i, int first, int last) {
        for (int j = first; j < last; ++j)
            x(i) = rounded(single, x(i) - rounded(single, f(p(i), j) * x(j)));
    };
    for (int i = 0; i < n; ++i) {
        x(i) = b(p(i));
        subtract(i, 0, i);
    }
    for (int i = n - 1; i >= 0; --i) {
        subtract(i, i + 1, n);
        x(i) = rounded(single, x(i) / f(p(i), i));
    }
    return x;
}

// Runs a decomposition and compares every object with the reference; objects behind a singular one
// keep what they hold. Returns the status, or `wrong`.
int decomposed(Problem &problem) {
    Objects to = all_objects(problem.destination()), rows = all_objects(problem.operands[1]);
    int status = ok;
    for (std::size_t k = 0; k < to.size() && status == ok; ++k)
        status =
            factor(problem.member.is_float, object(problem.operands[0], int(k)), to[k], rows[k]);
    return gives(problem, status, 1, {rows, to}) ? status : wrong;
}

bool substituted(Problem &problem) {
    const std::vector<Placed> &o = problem.operands;
    Objects solutions;
    for (int k = 0; k < o[3].objects(); ++k)
        solutions.push_back(
            solution(problem.member.is_float, object(o[0], k), object(o[1], k), object(o[2], k)));
    return gives(problem, ok, 3, {solutions});
}

Problem decomposition(const Member &m, int n, int count, const std::vector<Placement> &placements,
                      int seed, bool in_place, bool special = false) {
    return filled(m, {n, n, 1, count}, placements, seed, in_place, special);
}

// Factors with exchanged rows whose solutions do not grow.
void fill_substitution(Problem &problem, int seed, bool special = false) {
    problem.fill(unsigned(seed), special);
    const int n = problem.sizes.width;
    for (int k = 0; k < problem.operands[1].objects(); ++k) {
        Grid f = object(problem.operands[0], k), p = object(problem.operands[1], k);
        std::shuffle(p.values.begin(), p.values.end(), std::minstd_rand(unsigned(k + 1)));
        for (int e = 0; e < n * n; ++e)
            f(p(e / n), e % n) = f(p(e / n), e % n) / n + 1.5 * (e / n == e % n);
        put(problem.operands[0], k, f);
        put(problem.operands[1], k, p);
    }
}

// Matrices that are random, whose columns tie, of NaNs, and with special values, which may fail,
// where one thread has all objects.
TEST(LUDecomp, EveryOrderAndCountInEveryMixOfMemoryShapes) {
    std::minstd_rand random;
    for (const Member *m : family("LUDecomp", 10)) {
        int step = 0;
        for (const int n : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 33, 64, 65, 100})
            for (const int count : counts(*m, n))
                for (int shape = 0; shape < 6; ++shape, ++step) {
                    const Threads threads(threads_for(count));
                    const bool special = shape > 3 && count != many;
                    Problem problem = decomposition(*m, n, count, placed(*m, shape, step), step,
                                                    step / 2 % 2 == 0, special);
                    if (shape % 2 == 0 && n <= 16 && !special) // columns tie
                        set_source(problem, [&](int k, int i, int j) {
                            const int row = (i + k) % n;
                            return j == row ? 1. : j < row ? int(random() % 3) - 1. : 0.;
                        });
                    if (shape == 3 && count > 5)
                        set_source(problem, [](int, int, int) { return not_a_number; });
                    const int status = decomposed(problem);
                    ASSERT_TRUE(status == ok || (status == singular && special));
                }
    }
}

// After the first exchange rows 1 and 0 tie: row 1 is the earlier one in pivot order, row 0 in the
// caller's.
TEST(LUDecomp, TiesGoToTheEarliestInPivotOrder) {
    constexpr double from[3][3] = {{0, 1, 5}, {0, -1, 3}, {2, 4, 6}};
    constexpr double to[3][3] = {{0, -1, 8}, {0, -1, 3}, {2, 4, 6}};
    for (const Member *m : family("LUDecomp", 10))
        for (const int n : {3, 4, 5, 6, 7, 8, 16, 17}) {
            Problem problem = decomposition(*m, n, 5, mixed(*m, n), 0, false);
            const auto value = [](const auto &corner, int i, int j) {
                return std::max(i, j) < 3 ? corner[i][j] : i == j;
            };
            set_source(problem, [&](int, int i, int j) { return value(from, i, j); });
            ASSERT_EQ(decomposed(problem), ok);
            problem.destination().for_each_element([&](int k, int i, int j) {
                ASSERT_EQ(problem.destination().get(k, i, j), value(to, i, j));
                ASSERT_EQ(problem.operands[1].get(k, 0, i), i < 3 ? 2 - i : i);
            });
        }
}

// A diagonal matrix whose candidate for pivot k has a given value, in row k or, behind a zero, in
// the last row. A NaN fails no comparison and is not preferred to a number.
TEST(LUDecomp, ThresholdsAtEveryPivot) {
    const Threads threads(1);
    for (const Member *m : family("LUDecomp", 10))
        for (const int n : {1, 2, 3, 4, 5, 6, 7, 8, 9, 16, 17}) {
            const double limit = threshold(m->is_float, n);
            const double ulp = limit * (m->is_float ? 0x1p-23 : 0x1p-52); // half of it below
            const std::pair<double, int> cases[] = {
                {0, singular},     {limit - ulp / 2, singular},
                {limit + ulp, ok}, {limit, is_straight_line(n) ? ok : singular},
                {infinite, ok},    {not_a_number, ok},
            };
            const int count = m->is_array() ? 9 : 1;
            for (int step = 0; step<4 * n; step += n> 9 ? 3 : 1)
                for (const auto &[value, status] : cases) {
                    const int k = step / 4, end = step % 4 < 2 ? k : n - 1;
                    Problem problem = decomposition(*m, n, count, mixed(*m, step), 0, false);
                    const double probe = step % 2 == 1 ? -value : value;
                    set_source(problem, [&](int object, int i, int j) {
                        const bool one = j == (i == k ? end : i == end ? k : i);
                        return one && j == k && object == k % count ? probe : one;
                    });
                    const bool passed_over = end != k && std::isnan(value);
                    ASSERT_EQ(decomposed(problem), passed_over ? singular : status)
                        << value << " at pivot " << k;
                }
        }
}

// A column of zeros fails when all columns before it have been eliminated. Behind the failing
// object come one of NaNs or infinities and, half the time, one that fails too.
TEST(LUDecomp, StateAfterAFailureAtEveryObjectAndColumn) {
    const Threads threads(1);
    for (const Member *m : family("LUDecomp", 10)) {
        int step = 0;
        for (const int n : {1, 2, 3, 4, 5, 6, 7, 8, 9, 16, 17, 65})
            for (const auto &[count, failing, column, shape] : failures(*m, n, n)) {
                ++step;
                const int second = failing + (step % 2 == 0 ? 2 : count);
                Problem problem =
                    decomposition(*m, n, count, placed(*m, shape, step), step, step / 2 % 2 == 0);
                set_source(problem, [&](int k, int i, int j) {
                    const bool zero = (k == failing || k == second) && j == column;
                    return zero               ? 0
                           : k == failing + 1 ? (step % 3 == 0 ? infinite : not_a_number)
                                              : problem.operands[0].get(k, i, j);
                });
                ASSERT_EQ(decomposed(problem), singular) << failing << " column " << column;
            }
    }
}

// A zero on the diagonal is no error.
TEST(LUBackSubst, EveryOrderAndCountInEveryMixOfMemoryShapes) {
    for (const Member *m : family("LUBackSubst", 16)) {
        int step = 0;
        for (const int n : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 13, 16, 17, 33, 64, 65, 100, 256, 257})
            for (const int count : counts(*m, n))
                for (int shape = 0; shape < 6; ++shape, ++step) {
                    const Threads threads(threads_for(count));
                    Problem problem(*m, {n, n, 1, count}, placed(*m, shape, step));
                    fill_substitution(problem, step, shape == 4);
                    Placed &factors = problem.operands[0], &rows = problem.operands[1];
                    const int i = step % n;
                    for (int k = 0; shape == 5 && k < factors.objects(); ++k)
                        factors.put(k, int(rows.get(k, 0, i)), i, 0);
                    ASSERT_TRUE(substituted(problem));
                    for (int k = 0; shape == 5 && k < problem.destination().objects(); ++k)
                        ASSERT_FALSE(std::isfinite(problem.destination().get(k, 0, i)));
                }
    }
}

// Sources and destinations by turns in one memory, and each destination the source before or
// behind it.
TEST(LUTogether, SourcesAndDestinationsAmongOneAnother) {
    constexpr int turns[][3] = {{0, 1, 2}, {1, 0, 2}, {0, 1, 1}, {1, 0, 1}}; // from, to, step
    const Threads threads(1);
    const auto shared_by = those(members(), 18, [](const Member &m) {
        return m.is_array() && among(m.family, "LUDecomp LUBackSubst");
    });
    for (const Member *member : shared_by)
        for (int n = 1; n <= 9; ++n)
            for (int c = 0; c < 28; ++c) {
                const Member &m = *member;
                const int count = widest_group(m) + 1;
                const bool decomposes = m.family == "LUDecomp";
                const auto &[from, to, step] = turns[c % 4];
                const int shared = decomposes ? 0 : 2;
                Problem problem(m, {n, n, 1, 2 * count}, all_in(m, c / 4), shared);
                decomposes ? problem.fill(7) : fill_substitution(problem, n);
                const Placed &memory = problem.destination();
                Objects objects = all_objects(memory), rows = all_objects(problem.operands[1]);
                for (int k = 0; k < count; ++k) {
                    Grid &source = objects[std::size_t(from + k * step)];
                    Grid &destination = objects[std::size_t(to + k * step)];
                    if (decomposes)
                        factor(m.is_float, source, destination, rows[std::size_t(k)]);
                    else
                        destination = solution(m.is_float, object(problem.operands[0], k),
                                               object(problem.operands[1], k), source);
                }
                const auto distance = memory.address(1, 0, 0) - memory.address(0, 0, 0);
                move(problem, shared, from * distance, step * distance);
                move(problem, int(m.operands.size()) - 1, to * distance, step * distance);
                problem.slots.back().integer = count;
                if (decomposes)
                    ASSERT_TRUE(gives(problem, ok, 1, {rows, objects}));
                else
                    ASSERT_TRUE(gives(problem, ok, 3, {objects}));
            }
}

// Object k is the n*n elements from the k-th on.
TEST(LUTogether, SourcesOverlapOneAnother) {
    const Threads threads(1);
    const auto arrays =
        those(members(), 6, [](const Member &m) { return m.is_array() && m.family == "LUDecomp"; });
    for (const Member *m : arrays)
        for (int n = 1; n <= 9; ++n) {
            Problem problem =
                decomposition(*m, n, widest_group(*m) + 1, all_in(*m, packed), 1, false);
            Objects to = all_objects(problem.destination()),
                    rows = all_objects(problem.operands[1]);
            std::vector<double> all;
            for (const Grid &a : all_objects(problem.operands[0]))
                all.insert(all.end(), a.values.begin(), a.values.end());
            for (std::size_t k = 0; k < to.size(); ++k) {
                const auto first = all.begin() + int(k);
                factor(m->is_float, {n, {first, first + n * n}}, to[k], rows[k]);
            }
            move(problem, 0, 0, m->element());
            ASSERT_TRUE(gives(problem, ok, 1, {rows, to}));
        }
}

// Judges the numbers of a decomposition and of one solution with it against their bounds.
void judge(Problem &problem, int of_factors, int of_solution) {
    const int n = problem.sizes.width;
    const bool single = problem.member.is_float;
    const Long eps = epsilon(single);
    Grid a = object(problem.operands[0], 0), f = object(problem.operands[2], 0);
    Grid p = object(problem.operands[1], 0), b{n, {}};
    const Long of_a = norm(n, n, a);
    const Long rest = norm(n, n, [&](int i, int j) {
        Long sum = Long(a(p(i), j)) - (i <= j ? f(p(i), j) : 0);
        for (int k = 0; k < i && k <= j; ++k)
            sum -= Long(f(p(i), k)) * f(p(k), j);
        return sum;
    });
    EXPECT_LE(rest / (n * of_a * eps), of_factors) << "order " << n;

    // Elimination that enlarges the elements costs the solution its bound.
    if (norm(1, n * n, f) > 1024 * norm(1, n * n, a))
        return;
    for (int i = 0; i < n; ++i)
        b.values.push_back(rounded(single, noise(n, i, n)));
    Grid x = single ? solved<float>(zelmLUBackSubst_mv_32f, f, p, b)
                    : solved<double>(zelmLUBackSubst_mv_64f, f, p, b);
    const Long of_x = norm(n, 1, [&](int i, int) { return x(i); });
    const Long defect = norm(n, 1, [&](int i, int) {
        Long sum = b(i);
        for (int j = 0; j < n; ++j)
            sum -= Long(a(i, j)) * x(j);
        return sum;
    });
    EXPECT_LE(defect / (of_a * of_x * eps), of_solution) << "order " << n;
}

// The status is that of the reference; where it is singular there is nothing to judge.
TEST(LUResiduals, OfHardMatrices) {
    for (const char *name : {"zelmLUDecomp_m_32f", "zelmLUDecomp_m_64f"})
        for (const KnownMatrix &matrix : known_matrices) {
            const Member &m = member(name);
            const testing::ScopedTrace trace(__FILE__, __LINE__, m.name + " " + matrix.name);
            int judged = 0;
            for (int n = 1; n <= 64; ++n) {
                Problem problem = decomposition(m, n, 1, all_in(m, packed), 0, false);
                set_source(problem, [&](int, int i, int j) { return matrix.element(n, i, j); });
                const int status = decomposed(problem);
                ASSERT_NE(status, wrong);
                judged += status == ok;
                if (status == ok)
                    judge(problem, 5, 10);
            }
            EXPECT_GE(judged, matrix.judged);
        }
}

TEST(LUResiduals, OfAllPermutationsOfOrderFourAreZero) {
    for (const char *name : {"zelmLUDecomp_m_32f", "zelmLUDecomp_m_64f"}) {
        std::vector<int> column = {0, 1, 2, 3}; // of the one in each row
        do {
            Problem problem =
                decomposition(member(name), 4, 1, all_in(member(name), packed), 0, false);
            set_source(problem, [&](int, int i, int j) { return column[std::size_t(i)] == j; });
            ASSERT_EQ(decomposed(problem), ok);
            judge(problem, 0, 0);
        } while (std::next_permutation(column.begin(), column.end()));
    }
}

} // namespace
