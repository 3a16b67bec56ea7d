// e^z = e^x cos y + i e^x sin y of one complex number with binary64 parts, z = x + iy.
// Method: e^x, sin y and cos y in extended precision, one product each, rounded once. The extended range
// holds e^x for |x| < 2048, so that a tiny sine or cosine brings it back into the range of binary64; beyond,
// nothing does.
#include "complex/cexp_special.h"
#include "dispatch/kernels.h"
#include "extended/arithmetic.h"

namespace zelk::ZELK_TIER {

// Squared, they overflow and underflow binary64 by any cosine's or sine's margin.
static constexpr long double __BIG_SMALL[2] = {0x1p8000L, 0x1p-8000L};

// |x| >= 2048, y finite and not zero.
[[gnu::noinline, gnu::cold]] static complex_double cexp_beyond_range(double x, double y)
{
    const long double B = __BIG_SMALL[x < 0];
    long double sine;
    long double cosine;
    sincosl_scalar(y, &sine, &cosine);
    const long double re = cosine * B * B;
    const long double im = is_denormal(y) ? B * B * y : sine * B * B;
    return make_complex(static_cast<double>(re), static_cast<double>(im));
}

// A part is zero, infinite or a NaN.
[[gnu::noinline, gnu::cold]] static complex_double cexp_special(double x, double y)
{
    if (!is_finite(y)) return cexp_of_special_angle(x, y);
    const long double E = expl_scalar(x);
    if (is_zero(y)) return make_complex(static_cast<double>(E), y);
    const long double im = is_denormal(y) && !is_zero(x) ? y * E : E * sinl_scalar(y);
    return make_complex(static_cast<double>(E * cosl_scalar(y)), static_cast<double>(im));
}

complex_double internal_cexp(complex_double z)
{
    const double x = real(z);
    const double y = imag(z);
    if (!is_finite(x) || !is_finite(y) || is_zero(x) || is_zero(y)) [[unlikely]]
        return cexp_special(x, y);
    if (magnitude_pattern(x) >= 0x40A0000000000000) [[unlikely]] // 2048
        return cexp_beyond_range(x, y);
    const long double E = expl_scalar(x);
    long double sine;
    long double cosine;
    sincosl_scalar(y, &sine, &cosine);
    return make_complex(static_cast<double>(cosine * E), static_cast<double>(sine * E));
}

complex_double cexp_scalar(complex_double z)
{
    return dispatched::internal_cexp(z);
}

} // namespace zelk::ZELK_TIER
