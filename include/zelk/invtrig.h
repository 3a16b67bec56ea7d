/* Inverse trigonometric functions. */
#ifndef ZELK_INVTRIG_H
#define ZELK_INVTRIG_H

#include "zelk/types.h"

ZELK_BEGIN_DECLARATIONS

/* Arc sine and arc cosine. */

/* arcsin x on four binary32 lanes, in radians, |x| <= 1.
 * Error: 2.55 ulp for |x| <= 1/2; above, 4.22, but 4.08 in tier L if all lanes are above.
 * Special: |x| > 1 (infinities too) gives NaN and raises invalid; a NaN gives a quiet NaN, a signalling one
 * raises invalid; -0 gives -0. Method: degree-11 odd polynomial; above 1/2 of sqrt((1 - |x|)/2). */
zelk_float4 __zelk_asinf4(zelk_float4 x);

/* arccos x on four binary32 lanes, in radians, |x| <= 1.
 * Error: 1.58 ulp for |x| <= 1/2, 2.99 above.
 * Special: as __zelk_asinf4; arccos 1 = +0.
 * Method: as __zelk_asinf4. */
zelk_float4 __zelk_acosf4(zelk_float4 x);

/* arcsin x on two binary64 lanes, in radians, |x| <= 1.
 * Error: 0.64 ulp for |x| < 1/2, 2.16 above.
 * Special: as __zelk_asinf4.
 * Method: degree-27 odd polynomial; above 1/2 of sqrt((1 - |x|)/2). */
zelk_double2 __zelk_asin2(zelk_double2 x);

/* arccos x on two binary64 lanes, in radians, |x| <= 1.
 * Error: |x| < 1/2: 1.61 ulp in tier A, 2.05 in tier L; above 3.22.
 * Special: as __zelk_asinf4; arccos 1 = +0; arccos -1 is one unit larger in tier L than in tier A.
 * Method: as __zelk_asin2, degree 23. */
zelk_double2 __zelk_acos2(zelk_double2 x);

/* arccos x of one binary64 number, in radians, |x| <= 1.
 * Error: 0.501 ulp; in tier A 2.0 for 0.3827 < |x| < 0.9239 and 1.01 above.
 * Special: |x| > 1 (infinities too) gives NaN and raises invalid; a NaN is returned unchanged; arccos 1 = +0.
 * Method: extended precision; the nearest of the angles 0, pi/4, pi/2, 3pi/4 and pi, and a polynomial for the
 * rest. Needs the x87 precision control at 64 bits, as the platform has it. */
double acos_scalar(double x);

/* Arc tangent. */

/* arctan x on four binary32 lanes, in radians, any x.
 * Error: 3.76 ulp for |x| <= 1, 3.37 above.
 * Special: infinities give +-pi/2 and raise nothing; a NaN gives a quiet NaN, a signalling one raises
 * invalid; -0 gives -0. Method: degree-17 odd polynomial, of 1/x above 1. */
zelk_float4 __zelk_atanf4(zelk_float4 x);

/* arctan x (of one argument) on two binary64 lanes, in radians, any x.
 * Error: 4.06 ulp for |x| <= 1, 4.73 above.
 * Special: as __zelk_atanf4.
 * Method: degree-39 odd polynomial, of 1/x above 1. */
zelk_double2 __zelk_atan2(zelk_double2 x);

/* atan2(y, x), the angle of the point (x, y), on four binary32 lanes, in radians, any y and x.
 * Error: 3.98 ulp; 1.6 if x is zero or subnormal, or y infinite or NaN, in any lane.
 * Special: zeros and infinities give the multiple of pi/4 that IEEE 754 names, with the sign of y, and raise
 * nothing; a NaN gives a quiet NaN, a signalling one raises invalid. Method: degree-17 odd polynomial of the
 * smaller magnitude over the larger. */
zelk_float4 __zelk_atan2f4(zelk_float4 y, zelk_float4 x);

/* atan2(y, x), the angle of the point (x, y), on two binary64 lanes, in radians, any y and x.
 * Error: 4.64 ulp.
 * Special: as __zelk_atan2f4.
 * Method: degree-39 odd polynomial of the smaller magnitude over the larger. */
zelk_double2 __zelk_atan22(zelk_double2 y, zelk_double2 x);

/* atan2(y, x) of two binary64 numbers, in radians, any y and x.
 * Error: 0.501 ulp.
 * Special: as __zelk_atan2f4.
 * Method: extended precision; in tier A the processor's partial arc tangent, in tier L a table of atan(n/64)
 * and the Taylor series. Tier L needs the x87 precision control at 64 bits, as the platform has it. */
double atan2_scalar(double y, double x);

ZELK_END_DECLARATIONS

#endif
