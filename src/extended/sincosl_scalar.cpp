// sin x and cos x of one 80-bit number with one reduction; method in sin_cos.h, the bits those of sinl_scalar
// and cosl_scalar.
#include "dispatch/kernels.h"
#include "extended/sin_cos.h"

namespace zelk::ZELK_TIER {

void sincosl_scalar(long double stacked, long double* sine, long double* cosine)
{
    const long double x = argument(stacked);
    if (off_the_path(words_of(x))) [[unlikely]] {
        *sine = sine_off_the_path(x);
        *cosine = cosine_off_the_path(x);
        return;
    }
    const Angle angle = angle_of(x);
    const Powers powers = powers_of(angle.at.t);
    *sine = sine_from(angle.quadrant, angle, powers);
    *cosine = sine_from(angle.quadrant + 1, angle, powers);
}

} // namespace zelk::ZELK_TIER
