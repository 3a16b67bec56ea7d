// asinh x on four binary32 lanes.
// Method: ln(|x| + sqrt(x^2 + 1)), with the sign of x, when |x| lies in (1, infinity) in all lanes. One lane
// outside, and every lane takes the scalar routine: the same formula in binary64, with a table logarithm.
#include "dispatch/kernels.h"
#include "hyperbolic/inverse_hyperbolicf4.h"

namespace zelk::ZELK_TIER {

ZELK_INLINE double2 argument_of_logarithm(double2 a)
{
    return a + square_root(a * a + tables::log_d2.dbOne);
}

[[gnu::noinline]] static float4 asinh_by_lane(float4 x)
{
    const auto& k = tables::inverse_hyperbolicf4;
    const int4 magnitude = as_int4(x) & k.s_dwAbsMask;
    const int4 computed = (magnitude > k.s_dwAsinhTiny) & (k.s_dwPosInf > magnitude); // else x itself
    if (lane_mask(computed) == 0) return x;
    const float4 asinh_a = logarithm_by_lane(select(computed, magnitude, as_int4(k.s_fOne)),
                                             [](double2 a) { return argument_of_logarithm(a); });
    return as_float4(select(computed, as_int4(asinh_a) | (as_int4(x) & k.s_dwSignMask), as_int4(x)));
}

float4 asinhf4(float4 x)
{
    const auto& k = tables::inverse_hyperbolicf4;
    const float4 a = as_float4(as_int4(x) & k.s_dwAbsMask);
    const int4 ordinary = (as_int4(a) > k.s_dwAsinhThreshold) & (k.s_dwPosInf > as_int4(a));
    if (lane_mask(ordinary) != all_lanes4) [[unlikely]]
        return asinh_by_lane(x);

    // Huge lanes: y = a + 0, nothing squared.
    const int4 squarable = is_squarable(a, k);
    const float4 base = as_float4(as_int4(a) & squarable);
    const float4 root = square_root(as_float4(as_int4(base * base + k.s_fOne) & squarable));
    const float4 asinh_a = logarithm(a + root, k) + as_float4(as_int4(k.s_fLn2) & ~squarable);
    return as_float4(as_int4(asinh_a) | (as_int4(x) & k.s_dwSignMask));
}

} // namespace zelk::ZELK_TIER
