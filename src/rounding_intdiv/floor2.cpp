// The largest integer not above x, on two binary64 lanes.
// Method: the truncated value r, and 1 less where x < 0 has a fraction.
#include "dispatch/kernels.h"
#include "rounding_intdiv/rounding.h"

namespace zelk::ZELK_TIER {

double2 floor2(double2 x)
{
    const auto& k = tables::rounding2;
    const double2 r = truncate(x, k);
    return r - as_double2(as_int4(k.s_dwOne) & (negative(x) & ~same_lanes(r, x)));
}

} // namespace zelk::ZELK_TIER
