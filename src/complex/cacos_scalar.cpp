// arccos z of one complex number with binary64 parts: real part in [0, pi], imaginary part with the sign
// opposite to that of z's. Method: the distances of z to +-1, in extended precision, whose range holds their
// squares (Hull, Fairgrieve and Tang).
#include "complex/cacos.h"
#include "complex/cacos_parts.h"
#include "dispatch/kernels.h"
#include "extended/arithmetic.h"

namespace zelk::ZELK_TIER {

namespace {
struct ExtendedFunctions {
    static constexpr long double __Bcross = 0x1.488ce703afb7e910p-1L; // 0.6417
    [[gnu::always_inline]] static long double square_root(long double x) { return tier_A::square_root(x); }
    [[gnu::always_inline]] static long double arccosine(long double x) { return acosl_scalar(x); }
    [[gnu::always_inline]] static long double arctangent2(long double y, long double x)
    {
        return atan2l_scalar(y, x);
    }
    [[gnu::always_inline]] static long double logarithm(long double x) { return dispatched::logl_scalar(x); }
    [[gnu::always_inline]] static long double logarithm1p(long double x)
    {
        return dispatched::log1pl_scalar(x);
    }
};
} // namespace

static constexpr long double __LDBL_PPI = 0x1.921fb54442d1846ap+1L;
static constexpr Quarters<double> quarters = {
    .pi_4 = 0x1.921fb54442d18p-1,
    .pi_2 = 0x1.921fb54442d18p0,
    .pi3_4 = 0x1.2d97c7f3321d2p1,
    .pi = 0x1.921fb54442d18p1,
};

// y is zero, x finite and not zero.
ZELK_INLINE complex_double cacos_on_real_axis(double x, double y)
{
    if (magnitude_pattern(x) < magnitude_pattern(1.0))
        return make_complex(static_cast<double>(acosl_scalar(x)), -y);
    const auto t = static_cast<double>(dispatched::acoshl_scalar(magnitude(x)));
    return make_complex(x < 0 ? quarters.pi : 0.0, with_sign_of(t, -y));
}

// x and y finite and not zero.
[[gnu::noinline, gnu::cold]] static complex_double cacos_of_any_size(double x, double y)
{
    auto [angle, modulus] = first_quadrant<ExtendedFunctions>(magnitude(static_cast<long double>(x)),
                                                              magnitude(static_cast<long double>(y)));
    if (x < 0) angle = __LDBL_PPI - angle;
    return make_complex(static_cast<double>(angle), static_cast<double>(y > 0 ? -modulus : modulus));
}

complex_double cacos_scalar(complex_double z)
{
    const double x = real(z);
    const double y = imag(z);
    if (is_zero(x))
        return make_complex(quarters.pi_2, static_cast<double>(dispatched::asinhl_scalar(y) * -1.0L));
    if (!is_finite(x) || !is_finite(y)) [[unlikely]]
        return special_cacos(x, y, quarters);
    if (is_zero(y)) return cacos_on_real_axis(x, y);

    if (!is_moderate(x) || !is_moderate(y)) [[unlikely]]
        return cacos_of_any_size(x, y);
    return moderate_cacos(x, y);
}

} // namespace zelk::ZELK_TIER
