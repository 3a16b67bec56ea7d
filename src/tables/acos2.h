// Constants of double precision arc cosine. Tiers A and L differ in the last bit of pi, pi/2 and three
// coefficients.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct Acos2 {
    long2 iSignMask; // the sign bit
    long2 iAbsMask;  // clears the sign
    double2 dbOneHalf;
    double2 dbOne;
    double2 dbTwo;
    double2 dbPio2hi; // pi/2
    double2 dbPi;
    double2 dbA00; // arcsin y = y + y^3 (A00 + A01 y^2 + ... + A10 y^20), relative error below 2^-51.8 on |y|
                   // <= 1/2
    double2 dbA01;
    double2 dbA02;
    double2 dbA03;
    double2 dbA04;
    double2 dbA05;
    double2 dbA06;
    double2 dbA07;
    double2 dbA08;
    double2 dbA09;
    double2 dbA10;
};
ZELK_TABLE Acos2 acos2_A;
ZELK_TABLE Acos2 acos2_L;

} // namespace zelk::tables
