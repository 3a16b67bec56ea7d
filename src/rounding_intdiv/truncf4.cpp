// x toward zero on four binary32 lanes. Method: through 32-bit integers and back.
#include "dispatch/kernels.h"
#include "rounding_intdiv/rounding.h"

namespace zelk::ZELK_TIER {

float4 truncf4(float4 x)
{
    return truncate(x, tables::roundingf4);
}

} // namespace zelk::ZELK_TIER
