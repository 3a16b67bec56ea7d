// x in the current rounding mode, on four binary32 lanes. Method: 2^23 with the sign of x added and
// subtracted.
#include "dispatch/kernels.h"
#include "rounding_intdiv/rounding.h"

namespace zelk::ZELK_TIER {

float4 rintf4(float4 x)
{
    return round_in_current_mode(x, tables::roundingf4);
}

} // namespace zelk::ZELK_TIER
