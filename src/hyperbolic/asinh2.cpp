// asinh x on two binary64 lanes.
// Method: ln(|x| + sqrt(x^2 + 1)), with the sign of x, when |x| lies in (1.000001, 1e154) in both lanes; when
// it lies in (1.000001, infinity) ln |x| + ln 2 in the huge lanes. Otherwise lane by lane: the same, or an
// odd polynomial of degree 37 up to 1.
#include "dispatch/kernels.h"
#include "hyperbolic/inverse_hyperbolic2.h"

namespace zelk::ZELK_TIER {

ZELK_INLINE double2 asinh_by_logarithm(double2 a, const tables::InverseHyperbolic2& k)
{
    return logarithm(a + square_root(a * a + k.dbOne), k);
}

// Huge lanes: y = a + 0, nothing squared.
[[gnu::noinline, gnu::cold]] static double2 huge_lanes(double2 a)
{
    const auto& k = tables::inverse_hyperbolic2;
    const long2 squarable = is_squarable(a, k);
    const double2 base = as_double2(as_long2(a) & squarable);
    const double2 root = square_root(as_double2(as_long2(base * base + k.dbOne) & squarable));
    return logarithm(a + root, k) + as_double2(as_long2(k.dbLn2) & ~squarable);
}

ZELK_INLINE double __zelk_asinh_sd(double a)
{
    const auto& k = tables::inverse_hyperbolic2;
    const auto bits = __builtin_bit_cast(std::int64_t, a);
    if (bits >= 0x7FF0000000000000) return a + a;
    if (bits >= k.iHugeArg[0]) return huge_lanes(splat(a))[0];
    if (bits > 0x3FF0000000000000) return asinh_by_logarithm(splat(a), k)[0];
    if (bits == 0) return a; // the sum would be -0 where the mode rounds down
    return odd_series(a, tables::asinh_series2, 18);
}

[[gnu::noinline]] static double2 asinh_by_lane(double2 a)
{
    const auto& k = tables::inverse_hyperbolic2;
    const int4 logarithmic = (as_int4(a) > k.iAsinhTreshold) & (k.iInfinityBits > as_int4(a));
    if (lane_mask(as_long2(logarithmic)) == all_lanes2) return huge_lanes(a);
    return double2{__zelk_asinh_sd(a[0]), __zelk_asinh_sd(a[1])};
}

double2 asinh2(double2 x)
{
    const auto& k = tables::inverse_hyperbolic2;
    const double2 a = as_double2(as_long2(x) & k.iAbsMask);
    const long2 sign = as_long2(x) & k.iSignBit;
    const int4 ordinary = (as_int4(a) > k.iAsinhTreshold) & (k.iSquarableBits > as_int4(a));
    if (lane_mask(as_long2(ordinary)) != all_lanes2) [[unlikely]]
        return as_double2(as_long2(asinh_by_lane(a)) | sign);
    return as_double2(as_long2(asinh_by_logarithm(a, k)) | sign);
}

} // namespace zelk::ZELK_TIER
