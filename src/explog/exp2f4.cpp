// 2^x on four binary32 lanes.
// Method: x = N/64 + r with N = round(64 x), 2^x = 2^floor(N/64) 2^(j/64) 2^r with j = N mod 64: a table and
// a quadratic whose leading coefficient (ln2)^2/2 the table holds. Beyond |x| = 123.5 all lanes are
// recomputed one by one, shifted by 24 towards zero.
#include "tables/exp2f4.h"
#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

using tables::Exp2f4;

ZELK_INLINE float4 zero_for_subnormal(float4 x, const Exp2f4& k)
{
    const int4 bits = as_int4(x);
    return as_float4(bits & ~((bits & k.flExpMask) == 0));
}

ZELK_INLINE float4 exp2_in_range(float4 x, const Exp2f4& k)
{
    const float4 t = x + k.flRS;
    const float4 r = (k.flRS - t) + x;
    const int4 n = as_int4(t);
    const float4 table = gather_rows(k.s_fExp2Tbl, n & k.flJMask).first;
    const float4 scale = as_float4(((n + k.flBias) & k.flScaleMask) << 17);
    const float4 q = (k.flA1 + r) * r + k.flA0;
    return (table * scale) * q;
}

// From and to bit patterns: a float result would quiet a NaN on its way through the x87 stack of i386.
[[gnu::noinline]] static std::uint32_t __zelk_internal_exp2_ss(std::uint32_t b)
{
    const auto& k = tables::exp2f4;
    constexpr std::uint32_t infinity = 0x7F800000;
    // As unsigned words the negative arguments follow the positive ones, ascending in magnitude.
    if (b >= 0x43000000 && b < 0x80000000) return b > infinity ? b : infinity; // from 128 on
    if (b >= 0xC3160000) return b > (infinity | 0x80000000) ? b : 0;           // from -150 down

    float d = 0.0f;
    float c = 1.0f;
    if (b >= 0xC2F70000) { // from -123.5 down
        d = 24.0f;
        c = 0x1p-24f;
    } else if (b > 0x42F70000 && b < 0x80000000) { // above 123.5
        d = -24.0f;
        c = 0x1p24f;
    }
    const float x1 = __builtin_bit_cast(float, b) + d;
    const float4 y = exp2_in_range(zero_for_subnormal(splat(x1), k), k);
    return static_cast<std::uint32_t>(as_int4(y * splat(c))[0]);
}

[[gnu::noinline, gnu::cold]] static float4 exp2_lane_by_lane(float4 x)
{
    uint4 lanes = as_uint4(x);
    for (int lane = 0; lane < 4; ++lane)
        lanes[lane] = __zelk_internal_exp2_ss(lanes[lane]);
    return as_float4(lanes);
}

float4 exp2f4(float4 x)
{
    const auto& k = tables::exp2f4;
    const float4 argument = zero_for_subnormal(x, k);
    const int4 special = (as_int4(x) & k.flAbsMask) > k.flMaxBound;
    if (lane_mask(special) != 0) [[unlikely]]
        return exp2_lane_by_lane(argument);
    return exp2_in_range(argument, k);
}

} // namespace zelk::ZELK_TIER
