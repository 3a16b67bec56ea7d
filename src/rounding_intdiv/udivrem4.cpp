// Quotient and remainder of four unsigned 32-bit lanes, with and without a store of the remainder. Methods in
// intdiv.h.
#include "dispatch/kernels.h"
#include "rounding_intdiv/udiv.h"

namespace zelk::ZELK_TIER {

uint4 udivrem4(uint4 a, uint4 b)
{
    const DivRem<uint4> result = divrem(a, b);
    return both(result.quotient, result.remainder);
}

uint4 ropuDivRem4(uint4 a, uint4 b, uint4* remainder)
{
    const DivRem<uint4> result = divrem(a, b);
    *remainder = result.remainder;
    return both(result.quotient, result.remainder);
}

} // namespace zelk::ZELK_TIER
