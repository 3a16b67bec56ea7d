// Cube root on two binary64 lanes.
// Method: z = |x|^(-1/3) from a quadratic per 1/128 of the significand's range and one Newton step; (x z) z.
#include "roots_erf/cbrt2.h"
#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

// Subnormals are scaled for their reciprocal root; zeros, infinities and NaNs multiply the root of one.
[[gnu::noinline, gnu::cold]] static double2 cbrt2_irregular(double2 x)
{
    const auto& k = tables::cbrt2;
    const long2 magnitude = as_long2(x) & k.abs_mask;
    const int4 high = high_words(as_int4(magnitude));
    const long2 zero = is_zero(magnitude);
    const long2 not_finite = as_long2(high > k.largest_high);
    const long2 subnormal = as_long2(high < k.smallest_normal) & ~zero;

    const double2 scaled = as_double2(magnitude & subnormal) * k.s_dwDenoScale;
    double2 a = select(subnormal, scaled, as_double2(magnitude));
    a = select(zero | not_finite, k.one, a);
    const double2 z = reciprocal_cube_root(a, subnormal & 3, k);
    return (x * z) * z;
}

double2 cbrt2(double2 x)
{
    const auto& k = tables::cbrt2;
    const long2 magnitude = as_long2(x) & k.abs_mask;
    if (lane_mask(as_double2(not_normal(magnitude, k))) != 0) [[unlikely]]
        return cbrt2_irregular(x);
    const double2 z = reciprocal_cube_root(as_double2(magnitude), long2{}, k);
    return (x * z) * z;
}

} // namespace zelk::ZELK_TIER
