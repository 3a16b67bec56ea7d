/* Functions of 80-bit extended numbers (long double): these, the binary64 logarithms made of them, and the
 * tables that they read. */
#ifndef ZELK_EXTENDED_H
#define ZELK_EXTENDED_H

#include "zelk/types.h"

ZELK_BEGIN_DECLARATIONS

/* Conventions. Arguments and results are the platform's long double. Errors are in ulp of the 80-bit format,
 * in round to nearest with the x87 precision control at 64 bits; in the directed modes they are below 1.15
 * ulp. At 53 or 24 bits results are no better than that precision. Flags are raised in the x87 status word. A
 * quiet NaN gives a NaN; a signalling one and the encodings that the processor does not support (unnormals,
 * pseudo-infinities, pseudo-NaNs) give NaN and raise invalid. Pseudo-denormals count as the number that they
 * stand for. The x87 control word is never written. */

/* Exponential, logarithm, hyperbolic and power functions. */

/* |x|, exact. Nothing is raised: a NaN keeps its payload, and a signalling one stays signalling.
 * Method: the x87 instruction. */
long double fabsl_scalar(long double x);

/* e^x. Error: 0.504 ulp, denormal results included.
 * Special: +inf gives +inf, -inf gives +0; above 11356.5 overflow, below -11399.5 underflow to 0, with their
 * flags. Method: multiples of ln2/256 taken off, a table of 2^(j/256), the Taylor polynomial of degree 7. */
long double expl_scalar(long double x);

/* ln x, x > 0. Error: 0.502 ulp.
 * Special: +-0 gives -inf and raises divide-by-zero; x < 0 gives NaN and raises invalid; 1 gives +0 in every
 * rounding mode; +inf gives +inf. Method: exponent, a table of 256 reciprocals and their logarithms, a
 * polynomial of degree 8 in pieces of binary64; a polynomial alone next to 1. */
long double logl_scalar(long double x);

/* ln(1 + x), x > -1. Error: 0.502 ulp.
 * Special: +-0 gives +-0; -1 gives -inf and raises divide-by-zero; x < -1 gives NaN and raises invalid; +inf
 * gives +inf. Method: logl_scalar's with 1 + x as two binary64. */
long double log1pl_scalar(long double x);

/* ln x and ln(1 + x) in binary64. Error: 0.504 ulp; tier A on 32-bit x86: 0.501 ulp.
 * Special: as logl_scalar and log1pl_scalar, with flags in the x87 status word.
 * Method: exponent, a table of 256 reciprocals and their logarithms in two parts, a polynomial of degree 7 in
 * binary64; that alone next to the zero. Tier A on 32-bit x86, subnormal and special arguments: the 80-bit
 * functions, rounded. */
double log_scalar(double x);
double log1p_scalar(double x);

/* sinh x, cosh x, tanh x. Errors: 0.52, 0.504, 0.52 ulp.
 * Special: +-0 gives +-0 (cosh 1); +-inf gives +-inf (cosh +inf, tanh +-1); above 11357.2 sinh and cosh
 * overflow. Method: polynomials below 1/8; e^x and e^-x of one reduction; tanh = 1 - 2/(e^2x + 1) in pieces
 * of binary64. */
long double sinhl_scalar(long double x);
long double coshl_scalar(long double x);
long double tanhl_scalar(long double x);

/* Stores sinh x and cosh x, the bits of the two routines above, as two numbers of 10 bytes each. */
void sinhcoshl_scalar(long double* sinh_x, long double* cosh_x, long double x);

/* asinh x; acosh x, x >= 1; atanh x, |x| <= 1. Errors: 0.502, 0.502, 0.503 ulp.
 * Special: +-0 gives +-0; asinh +-inf gives +-inf; acosh 1 gives +0, +inf gives +inf; atanh +-1 gives +-inf
 * and raises divide-by-zero; outside the domain NaN and invalid. Method: polynomials below 1/16, above
 * the logarithm of a binary64 next to the exact argument and a correction. */
long double asinhl_scalar(long double x);
long double acoshl_scalar(long double x);
long double atanhl_scalar(long double x);

/* x^y. Error: 0.505 ulp over the whole range, denormal arguments and results included. Powers that are
 * numbers of the format are exact in round to nearest; in every mode and without a flag when x or 1/x is a
 * power of two, y is 1/2, or y is an integer and the power has at most 64 bits. Special: x^+-0 and 1^y give
 * 1, for a quiet NaN too; (-1)^+-inf gives 1; x < 0 with y not an integer gives NaN and raises invalid; +-0
 * with finite y < 0 gives +inf, -inf for -0 and odd y, and raises divide-by-zero; the remaining zeros and
 * infinities as their limits, with the sign of x for odd y. Method: y ln x as a pair of numbers, relative
 * error 2^-82, then the exponential. */
long double powl_scalar(long double x, long double y);

/* Circular functions and their inverses, in radians and degrees. */

