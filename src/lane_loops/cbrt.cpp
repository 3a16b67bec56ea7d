// Cube root and reciprocal cube root, lane by lane in 80 bits.
// Method: |x| = m 2^(3q + r), 1 <= m < 2; m^(1/3) to 2^-27 by the quadratics of cbrtf4, one Newton step to
// 2^-52, times 2^(r/3) 2^q.
#include "extended/arithmetic.h"
#include "lane_loops/per_lane.h"
#include "tables/cbrtf4.h"

namespace zelk::ZELK_TIER {

struct ScaledRoot {
    long double m;
    long double root; // m^(1/3), relative error below 2^-27
    int third;        // q
    int remainder;    // r
};

// x finite, not zero, and of binary32: no denormal number here.
ZELK_INLINE ScaledRoot scaled_root(Words x)
{
    const long double m = number_of(x.significand, exponent_bias);
    const float4& c = tables::s_fAi[x.significand >> 57 & 63];
    const long double root = c[0] + m * (c[1] + m * c[2]);
    const int exponent = x.biased_exponent() - exponent_bias;
    const int third = (exponent + 3 * 1024) / 3 - 1024; // rounded down
    return {m, root, third, exponent - 3 * third};
}

ZELK_INLINE long double with_sign_of(long double magnitude, Words x)
{
    return x.negative() ? -magnitude : magnitude;
}

static long double cbrtl(long double x)
{
    const Words words = words_of(x);
    if (words.zero() || words.not_finite()) return x + x;
    static constexpr long double factors[3] = {1.0L, 0x1.428a2f98d728ae22p0L, 0x1.965fea53d6e3c82cp0L};
    const ScaledRoot s = scaled_root(words);
    const long double square = s.root * s.root;
    const long double root = s.root - (square * s.root - s.m) / (3.0L * square);
    return with_sign_of(root * factors[s.remainder] * power_of_two(s.third), words);
}

static long double invcbrtl(long double x)
{
    const Words words = words_of(x);
    if (words.zero()) return pole(words.negative());
    if (words.infinite()) return words.negative() ? -0.0L : 0.0L;
    if (words.not_finite()) return x + x;
    static constexpr long double factors[3] = {1.0L, 0x1.965fea53d6e3c82cp-1L, 0x1.428a2f98d728ae22p-1L};
    const ScaledRoot s = scaled_root(words);
    const long double y = 1.0L / s.root;
    const long double root = y + y * ((1.0L - s.m * y * y * y) * (1.0L / 3));
    return with_sign_of(root * factors[s.remainder] * power_of_two(-s.third), words);
}

float4 cbrtf4(float4 x)
{
    return lane_by_lane(x, rounded<cbrtl>);
}
float4 invcbrtf4(float4 x)
{
    return lane_by_lane(x, rounded<invcbrtl>);
}

} // namespace zelk::ZELK_TIER
