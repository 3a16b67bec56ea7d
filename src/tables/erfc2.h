// Table of double precision erfc.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct ErfcTable {
    Constant<int4> last_high; // high word of 27.226017111108366: half the smallest subnormal is erfc of it
    Constant<long2> abs_mask;
    Constant<long2> sign_mask;
    Constant<long2> abs_split_mask;    // the leading 26 significant bits, without the sign
    Constant<long2> split_mask;        // with it
    Constant<double2> ln2_128_inverse; // 128/ln 2
    Constant<double2> shifter;         // 2^52 + 2^51: what is added to it is rounded to an integer
    Constant<long2> bias;              // 1023 + 154 in the exponent field
    Constant<long2> exponent_mask;     // sign and exponent
    Constant<double2> unbias;          // 2^-154
    Constant<double2> ln2_128_hi;      // ln 2/128 in two parts; the first has 21 significant bits
    Constant<double2> ln2_128_lo;
    Constant<double2> one; // e^r = 1 + r + r^2/2 + ... + r^5/120
    Constant<double2> half;
    Constant<double2> sixth;
    Constant<double2> twenty_fourth;
    Constant<double2> hundred_twentieth;
    Constant<int4> index_base; // 7/32, a quarter of a binade below 1/4, in the high words
    // erfc x e^(x^2) = c0 + c[0] u + ... + c[11] u^12, u = x - centre. Row 0: x < 1/4; rows 1 to 27: the
    // quarters of the binades from 1/4 on.
    struct Row {
        double c0;
        double c[12];
        double centre;
    };
    Row rows[28];
    struct Power {
        std::uint64_t hi;
        std::uint64_t lo;
    };
    Power powers[128]; // 2^(i/128)
};
ZELK_TABLE ErfcTable erfcTable;

} // namespace zelk::tables
