/* Functions of complex numbers: on two binary32 numbers at a time and one by one, and the small scalar
 * routines that go with them. */
#ifndef ZELK_COMPLEX_H
#define ZELK_COMPLEX_H

#include "zelk/types.h"

/* C's float _Complex and double _Complex, which GCC and Clang have in C++ too. std::complex has the same
 * layout but not everywhere the same calling convention: copy its parts. */
__extension__ typedef float _Complex zelk_complex_float;
__extension__ typedef double _Complex zelk_complex_double;

ZELK_BEGIN_DECLARATIONS

/* Exponential. */

/* e^z = e^x cos y + i e^x sin y on two complex numbers with binary32 parts, z = x + iy.
 * Error: below 4.6 ulp in each part for |x| <= 87.3365 and |y| <= 10000, 4.03 found (0.501 in tier A);
 * 0.501 beyond.
 * Special: y = +-0 gives (e^x, y). Infinite y gives (NaN, NaN) and raises invalid for finite x; (+0, +0) for
 * x = -inf; (inf, NaN) for x = inf. Finite y gives (+-0, +-0) for x = -inf and (+-inf, +-inf) for x = inf,
 * with the signs of cos y and sin y. A NaN gives (NaN, NaN), but NaN y is as infinite y beside an infinite
 * x, and zero y stays; a signalling NaN raises invalid. Overflow gives +-inf and raises overflow.
 * Method: table of 2^(j/128) and a quadratic; multiples of pi/2 subtracted in four parts, polynomials of
 * sine and cosine. Tier A, and numbers beyond: cexpf_scalar. */
zelk_cfloat2 __zelk_cexpf2(zelk_cfloat2 z);

/* e^z of one complex number with binary32 parts, any finite parts.
 * Error: 0.501 ulp in each part.
 * Special: as __zelk_cexpf2; a denormal result raises underflow, be it exact.
 * Method: tier A: cexp_scalar, with the x87 precision control at 64 bits for the duration of the call; tier
 * L: tables of 2^(j/128) and of sine and cosine at multiples of pi/32 in binary64, for |x| < 256 and |y| <
 * 90112. */
zelk_complex_float cexpf_scalar(zelk_complex_float z);

/* e^z of one complex number with binary64 parts, any finite parts; two names of one routine.
 * Error: 0.501 ulp in each part.
 * Special: as __zelk_cexpf2.
 * Method: e^x, sin y and cos y in extended precision; needs the x87 precision control at 64 bits, as the
 * platform has it. */
zelk_complex_double cexp_scalar(zelk_complex_double z);
zelk_complex_double internal_cexp(zelk_complex_double z);

/* Logarithm. */

/* ln z = ln |z| + i arg z on two complex numbers with binary32 parts, z = x + iy, arg z = atan2(y, x) in
 * [-pi, pi].
 * Error: 0.51 ulp in the real part, 0.842 for ||z|^2 - 1| < 0.03; 2.53 in the angle (tier A: 0.501 in each
 * part).
 * Special: zero z gives -inf and the angle of its signs; an infinite part gives +inf, and the angle or,
 * beside a NaN, NaN; otherwise a NaN gives (NaN, NaN). Raises nothing but invalid, for a signalling NaN.
 * Method: ln |z|^2 in binary64 by table, near one by a polynomial in |z|^2 - 1; degree-17 odd polynomial of
 * the smaller part over the larger in binary32. Tier A, and numbers with an infinite part or a NaN:
 * clogf_scalar. */
zelk_cfloat2 __zelk_clogf2(zelk_cfloat2 z);

/* ln z of one complex number with binary32 parts.
 * Error: 0.501 ulp in each part.
 * Special: as __zelk_clogf2.
 * Method: as __zelk_clogf2, all in binary64. */
zelk_complex_float clogf_scalar(zelk_complex_float z);

/* ln z of one complex number with binary64 parts.
 * Error: 0.501 ulp in the real part for ||z|^2 - 1| < 0.03, 0.53 elsewhere; 0.501 in the imaginary part.
 * Special: as __zelk_clogf2; zero z raises divide-by-zero.
 * Method: ln |z|^2 in extended precision, near one by log1p of |z|^2 - 1 formed without cancellation;
 * atan2_scalar. Needs the x87 precision control at 64 bits, as the platform has it. */
zelk_complex_double clog_scalar(zelk_complex_double z);

/* Square root. */

/* sqrt z on two complex numbers with binary32 parts, z = x + iy: the root with a real part >= 0, its
 * imaginary part with the sign of y (the cut is the negative real axis, and the sign of a zero y tells its
 * sides).
 * Error: 0.53 ulp in each part (0.501 in tier A).
 * Special: infinite y gives (inf, y) whatever x is; -inf gives (+0, +-inf), +inf gives (inf, +-0), with the
 * sign of y; beside a NaN y they give (NaN, inf) and (inf, NaN); otherwise a NaN gives (NaN, NaN). A
 * signalling NaN raises invalid unless y is infinite. A denormal part of the result raises underflow, be it
 * exact, in numbers that have a part that is zero, subnormal or 2^-126, and in tier A in all.
 * Method: t = sqrt((|z| + |x|)/2) in binary64 from the processor's reciprocal square root estimate,
 * corrected; the other part is |y|/2t. Tier A, and numbers with a zero, subnormal or special part:
 * csqrtf_scalar. */
zelk_cfloat2 __zelk_csqrtf2(zelk_cfloat2 z);

/* sqrt z of one complex number with binary32 parts.
 * Error: 0.501 ulp in each part.
 * Special: as __zelk_csqrtf2; a denormal part of the result always raises underflow.
 * Method: in binary64, square root and division (tier A) or reciprocal square root (tier L). */
