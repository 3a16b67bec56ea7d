// The quotient of four unsigned 32-bit lanes. Methods in intdiv.h.
#include "dispatch/kernels.h"
#include "rounding_intdiv/udiv.h"

namespace zelk::ZELK_TIER {

uint4 udiv4(uint4 a, uint4 b)
{
    return divrem(a, b).quotient;
}

} // namespace zelk::ZELK_TIER
