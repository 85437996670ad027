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

// The caller's buffer, and the bytes that one thread needs in its place.
struct Scratch {
    void *own;
    std::size_t bytes;
};
// Of height * width elements. More bytes than there are addresses become as many as there are,
// which no thread gets.
template <class T>
ZELM_INLINE Scratch scratch_of(T *buffer, std::size_t height, std::size_t width) {
    std::size_t bytes = 0;
    if (__builtin_mul_overflow(height * width, sizeof(T), &bytes))
        bytes = ~std::size_t{0};
    return {buffer, bytes};
}

// kernel(scratch, n, operands...) over all objects, the operands moved to each range's first
// object.
template <class Kernel, class... Operands>
[[gnu::noinline]] ZelStatus y8_ownOMP_zelm(const Kernel &kernel, Scratch scratch, int count,
                                           const Operands &...operands) {
    auto body = [&](int first, int n, void *slice) -> ZelStatus {
        return kernel(slice, n, operands.from(first)...);
    };
    using Body = decltype(body);
    const RangeKernel ranges = {[](const void *context, int first, int n, void *slice) {
                                    return (*static_cast<const Body *>(context))(first, n, slice);
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
    return y8_ownOMP_zelm(
        [&kernel](void *, int n, const Operands &...moved) { return kernel(n, moved...); },
        Scratch{}, count, operands...);
}

// The same for kernels that work in a buffer: kernel(buffer, n, operands...).
template <class Kernel, class... Operands>
ZELM_INLINE ZelStatus run_objects_in(Scratch scratch, bool serial, const Kernel &kernel, int count,
                                     const Operands &...operands) {
    if (serial)
        return kernel(scratch.own, count, operands...);
    return y8_ownOMP_zelm(kernel, scratch, count, operands...);
}

} // namespace zelm
