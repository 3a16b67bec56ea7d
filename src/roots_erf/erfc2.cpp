// erfc x on two binary64 lanes.
// Method: erfc |x| = Q(|x|) e^(-x^2): Q of degree 12 per quarter of a binade; -x^2 in three parts, and e^w =
// 2^(n/128) e^r, n = round(128 w/ln 2), with 2^(i/128) from a table. Both factors keep what the last sum of
// each rounds away, so that their product is rounded once. erfc(-x) = 2 - erfc x.
#include "tables/erfc2.h"
#include "dispatch/kernels.h"
#include "roots_erf/erf.h"

namespace zelk::ZELK_TIER {

using tables::ErfcTable;

// leading + rest, leading with 26 significant bits: the product of two such is exact.
struct SplitSum {
    double2 sum; // rounded
    double2 leading;
    double2 rest;
};

// leading - large is exact: small is less than a quarter of large.
ZELK_INLINE SplitSum split_sum(double2 large, double2 small, const ErfcTable& k)
{
    const double2 sum = large + small;
    const double2 leading = as_double2(as_long2(sum) & k.split_mask);
    return {sum, leading, small - (leading - large)};
}

// e^(-x^2) = exponential * scale, |x| < 27.2261.
struct Exponential {
    SplitSum exponential;
    double2 scale; // with the sign of x
};

template <int lanes>
ZELK_INLINE Exponential exp_of_minus_square(double2 x, double2 a, const ErfcTable& k)
{
    // -x^2 = leading + tail - xl (|x| + xh). xh has 26 significant bits: its square is exact, and so are both
    // halves of that.
    const double2 xh = as_double2(as_long2(x) & k.abs_split_mask);
    const double2 xl = a - xh;
    const double2 wh = as_double2(as_long2(xh * xh) | k.sign_mask);
    const double2 leading = as_double2(as_long2(wh) & k.split_mask);
    const double2 tail = wh - leading;

    // n * ln2_128_hi is exact: |n| < 2^18. So is the difference from the leading part, which cancels.
    const double2 t = wh * k.ln2_128_inverse + k.shifter;
    const double2 n = t - k.shifter;
    const double2 r = ((leading - n * k.ln2_128_hi) - n * k.ln2_128_lo) + (tail - xl * (a + xh));

    const double2 p = k.one + r * (k.half + r * (k.sixth + r * (k.twenty_fourth + r * k.hundred_twentieth)));
    const int4 word = as_int4(t); // n in its low words
    const auto& power0 = k.powers[word[0] & 127];
    const auto& power1 = k.powers[word[2] & 127];
    const double2 power =
        gather<lanes>(__builtin_bit_cast(double, power0.hi), __builtin_bit_cast(double, power1.hi));
    const double2 power_lo =
        gather<lanes>(__builtin_bit_cast(double, power0.lo), __builtin_bit_cast(double, power1.lo));

    // 2^floor(n/128) may be subnormal: it is put together 154 binades higher.
    const double2 biased = as_double2(((as_long2(t) << 45) + k.bias) & k.exponent_mask);
    const double2 scale = as_double2(as_long2(biased * k.unbias) | (as_long2(x) & k.sign_mask));
    return {split_sum(power, power * r * p + power_lo, k), scale};
}

template <int lanes>
ZELK_INLINE double2 erfc_in_range(double2 x, const ErfcTable::Row& row0, const ErfcTable::Row& row1,
                                  const ErfcTable& k)
{
    const double2 a = as_double2(as_long2(x) & k.abs_mask);
    // Exact: the centre is 0, or within a factor of two of |x|.
    const double2 u = a - gather<lanes>(row0.centre, row1.centre);
    const auto Q = split_sum(gather<lanes>(row0.c0, row1.c0), u * polynomial<lanes>(u, row0.c, row1.c), k);
    const auto [E, scale] = exp_of_minus_square<lanes>(x, a, k);

    // The sign bit one place lower is the pattern of 2.
    const double2 two_if_negative = as_double2(as_ulong2(as_long2(x) & k.sign_mask) >> 1);
    const double2 product = Q.leading * E.leading + (Q.leading * E.rest + Q.rest * E.sum);
    return product * scale + two_if_negative;
}

// Nothing of erfc |x| is left but its flags: underflow and inexact, or inexact.
static double beyond_range(bool negative)
{
    const double smallest_normal = opaque(0x1p-1022);
    return negative ? smallest_normal + 2.0 : smallest_normal * smallest_normal;
}

// x as a bit pattern. Inlined for each lane: the two overlap, and no call spills what they share.
ZELK_INLINE std::uint64_t __erfc_scalar(std::uint64_t x)
{
    const std::uint64_t infinity = 0x7FF0000000000000;
    const std::uint64_t magnitude = x & 0x7FFFFFFFFFFFFFFF;
    const bool negative = x != magnitude;
    if (magnitude >> 32 <= 0x403B39DC) {
        const auto& k = tables::erfcTable;
        const std::int32_t row = (static_cast<std::int32_t>(magnitude >> 32) - k.index_base[0]) >> 18;
        const auto& row0 = k.rows[row < 0 ? 0 : row];
        return as_ulong2(erfc_in_range<1>(double2{__builtin_bit_cast(double, x), 0}, row0, row0, k))[0];
    }
    if (magnitude > infinity) return quieted(x);
    if (magnitude == infinity) return negative ? 0x4000000000000000 : 0;
    return __builtin_bit_cast(std::uint64_t, beyond_range(negative));
}

[[gnu::noinline]] static double2 erfc_by_lane(double2 x)
{
    return lane_by_lane(x, __erfc_scalar);
}

double2 erfc2(double2 x)
{
    const auto& k = tables::erfcTable;
    if constexpr (tier == Tier::A) return erfc_by_lane(x);
    const int4 magnitude = as_int4(as_long2(x) & k.abs_mask);
    if (lane_mask(as_double2(magnitude > k.last_high)) != 0) [[unlikely]]
        return erfc_by_lane(x);
    const int4 row = positive_part(magnitude - k.index_base) >> 18; // in the high words
    return erfc_in_range<2>(x, k.rows[row[1]], k.rows[row[3]], k);
}

} // namespace zelk::ZELK_TIER
