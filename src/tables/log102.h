// Constants of double precision log10 x.
#pragma once

#include "tables/log_d2.h"

namespace zelk::tables {

struct Log102 {
    Constant<long2> iHi33Bits;     // exponent and the upper 21 fraction bits
    Constant<double2> dbLog10_2Hi; // log10 2 = Log10_2Hi + Log10_2Lo; 11 trailing zero bits in Log10_2Hi
    Constant<double2> dbLog10_2Lo;
    Constant<double2> dbC;  // 111/256, close to 1/ln 10
    Constant<double2> dbP0; // log10(1 + r/C) = r + P0 r + P1 r^2 + P2 r^3 + ...
    Constant<double2> dbP1;
    Constant<double2> dbP2;
    Constant<double2> dbP3;
    Constant<double2> dbP4;
    Constant<double2> dbP5;
    Constant<double2> dbP6;
    Constant<double2> s_db1022xLg2;   // -1022 log10 2 = 1022xLg2 + 1022xLg2Lo
    Constant<double2> s_db1022xLg2Lo; // not tier A
};
ZELK_TABLE Log102 log102;
ZELK_TABLE LogRow log102_BT_Tbl[65];

} // namespace zelk::tables
