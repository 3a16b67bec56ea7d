// Quotient and remainder of signed lanes; a kernel takes what it returns, the rest is not computed.
#pragma once

#include "rounding_intdiv/intdiv.h"

namespace zelk::ZELK_TIER {

ZELK_INLINE double2 widen_low(int4 x)
{
    return to_double2(x);
}
ZELK_INLINE double2 widen_high(int4 x)
{
    return to_double2(__builtin_shufflevector(x, x, 2, 3, 2, 3));
}

ZELK_INLINE int4 multiply_subtract(int4 a, int4 q, int4 b)
{
    return as_int4(as_uint4(a) - as_uint4(q) * as_uint4(b));
}

// For lanes with a quotient.
ZELK_INLINE DivRem<int4> divide(int4 a, int4 b)
{
    if constexpr (tier == Tier::A) return divide_lane_by_lane(a, b);
    const int4 q = truncated_quotients(widen_low(a), widen_high(a), widen_low(b), widen_high(b));
    return {q, multiply_subtract(a, q, b)};
}

// Lanes that divide by 0, or -2^31 by -1, divide by 1 instead, so that nothing traps and no flag is raised.
// -2^31 / 1 = -2^31 rem 0 is the result of the latter; a division by 0 gives -2^31 rem a.
[[gnu::noinline, gnu::cold]] static DivRem<int4> divide_any(int4 a, int4 b)
{
    const auto& k = tables::intdiv;
    const int4 zero = b == 0;
    const int4 replaced = zero | ((a == k.iNegBiggest) & (b == -1));
    const DivRem<int4> result = divide(a, select(replaced, k.iOne, b));
    return {select(zero, k.iNegBiggest, result.quotient), select(zero, a, result.remainder)};
}

ZELK_INLINE DivRem<int4> divrem(int4 a, int4 b)
{
    const auto& k = tables::intdiv;
    if (lane_mask((b == 0) | (a == k.iNegBiggest)) != 0) [[unlikely]]
        return divide_any(a, b);
    return divide(a, b);
}

} // namespace zelk::ZELK_TIER
