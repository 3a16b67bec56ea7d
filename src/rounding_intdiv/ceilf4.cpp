// The smallest integer not below x, on four binary32 lanes.
// Method: the truncated value r, and 1 more where x > 0 has a fraction.
#include "dispatch/kernels.h"
#include "rounding_intdiv/rounding.h"

namespace zelk::ZELK_TIER {

float4 ceilf4(float4 x)
{
    const auto& k = tables::roundingf4;
    const float4 r = truncate(x, k);
    if constexpr (tier == Tier::A) {
        const int4 unchanged = (r == x) | negative(x, k);
        return r + select(unchanged, k.s_dw80000000, k.s_dw3f800000);
    } else {
        const int4 unchanged = (as_int4(r) == as_int4(x)) | negative(x, k);
        return r - as_float4(as_int4(k.s_dwbf800000) & ~unchanged);
    }
}

} // namespace zelk::ZELK_TIER
