// Constants of double precision e^x.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct Exp2 {
    Constant<double2> dbB1;      // 704, end of the ordinary range
    Constant<double2> dbB2;      // 768, end of the scaled range
    Constant<double2> dbInf;     // infinity
    Constant<long2> iAbsMask;    // clears the sign
    Constant<double2> s_dwInvLn; // 64/ln 2
    Constant<double2> s_dwNegRS; // -1.5 * 2^52
    Constant<double2> s_dwLnHi;  // ln 2/64 = LnHi + LnLo; 32 significant bits in LnHi
    Constant<double2> s_dwLnLo;
    Constant<ulong2> s_dwBias; // 1023 * 64
    Constant<double2> s_dwOne;
    Constant<double2> s_dwA2; // e^r = 1 + r + A2 r^2 + A3 r^3 + A4 r^4 + A5 r^5
    Constant<double2> s_dwA3;
    Constant<double2> s_dwA4;
    Constant<double2> s_dwA5;

    std::uint64_t s_dwExp2[64]; // fraction bits of 2^(j/64)

    // Beyond the ordinary range, for x > 0 and for x < 0.
    struct BySign {
        long2 adjustment;     // of the exponent, which brings it into the normal range
        double2 compensation; // the power of two that undoes it
        double2 saturation;   // its square overflows or underflows
        double2 at_infinity;  // its square is the result for an infinity
    } positive, negative;
};
ZELK_TABLE Exp2 exp2;

} // namespace zelk::tables
