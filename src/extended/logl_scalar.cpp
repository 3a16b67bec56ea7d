// ln x of one 80-bit number: exponent, a table of reciprocals and their logarithms, and a polynomial of
// degree 9.
#include "dispatch/kernels.h"
#include "extended/logarithm.h"

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

long double logl_scalar(long double x)
{
    const Words words = words_of(x);
    if (words.negative() || !in_binades(words, -16382, 16384)) [[unlikely]]
        return logl_special(x);
    return logarithm_of(x, normalised(words));
}

} // namespace zelk::ZELK_TIER
