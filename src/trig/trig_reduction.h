// Reduction of arguments of any size by multiples of pi/2, for tangent and the sine-cosine pairs:
// |x| = quadrant pi/2 + r with |r| <= pi/4 and a little. Only the two low bits of a quadrant mean anything.
//
// Arguments below 2^30 are reduced in vectors (reduce_medium); any finite argument by a scalar routine, lane
// by lane (reduce_lanes), or as it does two binary32 numbers at a time (reduce_huge.h). All take magnitudes:
// the caller puts the sign of x back.
#pragma once

#include "lanes/lanes.h"
#include "tables/trig_reduction.h"
#include "trig/subtract_multiple.h"

namespace zelk::ZELK_TIER {

// The scalar routines: one copy in the library (compiled for tier A), not exported. They store r, a single
// binary64 within about an ulp of the exact reduced argument, for any finite x >= 0; infinities and NaNs give
// a NaN and 0, an infinity raises invalid.
//
// Sine (cosine) mode: n, the multiple of pi/2 subtracted, is even (odd), |r| <= pi/2 and a little; the result
// is the sign bit by which sin x (cos x) differs from sin r. Quadrant mode: the result is the quadrant.
#if defined(__x86_64__)
enum ReductionMode : std::int32_t { sine_mode = 0, cosine_mode = 1, quadrant_mode = 2 };
[[gnu::visibility("hidden")]] std::int32_t __zelk_trig_reduction(double* r, std::int32_t mode,
                                                                 double x) asm("__zelk_trig_reduction");
#else
[[gnu::visibility("hidden")]] std::int32_t __zelk_sin_reduction_LA(double* r,
                                                                   double x) asm("__zelk_sin_reduction_LA");
[[gnu::visibility("hidden")]] std::int32_t __zelk_cos_reduction_LA(double* r,
                                                                   double x) asm("__zelk_cos_reduction_LA");
[[gnu::visibility("hidden")]] std::int32_t __zelk_pi04_reduction_LA(double* r,
                                                                    double x) asm("__zelk_pi04_reduction_LA");
#endif

ZELK_INLINE std::int32_t reduce_to_quadrant(double* r, double magnitude)
{
#if defined(__x86_64__)
    return __zelk_trig_reduction(r, quadrant_mode, magnitude);
#else
    return __zelk_pi04_reduction_LA(r, magnitude);
#endif
}

struct QuadrantReducedf4 {
    float4 r;
    int4 quadrant;
};
struct QuadrantReduced2 {
    double2 r;
    long2 quadrant;
};

// Replaces the lanes of `lanes`, a lane mask, by the scalar reduction of their magnitudes, lane 0 first.
ZELK_INLINE QuadrantReduced2 reduce_lanes(double2 magnitude, unsigned lanes, QuadrantReduced2 others)
{
    for (int lane = 0; lanes != 0; ++lane, lanes >>= 1) {
        if (!(lanes & 1)) continue;
        double r;
        others.quadrant[lane] = reduce_to_quadrant(&r, magnitude[lane]);
        others.r[lane] = r;
    }
    return others;
}

ZELK_INLINE QuadrantReduced2 reduce_every_lane(double2 magnitude)
{
    return reduce_lanes(magnitude, all_lanes2, {double2{}, long2{}});
}

// n is the even one of trunc(4/pi |x|) and its successor, so that n pi/4 is the nearest multiple of pi/2.
ZELK_INLINE int4 nearest_even_multiple(double2 magnitude, const tables::TrigReduction& k)
{
    return (trunc_to_int(magnitude * k.dbInvPio4) + k.dbiOne) & k.MSK_LOW_BIT;
}

// |x| <= 2^30 in every lane.
ZELK_INLINE QuadrantReduced2 reduce_medium(double2 magnitude)
{
    const auto& k = tables::trig_reduction;
    const int4 n = nearest_even_multiple(magnitude, k);
    return {subtract_multiple(magnitude, to_double2(n), k._PI04_21x5), zero_extend_low(n >> 1)};
}
ZELK_INLINE QuadrantReducedf4 reduce_medium(float4 magnitude)
{
    const auto& k = tables::trig_reduction;
    const double2 low = widen_low(magnitude);
    const double2 high = widen_high(magnitude);
    const int4 n_low = nearest_even_multiple(low, k);
    const int4 n_high = nearest_even_multiple(high, k);
    return {narrow(subtract_multiple(low, to_double2(n_low), k._PI04_21x5),
                   subtract_multiple(high, to_double2(n_high), k._PI04_21x5)),
            join_low(n_low, n_high) >> 1};
}

} // namespace zelk::ZELK_TIER
