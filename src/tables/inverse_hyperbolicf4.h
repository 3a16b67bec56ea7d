// Constants and table of single precision asinh, acosh and atanh.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct InverseHyperbolicf4 {
    Constant<int4> s_dwAbsMask;        // clears the sign
    Constant<int4> s_dwSignMask;       // the sign bit
    Constant<int4> s_dwPosInf;         // asinh, acosh: the vector path ends below it
    Constant<int4> s_dwAcoshThreshold; // 1.5: it begins above these
    Constant<int4> s_dwAsinhThreshold; // 1
    Constant<int4> s_dwAtanhThreshold; // 1/4
    Constant<int4> s_dwInfBoundary;    // atanh: the last number below 1, where the vector path has ended
    Constant<int4> s_dwHugeArg;        // 1e19: from here on y = |x|, and ln 2 is added
    Constant<int4> s_dwBias;           // exponent bias
    Constant<int4> s_dwExponentMask;   // the exponent field
    Constant<int4> s_dwSqrt2Addition;  // carries from the fraction of 1.4142131805 on, just below sqrt 2
    Constant<uint4> s_uOne;            // the pattern of 1
    Constant<float4> s_fOne;
    Constant<float4> s_fTwo;
    Constant<float4> s_dwHalf;
    Constant<float4> s_fLn2;
    Constant<float4> s_fLn2Hi; // ln 2 in two parts, the first of 8 significant bits
    Constant<float4> s_fLn2Lo;
    Constant<float4> s_fA1; // ln(1+f) = f - s (f - R), s = f/(2+f), R = A1 s^2 + A2 s^4 + A3 s^6
    Constant<float4> s_fA2;
    Constant<float4> s_fA3;
    Constant<int4> s_dwAsinhTiny; // up to here, below 2^-28, asinh x is x
    Constant<int4> s_dwAtanhTiny; // up to here, below 2^-30, atanh x is x
    Constant<double2> s_dbLn2;    // ln 2
};
ZELK_TABLE InverseHyperbolicf4 inverse_hyperbolicf4;

// ln m = a3 m^3 + a2 m^2 + a1 m + a0 on [1 + i/256, 1 + (i+1)/256), bit patterns of binary64.
struct alignas(16) LogCubic {
    std::uint64_t a3;
    std::uint64_t a1;
    std::uint64_t a2;
    std::uint64_t a0;
};
ZELK_TABLE LogCubic __zelk_sp_inv_hyp_T[256];

} // namespace zelk::tables
