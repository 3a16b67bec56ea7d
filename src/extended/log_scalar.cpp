// ln x of one double: the 80-bit function, rounded once more.
#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

double log_scalar(double x)
{
    return static_cast<double>(logl_scalar(x));
}

} // namespace zelk::ZELK_TIER
