/* Exponentials, logarithms, power. */
#ifndef ZELK_EXPLOG_H
#define ZELK_EXPLOG_H

#include "zelk/types.h"

ZELK_BEGIN_DECLARATIONS

/* Single precision exponentials. */

/* e^x on four binary32 lanes.
 * Error: tier A 0.57 ulp, 0.77 where the result is subnormal; other tiers 3.22 ulp, 1.7 where it is
 * subnormal. Special: +inf gives +inf, -inf gives +0, a NaN the quieted NaN, +-0 exactly 1. Only a signalling
 * NaN raises invalid. Overflow: from 88.7228394 on +inf; tier A raises nothing there, the other tiers raise
 * overflow. From -103.972084 down +0; subnormal results in between are rounded gradually. Method: multiples
 * of ln2/64 subtracted in two parts, table of 2^(j/64), cubic (tier A) or quadratic (others). */
zelk_float4 __zelk_expf4(zelk_float4 x);

/* 2^x on four binary32 lanes.
 * Error: 2.56 ulp, 1.8 where the result is subnormal. Exact for integers.
 * Special: +-0 and subnormal x give 1; from 128 on (and +inf) +inf, from -150 down (and -inf) +0; a NaN is
 * returned unchanged, a signalling one too. None of these raises anything, not even overflow. Method: nearest
 * multiple of 1/64, table of 2^(j/64), quadratic. */
zelk_float4 __zelk_exp2f4(zelk_float4 x);

/* Single precision logarithms. */

/* ln x on four binary32 lanes.
 * Error: 1.08 ulp; 1.02 on [1/2, 2], 1.04 for subnormal x.
 * Special: +-0 gives -inf, a negative x (-inf too) the NaN 0xFFFFFFFF, +inf gives +inf, a NaN the quieted
 * NaN; ln 1 is +0 (-0 rounding down). Only a signalling NaN raises invalid; zeros and negative arguments
 * raise nothing. Method: x = 2^e y with y next to 1, odd series in (y - 1)/(y + 1). */
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

/* x^y on four binary32 lanes.
 * Error: 0.54 ulp, 0.554 for x near 1 with |y log2 x| near 128; 0.52 for subnormal results. The largest
 * subnormal x is taken for 2^-24 too much: 1.5 ulp. Special: the table of docs/functions/powf4.md. x^0 and
 * 1^y are 1, also for NaN. (+-0)^y with y < 0 raises divide-by-zero; a negative finite x with finite y that
 * is no integer gives NaN and raises invalid. Other NaN results, infinite arguments and |y log2 x| > 708
 * (zero or infinite results) raise nothing; up to 708 the conversion to binary32 raises overflow. Method:
 * 2^(y log2 |x|) in binary64 without tables; an odd polynomial for the logarithm, three quadratics for the
 * power. Fitted for round to nearest: up to 134 ulp in the other modes. */
zelk_float4 __zelk_powf4(zelk_float4 x, zelk_float4 y);

/* x^y on two binary64 lanes.
 * Error: 0.51 ulp; for x near 1 with |y log2 x| near 1024 up to 1.31; 0.503 for subnormal results.
 * Special: the table of docs/functions/pow2.md. x^0 and 1^y are 1, also for NaN. (+-0)^y with y < 0 raises
 * divide-by-zero; a negative finite x with finite y that is no integer gives NaN and raises invalid. A NaN
 * argument comes back unchanged, a signalling one too, and raises nothing, nor do infinite arguments or
 * results far out of range; results from 2^1024 to below 2^1025 raise overflow. Method: log2 x in two parts
 * from a table of 1025 reciprocals, an exact leading product, 2^(j/128) by table. */
zelk_double2 __zelk_pow2(zelk_double2 x, zelk_double2 y);

/* Double precision exponentials. The final 2 is the number of lanes: __zelk_exp2 is e^x, __zelk_exp22 is 2^x.
 */

/* e^x on two binary64 lanes, any x.
 * Error, all tiers: 2.98 ulp; 1.43 ulp where the result is subnormal.
 * Special: e^0 = 1; e^+infinity = +infinity and e^-infinity = +0 without a flag; a NaN gives the quieted NaN,
 * a signalling one raises invalid. Above 709.78 +infinity with overflow; below -708.39 subnormal results and
 * below -745.13 +0, with underflow. Method: 2^(j/64) from a table, the power of two into the exponent field,
 * a degree-5 polynomial. */
zelk_double2 __zelk_exp2(zelk_double2 x);

/* 2^x on two binary64 lanes, any x. Exact for integer x.
 * Error, all tiers: 2.60 ulp; 1.49 ulp where the result is subnormal.
 * Special: +infinity from x = 1024 on, +0 from -1075 down; every NaN gives 0x7FFFFFFF00000000, a signalling
 * one raises invalid. Overflow is raised where |x| exceeds the range of binary32, for either sign of x, and
 * nowhere else. Method: 2^(j/128) from a table, the power of two into the exponent field, a degree-4
 * polynomial. */
zelk_double2 __zelk_exp22(zelk_double2 x);

/* Double precision logarithms. The final 2 is the number of lanes: __zelk_log2 is ln x, __zelk_log22 is the
 * logarithm to base 2, __zelk_log102 to base 10. Special, in all three: +infinity gives +infinity, either
 * zero -infinity; every x < 0 and every NaN gives the NaN 0xFFFFFFFFFFFFFFFF. None of these raises a flag. In
 * round to nearest the logarithm of 1 is +0. */

/* ln x on two binary64 lanes, x > 0.
 * Error: tier A 0.534 ulp, 0.77 for subnormal x; the others 0.51, 0.53 for subnormal x.
 * Method: table of reciprocals and their logarithms, 64 intervals and degree 7 (tier A) or 256 and degree 6.
 */
zelk_double2 __zelk_log2(zelk_double2 x);

/* log2 x on two binary64 lanes, x > 0. Exact for powers of two.
 * Error, all tiers: 0.53 ulp where x is not within 1/8 of 1, 2.08 closer to 1. For round to nearest only: in
 * the other rounding modes the absolute error reaches 0.012. Method: table of log2 at multiples of 1/128,
 * degree-6 polynomial. */
zelk_double2 __zelk_log22(zelk_double2 x);

/* log10 x on two binary64 lanes, x > 0.
 * Error: 0.557 ulp for normal x; subnormal x 0.57 in tier A, 0.53 in the others.
 * Method: table of reciprocals and their logarithms, 64 intervals, degree-7 polynomial. */
zelk_double2 __zelk_log102(zelk_double2 x);

ZELK_END_DECLARATIONS

#endif
