// Constants of the roundings to integral values.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct Roundingf4 {
    Constant<int4> s_dwSMask;      // the sign bit
    Constant<int4> s_dw7fffffff;   // clears the sign
    Constant<int4> s_dw7f800000;   // the exponent field
    Constant<int4> s_dw4affffff;   // the number below 2^23: exponent fields above it have |x| >= 2^23
    Constant<float4> s_dw4b000000; // 2^23
    Constant<float4> s_dw2p23;     // 2^23, from where on every number is an integer
    Constant<float4> s_dw80000000; // -0
    Constant<float4> s_dw3f800000; // 1
    Constant<float4> s_dwbf800000; // -1
    Constant<float4> s_dw3f000000; // 1/2
    Constant<int4> s_dw3effffff;   // the number below 1/2
};
ZELK_TABLE Roundingf4 roundingf4;

struct Rounding2 {
    Constant<long2> s_dwSMask;    // the sign bit
    Constant<long2> s_dwAbsMask;  // clears the sign
    Constant<long2> s_dwExpMask;  // the exponent field
    Constant<int4> s_dwEMaskHigh; // the exponent field of a high word
    Constant<int4> s_dw2p51_high; // high word of 2^51
    Constant<double2> s_dw2p52;   // 2^52, from where on every number is an integer
    Constant<int4>
        s_dwHigh; // 16-bit steps from the high 16 bits of |x| to 16 times the number of integral bits:
    Constant<int4> s_dwDiff;    // added with saturation, then subtracted with saturation
    Constant<double2> s_dwHalf; // 1/2
    Constant<double2> s_dwOne;  // 1
};
ZELK_TABLE Rounding2 rounding2;

struct Ceil2 {
    Constant<double2> s_dwOne; // -1: ceil subtracts, as floor does
};
ZELK_TABLE Ceil2 ceil2;

// Masks that keep the integral part of a binary64, by its number of integral bits; 53 for everything
// integral.
ZELK_TABLE std::uint64_t __zelk_g_dwMask[54];

} // namespace zelk::tables
