// arccos z on two complex numbers with binary32 parts, by the scalar routine.
#include "complex/lane_loop.h"

namespace zelk::ZELK_TIER {

float4 cacosf2(float4 z)
{
    return lane_loop(z, dispatched::cacosf_scalar);
}

} // namespace zelk::ZELK_TIER
