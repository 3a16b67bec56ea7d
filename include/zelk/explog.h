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

/* Double precision logarithms. */

ZELK_END_DECLARATIONS

#endif
