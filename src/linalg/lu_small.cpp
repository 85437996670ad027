#include "lu_kernels.hpp"

namespace zelm {

ZELM_LU_SMALL()

} // namespace zelm
