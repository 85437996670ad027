// What the C++ peers share: packed objects as arrays of structures, and lists made by order.
#ifndef BENCH_PEER_LIST_HPP
#define BENCH_PEER_LIST_HPP

#include <cstddef>
#include <type_traits>
#include <vector>

#include "peer.h"

namespace {

struct PeerShape {
    int rows, inner, columns;
};

constexpr PeerShape square(int order) { return {order, order, order}; }
constexpr PeerShape matrix_vector(int order) { return {order, order, 1}; }
constexpr PeerShape sum(int rows, int columns) { return {rows, 0, columns}; }

class PeerList {
public:
    template <class T>
    void offer(const char *name, BenchWork work, PeerShape shape, BenchMemory memory,
               void (*run)(const BenchProblem *), BenchPivots pivots = bench_pivots_none) {
        add<T>(name, work, shape, memory, run, pivots, 0);
    }
    template <class T>
    void offer_bound(const char *name, BenchWork work, PeerShape shape, BenchMemory memory,
                     void (*run)(const BenchProblem *)) {
        add<T>(name, work, shape, memory, run, bench_pivots_none, 1);
    }
    BenchPeerList list() const { return {peers_.data(), static_cast<int>(peers_.size())}; }

private:
    template <class T>
    void add(const char *name, BenchWork work, PeerShape shape, BenchMemory memory,
             void (*run)(const BenchProblem *), BenchPivots pivots, int is_bound) {
        peers_.push_back({name, work, sizeof(T), shape.rows, shape.inner, shape.columns, memory,
                          pivots, is_bound, run});
    }
    std::vector<BenchPeer> peers_;
};

// What bench_peers returns: the list that fill(list) makes, once.
template <class Fill>
BenchPeerList listed(const Fill &fill) {
    static const PeerList list = [&fill] {
        PeerList made;
        fill(made);
        return made;
    }();
    return list.list();
}

// Calls f with each order as a compile-time constant.
template <int... Orders, class F>
void for_orders(F f) {
    (f(std::integral_constant<int, Orders>{}), ...);
}

template <class Object>
const Object *objects(const BenchOperand &operand) {
    return static_cast<const Object *>(operand.base);
}
template <class Object>
Object *results(const BenchOperand &operand) {
    return static_cast<Object *>(operand.base);
}

template <class T>
T *object_at(const BenchOperand &operand, int n) {
    return reinterpret_cast<T *>(static_cast<char *>(operand.base) +
                                 static_cast<std::ptrdiff_t>(n) * operand.object);
}

// A stride in elements.
template <class T>
std::ptrdiff_t in_elements(int bytes) {
    return bytes / static_cast<int>(sizeof(T));
}

} // namespace

#endif
