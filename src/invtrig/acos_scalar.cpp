// arccos x of one binary64 number, in extended precision.
// Method: by |x| = cos t: up to sin(pi/8), pi/2 - arcsin x; up to cos(pi/8), the angle from the nearer
// diagonal, whose sine is (|x| - sqrt(1 - x^2))/sqrt 2; up to 1, 2 arcsin sqrt((1 - |x|)/2). Each time a
// polynomial for the arc sine of an argument up to sin(pi/8). Tier A rounds what it derives from x to
// binary64; tier L rounds nothing but the result.
#include "tables/acos_scalar.h"
#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

ZELK_INLINE double round_to_binary64(long double x)
{
    return static_cast<double>(x);
}

// |y| <= sin(pi/16).
ZELK_INLINE long double arcsine_QL(long double y)
{
    const auto& Q = tables::acos_scalar.__QL;
    const long double z = y * y;
    const long double Z = z * z;
    const long double even = ((Q[6] * Z + Q[4]) * Z + Q[2]) * Z + Q[0];
    const long double odd = ((Q[7] * Z + Q[5]) * Z + Q[3]) * Z + Q[1];
    return y + (y * z) * (even + odd * z);
}

// |y| <= sin(pi/8).
ZELK_INLINE long double arcsine_PL(long double y)
{
    const auto& P = tables::acos_scalar.__PL;
    const long double z = y * y;
    const long double Z = z * z;
    const long double even = ((((P[10] * Z + P[8]) * Z + P[6]) * Z + P[4]) * Z + P[2]) * Z + P[0];
    const long double odd = ((((P[11] * Z + P[9]) * Z + P[7]) * Z + P[5]) * Z + P[3]) * Z + P[1];
    return y + (y * z) * (even + odd * z);
}

// sin(pi/4 - arccos |x|).
ZELK_INLINE long double sine_from_diagonal(double x)
{
    const long double magnitude = __builtin_fabsl(x);
    const long double one_sqrt2 = tables::acos_scalar.__one_sqrt2l;
    if constexpr (tier == Tier::A) {
        const long double c = __builtin_sqrtl(1.0 - x * x);
        return round_to_binary64((magnitude - c) * one_sqrt2);
    } else {
        const long double c = __builtin_sqrtl((1.0L - magnitude) * (1.0L + magnitude));
        return (magnitude - c) * one_sqrt2;
    }
}

// sin(arccos(|x|)/2).
ZELK_INLINE long double sine_of_half(double x)
{
    const long double t = (1.0L - __builtin_fabsl(x)) * 0.5L;
    if constexpr (tier == Tier::A)
        return round_to_binary64(__builtin_sqrtl(round_to_binary64(t)));
    else
        return __builtin_sqrtl(t);
}

// |x| >= 1 and NaNs.
[[gnu::noinline, gnu::cold]] static double acos_spec(double x)
{
    const auto bits = __builtin_bit_cast(std::uint64_t, x);
    const std::uint64_t magnitude = bits & INT64_MAX;
    const auto& k = tables::acos_scalar;
    if (magnitude > 0x7FF0000000000000) return x;
    if (magnitude > 0x3FF0000000000000) return opaque(__builtin_inf()) * 0.0; // raises invalid
    if (magnitude == bits) return 0.0;
    return round_to_binary64(k.__pil - k.__small_value_64); // pi, inexact
}

double acos_scalar(double x)
{
    const auto& k = tables::acos_scalar;
    const auto bits = __builtin_bit_cast(std::uint64_t, x);
    const std::uint32_t high = static_cast<std::uint32_t>(bits >> 32) & 0x7FFFFFFF;
    const bool negative = bits >> 63;
    if (high < 0x3C600000) return round_to_binary64(k.__pi_2l - x);              // 2^-57
    if (high < 0x3FC8F8B8) return round_to_binary64(k.__pi_2l - arcsine_QL(x));  // sin(pi/16)
    if (high <= 0x3FD87DE3) return round_to_binary64(k.__pi_2l - arcsine_PL(x)); // sin(pi/8)
    if (high < 0x3FED906B) {                                                     // cos(pi/8)
        const long double p = arcsine_PL(sine_from_diagonal(x));
        return round_to_binary64(k.__pi_34l[negative] - p * k.__ones[negative]);
    }
    if (high < 0x3FF00000) {
        const long double p = arcsine_QL(sine_of_half(x));
        return round_to_binary64(negative ? k.__pil + -2.0L * p : 2.0L * p);
    }
    return acos_spec(x);
}

} // namespace zelk::ZELK_TIER
