// acosh x on four binary32 lanes.
// Method: ln(x + sqrt(x^2 - 1)) when all lanes lie in (1.5, infinity). One lane outside, and every lane takes
// the scalar routine: the same formula in binary64, with a table logarithm.
#include "dispatch/kernels.h"
#include "hyperbolic/inverse_hyperbolicf4.h"

namespace zelk::ZELK_TIER {

static std::uint32_t __zelk_internal_acosh_ss(std::uint32_t bits)
{
    if (static_cast<std::int32_t>(bits) < 0x3F800000) return 0x7FFFFFFF;
    if (bits >= 0x7F800000) return bits;
    if (bits == 0x3F800000) return 0; // the sum of the cubic is zero only in round to nearest
    const double x = __builtin_bit_cast(float, bits);
    const double y = x + scalar_square_root(x * x - 1.0);
    return __builtin_bit_cast(std::uint32_t, static_cast<float>(table_logarithm(y)));
}

[[gnu::noinline, gnu::cold]] static float4 acosh_by_lane(float4 x)
{
    return lane_by_lane(x, __zelk_internal_acosh_ss);
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
