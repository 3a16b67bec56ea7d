// atanh x of one 80-bit number: a polynomial below 1/16, above half of ln w with w the binary64
// next to (1 + x)/(1 - x), and (1 + x - w (1 - x))/(1 + x) for the rest. Without SSE2: in pairs of 80-bit
// numbers.
#include "dispatch/kernels.h"
#if defined(__SSE2__)
#include "extended/logarithm_parts.h"
#else
#include "extended/logarithm.h"
#endif
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

// 2^-33 <= |x| < 1/16
[[gnu::noinline]] static long double atanhl_small(long double stacked)
{
    return odd_polynomial(tables::atanh_P, argument(stacked));
}

#if defined(__SSE2__)
long double atanhl_scalar(long double stacked)
{
    const StackedNumber x(stacked);
    if (!in_binades(x, -33, 0)) [[unlikely]]
        return atanhl_special(stacked);
    if (x.biased_exponent() < exponent_bias - 4) [[unlikely]]
        return atanhl_small(stacked);
    const Parts size = magnitude_parts(x);
    const Parts sum = fast_two_sum(1.0, size.hi);
    const Parts below = fast_two_sum(1.0, -size.hi);
    const Parts difference = fast_two_sum(below.hi, below.lo - size.lo);
    const double w = sum.hi / difference.hi;
    // (1 + x) - w (1 - x)
    const Parts w_halves = halves(w);
    const Parts halved = halves(difference.hi);
    const double error =
        ((sum.hi - w_halves.hi * halved.hi) - w_halves.hi * halved.lo - w_halves.lo * difference.hi) +
        ((sum.lo + size.lo) - w * difference.lo);
    const LogarithmParts twice = logarithm_parts(logarithm_argument(w), error / sum.hi);
    return 0.5L * rounded(with_sign(twice, sign_of(x)));
}
#else
long double atanhl_scalar(long double stacked)
{
    const long double x = argument(stacked);
    const Words words = words_of(x);
    if (!in_binades(words, -33, 0)) [[unlikely]]
        return atanhl_special(x);
    if (words.biased_exponent() < exponent_bias - 4) return atanhl_small(x);
    const long double size = magnitude(x);
    const Pair ratio = divide(fast_two_sum(1.0L, size), fast_two_sum(1.0L, -size));
    const Pair twice = logarithm(reduce_logarithm(normalised(words_of(ratio.hi)), ratio.lo));
    return rounded(with_sign(words.negative(), {0.5L * twice.hi, 0.5L * twice.lo}));
}
#endif

} // namespace zelk::ZELK_TIER
