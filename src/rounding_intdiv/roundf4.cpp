// x to the nearest integer, halfway cases away from zero, on four binary32 lanes.
// Method: |x| = r + d, r an integer and 0 <= d < 1 exactly; 1 more where d >= 1/2.
#include "dispatch/kernels.h"
#include "rounding_intdiv/rounding.h"

namespace zelk::ZELK_TIER {

float4 roundf4(float4 x)
{
    const auto& k = tables::roundingf4;
    const float4 a = as_float4(as_int4(x) & k.s_dw7fffffff);
    const int4 sign = as_int4(x) ^ as_int4(a);
    const float4 t = truncate_through_int(a); // raises invalid from 2^31 on, and for infinities and NaNs
    float4 result;
    if constexpr (tier == Tier::A) {
        const float4 r = select(a < k.s_dw4b000000, t, a);
        const float4 d = a - r;
        result = r + as_float4(as_int4(k.s_dw3f800000) & ~(d < k.s_dw3f000000));
    } else {
        const float4 r = select(as_int4(a) > k.s_dw4affffff, a, t);
        const float4 d = a - r;
        result = r + as_float4(as_int4(k.s_dw3f800000) & (as_int4(d) > k.s_dw3effffff));
    }
    return as_float4(as_int4(result) | sign);
}

} // namespace zelk::ZELK_TIER
