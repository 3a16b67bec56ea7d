// sqrt x of one 80-bit number by the x87 square root.
#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

long double sqrtl_scalar(long double x)
{
    asm("fsqrt" : "+t"(x));
    return x;
}

} // namespace zelk::ZELK_TIER
