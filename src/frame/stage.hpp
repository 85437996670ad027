// The stage: a group of objects copied to the stack, described by an operand of the same type as
// the one they come from. The walk sends there what is not a full group or must not be written
// whole, so that lane kernels only know full groups.
#pragma once

#include "lane_access.hpp"

namespace zelm {

// Room for a group of `registers` registers' objects of up to `elements` elements, of which a Part
// is copied.
template <class Operand, int elements, class Part = Whole, int registers = 1>
class Stage {
public:
    using T = typename Operand::Element;
    static constexpr int lanes = registers * lanes_per_register<T>;

    Stage() {} // not "= default", by which a tuple would set the room to zero

    // Copies objects first ... first + live - 1; the lanes behind them repeat the last.
    [[gnu::noinline]] Operand enter(const Operand &op, Shape shape, int first, int live) {
        for (int lane = 0; lane < lanes; ++lane)
            for (int i = 0; i < shape.height; ++i)
                for (int j = 0; j < Part::width(i, shape.width); ++j)
                    store<T>(
                        at(shape, lane, i, j),
                        load<T>(element(op, shape, first + (lane < live ? lane : live - 1), i, j)));
        return described(op, shape);
    }
    // Copies the first n objects back.
    [[gnu::noinline]] void leave(const Operand &op, Shape shape, int first, int n) {
        if constexpr (!std::is_const_v<typename Operand::Type>)
            for (int lane = 0; lane < n; ++lane)
                for (int i = 0; i < shape.height; ++i)
                    for (int j = 0; j < Part::width(i, shape.width); ++j)
                        store<T>(element(op, shape, first + lane, i, j),
                                 load<T>(at(shape, lane, i, j)));
    }

private:
    char *at(Shape shape, int lane, int i, int j) {
        const int element = i * shape.width + j;
        return reinterpret_cast<char *>(
            data_ + (is_planar<Operand> ? element * lanes + lane : lane * elements + element));
    }
    static auto *element(const Operand &op, Shape shape, int n, int i, int j) {
        if constexpr (requires { op.at[0]; })
            return op.at[i * shape.width + j] + n * op.stride0;
        else
            return view(op, n, shape).at(i, j);
    }
    Operand described(const Operand &op, Shape shape) {
        Operand staged = op;
        constexpr int element = sizeof(T), object = elements * element;
        if constexpr (std::is_same_v<Operand, Scalars<T>>) {
            staged = {data_};
        } else if constexpr (is_dense<Operand>) {
            staged = {reinterpret_cast<decltype(op.base)>(data_), object};
        } else if constexpr (is_planar<Operand>) {
            const Distance plane = lanes * Distance{sizeof(T)};
            staged = {reinterpret_cast<decltype(op.base)>(data_), shape.width * plane, plane};
        } else if constexpr (requires { op.at[0]; }) {
            for (int e = 0; e < elements; ++e)
                staged.at[e] = reinterpret_cast<char *>(data_ + e);
            staged.stride0 = object;
        } else if constexpr (Operand::is_tabled) {
            for (int e = 0; e < shape.height * shape.width; ++e)
                table_[e] = data_ + e;
            staged = {table_, 0, object};
        } else {
            const int row = shape.width * element;
            if constexpr (Operand::has_table) {
                for (int lane = 0; lane < lanes; ++lane)
                    table_[lane] = data_ + lane * elements;
                staged = {table_, 0, row, element};
            } else {
                staged = {data_, object, row, element};
            }
        }
        return staged;
    }

    static constexpr int entries() {
        if constexpr (requires(Operand op) { op.table; })
            return Operand::is_tabled ? elements : lanes;
        else
            return 1;
    }

    T data_[lanes * elements];
    typename Operand::Type *table_[entries()];
};

template <class Int, int elements, int registers>
class Stage<IndexRows<Int>, elements, Whole, registers> {
public:
    Stage() {}

    [[gnu::noinline]] IndexRows<Int> enter(const IndexRows<Int> &op, Shape, int first, int live) {
        if (op.length == 0)
            return op;
        for (int lane = 0; lane < lanes; ++lane)
            for (int i = 0; i < op.length; ++i)
                data_[lane * op.length + i] = op.row(first + (lane < live ? lane : live - 1))[i];
        return {data_, op.length};
    }
    void leave(const IndexRows<Int> &op, Shape, int first, int n) {
        if constexpr (!std::is_const_v<Int>)
            for (int i = 0; i < n * op.length; ++i)
                op.row(first)[i] = data_[i];
    }

private:
    static constexpr int lanes = registers * lanes_per_register<float>; // of the smallest element
    int data_[lanes * elements];
};

} // namespace zelm
