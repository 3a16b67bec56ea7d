// arctan x on four binary32 lanes.
// Method: |x| <= 1: a degree-17 odd polynomial. Above: pi/2 - arctan(1/|x|), the same polynomial. Tier A puts
// the sign on the sum, tier L on its terms, which tells in directed rounding only.
#include "invtrig/atanf4.h"
#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

float4 atanf4(float4 x)
{
    const auto& k = tables::atanf4;
    const int4 sign = as_int4(x) & k.s_dwSignMask;
    const float4 a = as_float4(as_int4(x) & k.s_dwAbsMask);
    // The patterns are compared, also for the minimum and the maximum: the floating-point operations would
    // raise invalid for a NaN. NaNs are big.
    const int4 big = as_int4(a) > as_int4(k.s_fOne);
    const int4 quarter_turn = as_int4(k.s_fPi2) & big;
    if constexpr (tier == Tier::A) {
        const float4 q = select(big, k.s_fNegOne, a) / select(big, a, k.s_fOne);
        return as_float4(as_int4(arctangent(q, k) + as_float4(quarter_turn)) | sign);
    } else {
        const float4 q = select(big, k.s_fOne, a) / select(big, a, k.s_fOne);
        const int4 signed_q = as_int4(q) ^ (big & k.s_dwSignMask) ^ sign;
        return arctangent(as_float4(signed_q), k) + as_float4(quarter_turn | sign);
    }
}

} // namespace zelk::ZELK_TIER
