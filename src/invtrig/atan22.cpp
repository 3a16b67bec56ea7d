// atan2(y, x), the angle of the point (x, y), on two binary64 lanes.
// Method: arctan of the smaller magnitude over the larger, by a degree-39 odd polynomial; then pi/2 minus it
// where |y| is larger, and pi minus that where x is negative. A zero, an infinity or a NaN hands both lanes
// over to a scalar routine, which gives the same bits for the ordinary one.
#include "dispatch/kernels.h"
#include "invtrig/atan2.h"
#include "invtrig/atan2_special.h"

namespace zelk::ZELK_TIER {

// 0 < |y| < infinity and 0 < |x| < infinity.
ZELK_INLINE double2 angle_of_ordinary(double2 y, double2 x, const tables::Atan2& k)
{
    const long2 sy = as_long2(y) & k.iSignMask;
    const long2 sx = as_long2(x) & k.iSignMask;
    const long2 ay = as_long2(y) & k.iAbsMask;
    const long2 ax = as_long2(x) & k.iAbsMask;
    const long2 swap = ~negative_lanes(ay - ax);
    const double2 numerator = as_double2(select(swap, ax | k.iSignMask, ay));
    const double2 q = numerator / as_double2(select(swap, ay, ax));
    const double2 add1 = as_double2(swap & as_long2(k.dbPio2hi));
    const double2 add2 = as_double2(negative_lanes(as_long2(x)) & as_long2(k.dbPi));
    const double2 theta = as_double2(as_long2(arctangent(q, k) + add1) | sx) + add2;
    return as_double2(as_long2(theta) | sy);
}

[[gnu::noinline]] static double __zelk_atan2_sd(double y, double x)
{
    double special;
    if (special_atan2(y, x, tables::atan2_angles.angles, special)) return special;
    return angle_of_ordinary(splat(y), splat(x), tables::atan2)[0];
}

[[gnu::noinline, gnu::cold]] static double2 atan22_by_lanes(double2 y, double2 x)
{
    const double first = __zelk_atan2_sd(y[0], x[0]);
    const double second = __zelk_atan2_sd(y[1], x[1]);
    return double2{first, second};
}

double2 atan22(double2 y, double2 x)
{
    const auto& k = tables::atan2;
    const long2 ay = as_long2(y) & k.iAbsMask;
    const long2 ax = as_long2(x) & k.iAbsMask;
    const long2 ordinary =
        (k.iMinWorkNum - ay) & (ay - k.iMaxWorkNum) & (k.iMinWorkNum - ax) & (ax - k.iMaxWorkNum);
    if (lane_mask(ordinary) != all_lanes2) [[unlikely]]
        return atan22_by_lanes(y, x);
    return angle_of_ordinary(y, x, k);
}

} // namespace zelk::ZELK_TIER
