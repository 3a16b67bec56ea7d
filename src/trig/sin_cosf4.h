// What sinf4 and cosf4 share: the polynomial, the binary64 reduction and the scalar large-argument routines.
#pragma once

#include "lanes/lanes.h"
#include "tables/sin_cosf4.h"
#include "trig/subtract_multiple.h"
#include "trig/times_128_over_pi.h"

namespace zelk::ZELK_TIER {

// sin x = (-1)^n sin r: the sign bit of (-1)^n is in `sign`, and z = r^2.
struct Reducedf4 {
    float4 r;
    float4 z;
    int4 sign;
};

ZELK_INLINE float4 magnitude(float4 x, const tables::SinCosf4& k)
{
    return as_float4(as_int4(x) & k.MMIABSMASK);
}

ZELK_INLINE int4 beyond_bound(float4 magnitude, const tables::SinCosf4& k)
{
    return as_int4(magnitude) > k.MMIHUGE;
}

// r = y - nf pi. |nf| < 2^12 and the first three parts of pi have at most 12 significant bits, so that their
// products are exact; the square leaves the last part out.
ZELK_INLINE Reducedf4 subtract_multiple_of_pi(float4 y, float4 nf, int4 n, const tables::SinCosf4& k)
{
    const float4 r3 = ((y - nf * k.MMSPI1) - nf * k.MMSPI2) - nf * k.MMSPI3;
    return {r3 - nf * k.MMSPI4, r3 * r3, n << 31};
}

// (-1)^n (r + r p(r^2)), |r| <= pi/2.
ZELK_INLINE float4 sine_polynomial(const Reducedf4& reduced, const tables::SinCosf4& k)
{
    const float4 z = reduced.z;
    const float4 p = (((z * k.MMSA9 + k.MMSA7) * z + k.MMSA5) * z + k.MMSA3) * z;
    return as_float4(as_int4(p * reduced.r + reduced.r) ^ reduced.sign);
}

ZELK_INLINE int4 trunc_quotient_by_half_pi(double2 low, double2 high, const tables::SinCosf4& k)
{
    return join_low(trunc_to_int(low * k.dbInvPio2), trunc_to_int(high * k.dbInvPio2));
}

// r = |x| - quadrant pi/2 for 0 <= quadrant < 2^31 and |x| <= 2^30, rounded to binary32 once.
ZELK_INLINE Reducedf4 reduce_in_binary64(double2 low, double2 high, int4 quadrant, int4 sign,
                                         const tables::SinCosf4& k)
{
    const double2 kd_low = as_double2(zero_extend_low(quadrant) | as_long2(k.dbRS)) - k.dbRS;
    const double2 kd_high = as_double2(zero_extend_high(quadrant) | as_long2(k.dbRS)) - k.dbRS;
    const float4 r =
        narrow(subtract_multiple(low, kd_low, k.PI02C), subtract_multiple(high, kd_high, k.PI02C));
    return {r, r * r, sign};
}

ZELK_INLINE Reducedf4 select(int4 mask, const Reducedf4& a, const Reducedf4& b)
{
    return {select(mask, a.r, b.r), select(mask, a.z, b.z), select(mask, a.sign, b.sign)};
}

// Entry of the first quadrant's grid that angle n pi/128 mirrors to.
static inline const tables::SpecTablef::Grid& grid_entry(std::uint32_t n, const tables::SpecTablef& table)
{
    const std::uint32_t m = n & 63;
    return table.grid[n & 64 ? 64 - m : m];
}

// a_j f (C1 - f^2) + b_j (C2 - f^2), rounded to binary32 once.
static inline float evaluate_on_grid(const tables::SpecTablef::Grid& grid, double f, bool negate_a,
                                     bool negate_b)
{
    const auto& k = tables::spec_constantsf;
    const double u = k.C1 - f * f;
    const double v = k.C2 - f * f;
    const double vb = v * __builtin_bit_cast(double, grid.b);
    const double af = __builtin_bit_cast(double, grid.a) * f;
    return static_cast<float>((negate_b ? -vb : vb) + af * (negate_a ? -u : u));
}

} // namespace zelk::ZELK_TIER
