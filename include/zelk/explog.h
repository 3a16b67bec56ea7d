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

/* ln x on four binary32 lanes.
 * Error: 1.08 ulp; 1.02 on [1/2, 2], 1.04 for subnormal x.
 * Special: +-0 gives -inf, a negative x (-inf too) the NaN 0xFFFFFFFF, +inf gives +inf, a NaN the quieted NaN; ln 1 is
 * +0. Only a signalling NaN raises invalid; zeros and negative arguments raise nothing.
 * Method: x = 2^e y with y next to 1, odd series in (y - 1)/(y + 1). */
zelk_float4 __zelk_logf4(zelk_float4 x);

/* log2 x on four binary32 lanes.
 * Error: 2.12 ulp; 0.57 beyond [2^-10, 2^10], 0.55 for subnormal x. Exact for powers of two.
 * Special and method: as __zelk_logf4. */
zelk_float4 __zelk_log2f4(zelk_float4 x);

/* log10 x on four binary32 lanes.
 * Error: 2.28 ulp; 2.18 on [1/2, 2], 0.65 for subnormal x.
 * Special and method: as __zelk_logf4. */
zelk_float4 __zelk_log10f4(zelk_float4 x);

/* Power. */

/* Double precision exponentials. */

/* Double precision logarithms. */

ZELK_END_DECLARATIONS

#endif
