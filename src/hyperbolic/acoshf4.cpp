// acosh x on four binary32 lanes.
// Method: ln(x + sqrt(x^2 - 1)) when all lanes lie in (1.5, infinity). One lane outside, and every lane takes
// the scalar routine: the same formula in binary64, with a table logarithm.
#include "dispatch/kernels.h"
#include "hyperbolic/inverse_hyperbolicf4.h"

namespace zelk::ZELK_TIER {

ZELK_INLINE double2 argument_of_logarithm(double2 x)
{
    return x + square_root(x * x - tables::log_d2.dbOne);
}

// Below 1 a NaN, at 1 zero (the sum of the cubic is zero only in round to nearest), infinities and NaNs x.
[[gnu::noinline, gnu::cold]] static float4 acosh_by_lane(float4 x)
{
    const auto& k = tables::inverse_hyperbolicf4;
    const int4 below_one = as_int4(x) < as_int4(k.s_fOne);
    const int4 not_finite = as_int4(x) >= k.s_dwPosInf;
    const int4 computed = (as_int4(x) > as_int4(k.s_fOne)) & ~not_finite;
    const int4 known = (below_one & k.s_dwAbsMask) | (not_finite & as_int4(x));
    if (lane_mask(computed) == 0) return as_float4(known);
    const float4 result = logarithm_by_lane(select(computed, as_int4(x), as_int4(k.s_fTwo)),
                                            [](double2 a) { return argument_of_logarithm(a); });
    return as_float4(select(computed, as_int4(result), known));
}

float4 acoshf4(float4 x)
{
    const auto& k = tables::inverse_hyperbolicf4;
    const int4 ordinary = (as_int4(x) > k.s_dwAcoshThreshold) & (k.s_dwPosInf > as_int4(x));
    if (lane_mask(ordinary) != all_lanes4) [[unlikely]]
        return acosh_by_lane(x);

    // Huge lanes: y = x + 0, nothing squared.
    const int4 squarable = is_squarable(x, k);
    const float4 base = as_float4(as_int4(x) & squarable);
    const float4 root = square_root(as_float4(as_int4(base * base - k.s_fOne) & squarable));
    return logarithm(x + root, k) + as_float4(as_int4(k.s_fLn2) & ~squarable);
}

} // namespace zelk::ZELK_TIER
