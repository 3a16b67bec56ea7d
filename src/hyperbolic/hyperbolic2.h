// What sinh2, cosh2 and tanh2 share: e^a / 2 and e^-a / 2 from a table of 2^(j/64), the sums that make cosh
// and sinh of them, and the lanes near and beyond overflow.
#pragma once

#include "lanes/lanes.h"
#include "tables/hyperbolic2.h"

namespace zelk::ZELK_TIER {

// Lanes with a >= 708.375, infinities and NaNs among them.
ZELK_INLINE unsigned out_of_range(double2 a, const tables::Hyperbolic2& k)
{
    return lane_mask(k.s_dwLastOrdinary - as_long2(a));
}

// a = n ln 2/64 + r. The low bits of t hold n; n times the high part of ln 2/64 is exact for n < 2^20.
struct Reduced2 {
    double2 t;
    double2 r;
};
ZELK_INLINE Reduced2 reduce(double2 a, const tables::Hyperbolic2& k)
{
    const double2 t = a * k.s_dwInvLn + k.s_dwRS;
    const double2 n = t - k.s_dwRS;
    return {t, (a - n * k.s_dwLnHi) - n * k.s_dwLnLo};
}

// e^a / 2 = (plus_hi + plus_lo) e^r and e^-a / 2 = (minus_hi + minus_lo) e^-r, with e^r = 1 + ch1 + sh.
struct HalfExponentials {
    double2 plus_hi;
    double2 plus_lo;
    double2 minus_hi;
    double2 minus_lo;
    double2 sum;
    double2 difference;
    double2 ch1;
    double2 sh;
};

// 0 <= n <= 1022 * 64. In its last block 2^(-n/64) has left the normal range and counts as 0.
ZELK_INLINE HalfExponentials half_exponentials(double2 a, const tables::Hyperbolic2& k)
{
    const auto [t, r] = reduce(a, k);
    const double2 scale = as_double2(((as_long2(t) + k.s_dwBias) << 46) & k.s_dwExpbMask);
    const double2 minus_scale = as_double2(((k.s_dwBias - as_long2(t)) << 46) & k.s_dwExpbMask);
    const int4 j = as_int4(t) & k.s_dwIndexMask;
    const double2 entry0 = as_double2(k.s_dwExp2[j[0]]);
    const double2 entry1 = as_double2(k.s_dwExp2[j[2]]);
    const double2 partner0 = as_double2(k.s_dwExp2[64 - j[0]]);
    const double2 partner1 = as_double2(k.s_dwExp2[64 - j[2]]);

    HalfExponentials e;
    e.plus_hi = double2{entry0[0], entry1[0]} * scale;
    e.plus_lo = double2{entry0[1], entry1[1]} * scale;
    e.minus_hi = double2{partner0[0], partner1[0]} * minus_scale;
    e.minus_lo = double2{partner0[1], partner1[1]} * minus_scale;
    e.sum = (e.plus_hi + e.plus_lo) + (e.minus_hi + e.minus_lo);
    e.difference = (e.plus_hi + e.plus_lo) - (e.minus_hi + e.minus_lo);

    const double2 q = r * r;
    e.ch1 = q * (k.s_dwA2 + k.s_dwA4 * q);
    e.sh = ((k.s_dwA5 * q + k.s_dwA3) * q) * r + r;
    return e;
}

ZELK_INLINE double2 cosh_of(const HalfExponentials& e)
{
    return ((((e.ch1 * e.sum + e.sh * e.difference) + e.minus_lo) + e.plus_lo) + e.minus_hi) + e.plus_hi;
}

ZELK_INLINE double2 sinh_of(const HalfExponentials& e)
{
    return (((e.plus_lo - e.minus_lo) + e.ch1 * e.difference) + e.sh * e.sum) + (e.plus_hi - e.minus_hi);
}

// Lanes that the formulas above cannot take. `far` ones are NaNs, infinities and finite numbers whose cosh is
// infinite beyond doubt; in `wrapped` ones n is so large that the exponent of e^-a would wrap round. The
// choice is made on n itself, so that it holds in every rounding mode.
struct SpecialLanes2 {
    double2 t;
    double2 r;
    long2 far;
    long2 wrapped;
};
ZELK_INLINE SpecialLanes2 special_lanes(double2 a, const tables::Hyperbolic2& k)
{
    const long2 far = as_long2(high_words(as_int4(a)) > k.s_dwLastFiniteHigh);
    const auto [t, r] = reduce(as_double2(as_long2(a) & ~far), k);
    return {t, r, far, as_long2(low_words(as_int4(t)) > k.s_dwLastIndex)};
}

// What cosh2 and sinh2 hand to the scalar routine.
struct SpecBlock {
    double2 a;
    double2 t;
    double2 r;
    long2 wrapped;
    double2 result; // of the vector formula, in the lanes that it can take
};

// cosh a = sinh a of one lane, a >= 708.375, unless the vector formula serves.
static inline double near_overflow(const SpecBlock& block, int lane)
{
    const auto& k = tables::hyperbolic2;
    const double a = block.a[lane];
    const auto bits = __builtin_bit_cast(std::uint64_t, a);
    if (bits > 0x7FF0000000000000) {
        opaque(a + a); // raises invalid for a signalling NaN
        return __builtin_bit_cast(double, ~std::uint64_t{0});
    }
    if (bits >= 0x408633CF00000000) return __builtin_bit_cast(double, k.s_dwPosInf[lane]);
    if (block.wrapped[lane] == 0) return block.result[lane];

    // e^-a no longer counts: e^a / 2 alone.
    const double r = block.r[lane];
    const auto n = static_cast<std::uint32_t>(as_int4(block.t)[2 * lane]);
    const double2 entry = as_double2(k.s_dwExp2[n & 63]);
    const double p = (((k.s_dwA5[0] * r + k.s_dwA4[0]) * r + k.s_dwA3[0]) * r + k.s_dwA2[0]) * (r * r);
    // The scale 2^1024 is no number: it is multiplied in two steps, after the sum.
    if (n >= 1025 * 64)
        return ((r + p) * (entry[0] + entry[1]) + entry[1] + entry[0]) * k.s_dwExp2Max[0] * k.s_dwTwo[0];
    const double scale = __builtin_bit_cast(double, static_cast<std::uint64_t>(n / 64 + 1022) << 52);
    const double hi = entry[0] * scale;
    const double lo = entry[1] * scale;
    return (r + p) * (hi + lo) + lo + hi;
}

} // namespace zelk::ZELK_TIER
