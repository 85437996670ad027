#include "parallel.hpp"

#include "zelcore.h"

#include <omp.h>

namespace zelm {

ZelStatus y8_ownOMP_zelm_ranges(RangeKernel kernel, int count, std::size_t scratch_bytes,
                                void *own_scratch) {
    const int threads = ownGetNumThreads();
    if (threads <= 1 || count < threads)
        return kernel.run(kernel.context, 0, count, own_scratch);

    // Asked again, as the answer may have changed: the first one sized the split that was worth it,
    // this one is the team that is requested.
    const int answer = ownGetNumThreads();
    const int request = answer < 1 ? 1 : answer; // the runtime takes no request below 1
    const int slices = request > threads ? request : threads;
    char *block = nullptr;
    if (scratch_bytes != 0) {
        std::size_t bytes = 0;
        if (!__builtin_mul_overflow(scratch_bytes, static_cast<std::size_t>(slices), &bytes))
            block = static_cast<char *>(omp_alloc(bytes, omp_default_mem_alloc));
        if (block == nullptr)
            return kernel.run(kernel.context, 0, count, own_scratch);
    }

    // Workers round and flush as the caller does, so that a split changes no result.
    const unsigned control = floating_point_control();
    ZelStatus status = zelStatusOk;
    int quotient = 0, remainder = 0;
#pragma omp parallel num_threads(request)
    {
        const int thread = omp_get_thread_num();
#pragma omp master
        {
            const int team = omp_get_num_threads();
            quotient = count / team;
            remainder = count % team;
        }
#pragma omp barrier
        const bool longer = thread < remainder;
        const int n = longer ? quotient + 1 : quotient;
        const int first = longer ? n * thread : quotient * thread + remainder;
        if (n > 0) {
            const unsigned own_control = floating_point_control();
            set_floating_point_control(control);
            char *scratch = block == nullptr
                                ? nullptr
                                : block + static_cast<std::size_t>(thread) * scratch_bytes;
            const ZelStatus result = kernel.run(kernel.context, first, n, scratch);
            if (thread != 0)
                set_floating_point_control(own_control);
#pragma omp critical(zelm_status)
            if (status == zelStatusOk)
                status = result;
        }
    }
    omp_free(block, omp_default_mem_alloc);
    return status;
}

} // namespace zelm
