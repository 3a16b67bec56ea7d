// Constants of single precision arc sine and arc cosine.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct Asinf4 {
    Constant<int4> s_dwAbsMask;  // clears the sign
    Constant<int4> s_dwSignMask; // the sign bit
    Constant<float4> s_fHalf;
    Constant<float4> s_fOne;
    Constant<int4> s_dwOtherFactor; // what turns the pattern of 1 into that of -2
    Constant<float4> s_fPi2;        // pi/2
    Constant<float4> s_fPi;
    Constant<float4>
        s_fA0; // arcsin y = y (A0 + A1 y^2 + ... + A5 y^10), relative error below 2^-26.8 on |y| <= 1/2
    Constant<float4> s_fA1;
    Constant<float4> s_fA2;
    Constant<float4> s_fA3;
    Constant<float4> s_fA4;
    Constant<float4> s_fA5;
};
ZELK_TABLE Asinf4 asinf4;

} // namespace zelk::tables
