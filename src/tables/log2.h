// Constants of double precision ln x.
#pragma once

#include "tables/log_d2.h"

namespace zelk::tables {

struct Log2 {
    Constant<long2> iHi43Bits;  // exponent and the upper 31 fraction bits
    Constant<double2> dbOne;    // 1
    Constant<double2> dbLog2Hi; // ln 2 = Log2Hi + Log2Lo; 11 trailing zero bits in Log2Hi
    Constant<double2> dbLog2Lo;
    Constant<double2> dbP1; // ln(1 + r) = r + P1 r^2 + P2 r^3 + ...
    Constant<double2> dbP2;
    Constant<double2> dbP3;
    Constant<double2> dbP4;
    Constant<double2> dbP5;
    Constant<double2> dbP6;           // tier A
    Constant<double2> s_db1022xLn2;   // -1022 ln 2 = 1022xLn2 + 1022xLn2Lo
    Constant<double2> s_db1022xLn2Lo; // not tier A
};
ZELK_TABLE Log2 log2_A;
ZELK_TABLE Log2 log2_L;
ZELK_TABLE LogRow log2_BT_Tbl_A[65];
ZELK_TABLE LogRow log2_BT_Tbl_L[257];

} // namespace zelk::tables
