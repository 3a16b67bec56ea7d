// ln(1 + x) of one 80-bit number: a polynomial alone next to 0, otherwise the logarithm of 1 + x, which is
// carried as two binary64, without SSE2 as a pair of 80-bit numbers.
#include "dispatch/kernels.h"
#include "extended/logarithm.h"
#if defined(__SSE2__)
#include "extended/logarithm_parts.h"
#endif

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
    return logl_scalar(x);
}

#if defined(__SSE2__)
// |x| < 2^-9
[[gnu::noinline]] static long double log1pl_near_zero(long double stacked)
{
    return rounded(log1p_near_zero({argument(stacked), 0}));
}

long double log1pl_scalar(long double stacked)
{
    const StackedNumber x(stacked);
    const unsigned sign_exponent = x.sign_exponent();
    if (!in_binades(x, -66, 72) || sign_exponent >= 0x8000 + exponent_bias) [[unlikely]]
        return log1pl_special(stacked);
    if (x.biased_exponent() < exponent_bias - 9) [[unlikely]]
        return log1pl_near_zero(stacked);
    const Parts parts = with_sign(magnitude_parts(x), sign_of(x));
    const Parts sum = two_sum(1.0, parts.hi);
    const Parts one_plus = fast_two_sum(sum.hi, sum.lo + parts.lo);
    return rounded(logarithm_parts(logarithm_argument(one_plus.hi), one_plus.lo / one_plus.hi));
}
#else
long double log1pl_scalar(long double stacked)
{
    const long double x = argument(stacked);
    if (!in_binades(words_of(x), -66, 72) || x <= -1.0L) [[unlikely]]
        return log1pl_special(x);
    return logarithm_of_one_plus(x);
}
#endif

} // namespace zelk::ZELK_TIER
