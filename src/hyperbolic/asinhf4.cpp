// asinh x on four binary32 lanes.
// Method: ln(|x| + sqrt(x^2 + 1)), with the sign of x, when |x| lies in (1, infinity) in all lanes. One lane
// outside, and every lane takes the scalar routine: the same formula in binary64, with a table logarithm.
#include "dispatch/kernels.h"
#include "hyperbolic/inverse_hyperbolicf4.h"

namespace zelk::ZELK_TIER {

static std::uint32_t __zelk_internal_asinh_ss(std::uint32_t bits)
{
    const std::uint32_t magnitude = bits & 0x7FFFFFFF;
    if (magnitude - 0x31800000 >= 0x4E000000) return bits; // below 2^-28, or not finite
    const double a = __builtin_bit_cast(float, magnitude);
    const double y = a + scalar_square_root(a * a + 1.0);
    return __builtin_bit_cast(std::uint32_t, static_cast<float>(table_logarithm(y))) | (bits & 0x80000000);
}

[[gnu::noinline, gnu::cold]] static float4 asinh_by_lane(float4 x)
{
    return lane_by_lane(x, __zelk_internal_asinh_ss);
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
