// 2^x on four binary32 lanes.
// Method: x = N/64 + r with N = round(64 x), 2^x = 2^floor(N/64) 2^(j/64) 2^r with j = N mod 64: a table and
// a quadratic whose leading coefficient (ln2)^2/2 the table holds. Lanes beyond |x| = 123.5 are
// shifted by 24 towards zero.
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

// Some lane lies beyond 123.5, or is infinite or NaN.
[[gnu::noinline, gnu::cold]] static float4 __zelk_internal_exp2_ss(float4 x)
{
    const auto& k = tables::exp2f4;
    const int4 bits = as_int4(x);
    const int4 magnitude = bits & k.flAbsMask;
    const int4 negative = bits >> 31;
    const int4 known = (bits > k.flBelow128) | (negative & (magnitude > k.flBelow150));
    const int4 value = select(magnitude > k.flPosInf, bits, k.flPosInf & ~negative);
    if (lane_mask(known) == all_lanes4) return as_float4(value);

    const int4 low = negative & ~(k.flMaxBound > magnitude) & ~known;
    const int4 high = (bits > k.flMaxBound) & ~known;
    const int4 unshifted = ~(low | high); // known lanes too, as zeros
    const float4 d = as_float4(((low | high) & k.flShift) | (high & ~k.flAbsMask));
    const float4 c = as_float4((low & k.flShiftDown) | (high & k.flShiftUp) | (unshifted & k.flOne));
    const float4 power = exp2_in_range(zero_for_subnormal(as_float4(bits & ~known) + d, k), k);
    return as_float4(select(known, value, as_int4(power * c)));
}

float4 exp2f4(float4 x)
{
    const auto& k = tables::exp2f4;
    const float4 argument = zero_for_subnormal(x, k);
    const int4 special = (as_int4(x) & k.flAbsMask) > k.flMaxBound;
    if (lane_mask(special) != 0) [[unlikely]]
        return __zelk_internal_exp2_ss(argument);
    return exp2_in_range(argument, k);
}

} // namespace zelk::ZELK_TIER
