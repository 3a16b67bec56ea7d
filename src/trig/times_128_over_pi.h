// How the scalar tangent of binary32 starts.
#pragma once

#include "lanes/lanes.h"
#include "tables/inverse_pi_chunks.h"

namespace zelk::ZELK_TIER {

// x 128/pi = s + rest, less a multiple of what the chunks are made for, for any finite x.
struct GridProduct {
    double s;
    double rest;
};

[[maybe_unused]] static inline GridProduct times_128_over_pi(float x, const tables::InversePiChunks& chunks)
{
    const double X = x;
    const std::uint32_t exponent = (__builtin_bit_cast(std::uint32_t, x) >> 23) & 0xFF;
    const auto& chunk = chunks[exponent >= 142 ? (exponent - 142) / 8 : 0];
    const double H1 = __builtin_bit_cast(double, chunk.packed & 0xFFFFFFFFFF000000);
    const double H2 = __builtin_bit_cast(double, chunk.packed << 40);

    // H1 has 29 and H2 13 significant bits, x has 24: p1 and p2 are exact.
    const double p1 = H1 * X;
    const double p2 = H2 * X;
    const double p3 = __builtin_bit_cast(double, chunk.low) * X;
    const double s = p1 + p2;
    return {s, ((p1 - s) + p2) + p3};
}

} // namespace zelk::ZELK_TIER
