// 80-bit numbers as sums of binary64, which the SSE unit computes with in half the time of the x87 unit: a
// product is exact when its factors have at most 53 bits together, a sum when it needs no more. What a result
// is made of goes to the x87 unit for the last one or two additions.
//
// Exactness holds in every rounding mode; splits that round may then be twice as far from the whole.
#pragma once

#include "extended/arithmetic.h"

#include <emmintrin.h>

namespace zelk::ZELK_TIER {

// hi + lo, |lo| below an ulp of hi.
struct Parts {
    double hi;
    double lo;
};

ZELK_INLINE double number_from(__m128i lane)
{
    return _mm_cvtsd_f64(_mm_castsi128_pd(lane));
}
ZELK_INLINE __m128i bits_from(double x)
{
    return _mm_castpd_si128(_mm_set_sd(x));
}
// The sign, exponent and last bits of a binary64 in place.
ZELK_INLINE __m128i at_exponent(int n)
{
    return _mm_slli_epi64(_mm_cvtsi32_si128(n), 52);
}
// A mask or value of 64 bits.
ZELK_INLINE __m128i lane_of(std::uint64_t bits)
{
    return _mm_set_epi32(0, 0, static_cast<int>(bits >> 32), static_cast<int>(bits));
}
inline constexpr int bias64 = 1023;

// A number as it lies on the stack, read in pieces no wider than what a caller pushed.
class StackedNumber {
public:
    [[gnu::always_inline]] explicit StackedNumber(const long double& x) : words_(reinterpret_cast<Piece*>(&x))
    {
        asm("" : "+r"(words_) : "m"(x));
    }
    [[gnu::always_inline]] std::uint32_t upper() const { return words_[1]; }
    [[gnu::always_inline]] unsigned sign_exponent() const
    {
        return reinterpret_cast<const HalfPiece*>(words_)[4];
    }
    // Of the absolute value.
    [[gnu::always_inline]] int biased_exponent() const { return static_cast<int>(sign_exponent() & 0x7FFF); }
    [[gnu::always_inline]] __m128i significand() const
    {
        if constexpr (stores_in_halves)
            return _mm_unpacklo_epi32(_mm_cvtsi32_si128(static_cast<int>(words_[0])),
                                      _mm_cvtsi32_si128(static_cast<int>(words_[1])));
        else
            return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(words_));
    }

private:
    using Piece [[gnu::may_alias]] = const std::uint32_t;
    using HalfPiece [[gnu::may_alias]] = const std::uint16_t;
    Piece* words_;
};

// 2^from <= |x| < 2^to, and x has its integer bit.
ZELK_INLINE bool in_binades(const StackedNumber& x, int from, int to)
{
    return static_cast<unsigned>(x.biased_exponent() - (exponent_bias + from)) <
               static_cast<unsigned>(to - from) &&
           x.upper() >> 31 != 0;
}

// |x|, 2^-900 <= |x| < 2^900: 53 bits and 11.
ZELK_INLINE Parts magnitude_parts(const StackedNumber& x)
{
    const __m128i significand = x.significand();
    // The integer bit adds 1 to the exponent.
    const int exponent = x.biased_exponent() - exponent_bias + bias64;
    const __m128i hi = _mm_add_epi64(_mm_srli_epi64(significand, 11), at_exponent(exponent - 1));
    const __m128i zero = at_exponent(exponent - 11);
    const __m128i lo = _mm_or_si128(_mm_and_si128(significand, lane_of(0x7FF)), zero);
    return {number_from(hi), number_from(lo) - number_from(zero)};
}

// What the x87 unit has computed, |x| < 2^1023: 53 bits and the rest.
ZELK_INLINE Parts parts_of(long double x)
{
    const auto hi = static_cast<double>(x);
    return {hi, static_cast<double>(x - hi)};
}

// The sign of x alone.
ZELK_INLINE double sign_of(const StackedNumber& x)
{
    return number_from(at_exponent(static_cast<int>(x.sign_exponent() >> 15 << 11)));
}
ZELK_INLINE double exclusive_or(double x, double sign)
{
    return _mm_cvtsd_f64(_mm_xor_pd(_mm_set_sd(x), _mm_set_sd(sign)));
}
ZELK_INLINE Parts with_sign(Parts x, double sign)
{
    return {exclusive_or(x.hi, sign), exclusive_or(x.lo, sign)};
}

// a + b exactly, |a| >= |b|.
ZELK_INLINE Parts fast_two_sum(double a, double b)
{
    const double sum = a + b;
    return {sum, b - (sum - a)};
}
// a + b exactly.
ZELK_INLINE Parts two_sum(double a, double b)
{
    const double sum = a + b;
    const double b_part = sum - a;
    return {sum, (a - (sum - b_part)) + (b - b_part)};
}

// The 25 leading bits and the rest.
ZELK_INLINE Parts halves(double x)
{
    const double hi = number_from(_mm_and_si128(bits_from(x), lane_of(0xFFFFFFFFF0000000)));
    return {hi, x - hi};
}

// a (b.hi + b.lo) - 1, which is below 2^-23: within 2^-76.
ZELK_INLINE double product_less_one(double a, Parts b)
{
    const Parts x = halves(a);
    const Parts y = halves(b.hi);
    return ((x.hi * y.hi - 1) + x.lo * y.hi) + a * (y.lo + b.lo);
}

// sqrt x
ZELK_INLINE double square_root(double x)
{
    return _mm_cvtsd_f64(_mm_sqrt_sd(_mm_setzero_pd(), _mm_set_sd(x)));
}

} // namespace zelk::ZELK_TIER
