// What asinhf4, acoshf4 and atanhf4 share: the logarithm of the vector path and that of the scalar routines.
#pragma once

#include "explog/log_d2.h"
#include "lanes/lanes.h"
#include "tables/inverse_hyperbolicf4.h"

namespace zelk::ZELK_TIER {

// ln y, y positive and normal: y = 2^n (1+f), sqrt(1/2) <= 1+f < sqrt 2;
// ln(1+f) = f - s (f - R(s^2)), s = f/(2+f).
ZELK_INLINE float4 logarithm(float4 y, const tables::InverseHyperbolicf4& k)
{
    // The exponent of y, one more from sqrt 2 on, is what y is divided by.
    const int4 power = (as_int4(y) + k.s_dwSqrt2Addition) & k.s_dwExponentMask;
    const float4 n = to_float4((power >> 23) - k.s_dwBias);
    const float4 f = as_float4(as_int4(as_uint4(y) + k.s_uOne) - power) - k.s_fOne;

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

// ln y of positive normal binary64 numbers, to about 40 bits: y = 2^n m, ln m a cubic in each 256th of [1,
// 2).
ZELK_INLINE double2 table_logarithm(double2 y)
{
    const Decomposedd2 parts = decompose(y);
    const auto row = [&](int lane) {
        return reinterpret_cast<const double*>(&tables::__zelk_sp_inv_hyp_T[high_word(y, lane) >> 12 & 0xFF]);
    };
    const double* const row0 = row(0);
    const double* const row1 = row(1);
    const __m128d a31_0 = _mm_load_pd(row0);
    const __m128d a31_1 = _mm_load_pd(row1);
    const __m128d a20_0 = _mm_load_pd(row0 + 2);
    const __m128d a20_1 = _mm_load_pd(row1 + 2);
    const double2 a3 = _mm_unpacklo_pd(a31_0, a31_1);
    const double2 a1 = _mm_unpackhi_pd(a31_0, a31_1);
    const double2 a2 = _mm_unpacklo_pd(a20_0, a20_1);
    const double2 a0 = _mm_unpackhi_pd(a20_0, a20_1);
    const double2 m = parts.m;
    return parts.e * tables::inverse_hyperbolicf4.s_dbLn2 + (a3 * m + a2) * (m * m) + (a1 * m + a0);
}

// The scalar routine of every lane, two lanes at a time. Lanes in which x has no business there hold a
// harmless value instead.
template <class Routine>
ZELK_INLINE float4 by_lane(int4 x, Routine routine)
{
    return narrow(routine(widen_low(as_float4(x))), routine(widen_high(as_float4(x))));
}

} // namespace zelk::ZELK_TIER
