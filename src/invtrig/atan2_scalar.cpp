// atan2(y, x), the angle of the point (x, y), of binary64 numbers, in extended precision.
// Method, tier A: the processor's partial arc tangent. Tier L: the smaller magnitude u over the larger one v
// is near c = n/64; arctan(u/v) = arctan c + arctan r, r = (u - c v)/(v + c u), |r| <= 1/128, from a table
// and the Taylor series; then pi/2 minus it where |y| is larger, and pi minus that where x is negative.
#include "tables/atan2_scalar.h"
#include "dispatch/kernels.h"
#include "invtrig/atan2_special.h"
#include "tables/atan2.h"

namespace zelk::ZELK_TIER {

// The nearest multiple of 1/64 to u/v, 0 < u <= v. A quotient that is surely below 2^-7 is not formed: it
// could underflow.
ZELK_INLINE int nearest_64th(double u, double v)
{
    const auto high_u = static_cast<std::int32_t>(__builtin_bit_cast(std::uint64_t, u) >> 32);
    const auto high_v = static_cast<std::int32_t>(__builtin_bit_cast(std::uint64_t, v) >> 32);
    if (high_v - high_u > 8 << 20) return 0;
    return static_cast<int>(u / v * 64.0 + 0.5);
}

// arctan(u/v), 0 < u <= v.
ZELK_INLINE long double arctangent_of_ratio(double u, double v)
{
    const auto& k = tables::atan2_scalar;
    const int n = nearest_64th(u, v);
    const long double c = 0x1p-6L * static_cast<long double>(n);
    // c has 7 significant bits, so that c v is exact. So is the difference: it is below v/128, and u, if n is
    // not 0, above v/129.
    const long double r = (u - c * v) / (v + c * u);
    const long double s = r * r;
    const auto& a = k.taylor;
    const long double series = ((a[3] * s + a[2]) * s + a[1]) * s + a[0];
    return k.angle[n] + (r + (r * s) * series);
}

double atan2_scalar(double y, double x)
{
    if constexpr (tier == Tier::A) {
        long double result;
        asm("fpatan"
            : "=t"(result)
            : "0"(static_cast<long double>(x)), "u"(static_cast<long double>(y))
            : "st(1)");
        return static_cast<double>(result);
    } else {
        double special;
        if (special_atan2(y, x, tables::atan2_angles.angles, special)) return special;

        const auto& k = tables::atan2_scalar;
        const double ay = __builtin_fabs(y);
        const double ax = __builtin_fabs(x);
        const bool steep = ay > ax;
        const double u = steep ? ax : ay;
        const double v = steep ? ay : ax;
        long double angle = arctangent_of_ratio(u, v);
        if (steep)
            angle = x < 0 ? k.pi_2 + angle : k.pi_2 - angle;
        else if (x < 0)
            angle = k.pi - angle;
        return static_cast<double>(y < 0 ? -angle : angle);
    }
}

} // namespace zelk::ZELK_TIER
