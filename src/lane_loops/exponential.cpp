// Exponentials and logarithms, lane by lane in 80 bits.
#include "extended/exponential.h"
#include "lane_loops/per_lane.h"

namespace zelk::ZELK_TIER {

static constexpr long double ln2 = 0x1.62e42fefa39ef358p-1L;
static constexpr long double log2_e = 0x1.71547652b82fe178p0L;
static constexpr long double log10_e = 0x1.bcb7b1526e50e32ap-2L;

// Infinities and zeros are stored, as the other tiers' ends of the range are.
static std::uint32_t exponential(std::uint32_t x)
{
    if (!is_nan(x) && magnitude_pattern(x) >= 0x42B17218) {
        if (x < sign_bit) return infinity_pattern;
        if (x >= 0xC2CFF1B5) return 0; // -103.97
    }
    return rounded<expl_scalar>(x);
}

// 2^x, 2^-126 <= |x| <= 150: x = n/256 + r exactly, 2^x = 2^k T e^(r ln2) with T from the table, n = 256 k +
// j.
static long double exp2l(long double x)
{
    const int n = round_to_int(x * 256.0L);
    const OddEven parts = exponential_parts((x - static_cast<long double>(n) * 0x1p-8L) * ln2);
    const int shifted = n + 128;
    return rounded(ScaledPair{times_table(tables::_rop_expl_table_256[shifted & 255], parts.odd + parts.even),
                              shifted >> 8});
}

// NaNs stay as they are; subnormal numbers count as zeros.
static std::uint32_t exponential2(std::uint32_t x)
{
    const std::uint32_t magnitude = magnitude_pattern(x);
    if (magnitude > infinity_pattern) return x;
    if (magnitude < 0x00800000) return 0x3F800000;
    if (x < sign_bit && magnitude >= 0x43000000) return infinity_pattern; // 128
    if (x >= 0xC3160000) return 0;                                        // -150
    return rounded<exp2l>(x);
}

// Minus infinity for zeros and NaNs for negative arguments are stored, NaNs keep their payload.
template <long double (*function)(long double)>
static std::uint32_t logarithm(std::uint32_t x)
{
    if (magnitude_pattern(x) == 0) return infinity_pattern | sign_bit;
    if (x > sign_bit && x <= (infinity_pattern | sign_bit)) return 0xFFFFFFFF;
    return rounded<function>(x);
}

// Powers of two, whose logarithm is exact in every rounding mode, are told by their significand.
static long double log2l(long double x)
{
    const Words words = words_of(x);
    if (words.significand << 1 == 0 && !words.not_finite())
        return static_cast<long double>(words.biased_exponent() - exponent_bias);
    return logl_scalar(x) * log2_e;
}
static long double log10l(long double x)
{
    return logl_scalar(x) * log10_e;
}

float4 expf4(float4 x)
{
    return lane_by_lane(x, exponential);
}
float4 exp2f4(float4 x)
{
    return lane_by_lane(x, exponential2);
}
float4 logf4(float4 x)
{
    return lane_by_lane(x, logarithm<logl_scalar>);
}
float4 log2f4(float4 x)
{
    return lane_by_lane(x, logarithm<log2l>);
}
float4 log10f4(float4 x)
{
    return lane_by_lane(x, logarithm<log10l>);
}

} // namespace zelk::ZELK_TIER
