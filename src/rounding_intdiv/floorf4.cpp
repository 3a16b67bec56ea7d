// The largest integer not above x, on four binary32 lanes.
// Method: the truncated value r, and 1 less where x < 0 has a fraction.
#include "dispatch/kernels.h"
#include "rounding_intdiv/rounding.h"

namespace zelk::ZELK_TIER {

float4 floorf4(float4 x)
{
    const auto& k = tables::roundingf4;
    const float4 r = truncate(x, k);
    const int4 integral = tier == Tier::A ? r == x : as_int4(r) == as_int4(x);
    return r - as_float4(as_int4(k.s_dw3f800000) & (negative(x, k) & ~integral));
}

} // namespace zelk::ZELK_TIER
