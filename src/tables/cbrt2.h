// Constants of the double precision cube root and reciprocal cube root.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct Cbrt2 {
    long2 abs_mask;
    long2 sign_mask;
    long2 mantissa_mask;
    long2 exponent_mask;
    long2 infinity;
    int4 one_high;        // one in the exponent of a high word
    int4 smallest_normal; // high words of the bounds of the normal numbers
    int4 largest_high;
    int4 s_dwDiv3Mul; // 2/3 as a fraction of 2^16, in the upper half of a word; then a shift by 1
    int4 exponent_mask_high;
    int4 s_dwCbrtIndexMask; // two bits of the fractional third: the remainder
    int4 s_dwInvBias;       // 1023 + 340 in the exponent of a high word
    long2 high_mask;
    double2 s_dwDenoScale; // 2^1020
    double2 one;
    double2 s_dbFour;
    double2 s_dbNegOne;
    // 2^((2 - k)/3) / 3 for k = 0, 1, 2, and the same times 2^340 for arguments that were scaled by 2^1020.
    std::uint64_t s_dbCbrt[6];
};
ZELK_TABLE Cbrt2 cbrt2;

// (a m + b) m + c for m^(-1/3) on [1 + j/128, 1 + (j + 1)/128).
struct CbrtQuadratic {
    double a;
    double b;
    double c;
};
ZELK_TABLE CbrtQuadratic s_dbA[128];

} // namespace zelk::tables
