/* Exponentials, logarithms, power. */
#ifndef ZELK_EXPLOG_H
#define ZELK_EXPLOG_H

#include "zelk/types.h"

ZELK_BEGIN_DECLARATIONS

/* Single precision exponentials. */

/* Single precision logarithms. */

/* Power. */

/* Double precision exponentials. The final 2 is the number of lanes: __zelk_exp2 is e^x, __zelk_exp22 is 2^x. */

/* e^x on two binary64 lanes, any x.
 * Error, all tiers: 2.98 ulp; 1.43 ulp where the result is subnormal.
 * Special: e^0 = 1; e^+infinity = +infinity and e^-infinity = +0 without a flag; a NaN gives the quieted NaN, a
 * signalling one raises invalid. Above 709.78 +infinity with overflow; below -708.39 subnormal results and below
 * -745.13 +0, with underflow.
 * Method: 2^(j/64) from a table, the power of two into the exponent field, a degree-5 polynomial. */
zelk_double2 __zelk_exp2(zelk_double2 x);

/* 2^x on two binary64 lanes, any x. Exact for integer x.
 * Error, all tiers: 2.58 ulp; 1.49 ulp where the result is subnormal.
 * Special: +infinity from x = 1024 on, +0 from -1075 down; every NaN gives 0x7FFFFFFF00000000, a signalling one raises
 * invalid. Overflow is raised where |x| exceeds the range of binary32, for either sign of x, and nowhere else.
 * Method: 2^(j/128) from a table, the power of two into the exponent field, a degree-4 polynomial. */
zelk_double2 __zelk_exp22(zelk_double2 x);

/* Double precision logarithms. The final 2 is the number of lanes: __zelk_log2 is ln x, __zelk_log22 is the logarithm
 * to base 2, __zelk_log102 to base 10.
 * Special, in all three: +infinity gives +infinity, either zero -infinity; every x < 0 and every NaN gives the NaN
 * 0xFFFFFFFFFFFFFFFF. None of these raises a flag. The logarithm of 1 is +0. */

/* ln x on two binary64 lanes, x > 0.
 * Error: tier A 0.534 ulp, 0.745 for subnormal x; the others 0.508.
 * Method: table of reciprocals and their logarithms, 64 intervals and degree 7 (tier A) or 256 and degree 6. */
zelk_double2 __zelk_log2(zelk_double2 x);

/* log2 x on two binary64 lanes, x > 0. Exact for powers of two.
 * Error, all tiers: 0.53 ulp where x is not within 1/8 of 1, 2.08 closer to 1. For round to nearest only: in the other
 * rounding modes the absolute error reaches 0.012.
 * Method: table of log2 at multiples of 1/128, degree-6 polynomial. */
zelk_double2 __zelk_log22(zelk_double2 x);

/* log10 x on two binary64 lanes, x > 0.
 * Error: 0.557 ulp for normal x; subnormal x 0.552 in tier A, 0.505 in the others.
 * Method: table of reciprocals and their logarithms, 64 intervals, degree-7 polynomial. */
zelk_double2 __zelk_log102(zelk_double2 x);

ZELK_END_DECLARATIONS

#endif
