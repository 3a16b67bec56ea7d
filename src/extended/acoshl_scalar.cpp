// acosh x of one 80-bit number: ln(1 + d + sqrt(d (d + 2))) with d = x - 1, in pairs; ln 2x from 2^36 on.
#include "dispatch/kernels.h"
#include "extended/logarithm.h"

namespace zelk::ZELK_TIER {

// x < 1, infinities, NaNs and unsupported encodings.
[[gnu::noinline, gnu::cold]] static long double acoshl_special(long double x)
{
    const Words words = words_of(x);
    if (words.not_finite() && !words.infinite()) return x + x;
    return words.negative() || !words.infinite() ? invalid() : x;
}

long double acoshl_scalar(long double x)
{
    const Words words = words_of(x);
    if (words.negative() || !in_binades(words, 0, 16384)) [[unlikely]]
        return acoshl_special(x);
    if (words.biased_exponent() >= exponent_bias + 36)
        return rounded(
            logarithm(reduce_logarithm({words.significand, words.biased_exponent() - exponent_bias + 1})));
    if (x == 1.0L) return 0.0L;
    const long double d = x - 1.0L; // exact
    const Pair square = add(two_product(d, d), 2.0L * d);
    const Pair t = add(square_root(square), d);
    if (t.hi <= near_bound) return rounded(log1p_near_zero(t));
    const Pair sum = add(t, 1.0L);
    return rounded(logarithm(reduce_logarithm(normalised(words_of(sum.hi)), sum.lo)));
}

} // namespace zelk::ZELK_TIER
