// x in the current rounding mode, on two binary64 lanes. The same as rint: inexact is raised.
#include "dispatch/kernels.h"
#include "rounding_intdiv/rounding.h"

namespace zelk::ZELK_TIER {

double2 nearbyint2(double2 x)
{
    return round_in_current_mode(x, tables::rounding2);
}

} // namespace zelk::ZELK_TIER
