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
    constexpr long double odd[] = {1.0L / 6, 1.0L / 120, 1.0L / 5040};
    constexpr long double even[] = {0.5L, 1.0L / 24, 1.0L / 720};
    const long double square = r * r;
    return {r + r * square * polynomial(odd, square), square * polynomial(even, square)};
}

// (hi + lo) 2^exponent with hi + lo in [0.5, 2), |lo| < 2^-8: one addition from the result.
struct ScaledPair {
    Pair value;
    int exponent;
};

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

// What a product with 2^exponent rounds that may leave the normal numbers.
[[gnu::noinline, gnu::cold]] static long double scaled_far(Pair value, int exponent)
{
    const bool negative = value.hi < 0;
    if (exponent > 16384) return overflowed(negative);
    if (exponent > 0) return (value.hi + value.lo) * 0x1p16383L * power_of_two(exponent - 16383);
    if (exponent < -16447) return underflowed(negative);
    const long double scale = power_of_two(exponent + 256);
    const Pair sum = fast_two_sum(value.hi, value.lo);
    const long double head = sum.hi * scale;
    if (magnitude(head) >= 0x1p-16126L) return head * 0x1p-256L;
    // The product rounds to the denormal's width; what that took from the pair, its tail included, is rounded
    // to the same width and added, which is exact.
    const long double denormal = head * 0x1p-256L;
    return denormal + ((head - denormal * 0x1p256L) + sum.lo * scale) * 0x1p-256L;
}

// (hi + lo) 2^exponent, rounded once.
ZELK_INLINE long double rounded(ScaledPair x)
{
    if (x.exponent < -16381 || x.exponent > 16383) [[unlikely]]
        return scaled_far(x.value, x.exponent);
    return (x.value.hi + x.value.lo) * power_of_two(x.exponent);
}

} // namespace zelk::ZELK_TIER
