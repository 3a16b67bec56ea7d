// Hyperbolic functions and their inverses, lane by lane in 80 bits. What the other tiers store, infinities
// from 704 on, ones from 10 on, NaNs outside the domains, is stored here too; tiny arguments come back.
#include "lane_loops/per_lane.h"

namespace zelk::ZELK_TIER {

static constexpr std::uint32_t one = 0x3F800000;
static constexpr std::uint32_t nan_pattern = 0x7FFFFFFF;
static constexpr std::uint32_t end_of_range = 0x44300000; // 704

static std::uint32_t sinh_lane(std::uint32_t x)
{
    const std::uint32_t magnitude = magnitude_pattern(x);
    if (magnitude < 0x399D4952) return x; // 0.0003
    if (magnitude >= end_of_range && !is_nan(x)) return (x & sign_bit) | infinity_pattern;
    return rounded<sinhl_scalar>(x);
}
static std::uint32_t cosh_lane(std::uint32_t x)
{
    if (magnitude_pattern(x) >= end_of_range && !is_nan(x)) return infinity_pattern;
    return rounded<coshl_scalar>(x);
}
static std::uint32_t tanh_lane(std::uint32_t x)
{
    if (magnitude_pattern(x) >= 0x41200000 && !is_nan(x)) return (x & sign_bit) | one; // 10
    return rounded<tanhl_scalar>(x);
}

// Infinities and NaNs, signalling ones too, come back as they are.
static std::uint32_t asinh_lane(std::uint32_t x)
{
    const std::uint32_t magnitude = magnitude_pattern(x);
    if (magnitude < 0x31800000 || magnitude >= infinity_pattern) return x; // 2^-28
    return rounded<asinhl_scalar>(x);
}
static std::uint32_t acosh_lane(std::uint32_t x)
{
    if (x < one || x >= sign_bit) return nan_pattern;
    if (x >= infinity_pattern) return x;
    return rounded<acoshl_scalar>(x);
}
static std::uint32_t atanh_lane(std::uint32_t x)
{
    const std::uint32_t magnitude = magnitude_pattern(x);
    if (magnitude < 0x30800000) return x; // 2^-30
    if (magnitude >= one) return (x & sign_bit) | (magnitude == one ? infinity_pattern : nan_pattern);
    return rounded<atanhl_scalar>(x);
}

float4 sinhf4(float4 x)
{
    return lane_by_lane(x, sinh_lane);
}
float4 coshf4(float4 x)
{
    return lane_by_lane(x, cosh_lane);
}
float4 tanhf4(float4 x)
{
    return lane_by_lane(x, tanh_lane);
}
float4 asinhf4(float4 x)
{
    return lane_by_lane(x, asinh_lane);
}
float4 acoshf4(float4 x)
{
    return lane_by_lane(x, acosh_lane);
}
float4 atanhf4(float4 x)
{
    return lane_by_lane(x, atanh_lane);
}

} // namespace zelk::ZELK_TIER
