/* Hyperbolic functions and their inverses. */
#ifndef ZELK_HYPERBOLIC_H
#define ZELK_HYPERBOLIC_H

#include "zelk/types.h"

ZELK_BEGIN_DECLARATIONS

/* sinh, cosh, tanh. */

/* sinh x on four binary32 lanes, any x.
 * Error: 0.17 ulp below 0.0003, where the result is x; 1.11 up to 0.35, 0.57 beyond. All tiers give the same
 * bits. Special: +-0 gives +-0, an infinity the infinity, |x| >= 704 the infinity of its sign, raising
 * nothing; overflow is raised from 89.416 up to 704; a NaN gives the quieted NaN, a signalling one raises
 * invalid. Method: in binary64, from 2^n, 2^-n and a degree-6 polynomial of 2^f, rounded once. */
zelk_float4 __zelk_sinhf4(zelk_float4 x);

/* cosh x on four binary32 lanes, any x.
 * Error: 0.53 ulp. All tiers give the same bits.
 * Special: +-0 gives 1 (1 + 2^-23 when rounding upward), |x| >= 704 and infinities give +infinity, raising
 * nothing; overflow and NaNs as __zelk_sinhf4. Method: as __zelk_sinhf4. */
zelk_float4 __zelk_coshf4(zelk_float4 x);

/* tanh x on four binary32 lanes, any x.
 * Error: 3.61 ulp; 2.8 below 1/32. All tiers give the same bits.
 * Special: +-0 gives +-0, |x| >= 10 and infinities give +-1, raising nothing; a NaN gives the quieted NaN, a
 * signalling one raises invalid. Method: table of tanh at multiples of 1/16 and the addition formula; one
 * division. */
zelk_float4 __zelk_tanhf4(zelk_float4 x);

/* sinh x on two binary64 lanes, any x.
 * Error: 2.6 ulp between 2^-8 and 1/50, 0.5 below, 1.02 up to 22, 0.53 beyond. All tiers give the same bits.
 * Special: +-0 gives +-0, an infinity the infinity; |x| >= 710.4756 gives the infinity of its sign, raising
 * nothing, smaller arguments whose result is too large raise overflow; a NaN gives the NaN of all one bits, a
 * signalling one raises invalid. Method: table of 2^(j/64) in two parts and a degree-5 polynomial; e^|x| / 2
 * alone from 708.4 on. */
zelk_double2 __zelk_sinh2(zelk_double2 x);

/* cosh x on two binary64 lanes, any x.
 * Error: 0.76 ulp. All tiers give the same bits.
 * Special: +-0 gives 1; |x| >= 710.4756 and infinities give +infinity, raising nothing; overflow and NaNs as
 * __zelk_sinh2.
 * Method: as __zelk_sinh2. */
zelk_double2 __zelk_cosh2(zelk_double2 x);

/* tanh x on two binary64 lanes, any x.
 * Error: 3.8 ulp. All tiers give the same bits. For about 3 in 10000 arguments between 22 and 708 the result
 * exceeds 1 by one unit in the last place, 2^-52; for about as many it falls short of 1 by at most as much.
 * Special: +-0 gives +-0; |x| >= 708.4018 and infinities give +-1, raising nothing; NaNs as __zelk_sinh2.
 * Method: the quotient of the sums of __zelk_sinh2 and __zelk_cosh2. */
zelk_double2 __zelk_tanh2(zelk_double2 x);

/* asinh, acosh, atanh. */

/* asinh x on four binary32 lanes, any x.
 * Error: 2.3 ulp in vectors with all |x| in (1, infinity); in any other 0.75 near 2^-8, 0.52 elsewhere.
 * Special: below 2^-28, +-0, infinities and NaNs, signalling ones too, come back unchanged. Nothing is
 * raised. Method: ln(|x| + sqrt(x^2 + 1)): in binary32 with the processor's reciprocal estimate, whose bits
 * vary between processors; lane by lane in binary64 with a table logarithm as soon as one |x| lies outside
 * (1, infinity). */
zelk_float4 __zelk_asinhf4(zelk_float4 x);

/* acosh x on four binary32 lanes, x >= 1.
 * Error: 2.2 ulp in vectors with all x in (1.5, infinity); in any other 0.62 below 1.00001, 0.51 elsewhere.
 * Special: 1 gives +0; +infinity and a positive NaN come back unchanged; x < 1, -0 and any negative pattern
 * give the NaN 0x7FFFFFFF. Nothing is raised. Method: ln(x + sqrt(x^2 - 1)), as __zelk_asinhf4; lane by lane
 * as soon as one x lies outside (1.5, infinity). */
zelk_float4 __zelk_acoshf4(zelk_float4 x);

/* atanh x on four binary32 lanes, |x| <= 1.
 * Error: 2.82 ulp in vectors with all |x| in (1/4, 1 - 2^-24); in any other 1.0 below 2^-20, 0.53 elsewhere.
 * Special: +-1 gives the infinity of its sign; below 2^-30 and +-0 come back unchanged; |x| > 1, infinities
 * and NaNs give the NaN 0x7FFFFFFF with the sign of x. Nothing is raised, not even divide-by-zero. Method:
 * ln((1 + |x|) / (1 - |x|)) / 2, as __zelk_asinhf4. */
zelk_float4 __zelk_atanhf4(zelk_float4 x);

/* asinh x on two binary64 lanes, any x.
 * Error: 1.5 ulp for |x| <= 1, 2.3 beyond. All tiers give the same bits.
 * Special: +-0 gives +-0, an infinity the infinity; a NaN gives the quieted NaN, a signalling one raises
 * invalid. Method: ln(|x| + sqrt(x^2 + 1)); an odd polynomial of degree 37 up to 1. */
zelk_double2 __zelk_asinh2(zelk_double2 x);

/* acosh x on two binary64 lanes, x >= 1.
 * Error: 4.71 ulp up to 1.5, 2.2 beyond. All tiers give the same bits.
 * Special: 1 gives +0, +infinity +infinity; x < 1 and -infinity give the default NaN and raise invalid; NaNs
 * as
 * __zelk_asinh2.
 * Method: ln(x + sqrt(x^2 - 1)); sqrt(2t) times a polynomial of degree 10 in t = x - 1 up to 1.5. */
zelk_double2 __zelk_acosh2(zelk_double2 x);

/* atanh x on two binary64 lanes, |x| <= 1.
 * Error: 0.63 ulp for |x| <= 1/4, 2.8 beyond. All tiers give the same bits.
 * Special: +-0 gives +-0; +-1 gives the infinity of its sign, raising nothing; |x| > 1 and infinities give
 * the default NaN and raise invalid; NaNs as __zelk_asinh2. Method: ln((1 + |x|) / (1 - |x|)) / 2; an odd
 * polynomial of degree 17 up to 1/4. */
zelk_double2 __zelk_atanh2(zelk_double2 x);

ZELK_END_DECLARATIONS

#endif
