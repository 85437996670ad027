// zelm.hpp as its users meet it: views of all kinds of memory, shapes that do not fit, statuses,
// operands in other orders than the C functions have, solvers that finish every object. C++17.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>
#include <thread>
#include <vector>
#include <zelm.hpp>

#if __has_include(<Eigen/Core>)
#include <Eigen/Core>
#endif

struct Inertia { // a type of the user's own
    double e[9];
};
template <>
struct zelm::object_traits<Inertia> : zelm::row_major_object<double, 3, 3> {};

namespace {

using Matrix3 = std::array<std::array<double, 3>, 3>;
using Vector3 = std::array<double, 3>;
constexpr double infinity = std::numeric_limits<double>::infinity();

template <class T>
std::vector<T> random_objects(std::size_t count, unsigned seed) {
    std::mt19937 random(seed);
    std::vector<T> objects(count);
    for (T &object : objects) {
        double elements[sizeof(T) / sizeof(double)];
        for (double &element : elements)
            element = std::uniform_real_distribution<double>(-1, 1)(random);
        std::memcpy(&object, elements, sizeof object);
    }
    return objects;
}
template <class T>
bool same(const T &a, const T &b) {
    return a.size() == b.size() &&
           (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(a[0])) == 0);
}

struct Body {
    char name; // so that nothing else is aligned by accident
    Matrix3 inertia;
    double mass;
    double velocity[3];
    int status;
};

// A class in the manner of mdspan with extents, strides and rank.
template <class T, int Rank>
struct Span {
    T *p;
    std::array<std::size_t, Rank> extents, strides;
    static constexpr std::size_t rank() { return Rank; }
    static constexpr std::size_t static_extent(std::size_t i) {
        return i == Rank - 1 ? 3 : std::size_t(-1);
    }
    T *data_handle() const { return p; }
    std::size_t extent(std::size_t i) const { return extents[i]; }
    std::size_t stride(std::size_t i) const { return strides[i]; }
};

// ... and one in the manner of a map of Eigen, by columns with a distance between them.
struct ColumnsOf {
    static constexpr int RowsAtCompileTime = -1, ColsAtCompileTime = 3;
    static constexpr bool IsRowMajor = false;
    using Scalar = double;
    ColumnsOf(double *data, long outer) : p(data), distance(outer) {}
    double *p;
    long distance;
    double *data() const { return p; }
    long rows() const { return 3; }
    long cols() const { return 3; }
    long innerStride() const { return 1; }
    long outerStride() const { return distance; }
};

template <class A, class B>
constexpr bool is = std::is_same_v<std::remove_const_t<A>, B>;

