// cos x on two binary64 lanes.
// Method: cos x = (-1)^n sin(|x| - (n - 1/2) pi). |x| <= 128000: n = round((|x| + pi/2)/pi) and an odd
// polynomial of degree 17. Up to 2^30 an odd multiple of pi/2 is subtracted in five parts. Beyond, and for
// infinities and NaNs, lane by lane from a table of sine and cosine after an exact reduction.
#include "dispatch/kernels.h"
#include "trig/sin_cos2.h"

namespace zelk::ZELK_TIER {

using tables::SinCos2;

// cos x is sin r: the sign has gone into r, for the polynomial to carry it.
struct CosineReduced2 {
    double2 r;
    double2 q;
};

ZELK_INLINE CosineReduced2 select(long2 mask, const CosineReduced2& a, const CosineReduced2& b)
{
    return {select(mask, a.r, b.r), select(mask, a.q, b.q)};
}

ZELK_INLINE double2 flip_sign(double2 x, long2 sign)
{
    return as_double2(as_long2(x) ^ sign);
}

ZELK_INLINE CosineReduced2 reduce_fast(double2 magnitude, const SinCos2& k)
{
    const double2 t = (magnitude + k.dbPio2) * k.MMDINVPI - k.dbNegRS; // the low bits hold n
    const double2 N = (t + k.dbNegRS) - k.db05;
    // N < 2^16, with one bit after the point: the products with the first three parts are exact.
    const double2 r3 = ((magnitude - N * k.MMDPI1) - N * k.MMDPI2) - N * k.MMDPI3;
    return {flip_sign(r3 + N * k.dbPi4, as_long2(t) << 63), r3 * r3};
}

// |x| = m pi/2 + r with an odd m, so that cos x = -(-1)^((m - 1)/2) sin r.
ZELK_INLINE CosineReduced2 reduce_medium(double2 magnitude, const SinCos2& k)
{
    const int4 m = trunc_to_int(magnitude * k.THE_PI02_INV) | k.MMI_ONE;
    const double2 r = subtract_multiple(magnitude, to_double2(m), k.PI02C);
    return {flip_sign(r, sign_from_bit_1(~m, k)), r * r};
}

[[gnu::noinline]] static double __static_scalar_cos(double x)
{
    if ((__builtin_bit_cast(std::uint64_t, x) >> 52 & 0x7FF) == 0x7FF) return x - x;
    return __static_scalar_sine(x, 2);
}

// Lanes of `beyond` lie beyond the fast path's bound, or are infinite or NaN.
[[gnu::noinline, gnu::cold]] static double2 spec_dcos2(double2 magnitude, long2 beyond)
{
    const auto& k = tables::sin_cos2;
    // Lanes that the fast path cannot take pass through it as zeros: they must not raise anything there.
    const CosineReduced2 ordinary = reduce_fast(as_double2(as_long2(magnitude) & ~beyond), k);
    if (big_lanes(magnitude, k) == 0) {
        const CosineReduced2 reduced = select(beyond, reduce_medium(magnitude, k), ordinary);
        return sine_polynomial(reduced.r, reduced.q, k);
    }

    return replace_lanes(sine_polynomial(ordinary.r, ordinary.q, k), magnitude, lane_mask(beyond),
                         __static_scalar_cos);
}

double2 cos2(double2 x)
{
    const auto& k = tables::sin_cos2;
    const double2 magnitude = as_double2(as_long2(x) & k.MMIABSMASK);
    // The sign of the difference of the patterns: |x| > 128000, infinite or NaN; a compare would raise for
    // NaN.
    const long2 beyond = k.dbHUGE - as_long2(magnitude);
    if (lane_mask(beyond) != 0) [[unlikely]]
        return spec_dcos2(magnitude, as_long2(high_words(as_int4(beyond)) >> 31));
    const CosineReduced2 reduced = reduce_fast(magnitude, k);
    return sine_polynomial(reduced.r, reduced.q, k);
}

} // namespace zelk::ZELK_TIER
