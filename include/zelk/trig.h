/* Sine, cosine, tangent. */
#ifndef ZELK_TRIG_H
#define ZELK_TRIG_H

#include "zelk/types.h"

ZELK_BEGIN_DECLARATIONS

/* sin x on four binary32 lanes, x in radians, any finite x.
 * Error: 2.48 ulp for |x| <= 10000, 2.14 up to 2^30, 0.55 beyond (or beside a lane beyond 2^30).
 * Special: an infinity gives NaN and raises invalid; a NaN gives the quieted NaN, a signalling one raises
 * invalid; -0 gives +0. Method: multiples of pi subtracted in four parts and a degree-9 odd polynomial;
 * binary64 reduction up to 2^30; beyond, table of sine and cosine at multiples of pi/128. */
zelk_float4 __zelk_sinf4(zelk_float4 x);

/* cos x on four binary32 lanes, x in radians, any finite x.
 * Error: 2.41 ulp for |x| <= 10000, 2.14 up to 2^30, 0.55 beyond (or beside a lane beyond 2^30).
 * Special: as __zelk_sinf4; cos 0 = 1.
 * Method: as __zelk_sinf4, shifted by pi/2. */
zelk_float4 __zelk_cosf4(zelk_float4 x);

/* Double precision sine and cosine. */

/* sin x on two binary64 lanes, x in radians, any finite x.
 * Error: 2.85 ulp for |x| < 128000.0625, 2.33 up to 2^30, 0.510 beyond (or beside a lane of 2^30 or more).
 * Special: an infinity gives NaN and raises invalid; a NaN gives the quieted NaN, a signalling one raises
 * invalid; -0 gives +0.
 * Method: multiples of pi subtracted in four parts and a degree-17 odd polynomial; up to 2^30 multiples of
 * pi/2 in five parts; beyond, exact reduction in integer arithmetic and a table of sine and cosine at
 * multiples of pi/32. */
zelk_double2 __zelk_sin2(zelk_double2 x);

/* cos x on two binary64 lanes, x in radians, any finite x.
 * Error: 2.71 ulp for |x| <= 128000, 2.19 up to 2^30, 0.510 beyond (or beside a lane of 2^30 or more).
 * Special: as __zelk_sin2, but a NaN loses its sign; cos 0 = 1.
 * Method: as __zelk_sin2, shifted by pi/2. */
zelk_double2 __zelk_cos2(zelk_double2 x);

/* Tangent. */

/* tan x on four binary32 lanes, x in radians, any finite x.
 * Error: 4.27 ulp for |x| <= 10000, 3.75 up to 2^30; beyond 3.93 in tier A, in the others 0.51 but for the
 * arguments nearest to a pole (5.86). Special: zeros give themselves; an infinity gives NaN and raises
 * invalid; a NaN gives a quiet NaN, a signalling one raises invalid. tan(-x) = -tan x. Method: multiples of
 * pi/2 subtracted in four parts and a rational function; see docs/functions/tan.md for larger x. */
zelk_float4 __zelk_tanf4(zelk_float4 x);

/* tan x on two binary64 lanes, x in radians, any finite x.
 * Error: 4.15 ulp for |x| <= 128000, 3.49 up to 2^30; beyond 3.97 in tier A, 0.55 in the others.
 * Special, method: as __zelk_tanf4. */
zelk_double2 __zelk_tan2(zelk_double2 x);

/* Sine-cosine pairs. */

/* sin x and cos x on four binary32 lanes, x in radians, any finite x: the sine in the first and the cosine in
 * the second vector return register, XMM0 and XMM1. C has no type for that: this declaration gives the sine.
 * Error: 2.48 ulp for |x| <= 10000, 1.57 up to 2^30, beyond 1.59 in tier A, 0.67 in the others.
 * Special: an infinity gives NaN twice and raises invalid; a NaN gives NaNs, a signalling one raises invalid;
 * -0 gives +0 and 1, but in tier A -0 and 1 beside a lane beyond 10000. Method: multiples of pi/2 subtracted
 * in four parts and two polynomials, of degree 7 and 8; binary64 reduction up to 2^30; beyond, in tier A a
 * reduction by pieces of 4/pi, else a table at multiples of pi/128. */
zelk_float4 __zelk_sincosf4(zelk_float4 x);

/* The same on two binary64 lanes.
 * Error: 2.4 ulp for |x| < 128000.0625, 1.48 up to 2^30, 1.72 beyond.
 * Special: as __zelk_sincosf4, its 10000 being 128000.0625.
 * Method: as __zelk_sincosf4 with polynomials of degree 13 and 14; beyond 2^30 the reduction by pieces of
 * 4/pi. */
zelk_double2 __zelk_sincos2(zelk_double2 x);

/* __zelk_sincosf4 and __zelk_sincos2 that store the cosine, too, in the 16 bytes at a 16-byte-aligned
 * address. Error: theirs, but for ropsSinCos4 beyond 2^30 (1.59 ulp in every tier). */
zelk_float4 ropsSinCos4(zelk_float4 x, zelk_float4* cosine);
zelk_double2 ropdSinCos2(zelk_double2 x, zelk_double2* cosine);

ZELK_END_DECLARATIONS

#endif