TEST(Views, HaveTheShapeOfWhatTheyAreMadeOf) {
    std::vector<Matrix3> objects(4);
    const auto &constant = objects;
    std::vector<Body> bodies(7);
    double plain[5][2][3];
    std::vector<double> run(36);
    static_assert(is<decltype(zelm::view(objects)), zelm::matrices<double, 3, 3>>);
    static_assert(is<decltype(zelm::view(constant)), zelm::matrices<const double, 3, 3>>);
    static_assert(is<decltype(zelm::view(objects[0])), zelm::matrix<double, 3, 3>>);
    static_assert(is<decltype(zelm::view(plain)), zelm::matrices<double, 2, 3>>);
    static_assert(is<decltype(zelm::vectors(plain[0])), zelm::vectors<double, 3>>);
    static_assert(is<decltype(zelm::view(std::vector<Vector3>())), zelm::vectors<double, 3>>);
    static_assert(is<decltype(zelm::view(std::vector<Inertia>())), zelm::matrices<double, 3, 3>>);
    static_assert(is<decltype(zelm::view(run)), zelm::vector<double>>);
    static_assert(is<decltype(zelm::matrices(run, 3, 3)), zelm::matrices<double>>);
    static_assert(is<decltype(zelm::member(bodies, &Body::mass)), zelm::scalars<double>>);
    static_assert(is<decltype(zelm::member(bodies, &Body::velocity)), zelm::vectors<double, 3>>);
    static_assert(
        is<decltype(zelm::transposed(zelm::transposed(objects))), zelm::matrices<double, 3, 3>>);
    static_assert(
        is<decltype(zelm::matrices(zelm::transposed(plain))), zelm::matrices<double, 3, 2>>);

    const auto inertias = zelm::member(bodies, &Body::inertia);
    EXPECT_EQ(inertias.data(), &bodies[0].inertia[0][0]);
    EXPECT_EQ(inertias.count(), 7);
    EXPECT_EQ(inertias.stride0(), std::ptrdiff_t(sizeof(Body)));
    EXPECT_EQ(inertias.stride1(), 24);
    EXPECT_EQ(&inertias[6](2, 1), &bodies[6].inertia[2][1]);
    EXPECT_EQ(zelm::member(std::vector<Body>(), &Body::mass).count(), 0);
    Body few[2];
    EXPECT_EQ(&zelm::member(few, &Body::status)[1], &few[1].status);
    EXPECT_EQ(zelm::planar(run.data(), 3, std::ptrdiff_t(1) << 32).stride2(), std::ptrdiff_t(8)
                                                                                  << 32);

    const zelm::matrices<const double> same_without_sizes = inertias;
    EXPECT_EQ(same_without_sizes.rows(), 3);
    EXPECT_EQ(zelm::matrices(run, 3, 3).count(), 4);
    EXPECT_EQ(zelm::vectors(run, 12)[2].data(), &run[24]);
    EXPECT_EQ(zelm::matrices(zelm::vectors(run, 12), 3, 4).count(), 3);
    EXPECT_EQ(zelm::column(plain[1], 2).stride2(), 24);
    EXPECT_EQ(&zelm::row(plain, 1)[4](2), &plain[4][1][2]);
    EXPECT_EQ(&(zelm::block<1, 2>(plain, 1, 1)[3](0, 1)), &plain[3][1][2]);
    EXPECT_EQ(zelm::view(plain).part(1, 3)[0].data(), &plain[1][0][0]);

    EXPECT_EQ(inertias[7].data(), nullptr);
    EXPECT_EQ(inertias[-1].data(), nullptr);
    EXPECT_EQ(inertias.part(5, 3).count(), -1);
    EXPECT_EQ(zelm::block(plain, 1, 1, 2, 2).rows(), -1);
    EXPECT_EQ(zelm::matrices(run, 5, 1).count(), -1);
    EXPECT_EQ(zelm::matrix(run, 3, 13).rows(), -1);
    EXPECT_EQ(zelm::vector(run.data(), std::ptrdiff_t(1) << 32).length(), -1);
}

