// The numbers that the solvers give which finish every object: LAPACK's residuals, which must stay
// below 30, and answers at the ends of the range. Judged in long double.

#include "support/safe.hpp"
#include "support/solver.hpp"

#include <algorithm>
#include <complex>
#include <gtest/gtest.h>
#include <numbers>

using namespace zelm_test;

namespace {

using Exact = Values<Long>;
constexpr Long bound = 30;

// ---- matrices ----

// General, symmetric, symmetric positive definite; capital where singular.
struct Sample {
    std::string name;
    char kind;
    Exact a;
};

template <class Element>
Exact formula(int n, const Element &element) {
    Exact a = {n, n};
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j)
            a(i, j) = Long(element(i, j));
    return a;
}
// Times a reflection, from the right or from the left.
Exact reflected(const Exact &a, int seed, bool right) {
    const int n = a.rows;
    const auto u = [&](int i) { return Long(noise(seed, i, 3)); };
    Long square = 0;
    for (int i = 0; i < n; ++i)
        square += u(i) * u(i);
    return formula(n, [&](int i, int j) {
        Long sum = 0;
        for (int k = 0; k < n; ++k)
            sum += right ? a(i, k) * u(k) : u(k) * a(k, j);
        return a(i, j) - 2 / square * sum * u(right ? j : i);
    });
}

template <class T>
std::vector<Sample> samples(int n) {
    std::vector<Sample> all;
    const Long eps = epsilon(sizeof(T) == 4);
    const auto add = [&](const char *name, char kind, auto element) {
        all.push_back({name, kind, formula(n, element)});
    };
    const auto larger = [](int i, int j) { return std::max(i, j) + 1; };
    const auto smaller = [](int i, int j) { return std::min(i, j) + 1; };
    const auto two = [](int exponent) { return std::ldexp(1.L, exponent); };
    add("random", 'g', [&](int i, int j) { return noise(n, i, j); });
    add("Hilbert", 's', [](int i, int j) { return 1.L / (i + j + 1); });
    add("Frank", 'g', [&](int i, int j) { return j < i - 1 ? 0 : n + 1 - larger(i, j); });
    add("Kahan", 'g', [](int i, int j) {
        return std::pow(.932L, Long(i)) * (j < i ? 0 : j == i ? 1 : -.362L);
    });
    add("Pei", 'p', [&](int i, int j) { return 1 + (i == j) * two(-10); });
    add("Wilkinson", n == 1 ? 'S' : 's',
        [&](int i, int j) { return i == j ? std::fabs(i - (n - 1) / 2.L) : std::abs(i - j) == 1; });
    add("ones + 2 I", 'p', [](int i, int j) { return 1 + 2 * (i == j); });
    add("Lehmer", 'p', [&](int i, int j) { return Long(smaller(i, j)) / larger(i, j); });
    add("smaller", 'p', smaller);
    if (n < 10) // elements grow by 2^(n - 1), and so do errors
        add("growth", 'g', [&](int i, int j) { return i == j || j == n - 1 ? 1 : -(j < i); });
    add("graded rows", 'g', [&](int i, int j) { return noise(n, i, j) * two(-2 * i); });
    add("graded", 'p', [&](int i, int j) { return (1 + n * (i == j)) * two(-i - j); });
    for (const Long unit : {1.L, 1e-6L}) // of the points of a scan, in metres and micrometres
        add(unit == 1 ? "covariance" : "covariance in micrometres", 'p', [&](int i, int j) {
            Long sum = 0;
            for (int point = 0; point < 1000; ++point)
                sum += Long(noise(point, i, 7)) * noise(point, j, 7);
            return unit * unit * sum / 1000;
        });
    // By singular values, or eigenvalues.
    const auto known = [&](const char *name, char kind, auto value) {
        const Exact d = formula(n, [&](int i, int j) { return i == j ? Long(value(i)) : 0; });
        const Exact z = reflected(reflected(d, n, true), n, false);
        all.push_back({name, 'g', reflected(reflected(d, n + 1, true), n + 2, false)});
        add(name, kind, [&](int i, int j) { return z(smaller(i, j) - 1, larger(i, j) - 1); });
    };
    known("clustered", 'p', [&](int i) { return i == 0 ? 1 : two(-10) * (1 + i * eps); });
    known("repeated", 'p', [&](int i) { return i < n / 2 ? 1 : 2; });
    known("opposite", 's', [&](int i) { return i < n / 2 ? 1 : -1; });
    known("geometric", 's', [&](int i) { return std::pow(eps, Long(i) / n); });
    known("one small", 's', [&](int i) { return i == n - 1 ? 8 * n * eps : 1; });
    if (n == 8) {
        constexpr int rosser[8][8] = {
            {611, 196, -192, 407, -8, -52, -49, 29}, {196, 899, 113, -192, -71, -43, -8, -44},
            {-192, 113, 899, 196, 61, 49, 8, 52},    {407, -192, 196, 611, 8, 44, 59, -23},
            {-8, -71, 61, 8, 411, -599, 208, 208},   {-52, -43, 49, 44, -599, 411, 208, 208},
            {-49, -8, 8, 59, 208, 208, 99, -911},    {29, -44, 52, -23, 208, 208, -911, 99}};
        add("Rosser", 'S', [&](int i, int j) { return rosser[i][j]; });
    }
    // Products of small elements underflow in iterations with these, or run in circles.
    add("ones", 'S', [](int, int) { return 1; });
    add("signs", 'G', [](int i, int j) { return noise(1, i, 0) * noise(2, 0, j) < 0 ? -1 : 1; });
    add("squares", 'G', [](int i, int j) { return noise(1, i, 0) * std::pow(noise(2, 0, j), 9); });
    for (const int bits : {0x4cd3, 0x238c, 0xada5, 0xcc7b})
        if (n == 4)
            add("circle", 'G', [&](int i, int j) { return bits >> (15 - 4 * i - j) & 1; });
    return all;
}

