// e^x on four binary32 lanes.
// Method: x = N ln2/64 + r with N = round(x 64/ln2), e^x = 2^floor(N/64) 2^(j/64) e^r with j = N mod 64.
// Tier A takes 2^(j/64) from a table in two words and e^r from a cubic, the other tiers take one word and a
// quadratic. Lanes next to overflow and underflow are scaled in two steps.
#include "tables/expf4.h"
#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

using tables::Expf4A;
using tables::Expf4L;

// Tier A.

// 2^(j/64) e^r; the low bits of n hold N.
struct Unscaledf4 {
    float4 v;
    int4 n;
};

// N LnHi is exact for |N| <= 2^13; beyond, the result is subnormal and feels nothing of its rounding.
ZELK_INLINE Unscaledf4 exp_before_scaling(float4 x, const Expf4A& k)
{
    const float4 t = x * k.s_dwInvLn + k.s_dwRS;
    const float4 minus_n = k.s_dwRS - t;
    const float4 r = (x + minus_n * k.s_dwLnHi) + minus_n * k.s_dwLnLo;
    const float4 p = ((k.s_dwA3 * r + k.s_dwA2) * r) * r + r;
    const auto [hi, lo] = gather_rows(k.s_dwExp2, as_int4(t) & k.s_dwIndexMask);
    return {hi + ((hi + lo) * p + lo), as_int4(t)};
}

// 2^(floor(N/64) + bias/64 - 127).
ZELK_INLINE float4 power_of_two(int4 n, int4 bias, const Expf4A& k)
{
    return as_float4(((n + bias) << 17) & k.s_dwExpbMask);
}

// Lanes of `special` have |x| > 87.33, or are infinite or NaN.
[[gnu::noinline, gnu::cold]] static float4 finish_special_lanes(float4 x, int4 special)
{
    const auto& k = tables::expf4_a;
    const int4 bits = as_int4(x);
    const int4 negative = bits < 0;
    const int4 infinite_result = (bits >= k.s_dwFirstOvf) & (bits <= k.s_dwPosInf);
    const int4 zero_result = (bits >= k.s_dwFirstZero) & (bits <= k.s_dwNegInf) & negative;
    const int4 written = infinite_result | zero_result;
    // Lanes whose result is written pass through the arithmetic as zeros: they must not raise anything there.
    const auto [v, n] = exp_before_scaling(as_float4(bits & ~written), k);

    // The first factor leaves room in the exponent; the second overflows or underflows as the result does.
    const int4 scaled_twice = special & ~written;
    const int4 upper = scaled_twice & ~negative;
    const int4 lower = scaled_twice & negative;
    const float4 upper_scale = power_of_two(n, k.s_dwBias4Ovf, k);
    const float4 lower_scale = as_float4(as_int4(power_of_two(n, k.s_dwBias4Unf, k)) - k.s_dwLeastExpb);
    const float4 scale =
        select(upper, upper_scale, select(lower, lower_scale, power_of_two(n, k.s_dwBias, k)));
    const float4 correction =
        select(upper, k.s_dwCorr4Ovf, select(lower, as_float4(k.s_dwLeastExpb), k.s_dwOne));
    const float4 result = (scale * v) * correction;
    return select(written, as_float4(infinite_result & k.s_dwPosInf), result);
}

ZELK_INLINE float4 exp_from_two_words(float4 x)
{
    const auto& k = tables::expf4_a;
    const int4 special = (as_int4(x) & k.abs_mask) > k.s_dwSpecBound;
    if (lane_mask(special) != 0) [[unlikely]]
        return finish_special_lanes(x, special);
    const auto [v, n] = exp_before_scaling(x, k);
    return v * power_of_two(n, k.s_dwBias, k);
}

// All other tiers.

// 2 e^r, floor(N/64) + 126 and the mantissa field of 2^(j/64).
struct Factorsf4 {
    float4 q;
    int4 exponent;
    int4 mantissa;
};

// N LnHi is exact for |N| <= 2^13; beyond, the result is subnormal and feels nothing of its rounding.
ZELK_INLINE Factorsf4 exp_factors(float4 x, const Expf4L& k)
{
    const float4 t = x * k.s_dwInvLn - k.s_dwNegRS;
    const float4 nf = t + k.s_dwNegRS;
    const float4 r = (x - nf * k.s_dwLnHi) - nf * k.s_dwLnLo;
    const int4 n = as_int4(t);
    const int4 mantissa = as_int4(gather_rows(k.s_dwExp2_Table, n & k.s_dwIndexMask).first);
    return {((r + r) + k.flTwo) + r * r, (n + k.s_dwBias) >> 6, mantissa};
}

ZELK_INLINE float4 with_exponent(int4 mantissa, int4 exponent)
{
    return as_float4((exponent << 23) | mantissa);
}

template <class Vector>
ZELK_INLINE Vector by_sign(int4 negative, const Expf4L::BySign<Vector>& constant)
{
    return select(negative, constant.negative, constant.positive);
}

// Some lane has |x| > 86.5, or is infinite or NaN.
[[gnu::noinline, gnu::cold]] static float4 exp_all_ranges(float4 x)
{
    const auto& k = tables::expf4_l;
    const int4 bits = as_int4(x);
    const int4 magnitude = bits & k.flAbsMask;
    const int4 negative = bits < 0;
    const int4 out_of_range = magnitude >= k.flBound2;
    const int4 tail = (magnitude >= k.flBound1) & ~out_of_range;

    // Lanes out of range pass through the arithmetic as zeros: they must not raise anything there.
    const auto [q, exponent, mantissa] = exp_factors(as_float4(bits & ~out_of_range), k);
    // In the tail the exponent keeps clear of its ends; the factor overflows or underflows as the result
    // does.
    const float4 scale = with_exponent(mantissa, exponent + (tail & by_sign(negative, k.adjustment)));
    const float4 in_range = (q * scale) * select(tail, by_sign(negative, k.factor), k.flOne);

    // The square of the seed overflows, underflows, or quiets a NaN.
    const int4 infinite = magnitude == k.flInf;
    const int4 nan = magnitude > k.flInf;
    const int4 finite_seed = by_sign(negative, k.out_of_range_seed);
    const int4 seed = select(nan, bits, select(infinite, by_sign(negative, k.infinity_seed), finite_seed));
    const float4 root = as_float4(seed & out_of_range);
    return as_float4((as_int4(in_range) & ~out_of_range) | as_int4(root * root));
}

ZELK_INLINE float4 exp_from_one_word(float4 x)
{
    const auto& k = tables::expf4_l;
    const int4 special = (as_int4(x) & k.flAbsMask) > k.flBound1;
    if (lane_mask(special) != 0) [[unlikely]]
        return exp_all_ranges(x);
    const auto [q, exponent, mantissa] = exp_factors(x, k);
    return q * with_exponent(mantissa, exponent);
}

float4 expf4(float4 x)
{
    if constexpr (tier == Tier::A)
        return exp_from_two_words(x);
    else
        return exp_from_one_word(x);
}

} // namespace zelk::ZELK_TIER
