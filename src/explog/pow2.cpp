// x^y on two binary64 lanes.
// Method: 2^(y log2 x). log2 x = H + lo: x = 2^e m, r = m c_i - c_0 with c_i about 1/(ln2 (1 + i/1024)) is
// the linear term itself, without rounding error, and a degree-7 polynomial in r gives the rest. y H is
// multiplied out exactly in its leading part, and 2^(k/128 + t) comes from a table of 2^(j/128) and a
// degree-5 polynomial. Where a lane needs it, the same is done with |x|, scaled if it is subnormal, the table
// of special values is a choice by masks on both lanes, and results near the ends of the range are scaled
// lane by lane.
#include "tables/pow2.h"
#include "dispatch/exceptions.h"
#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

using tables::Pow2;
using tables::Pow2Pair;

// A value in two parts, the first one leading.
struct Parts2 {
    double2 hi;
    double2 lo;
};

ZELK_INLINE Parts2 look_up(const Pow2Pair* table, int4 index)
{
    const __m128d row0 = _mm_load_pd(reinterpret_cast<const double*>(&table[index[0]]));
    const __m128d row1 = _mm_load_pd(reinterpret_cast<const double*>(&table[index[2]]));
    return {_mm_unpacklo_pd(row0, row1), _mm_unpackhi_pd(row0, row1)};
}

// The exponent of x, one more from 1.49951171875 times a power of two on.
ZELK_INLINE double2 exponent_of(double2 x, const Pow2& k)
{
    const int4 e = (as_int4(x) - k.exponent_pivot) >> 20;
    return as_double2((as_long2(e) & k.high_word_mask) + as_long2(k.converter)) - k.converter;
}

// e + log2 of x's significand (halved, where exponent_of counts one more).
ZELK_INLINE Parts2 log2_of(double2 x, double2 e, const Pow2& k)
{
    const int4 i = ((high_words(as_int4(x)) & k.index_mask) + k.rounding_bit) >> 10;
    const double2 c = as_double2(ulong2{k.reciprocal[i[0]], k.reciprocal[i[2]]});
    const Parts2 L = look_up(k.log, i);

    // m c = p + rc: 26 significant bits times 23 are exact, and so is p - c_0.
    const double2 m = as_double2((as_long2(x) & k.fraction_mask) | as_long2(k.one));
    const double2 m_hi = as_double2(as_long2(m) & k.split_mask);
    const double2 p = m * c;
    const double2 r_hi = p + k.minus_c_0;
    const double2 rc = (m_hi * c - p) + (m - m_hi) * c;
    const double2 r = rc + r_hi;

    // e + hi is exact, and at least as large as r_hi unless it is zero.
    const double2 eL = e + L.hi;
    const double2 S1 = eL + r_hi;
    const double2 error1 = (eL - S1) + r_hi;
    const double2 S2 = S1 + rc;
    const double2 error2 = (S1 - S2) + rc;

    const double2 q = r * r;
    const double2 P = (((k.L1 * q + k.L3) * q + k.L5) * q + k.L7) * r + ((k.L2 * q + k.L4) * q + k.L6) * q;
    const double2 lo = (error2 + error1 + L.lo) + P;
    const double2 H = S2 + lo;
    return {H, lo + (S2 - H)};
}

// y log2 x = k/128 + t, |t| <= 1/256 in round to nearest; s = 1.5 * 2^45 + k/128.
struct Exponent2 {
    double2 s;
    double2 t;
};

ZELK_INLINE Exponent2 multiply(const Parts2& log2_x, double2 y, const Pow2& k)
{
    const double2 Hh = as_double2(as_long2(log2_x.hi) & k.split_mask);
    const double2 Hl = log2_x.hi - Hh;
    const double2 yh = as_double2(as_long2(y) & k.split_mask);
    const double2 yl = y - yh;
    const double2 Ph = yh * Hh; // exact
    const double2 Pl = (Hl * yh + Hl * yl) + yl * Hh + log2_x.lo * y;
    const double2 s = Ph + k.shifter;
    return {s, ((k.shifter - s) + Ph) + Pl};
}

// 2^(j/128 + t), j = k mod 128: hi is 2^(j/128), lo all the rest.
ZELK_INLINE Parts2 power_of_two(const Exponent2& exponent, const Pow2& k)
{
    const Parts2 T = look_up(k.exp, as_int4(exponent.s) & 0x7F);
    const double2 t = exponent.t;
    const double2 q = t * t;
    return {T.hi,
            (((k.E5 * t + k.E4) * q * q * T.hi + T.lo) + (k.E3 * t + k.E2) * q * T.hi) + k.E1 * t * T.hi};
}

