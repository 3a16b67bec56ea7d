// sqrt z on two complex numbers with binary32 parts: the root with a real part >= 0, its imaginary part with
// the sign of y, z = x + iy. Method: in binary64, t = sqrt((|z| + |x|)/2) from a reciprocal square root; (t,
// y/2t) for x > 0, (|y|/2t, +-t) for x < 0. Lanes with a part that is zero, subnormal, the smallest normal
// number, infinite or a NaN go through csqrtf_scalar, and so does everything in tier A.
#include "complex/csqrtf.h"
#include "complex/lane_loop.h"
#include "complex/lane_parts.h"

namespace zelk::ZELK_TIER {

using tables::Csqrtf2;

// All ones in the parts that the vector path takes: 2^-126 < |part| < infinity.
ZELK_INLINE int4 in_range(float4 z, const Csqrtf2& k)
{
    return as_int4(as_uint4(as_int4(z) & k.flAbsMask) + k.flAdd) > k.flCmp;
}

ZELK_INLINE float4 csqrt_in_range(float4 z, const Csqrtf2& k)
{
    const double2 x = widen_low(real_parts(z));
    const double2 y = widen_low(imag_parts(z));
    const double2 u = square_of_root(x, y, k);
    const RootPartsd2 parts = root_parts(u, reciprocal_square_root(u, k), y, k);
    const long2 left = x < k.Zero;
    const double2 re = select(left, parts.v, parts.t);
    const double2 im = select(left, parts.t, parts.v);
    const int4 sign = as_int4(z) & k.flSignY;
    return as_float4(as_int4(interleave(re, im)) | sign);
}

[[gnu::noinline, gnu::cold]] static float4 csqrt_beyond(float4 z, int4 inside)
{
    const auto& k = tables::csqrtf2;
    const int4 outside = either_part(~inside);
    float4 root = csqrt_in_range(select(outside, k.flOne, z), k);
    for (int lane = 0; lane < 2; ++lane)
        if (has_number(outside, lane))
            root = with_complex_lane(root, lane, dispatched::csqrtf_scalar(complex_lane(z, lane)));
    return root;
}

float4 csqrtf2(float4 z)
{
    if constexpr (tier == Tier::A) return lane_loop(z, dispatched::csqrtf_scalar);

    const auto& k = tables::csqrtf2;
    const int4 inside = in_range(z, k);
    if (lane_mask(inside) != all_lanes4) [[unlikely]]
        return csqrt_beyond(z, inside);
    return csqrt_in_range(z, k);
}

} // namespace zelk::ZELK_TIER
