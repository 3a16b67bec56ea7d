// Constants of the single precision complex logarithm.
#pragma once

#include "tables/log2.h"

namespace zelk::tables {

struct Clogf2 {
    Constant<int4> iAbsMask;       // clears the sign
    Constant<int4> s_dwSignMask;   // the sign bit
    Constant<int4> iInfM1;         // the largest finite number
    Constant<int4> real_positions; // all ones in the real parts
    Constant<float4> s_fOne;
    Constant<double2> dbOne;
    Constant<double2> dbHalf;
    Constant<double2> dbThresh; // ||z|^2 - 1| below this is near one
    Constant<long2> DBABSMSK;   // clears the sign
    Constant<double2> dbL0;     // log(1 + d) = d (L0 + L1 d + L2 d^2 + L3 d^3), |d| < 0.03
    Constant<double2> dbL1;
    Constant<double2> dbL2;
    Constant<double2> dbL3;
    Constant<float4> s_fPi;
    Constant<float4> s_fPi2; // pi/2
    Constant<float4> s_fA0;  // arctan a = a (A0 + A1 a^2 + ... + A8 a^16), 0 <= a <= 1
    Constant<float4> s_fA1;
    Constant<float4> s_fA2;
    Constant<float4> s_fA3;
    Constant<float4> s_fA4;
    Constant<float4> s_fA5;
    Constant<float4> s_fA6;
    Constant<float4> s_fA7;
    Constant<float4> s_fA8;
    Constant<long2> upper_bits; // exponent and the upper 31 fraction bits
    Constant<double2> log2_hi;  // ln 2 = log2_hi + log2_lo; 11 trailing zero bits in log2_hi
    Constant<double2> log2_lo;
    Constant<double2> r2; // log(1 + r) = r + r^2 (r2 + r3 r + r4 r^2 + r5 r^3 + r6 r^4)
    Constant<double2> r3;
    Constant<double2> r4;
    Constant<double2> r5;
    Constant<double2> r6;
};
ZELK_TABLE Clogf2 clogf2;

// Row i: c = round(4096/(1 + i/256))/4096, -ln c in two parts: the table of double precision ln x.
inline constexpr const LogRow (&dLn_table)[257] = log2_BT_Tbl_L;

// log(1 + d) = d (1 - d/2 + d^2/3 - ...), |d| < 0.03: relative error below 2^-48.
struct ClogfScalar {
    double taylor[9];
};
ZELK_TABLE ClogfScalar clogf_scalar;

} // namespace zelk::tables
