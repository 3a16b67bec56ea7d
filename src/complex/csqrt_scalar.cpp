// sqrt z of one complex number with binary64 parts, z = x + iy: the root with a real part >= 0, its imaginary
// part with the sign of y. Method: t = sqrt((|z| + |x|)/2), which cancels nothing; (t, y/2t) for x > 0 and
// (|y|/2t, +-t) for x < 0. In extended precision, where no square overflows or underflows.
#include "complex/csqrt_special.h"
#include "dispatch/kernels.h"
#include "extended/arithmetic.h"

namespace zelk::ZELK_TIER {

// x and y finite and not zero.
ZELK_INLINE complex_double __zelk_internal_csqrt(double x_double, double y_double)
{
    const long double x = x_double;
    const long double y = y_double;
    const long double r = square_root(x * x + y * y);
    double re;
    double im;
    if (x >= 0) {
        const long double t = square_root(r * 0.5L + x * 0.5L);
        re = static_cast<double>(t);
        im = static_cast<double>((0.5L * y) / t);
    } else {
        const long double t = square_root(r * 0.5L - x * 0.5L);
        re = __builtin_fabs(static_cast<double>((0.5L * y) / t));
        im = static_cast<double>(t);
    }
    if (is_negative(im) != is_negative(y_double)) im = -im;
    return make_complex(re, im);
}

ZELK_INLINE complex_double finite_csqrt(double x, double y)
{
    if (is_zero(x)) {
        // Halved in extended precision: half of the smallest double is not zero there.
        const long double magnitude = fabs_scalar(y);
        const auto s = static_cast<double>(square_root(magnitude * 0.5L));
        return make_complex(s, with_sign_of(s, y));
    }
    if (!is_zero(y)) return __zelk_internal_csqrt(x, y);
    if (x < 0) return make_complex(0.0, with_sign_of(sqrt_scalar(-x), y));
    return make_complex(sqrt_scalar(x), y);
}

// The same for parts of moderate size, whose halves are exact and whose roots are normal numbers, without a
// branch: the quadrants of many points come in no order.
ZELK_INLINE complex_double moderate_csqrt(double x, double y)
{
    const long double half_x = __builtin_fabs(x) * 0.5;
    const long double half_y = y * 0.5;
    const long double t = square_root(square_root(half_x * half_x + half_y * half_y) + half_x);
    // Stored both, and loaded the one or the other way round.
    double parts[3];
    parts[0] = static_cast<double>(t);
    parts[1] = static_cast<double>(half_y / t);
    parts[2] = parts[0];
    const double* re = parts + is_negative(x);
    asm("" : "+r"(re) : "m"(parts));
    return make_complex(__builtin_fabs(re[0]), with_sign_of(re[1], y));
}

[[gnu::noinline]] static complex_double csqrt_of_any_size(double x, double y)
{
    if (!is_finite(x) || !is_finite(y)) [[unlikely]]
        return special_csqrt(x, y);
    const complex_double root = finite_csqrt(x, y);
    signal_denormal(real(root), imag(root));
    return root;
}

complex_double csqrt_scalar(complex_double z)
{
    const double x = real(z);
    const double y = imag(z);
    if (is_moderate(x) && is_moderate(y)) [[likely]]
        return moderate_csqrt(x, y);
    return csqrt_of_any_size(x, y);
}

} // namespace zelk::ZELK_TIER
