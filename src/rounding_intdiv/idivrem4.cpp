// Quotient and remainder of four signed 32-bit lanes, with and without a store of the remainder. Methods in
// intdiv.h.
#include "dispatch/kernels.h"
#include "rounding_intdiv/idiv.h"

namespace zelk::ZELK_TIER {

int4 idivrem4(int4 a, int4 b)
{
    const DivRem<int4> result = divrem(a, b);
    return both(result.quotient, result.remainder);
}

int4 ropiDivRem4(int4 a, int4 b, int4* remainder)
{
    const DivRem<int4> result = divrem(a, b);
    *remainder = result.remainder;
    return both(result.quotient, result.remainder);
}

} // namespace zelk::ZELK_TIER
