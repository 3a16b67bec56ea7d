// asinh x of one 80-bit number: a polynomial below 1/16, ln(x + sqrt(x^2 + 1)) in pairs, ln 2x from 2^36 on.
#include "dispatch/kernels.h"
#include "extended/logarithm.h"
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

long double asinhl_scalar(long double x)
{
    const Words words = words_of(x);
    if (!in_binades(words, -33, 16384)) [[unlikely]]
        return asinhl_special(x);
    if (words.biased_exponent() < exponent_bias - 4) {
        const long double square = x * x;
        return x + x * square * polynomial(tables::asinh_P, square);
    }
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

} // namespace zelk::ZELK_TIER
