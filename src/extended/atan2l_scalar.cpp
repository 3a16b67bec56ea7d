// The angle of the point (x, y) of two 80-bit numbers, in radians; method in direction.h.
#include "dispatch/kernels.h"
#include "extended/direction.h"

namespace zelk::ZELK_TIER {

long double atan2l_scalar(long double y, long double x)
{
    const Words Y = words_of(y);
    const Words X = words_of(x);
    if (not_a_number(Y) || not_a_number(X)) [[unlikely]]
        return y + x;
    return radians(direction_of(Y, X), Y.negative());
}

} // namespace zelk::ZELK_TIER
