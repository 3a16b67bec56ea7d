// Constants of the single precision complex logarithm.
#pragma once

#include "tables/log2.h"

namespace zelk::tables {

struct Clogf2 {
    int4 iAbsMask;       // clears the sign
    int4 s_dwSignMask;   // the sign bit
    int4 iInfM1;         // the largest finite number
    int4 real_positions; // all ones in the real parts
    float4 s_fOne;
    double2 dbOne;
    double2 dbHalf;
    double2 dbThresh; // ||z|^2 - 1| below this is near one
    long2 DBABSMSK;   // clears the sign
    double2 dbL0;     // log(1 + d) = d (L0 + L1 d + L2 d^2 + L3 d^3), |d| < 0.03
    double2 dbL1;
    double2 dbL2;
    double2 dbL3;
    float4 s_fPi;
    float4 s_fPi2; // pi/2
    float4 s_fA0;  // arctan a = a (A0 + A1 a^2 + ... + A8 a^16), 0 <= a <= 1
    float4 s_fA1;
    float4 s_fA2;
    float4 s_fA3;
    float4 s_fA4;
    float4 s_fA5;
    float4 s_fA6;
    float4 s_fA7;
    float4 s_fA8;
    long2 upper_bits; // exponent and the upper 31 fraction bits
    double2 log2_hi;  // ln 2 = log2_hi + log2_lo; 11 trailing zero bits in log2_hi
    double2 log2_lo;
    double2 r2; // log(1 + r) = r + r^2 (r2 + r3 r + r4 r^2 + r5 r^3 + r6 r^4)
    double2 r3;
    double2 r4;
    double2 r5;
    double2 r6;
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
