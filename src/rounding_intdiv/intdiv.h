// What signed and unsigned division share.
// Tier A divides lane by lane with the processor's division instruction. The other tiers divide two lanes at
// a time in binary64, and truncate. The quotient is exact in every rounding mode.
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

// For 32-bit integers in binary64. A quotient that is not whole is 1/|b| or more away from
// the next integer, and rounding moves it by less than |a| 2^-52 / |b|. So the truncated value is the
// quotient.
ZELK_INLINE int4 truncated_quotients(double2 a_low, double2 a_high, double2 b_low, double2 b_high)
{
    return join_low(trunc_to_int(a_low / b_low), trunc_to_int(a_high / b_high));
}

} // namespace zelk::ZELK_TIER
