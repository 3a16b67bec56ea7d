// tan x of one 80-bit number: the quotient of sine and cosine (sin_cos.h) before they are rounded.
#include "dispatch/kernels.h"
#include "extended/sin_cos.h"

namespace zelk::ZELK_TIER {

[[gnu::cold, gnu::noinline]] static long double tangent_off_the_path(long double x)
{
    const Words words = words_of(x);
    if (words.not_finite()) return x - x;
    return words.zero() ? x : and_a_little(x);
}

long double tanl_scalar(long double stacked)
{
    const long double x = argument(stacked);
    if (off_the_path(words_of(x))) [[unlikely]]
        return tangent_off_the_path(x);
    const Angle angle = angle_of(x);
    const Powers powers = powers_of(angle.at.t);
    const Pair s = sine(angle.at, powers);
    const Pair c = cosine(angle.at, powers);
    const Pair S = fast_two_sum(s.hi, s.lo);
    const Pair C = fast_two_sum(c.hi, c.lo);
    const bool odd = (angle.quadrant & 1) != 0;
    return rounded(with_sign(angle.negative != odd, odd ? divide(C, S) : divide(S, C)));
}

} // namespace zelk::ZELK_TIER
