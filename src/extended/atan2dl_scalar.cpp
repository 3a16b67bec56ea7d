// The angle of the point (x, y) of two 80-bit numbers, in degrees; method in direction.h.
#include "dispatch/kernels.h"
#include "extended/direction.h"

namespace zelk::ZELK_TIER {

long double atan2dl_scalar(long double y, long double x)
{
    return direction<true>(y, x);
}

} // namespace zelk::ZELK_TIER
