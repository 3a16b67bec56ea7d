// What sinhf4 and coshf4 share: which lanes are infinite, and the powers of two that both are sums of.
#pragma once

#include "lanes/lanes.h"
#include "tables/sinh_coshf4.h"

namespace zelk::ZELK_TIER {

// |x| < 704 in all lanes.
ZELK_INLINE bool all_ordinary(float4 x, const tables::SinhCoshf4& k)
{
    return lane_mask(k.s_dwAbsMax > (as_int4(x) & k.s_dwAbsMask)) == all_lanes4;
}

// 704 <= |x| <= infinity.
ZELK_INLINE int4 is_saturated(float4 x, const tables::SinhCoshf4& k)
{
    const int4 a = as_int4(x) & k.s_dwAbsMask;
    return ~((k.s_dwAbsMax > a) | (a > k.s_dwInfinity));
}

// e^x / 2 = u (P + Q) and e^-x / 2 = v (P - Q): u = 2^(n-1), v = 2^(-n-1), P and Q the even and the odd part
// of the polynomial of 2^f, where x log2 e = n + f.
struct HalfPowers {
    double2 u;
    double2 v;
    double2 P;
    double2 Q;
};

// |x| < 704.
ZELK_INLINE HalfPowers half_powers(double2 x, const tables::SinhCoshf4& k)
{
    const double2 t = x * k.s_dbLog2e;
    const double2 shifted = t + k.s_dbRS;
    const double2 n = shifted - k.s_dbRS;
    const double2 f = t - n;

    const double2 f2 = f * f;
    const double2 P = ((k.s_dbA6 * f2 + k.s_dbA4) * f2 + k.s_dbA2) * f2 + k.s_dbA0;
    const double2 Q = ((k.s_dbA5 * f2 + k.s_dbA3) * f2 + k.s_dbA1) * f;

    // The low bits of the shifted value are n; the shift drops all others. The sum of both patterns is that
    // of twice the bias.
    const ulong2 u = as_ulong2(k.s_dwBias + as_long2(shifted)) << 52;
    return {as_double2(u), as_double2(k.s_dwTwoBiases - u), P, Q};
}

} // namespace zelk::ZELK_TIER