// ---- judgement ----

enum class Side { as_it_is, transposed };

Exact product(const Exact &a, const Exact &b, Side left = Side::as_it_is,
              Side right = Side::as_it_is) {
    const bool p = left == Side::transposed, q = right == Side::transposed;
    Exact c = {p ? a.columns : a.rows, q ? b.rows : b.columns};
    for (int i = 0; i < c.rows; ++i)
        for (int j = 0; j < c.columns; ++j)
            for (int k = 0; k < (p ? a.rows : a.columns); ++k)
                c(i, j) += (p ? a(k, i) : a(i, k)) * (q ? b(j, k) : b(k, j));
    return c;
}
Exact less(Exact a, const Exact &b) {
    for (std::size_t e = 0; e < a.at.size(); ++e)
        a.at[e] -= b.at[e];
    return a;
}
Exact column(const Exact &a, int j) {
    Exact x = {a.rows, 1};
    for (int i = 0; i < x.rows; ++i)
        x(i, 0) = a(i, j);
    return x;
}
Long size(const Exact &a) {
    return norm(a.rows, a.columns, [&](int i, int j) { return a(i, j); });
}
Exact diagonal(int n, const std::function<Long(int)> &value) {
    return formula(n, [&](int i, int j) { return i == j ? value(i) : 0; });
}
// The determinant and the inverse, by elimination.
std::pair<Long, Exact> inverted(Exact a) {
    const int n = a.rows;
    Exact x = diagonal(n, [](int) { return 1; });
    Long determinant = 1;
    for (int k = 0; k < n; ++k) {
        int p = k;
        for (int i = k; i < n; ++i)
            p = std::fabs(a(i, k)) > std::fabs(a(p, k)) ? i : p;
        const Long pivot = a(p, k);
        determinant *= p == k ? pivot : -pivot;
        for (Exact *const m : {&a, &x})
            for (int j = 0; j < n; ++j) {
                std::swap((*m)(k, j), (*m)(p, j));
                (*m)(k, j) /= pivot;
            }
        for (int i = 0; i < n; ++i) {
            const Long factor = i == k ? 0 : a(i, k);
            for (int j = 0; j < n; ++j) {
                x(i, j) -= factor * x(k, j);
                a(i, j) -= factor * a(k, j);
            }
        }
    }
    return {determinant, x};
}

// Rests beside what is 1 for them, in epsilons.
using Ratios = std::vector<std::pair<Long, Long>>;

