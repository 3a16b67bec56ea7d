// e^z = e^x cos y + i e^x sin y of one complex number with binary64 parts, z = x + iy.
// Method: e^x, sin y and cos y in extended precision, one product each, rounded once. The extended range
// holds e^x for |x| < 2048, so that a tiny sine or cosine brings it back into the range of binary64; beyond,
// nothing does. The main path has both functions in line, with the bits of the routines: their results need
// not be stored and loaded as 80-bit numbers.
#include "complex/cexp_special.h"
#include "dispatch/kernels.h"
#include "extended/exponential.h"
#include "extended/sin_cos.h"

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

// Anything that the main path does not take.
[[gnu::noinline]] static complex_double cexp_off_the_path(complex_double z)
{
    const double x = real(z);
    const double y = imag(z);
    if (!is_finite(x) || !is_finite(y) || is_zero(x) || is_zero(y)) return cexp_special(x, y);
    if (magnitude_pattern(x) >= 0x40A0000000000000) return cexp_beyond_range(x, y); // 2048
    const long double E = expl_scalar(x);
    long double sine;
    long double cosine;
    sincosl_scalar(y, &sine, &cosine);
    return make_complex(static_cast<double>(cosine * E), static_cast<double>(sine * E));
}

// The 80-bit words of a normal binary64 number; what is not normal gets an exponent that no main path
// takes.
ZELK_INLINE Words extended_words(std::uint32_t high, std::uint32_t low)
{
    const std::uint32_t exponent = (high >> 20 & 0x7FF) + (exponent_bias - 1023);
    return {(std::uint64_t{high} << 32 | low) << 11 | std::uint64_t{1} << 63,
            static_cast<std::uint16_t>(exponent | high >> 31 << 15)};
}

// The sine or the cosine is next to zero, y being next to n pi/512. That one is computed first, by a call,
// with nothing else in the x87 registers.
[[gnu::noinline]] static complex_double cexp_next_to_axis(Words X, Words Y, int n)
{
    const int quarters = next_to_zero(n) ? 0 : 1;
    const long double tiny = settled(sine_next_to_zero(Y, n, quarters));
    const long double other = sine_from_table(n + 256 * (1 - quarters), powers_of(angle_of(short_head(Y)).t));
    const long double E = settled(exponential_of(X));
    const auto tiny_part = static_cast<double>(tiny * E);
    const auto other_part = static_cast<double>(other * E);
    return quarters == 0 ? make_complex(other_part, tiny_part) : make_complex(tiny_part, other_part);
}

complex_double internal_cexp(complex_double z)
{
    // By words: 32-bit callers may have stored them one by one.
    using Word [[gnu::may_alias]] = std::uint32_t;
    const Word* words = reinterpret_cast<const Word*>(&z);
    asm("" : "+r"(words) : "m"(z));
    const Words X = extended_words(words[1], words[0]);
    const Words Y = extended_words(words[3], words[2]);
    if (!in_binades(X, -60, 11) || !in_binades(Y, smallest_angle, far_angle)) [[unlikely]]
        return cexp_off_the_path(z);

    const Angle angle = angle_of(short_head(Y));
    if (next_to_zero(angle.n) || next_to_zero(angle.n + 256)) [[unlikely]]
        return cexp_next_to_axis(X, Y, angle.n);

    // One after the other: together they need more registers than there are.
    const Pair both = settled({powers_of(angle.t).sine, powers_of(angle.t).cosine});
    const Powers powers = {both.hi, both.lo};
    const long double cosine = settled(sine_from_table(angle.n + 256, powers));
    const long double sine = settled(sine_from_table(angle.n, powers));
    const long double E = settled(exponential_of(X));
    return make_complex(static_cast<double>(cosine * E), static_cast<double>(sine * E));
}

complex_double cexp_scalar(complex_double z)
{
    return dispatched::internal_cexp(z);
}

} // namespace zelk::ZELK_TIER
