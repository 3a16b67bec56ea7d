// 1/sqrt x of one 80-bit number: x scaled by an even power of two to [1, 4), square root and division, then
// one Newton step whose residual is exact.
#include "extended/invsqrtl.h"
#include "dispatch/kernels.h"
#include "extended/logarithm.h"

namespace zelk::ZELK_TIER {

// What brings the significand to [1, 4) by the parity of the exponent, so that the rest is an even power of
// two.
static constexpr long double __invsqrtl_scales[2] = {1.0L, 2.0L};

static long double reciprocal_root(Normalised x)
{
    const int odd = x.exponent & 1;
    const long double m = number_of(x.significand, exponent_bias) * __invsqrtl_scales[odd];
    const long double y = 1.0L / sqrtl_scalar(m);
    // y (1 + (1 - m y^2)/2)
    const Pair square = two_product(y, y);
    const Pair product = two_product(m, square.hi);
    const long double residual = ((1.0L - product.hi) - product.lo) - m * square.lo;
    return (y + y * (0.5L * residual)) * power_of_two(-(x.exponent - odd) / 2);
}

static long double reciprocal_root(long double x)
{
    const Words words = words_of(x);
    if (words.not_finite() && !words.infinite()) return x + x;
    if (words.zero()) return pole(words.negative());
    if (words.negative()) return invalid();
    if (words.infinite()) return 0.0L;
    return reciprocal_root(normalised_finite(words));
}

long double __invsqrtl(long double* x)
{
    *x = reciprocal_root(*x);
    return *x;
}

} // namespace zelk::ZELK_TIER
