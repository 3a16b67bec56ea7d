// sqrt x of one 80-bit number by the x87 square root.
#include "dispatch/kernels.h"
#include "extended/arithmetic.h"

namespace zelk::ZELK_TIER {

long double sqrtl_scalar(long double stacked)
{
    return square_root(argument(stacked));
}

} // namespace zelk::ZELK_TIER