// a[n] * b[n] through all kinds of memory for a gives the same bits.
TEST(Views, OfAnyMemoryGiveTheSameProducts) {
    constexpr std::size_t count = 6;
    const auto a = random_objects<Matrix3>(count, 1), b = random_objects<Matrix3>(count, 2);
    std::vector<Matrix3> expected(count), c(count);
    ASSERT_EQ(zelmMul_mama_64f(&a[0][0][0], 72, 24, 8, 3, 3, &b[0][0][0], 72, 24, 8, 3, 3,
                               &expected[0][0][0], 72, 24, 8, count),
              zelStatusOk);
    const auto check = [&](const auto &operand, const char *memory) {
        for (Matrix3 &m : c)
            m = Matrix3{};
        EXPECT_EQ(zelm::multiply(operand, b, c).code(), zelStatusOk) << memory;
        EXPECT_TRUE(same(c, expected)) << memory;
    };
    check(a, "range of arrays");

    std::vector<Body> bodies(count);
    std::vector<Inertia> own(count);
    std::vector<double> run(9 * count), planes(9 * count), columns(9 * count), gaps(13 * count);
    for (std::size_t n = 0; n < count; ++n)
        for (std::size_t i = 0; i < 3; ++i)
            for (std::size_t j = 0; j < 3; ++j) {
                bodies[n].inertia[i][j] = a[n][i][j];
                own[n].e[3 * i + j] = run[9 * n + 3 * i + j] = a[n][i][j];
                planes[(3 * i + j) * count + n] = columns[9 * n + 3 * j + i] = a[n][i][j];
                gaps[13 * n + 4 * j + i] = a[n][i][j];
            }
    check(zelm::member(bodies, &Body::inertia), "members");
    check(own, "types of one's own");
    check(zelm::matrices(run, 3, 3), "run of elements");
    check(zelm::planar(planes.data(), 3, 3, count), "planar");
    check((zelm::planar<3, 3>(planes.data(), count)), "planar, sizes known");
    check(zelm::column_major(columns.data(), 3, 3, count), "column-major");
    check(zelm::transposed(zelm::matrices(columns, 3, 3)), "transposed");
    check(Span<double, 3>{gaps.data(), {count, 3, 3}, {13, 1, 4}}, "mdspan-like");

    std::vector<double *> layout, pointers;
    for (std::size_t n = 0; n < count; ++n)
        layout.push_back(&columns[9 * n]);
    for (std::size_t k = 0; k < 9; ++k)
        pointers.push_back(&planes[k * count]);
    const auto listed = zelm::layout_matrices(layout.data(), 3, 3, count);
    std::vector<double *> to, from;
    for (std::size_t n = 0; n < count; ++n) {
        c[n] = Matrix3{};
        to.push_back(&c[n][0][0]);
        from.push_back(const_cast<double *>(&b[n][0][0]));
    }
    EXPECT_TRUE(zelm::multiply(zelm::transposed(listed),
                               zelm::layout_matrices(from.data(), 3, 3, count),
                               zelm::layout_matrices(to.data(), 3, 3, count)));
    EXPECT_TRUE(same(c, expected));
    std::vector<Matrix3> copied(count);
    EXPECT_TRUE(zelm::copy(zelm::pointer_matrices(pointers.data(), 3, 3, count, 8), copied));
    EXPECT_TRUE(same(copied, a));

    Matrix3 one{}, other{};
    EXPECT_TRUE(zelm::multiply(ColumnsOf(&gaps[13], 4), b[1], one));
    EXPECT_TRUE(zelm::multiply(a[1], b[1], zelm::transposed(other)));
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j) {
            EXPECT_EQ(one[i][j], expected[1][i][j]);
            EXPECT_EQ(other[j][i], expected[1][i][j]) << "a transposed destination";
        }
}
#if __has_include(<Eigen/Core>)
TEST(Views, OfEigen) {
    const Eigen::Matrix3d a = Eigen::Matrix3d::Random(), b = Eigen::Matrix3d::Random();
    std::vector<Eigen::Matrix<float, 2, 3>> many(5, Eigen::Matrix<float, 2, 3>::Random());
    static_assert(is<decltype(zelm::view(a)), zelm::matrix<const double, 3, 3>>);
    static_assert(is<decltype(zelm::view(many)), zelm::matrices<float, 2, 3>>);
    static_assert(is<decltype(zelm::view(Eigen::VectorXf())), zelm::vector<float>>);
    Eigen::Matrix3d c;
    ASSERT_TRUE(zelm::multiply(a, b, c));
    EXPECT_LT((c - a * b).norm(), 1e-15);
    Eigen::MatrixXd wide = Eigen::MatrixXd::Zero(5, 7);
    ASSERT_TRUE(zelm::multiply(a, zelm::transposed(b), wide.block(1, 2, 3, 3)));
    EXPECT_LT((wide.block(1, 2, 3, 3) - a * b.transpose()).norm(), 1e-15);
    EXPECT_EQ(wide.leftCols(2).norm() + wide.rightCols(2).norm(), 0);
    double memory[2] = {1, 2}, dot = 0; // a map has the size of two doubles as well
    Eigen::Map<Eigen::Vector2d> map(memory);
    ASSERT_TRUE(zelm::dot(map, map, dot));
    EXPECT_EQ(dot, 5);
    Eigen::Matrix4f m = Eigen::Matrix4f::Identity();
    Eigen::Vector3f p(1, 2, 3), moved;
    ASSERT_TRUE(zelm::geometry::translation(1, 0, 0, m));
    EXPECT_EQ(m(3, 0), 1);
    ASSERT_TRUE(zelm::geometry::transform_points(m, p, moved));
    EXPECT_EQ(moved, Eigen::Vector3f(2, 2, 3));
}
#endif

