// acos x of one 80-bit number: the direction of (x, sqrt(1 - x^2)); method in direction.h.
#include "dispatch/kernels.h"
#include "extended/direction.h"

namespace zelk::ZELK_TIER {

// 1 or beyond, NaN or no number at all.
[[gnu::cold, gnu::noinline]] static long double arc_cosine_off_the_path(long double x)
{
    const Words X = words_of(x);
    if (X.not_finite()) return x - x;
    if (magnitude(x) > 1.0L) return invalid();
    return radians({X.negative() ? 512u : 0u, {0.0L, 0.0L}, 0}, false);
}

long double acosl_scalar(long double x)
{
    const Words X = words_of(x);
    if (X.not_finite() || X.biased_exponent() >= exponent_bias) [[unlikely]]
        return arc_cosine_off_the_path(x);
    // What is below 2^-100 does not show beside pi/2.
    const long double a = X.biased_exponent() < exponent_bias - 100 ? 0x1p-100L : magnitude(x);
    return radians(direction_of(complement(a), Pair{a, 0.0L}, X.negative()), false);
}

} // namespace zelk::ZELK_TIER
