// sinh x on four binary32 lanes.
// Method: in binary64, sinh x = (u - v) P + (u + v) Q with u = 2^(n-1), v = 2^(-n-1) and 2^(+-f) = P +- Q,
// x log2 e = n + f; rounded once. Below 0.0003 sinh x = x; from 704 on the result is a stored infinity.
#include "dispatch/kernels.h"
#include "hyperbolic/sinh_coshf4.h"

namespace zelk::ZELK_TIER {

ZELK_INLINE double2 sinh_in_binary64(double2 x, const tables::SinhCoshf4& k)
{
    const auto [u, v, P, Q] = half_powers(x, k);
    return (u - v) * P + (u + v) * Q;
}

ZELK_INLINE float4 sinh_of_four(float4 x, const tables::SinhCoshf4& k)
{
    return narrow(sinh_in_binary64(widen_low(x), k), sinh_in_binary64(widen_high(x), k));
}

ZELK_INLINE int4 is_tiny(float4 x, const tables::SinhCoshf4& k)
{
    return k.s_fMinBound > (as_int4(x) & k.s_dwAbsMask);
}

[[gnu::noinline, gnu::cold]] static float4 special_lanes(float4 x)
{
    const auto& k = tables::sinh_coshf4;
    const int4 saturated = is_saturated(x, k);
    // Lanes that are infinite anyway pass through the arithmetic as zeros: they must not raise anything
    // there.
    const float4 sinh_y = sinh_of_four(as_float4(as_int4(x) & ~saturated), k);
    const int4 infinity = k.s_dwInfinity | (as_int4(x) & k.s_dwSignMask);
    return select(is_tiny(x, k), x, select(saturated, as_float4(infinity), sinh_y));
}

float4 sinhf4(float4 x)
{
    const auto& k = tables::sinh_coshf4;
    if (!all_ordinary(x, k)) [[unlikely]]
        return special_lanes(x);
    return select(is_tiny(x, k), x, sinh_of_four(x, k));
}

} // namespace zelk::ZELK_TIER
