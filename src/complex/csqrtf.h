// What csqrtf2 and csqrtf_scalar share: the root of complex numbers with normal parts.
#pragma once

#include "lanes/lanes.h"
#include "tables/csqrtf2.h"

namespace zelk::ZELK_TIER {

// 1/sqrt u for normal u: the estimate, relative error e/2 below 2^-11.4, from the significand and the
// exponent's lowest bit, and its exponent halved in integers; then the quadratic for (1 + e)^(-1/2).
ZELK_INLINE double2 reciprocal_square_root(double2 u, const tables::Csqrtf2& k)
{
    const ulong2 significand = as_ulong2((as_long2(u) & k.dbRcpMask) + k.dbHalf) >> 29;
    const ulong2 estimate = (ulong2)reciprocal_sqrt_estimate((float4)significand) << 29;
    const uint4 exponent = ((as_uint4(as_int4(u)) >> 1) & k.dbBias) - k.dbBias4Inv;
    const double2 r = as_double2(as_int4(as_uint4(as_int4(estimate)) - exponent));
    const double2 e = u * r * r - k.dbOne;
    return r + r * e * (k.dbA1 + k.dbA2 * e);
}

// One Newton step more, to the precision of binary64.
ZELK_INLINE double2 corrected(double2 r, double2 u, const tables::Csqrtf2& k)
{
    return r - r * (u * r * r - k.dbOne) * k.dbOneHalf;
}

// u = (|z| + |x|)/2. The squares of binary32 numbers are exact, neither overflow nor underflow.
ZELK_INLINE double2 square_of_root(double2 x, double2 y, const tables::Csqrtf2& k)
{
    const double2 w = square_root(x * x + y * y) + as_double2(as_long2(x) & k.dbAbsMask);
    return as_double2(as_long2(w) - k.i64Half);
}

// The root of |x| + i|y|: t = sqrt u and v = |y|/2t, from r = 1/sqrt u.
struct RootPartsd2 {
    double2 t;
    double2 v;
};
ZELK_INLINE RootPartsd2 root_parts(double2 u, double2 r, double2 y, const tables::Csqrtf2& k)
{
    return {u * r, r * (k.dbOneHalf * as_double2(as_long2(y) & k.dbAbsMask))};
}

} // namespace zelk::ZELK_TIER
