// Table of single precision erf.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct SerfTable {
    Constant<int4> sign_mask;
    Constant<int4> abs_mask;
    Constant<int4> infinity;    // all above are NaNs
    Constant<int4> index_base;  // 0.0302734375, a sixteenth of a binade below 1/32
    Constant<int4> index_limit; // 113, the last row, in the upper 16 bits
    // erf x = c0 + c1 x + c2 x^2 + c3 x^3. Row 0: x < 1/32; rows 1 to 112: the sixteenths of the binades from
    // 1/32 to 4; row 113: 1.
    double rows[114][4];
};
ZELK_TABLE SerfTable serfTable;

} // namespace zelk::tables
