// What asinhf4, acoshf4 and atanhf4 share: the logarithm of the vector path and that of the scalar routines.
#pragma once

#include "lanes/lanes.h"
#include "tables/inverse_hyperbolicf4.h"

namespace zelk::ZELK_TIER {

// ln y, y positive and normal: y = 2^n (1+f), sqrt(1/2) <= 1+f < sqrt 2;
// ln(1+f) = f - s (f - R(s^2)), s = f/(2+f).
ZELK_INLINE float4 logarithm(float4 y, const tables::InverseHyperbolicf4& k)
{
    const int4 fraction = as_int4(y) & k.s_dwSgnfMask;
    const int4 carry = (fraction + k.s_dwSqrt2Addition) & k.s_dwSqrt2Mask;
    const float4 n = to_float4(((as_int4(y) + carry) >> 23) - k.s_dwBias);
    const float4 f = as_float4(fraction | (as_int4(k.s_fOne) ^ carry)) - k.s_fOne;

    // The quotient from the reciprocal estimate e of 2+f and one Newton step.
    const float4 d = f + k.s_fTwo;
    const float4 e = reciprocal_estimate(d);
    const float4 s = (k.s_fTwo - d * e) * (e * f);

    const float4 z = s * s;
    const float4 w = z * z;
    const float4 R = (k.s_fA3 * w + k.s_fA1) * z + k.s_fA2 * w;
    return n * k.s_fLn2Hi - (((f - R) * s - n * k.s_fLn2Lo) - f);
}

// All ones in the lanes below 1e19; the square of any other may overflow.
ZELK_INLINE int4 is_squarable(float4 x, const tables::InverseHyperbolicf4& k)
{
    return k.s_dwHugeArg > as_int4(x);
}

// ln y of a positive normal binary64 number, to about 40 bits: y = 2^n m, ln m a cubic in each 256th of [1,
// 2).
static inline double table_logarithm(double y)
{
    const auto bits = __builtin_bit_cast(std::uint64_t, y);
    const int n = static_cast<int>(bits >> 52) - 1023;
    const double m = __builtin_bit_cast(double, (bits & 0x000FFFFFFFFFFFFF) | 0x3FF0000000000000);
    const auto& row = tables::__zelk_sp_inv_hyp_T[(bits >> 44) & 0xFF];
    const double a3 = __builtin_bit_cast(double, row.a3);
    const double a2 = __builtin_bit_cast(double, row.a2);
    const double a1 = __builtin_bit_cast(double, row.a1);
    const double a0 = __builtin_bit_cast(double, row.a0);
    return n * 0x1.62e42fefa39efp-1 + (a3 * m + a2) * (m * m) + (a1 * m + a0); // n ln 2 + ln m
}

static inline double scalar_square_root(double x)
{
    return square_root(splat(x))[0];
}

} // namespace zelk::ZELK_TIER
