// Complex functions on two binary32 numbers by the scalar routine, lane 0 first.
#pragma once

#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

// A lane travels as 64 bits: signalling NaNs stay as they are.
ZELK_INLINE complex_float complex_lane(float4 z, int lane)
{
    return __builtin_bit_cast(complex_float, ((long2)z)[lane]);
}
ZELK_INLINE float4 with_complex_lane(float4 z, int lane, complex_float value)
{
    long2 bits = (long2)z;
    bits[lane] = __builtin_bit_cast(std::int64_t, value);
    return (float4)bits;
}

template <class Routine>
ZELK_INLINE float4 lane_loop(float4 z, Routine routine)
{
    for (int lane = 0; lane < 2; ++lane)
        z = with_complex_lane(z, lane, routine(complex_lane(z, lane)));
    return z;
}
template <class Routine>
ZELK_INLINE float4 lane_loop(float4 z, float4 w, Routine routine)
{
    for (int lane = 0; lane < 2; ++lane)
        z = with_complex_lane(z, lane, routine(complex_lane(z, lane), complex_lane(w, lane)));
    return z;
}

} // namespace zelk::ZELK_TIER
