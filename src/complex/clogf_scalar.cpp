// ln z = ln |z| + i arg z of one complex number with binary32 parts, z = x + iy.
// Method: all in binary64. ln |z|^2 near |z| = 1 by its Taylor series in |z|^2 - 1, else by table; the angle
// by a polynomial in the smaller part over the larger. Tier A on i386: by the functions of 80-bit numbers.
#include "complex/clog_special.h"
#include "complex/clogf.h"
#include "dispatch/kernels.h"
#include "invtrig/atan2.h"
#include "invtrig/atan2_special.h"

namespace zelk::ZELK_TIER {

// The squares of binary32 numbers are exact. Near one the difference is formed as in squared_modulus.
[[maybe_unused]] static long double log_modulus_80(long double x, long double y)
{
    const long double X = x * x;
    const long double Y = y * y;
    const long double s = X + Y;
    if (__builtin_fabsl(s - 1.0L) < 0.03L) {
        const long double d = X < Y ? X - (1.0L - Y) : Y - (1.0L - X);
        return 0.5L * log1pl_scalar(d);
    }
    return 0.5L * logl_scalar(s);
}

// x and y finite, not both zero.
ZELK_INLINE double log_modulus(double x, double y)
{
    const auto& k = tables::clogf2;
    const SquaredModulusd2 modulus = squared_modulus(splat(x), splat(y), k);
    if (!modulus.near_one[0]) return 0.5 * log_by_table(modulus.s, k)[0];
    const auto& c = tables::clogf_scalar.taylor;
    const double d = modulus.d[0];
    const double d2 = d * d;
    const double even = c[0] + d2 * (c[2] + d2 * (c[4] + d2 * (c[6] + d2 * c[8])));
    const double odd = c[1] + d2 * (c[3] + d2 * (c[5] + d2 * c[7]));
    return 0.5 * d * (even + d * odd);
}

ZELK_INLINE float rounded_log_modulus(float x, float y)
{
    if constexpr (integer_lanes)
        return static_cast<float>(log_modulus(x, y));
    else
        return static_cast<float>(log_modulus_80(x, y));
}

// x and y finite and not zero.
ZELK_INLINE double argument(double y, double x)
{
    const auto& k = tables::atan2;
    const double ay = __builtin_fabs(y);
    const double ax = __builtin_fabs(x);
    const bool steep = ay > ax;
    const double q = steep ? ax / ay : ay / ax;
    double angle = arctangent(splat(q), k)[0];
    if (steep) angle = k.dbPio2hi[0] - angle;
    if (x < 0) angle = k.dbPi[0] - angle;
    return with_sign_of(angle, y);
}

ZELK_INLINE float rounded_argument(float y, float x)
{
    if constexpr (integer_lanes)
        return static_cast<float>(argument(y, x));
    else
        return static_cast<float>(atan2l_scalar(y, x));
}

// The parts are finite and not zero, or one of them is not.
[[gnu::noinline, gnu::cold]] static complex_float special_clog(float x, float y)
{
    if (is_nan(x) || is_nan(y)) return clog_of_nan(x, y);
    double angle = 0;
    special_atan2(static_cast<double>(y), static_cast<double>(x), tables::atan2_angles.angles, angle);
    if (!is_finite(x) || !is_finite(y)) return make_complex(__builtin_inff(), static_cast<float>(angle));
    if (is_zero(x) && is_zero(y)) return make_complex(-__builtin_inff(), static_cast<float>(angle));
    return make_complex(rounded_log_modulus(x, y), static_cast<float>(angle));
}

complex_float clogf_scalar(complex_float z)
{
    const float x = real(z);
    const float y = imag(z);
    if (!is_finite(x) || !is_finite(y) || is_zero(x) || is_zero(y)) [[unlikely]]
        return special_clog(x, y);
    return make_complex(rounded_log_modulus(x, y), rounded_argument(y, x));
}

} // namespace zelk::ZELK_TIER
