// Constants of the logarithm of one double in binary64.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct LogScalarRow {
    double r;        // near the reciprocal of the row's numbers, a multiple of 2^-9
    double minus_ln; // -ln r = minus_ln + minus_ln_low, the first a multiple of 2^-42
    double minus_ln_low;
};

struct LogScalar {
    Constant<long2> fraction;   // the significand without its leading bit
    Constant<long2> upper_half; // sign, exponent, 25 bits of the fraction
    Constant<double2> one;
    double ln2_hi; // a multiple of 2^-42
    double ln2_lo;
    double R[5]; // ln(1 + f) = f - f^2/2 + f^3 R(f), |f| < 2^-8
};
ZELK_TABLE LogScalar log_scalar;
ZELK_TABLE LogScalarRow log_scalar_rows[256]; // by the upper eight bits of the fraction

} // namespace zelk::tables
