// cos x of one 80-bit number; method in sin_cos.h.
#include "dispatch/kernels.h"
#include "extended/sin_cos.h"

namespace zelk::ZELK_TIER {

long double cosl_scalar(long double x)
{
    const Words X = stored_words(x);
    if (off_the_path(X)) [[unlikely]]
        return cosine_off_the_path(x);
    return sine_of(X, 1);
}

} // namespace zelk::ZELK_TIER
