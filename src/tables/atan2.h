// Constants of double precision arc tangent, of one and of two arguments.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct Atan2 {
    long2 iSignMask;   // the sign bit
    long2 iAbsMask;    // clears the sign
    long2 iMinWorkNum; // 0
    long2 iMaxWorkNum; // infinity
    double2 dbOne;
    double2 dbMinusOne;
    double2 dbPio2hi; // pi/2
    double2 dbPi;
    double2 dbA00; // arctan q = q (A00 + A01 q^2 + ... + A19 q^38), relative error below 2^-53.7 on |q| <= 1
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
    double2 dbA11;
    double2 dbA12;
    double2 dbA13;
    double2 dbA14;
    double2 dbA15;
    double2 dbA16;
    double2 dbA17;
    double2 dbA18;
    double2 dbA19;
};
ZELK_TABLE Atan2 atan2;

// What atan2 gives on the axes and at infinity: multiples of pi/4.
struct Atan2Angles {
    double angles[5];
};
ZELK_TABLE Atan2Angles atan2_angles;

} // namespace zelk::tables
