/* Hyperbolic functions and their inverses. */
#ifndef ZELK_HYPERBOLIC_H
#define ZELK_HYPERBOLIC_H

#include "zelk/types.h"

ZELK_BEGIN_DECLARATIONS

/* sinh, cosh, tanh. */

/* sinh x on four binary32 lanes, any x.
 * Error: 0.17 ulp below 0.0003, where the result is x; 1.11 up to 0.35, 0.57 beyond. All tiers give the same bits.
 * Special: +-0 gives +-0, an infinity the infinity, |x| >= 704 the infinity of its sign, raising nothing; overflow is
 * raised from 89.416 up to 704; a NaN gives the quieted NaN, a signalling one raises invalid.
 * Method: in binary64, from 2^n, 2^-n and a degree-6 polynomial of 2^f, rounded once. */
zelk_float4 __zelk_sinhf4(zelk_float4 x);

/* cosh x on four binary32 lanes, any x.
 * Error: 0.53 ulp. All tiers give the same bits.
 * Special: +-0 gives 1 (1 + 2^-23 when rounding upward), |x| >= 704 and infinities give +infinity, raising nothing;
 * overflow and NaNs as __zelk_sinhf4.
 * Method: as __zelk_sinhf4. */
zelk_float4 __zelk_coshf4(zelk_float4 x);

/* tanh x on four binary32 lanes, any x.
 * Error: 3.5 ulp; 2.8 below 1/32. All tiers give the same bits.
 * Special: +-0 gives +-0, |x| >= 10 and infinities give +-1, raising nothing; a NaN gives the quieted NaN, a signalling
 * one raises invalid.
 * Method: table of tanh at multiples of 1/16 and the addition formula; one division. */
zelk_float4 __zelk_tanhf4(zelk_float4 x);

/* sinh x on two binary64 lanes, any x.
 * Error: 2.6 ulp between 2^-8 and 1/50, 0.5 below, 1.02 up to 22, 0.53 beyond. All tiers give the same bits.
 * Special: +-0 gives +-0, an infinity the infinity; |x| >= 710.4756 gives the infinity of its sign, raising nothing,
 * smaller arguments whose result is too large raise overflow; a NaN gives the NaN of all one bits, a signalling one
 * raises invalid.
 * Method: table of 2^(j/64) in two parts and a degree-5 polynomial; e^|x| / 2 alone from 708.4 on. */
zelk_double2 __zelk_sinh2(zelk_double2 x);

/* cosh x on two binary64 lanes, any x.
 * Error: 0.76 ulp. All tiers give the same bits.
 * Special: +-0 gives 1; |x| >= 710.4756 and infinities give +infinity, raising nothing; overflow and NaNs as
 * __zelk_sinh2.
 * Method: as __zelk_sinh2. */
zelk_double2 __zelk_cosh2(zelk_double2 x);

/* tanh x on two binary64 lanes, any x.
 * Error: 3.8 ulp. All tiers give the same bits. For about 3 in 10000 arguments between 22 and 708 the result exceeds 1
 * by one unit in the last place, 2^-52; for about as many it falls short of 1 by at most as much.
 * Special: +-0 gives +-0; |x| >= 708.4018 and infinities give +-1, raising nothing; NaNs as __zelk_sinh2.
 * Method: the quotient of the sums of __zelk_sinh2 and __zelk_cosh2. */
zelk_double2 __zelk_tanh2(zelk_double2 x);

/* asinh, acosh, atanh. */

ZELK_END_DECLARATIONS

#endif
