/* Functions of complex numbers, on two binary32 numbers at a time and one by one, and the small scalar
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

/* Logarithm. */

/* ln z = ln |z| + i arg z on two complex numbers with binary32 parts, z = x + iy, arg z = atan2(y, x) in
 * [-pi, pi]. Error: 0.51 ulp in the real part, 0.842 for ||z|^2 - 1| < 0.03; 2.45 in the angle (tier A: 0.501
 * in each part). Special: zero z gives -inf and the angle of its signs; an infinite part gives +inf, and the
 * angle or, beside a NaN, NaN; otherwise a NaN gives (NaN, NaN). Raises nothing but invalid, for a signalling
 * NaN. Method: ln |z|^2 in binary64 by table, near one by a polynomial in |z|^2 - 1; degree-17 odd polynomial
 * of the smaller part over the larger in binary32. Tier A, and numbers with an infinite part or a NaN:
 * clogf_scalar. */
zelk_cfloat2 __zelk_clogf2(zelk_cfloat2 z);

/* ln z of one complex number with binary32 parts. Error: 0.501 ulp in each part. Special: as __zelk_clogf2.
 * Method: as __zelk_clogf2, all in binary64. */
zelk_complex_float clogf_scalar(zelk_complex_float z);

/* Square root. */

/* sqrt z on two complex numbers with binary32 parts, z = x + iy: the root with a real part >= 0, its
 * imaginary part with the sign of y (the cut is the negative real axis, and the sign of a zero y tells its
 * sides). Error: 0.52 ulp in each part (0.501 in tier A). Special: infinite y gives (inf, y) whatever x is;
 * -inf gives (+0, +-inf), +inf gives (inf, +-0), with the sign of y; beside a NaN y they give (NaN, inf) and
 * (inf, NaN); otherwise a NaN gives (NaN, NaN). A signalling NaN raises invalid unless y is infinite. A
 * denormal part of the result raises underflow, be it exact, in numbers that have a part that is zero,
 * subnormal or 2^-126, and in tier A in all. Method: t = sqrt((|z| + |x|)/2) in binary64 from the processor's
 * reciprocal square root estimate, corrected; the other part is |y|/2t. Tier A, and numbers with a zero,
 * subnormal or special part: csqrtf_scalar. */
zelk_cfloat2 __zelk_csqrtf2(zelk_cfloat2 z);

/* sqrt z of one complex number with binary32 parts. Error: 0.501 ulp in each part. Special: as
 * __zelk_csqrtf2; a denormal part of the result always raises underflow. Method: in binary64, square root and
 * division (tier A) or reciprocal square root (tier L). */
zelk_complex_float csqrtf_scalar(zelk_complex_float z);

/* sqrt z of one complex number with binary64 parts. Error: 0.501 ulp in each part. Special: as csqrtf_scalar.
 * Method: in extended precision; needs the x87 precision control at 64 bits, as the platform has it. */
zelk_complex_double csqrt_scalar(zelk_complex_double z);

/* Arc cosine. */

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
