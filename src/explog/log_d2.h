// What log2, log22 and log102 share: exponent and mantissa, the classes of arguments, and the table step of
// ln and log10.
#pragma once

#include "lanes/lanes.h"
#include "tables/log_d2.h"

namespace zelk::ZELK_TIER {

// x = 2^e m, 1 <= m < 2, for positive normal numbers.
struct Decomposedd2 {
    double2 e;
    double2 m;
};

ZELK_INLINE Decomposedd2 decompose(double2 x)
{
    const auto& c = tables::log_d2;
    const int4 exponent = as_int4(as_uint4(as_int4(x)) >> 20) - c.iBias;
    return {to_double2(gather_high_words(exponent)),
            as_double2((as_long2(x) & c.iExpMask) | as_long2(c.dbOne))};
}

// The high word of a lane, where the table index comes from.
ZELK_INLINE std::uint32_t high_word(double2 x, int lane)
{
    return static_cast<std::uint32_t>(as_int4(x)[2 * lane + 1]);
}

// All ones in the high words of the positive normal lanes.
ZELK_INLINE int4 positive_normal(double2 x)
{
    const auto& c = tables::log_d2;
    return as_int4(x) + c.i00100000 > c.i001fffff;
}

// Lanes that have no logarithm, when no lane is subnormal: 1 while the others are computed, then the pattern
// of the result.
struct Replacedd2 {
    double2 argument;
    long2 keep;
    double2 pattern;
};

// All ones in the lanes whose two words are.
ZELK_INLINE int4 both_words(int4 x)
{
    return x & (int4)_mm_shuffle_epi32((__m128i)x, 0xB1);
}

ZELK_INLINE Replacedd2 replace_special(double2 x, int4 normal)
{
    const auto& c = tables::log_d2;
    const long2 keep = as_long2(high_words(normal));
    const long2 zero = as_long2(both_words(as_int4(as_long2(x) + as_long2(x)) == 0));
    const long2 infinite = as_long2(both_words(as_int4(x) == as_int4(c.infinity)));
    const long2 pattern = as_long2(c.infinity) | (as_long2(c.minus_inf) & zero) | ~(zero | infinite);
    return {select(keep, x, c.dbOne), keep, as_double2(pattern)};
}

ZELK_INLINE double2 with_patterns(double2 logarithm, const Replacedd2& lanes)
{
    return select(lanes.keep, logarithm, lanes.pattern);
}

// Whether a lane may be positive and subnormal; the smallest normal number counts as well.
ZELK_INLINE bool has_subnormal(double2 x)
{
    const int4 predecessor = as_int4(as_long2(x) - 1);
    return lane_mask(as_double2(as_int4(as_uint4(predecessor) >> 20) == 0)) != 0;
}

// What becomes of the lanes when one of them is subnormal: the logarithm is taken of `argument`, then
// corrected in the subnormal lanes, then kept in the lanes of `keep` and replaced by `pattern` in the others.
struct Classesd2 {
    double2 argument;
    long2 subnormal;
    long2 keep;
    double2 pattern;
};

ZELK_INLINE Classesd2 classify(double2 x)
{
    const auto& c = tables::log_d2;
    // High words with a trace of the low words, compared as signed integers: no flags, and NaNs differ from
    // infinity.
    const int4 low_nonzero = low_words(as_int4(x)) != 0;
    const int4 high = high_words(as_int4(x)) | as_int4(as_uint4(low_nonzero) >> 16);
    const int4 positive = high > 0;
    const int4 below_normal = c.i00100000 > high;
    const int4 normal = ~below_normal & (c.dwInf > high);
    const int4 subnormal = positive & below_normal;
    const int4 infinite = high == c.dwInf;
    const int4 zero = (high << 1) == 0;
    const int4 not_a_number = ~(normal | subnormal | infinite | zero);

    // Subnormals become x 2^1022 by (1 + x 2^1022) - 1, lanes that have no logarithm become 1.
    const long2 keep = as_long2(normal | subnormal);
    const long2 one = as_long2(c.dbOne) & ~as_long2(normal);
    const double2 argument =
        as_double2((as_long2(x) & keep) | one) - as_double2(as_long2(c.dbOne) & as_long2(subnormal));
    const long2 pattern = (as_long2(c.infinity) & as_long2(infinite)) |
                          (as_long2(c.minus_inf) & as_long2(zero)) | as_long2(not_a_number);
    return {argument, as_long2(subnormal), keep, as_double2(pattern)};
}

ZELK_INLINE double2 in_subnormal_lanes(double2 correction, const Classesd2& classes)
{
    return as_double2(as_long2(correction) & classes.subnormal);
}

ZELK_INLINE double2 with_patterns(double2 logarithm, const Classesd2& classes)
{
    return as_double2((as_long2(logarithm) & classes.keep) | as_long2(classes.pattern));
}

// ln and log10: tiers other than A correct subnormal lanes in two parts.
ZELK_INLINE double2 finish(double2 logarithm, const Classesd2& classes, double2 correction_hi,
                           double2 correction_lo)
{
    if constexpr (tier != Tier::A) logarithm = logarithm + in_subnormal_lanes(correction_lo, classes);
    return with_patterns(logarithm + in_subnormal_lanes(correction_hi, classes), classes);
}

// log x = polynomial(r) + lo + rest + leading, in this order, r = scale (m b - 1).
struct TableStepd2 {
    double2 r;
    double2 leading;
    double2 rest;
    double2 lo;
};

// The upper bits of m times b are exact, and so is their sum with -scale.
ZELK_INLINE TableStepd2 table_step(const Decomposedd2& x, const tables::LogRow& row0,
                                   const tables::LogRow& row1, long2 upper_bits, double2 scale,
                                   double2 log2_hi, double2 log2_lo)
{
    const double2 b = double2{row0.b[0], row1.b[0]};
    const double2 hi = x.e * log2_hi + double2{row0.hi, row1.hi};
    const double2 lo = double2{row0.lo, row1.lo} + x.e * log2_lo;
    const double2 m_upper = as_double2(as_long2(x.m) & upper_bits);
    const double2 m_lower = x.m - m_upper;
    const double2 u = m_upper * b - scale;
    const double2 v = m_lower * b;
    // Next to 1 there is no large term, and v belongs to the leading sum.
    const long2 near_one = hi == 0;
    return {v + u, (hi + u) + as_double2(as_long2(v) & near_one), as_double2(as_long2(v) & ~near_one), lo};
}

// Row of 65 for the upper six fraction bits, rounded by the seventh.
ZELK_INLINE std::uint32_t row_of_64(std::uint32_t high)
{
    return ((high >> 13 & 0x7F) + 1) >> 1;
}

} // namespace zelk::ZELK_TIER
