// tanh x of one 80-bit number: a polynomial below 1/8, 1 - 2/(e^2x + 1) in pairs above.
#include "dispatch/kernels.h"
#include "extended/hyperbolic.h"
#include "tables/extended_explog.h"

namespace zelk::ZELK_TIER {

// |x| < 2^-33 or |x| >= 32, infinities, NaNs and unsupported encodings.
[[gnu::noinline, gnu::cold]] static long double tanhl_special(long double x)
{
    const Words words = words_of(x);
    const long double one = words.negative() ? -1.0L : 1.0L;
    if (words.zero()) return x;
    if (words.infinite()) return one;
    if (words.not_finite()) return x + x;
    if (words.biased_exponent() < exponent_bias) return but_a_little(x);
    return but_a_little(one);
}

long double tanhl_scalar(long double x)
{
    const Words words = words_of(x);
    if (!in_binades(words, -33, 5)) [[unlikely]]
        return tanhl_special(x);
    if (words.biased_exponent() < exponent_bias - 3) {
        const long double square = x * x;
        return x + x * square * polynomial(tables::tanh_P, square);
    }
    const ScaledPair e = exponential(2.0L * magnitude(x));
    const long double scale = power_of_two(e.exponent);
    const Pair head = two_sum(e.value.hi * scale, 1.0L);
    const Pair quotient = divide({2.0L, 0.0L}, fast_two_sum(head.hi, head.lo + e.value.lo * scale));
    const Pair difference = fast_two_sum(1.0L, -quotient.hi);
    return rounded(with_sign(words.negative(), {difference.hi, difference.lo - quotient.lo}));
}

} // namespace zelk::ZELK_TIER
