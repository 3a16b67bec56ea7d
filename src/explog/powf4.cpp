// x^y on four binary32 lanes.
// Method: 2^w, w = y log2|x|, both in binary64 and without a table. log2: |x| = 2^e m, 0.7071 <= m < 1.4143,
// and an odd polynomial in s = (m - 1)/(m + 1), the quotient from the processor's reciprocal estimate. 2^w:
// the product of three quadratics in f = w - round(w). The table of special values is a choice by masks on
// all lanes at once; a vector whose powers are all known by it needs no logarithm.
#include "tables/powf4.h"
#include "dispatch/exceptions.h"
#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

using tables::Powf4;

// Lanes 0, 1 and lanes 2, 3.
struct Wide {
    double2 low;
    double2 high;
};

struct Splitf4 {
    float4 m;
    int4 e;
};

// |x| = 2^e m.
ZELK_INLINE Splitf4 split(int4 magnitude, int4 bias, const Powf4& k)
{
    const int4 fraction = magnitude & k.mantissa_field;
    const int4 carry = (fraction + k.sqrt2_addend) & k.sqrt2_carry;
    return {as_float4(fraction | (as_int4(k.one) ^ carry)), (magnitude >> 23) - bias + (carry >> 23)};
}

// e + log2 m, where m has the binary32 pattern m_bits, difference is m - 1 and r0 about 1/(1 + m).
ZELK_INLINE double2 log2_of(double2 e, long2 m_bits, double2 difference, double2 r0, const Powf4& k)
{
    const double2 a = as_double2((m_bits << 28) + k.one_plus); // 1 + m, exactly
    const double2 r1 = r0 * (k.two - a * r0);
    const double2 s0 = difference * r1;
    const double2 s = s0 * (k.two - a * r1);
    const double2 z = s * s;
    const double2 P = (((k.P4 * z + k.P3) * z + k.P2) * z + k.P1) * z + k.two;
    return e + (s * k.log2_e) * P;
}

// y log2|x|.
ZELK_INLINE Wide scaled_logarithm(int4 magnitude, int4 bias, float4 y, const Powf4& k)
{
    const auto [m, e] = split(magnitude, bias, k);
    const float4 difference = m - k.one;
    const float4 r0 = reciprocal_estimate(m + k.one);
    const double2 low =
        log2_of(to_double2(e), zero_extend_low(as_int4(m)), widen_low(difference), widen_low(r0), k);
    const double2 high = log2_of(to_double2(high_lanes(e)), zero_extend_high(as_int4(m)),
                                 widen_high(difference), widen_high(r0), k);
    return {widen_low(y) * low, widen_high(y) * high};
}

// 2^w for |w| < 1010.
ZELK_INLINE double2 power_of_two(double2 w, const Powf4& k)
{
    const double2 shifted = w + k.shifter;
    const double2 f = w - (shifted - k.shifter);
    const double2 scale = as_double2(((as_long2(shifted) + k.exponent_offset) << 52) | k.scale_fraction);
    const double2 Q1 = (f + k.a1) * f + k.b1;
    const double2 Q2 = (f + k.a2) * f + k.b2;
    const double2 Q3 = (f + k.a3) * f + k.b3;
    return scale * Q1 * Q2 * Q3;
}

ZELK_INLINE int4 is_beyond(double2 w, const Powf4& k)
{
    return (high_words(as_int4(w)) & k.abs_mask) > k.largest_exponent;
}

// Lanes of `lanes` pass through the power as zeros: they must not raise anything there.
ZELK_INLINE float4 raise_two_but(int4 lanes, const Wide& w, const Powf4& k)
{
    const int4 low = as_int4(duplicate_low(lanes));
    const int4 high = as_int4(duplicate_high(lanes));
    return narrow(power_of_two(as_double2(as_int4(w.low) & ~low), k),
                  power_of_two(as_double2(as_int4(w.high) & ~high), k));
}

ZELK_INLINE int4 high_words_of(const Wide& w)
{
    return odd_words(as_int4(w.low), as_int4(w.high));
}

// Lanes beyond 708 are zero or infinite as w is below or above 0.
[[gnu::noinline, gnu::cold]] static float4 raise_two_beyond(double2 w_low, double2 w_high)
{
    const auto& k = tables::powf4;
    const Wide w = {w_low, w_high};
    const int4 high = high_words_of(w);
    const int4 beyond = (high & k.abs_mask) > k.largest_exponent;
    const int4 ordinary = as_int4(raise_two_but(beyond, w, k));
    return as_float4(select(beyond, ~(high >> 31) & k.exponent_field, ordinary));
}

ZELK_INLINE float4 raise_two(const Wide& w, const Powf4& k)
{
    if (lane_mask(is_beyond(w.low, k) | is_beyond(w.high, k)) != 0) [[unlikely]]
        return raise_two_beyond(w.low, w.high);
    return narrow(power_of_two(w.low, k), power_of_two(w.high, k));
}

