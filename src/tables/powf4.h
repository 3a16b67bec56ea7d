// Constants of the single precision power.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct Powf4 {
    Constant<int4> exponent_field;  // also +infinity
    Constant<int4> mantissa_field;  // also the largest subnormal number
    Constant<int4> largest_finite;  // pattern of the largest finite number
    Constant<int4> abs_mask;        // clears the sign; also the NaN that results are
    Constant<int4> two_24;          // pattern of 2^24
    Constant<int4> bias;            // 127
    Constant<int4> bias_normalised; // 253: of a subnormal number times 2^126
    Constant<int4> sqrt2_addend;    // carries out of the mantissa field from 1.4142131805 on
    Constant<int4> sqrt2_carry;     // that carry
    Constant<float4> one;           // 1
    Constant<long2> one_plus; // added to the pattern of m << 28, 0.5 <= m < 2: the binary64 pattern of 1 + m
    Constant<double2> two;    // 2
    // ln((1 + s)/(1 - s)) = s (2 + P1 z + P2 z^2 + P3 z^3 + P4 z^4), z = s^2: relative error below 1.6e-11
    // for |s| <= 0.1716.
    Constant<double2> P1;
    Constant<double2> P2;
    Constant<double2> P3;
    Constant<double2> P4;
    Constant<double2> log2_e;        // 1/ln2
    Constant<double2> shifter;       // 1.5 * 2^52
    Constant<int4> largest_exponent; // high word of 708: beyond, w is not raised to
    Constant<long2> exponent_offset; // 1010 = 1023 - 13
    Constant<long2> scale_fraction;  // fraction of 1.2571 = 2^13/(b1 b2 b3)
    // 2^f = 2^-13 1.2571 (f^2 + a1 f + b1) (f^2 + a2 f + b2) (f^2 + a3 f + b3): relative error below 1.9e-9
    // for |f| <= 1/2.
    Constant<double2> a1;
    Constant<double2> b1;
    Constant<double2> a2;
    Constant<double2> b2;
    Constant<double2> a3;
    Constant<double2> b3;
};
ZELK_TABLE Powf4 powf4;

} // namespace zelk::tables
