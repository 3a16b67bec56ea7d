// What signed and unsigned division share.
// Tier A divides lane by lane with the processor's division instruction. The other tiers divide all lanes in
// floating point: a reciprocal estimate, a Newton step in binary32, one in binary64 with an upward bias, the
// product with the dividend, truncated. The quotient is exact in every rounding mode.
#pragma once

#include "lanes/lanes.h"
#include "tables/intdiv.h"

namespace zelk::ZELK_TIER {

template <class Lanes>
struct DivRem {
    Lanes quotient;
    Lanes remainder;
};

template <class Lanes>
ZELK_INLINE DivRem<Lanes> divide_lane_by_lane(Lanes a, Lanes b)
{
    return {Lanes{a[0] / b[0], a[1] / b[1], a[2] / b[2], a[3] / b[3]},
            Lanes{a[0] % b[0], a[1] % b[1], a[2] % b[2], a[3] % b[3]}};
}

// t = -1/b, relative error below 2^-20: the processor's estimate and one Newton step.
ZELK_INLINE float4 negated_reciprocal(float4 b, const tables::Intdiv& k)
{
    const float4 r0 = reciprocal_estimate(b);
    return (b * r0 - k.flTwo) * r0;
}

// a / b for 32-bit integers, too large in magnitude by a relative amount between 2^-37 and 2^-35. An exact
// quotient is not undershot; any other is 1/|b| or more away from the next integer, and |a / b| 2^-35 < 1/|b|
// does not reach it. So the truncated value is the quotient.
ZELK_INLINE double2 biased_quotient(double2 a, double2 b, double2 t, const tables::Intdiv& k)
{
    const double2 e = b * t + k.dbTwo;
    const double2 y = t * k.dbC;
    return a * (e * y);
}

} // namespace zelk::ZELK_TIER
