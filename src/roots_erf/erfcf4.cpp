// erfc x on four binary32 lanes.
// Method: erfc |x| = Q(|x|) e^(-x^2) in binary64, rounded to binary32 once: Q a cubic per sixteenth of a
// binade, e^w = 2^(n/128) e^r, n = round(128 w/ln 2), with 2^(i/128) from a table. erfc(-x) = 2 - erfc x.
#include "tables/erfcf4.h"
#include "dispatch/kernels.h"
#include "roots_erf/erf.h"

namespace zelk::ZELK_TIER {

using tables::ExpPolyTab;

ZELK_INLINE int4 row_of(int4 magnitude, const ExpPolyTab& k)
{
    return positive_part(magnitude - k.index_base) >> 19;
}

// |x| < 10.0542; the row numbers are those of |x|.
ZELK_INLINE double2 erfc_in_range(double2 x, int row0, int row1, const ExpPolyTab& k)
{
    // x has 24 significant bits: w is exact.
    const double2 w = (double2{} - x) * x;
    const double2 t = w * k.ln2_128_inverse + k.shifter;
    const double2 n = t - k.shifter;
    const double2 r = w - n * k.ln2_128;
    const double2 p = ((k.twenty_fourth * r + k.sixth) * r + k.half) * r;
    const int4 word = as_int4(t); // n in its low words
    const double2 power = {k.powers[word[0] & 127], k.powers[word[2] & 127]};
    const double2 E = (k.one + (p + k.one) * r) * power;

    // 2^floor(n/128) with the sign of x, straight into the high words.
    const int4 exponent = as_int4(as_uint4(word + k.bias) >> 7) << 20;
    const long2 sign = as_long2(x) & k.sign_mask;
    const double2 scale = as_double2((as_long2(exponent) << 32) | sign);

    const double2 a = as_double2(as_long2(x) & ~k.sign_mask);
    const double2 Q = polynomial(a, k.rows[row0], k.rows[row1]);
    const double2 two_if_negative = as_double2(negative_lanes(as_long2(x)) & as_long2(k.two));
    return Q * E * scale + two_if_negative;
}

// Nothing of erfc |x| is left but its flags: underflow and inexact, or inexact.
static float beyond_range(bool negative)
{
    const float smallest_normal = opaque(0x1p-126f);
    return negative ? smallest_normal + 2.0f : smallest_normal * smallest_normal;
}

// x as a bit pattern. Tier A takes every lane through here, the other tiers those of a vector with a lane out
// of range; the formula is the same.
static std::uint32_t __erfcf_scalar(std::uint32_t x)
{
    const auto& k = tables::expPolyTab;
    const std::uint32_t magnitude = x & 0x7FFFFFFF;
    const bool negative = x != magnitude;
    if (magnitude < 0x4120DDFC) {
        const auto single = __builtin_bit_cast(float, x);
        const int row = row_of(as_int4(splat(single)) & k.abs_mask, k)[0];
        const auto result =
            static_cast<float>(erfc_in_range(splat(static_cast<double>(single)), row, row, k)[0]);
        return __builtin_bit_cast(std::uint32_t, result);
    }
    if (magnitude > 0x7F800000) return quieted(x);
    if (magnitude == 0x7F800000) return negative ? 0x40000000 : 0;
    return __builtin_bit_cast(std::uint32_t, beyond_range(negative));
}

[[gnu::noinline]] static float4 erfc_by_lane(float4 x)
{
    return lane_by_lane(x, __erfcf_scalar);
}

float4 erfcf4(float4 x)
{
    const auto& k = tables::expPolyTab;
    if constexpr (tier == Tier::A) return erfc_by_lane(x);
    const int4 magnitude = as_int4(x) & k.abs_mask;
    if (lane_mask(k.range_bound > magnitude) != all_lanes4) [[unlikely]]
        return erfc_by_lane(x);
    const int4 row = row_of(magnitude, k);
    return narrow(erfc_in_range(widen_low(x), row[0], row[1], k),
                  erfc_in_range(widen_high(x), row[2], row[3], k));
}

} // namespace zelk::ZELK_TIER
