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

[[gnu::noinline, gnu::cold]] static double2 tanh_near_saturation(double2 x, double2 a)
{
    const auto& k = tables::hyperbolic2;
    const long2 nan = negative_lanes(k.s_dwPosInf - as_long2(a));
    const long2 saturated = ~negative_lanes(as_long2(a) - k.s_dwExpbOvfBoundHi) | special_lanes(a, k).wrapped;
    // Saturated lanes pass through the arithmetic as zeros: they must not raise anything there.
    const double2 quotient = tanh_of(half_exponentials(as_double2(as_long2(a) & ~saturated), k));
    const double2 tanh_a = select(saturated, k.s_dwOne, quotient);

    const double2 nans = as_double2(as_long2(a) & nan);
    opaque(nans + nans); // raises invalid for a signalling NaN
    return as_double2(as_long2(select(k.s_dwSignMask, x, tanh_a)) | nan);
}

double2 tanh2(double2 x)
{
    const auto& k = tables::hyperbolic2;
    const double2 a = as_double2(as_long2(x) & k.s_dwAbsMsk);
    if (out_of_range(a, k) != 0) [[unlikely]]
        return tanh_near_saturation(x, a);
    return select(k.s_dwSignMask, x, tanh_of(half_exponentials(a, k)));
}

} // namespace zelk::ZELK_TIER
