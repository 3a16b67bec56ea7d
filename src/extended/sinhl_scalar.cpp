// sinh x of one 80-bit number: the Taylor polynomial below 1/8, half the difference of e^x and e^-x below 40,
// e^x/2 above.
#include "dispatch/kernels.h"
#include "extended/hyperbolic.h"

namespace zelk::ZELK_TIER {

// |x| < 2^-33 or |x| >= 2^14, infinities, NaNs and unsupported encodings.
[[gnu::noinline, gnu::cold]] static long double sinhl_special(long double x)
{
    const Words words = words_of(x);
    if (words.infinite() || words.zero()) return x;
    if (words.not_finite()) return x + x;
    if (words.biased_exponent() < exponent_bias) return and_a_little(x);
    return overflowed(words.negative());
}

long double sinhl_scalar(long double stacked)
{
    const long double x = argument(stacked);
    const Words words = words_of(x);
    if (!in_binades(words, -33, 14)) [[unlikely]]
        return sinhl_special(x);
    if (words.biased_exponent() < exponent_bias - 3) return x + sinh_tail(x);
    const long double size = magnitude(x);
    if (size < one_exponential)
        return rounded(with_sign(words.negative(), half_difference(exponential_both_ways(size))));
    const ScaledPair half = half_exponential(size);
    return rounded(ScaledPair{with_sign(words.negative(), half.value), half.exponent});
}

} // namespace zelk::ZELK_TIER
