// What atanf4 and atan2f4 share: the polynomial.
#pragma once

#include "lanes/lanes.h"
#include "tables/atanf4.h"

namespace zelk::ZELK_TIER {

// arctan q, |q| <= 1, even and odd terms apart.
ZELK_INLINE float4 arctangent(float4 q, const tables::Atanf4& k)
{
    const float4 z = q * q;
    const float4 Z = z * z;
    const float4 E = (((k.s_fA8 * Z + k.s_fA6) * Z + k.s_fA4) * Z + k.s_fA2) * Z + k.s_fA0;
    const float4 O = (((k.s_fA7 * Z + k.s_fA5) * Z + k.s_fA3) * Z + k.s_fA1) * z;
    return q * (E + O);
}

} // namespace zelk::ZELK_TIER
