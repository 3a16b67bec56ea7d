// Quotient and remainder of unsigned lanes; a kernel takes what it returns, the rest is not computed.
#pragma once

#include "rounding_intdiv/intdiv.h"

namespace zelk::ZELK_TIER {

ZELK_INLINE double2 widen_low(uint4 x, const tables::Intdiv& k)
{
    return as_double2(zero_extend_low(as_int4(x)) | as_long2(k.dbRS)) - k.dbRS;
}
ZELK_INLINE double2 widen_high(uint4 x, const tables::Intdiv& k)
{
    return as_double2(zero_extend_high(as_int4(x)) | as_long2(k.dbRS)) - k.dbRS;
}

// For lanes with a quotient; in floating point it must be below 2^31, as truncation gives signed integers.
// Adding 2^52 instead would take all quotients, but follow the rounding mode.
ZELK_INLINE DivRem<uint4> divide(uint4 a, uint4 b, const tables::Intdiv& k)
{
    if constexpr (tier == Tier::A) return divide_lane_by_lane(a, b);
    const uint4 q =
        as_uint4(truncated_quotients(widen_low(a, k), widen_high(a, k), widen_low(b, k), widen_high(b, k)));
    return {q, a - q * b};
}

// The sign bit tells which lanes divide() does not take: only a division by 1 can reach 2^31.
ZELK_INLINE int4 beyond_divide(uint4 a, uint4 b, const tables::Intdiv& k)
{
    const int4 zero = as_int4(b) == 0;
    if constexpr (tier == Tier::A) return zero;
    return zero | ((as_int4(b) == k.iOne) & as_int4(a));
}

// Lanes that divide by 0 or 1 divide by 2^32 - 1 instead, so that nothing traps and no flag is raised.
// A division by 0 gives 2^32 - 1 rem a.
[[gnu::noinline, gnu::cold]] static DivRem<uint4> divide_any(uint4 a, uint4 b)
{
    const auto& k = tables::intdiv;
    const int4 zero = as_int4(b) == 0;
    const int4 one = as_int4(b) == k.iOne;
    const DivRem<uint4> result = divide(a, b | as_uint4(zero | one), k);
    const int4 quotient = select(one, as_int4(a), as_int4(result.quotient)) | zero;
    const int4 remainder = select(zero, as_int4(a), as_int4(result.remainder) & ~one);
    return {as_uint4(quotient), as_uint4(remainder)};
}

ZELK_INLINE DivRem<uint4> divrem(uint4 a, uint4 b)
{
    const auto& k = tables::intdiv;
    if (lane_mask(beyond_divide(a, b, k)) != 0) [[unlikely]]
        return divide_any(a, b);
    return divide(a, b, k);
}

} // namespace zelk::ZELK_TIER
