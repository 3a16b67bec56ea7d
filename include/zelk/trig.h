/* Sine, cosine, tangent. */
#ifndef ZELK_TRIG_H
#define ZELK_TRIG_H

#include "zelk/types.h"

ZELK_BEGIN_DECLARATIONS

/* sin x on four binary32 lanes, x in radians, any finite x.
 * Error: 2.48 ulp for |x| <= 10000, 2.14 up to 2^30, 0.55 beyond (or beside a lane beyond 2^30).
 * Special: an infinity gives NaN and raises invalid; a NaN gives the quieted NaN, a signalling one raises invalid;
 * -0 gives +0.
 * Method: multiples of pi subtracted in four parts and a degree-9 odd polynomial; binary64 reduction up to 2^30;
 * beyond, table of sine and cosine at multiples of pi/128. */
zelk_float4 __zelk_sinf4(zelk_float4 x);

/* cos x on four binary32 lanes, x in radians, any finite x.
 * Error: 2.41 ulp for |x| <= 10000, 2.14 up to 2^30, 0.55 beyond (or beside a lane beyond 2^30).
 * Special: as __zelk_sinf4; cos 0 = 1.
 * Method: as __zelk_sinf4, shifted by pi/2. */
zelk_float4 __zelk_cosf4(zelk_float4 x);

/* Double precision sine and cosine. */

/* sin x on two binary64 lanes, x in radians, any finite x.
 * Error: 2.45 ulp for |x| < 128000.0625, 2.33 up to 2^30, 0.510 beyond (or beside a lane of 2^30 or more).
 * Special: an infinity gives NaN and raises invalid; a NaN gives the quieted NaN, a signalling one raises
 * invalid; -0 gives +0.
 * Method: multiples of pi subtracted in four parts and a degree-17 odd polynomial; up to 2^30 multiples of pi/2
 * in five parts; beyond, exact reduction in integer arithmetic and a table of sine and cosine at multiples of
 * pi/32. */
zelk_double2 __zelk_sin2(zelk_double2 x);

/* cos x on two binary64 lanes, x in radians, any finite x.
 * Error: 2.55 ulp for |x| <= 128000, 2.19 up to 2^30, 0.510 beyond (or beside a lane of 2^30 or more).
 * Special: as __zelk_sin2, but a NaN loses its sign; cos 0 = 1.
 * Method: as __zelk_sin2, shifted by pi/2. */
zelk_double2 __zelk_cos2(zelk_double2 x);

/* Tangent. */

/* tan x on four binary32 lanes, x in radians, any finite x.
 * Error: tier A 3.7 ulp for |x| <= 10000, 3.4 beyond; other tiers 4.1 for |x| <= 10000, 3.7 up to 2^30, beyond 0.51 but
 * for the arguments nearest to a pole (6).
 * Special: zeros give themselves; an infinity gives NaN and raises invalid; a NaN gives a quiet NaN, a signalling one
 * raises invalid. tan(-x) = -tan x.
 * Method: multiples of pi/2 subtracted in four parts and a rational function; see docs/functions/tan.md for larger x. */
zelk_float4 __zelk_tanf4(zelk_float4 x);

/* tan x on two binary64 lanes, x in radians, any finite x.
 * Error: 3.7 ulp for |x| <= 128000; tier A 4.3 beyond; other tiers 3.7 up to 2^30, 0.6 beyond.
 * Special, method: as __zelk_tanf4. */
zelk_double2 __zelk_tan2(zelk_double2 x);

/* Sine-cosine pairs. */

ZELK_END_DECLARATIONS

#endif
