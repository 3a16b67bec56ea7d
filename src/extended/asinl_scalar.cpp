// asin x of one 80-bit number: the direction of (sqrt(1 - x^2), x); method in direction.h.
#include "dispatch/kernels.h"
#include "extended/direction.h"

namespace zelk::ZELK_TIER {

// Tiny, 1 or beyond, NaN or no number at all.
[[gnu::cold, gnu::noinline]] static long double arc_sine_off_the_path(long double x)
{
    const Words X = words_of(x);
    if (X.not_finite()) return x - x;
    const long double a = magnitude(x);
    if (a > 1.0L) return invalid();
    if (a == 1.0L) return radians({256, {0.0L, 0.0L}, 0}, X.negative());
    return X.zero() ? x : and_a_little(x);
}

long double asinl_scalar(long double x)
{
    const Words X = words_of(x);
    // Below 2^-40, asin x is x but for less than 2^-80 of it.
    if (X.significand >> 63 == 0 || X.biased_exponent() >= exponent_bias ||
        X.biased_exponent() < exponent_bias - 40) [[unlikely]]
        return arc_sine_off_the_path(x);
    const long double a = magnitude(x);
    return radians(direction_of(Pair{a, 0.0L}, complement(a), false), X.negative());
}

} // namespace zelk::ZELK_TIER
