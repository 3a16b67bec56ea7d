// atan2 where an argument is zero, infinite or NaN: a multiple of pi/4, or a NaN.
#pragma once

#include "lanes/lanes.h"

namespace zelk::ZELK_TIER {

// |atan2(y, x)| / (pi/4) from the bit patterns, as signed integers, of |y|, |x| and x. One of y and x is zero
// or infinite, neither a NaN.
template <class Pattern>
ZELK_INLINE unsigned special_angle(Pattern ay, Pattern ax, Pattern x, Pattern infinity)
{
    if (ay == infinity) {
        if (ax != infinity) return 2;
        return x < 0 ? 3 : 1;
    }
    if (ax == 0 && ay != 0) return 2;
    return x < 0 ? 4 : 0;
}

// Whether a pair is special; `result` is set if it is. `angles` are the multiples of pi/4 in the format at
// hand, `infinity` is its pattern. Raises nothing but invalid, for a signalling NaN.
template <class Real, class Pattern>
ZELK_INLINE bool special_atan2(Real y, Real x, const Real (&angles)[5], Pattern infinity, Real& result)
{
    constexpr Pattern sign = Pattern{1} << (8 * sizeof(Pattern) - 1);
    const auto ybits = __builtin_bit_cast(Pattern, y);
    const auto xbits = __builtin_bit_cast(Pattern, x);
    const Pattern ay = ybits & ~sign;
    const Pattern ax = xbits & ~sign;
    if (ay > infinity || ax > infinity) {
        result = y * x;
        return true;
    }
    if (ay != 0 && ax != 0 && ay != infinity && ax != infinity) return false;
    const Real angle = angles[special_angle(ay, ax, xbits, infinity)];
    result = ybits < 0 ? -angle : angle;
    return true;
}

ZELK_INLINE bool special_atan2(float y, float x, const float (&angles)[5], float& result)
{
    return special_atan2(y, x, angles, std::int32_t{0x7F800000}, result);
}
ZELK_INLINE bool special_atan2(double y, double x, const double (&angles)[5], double& result)
{
    return special_atan2(y, x, angles, std::int64_t{0x7FF0000000000000}, result);
}

} // namespace zelk::ZELK_TIER
