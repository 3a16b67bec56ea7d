// cosh x on two binary64 lanes.
// Method: |x| = n ln 2/64 + r; e^|x| / 2 and e^-|x| / 2 from a table of 2^(j/64) in two parts, e^r = cosh r +
// sinh r of degree 5. From 708.4 on e^|x| / 2 alone, lane by lane; from 710.4756 on a stored infinity.
#include "dispatch/kernels.h"
#include "hyperbolic/hyperbolic2.h"

namespace zelk::ZELK_TIER {

static double __zelk_cosh_spec_sd(const SpecBlock& block, int lane)
{
    return near_overflow(block, lane);
}

[[gnu::noinline, gnu::cold]] static double2 cosh_near_overflow(double2 a)
{
    const auto& k = tables::hyperbolic2;
    const auto [t, r, far, wrapped] = special_lanes(a, k);
    // Special lanes pass through the vector formula as zeros: they must not raise anything there.
    const double2 ordinary = as_double2(as_long2(a) & ~(far | wrapped));
    const SpecBlock block = {a, t, r, wrapped, cosh_of(half_exponentials(ordinary, k))};
    return double2{__zelk_cosh_spec_sd(block, 0), __zelk_cosh_spec_sd(block, 1)};
}

double2 cosh2(double2 x)
{
    const auto& k = tables::hyperbolic2;
    const double2 a = as_double2(as_long2(x) & k.s_dwAbsMsk);
    if (out_of_range(a, k) != 0) [[unlikely]]
        return cosh_near_overflow(a);
    return cosh_of(half_exponentials(a, k));
}

} // namespace zelk::ZELK_TIER
