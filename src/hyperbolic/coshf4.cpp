// cosh x on four binary32 lanes.
// Method: in binary64, cosh x = (u + v) P + (u - v) Q with u = 2^(n-1), v = 2^(-n-1) and 2^(+-f) = P +- Q,
// x log2 e = n + f; rounded once. From 704 on the result is a stored infinity.
#include "dispatch/kernels.h"
#include "hyperbolic/sinh_coshf4.h"

namespace zelk::ZELK_TIER {

ZELK_INLINE double2 cosh_in_binary64(double2 x, const tables::SinhCoshf4& k)
{
    const auto [u, v, P, Q] = half_powers(x, k);
    return (u + v) * P + (u - v) * Q;
}

ZELK_INLINE float4 cosh_of_four(float4 x, const tables::SinhCoshf4& k)
{
    return narrow(cosh_in_binary64(widen_low(x), k), cosh_in_binary64(widen_high(x), k));
}

[[gnu::noinline, gnu::cold]] static float4 special_lanes(float4 x)
{
    const auto& k = tables::sinh_coshf4;
    const int4 saturated = is_saturated(x, k);
    // Lanes that are infinite anyway pass through the arithmetic as zeros: they must not raise anything
    // there.
    const float4 cosh_y = cosh_of_four(as_float4(as_int4(x) & ~saturated), k);
    return select(saturated, as_float4(k.s_dwInfinity), cosh_y);
}

float4 coshf4(float4 x)
{
    const auto& k = tables::sinh_coshf4;
    if (!all_ordinary(x, k)) [[unlikely]]
        return special_lanes(x);
    return cosh_of_four(x, k);
}

} // namespace zelk::ZELK_TIER
