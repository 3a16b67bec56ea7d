// sqrt x on four binary32 lanes.
// Method: x times the refined estimate of 1/sqrt x where all lanes are positive normal numbers; otherwise the
// hardware square root for all lanes.
#include "roots_erf/sqrtf4.h"
#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

float4 sqrtf4(float4 x)
{
    const auto& k = tables::sqrtf4;
    if (lane_mask(not_positive_normal(x, k)) != 0) [[unlikely]]
        return square_root(x);
    return refined_reciprocal_sqrt(x, k) * x;
}

} // namespace zelk::ZELK_TIER
