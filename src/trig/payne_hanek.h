// Exact reduction of binary64 arguments in integer arithmetic, for the scalar trigonometric routines.
#pragma once

#include "lanes/lanes.h"
#include "tables/two_over_pi.h"

namespace zelk::ZELK_TIER {

// x = part 2 pi / 2^bits + (head + tail) pi/4: the bits leading fraction bits of x/(2 pi), rounded to
// nearest, are the part (negated for x < 0; more than its low bits means nothing), and what is left is a head
// of 30 significant bits and a tail of 53.
struct PartOfTurn {
    std::uint32_t part;
    double head;
    double tail;
};

// |x|/(2 pi) less whole turns: the 192 bits after the binary point, the most significant word last.
struct Turns {
    std::uint64_t word[3];
};

// For exponents from 1014 (|x| >= 2^-9) on.
[[maybe_unused]] static inline Turns turns_of(double x)
{
    // The significand times a run of eight words of 2/pi. Words before the run contribute whole turns; the
    // last word leaves an error below 2^-171 of a turn.
    const auto pattern = __builtin_bit_cast(std::uint64_t, x);
    const unsigned distance = static_cast<unsigned>(pattern >> 52 & 0x7FF) - 1014;
    const unsigned shift = distance % 32;
    const std::uint32_t* const run = tables::two_over_pi + distance / 32;
    const std::uint64_t significand = (pattern & 0xFFFFFFFFFFFFF) | 0x10000000000000;
    const std::uint64_t low = significand & 0xFFFFFFFF;
    const std::uint64_t high = significand >> 32;

    std::uint64_t product[4]; // modulo 2^256, least significant word first
    std::uint64_t carry = 0;
    std::uint64_t high_product = 0;
    for (unsigned i = 0; i < 8; ++i) {
        const std::uint64_t low_product = low * run[7 - i];
        const std::uint64_t sum = (low_product & 0xFFFFFFFF) + (high_product & 0xFFFFFFFF) + carry;
        carry = (low_product >> 32) + (high_product >> 32) + (sum >> 32);
        high_product = high * run[7 - i];
        if (i % 2 == 0)
            product[i / 2] = sum & 0xFFFFFFFF;
        else
            product[i / 2] |= sum << 32;
    }
    // x/(2 pi) = product 2^(shift - 255), modulo 1.
    Turns turns;
    for (unsigned i = 0; i < 3; ++i)
        turns.word[i] = product[i + 1] << (shift + 1) | product[i] >> (63 - shift);
    return turns;
}

// n < 2^63 as binary64, rounded once: the compiler's conversion goes through the x87 unit on 32-bit x86, and
// that unit has a rounding mode of its own.
static inline double round_to_double(std::uint64_t n)
{
    return static_cast<double>(static_cast<std::int32_t>(n >> 32)) * 0x1p32 +
           static_cast<double>(static_cast<std::uint32_t>(n));
}

// bits = 3: x = part pi/4 + ...; bits = 2: x = part pi/2 + ....
[[maybe_unused]] static inline PartOfTurn reduce_exactly(double x, unsigned bits)
{
    const Turns turns = turns_of(x);
    std::uint64_t fraction[3]; // least significant word first
    std::uint32_t part = static_cast<std::uint32_t>(turns.word[2] >> (64 - bits));
    fraction[0] = turns.word[0] << bits;
    fraction[1] = turns.word[1] << bits | turns.word[0] >> (64 - bits);
    fraction[2] = turns.word[2] << bits | turns.word[1] >> (64 - bits);

    bool negative = __builtin_bit_cast(std::uint64_t, x) >> 63 != 0;
    if (negative) part = -part;
    if (fraction[2] >> 63) {
        part += negative ? -1u : 1u;
        negative = !negative;
        fraction[0] = -fraction[0];
        fraction[1] = ~fraction[1] + (fraction[0] == 0);
        fraction[2] = ~fraction[2] + (fraction[0] == 0 && fraction[1] == 0);
    }

    // No binary64 comes within 2^-62 of a multiple of pi/4: the leading one is in the top word.
    const auto zeros = static_cast<unsigned>(__builtin_clzll(fraction[2]));
    std::uint64_t top = fraction[2];
    std::uint64_t next = fraction[1];
    if (zeros != 0) {
        top = top << zeros | next >> (64 - zeros);
        next = next << zeros | fraction[0] >> (64 - zeros);
    }
    const auto leading_30 = static_cast<std::int32_t>(top >> 34);
    const std::uint64_t following_63 = (top << 30 | next >> 34) >> 1;

    // A fraction of 2 pi / 2^bits in units of pi/4, and the weights of the two integers' last bits.
    const std::uint64_t sign = std::uint64_t{negative} << 63;
    const std::uint64_t exponent = 1023 + 3 - bits - zeros;
    const double head_weight = __builtin_bit_cast(double, sign | (exponent - 30) << 52);
    const double tail_weight = __builtin_bit_cast(double, sign | (exponent - 93) << 52);
    return {part, leading_30 * head_weight, round_to_double(following_63) * tail_weight};
}

} // namespace zelk::ZELK_TIER
