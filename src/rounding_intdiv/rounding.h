// What the roundings to integral values share: the truncated value, and rounding in the current mode.
// Range and sign tests look at bit patterns, or at values that cannot be NaN: an ordered compare would raise
// invalid for a quiet NaN.
#pragma once

#include "lanes/lanes.h"
#include "tables/rounding.h"

namespace zelk::ZELK_TIER {

// All ones in lanes of negative sign, zeros and NaNs included.
ZELK_INLINE int4 negative(float4 x, const tables::Roundingf4& k)
{
    return negative_lanes(x, k.s_dwSMask, k.s_dw3f800000);
}
ZELK_INLINE int4 negative(double2 x)
{
    return high_words(as_int4(x)) >> 31;
}

// x toward zero, a zero with the sign of x; from 2^23 on, and infinities and NaNs, x itself. Tier A converts
// those lanes as zeros. The other tiers convert them as they are: that raises invalid for what no integer
// holds.
ZELK_INLINE float4 truncate(float4 x, const tables::Roundingf4& k)
{
    const int4 exponent = as_int4(x) & k.s_dw7f800000;
    const int4 sign = as_int4(x) & k.s_dwSMask;
    if constexpr (tier == Tier::A) {
        const int4 small = as_float4(exponent) < k.s_dw4b000000;
        const float4 t = truncate_through_int(as_float4(as_int4(x) & small));
        return as_float4(select(small, as_int4(t) | sign, as_int4(x)));
    } else {
        const int4 big = exponent > k.s_dw4affffff;
        return as_float4(select(big, as_int4(x), as_int4(truncate_through_int(x)) | sign));
    }
}

// The mask that keeps the sign, the exponent and the integral bits of a lane, from |x| or its exponent field
// alone: the high 16 bits, 16 e and four fraction bits, become 16 min(max(e - 1022, 0), 53) and something
// below 16.
ZELK_INLINE long2 integral_mask(long2 magnitude, const tables::Rounding2& k)
{
    const auto shifted = _mm_adds_epu16((__m128i)magnitude, (__m128i)k.s_dwHigh.value);
    const auto index = (ushort8)_mm_subs_epu16(shifted, (__m128i)k.s_dwDiff.value);
    const auto mask = [](unsigned i) {
        return (int4)_mm_loadl_epi64((const __m128i*)&tables::__zelk_g_dwMask[i >> 4]);
    };
    return as_long2(join_low(mask(index[3]), mask(index[7])));
}

// x toward zero, a zero with the sign of x.
ZELK_INLINE double2 truncate(double2 x, const tables::Rounding2& k)
{
    return as_double2(as_long2(x) & integral_mask(as_long2(x) & k.s_dwExpMask, k));
}

// All ones in lanes of which not a bit differs.
ZELK_INLINE int4 same_lanes(double2 a, double2 b)
{
    const int4 same_words = as_int4(a) == as_int4(b);
    return same_words & __builtin_shufflevector(same_words, same_words, 1, 0, 3, 2);
}

// x in the current rounding mode: beside 2^23 (2^52) with the sign of x there is no room for a fraction.
// Lanes that are larger get a zero added. The sign of x goes into the result, for zeros; in round-down mode
// the difference makes +0 a -0.
ZELK_INLINE float4 round_in_current_mode(float4 x, const tables::Roundingf4& k)
{
    const int4 sign = as_int4(x) & k.s_dwSMask;
    const int4 beyond = magnitude_above(x, k.s_dw7fffffff, k.s_dw2p23);
    const float4 c = as_float4((as_int4(k.s_dw2p23) & ~beyond) | sign);
    return as_float4(as_int4((x + c) - c) | sign);
}
ZELK_INLINE double2 round_in_current_mode(double2 x, const tables::Rounding2& k)
{
    const long2 sign = as_long2(x) & k.s_dwSMask;
    const int4 beyond = high_words((as_int4(x) & k.s_dwEMaskHigh) > k.s_dw2p51_high);
    const double2 c = as_double2((as_long2(k.s_dw2p52) & ~as_long2(beyond)) | sign);
    return as_double2(as_long2((x + c) - c) | sign);
}

} // namespace zelk::ZELK_TIER
