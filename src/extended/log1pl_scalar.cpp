// ln(1 + x) of one 80-bit number: the polynomial alone next to 0, otherwise the logarithm of 1 + x, which is
// carried as a pair.
#include "dispatch/kernels.h"
#include "extended/logarithm.h"

namespace zelk::ZELK_TIER {

// |x| < 2^-66, x <= -1, x >= 2^72, infinities, NaNs and unsupported encodings.
[[gnu::noinline, gnu::cold]] static long double log1pl_special(long double x)
{
    const Words words = words_of(x);
    if (words.not_finite() && !words.infinite()) return x + x;
    if (words.zero()) return x;
    if (words.biased_exponent() < exponent_bias - 66)
        return words.negative() ? and_a_little(x) : but_a_little(x);
    if (words.negative()) return x == -1.0L ? pole(true) : invalid();
    if (words.infinite()) return x;
    return rounded(logarithm(reduce_logarithm(normalised(words))));
}

long double log1pl_scalar(long double x)
{
    if (!in_binades(words_of(x), -66, 72) || x <= -1.0L) [[unlikely]]
        return log1pl_special(x);
    return logarithm_of_one_plus(x);
}

} // namespace zelk::ZELK_TIER
