// Arc sine and arc cosine in the 80-bit format.
// Method: asin x = asin c + asin s with c the middle of x's interval of width 1/256, asin c from a table, and
//   s = (x^2 - c^2)/(x sqrt(1 - c^2) + c sqrt(1 - x^2)),
// which is small; x - c is exact, by integer arithmetic. Below 1/8 a polynomial; from 15/16 on twice the arc
// sine of the root of (1 - x)/2.
#pragma once

#include "extended/arc.h"
#include "tables/extended_trig.h"

namespace zelk::ZELK_TIER {

// Multiples of pi/2.
ZELK_INLINE const tables::HiLo& quarter_turns(unsigned quarters)
{
    return tables::_rop_atanl_table_128[256 * quarters];
}

// Number of the interval [j, j + 1)/256 that |x| is in, 1/8 <= |x| < 1.
ZELK_INLINE unsigned interval_of(Words x)
{
    return static_cast<unsigned>(x.significand >> 32) >> (23 - (x.biased_exponent() - exponent_bias));
}

// asin x = +-angle + (offset + curvature).
struct ArcSine {
    const tables::HiLo& angle;
    long double sign;
    long double offset;
    long double curvature;
};
ZELK_INLINE ArcSine arc_sine_from_table(Words x, unsigned interval)
{
    const auto& row = tables::extended_trig.arc_sine[interval - 32];
    // In units of 2^-66; the bits that are shifted out are those of c.
    const std::uint64_t units = x.significand << (3 + x.biased_exponent() - exponent_bias);
    const auto middle = static_cast<int>(2 * interval + 1);
    const auto distance = static_cast<std::int64_t>(units - (static_cast<std::uint64_t>(middle) << 57));
    const long double c = middle * short_power_of_two(-9, x.negative());
    const long double d = from_integer(distance) * short_power_of_two(-66, x.negative());
    const long double argument = c + d;
    const long double cosine = square_root((1.0L - argument) * (1.0L + argument));
    const long double s =
        d * (argument + c) / (argument * (row.cos.hi + static_cast<long double>(row.cos.lo)) + c * cosine);
    const long double z = s * s;
    return {row.angle, short_power_of_two(0, x.negative()), s,
            s * z * polynomial_in_halves(tables::asin_offset_R, z)};
}

// asin x - x, |x| < 1/8.
ZELK_INLINE long double small_arc_sine_excess(long double x)
{
    const long double z = x * x;
    return x * z * polynomial_in_halves(tables::asin_R, z);
}

// acos |x| = head + tail for 15/16 <= |x| < 1. The head has 24 bits.
ZELK_INLINE Pair small_arc_cosine(Words x)
{
    const long double z =
        from_integer(static_cast<std::int64_t>(-x.significand)) * short_power_of_two(-65); // (1 - |x|)/2
    const long double root = square_root(z);
    float rounded_root;
    asm("fsts %0" : "=m"(rounded_root) : "t"(root));
    const long double head = rounded_root;
    const long double rest = (z - head * head) / (root + head); // of the root
    return {head + head, 2 * (rest + root * z * polynomial_in_halves(tables::asin_R, z))};
}

} // namespace zelk::ZELK_TIER
