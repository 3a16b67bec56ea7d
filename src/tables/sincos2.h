// Constants of the double precision sine-cosine pair.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct Sincos2 {
    long2 MMIABSMASK;  // clears the sign
    long2 MMISIGNMASK; // the sign bit
    int4 MMDHUGE;      // 128000 in the high words, the bound of the fast path
    int4 TWO_POW_30;   // 2^30 in the high words, the bound of the reduction in vectors
    long2 MMIPARMASK;  // bit 0 of a quadrant
    long2 MMITWOMASK;  // bit 1 of a quadrant
    double2 MMDINVPI2; // 2/pi
    double2 MMDRSHIFT; // 1.5 * 2^52
    double2 MMDPI1;    // pi/2 = PI1 + PI2 + PI3 + PI4; at most 23 significant bits in the first three
    double2 MMDPI2;
    double2 MMDPI3;
    double2 MMDPI4;
    double2 MMDA1; // sin r = r + A1 r^3 + A2 r^5 + ... + A6 r^13
    double2 MMDA2;
    double2 MMDA3;
    double2 MMDA4;
    double2 MMDA5;
    double2 MMDA6;
    double2 MMDB0; // cos r = B0 + B1 r^2 + B2 r^4 + ... + B7 r^14
    double2 MMDB1;
    double2 MMDB2;
    double2 MMDB3;
    double2 MMDB4;
    double2 MMDB5;
    double2 MMDB6;
    double2 MMDB7;
};
ZELK_TABLE Sincos2 sincos2;

} // namespace zelk::tables
