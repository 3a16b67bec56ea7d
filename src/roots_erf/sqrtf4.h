// What sqrtf4 and invsqrtf4 share.
#pragma once

#include "lanes/lanes.h"
#include "tables/sqrtf4.h"

namespace zelk::ZELK_TIER {

// Lanes that are zero, subnormal, negative, infinite or NaN.
ZELK_INLINE int4 not_positive_normal(float4 x, const tables::Sqrtf4& k)
{
    if constexpr (integer_lanes) {
        return as_int4(as_uint4(x) - as_uint4(k.s_dwMinNorm)) > k.s_dwNormBound;
    } else {
        // The power of two below x, with its sign; 0 for subnormals, infinite for NaNs.
        const float4 power = as_float4(as_int4(x) & k.sign_exponent);
        return (int4)_mm_or_ps(_mm_cmple_ps(power, float4{}), _mm_cmpge_ps(power, k.infinity));
    }
}

// 1/sqrt x: the processor's estimate and one Newton step, r (3 - x r^2) / 2.
ZELK_INLINE float4 refined_reciprocal_sqrt(float4 x, const tables::Sqrtf4& k)
{
    const float4 r = reciprocal_sqrt_estimate(x);
    return (k.s_fThree - (x * r) * r) * (r * k.s_fHalf);
}

} // namespace zelk::ZELK_TIER
