// atanh x on two binary64 lanes.
// Method: ln((1 + |x|) / (1 - |x|)) / 2, with the sign of x, when |x| lies in (0.250001, 1) in both lanes.
// Otherwise lane by lane: the same, or an odd polynomial of degree 17 up to 1/4.
#include "dispatch/kernels.h"
#include "hyperbolic/inverse_hyperbolic2.h"

namespace zelk::ZELK_TIER {

ZELK_INLINE double2 atanh_by_logarithm(double2 a, const tables::InverseHyperbolic2& k)
{
    return k.dbHalf * logarithm((k.dbOne + a) / (k.dbOne - a), k);
}

ZELK_INLINE double __zelk_atanh_sd(double a)
{
    const auto bits = __builtin_bit_cast(std::int64_t, a);
    if (bits > 0x7FF0000000000000) return a + a;
    if (bits > 0x3FF0000000000000) return invalid_result();
    if (bits == 0x3FF0000000000000) return __builtin_inf();
    if (bits > 0x3FD0000000000000) return atanh_by_logarithm(splat(a), tables::inverse_hyperbolic2)[0];
    return odd_series(a, tables::atanh_series2, 8);
}

double2 atanh2(double2 x)
{
    const auto& k = tables::inverse_hyperbolic2;
    const double2 a = as_double2(as_long2(x) & k.iAbsMask);
    const long2 sign = as_long2(x) & k.iSignBit;
    const int4 ordinary = (as_int4(a) > k.iAtanhTreshold) & (k.iOneBits > as_int4(a));
    if (lane_mask(as_long2(ordinary)) != all_lanes2) [[unlikely]]
        return as_double2(as_long2(double2{__zelk_atanh_sd(a[0]), __zelk_atanh_sd(a[1])}) | sign);
    return as_double2(as_long2(atanh_by_logarithm(a, k)) | sign);
}

} // namespace zelk::ZELK_TIER
