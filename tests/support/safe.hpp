// The safe solvers as data, their operands in memory, and one way to call them all.
#pragma once

#include "problem.hpp"

#include <cstring>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>
#include <zelmsafe.h>

namespace zelm_test {

inline constexpr int singular = -195, not_definite = -179, not_finite = -301, out_of_range = -302;

template <class T>
struct Values { // of a matrix
    int rows, columns;
    std::vector<T> at = std::vector<T>(std::size_t(rows) * std::size_t(columns));

    T &operator()(int i, int j) { return at[std::size_t(i * columns + j)]; }
    T operator()(int i, int j) const { return at[std::size_t(i * columns + j)]; }
};
template <class T>
using Stack = std::vector<Values<T>>;

struct Size {
    int rows, columns;
    bool operator==(const Size &) const = default;
};
// How a result grows with the scale of the matrix and of the right-hand sides.
struct Power {
    double matrix, side;
};
// How an answer leaves the range: as a quotient, as a product, by a sum of large elements.
enum class Way { none, quotient, product, sum };

template <class T>
struct SafeFamily {
    const char *name;
    std::vector<Size> sources, results; // of order n
    std::vector<Power> powers;          // of the first results
    int zero_column;                    // the status of a matrix that has one
    Way out;
    std::function<int(const ZelmView *, int count, ZelmStatusView)> call; // sources, results
    int optional = 99;      // the result whose view may be null
    bool symmetric = false; // positive definite in tests; the lower triangle alone is read
    int order = 0;

    bool is(std::string_view part) const { return std::string_view(name).find(part) == 0; }
};

#define ZELM_SAFE(f, name)                                                                         \
    const auto f = [] {                                                                            \
        if constexpr (std::is_same_v<T, float>)                                                    \
            return zelmSafe##name##_32f;                                                           \
        else                                                                                       \
            return zelmSafe##name##_64f;                                                           \
    }()

template <class T>
std::vector<SafeFamily<T>> safe_families(int n) {
    using V = const ZelmView *;
    using St = ZelmStatusView;
    ZELM_SAFE(solve, Solve);
    ZELM_SAFE(inverse, Inverse);
    ZELM_SAFE(determinant, Determinant);
    ZELM_SAFE(logarithm, LogDeterminant);
    ZELM_SAFE(cholesky, Cholesky);
    ZELM_SAFE(qr, QR);
    ZELM_SAFE(squares, LeastSquares);
    ZELM_SAFE(symmetric, EigenSymmetric);
    ZELM_SAFE(eigen, Eigen);
    const ZelmView no = {};
    const Size a = {n, n}, one = {1, 1}, row = {1, n}, tall = {n + 2, n}, wide = {n, n + 1};
    const Power p = {1, 0}, q = {-1, 1}, flat = {0, 0}, over = {-1, 0};
    const Way sum = n > 1 ? Way::sum : Way::none, product = n > 1 ? Way::product : Way::none;
    // clang-format off
    std::vector<SafeFamily<T>> all = {
        {"Solve", {a, {n, 1}}, {{n, 1}}, {q}, singular, Way::quotient,
         [=](V v, int c, St s) { return solve(v[0], v[1], v[2], n, 1, c, s, no); }},
        {"Solve three", {a, {n, 3}}, {{n, 3}, one}, {q, flat}, singular, Way::quotient,
         [=](V v, int c, St s) { return solve(v[0], v[1], v[2], n, 3, c, s, v[3]); }, 1},
        {"Inverse", {a}, {a}, {over}, singular, Way::quotient,
         [=](V v, int c, St s) { return inverse(v[0], v[1], n, c, s, no); }},
        {"Inverse and condition", {a}, {a, one}, {over, flat}, singular, Way::quotient,
         [=](V v, int c, St s) { return inverse(v[0], v[1], n, c, s, v[2]); }, 1},
        {"Determinant", {a}, {one}, {{double(n), 0}}, 0, product,
         [=](V v, int c, St s) { return determinant(v[0], v[1], n, c, s); }},
        {"LogDeterminant", {a}, {one, one}, {flat}, singular, Way::none,
         [=](V v, int c, St s) { return logarithm(v[0], v[1], v[2], n, c, s); }},
        {"Cholesky", {a}, {a}, {{.5, 0}}, not_definite, Way::none,
         [=](V v, int c, St s) { return cholesky(v[0], v[1], n, c, s); }, 99, true},
        {"QR", {tall}, {tall, a}, {flat, p}, 0, Way::sum,
         [=](V v, int c, St s) { return qr(v[0], v[1], v[2], n + 2, n, n, c, s); }, 0},
        {"QR, all of Q", {tall}, {{n + 2, n + 2}, tall}, {flat, p}, 0, Way::sum,
         [=](V v, int c, St s) { return qr(v[0], v[1], v[2], n + 2, n, n + 2, c, s); }, 0},
        {"R", {wide}, {wide}, {p}, 0, sum,
         [=](V v, int c, St s) { return qr(v[0], no, v[1], n, n + 1, n, c, s); }},
        {"LeastSquares", {tall, {n + 2, 2}}, {{n, 2}, {1, 2}}, {q, {0, 2}}, singular, Way::quotient,
         [=](V v, int c, St s) { return squares(v[0], v[1], v[2], v[3], n + 2, n, 2, c, s); }, 1},
        {"LeastSquares, square", {a, {n, 1}}, {{n, 1}}, {q}, singular, Way::quotient,
         [=](V v, int c, St s) { return squares(v[0], v[1], v[2], no, n, n, 1, c, s); }},
        {"EigenSymmetric", {a}, {row, a}, {p, flat}, 0, sum,
         [=](V v, int c, St s) { return symmetric(v[0], v[1], v[2], n, c, s); }, 1, true},
        {"EigenSymmetric, values", {a}, {row}, {p}, 0, sum,
         [=](V v, int c, St s) { return symmetric(v[0], v[1], no, n, c, s); }, 99, true},
        {"Eigen", {a}, {row, row, a}, {p, p, flat}, 0, sum,
         [=](V v, int c, St s) { return eigen(v[0], v[1], v[2], v[3], n, c, s); }, 2},
        {"Eigen, values", {a}, {row, row}, {p, p}, 0, sum,
         [=](V v, int c, St s) { return eigen(v[0], v[1], v[2], no, n, c, s); }},
    };
    // clang-format on
    for (auto &family : all)
        family.order = n;
    return all;
}

// One object, packed; results are overwritten.
template <class T>
int call_once(const SafeFamily<T> &f, Stack<T> sources, Stack<T> &results) {
    std::vector<ZelmView> views;
    const auto view = [&](Values<T> &x) {
        views.push_back({x.at.data(), 0, x.columns * std::ptrdiff_t{sizeof(T)}, sizeof(T), {}});
    };
    for (Values<T> &x : sources)
        view(x);
    results.clear();
    for (const Size s : f.results)
        results.push_back({s.rows, s.columns});
    for (Values<T> &x : results)
        view(x);
    return f.call(views.data(), 1, {});
}

// A shape of memory; whether its axes run backwards, whether a table names the objects, which then
// stand in another order, and whether all objects are one.
struct SafeLayout {
    int shape = packed;
    Edge edge = Edge::last;
    bool backwards = false, tabled = false, repeated = false;
};

template <class T>
class SafeMemory {
public:
    SafeMemory(Size size, int count, SafeLayout layout) : size_(size), count_(count) {
        const std::array lengths = {layout.repeated ? 1 : count, size.rows, size.columns};
        const Shape &shape = shapes[layout.shape];
        std::array<std::ptrdiff_t, 3> stride;
        std::ptrdiff_t step = sizeof(T), extent = sizeof(T), start = 0;
        for (std::size_t k = 0; k < 3; ++k) {
            const std::size_t axis = std::string_view("nrc").find(shape.axes[k]);
            step += shape.gaps[k] * std::ptrdiff_t{sizeof(T)};
            const std::ptrdiff_t length = (lengths[axis] - 1) * step;
            stride[axis] = layout.backwards ? -step : step;
            start += layout.backwards ? length : 0;
            extent += length;
            step *= lengths[axis];
        }
        stride[0] = layout.repeated ? 0 : stride[0];
        data_ = std::make_shared<GuardedBytes>(std::size_t(extent), layout.edge);
        view_ = {data_->data() + start, stride[0], stride[1], stride[2], nullptr};
        if (!layout.tabled)
            return;
        constexpr std::ptrdiff_t shift = 24;
        table_ = std::make_shared<GuardedBytes>(std::size_t(count) * sizeof(void *), Edge::last);
        for (int n = 0; n < count; ++n) { // no count divides by 7
            void *const entry = data_->data() + start + (n * 7 + 3) % count * stride[0] - shift;
            std::memcpy(table_->data() + n * std::ptrdiff_t{sizeof entry}, &entry, sizeof entry);
        }
        view_ = {nullptr, shift, stride[1], stride[2],
                 reinterpret_cast<void *const *>(table_->data())};
    }
    const ZelmView &view() const { return view_; }

