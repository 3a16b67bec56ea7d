/* Entries with two results, for C and C++: the second result is stored through a pointer of any alignment
 * that its type allows. The functions are those that return in XMM0 and XMM1; nothing passes through memory
 * on the way. */
#ifndef ZELK_TWO_RESULTS_H
#define ZELK_TWO_RESULTS_H

#include "zelk/detail/two_results.h"
#include "zelk/entries.h"
#include "zelk/rounding_intdiv.h"
#include "zelk/trig.h"

/* The sine is returned, the cosine stored; errors and special arguments as __zelk_sincosf4 and
 * __zelk_sincos2. */
static __inline__ zelk_float4 zelk_sincosf4(zelk_float4 x, zelk_float4* cosine)
{
    return zelk_call_two_results((zelk_two_result_entry*)__zelk_sincosf4, x, x, x, cosine);
}

static __inline__ zelk_double2 zelk_sincos2(zelk_double2 x, zelk_double2* cosine)
{
    return zelk_call_two_results_pd((zelk_two_result_entry*)__zelk_sincos2, x, x, cosine);
}

/* Lanes that the mask leaves inactive raise nothing and give 0 and 1; with no active lane the cosine is the
 * mask. */
static __inline__ zelk_float4 zelk_sincosf4_mask(zelk_float4 x, zelk_float4 mask, zelk_float4* cosine)
{
    return zelk_call_two_results((zelk_two_result_entry*)__zelk_sincosf4_mask, x, mask, x, cosine);
}

static __inline__ zelk_double2 zelk_sincos2_mask(zelk_double2 x, zelk_double2 mask, zelk_double2* cosine)
{
    return zelk_call_two_results_pd((zelk_two_result_entry*)__zelk_sincos2_mask, x, mask, cosine);
}

/* The quotient is returned, the remainder stored; lanes without a quotient as __zelk_idiv4 and __zelk_udiv4.
 */
static __inline__ zelk_int4 zelk_idivrem4(zelk_int4 a, zelk_int4 b, zelk_int4* remainder)
{
    return zelk_call_two_results_epi32((zelk_two_result_entry*)__zelk_idivrem4, a, b, b, remainder);
}

static __inline__ zelk_uint4 zelk_udivrem4(zelk_uint4 a, zelk_uint4 b, zelk_uint4* remainder)
{
    return zelk_call_two_results_epi32((zelk_two_result_entry*)__zelk_udivrem4, a, b, b, remainder);
}

/* Inactive lanes divide 0 by 1; with no active lane the remainder is the divisor with its inactive lanes
 * replaced by 1. */
static __inline__ zelk_int4 zelk_idivrem4_mask(zelk_int4 a, zelk_int4 b, zelk_int4 mask, zelk_int4* remainder)
{
    return zelk_call_two_results_epi32((zelk_two_result_entry*)__zelk_idivrem4_mask, a, b, mask, remainder);
}

static __inline__ zelk_uint4 zelk_udivrem4_mask(zelk_uint4 a, zelk_uint4 b, zelk_uint4 mask,
                                                zelk_uint4* remainder)
{
    return zelk_call_two_results_epi32((zelk_two_result_entry*)__zelk_udivrem4_mask, a, b, mask, remainder);
}

#endif
