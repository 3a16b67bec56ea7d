// sqrt x on two binary64 lanes: the hardware square root, correctly rounded.
#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

double2 sqrt2(double2 x)
{
    return square_root(x);
}

} // namespace zelk::ZELK_TIER
