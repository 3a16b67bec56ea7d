// The routines of times_128_over_pi.h for two binary32 numbers at once: the same operations, and the same
// bits.
#pragma once

#include "lanes/lanes.h"
#include "tables/inverse_pi_chunks.h"

namespace zelk::ZELK_TIER {

// The first and the second words of two rows of 64-bit words.
struct Rows2 {
    long2 first;
    long2 second;
};
template <class Row>
ZELK_INLINE Rows2 load_rows(const Row* rows, int4 index)
{
    const __m128i row0 = _mm_loadu_si128((const __m128i*)&rows[_mm_extract_epi16((__m128i)index, 0)]);
    const __m128i row1 = _mm_loadu_si128((const __m128i*)&rows[_mm_extract_epi16((__m128i)index, 4)]);
    return {(long2)_mm_unpacklo_epi64(row0, row1), (long2)_mm_unpackhi_epi64(row0, row1)};
}

// x 128/pi = n + f, less a multiple of what the chunks are made for: n in the low bits.
struct GridPoint2 {
    long2 n;
    double2 f;
};
ZELK_INLINE GridPoint2 reduce_to_grid(double2 X, int4 chunk, const tables::InversePiChunks& chunks)
{
    const auto& k = tables::grid_constants;
    const auto [packed, low] = load_rows(chunks, chunk);
    // The first part has 29 and the second 13 significant bits, x has 24: p1 and p2 are exact.
    const double2 p1 = as_double2(packed & k.leading_40_bits) * X;
    const double2 p2 = as_double2(packed << 40) * X;
    const double2 p3 = as_double2(low) * X;
    const double2 s = p1 + p2;
    const double2 rest = ((p1 - s) + p2) + p3;
    const double2 w = s + k.shifter;
    return {as_long2(w), rest + (s - (w - k.shifter))};
}

// Points 64 to 127 of each half turn mirror to the first quadrant's grid.
struct Mirrored2 {
    int4 entry;
    long2 bit_6; // the sign bits where bits 6 and 7 of n are set
    long2 bit_7;
};
ZELK_INLINE Mirrored2 mirror(long2 n)
{
    const auto& k = tables::grid_constants;
    const int4 second = as_int4(n << 57) >> 31; // in the high words
    const int4 mirrored = high_words(second);
    const int4 m = as_int4(n) & k.grid_mask;
    const int4 entry = (m ^ mirrored) - mirrored + (mirrored & k.grid_size);
    const long2 sign = k.sign;
    return {entry, (n << 57) & sign, (n << 56) & sign};
}

// Two lanes in binary64, and the rows of their chunks in the low words.
struct Half {
    double2 X;
    int4 chunk;
};
ZELK_INLINE Half low_half(float4 x, int4 chunk)
{
    return {widen_low(x), (int4)_mm_unpacklo_epi32((__m128i)chunk, (__m128i)chunk)};
}
ZELK_INLINE Half high_half(float4 x, int4 chunk)
{
    return {widen_high(x), (int4)_mm_unpackhi_epi32((__m128i)chunk, (__m128i)chunk)};
}
ZELK_INLINE int4 chunk_rows(float4 x)
{
    const int4 above = (int4)(as_uint4(x) << 1 >> 24) - tables::grid_constants.first_exponent;
    return (above & ~(above >> 31)) >> 3;
}

// Infinities and NaNs, and the NaNs that become of them: infinities raise invalid.
ZELK_INLINE int4 no_numbers(float4 x)
{
    const auto& field = tables::grid_constants.exponent_field;
    return (as_int4(x) & field) == field.value;
}
ZELK_INLINE float4 quiet_nans(float4 x, int4 no_number)
{
    const float4 special = as_float4(as_int4(x) & no_number);
    return special - special;
}

} // namespace zelk::ZELK_TIER
