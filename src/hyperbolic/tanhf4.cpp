// tanh x on four binary32 lanes.
// Method: |x| = j/16 + r, T = tanh(j/16) from a table, tanh |x| = (T cosh r + sinh r) / (T sinh r + cosh r)
// with cosh and sinh of degree 2 and 3; one division. From 10 on tanh x = +-1.
#include "tables/tanhf4.h"
#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

ZELK_INLINE float4 table_entries(int4 j, const tables::Tanhf4& k)
{
    return as_float4(uint4{k.s_fTh[j[0]], k.s_fTh[j[1]], k.s_fTh[j[2]], k.s_fTh[j[3]]});
}

float4 tanhf4(float4 x)
{
    const auto& k = tables::tanhf4;
    const int4 magnitude = as_int4(x) & k.s_dwAbsMask;
    const int4 saturated = ~((k.s_fTen > magnitude) | (magnitude > k.s_dwPosInf));
    // Lanes that are +-1 anyway pass through the arithmetic as zeros: they must not raise anything there.
    const float4 a = as_float4(magnitude & ~saturated);

    const float4 w = a + k.s_fRS;
    const float4 r = a - (w - k.s_fRS);
    const float4 T = table_entries(as_int4(w) & k.s_dwIndexMask, k);

    const float4 r2 = r * r;
    const float4 c = k.s_fA0 + k.s_fA2 * r2;
    const float4 s = (k.s_fA1 + k.s_fA3 * r2) * r;
    const float4 quotient = (T * c + s) / (s * T + c);

    const float4 result = select(saturated, k.s_fOne, quotient);
    return select(k.s_dwSignMask, x, result);
}

} // namespace zelk::ZELK_TIER