// What the C interface has in one order only, against the same done one number at a time.
TEST(Operations, TakeOperandsInAnyOrder) {
    const auto a = random_objects<Matrix3>(4, 1);
    const auto x = random_objects<Vector3>(4, 2);
    const Matrix3 m = random_objects<Matrix3>(1, 3)[0];
    const Vector3 v = random_objects<Vector3>(1, 4)[0];
    const std::vector<double> weights = {1, -2, 0.5, 3};
    std::vector<Matrix3> c(4);
    std::vector<Vector3> y(4);
    std::vector<double> dots(4);
    const auto expect = [&](auto of_element) {
        for (std::size_t n = 0; n < 4; ++n)
            for (std::size_t i = 0; i < 3; ++i)
                of_element(n, i);
    };
    ASSERT_TRUE(zelm::add(m, zelm::transposed(a), c));
    expect([&](auto n, auto i) { EXPECT_EQ(c[n][i][1], m[i][1] + a[n][1][i]); });
    ASSERT_TRUE(zelm::add(m, zelm::transposed(m), c[0]));
    EXPECT_EQ(c[0][0][2], m[0][2] + m[2][0]);
    ASSERT_TRUE(zelm::add(zelm::scalars(weights), x, y));
    expect([&](auto n, auto i) { EXPECT_EQ(y[n][i], weights[n] + x[n][i]); });
    ASSERT_TRUE(zelm::subtract(2, x, y));
    expect([&](auto n, auto i) { EXPECT_EQ(y[n][i], 2 - x[n][i]); });
    ASSERT_TRUE(zelm::multiply(zelm::scalars(weights), v, y));
    expect([&](auto n, auto i) { EXPECT_EQ(y[n][i], weights[n] * v[i]); });
    ASSERT_TRUE(zelm::multiply(3.0f, a, c));
    expect([&](auto n, auto i) { EXPECT_EQ(c[n][i][0], 3 * a[n][i][0]); });
    ASSERT_TRUE(zelm::multiply(x, a, y)); // rows by matrices
    expect([&](auto n, auto i) {
        EXPECT_EQ(y[n][i], (x[n][0] * a[n][0][i] + x[n][1] * a[n][1][i]) + x[n][2] * a[n][2][i]);
    });
    ASSERT_TRUE(zelm::linear_combination(2, v, -1, x, y));
    expect([&](auto n, auto i) { EXPECT_EQ(y[n][i], 2 * v[i] + -1 * x[n][i]); });
    ASSERT_TRUE(zelm::axpy(2, v, x, y));
    expect([&](auto n, auto i) { EXPECT_EQ(y[n][i], 2 * v[i] + x[n][i]); });
    ASSERT_TRUE(zelm::gaxpy(zelm::transposed(m), x, v, y));
    expect([&](auto n, auto i) {
        EXPECT_EQ(y[n][i], (m[0][i] * x[n][0] + m[1][i] * x[n][1]) + m[2][i] * x[n][2] + v[i]);
    });
    ASSERT_TRUE(zelm::dot(v, x, dots));
    EXPECT_EQ(dots[3], (v[0] * x[3][0] + v[1] * x[3][1]) + v[2] * x[3][2]);
    double dot = 0;
    ASSERT_TRUE(zelm::dot(x[1], zelm::column(m, 2), dot));
    EXPECT_EQ(dot, (x[1][0] * m[0][2] + x[1][1] * m[1][2]) + x[1][2] * m[2][2]);

    // Single objects and scalars are copied too, and results may be members of structs.
    ASSERT_TRUE(zelm::copy(m, zelm::transposed(c[0])));
    EXPECT_EQ(c[0][2][0], m[0][2]);
    std::vector<Body> bodies(4);
    ASSERT_TRUE(zelm::copy(zelm::scalars(weights), zelm::member(bodies, &Body::mass)));
    EXPECT_EQ(bodies[3].mass, 3);
    std::vector<double> all(36);
    ASSERT_TRUE(zelm::extract(zelm::transposed(a), all));
    EXPECT_EQ(all[9 * 3 + 3 * 1 + 2], a[3][2][1]);
    ASSERT_TRUE(zelm::load_identity(c[1]));
    EXPECT_EQ(c[1], (Matrix3{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}));
}

TEST(Errors, HaveTexts) {
    const int codes[] = {0,    -6,   -8,   -10,  -179, -182, -195,
                         -202, -203, -204, -205, -301, -302, -303};
    std::vector<std::string> texts;
    for (const int code : codes) {
        texts.push_back(zelStatusText(code));
        EXPECT_NE(texts.back(), zelStatusText(1)) << code;
        EXPECT_EQ(std::count(texts.begin(), texts.end(), texts.back()), 1) << code;
    }
    EXPECT_NE(texts[6].find("singular"), std::string::npos);
    EXPECT_NE(texts[11].find("NaN"), std::string::npos);
    const zelm::status singular = zelStatusSingular;
    EXPECT_FALSE(singular);
    EXPECT_EQ(singular, zelm::status(-195));
    EXPECT_EQ(singular.text(), texts[6]);
    EXPECT_NO_THROW(zelm::status().or_throw());
    try {
        singular.or_throw();
        FAIL();
    } catch (const zelm::error &thrown) {
        EXPECT_EQ(thrown.what(), texts[6]);
        EXPECT_EQ(thrown.code(), -195);
    }
}

