// Constants of the single precision tangent.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct Tanf4 {
    Constant<int4> MMIABSMASK;
    Constant<int4> MMISIGNMASK;
    Constant<int4> MMIHUGE;       // 10000, the bound of the binary32 path
    Constant<int4> flTwoPow30;    // the bound of the binary64 reduction
    Constant<float4> MMSINVPI;    // 2/pi
    Constant<float4> MMSRSHIFT_A; // 2^23: rounds t >= 0 to an integer
    Constant<float4> MMSRSHIFT_L; // 1.5 * 2^23: t of either sign
    Constant<float4> MMSPI1;      // pi/2 in four parts; at most 11 significant bits in the first three
    Constant<float4> MMSPI2;
    Constant<float4> MMSPI3;
    Constant<float4> MMSPI4;
    Constant<float4> MMSP0; // tan r = r (P0 + P1 z) / (Q0 + z (Q1 + Q2 z)), z = r^2, |r| <= pi/4
    Constant<float4> MMSP1;
    Constant<float4> MMSQ0;
    Constant<float4> MMSQ1;
    Constant<float4> MMSQ2;
};
ZELK_TABLE Tanf4 tanf4;

// Rows of the scalar routine: c0 ... c7 for tan on an interval of pi/32, less its pole at pi/2, and c8 = 1
// where there is one.
ZELK_TABLE double tanf4_intervals[32][9];

} // namespace zelk::tables
