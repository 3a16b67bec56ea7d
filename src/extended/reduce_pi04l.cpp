// The octant of an 80-bit angle and what it is beyond the nearest multiple of pi/2; method in reduction.h.
#include "dispatch/kernels.h"
#include "extended/reduction.h"

namespace zelk::ZELK_TIER {

int reduce_pi04l(long double x, double reduced[2])
{
    if (words_of(x).not_finite()) [[unlikely]] {
        reduced[0] = reduced[1] = static_cast<double>(x - x);
        return 0;
    }
    const Reduced r = reduce(x);
    // hi is rounded twice, and lo may be a little above half a unit of its last place.
    const auto hi = static_cast<double>(r.rest.hi);
    const auto lo = static_cast<double>((r.rest.hi - hi) + r.rest.lo);
    reduced[0] = lo == 0 ? hi : hi + lo; // -0 stays
    reduced[1] = lo - (reduced[0] - hi);
    return static_cast<int>(r.octant);
}

} // namespace zelk::ZELK_TIER
