/* Scalar functions that GCC turns into vector calls in loops:
 *
 *     #pragma omp simd
 *     for (i = 0; i < n; ++i)
 *         y[i] = zelk_sinf(x[i]);
 *
 * with -O2 -fopenmp-simd, or the plain loop with -O3. Link with libzelk_simd and libzelk.
 *
 * A scalar call computes the vector entry with its argument in every lane, so the elements left over from the
 * last whole vector have the bits that a vector of such arguments has. Errors and special arguments stand
 * with the entry: zelk_expf is __zelk_expf4, zelk_exp is __zelk_exp2. Names follow <math.h>.
 *
 * The functions are declared without side effects, as loops of vector calls need it: a compiler may move or
 * drop a call whose result is not used, and with it the exception flags that it would raise. */
#ifndef ZELK_VECTORIZE_H
#define ZELK_VECTORIZE_H

#include "zelk/types.h"

ZELK_BEGIN_DECLARATIONS

/* GCC's attribute says what `#pragma omp declare simd notinbranch` says, without asking for an OpenMP option.
 */
#if defined(__GNUC__) && !defined(__clang__)
#define ZELK_VECTOR_FORMS __attribute__((__simd__("notinbranch"), __const__, __nothrow__))
#else
#define ZELK_VECTOR_FORMS __attribute__((__const__, __nothrow__))
#endif
#define ZELK_VECTORIZED(arguments, name) ZELK_VECTORIZED_##arguments(name)
#define ZELK_VECTORIZED_1(name)                                                                              \
    ZELK_VECTOR_FORMS float zelk_##name##f(float x);                                                         \
    ZELK_VECTOR_FORMS double zelk_##name(double x);
#define ZELK_VECTORIZED_2(name)                                                                              \
    ZELK_VECTOR_FORMS float zelk_##name##f(float x, float y);                                                \
    ZELK_VECTOR_FORMS double zelk_##name(double x, double y);

/* One line for zelk_<name>f and zelk_<name>. */
ZELK_VECTORIZED(1, sin)
ZELK_VECTORIZED(1, cos)
ZELK_VECTORIZED(1, tan)
ZELK_VECTORIZED(1, exp)
ZELK_VECTORIZED(1, exp2)
ZELK_VECTORIZED(1, log)
ZELK_VECTORIZED(1, log2)
ZELK_VECTORIZED(1, log10)
ZELK_VECTORIZED(2, pow)
ZELK_VECTORIZED(1, asin)
ZELK_VECTORIZED(1, acos)
ZELK_VECTORIZED(1, atan)
ZELK_VECTORIZED(2, atan2)
ZELK_VECTORIZED(1, sinh)
ZELK_VECTORIZED(1, cosh)
ZELK_VECTORIZED(1, tanh)
ZELK_VECTORIZED(1, asinh)
ZELK_VECTORIZED(1, acosh)
ZELK_VECTORIZED(1, atanh)
ZELK_VECTORIZED(1, sqrt)
ZELK_VECTORIZED(1, invsqrt)
ZELK_VECTORIZED(1, cbrt)
ZELK_VECTORIZED(1, invcbrt)
ZELK_VECTORIZED(1, erf)
ZELK_VECTORIZED(1, erfc)
ZELK_VECTORIZED(1, ceil)
ZELK_VECTORIZED(1, floor)
ZELK_VECTORIZED(1, trunc)
ZELK_VECTORIZED(1, round)
ZELK_VECTORIZED(1, rint)
ZELK_VECTORIZED(1, nearbyint)

#undef ZELK_VECTORIZED
#undef ZELK_VECTORIZED_1
#undef ZELK_VECTORIZED_2
#undef ZELK_VECTOR_FORMS

ZELK_END_DECLARATIONS

#endif
