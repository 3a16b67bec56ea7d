// atan2(y, x), the angle of the point (x, y), on four binary32 lanes.
// Method: arctan of the smaller magnitude over the larger, by a degree-17 odd polynomial; then pi/2 minus it
// where |y| is larger, and pi minus that where x is negative. A lane with x zero or subnormal, or y infinite
// or NaN, hands all four lanes over to a scalar routine, in binary64 but for the quotient.
#include "dispatch/kernels.h"
#include "invtrig/atan2_special.h"
#include "invtrig/atanf4.h"

namespace zelk::ZELK_TIER {

[[gnu::noinline]] static float __zelk_atan2_ss(float y, float x)
{
    const auto& k = tables::atan2_ss;
    float special;
    if (special_atan2(y, x, k.angles, special)) return special;

    const float ay = __builtin_fabsf(y);
    const float ax = __builtin_fabsf(x);
    const bool swap = ay > ax;
    const double q = swap ? -ax / ay : ay / ax;
    const double z = q * q;
    const double Z = z * z;
    const double E = (((k.b[8] * Z + k.b[6]) * Z + k.b[4]) * Z + k.b[2]) * Z + k.b[0];
    const double O = (((k.b[7] * Z + k.b[5]) * Z + k.b[3]) * Z + k.b[1]) * z;
    double theta = q * (E + O);
    if (swap) theta += k.pi_2;
    const int side = x > 0;
    const double angle = theta * k.m_or_p[side] + k.pi_or_zero[side];
    return static_cast<float>(y < 0 ? -angle : angle);
}

[[gnu::noinline, gnu::cold]] static float4 atan2f4_by_lanes(float4 y, float4 x)
{
    float4 result = x;
    for (int lane = 0; lane < 4; ++lane)
        result[lane] = __zelk_atan2_ss(y[lane], x[lane]);
    return result;
}

float4 atan2f4(float4 y, float4 x)
{
    const auto& k = tables::atanf4;
    const float4 ay = as_float4(as_int4(y) & k.s_dwAbsMask);
    const float4 ax = as_float4(as_int4(x) & k.s_dwAbsMask);
    const int4 ordinary = ~(as_int4(ay) > k.s_dwMaxNormal) & (as_int4(ax) > k.s_dwMinBound);
    if (lane_mask(ordinary) != all_lanes4) [[unlikely]]
        return atan2f4_by_lanes(y, x);

    const float4 sy1 = as_float4((as_int4(y) & k.s_dwSignMask) | as_int4(k.s_fOne));
    const float4 sx1 = as_float4((as_int4(x) & k.s_dwSignMask) | as_int4(k.s_fOne));
    // The patterns are compared: a floating-point comparison would raise invalid for a NaN in x.
    const int4 swap = as_int4(ax) < as_int4(ay);
    const float4 numerator = select(swap, ax, ay);
    const float4 denominator = select(swap, ay, ax);
    const float4 q = as_float4(as_int4(numerator / denominator) | (swap & k.s_dwSignMask));
    const float4 add1 = as_float4(swap & as_int4(k.s_fPi2));
    const float4 add2 = as_float4((as_int4(x) >> 31) & as_int4(k.s_fPi));
    return ((arctangent(q, k) + add1) * sx1 + add2) * sy1;
}

} // namespace zelk::ZELK_TIER
