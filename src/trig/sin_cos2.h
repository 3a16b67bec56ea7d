// What sin2 and cos2 share: the polynomial, the reduction below 2^30 and the scalar routine.
#pragma once

#include "lanes/lanes.h"
#include "tables/sin_cos2.h"
#include "trig/payne_hanek.h"
#include "trig/subtract_multiple.h"

namespace zelk::ZELK_TIER {

// sin r, |r| <= pi/2, in two interleaved chains of powers of r^4. q is r^2, on the fast path formed before
// the last part of pi is subtracted from r.
ZELK_INLINE double2 sine_polynomial(double2 r, double2 q, const tables::SinCos2& k)
{
    const double2 q2 = q * q;
    const double2 E = (((k.MMDA8 * q2 + k.MMDA6) * q2 + k.MMDA4) * q2 + k.MMDA2) * q2 * r;
    const double2 O = (((k.MMDA7 * q2 + k.MMDA5) * q2 + k.MMDA3) * q2 + k.MMDA1) * (q * r) + r;
    return E + O;
}

// 2^30 <= |x|, infinite or NaN.
ZELK_INLINE unsigned big_lanes(double2 x, const tables::SinCos2& k)
{
    const int4 magnitude = as_int4(as_long2(x) & k.MMIABSMASK);
    return ~lane_mask(as_long2(magnitude < k.TWO_POW_30)) & all_lanes2;
}

// Bit 1 of m, one of the two low 32-bit lanes, as the sign of a binary64 lane.
ZELK_INLINE long2 sign_from_bit_1(int4 m, const tables::SinCos2& k)
{
    return (zero_extend_low(m) << 62) & k.MMISIGNMASK;
}

// a_j = j pi/32 and |u| <= pi/64 and a little: sin(a_j + u - d) to first order in d. t is u without the
// second part of the subtraction.
static inline double sine_near_angle(const tables::SpecTable::Angle& angle, double t, double u, double d)
{
    const auto& k = tables::__spec_table;
    const double cos_rem = __builtin_bit_cast(double, angle.cos_rem);
    const double sin_hi = __builtin_bit_cast(double, angle.sin_hi);
    const double sin_lo = __builtin_bit_cast(double, angle.sin_lo);
    const double cos_hi = __builtin_bit_cast(double, angle.cos_hi);
    const double cj = cos_hi + cos_rem;
    const double u2 = u * u;
    const double u4 = u2 * u2;
    const double Ps = (k.S1 + k.S2 * u2) + (k.S3 + k.S4 * t * u) * u4;
    const double Pc = (k.C1 + k.C2 * u2) + (k.C3 + k.C4 * t * u) * u4;

    // The first term of each sum is 0 or the larger one: the errors are exact.
    const double first = cos_hi * u; // exact
    const double second = cos_rem * u;
    const double H1 = sin_hi + first;
    const double e1 = (sin_hi - H1) + first;
    const double H = H1 + second;
    const double e2 = (H1 - H) + second;
    const double low = ((((d * (sin_hi * u - cj) + sin_lo) + e1) + e2) + cj * u * u2 * Ps) + sin_hi * u2 * Pc;
    return H + low;
}

// sin(x + eighth_turns pi/4), |x| >= 2^-9.
static inline double __static_scalar_sine(double x, std::uint32_t eighth_turns)
{
    constexpr double pi04_hi = 0x1.921fb4p-1; // 23 significant bits: the product with the head is exact
    constexpr double pi04_lo = 0x1.4442d18469899p-25;
    const auto& k = tables::__spec_table;

    const PartOfTurn octant = reduce_exactly(x, 3);
    const double y0 = octant.head * pi04_hi;
    const double ylo = pi04_lo * (octant.head + octant.tail) + octant.tail * pi04_hi;
    const double y = y0 + ylo;
    const double yl = ylo + (y0 - y);

    const double w = y * k.inv_pi32 + k.shifter;
    const double N = w - k.shifter;
    const auto j = (static_cast<std::uint32_t>(__builtin_bit_cast(std::uint64_t, w)) +
                    8 * (octant.part + eighth_turns)) %
                   64;
    const double t = y - N * k.pi32_hi;
    const double u = t - N * k.pi32_mid;
    const double d = (N * k.pi32_lo - ((t - u) - N * k.pi32_mid)) - yl;
    return sine_near_angle(k.angle[j], t, u, d);
}

} // namespace zelk::ZELK_TIER
