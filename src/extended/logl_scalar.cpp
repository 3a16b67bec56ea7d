// ln x of one 80-bit number: exponent, a table of reciprocals and their logarithms, and a polynomial of
// degree 8 in pieces of binary64, without SSE2 in pairs of 80-bit numbers; a polynomial alone next to 1.
#include "dispatch/kernels.h"
#include "extended/logarithm.h"
#if defined(__SSE2__)
#include "extended/logarithm_parts.h"
#endif

namespace zelk::ZELK_TIER {

// Zeros, denormals, negative numbers, infinities, NaNs and unsupported encodings.
[[gnu::noinline, gnu::cold]] static long double logl_special(long double x)
{
    const Words words = words_of(x);
    if (words.not_finite() && !words.infinite()) return x + x;
    if (words.zero()) return pole(true);
    if (words.negative()) return invalid();
    if (words.infinite()) return x;
    return rounded(logarithm(reduce_logarithm(normalised_denormal(words))));
}

#if defined(__SSE2__)
// |x - 1| < 2^-9
[[gnu::noinline]] static long double logl_near_one(long double stacked)
{
    return logarithm_near_one(argument(stacked));
}

long double logl_scalar(long double stacked)
{
    const StackedNumber x(stacked);
    const unsigned sign_exponent = x.sign_exponent();
    if (sign_exponent - 1 > 0x7FFD || x.upper() >> 31 == 0) [[unlikely]]
        return logl_special(stacked);
    // In 2^-16 above 1, in 2^-17 below.
    const unsigned distance = (sign_exponent << 16 | x.upper() << 1 >> 16) - (exponent_bias << 16);
    if (distance + 256 < 384) [[unlikely]]
        return logl_near_one(stacked);
    return rounded(logarithm_parts(logarithm_argument(x, x.biased_exponent() - exponent_bias)));
}
#else
long double logl_scalar(long double stacked)
{
    const long double x = argument(stacked);
    const Words words = words_of(x);
    if (words.negative() || !in_binades(words, -16382, 16384)) [[unlikely]]
        return logl_special(x);
    return logarithm_of(x, normalised(words));
}
#endif

} // namespace zelk::ZELK_TIER
