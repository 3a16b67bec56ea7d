// Constants of the double precision tangent.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct Tan2 {
    Constant<long2> MMIABSMASK;
    Constant<long2> MMISIGNMASK;
    Constant<int4> MMDHUGE;        // high word of 128000, the bound of the short reduction
    Constant<int4> TWO_POW_30;     // high word of the bound of the reduction in vectors
    Constant<double2> MMDINVPI2;   // 2/pi
    Constant<double2> MMDRSHIFT_A; // 2^52: rounds t >= 0 to an integer
    Constant<double2> MMDRSHIFT_L; // 1.5 * 2^52: t of either sign
    Constant<double2> MMDPI1; // pi/2 in four parts; the products of the first three with |k| < 2^17 are exact
    Constant<double2> MMDPI2;
    Constant<double2> MMDPI3;
    Constant<double2> MMDPI4;
    Constant<double2>
        MMDP0; // tan r = r (P0 + z (P1 + z (P2 + z P3))) / (Q0 + z (Q1 + z (Q2 + z Q3))), z = r^2
    Constant<double2> MMDP1;
    Constant<double2> MMDP2;
    Constant<double2> MMDP3;
    Constant<double2> MMDQ0;
    Constant<double2> MMDQ1;
    Constant<double2> MMDQ2;
    Constant<double2> MMDQ3;
};
ZELK_TABLE Tan2 tan2;

// A function on |u| <= pi/128 round m pi/64: its value there as a pair, and its coefficients of u ... u^14.
struct TanInterval {
    double value;
    double value_low;
    double c[14];
};
ZELK_TABLE TanInterval tan2_intervals[17];      // tan, less u itself
ZELK_TABLE TanInterval tan2_pole_intervals[17]; // 1/y - cot y

} // namespace zelk::tables
