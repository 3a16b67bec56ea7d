// |x| of one double by the x87 absolute value. The load quiets a signalling NaN and raises invalid.
#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

double fabs_scalar(double x)
{
    long double magnitude = x;
    asm("fabs" : "+t"(magnitude));
    return static_cast<double>(magnitude);
}

} // namespace zelk::ZELK_TIER
