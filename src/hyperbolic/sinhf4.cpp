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

float4 sinhf4(float4 x)
{
    const auto& k = tables::sinh_coshf4;
    const int4 saturated = is_saturated(x, k);
    // Lanes that are infinite anyway pass through the arithmetic as zeros: they must not raise anything
    // there.
    const float4 y = as_float4(as_int4(x) & ~saturated);
    const float4 sinh_y = narrow(sinh_in_binary64(widen_low(y), k), sinh_in_binary64(widen_high(y), k));

    const int4 tiny = k.s_fMinBound > (as_int4(x) & k.s_dwAbsMask);
    const int4 infinity = k.s_dwInfinity | (as_int4(x) & k.s_dwSignMask);
    return select(tiny, x, select(saturated, as_float4(infinity), sinh_y));
}

} // namespace zelk::ZELK_TIER
