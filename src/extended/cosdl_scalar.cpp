// cos x of one 80-bit number of degrees; method in degrees.h.
#include "dispatch/kernels.h"
#include "extended/degrees.h"

namespace zelk::ZELK_TIER {

long double cosdl_scalar(long double stacked)
{
    const long double x = argument(stacked);
    if (off_the_path(words_of(x))) [[unlikely]]
        return cosine_off_the_path(x);
    return sine_of(degrees_of(x), 1, 0.0L);
}

} // namespace zelk::ZELK_TIER
