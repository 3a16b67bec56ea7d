// cos x of one 80-bit number; method in sin_cos.h.
#include "dispatch/kernels.h"
#include "extended/sin_cos.h"

namespace zelk::ZELK_TIER {

long double cosl_scalar(long double stacked)
{
    const long double x = argument(stacked);
    if (off_the_path(words_of(x))) [[unlikely]]
        return cosine_off_the_path(x);
    const Angle angle = angle_of(x);
    return sine_from(angle.quadrant + 1, angle, powers_of(angle.at.t));
}

} // namespace zelk::ZELK_TIER
