// What the double precision logarithms have in common: the parts of a binary64 and the classes of arguments.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct LogD2 {
    Constant<int4> i00100000;    // high word of the smallest normal number
    Constant<int4> i001fffff;    // h + i00100000 > i001fffff: h is the high word of a positive normal number
    Constant<int4> dwInf;        // high word of infinity
    Constant<int4> iBias;        // 1023
    Constant<long2> iExpMask;    // the fraction field
    Constant<double2> dbOne;     // 1
    Constant<double2> infinity;  // result at infinity
    Constant<double2> minus_inf; // result at zero
};
ZELK_TABLE LogD2 log_d2;

// A table row of ln and log10: b twice (a power of two of bytes per row), then -log b = hi + lo, hi a
// multiple of 2^-43.
struct LogRow {
    double b[2];
    double hi;
    double lo;
};

} // namespace zelk::tables
