// The parts of two complex numbers in a vector: re0, im0, re1, im1.
#pragma once

#include "lanes/lanes.h"

namespace zelk::ZELK_TIER {

// (re0, re1, re0, re1) and (im0, im1, im0, im1).
ZELK_INLINE float4 real_parts(float4 z)
{
    return as_float4(even_words(as_int4(z), as_int4(z)));
}
ZELK_INLINE float4 imag_parts(float4 z)
{
    return as_float4(odd_words(as_int4(z), as_int4(z)));
}
// Back from the two low lanes of both, or from binary64.
ZELK_INLINE float4 interleave(float4 re, float4 im)
{
    return _mm_unpacklo_ps(re, im);
}
ZELK_INLINE float4 interleave(double2 re, double2 im)
{
    return interleave(_mm_cvtpd_ps(re), _mm_cvtpd_ps(im));
}

// (re0, re0, re1, re1) and (im0, im0, im1, im1).
ZELK_INLINE float4 real_parts_twice(float4 z)
{
    return _mm_shuffle_ps(z, z, 0xA0);
}
ZELK_INLINE float4 imag_parts_twice(float4 z)
{
    return _mm_shuffle_ps(z, z, 0xF5);
}

// All ones in both parts of the numbers that have a part where the mask is all ones.
ZELK_INLINE int4 either_part(int4 mask)
{
    return mask | (int4)_mm_shuffle_epi32((__m128i)mask, 0xB1);
}
// Whether number 0 or 1 is marked by such a mask.
ZELK_INLINE bool has_number(int4 mask, int number)
{
    return lane_mask(mask) >> 2 * number & 1;
}

} // namespace zelk::ZELK_TIER
