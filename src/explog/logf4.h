// What logf4, log2f4 and log10f4 share: the split of the argument, the series, and the special lanes.
// Method: x = 2^e y with y in [sqrt(1/2), sqrt 2), log_b x = e log_b 2 + c ln y with c = 1/ln b.
// With f = y - 1 and s = f/(y + 1), ln y = 2 (s + s^3/3 + s^5/5 + s^7/7) = f + s (q - f),
// q = 2 (s^2/3 + s^4/5 + s^6/7).
#pragma once

#include "lanes/lanes.h"
#include "tables/logf4.h"

namespace zelk::ZELK_TIER {

struct Splitf4 {
    float4 e;
    float4 f;
    float4 s;
};

// x must be positive, normal and finite.
ZELK_INLINE Splitf4 split_at_sqrt2(float4 x)
{
    const auto& k = tables::logf4;
    const int4 m = as_int4(x) & k.flMantissaMask;
    const int4 c = (m + k.s_dwSqrt2Addition) & k.s_dwSqrt2Mask;
    const float4 y = as_float4(m | (as_int4(k.s_fOne) ^ c));
    const int4 e = (as_int4(x) >> 23) - k.s_dwExpBias + (c >> 23);
    const float4 f = y - k.s_fOne;
    return {to_float4(e), f, f / (y + k.s_fOne)};
}

// e_term + c (f + s (q - f)), from fs = c f.
ZELK_INLINE float4 add_series(float4 e_term, float4 fs, float4 s, const tables::Logf4Base& k)
{
    const float4 z = s * s;
    const float4 w = z * z;
    const float4 q = (k.s_fB2 * w + k.s_fB0) * z + k.s_fB1 * w;
    return e_term + ((q - fs) * s + fs);
}

ZELK_INLINE bool all_positive_normal(float4 x)
{
    const auto& k = tables::logf4;
    const int4 bits = as_int4(x);
    return lane_mask((bits < k.s_dwPosInf) & (bits > k.flMantissaMask)) == all_lanes4;
}

// Arguments that the method above takes in every lane, and what makes its results final.
struct LogLanesf4 {
    float4 argument;
    int4 special;      // lanes whose result is known
    int4 value;        // that result, zero in the other lanes
    float4 correction; // -126 log_b 2 where the argument is 2^126 times a subnormal number
};

ZELK_INLINE LogLanesf4 replace_special_lanes(float4 x, float4 deno_add)
{
    const auto& k = tables::logf4;
    const int4 bits = as_int4(x);
    const int4 magnitude = bits & k.s_dwAbsMask;
    const int4 infinite = bits == k.s_dwPosInf;
    const int4 zero = magnitude == 0;
    const int4 nan = magnitude > k.s_dwPosInf;
    const int4 negative = as_int4(as_uint4(bits) + k.s_dwSpecial1) > k.s_dwSpecial2;
    const int4 special = infinite | zero | nan | negative;
    const int4 value = (infinite & k.s_dwPosInf) | (zero & k.s_dwNegInf) | (nan & bits) | negative;

    const int4 subnormal = as_int4(as_uint4(bits) + as_uint4(k.s_dwPosInf)) > k.s_dwPosInf;
    const float4 scaled = as_float4((bits & subnormal) | as_int4(k.s_fOne)) - k.s_fOne;
    const float4 argument = select(special, k.s_fOne, select(subnormal, scaled, x));
    return {argument, special, value, as_float4(subnormal & as_int4(deno_add))};
}

// The addition quiets a signalling NaN and raises invalid for it.
ZELK_INLINE float4 restore_special_lanes(float4 log, const LogLanesf4& lanes)
{
    return select(lanes.special, as_float4(lanes.value), log) + lanes.correction;
}

} // namespace zelk::ZELK_TIER
