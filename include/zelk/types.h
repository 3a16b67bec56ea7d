/* The lane vectors. Lane 0 is the lowest-addressed element. */
#ifndef ZELK_TYPES_H
#define ZELK_TYPES_H

#include <emmintrin.h>

typedef __m128 zelk_float4;   /* four binary32 */
typedef __m128d zelk_double2; /* two binary64 */
typedef __m128 zelk_cfloat2;  /* two complex binary32: re0, im0, re1, im1 */
typedef __m128i zelk_int4;    /* four signed 32-bit integers */
typedef __m128i zelk_uint4;   /* four unsigned 32-bit integers */

#ifdef __cplusplus
#define ZELK_BEGIN_DECLARATIONS extern "C" {
#define ZELK_END_DECLARATIONS }
#else
#define ZELK_BEGIN_DECLARATIONS
#define ZELK_END_DECLARATIONS
#endif

#endif
