// What cbrt2 and invcbrt2 share: |x|^(-1/3) on two binary64 lanes.
// |x| = m 2^(E - 1023), E - 1 = 3q + k: |x|^(-1/3) = m^(-1/3) 2^((2 - k)/3) 2^(340 - q).
#pragma once

#include "lanes/lanes.h"
#include "tables/cbrt2.h"

namespace zelk::ZELK_TIER {

// a: a positive normal number. table_offset: 3 in lanes that were scaled by 2^1020, 0 in others.
ZELK_INLINE double2 reciprocal_cube_root(double2 a, long2 table_offset, const tables::Cbrt2& k)
{
    // The quotient and, below it, the fractional third of E - 1; only the high words count.
    const int4 exponent = (as_int4(a) - k.one_high) & k.exponent_mask_high;
    const int4 third = as_int4(as_uint4(multiply_high_16(exponent, k.s_dwDiv3Mul)) >> 1);
    const int4 quotient = third & k.exponent_mask_high;
    const int4 remainder = (third & k.s_dwCbrtIndexMask) >> 16;
    const double2 power = as_double2(as_long2(k.s_dwInvBias - quotient) & k.high_mask);
    const long2 third_powers = {
        static_cast<std::int64_t>(k.s_dbCbrt[remainder[1] + static_cast<std::int32_t>(table_offset[0])]),
        static_cast<std::int64_t>(k.s_dbCbrt[remainder[3] + static_cast<std::int32_t>(table_offset[1])])};
    const double2 G = power * as_double2(third_powers);

    // y, m^(-1/3) to 28 bits.
    const double2 m = as_double2((as_long2(a) & k.mantissa_mask) | as_long2(k.one));
    const long2 index = (as_long2(a) & k.mantissa_mask) >> 45;
    const auto& low = tables::s_dbA[index[0]];
    const auto& high = tables::s_dbA[index[1]];
    const double2 y = (double2{low.a, high.a} * m + double2{low.b, high.b}) * m + double2{low.c, high.c};

    // One Newton step, y (4 - m y^3) / 3; the third is in G.
    return ((((m * y) * y) * y) * k.s_dbNegOne + k.s_dbFour) * y * G;
}

// Zeros, subnormals, infinities and NaNs, by |x|.
ZELK_INLINE int4 not_normal(long2 magnitude, const tables::Cbrt2& k)
{
    const int4 high = high_words(as_int4(magnitude));
    return (high < k.smallest_normal) | (high > k.largest_high);
}

// Lanes of zero, by |x|.
ZELK_INLINE long2 is_zero(long2 magnitude)
{
    const int4 words = as_int4(magnitude) == 0;
    return as_long2(high_words(words) & low_words(words));
}

} // namespace zelk::ZELK_TIER