// Every refused call leaves the results alone.
TEST(Errors, LeaveMemoryAlone) {
    const auto a = random_objects<Matrix3>(4, 1), three = random_objects<Matrix3>(3, 1);
    const auto x = random_objects<Vector3>(4, 2);
    auto c = random_objects<Matrix3>(4, 3);
    auto y = random_objects<Vector3>(4, 4);
    std::vector<double> numbers(4, 7), five(5, 7);
    std::vector<int> rows(12, 7);
    const auto c_before = c;
    const auto y_before = y;
    const auto refused = [&](zelm::status status, int expected, int line) {
        EXPECT_EQ(status.code(), expected) << "line " << line;
        EXPECT_TRUE(same(c, c_before) && same(y, y_before)) << "line " << line;
        EXPECT_EQ(numbers, std::vector<double>(4, 7)) << "line " << line;
        EXPECT_EQ(five, std::vector<double>(5, 7)) << "line " << line;
        EXPECT_EQ(rows, std::vector<int>(12, 7)) << "line " << line;
    };
    double *const p = &c[0][0][0];
    const auto of = [&](std::ptrdiff_t height, std::ptrdiff_t width, std::ptrdiff_t count) {
        return zelm::matrices<double>(p, height, width, count);
    };
    refused(zelm::add(a, three, c), zelStatusSizeMismatch, __LINE__);
    refused(zelm::add(three, three, c), zelStatusSizeMismatch, __LINE__);
    refused(zelm::add(a, a, of(3, 2, 4)), zelStatusSizeMismatch, __LINE__);
    refused(zelm::add(a, a, of(2, 3, 4)), zelStatusSizeMismatch, __LINE__);
    refused(zelm::multiply(a, of(2, 3, 4), c), zelStatusSizeMismatch, __LINE__);
    refused(zelm::multiply(a, a, of(3, 2, 4)), zelStatusSizeMismatch, __LINE__);
    refused(zelm::multiply(a, x, zelm::vectors(y).first(3)), zelStatusSizeMismatch, __LINE__);
    refused(zelm::multiply(of(2, 3, 4), x, y), zelStatusSizeMismatch, __LINE__);
    refused(zelm::transpose(of(2, 3, 4), of(2, 3, 4)), zelStatusSizeMismatch, __LINE__);
    refused(zelm::copy(a, of(4, 3, 3)), zelStatusSizeMismatch, __LINE__);
    refused(zelm::extract(x, five), zelStatusSizeMismatch, __LINE__);
    refused(zelm::dot(x, x, five), zelStatusSizeMismatch, __LINE__);
    refused(zelm::dot(x, zelm::vectors<const double>(p, 3, 3), numbers), zelStatusSizeMismatch,
            __LINE__);
    refused(zelm::dot(x, x, zelm::scalars(p, 4, 16)), zelStatusBadStride, __LINE__);
    refused(zelm::trace(of(3, 2, 4), numbers), zelStatusSizeMismatch, __LINE__);
    refused(zelm::cross(zelm::vectors<const double>(p, 2, 4), zelm::vectors<const double>(p, 2, 4),
                        zelm::vectors<double>(&y[0][0], 2, 4)),
            zelStatusSizeMismatch, __LINE__);
    refused(zelm::raw::lu_decompose(a, c, zelm::vector(rows.data(), 11)), zelStatusSizeMismatch,
            __LINE__);
    refused(zelm::raw::inverse(a, c, five), zelStatusSizeMismatch, __LINE__);
    refused(zelm::raw::eigenvalues_symmetric(a, numbers), zelStatusSizeMismatch, __LINE__);
    refused(zelm::solve(a, x, zelm::vectors(y).part(1, 3)), zelStatusSizeMismatch, __LINE__);
    refused(zelm::solve(of(3, 2, 4), x, y), zelStatusSizeMismatch, __LINE__);
    refused(zelm::inverse(a, c, {zelm::scalars(rows.data(), 12)}), zelStatusSizeMismatch, __LINE__);
    refused(zelm::inverse(a, c, {{}, five}), zelStatusSizeMismatch, __LINE__);
    refused(zelm::determinant(a, five), zelStatusSizeMismatch, __LINE__);
    refused(zelm::qr(of(3, 2, 4), of(3, 1, 4), of(1, 2, 4)), zelStatusSizeMismatch, __LINE__);
    refused(zelm::least_squares(of(3, 2, 4), x, y), zelStatusSizeMismatch, __LINE__);
    refused(zelm::least_squares(a, x, y, five), zelStatusSizeMismatch, __LINE__);
    refused(zelm::eigen_symmetric(a, five, c), zelStatusSizeMismatch, __LINE__);
    refused(zelm::eigen(a, y, numbers), zelStatusSizeMismatch, __LINE__);

    // What does not fit the C functions' int, parts outside, pointers that are null.
    constexpr std::ptrdiff_t far = std::ptrdiff_t(1) << 32;
    refused(zelm::add(a, a, zelm::matrices<double>(p, 3, 3, 4, {72 + far, 24, 8})),
            zelStatusBadStride, __LINE__);
    refused(zelm::load_identity(of(3, 3, far + 1)), zelStatusBadCount, __LINE__);
    refused(zelm::l2_norm(zelm::vector(p, far + 1), numbers[0]), zelStatusBadSize, __LINE__);
    refused(zelm::add(a, a, zelm::matrices(c).part(1, 4)), zelStatusSizeMismatch, __LINE__);
    refused(zelm::load_identity(zelm::matrices(c).part(1, 4)), zelStatusBadCount, __LINE__);
    refused(zelm::load_identity(zelm::matrices(c)[4]), zelStatusNullPointer, __LINE__);
    refused(zelm::add(zelm::matrices<const double>(nullptr, 3, 3, 4), a, c), zelStatusNullPointer,
            __LINE__);
    refused(zelm::raw::inverse(of(0, 0, 4), of(0, 0, 4)), zelStatusBadSize, __LINE__);
    refused(zelm::inverse(of(-1, -1, 4), of(-1, -1, 4)), zelStatusBadSize, __LINE__);
    refused(zelm::inverse(a, zelm::matrices<double>(nullptr, 3, 3, 4)), zelStatusNullPointer,
            __LINE__);
    double *const *no_table = nullptr;
    refused(zelm::inverse(zelm::pointer_matrices(no_table, 3, 3, 4, 8), c), zelStatusNullPointer,
            __LINE__);
    refused(zelm::inverse(a, zelm::layout_matrices(no_table, 3, 3, 4)), zelStatusNullPointer,
            __LINE__);

    // Nothing to do is no error.
    const std::vector<Matrix3> none;
    std::vector<Matrix3> no_results;
    EXPECT_TRUE(zelm::add(none, none, no_results));
    EXPECT_TRUE(zelm::inverse(none, no_results));
    EXPECT_TRUE(zelm::raw::inverse(none, no_results));
    EXPECT_TRUE(zelm::determinant(none, std::vector<double>()));
    refused(zelm::add(none, a, c), zelStatusSizeMismatch, __LINE__);
}

