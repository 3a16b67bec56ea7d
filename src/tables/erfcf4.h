// Table of single precision erfc.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct ExpPolyTab {
    Constant<double2> one; // e^r = 1 + r + r^2/2 + r^3/6 + r^4/24
    Constant<double2> half;
    Constant<double2> sixth;
    Constant<double2> twenty_fourth;
    Constant<double2> ln2_128_inverse; // 128/ln 2
    Constant<double2> shifter;         // 2^52 + 2^51: what is added to it is rounded to an integer
    Constant<double2> ln2_128;         // ln 2/128
    Constant<double2> two;
    Constant<int4> bias; // 1023 * 128
    Constant<int4> abs_mask;
    Constant<long2> sign_mask;
    Constant<int4> range_bound; // 10.054195: from there on erfc x is below half the smallest subnormal
    Constant<int4> index_base;  // 0.060546875, a sixteenth of a binade below 1/16
    // erfc x e^(x^2) = c0 + c1 x + c2 x^2 + c3 x^3. Row 0: x < 1/16; rows 1 to 117: the sixteenths of the
    // binades from 1/16 on.
    double rows[118][4];
    double powers[128]; // 2^(i/128)
};
ZELK_TABLE ExpPolyTab expPolyTab;

} // namespace zelk::tables
