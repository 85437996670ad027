// QR decomposition and least squares. Every form is compared bit for bit with one reference that
// rounds each operation to the element type; residuals are judged in long double.

#include "support/solver.hpp"

#include <algorithm>
#include <gtest/gtest.h>

using namespace zelm_test;

namespace {

constexpr int too_small = -10;
constexpr struct {
    int height, width;
} shapes_of_matrices[] = {{1, 1}, {2, 1},   {2, 2},  {3, 3},   {4, 3},  {4, 4},
                          {5, 5}, {6, 6},   {8, 4},  {7, 7},   {9, 2},  {8, 8},
                          {9, 8}, {16, 16}, {64, 4}, {17, 16}, {33, 20}};

int reflections(int width, int height) { return width < height ? width : width - 1; }

// Rounds after every operation.
struct Rounding {
    bool single;
    double operator()(double x) const { return rounded(single, x); }
};

// `d` holds the copied matrix and becomes the factor, as far as it goes.
int factor(bool single, Grid &d) {
    const Rounding r{single};
    const int w = d.columns, h = int(d.values.size()) / w;
    for (int k = 0; k < reflections(w, h); ++k) {
        double squares = r(d(k, k) * d(k, k));
        for (int i = k + 1; i < h; ++i)
            squares = r(squares + r(d(i, k) * d(i, k)));
        if (double(epsilon(single)) > std::fabs(squares))
            return too_small;
        const double root = r(std::sqrt(squares)), alpha = d(k, k) <= 0 ? -root : root;
        const double reciprocal = r(1 / r(d(k, k) + alpha));
        double length = 1;
        for (int i = k + 1; i < h; ++i) {
            d(i, k) = r(d(i, k) * reciprocal);
            length = r(length + r(d(i, k) * d(i, k)));
        }
        const double beta = r(-2 / length);
        d(k, k) = -alpha;
        for (int j = k + 1; j < w; ++j) {
            double s = d(k, j);
            for (int i = k + 1; i < h; ++i)
                s = r(s + r(d(i, k) * d(i, j)));
            s = r(beta * s);
            d(k, j) = r(d(k, j) + s);
            for (int i = k + 1; i < h; ++i)
                d(i, j) = r(d(i, j) + r(s * d(i, k)));
        }
    }
    return ok;
}

Grid solution(bool single, Grid f, Grid y) {
    const Rounding r{single};
    const int w = f.columns, h = y.columns;
    for (int k = 0; k < reflections(w, h); ++k) {
        double length = 1, s = y(k);
        for (int i = k + 1; i < h; ++i) {
            length = r(length + r(f(i, k) * f(i, k)));
            s = r(s + r(f(i, k) * y(i)));
        }
        s = r(r(-2 / length) * s);
        y(k) = r(y(k) + s);
        for (int i = k + 1; i < h; ++i)
            y(i) = r(y(i) + r(s * f(i, k)));
    }
    for (int i = w - 1; i >= 0; --i) {
        for (int j = i + 1; j < w; ++j)
            y(i) = r(y(i) - r(f(i, j) * y(j)));
        y(i) = r(y(i) / f(i, i));
    }
    y.columns = w;
    y.values.resize(std::size_t(w));
    return y;
}

int decomposed(Problem &problem) {
    Objects to = all_objects(problem.destination());
    int status = ok;
    for (std::size_t k = 0; k < to.size() && status == ok; ++k) {
        to[k] = object(problem.operands[0], int(k));
        status = factor(problem.member.is_float, to[k]);
    }
    return gives(problem, status, 2, {to}) ? status : wrong;
}

Problem decomposition(const Member &m, int h, int w, int count,
                      const std::vector<Placement> &placements, int seed, bool in_place,
                      bool special = false) {
    return filled(m, {h, w, 1, count}, placements, seed, in_place, special);
}

TEST(QRDecomp, EveryShapeAndCountInEveryMixOfMemoryShapes) {
    for (const Member *m : family("QRDecomp", 10)) {
        int step = 0;
        for (const auto &[h, w] : shapes_of_matrices)
            for (const int count : counts(*m, h * w > 64 ? 17 : w))
                for (int shape = 0; shape < 6; ++shape, ++step) {
                    const Threads threads(threads_for(count));
                    const bool special = shape > 3 && count != many;
                    Problem problem = decomposition(*m, h, w, count, placed(*m, shape, step), step,
                                                    step / 2 % 2 == 0, special);
                    if (shape == 3) // zeros of both signs on the diagonal
                        set_source(problem, [&](int k, int i, int j) {
                            const double zero = (i + k) % 2 == 0 ? 0. : -0.;
                            return i == j ? zero : problem.operands[0].get(k, i, j);
                        });
                    const int status = decomposed(problem);
                    ASSERT_TRUE(status == ok || (status == too_small && special));
                }
    }
}

// The sum of squares of one column, from the diagonal down, has a given value; it stands on the
// diagonal or in the last row. Behind the failing object come one of NaNs and, half the
// time, one that fails too.
TEST(QRDecomp, StateAfterAFailureAtEveryObjectAndColumn) {
    const Threads threads(1);
    for (const Member *m : family("QRDecomp", 10)) {
        const double limit = double(epsilon(m->is_float)), ulp = m->is_float ? 0x1p-23 : 0x1p-52;
        // 2^-23 is no square: 2^-24 twice.
        const double half = m->is_float ? 0x1p-12 : std::sqrt(limit / 2);
        const double root = m->is_float ? half : std::sqrt(limit);
        const std::pair<double, int> cases[] = {{0, too_small},
                                                {root * (1 - 2 * ulp), too_small},
                                                {root, ok},
                                                {-root * (1 + ulp), ok},
                                                {not_a_number, ok}};
        int step = 0;
        for (const auto &[h, w] : shapes_of_matrices)
            for (const auto &[count, failing, k, shape] :
                 failures(*m, h * w > 256 ? 18 : w, reflections(w, h)))
                for (const auto &[value, status] : cases) {
                    if (count > 5 && value != 0)
                        continue;
                    ++step;
                    const bool pair = m->is_float; // two elements make the sum
                    const int second = failing + (step % 2 == 0 ? 2 : count);
                    Problem problem = decomposition(*m, h, w, count, placed(*m, shape, step), step,
                                                    step / 2 % 2 == 0);
                    set_source(problem, [&](int object, int i, int j) {
                        if (object == failing + 1)
                            return not_a_number;
                        const bool fails = object == second;
                        if (object == failing || fails) {
                            const double x = fails ? 0 : value;
                            const bool here = i == k || (pair && i == h - 1);
                            return j == k ? (here ? x : 0) : i == j ? 1. : 0.;
                        }
                        return problem.operands[0].get(object, i, j);
                    });
                    const bool nothing_behind = second >= count;
                    const int is = decomposed(problem);
                    ASSERT_NE(is, wrong);
                    if (nothing_behind || status != ok) {
                        ASSERT_EQ(is, status) << value << " in column " << k;
                    }
                }
    }
}

TEST(QRBackSubst, EveryShapeAndCountInEveryMixOfMemoryShapes) {
    for (const Member *m : family("QRBackSubst", 16)) {
        int step = 0;
        for (const auto &[h, w] : shapes_of_matrices)
            for (const int count : counts(*m, h * w > 64 ? 17 : w))
                for (int shape = 0; shape < 6; ++shape, ++step) {
                    const Threads threads(threads_for(count));
                    const bool in_place = h == w && step / 2 % 2 == 0;
                    Problem problem(*m, {h, w, 1, count}, placed(*m, shape, step),
                                    in_place ? std::optional(2) : std::nullopt);
                    problem.fill(unsigned(step), shape == 4);
                    Placed &f = problem.operands[0];
                    set_source(problem, [&](int k, int i, int j) {
                        const bool zero = shape == 5 && i == j && i == step % w;
                        return zero ? 0 : f.get(k, i, j) + 2. * (i == j);
                    });
                    Objects solutions;
                    for (int k = 0; k < problem.destination().objects(); ++k)
                        solutions.push_back(
                            solution(m->is_float, object(f, k), object(problem.operands[2], k)));
                    ASSERT_TRUE(gives(problem, ok, 3, {solutions}));
                }
    }
}

// The rest |A - Q R|, Q being the product of the reflections, which are orthogonal by their
// construction, and the rest of a solution. Sums of squares may have overflowed.
void judge(bool single, Grid a, Grid f) {
    const int w = a.columns, h = int(a.values.size()) / w;
    const Long eps = epsilon(single);
    const auto size = std::size_t(h);
    std::vector<std::vector<Long>> q(size, std::vector<Long>(size));
    for (std::size_t i = 0; i < size; ++i)
        q[i][i] = 1;
    const auto u = [&](int i, int k) { return i == k ? Long(1) : Long(f(i, k)); };
    for (int k = reflections(w, h); k-- > 0;) {
        Long length = 0;
        for (int i = k; i < h; ++i)
            length += u(i, k) * u(i, k);
        for (int j = 0; j < h; ++j) {
            Long s = 0;
            for (int i = k; i < h; ++i)
                s += u(i, k) * q[std::size_t(i)][std::size_t(j)];
            for (int i = k; i < h; ++i)
                q[std::size_t(i)][std::size_t(j)] -= 2 / length * s * u(i, k);
        }
    }
    const Long of_a = norm(h, w, a);
    if (of_a == 0 || !std::isfinite(norm(1, h * w, f)))
        return;
    const Long rest = norm(h, w, [&](int i, int j) {
        Long sum = a(i, j);
        for (int k = 0; k <= j; ++k)
            sum -= q[std::size_t(i)][std::size_t(k)] * f(k, j);
        return sum;
    });
    EXPECT_LE(rest / (h * of_a * eps), 10) << h << " x " << w;

    Grid b{h, {}};
    for (int i = 0; i < h; ++i)
        b.values.push_back(rounded(single, noise(h, i, w)));
    Grid x = solution(single, f, b);
    if (h != w ||
        !std::all_of(x.values.begin(), x.values.end(), [](double e) { return std::isfinite(e); }))
        return;
    const Long of_x = norm(h, 1, [&](int i, int) { return x(i); });
    const Long defect = norm(h, 1, [&](int i, int) {
        Long sum = b(i);
        for (int j = 0; j < w; ++j)
            sum -= Long(a(i, j)) * x(j);
        return sum;
    });
    EXPECT_LE(defect / (of_a * of_x * eps), 10 * std::max(1, h / 8)) << "order " << h;
}

TEST(QRResiduals, OfHardMatrices) {
    for (const char *name : {"zelmQRDecomp_m_32f", "zelmQRDecomp_m_64f"})
        for (const KnownMatrix &matrix : known_matrices) {
            const Member &m = member(name);
            const testing::ScopedTrace trace(__FILE__, __LINE__, m.name + " " + matrix.name);
            int judged = 0;
            for (int n = 1; n <= 64; n += n < 16 ? 1 : 8)
                for (const int h : {n, n + 5}) {
                    Problem problem = decomposition(m, h, n, 1, all_in(m, packed), 0, false);
                    set_source(problem, [&](int, int i, int j) { return matrix.element(h, i, j); });
                    const int status = decomposed(problem);
                    ASSERT_NE(status, wrong);
                    judged += status == ok;
                    if (status == ok)
                        judge(m.is_float, object(problem.operands[0], 0),
                              object(problem.destination(), 0));
                }
            EXPECT_GE(judged, 4);
        }
}

// Points of a parabola, and what least squares make of an error in one of them.
TEST(QRResiduals, LeastSquares) {
    constexpr int h = 5, w = 3;
    double a[h][w], f[h][w], b[h], x[w], buffer[h];
    for (int i = 0; i < h; ++i) {
        const double t = i - 2;
        a[i][0] = 1, a[i][1] = t, a[i][2] = t * t;
        b[i] = 3 - t + 2 * t * t + (i == 2 ? 35 : 0);
    }
    ASSERT_EQ(zelmQRDecomp_m_64f(a[0], 24, 8, buffer, f[0], 24, 8, w, h), ok);
    ASSERT_EQ(zelmQRBackSubst_mv_64f(f[0], 24, 8, buffer, b, 8, x, 8, w, h), ok);
    EXPECT_NEAR(x[0], 3 + 17, 1e-12);
    EXPECT_NEAR(x[1], -1, 1e-12);
    EXPECT_NEAR(x[2], 2 - 5, 1e-12);
}

} // namespace