// Objects 1 and 3 of 5 fail. Every function finishes the others, and says which ones failed, where
// the caller gives it room, wherever that is.
TEST(Solvers, FinishEveryObject) {
    auto a = random_objects<Matrix3>(5, 1);
    for (Matrix3 &m : a) { // symmetric, positive definite
        for (std::size_t i = 0; i < 3; ++i)
            for (std::size_t j = 0; j <= i; ++j)
                m[j][i] = m[i][j] += i == j ? 4 : 0;
    }
    a[1] = Matrix3{};
    a[3][2][0] = infinity;
    const auto b = random_objects<Vector3>(5, 2);
    std::vector<Matrix3> x(5), q(5);
    std::vector<Vector3> y(5);
    std::vector<double> rcond(5), determinants(5), signs(5);
    std::vector<int> statuses(5);
    const std::vector<int> two_singular = {0, zelStatusSingular, 0, zelmSafeNotFinite, 0};
    const std::vector<int> one_not_finite = {0, 0, 0, zelmSafeNotFinite, 0};
    const auto finite = [](const auto &object) {
        for (const double &element : object)
            if (!std::isfinite(element))
                return false;
        return true;
    };
    const auto expect = [&](zelm::status status, const std::vector<int> &expected, int line) {
        EXPECT_EQ(statuses, expected) << "line " << line;
        EXPECT_EQ(status.code(), expected[1] != 0 ? expected[1] : expected[3]) << "line " << line;
        statuses.assign(5, 7);
    };
    const auto product = [](const Matrix3 &m, const Vector3 &v, std::size_t i) {
        return m[i][0] * v[0] + m[i][1] * v[1] + m[i][2] * v[2];
    };

    expect(zelm::solve(a, b, y, {statuses, rcond}), two_singular, __LINE__);
    for (std::size_t n = 0; n < 5; ++n) {
        EXPECT_EQ(finite(y[n]), two_singular[n] == 0);
        for (std::size_t i = 0; i < 3 && two_singular[n] == 0; ++i)
            EXPECT_NEAR(product(a[n], y[n], i), b[n][i], 1e-14);
    }
    EXPECT_GT(rcond[0], 0.01);
    EXPECT_EQ(rcond[1], 0);
    const auto solutions = y;
    expect(zelm::inverse(a, x, {statuses}), two_singular, __LINE__);
    EXPECT_NEAR(product(a[4], {x[4][0][1], x[4][1][1], x[4][2][1]}, 1), 1, 1e-14);
    expect(zelm::determinant(a, determinants, {statuses}), one_not_finite, __LINE__);
    EXPECT_EQ(determinants[1], 0);
    expect(zelm::log_determinant(a, signs, rcond, {statuses}), two_singular, __LINE__);
    EXPECT_NEAR(signs[0] * std::exp(rcond[0]), determinants[0], 1e-12);
    expect(zelm::cholesky(a, x, {statuses}),
           {0, zelStatusNotPositiveDefinite, 0, zelmSafeNotFinite, 0}, __LINE__);
    EXPECT_NEAR(x[2][1][0] * x[2][0][0], a[2][1][0], 1e-14);
    EXPECT_EQ(x[2][0][1], 0);
    expect(zelm::qr(a, q, x, {statuses}), one_not_finite, __LINE__);
    EXPECT_NEAR(q[2][1][0] * x[2][0][1] + q[2][1][1] * x[2][1][1], a[2][1][1], 1e-14);
    auto r = x;
    expect(zelm::qr(a, r, {statuses}), one_not_finite, __LINE__);
    EXPECT_TRUE(same(r[0], x[0]) && same(r[4], x[4]));
    expect(zelm::least_squares(a, b, y, rcond, {statuses}), two_singular, __LINE__);
    EXPECT_NEAR(y[0][2], solutions[0][2], 1e-14);
    EXPECT_LT(rcond[0], 1e-28);
    std::vector<double> values(15), imaginary(15);
    expect(zelm::eigen_symmetric(a, values, x, {statuses}), one_not_finite, __LINE__);
    EXPECT_NEAR(values[12] + values[13] + values[14], a[4][0][0] + a[4][1][1] + a[4][2][2], 1e-13);
    EXPECT_LE(values[12], values[13]);
    EXPECT_NEAR(product(a[4], {x[4][0][2], x[4][1][2], x[4][2][2]}, 1), values[14] * x[4][1][2],
                1e-14);
    expect(zelm::eigen_symmetric(a, y, {statuses}), one_not_finite, __LINE__);
    EXPECT_EQ(y[4][2], values[14]);
    expect(zelm::eigen(a, values, imaginary, x, {statuses}), one_not_finite, __LINE__);
    EXPECT_NEAR(values[6] + values[7] + values[8], a[2][0][0] + a[2][1][1] + a[2][2][2], 1e-13);
    expect(zelm::eigen(a, y, imaginary, {statuses}), one_not_finite, __LINE__);

    // Right-hand sides in columns, a single matrix beside them, members of structs, in place.
    std::vector<Matrix3> many(5, random_objects<Matrix3>(1, 5)[0]);
    EXPECT_EQ(zelm::solve(a, many, x).code(), zelStatusSingular);
    EXPECT_NEAR(product(a[4], {x[4][0][2], x[4][1][2], x[4][2][2]}, 0), many[4][0][2], 1e-14);
    EXPECT_TRUE(zelm::solve(a[2], b, y));
    EXPECT_TRUE(same(y[2], solutions[2]));
    EXPECT_NEAR(product(a[2], y[1], 0), b[1][0], 1e-14);
    std::vector<Body> bodies(5);
    EXPECT_TRUE(zelm::copy(a, zelm::member(bodies, &Body::inertia)));
    EXPECT_EQ(zelm::determinant(zelm::member(bodies, &Body::inertia),
                                zelm::member(bodies, &Body::mass),
                                {zelm::member(bodies, &Body::status)})
                  .code(),
              zelmSafeNotFinite);
    EXPECT_EQ(bodies[3].status, zelmSafeNotFinite);
    EXPECT_EQ(bodies[4].mass, determinants[4]);
    double one = 0;
    EXPECT_TRUE(zelm::determinant(a[4], one));
    EXPECT_EQ(one, determinants[4]);
    EXPECT_EQ(zelm::solve(a, b, y).code(), zelStatusSingular);
    EXPECT_TRUE(std::isnan(y[1][0]) && same(y[4], solutions[4]));
}