// |exponent| below 2^13: 2^exponent, where it lies between 2^-964 and 2^1023.
ZELK_INLINE double2 scaled_power(const Exponent2& exponent, const Pow2& k)
{
    const Parts2 power = power_of_two(exponent, k);
    const double2 scale = as_double2(((as_long2(exponent.s) << 45) + as_long2(k.one)) & k.exponent_field);
    return (power.lo + power.hi) * scale;
}

ZELK_INLINE bool beyond_ends(const Exponent2& exponent, const Pow2& k)
{
    const int4 n = low_words(as_int4(exponent.s));
    return lane_mask(as_long2((n < k.smallest_k) | (n > k.largest_k))) != 0;
}

// Lanes in which y log2 x may reach 2^13.
ZELK_INLINE long2 beyond_range(double2 H, double2 y, const Pow2& k)
{
    const int4 high_H = high_words(as_int4(H)) & k.abs_mask;
    const int4 high_y = high_words(as_int4(y)) & k.abs_mask;
    return as_long2((high_H >> 20) + (high_y >> 20) > k.largest_exponents);
}

// (lead + tail) F, |F| = 2^-111, for a result that may be subnormal: lead + tail is rounded once. lead + tail
// is taken apart into what F leaves exact, even multiples of the smallest number, and the rest, which F
// rounds.
static inline double scale_down(double lead, double tail, double F)
{
    const double sum = lead + tail;
    if (sum > 0x1p-911) return sum * F;
    const double shifter = 0x1.8p-910;
    const double coarse = (sum + shifter) - shifter;
    const double rest = (lead - coarse) + tail;
    return coarse * F + rest * F;
}

static inline double exact_power_of_two(int N)
{
    return __builtin_bit_cast(double, static_cast<std::uint64_t>(N + 1023) << 52);
}

// (lead + tail) 2^N F for any N, F = 1 or -1.
static inline double scale_by(int N, double lead, double tail, double F)
{
    if (N >= 1025) return F * __builtin_inf();
    if (N < -1075) return F * 0.0;
    if (N < -963) {
        const double scale = exact_power_of_two(N + 111);
        return scale_down(lead * scale, tail * scale, F * 0x1p-111);
    }
    if (N >= 1023) {
        N -= 1;
        F = 2.0 * F;
    }
    return (tail + lead) * exact_power_of_two(N) * F;
}

// 2^(s + t) with the sign of F, a lane of it at least near or beyond the ends of the range.
[[gnu::noinline, gnu::cold]] static double2 power_at_ends(double2 s, double2 t, double2 F)
{
    const Parts2 power = power_of_two({s, t}, tables::pow2);
    const int4 N = as_int4(s) >> 7;
    return double2{scale_by(N[0], power.hi[0], power.lo[0], F[0]),
                   scale_by(N[2], power.hi[1], power.lo[1], F[1])};
}

// Lanes that are integers, and the sign bit where they are odd. For numbers below 2^53.
struct Parity2 {
    long2 integer;
    long2 odd;
};
ZELK_INLINE Parity2 TestInt(double2 magnitude, const Pow2& k)
{
    // From 2^52 on the last bit of the pattern is that of the number as it is.
    const double2 shifter = as_double2(less_lanes(magnitude, k.two_52) & as_long2(k.two_52));
    const double2 shifted = magnitude + shifter;
    const long2 integer = equal_lanes(shifted - shifter, magnitude);
    return {integer, (as_long2(shifted) << 63) & integer};
}

// The special values: `known` lanes have the result `result`. In the others `sign` belongs to the power of
// |x|, and `result` is what becomes of it beyond the range: zero or infinity, with that sign.
struct Special2 {
    long2 known;
    long2 result;
    long2 sign;
};