    void put(const Stack<T> &objects) const {
        each([&](int n, int i, int j, std::byte *p) {
            const T x = objects[std::size_t(n)](i, j);
            std::memcpy(p, &x, sizeof x);
        });
    }
    Stack<T> get() const {
        Stack<T> objects(std::size_t(count_), {size_.rows, size_.columns});
        each([&](int n, int i, int j, std::byte *p) {
            std::memcpy(&objects[std::size_t(n)](i, j), p, sizeof(T));
        });
        return objects;
    }
    // All bytes, or those between the elements.
    std::vector<std::byte> image(bool of_gaps) const {
        std::vector<std::byte> bytes(data_->begin(), data_->begin() + data_->size());
        if (of_gaps)
            each([&](int, int, int, std::byte *p) {
                std::memset(&bytes[std::size_t(p - data_->begin())], 0xFF, sizeof(T));
            });
        return bytes;
    }

private:
    template <class Action>
    void each(const Action &action) const {
        for (int n = 0; n < count_; ++n) {
            void *const at = view_.table ? view_.table[n] : view_.data;
            std::byte *const object =
                static_cast<std::byte *>(at) + (view_.table ? 1 : n) * view_.stride0;
            for (int i = 0; i < size_.rows; ++i)
                for (int j = 0; j < size_.columns; ++j)
                    action(n, i, j, object + i * view_.stride1 + j * view_.stride2);
        }
    }

    Size size_;
    int count_;
    ZelmView view_;
    std::shared_ptr<GuardedBytes> data_, table_;
};

} // namespace zelm_test
