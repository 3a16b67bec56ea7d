// Constants of the single precision logarithms.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct Logf4 {
    Constant<int4> flMantissaMask; // the mantissa field; also the largest subnormal number
    Constant<int4>
        s_dwSqrt2Addition; // carries into bit 23 from the mantissa of 1.4142131805 on, just below sqrt 2
    Constant<int4> s_dwSqrt2Mask; // bit 23
    Constant<float4> s_fOne;
    Constant<int4> s_dwExpBias; // 127
    Constant<int4> s_dwPosInf;  // +infinity
    Constant<int4> s_dwNegInf;  // -infinity
    Constant<int4> s_dwAbsMask; // clears the sign
    // bits + Special1 > Special2 (wrapping, signed) exactly for negative numbers other than -0 and NaN.
    Constant<uint4> s_dwSpecial1;
    Constant<int4> s_dwSpecial2;
    Constant<float4> s_fLn2;     // ln 2
    Constant<float4> s_fInvLn2;  // 1/ln 2
    Constant<float4> s_fInvLn10; // 1/ln 10
    Constant<float4> s_fLg2;     // log10 2
};
ZELK_TABLE Logf4 logf4;

// c q = B0 s^2 + B1 s^4 + B2 s^6, fitted: near 2c/3, 2c/5 and 2c/7, c = 1/ln b.
struct Logf4Base {
    Constant<float4> s_fB0;
    Constant<float4> s_fB1;
    Constant<float4> s_fB2;
    Constant<float4> s_fDenoAdd; // -126 log_b 2
};
ZELK_TABLE Logf4Base logf4_e;
ZELK_TABLE Logf4Base logf4_2;
ZELK_TABLE Logf4Base logf4_10;

} // namespace zelk::tables
