// Table of double precision erf.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct ErfTable {
    // erf x = c[0] + c[1] t + ... + c[13] t^13, t = x s - o. Row 0: x < 1/8, and x is to be added; rows 1 to
    // 22: the quarters of the binades from 1/8 to 6; row 23: 1.
    struct Row {
        double c[14];
        double o;
        double s;
    };
    Row rows[24];
    Constant<long2> sign_mask;
    Constant<long2> abs_mask;
    Constant<int4> infinity;    // in the high words, as what follows
    Constant<int4> index_mask;  // the exponent and two bits of the significand
    Constant<int4> index_base;  // 7/64, a quarter of a binade below 1/8
    Constant<int4> index_limit; // 23, the last row, from bit 18 on
};
ZELK_TABLE ErfTable erfTable;

} // namespace zelk::tables
