// The angle of the point (x, y) of two 80-bit numbers, in radians; method in direction.h.
#include "dispatch/kernels.h"
#include "extended/direction.h"

namespace zelk::ZELK_TIER {

long double atan2l_scalar(long double y, long double x)
{
    return direction<false>(y, x);
}

} // namespace zelk::ZELK_TIER
