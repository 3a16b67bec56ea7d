// Constants of double precision sine and cosine.
#pragma once

#include "tables/splat.h"

namespace zelk::tables {

struct SinCos2 {
    Constant<long2> MMIABSMASK;  // clears the sign
    Constant<long2> MMISIGNMASK; // the sign bit
    Constant<double2> MMDINVPI;  // 1/pi
    Constant<double2> MMDRSHIFT; // 1.5 * 2^52
    Constant<int4> MMDHUGE;      // 128000 in the high words, the bound of sine's fast path
    Constant<long2> dbHUGE;      // 128000, the bound of cosine's
    Constant<double2> MMDPI1;    // pi = PI1 + PI2 + PI3 + PI4; at most 23 significant bits in the first three
    Constant<double2> MMDPI2;
    Constant<double2> MMDPI3;
    Constant<double2> MMDPI4;
    Constant<double2> dbPi4;   // -PI4
    Constant<double2> dbPio2;  // pi/2
    Constant<double2> dbNegRS; // -1.5 * 2^52
    Constant<double2> db05;    // 1/2
    Constant<double2> MMDA1;   // sin r = r + A1 r^3 + A2 r^5 + ... + A8 r^17
    Constant<double2> MMDA2;
    Constant<double2> MMDA3;
    Constant<double2> MMDA4;
    Constant<double2> MMDA5;
    Constant<double2> MMDA6;
    Constant<double2> MMDA7;
    Constant<double2> MMDA8;
    // Between the bound and 2^30.
    Constant<int4> TWO_POW_30;      // 2^30 in the high words
    Constant<double2> THE_PI02_INV; // 2/pi
    Constant<double2> PI02C[5];     // pi/2 in five parts; at most 21 significant bits in the first four
    Constant<int4> MMI_ONE;
    Constant<int4> MSK_LOW_BIT; // clears bit 0
};
ZELK_TABLE SinCos2 sin_cos2;

// The scalar routine, for a = j pi/32 and a small u: polynomials and a table of sine and cosine.
struct SpecTable {
    double S1; // sin u = u + S1 u^3 + S2 u^5 + S3 u^7 + S4 u^9
    double S2;
    double S3;
    double S4;
    double C1; // cos u = 1 + C1 u^2 + C2 u^4 + C3 u^6 + C4 u^8
    double C2;
    double C3;
    double C4;
    double pi32_hi; // pi/32 in three parts
    double pi32_mid;
    double pi32_lo;
    double inv_pi32;           // 32/pi
    double shifter;            // 1.5 * 2^52
    struct Angle {             // bit patterns
        std::uint64_t cos_rem; // cos a - cos_hi
        std::uint64_t sin_hi;
        std::uint64_t sin_lo; // sin a - sin_hi
        std::uint64_t cos_hi; // a power of two with cosine's sign, or 0
    } angle[64];
};
ZELK_TABLE SpecTable __spec_table;

} // namespace zelk::tables
