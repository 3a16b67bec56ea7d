/* The other names of every function: its masked entry, its alias with the masked twin, and its kernels, one
 * per tier.
 *
 * Masked entries take a lane mask after the last argument: a lane of all ones is active, a lane of zeros is
 * not, and has the lanes of the first argument (for complex functions four: real and imaginary parts
 * separately). Inactive lanes are computed at a value inside the function's domain, whatever they hold, so
 * that a call raises only what its active lanes raise. With no active lane there is no call; the result is
 * then the argument as it is, or with its inactive lanes replaced (docs/numerics.md).
 *
 * Aliases are the same function under the name of the vector-math interface.
 *
 * A kernel is the function for one instruction-set tier, for callers that know their processor. Its exported
 * name ends in a point and the tier letter, which C cannot write: __zelk_sinf4_L is the exported
 * __zelk_sinf4.L. x86-64 has the tiers A (SSE2) and L (SSE3), 32-bit x86 besides J (SSE2) and N (SSE4.1); its
 * tier A is SSE and the x87 for float4 and cfloat2, SSE2 for the others. A kernel above what the processor
 * offers traps. Scalar routines with tiers have A and L on x86-64, A and J on 32-bit x86: acos_scalar_A is
 * the exported acos_scalar.A.
 *
 * One line per function here; the functions themselves are declared and described in the headers of their
 * families. */
#ifndef ZELK_ENTRIES_H
#define ZELK_ENTRIES_H

#include "zelk/complex.h"
#include "zelk/types.h"

ZELK_BEGIN_DECLARATIONS

/* Argument lists of functions of one and two arguments, without and with a mask; of those that store a second
 * result. */
#define ZELK_ARGUMENTS_1(T) (T x)
#define ZELK_ARGUMENTS_2(T) (T x, T y)
#define ZELK_MASKED_ARGUMENTS_1(T) (T x, T mask)
#define ZELK_MASKED_ARGUMENTS_2(T) (T x, T y, T mask)
#define ZELK_POINTER_ARGUMENTS_1(T) (T x, T * second)
#define ZELK_POINTER_ARGUMENTS_2(T) (T x, T y, T * second)
#define ZELK_MASKED_POINTER_ARGUMENTS_1(T) (T x, T mask, T * second)
#define ZELK_MASKED_POINTER_ARGUMENTS_2(T) (T x, T y, T mask, T * second)

#define ZELK_KERNEL(T, symbol, tier, arguments) T symbol##_##tier arguments __asm__(#symbol "." #tier);
#if defined(__x86_64__)
#define ZELK_KERNELS_float4(symbol, arguments)                                                               \
    ZELK_KERNEL(zelk_float4, symbol, A, arguments)                                                           \
    ZELK_KERNEL(zelk_float4, symbol, L, arguments)
#define ZELK_KERNELS_double2(symbol, arguments)                                                              \
    ZELK_KERNEL(zelk_double2, symbol, A, arguments)                                                          \
    ZELK_KERNEL(zelk_double2, symbol, L, arguments)
#define ZELK_KERNELS_int4(symbol, arguments)                                                                 \
    ZELK_KERNEL(zelk_int4, symbol, A, arguments)                                                             \
    ZELK_KERNEL(zelk_int4, symbol, L, arguments)
#else
#define ZELK_KERNELS_float4(symbol, arguments)                                                               \
    ZELK_KERNEL(zelk_float4, symbol, A, arguments)                                                           \
    ZELK_KERNEL(zelk_float4, symbol, J, arguments)                                                           \
    ZELK_KERNEL(zelk_float4, symbol, L, arguments)                                                           \
    ZELK_KERNEL(zelk_float4, symbol, N, arguments)
#define ZELK_KERNELS_double2(symbol, arguments)                                                              \
    ZELK_KERNEL(zelk_double2, symbol, A, arguments)                                                          \
    ZELK_KERNEL(zelk_double2, symbol, L, arguments)                                                          \
    ZELK_KERNEL(zelk_double2, symbol, N, arguments)
#define ZELK_KERNELS_int4(symbol, arguments)                                                                 \
    ZELK_KERNEL(zelk_int4, symbol, A, arguments)                                                             \
    ZELK_KERNEL(zelk_int4, symbol, J, arguments)                                                             \
    ZELK_KERNEL(zelk_int4, symbol, L, arguments)                                                             \
    ZELK_KERNEL(zelk_int4, symbol, N, arguments)
