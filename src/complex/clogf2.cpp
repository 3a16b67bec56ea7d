// ln z = ln |z| + i arg z on two complex numbers with binary32 parts, z = x + iy.
// Method: ln |z|^2 in binary64, near |z| = 1 by a polynomial in |z|^2 - 1, else by table; the angle in
// binary32 by a polynomial in the smaller part over the larger. Zero real parts have their angle from a table
// of the axes; numbers with an infinite part or a NaN go through clogf_scalar, and so does everything in tier
// A.
#include "complex/clogf.h"
#include "complex/lane_loop.h"
#include "complex/lane_parts.h"
#include "invtrig/ropsAtan24Sc.h"

namespace zelk::ZELK_TIER {

using tables::Clogf2;

ZELK_INLINE float4 log_modulus(float4 x, float4 y, const Clogf2& k)
{
    const SquaredModulusd2 modulus = squared_modulus(widen_low(x), widen_low(y), k);
    const double2 d = modulus.d;
    const double2 near_one = d * (k.dbL0 + d * (k.dbL1 + d * (k.dbL2 + d * k.dbL3)));
    const double2 L = select(modulus.near_one, near_one, log_by_table(modulus.s, k));
    return _mm_cvtpd_ps(k.dbHalf * L);
}

// The first octant's angle, mirrored to the others.
ZELK_INLINE float4 argument(float4 x, float4 y, const Clogf2& k)
{
    const int4 ax = as_int4(x) & k.iAbsMask;
    const int4 ay = as_int4(y) & k.iAbsMask;
    const float4 a = _mm_min_ps(as_float4(ax), as_float4(ay)) / _mm_max_ps(as_float4(ax), as_float4(ay));
    const float4 t = a * a;
    const float4 q = k.s_fA3 + t * (k.s_fA4 + t * (k.s_fA5 + t * (k.s_fA6 + t * (k.s_fA7 + t * k.s_fA8))));
    const float4 P = a * (k.s_fA0 + t * (k.s_fA1 + t * (k.s_fA2 + t * q)));
    const float4 first_quadrant = select(ay > ax, k.s_fPi2 - P, P);
    const float4 half_plane = select(as_int4(x) >> 31, k.s_fPi - first_quadrant, first_quadrant);
    return as_float4(as_int4(half_plane) | (as_int4(y) & k.s_dwSignMask));
}

// Finite parts, not both zero.
ZELK_INLINE float4 clog_ordinary(float4 z, const Clogf2& k)
{
    const float4 x = real_parts(z);
    const float4 y = imag_parts(z);
    return interleave(log_modulus(x, y, k), argument(x, y, k));
}

[[gnu::noinline, gnu::cold]] static float4 clog_special(float4 z, int4 not_finite)
{
    const auto& k = tables::clogf2;
    const int4 zero = (as_int4(z) & k.iAbsMask) == 0;
    const int4 special = either_part(not_finite);
    const int4 both_zero = ~either_part(~zero);
    float4 result = clog_ordinary(select(special | both_zero, k.s_fOne, z), k);
    for (int number = 0; number < 2; ++number) {
        const int re = 2 * number;
        const int im = 2 * number + 1;
        if (special[re])
            result = with_complex_lane(result, number, dispatched::clogf_scalar(complex_lane(z, number)));
        else if (zero[re])
            result[im] = __builtin_bit_cast(float, ropsAtan24Sc(as_int4(z)[im], as_int4(z)[re]));
        if (both_zero[re]) result[re] = -__builtin_inff();
    }
    return result;
}

float4 clogf2(float4 z)
{
    if constexpr (tier == Tier::A) return lane_loop(z, dispatched::clogf_scalar);

    const auto& k = tables::clogf2;
    const int4 magnitude = as_int4(z) & k.iAbsMask;
    const int4 not_finite = magnitude > k.iInfM1;
    const int4 zero_re = (magnitude == 0) & k.real_positions;
    if (lane_mask(not_finite | zero_re) != 0) [[unlikely]]
        return clog_special(z, not_finite);
    return clog_ordinary(z, k);
}

} // namespace zelk::ZELK_TIER
