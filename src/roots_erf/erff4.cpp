// erf x on four binary32 lanes.
// Method: a cubic in |x| per sixteenth of a binade, in binary64, rounded to binary32 once; below 1/32 and
// from 4 on one row each.
#include "tables/erff4.h"
#include "dispatch/kernels.h"
#include "roots_erf/erf.h"

namespace zelk::ZELK_TIER {

using tables::SerfTable;

ZELK_INLINE int4 row_of(int4 magnitude, const SerfTable& k)
{
    const int4 sixteenths = positive_part((magnitude - k.index_base) >> 3);
    return select(sixteenths > k.index_limit, k.index_limit, sixteenths) >> 16;
}

// x as a bit pattern. Tier A takes every lane through here, the other tiers those of a vector with a lane
// that is not finite; the polynomial is the same.
static std::uint32_t __erff_scalar(std::uint32_t x)
{
    const auto& k = tables::serfTable;
    const std::uint32_t magnitude = x & 0x7FFFFFFF;
    const std::uint32_t sign = x ^ magnitude;
    if (magnitude > 0x7F800000) return quieted(x);
    if (magnitude == 0x7F800000) return sign | 0x3F800000;

    const double a = __builtin_bit_cast(float, magnitude);
    const auto& row = k.rows[row_of(as_int4(splat(__builtin_bit_cast(float, magnitude))), k)[0]];
    const auto P = static_cast<float>(polynomial(splat(a), row, row)[0]);
    return __builtin_bit_cast(std::uint32_t, P) | sign;
}

ZELK_INLINE float4 erf_of_finite(float4 x, int4 magnitude, const SerfTable& k)
{
    const int4 row = row_of(magnitude, k);
    const float4 a = as_float4(magnitude);
    const double2 P_low = polynomial(widen_low(a), k.rows[row[0]], k.rows[row[1]]);
    const double2 P_high = polynomial(widen_high(a), k.rows[row[2]], k.rows[row[3]]);
    return as_float4(as_int4(narrow(P_low, P_high)) | (as_int4(x) & k.sign_mask));
}

[[gnu::noinline]] static float4 erf_by_lane(float4 x)
{
    return lane_by_lane(x, __erff_scalar);
}

float4 erff4(float4 x)
{
    const auto& k = tables::serfTable;
    if constexpr (tier == Tier::A) return erf_by_lane(x);
    const int4 magnitude = as_int4(x) & k.abs_mask;
    if (lane_mask(k.infinity > magnitude) != all_lanes4) [[unlikely]]
        return erf_by_lane(x);
    return erf_of_finite(x, magnitude, k);
}

} // namespace zelk::ZELK_TIER
