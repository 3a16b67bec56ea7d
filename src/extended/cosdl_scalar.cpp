// cos x of one 80-bit number of degrees; method in degrees.h.
#include "dispatch/kernels.h"
#include "extended/degrees.h"

namespace zelk::ZELK_TIER {

long double cosdl_scalar(long double x)
{
    const Words X = stored_words(x);
    if (off_the_path(X)) [[unlikely]]
        return cosine_off_the_path(x);
    return sine_of(degrees_of(X), 1, 0.0f);
}

} // namespace zelk::ZELK_TIER
