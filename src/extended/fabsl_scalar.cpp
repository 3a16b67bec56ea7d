// |x| of one 80-bit number by the x87 absolute value.
#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

long double fabsl_scalar(long double x)
{
    asm("fabs" : "+t"(x));
    return x;
}

} // namespace zelk::ZELK_TIER
