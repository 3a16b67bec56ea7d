// sin x on two binary64 lanes.
// Method: |x| < 128000.0625: r = x - n pi, n = round(x/pi), an odd polynomial of degree 17 in r. Up to 2^30
// an even multiple of pi/2 is subtracted in five parts. Beyond, and for infinities and NaNs, lane by lane
// from a table of sine and cosine after an exact reduction.
#include "dispatch/kernels.h"
#include "trig/sin_cos2.h"

namespace zelk::ZELK_TIER {

using tables::SinCos2;

// sin x is sin r with its sign flipped by `sign`.
struct SineReduced2 {
    double2 r;
    double2 q;
    long2 sign;
};

ZELK_INLINE SineReduced2 select(long2 mask, const SineReduced2& a, const SineReduced2& b)
{
    return {select(mask, a.r, b.r), select(mask, a.q, b.q), select(mask, a.sign, b.sign)};
}

ZELK_INLINE SineReduced2 reduce_fast(double2 x, const SinCos2& k)
{
    const double2 t = x * k.MMDINVPI + k.MMDRSHIFT; // the low bits hold n
    const double2 n = t - k.MMDRSHIFT;
    // |n| < 2^16: the products with the first three parts are exact.
    const double2 r3 = ((x - n * k.MMDPI1) - n * k.MMDPI2) - n * k.MMDPI3;
    return {r3 - n * k.MMDPI4, r3 * r3, as_long2(t) << 63};
}

// |x| = m pi/2 + r with an even m, so that sin |x| = (-1)^(m/2) sin r.
ZELK_INLINE SineReduced2 reduce_medium(double2 x, const SinCos2& k)
{
    const double2 magnitude = as_double2(as_long2(x) & k.MMIABSMASK);
    const int4 m = (trunc_to_int(magnitude * k.THE_PI02_INV) + k.MMI_ONE) & k.MSK_LOW_BIT;
    const double2 r = subtract_multiple(magnitude, to_double2(m), k.PI02C);
    return {r, r * r, sign_from_bit_1(m, k) ^ (as_long2(x) & k.MMISIGNMASK)};
}

ZELK_INLINE double2 evaluate(const SineReduced2& reduced, const SinCos2& k)
{
    return as_double2(as_long2(sine_polynomial(reduced.r, reduced.q, k)) ^ reduced.sign);
}

[[gnu::noinline]] static double __static_scalar_sin(double x)
{
    if ((__builtin_bit_cast(std::uint64_t, x) >> 52 & 0x7FF) == 0x7FF) return x - x;
    return __static_scalar_sine(x, 0);
}

// Lanes of `beyond` lie beyond the fast path's bound, or are infinite or NaN.
[[gnu::noinline, gnu::cold]] static double2 spec_dsin2(double2 x, long2 beyond)
{
    const auto& k = tables::sin_cos2;
    // Lanes that the fast path cannot take pass through it as zeros: they must not raise anything there.
    SineReduced2 ordinary = reduce_fast(as_double2(as_long2(x) & ~beyond), k);
    if (big_lanes(x, k) == 0) {
        ordinary.q = ordinary.r * ordinary.r; // unlike the fast path
        return evaluate(select(beyond, reduce_medium(x, k), ordinary), k);
    }

    return replace_lanes(evaluate(ordinary, k), x, lane_mask(beyond), __static_scalar_sin);
}

double2 sin2(double2 x)
{
    const auto& k = tables::sin_cos2;
    // High words only: 128000 and what shares its high word stay on the fast path.
    const int4 beyond = as_int4(as_long2(x) & k.MMIABSMASK) > k.MMDHUGE;
    if (lane_mask(as_long2(beyond)) != 0) [[unlikely]]
        return spec_dsin2(x, as_long2(high_words(beyond)));
    return evaluate(reduce_fast(x, k), k);
}

} // namespace zelk::ZELK_TIER
