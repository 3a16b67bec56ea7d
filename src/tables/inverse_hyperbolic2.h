// Constants of double precision asinh, acosh and atanh.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct InverseHyperbolic2 {
    Constant<long2> iAbsMask;        // clears the sign
    Constant<long2> iSignBit;        // the sign bit
    Constant<int4> iInfinityBits;    // high words: asinh, acosh: the vector path ends below it
    Constant<int4> iSquarableBits;   // those of 1e154: so does the path without huge lanes
    Constant<int4> iAcoshTreshold;   // 1.5: it begins above these
    Constant<int4> iAsinhTreshold;   // 1
    Constant<int4> iAtanhTreshold;   // 1/4
    Constant<int4> iOneBits;         // atanh: the vector path ends below it
    Constant<long2> iHugeArg;        // 1e154: from here on y = |x|, and ln 2 is added
    Constant<int4> i1023;            // exponent bias
    Constant<long2> iExponentMask;   // the exponent field
    Constant<ulong2> iExponentOfOne; // exponent field of [1, 2)
    Constant<long2> iSqrt2Addition;  // carries from the fraction of 1.4142131805 on, just below sqrt 2
    Constant<double2> dbOne;
    Constant<double2> dbTwo;
    Constant<double2> dbHalf;
    Constant<double2> dbLn2;
    Constant<double2> dbLn2Hi; // ln 2 in two parts, the first of 32 significant bits
    Constant<double2> dbLn2Lo;
    Constant<double2> dbLg1; // ln(1+f) = f - s (f - R), s = f/(2+f), R = Lg1 s^2 + ... + Lg7 s^14
    Constant<double2> dbLg2;
    Constant<double2> dbLg3;
    Constant<double2> dbLg4;
    Constant<double2> dbLg5;
    Constant<double2> dbLg6;
    Constant<double2> dbLg7;
};
ZELK_TABLE InverseHyperbolic2 inverse_hyperbolic2;

// Series of the scalar routines, bit patterns of binary64.
ZELK_TABLE std::uint64_t acosh_series2[10]; // acosh x = sqrt(2t) (1 + c1 t + ... + c10 t^10), t = x - 1
ZELK_TABLE std::uint64_t asinh_series2[18]; // asinh a = a + a (d1 a^2 + ... + d18 a^36)
ZELK_TABLE std::uint64_t atanh_series2[8];  // atanh a = a + a (T1 a^2 + ... + T8 a^16)

} // namespace zelk::tables
