// Constants of double precision log2 x.
#pragma once

#include "tables/log_d2.h"

namespace zelk::tables {

struct Log22 {
    Constant<long2> Bias;      // low fraction bits that make halfway cases round up
    Constant<double2> Shifter; // 2^45
    Constant<double2> P1;      // log2(1 + r) = P1 r + P2 r^2 + ...
    Constant<double2> P2;
    Constant<double2> P3;
    Constant<double2> P4;
    Constant<double2> P5;
    Constant<double2> P6;
    Constant<double2> s_db1022; // -1022

    // The points 1 + j/128: their log2 = H + T, H a multiple of 2^-39, and their reciprocals.
    struct Row {
        double H;
        double T;
        double R;
    };
    Row Table[129];
};
ZELK_TABLE Log22 log22;

} // namespace zelk::tables
