// x^y, lane by lane in 80 bits.
#include "dispatch/exceptions.h"
#include "extended/arithmetic.h"
#include "lane_loops/per_lane.h"

namespace zelk::ZELK_TIER {

static constexpr std::uint32_t one = 0x3F800000;
static constexpr std::uint32_t nan_pattern = 0x7FFFFFFF;

// y log2 x, x > 0: the x87's instruction, good to its last bits.
ZELK_INLINE long double binary_exponent(long double x, long double y)
{
    long double product;
    asm("fyl2x" : "=t"(product) : "0"(x), "u"(y) : "st(1)");
    return product;
}

// Powers beyond 2^708 and 2^-708 are stored infinities and zeros, in this tier as in the others. The bound of
// those, the high word of y log2 x, lies a little above it for positive x.
static bool beyond_range(std::uint32_t x, std::uint32_t y)
{
    const int exponent = static_cast<int>(magnitude_pattern(x) >> 23) - 127;
    const long double size = static_cast<long double>(exponent < 0 ? -exponent : exponent + 1);
    const long double largest = magnitude(number(y)) * size; // of |y log2 x|, but for subnormal x
    if (largest < 708.0L && exponent != -127) return false;
    const long double product = magnitude(binary_exponent(number(magnitude_pattern(x)), number(y)));
    return x < sign_bit ? product >= 708.00048828125L : product >= 708.0L;
}

// x and y finite, x not zero.
ZELK_INLINE std::uint32_t finite_power(std::uint32_t x, std::uint32_t y)
{
    if (!beyond_range(x, y)) return rounded_pattern(powl_scalar(number(x), number(y)));
    // Whether the power grows is seen by the signs; the parity of y by a power of -1, invalid if y is none.
    const bool grows = (magnitude_pattern(x) > one) == (y < sign_bit);
    const std::uint32_t sign = x < sign_bit ? 0 : rounded_pattern(powl_scalar(-1.0L, number(y)));
    if (is_nan(sign)) return sign;
    return (sign & sign_bit) | (grows ? infinity_pattern : 0);
}

static std::uint32_t power(std::uint32_t x, std::uint32_t y)
{
    if (magnitude_pattern(y) == 0 || x == one) return one;
    if (is_nan(x) || is_nan(y)) return nan_pattern;
    std::uint32_t result;
    if (magnitude_pattern(x) == 0 && y == (infinity_pattern | sign_bit))
        result = __builtin_bit_cast(std::uint32_t, -_raise_zerodivide());
    else if (magnitude_pattern(x) == 0 || magnitude_pattern(x) == infinity_pattern ||
             magnitude_pattern(y) == infinity_pattern)
        result = rounded_pattern(powl_scalar(number(x), number(y)));
    else
        result = finite_power(x, y);
    return is_nan(result) ? nan_pattern : result;
}

float4 powf4(float4 x, float4 y)
{
    return lane_by_lane(x, y, power);
}

} // namespace zelk::ZELK_TIER
