// tan x on two binary64 lanes.
// Method: r = x - k pi/2, tan r by a rational function P/Q on |r| <= pi/4; P/Q for even k, -Q/P for odd k.
// |x| < 128000 is reduced with pi/2 in four parts. Tier A reduces larger arguments lane by lane; the other
// tiers below 2^30 in vectors, and beyond, with infinities and NaNs, take a scalar routine.
#include "tables/tan2.h"
#include "dispatch/kernels.h"
#include "trig/scalar_tan.h"
#include "trig/trig_reduction.h"

namespace zelk::ZELK_TIER {

using tables::Tan2;

struct TanReduced2 {
    double2 r;
    double2 z;
    long2 sign;
    long2 k;
};

ZELK_INLINE double2 subtract_multiple_of_half_pi(double2 x, double2 kf, const Tan2& c)
{
    return ((x - kf * c.MMDPI1) - kf * c.MMDPI2) - kf * c.MMDPI3;
}

// The fast path's reduction: of |x| in tier A, of x itself in the others.
ZELK_INLINE TanReduced2 reduce_fast(double2 x, const Tan2& c)
{
    if constexpr (tier == Tier::A) {
        const double2 magnitude = as_double2(as_long2(x) & c.MMIABSMASK);
        const double2 shifted = magnitude * c.MMDINVPI2 + c.MMDRSHIFT_A;
        const double2 kf = shifted - c.MMDRSHIFT_A;
        const double2 r = subtract_multiple_of_half_pi(magnitude, kf, c) - kf * c.MMDPI4;
        return {r, r * r, as_long2(x) & c.MMISIGNMASK, as_long2(shifted)};
    } else {
        const double2 shifted = x * c.MMDINVPI2 + c.MMDRSHIFT_L;
        const double2 kf = shifted - c.MMDRSHIFT_L;
        const double2 r3 = subtract_multiple_of_half_pi(x, kf, c);
        return {r3 - kf * c.MMDPI4, r3 * r3, long2{}, as_long2(shifted)};
    }
}

// Odd k takes the reciprocal and turns the sign.
ZELK_INLINE double2 tangent_quotient(const TanReduced2& reduced, const Tan2& c)
{
    const double2 z = reduced.z;
    const double2 P = reduced.r * (c.MMDP0 + z * (c.MMDP1 + z * (c.MMDP2 + z * c.MMDP3)));
    const double2 Q = c.MMDQ0 + z * (c.MMDQ1 + z * (c.MMDQ2 + z * c.MMDQ3));
    const long2 odd_bit = reduced.k << 63;
    const long2 odd = as_long2(high_words(as_int4(odd_bit) >> 31));
    const double2 quotient = select(odd, Q, P) / select(odd, P, Q);
    return as_double2(as_long2(quotient) ^ reduced.sign ^ odd_bit);
}

// Lanes of `beyond` have a high word above that of 128000: they are larger, infinite or NaN.
[[gnu::noinline, gnu::cold]] static double2 spec_dtan2(double2 x, long2 beyond)
{
    const auto& c = tables::tan2;
    const double2 magnitude = as_double2(as_long2(x) & c.MMIABSMASK);
    const long2 sign = as_long2(x) & c.MMISIGNMASK;
    if constexpr (tier == Tier::A) {
        const QuadrantReduced2 reduced = reduce_every_lane(magnitude);
        return tangent_quotient({reduced.r, reduced.r * reduced.r, sign, reduced.quadrant}, c);
    } else {
        // Lanes that the fast path cannot take pass through it as zeros: they must not raise anything there.
        const TanReduced2 ordinary = reduce_fast(as_double2(as_long2(x) & ~beyond), c);
        const int4 below_2_30 = high_words(as_int4(magnitude)) < c.TWO_POW_30;
        if (lane_mask(as_double2(below_2_30)) == all_lanes2) {
            const QuadrantReduced2 medium = reduce_medium(magnitude);
            const double2 r = select(beyond, medium.r, ordinary.r);
            return tangent_quotient({r, r * r, sign & beyond, select(beyond, medium.quadrant, ordinary.k)},
                                    c);
        }
        return replace_lanes(tangent_quotient(ordinary, c), x, lane_mask(as_double2(beyond)),
                             __static_scalar_tan);
    }
}

double2 tan2(double2 x)
{
    const auto& c = tables::tan2;
    const long2 magnitude = as_long2(x) & c.MMIABSMASK;
    const long2 beyond = as_long2(high_words(as_int4(magnitude)) > c.MMDHUGE);
    if (lane_mask(as_double2(beyond)) != 0) [[unlikely]]
        return spec_dtan2(x, beyond);
    return tangent_quotient(reduce_fast(x, c), c);
}

} // namespace zelk::ZELK_TIER