// Lanes that are integers, and the sign bit where they are odd. Infinities and NaNs pass for even ones.
struct Parity {
    int4 integer;
    int4 odd;
};
ZELK_INLINE Parity _int_test(int4 magnitude, const Powf4& k)
{
    const int4 below = magnitude & (magnitude < k.two_24); // from 2^24 on every number is even, as zero is
    const int4 n = trunc_to_int(as_float4(below));
    const int4 integer = as_int4(to_float4(n)) == below;
    return {integer, (n << 31) & integer};
}

// The special values: `known` lanes have the result `result`. In the others `sign` belongs to the power of
// |x|, and `result` is what becomes of it beyond the range: zero or infinity, with that sign.
struct Special {
    int4 known;
    int4 result;
    int4 sign;
};

ZELK_INLINE Special _pow_spec(int4 x, int4 y, const Powf4& k)
{
    const int4 one = as_int4(k.one);
    const int4 negative_x = x >> 31;
    const int4 abs_x = x & k.abs_mask;
    const int4 abs_y = y & k.abs_mask;
    const int4 zero_x = abs_x == 0;
    const int4 infinite_y = abs_y == k.exponent_field;
    const int4 quiet_nan = (abs_x > k.exponent_field) | (abs_y > k.exponent_field);
    const int4 settled = quiet_nan | infinite_y | (abs_x == k.exponent_field);

    // Where no lane is special, or only +0 to positive powers, 1 and the power 0 take the ordinary way.
    const int4 some_special = any_lane(settled | negative_x | (zero_x & ~(y > 0)));
    const int4 result_one = ((x == one) | (abs_y == 0) | ((abs_x == one) & infinite_y)) & some_special;

    // Only negative x asks whether y is an integer.
    const Parity y_parity = _int_test(abs_y & negative_x, k);
    const int4 invalid = ~(y_parity.integer | zero_x) & (abs_x < k.exponent_field);
    const int4 zero_division = zero_x & (y >> 31) & ~(result_one | quiet_nan);
    // Each division and difference raises its flag in those lanes, and nothing in the others.
    opaque(as_float4(one) / opaque(as_float4(one & ~zero_division)));
    const float4 infinity_or_0 = opaque(as_float4(invalid & k.exponent_field));
    opaque(infinity_or_0 - opaque(infinity_or_0));

    const int4 grows = (abs_x > one) ^ (y >> 31);
    const int4 limit = (grows & k.exponent_field) | y_parity.odd;
    const int4 zero_infinity_nan = select(invalid | quiet_nan, k.abs_mask.value, limit);
    return {result_one | invalid | zero_x | settled, select(result_one, one, zero_infinity_nan),
            y_parity.odd};
}

// Some lane of x is not a positive normal number, or some lane of y is infinite or NaN.
[[gnu::noinline, gnu::cold]] static float4 powf4_special(int4 x, int4 y)
{
    const auto& k = tables::powf4;
    const auto [known, result, sign] = _pow_spec(x, y, k);
    if (lane_mask(known) == all_lanes4) return as_float4(result);

    int4 magnitude = x & k.abs_mask;
    int4 bias = k.bias;
    const int4 tiny = (magnitude < k.mantissa_field) & ~known;
    if (lane_mask(tiny) != 0) {
        // Subnormal numbers times 2^126, exactly. The largest one goes as it is (2^-24 too large).
        const int4 normalised = as_int4(as_float4((magnitude & tiny) | as_int4(k.one)) - k.one);
        magnitude = select(tiny, normalised, magnitude);
        bias = select(tiny, k.bias_normalised, bias);
    }
    // Known lanes pass as |x|^0, which raises nothing.
    const Wide w = scaled_logarithm(magnitude, bias, as_float4(y & ~known), k);
    // Negative x is beyond the range from the high word of 708 on, positive x above it.
    const int4 beyond = (high_words_of(w) & k.abs_mask) > (x >> 31) + k.largest_exponent;
    if (lane_mask(beyond) != 0) {
        const int4 power = as_int4(raise_two_but(beyond, w, k)) | sign;
        return as_float4(select(known | beyond, result, power));
    }
    const int4 power = as_int4(narrow(power_of_two(w.low, k), power_of_two(w.high, k))) | sign;
    return as_float4(select(known, result, power));
}

float4 powf4(float4 x, float4 y)
{
    const auto& k = tables::powf4;
    const int4 special = (as_int4(x) > k.largest_finite) | (as_int4(x) < k.mantissa_field) |
                         ((as_int4(y) & k.exponent_field) == k.exponent_field);
    if (lane_mask(special) != 0) [[unlikely]]
        return powf4_special(as_int4(x), as_int4(y));
    return raise_two(scaled_logarithm(as_int4(x), k.bias, y, k), k);
}

} // namespace zelk::ZELK_TIER
