// What the 80-bit routines are made of: the words of the format, integers and powers of two, and pairs of
// numbers that carry 128 significant bits.
//
// The x87 control word is the caller's. The exactness claims hold for 64-bit significands in round to
// nearest; with fewer bits or in the directed modes a pair loses precision, never more.
#pragma once

#include "lanes/lanes.h"
#include "tables/wide.h"

#include <cstddef>
#include <xmmintrin.h>

namespace zelk::ZELK_TIER {

// The words of a number: the significand with its integer bit, sign and biased exponent.
struct Words {
    std::uint64_t significand;
    std::uint16_t sign_exponent;

    [[gnu::always_inline]] int biased_exponent() const { return sign_exponent & 0x7FFF; }
    [[gnu::always_inline]] bool negative() const { return sign_exponent >> 15 != 0; }
    // Zero and denormals (pseudo-denormals too, which have the integer bit).
    [[gnu::always_inline]] bool below_normal() const { return biased_exponent() == 0; }
    // Infinities, NaNs and everything without an integer bit that should have one: no finite number.
    [[gnu::always_inline]] bool not_finite() const
    {
        return biased_exponent() == 0x7FFF || (biased_exponent() != 0 && significand >> 63 == 0);
    }
    [[gnu::always_inline]] bool infinite() const
    {
        return biased_exponent() == 0x7FFF && significand == std::uint64_t{1} << 63;
    }
    [[gnu::always_inline]] bool quiet_nan() const
    {
        return biased_exponent() == 0x7FFF && significand >> 62 == 3;
    }
    // Signalling NaNs and unsupported encodings.
    [[gnu::always_inline]] bool invalid_operand() const
    {
        return not_finite() && !infinite() && !quiet_nan();
    }
    [[gnu::always_inline]] bool zero() const { return biased_exponent() == 0 && significand == 0; }
};
inline constexpr int exponent_bias = 16383;

// 2^from <= |x| < 2^to, and x has its integer bit: the numbers that a routine takes on its main path.
ZELK_INLINE bool in_binades(Words x, int from, int to)
{
    return static_cast<unsigned>(x.biased_exponent() - (exponent_bias + from)) <
               static_cast<unsigned>(to - from) &&
           x.significand >> 63 != 0;
}

union WordsOrNumber {
    long double number;
    Words words;
};

ZELK_INLINE Words words_of(long double x)
{
    WordsOrNumber both;
    both.number = x;
    return both.words;
}
ZELK_INLINE long double number_of(std::uint64_t significand, int sign_exponent)
{
    WordsOrNumber both;
    both.words = {significand, static_cast<std::uint16_t>(sign_exponent)};
    return both.number;
}

// What was stored in two pieces takes long to load in one (130 cycles of waiting), and without SSE2 the
// 32-bit target stores anything wider than an integer register in pieces.
inline constexpr bool stores_in_halves = sizeof(void*) == 4;
using Word [[gnu::may_alias]] = float;

// An argument as it lies on the stack. Callers of the 32-bit target push it in words, and a load of 80 bits
// would wait until these have reached the cache, after everything before them: 110 cycles. What is loaded
// word by word and stored in the two pieces that such a load is made of is at hand.
ZELK_INLINE long double argument(const long double& x)
{
    if constexpr (stores_in_halves) {
        union {
            struct {
                __m64 significand;
                std::uint16_t sign_exponent;
            } parts;
            long double number;
        } copy;
        const auto* word = reinterpret_cast<const Word*>(&x);
        unsigned sign_exponent;
        asm("movzwl 8(%1), %0" : "=r"(sign_exponent), "+r"(word) : "m"(x));
        _mm_storel_pi(&copy.parts.significand, _mm_unpacklo_ps(_mm_load_ss(word), _mm_load_ss(word + 1)));
        copy.parts.sign_exponent = static_cast<std::uint16_t>(sign_exponent);
        asm("" : "+m"(copy));
        return copy.number;
    } else {
        return x;
    }
}

// 2^n, -16382 <= n <= 16383.
ZELK_INLINE long double power_of_two(int n)
{
    if constexpr (stores_in_halves) {
        if (static_cast<unsigned>(n + 126) <= 253) [[likely]]
            return __builtin_bit_cast(float, (n + 127) << 23);
    }
    if (static_cast<unsigned>(n + 1022) > 2045) [[unlikely]]
        return number_of(std::uint64_t{1} << 63, n + exponent_bias);
    return __builtin_bit_cast(double, static_cast<std::uint64_t>(n + 1023) << 52);
}

ZELK_INLINE long double from_integer(std::uint32_t n)
{
    if constexpr (stores_in_halves)
        return static_cast<long double>(static_cast<std::int32_t>(n ^ 0x80000000)) + 0x1p31f;
    else
        return static_cast<long double>(static_cast<std::int64_t>(n));
}
// Where the halves would be stored apart, they are joined in an SSE register first.
ZELK_INLINE long double from_integer(std::int64_t n)
{
    if constexpr (stores_in_halves) {
        const auto low = static_cast<std::uint32_t>(n);
        const auto high = static_cast<std::uint32_t>(n >> 32);
        struct {
            std::int64_t value;
        } joined; // a member is aligned to 4 bytes, as the stack is
        float halves;
        float upper;
        asm("movss %3, %1\n\tmovss %4, %2\n\tunpcklps %2, %1\n\tmovlps %1, %0"
            : "=m"(joined.value), "=&x"(halves), "=&x"(upper)
            : "m"(low), "m"(high));
        return static_cast<long double>(joined.value);
    } else {
        return static_cast<long double>(n);
    }
}

// The nearest integer in the current rounding mode, |x| < 2^31. (A conversion in C++ would change the control
// word.)
ZELK_INLINE int round_to_int(long double x)
{
    int n;
    asm("fistpl %0" : "=m"(n) : "t"(x) : "st");
    return n;
}

ZELK_INLINE long double magnitude(long double x)
{
    asm("fabs" : "+t"(x));
    return x;
}
ZELK_INLINE long double square_root(long double x)
{
    asm("fsqrt" : "+t"(x));
    return x;
}

// Keeps an operation that is done for its flag: the compiler knows nothing of the value afterwards.
ZELK_INLINE long double opaque(long double x)
{
    asm volatile("" : "+t"(x));
    return x;
}
ZELK_INLINE long double overflowed(bool negative)
{
    const long double huge = opaque(0x1p16383L);
    return negative ? -huge * huge : huge * huge;
}
ZELK_INLINE long double underflowed(bool negative)
{
    const long double tiny = opaque(0x1p-16382L);
    return negative ? -tiny * tiny : tiny * tiny;
}
// x, inexact and in the directed modes as if a little were added to (taken from) |x|.
ZELK_INLINE long double and_a_little(long double x)
{
    return x + x * 0x1p-70L;
}
ZELK_INLINE long double but_a_little(long double x)
{
    // A negative product is rounded the way of the result: of the smallest denormal nothing is taken in
    // upward rounding.
    return x + x * -0x1p-70L;
}
// NaN with invalid; the pole with divide-by-zero.
ZELK_INLINE long double invalid()
{
    const long double zero = opaque(0.0L);
    return zero / zero;
}
ZELK_INLINE long double pole(bool negative)
{
    const long double zero = opaque(0.0L);
    return negative ? -1.0L / zero : 1.0L / zero;
}

// c[0] + c[1] z + c[2] z^2 + ... by Horner's rule.
template <std::size_t i = 0, std::size_t n>
ZELK_INLINE long double polynomial(const tables::Wide (&c)[n], long double z)
{
    if constexpr (i + 1 == n)
        return c[i];
    else
        return c[i] + z * polynomial<i + 1>(c, z);
}

// x + x^3 P(x^2)
template <std::size_t n>
ZELK_INLINE long double odd_polynomial(const tables::Wide (&P)[n], long double x)
{
    const long double square = x * x;
    return x + x * square * polynomial(P, square);
}

// hi + lo, |lo| at most half an ulp of hi or a little above it.
struct Pair {
    long double hi;
    long double lo;
};

// Has both parts computed here. Of eight registers none is to spare for what a late lo is computed from, and
// to store and load 80-bit numbers is slow.
ZELK_INLINE Pair settled(Pair x)
{
    asm volatile("" : "+t"(x.hi), "+u"(x.lo));
    return x;
}

ZELK_INLINE long double settled(long double x)
{
    asm volatile("" : "+t"(x));
    return x;
}

// a + b exactly, |a| >= |b| or a = 0.
ZELK_INLINE Pair fast_two_sum(long double a, long double b)
{
    const long double sum = a + b;
    return {sum, b - (sum - a)};
}
// a + b exactly.
ZELK_INLINE Pair two_sum(long double a, long double b)
{
    const long double sum = a + b;
    const long double b_part = sum - a;
    return {sum, (a - (sum - b_part)) + (b - b_part)};
}

// x as two numbers of 32 bits; |x| < 2^16350.
ZELK_INLINE Pair split(long double x)
{
    const long double scaled = x * 0x1.00000001p32L;
    const long double hi = scaled - (scaled - x);
    return {hi, x - hi};
}
// a * b exactly, the product being normal and its low end above the denormals.
ZELK_INLINE Pair two_product(long double a, long double b)
{
    const long double product = a * b;
    const Pair x = split(a);
    const Pair y = split(b);
    return {product, ((x.hi * y.hi - product) + x.hi * y.lo + x.lo * y.hi) + x.lo * y.lo};
}

// Sums and products of pairs: relative error below 2^-120 when nothing cancels.
ZELK_INLINE Pair add(Pair a, Pair b)
{
    const Pair sum = two_sum(a.hi, b.hi);
    return fast_two_sum(sum.hi, sum.lo + (a.lo + b.lo));
}
ZELK_INLINE Pair add(Pair a, long double b)
{
    const Pair sum = two_sum(a.hi, b);
    return fast_two_sum(sum.hi, sum.lo + a.lo);
}
ZELK_INLINE Pair multiply(Pair a, Pair b)
{
    const Pair product = two_product(a.hi, b.hi);
    return fast_two_sum(product.hi, product.lo + (a.hi * b.lo + a.lo * b.hi));
}
ZELK_INLINE Pair multiply(Pair a, long double b)
{
    const Pair product = two_product(a.hi, b);
    return fast_two_sum(product.hi, product.lo + a.lo * b);
}
ZELK_INLINE Pair divide(Pair a, Pair b)
{
    const long double quotient = a.hi / b.hi;
    const Pair product = two_product(quotient, b.hi);
    const long double rest = (((a.hi - product.hi) - product.lo) + a.lo) - quotient * b.lo;
    return fast_two_sum(quotient, rest / b.hi);
}
// sqrt a, a > 0.
ZELK_INLINE Pair square_root(Pair a)
{
    const long double root = square_root(a.hi);
    const Pair square = two_product(root, root);
    return fast_two_sum(root, (((a.hi - square.hi) - square.lo) + a.lo) / (root + root));
}
ZELK_INLINE Pair with_sign(bool negative, Pair a)
{
    return negative ? Pair{-a.hi, -a.lo} : a;
}
ZELK_INLINE long double rounded(Pair a)
{
    return a.hi + a.lo;
}

// NaNs and unsupported encodings.
ZELK_INLINE bool not_a_number(Words x)
{
    return x.not_finite() && !x.infinite();
}

// x = significand 2^(exponent - 63), the integer bit set.
struct Normalised {
    std::uint64_t significand;
    int exponent;
};
// Of a normal number.
ZELK_INLINE Normalised normalised(Words words)
{
    return {words.significand, words.biased_exponent() - exponent_bias};
}
// Of a denormal number, not zero; pseudo-denormals have the integer bit already.
ZELK_INLINE Normalised normalised_denormal(Words words)
{
    const int shift = __builtin_clzll(words.significand);
    return {words.significand << shift, 1 - exponent_bias - shift};
}
// Of any finite number but zero.
ZELK_INLINE Normalised normalised_finite(Words words)
{
    return words.below_normal() ? normalised_denormal(words) : normalised(words);
}

// round(x 2^bits), 0 <= x <= 1, halves up: the same in every rounding mode.
ZELK_INLINE unsigned grid_index(long double x, int bits)
{
    const Words words = words_of(x);
    const int shift = exponent_bias + 62 - bits - words.biased_exponent();
    return shift > 63 ? 0 : static_cast<unsigned>((words.significand >> shift) + 1) >> 1;
}

// (hi + lo) 2^exponent with hi + lo in [0.5, 2), |lo| < 2^-8: one addition from the result.
struct ScaledPair {
    Pair value;
    int exponent;
};

// What a product with 2^exponent rounds that may leave the normal numbers.
[[maybe_unused, gnu::cold, gnu::noinline]] static long double scaled_far(Pair value, int exponent)
{
    const bool negative = value.hi < 0;
    if (exponent > 16384) return overflowed(negative);
    if (exponent > 0) return (value.hi + value.lo) * 0x1p16383L * power_of_two(exponent - 16383);
    if (exponent < -16447) return underflowed(negative);
    const long double scale = power_of_two(exponent + 256);
    const Pair sum = fast_two_sum(value.hi, value.lo);
    const long double head = sum.hi * scale;
    if (magnitude(head) >= 0x1p-16126L) return head * 0x1p-256L;
    // The product rounds to the denormal's width; what that took from the pair, its tail included, is rounded
    // to the same width and added, which is exact.
    const long double denormal = head * 0x1p-256L;
    return denormal + ((head - denormal * 0x1p256L) + sum.lo * scale) * 0x1p-256L;
}

// (hi + lo) 2^exponent, rounded once.
ZELK_INLINE long double rounded(ScaledPair x)
{
    if (x.exponent < -16381 || x.exponent > 16383) [[unlikely]]
        return scaled_far(x.value, x.exponent);
    return (x.value.hi + x.value.lo) * power_of_two(x.exponent);
}

} // namespace zelk::ZELK_TIER
