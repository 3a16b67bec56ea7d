// e^z = e^x cos y + i e^x sin y of one complex number with binary32 parts, z = x + iy.
// Method, tier A: cexp_scalar on the widened parts. Other tiers: in binary64, e^x by a table of 2^(j/128),
// sine and cosine from those of the nearest multiple of pi/32, each part rounded once; |x| >= 256 and |y| >=
// 90112 as in tier A, but for infinite x, of which the signs alone are asked for.
#include "tables/cexpf_scalar.h"
#include "complex/cexp_special.h"
#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

// The x87 rounds to 64 significant bits while this lives.
class FullPrecision {
public:
    [[gnu::always_inline]] FullPrecision()
    {
        asm volatile("fnstcw %0" : "=m"(saved_) : : "memory");
        if ((saved_ & precision_field) != precision_field) load(saved_ | precision_field);
    }
    [[gnu::always_inline]] ~FullPrecision()
    {
        if ((saved_ & precision_field) != precision_field) load(saved_);
    }

private:
    static constexpr std::uint16_t precision_field = 0x300;
    [[gnu::always_inline]] static void load(int control)
    {
        const auto word = static_cast<std::uint16_t>(control);
        asm volatile("fldcw %0" : : "m"(word) : "memory");
    }
    std::uint16_t saved_;
};

ZELK_INLINE complex_float rounded(double re, double im)
{
    const auto re_float = static_cast<float>(re);
    const auto im_float = static_cast<float>(im);
    return make_complex(re_float, im_float);
}

[[gnu::noinline]] static complex_float internal_cexpf(complex_float z)
{
    const FullPrecision precision;
    const complex_double wide =
        dispatched::cexp_scalar(make_complex(static_cast<double>(real(z)), static_cast<double>(imag(z))));
    const complex_float result = rounded(real(wide), imag(wide));
    signal_denormal(real(result), imag(result));
    return result;
}

// e^x, |x| < 256.
ZELK_INLINE double exponential(double x)
{
    const auto& k = tables::static_const_table_cexpf;
    const double shifted = x * k.inv_ln2_128 + k.shifter;
    const double r = x - (shifted - k.shifter) * k.ln2_128;
    const double r2 = r * r;
    const double p = 1.0 + (r + r2 * (k.e2 + r * k.e3 + r2 * k.e4));
    const auto n = static_cast<std::int32_t>(__builtin_bit_cast(std::uint64_t, shifted));
    const double power = __builtin_bit_cast(double, static_cast<std::int64_t>((n >> 7) + 1023) << 52);
    return k.powers[n & 127] * power * p;
}

// Of y, 0 < |y| < 90112: y = j pi/32 + r, the two leading differences exact.
struct Turn {
    double sine;
    double cosine;
};
ZELK_INLINE Turn sine_and_cosine(double y)
{
    const auto& k = tables::static_const_table_cexpf;
    // To nearest in every rounding mode: next to a zero of the sine or cosine no other j will do.
    const auto j = static_cast<std::int32_t>(y * k.inv_pi_32 + __builtin_copysign(0.5, y));
    const auto n = static_cast<double>(j);
    const double r = ((y - n * k.pi_32_1) - n * k.pi_32_2) - n * k.pi_32_3;
    const double r2 = r * r;
    const double s = r + r * r2 * (k.s3 + r2 * (k.s5 + r2 * k.s7));
    const double c = r2 * (k.c2 + r2 * (k.c4 + r2 * k.c6)); // cos r - 1
    const auto& at = k.angles[j & 63];
    return {at.sine + (at.sine * c + at.cosine * s), at.cosine + (at.cosine * c - at.sine * s)};
}

// A part that is zero here has underflowed like one that is denormal.
ZELK_INLINE complex_float underflow_signalled(complex_float z)
{
    if (is_below_normal(real(z)) || is_below_normal(imag(z))) [[unlikely]]
        opaque(opaque(0x1p-126f) * 0x1p-126f);
    return z;
}

// y is a zero: e^x and that zero.
ZELK_INLINE complex_float cexpf_on_real_axis(float x, float y)
{
    if (is_zero(x)) return make_complex(1.0f, y);
    if (is_infinite(x)) return make_complex(is_negative(x) ? 0.0f : x, y);
    if (magnitude_pattern(x) >= 0x43800000) { // 256
        const float B = opaque(is_negative(x) ? 0x1p-126f : 0x1.fffffep127f);
        return make_complex(B * B, y);
    }
    const auto re = static_cast<float>(exponential(x));
    signal_denormal(re, y);
    return make_complex(re, y);
}

// 0 < |y| < 90112.
ZELK_INLINE bool has_short_reduction(float y)
{
    return magnitude_pattern(y) - 1 < 0x47AFFFFF;
}

// x is infinite or a NaN, 0 < |y| < 90112: infinities or zeros with the signs of cosine and sine, or x.
ZELK_INLINE complex_float cexpf_of_special_x(float x, float y)
{
    if (is_nan(x)) {
        const float nan = x + x;
        return make_complex(nan, nan);
    }
    const float size = is_negative(x) ? 0.0f : x;
    // Below 1 the signs are known.
    if (magnitude_pattern(y) < 0x3F800000) return make_complex(size, with_sign_of(size, y));
    const Turn turn = sine_and_cosine(y);
    return make_complex(is_negative(turn.cosine) ? -size : size, is_negative(turn.sine) ? -size : size);
}

// Arguments off the main path.
[[gnu::noinline, gnu::cold]] static complex_float cexpf_special(complex_float z)
{
    const float x = real(z);
    const float y = imag(z);
    if (!is_finite(y)) return cexp_of_special_angle(x, y);
    if (is_zero(y) && !is_nan(x)) return cexpf_on_real_axis(x, y);
    if (!is_finite(x) && has_short_reduction(y)) return cexpf_of_special_x(x, y);
    return internal_cexpf(z);
}

complex_float cexpf_scalar(complex_float z)
{
    if constexpr (tier == Tier::A) return internal_cexpf(z);

    const float x = real(z);
    const float y = imag(z);
    if (has_short_reduction(y) && magnitude_pattern(x) < 0x43800000) [[likely]] { // 256
        const double e = exponential(x);
        const Turn turn = sine_and_cosine(y);
        return underflow_signalled(rounded(e * turn.cosine, e * turn.sine));
    }
    return cexpf_special(z);
}

} // namespace zelk::ZELK_TIER
