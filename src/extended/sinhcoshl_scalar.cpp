// sinh x and cosh x of one 80-bit number from one reduction; each has the bits of the routine of its own.
#include "dispatch/kernels.h"
#include "extended/hyperbolic.h"

namespace zelk::ZELK_TIER {

void sinhcoshl_scalar(long double* sinh, long double* cosh, long double stacked)
{
    const long double x = argument(stacked);
    const Words words = words_of(x);
    if (!in_binades(words, -33, 14)) [[unlikely]] {
        *sinh = sinhl_scalar(x);
        *cosh = coshl_scalar(x);
        return;
    }
    const long double size = magnitude(x);
    if (size < one_exponential) {
        const ExponentialBothWays e = exponential_both_ways(size);
        *sinh = words.biased_exponent() < exponent_bias - 3
                    ? x + sinh_tail(x)
                    : rounded(with_sign(words.negative(), half_difference(e)));
        *cosh = rounded(half_sum(e));
        return;
    }
    const ScaledPair half = half_exponential(size);
    *sinh = rounded(ScaledPair{with_sign(words.negative(), half.value), half.exponent});
    *cosh = rounded(half);
}

} // namespace zelk::ZELK_TIER
