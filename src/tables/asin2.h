// Constants of double precision arc sine. Tiers A and L differ in the last bit of two coefficients.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct Asin2 {
    Constant<long2> iSignMask;    // the sign bit
    Constant<long2> iAbsMask;     // clears the sign
    Constant<int4> iBelowHalf;    // the last high word of numbers below 1/2
    Constant<long2> iOtherFactor; // what turns the pattern of 1 into that of -2
    Constant<double2> dbOne;
    Constant<double2> dbOneHalf;
    Constant<double2> dbPio2hi; // pi/2
    Constant<double2>
        dbA00; // arcsin y = y + y^3 (A00 + A01 y^2 + ... + A12 y^24), relative error below 2^-58.4 on |y|
               // <= 1/2
    Constant<double2> dbA01;
    Constant<double2> dbA02;
    Constant<double2> dbA03;
    Constant<double2> dbA04;
    Constant<double2> dbA05;
    Constant<double2> dbA06;
    Constant<double2> dbA07;
    Constant<double2> dbA08;
    Constant<double2> dbA09;
    Constant<double2> dbA10;
    Constant<double2> dbA11;
    Constant<double2> dbA12;
};
ZELK_TABLE Asin2 asin2_A;
ZELK_TABLE Asin2 asin2_L;

} // namespace zelk::tables
