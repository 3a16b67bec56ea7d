// The remainder of four signed 32-bit lanes. Methods in intdiv.h.
#include "dispatch/kernels.h"
#include "rounding_intdiv/idiv.h"

namespace zelk::ZELK_TIER {

int4 irem4(int4 a, int4 b)
{
    return divrem(a, b).remainder;
}

} // namespace zelk::ZELK_TIER
