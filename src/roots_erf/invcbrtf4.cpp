// 1/cbrt x on four binary32 lanes: |x| = m 2^e, 1/cbrt x = +-m^(-1/3) 2^(r/3) 2^t with -e = 3t + r.
// Method: a polynomial of degree 7 for m^(-1/3) over all of [1, 2), in binary64.
#include "dispatch/kernels.h"
#include "roots_erf/cbrtf4.h"

namespace zelk::ZELK_TIER {

using tables::Cbrtf4;
using tables::Invcbrtf4;

ZELK_INLINE double2 polynomial(double2 m, const Invcbrtf4& p)
{
    return p.s_dbA0 +
           m * (p.s_dbA1 +
                m * (p.s_dbA2 +
                     m * (p.s_dbA3 + m * (p.s_dbA4 + m * (p.s_dbA5 + m * (p.s_dbA6 + m * p.s_dbA7))))));
}

ZELK_INLINE double2 factors(std::int32_t low, std::int32_t high, const Invcbrtf4& p)
{
    const long2 bits = {static_cast<std::int64_t>(p.s_dbCbrt2j[low]),
                        static_cast<std::int64_t>(p.s_dbCbrt2j[high])};
    return as_double2(bits);
}

// magnitude: a positive normal number; last: the sign, as a one, or what makes a special result.
ZELK_INLINE float4 reciprocal_cube_root(int4 magnitude, float4 last, const Cbrtf4& k, const Invcbrtf4& p)
{
    const int4 third = third_of_exponent_A(p.s_dw2xExpbOfOne - (magnitude & k.exponent_mask), k);
    const int4 remainder = remainder_of_third(third, k);
    const float4 m = significand(magnitude, k);
    const double2 low = polynomial(widen_low(m), p) * factors(remainder[0], remainder[1], p);
    const double2 high = polynomial(widen_high(m), p) * factors(remainder[2], remainder[3], p);
    return narrow(low, high) * (power_of_third(third, k) * last);
}

[[gnu::noinline, gnu::cold]] static float4 invcbrtf4_irregular(float4 x)
{
    const auto& k = tables::cbrtf4;
    const auto& p = tables::invcbrtf4;
    const int4 magnitude = as_int4(x) & k.abs_mask;
    const int4 sign = as_int4(x) & k.sign_mask;
    const int4 infinity = k.exponent_mask;
    const int4 zero = magnitude == 0;
    const int4 subnormal = (magnitude < k.smallest_normal) & ~zero;
    const int4 infinite = magnitude == infinity;
    const int4 nan = magnitude > infinity;

    // 1/0 is divided for its flag; other lanes divide by one.
    (void)opaque(opaque(k.one) / select(zero, as_float4(magnitude), k.one));

    int4 last = select(zero, infinity, as_int4(k.one));
    last = select(infinite, int4{}, last);
    last = select(nan, as_int4(x), last);
    last = select(subnormal, p.s_dwDenoUnscale, last);

    const float4 scaled = as_float4(magnitude & subnormal) * p.s_dwDenoScale;
    int4 argument = select(subnormal, as_int4(scaled), magnitude);
    argument = select(zero | infinite | nan, as_int4(k.one), argument);
    return reciprocal_cube_root(argument, as_float4(last | sign), k, p);
}

float4 invcbrtf4(float4 x)
{
    const auto& k = tables::cbrtf4;
    const int4 magnitude = as_int4(x) & k.abs_mask;
    if (lane_mask(not_normal(magnitude, k)) != 0) [[unlikely]]
        return invcbrtf4_irregular(x);
    const float4 signed_one = as_float4((as_int4(x) & k.sign_mask) | as_int4(k.one));
    return reciprocal_cube_root(magnitude, signed_one, k, tables::invcbrtf4);
}

} // namespace zelk::ZELK_TIER
