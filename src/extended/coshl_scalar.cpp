// cosh x of one 80-bit number: half the sum of e^x and e^-x below 40, e^x/2 above.
#include "dispatch/kernels.h"
#include "extended/hyperbolic.h"

namespace zelk::ZELK_TIER {

// |x| < 2^-33 or |x| >= 2^14, infinities, NaNs and unsupported encodings.
[[gnu::noinline, gnu::cold]] static long double coshl_special(long double x)
{
    const Words words = words_of(x);
    if (words.infinite()) return magnitude(x);
    if (words.not_finite()) return x + x;
    if (words.biased_exponent() < exponent_bias) return 1.0L + magnitude(x) * 0x1p-34L;
    return overflowed(false);
}

long double coshl_scalar(long double stacked)
{
    const long double x = argument(stacked);
    if (!in_binades(words_of(x), -33, 14)) [[unlikely]]
        return coshl_special(x);
    const long double size = magnitude(x);
    if (size < one_exponential) return rounded(half_sum(exponential_both_ways(size)));
    return rounded(half_exponential(size));
}

} // namespace zelk::ZELK_TIER
