// Circular functions and their inverses, lane by lane in 80 bits. Sine, cosine and tangent from 2^22 on, of
// infinities and of NaNs are those of 80-bit numbers; arc tangents are the processor's own.
#include "invtrig/atan2_special.h"
#include "lane_loops/per_lane.h"
#include "lane_loops/quadrant.h"
#include "tables/atanf4.h"

namespace zelk::ZELK_TIER {

// The sine of -0 is +0, as in the other tiers.
static std::uint32_t sine(std::uint32_t x)
{
    if (magnitude_pattern(x) == 0) return 0;
    if (magnitude_pattern(x) >= quadrant_bound) [[unlikely]]
        return rounded<sinl_scalar>(x);
    const auto [n, r] = quadrant_of(number(x));
    return rounded_pattern(sine_in_quadrant(n, r));
}
static std::uint32_t cosine(std::uint32_t x)
{
    if (magnitude_pattern(x) >= quadrant_bound) [[unlikely]]
        return rounded<cosl_scalar>(x);
    const auto [n, r] = quadrant_of(number(x));
    return rounded_pattern(sine_in_quadrant(n + 1, r));
}
static std::uint32_t tangent(std::uint32_t x)
{
    if (magnitude_pattern(x) == 0) return x;
    if (magnitude_pattern(x) >= quadrant_bound) [[unlikely]]
        return rounded<tanl_scalar>(x);
    const auto [n, r] = quadrant_of(number(x));
    const long double s = sine_of(r);
    const long double c = cosine_of(r);
    return rounded_pattern((n & 1) != 0 ? -c / s : s / c);
}

ZELK_INLINE long double partial_arctangent(long double y, long double x)
{
    long double angle;
    asm("fpatan" : "=t"(angle) : "0"(x), "u"(y) : "st(1)");
    return angle;
}

static std::uint32_t arctangent(std::uint32_t x)
{
    if (magnitude_pattern(x) == infinity_pattern) return (x & sign_bit) | 0x3FC90FDB; // +-pi/2
    return rounded_pattern(partial_arctangent(number(x), 1.0L));
}

static std::uint32_t arctangent2(std::uint32_t y, std::uint32_t x)
{
    float special;
    if (special_atan2(number(y), number(x), tables::atan2_ss.angles, special))
        return __builtin_bit_cast(std::uint32_t, special);
    return rounded_pattern(partial_arctangent(number(y), number(x)));
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
        const std::uint32_t at = sines[lane];
        if (magnitude_pattern(at) - 1 >= quadrant_bound - 1) [[unlikely]] { // zero too
            cosines[lane] = cosine(at);
            sines[lane] = sine(at);
            continue;
        }
        const auto [n, r] = quadrant_of(number(at));
        const long double s = sine_of(r);
        const long double c = cosine_of(r);
        sines[lane] = rounded_pattern(in_quadrant(n, s, c));
        cosines[lane] = rounded_pattern(in_quadrant(n + 1, s, c));
    }
    return {as_float4(sines), as_float4(cosines)};
}

float4 sinf4(float4 x)
{
    return lane_by_lane(x, sine);
}
float4 cosf4(float4 x)
{
    return lane_by_lane(x, cosine);
}
float4 tanf4(float4 x)
{
    return lane_by_lane(x, tangent);
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
