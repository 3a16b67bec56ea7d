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

/* x^y on two binary64 lanes.
 * Error: 0.51 ulp; for x near 1 with |y log2 x| near 1024 up to 1.31; 0.503 for subnormal results.
 * Special: the table of docs/functions/pow2.md. x^0 and 1^y are 1, also for NaN. (+-0)^y with y < 0 raises
 * divide-by-zero; a negative finite x with finite y that is no integer gives NaN and raises invalid. A NaN argument
 * comes back unchanged, a signalling one too, and raises nothing, nor do infinite arguments or results far out of
 * range; results from 2^1024 to below 2^1025 raise overflow.
 * Method: log2 x in two parts from a table of 1025 reciprocals, an exact leading product, 2^(j/128) by table. */
zelk_double2 __zelk_pow2(zelk_double2 x, zelk_double2 y);

/* Double precision exponentials. */

/* Double precision logarithms. */

ZELK_END_DECLARATIONS

#endif
