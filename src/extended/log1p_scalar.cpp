// ln(1 + x) of one double: the 80-bit function, rounded once more.
#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

double log1p_scalar(double x)
{
    return static_cast<double>(log1pl_scalar(x));
}

} // namespace zelk::ZELK_TIER
