// acosh x on two binary64 lanes.
// Method: ln(x + sqrt(x^2 - 1)) when both lanes lie in (1.500001, 1e154); when they lie in (1.500001,
// infinity) ln x + ln 2 in the huge lanes. Otherwise lane by lane: the same, or sqrt(2t) times a polynomial
// of degree 10 in t = x - 1 up to 1.5.
#include "dispatch/kernels.h"
#include "hyperbolic/inverse_hyperbolic2.h"

namespace zelk::ZELK_TIER {

ZELK_INLINE double2 acosh_by_logarithm(double2 x, const tables::InverseHyperbolic2& k)
{
    return logarithm(x + square_root(x * x - k.dbOne), k);
}

// Huge lanes: y = x + 0, nothing squared.
[[gnu::noinline, gnu::cold]] static double2 huge_lanes(double2 x)
{
    const auto& k = tables::inverse_hyperbolic2;
    const long2 squarable = is_squarable(x, k);
    const double2 base = as_double2(as_long2(x) & squarable);
    const double2 root = square_root(as_double2(as_long2(base * base - k.dbOne) & squarable));
    return logarithm(x + root, k) + as_double2(as_long2(k.dbLn2) & ~squarable);
}

ZELK_INLINE double __zelk_acosh_sd(double x)
{
    const auto& k = tables::inverse_hyperbolic2;
    const auto bits = __builtin_bit_cast(std::int64_t, x);
    if ((bits & 0x7FFFFFFFFFFFFFFF) > 0x7FF0000000000000) return x + x;
    if (bits < 0x3FF0000000000000) return invalid_result();
    if (bits == 0x7FF0000000000000) return x;
    if (bits >= k.iHugeArg[0]) return huge_lanes(splat(x))[0];
    if (bits > 0x3FF800007FFFFFFF) return acosh_by_logarithm(splat(x), k)[0];

    const double t = __builtin_fabs(x - 1.0); // 1 - 1 is -0 where the mode rounds down
    const double u = t * t;
    const double odd = alternate_terms(tables::acosh_series2, 8, u);
    const double even = alternate_terms(tables::acosh_series2, 9, u);
    return square_root(splat(t + t))[0] * (1.0 + t * odd + u * even);
}

[[gnu::noinline]] static double2 acosh_by_lane(double2 x)
{
    const auto& k = tables::inverse_hyperbolic2;
    const int4 logarithmic = (as_int4(x) > k.iAcoshTreshold) & (k.iInfinityBits > as_int4(x));
    if (lane_mask(as_long2(logarithmic)) == all_lanes2) return huge_lanes(x);
    return double2{__zelk_acosh_sd(x[0]), __zelk_acosh_sd(x[1])};
}

double2 acosh2(double2 x)
{
    const auto& k = tables::inverse_hyperbolic2;
    const int4 ordinary = (as_int4(x) > k.iAcoshTreshold) & (k.iSquarableBits > as_int4(x));
    if (lane_mask(as_long2(ordinary)) != all_lanes2) [[unlikely]]
        return acosh_by_lane(x);
    return acosh_by_logarithm(x, k);
}

} // namespace zelk::ZELK_TIER
