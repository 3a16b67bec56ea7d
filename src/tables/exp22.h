// Constants of double precision 2^x.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct Exp22 {
    Constant<int4> AbsMask;    // clears the sign of the high word and the low word
    Constant<double2> Trash;   // 1022; a lane with a greater high word leaves the fast path
    Constant<double2> Shifter; // 1.5 * 2^45
    Constant<long2> Bias;      // 1023 * 128
    Constant<long2> IntMask;   // the exponent field in units of 1/128
    Constant<double2> P0;      // 2^r = P0 + P1 r + P2 r^2 + P3 r^3 + P4 r^4
    Constant<double2> P1;
    Constant<double2> P2;
    Constant<double2> P3;
    Constant<double2> P4;

    double Table[128]; // 2^(j/128)
};
ZELK_TABLE Exp22 exp22;

} // namespace zelk::tables
