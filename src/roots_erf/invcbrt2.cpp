// 1/cbrt x on two binary64 lanes.
// Method: |x|^(-1/3) from a quadratic per 1/128 of the significand's range and one Newton step.
#include "dispatch/kernels.h"
#include "roots_erf/cbrt2.h"

namespace zelk::ZELK_TIER {

[[gnu::noinline, gnu::cold]] static double2 invcbrt2_irregular(double2 x)
{
    const auto& k = tables::cbrt2;
    const long2 magnitude = as_long2(x) & k.abs_mask;
    const long2 sign = as_long2(x) & k.sign_mask;
    const int4 high = high_words(as_int4(magnitude));
    const long2 zero = is_zero(magnitude);
    const long2 not_finite = as_long2(high > k.largest_high);
    const long2 infinite = is_zero(magnitude ^ k.infinity);
    const long2 nan = not_finite & ~infinite;
    const long2 subnormal = as_long2(high < k.smallest_normal) & ~zero;

    // 4/0 is divided for its flag; other lanes divide by one.
    (void)opaque(opaque(k.s_dbFour) / select(zero, as_double2(magnitude), k.one));

    const double2 scaled = as_double2(magnitude & subnormal) * k.s_dwDenoScale;
    double2 a = select(subnormal, scaled, as_double2(magnitude));
    a = select(zero | not_finite, k.one, a);
    long2 result = as_long2(reciprocal_cube_root(a, subnormal & 3, k));
    result = select(zero, k.infinity, result);
    result = select(infinite, long2{}, result);
    return as_double2(result | sign | nan); // a NaN becomes all ones
}

double2 invcbrt2(double2 x)
{
    const auto& k = tables::cbrt2;
    const long2 magnitude = as_long2(x) & k.abs_mask;
    if (lane_mask(as_double2(not_normal(magnitude, k))) != 0) [[unlikely]]
        return invcbrt2_irregular(x);
    const double2 z = reciprocal_cube_root(as_double2(magnitude), long2{}, k);
    return as_double2((as_long2(x) & k.sign_mask) | as_long2(z));
}

} // namespace zelk::ZELK_TIER
