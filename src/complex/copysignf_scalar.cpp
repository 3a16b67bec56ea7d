// |x| with the sign of y, of floats, on the bit patterns.
#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

float copysignf_scalar(float x, float y)
{
    return __builtin_copysignf(x, y);
}

} // namespace zelk::ZELK_TIER
