// Constants of the single precision cube root and reciprocal cube root.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct Cbrtf4 {
    Constant<int4> abs_mask;
    Constant<int4> sign_mask;
    Constant<int4> mantissa_mask;
    Constant<int4> exponent_mask;
    Constant<float4> one;
    Constant<int4> smallest_normal;
    Constant<int4> largest;
    Constant<int4> s_dwDiv3Mul_A; // 2/3 as a fraction of 2^16, in the upper half of a word; then a shift by 1
    Constant<int4> s_dwDiv3Mul_L; // 1/3
    Constant<int4> s_dwDiv3Add;   // 84.75 in the exponent's position
    Constant<int4> s_dwCbrtIndexMask; // two bits of the fractional third after s_dwDiv3Mul_A: the remainder
    Constant<int4> s_dwRemDiv3Mask;   // two bits after s_dwDiv3Mul_L: 01 for a remainder of 2, 10 for 1
    Constant<int4> remainder_two;
    Constant<float4> s_fDenoScale;   // 2^120
    Constant<float4> s_fDenoUnscale; // 2^-40
    Constant<float4> deno_unscale_L; // 2^-42
    Constant<float4> s_dwCbrt4;      // 2^(2/3)
    Constant<float4> s_dwCbrt2;      // 2^(1/3)
    Constant<float4> s_dwC1;         // (1 + u)^(1/3) = 1 + u (C1 + u C2)
    Constant<float4> s_dwC2;
    Constant<int4> s_dwRcpMask; // sign, exponent and the top 8 fraction bits
};
ZELK_TABLE Cbrtf4 cbrtf4;

struct Invcbrtf4 {
    Constant<int4> s_dw2xExpbOfOne; // twice the exponent field of 1
    Constant<float4> s_dwDenoScale; // 2^126
    Constant<int4> s_dwDenoUnscale; // 2^42
    Constant<double2> s_dbA0; // m^(-1/3) = A0 + A1 m + ... + A7 m^7 on [1, 2), relative error below 1.5e-7
    Constant<double2> s_dbA1;
    Constant<double2> s_dbA2;
    Constant<double2> s_dbA3;
    Constant<double2> s_dbA4;
    Constant<double2> s_dbA5;
    Constant<double2> s_dbA6;
    Constant<double2> s_dbA7;
    std::uint64_t s_dbCbrt2j[4]; // 2^(2/3), 1, 2^(1/3)
};
ZELK_TABLE Invcbrtf4 invcbrtf4;

// 2^(((e - 127) mod 3)/3) by the biased exponent e modulo 3.
ZELK_TABLE std::uint32_t s_fCbrtTable[4];
// Quadratics c0 + c1 m + c2 m^2 for m^(1/3) on [1 + i/64, 1 + (i + 1)/64).
ZELK_TABLE float4 s_fAi[64];
// Rows (r_j, T_j): a 12-bit reciprocal of 1 + j/256, and (1/r_j)^(1/3).
ZELK_TABLE std::uint32_t s_dwT[256][2];

} // namespace zelk::tables
