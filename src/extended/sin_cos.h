// Sine and cosine of an angle that lies next to a point of a grid, for radians and degrees.
// Method: sin(c + t) = S + (S (cos t - 1) + C sin t), S = sin c and C = cos c from a table in two binary64.
// What is in the parentheses is at most 2^-5 of the result, so that its roundings hardly show. Next to a zero
// of the result, where it would not be, a polynomial gives what the angle's distance from the zero lacks.
#pragma once

#include "extended/arc.h"
#include "extended/reduction.h"

namespace zelk::ZELK_TIER {

// What sine and cosine share.
struct Powers {
    long double sine;   // sin t
    long double cosine; // cos t - 1
};
ZELK_INLINE Powers powers_of(long double t)
{
    const auto& k = tables::extended_trig;
    const long double z = t * t;
    return {t + t * z * (k.sine_3.hi + z * (k.sine_5 + z * k.sine_7)),
            z * (k.cosine_2 + z * (k.cosine_4 + z * k.cosine_6))};
}

// sin r - r, |r| < 0.135.
ZELK_INLINE long double small_sine_excess(long double r)
{
    const auto& k = tables::extended_trig;
    const long double z = r * r;
    return r * z *
           (k.sine_3 + z * (k.sine_5 + z * (k.sine_7 + z * (k.sine_9 + z * (k.sine_11 + z * k.sine_13)))));
}

// Signs of the sine and of its slope by quadrant.
struct QuadrantSigns {
    float value;
    float slope;
};
static constexpr QuadrantSigns quadrant_signs[4] = {{1, 1}, {1, -1}, {-1, -1}, {-1, 1}};

// sin(c + t), |sin c| = value.
ZELK_INLINE long double sine_near(const tables::HiLo& value, const tables::HiLo& slope, QuadrantSigns signs,
                                  const Powers& p)
{
    const long double S = static_cast<long double>(value.hi) * signs.value;
    const long double S_lo = static_cast<long double>(value.lo) * signs.value;
    const long double C = (slope.hi + static_cast<long double>(slope.lo)) * signs.slope;
    return S + (S_lo + (S * p.cosine + C * p.sine));
}

// x = n pi/512 + t, |t| <= pi/1024 and a little: in every rounding mode, so that next to the maximum of the
// sine t is the distance from it.
struct Angle {
    int n;
    long double t;
};
// Of hi + lo, a number of less than 10 binades above 1. The product with the head is exact and the difference
// too.
ZELK_INLINE Angle angle_of(Pair x)
{
    const auto& k = tables::extended_trig;
    const auto quotient = _mm_set_ss(static_cast<float>(x.hi * k.steps_per_radian));
    const auto half = _mm_or_ps(_mm_and_ps(quotient, _mm_set_ss(-0.0f)), _mm_set_ss(0.5f));
    const int n = _mm_cvttss_si32(_mm_add_ss(quotient, half));
    const auto steps = static_cast<long double>(n);
    return {n, ((x.hi - steps * k.step_head) + x.lo) - steps * k.step_rest};
}

inline constexpr int smallest_angle = -40;
inline constexpr int far_angle = 10;

// From 2^10 on.
[[gnu::noinline]] static long double far_angle_of(Words x, int* n)
{
    const Reduced reduced = reduce_large(x);
    const Angle angle = angle_of(reduced.rest);
    *n = angle.n + static_cast<int>((reduced.octant + 1) >> 1 << 8);
    return angle.t;
}
ZELK_INLINE Angle angle_of(Words x)
{
    if (x.biased_exponent() >= exponent_bias + far_angle) [[unlikely]] {
        Angle angle;
        angle.t = far_angle_of(x, &angle.n);
        return angle;
    }
    return angle_of(short_head(x));
}

// Row of the table that has |sin(n pi/512)|.
ZELK_INLINE unsigned row_of(int n)
{
    const unsigned odd = static_cast<unsigned>(n) >> 8 & 1;
    return ((static_cast<unsigned>(n) & 255) ^ -odd) + odd * 257;
}
// Rows below this are too close to a zero.
inline constexpr unsigned first_row = 21;
ZELK_INLINE bool next_to_zero(int n)
{
    return (static_cast<unsigned>(n) + (first_row - 1)) % 512 < 2 * first_row - 1;
}

// sin(n pi/512 + t). The cosine is the sine of the angle 256 steps on.
ZELK_INLINE long double sine_from_table(int n, const Powers& p)
{
    const tables::HiLo* const sines = tables::extended_trig.sines;
    const unsigned row = row_of(n);
    return sine_near(sines[row], sines[256 - row], quadrant_signs[static_cast<unsigned>(n) >> 8 & 3], p);
}

// x less a multiple of pi/2 that is at most 0.135 away, hi + lo.
ZELK_INLINE Pair distance_from(int n, Words x)
{
    const auto& k = tables::extended_trig;
    if (x.biased_exponent() < exponent_bias + far_angle) {
        const Pair parts = short_head(x);
        const int nearest = (n + 128) & -256;
        const auto steps = static_cast<long double>(nearest);
        const long double distance = (parts.hi - steps * k.step_head) + parts.lo;
        // Closer to the multiple, what rounds in the product would show.
        if (nearest == 0 || magnitude(distance) > 0x1p-18f) return {distance, -(steps * k.step_rest)};
    }
    return reduce_large(x).rest;
}

// sin(x + quarters pi/2) if that is next to zero, x being next to n pi/512.
[[gnu::noinline]] static long double sine_next_to_zero(Words x, int n, int quarters)
{
    const Pair distance = distance_from(n, x);
    const long double sign = quadrant_signs[static_cast<unsigned>((n + 128 + 256 * quarters) >> 8) & 3].value;
    return distance.hi * sign + (distance.lo + small_sine_excess(distance.hi + distance.lo)) * sign;
}

// sin(x + quarters pi/2), rounded.
ZELK_INLINE long double sine_of(Words x, int quarters)
{
    const Angle angle = angle_of(x);
    const int n = angle.n + 256 * quarters;
    if (next_to_zero(n)) [[unlikely]]
        return sine_next_to_zero(x, angle.n, quarters);
    return sine_from_table(n, powers_of(angle.t));
}

// Below 2^-40, sin x is x but for less than 2^-80 of it, cos x is 1 but for less than 2^-80.
// Tiny, infinite, NaN or no number at all.
ZELK_INLINE bool off_the_path(Words x)
{
    return !in_binades(x, smallest_angle, exponent_bias + 1);
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
