// e^x on two binary64 lanes.
// Method: e^x = 2^(n/64) e^r, n = round(x 64/ln 2), |r| <= ln 2/128: the fraction of 2^(j/64), j = n mod 64,
// from a table, floor(n/64) straight into the exponent field, e^r by a degree-5 polynomial. From |x| = 704 on
// the exponent is kept in range by a factor 2^200 or 2^-200 that the last multiplication undoes.
#include "tables/exp2.h"
#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

using tables::Exp2;

struct Reducedd2 {
    double2 r;
    ulong2 biased_n; // n + 1023 * 64 in the low 32 bits
    ulong2 fraction; // of 2^(j/64)
};

ZELK_INLINE Reducedd2 reduce(double2 x, const Exp2& k)
{
    const double2 shifted = x * k.s_dwInvLn - k.s_dwNegRS; // n in its low 32 bits
    const double2 n = shifted + k.s_dwNegRS;
    const int4 word = as_int4(shifted);
    // |n| < 2^17, so that n LnHi is exact.
    return {(x - n * k.s_dwLnHi) - n * k.s_dwLnLo, as_ulong2(shifted) + k.s_dwBias,
            ulong2{k.s_dwExp2[word[0] & 63], k.s_dwExp2[word[2] & 63]}};
}

// e^r, as two interleaved chains.
ZELK_INLINE double2 exp_polynomial(double2 r, const Exp2& k)
{
    const double2 q = r * r;
    const double2 u = ((k.s_dwA5 * q + k.s_dwA3) * q) * r + k.s_dwOne;
    const double2 v = (k.s_dwA4 * q + k.s_dwA2) * q + r;
    return v + u;
}

// 2^(n/64) from its biased exponent (the low 12 bits of each lane) and its fraction.
ZELK_INLINE double2 compose(ulong2 exponent, ulong2 fraction)
{
    return as_double2((exponent << 52) | fraction);
}

// |x| < bound, a power of two or a few of them: the high words tell.
ZELK_INLINE int4 magnitude_below(double2 x, double2 bound, const Exp2& k)
{
    return as_int4(bound) > as_int4(as_long2(x) & k.iAbsMask);
}

// At least one lane has |x| >= 704, is infinite or NaN.
[[gnu::noinline, gnu::cold]] static double2 spec_dexp2(double2 x)
{
    const auto& k = tables::exp2;
    const long2 ordinary = as_long2(high_words(magnitude_below(x, k.dbB1, k)));
    const long2 in_range = as_long2(high_words(magnitude_below(x, k.dbB2, k)));
    const long2 scaled = in_range & ~ordinary;
    const long2 negative = as_long2(high_words(as_int4(x) >> 31));
    const auto by_sign = [&](auto member) {
        return select(negative, k.negative.*member, k.positive.*member);
    };

    // Lanes out of range pass through the reduction as zeros, and give 1. One product serves the ordinary and
    // the scaled lanes: the exponent of a scaled lane without its adjustment may make a NaN.
    const Reducedd2 reduced = reduce(as_double2(as_long2(x) & in_range), k);
    const long2 adjustment = by_sign(&Exp2::BySign::adjustment) & scaled;
    const double2 factor = select(scaled, by_sign(&Exp2::BySign::compensation), k.s_dwOne);
    const double2 scale = compose((reduced.biased_n >> 6) + (ulong2)adjustment, reduced.fraction);
    const double2 finite = (exp_polynomial(reduced.r, k) * scale) * factor;

    // The rest are squares, which raise what the result calls for: overflow or underflow, nothing for an
    // infinity, and invalid for a signalling NaN.
    const long2 is_nan = x != x;
    const long2 is_infinite = as_double2(as_long2(x) & k.iAbsMask) == k.dbInf;
    double2 root = by_sign(&Exp2::BySign::saturation);
    root = select(is_infinite, by_sign(&Exp2::BySign::at_infinity), root);
    root = as_double2(as_long2(select(is_nan, x, root)) & ~in_range);
    return select(in_range, finite, root * root);
}

double2 exp2(double2 x)
{
    const auto& k = tables::exp2;
    if (lane_mask(as_double2(magnitude_below(x, k.dbB1, k))) != all_lanes2) [[unlikely]]
        return spec_dexp2(x);
    const Reducedd2 reduced = reduce(x, k);
    return compose(reduced.biased_n >> 6, reduced.fraction) * exp_polynomial(reduced.r, k);
}

} // namespace zelk::ZELK_TIER
