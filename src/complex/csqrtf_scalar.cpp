// sqrt z of one complex number with binary32 parts, z = x + iy: the root with a real part >= 0, its imaginary
// part with the sign of y. Method: t = sqrt((|z| + |x|)/2) in binary64, where no square overflows or
// underflows; (t, y/2t) for x > 0 and
// (|y|/2t, +-t) for x < 0. Tier A takes the x87's square root; the others compute normal parts as csqrtf2
// does.
#include "complex/csqrt_special.h"
#include "complex/csqrtf.h"
#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

ZELK_INLINE double root_of(double x)
{
    if constexpr (tier == Tier::A) return sqrt_scalar(x);
    return square_root(splat(x))[0];
}
ZELK_INLINE float root_of(float x)
{
    if constexpr (tier == Tier::A) return sqrtf_scalar(x);
    return square_root(splat(x))[0];
}

ZELK_INLINE complex_float rounded(double re, double im)
{
    return make_complex(static_cast<float>(re), static_cast<float>(im));
}

// x and y finite and not zero.
ZELK_INLINE complex_float csqrt_by_division(double x, double y)
{
    const double r = root_of(x * x + y * y);
    if (x < 0) {
        const double t = root_of((r - x) * 0.5);
        const double v = 0.5 * y / t;
        return rounded(v < 0 ? 0.0 - v : v, y < 0 ? 0.0 - t : t);
    }
    const double t = root_of((x + r) * 0.5);
    return rounded(t, 0.5 * y / t);
}

// x and y normal.
ZELK_INLINE complex_float csqrt_by_reciprocal(double x, double y)
{
    const auto& k = tables::csqrtf2;
    const double2 u = square_of_root(splat(x), splat(y), k);
    const double2 r = corrected(reciprocal_square_root(u, k), u, k);
    const RootPartsd2 parts = root_parts(u, r, splat(y), k);
    const double t = parts.t[0];
    const double v = parts.v[0];
    return x < 0 ? rounded(v, with_sign_of(t, y)) : rounded(t, with_sign_of(v, y));
}

ZELK_INLINE complex_float finite_csqrt(float x, float y)
{
    if (is_zero(x)) {
        const auto s = static_cast<float>(root_of(__builtin_fabs(static_cast<double>(y)) * 0.5));
        return make_complex(s, with_sign_of(s, y));
    }
    if (is_zero(y))
        return x < 0 ? make_complex(0.0f, with_sign_of(root_of(-x), y)) : make_complex(root_of(x), y);
    if (tier != Tier::A && is_normal(x) && is_normal(y)) return csqrt_by_reciprocal(x, y);
    return csqrt_by_division(x, y);
}

complex_float csqrtf_scalar(complex_float z)
{
    const float x = real(z);
    const float y = imag(z);
    if (!is_finite(x) || !is_finite(y)) [[unlikely]]
        return special_csqrt(x, y);
    const complex_float root = finite_csqrt(x, y);
    signal_denormal(real(root), imag(root));
    return root;
}

} // namespace zelk::ZELK_TIER
