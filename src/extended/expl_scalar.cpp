// e^x of one 80-bit number: reduction by multiples of ln2/256, a table of 2^(j/256) and the Taylor polynomial
// of degree 7.
#include "dispatch/kernels.h"
#include "extended/exponential.h"

namespace zelk::ZELK_TIER {

// |x| < 2^-60 or |x| >= 2^14, infinities, NaNs and unsupported encodings.
[[gnu::noinline, gnu::cold]] static long double expl_special(long double x)
{
    const Words words = words_of(x);
    if (words.infinite()) return words.negative() ? 0.0L : x;
    if (words.not_finite()) return x + x;
    if (words.biased_exponent() < exponent_bias) return 1.0L + x;
    return words.negative() ? underflowed(false) : overflowed(false);
}

// 2^13 <= |x| < 2^14: the result may leave the normal numbers.
[[gnu::noinline]] static long double expl_far(Words x)
{
    return rounded(exponential(short_head(x)));
}

long double expl_scalar(long double x)
{
    const Words X = stored_words(x);
    if (!in_binades(X, -60, 13)) [[unlikely]]
        return in_binades(X, 13, 14) ? expl_far(X) : expl_special(x);
    return exponential_of(X);
}

} // namespace zelk::ZELK_TIER
