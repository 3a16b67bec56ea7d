// atanh x of one 80-bit number: a polynomial below 1/16, half the logarithm of (1 + x)/(1 - x) in pairs
// above.
#include "dispatch/kernels.h"
#include "extended/logarithm.h"
#include "tables/extended_explog.h"

namespace zelk::ZELK_TIER {

// |x| < 2^-33 or |x| >= 1, infinities, NaNs and unsupported encodings.
[[gnu::noinline, gnu::cold]] static long double atanhl_special(long double x)
{
    const Words words = words_of(x);
    if (words.zero()) return x;
    if (words.not_finite() && !words.infinite()) return x + x;
    if (words.biased_exponent() < exponent_bias) return and_a_little(x);
    return magnitude(x) == 1.0L ? pole(words.negative()) : invalid();
}

long double atanhl_scalar(long double x)
{
    const Words words = words_of(x);
    if (!in_binades(words, -33, 0)) [[unlikely]]
        return atanhl_special(x);
    if (words.biased_exponent() < exponent_bias - 4) {
        const long double square = x * x;
        return x + x * square * polynomial(tables::atanh_P, square);
    }
    const long double size = magnitude(x);
    const Pair ratio = divide(fast_two_sum(1.0L, size), fast_two_sum(1.0L, -size));
    const Pair twice = logarithm(reduce_logarithm(normalised(words_of(ratio.hi)), ratio.lo));
    return rounded(with_sign(words.negative(), {0.5L * twice.hi, 0.5L * twice.lo}));
}

} // namespace zelk::ZELK_TIER
