// The smallest integer not below x, on two binary64 lanes.
// Method: the truncated value r, and 1 more where x > 0 has a fraction.
#include "dispatch/kernels.h"
#include "rounding_intdiv/rounding.h"

namespace zelk::ZELK_TIER {

double2 ceil2(double2 x)
{
    const double2 r = truncate(x, tables::rounding2);
    const int4 unchanged = same_lanes(r, x) | negative(x);
    return r - as_double2(as_int4(tables::ceil2.s_dwOne) & ~unchanged);
}

} // namespace zelk::ZELK_TIER
