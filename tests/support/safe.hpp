// The safe solvers as data, their operands in memory, and one way to call them all.
#pragma once

#include "problem.hpp"

#include <cstring>
#include <functional>
#include <string_view>
#include <type_traits>
#include <vector>
#include <zelmsafe.h>

namespace zelm_test {

inline constexpr int singular = -195, not_definite = -179, not_finite = -301, out_of_range = -302;

template <class T>
struct Values { // of a matrix
    int rows, columns;
    std::vector<T> at;

    Values(int height, int width)
        : rows(height), columns(width), at(std::size_t(height) * std::size_t(width)) {}
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

// How an answer leaves the range: as a quotient, as a product, or by a sum of large elements.
inline constexpr char no_way = '-';

template <class T>
struct SafeFamily {
    const char *name;
    std::vector<Size> sources, results;                                   // of order n
    std::function<int(const ZelmView *, int count, ZelmStatusView)> call; // sources, then results
    std::vector<Power> powers; // of the results, the first ones at the least
    int zero_column;           // the status of a matrix that has one
    char leaves;
    bool symmetric = false; // positive definite, and the lower triangle alone is read
};

#define ZELM_SAFE(name)                                                                            \
    [] {                                                                                           \
        if constexpr (std::is_same_v<T, float>)                                                    \
            return zelmSafe##name##_32f;                                                           \
        else                                                                                       \
            return zelmSafe##name##_64f;                                                           \
    }()

template <class T>
std::vector<SafeFamily<T>> safe_families(int n) {
    using V = const ZelmView *;
    using St = ZelmStatusView;
    const ZelmView no = {};
    const Size a = {n, n}, one = {1, 1}, row = {1, n}, tall = {n + 2, n}, wide = {n, n + 1};
    const auto solve = ZELM_SAFE(Solve);
    const auto inverse = ZELM_SAFE(Inverse);
    const auto determinant = ZELM_SAFE(Determinant);
    const auto logarithm = ZELM_SAFE(LogDeterminant);
    const auto cholesky = ZELM_SAFE(Cholesky);
    const auto qr = ZELM_SAFE(QR);
    const auto squares = ZELM_SAFE(LeastSquares);
    const auto symmetric = ZELM_SAFE(EigenSymmetric);
    const auto eigen = ZELM_SAFE(Eigen);
    return {
        {"Solve",
         {a, {n, 1}},
         {{n, 1}},
         [=](V v, int c, St s) { return solve(v[0], v[1], v[2], n, 1, c, s, no); },
         {{-1, 1}},
         singular,
         'q'},
        {"Solve, three sides",
         {a, {n, 3}},
         {{n, 3}, one},
         [=](V v, int c, St s) { return solve(v[0], v[1], v[2], n, 3, c, s, v[3]); },
         {{-1, 1}, {0, 0}},
         singular,
         'q'},
        {"Inverse",
         {a},
         {a},
         [=](V v, int c, St s) { return inverse(v[0], v[1], n, c, s, no); },
         {{-1, 0}},
         singular,
         'q'},
        {"Inverse and condition",
         {a},
         {a, one},
         [=](V v, int c, St s) { return inverse(v[0], v[1], n, c, s, v[2]); },
         {{-1, 0}, {0, 0}},
         singular,
         'q'},
        {"Determinant",
         {a},
         {one},
         [=](V v, int c, St s) { return determinant(v[0], v[1], n, c, s); },
         {{double(n), 0}},
         0,
         n > 1 ? 'p' : no_way},
        {"LogDeterminant",
         {a},
         {one, one},
         [=](V v, int c, St s) { return logarithm(v[0], v[1], v[2], n, c, s); },
         {{0, 0}},
         singular,
         no_way},
        {"Cholesky",
         {a},
         {a},
         [=](V v, int c, St s) { return cholesky(v[0], v[1], n, c, s); },
         {{.5, 0}},
         not_definite,
         no_way,
         true},
        {"QR",
         {tall},
         {tall, a},
         [=](V v, int c, St s) { return qr(v[0], v[1], v[2], n + 2, n, n, c, s); },
         {{0, 0}, {1, 0}},
         0,
         's'},
        {"QR, all of Q",
         {tall},
         {{n + 2, n + 2}, tall},
         [=](V v, int c, St s) { return qr(v[0], v[1], v[2], n + 2, n, n + 2, c, s); },
         {{0, 0}, {1, 0}},
         0,
         's'},
        {"R",
         {wide},
         {wide},
         [=](V v, int c, St s) { return qr(v[0], no, v[1], n, n + 1, n, c, s); },
         {{1, 0}},
         0,
         n > 1 ? 's' : no_way},
        {"LeastSquares",
         {tall, {n + 2, 2}},
         {{n, 2}, {1, 2}},
         [=](V v, int c, St s) { return squares(v[0], v[1], v[2], v[3], n + 2, n, 2, c, s); },
         {{-1, 1}, {0, 2}},
         singular,
         'q'},
        {"LeastSquares, square",
         {a, {n, 1}},
         {{n, 1}},
         [=](V v, int c, St s) { return squares(v[0], v[1], v[2], no, n, n, 1, c, s); },
         {{-1, 1}},
         singular,
         'q'},
        {"EigenSymmetric",
         {a},
         {row, a},
         [=](V v, int c, St s) { return symmetric(v[0], v[1], v[2], n, c, s); },
         {{1, 0}, {0, 0}},
         0,
         n > 1 ? 's' : no_way,
         true},
        {"EigenSymmetric, values",
         {a},
         {row},
         [=](V v, int c, St s) { return symmetric(v[0], v[1], no, n, c, s); },
         {{1, 0}},
         0,
         n > 1 ? 's' : no_way,
         true},
        {"Eigen",
         {a},
         {row, row, a},
         [=](V v, int c, St s) { return eigen(v[0], v[1], v[2], v[3], n, c, s); },
         {{1, 0}, {1, 0}, {0, 0}},
         0,
         n > 1 ? 's' : no_way},
        {"Eigen, values",
         {a},
         {row, row},
         [=](V v, int c, St s) { return eigen(v[0], v[1], v[2], no, n, c, s); },
         {{1, 0}, {1, 0}},
         0,
         n > 1 ? 's' : no_way},
    };
}

// ---- memory ----

// A shape of memory, whether its axes run backwards, and whether a table names the objects, which
// then stand in another order.
struct SafeLayout {
    int shape = packed;
    Edge edge = Edge::last;
    bool backwards = false, tabled = false;
};

template <class T>
class SafeMemory {
public:
    SafeMemory(Size size, int count, SafeLayout layout)
        : size_(size), count_(count), tabled_(layout.tabled) {
        const Shape &shape = shapes[layout.shape];
        std::ptrdiff_t step = sizeof(T), extent = sizeof(T);
        for (std::size_t k = 0; k < 3; ++k) {
            const std::size_t axis = std::string_view("nrc").find(shape.axes[k]);
            const int length = std::array{count, size.rows, size.columns}[axis];
            step += shape.gaps[k] * std::ptrdiff_t{sizeof(T)};
            stride_[axis] = step;
            extent += (length - 1) * step;
            step *= length;
        }
        data_ = std::make_shared<GuardedBytes>(std::size_t(extent), layout.edge);
        base_ = data_->data();
        if (layout.backwards)
            for (std::size_t axis = 0; axis < 3; ++axis) {
                base_ += (std::array{count, size.rows, size.columns}[axis] - 1) * stride_[axis];
                stride_[axis] = -stride_[axis];
            }
        table_ = std::make_shared<GuardedBytes>(std::size_t(count) * sizeof(void *), Edge::last);
        for (int n = 0; n < count; ++n) {
            void *const entry = object(n) - shift;
            std::memcpy(table_->data() + n * std::ptrdiff_t{sizeof entry}, &entry, sizeof entry);
        }
    }
    Size size() const { return size_; }
    ZelmView view() const {
        auto *const table = reinterpret_cast<void *const *>(table_->data());
        return tabled_ ? ZelmView{nullptr, shift, stride_[1], stride_[2], table}
                       : ZelmView{base_, stride_[0], stride_[1], stride_[2], nullptr};
    }
    // Every object is the first.
    void repeat_first() { stride_[0] = 0; }

