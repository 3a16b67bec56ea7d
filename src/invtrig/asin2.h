// What asin2 and acos2 share: the reduction to |y| <= 1/2.
#pragma once

#include "lanes/lanes.h"

namespace zelk::ZELK_TIER {

// Small lanes (|x| < 1/2): y = |x|. Big lanes: y = sqrt((1 - |x|)/2), arcsin |x| = pi/2 - 2 arcsin y.
struct Reduced2 {
    double2 y;
    double2 z;  // y^2
    long2 big;  // NaNs are big
    long2 sign; // the sign bit of x
};

// |x| < 1 in both lanes.
template <class Constants>
ZELK_INLINE bool inside_one(double2 x, const Constants& k)
{
    const int4 inside = as_int4(k.dbOne) > as_int4(as_long2(x) & k.iAbsMask);
    return lane_mask(as_double2(inside)) == all_lanes2;
}

// Beyond 1 the root alone makes the lane a NaN, which raises invalid; the polynomial gets 0 there, and can't
// overflow.
template <bool inside, class Constants>
ZELK_INLINE Reduced2 reduce(double2 x, const Constants& k)
{
    const long2 magnitude = as_long2(x) & k.iAbsMask;
    const long2 big = as_long2(high_words(as_int4(magnitude) > k.iBelowHalf));
    const long2 t = as_long2(k.dbOneHalf * (k.dbOne - as_double2(magnitude))) & big;
    const double2 w = square_root(as_double2(t));
    const double2 small_a = as_double2(magnitude & ~big);
    const long2 not_negative = inside ? t : t & ~negative_lanes(t);
    const long2 z = as_long2(small_a * small_a) | not_negative;
    return {as_double2(as_long2(small_a) | as_long2(w)), as_double2(z), big, as_long2(x) & k.iSignMask};
}

// |x| = 1.
template <class Constants>
ZELK_INLINE long2 is_one(double2 x, const Constants& k)
{
    return as_double2(as_long2(x) & k.iAbsMask) == k.dbOne;
}

} // namespace zelk::ZELK_TIER
