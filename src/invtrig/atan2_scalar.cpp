// atan2(y, x), the angle of the point (x, y), of binary64 numbers, in extended precision.
// Method, tier A: the processor's partial arc tangent. Tier L: the smaller magnitude u over the larger one v
// is near c = n/64; arctan(u/v) = arctan c + arctan r, r = (u - c v)/(v + c u), |r| <= 1/128, from a table
// and the Taylor series; then pi/2 minus it where |y| is larger, and pi minus that where x is negative.
#include "tables/atan2_scalar.h"
#include "dispatch/kernels.h"
#include "invtrig/atan2_special.h"
#include "tables/atan2.h"

namespace zelk::ZELK_TIER {

ZELK_INLINE unsigned upper_word_of_magnitude(double x)
{
    return static_cast<unsigned>(__builtin_bit_cast(std::uint64_t, x) >> 32) & 0x7FFFFFFF;
}

// The angle of (x, y) from that of (v, u), 0 < u <= v.
struct Octant {
    const tables::Wide& base;
    bool minus; // base - angle
    bool below;
};
ZELK_INLINE double in_octant(Octant octant, long double angle)
{
    const long double whole = octant.minus ? octant.base - angle : octant.base + angle;
    return static_cast<double>(octant.below ? -whole : whole);
}

// u/v < 2^-7. What is formed of binary64 elsewhere could underflow here.
[[gnu::noinline]] static double far_angle(double u, double v, Octant octant)
{
    const long double r = static_cast<long double>(u) / v;
    const long double s = r * r;
    const auto& a = tables::atan2_scalar.taylor;
    const long double series = ((a[3] * s + a[2]) * s + a[1]) * s + a[0];
    return in_octant(octant, r + (r * s) * series);
}

// y and x not zero.
ZELK_INLINE double angle_of(double y, double x)
{
    const double ay = __builtin_fabs(y);
    const double ax = __builtin_fabs(x);
    const double u = ay < ax ? ay : ax;
    const double v = ay > ax ? ay : ax;
    const auto& k = tables::atan2_scalar;
    const bool steep = ay > ax;
    const bool left = x < 0;
    const Octant octant = {k.base[2 * steep + left], steep != left, y < 0};
    if (upper_word_of_magnitude(v) - upper_word_of_magnitude(u) > 8 << 20) [[unlikely]]
        return far_angle(u, v, octant);
    const auto n = static_cast<int>(u / v * 64.0 + 0.5);
    const auto& row = k.row[n];

    // c has 7 significant bits, so that c v is exact. So is the difference: it is below v/128, and u, if n is
    // not 0, above v/129.
    const long double c = row.c;
    const long double r = (u - c * v) / (v + c * u);
    // What is below 2^-15 of the series may have 53 bits.
    const auto rounded_r = static_cast<double>(r);
    const double z = rounded_r * rounded_r;
    const auto& a = k.taylor;
    const double rest = z * ((a[1].hi + z * a[2].hi) + (z * z) * a[3].hi);
    const long double angle = row.angle + (r + (r * (r * r)) * (a[0] + rest));
    return in_octant(octant, angle);
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
        // Zeros, the smallest denormal numbers, infinities and NaNs.
        if (upper_word_of_magnitude(y) - 1 >= 0x7FEFFFFF || upper_word_of_magnitude(x) - 1 >= 0x7FEFFFFF)
            [[unlikely]] {
            double special;
            if (special_atan2(y, x, tables::atan2_angles.angles, special)) return special;
        }
        return angle_of(y, x);
    }
}

} // namespace zelk::ZELK_TIER
