// x toward zero on two binary64 lanes. Method: the fraction bits are masked off.
#include "dispatch/kernels.h"
#include "rounding_intdiv/rounding.h"

namespace zelk::ZELK_TIER {

double2 trunc2(double2 x)
{
    const auto& k = tables::rounding2;
    const double2 quiet = x + as_double2(k.s_dwSMask); // x - 0: raises invalid for a signalling NaN
    return as_double2(as_long2(quiet) & integral_mask(as_long2(x) & k.s_dwExpMask, k));
}

} // namespace zelk::ZELK_TIER
