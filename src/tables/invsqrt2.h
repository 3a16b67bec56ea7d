// Constants of the double precision reciprocal square root.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct Invsqrt2 {
    // x_high - min_normal_high > ordinary_bound, as signed words: x is not positive, not normal, not finite,
    // or 2^1022 and above.
    Constant<int4> min_normal_high;
    Constant<int4> ordinary_bound;
    Constant<int4> flMant1Mask; // 24 bits of a binary32 significand with the exponent's lowest bit on top
    Constant<int4> flJBit;
    Constant<int4> flOne;
    Constant<int4> fldbJBit;      // one in the exponent of a high word
    Constant<int4> fldbExpo1Mask; // the exponent of a high word but for its lowest bit
    Constant<int4> fl3BiD2MSBi;   // 896 + 511 in the exponent of a high word
    Constant<long2> dbHi;         // high word of a lane
    Constant<double2> dbOne;
    Constant<double2> dbC1; // (1 + e)^(-1/2) = 1 + C1 e + C2 e^2 + ... + C5 e^5, Taylor
    Constant<double2> dbC2;
    Constant<double2> dbC3;
    Constant<double2> dbC4;
    Constant<double2> dbC5;
};
ZELK_TABLE Invsqrt2 invsqrt2;

} // namespace zelk::tables
