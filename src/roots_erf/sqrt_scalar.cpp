// sqrt x of one double by the x87 square root: rounded to the x87's precision first, then to double.
#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

double sqrt_scalar(double x)
{
    long double root = x;
    asm("fsqrt" : "+t"(root));
    return static_cast<double>(root);
}

} // namespace zelk::ZELK_TIER
