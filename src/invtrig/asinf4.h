// What asinf4 and acosf4 share: the reduction to |y| <= 1/2 and the polynomial.
#pragma once

#include "lanes/lanes.h"
#include "tables/asinf4.h"

namespace zelk::ZELK_TIER {

// |x| > 1/2 or NaN.
ZELK_INLINE int4 above_half(float4 x, const tables::Asinf4& k)
{
    return magnitude_above(x, k.s_dwAbsMask, k.s_fHalf);
}

// t = (1 - |x|)/2: arcsin |x| = pi/2 - 2 arcsin sqrt(t).
ZELK_INLINE float4 half_of_complement(float4 x, const tables::Asinf4& k)
{
    return k.s_fHalf * (k.s_fOne - as_float4(as_int4(x) & k.s_dwAbsMask));
}

// arcsin y / y from z = y^2 <= 1/4, even and odd terms apart.
ZELK_INLINE float4 arcsine_ratio(float4 z, const tables::Asinf4& k)
{
    const float4 z2 = z * z;
    return ((k.s_fA4 * z2 + k.s_fA2) * z2 + k.s_fA0) + z * ((k.s_fA5 * z2 + k.s_fA3) * z2 + k.s_fA1);
}

// Any mixture of lanes: arcsin |x|, or arcsin sqrt((1 - |x|)/2) in big lanes. Below a root of a negative
// number, which is a NaN and has raised invalid, everything is NaN. In round down 1 - 1 is -0: its root loses
// the sign.
ZELK_INLINE float4 arcsine_of_reduced(float4 x, int4 big, const tables::Asinf4& k)
{
    const int4 y = select(big, as_int4(square_root(half_of_complement(x, k))), as_int4(x));
    const float4 magnitude = as_float4(y & k.s_dwAbsMask);
    return arcsine_ratio(magnitude * magnitude, k) * magnitude;
}

// All lanes big: 2 arcsin sqrt((1 - |x|)/2), the polynomial straight from t. Beyond 1 the root alone makes
// the lane a NaN; the polynomial gets 0 there, and can't overflow.
ZELK_INLINE float4 twice_arcsine_of_complement(float4 x, const tables::Asinf4& k)
{
    const float4 t = half_of_complement(x, k);
    const float4 w = as_float4(as_int4(square_root(t)) & k.s_dwAbsMask);
    const float4 z = as_float4(as_int4(t) & ~(as_int4(t) >> 31));
    return (w + w) * arcsine_ratio(z, k);
}

} // namespace zelk::ZELK_TIER
