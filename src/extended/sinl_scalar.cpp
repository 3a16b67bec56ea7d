// sin x of one 80-bit number; method in sin_cos.h.
#include "dispatch/kernels.h"
#include "extended/sin_cos.h"

namespace zelk::ZELK_TIER {

long double sinl_scalar(long double x)
{
    const Words X = stored_words(x);
    if (off_the_path(X)) [[unlikely]]
        return sine_off_the_path(x);
    return sine_of(X, 0);
}

} // namespace zelk::ZELK_TIER