#endif
#define ZELK_KERNELS_cfloat2(symbol, arguments) ZELK_KERNELS_float4(symbol, arguments)
#define ZELK_KERNELS_uint4(symbol, arguments) ZELK_KERNELS_int4(symbol, arguments)

/* A function of n arguments: masked entry and kernels. */
#define ZELK_FUNCTION(n, lanes, symbol)                                                                      \
    zelk_##lanes symbol##_mask ZELK_MASKED_ARGUMENTS_##n(zelk_##lanes);                                      \
    ZELK_KERNELS_##lanes(symbol, ZELK_ARGUMENTS_##n(zelk_##lanes))
/* The same with an alias. */
#define ZELK_ALIASED(n, lanes, symbol, alias)                                                                \
    ZELK_FUNCTION(n, lanes, symbol)                                                                          \
    zelk_##lanes alias ZELK_ARGUMENTS_##n(zelk_##lanes);                                                     \
    zelk_##lanes alias##Mask ZELK_MASKED_ARGUMENTS_##n(zelk_##lanes);
/* A function that stores its second result, 16 bytes at a 16-byte-aligned address. Its masked entry stores
 * nothing when no lane is active. */
#define ZELK_STORING(n, lanes, symbol)                                                                       \
    zelk_##lanes symbol##Mask ZELK_MASKED_POINTER_ARGUMENTS_##n(zelk_##lanes);                               \
    ZELK_KERNELS_##lanes(symbol, ZELK_POINTER_ARGUMENTS_##n(zelk_##lanes))

/* The final 2 of a double2 name is the number of lanes:
 * __zelk_exp2 is e^x, __zelk_log2 is ln x, __zelk_atan2 is the arc tangent of one argument. */

/* Sine and cosine. */
ZELK_ALIASED(1, float4, __zelk_sinf4, ropsSin4)
ZELK_ALIASED(1, float4, __zelk_cosf4, ropsCos4)

/* Double precision sine and cosine. */
ZELK_ALIASED(1, double2, __zelk_sin2, ropdSin2)
ZELK_ALIASED(1, double2, __zelk_cos2, ropdCos2)

/* Tangent, sine-cosine pairs. */
ZELK_ALIASED(1, float4, __zelk_tanf4, ropsTan4)
ZELK_ALIASED(1, double2, __zelk_tan2, ropdTan2)
ZELK_FUNCTION(1, float4, __zelk_sincosf4)
ZELK_FUNCTION(1, double2, __zelk_sincos2)
ZELK_STORING(1, float4, ropsSinCos4)
ZELK_STORING(1, double2, ropdSinCos2)

/* Single precision exponentials. */
ZELK_ALIASED(1, float4, __zelk_expf4, ropsExp4)
ZELK_ALIASED(1, float4, __zelk_exp2f4, ropsExp24)

/* Single precision logarithms and power. */
ZELK_ALIASED(1, float4, __zelk_logf4, ropsLn4)
ZELK_ALIASED(1, float4, __zelk_log2f4, ropsLog24)
ZELK_ALIASED(1, float4, __zelk_log10f4, ropsLog104)
ZELK_ALIASED(2, float4, __zelk_powf4, ropsPow4)

/* Double precision exponentials. */
ZELK_ALIASED(1, double2, __zelk_exp2, ropdExp2)
ZELK_ALIASED(1, double2, __zelk_exp22, ropdExp22)

/* Double precision logarithms. */
ZELK_ALIASED(1, double2, __zelk_log2, ropdLn2)
ZELK_ALIASED(1, double2, __zelk_log22, ropdLog22)
ZELK_ALIASED(1, double2, __zelk_log102, ropdLog102)

/* Double precision power. */
ZELK_ALIASED(2, double2, __zelk_pow2, ropdPow2)

/* Arc sine and arc cosine. */
ZELK_ALIASED(1, float4, __zelk_acosf4, ropsAcos4)
ZELK_ALIASED(1, double2, __zelk_acos2, ropdAcos2)
ZELK_ALIASED(1, float4, __zelk_asinf4, ropsAsin4)
ZELK_ALIASED(1, double2, __zelk_asin2, ropdAsin2)

