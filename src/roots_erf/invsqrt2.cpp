// 1/sqrt x on two binary64 lanes.
// Method: y0 with 21 significant bits from the processor's binary32 estimate and integer arithmetic on the
// exponent; then y = y0 (1 + e)^(-1/2) with the residual e = x y0^2 - 1, by its Taylor polynomial of
// degree 5.
#include "tables/invsqrt2.h"
#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

// Positive normal numbers below 2^1022 only.
ZELK_INLINE double2 reciprocal_sqrt(double2 x, const tables::Invsqrt2& k)
{
    // x = m 4^n with m in [1, 4): the exponent's lowest bit decides between [1, 2) and [2, 4).
    const int4 significand = as_int4(as_ulong2(x) >> 29) & k.flMant1Mask;
    const float4 m = as_float4((significand ^ k.flJBit) + k.flOne);
    const float4 r = reciprocal_sqrt_estimate(m);

    // y0 = r 2^-n: both halves are put together in the high word.
    const uint4 half_exponent = as_uint4((as_int4(x) - k.fldbJBit) & k.fldbExpo1Mask) >> 1;
    const uint4 r_high = as_uint4(as_int4(as_long2(as_int4(as_uint4(r) >> 3)) << 32));
    const uint4 high = r_high + as_uint4(k.fl3BiD2MSBi) - half_exponent;
    const double2 y0 = as_double2(as_long2(as_int4(high)) & k.dbHi);

    // The products with x_high, and y0^2, are exact.
    const double2 x_high = as_double2(as_long2(x) & k.dbHi);
    const double2 x_low = x - x_high;
    const double2 y0_squared = y0 * y0;
    const double2 e = (x_low * y0_squared) + (x_high * y0_squared - k.dbOne);
    const double2 p = (((k.dbC5 * e + k.dbC4) * e + k.dbC3) * e + k.dbC2) * e + k.dbC1;
    return (e * p) * y0 + y0;
}

static double __zelk_invsqrt_sd(double argument)
{
    double x = argument * opaque(1.0); // quiets a signalling NaN
    double scale = 1.0;
    const auto bits = __builtin_bit_cast(std::uint64_t, x);
    const std::uint64_t infinity = 0x7FF0000000000000;
    const std::uint64_t sign_bit = std::uint64_t{1} << 63;
    const std::uint64_t magnitude = bits & ~sign_bit;
    if (magnitude > infinity) return x;
    if (magnitude == 0) return __builtin_bit_cast(double, bits | infinity);
    if (bits & sign_bit) return __builtin_bit_cast(double, std::uint64_t{0xFFF8000000000000});
    if (bits == infinity) return 0.0;
    if (bits < 0x0010000000000000) {
        x *= 0x1p54;
        scale = 0x1p27;
    } else if (bits >= 0x7FD0000000000000) {
        x *= 0.25;
        scale = 0.5;
    }
    return reciprocal_sqrt(splat(x), tables::invsqrt2)[0] * scale;
}

[[gnu::noinline, gnu::cold]] static double2 invsqrt2_special(double2 x)
{
    return double2{__zelk_invsqrt_sd(x[0]), __zelk_invsqrt_sd(x[1])};
}

double2 invsqrt2(double2 x)
{
    const auto& k = tables::invsqrt2;
    const int4 special = as_int4(as_uint4(as_int4(x)) - as_uint4(k.min_normal_high)) > k.ordinary_bound;
    if (lane_mask(as_double2(special)) != 0) [[unlikely]]
        return invsqrt2_special(x);
    return reciprocal_sqrt(x, k);
}

} // namespace zelk::ZELK_TIER
