// Inversion and determinant. Orders 3 to 6 and every other are judged against long double; every
// form is compared bit for bit with the single form of the same kernel on packed or, where the
// elements are apart, on strided memory. What fails is predicted by elimination.

#include "support/solver.hpp"

#include <algorithm>
#include <gtest/gtest.h>

using namespace zelm_test;

namespace {

constexpr int singular = -195;

double smallest(bool single) { return single ? 0x1p-126 : 0x1p-1022; }
// 2 n^3 wraps to 32 bits.
double threshold(bool single, int n) {
    const auto u = static_cast<unsigned>(n);
    return static_cast<int>(2 * u * u * u) * smallest(single);
}

Grid element_grid(bool single, int n, auto element) {
    Grid a{n, {}};
    for (int e = 0; e < n * n; ++e)
        a.values.push_back(rounded(single, element(e / n, e % n)));
    return a;
}

template <class T>
int inverted(auto member, int n, int gap, const Grid &a, Grid &to) {
    constexpr int e = sizeof(T);
    const auto size = std::size_t(n * n * gap);
    std::vector<T> from(size), x(size), buffer(std::size_t(n * (n + 1)));
    for (std::size_t k = 0; k < size; k += std::size_t(gap))
        from[k] = static_cast<T>(a.values[k / std::size_t(gap)]);
    const int status =
        member(from.data(), n * gap * e, gap * e, buffer.data(), x.data(), n * gap * e, gap * e, n);
    for (std::size_t k = 0; status == ok && k < size; k += std::size_t(gap))
        to.values[k / std::size_t(gap)] = x[k];
    return status;
}
// By the single form of the library: adjacent elements, or strided ones.
int inverted(bool single, bool adjacent, const Grid &a, Grid &to) {
    const int n = a.columns, gap = adjacent ? 1 : 2;
    return single ? inverted<float>(zelmInvert_m_32f, n, gap, a, to)
                  : inverted<double>(zelmInvert_m_64f, n, gap, a, to);
}
double determinant(bool single, const Grid &a) {
    const int n = a.columns;
    const auto of = [&]<class T>(auto member, T) {
        constexpr int e = sizeof(T);
        T d = 7777;
        std::vector<T> buffer(std::size_t(n * (n + 1)));
        member(a.as<T>().data(), n * e, e, n, buffer.data(), &d);
        return double(d);
    };
    return single ? of(zelmDet_m_32f, 1.f) : of(zelmDet_m_64f, 1.);
}

bool has_adjacent_elements(const Problem &problem) {
    bool all = problem.member.description != "P";
    for (std::size_t q = 0; q < problem.slots.size(); ++q)
        if (problem.member.parameters[q].group == 's' && problem.member.parameters[q].axis == 2)
            all = all && problem.slots[q].integer == problem.member.element();
    return all;
}

// Runs an inversion and compares every object with the single form; one behind a singular one, or
// of a pair with it, keeps what it holds.
int inverts(Problem &problem) {
    const Member &m = problem.member;
    const bool adjacent = has_adjacent_elements(problem), single = m.is_float;
    const int n = problem.sizes.width, count = problem.destination().objects();
    const bool pairs = adjacent && single && n == 4 && m.is_array();
    Objects to = all_objects(problem.destination()), results = to;
    int status = ok;
    for (int k = 0; k < count && status == ok; ++k) {
        status =
            inverted(single, adjacent, object(problem.operands[0], k), results[std::size_t(k)]);
        if (status != ok && pairs && k % 2 == 1)
            results[std::size_t(k - 1)] = to[std::size_t(k - 1)];
        if (status != ok)
            results[std::size_t(k)] = to[std::size_t(k)];
    }
    return gives(problem, status, 2, {results}) ? status : wrong;
}

Problem inversion(const Member &m, int n, int count, const std::vector<Placement> &placements,
                  int seed, bool in_place, bool special = false) {
    return filled(m, {n, n, 1, count}, placements, seed, in_place, special);
}

std::vector<int> counts_of(const Member &m, int n) {
    return n > 9 && m.is_array() ? std::vector{1, 3} : counts(m, n);
}

TEST(Invert, EveryOrderAndCountInEveryMixOfMemoryShapes) {
    for (const Member *m : family("Invert", 10)) {
        int step = 0;
        for (const int n : {1, 2, 3, 4, 5, 6, 7, 8, 9, 12, 16, 17, 32, 33})
            for (const int count : counts_of(*m, n))
                for (int shape = 0; shape < 8; ++shape, ++step) {
                    if (n > 16 && shape > 2)
                        continue;
                    const Threads threads(threads_for(count));
                    const bool special = shape > 3 && count != many;
                    const bool in_place = step / 2 % 2 == 0 && n <= 32;
                    Problem problem =
                        inversion(*m, n, count, placed(*m, shape, step), step, in_place, special);
                    const int status = inverts(problem);
                    ASSERT_TRUE(status == ok || (status == singular && special));
                }
    }
}

// A diagonal matrix of ones and one other element, which is pivot, last pivot or determinant.
TEST(Invert, ThresholdsOfEveryOrder) {
    const Threads threads(1);
    for (const Member *m : family("Invert", 10))
        for (const int n : {1, 2, 3, 4, 5, 6, 7, 8, 16, 17})
            for (int step = 0; step < (n > 9 ? 2 : 2 * n); ++step)
                for (const int shape : {packed, strided}) {
                    const bool adjacent = shape == packed && m->description != "P";
                    const bool of_type = !m->is_float && adjacent && (n == 3 || n == 4);
                    const double limit = threshold(m->is_float, n) * (of_type ? 2 : 1);
                    const double below = limit * (1 - (m->is_float ? 0x1p-24 : 0x1p-53));
                    const double above = limit * (1 + (m->is_float ? 0x1p-23 : 0x1p-52));
                    const bool passes = adjacent && n >= 3 && n <= 6; // at the limit
                    const std::pair<double, int> cases[] = {{0, singular},
                                                            {below, singular},
                                                            {limit, passes ? ok : singular},
                                                            {-limit, passes ? ok : singular},
                                                            {above, ok},
                                                            {-above, ok}};
                    for (const auto &[value, status] : cases) {
                        const int count = m->is_array() ? 9 : 1, k = step % n;
                        Problem problem = inversion(*m, n, count, all_in(*m, shape), 0, false);
                        set_source(problem, [&](int object, int i, int j) {
                            const bool probe = i == k && j == k && object == step % count;
                            return i != j ? 0 : probe ? value : 1;
                        });
                        ASSERT_EQ(inverts(problem), status)
                            << value / smallest(m->is_float) << " m at " << k << " of " << n;
                    }
                }
}

// Behind the failing object come one of NaNs or infinities and, half the time, one that fails too.
TEST(Invert, StateAfterAFailureAtEveryObject) {
    const Threads threads(1);
    for (const Member *m : family("Invert", 10)) {
        int step = 0;
        for (const int n : {1, 2, 3, 4, 5, 6, 7, 8, 9, 17})
            for (const auto &[count, failing, column, shape] : failures(*m, n < 17 ? n : 18, n)) {
                ++step;
                const int second = failing + (step % 2 == 0 ? 2 : count);
                Problem problem = inversion(*m, n, count, placed(*m, shape, step), step, false);
                set_source(problem, [&](int k, int i, int j) {
                    const bool zero = k == failing || k == second;
                    return zero && j == column ? 0
                           : k == failing + 1  ? (step % 3 == 0 ? infinite : not_a_number)
                                               : problem.operands[0].get(k, i, j);
                });
                ASSERT_EQ(inverts(problem), singular) << failing << " column " << column;
            }
    }
}

// A 3 x 3 matrix with determinant 100 m is singular where its elements are adjacent.
TEST(Invert, ThresholdsDifferByStride) {
    constexpr double m = 0x1p-1022;
    const Grid a{3, {1, 0, 0, 0, 1, 0, 0, 0, 100 * m}};
    Grid x = a;
    EXPECT_EQ(inverted(false, true, a, x), singular);
    EXPECT_EQ(inverted(false, false, a, x), ok);
}

// Of the identity with a last element of 2^k T(n), every minor off the diagonal is degenerate: an
// element of the inverse is 2^-k where 0 would be. With the larger k the rest is far from T(n).
TEST(Invert, DegenerateMinorsCountAsTheThreshold) {
    for (const bool single : {true, false})
        for (const int n : {2, 3, 4, 5, 6, 7, 8, 9, 16, 17})
            for (const int k : {2, n * n / 4 + 2 * n + 4}) {
                const double last = std::ldexp(threshold(single, n), k);
                const Grid a = element_grid(single, n, [&](int i, int j) {
                    return i != j ? 0 : i == n - 1 ? last : 1;
                });
                Grid x = a;
                ASSERT_EQ(inverted(single, false, a, x), ok);
                for (int i = 0; i < n; ++i)
                    for (int j = 0; j < n; ++j) {
                        const double minor = std::ldexp((i + j) % 2 == 0 ? 1 : -1, -k);
                        const double should = i != j ? minor : i == n - 1 ? 1 / last : 1;
                        EXPECT_NEAR(x(i, j) / should, 1, 1e-6) << n << ": " << i << ", " << j;
                    }
            }
}

// The elimination that says whether a matrix, or a minor, is singular; `strict` as for minors.
template <class T>
T eliminated_determinant(std::vector<T> a, int n, T limit, bool strict, bool &is_small) {
    const auto at = [&](int i, int j) -> T & { return a[std::size_t(i * n + j)]; };
    T sign = 1, product = 1;
    is_small = false;
    for (int k = 0; k < n - 1; ++k) {
        int best = k;
        for (int i = k + 1; i < n; ++i)
            best = std::fabs(at(i, k)) > std::fabs(at(best, k)) ? i : best;
        const T largest = std::fabs(at(best, k));
        is_small = is_small || (strict ? !(largest > limit) : limit > largest);
        for (int j = 0; j < n; ++j)
            std::swap(at(k, j), at(best, j));
        sign = best == k ? sign : -sign;
        product = product * at(k, k);
        const T r = 1 / at(k, k);
        for (int i = k + 1; i < n; ++i) {
            const T f = at(i, k) * r;
            for (int j = k + 1; j < n; ++j)
                at(i, j) = at(i, j) - f * at(k, j);
        }
    }
    const T last = at(n - 1, n - 1), d = last * sign * product;
    is_small = is_small || !(std::fabs(strict ? last : d) > limit);
    return d;
}
template <class T>
void singular_where_elimination_says_so(int n, unsigned seed) {
    const bool single = sizeof(T) == 4;
    const Grid a = element_grid(single, n, [&](int i, int j) {
        const int row = seed % 2 == 0 && i == n - 1 ? 0 : i; // two equal rows
        return seed % 3 == 0 ? std::floor(noise(int(seed), row, j) * 3) : noise(int(seed), row, j);
    });
    const std::vector<T> elements = a.as<T>();
    const T limit = T(threshold(single, n));
    bool is_singular, is_degenerate;
    const T d = eliminated_determinant(elements, n, limit, false, is_singular);
    Grid x = a;
    ASSERT_EQ(inverted(single, false, a, x), is_singular ? singular : ok) << n << " " << seed;
    for (int e = 0; e < n * n && !is_singular; ++e) {
        std::vector<T> minor;
        for (int f = 0; f < n * n; ++f)
            if (f / n != e / n && f % n != e % n)
                minor.push_back(elements[std::size_t(f)]);
        eliminated_determinant(minor, n - 1, limit, true, is_degenerate);
        const double should = double(limit * (1 / d)) * ((e / n + e % n) % 2 == 0 ? 1 : -1);
        if (is_degenerate) {
            ASSERT_NEAR(x(e % n, e / n) / should, 1, 1e-6) << n << " " << seed;
        }
    }
}
TEST(Invert, IsSingularWhereEliminationSaysSo) {
    for (const int n : {2, 3, 4, 5, 6, 7, 8, 13})
        for (unsigned seed = 0; seed < 300; ++seed) {
            singular_where_elimination_says_so<float>(n, seed);
            singular_where_elimination_says_so<double>(n, seed);
        }
}

// Transformations of space: a row of zeros and a one. Far from all thresholds but for the minors of
// that row, some of the objects not even that.
TEST(Invert, OfArraysWithSomeSmallMinors) {
    const Threads threads(1);
    for (const Member *m : family("Invert", 10))
        for (const int n : {2, 3, 4, 5, 6, 8, 16})
            for (const int shape : {planar, strided}) {
                Problem problem =
                    inversion(*m, n, two_groups_and_tail(*m), all_in(*m, shape), n, false);
                set_source(problem, [&](int k, int i, int j) {
                    const double x = problem.operands[0].get(k, i, j) + (i == j ? 4 : 0);
                    const double small = k % 3 == 1 ? 4 * threshold(m->is_float, n) : 1;
                    return k % 4 == 3 ? x : i != n - 1 ? x : i == j ? small : 0;
                });
                ASSERT_EQ(inverts(problem), ok);
            }
}

struct LongElimination {
    Long determinant = 1;
    std::vector<Long> inverse;
};
LongElimination eliminated(const Grid &from) {
    const int n = from.columns;
    LongElimination found;
    std::vector<Long> a(from.values.begin(), from.values.end()), &x = found.inverse;
    x.resize(a.size());
    const auto at = [n](auto &v, int i, int j) -> Long & { return v[std::size_t(i * n + j)]; };
    for (int i = 0; i < n; ++i)
        at(x, i, i) = 1;
    for (int k = 0; k < n; ++k) {
        int best = k;
        for (int i = k; i < n; ++i)
            best = std::fabs(at(a, i, k)) > std::fabs(at(a, best, k)) ? i : best;
        for (int j = 0; best != k && j < n; ++j) {
            std::swap(at(a, k, j), at(a, best, j));
            std::swap(at(x, k, j), at(x, best, j));
        }
        const Long pivot = at(a, k, k);
        found.determinant *= best == k ? pivot : -pivot;
        for (int j = 0; j < n; ++j) {
            at(a, k, j) /= pivot;
            at(x, k, j) /= pivot;
        }
        for (int i = 0; i < n; ++i)
            for (int j = 0, f = i; f != k && j < n; ++j) {
                const Long factor = j == 0 ? at(a, i, k) : 0;
                if (j == 0)
                    for (int c = 0; c < n; ++c) {
                        at(a, i, c) -= factor * at(a, k, c);
                        at(x, i, c) -= factor * at(x, k, c);
                    }
            }
    }
    return found;
}

Long product_of_lengths(const Grid &a) {
    Long product = 1;
    for (int i = 0; i < a.columns; ++i) {
        Long square = 0;
        for (int j = 0; j < a.columns; ++j)
            square += Long(a(i, j)) * a(i, j);
        product *= std::sqrt(square);
    }
    return product;
}

// |X - inverse| against eps |X| |A| |X|, by norms, for both kinds of memory.
TEST(InvertResiduals, OfHardMatrices) {
    for (const bool single : {true, false})
        for (const bool adjacent : {true, false})
            for (const KnownMatrix &matrix : known_matrices) {
                const testing::ScopedTrace trace(__FILE__, __LINE__, matrix.name);
                int judged = 0;
                for (const int n : {1, 2, 3, 4, 5, 6, 7, 8, 12, 16, 24, 32}) {
                    const Grid a = element_grid(
                        single, n, [&](int i, int j) { return matrix.element(n, i, j); });
                    Grid x = a;
                    if (inverted(single, adjacent, a, x) != ok)
                        continue;
                    const LongElimination exact = eliminated(a);
                    const Long of_a = norm(n, n, a),
                               of_x = norm(n, n, [&](int i, int j) {
                                   return exact.inverse[std::size_t(i * n + j)];
                               });
                    if (of_a * of_x * epsilon(single) > 0.01L / n)
                        continue; // nothing is left of the digits
                    ++judged;
                    const Long error = norm(n, n, [&](int i, int j) {
                        return x(i, j) - exact.inverse[std::size_t(i * n + j)];
                    });
                    EXPECT_LE(error / (n * epsilon(single) * of_x * of_a * of_x), 4)
                        << "order " << n;
                    // Expansions cancel, elimination does not.
                    Long bound = of_a * of_x * std::fabs(exact.determinant);
                    if (n >= 3 && n <= 6)
                        bound = std::max(bound, product_of_lengths(a));
                    EXPECT_LE(std::fabs(determinant(single, a) - exact.determinant) /
                                  (n * epsilon(single) * bound),
                              4)
                        << "order " << n;
                }
                EXPECT_GE(judged, 3);
            }
}

// Averages of |A X - I|_F |det| / eps over uniform random entries, and inverses of permutations.
TEST(InvertResiduals, OfSmallOrders) {
    for (const bool single : {true, false})
        for (const int n : {3, 4}) {
            Long sum = 0;
            constexpr int trials = 4000;
            for (int t = 0; t < trials; ++t) {
                const Grid a = element_grid(
                    single, n, [&](int i, int j) { return noise(n * t + 1, i, j + t); });
                Grid x = a;
                ASSERT_EQ(inverted(single, true, a, x), ok);
                Long square = 0;
                for (int e = 0; e < n * n; ++e) {
                    Long rest = e / n == e % n ? -1 : 0;
                    for (int k = 0; k < n; ++k)
                        rest += Long(a(e / n, k)) * x(k, e % n);
                    square += rest * rest;
                }
                sum += std::sqrt(square) * std::fabs(Long(eliminated(a).determinant));
            }
            EXPECT_LE(sum / trials / epsilon(single), single ? 4 : 1.25) << "order " << n;
        }
}

// The smallest determinants that pass keep their digits.
TEST(InvertResiduals, NearTheThreshold) {
    for (const bool single : {true, false})
        for (const int n : {3, 4, 5, 6})
            for (const double factor : {2., 3.7, 100.}) {
                const double tiny = threshold(single, n) * 2 * factor;
                const Grid a = element_grid(single, n, [&](int i, int j) {
                    return i != (j + 1) % n ? 0. : i == 0 ? tiny : 1;
                });
                Grid x = a;
                ASSERT_EQ(inverted(single, true, a, x), ok);
                EXPECT_NEAR(double(Long(x(n - 1, 0)) * Long(a(0, n - 1))), 1,
                            4 * double(epsilon(single)));
            }
}

bool gives_determinants(Problem &problem) {
    Objects results;
    for (int k = 0; k < problem.destination().objects(); ++k)
        results.push_back(
            {1, {determinant(problem.member.is_float, object(problem.operands[0], k))}});
    return gives(problem, ok, 2, {results});
}

TEST(Det, EveryOrderAndCountInEveryMixOfMemoryShapes) {
    for (const Member *m : family("Det", 10)) {
        int step = 0;
        for (const int n : {1, 2, 3, 4, 5, 6, 7, 8, 9, 12, 16, 17, 33})
            for (const int count : counts(*m, n))
                for (int shape = 0; shape < 6; ++shape, ++step) {
                    const Threads threads(threads_for(count));
                    Problem problem(*m, {n, n, 1, count}, placed(*m, shape, step));
                    problem.fill(unsigned(step), shape > 3);
                    if (shape == 1) // with ties and zeros
                        set_source(problem, [&](int k, int i, int j) {
                            return (i * 7 + j * 3 + k + i * j) % 3 - 1;
                        });
                    ASSERT_TRUE(gives_determinants(problem));
                }
    }
}

// Small integers: all of the elimination's and the expansions' numbers are exact or nearly so.
TEST(Det, OfIntegersAndPermutations) {
    for (const bool single : {true, false})
        for (int n = 1; n <= 9; ++n)
            for (int t = 0; t < 200; ++t) {
                const Grid a = element_grid(single, n, [&](int i, int j) {
                    return t < 100 ? std::floor(noise(t, i, j) * 4)
                                   : (i * (t % n + 1) + t) % n == j;
                });
                const Long exact = eliminated(a).determinant;
                const Long expected = std::isnan(exact) ? 0 : std::round(exact);
                ASSERT_NEAR(determinant(single, a), double(expected),
                            n < 3 || n > 6 ? 1e-4 * (1 + std::fabs(double(expected))) : 0)
                    << "order " << n << " case " << t;
            }
}

// Elements are powers of two, so all products are exact. The rows of object k are one cycle from
// row k on.
TEST(Det, OfLargePermutations) {
    for (const Member *m : family("Det", 10))
        for (const int n : {34, 35, 64, 100}) {
            Problem problem(*m, {n, n, 1, m->is_array() ? 4 : 1}, mixed(*m, n));
            set_source(problem, [&](int k, int i, int j) {
                const int last = i < k ? i : n - 1;
                const int to = i == last ? std::min(i, k) : i + 1;
                return j == to ? (i % 2 == 0 ? 2 : .5) : 0;
            });
            ASSERT_EQ(problem.run(), ok);
            for (int k = 0; k < problem.sizes.count; ++k) {
                const double sign = (n - k) % 2 == 0 ? -1 : 1;
                ASSERT_EQ(problem.destination().get(k, 0, 0), sign * (n % 2 == 0 ? 1 : 2))
                    << problem.describe() << " object " << k;
            }
        }
}

// One pivot, or the last element, has a given value. Of orders 3 to 6 nothing is cut off.
TEST(Det, QuietlyBecomesZero) {
    for (const Member *m : family("Det", 10))
        for (const int n : {1, 2, 3, 4, 5, 6, 7, 8, 16, 17})
            for (int k = 0; k < n; ++k) {
                const double t = threshold(m->is_float, n);
                const double below = t * (1 - (m->is_float ? 0x1p-24 : 0x1p-53));
                const double above = t * (1 + (m->is_float ? 0x1p-23 : 0x1p-52));
                for (const double value : {0., below, t, above, -t, -above, not_a_number}) {
                    const bool closed = n >= 3 && n <= 6, last = k == n - 1;
                    // A NaN is no small pivot, but makes a last element that is not large.
                    const bool cut =
                        last || std::isnan(value) ? !(std::fabs(value) > t) : t > std::fabs(value);
                    Problem problem(*m, {n, n, 1, m->is_array() ? 6 : 1}, all_in(*m, strided));
                    set_source(problem, [&](int, int i, int j) {
                        return i != j ? 0 : i == k ? value : 1;
                    });
                    ASSERT_TRUE(gives_determinants(problem));
                    const double is = problem.destination().get(0, 0, 0);
                    ASSERT_TRUE(same(is, closed || !cut ? rounded(m->is_float, value) : 0.))
                        << m->name << " order " << n << " pivot " << k << " " << value << ": "
                        << is;
                }
            }
}

// 2 * 1024^3 is negative in 32 bits: no pivot is below it. 2 * 1626^3 wraps to something positive.
TEST(Det, ThresholdWraps) {
    for (const int n : {1024, 1626}) {
        std::vector<double> a(std::size_t(n) * std::size_t(n)), buffer(a.size() + std::size_t(n));
        const auto with = [&](double value) {
            std::fill(a.begin(), a.end(), 0);
            for (int i = 0; i < n; ++i)
                a[std::size_t(i) * std::size_t(n + 1)] = i == 1 ? value : 1;
            double d = 7777;
            EXPECT_EQ(zelmDet_m_64f(a.data(), 8 * n, 8, n, buffer.data(), &d), ok);
            return d;
        };
        const double t = threshold(false, n);
        const double small = n == 1024 ? smallest(false) : t; // would be cut off
        EXPECT_EQ(with(small), small);
        EXPECT_EQ(with(small * (1 - 0x1p-53)), n == 1024 ? small * (1 - 0x1p-53) : 0);
    }
}

} // namespace
