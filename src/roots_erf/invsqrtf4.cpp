// 1/sqrt x on four binary32 lanes.
// Method: the processor's estimate and one Newton step; lanes that are not positive normal numbers from the
// hardware square root and a division, which also raise what they must.
#include "dispatch/kernels.h"
#include "roots_erf/sqrtf4.h"

namespace zelk::ZELK_TIER {

[[gnu::noinline, gnu::cold]] static float4 invsqrtf4_special(float4 x, int4 special)
{
    const auto& k = tables::sqrtf4;
    // Special lanes pass through the ordinary path as ones, and ordinary lanes through the division.
    const float4 ordinary = refined_reciprocal_sqrt(select(special, k.s_dwOne, x), k);
    const float4 exact = k.s_dwOne / square_root(select(special, x, k.s_dwOne));
    return select(special, exact, ordinary);
}

float4 invsqrtf4(float4 x)
{
    const auto& k = tables::sqrtf4;
    const int4 special = not_positive_normal(x, k);
    if (lane_mask(special) != 0) [[unlikely]]
        return invsqrtf4_special(x, special);
    return refined_reciprocal_sqrt(x, k);
}

} // namespace zelk::ZELK_TIER
