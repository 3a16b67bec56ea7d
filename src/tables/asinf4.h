// Constants of single precision arc sine and arc cosine.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct Asinf4 {
    int4 s_dwAbsMask;  // clears the sign
    int4 s_dwSignMask; // the sign bit
    float4 s_fHalf;
    float4 s_fOne;
    float4 s_fThree;
    float4 s_fPi2; // pi/2
    float4 s_fPi;
    float4 s_fA0; // arcsin y = y (A0 + A1 y^2 + ... + A5 y^10), relative error below 2^-26.8 on |y| <= 1/2
    float4 s_fA1;
    float4 s_fA2;
    float4 s_fA3;
    float4 s_fA4;
    float4 s_fA5;
};
ZELK_TABLE Asinf4 asinf4;

} // namespace zelk::tables
