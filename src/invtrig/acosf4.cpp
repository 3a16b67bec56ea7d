// arccos x on four binary32 lanes.
// Method: |x| <= 1/2: pi/2 - arcsin x, a degree-11 odd polynomial. Above: 2 arcsin sqrt((1 - x)/2) by the
// same polynomial, or pi less that of -x. Outside [-1, 1] the root of the negative number gives the NaN and
// raises invalid.
#include "dispatch/kernels.h"
#include "invtrig/asinf4.h"

namespace zelk::ZELK_TIER {

// arccos x from 2 arcsin sqrt((1 - |x|)/2): itself, or pi - it where x is negative.
ZELK_INLINE float4 reflect(float4 twice_arcsine, float4 x, int4 sign, const tables::Asinf4& k)
{
    const int4 negative = negative_lanes(x, k.s_dwSignMask, k.s_fOne);
    const float4 pi_if_negative = as_float4(as_int4(k.s_fPi) & negative);
    return as_float4(as_int4(twice_arcsine) | sign) + pi_if_negative;
}

float4 acosf4(float4 x)
{
    const auto& k = tables::asinf4;
    const int4 sign = as_int4(x) & k.s_dwSignMask;
    const int4 big = above_half(x, k);
    if constexpr (tier != Tier::A) {
        const unsigned big_lanes = lane_mask(big);
        if (big_lanes == 0) return k.s_fPi2 - x * arcsine_ratio(x * x, k);
        if (big_lanes == all_lanes4) return reflect(twice_arcsine_of_complement(x, k), x, sign, k);
    }
    const float4 b = arcsine_of_reduced(x, big, k);
    const float4 small_result = k.s_fPi2 - as_float4(as_int4(b) | sign);
    return select(big, reflect(b + b, x, sign, k), small_result);
}

} // namespace zelk::ZELK_TIER
