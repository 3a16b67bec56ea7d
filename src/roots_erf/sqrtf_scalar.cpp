// sqrt x of one float by the x87 square root: rounded to the x87's precision first, then to float.
#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

float sqrtf_scalar(float x)
{
    long double root = x;
    asm("fsqrt" : "+t"(root));
    return static_cast<float>(root);
}

} // namespace zelk::ZELK_TIER
