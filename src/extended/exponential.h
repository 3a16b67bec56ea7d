// e^x in 80 bits: x = n ln2/256 + r, e^x = 2^k T e^r with T = 2^(j/256) from the table, -128 <= j < 128, and
// n = 256 k + j. What remains of the last rounding's error is below 2^-71 of the result.
#pragma once

#include "extended/arc.h"
#include "tables/extended.h"
#include "tables/extended_explog.h"
#include "tables/extended_trig.h"

namespace zelk::ZELK_TIER {

struct ExponentialReduction {
    int n;
    long double r; // |r| <= ln2/512, in directed modes ln2/256
};

// |hi + lo| < 2^14: the sum less n ln2_256_hi is exact, since the product has no bit below 2^-50 and none
// above 2^13.
ZELK_INLINE ExponentialReduction reduce_exponential(Pair x)
{
    const int n = round_to_int(x.hi * tables::inverse_ln2_256.hi);
    const auto multiple = static_cast<long double>(n);
    return {n, ((x.hi - multiple * tables::ln2_256_hi) + x.lo) - multiple * tables::ln2_256_lo};
}

// Odd and even part of e^r - 1 by their Taylor series, those of the sine and cosine of ir; the next terms are
// below 2^-85.
struct OddEven {
    long double odd;
    long double even;
};
ZELK_INLINE OddEven exponential_parts(long double r)
{
    // Beside sine and cosine the compiler would keep what both load, in memory and as 80-bit numbers.
    const auto* k = &tables::extended_trig;
    asm("" : "+r"(k));
    const long double z = -(r * r);
    return {r + r * z * (k->sine_3.hi + z * (k->sine_5 + z * k->sine_7)),
            z * (k->cosine_2 + z * (k->cosine_4 + z * k->cosine_6))};
}

ZELK_INLINE Pair times_table(const tables::HiLo& t, long double expm1)
{
    return {t.hi, t.lo + (static_cast<long double>(t.hi) + t.lo) * expm1};
}

// e^x, x the sum of two of which the second is at most 2^-32 of the first.
ZELK_INLINE ScaledPair exponential(Pair x)
{
    const ExponentialReduction reduced = reduce_exponential(x);
    const OddEven parts = exponential_parts(reduced.r);
    const int shifted = reduced.n + 128;
    return {times_table(tables::_rop_expl_table_256[shifted & 255], parts.odd + parts.even), shifted >> 8};
}

// 2^-60 <= |x| < 2^13.
ZELK_INLINE long double exponential_of(Words x)
{
    const ScaledPair e = exponential(short_head(x));
    return (e.value.hi + e.value.lo) * power_of_two(e.exponent);
}

} // namespace zelk::ZELK_TIER
