// sin x and cos x on two binary64 lanes, in registers (sincos2), or with the cosine also stored
// (ropdSinCos2). Method: r = x - k pi/2, k = round(2/pi x); sin x and cos x are, by k mod 4, the polynomials
// of degree 13 and 14 for sin r and cos r. |x| < 128000.0625: pi/2 in four parts. Beyond, with the sign of x
// put back, the lanes that need it (tier A: both) through the scalar reduction; in the tiers above A both
// lanes between that bound and 2^30 are reduced together.
#include "tables/sincos2.h"
#include "dispatch/kernels.h"
#include "trig/trig_reduction.h"

namespace zelk::ZELK_TIER {

using tables::Sincos2;

// z is r^2, on the fast path formed before the last part of pi/2 is subtracted. The sine's sign is flipped by
// `sign`, the sign of x in lanes that are reduced from |x|.
struct PairReduced2 {
    double2 r;
    double2 z;
    long2 quadrant;
    long2 sign;
};

struct SineCosine2 {
    double2 sine;
    double2 cosine;
};

// High words only: 128000 and what shares its high word stay on the fast path.
ZELK_INLINE int4 beyond_fast_path(double2 x, const Sincos2& k)
{
    return as_int4(as_long2(x) & k.MMIABSMASK) > k.MMDHUGE;
}

ZELK_INLINE PairReduced2 reduce_fast(double2 x, const Sincos2& k)
{
    const double2 u = x * k.MMDINVPI2 + k.MMDRSHIFT; // the low bits hold k
    const double2 kf = u - k.MMDRSHIFT;
    // |kf| < 2^17: the products with the first three parts are exact.
    const double2 r3 = ((x - kf * k.MMDPI1) - kf * k.MMDPI2) - kf * k.MMDPI3;
    return {r3 - kf * k.MMDPI4, r3 * r3, as_long2(u), long2{}};
}

// quadrant 0: sin x = sin r, cos x = cos r; 1: cos r, -sin r; 2: -sin r, -cos r; 3: -cos r, sin r.
ZELK_INLINE SineCosine2 evaluate(const PairReduced2& reduced, const Sincos2& k)
{
    const double2 r = reduced.r;
    const double2 z = reduced.z;
    const double2 PS =
        ((((((k.MMDA6 * z + k.MMDA5) * z + k.MMDA4) * z + k.MMDA3) * z + k.MMDA2) * z + k.MMDA1) * z) * r + r;
    const double2 PC =
        ((((((k.MMDB7 * z + k.MMDB6) * z + k.MMDB5) * z + k.MMDB4) * z + k.MMDB3) * z + k.MMDB2) * z +
         k.MMDB1) *
            z +
        k.MMDB0;

    const long2 parity = reduced.quadrant & k.MMIPARMASK;
    const long2 odd = -parity;
    const long2 sine_sign = ((reduced.quadrant & k.MMITWOMASK) << 62) ^ reduced.sign;
    const long2 cosine_sign = ((reduced.quadrant + parity) & k.MMITWOMASK) << 62;
    return {as_double2(as_long2(select(odd, PC, PS)) ^ sine_sign),
            as_double2(as_long2(select(odd, PS, PC)) ^ cosine_sign)};
}

// Lanes of `beyond` lie beyond the fast path's bound, or are infinite or NaN.
ZELK_INLINE SineCosine2 lanes_through_reduction(double2 x, int4 beyond, const Sincos2& k)
{
    const double2 magnitude = as_double2(as_long2(x) & k.MMIABSMASK);
    const unsigned lanes = lane_mask(as_long2(beyond));
    const long2 sign = as_long2(x) & k.MMISIGNMASK;
    if constexpr (tier == Tier::A) {
        const QuadrantReduced2 reduced = reduce_every_lane(magnitude);
        return evaluate({reduced.r, reduced.r * reduced.r, reduced.quadrant, sign}, k);
    }
    const unsigned below_2_30 = lane_mask(as_long2(as_int4(magnitude) < k.TWO_POW_30));
    if ((lanes & below_2_30) == all_lanes2) {
        const QuadrantReduced2 reduced = reduce_medium(magnitude);
        return evaluate({reduced.r, reduced.r * reduced.r, reduced.quadrant, sign}, k);
    }
    // Lanes that the fast path cannot take pass through it as zeros: they must not raise anything there.
    const long2 replaced = as_long2(high_words(beyond));
    const PairReduced2 ordinary = reduce_fast(as_double2(as_long2(x) & ~replaced), k);
    const QuadrantReduced2 reduced = reduce_lanes(magnitude, lanes, {ordinary.r, ordinary.quadrant});
    return evaluate(
        {reduced.r, select(replaced, reduced.r * reduced.r, ordinary.z), reduced.quadrant, sign & replaced},
        k);
}

[[gnu::noinline, gnu::cold]] static double2 spec_sincos2(double2 x, int4 beyond)
{
    const SineCosine2 result = lanes_through_reduction(x, beyond, tables::sincos2);
    return both(result.sine, result.cosine);
}

[[gnu::noinline, gnu::cold]] static double2 spec_ropdSinCos2(double2 x, int4 beyond, double2* cosine)
{
    const SineCosine2 result = lanes_through_reduction(x, beyond, tables::sincos2);
    *cosine = result.cosine;
    return both(result.sine, result.cosine);
}

double2 sincos2(double2 x)
{
    const auto& k = tables::sincos2;
    const int4 beyond = beyond_fast_path(x, k);
    if (lane_mask(as_long2(beyond)) != 0) [[unlikely]]
        return spec_sincos2(x, beyond); // leaves both results in their registers
    const SineCosine2 result = evaluate(reduce_fast(x, k), k);
    return both(result.sine, result.cosine);
}

double2 ropdSinCos2(double2 x, double2* cosine)
{
    const auto& k = tables::sincos2;
    const int4 beyond = beyond_fast_path(x, k);
    if (lane_mask(as_long2(beyond)) != 0) [[unlikely]]
        return spec_ropdSinCos2(x, beyond, cosine);
    const SineCosine2 result = evaluate(reduce_fast(x, k), k);
    *cosine = result.cosine;
    return both(result.sine, result.cosine);
}

} // namespace zelk::ZELK_TIER
