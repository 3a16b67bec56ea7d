// tan x on four binary32 lanes.
// Method: r = x - k pi/2, tan r by a rational function P/Q on |r| <= pi/4; P/Q for even k, -Q/P for odd k.
// |x| <= 10000 is reduced in binary32. Tier A reduces larger arguments lane by lane; the other tiers up to
// 2^30 in binary64, and beyond, with infinities and NaNs, take a scalar routine with a table of Taylor
// series.
#include "tables/tanf4.h"
#include "dispatch/kernels.h"
#include "trig/reduce_huge.h"
#include "trig/times_128_over_pi.h"

namespace zelk::ZELK_TIER {

using tables::Tanf4;

// z = r^2, to within the rounding of the reduction's last part; the sign to put on the quotient; bit 0 of k.
struct TanReducedf4 {
    float4 r;
    float4 z;
    int4 sign;
    int4 k;
};

ZELK_INLINE float4 subtract_multiple_of_half_pi(float4 x, float4 kf, const Tanf4& c)
{
    // |k| < 2^13 and at most 11 significant bits: the products are exact.
    return ((x - kf * c.MMSPI1) - kf * c.MMSPI2) - kf * c.MMSPI3;
}

// The fast path's reduction: of |x| in tier A, of x itself in the others.
ZELK_INLINE TanReducedf4 reduce_fast(float4 x, const Tanf4& c)
{
    if constexpr (tier == Tier::A) {
        const float4 magnitude = as_float4(as_int4(x) & c.MMIABSMASK);
        const float4 shifted = magnitude * c.MMSINVPI + c.MMSRSHIFT_A;
        const float4 kf = shifted - c.MMSRSHIFT_A;
        const float4 r = subtract_multiple_of_half_pi(magnitude, kf, c) - kf * c.MMSPI4;
        return {r, r * r, as_int4(x) & c.MMISIGNMASK, as_int4(shifted)};
    } else {
        const float4 shifted = x * c.MMSINVPI + c.MMSRSHIFT_L;
        const float4 kf = shifted - c.MMSRSHIFT_L;
        const float4 r3 = subtract_multiple_of_half_pi(x, kf, c);
        return {r3 - kf * c.MMSPI4, r3 * r3, int4{}, as_int4(shifted)};
    }
}

// Odd k takes the reciprocal and turns the sign.
ZELK_INLINE float4 tangent_quotient(const TanReducedf4& reduced, const Tanf4& c)
{
    const float4 z = reduced.z;
    const float4 P = reduced.r * (c.MMSP0 + c.MMSP1 * z);
    const float4 Q = c.MMSQ0 + z * (c.MMSQ1 + c.MMSQ2 * z);
    const int4 odd = (reduced.k << 31) >> 31;
    const float4 quotient = select(odd, Q, P) / select(odd, P, Q);
    return as_float4(as_int4(quotient) ^ reduced.sign ^ (reduced.k << 31));
}

// Every lane reduced from |x|.
ZELK_INLINE float4 tangent_of_quadrant(float4 x, const QuadrantReducedf4& reduced, const Tanf4& c)
{
    return tangent_quotient({reduced.r, reduced.r * reduced.r, as_int4(x) & c.MMISIGNMASK, reduced.quadrant},
                            c);
}

[[maybe_unused, gnu::noinline]] static float __static_scalar_tanf(float x)
{
    if ((__builtin_bit_cast(std::uint32_t, x) & 0x7F800000) == 0x7F800000) return x - x;

    // v = x modulo 4 pi.
    const GridProduct product = times_128_over_pi(x, tables::inverse_pi_chunks_512);
    const double multiples_of_512 = (product.s + 0x1.8p61) - 0x1.8p61;
    const double v = (product.rest + (product.s - multiples_of_512)) * 0x1.921fb54442d18p-6; // pi/128

    // The nearest multiples of pi/32 and of pi/2, and the distances from them; pi/32 in two parts each.
    const float t = static_cast<float>(v) * 0x1.45f306p3f; // 32/pi
    const float shifted = t + 0x1.8p23f;
    const double n1 = static_cast<double>(shifted - 0x1.8p23f);
    const double n16 = static_cast<double>((t + 0x1.8p27f) - 0x1.8p27f);
    const double u = (v + n1 * -0x1.921fb54480000p-4) + n1 * 0x1.e973dcb3b399dp-39;
    const double w = (v + n16 * -0x1.921fb54440000p-4) + n16 * -0x1.68c234c4c6629p-43;

    const double* const c = tables::tanf4_intervals[__builtin_bit_cast(std::uint32_t, shifted) & 31];
    const double pole = (1.0 / w) * c[8];
    const double u2 = u * u;
    const double high = (c[7] * u + c[6]) * u2 + (c[5] * u + c[4]);
    const double low = (c[3] * u + c[2]) * u2 + (c[1] * u + c[0]);
    return static_cast<float>(high * (u2 * u2) + low - pole);
}

// Lanes of `beyond` have |x| > 10000, or are infinite or NaN.
[[gnu::noinline, gnu::cold]] static float4 spec_stan4(float4 x, int4 beyond)
{
    const auto& c = tables::tanf4;
    const float4 magnitude = as_float4(as_int4(x) & c.MMIABSMASK);
    if constexpr (tier == Tier::A) {
        return tangent_of_quadrant(x, reduce_every_lane(magnitude), c);
    } else {
        // Lanes that the fast path cannot take pass through it as zeros: they must not raise anything there.
        const TanReducedf4 ordinary = reduce_fast(as_float4(as_int4(x) & ~beyond), c);
        const int4 huge = as_int4(magnitude) > c.flTwoPow30;
        if (lane_mask(huge) == 0) {
            const QuadrantReducedf4 medium = reduce_medium(magnitude);
            const float4 r = select(beyond, medium.r, ordinary.r);
            const int4 sign = as_int4(x) & c.MMISIGNMASK & beyond;
            return tangent_quotient({r, r * r, sign, select(beyond, medium.quadrant, ordinary.k)}, c);
        }
        return replace_lanes(tangent_quotient(ordinary, c), x, lane_mask(beyond), __static_scalar_tanf);
    }
}

float4 tanf4(float4 x)
{
    const auto& c = tables::tanf4;
    const int4 beyond = (as_int4(x) & c.MMIABSMASK) > c.MMIHUGE;
    if (lane_mask(beyond) != 0) [[unlikely]]
        return spec_stan4(x, beyond);
    return tangent_quotient(reduce_fast(x, c), c);
}

} // namespace zelk::ZELK_TIER
