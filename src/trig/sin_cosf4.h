// What sinf4 and cosf4 share: the polynomial, the binary64 reduction and the scalar large-argument routines.
#pragma once

#include "lanes/lanes.h"
#include "tables/sin_cosf4.h"
#include "trig/grid_pairs.h"
#include "trig/subtract_multiple.h"

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

// a_j f (C1 - f^2) + b_j (C2 - f^2) of two numbers, j the grid point, with the signs of a quadrant's sine or
// cosine.
enum class Signs { sine, cosine };

ZELK_INLINE double2 evaluate_on_grid(const Half& half, Signs signs, const tables::SpecTablef& table)
{
    const auto& k = tables::spec_constantsf;
    const GridPoint2 point = reduce_to_grid(half.X, half.chunk, table.reduction);
    const auto [entry, bit_6, bit_7] = mirror(point.n);
    const auto [a, b] = load_rows(table.grid, entry);
    const long2 differ = bit_6 ^ bit_7;
    const long2 sign_a = signs == Signs::sine ? differ : bit_7;
    const long2 sign_b = signs == Signs::sine ? bit_7 : differ;
    const double2 f2 = point.f * point.f;
    const double2 u = as_double2(as_long2(splat(k.C1) - f2) ^ sign_a);
    const double2 vb = as_double2(as_long2((splat(k.C2) - f2) * as_double2(b)) ^ sign_b);
    return vb + (as_double2(a) * point.f) * u;
}

// Lanes of `lanes` from the grid; infinities and NaNs among them become NaNs. The others are those of the
// result.
ZELK_INLINE float4 lanes_on_grid(float4 result, float4 x, int4 lanes, Signs signs,
                                 const tables::SpecTablef& table)
{
    const int4 no_number = no_numbers(x);
    result = select(no_number, quiet_nans(x, no_number), result);
    const int4 numbers = lanes & ~no_number;
    if (lane_mask(numbers) == 0) return result;

    const float4 number = as_float4(as_int4(x) & numbers);
    const int4 chunk = chunk_rows(number);
    const float4 on_grid = narrow(evaluate_on_grid(low_half(number, chunk), signs, table),
                                  evaluate_on_grid(high_half(number, chunk), signs, table));
    return select(numbers, on_grid, result);
}

} // namespace zelk::ZELK_TIER