/* Arc tangent. */
ZELK_ALIASED(1, float4, __zelk_atanf4, ropsAtan4)
ZELK_ALIASED(1, double2, __zelk_atan2, ropdAtan2)
ZELK_ALIASED(2, float4, __zelk_atan2f4, ropsAtan24)
ZELK_ALIASED(2, double2, __zelk_atan22, ropdAtan22)

/* sinh, cosh, tanh. */
ZELK_ALIASED(1, float4, __zelk_sinhf4, ropsSinh4)
ZELK_ALIASED(1, double2, __zelk_sinh2, ropdSinh2)
ZELK_ALIASED(1, float4, __zelk_coshf4, ropsCosh4)
ZELK_ALIASED(1, double2, __zelk_cosh2, ropdCosh2)
ZELK_ALIASED(1, float4, __zelk_tanhf4, ropsTanh4)
ZELK_ALIASED(1, double2, __zelk_tanh2, ropdTanh2)

/* asinh, acosh, atanh. */
ZELK_ALIASED(1, float4, __zelk_asinhf4, ropsAsinh4)
ZELK_ALIASED(1, double2, __zelk_asinh2, ropdAsinh2)
ZELK_ALIASED(1, float4, __zelk_acoshf4, ropsAcosh4)
ZELK_ALIASED(1, double2, __zelk_acosh2, ropdAcosh2)
ZELK_ALIASED(1, float4, __zelk_atanhf4, ropsAtanh4)
ZELK_ALIASED(1, double2, __zelk_atanh2, ropdAtanh2)

/* Square roots. */
ZELK_ALIASED(1, float4, __zelk_sqrtf4, ropsSqrt4)
ZELK_ALIASED(1, double2, __zelk_sqrt2, ropdSqrt2)
ZELK_ALIASED(1, float4, __zelk_invsqrtf4, ropsInvSqrt4)
ZELK_ALIASED(1, double2, __zelk_invsqrt2, ropdInvSqrt2)

/* Cube roots. */
ZELK_ALIASED(1, float4, __zelk_cbrtf4, ropsCbrt4)
ZELK_ALIASED(1, double2, __zelk_cbrt2, ropdCbrt2)
ZELK_ALIASED(1, float4, __zelk_invcbrtf4, ropsInvCbrt4)
ZELK_ALIASED(1, double2, __zelk_invcbrt2, ropdInvCbrt2)

/* Error functions. */
ZELK_FUNCTION(1, float4, __zelk_erff4)
ZELK_FUNCTION(1, double2, __zelk_erf2)
ZELK_FUNCTION(1, float4, __zelk_erfcf4)
ZELK_FUNCTION(1, double2, __zelk_erfc2)
ZELK_FUNCTION(1, float4, __zelk_erfinvf4)
ZELK_FUNCTION(1, double2, __zelk_erfinv2)
ZELK_FUNCTION(2, float4, __zelk_hypotf4)
ZELK_FUNCTION(2, double2, __zelk_hypot2)

/* Rounding to integral values. */
ZELK_ALIASED(1, float4, __zelk_ceilf4, ropsCeil4)
ZELK_ALIASED(1, double2, __zelk_ceil2, ropdCeil2)
ZELK_ALIASED(1, float4, __zelk_floorf4, ropsFloor4)
ZELK_ALIASED(1, double2, __zelk_floor2, ropdFloor2)
ZELK_ALIASED(1, float4, __zelk_truncf4, ropsTrunc4)
ZELK_ALIASED(1, double2, __zelk_trunc2, ropdTrunc2)
ZELK_ALIASED(1, float4, __zelk_roundf4, ropsRound4)
ZELK_ALIASED(1, double2, __zelk_round2, ropdRound2)
ZELK_FUNCTION(1, float4, __zelk_rintf4)
ZELK_FUNCTION(1, double2, __zelk_rint2)
ZELK_FUNCTION(1, float4, __zelk_nearbyintf4)
ZELK_FUNCTION(1, double2, __zelk_nearbyint2)

