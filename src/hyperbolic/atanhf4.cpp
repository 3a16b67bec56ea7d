// atanh x on four binary32 lanes.
// Method: ln((1 + |x|) / (1 - |x|)) / 2, with the sign of x, when |x| lies in (1/4, 1 - 2^-24) in all lanes.
// One lane outside, and every lane takes the scalar routine: -ln((1 - |x|) / (1 + |x|)) / 2 with the
// logarithm in binary64 from a table.
#include "dispatch/kernels.h"
#include "hyperbolic/inverse_hyperbolicf4.h"

namespace zelk::ZELK_TIER {

static std::uint32_t __zelk_internal_atanh_ss(std::uint32_t bits)
{
    const std::uint32_t magnitude = bits & 0x7FFFFFFF;
    if (magnitude < 0x30800000) return bits; // below 2^-30
    if (magnitude == 0x3F800000) return bits | 0x7F800000;
    if (magnitude > 0x3F800000) return bits | 0x7FFFFFFF;
    const double a = __builtin_bit_cast(float, magnitude);
    const auto L = static_cast<float>(table_logarithm((1.0 - a) / (1.0 + a)));
    return __builtin_bit_cast(std::uint32_t, L * (bits >> 31 ? 0.5f : -0.5f));
}

[[gnu::noinline, gnu::cold]] static float4 atanh_by_lane(float4 x)
{
    return lane_by_lane(x, __zelk_internal_atanh_ss);
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
