// Cube root on four binary32 lanes: |x| = m 2^(3t + r), m in [1, 2), cbrt x = +-m^(1/3) 2^(r/3) 2^t.
// Method: m^(1/3) by a quadratic per 1/64 of [1, 2) in tier A; in the others T (1 + u)^(1/3) with the
// residual u = m r - 1 of a 12-bit table reciprocal r, and T = (1/r)^(1/3) from the same table.
#include "roots_erf/cbrtf4.h"
#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

using tables::Cbrtf4;

// Tier A: cbrt of a positive normal number.
ZELK_INLINE float4 cube_root_by_quadratic(int4 magnitude, const Cbrtf4& k)
{
    const int4 third = third_of_exponent_A(magnitude & k.exponent_mask, k);
    const int4 remainder = remainder_of_third(third, k);
    const int4 factor_bits = {static_cast<std::int32_t>(tables::s_fCbrtTable[remainder[0]]),
                              static_cast<std::int32_t>(tables::s_fCbrtTable[remainder[1]]),
                              static_cast<std::int32_t>(tables::s_fCbrtTable[remainder[2]]),
                              static_cast<std::int32_t>(tables::s_fCbrtTable[remainder[3]])};

    const float4 m = significand(magnitude, k);
    const int4 index = (magnitude & k.mantissa_mask) >> 17;
    float4 c0 = tables::s_fAi[index[0]];
    float4 c1 = tables::s_fAi[index[1]];
    float4 c2 = tables::s_fAi[index[2]];
    float4 unused = tables::s_fAi[index[3]];
    transpose(c0, c1, c2, unused);
    const float4 P = (c2 * m + c1) * m + c0;
    return power_of_third(third, k) * P * as_float4(factor_bits);
}

// The other tiers: the same with the sign of x, which goes in early: directed modes round the signed root.
ZELK_INLINE float4 cube_root_by_reciprocal(int4 magnitude, int4 sign, const Cbrtf4& k)
{
    const int4 third = multiply_high_16(magnitude & k.exponent_mask, k.s_dwDiv3Mul_L);
    const int4 remainder = third & k.s_dwRemDiv3Mask;
    const float4 factor =
        select(remainder == 0, k.s_dwCbrt4, select(remainder == k.remainder_two, k.s_dwCbrt2, k.one));
    const float4 S = as_float4(as_int4(power_of_third(third, k) * factor) | sign);

    const float4 m = significand(magnitude, k);
    const float4 m_high = as_float4(as_int4(m) & k.s_dwRcpMask);
    const int4 index = (magnitude & k.mantissa_mask) >> 15;
    const auto [r, T] = gather_rows(tables::s_dwT, index);

    // u = m r - 1: m_high has 9 and r has 12 significant bits, so that the second term is exact.
    const float4 u = (m - m_high) * r + (m_high * r - k.one);
    const float4 ST = S * T;
    return ST + ST * (u * (k.s_dwC1 + u * k.s_dwC2));
}

ZELK_INLINE float4 cube_root(int4 magnitude, int4 sign, const Cbrtf4& k)
{
    if constexpr (tier == Tier::A)
        return as_float4(as_int4(cube_root_by_quadratic(magnitude, k)) | sign);
    else
        return cube_root_by_reciprocal(magnitude, sign, k);
}

// Subnormals are scaled to normal numbers and their roots back; the magnitude of a zero, an infinity or a NaN
// multiplies a finite root. The sign comes from the root, but for NaNs.
[[gnu::noinline, gnu::cold]] static float4 cbrtf4_irregular(float4 x)
{
    const auto& k = tables::cbrtf4;
    const int4 magnitude = as_int4(x) & k.abs_mask;
    const int4 sign = as_int4(x) & k.sign_mask;
    const int4 subnormal = (magnitude < k.smallest_normal) & ~(magnitude == 0);
    const int4 keeps_its_value = (magnitude == 0) | (magnitude > k.largest);
    int4 scaled;
    float4 unscale;
    if constexpr (tier == Tier::A) {
        scaled = as_int4(as_float4(magnitude & subnormal) * k.s_fDenoScale);
        unscale = k.s_fDenoUnscale;
    } else {
        // 1 + f 2^-23 less 1: exact, and 2^126 times the subnormal f 2^-149.
        scaled = as_int4(as_float4((magnitude & subnormal) | as_int4(k.one)) - k.one);
        unscale = k.deno_unscale_L;
    }
    const float4 multiplier =
        select(keeps_its_value, as_float4(magnitude), select(subnormal, unscale, k.one));
    const int4 regular = select(subnormal, scaled, select(keeps_its_value, as_int4(k.one), magnitude));
    return as_float4(as_int4(cube_root(regular, sign, k) * multiplier) | sign);
}

float4 cbrtf4(float4 x)
{
    const auto& k = tables::cbrtf4;
    const int4 magnitude = as_int4(x) & k.abs_mask;
    if (lane_mask(not_normal(magnitude, k)) != 0) [[unlikely]]
        return cbrtf4_irregular(x);
    return cube_root(magnitude, as_int4(x) & k.sign_mask, k);
}

} // namespace zelk::ZELK_TIER