    void put(const Stack<T> &objects) const {
        each([&](int n, int i, int j, std::byte *p) {
            std::memcpy(p, &objects[std::size_t(n)].at[std::size_t(i * size_.columns + j)],
                        sizeof(T));
        });
    }
    Stack<T> get() const {
        Stack<T> objects(std::size_t(count_), {size_.rows, size_.columns});
        each([&](int n, int i, int j, std::byte *p) {
            std::memcpy(&objects[std::size_t(n)](i, j), p, sizeof(T));
        });
        return objects;
    }
    // Everything there is: pages, and the same with elements of all ones.
    std::vector<std::byte> image() const {
        return {data_->begin(), data_->begin() + data_->size()};
    }
    std::vector<std::byte> gaps() const {
        auto bytes = image();
        each([&](int, int, int, std::byte *p) {
            std::memset(&bytes[std::size_t(p - data_->begin())], 0xFF, sizeof(T));
        });
        return bytes;
    }

private:
    static constexpr std::ptrdiff_t shift = 24;

    std::byte *object(int n) const {
        return base_ + (tabled_ ? (n * 7 + 3) % count_ : n) * stride_[0]; // no count divides by 7
    }
    template <class Action>
    void each(const Action &action) const {
        for (int n = 0; n < count_; ++n)
            for (int i = 0; i < size_.rows; ++i)
                for (int j = 0; j < size_.columns; ++j)
                    action(n, i, j, object(n) + i * stride_[1] + j * stride_[2]);
    }

    Size size_;
    int count_;
    bool tabled_;
    std::array<std::ptrdiff_t, 3> stride_;
    std::shared_ptr<GuardedBytes> data_, table_;
    std::byte *base_;
};

} // namespace zelm_test
