// Constants of the double precision sine-cosine pair.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct Sincos2 {
    Constant<long2> MMIABSMASK;  // clears the sign
    Constant<long2> MMISIGNMASK; // the sign bit
    Constant<int4> MMDHUGE;      // 128000 in the high words, the bound of the fast path
    Constant<int4> TWO_POW_30;   // 2^30 in the high words, the bound of the reduction in vectors
    Constant<long2> MMIPARMASK;  // bit 0 of a quadrant
    Constant<long2> MMITWOMASK;  // bit 1 of a quadrant
    Constant<double2> MMDINVPI2; // 2/pi
    Constant<double2> MMDRSHIFT; // 1.5 * 2^52
    Constant<double2> MMDPI1; // pi/2 = PI1 + PI2 + PI3 + PI4; at most 23 significant bits in the first three
    Constant<double2> MMDPI2;
    Constant<double2> MMDPI3;
    Constant<double2> MMDPI4;
    Constant<double2> MMDA1; // sin r = r + A1 r^3 + A2 r^5 + ... + A6 r^13
    Constant<double2> MMDA2;
    Constant<double2> MMDA3;
    Constant<double2> MMDA4;
    Constant<double2> MMDA5;
    Constant<double2> MMDA6;
    Constant<double2> MMDB0; // cos r = B0 + B1 r^2 + B2 r^4 + ... + B7 r^14
    Constant<double2> MMDB1;
    Constant<double2> MMDB2;
    Constant<double2> MMDB3;
    Constant<double2> MMDB4;
    Constant<double2> MMDB5;
    Constant<double2> MMDB6;
    Constant<double2> MMDB7;
};
ZELK_TABLE Sincos2 sincos2;

} // namespace zelk::tables
