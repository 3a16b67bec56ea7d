// e^x in 80 bits: x = n ln2/256 + r, e^x = 2^k T e^r with T = 2^(j/256) from the table, -128 <= j < 128, and
// n = 256 k + j. What remains of the last rounding's error is below 2^-71 of the result.
#pragma once

#include "extended/arithmetic.h"
#include "tables/extended.h"
#include "tables/extended_explog.h"

namespace zelk::ZELK_TIER {

struct ExponentialReduction {
    int n;
    long double r; // |r| <= ln2/512, in directed modes ln2/256
};

// |x| < 2^14: x - n hi is exact, since n hi has no bit below 2^-50 and none above 2^13.
ZELK_INLINE ExponentialReduction reduce_exponential(long double x)
{
    const int n = round_to_int(x * tables::inverse_ln2_256);
    const auto multiple = static_cast<long double>(n);
    return {n, (x - multiple * tables::ln2_256_hi) - multiple * tables::ln2_256_lo};
}

// Odd and even part of e^r - 1 by their Taylor series; the next terms are below 2^-85.
struct OddEven {
    long double odd;
    long double even;
};
ZELK_INLINE OddEven exponential_parts(long double r)
{
    static constexpr tables::Wide odd[] = {1.0L / 6, 1.0L / 120, 1.0L / 5040};
    static constexpr tables::Wide even[] = {0.5L, 1.0L / 24, 1.0L / 720};
    const long double square = r * r;
    return {r + r * square * polynomial(odd, square), square * polynomial(even, square)};
}

ZELK_INLINE Pair times_table(const tables::HiLo& t, long double expm1)
{
    return {t.hi, t.lo + (static_cast<long double>(t.hi) + t.lo) * expm1};
}

// e^(x + low), |low| below an ulp of x.
ZELK_INLINE ScaledPair exponential(long double x, long double low = 0)
{
    const ExponentialReduction reduced = reduce_exponential(x);
    const OddEven parts = exponential_parts(reduced.r + low);
    const int shifted = reduced.n + 128;
    return {times_table(tables::_rop_expl_table_256[shifted & 255], parts.odd + parts.even), shifted >> 8};
}

} // namespace zelk::ZELK_TIER
