/* Exponentials, logarithms, power. */
#ifndef ZELK_EXPLOG_H
#define ZELK_EXPLOG_H

#include "zelk/types.h"

ZELK_BEGIN_DECLARATIONS

/* Single precision exponentials. */

/* e^x on four binary32 lanes.
 * Error: tier A 0.57 ulp, 0.77 where the result is subnormal; other tiers 3.22 ulp, 1.7 where it is subnormal.
 * Special: +inf gives +inf, -inf gives +0, a NaN the quieted NaN, +-0 exactly 1. Only a signalling NaN raises invalid.
 * Overflow: from 88.7228394 on +inf; tier A raises nothing there, the other tiers raise overflow. From -103.972084
 * down +0; subnormal results in between are rounded gradually.
 * Method: multiples of ln2/64 subtracted in two parts, table of 2^(j/64), cubic (tier A) or quadratic (others). */
zelk_float4 __zelk_expf4(zelk_float4 x);

/* 2^x on four binary32 lanes.
 * Error: 2.56 ulp, 1.8 where the result is subnormal. Exact for integers.
 * Special: +-0 and subnormal x give 1; from 128 on (and +inf) +inf, from -150 down (and -inf) +0; a NaN is returned
 * unchanged, a signalling one too. None of these raises anything, not even overflow.
 * Method: nearest multiple of 1/64, table of 2^(j/64), quadratic. */
zelk_float4 __zelk_exp2f4(zelk_float4 x);

/* Single precision logarithms. */

/* Power. */

/* Double precision exponentials. */

/* Double precision logarithms. */

ZELK_END_DECLARATIONS

#endif
