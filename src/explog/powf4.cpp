// x^y on four binary32 lanes.
// Method: 2^w, w = y log2|x|, both in binary64 and without a table. log2: |x| = 2^e m, 0.7071 <= m < 1.4143,
// and an odd polynomial in s = (m - 1)/(m + 1), the quotient from the processor's reciprocal estimate. 2^w:
// the product of three quadratics in f = w - round(w). A lane whose result is known beforehand carries that
// result in place of w, marked as a NaN that no product gives.
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

// Lanes beyond 708 are zero or infinite as w is below or above 0; marked lanes have their result in the low
// word.
[[gnu::noinline, gnu::cold]] static float4 raise_two_beyond(double2 w_low, double2 w_high)
{
    const auto& k = tables::powf4;
    const int4 beyond_low = is_beyond(w_low, k);
    const int4 beyond_high = is_beyond(w_high, k);
    // Such lanes pass through the power as zeros: they must not raise anything there.
    const float4 ordinary = narrow(power_of_two(as_double2(as_long2(w_low) & ~as_long2(beyond_low)), k),
                                   power_of_two(as_double2(as_long2(w_high) & ~as_long2(beyond_high)), k));
    const int4 high = odd_words(as_int4(w_low), as_int4(w_high));
    const int4 low = even_words(as_int4(w_low), as_int4(w_high));
    const int4 known = select(high == -1, low, ~(high >> 31) & k.exponent_field);
    return as_float4(select(even_words(beyond_low, beyond_high), known, as_int4(ordinary)));
}

ZELK_INLINE float4 raise_two(const Wide& w, const Powf4& k)
{
    if (lane_mask(is_beyond(w.low, k) | is_beyond(w.high, k)) != 0) [[unlikely]]
        return raise_two_beyond(w.low, w.high);
    return narrow(power_of_two(w.low, k), power_of_two(w.high, k));
}

constexpr std::uint32_t one = 0x3F800000;
constexpr std::uint32_t infinity = 0x7F800000;
constexpr std::uint32_t nan = 0x7FFFFFFF;
constexpr std::uint32_t sign_bit = 0x80000000;
constexpr std::uint32_t even = 0x40000000;
constexpr std::uint32_t odd = 0x80000000;

// even, odd, or 0 for what is not an integer.
static inline std::uint32_t _int_test(std::uint32_t y)
{
    const std::uint32_t magnitude = y & ~sign_bit;
    if (magnitude >= infinity) return 0;
    if (magnitude >= 0x4B800000) return even; // 2^24
    if (magnitude >= 0x4B000000) return magnitude & 1 ? odd : even;
    const float a = __builtin_bit_cast(float, magnitude);
    const float t = a + 0x1p23f;
    if (t - 0x1p23f != a) return 0;
    return __builtin_bit_cast(std::uint32_t, t) & 1 ? odd : even;
}

// The pattern of 2^w in binary32.
static inline std::uint32_t _Exp2(std::int64_t w)
{
    const double2 power = power_of_two(as_double2(long2{w, w}), tables::powf4);
    return as_uint4(narrow(power, power))[0];
}

static inline std::int64_t marked(std::uint32_t result)
{
    return static_cast<std::int64_t>(0xFFFFFFFF00000000 | result);
}

static inline std::int64_t spec_lane(std::uint32_t x, std::uint32_t y, bool special_x, std::int64_t w)
{
    const std::uint32_t abs_x = x & ~sign_bit;
    const std::uint32_t abs_y = y & ~sign_bit;
    const bool negative_y = y != abs_y;
    if (abs_y == 0) return marked(one);
    if (abs_x > infinity || abs_y > infinity) return marked(x == one ? one : nan);
    if (special_x) {
        const std::uint32_t parity = _int_test(y);
        const std::uint32_t sign = parity == odd ? x & sign_bit : 0;
        if (abs_x == 0) {
            if (negative_y) _raise_zerodivide();
            return marked(sign | (negative_y ? infinity : 0));
        }
        if (abs_x == infinity) return marked(sign | (negative_y ? 0 : infinity));
        if (parity != 0) {
            const auto magnitude = static_cast<std::uint32_t>(w >> 32) & ~sign_bit;
            if (magnitude < 0x40862000) return marked(sign | _Exp2(w));
            return marked(sign | (w < 0 ? 0 : infinity));
        }
        if (abs_y != infinity) {
            _raise_invalid();
            return marked(nan);
        }
    }
    if (x == one) return marked(one);
    if (abs_y == infinity) {
        if (abs_x == one) return marked(one);
        return marked((abs_x > one) != negative_y ? infinity : 0);
    }
    return w;
}

// Bit i of special_x is set if lane i of x is zero, negative, infinite or NaN; that of known, for each lane
// of which the result may be known.
static inline Wide _pow_spec(unsigned known, unsigned special_x, uint4 x, uint4 y, const Wide& w)
{
    long2 lanes[2] = {as_long2(w.low), as_long2(w.high)};
    for (; known != 0; known &= known - 1) {
        const auto i = static_cast<unsigned>(__builtin_ctz(known));
        lanes[i / 2][i % 2] = spec_lane(x[i], y[i], special_x >> i & 1, lanes[i / 2][i % 2]);
    }
    return {as_double2(lanes[0]), as_double2(lanes[1])};
}

// Some lane of x is not a positive normal number, or some lane of y is infinite or NaN.
[[gnu::noinline, gnu::cold]] static float4 powf4_special(int4 x, int4 y)
{
    const auto& k = tables::powf4;
    const int4 zero = (x == 0) & (y > 0) & (y < k.exponent_field); // lanes of +0 to a positive power
    if (lane_mask(zero) == all_lanes4) return float4{};
    x = select(zero, as_int4(k.one), x);
    y = select(zero, as_int4(k.one), y);

    // Subnormal numbers times 2^126, exactly. The largest one goes as it is (2^-24 too large).
    const int4 magnitude = x & k.abs_mask;
    const int4 tiny = magnitude < k.mantissa_field;
    const int4 normalised = as_int4(as_float4((magnitude & tiny) | as_int4(k.one)) - k.one);
    const int4 special_x = (x <= 0) | (x > k.largest_finite);
    const int4 special_y = (y & k.exponent_field) == k.exponent_field;
    Wide w = scaled_logarithm(select(tiny, normalised, magnitude), select(tiny, k.bias_normalised, k.bias),
                              as_float4(y & ~special_y), k);
    if (lane_mask(special_x | special_y) != 0) {
        const int4 result_one = (x == as_int4(k.one)) | ((y & k.abs_mask) == 0);
        w = _pow_spec(lane_mask(special_x | special_y | result_one), lane_mask(special_x), as_uint4(x),
                      as_uint4(y), w);
    }
    return as_float4(as_int4(raise_two(w, k)) & ~zero);
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
