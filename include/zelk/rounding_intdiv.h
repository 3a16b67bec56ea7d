/* Rounding to integral values, integer division. */
#ifndef ZELK_ROUNDING_INTDIV_H
#define ZELK_ROUNDING_INTDIV_H

#include "zelk/types.h"

ZELK_BEGIN_DECLARATIONS

/* Rounding: every lane becomes an integral value in the same format. The results are exact, and the same in all
 * tiers. Zeros keep their sign, and what rounds to zero takes the sign of x; in round-down mode, +0 can become -0
 * (not in round, nor in the binary32 trunc). Infinities and what is integral come back as they are, NaNs quieted
 * (the binary32 trunc returns them as they are).
 * The binary32 functions raise inexact for lanes that are not integral, the binary64 ones only in rint and
 * nearbyint. A signalling NaN raises invalid (but in tier A of the binary32 trunc). Besides, invalid is raised
 *   - by the binary32 ceil, floor, trunc in tiers J, L, N: beyond the range of a 32-bit integer, infinities, NaNs;
 *   - by the binary32 round: for |x| >= 2^31, infinities, NaNs; by the binary64 round: for infinities.
 * Methods: conversion to 32-bit integers and back (binary32), a table of masks for the fraction bits (binary64); rint
 * and nearbyint add and subtract 2^23 or 2^52. */

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

/* The nearest integer in the sense of the current rounding mode. Both functions are the same: nearbyint raises
 * inexact, too. */
zelk_float4 __zelk_rintf4(zelk_float4 x);
zelk_double2 __zelk_rint2(zelk_double2 x);
zelk_float4 __zelk_nearbyintf4(zelk_float4 x);
zelk_double2 __zelk_nearbyint2(zelk_double2 x);

/* Integer division. */

ZELK_END_DECLARATIONS

#endif
