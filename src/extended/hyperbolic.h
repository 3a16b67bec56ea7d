// The hyperbolic functions' common parts.
#pragma once

#include "extended/exponential.h"

namespace zelk::ZELK_TIER {

// e^x and e^-x of one reduction: the tables' rows lie symmetrically, r changes its sign.
struct ExponentialBothWays {
    Pair plus; // e^x = (hi + lo) 2^exponent, e^-x = (hi + lo) 2^-exponent
    Pair minus;
    int exponent;
};
ZELK_INLINE ExponentialBothWays exponential_both_ways(long double x)
{
    const ExponentialReduction reduced = reduce_exponential({x, 0.0L});
    const OddEven parts = exponential_parts(reduced.r);
    const int shifted = reduced.n + 128;
    const int j = shifted & 255;
    return {times_table(tables::_rop_expl_table_256[j], parts.even + parts.odd),
            times_table(tables::_rop_expl_table_256[256 - j], parts.even - parts.odd), shifted >> 8};
}

// From here on e^-x is below 2^-100 of e^x.
inline constexpr long double one_exponential = 40.0L;

// sinh and cosh of x, 0 < x < 40, one addition from the result; sinh from 1/8 on.
ZELK_INLINE Pair half_difference(const ExponentialBothWays& e)
{
    const long double up = power_of_two(e.exponent - 1);
    const long double down = power_of_two(-e.exponent - 1);
    const Pair head = fast_two_sum(e.plus.hi * up, -(e.minus.hi * down));
    return {head.hi, head.lo + (e.plus.lo * up - e.minus.lo * down)};
}
ZELK_INLINE Pair half_sum(const ExponentialBothWays& e)
{
    const long double up = power_of_two(e.exponent - 1);
    const long double down = power_of_two(-e.exponent - 1);
    const Pair head = fast_two_sum(e.plus.hi * up, e.minus.hi * down);
    return {head.hi, head.lo + (e.plus.lo * up + e.minus.lo * down)};
}
// e^x / 2, 40 <= x < 2^14.
ZELK_INLINE ScaledPair half_exponential(long double x)
{
    ScaledPair e = exponential({x, 0.0L});
    --e.exponent;
    return e;
}

// sinh x - x for |x| < 1/8 by the Taylor series; the next term is below 2^-82 of sinh x.
ZELK_INLINE long double sinh_tail(long double x)
{
    static constexpr tables::Wide c[] = {1.0L / 6,      1.0L / 120,      1.0L / 5040,
                                         1.0L / 362880, 1.0L / 39916800, 1.0L / 6227020800};
    const long double square = x * x;
    return x * square * polynomial(c, square);
}

} // namespace zelk::ZELK_TIER
