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
ZELK_INLINE Degrees degrees_of(Words x)
{
    const int exponent = x.biased_exponent() - exponent_bias;
    if (exponent >= 63) return {modulo_360(x.significand, exponent - 63), 0.0L};
    if (exponent < -1) return {0, number_of(x.significand) * short_power_of_two(exponent - 63)};
    // In units of 2^-64, a half and more as what lacks to the next whole number.
    const std::uint64_t fraction = x.significand << (exponent + 1);
    const std::uint64_t whole = (x.significand >> 1 >> (62 - exponent)) + (fraction >> 63);
    return {modulo_360(whole, 0), from_integer(static_cast<std::int64_t>(fraction)) * 0x1p-64L};
}

// Closer to a zero, in degrees, a polynomial serves.
inline constexpr unsigned first_degree = 16;

// sin d of degrees, |d| <= 16.5.
ZELK_INLINE long double small_sine_in_degrees(long double d)
{
    const auto& k = tables::extended_trig;
    float head;
    asm("fsts %0" : "=m"(head) : "t"(d));
    const long double r = d * k.degree;
    const long double z = r * r;
    const long double z2 = z * z;
    const long double excess = r * z *
                               ((k.sine_3 + z2 * (k.sine_7 + z2 * (k.sine_11 + z2 * k.sine_15))) +
                                z * (k.sine_5 + z2 * (k.sine_9 + z2 * k.sine_13)));
    return head * static_cast<long double>(k.degree_head) +
           ((head * k.degree_rest + (d - head) * k.degree) + excess);
}

// sin(degrees + 90 quadrants), `zero` if that is exactly zero.
ZELK_INLINE long double sine_of(const Degrees& degrees, unsigned quadrants, float zero)
{
    const unsigned quadrant = degrees.whole / 90 + quadrants;
    const unsigned row = degrees.whole % 90;
    const QuadrantSigns signs = quadrant_signs[quadrant & 3];
    const bool odd = (quadrant & 1) != 0;
    if ((odd ? 90 - row : row) < first_degree) [[unlikely]] {
        const long double distance =
            odd ? (90 - static_cast<int>(row)) - degrees.rest : static_cast<int>(row) + degrees.rest;
        return distance == 0 ? zero : small_sine_in_degrees(distance * signs.value);
    }
    const tables::SinCos& point = tables::_rop_sindl_cosdl_table[row];
    const Powers powers = powers_of(degrees.rest * tables::extended_trig.degree);
    return sine_near(odd ? point.cos : point.sin, odd ? point.sin : point.cos, signs, powers);
}

} // namespace zelk::ZELK_TIER
