// x in the current rounding mode, on two binary64 lanes. Method: 2^52 with the sign of x added and
// subtracted.
#include "dispatch/kernels.h"
#include "rounding_intdiv/rounding.h"

namespace zelk::ZELK_TIER {

double2 rint2(double2 x)
{
    return round_in_current_mode(x, tables::rounding2);
}

} // namespace zelk::ZELK_TIER