// Tables of pointers: per object in place, per element by way of a copy. Same digits.
TEST(Solvers, TakeTables) {
    constexpr std::size_t count = 7;
    auto a = random_objects<Matrix3>(count, 1);
    a[2] = Matrix3{};
    std::vector<Matrix3> flipped(count);
    auto b = random_objects<Vector3>(count, 2);
    std::vector<Vector3> expected(count);
    std::vector<int> statuses(count), same_statuses(count);
    ASSERT_EQ(zelm::solve(a, b, expected, {statuses}).code(), zelStatusSingular);

    std::vector<double *> matrices, right;
    for (std::size_t n = count; n-- > 0;) { // in another order
        matrices.push_back(&a[n][0][0]);
        right.push_back(&b[n][0]);
    }
    std::vector<Vector3> x(count);
    const auto listed = zelm::layout_vectors(right.data(), 3, count);
    EXPECT_EQ(zelm::solve(zelm::layout_matrices(matrices.data(), 3, 3, count), listed, x).code(),
              zelStatusSingular);
    for (std::size_t n = 0; n < count; ++n)
        EXPECT_EQ(0, std::memcmp(&x[count - 1 - n], &expected[n], sizeof(Vector3))) << n;

    EXPECT_EQ(zelm::transpose(a, flipped).code(), zelStatusOk);
    for (std::size_t n = 0; n < count; ++n)
        matrices[n] = &flipped[count - 1 - n][0][0];
    x.assign(count, Vector3{});
    EXPECT_EQ(zelm::solve(zelm::transposed(zelm::layout_matrices(matrices.data(), 3, 3, count)),
                          listed, x)
                  .code(),
              zelStatusSingular);
    EXPECT_EQ(0, std::memcmp(&x[1], &expected[count - 2], sizeof(Vector3)));

    std::vector<double *> elements, places;
    for (std::size_t k = 0; k < 9; ++k)
        elements.push_back(&a[0][k / 3][k % 3]);
    for (std::size_t k = 0; k < 3; ++k)
        places.push_back(&b[0][k]);
    const auto scattered = zelm::pointer_vectors(places.data(), 3, count, sizeof(Vector3));
    EXPECT_EQ(zelm::solve(zelm::pointer_matrices(elements.data(), 3, 3, count, sizeof(Matrix3)),
                          scattered, scattered, {same_statuses})
                  .code(),
              zelStatusSingular);
    EXPECT_TRUE(same(b, expected)) << "b has become x";
    EXPECT_EQ(same_statuses, statuses);
    double determinant = 0, expected_determinant = 0;
    EXPECT_TRUE(zelm::determinant(zelm::pointer_matrix(elements.data(), 3, 3), determinant));
    EXPECT_TRUE(zelm::determinant(a[0], expected_determinant));
    EXPECT_EQ(determinant, expected_determinant);
}

