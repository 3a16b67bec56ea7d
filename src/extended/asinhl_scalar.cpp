// asinh x of one 80-bit number: a polynomial below 1/16, ln 2x from 2^36 on. Between them ln w with w the
// binary64 next to x + sqrt(x^2 + 1), and a step of Newton's method, -(w - 2x - 1/w)/(w + 1/w), for the rest.
// Without SSE2: in pairs of 80-bit numbers.
#include "dispatch/kernels.h"
#if defined(__SSE2__)
#include "extended/logarithm_parts.h"
#else
#include "extended/logarithm.h"
#endif
#include "tables/extended_explog.h"

namespace zelk::ZELK_TIER {

// |x| < 2^-33, infinities, NaNs and unsupported encodings.
[[gnu::noinline, gnu::cold]] static long double asinhl_special(long double x)
{
    const Words words = words_of(x);
    if (words.infinite() || words.zero()) return x;
    if (words.not_finite()) return x + x;
    return but_a_little(x);
}

// 2^-33 <= |x| < 1/16
[[gnu::noinline]] static long double asinhl_small(long double stacked)
{
    return odd_polynomial(tables::asinh_P, argument(stacked));
}

#if defined(__SSE2__)
long double asinhl_scalar(long double stacked)
{
    const StackedNumber x(stacked);
    if (!in_binades(x, -33, 16384)) [[unlikely]]
        return asinhl_special(stacked);
    const int exponent = x.biased_exponent() - exponent_bias;
    if (exponent < -4) [[unlikely]]
        return asinhl_small(stacked);
    const double sign = sign_of(x);
    if (exponent >= 36) [[unlikely]]
        return rounded(with_sign(logarithm_parts(logarithm_argument(x, exponent + 1)), sign));
    const Parts size = magnitude_parts(x);
    const double w = size.hi + square_root(size.hi * size.hi + 1);
    // w - 2x, which is 1/w for the exact w.
    const Parts reciprocal = fast_two_sum(w, -2 * size.hi);
    const double error = product_less_one(w, {reciprocal.hi, reciprocal.lo - 2 * size.lo});
    return rounded(with_sign(logarithm_parts(logarithm_argument(w), -error / (w * w + 1)), sign));
}
#else
long double asinhl_scalar(long double stacked)
{
    const long double x = argument(stacked);
    const Words words = words_of(x);
    if (!in_binades(words, -33, 16384)) [[unlikely]]
        return asinhl_special(x);
    if (words.biased_exponent() < exponent_bias - 4) return asinhl_small(x);
    const long double size = magnitude(x);
    LogarithmReduction reduced;
    if (words.biased_exponent() < exponent_bias + 36) {
        const Pair sum = add(square_root(add(two_product(size, size), 1.0L)), size);
        reduced = reduce_logarithm(normalised(words_of(sum.hi)), sum.lo);
    } else {
        reduced = reduce_logarithm({words.significand, words.biased_exponent() - exponent_bias + 1});
    }
    return rounded(with_sign(words.negative(), logarithm(reduced)));
}
#endif

} // namespace zelk::ZELK_TIER
