// What cbrtf4 and invcbrtf4 share.
#pragma once

#include "lanes/lanes.h"
#include "tables/cbrtf4.h"

namespace zelk::ZELK_TIER {

// A third of a biased exponent in its own position, with the fractional third (0, 0101..., 1010...) below it.
ZELK_INLINE int4 third_of_exponent_A(int4 exponent_field, const tables::Cbrtf4& k)
{
    return as_int4(as_uint4(multiply_high_16(exponent_field, k.s_dwDiv3Mul_A)) >> 1);
}

// 2^t, t the third of the unbiased exponent, rounded down.
ZELK_INLINE float4 power_of_third(int4 third, const tables::Cbrtf4& k)
{
    return as_float4((third + k.s_dwDiv3Add) & k.exponent_mask);
}

// The remainder modulo 3 that belongs to third_of_exponent_A.
ZELK_INLINE int4 remainder_of_third(int4 third, const tables::Cbrtf4& k)
{
    return (third & k.s_dwCbrtIndexMask) >> 19;
}

ZELK_INLINE float4 significand(int4 magnitude, const tables::Cbrtf4& k)
{
    return as_float4((magnitude & k.mantissa_mask) | as_int4(k.one));
}

// Zeros, subnormals, infinities and NaNs, by |x|.
ZELK_INLINE int4 not_normal(int4 magnitude, const tables::Cbrtf4& k)
{
    return (magnitude < k.smallest_normal) | (magnitude > k.largest);
}

} // namespace zelk::ZELK_TIER