/* sin x, x in radians, any finite x. Error: 0.55 ulp.
 * Special: sin +-0 = +-0; an infinity gives NaN and raises invalid.
 * Method: reduction by multiples of pi/512 in two parts, from 2^10 on and next to zeros of the result by the
 * digits of 2/pi in integer arithmetic, which is exact; then a table of sine and cosine in steps of pi/512
 * and Taylor polynomials of the rest. */
long double sinl_scalar(long double x);

/* cos x, x in radians, any finite x. Error: 0.55 ulp.
 * Special: an infinity gives NaN and raises invalid; cos 0 = 1.
 * Method: as sinl_scalar. */
long double cosl_scalar(long double x);

/* tan x, x in radians, any finite x. Error: 0.56 ulp.
 * Special: tan +-0 = +-0; an infinity gives NaN and raises invalid. No 80-bit number is a pole.
 * Method: the quotient of sine and cosine as sinl_scalar has them before rounding. */
long double tanl_scalar(long double x);

/* sinl_scalar(x) and cosl_scalar(x) at once, with their bits, stored through the two pointers. */
void sincosl_scalar(long double x, long double* sine, long double* cosine);

/* The octant of x, any finite x: floor(x 4/pi) modulo 8. Stored: x - n pi/2 for the nearest n, which is
 * (octant + 1) / 2 modulo 4; at most pi/4 in magnitude, as two binary64 of which the first is the sum
 * rounded. Error: 2^-93 of the reduced argument; below pi/4 it is x itself, as far as two binary64 can hold
 * it. Beyond pi/4, none is below 2^-75.6. Special: infinities and NaNs give 0 and two NaNs; an infinity
 * raises invalid. Method: digits of 2/pi in integer arithmetic, as sinl_scalar. */
int reduce_pi04l(long double x, double reduced[2]);

/* sin x and cos x, x in degrees, any finite x. Error: 0.59 ulp, denormal results 0.501.
 * Exact at whole multiples of 30 degrees where the value is rational; no flag then. sin(+-180 n) = +-0, n >
 * 0; cos(90 + 180 n) = +0. Special: an infinity gives NaN and raises invalid. Method: whole degrees modulo
 * 360 in integer arithmetic, _rop_sindl_cosdl_table, Taylor polynomials of the rest. */
long double sindl_scalar(long double x);
long double cosdl_scalar(long double x);

/* atan x in radians, any x. Error: 0.53 ulp, denormal results 0.5001.
 * Special: atan +-0 = +-0, atan +-infinity = +-pi/2.
 * Method: the direction of (1, x), as atan2l_scalar. */
long double atanl_scalar(long double x);

/* The angle of the point (x, y), in radians (atan2l_scalar) and in degrees (atan2dl_scalar), from -pi to pi.
 * Error: 0.54 ulp, denormal results 0.5001. Special: as in IEEE 754: zeros and infinities are taken with
 * their signs, atan2(+-0, +0) = +-0, atan2(+-0, -0) =
 * +-pi, atan2(+-infinity, -infinity) = +-3 pi/4; nothing is raised but by a signalling NaN. In degrees,
 * multiples of 45 are exact. Method: the nearest of 513 points along three sides of a square
 * (_rop_atanl_table_128, _rop_atandl_table_128) and the arc tangent of the small angle between, whose tangent
 * has an exact numerator. */
long double atan2l_scalar(long double y, long double x);
long double atan2dl_scalar(long double y, long double x);

/* asin x and acos x in radians, |x| <= 1. Error: 0.53 and 0.54 ulp.
 * Special: asin +-0 = +-0, acos 1 = +0; |x| > 1 gives NaN and raises invalid.
 * Method: asin c from a table and the arc sine of (x^2 - c^2)/(x sqrt(1 - c^2) + c sqrt(1 - x^2)); below 1/8
 * a polynomial, from 15/16 on 2 asin sqrt((1 - x)/2). */
long double asinl_scalar(long double x);
long double acosl_scalar(long double x);

/* Tables. A pair of binary64 stands for its sum; hi is the value rounded to binary64, lo the rest rounded
 * likewise. */

/* r_j: 1/(1 + (j + 0.5)/256) to the nearest multiple of 2^-11. */
extern const float _rop_rcp_table_256[256];
extern const double _rop_double_rcp_table_256[256];
/* -ln r_j: lo, then hi with only the upper 32 bits of a binary64. */
extern const double _rop_log_table_256[256][2];
/* -ln r_j: hi, lo. */
extern const double _rop_logl_table_256[256][2];
/* 2^((j - 128)/256): hi, lo. */
extern const double _rop_expl_table_256[257][2];
/* Polar angles of the points that step by 1/128 along x = 1 from (1, 0) to (1, 1), along y = 1 to (-1, 1) and
 * along x = -1 to (-1, 0), in radians and in degrees: hi, lo. */
extern const double _rop_atanl_table_128[513][2];
extern const double _rop_atandl_table_128[513][2];
/* Of j degrees: sin hi, sin lo, cos hi, cos lo. */
extern const double _rop_sindl_cosdl_table[90][4];

ZELK_END_DECLARATIONS

#endif
