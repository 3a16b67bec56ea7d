// Exact reduction of 80-bit arguments modulo pi/2 in integer arithmetic.
#pragma once

#include "extended/arithmetic.h"
#include "tables/extended_trig.h"

namespace zelk::ZELK_TIER {

// octant = floor(x 4/pi) modulo 8. The rest is what x is beyond the nearest multiple of pi/2, which is
// ((octant + 1) / 2) pi/2 modulo 2 pi: |rest| <= pi/4, with a relative error below 2^-93.
struct Reduced {
    unsigned octant;
    Pair rest;
};

// |x|/(2 pi) less whole turns: 192 bits after the binary point, the most significant word last.
struct Turns {
    std::uint64_t word[3];
};

// x >= 1/2.
static inline Turns turns_of(Words x)
{
    // The significand times a run of nine words of 2/pi, modulo 2^288. Words before the run contribute whole
    // turns; what follows it is below 2^-192 of a turn.
    const unsigned distance = static_cast<unsigned>(x.biased_exponent() - exponent_bias + 31);
    const unsigned shift = distance % 32;
    const std::uint32_t* const run = tables::extended_trig.two_over_pi + distance / 32;
    // x/(2 pi) = product 2^(shift - 288) modulo 1.
    Turns turns;
#if defined(__SIZEOF_INT128__)
    __extension__ using Wide = unsigned __int128;
    const auto words = [run](unsigned i) { return std::uint64_t{run[i]} << 32 | run[i + 1]; };
    std::uint64_t product[5]; // least significant word first, 32 bits in the last
    Wide sum = Wide{x.significand} * words(7);
    for (unsigned i = 1; i < 4; ++i) {
        sum = Wide{x.significand} * words(7 - 2 * i) + (sum >> 64);
        product[i] = static_cast<std::uint64_t>(sum);
    }
    product[4] = x.significand * run[0] + static_cast<std::uint64_t>(sum >> 64);
    for (unsigned i = 0; i < 3; ++i)
        turns.word[i] = product[i + 2] << (32 + shift) | product[i + 1] >> (32 - shift);
#else
    const std::uint64_t low = x.significand & 0xFFFFFFFF;
    const std::uint64_t high = x.significand >> 32;

    std::uint32_t product[9]; // least significant word first
    std::uint64_t carry = 0;
    std::uint64_t high_product = 0;
    for (unsigned i = 0; i < 9; ++i) {
        const std::uint64_t low_product = low * run[8 - i];
        const std::uint64_t sum = (low_product & 0xFFFFFFFF) + (high_product & 0xFFFFFFFF) + carry;
        carry = (low_product >> 32) + (high_product >> 32) + (sum >> 32);
        high_product = high * run[8 - i];
        product[i] = static_cast<std::uint32_t>(sum);
    }
    for (unsigned i = 0; i < 3; ++i) {
        const std::uint64_t upper = std::uint64_t{product[2 * i + 4]} << 32 | product[2 * i + 3];
        turns.word[i] = upper << shift | std::uint64_t{product[2 * i + 2]} << shift >> 32;
    }
#endif
    return turns;
}

// x finite, |x| > pi/4.
static inline Reduced reduce_large(Words x)
{
    const Turns turns = turns_of(x);
    unsigned octant = static_cast<unsigned>(turns.word[2] >> 61);
    // The quarter turns' fraction; a half or more belongs to the next quarter and is negative.
    std::uint64_t upper = turns.word[2] << 2 | turns.word[1] >> 62;
    std::uint64_t middle = turns.word[1] << 2 | turns.word[0] >> 62;
    std::uint64_t lower = turns.word[0] << 2;
    const bool beyond = upper >> 63 != 0;
    if (beyond) {
        lower = -lower;
        middle = ~middle + (lower == 0);
        upper = ~upper + (lower == 0 && middle == 0);
    }
    if (x.negative()) octant = 7 - octant;

    // The 80-bit number nearest to a multiple of a quarter turn is 2^-76.2 of one beside it: at most one word
    // is zero.
    int exponent = -1;
    if (upper == 0) {
        upper = middle;
        middle = lower;
        lower = 0;
        exponent -= 64;
    }
    const int zeros = __builtin_clzll(upper);
    exponent -= zeros;
    if (zeros != 0) {
        upper = upper << zeros | middle >> (64 - zeros);
        middle = middle << zeros | lower >> (64 - zeros);
    }
    // 32 leading bits, whose product with those of pi/2 is exact, and 63 more. (Signed integers are what the
    // x87 unit loads.)
    const auto leading = static_cast<std::int64_t>(upper >> 32);
    const auto following = static_cast<std::int64_t>((upper << 32 | middle >> 32) >> 1);
    const long double head = static_cast<long double>(leading) * power_of_two(exponent - 31);
    const long double tail = static_cast<long double>(following) * power_of_two(exponent - 94);
    const auto& k = tables::extended_trig;
    const Pair rest = fast_two_sum(head * k.half_pi_head, head * k.half_pi_rest + tail * k.half_pi);
    return {octant, with_sign(beyond != x.negative(), rest)};
}

// x finite.
ZELK_INLINE Reduced reduce(long double x)
{
    const Words words = words_of(x);
    if (magnitude(x) < tables::extended_trig.quarter_pi)
        return {words.negative() && !words.zero() ? 7u : 0u, {x, 0.0L}};
    return reduce_large(words);
}

} // namespace zelk::ZELK_TIER