// Matrices by columns and vectors with gaps are copied on the way.
TEST(Geometry, TakesAnyStridesOfSingleObjects) {
    namespace g = zelm::geometry;
    float rows[4][4], columns[4][4], product[4][4], memory[16] = {},
                                                    numbers[6] = {3, 0, 4, 0, 0, 0};
    const zelm::matrix<float, 4, 4> by_columns = zelm::transposed(columns);
    ASSERT_TRUE(g::rotation_yaw_pitch_roll(0.5f, 1, 2, rows));
    ASSERT_TRUE(g::rotation_yaw_pitch_roll(0.5f, 1, 2, by_columns));
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j)
            EXPECT_EQ(rows[i][j], columns[j][i]);
    ASSERT_TRUE(g::multiply(rows, by_columns, product));
    float determinant = 0;
    ASSERT_TRUE(g::determinant(zelm::matrix<float, 4, 4>(memory), determinant));
    EXPECT_EQ(determinant, 0);
    EXPECT_EQ(g::inverse(zelm::matrix<float, 4, 4>(memory), by_columns).code(), zelStatusSingular);
    EXPECT_EQ(rows[1][0], columns[0][1]) << "left as it was";
    const zelm::vector<float, 3> spread(numbers, 8);
    float length = 0;
    ASSERT_TRUE(g::normalize(spread, spread));
    ASSERT_TRUE(g::length(spread, length));
    EXPECT_EQ(numbers[0], 0.6f);
    EXPECT_EQ(numbers[2], 0.8f);
    EXPECT_EQ(length, 1);

    const zelm::vectors<float, 3> points(numbers, 2, {12, 4});
    const float before = numbers[0];
    EXPECT_EQ(g::transform_points(rows, points, points.first(1)).code(), zelStatusSizeMismatch);
    EXPECT_EQ(
        g::transform_points(rows, points, (zelm::vectors<float, 3>(memory, 2, {24, 8}))).code(),
        zelStatusBadStride);
    EXPECT_EQ(g::transform_points(rows, points, (zelm::vectors<float, 3>(nullptr, 2))).code(),
              zelStatusNullPointer);
    EXPECT_EQ(g::transform_points(zelm::matrix<float, 4, 4>(nullptr), points, points).code(),
              zelStatusNullPointer);
    EXPECT_EQ(numbers[0], before);
    EXPECT_TRUE(g::transform_points(rows, points.first(0), points.first(0)));
}

TEST(Threads, AreSetForTheProcess) {
    ASSERT_TRUE(zelm::set_threads(3));
    int told = 0;
    std::thread([&] { told = zelm::threads(); }).join();
    EXPECT_EQ(told, 3);
    EXPECT_EQ(zelm::set_threads(-1).code(), zelStatusBadSize);
    EXPECT_TRUE(zelm::set_threads(0));
}

} // namespace
