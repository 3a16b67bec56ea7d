// What asin2 and acos2 share: the reduction to |y| <= 1/2.
#pragma once

#include "lanes/lanes.h"

namespace zelk::ZELK_TIER {

// Small lanes (|x| < 1/2): y = |x|. Big lanes: y = sqrt((1 - |x|)/2), arcsin |x| = pi/2 - 2 arcsin y.
struct Reduced2 {
    double2 y;
    double2 z;  // y^2
    long2 big;  // NaNs are big
    long2 one;  // |x| = 1
    long2 sign; // the sign bit of x
};

template <class Constants>
ZELK_INLINE Reduced2 reduce(double2 x, const Constants& k)
{
    const long2 magnitude = as_long2(x) & k.iAbsMask;
    const double2 a = as_double2(magnitude);
    const long2 small = negative_lanes(magnitude - as_long2(k.dbOneHalf));
    const long2 t = as_long2(k.dbOneHalf * (k.dbOne - a)) & ~small;
    const double2 w = square_root(as_double2(t));
    // Beyond 1 the root alone makes the lane a NaN, which raises invalid; the polynomial gets 0 there, and
    // can't overflow.
    const double2 small_a = as_double2(magnitude & small);
    const long2 z = as_long2(small_a * small_a) | (t & ~negative_lanes(t));
    return {as_double2((magnitude & small) | as_long2(w)), as_double2(z), ~small, a == k.dbOne,
            as_long2(x) & k.iSignMask};
}

} // namespace zelk::ZELK_TIER
