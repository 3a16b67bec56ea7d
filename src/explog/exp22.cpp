// 2^x on two binary64 lanes.
// Method: 2^x = 2^(n/128) 2^r, n = round(128 x), |r| <= 1/256: 2^(j/128), j = n mod 128, from a table,
// floor(n/128) straight into the exponent field, 2^r by a degree-4 polynomial. Beyond |x| = 1022 lane by
// lane, with x moved into the range where the exponent field is that of a normal number.
#include "tables/exp22.h"
#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

using tables::Exp22;

// floor(n/128) + 1023 must be the exponent of a normal number.
ZELK_INLINE double2 power_of_two(double2 x, const Exp22& k)
{
    const double2 shifted = x + k.Shifter; // n in its low bits
    const double2 r = (k.Shifter - shifted) + x;
    const int4 word = as_int4(shifted);
    const double2 power = double2{k.Table[word[0] & 127], k.Table[word[2] & 127]};
    const double2 scale =
        as_double2(((as_ulong2(shifted) + (ulong2)k.Bias.value) & (ulong2)k.IntMask.value) << 45);

    const double2 q = r * r;
    const double2 a = (k.P4 * q + k.P2) * q;
    const double2 b = (k.P3 * q + k.P1) * r;
    const double2 p = (b + a) + k.P0;
    return (scale * power) * p;
}

// x >= 1024, x <= -1075 or NaN. Converting to binary32 tells a NaN by its high word; it raises overflow for
// what binary32 cannot hold and invalid for a signalling NaN.
static double beyond_range(double x, bool positive)
{
    const float single = opaque(static_cast<float>(x));
    const std::uint32_t magnitude = __builtin_bit_cast(std::uint32_t, single) & 0x7FFFFFFF;
    if (magnitude > 0x7F800000) return __builtin_bit_cast(double, std::uint64_t{0x7FFFFFFF00000000});
    return positive ? __builtin_bit_cast(double, std::uint64_t{0x7FF0000000000000}) : 0.0;
}

// 2^x over the whole range: the same steps on x + 53 or x - 1 where the exponent would leave the normal
// range. Both moves are exact, and the last multiplication rounds a subnormal result once.
static double ropdExp2_scalar(double x)
{
    const auto high = static_cast<std::uint32_t>(__builtin_bit_cast(std::uint64_t, x) >> 32);
    const auto signed_high = static_cast<std::int32_t>(high);
    const bool above = signed_high >= 0x40900000;
    if (above || high >= 0xC090CC00) return beyond_range(x, above);

    double move = 0;
    double factor = 1;
    if (high >= 0xC08FF000) { // x <= -1022
        move = 53;
        factor = 0x1p-53;
    } else if (signed_high > 0x408FFFF7) { // x >= 1024 - 1/256, whose n may reach 1024 * 128
        move = -1;
        factor = 2;
    }
    return power_of_two(splat(x + move), tables::exp22)[0] * factor;
}

[[gnu::noinline, gnu::cold]] static double2 both_lanes_scalar(double2 x)
{
    const double lane1 = ropdExp2_scalar(x[1]);
    return double2{ropdExp2_scalar(x[0]), lane1};
}

double2 exp22(double2 x)
{
    const auto& k = tables::exp22;
    if (lane_mask((as_int4(x) & k.AbsMask) > as_int4(k.Trash)) != 0) [[unlikely]]
        return both_lanes_scalar(x);
    return power_of_two(x, k);
}

} // namespace zelk::ZELK_TIER
