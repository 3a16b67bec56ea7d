// tanh x of one 80-bit number: a polynomial below 1/8, 1 - 2/(e^2x + 1) in pieces of binary64 above. Without
// SSE2: in pairs of 80-bit numbers.
#include "dispatch/kernels.h"
#if defined(__SSE2__)
#include "extended/parts.h"
#include "tables/extended.h"
#include "tables/extended_parts.h"
#else
#include "extended/hyperbolic.h"
#endif
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

// 2^-33 <= |x| < 1/8
[[gnu::noinline]] static long double tanhl_small(long double stacked)
{
    return odd_polynomial(tables::tanh_P, argument(stacked));
}

#if defined(__SSE2__)
// e^2x + 1, 25 bits and the rest, 1/8 <= x < 32: 2x = n ln2/256 + r, e^2x = 2^k T (1 + p), p = e^r - 1,
// within 2^-72.
ZELK_INLINE Parts exponential_plus_one(Parts x)
{
    using namespace tables::extended_parts;
    // To the nearest in every rounding mode: the longest remainders have the largest errors.
    const int n = static_cast<int>(x.hi * inverse_ln2_512 + 0.5);
    const double multiple = n;
    const tables::HiLo t = tables::_rop_expl_table_256[(n + 128) & 255];
    const double scale = number_from(at_exponent(((n + 128) >> 8) + bias64));

    const double remainder = 2 * x.hi - multiple * ln2_256_hi; // exact
    const double tail = 2 * x.lo - multiple * ln2_256_lo;
    const double r_hi = (remainder + 0x1.8p17) - 0x1.8p17; // a multiple of 2^-35
    const double r = remainder + tail;
    const double square = r * r;
    const double p_lo =
        ((remainder - r_hi) + tail) +
        square * ((0.5 + r * (1.0 / 6)) + square * ((1.0 / 24 + r * (1.0 / 120)) + square * (1.0 / 720)));

    const Parts t_halves = halves(t.hi);
    const double t_lo = t_halves.lo + t.lo;
    const double second = t_halves.hi * r_hi * scale; // exact
    const double third = (t_lo + (t_lo * r_hi + t.hi * p_lo)) * scale;
    // From 2^53 on the 1 does not matter.
    const double first = 1 + t_halves.hi * scale;
    const double head = halves(first + second).hi;
    return {head, ((first - head) + second) + third};
}

long double tanhl_scalar(long double stacked)
{
    const StackedNumber x(stacked);
    if (!in_binades(x, -33, 5)) [[unlikely]]
        return tanhl_special(stacked);
    if (x.biased_exponent() < exponent_bias - 3) [[unlikely]]
        return tanhl_small(stacked);
    const Parts divisor = exponential_plus_one(magnitude_parts(x));
    const double twice_reciprocal = 2 / (divisor.hi + divisor.lo);
    // 2/divisor as a multiple of 2^-26, whose product with the head is exact, and the rest.
    const double quotient = (twice_reciprocal + 0x1.8p26) - 0x1.8p26;
    const double rest = (2 - quotient * divisor.hi) - quotient * divisor.lo;
    const Parts result = with_sign(Parts{1 - quotient, rest * (0.5 * twice_reciprocal)}, sign_of(x));
    return static_cast<long double>(result.hi) - result.lo;
}
#else
long double tanhl_scalar(long double stacked)
{
    const long double x = argument(stacked);
    const Words words = words_of(x);
    if (!in_binades(words, -33, 5)) [[unlikely]]
        return tanhl_special(x);
    if (words.biased_exponent() < exponent_bias - 3) return tanhl_small(x);
    const ScaledPair e = exponential({2.0L * magnitude(x), 0.0L});
    const long double scale = power_of_two(e.exponent);
    const Pair head = two_sum(e.value.hi * scale, 1.0L);
    const Pair quotient = divide({2.0L, 0.0L}, fast_two_sum(head.hi, head.lo + e.value.lo * scale));
    const Pair difference = fast_two_sum(1.0L, -quotient.hi);
    return rounded(with_sign(words.negative(), {difference.hi, difference.lo - quotient.lo}));
}
#endif

} // namespace zelk::ZELK_TIER