// Of A * V = V * W, a pair of complex vectors in two columns.
void judge_eigenvectors(Ratios &ratios, const Exact &a, const Stack<Long> &r) {
    using Complex = std::complex<Long>;
    const int n = a.rows;
    for (int j = 0; j < n; ++j) {
        const bool pair = r[1](0, j) != 0;
        Long rest = 0, length = 0;
        for (int i = 0; i < n; ++i) {
            const auto v = [&](int k) { return Complex(r[2](k, j), pair ? r[2](k, j + 1) : 0); };
            Complex sum = -Complex(r[0](0, j), r[1](0, j)) * v(i);
            for (int k = 0; k < n; ++k)
                sum += a(i, k) * v(k);
            rest += std::abs(sum);
            length += std::norm(v(i));
        }
        ratios.insert(ratios.end(), {{rest, n * size(a)}, {length - 1, n}});
        if (pair) { // positive first, then its conjugate
            ratios.push_back({r[1](0, j) > 0 && r[1](0, j + 1) == -r[1](0, j) ? 0 : 1, 0});
            ++j;
        }
    }
}
template <class T>
Ratios judge(const SafeFamily<T> &f, const Exact &a, const Exact &b, const Stack<Long> &r) {
    Ratios all;
    const int n = a.columns;
    const Long rows = a.rows;
    const Exact one = diagonal(n, [](int) { return 1; });
    const auto orthonormal = [&](const Exact &q) {
        all.push_back({size(less(product(q, q, Side::transposed), one)), rows});
    };
    for (int j = 0; j < r[0].columns && f.sources.size() == 2; ++j) {
        const Exact x = column(r[0], j), rest = less(product(a, x), column(b, j));
        if (f.is("Solve"))
            all.push_back({size(rest), size(a) * size(x)});
        else
            all.push_back({size(product(a, rest, Side::transposed)),
                           rows * size(a) * (size(a) * size(x) + size(column(b, j)))});
    }
    if (f.is("Inverse"))
        all.push_back({size(less(product(a, r[0]), one)), n * size(a) * size(r[0])});
    if (f.is("Cholesky"))
        all.push_back(
            {size(less(product(r[0], r[0], Side::as_it_is, Side::transposed), a)), n * size(a)});
    if (f.is("QR")) {
        all.push_back({size(less(product(r[0], r[1]), a)), rows * size(a)});
        if (r[0].columns == n)
            orthonormal(r[0]);
    }
    if (f.is("EigenSymmetric") && r.size() > 1) {
        const Exact d = diagonal(n, [&](int i) { return r[0](0, i); });
        all.push_back({size(less(product(a, r[1]), product(r[1], d))), n * size(a)});
        all.push_back({!std::is_sorted(r[0].at.begin(), r[0].at.end()), 0});
        orthonormal(r[1]);
    }
    if (f.is("Eigen") && r.size() > 2)
        judge_eigenvectors(all, a, r);
    if (f.is("Determinant") || f.is("LogDeterminant")) {
        const auto [determinant, inverse] = inverted(a);
        const Long error = n * size(a) * size(inverse), magnitude = std::fabs(determinant);
        if (f.is("Determinant"))
            all.push_back({r[0](0, 0) - determinant, error * magnitude});
        else if (error * bound * epsilon(sizeof(T) == 4) < 1) {
            all.push_back({r[0](0, 0) - std::copysign(1, determinant), 0});
            all.push_back(
                {r[1](0, 0) - std::log(magnitude), error + std::fabs(std::log(magnitude))});
        }
    }
    return all;
}

// Moves numbers by a power of two to where the type holds them; false near the ends of its range.
template <class T>
bool move(Exact &a, double exponent) {
    bool inside = true;
    for (Long &x : a.at) {
        inside &= x == 0 || std::fabs(std::ilogb(x) + exponent) < (sizeof(T) == 4 ? 120 : 1000);
        x = T(std::ldexp(x, int(exponent)));
    }
    return inside;
}

