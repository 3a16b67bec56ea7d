// What the 80-bit functions share that load no argument and no constant as an 80-bit number: such a load
// waits for what the caller stored in pieces, and holds up the calls that follow.
#pragma once

#include "extended/arithmetic.h"
#include "tables/extended_arc.h"

namespace zelk::ZELK_TIER {

// The words of an argument that its caller stored, each read where it is: the compiler, if it knew, would
// copy the number first in 32-bit code.
ZELK_INLINE Words stored_words(const long double& x)
{
    using Word [[gnu::may_alias]] = std::uint32_t;
    const Word* words = reinterpret_cast<const Word*>(&x);
    asm("" : "+r"(words));
    const std::uint64_t high = words[1];
    return {high << 32 | words[0], static_cast<std::uint16_t>(words[2])};
}

// +-2^n, |n| <= 126, out of one word in memory.
ZELK_INLINE long double short_power_of_two(int n, bool negative = false)
{
    const auto word = static_cast<std::uint32_t>(127 + n) << 23 | static_cast<std::uint32_t>(negative) << 31;
    return __builtin_bit_cast(float, word);
}
// A number from its significand, integer bit set.
ZELK_INLINE long double number_of(std::uint64_t significand)
{
    return from_integer(static_cast<std::int64_t>(significand)) + 0x1p64L;
}

// An 80-bit number as two whose sum is exact: |lo| is at most 2^-32 of |hi|, which has 33 bits.
ZELK_INLINE Pair short_head(Words x)
{
    const int exponent = x.biased_exponent() - exponent_bias;
    const auto high = static_cast<std::int32_t>(x.significand >> 32 & 0x7FFFFFFF);
    const auto low = static_cast<std::int32_t>(static_cast<std::uint32_t>(x.significand) ^ 0x80000000);
    return {(high + 0x1.00000001p31L) * short_power_of_two(exponent - 31, x.negative()),
            low * short_power_of_two(exponent - 63, x.negative())};
}

// c[i] + c[i + 2] z + c[i + 4] z^2 + ....
template <std::size_t i, std::size_t n>
ZELK_INLINE long double every_second(const tables::Wide (&c)[n], long double z)
{
    if constexpr (i + 2 >= n)
        return c[i];
    else
        return c[i] + z * every_second<i + 2>(c, z);
}
// c[0] + c[1] z + c[2] z^2 + ... as two chains side by side.
template <std::size_t n>
ZELK_INLINE long double polynomial_in_halves(const tables::Wide (&c)[n], long double z)
{
    const long double z2 = z * z;
    return every_second<0>(c, z2) + z * every_second<1>(c, z2);
}

} // namespace zelk::ZELK_TIER
