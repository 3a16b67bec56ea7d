/* Rounding to integral values, integer division. */
#ifndef ZELK_ROUNDING_INTDIV_H
#define ZELK_ROUNDING_INTDIV_H

#include "zelk/types.h"

ZELK_BEGIN_DECLARATIONS

/* Rounding: every lane becomes an integral value in the same format. The results are exact, and the same in
 * all tiers. Zeros keep their sign, and what rounds to zero takes the sign of x; in round-down mode, +0 can
 * become -0 (not in round, nor in the binary32 trunc). Infinities and what is integral come back as they are,
 * NaNs quieted (the binary32 trunc returns them as they are). The binary32 functions raise inexact for lanes
 * that are not integral, the binary64 ones only in rint and nearbyint. A signalling NaN raises invalid (but
 * in tier A of the binary32 trunc). Besides, invalid is raised
 *   - by the binary32 ceil, floor, trunc in tiers J, L, N: beyond the range of a 32-bit integer, infinities,
 * NaNs;
 *   - by the binary32 round: for |x| >= 2^31, infinities, NaNs; by the binary64 round: for infinities.
 * Methods: conversion to 32-bit integers and back (binary32), a table of masks for the fraction bits
 * (binary64); rint and nearbyint add and subtract 2^23 or 2^52. */

/* The smallest integer not below x. */
zelk_float4 __zelk_ceilf4(zelk_float4 x);
zelk_double2 __zelk_ceil2(zelk_double2 x);

/* The largest integer not above x. */
zelk_float4 __zelk_floorf4(zelk_float4 x);
zelk_double2 __zelk_floor2(zelk_double2 x);

/* x without its fraction. */
zelk_float4 __zelk_truncf4(zelk_float4 x);
zelk_double2 __zelk_trunc2(zelk_double2 x);

/* The nearest integer, halfway cases away from zero, whatever the rounding mode. */
zelk_float4 __zelk_roundf4(zelk_float4 x);
zelk_double2 __zelk_round2(zelk_double2 x);

/* The nearest integer in the sense of the current rounding mode. Both functions are the same: nearbyint
 * raises inexact, too. */
zelk_float4 __zelk_rintf4(zelk_float4 x);
zelk_double2 __zelk_rint2(zelk_double2 x);
zelk_float4 __zelk_nearbyintf4(zelk_float4 x);
zelk_double2 __zelk_nearbyint2(zelk_double2 x);

/* Integer division: four 32-bit lanes, dividend a by divisor b, exact in every tier and rounding mode. The
 * quotient is truncated toward zero; a = quotient * b + remainder, and the remainder has the sign of the
 * dividend. Lanes without a quotient do no harm: nothing traps and other lanes are not touched. There
 *   - signed, b = 0: quotient -2^31, remainder a;
 *   - signed, -2^31 by -1: quotient -2^31, remainder 0;
 *   - unsigned, b = 0: quotient 2^32 - 1, remainder a.
 * No floating-point flag is raised but inexact (tiers J, L, N).
 * Methods: tier A divides lane by lane; the others in binary64, with a truncation. */

/* Signed quotient, remainder. */
zelk_int4 __zelk_idiv4(zelk_int4 a, zelk_int4 b);
zelk_int4 __zelk_irem4(zelk_int4 a, zelk_int4 b);

/* Unsigned quotient, remainder. */
zelk_uint4 __zelk_udiv4(zelk_uint4 a, zelk_uint4 b);
zelk_uint4 __zelk_urem4(zelk_uint4 a, zelk_uint4 b);

/* Quotient in XMM0, as C sees it, and remainder in XMM1, which C cannot see: for callers that know the
 * convention. */
zelk_int4 __zelk_idivrem4(zelk_int4 a, zelk_int4 b);
zelk_uint4 __zelk_udivrem4(zelk_uint4 a, zelk_uint4 b);

/* The same for C: the remainder is stored at the 16-byte-aligned address given, besides being left in XMM1.
 */
zelk_int4 ropiDivRem4(zelk_int4 a, zelk_int4 b, zelk_int4* remainder);
zelk_uint4 ropuDivRem4(zelk_uint4 a, zelk_uint4 b, zelk_uint4* remainder);

ZELK_END_DECLARATIONS

#endif
