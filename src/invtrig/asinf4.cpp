// arcsin x on four binary32 lanes.
// Method: |x| <= 1/2: a degree-11 odd polynomial. Above: pi/2 - 2 arcsin sqrt((1 - |x|)/2), the same
// polynomial. Outside [-1, 1] the root of the negative number gives the NaN and raises invalid.
#include "invtrig/asinf4.h"
#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

float4 asinf4(float4 x)
{
    const auto& k = tables::asinf4;
    const int4 sign = as_int4(x) & k.s_dwSignMask;
    const int4 big = above_half(x, k);
    if constexpr (tier != Tier::A) {
        const unsigned big_lanes = lane_mask(big);
        if (big_lanes == 0) return x * arcsine_ratio(x * x, k);
        if (big_lanes == all_lanes4)
            return as_float4(as_int4(k.s_fPi2 - twice_arcsine_of_complement(x, k)) | sign);
    }
    const float4 poly = arcsine_of_reduced(x, big, k);
    // 1, or -2 in big lanes.
    const int4 multiplier = (big & k.s_dwOtherFactor) ^ as_int4(k.s_fOne);
    const float4 result = as_float4(as_int4(k.s_fPi2) & big) + poly * as_float4(multiplier);
    return as_float4(as_int4(result) | sign);
}

} // namespace zelk::ZELK_TIER
