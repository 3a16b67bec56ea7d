// The quotient of four signed 32-bit lanes. Methods in intdiv.h.
#include "dispatch/kernels.h"
#include "rounding_intdiv/idiv.h"

namespace zelk::ZELK_TIER {

int4 idiv4(int4 a, int4 b)
{
    return divrem(a, b).quotient;
}

} // namespace zelk::ZELK_TIER
