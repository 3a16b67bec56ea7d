// acosh x of one 80-bit number: a polynomial next to 1, ln 2x from 2^36 on. Between them ln w with w the
// binary64 next to x + sqrt(x^2 - 1), and a step of Newton's method, (2x - w - 1/w)/(w - 1/w), for the rest.
// Without SSE2: in pairs of 80-bit numbers.
#include "dispatch/kernels.h"
#if defined(__SSE2__)
#include "extended/logarithm_parts.h"
#else
#include "extended/logarithm.h"
#endif
#include "tables/extended_explog.h"

namespace zelk::ZELK_TIER {

// x < 1, infinities, NaNs and unsupported encodings.
[[gnu::noinline, gnu::cold]] static long double acoshl_special(long double x)
{
    const Words words = words_of(x);
    if (words.not_finite() && !words.infinite()) return x + x;
    return words.negative() || !words.infinite() ? invalid() : x;
}

// 1 <= x < 1 + 2^-7: acosh x = 2 asinh t, t = sqrt(d/2), d = x - 1.
[[gnu::noinline]] static long double acoshl_near_one(long double stacked)
{
    const long double d = argument(stacked) - 1.0L; // exact
    if (d == 0) return 0.0L;
    const long double root = square_root(2.0L * d); // 2 t
    const Pair half = split(root);
    const long double error = ((2.0L * d - half.hi * half.hi) - 2.0L * half.hi * half.lo) - half.lo * half.lo;
    const long double square = 0.5L * d; // t^2
    return root + (error / (2.0L * root) + root * square * polynomial(tables::asinh_P, square));
}

#if defined(__SSE2__)
long double acoshl_scalar(long double stacked)
{
    const StackedNumber x(stacked);
    const unsigned exponent = x.sign_exponent() - exponent_bias; // of a negative number from 2^14 on
    if (exponent > 16383 || x.upper() >> 31 == 0) [[unlikely]]
        return acoshl_special(stacked);
    if (exponent >= 36) [[unlikely]]
        return rounded(logarithm_parts(logarithm_argument(x, static_cast<int>(exponent) + 1)));
    if (exponent == 0 && x.upper() < 0x81000000) [[unlikely]]
        return acoshl_near_one(stacked);
    const Parts size = magnitude_parts(x);
    const double w = size.hi + square_root(size.hi * size.hi - 1);
    // 2x - w is 1/w for the exact w.
    const double error = product_less_one(w, {2 * size.hi - w, 2 * size.lo});
    return rounded(logarithm_parts(logarithm_argument(w), error / (w * w - 1)));
}
#else
long double acoshl_scalar(long double stacked)
{
    const long double x = argument(stacked);
    const Words words = words_of(x);
    if (words.negative() || !in_binades(words, 0, 16384)) [[unlikely]]
        return acoshl_special(x);
    if (words.biased_exponent() >= exponent_bias + 36)
        return rounded(
            logarithm(reduce_logarithm({words.significand, words.biased_exponent() - exponent_bias + 1})));
    if (words.biased_exponent() == exponent_bias && words.significand >> 56 == 0x80)
        return acoshl_near_one(x);
    const long double d = x - 1.0L; // exact
    const Pair square = add(two_product(d, d), 2.0L * d);
    const Pair t = add(square_root(square), d);
    const Pair sum = add(t, 1.0L);
    return rounded(logarithm(reduce_logarithm(normalised(words_of(sum.hi)), sum.lo)));
}
#endif

} // namespace zelk::ZELK_TIER
