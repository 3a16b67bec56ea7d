// Constants and table of single precision asinh, acosh and atanh.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct InverseHyperbolicf4 {
    int4 s_dwAbsMask;        // clears the sign
    int4 s_dwSignMask;       // the sign bit
    int4 s_dwPosInf;         // asinh, acosh: the vector path ends below it
    int4 s_dwAcoshThreshold; // 1.5: it begins above these
    int4 s_dwAsinhThreshold; // 1
    int4 s_dwAtanhThreshold; // 1/4
    int4 s_dwInfBoundary;    // atanh: the last number below 1, where the vector path has ended
    int4 s_dwHugeArg;        // 1e19: from here on y = |x|, and ln 2 is added
    int4 s_dwBias;           // exponent bias
    int4 s_dwSgnfMask;       // the fraction field
    int4 s_dwSqrt2Addition;  // carries from the fraction of 1.4142131805 on, just below sqrt 2
    int4 s_dwSqrt2Mask;      // the carry
    float4 s_fOne;
    float4 s_fTwo;
    float4 s_dwHalf;
    float4 s_fLn2;
    float4 s_fLn2Hi; // ln 2 in two parts, the first of 8 significant bits
    float4 s_fLn2Lo;
    float4 s_fA1; // ln(1+f) = f - s (f - R), s = f/(2+f), R = A1 s^2 + A2 s^4 + A3 s^6
    float4 s_fA2;
    float4 s_fA3;
    int4 s_dwAsinhTiny; // up to here, below 2^-28, asinh x is x
    int4 s_dwAtanhTiny; // up to here, below 2^-30, atanh x is x
    double2 s_dbLn2;    // ln 2
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
