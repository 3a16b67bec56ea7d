// atan x of one 80-bit number: the direction of (1, x); method in direction.h.
#include "dispatch/kernels.h"
#include "extended/direction.h"

namespace zelk::ZELK_TIER {

long double atanl_scalar(long double x)
{
    const Words X = words_of(x);
    if (not_a_number(X)) [[unlikely]]
        return x + x;
    return radians(direction_of(X, words_of(1.0L)), X.negative());
}

} // namespace zelk::ZELK_TIER