zelk_complex_float csqrtf_scalar(zelk_complex_float z);

/* sqrt z of one complex number with binary64 parts.
 * Error: 0.501 ulp in each part.
 * Special: as csqrtf_scalar.
 * Method: in extended precision; needs the x87 precision control at 64 bits, as the platform has it. */
zelk_complex_double csqrt_scalar(zelk_complex_double z);

/* Arc cosine. */

/* arccos z on two complex numbers with binary32 parts, z = x + iy: real part in [0, pi], imaginary part with
 * the sign opposite to that of y (the cuts are the real axis beyond -1 and 1, and the sign of a zero y tells
 * their sides).
 * Error: 0.501 ulp in each part.
 * Special: arccos(+-0 + iy) = (pi/2, -arsinh y). Infinite parts give the multiple of pi/4 that is the angle
 * of z's direction, turned into [0, pi], and an infinite imaginary part. A NaN gives (NaN, NaN), but x = +-0
 * keeps (pi/2, NaN), infinite y (NaN, -y) and infinite x (NaN, inf). Raises nothing but invalid, for a
 * signalling NaN.
 * Method: cacosf_scalar in all tiers. */
zelk_cfloat2 __zelk_cacosf2(zelk_cfloat2 z);

/* arccos z of one complex number with binary32 or binary64 parts.
 * Error: 0.501 ulp in each part.
 * Special: as __zelk_cacosf2.
 * Method: from the distances of z to 1 and -1 (Hull, Fairgrieve and Tang), in binary64 and in extended
 * precision. Needs the x87 precision control at 64 bits, as the platform has it. */
zelk_complex_float cacosf_scalar(zelk_complex_float z);
zelk_complex_double cacos_scalar(zelk_complex_double z);

/* Functions that are not provided. These routines stand for the names: each returns its argument unchanged,
 * bit for bit, whatever it is (the powers their first argument), and raises nothing. They do not compute the
 * function. */

zelk_cfloat2 __zelk_cacoshf2(zelk_cfloat2 z);
zelk_cfloat2 __zelk_casinf2(zelk_cfloat2 z);
zelk_cfloat2 __zelk_casinhf2(zelk_cfloat2 z);
zelk_cfloat2 __zelk_catanf2(zelk_cfloat2 z);
zelk_cfloat2 __zelk_catanhf2(zelk_cfloat2 z);
zelk_cfloat2 __zelk_ccosf2(zelk_cfloat2 z);
zelk_cfloat2 __zelk_ccoshf2(zelk_cfloat2 z);
zelk_cfloat2 __zelk_clog10f2(zelk_cfloat2 z);
zelk_cfloat2 __zelk_clog2f2(zelk_cfloat2 z);
zelk_cfloat2 __zelk_csinf2(zelk_cfloat2 z);
zelk_cfloat2 __zelk_csinhf2(zelk_cfloat2 z);
zelk_cfloat2 __zelk_ctanf2(zelk_cfloat2 z);
zelk_cfloat2 __zelk_ctanhf2(zelk_cfloat2 z);
zelk_cfloat2 __zelk_cpowf2(zelk_cfloat2 z, zelk_cfloat2 w);

zelk_complex_double cacosh_scalar(zelk_complex_double z);
zelk_complex_double casin_scalar(zelk_complex_double z);
zelk_complex_double casinh_scalar(zelk_complex_double z);
zelk_complex_double catan_scalar(zelk_complex_double z);
zelk_complex_double catanh_scalar(zelk_complex_double z);
zelk_complex_double ccos_scalar(zelk_complex_double z);
zelk_complex_double ccosh_scalar(zelk_complex_double z);
zelk_complex_double clog10_scalar(zelk_complex_double z);
zelk_complex_double clog2_scalar(zelk_complex_double z);
zelk_complex_double csin_scalar(zelk_complex_double z);
zelk_complex_double csinh_scalar(zelk_complex_double z);
zelk_complex_double ctan_scalar(zelk_complex_double z);
zelk_complex_double ctanh_scalar(zelk_complex_double z);
zelk_complex_double cpow_scalar(zelk_complex_double z, zelk_complex_double w);

zelk_complex_float cacoshf_scalar(zelk_complex_float z);
zelk_complex_float casinf_scalar(zelk_complex_float z);
zelk_complex_float casinhf_scalar(zelk_complex_float z);
zelk_complex_float catanf_scalar(zelk_complex_float z);
zelk_complex_float catanhf_scalar(zelk_complex_float z);
zelk_complex_float ccosf_scalar(zelk_complex_float z);
zelk_complex_float ccoshf_scalar(zelk_complex_float z);
zelk_complex_float clog10f_scalar(zelk_complex_float z);
zelk_complex_float clog2f_scalar(zelk_complex_float z);
zelk_complex_float csinf_scalar(zelk_complex_float z);
zelk_complex_float csinhf_scalar(zelk_complex_float z);
zelk_complex_float ctanf_scalar(zelk_complex_float z);
zelk_complex_float ctanhf_scalar(zelk_complex_float z);
zelk_complex_float cpowf_scalar(zelk_complex_float z, zelk_complex_float w);

/* Magnitudes and signs. */

/* |x|, exact. A NaN gives the quieted NaN with its sign cleared, a signalling one raises invalid. */
double fabs_scalar(double x);

/* |x| with the sign of y, exact. A signalling NaN in either place raises invalid; x is quieted. */
double copysign_scalar(double x, double y);

/* |x| with the sign of y, exact, NaNs included; raises nothing. (On i386 a signalling NaN meets the x87, in
 * whose register results are returned: it raises invalid and is quieted.) */
float copysignf_scalar(float x, float y);

ZELK_END_DECLARATIONS

#endif
