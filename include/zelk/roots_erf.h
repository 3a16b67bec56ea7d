/* Roots and error functions. */
#ifndef ZELK_ROOTS_ERF_H
#define ZELK_ROOTS_ERF_H

#include "zelk/types.h"

ZELK_BEGIN_DECLARATIONS

/* Square roots. The fast paths start from the processor's reciprocal square root estimate: their last bit may
 * differ between processor models. */

/* sqrt x on four binary32 lanes, x >= 0.
 * Error: 4.0 ulp when all lanes are positive normal finite numbers; otherwise all lanes are correctly
 * rounded. Special: -0 gives -0, +inf gives +inf; a negative number or -inf gives NaN and raises invalid; a
 * NaN gives the quieted NaN, a signalling one raises invalid. Method: x times the estimate of 1/sqrt x
 * refined by one Newton step; the hardware square root otherwise. */
zelk_float4 __zelk_sqrtf4(zelk_float4 x);

/* 1/sqrt x on four binary32 lanes, x > 0.
 * Error: 2.63 ulp; subnormal x 1.5 ulp.
 * Special: +0 (-0) gives +inf (-inf) and raises divide-by-zero; +inf gives +0; a negative number or -inf
 * gives NaN and raises invalid; a NaN gives the quieted NaN, a signalling one raises invalid. Method: the
 * processor's estimate and one Newton step; special lanes by square root and division. */
zelk_float4 __zelk_invsqrtf4(zelk_float4 x);

/* sqrt x on two binary64 lanes, x >= 0. Correctly rounded in every rounding mode.
 * Special: as __zelk_sqrtf4.
 * Method: the hardware square root. */
zelk_double2 __zelk_sqrt2(zelk_double2 x);

/* 1/sqrt x on two binary64 lanes, x > 0.
 * Error: 0.51 ulp.
 * Special: +0 (-0) gives +inf (-inf), +inf gives +0, a negative number or -inf gives NaN, all without a flag;
 * a NaN gives the quieted NaN, a signalling one raises invalid. Method: a 21-bit estimate from binary32 and
 * the Taylor polynomial of (1 + e)^(-1/2) of degree 5 in its residual. */
zelk_double2 __zelk_invsqrt2(zelk_double2 x);

/* sqrt x of one number by the x87 square root, rounded to the x87's precision and then to the type's. Error:
 * 0.5005 ulp (double), 0.5 ulp (float, long double). Special: as __zelk_sqrtf4. */
double sqrt_scalar(double x);
float sqrtf_scalar(float x);
long double sqrtl_scalar(long double x);

/* Cube roots: any finite x, negative ones included. */

/* Cube root on four binary32 lanes.
 * Error: 2.36 ulp (tier A), 1.95 ulp (other tiers).
 * Special: zeros and infinities give themselves; a NaN gives a quiet NaN, a signalling one raises invalid.
 * Method: exponent divided by 3 in integers; a quadratic per 1/64 of the significand's range (tier A), or a
 * table reciprocal and the series of (1 + u)^(1/3). */
zelk_float4 __zelk_cbrtf4(zelk_float4 x);

/* 1/cbrt x on four binary32 lanes.
 * Error: 2.83 ulp; powers of 8 are not exact.
 * Special: +0 (-0) gives +inf (-inf) and raises divide-by-zero; +inf (-inf) gives +0 (-0); a NaN gives a
 * quiet NaN, a signalling one raises invalid. Method: a polynomial of degree 7 in the significand, in
 * binary64. */
zelk_float4 __zelk_invcbrtf4(zelk_float4 x);

/* Cube root on two binary64 lanes.
 * Error: 6.9 ulp.
 * Special: as __zelk_cbrtf4.
 * Method: x z^2 with z = |x|^(-1/3) from a quadratic per 1/128 of the significand's range and one Newton
 * step. */
zelk_double2 __zelk_cbrt2(zelk_double2 x);

/* 1/cbrt x on two binary64 lanes.
 * Error: 2.86 ulp.
 * Special: +0 (-0) gives +inf (-inf) and raises divide-by-zero; +inf (-inf) gives +0 (-0); any NaN gives the
 * NaN with all bits set and raises nothing. Method: as __zelk_cbrt2. */
zelk_double2 __zelk_invcbrt2(zelk_double2 x);

/* Error functions: erf x = 2/sqrt(pi) times the integral of e^(-t^2) from 0 to x, erfc x = 1 - erf x. The
 * tiers give the same bits. */

/* erf x on four binary32 lanes, any x.
 * Error: 0.62 ulp; 1.48 ulp for 2 <= |x| < 2.75.
 * Special: zeros give themselves; |x| >= 4, infinities included, gives +-1 without a flag; a NaN gives the
 * quieted NaN, a signalling one raises invalid. Method: a cubic in |x| per sixteenth of a binade, in
 * binary64. */
zelk_float4 __zelk_erff4(zelk_float4 x);

/* erf x on two binary64 lanes, any x.
 * Error: 0.68 ulp; 0.85 ulp just above the smallest normal number.
 * Special: as __zelk_erff4, with +-1 for |x| >= 6.
 * Method: a polynomial of degree 13 per quarter of a binade. */
zelk_double2 __zelk_erf2(zelk_double2 x);

/* erfc x on four binary32 lanes, any x.
 * Error: 2.09 ulp (|x| < 1/16 1.60; to 2 0.63; to 4 1.04; to 8 1.68; subnormal results 0.83).
 * Special: zeros give 1, +inf +0, -inf 2, without a flag; x >= 10.054195 underflows to +0, x <= -10.054195
 * gives 2; a NaN gives the quieted NaN, a signalling one raises invalid. Method: e^(-x^2) times a cubic in
 * |x| per sixteenth of a binade, in binary64. */
zelk_float4 __zelk_erfcf4(zelk_float4 x);

/* erfc x on two binary64 lanes, any x.
 * Error: 1.36 ulp (|x| < 1 0.87; to 8 0.65; subnormal results 0.75).
 * Special: as __zelk_erfcf4, with the ends at 27.226017.
 * Method: e^(-x^2), x^2 in three parts, times a polynomial of degree 12 per quarter of a binade; the product
 * is rounded once. */
zelk_double2 __zelk_erfc2(zelk_double2 x);

/* x + x, in spite of the name: NOT the inverse of erf. One IEEE addition in each lane, with its rounding and
 * its flags: overflow, and invalid for a signalling NaN. Error: none but for overflow. */
zelk_float4 __zelk_erfinvf4(zelk_float4 x);
zelk_double2 __zelk_erfinv2(zelk_double2 x);

/* x + y, in spite of the name: NOT the Euclidean norm sqrt(x^2 + y^2). One IEEE addition in each lane, with
 * its rounding and its flags: overflow, and invalid for a signalling NaN or for infinities of opposite signs.
 * Error: 0.5 ulp. */
zelk_float4 __zelk_hypotf4(zelk_float4 x, zelk_float4 y);
zelk_double2 __zelk_hypot2(zelk_double2 x, zelk_double2 y);

ZELK_END_DECLARATIONS

#endif
