// atan x of one 80-bit number: the direction of (1, x); method in direction.h.
#include "dispatch/kernels.h"
#include "extended/direction.h"

namespace zelk::ZELK_TIER {

long double atanl_scalar(long double x)
{
    const Words X = stored_words(x);
    if (!is_normal(X)) [[unlikely]]
        return direction_off_the_path<false>(x, 1.0L);
    return direction_of<false>(normal_coordinate(X), Coordinate{std::uint64_t{1} << 63, 0, false});
}

} // namespace zelk::ZELK_TIER
