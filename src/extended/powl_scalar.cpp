// x^y of two 80-bit numbers: e^(y ln x) with ln x and the product carried as pairs of relative error below
// 2^-82, so that the largest product, 11400, is known to 2^-69. Powers that are numbers of the format, or one
// operation away from one, are formed without the logarithm.
#include "dispatch/kernels.h"
#include "extended/exponential.h"
#include "extended/invsqrtl.h"
#include "extended/logarithm.h"

namespace zelk::ZELK_TIER {

// ln(1 + f) - f with the first two terms of the series in pairs.
ZELK_INLINE Pair log1p_tail_pair(Pair f)
{
    Pair square = two_product(f.hi, f.hi);
    square.lo += 2.0L * f.hi * f.lo;
    const Pair third = multiply(multiply(square, f.hi), {tables::third_hi, tables::third_lo});
    const long double rest = square.hi * square.hi * logarithm_rest(f.hi);
    return add(add({-0.5L * square.hi, -0.5L * square.lo}, third), rest);
}

static Pair logarithm_pair(Normalised x)
{
    const long double near_one = number_of(x.significand, exponent_bias + x.exponent) - 1.0L;
    if ((x.exponent == 0 || x.exponent == -1) && magnitude(near_one) <= near_bound)
        return add(log1p_tail_pair({near_one, 0}), near_one);
    const LogarithmReduction reduced = reduce_logarithm(x);
    return add(add(reduced.head, reduced.f), log1p_tail_pair(reduced.f));
}

// What y is to the sign of x^y.
enum class Integrality { fraction, odd, even };
static Integrality integrality(Words y)
{
    const int exponent = y.biased_exponent() - exponent_bias;
    if (exponent < 0) return Integrality::fraction;
    if (exponent >= 64) return Integrality::even;
    const std::uint64_t unit = std::uint64_t{1} << (63 - exponent);
    if (y.significand & (unit - 1)) return Integrality::fraction;
    return y.significand & unit ? Integrality::odd : Integrality::even;
}

// Bits from the highest to the lowest one of a normalised significand.
ZELK_INLINE int significant_bits(std::uint64_t significand)
{
    return 1 + __builtin_clzll(significand & -significand);
}

// The powers that need no logarithm: of powers of two with an integer exponent, and integer powers of so
// short a significand that they have 64 bits at most. False when it is none.
static bool short_power(Normalised x, long double y, ScaledPair& power)
{
    const int width = significant_bits(x.significand);
    if (width == 1) {
        // Only a y of at most 34 bits has an integer product below 2^20, and then an exact one.
        if (x.exponent != 0 && words_of(y).significand << 34 != 0) return false;
        const long double exponent = y * static_cast<long double>(x.exponent);
        if (magnitude(exponent) >= 0x1p20L) return false;
        const int n = round_to_int(exponent);
        power = {{1.0L, 0.0L}, n};
        return static_cast<long double>(n) == exponent;
    }
    if (magnitude(y) > 64.0L) return false;
    const int n = round_to_int(y);
    const int size = n < 0 ? -n : n;
    if (static_cast<long double>(n) != y || (width - 1) * size >= 64) return false;
    const std::uint64_t odd_part = x.significand >> (64 - width);
    std::uint64_t product = odd_part;
    for (int i = 1; i < size; ++i)
        if (__builtin_mul_overflow(product, odd_part, &product)) return false;
    const int leading_zeros = __builtin_clzll(product);
    const int exponent = (x.exponent - (width - 1)) * size + 63 - leading_zeros;
    const Pair significand = {number_of(product << leading_zeros, exponent_bias), 0.0L};
    power =
        n < 0 ? ScaledPair{divide({1.0L, 0.0L}, significand), -exponent} : ScaledPair{significand, exponent};
    return true;
}

// |x|^y with a sign, |x| = `size` not zero, 2^-80 <= |y| < 2^80.
ZELK_INLINE long double signed_power(Normalised x, long double size, long double y, bool negative)
{
    if (y == 0.5L) return sqrtl_scalar(size);
    if (y == -0.5L) return __invsqrtl(&size);
    ScaledPair power;
    if (!short_power(x, y, power)) {
        const Pair exponent = multiply(logarithm_pair(x), y);
        if (magnitude(exponent.hi) >= 0x1p14L)
            return exponent.hi > 0 ? overflowed(negative) : underflowed(negative);
        power = exponential(exponent);
    }
    return rounded(ScaledPair{with_sign(negative, power.value), power.exponent});
}

// Everything but a positive normal x and 2^-80 <= |y| < 2^80.
[[gnu::noinline, gnu::cold]] static long double powl_special(long double x, long double y)
{
    const Words wx = words_of(x);
    const Words wy = words_of(y);
    if (wx.invalid_operand() || wy.invalid_operand()) return x + y;
    if (wy.zero() || x == 1.0L) return 1.0L;
    if (wx.quiet_nan() || wy.quiet_nan()) return x + y;

    const long double size = magnitude(x);
    const bool grows = (size > 1.0L) != wy.negative();
    if (wy.infinite()) return size == 1.0L ? 1.0L : grows ? magnitude(y) : 0.0L;
    const Integrality kind = integrality(wy);
    const bool negative = wx.negative() && kind == Integrality::odd;
    if (wx.zero() || wx.infinite()) {
        if (wx.zero() && wy.negative()) return pole(negative);
        const long double result = grows ? size : 0.0L;
        return negative ? -result : result;
    }
    if (wx.negative() && kind == Integrality::fraction) return invalid();
    if (wy.biased_exponent() < exponent_bias - 80) return grows ? and_a_little(1.0L) : but_a_little(1.0L);
    if (wy.biased_exponent() >= exponent_bias + 80)
        return size == 1.0L ? 1.0L : grows ? overflowed(false) : underflowed(false);
    return signed_power(normalised_finite(wx), size, y, negative);
}

long double powl_scalar(long double stacked_x, long double stacked_y)
{
    const long double x = argument(stacked_x);
    const long double y = argument(stacked_y);
    const Words words = words_of(x);
    if (words.negative() || !in_binades(words, -16382, 16384) || !in_binades(words_of(y), -80, 80))
        [[unlikely]]
        return powl_special(x, y);
    return signed_power(normalised(words), x, y, false);
}

} // namespace zelk::ZELK_TIER
