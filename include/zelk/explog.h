/* Exponentials, logarithms, power. */
#ifndef ZELK_EXPLOG_H
#define ZELK_EXPLOG_H

#include "zelk/types.h"

ZELK_BEGIN_DECLARATIONS

/* Single precision exponentials. */

/* Single precision logarithms. */

/* Power. */

/* x^y on four binary32 lanes.
 * Error: 0.54 ulp, 0.554 for x near 1 with |y log2 x| near 128; 0.52 for subnormal results. The largest subnormal x
 * is taken for 2^-24 too much: 1.5 ulp.
 * Special: the table of docs/functions/powf4.md. x^0 and 1^y are 1, also for NaN. (+-0)^y with y < 0 raises
 * divide-by-zero; a negative finite x with finite y that is no integer gives NaN and raises invalid. Other NaN
 * results, infinite arguments and |y log2 x| > 708 (zero or infinite results) raise nothing; up to 708 the conversion
 * to binary32 raises overflow.
 * Method: 2^(y log2 |x|) in binary64 without tables; an odd polynomial for the logarithm, three quadratics for the
 * power. Fitted for round to nearest: up to 134 ulp in the other modes. */
zelk_float4 __zelk_powf4(zelk_float4 x, zelk_float4 y);

/* Double precision exponentials. */

/* Double precision logarithms. */

ZELK_END_DECLARATIONS

#endif
