// What NumPy hands to an inner loop, operand by operand.
#ifndef ZELM_PYTHON_ARGUMENTS_HPP
#define ZELM_PYTHON_ARGUMENTS_HPP

#include "numpy.hpp"

#include <zelm.hpp>

#include <xmmintrin.h>

namespace zelm_python {

// `count` objects of rows x columns elements. Vectors have one row or one column.
template <typename T>
struct Operand {
    T *data;
    npy_intp count, rows, columns, stride0, stride1, stride2;

    T &at(npy_intp n, npy_intp i, npy_intp j) const {
        return *reinterpret_cast<T *>(reinterpret_cast<char *>(data) + n * stride0 + i * stride1 +
                                      j * stride2);
    }
    npy_intp elements() const { return rows * columns; }

    zelm::matrices<T> matrices() const {
        return {data, rows, columns, count, {stride0, stride1, stride2}};
    }
    zelm::vectors<T> vectors() const {
        return {data, rows * columns, count, {stride0, columns == 1 ? stride1 : stride2}};
    }
    zelm::scalars<T> scalars() const { return {data, count, stride0}; }
    // The first object, for all.
    zelm::matrix<const T> matrix() const { return {data, rows, columns, {stride1, stride2}}; }
    zelm::vector<const T> vector() const {
        return {data, rows * columns, columns == 1 ? stride1 : stride2};
    }

    void fill(T value) const {
        for (npy_intp n = 0; n < count; ++n)
            for (npy_intp i = 0; i < rows; ++i)
                for (npy_intp j = 0; j < columns; ++j)
                    at(n, i, j) = value;
    }
};

struct Statuses {
    zelm::scalars<int> all;

    void fill(int status) const {
        for (npy_intp n = 0; n < all.count(); ++n)
            all[n] = status;
    }
    // Takes what a call returned. One that is refused as a whole has given no object a status: all
    // of them get the call's.
    void after(zelm::status result) const {
        switch (result.code()) {
        case zelStatusNullPointer:
        case zelStatusBadCount:
        case zelStatusBadSize:
        case zelStatusSizeMismatch:
        case zelmSafeNoMemory:
            fill(result.code());
        }
    }
};

// Takes the operands in the order of the signature. An inner loop is given, in this order: the
// number of objects and the core dimensions; for every operand the bytes from object to object;
// then, operand by operand, the bytes along each of its core dimensions.
//
// Lanes compute on behind a failing pivot, so floating-point flags tell nothing here. They are left
// as they were found, or NumPy would make warnings of them.
template <typename T>
class Arguments {
public:
    Arguments(char **data, const npy_intp *sizes, const npy_intp *steps, int operands)
        : data_(data),
          sizes_(sizes),
          objects_(steps),
          core_(steps + operands),
          flags_(_mm_getcsr()) {}
    ~Arguments() { _mm_setcsr(flags_); }
    Arguments(const Arguments &) = delete;
    Arguments &operator=(const Arguments &) = delete;

    npy_intp size(int core_dimension) const { return sizes_[1 + core_dimension]; }

    Operand<T> matrix(npy_intp rows, npy_intp columns) {
        core_ += 2;
        return next(rows, columns, core_[-2], core_[-1]);
    }
    Operand<T> row(npy_intp columns) { return next(1, columns, 0, *core_++); }
    Operand<T> column(npy_intp rows) { return next(rows, 1, *core_++, 0); }
    Operand<T> scalar() { return next(1, 1, 0, 0); }
    Statuses statuses() { return {{reinterpret_cast<int *>(*data_++), sizes_[0], *objects_++}}; }

private:
    Operand<T> next(npy_intp rows, npy_intp columns, npy_intp stride1, npy_intp stride2) {
        return {reinterpret_cast<T *>(*data_++),
                sizes_[0],
                rows,
                columns,
                *objects_++,
                stride1,
                stride2};
    }

    char **data_;
    const npy_intp *sizes_, *objects_, *core_;
    const unsigned flags_;
};

} // namespace zelm_python

#endif
