// atanh x on four binary32 lanes.
// Method: ln((1 + |x|) / (1 - |x|)) / 2, with the sign of x, when |x| lies in (1/4, 1 - 2^-24) in all lanes.
// One lane outside, and every lane takes the scalar routine: -ln((1 - |x|) / (1 + |x|)) / 2 with the
// logarithm in binary64 from a table.
#include "dispatch/kernels.h"
#include "hyperbolic/inverse_hyperbolicf4.h"

namespace zelk::ZELK_TIER {

ZELK_INLINE double2 argument_of_logarithm(double2 a)
{
    const double2 one = tables::log_d2.dbOne;
    return (one - a) / (one + a);
}

// Tiny lanes are x itself, 1 gives infinity, everything beyond a NaN.
[[gnu::noinline]] static float4 atanh_by_lane(float4 x)
{
    const auto& k = tables::inverse_hyperbolicf4;
    const int4 magnitude = as_int4(x) & k.s_dwAbsMask;
    const int4 one = as_int4(k.s_fOne);
    const int4 computed = (magnitude > k.s_dwAtanhTiny) & (one > magnitude);
    const int4 known = as_int4(x) | ((magnitude == one) & k.s_dwPosInf) | ((magnitude > one) & k.s_dwAbsMask);
    if (lane_mask(computed) == 0) return as_float4(known);
    const float4 logarithm = logarithm_by_lane(select(computed, magnitude, as_int4(k.s_dwHalf)),
                                               [](double2 a) { return argument_of_logarithm(a); });
    const int4 opposite_sign = ~as_int4(x) & k.s_dwSignMask;
    const float4 atanh_x = logarithm * as_float4(as_int4(k.s_dwHalf) | opposite_sign);
    return as_float4(select(computed, as_int4(atanh_x), known));
}

float4 atanhf4(float4 x)
{
    const auto& k = tables::inverse_hyperbolicf4;
    const float4 a = as_float4(as_int4(x) & k.s_dwAbsMask);
    const int4 ordinary = (as_int4(a) > k.s_dwAtanhThreshold) & (k.s_dwInfBoundary > as_int4(a));
    if (lane_mask(ordinary) != all_lanes4) [[unlikely]]
        return atanh_by_lane(x);

    const float4 atanh_a = k.s_dwHalf * logarithm((k.s_fOne + a) / (k.s_fOne - a), k);
    return as_float4(as_int4(atanh_a) | (as_int4(x) & k.s_dwSignMask));
}

} // namespace zelk::ZELK_TIER
