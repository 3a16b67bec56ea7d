// Circular functions and their inverses, lane by lane in 80 bits.
#include "invtrig/atan2_special.h"
#include "lane_loops/per_lane.h"
#include "tables/atanf4.h"

namespace zelk::ZELK_TIER {

// The sine of -0 is +0, as in the other tiers.
static std::uint32_t sine(std::uint32_t x)
{
    return x == sign_bit ? 0 : rounded<sinl_scalar>(x);
}

static std::uint32_t arctangent(std::uint32_t x)
{
    if (magnitude_pattern(x) == infinity_pattern) return (x & sign_bit) | 0x3FC90FDB; // +-pi/2
    return rounded<atanl_scalar>(x);
}

static std::uint32_t arctangent2(std::uint32_t y, std::uint32_t x)
{
    float special;
    if (special_atan2(number(y), number(x), tables::atan2_ss.angles, special))
        return __builtin_bit_cast(std::uint32_t, special);
    return rounded_pattern(atan2l_scalar(number(y), number(x)));
}

struct Pairf4Lanes {
    float4 sine;
    float4 cosine;
};
ZELK_INLINE Pairf4Lanes sines_and_cosines(float4 x)
{
    uint4 sines = as_uint4(x);
    uint4 cosines = as_uint4(x);
    for (int lane = 0; lane < 4; ++lane) {
        long double sine;
        long double cosine;
        sincosl_scalar(number(sines[lane]), &sine, &cosine);
        sines[lane] = sines[lane] == sign_bit ? 0 : rounded_pattern(sine);
        cosines[lane] = rounded_pattern(cosine);
    }
    return {as_float4(sines), as_float4(cosines)};
}

float4 sinf4(float4 x)
{
    return lane_by_lane(x, sine);
}
float4 cosf4(float4 x)
{
    return lane_by_lane(x, rounded<cosl_scalar>);
}
float4 tanf4(float4 x)
{
    return lane_by_lane(x, rounded<tanl_scalar>);
}
float4 sincosf4(float4 x)
{
    const auto [sine, cosine] = sines_and_cosines(x);
    return both(sine, cosine);
}
float4 ropsSinCos4(float4 x, float4* stored)
{
    const auto [sine, cosine] = sines_and_cosines(x);
    *stored = cosine;
    return both(sine, cosine);
}
float4 atanf4(float4 x)
{
    return lane_by_lane(x, arctangent);
}
float4 atan2f4(float4 y, float4 x)
{
    return lane_by_lane(y, x, arctangent2);
}

} // namespace zelk::ZELK_TIER
