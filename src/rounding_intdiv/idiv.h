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
ZELK_INLINE DivRem<int4> divide(int4 a, int4 b, const tables::Intdiv& k)
{
    if constexpr (tier == Tier::A) return divide_lane_by_lane(a, b);
    const float4 t = negated_reciprocal(to_float4(b), k);
    const double2 low = biased_quotient(widen_low(a), widen_low(b), widen_low(t), k);
    const double2 high = biased_quotient(widen_high(a), widen_high(b), widen_high(t), k);
    const int4 q = join_low(trunc_to_int(low), trunc_to_int(high));
    return {q, multiply_subtract(a, q, b)};
}

// Lanes that divide by 0, or -2^31 by -1, divide by 1 instead, so that nothing traps and no flag is raised.
// -2^31 / 1 = -2^31 rem 0 is the result of the latter; a division by 0 gives -2^31 rem a.
[[gnu::noinline, gnu::cold]] static DivRem<int4> divide_any(int4 a, int4 b)
{
    const auto& k = tables::intdiv;
    const int4 zero = b == 0;
    const int4 replaced = zero | ((a == k.iNegBiggest) & (b == -1));
    const DivRem<int4> result = divide(a, select(replaced, k.iOne, b), k);
    return {select(zero, k.iNegBiggest, result.quotient), select(zero, a, result.remainder)};
}

ZELK_INLINE DivRem<int4> divrem(int4 a, int4 b)
{
    const auto& k = tables::intdiv;
    if (lane_mask((b == 0) | (a == k.iNegBiggest)) != 0) [[unlikely]]
        return divide_any(a, b);
    return divide(a, b, k);
}

} // namespace zelk::ZELK_TIER
