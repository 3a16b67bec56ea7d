// cos x on four binary32 lanes.
// Method: cos x = (-1)^n sin(|x| - (n - 1/2) pi). |x| <= 10000: n = round((|x| + pi/2)/pi) and a degree-9 odd
// polynomial. Up to 2^30 the reduction is done in binary64. Beyond, and for infinities and NaNs,
// from a table of sine and cosine.
#include "dispatch/kernels.h"
#include "trig/sin_cosf4.h"

namespace zelk::ZELK_TIER {

using tables::SinCosf4;

ZELK_INLINE Reducedf4 reduce_in_binary32(float4 y, const SinCosf4& k)
{
    const int4 n = round_to_int((y + k.MMSPIo2) * k.MMSINVPI);
    return subtract_multiple_of_pi(y, to_float4(n) - k.MMS05, n, k);
}

// |x| = quadrant pi/2 + r with an odd quadrant, so that cos x = -(-1)^((quadrant - 1)/2) sin r.
ZELK_INLINE Reducedf4 reduce_medium(float4 y, const SinCosf4& k)
{
    const double2 low = widen_low(y);
    const double2 high = widen_high(y);
    const int4 quadrant = trunc_quotient_by_half_pi(low, high, k) | k.dbiOne;
    const int4 sign = ~(quadrant << 30) & k.sign_mask;
    return reduce_in_binary64(low, high, quadrant, sign, k);
}

// Lanes of `beyond` have |x| > 10000, or are infinite or NaN.
[[gnu::noinline, gnu::cold]] static float4 spec_scos4(float4 x, int4 beyond)
{
    const auto& k = tables::sin_cosf4;
    const float4 y = magnitude(x, k);
    const unsigned huge = lane_mask(as_int4(y) > k.flTwoPow30);
    float4 result = {};
    if (huge == 0 || lane_mask(beyond) != all_lanes4) {
        // Lanes that the binary32 path cannot take pass through it as zeros: they must not raise anything
        // there.
        const Reducedf4 ordinary = reduce_in_binary32(as_float4(as_int4(y) & ~beyond), k);
        if (huge == 0) return sine_polynomial(select(beyond, reduce_medium(y, k), ordinary), k);
        result = sine_polynomial(ordinary, k);
    }
    return lanes_on_grid(result, x, beyond, Signs::cosine, tables::__spec_table_cosf);
}

float4 cosf4(float4 x)
{
    const auto& k = tables::sin_cosf4;
    const float4 y = magnitude(x, k);
    const int4 beyond = beyond_bound(y, k);
    if (lane_mask(beyond) != 0) [[unlikely]]
        return spec_scos4(x, beyond);
    return sine_polynomial(reduce_in_binary32(y, k), k);
}

} // namespace zelk::ZELK_TIER
