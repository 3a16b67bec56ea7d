// Constants of single precision sinh and cosh.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct SinhCoshf4 {
    int4 s_dwAbsMask;  // clears the sign
    int4 s_dwSignMask; // the sign bit
    int4 s_dwAbsMax;   // 704: infinite from here on
    int4 s_dwInfinity;
    int4 s_fMinBound;     // below about 0.0003, sinh x = x
    double2 s_dbLog2e;    // log2 e
    double2 s_dbRS;       // 1.5 * 2^52
    long2 s_dwBias;       // exponent bias less one
    ulong2 s_dwTwoBiases; // twice this in the exponent field
    double2 s_dbA0;       // 2^f = A0 + A1 f + ... + A6 f^6, |f| <= 1/2
    double2 s_dbA1;
    double2 s_dbA2;
    double2 s_dbA3;
    double2 s_dbA4;
    double2 s_dbA5;
    double2 s_dbA6;
};
ZELK_TABLE SinhCoshf4 sinh_coshf4;

} // namespace zelk::tables
