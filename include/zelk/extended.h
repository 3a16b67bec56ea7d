/* Functions of 80-bit extended numbers (long double), the binary64 logarithms made of them, and the tables that they
 * read. */
#ifndef ZELK_EXTENDED_H
#define ZELK_EXTENDED_H

#include "zelk/types.h"

ZELK_BEGIN_DECLARATIONS

/* Arguments and results are the platform's long double. Errors are in ulp of the 80-bit format, for the x87 precision
 * control at 64 bits; at 53 or 24 bits results are no better than that precision. Flags are the x87's. Encodings that
 * the format does not support (unnormals, pseudo-infinities, pseudo-NaNs) are invalid operands: they give NaN and
 * raise invalid; pseudo-denormals count as the number that they stand for. */

/* Exponential, logarithm, hyperbolic and power functions. */

/* |x|, exact. A NaN keeps its payload, and a signalling one stays signalling: nothing is raised. */
long double fabsl_scalar(long double x);

/* Circular functions and their inverses, in radians and degrees. */

/* Tables. A pair of binary64 stands for its sum; hi is the value rounded to binary64, lo the rest rounded likewise. */

/* r_j: 1/(1 + (j + 0.5)/256) to the nearest multiple of 2^-11. */
extern const float _rop_rcp_table_256[256];
extern const double _rop_double_rcp_table_256[256];
/* -ln r_j: lo, then hi with only the upper 32 bits of a binary64. */
extern const double _rop_log_table_256[256][2];
/* -ln r_j: hi, lo. */
extern const double _rop_logl_table_256[256][2];
/* 2^((j - 128)/256): hi, lo. */
extern const double _rop_expl_table_256[257][2];
/* Polar angles of the points that step by 1/128 along x = 1 from (1, 0) to (1, 1), along y = 1 to (-1, 1) and along
 * x = -1 to (-1, 0), in radians and in degrees: hi, lo. */
extern const double _rop_atanl_table_128[513][2];
extern const double _rop_atandl_table_128[513][2];
/* Of j degrees: sin hi, sin lo, cos hi, cos lo. */
extern const double _rop_sindl_cosdl_table[90][4];

ZELK_END_DECLARATIONS

#endif
