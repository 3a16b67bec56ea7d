// Tier A, on 32-bit x86, of the float4 functions whose other tiers need integer lanes or binary64 lanes: each
// lane through a function of 80-bit numbers, lane 0 first, and rounded to binary32 once. A lane's result
// depends on its argument alone.
//
// The 80-bit functions are good to 2^-50 and better: their rounded values are the nearest binary32 numbers
// but for a few in 10^8. The rounding also raises what the value itself raises in binary32: overflow,
// underflow, inexact. Special arguments give what they give in the other tiers, stored patterns where those
// store them.
#pragma once

#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

// Lanes are bit patterns wherever a signalling NaN may stay one.
inline constexpr std::uint32_t sign_bit = 0x80000000;
inline constexpr std::uint32_t infinity_pattern = 0x7F800000;

ZELK_INLINE std::uint32_t magnitude_pattern(std::uint32_t x)
{
    return x & ~sign_bit;
}
ZELK_INLINE bool is_nan(std::uint32_t x)
{
    return magnitude_pattern(x) > infinity_pattern;
}
ZELK_INLINE float number(std::uint32_t x)
{
    return __builtin_bit_cast(float, x);
}
ZELK_INLINE std::uint32_t rounded_pattern(long double x)
{
    return __builtin_bit_cast(std::uint32_t, static_cast<float>(x));
}

// A function that has no special arguments but those of its 80-bit form.
template <long double (*function)(long double)>
static std::uint32_t rounded(std::uint32_t x)
{
    return rounded_pattern(function(number(x)));
}

ZELK_INLINE float4 lane_by_lane(float4 x, float4 y, std::uint32_t (*routine)(std::uint32_t, std::uint32_t))
{
    uint4 lanes = as_uint4(x);
    const uint4 second = as_uint4(y);
    for (int lane = 0; lane < 4; ++lane)
        lanes[lane] = routine(lanes[lane], second[lane]);
    return as_float4(lanes);
}

} // namespace zelk::ZELK_TIER
