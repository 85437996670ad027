// The parallel path of array calls: contiguous ranges of objects, one per thread.
#pragma once

#include "operand.hpp"

namespace zelm {

// Runs `count` objects on [first, first + n) with `scratch` for one thread (null where none was
// asked for).
struct RangeKernel {
    ZelStatus (*run)(const void *context, int first, int n, void *scratch);
    const void *context;
};

// Asks for the number of threads and splits; returns the first non-zero status that a thread
// stored. Runs everything on this thread, in `own_scratch`, where there is one thread, fewer
// objects than threads, or no memory for the threads' scratch.
ZelStatus y8_ownOMP_zelm_ranges(RangeKernel kernel, int count, std::size_t scratch_bytes,
                                void *own_scratch);

// kernel(n, operands...) over all objects, the operands moved to each range's first object.
template <class Kernel, class... Operands>
[[gnu::noinline]] ZelStatus y8_ownOMP_zelm(const Kernel &kernel, int count,
                                           const Operands &...operands) {
    auto body = [&](int first, int n) -> ZelStatus { return kernel(n, operands.from(first)...); };
    using Body = decltype(body);
    const RangeKernel ranges = {[](const void *context, int first, int n, void *) {
                                    return (*static_cast<const Body *>(context))(first, n);
                                },
                                &body};
    return y8_ownOMP_zelm_ranges(ranges, count, 0, nullptr);
}

// Working memory of one thread: the caller's, which a serial run uses, and its size.
struct Scratch {
    void *own;
    std::size_t bytes;
};

// kernel(n, scratch, operands...): each thread works in memory of its own.
template <class Kernel, class... Operands>
[[gnu::noinline]] ZelStatus y8_ownOMP_zelm(const Kernel &kernel, int count, Scratch scratch,
                                           const Operands &...operands) {
    auto body = [&](int first, int n, void *own) -> ZelStatus {
        return kernel(n, own, operands.from(first)...);
    };
    using Body = decltype(body);
    const RangeKernel ranges = {[](const void *context, int first, int n, void *own) {
                                    return (*static_cast<const Body *>(context))(first, n, own);
                                },
                                &body};
    return y8_ownOMP_zelm_ranges(ranges, count, scratch.bytes, scratch.own);
}

// Serial or parallel, by the estimate's verdict.
template <class Kernel, class... Operands>
ZELM_INLINE ZelStatus run_objects(bool serial, const Kernel &kernel, int count,
                                  const Operands &...operands) {
    if (serial)
        return kernel(count, operands...);
    return y8_ownOMP_zelm(kernel, count, operands...);
}
template <class Kernel, class... Operands>
ZELM_INLINE ZelStatus run_objects(bool serial, const Kernel &kernel, int count, Scratch scratch,
                                  const Operands &...operands) {
    if (serial)
        return kernel(count, scratch.own, operands...);
    return y8_ownOMP_zelm(kernel, count, scratch, operands...);
}

} // namespace zelm
