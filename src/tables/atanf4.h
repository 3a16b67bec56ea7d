// Constants of single precision arc tangent, of one and of two arguments.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct Atanf4 {
    Constant<int4> s_dwAbsMask;   // clears the sign
    Constant<int4> s_dwSignMask;  // the sign bit
    Constant<int4> s_dwMaxNormal; // the largest finite number
    Constant<int4> s_dwMinBound;  // the smallest normal number
    Constant<float4> s_fOne;
    Constant<float4> s_fNegOne;
    Constant<float4> s_fPi2; // pi/2
    Constant<float4> s_fPi;
    Constant<float4>
        s_fA0; // arctan q = q (A0 + A1 q^2 + ... + A8 q^16), relative error below 2^-23.9 on |q| <= 1
    Constant<float4> s_fA1;
    Constant<float4> s_fA2;
    Constant<float4> s_fA3;
    Constant<float4> s_fA4;
    Constant<float4> s_fA5;
    Constant<float4> s_fA6;
    Constant<float4> s_fA7;
    Constant<float4> s_fA8;
};
ZELK_TABLE Atanf4 atanf4;

// Of __zelk_atan2_ss, the scalar routine of atan2f4.
struct Atan2Ss {
    double b[9]; // arctan q = q (b0 + b1 q^2 + ... + b8 q^16), relative error below 2^-25.9 on |q| <= 1
    double pi_2;
    double m_or_p[2]; // -1 and 1
    double pi_or_zero[2];
    float angles[5]; // multiples of pi/4
};
ZELK_TABLE Atan2Ss atan2_ss;

} // namespace zelk::tables
