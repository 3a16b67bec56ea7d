// Constants and table of single precision tanh.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct Tanhf4 {
    Constant<int4> s_dwAbsMask;   // clears the sign
    Constant<int4> s_dwSignMask;  // the sign bit
    Constant<int4> s_dwIndexMask; // the low bits that hold round(16 |x|)
    Constant<int4> s_fTen;        // 10: tanh x = +-1 from here on
    Constant<int4> s_dwPosInf;
    Constant<float4> s_fRS; // 2^19, whose unit in the last place is 1/16
    Constant<float4> s_fOne;
    Constant<float4> s_fA0; // cosh r = A0 + A2 r^2, sinh r = r (A1 + A3 r^2), |r| <= 1/32
    Constant<float4> s_fA1;
    Constant<float4> s_fA2;
    Constant<float4> s_fA3;
    // tanh(j/16), j = 0..160. A NaN lane can ask for any of the 256 entries; it is a NaN whatever it finds.
    std::uint32_t s_fTh[256];
};
ZELK_TABLE Tanhf4 tanhf4;

} // namespace zelk::tables
