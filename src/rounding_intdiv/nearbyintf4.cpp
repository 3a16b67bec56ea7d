// x in the current rounding mode, on four binary32 lanes. The same as rint: inexact is raised.
#include "dispatch/kernels.h"
#include "rounding_intdiv/rounding.h"

namespace zelk::ZELK_TIER {

float4 nearbyintf4(float4 x)
{
    return round_in_current_mode(x, tables::roundingf4);
}

} // namespace zelk::ZELK_TIER
