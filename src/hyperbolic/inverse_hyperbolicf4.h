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

// Bits 12 to 19 of each lane: two lanes in a 64-bit move, or halves of lanes where there is none.
struct Bytes4 {
    std::uint32_t of_lane[4];
};
ZELK_INLINE Bytes4 bits_12_to_19(int4 x)
{
    if constexpr (sizeof(void*) == 8) {
        const std::uint64_t low = as_ulong2(as_long2(x))[0];
        const std::uint64_t high = as_ulong2(as_long2(x))[1];
        const auto byte = [](std::uint64_t bits) { return static_cast<std::uint32_t>(bits & 0xFF); };
        return {byte(low >> 12), byte(low >> 44), byte(high >> 12), byte(high >> 44)};
    } else {
        const __m128i halves = (__m128i)(x << 4);
        const auto byte = [](int half) { return static_cast<std::uint32_t>(half) & 0xFF; };
        return {byte(_mm_extract_epi16(halves, 1)), byte(_mm_extract_epi16(halves, 3)),
                byte(_mm_extract_epi16(halves, 5)), byte(_mm_extract_epi16(halves, 7))};
    }
}

// ln y of two positive normal binary64 numbers, to about 40 bits: y = 2^n m, ln m a cubic in each 256th of
// [1, 2).
ZELK_INLINE double2 table_logarithm(double2 y, double2 n, std::uint32_t interval0, std::uint32_t interval1)
{
    const auto& c = tables::log_d2;
    const auto row = [&](std::uint32_t interval) {
        return reinterpret_cast<const double*>(&tables::__zelk_sp_inv_hyp_T[interval]);
    };
    const double* const row0 = row(interval0);
    const double* const row1 = row(interval1);
    const double2 a3 = {row0[0], row1[0]};
    const double2 a1 = {row0[1], row1[1]};
    const double2 a2 = {row0[2], row1[2]};
    const double2 a0 = {row0[3], row1[3]};
    const double2 m = as_double2((as_long2(y) & c.iExpMask) | as_long2(c.dbOne));
    return n * tables::inverse_hyperbolicf4.s_dbLn2 + (a3 * m + a2) * (m * m) + (a1 * m + a0);
}

// ln y of every lane, y found in binary64 by the routine, two lanes at a time. Lanes in which x has no
// business there hold a harmless value instead.
template <class Routine>
ZELK_INLINE float4 logarithm_by_lane(int4 x, Routine routine)
{
    const double2 y_low = routine(widen_low(as_float4(x)));
    const double2 y_high = routine(widen_high(as_float4(x)));
    const int4 high = odd_words(as_int4(y_low), as_int4(y_high));
    const int4 exponent = as_int4(as_uint4(high) >> 20) - tables::log_d2.iBias;
    const auto [i0, i1, i2, i3] = bits_12_to_19(high).of_lane;
    return narrow(table_logarithm(y_low, to_double2(exponent), i0, i1),
                  table_logarithm(y_high, to_double2(high_lanes(exponent)), i2, i3));
}

} // namespace zelk::ZELK_TIER
