// Sine and cosine of degrees. Method: x is n degrees and at most half a degree more; n modulo 360 is exact
// integer arithmetic for every finite x, sine and cosine of whole degrees come from the exported table, and
// what is left goes in radians into the sums of sin_cos.h.
#pragma once

#include "extended/sin_cos.h"
#include "tables/extended.h"

namespace zelk::ZELK_TIER {

// significand 2^exponent modulo 360, exponent >= 0.
[[maybe_unused]] static unsigned modulo_360(std::uint64_t significand, int exponent)
{
    // 2^32 = 256 modulo 360, and the powers of two from 8 on repeat modulo 360 after 12 steps.
    const auto high = static_cast<std::uint32_t>(significand >> 32) % 360;
    const auto low = static_cast<std::uint32_t>(significand) % 360;
    const unsigned steps =
        exponent < 15 ? static_cast<unsigned>(exponent) : 3 + static_cast<unsigned>(exponent - 3) % 12;
    return (high * 256 + low) % 360 * (1u << steps) % 360;
}

// |x| is whole (modulo 360) and rest, |rest| <= 1/2; x finite.
struct Degrees {
    unsigned whole;
    long double rest;
};
ZELK_INLINE Degrees degrees_of(long double x)
{
    const Words words = words_of(x);
    const int exponent = words.biased_exponent() - exponent_bias;
    if (exponent >= 63) return {modulo_360(words.significand, exponent - 63), 0.0L};
    const std::uint64_t halves = exponent < -1 ? 0 : words.significand >> (62 - exponent);
    const std::uint64_t whole = (halves >> 1) + (halves & 1);
    return {modulo_360(whole, 0), magnitude(x) - static_cast<long double>(whole)};
}

// The leading 32 bits of hi and all that follows.
ZELK_INLINE Pair with_short_head(const tables::HiLo& value)
{
    const auto bits = __builtin_bit_cast(std::uint64_t, value.hi);
    const auto head = static_cast<long double>(__builtin_bit_cast(double, bits >> 21 << 21));
    return {head, (value.hi - head) + value.lo};
}

// sin(degrees + 90 quadrants), `zero` if that is exactly zero.
ZELK_INLINE long double sine_of(const Degrees& degrees, unsigned quadrants, long double zero)
{
    const auto& k = tables::extended_trig;
    const unsigned quadrant = degrees.whole / 90 + quadrants;
    const unsigned row = degrees.whole % 90;
    if (row == 0 && (quadrant & 1) == 0 && degrees.rest == 0) return zero;
    const tables::SinCos& point = tables::_rop_sindl_cosdl_table[row];
    const Pair radians = multiply(Pair{k.radians_per_degree.hi, k.radians_per_degree.lo}, degrees.rest);
    const Angle angle = {quadrant, false, {with_short_head(point.sin), with_short_head(point.cos), radians}};
    return sine_from(quadrant, angle, powers_of(radians));
}

} // namespace zelk::ZELK_TIER
