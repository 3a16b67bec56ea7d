// x^y on two binary64 lanes.
// Method: 2^(y log2 x). log2 x = H + lo: x = 2^e m, r = m c_i - c_0 with c_i about 1/(ln2 (1 + i/1024)) is
// the linear term itself, without rounding error, and a degree-7 polynomial in r gives the rest. y H is
// multiplied out exactly in its leading part, and 2^(k/128 + t) comes from a table of 2^(j/128) and a
// degree-5 polynomial. Vectors with a lane that this does not reach go lane by lane through pow_scalar: the
// same method extended to negative and subnormal x and to the ends of the range, and the table of special
// values.
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

using Bits = std::uint64_t;
constexpr Bits one = 0x3FF0000000000000;
constexpr Bits minus_one = 0xBFF0000000000000;
constexpr Bits infinity = 0x7FF0000000000000;
constexpr Bits minus_infinity = 0xFFF0000000000000;
constexpr Bits default_nan = 0xFFF8000000000000;
constexpr Bits sign_bit = 0x8000000000000000;

// 1 for odd integers, 2 for even ones (so for zeros and for everything from 2^53 on), 0 for all else.
static inline int TestInt(Bits y)
{
    const Bits magnitude = y & ~sign_bit;
    if (magnitude == 0) return 2;
    if (magnitude < one || magnitude >= infinity) return 0;
    if (magnitude >= 0x4340000000000000) return 2;
    const int fraction_bits = 0x433 - static_cast<int>(magnitude >> 52);
    if (magnitude & ((Bits{1} << fraction_bits) - 1)) return 0;
    return (magnitude >> fraction_bits) & 1 ? 1 : 2; // the bit above the fraction of 1.f is set
}

// The special values; the first rule that fits holds. Patterns in and out: as a double returned on i386 a
// signalling NaN would be quieted.
[[gnu::noinline, gnu::cold]] static Bits _ropdPow_HA_scalar(Bits x, Bits y)
{
    const Bits abs_x = x & ~sign_bit;
    const Bits abs_y = y & ~sign_bit;
    const bool negative_y = y != abs_y;
    if (abs_y == 0) return one;
    if (x == minus_one && abs_y == infinity) return one;
    if (x == one) return one;
    if (abs_x > infinity) return x;
    if (abs_y > infinity) return y;
    if (abs_x == 0 && y == minus_infinity) {
        _raise_zerodivide();
        return infinity;
    }
    if (abs_y == infinity) return (abs_x > one) != negative_y ? infinity : 0;

    const Bits sign = TestInt(y) == 1 ? x & sign_bit : 0;
    if (abs_x == infinity) return sign | (negative_y ? 0 : infinity);
    if (abs_x != 0) {
        _raise_invalid();
        return default_nan;
    }
    if (!negative_y) return sign;
    _raise_zerodivide();
    return sign | infinity;
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
    return __builtin_bit_cast(double, static_cast<Bits>(N + 1023) << 52);
}

[[gnu::noinline, gnu::cold]] static Bits pow_scalar(Bits x, Bits y)
{
    const auto& k = tables::pow2;
    const Bits abs_x = x & ~sign_bit;
    const Bits abs_y = y & ~sign_bit;
    if (abs_y == 0 || abs_y >= infinity || abs_x == 0 || abs_x >= infinity) return _ropdPow_HA_scalar(x, y);
    Bits sign = 0;
    if (x != abs_x) {
        const int parity = TestInt(y);
        if (parity == 0) return _ropdPow_HA_scalar(x, y);
        if (parity == 1) sign = sign_bit;
    }

    double2 base = as_double2(ulong2{abs_x, abs_x});
    double2 e;
    if (abs_x < 0x0010000000000000) {
        base = base * k.two_52;
        e = exponent_of(base, k) - k.fifty_two;
    } else {
        e = exponent_of(base, k);
    }
    const Parts2 log2_x = log2_of(base, e, k);
    const Bits H = as_ulong2(log2_x.hi)[0];
    const bool negative_exponent = ((H ^ y) & sign_bit) != 0;
    if (((H >> 52) & 0x7FF) + ((y >> 52) & 0x7FF) > 0x809) return sign | (negative_exponent ? 0 : infinity);

    const Exponent2 exponent = multiply(log2_x, as_double2(ulong2{y, y}), k);
    int N = as_int4(exponent.s)[0] >> 7;
    if (N >= 1025) return sign | infinity;
    if (N < -1075) return sign;
    const Parts2 power = power_of_two(exponent, k);
    const double lead = power.hi[0];
    const double tail = power.lo[0];
    double F = sign ? -1.0 : 1.0;
    if (N < -963) {
        const double scale = exact_power_of_two(N + 111);
        return __builtin_bit_cast(Bits, scale_down(lead * scale, tail * scale, F * 0x1p-111));
    }
    if (N >= 1023) {
        N -= 1;
        F = 2.0 * F;
    }
    return __builtin_bit_cast(Bits, (tail + lead) * exact_power_of_two(N) * F);
}

// Some lane of x is not a positive normal number, y is zero, infinite or NaN there, or the result is near or
// beyond the ends of the normal range.
[[gnu::noinline, gnu::cold]] static double2 pow2_special(ulong2 x, ulong2 y)
{
    ulong2 result = x;
    for (int lane = 0; lane < 2; ++lane) {
        const bool zero = x[lane] == 0 && y[lane] - 1 < infinity; // +0 to a positive power
        result[lane] = zero ? 0 : pow_scalar(x[lane], y[lane]);
    }
    return as_double2(result);
}

double2 pow2(double2 x, double2 y)
{
    const auto& k = tables::pow2;
    const Parts2 log2_x = log2_of(x, exponent_of(x, k), k);

    // A y of which the high word is zero is zero, or so small that it makes no difference here.
    const int4 high_x = high_words(as_int4(x));
    const int4 high_y = high_words(as_int4(y)) & k.abs_mask;
    const int4 high_H = high_words(as_int4(log2_x.hi)) & k.abs_mask;
    const int4 out_of_range = (high_H >> 20) + (high_y >> 20) > k.largest_exponents;
    if (lane_mask(as_long2((high_x < k.smallest_normal) | (high_x > k.largest_finite) | (high_y == 0) |
                           (high_y > k.largest_finite) | out_of_range)) != 0) [[unlikely]]
        return pow2_special(as_ulong2(x), as_ulong2(y));

    const Exponent2 exponent = multiply(log2_x, y, k);
    const int4 n = low_words(as_int4(exponent.s));
    if (lane_mask(as_long2((n < k.smallest_k) | (n > k.largest_k))) != 0) [[unlikely]]
        return pow2_special(as_ulong2(x), as_ulong2(y));

    const Parts2 power = power_of_two(exponent, k);
    const double2 scale = as_double2(((as_long2(exponent.s) << 45) + as_long2(k.one)) & k.exponent_field);
    return (power.lo + power.hi) * scale;
}

} // namespace zelk::ZELK_TIER
