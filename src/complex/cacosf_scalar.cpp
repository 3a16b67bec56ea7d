// arccos z of one complex number with binary32 parts: real part in [0, pi], imaginary part with the sign
// opposite to that of z's. Method: the distances of z to +-1, in binary64, whose range holds their squares
// (Hull, Fairgrieve and Tang); on the axes by the real functions of extended precision.
#include "complex/cacos.h"
#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

namespace {
struct DoubleFunctions {
    static constexpr double __Bcross = 0x1.488ce703afb7fp-1; // 0.6417
    [[gnu::always_inline]] static double square_root(double x) { return sqrt_scalar(x); }
    [[gnu::always_inline]] static double arccosine(double x) { return dispatched::acos_scalar(x); }
    [[gnu::always_inline]] static double arctangent2(double y, double x)
    {
        return dispatched::atan2_scalar(y, x);
    }
    [[gnu::always_inline]] static double logarithm(double x) { return dispatched::log_scalar(x); }
    [[gnu::always_inline]] static double logarithm1p(double x) { return dispatched::log1p_scalar(x); }
};
} // namespace

static constexpr double __DBL_PPI = 0x1.921fb54442d18p1;
static constexpr Quarters<float> quarters = {
    .pi_4 = 0x1.921fb6p-1f,
    .pi_2 = 0x1.921fb6p0f,
    .pi3_4 = 0x1.2d97c8p1f,
    .pi = 0x1.921fb6p1f,
};

// y is zero, x finite and not zero.
ZELK_INLINE complex_float cacosf_on_real_axis(float x, float y)
{
    if (magnitude_pattern(x) < magnitude_pattern(1.0f))
        return make_complex(static_cast<float>(acosl_scalar(x)), -y);
    const auto t = static_cast<float>(dispatched::acoshl_scalar(__builtin_fabsf(x)));
    return make_complex(x < 0 ? quarters.pi : 0.0f, with_sign_of(t, -y));
}

complex_float cacosf_scalar(complex_float z)
{
    const float x = real(z);
    const float y = imag(z);
    if (is_zero(x))
        return make_complex(quarters.pi_2, static_cast<float>(dispatched::asinhl_scalar(y) * -1.0L));
    if (!is_finite(x) || !is_finite(y)) [[unlikely]]
        return special_cacos(x, y, quarters);
    if (is_zero(y)) return cacosf_on_real_axis(x, y);

    auto [angle, modulus] = first_quadrant<DoubleFunctions>(__builtin_fabs(static_cast<double>(x)),
                                                            __builtin_fabs(static_cast<double>(y)));
    if (x < 0) angle = __DBL_PPI - angle;
    return make_complex(static_cast<float>(angle), static_cast<float>(y > 0 ? -modulus : modulus));
}

} // namespace zelk::ZELK_TIER
