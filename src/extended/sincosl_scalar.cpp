// sin x and cos x of one 80-bit number with one reduction; method in sin_cos.h, the bits those of sinl_scalar
// and cosl_scalar.
#include "dispatch/kernels.h"
#include "extended/sin_cos.h"

namespace zelk::ZELK_TIER {

void sincosl_scalar(long double x, long double* sine, long double* cosine)
{
    const Words X = stored_words(x);
    if (off_the_path(X)) [[unlikely]] {
        const long double argument = x;
        *sine = sine_off_the_path(argument);
        *cosine = cosine_off_the_path(argument);
        return;
    }
    const Angle angle = angle_of(X);
    const Powers powers = powers_of(angle.t);
    *sine = sine_from_table(angle.n, powers);
    *cosine = sine_from_table(angle.n + 256, powers);
    // Last, with nothing in the x87 registers that a call would store and load.
    if (next_to_zero(angle.n)) [[unlikely]]
        *sine = sine_next_to_zero(X, angle.n, 0);
    if (next_to_zero(angle.n + 256)) [[unlikely]]
        *cosine = sine_next_to_zero(X, angle.n, 1);
}

} // namespace zelk::ZELK_TIER
