// tanh x on two binary64 lanes.
// Method: sinh |x| / cosh |x|, both as in sinh2 and cosh2: |x| = n ln 2/64 + r, a table of 2^(j/64) in two
// parts, e^r = cosh r + sinh r of degree 5; one division. From 708.4 on tanh x = +-1.
#include "dispatch/kernels.h"
#include "hyperbolic/hyperbolic2.h"

namespace zelk::ZELK_TIER {

ZELK_INLINE double2 tanh_of(const HalfExponentials& e)
{
    return sinh_of(e) / cosh_of(e);
}

// x is a NaN in lanes of `nan`: they become NaNs, and signalling ones raise invalid.
ZELK_INLINE double2 with_sign_and_nans(double2 tanh_a, double2 x, double2 a, long2 nan,
                                       const tables::Hyperbolic2& k)
{
    const double2 nans = as_double2(as_long2(a) & nan);
    opaque(nans + nans);
    return as_double2(as_long2(select(k.s_dwSignMask, x, tanh_a)) | nan);
}

// Saturated lanes pass through the arithmetic as zeros: they must not raise anything there.
ZELK_INLINE double2 tanh_but_saturated(double2 a, long2 saturated, const tables::Hyperbolic2& k)
{
    const double2 quotient = tanh_of(half_exponentials(as_double2(as_long2(a) & ~saturated), k));
    return select(saturated, k.s_dwOne, quotient);
}

// Some lane lies between 708.375 and 708.402: the exponent of e^-a decides whether it is saturated.
[[gnu::noinline, gnu::cold]] static double2 tanh_near_saturation(double2 x, double2 a)
{
    const auto& k = tables::hyperbolic2;
    const long2 saturated = ~negative_lanes(as_long2(a) - k.s_dwExpbOvfBoundHi) | special_lanes(a, k).wrapped;
    return with_sign_and_nans(tanh_but_saturated(a, saturated, k), x, a,
                              negative_lanes(k.s_dwPosInf - as_long2(a)), k);
}

[[gnu::noinline, gnu::cold]] static double2 tanh_saturated(double2 x, double2 a)
{
    const auto& k = tables::hyperbolic2;
    const long2 saturated = negative_lanes(k.s_dwLastOrdinary - as_long2(a));
    if (lane_mask(saturated & (as_long2(a) - k.s_dwExpbOvfBoundHi)) != 0) return tanh_near_saturation(x, a);

    const long2 nan = negative_lanes(k.s_dwPosInf - as_long2(a));
    // Zeros are their own results, as in the quotient.
    const double2 others = as_double2(as_long2(a) & ~saturated);
    if (lane_mask(equal_lanes(others, double2{})) == all_lanes2)
        return with_sign_and_nans(as_double2(as_long2(k.s_dwOne) & saturated), x, a, nan, k);
    return with_sign_and_nans(tanh_but_saturated(a, saturated, k), x, a, nan, k);
}

double2 tanh2(double2 x)
{
    const auto& k = tables::hyperbolic2;
    const double2 a = as_double2(as_long2(x) & k.s_dwAbsMsk);
    if (out_of_range(a, k) != 0) [[unlikely]]
        return tanh_saturated(x, a);
    return select(k.s_dwSignMask, x, tanh_of(half_exponentials(a, k)));
}

} // namespace zelk::ZELK_TIER
