// e^x of one 80-bit number: reduction by multiples of ln2/256, a table of 2^(j/256) and the Taylor polynomial
// of degree 7.
#include "dispatch/kernels.h"
#include "extended/exponential.h"

namespace zelk::ZELK_TIER {

// |x| < 2^-66 or |x| >= 2^14, infinities, NaNs and unsupported encodings.
[[gnu::noinline, gnu::cold]] static long double expl_special(long double x)
{
    const Words words = words_of(x);
    if (words.infinite()) return words.negative() ? 0.0L : x;
    if (words.not_finite()) return x + x;
    if (words.biased_exponent() < exponent_bias) return 1.0L + x;
    return words.negative() ? underflowed(false) : overflowed(false);
}

long double expl_scalar(long double stacked)
{
    const long double x = argument(stacked);
    if (!in_binades(words_of(x), -66, 14)) [[unlikely]]
        return expl_special(x);
    return rounded(exponential(x));
}

} // namespace zelk::ZELK_TIER
