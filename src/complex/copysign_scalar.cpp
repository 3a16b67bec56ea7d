// |x| with the sign of y, of doubles. Both are multiplied by 1 first, which quiets signalling NaNs and raises
// invalid for them.
#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

double copysign_scalar(double x, double y)
{
    const double one = opaque(1.0);
    return __builtin_copysign(opaque(x * one), opaque(y * one));
}

} // namespace zelk::ZELK_TIER
