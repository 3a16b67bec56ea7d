// Constants of the single precision tangent.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct Tanf4 {
    int4 MMIABSMASK;
    int4 MMISIGNMASK;
    int4 MMIHUGE;       // 10000, the bound of the binary32 path
    int4 flTwoPow30;    // the bound of the binary64 reduction
    float4 MMSINVPI;    // 2/pi
    float4 MMSRSHIFT_A; // 2^23: rounds t >= 0 to an integer
    float4 MMSRSHIFT_L; // 1.5 * 2^23: t of either sign
    float4 MMSPI1;      // pi/2 in four parts; at most 11 significant bits in the first three
    float4 MMSPI2;
    float4 MMSPI3;
    float4 MMSPI4;
    float4 MMSP0; // tan r = r (P0 + P1 z) / (Q0 + z (Q1 + Q2 z)), z = r^2, |r| <= pi/4
    float4 MMSP1;
    float4 MMSQ0;
    float4 MMSQ1;
    float4 MMSQ2;
};
ZELK_TABLE Tanf4 tanf4;

// Rows of the scalar routine: c0 ... c7 for tan on an interval of pi/32, less its pole at pi/2, and c8 = 1
// where there is one.
ZELK_TABLE double tanf4_intervals[32][9];

} // namespace zelk::tables