ZELK_INLINE Special2 special_powers(long2 x, long2 y, const Pow2& k)
{
    const long2 nan_x = negative_lanes(k.infinity - (x & k.magnitude_mask));
    const long2 nan_y = negative_lanes(k.infinity - (y & k.magnitude_mask));
    // Comparisons of floats see zeros in the place of NaNs.
    const double2 number_x = as_double2(x & ~nan_x);
    const double2 abs_x = as_double2(as_long2(number_x) & k.magnitude_mask);
    const double2 abs_y = as_double2(y & k.magnitude_mask & ~nan_y);
    const double2 infinity = as_double2(k.infinity);
    const long2 zero_x = equal_lanes(abs_x, double2{});
    const long2 infinite_y = equal_lanes(abs_y, infinity);
    const long2 result_one = equal_lanes(number_x, k.one) | (equal_lanes(abs_y, double2{}) & ~nan_y) |
                             (equal_lanes(abs_x, k.one) & infinite_y);

    // Only negative x asks whether y is an integer; from 2^53 on every number is even, as zero is.
    const long2 negative_y = negative_lanes(y);
    const long2 asks = negative_lanes(x) & less_lanes(abs_y, k.two_53);
    const auto [integer, odd] = TestInt(as_double2(as_long2(abs_y) & asks), k);
    const long2 invalid = ~(integer | zero_x) & less_lanes(abs_x, infinity);
    const long2 zero_division = zero_x & negative_y & ~(result_one | nan_x | nan_y);
    // Each division and difference raises its flag in those lanes, and nothing in the others.
    opaque(k.one / opaque(as_double2(as_long2(k.one) & ~zero_division)));
    const double2 infinity_or_0 = opaque(as_double2(invalid & k.infinity));
    opaque(infinity_or_0 - opaque(infinity_or_0));

    const long2 grows = less_lanes(k.one, abs_x) ^ negative_y;
    long2 result = (grows & k.infinity) | odd;
    result = select(invalid, k.default_nan, result);
    result = select(nan_y, y, result);
    result = select(nan_x, x, result);
    result = select(result_one, as_long2(k.one), result);
    return {result_one | nan_x | nan_y | invalid | zero_x | infinite_y | equal_lanes(abs_x, infinity), result,
            odd};
}

// The logarithm of |x|, some lane of it negative or subnormal.
ZELK_INLINE Parts2 log2_of_magnitude(double2 x, const Pow2& k)
{
    const double2 magnitude = as_double2(as_long2(x) & k.magnitude_mask);
    const long2 tiny = as_long2(high_words(as_int4(magnitude)) < k.smallest_normal);
    const double2 base = select(tiny, as_double2(as_long2(magnitude) & tiny) * k.two_52, magnitude);
    const double2 e = exponent_of(base, k);
    return log2_of(base, select(tiny, e - k.fifty_two, e), k);
}

// Some lane of x is not a positive normal number, or y is zero, infinite or NaN there, or y log2 x may reach
// 2^13. H + lo is the logarithm in lanes where x is a positive normal number, and some finite number in
// others.
[[gnu::noinline, gnu::cold]] static double2 pow2_special(double2 x, double2 y, double2 H, double2 lo)
{
    const auto& k = tables::pow2;
    const auto [known, result, sign] = special_powers(as_long2(x), as_long2(y), k);
    if (lane_mask(known) == all_lanes2) return as_double2(result);

    Parts2 log2_x = {H, lo};
    const long2 below_normal = as_long2(high_words(as_int4(x)) < k.smallest_normal); // negative ones too
    if (lane_mask(below_normal & ~known) != 0) log2_x = log2_of_magnitude(x, k);

    // Known lanes, and those beyond the range, pass as powers 0.
    const long2 given = known | beyond_range(log2_x.hi, as_double2(as_long2(y) & ~known), k);
    const Exponent2 exponent = multiply(log2_x, as_double2(as_long2(y) & ~given), k);
    double2 power;
    if (beyond_ends(exponent, k))
        power = power_at_ends(exponent.s, exponent.t, as_double2(as_long2(k.one) | sign));
    else
        power = as_double2(as_long2(scaled_power(exponent, k)) | sign);
    return select(given, as_double2(result), power);
}

double2 pow2(double2 x, double2 y)
{
    const auto& k = tables::pow2;
    const Parts2 log2_x = log2_of(x, exponent_of(x, k), k);

    // A y of which the high word is zero is zero, or so small that it makes no difference here.
    const int4 high_x = high_words(as_int4(x));
    const int4 high_y = high_words(as_int4(y)) & k.abs_mask;
    if (lane_mask(as_long2((high_x < k.smallest_normal) | (high_x > k.largest_finite) | (high_y == 0) |
                           (high_y > k.largest_finite)) |
                  beyond_range(log2_x.hi, y, k)) != 0) [[unlikely]]
        return pow2_special(x, y, log2_x.hi, log2_x.lo);

    const Exponent2 exponent = multiply(log2_x, y, k);
    if (beyond_ends(exponent, k)) [[unlikely]]
        return power_at_ends(exponent.s, exponent.t, k.one);
    return scaled_power(exponent, k);
}

} // namespace zelk::ZELK_TIER
