// Cholesky decomposition and substitution. Every form is compared bit for bit with one reference
// that rounds each operation to the element type; its reciprocal root in 32f is the library's own,
// of order 1, which is judged by itself.

#include "support/solver.hpp"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>

using namespace zelm_test;

namespace {

constexpr int not_definite = -179;
constexpr int orders[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 33, 64};

double reciprocal_root(bool single, double d) {
    if (!single)
        return 1 / std::sqrt(d);
    const auto from = static_cast<float>(d);
    float to = 0;
    zelmCholeskyDecomp_m_32f(&from, 4, 4, &to, 4, 4, 1);
    return to;
}

// Changes `to` as the destination changes.
int factor(bool single, Grid a, Grid &to) {
    const auto rest = [&](int i, int j) {
        double x = a(i, j);
        for (int k = 0; k < j; ++k)
            x = rounded(single, x - rounded(single, to(i, k) * to(j, k)));
        return x;
    };
    for (int i = 0; i < a.columns; ++i) {
        for (int j = 0; j < i; ++j)
            to(i, j) = rounded(single, rest(i, j) * to(j, j));
        const double d = rest(i, i);
        if (0 >= d)
            return not_definite;
        to(i, i) = reciprocal_root(single, d);
    }
    return ok;
}

Grid solution(bool single, Grid f, Grid x) {
    const int n = x.columns;
    const auto subtract = [&](int i, double p) {
        x(i) = rounded(single, x(i) - rounded(single, p));
    };
    for (int i = 0; i < n; ++i) {
        for (int k = 0; k < i; ++k)
            subtract(i, f(i, k) * x(k));
        x(i) = rounded(single, x(i) * f(i, i));
    }
    for (int i = n - 1; i >= 0; --i) {
        for (int k = i + 1; k < n; ++k)
            subtract(i, f(k, i) * x(k));
        x(i) = rounded(single, x(i) * f(i, i));
    }
    return x;
}

// Tables of matrices lead nowhere above the diagonal.
void cut_tables(Problem &problem) {
    const int n = problem.sizes.width;
    for (std::size_t q = 0; q < problem.slots.size(); ++q) {
        const Parameter &p = problem.member.parameters[q];
        if (p.group != 'p')
            continue;
        const Operand &operand = problem.member.operands[std::size_t(p.operand)];
        for (int e = 0; operand.description == 'P' && operand.letter == 'm' && e < n * n; ++e)
            if (e % n > e / n)
                static_cast<void **>(problem.slots[q].pointer)[e] = nullptr;
    }
}

int decomposed(Problem &problem) {
    Objects to = all_objects(problem.destination());
    int status = ok;
    for (std::size_t k = 0; k < to.size() && status == ok; ++k)
        status = factor(problem.member.is_float, object(problem.operands[0], int(k)), to[k]);
    return gives(problem, status, 1, {to}) ? status : wrong;
}

// Above the diagonal of the source stand NaNs, below it numbers that make it definite.
Problem decomposition(const Member &m, int n, int count, const std::vector<Placement> &placements,
                      int seed, bool in_place, bool special = false) {
    Problem problem = filled(m, {n, n, 1, count}, placements, seed, in_place, special);
    Placed &from = problem.operands[0];
    from.for_each_element([&](int k, int i, int j) {
        if (i == j)
            from.put(k, i, j, std::fabs(from.get(k, i, j)) + n);
        if (j > i)
            from.put(k, i, j, not_a_number);
    });
    return problem;
}

TEST(CholeskyDecomp, EveryOrderAndCountInEveryMixOfMemoryShapes) {
    for (const Member *m : family("CholeskyDecomp", 10)) {
        int step = 0;
        for (const int n : orders)
            for (const int count : counts(*m, n))
                for (int shape = 0; shape < 6; ++shape, ++step) {
                    const Threads threads(threads_for(count));
                    const bool special = shape > 3 && count != many;
                    Problem problem = decomposition(*m, n, count, placed(*m, shape, step), step,
                                                    step / 2 % 2 == 0, special);
                    if (step % 3 != 0)
                        cut_tables(problem);
                    const int status = decomposed(problem);
                    ASSERT_TRUE(status == ok || (status == not_definite && special));
                }
    }
}

// The residual of one diagonal element has a given value. Behind the failing object come one of
// NaNs and, half the time, one that fails too.
TEST(CholeskyDecomp, StateAfterAFailureAtEveryObjectAndRow) {
    const Threads threads(1);
    for (const Member *m : family("CholeskyDecomp", 10)) {
        const double least = m->is_float ? 0x1p-149 : 0x1p-1074;
        const std::pair<double, int> cases[] = {{0, not_definite},  {-0., not_definite},
                                                {-1, not_definite}, {-least, not_definite},
                                                {least, ok},        {not_a_number, ok}};
        int step = 0;
        for (const int n : {1, 2, 3, 4, 5, 6, 7, 8, 9, 16, 17})
            for (const auto &[count, failing, row, shape] : failures(*m, n, n)) {
                const auto &[value, status] = cases[++step % (count > 5 ? 4 : 6)];
                const int second = failing + (step % 2 == 0 ? 2 : count);
                Problem problem = decomposition(*m, n, count, placed(*m, shape, step), step, false);
                Placed &from = problem.operands[0];
                set_source(problem, [&](int k, int i, int j) {
                    const bool chosen = (k == failing || k == second) && (i == row || j == row);
                    return chosen             ? (i == j ? value : 0)
                           : k == failing + 1 ? not_a_number
                                              : from.get(k, i, j);
                });
                cut_tables(problem);
                ASSERT_EQ(decomposed(problem), status) << value << " in row " << row;
            }
    }
}

TEST(CholeskyDecomp, ReciprocalRootOfAllMagnitudes) {
    Long worst = 0;
    for (int e = -126; e <= 127; ++e)
        for (int k = 0; k < 256; ++k) {
            const float d = std::ldexp(1 + float(k * 32771 % 8388608) / 8388608, e);
            const Long exact = 1 / std::sqrt(Long(d));
            worst = std::max(worst, std::fabs(Long(reciprocal_root(true, d)) - exact) / exact);
        }
    // A processor's approximation is within 1.5 * 2^-12. One Newton step makes 1.5 times its square
    // of that, 1.7 * 2^-23, and five roundings are on top. Processors differ; one reaches 2.15.
    EXPECT_LE(worst, 3 * 0x1p-23L);
    EXPECT_EQ(reciprocal_root(false, 4), 0.5);
}

TEST(CholeskyBackSubst, EveryOrderAndCountInEveryMixOfMemoryShapes) {
    for (const Member *m : family("CholeskyBackSubst", 16)) {
        int step = 0;
        for (const int n : {1, 2, 3, 4, 5, 6, 7, 8, 9, 13, 16, 17, 33, 65, 256, 257})
            for (const int count : counts(*m, n))
                for (int shape = 0; shape < 6; ++shape, ++step) {
                    const Threads threads(threads_for(count));
                    Problem problem(*m, {n, n, 1, count}, placed(*m, shape, step),
                                    step / 2 % 2 == 0 ? std::optional(1) : std::nullopt);
                    problem.fill(unsigned(step), shape == 4);
                    Placed &f = problem.operands[0];
                    set_source(problem, [&](int k, int i, int j) {
                        return j > i ? not_a_number : f.get(k, i, j) / n + (i == j);
                    });
                    cut_tables(problem);
                    Objects solutions;
                    for (int k = 0; k < problem.destination().objects(); ++k)
                        solutions.push_back(
                            solution(m->is_float, object(f, k), object(problem.operands[1], k)));
                    ASSERT_TRUE(gives(problem, ok, 2, {solutions}));
                }
    }
}

// Sources and destinations by turns in one memory, and each destination the source before or
// behind it.
TEST(CholeskyTogether, SourcesAndDestinationsAmongOneAnother) {
    constexpr int turns[][3] = {{0, 1, 2}, {1, 0, 2}, {0, 1, 1}, {1, 0, 1}}; // from, to, step
    const Threads threads(1);
    const auto shared_by = those(members(), 18, [](const Member &m) {
        return m.is_array() && among(m.family, "CholeskyDecomp CholeskyBackSubst");
    });
    for (const Member *member : shared_by)
        for (int n = 1; n <= 9; ++n)
            for (int c = 0; c < 28; ++c) {
                const Member &m = *member;
                const int count = widest_group(m) + 1;
                const bool decomposes = m.family == "CholeskyDecomp";
                const auto &[from, to, step] = turns[c % 4];
                const int shared = decomposes ? 0 : 1;
                Problem problem(m, {n, n, 1, 2 * count}, all_in(m, c / 4), shared);
                problem.fill(7);
                set_source(problem, [&](int k, int i, int j) {
                    return problem.operands[0].get(k, i, j) / n + 2 * n * (i == j);
                });
                const Placed &memory = problem.destination();
                Objects objects = all_objects(memory);
                int status = ok;
                for (int k = 0; k < count && status == ok; ++k) {
                    Grid &source = objects[std::size_t(from + k * step)];
                    Grid &destination = objects[std::size_t(to + k * step)];
                    if (decomposes)
                        status = factor(m.is_float, source, destination);
                    else
                        destination = solution(m.is_float, object(problem.operands[0], k), source);
                }
                const auto distance = memory.address(1, 0, 0) - memory.address(0, 0, 0);
                move(problem, shared, from * distance, step * distance);
                move(problem, int(m.operands.size()) - 1, to * distance, step * distance);
                problem.slots.back().integer = count;
                ASSERT_TRUE(gives(problem, status, std::size_t(shared + 1), {objects}));
            }
}

// Judges the numbers of a decomposition and of one solution with it against their bounds.
template <class T>
void judge(const Grid &source, Grid f, auto substitute) {
    const int n = f.columns;
    const Long eps = epsilon(sizeof(T) == 4);
    const auto a = [&](int i, int j) { return source(std::max(i, j), std::min(i, j)); };
    const auto l = [&](int i, int j) {
        return j > i ? 0 : i == j ? 1 / Long(f(i, i)) : Long(f(i, j));
    };
    const Long of_a = norm(n, n, a);
    const Long rest = norm(n, n, [&](int i, int j) {
        Long sum = a(i, j);
        for (int k = 0; k <= std::min(i, j); ++k)
            sum -= l(i, k) * l(j, k);
        return sum;
    });
    EXPECT_LE(rest / (n * of_a * eps), 10) << "order " << n;

    std::vector<T> b, x(std::size_t(n), 0);
    for (int i = 0; i < n; ++i)
        b.push_back(static_cast<T>(noise(n, i, n)));
    constexpr int e = sizeof(T);
    substitute(f.as<T>().data(), n * e, e, b.data(), e, x.data(), e, n);
    const auto at = [](std::vector<T> &v, int i) { return Long(v[std::size_t(i)]); };
    const Long of_x = norm(n, 1, [&](int i, int) { return at(x, i); });
    const Long defect = norm(n, 1, [&](int i, int) {
        Long sum = at(b, i);
        for (int j = 0; j < n; ++j)
            sum -= a(i, j) * at(x, j);
        return sum;
    });
    EXPECT_LE(defect / (of_a * of_x * eps), 10) << "order " << n;
}

// M * M' of every known matrix M, as far as it is definite to rounding, and Hilbert matrices.
TEST(CholeskyResiduals, OfHardMatrices) {
    for (const char *name : {"zelmCholeskyDecomp_m_32f", "zelmCholeskyDecomp_m_64f"})
        for (const KnownMatrix &matrix : known_matrices) {
            const Member &m = member(name);
            const testing::ScopedTrace trace(__FILE__, __LINE__, m.name + " " + matrix.name);
            const bool hilbert = std::strcmp(matrix.name, "Hilbert") == 0;
            int judged = 0;
            for (int n = 1; n <= 64; ++n) {
                Problem problem = decomposition(m, n, 1, all_in(m, packed), 0, false);
                set_source(problem, [&](int, int i, int j) {
                    double sum = hilbert ? matrix.element(n, i, j) : 0;
                    for (int k = 0; !hilbert && k < n; ++k)
                        sum += matrix.element(n, i, k) * matrix.element(n, j, k);
                    return sum;
                });
                const Grid a = object(problem.operands[0], 0);
                const int status = decomposed(problem);
                ASSERT_NE(status, wrong);
                judged += status == ok;
                const Grid f = object(problem.destination(), 0);
                if (status == ok && m.is_float)
                    judge<float>(a, f, zelmCholeskyBackSubst_mv_32f);
                else if (status == ok)
                    judge<double>(a, f, zelmCholeskyBackSubst_mv_64f);
            }
            EXPECT_GE(judged, 4);
        }
}

} // namespace
