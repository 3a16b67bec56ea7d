// Error functions, lane by lane in 80 bits, by the polynomials of double precision.
#include "extended/arithmetic.h"
#include "lane_loops/per_lane.h"
#include "tables/erf2.h"
#include "tables/erfc2.h"

namespace zelk::ZELK_TIER {

// c0 + c1 t + ...
template <int count>
ZELK_INLINE long double horner(long double t, const double (&c)[count])
{
    long double p = c[count - 1];
    for (int i = count - 2; i >= 0; --i)
        p = p * t + static_cast<long double>(c[i]);
    return p;
}

// The quarter of a binade that holds x, counted from that of 2^from; below it 0 or less.
ZELK_INLINE int quarter_of_binade(Words x, int from)
{
    return 4 * (x.biased_exponent() - exponent_bias - from) + static_cast<int>(x.significand >> 61 & 3);
}

// |x| < 4 or NaN.
static long double erfl(long double x)
{
    const Words words = words_of(x);
    if (words.not_finite() || words.zero()) return x + x;
    const int quarter = quarter_of_binade(words, -3) + 1; // row 1 begins at 1/8
    const int row = quarter < 0 ? 0 : quarter;
    const auto& c = tables::erfTable.rows[row];
    const long double a = magnitude(x);
    const long double P = horner(a * c.s - c.o, c.c);
    const long double result = row == 0 ? P + a : P;
    return words.negative() ? -result : result;
}

static long double erfcl(long double x)
{
    const Words words = words_of(x);
    if (words.infinite()) return words.negative() ? 2.0L : 0.0L;
    if (words.not_finite()) return x + x;
    const long double a = magnitude(x);
    if (a >= 16.0L) return words.negative() ? but_a_little(2.0L) : underflowed(false);
    const int quarter = quarter_of_binade(words, -2) + 1; // row 1 begins at 1/4
    const auto& c = tables::erfcTable.rows[quarter < 0 ? 0 : quarter];
    const long double u = a - static_cast<long double>(c.centre);
    const long double Q = static_cast<long double>(c.c0) + u * horner(u, c.c);
    const long double result = Q * expl_scalar(-a * a); // the square is exact
    return words.negative() ? 2.0L - result : result;
}

// From 4 on a stored 1.
static std::uint32_t erf_lane(std::uint32_t x)
{
    if (magnitude_pattern(x) >= 0x40800000 && !is_nan(x)) return (x & sign_bit) | 0x3F800000;
    return rounded<erfl>(x);
}

float4 erff4(float4 x)
{
    return lane_by_lane(x, erf_lane);
}
float4 erfcf4(float4 x)
{
    return lane_by_lane(x, rounded<erfcl>);
}

} // namespace zelk::ZELK_TIER
