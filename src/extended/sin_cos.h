// Sine and cosine of an angle that lies next to a point of a grid, for radians and degrees.
// Method: sin(c + t) = S + (C t + (S (cos t - 1) + C (sin t - t))), S = sin c and C = cos c in two parts
// each, the first of 32 bits, so that its product with the leading 32 bits of t is exact and everything that
// is rounded is below 2^-13 of the result.
#pragma once

#include "extended/reduction.h"

namespace zelk::ZELK_TIER {

// sin and cos of the grid point, hi of at most 32 bits, and t: |t| < 2^-6.7.
struct NearGrid {
    Pair sin;
    Pair cos;
    Pair t;
};

// What sine and cosine share.
struct Powers {
    Pair t;             // 32 leading bits and the rest
    long double sine;   // sin t - t
    long double cosine; // cos t - 1
};
ZELK_INLINE Powers powers_of(Pair t)
{
    const auto& k = tables::extended_trig;
    const Pair parts = split(t.hi);
    const long double z = t.hi * t.hi;
    Powers powers;
    powers.t = {parts.hi, parts.lo + t.lo};
    powers.sine = t.hi * z * (k.sine_3 + z * (k.sine_5 + z * (k.sine_7 + z * k.sine_9)));
    powers.cosine = z * (k.cosine_2 + z * (k.cosine_4 + z * (k.cosine_6 + z * k.cosine_8)));
    return powers;
}

// The pairs' lo is up to 2^-13 of hi: not yet rounded.
ZELK_INLINE Pair sine(const NearGrid& at, const Powers& p)
{
    const Pair sum = fast_two_sum(at.sin.hi, at.cos.hi * p.t.hi);
    const long double products = rounded(at.cos) * p.t.lo + at.cos.lo * p.t.hi;
    const long double curvature = rounded(at.sin) * p.cosine + rounded(at.cos) * p.sine;
    return {sum.hi, sum.lo + (at.sin.lo + products) + curvature};
}
ZELK_INLINE Pair cosine(const NearGrid& at, const Powers& p)
{
    const Pair sum = fast_two_sum(at.cos.hi, -(at.sin.hi * p.t.hi));
    const long double products = rounded(at.sin) * p.t.lo + at.sin.lo * p.t.hi;
    const long double curvature = rounded(at.cos) * p.cosine - rounded(at.sin) * p.sine;
    return {sum.hi, sum.lo + (at.cos.lo - products) + curvature};
}

// An angle as quadrant pi/2 + (c + t), or quadrant pi/2 - (c + t).
struct Angle {
    unsigned quadrant;
    bool negative;
    NearGrid at;
};
ZELK_INLINE Angle angle_of(long double x)
{
    const Reduced reduced = reduce(x);
    Angle angle;
    angle.quadrant = (reduced.octant + 1) >> 1;
    angle.negative = words_of(reduced.rest.hi).negative();
    const Pair rest = with_sign(angle.negative, reduced.rest);
    const unsigned j = grid_index(rest.hi, 6);
    const tables::SinCos& row = tables::extended_trig.grid[j];
    const long double t = rest.hi - static_cast<long double>(static_cast<int>(j)) * 0x1p-6L; // exact
    angle.at = {{row.sin.hi, row.sin.lo}, {row.cos.hi, row.cos.lo}, fast_two_sum(t, rest.lo)};
    return angle;
}

// sin(quadrant pi/2 +- angle), rounded. cos x is the sine of the angle one quadrant on.
ZELK_INLINE long double sine_from(unsigned quadrant, const Angle& angle, const Powers& p)
{
    const bool odd = (quadrant & 1) != 0;
    const Pair value = odd ? cosine(angle.at, p) : sine(angle.at, p);
    const bool negative = ((quadrant & 2) != 0) != (angle.negative && !odd);
    return negative ? -value.hi - value.lo : value.hi + value.lo;
}

// Below 2^-40, sin x is x but for less than 2^-80 of it, cos x is 1 but for less than 2^-80.
inline constexpr int smallest_angle = -40;
// Tiny, infinite, NaN or no number at all.
ZELK_INLINE bool off_the_path(Words x)
{
    return x.not_finite() || x.biased_exponent() < exponent_bias + smallest_angle;
}
[[maybe_unused, gnu::cold, gnu::noinline]] static long double sine_off_the_path(long double x)
{
    const Words words = words_of(x);
    if (words.not_finite()) return x - x;
    return words.zero() ? x : but_a_little(x);
}
[[maybe_unused, gnu::cold, gnu::noinline]] static long double cosine_off_the_path(long double x)
{
    const Words words = words_of(x);
    if (words.not_finite()) return x - x;
    return words.zero() ? 1.0L : but_a_little(1.0L);
}

} // namespace zelk::ZELK_TIER