/* Integer division. */
ZELK_ALIASED(2, int4, __zelk_idiv4, ropiDiv4)
ZELK_ALIASED(2, int4, __zelk_irem4, ropiRem4)
ZELK_FUNCTION(2, int4, __zelk_idivrem4)
ZELK_STORING(2, int4, ropiDivRem4)
ZELK_ALIASED(2, uint4, __zelk_udiv4, ropuDiv4)
ZELK_ALIASED(2, uint4, __zelk_urem4, ropuRem4)
ZELK_FUNCTION(2, uint4, __zelk_udivrem4)
ZELK_STORING(2, uint4, ropuDivRem4)

/* Complex. */
ZELK_FUNCTION(1, cfloat2, __zelk_cacosf2)
ZELK_FUNCTION(1, cfloat2, __zelk_cacoshf2)
ZELK_FUNCTION(1, cfloat2, __zelk_casinf2)
ZELK_FUNCTION(1, cfloat2, __zelk_casinhf2)
ZELK_FUNCTION(1, cfloat2, __zelk_catanf2)
ZELK_FUNCTION(1, cfloat2, __zelk_catanhf2)
ZELK_FUNCTION(1, cfloat2, __zelk_ccosf2)
ZELK_FUNCTION(1, cfloat2, __zelk_ccoshf2)
ZELK_FUNCTION(1, cfloat2, __zelk_cexpf2)
ZELK_FUNCTION(1, cfloat2, __zelk_clogf2)
ZELK_FUNCTION(1, cfloat2, __zelk_clog10f2)
ZELK_FUNCTION(1, cfloat2, __zelk_clog2f2)
ZELK_FUNCTION(2, cfloat2, __zelk_cpowf2)
ZELK_FUNCTION(1, cfloat2, __zelk_csinf2)
ZELK_FUNCTION(1, cfloat2, __zelk_csinhf2)
ZELK_FUNCTION(1, cfloat2, __zelk_csqrtf2)
ZELK_FUNCTION(1, cfloat2, __zelk_ctanf2)
ZELK_FUNCTION(1, cfloat2, __zelk_ctanhf2)

/* Scalar routines with tiers: their kernels. clogf_scalar has them on 32-bit x86 alone. */
#if defined(__x86_64__)
#define ZELK_SCALAR_KERNELS(T, name, arguments)                                                              \
    ZELK_KERNEL(T, name, A, arguments)                                                                       \
    ZELK_KERNEL(T, name, L, arguments)
#else
#define ZELK_SCALAR_KERNELS(T, name, arguments)                                                              \
    ZELK_KERNEL(T, name, A, arguments)                                                                       \
    ZELK_KERNEL(T, name, J, arguments)
#endif
ZELK_SCALAR_KERNELS(double, acos_scalar, (double x))
ZELK_SCALAR_KERNELS(double, atan2_scalar, (double y, double x))
ZELK_SCALAR_KERNELS(double, log_scalar, (double x))
ZELK_SCALAR_KERNELS(double, log1p_scalar, (double x))
ZELK_SCALAR_KERNELS(zelk_complex_float, cexpf_scalar, (zelk_complex_float z))
ZELK_SCALAR_KERNELS(zelk_complex_float, csqrtf_scalar, (zelk_complex_float z))
#if !defined(__x86_64__)
ZELK_SCALAR_KERNELS(zelk_complex_float, clogf_scalar, (zelk_complex_float z))
#endif

#undef ZELK_SCALAR_KERNELS
#undef ZELK_FUNCTION
#undef ZELK_ALIASED
#undef ZELK_STORING
#undef ZELK_KERNEL
#undef ZELK_KERNELS_float4
#undef ZELK_KERNELS_double2
#undef ZELK_KERNELS_cfloat2
#undef ZELK_KERNELS_int4
#undef ZELK_KERNELS_uint4
#undef ZELK_ARGUMENTS_1
#undef ZELK_ARGUMENTS_2
#undef ZELK_MASKED_ARGUMENTS_1
#undef ZELK_MASKED_ARGUMENTS_2
#undef ZELK_POINTER_ARGUMENTS_1
#undef ZELK_POINTER_ARGUMENTS_2
#undef ZELK_MASKED_POINTER_ARGUMENTS_1
#undef ZELK_MASKED_POINTER_ARGUMENTS_2

ZELK_END_DECLARATIONS

#endif