// Judges a family's answer for a sample, at scales where numbers and answers are within the range.
template <class T>
void judge_family(const SafeFamily<T> &f, const Sample &sample, int &judged) {
    const int n = f.order;
    const bool regular = std::islower(sample.kind), symmetric = std::tolower(sample.kind) != 'g';
    if ((f.symmetric && !symmetric) || (f.is("Cholesky") && sample.kind != 'p') || f.is("R") ||
        (!regular && (f.zero_column == singular || f.is("Determinant"))))
        return;
    // Of what is singular for the type, rounding may leave nothing.
    if (f.is("LeastSquares, square") && sample.name == "Frank" && n > 14)
        return;
    Stack<Long> plain;
    for (const int scale : {0, -100, 100}) {
        Exact a = {f.sources[0].rows, n}, b = {a.rows, 3};
        for (int i = 0; i < a.rows; ++i) {
            for (int j = 0; j < 3; ++j)
                b(i, j) = noise(i + 1, j, n);
            for (int j = 0; j < n; ++j)
                a(i, j) = i < n ? sample.a(i, j) : noise(i, j, n);
        }
        bool inside = move<T>(a, scale);
        move<T>(b, 0);
        for (std::size_t r = 0; r < plain.size() && r < f.powers.size(); ++r)
            inside &= move<T>(plain[r], f.powers[r].matrix * scale);
        Exact determinant = {1, 1};
        determinant(0, 0) = f.is("Determinant") ? inverted(a).first : 0;
        if (!inside || !move<T>(determinant, 0))
            continue;
        Stack<T> sources, results;
        for (const Size s : f.sources) {
            const Exact &from = sources.empty() ? a : b;
            sources.push_back({s.rows, s.columns});
            for (int i = 0; i < s.rows; ++i)
                for (int j = 0; j < s.columns; ++j)
                    sources.back()(i, j) = T(from(i, j));
        }
        const int status = call_once(f, sources, results);
        Stack<Long> exact;
        for (const Values<T> &x : results)
            exact.push_back({x.rows, x.columns, {x.at.begin(), x.at.end()}});
        for (const auto &[rest, unit] : judge(f, a, b, exact)) {
            const Long allowed = bound * unit * epsilon(sizeof(T) == 4);
            EXPECT_TRUE(status == 0 && std::fabs(rest) <= allowed)
                << f.name << (sizeof(T) == 4 ? " 32f, " : " 64f, ") << sample.name << ", order "
                << n << ", scale " << scale << ": status " << status << ", residual " << rest
                << " of " << allowed;
        }
        plain = scale == 0 ? exact : plain;
        ++judged;
    }
}
template <class T>
void judge_all() {
    int judged = 0;
    for (const int n : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 33})
        for (const Sample &sample : samples<T>(n))
            for (const auto &f : safe_families<T>(n))
                judge_family(f, sample, judged);
    EXPECT_GT(judged, 10000);
}
TEST(SafeResiduals, StayInBoundsInSinglePrecision) { judge_all<float>(); }
TEST(SafeResiduals, StayInBoundsInDoublePrecision) { judge_all<double>(); }

// ---- the ends of the range ----

