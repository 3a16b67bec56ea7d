// Constants of the reduction by multiples of pi/2 that tangent and the sine-cosine pairs use.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct TrigReduction {
    // Multiples of pi/4 and pi/2 in five parts. The first four have at most 21 significant bits: their
    // products with an integer below 2^31 are exact.
    Constant<double2> _PI04_21x5[5];
    Constant<double2> _PIO2_21x5[5];

    // Vectors below 2^30.
    Constant<double2> dbInvPio4; // 4/pi
    Constant<int4> dbiOne;
    Constant<int4> MSK_LOW_BIT; // clears bit 0

    // Vectors of binary32 numbers from 2^30 on.
    Constant<int4> first_exponent;    // field of 2^21: 2^30 has the bits that matter after 9 others
    Constant<int4> one_25th;          // 2^16/25
    Constant<int4> leading_bits;      // 8
    Constant<int4> below_2_30;        // pattern of the last number below 2^30
    Constant<int4> from_2_30;         // pattern of 2^30
    Constant<int4> largest_finite;    // pattern of the largest finite number
    Constant<long2> one;              // 1
    Constant<long2> two_200_exponent; // subtracted from a pattern: times 2^-200
    Constant<long2> clear_20_bits;    // clears the low 20 bits
    Constant<double2> two_52;         // 2^52
    Constant<double2> double_one;     // 1

    // The scalar routine.
    double _PI02_INV;     // 2/pi
    double _PI04_INV;     // 4/pi
    double _PI02;         // pi/2
    double _PI04;         // pi/4
    double _TWO_26H;      // 1.5 * 2^26, splits a number
    double _zero_none[2]; // 0 and -1, the parity correction
    double _PIO2_25x2[2]; // pi/2 and pi/4: 23 significant bits, and the rest
    double _PI04_25x2[2];
    // (4/pi) 2^200 and (2/pi) 2^200 in pieces of 25 bits, each at its own weight; patterns of binary64.
    std::uint64_t _DP[52];
    std::uint64_t _DDP[52];
};
ZELK_TABLE TrigReduction trig_reduction;

} // namespace zelk::tables
