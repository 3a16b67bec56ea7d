// sin x of one 80-bit number of degrees; method in degrees.h.
#include "dispatch/kernels.h"
#include "extended/degrees.h"

namespace zelk::ZELK_TIER {

[[gnu::cold, gnu::noinline]] static long double sine_off_the_path_in_degrees(long double x)
{
    const Words words = words_of(x);
    if (words.not_finite()) return x - x;
    if (words.zero()) return x;
    // x pi/180, less a part that no rounding sees.
    const Normalised n = normalised_finite(words);
    const auto& factor = tables::extended_trig.radians_per_degree;
    const long double significand = number_of(n.significand, exponent_bias | (words.sign_exponent & 0x8000));
    return scaled_far(multiply(Pair{factor.hi, factor.lo}, significand), n.exponent);
}

long double sindl_scalar(long double x)
{
    const Words X = stored_words(x);
    if (off_the_path(X)) [[unlikely]]
        return sine_off_the_path_in_degrees(x);
    const bool negative = X.negative();
    return sine_of(degrees_of(X), negative ? 2 : 0, negative ? -0.0f : 0.0f);
}

} // namespace zelk::ZELK_TIER