// What one object gives: its status, and numbers of all results in turn.
template <class T>
std::pair<int, std::vector<T>> answer(std::string_view name, int n,
                                      std::initializer_list<std::vector<double>> operands) {
    for (const auto &f : safe_families<T>(n))
        if (f.name == name) {
            Stack<T> sources, results;
            for (const std::vector<double> &x : operands) {
                const Size s = f.sources[sources.size()];
                sources.push_back({s.rows, s.columns, {x.begin(), x.end()}});
            }
            std::pair<int, std::vector<T>> all = {call_once(f, sources, results), {}};
            for (const Values<T> &x : results)
                all.second.insert(all.second.end(), x.at.begin(), x.at.end());
            return all;
        }
    return {};
}
template <class T>
void hold_at_the_ends() {
    const auto expect = [](const auto &is, const std::vector<double> &numbers) {
        EXPECT_EQ(is.first, 0);
        for (std::size_t k = 0; k < numbers.size(); ++k)
            EXPECT_NEAR(is.second[k] / T(numbers[k]), 1, 1e-5) << numbers[k];
    };
    const bool single = sizeof(T) == 4;
    const int top = single ? 127 : 1023, bottom = single ? -126 : -1022, far = single ? 100 : 900;
    const auto two = [](int exponent) { return std::ldexp(1., exponent); };
    const std::vector<double> wide = {two(top), 0, 0, two(bottom)};
    expect(answer<T>("Determinant", 2, {wide}), {2});
    expect(answer<T>("LogDeterminant", 2, {wide}), {1, std::numbers::ln2});
    expect(answer<T>("Solve", 2, {wide, {1.5 * two(top), 1}}), {1.5, two(-bottom)});
    expect(answer<T>("Solve", 2, {{two(-far), 0, 0, two(-far)}, {1, two(bottom)}}),
           {two(far), two(bottom + far)});
    const auto l = answer<T>("Cholesky", 2, {{two(far), 0, 0, two(bottom)}});
    expect(l, {two(far / 2)});
    EXPECT_NEAR(l.second[3] / two(bottom / 2), 1, 1e-5);
    // A column that is small beside the one before is not 0.
    const double small = two(-far / 10 * 8);
    expect(
        answer<T>("LeastSquares", 2, {{1, 1, 0, small, 0, small, 0, 0}, {1, 1, 1, 1, 1, 1, 0, 0}}),
        {1 - 1 / small, 1 - 1 / small, 1 / small, 1 / small});
    // Even pivots, and elements of the inverse that are out of range all the same.
    for (const int n : {3, 4, 5, 6, 7}) {
        std::vector<double> a(std::size_t(n * n)), transposed = a;
        for (int i = 0; i < n; ++i)
            for (int j = 0; j < n; ++j)
                a[std::size_t(i * n + j)] = transposed[std::size_t(j * n + i)] = i == j ? 1
                                                                                 : i + 1 == j
                                                                                     ? two(far)
                                                                                     : 0;
        EXPECT_EQ(answer<T>("Inverse", n, {a}).first, out_of_range) << n;
        EXPECT_NE(answer<T>("Inverse", n, {transposed}).first, 0) << n;
    }
    const double half = two(top) / 2;
    expect(answer<T>("Inverse and condition", 1, {{1.5 * two(top)}}), {1 / 1.5 / two(top), 1});
    expect(answer<T>("Inverse and condition", 2, {{half, half, half, -half}}),
           {two(-top), two(-top), two(-top), -two(-top), .5});
    // The last column doubles in every step of the elimination, until no number holds it.
    for (const int n :
         single ? std::vector{87, 88, 89, 90, 126, 129, 170} : std::vector{624, 625}) {
        std::vector<double> a(std::size_t(n * n)), b(std::size_t(n), 1.);
        for (int i = 0; i < n; ++i)
            for (int j = 0; j < n; ++j)
                a[std::size_t(i * n + j)] = i == j || j == n - 1 ? 1 : -(j < i);
        const auto determinant = answer<T>("Determinant", n, {a});
        const auto logarithm = answer<T>("LogDeterminant", n, {a});
        const auto x = answer<T>("Solve", n, {a, b});
        if (single && n > 128) {
            for (const int status : {determinant.first, logarithm.first, x.first})
                EXPECT_EQ(status, out_of_range) << n;
            continue;
        }
        expect(determinant, {two(n - 1)});
        expect(logarithm, {1, (n - 1) * std::numbers::ln2});
        EXPECT_TRUE(x.first == 0 && x.second.front() == 0 && x.second.back() == 1) << n;
    }
    // 1 on the diagonal, -1 above it: 2^(n - 2) in the corner of the inverse.
    for (const int n : {129, 130}) {
        std::vector<double> a(std::size_t(n * n));
        for (int i = 0; i < n; ++i)
            for (int j = i; j < n; ++j)
                a[std::size_t(i * n + j)] = i == j ? 1 : -1;
        const auto is = answer<T>("Inverse", n, {a});
        EXPECT_EQ(is.first, single && n == 130 ? out_of_range : 0) << n;
        EXPECT_TRUE(is.first != 0 || is.second[std::size_t(n - 1)] == two(n - 2)) << n;
    }
}
TEST(SafeResiduals, HoldAtTheEndsOfTheRange) {
    hold_at_the_ends<float>();
    hold_at_the_ends<double>();
}

} // namespace
