// The reduction of trig_reduction.cpp from 2^30 on, quadrant mode, for two binary32 numbers at once: the same
// operations in the same order, and the same bits.
#pragma once

#include "trig/trig_reduction.h"

namespace zelk::ZELK_TIER {

// A sum that keeps its rounding errors; terms come in order of decreasing size.
struct Accumulator2 {
    double2 s;
    double2 err;
    [[gnu::always_inline]] void add(double2 term)
    {
        const double2 sum = s + term;
        err = ((s - sum) + term) + err;
        s = sum;
    }
};

// Of |x| from 2^30 on: row is that of the first piece of 4/pi that matters, and lanes of `leading` have bits
// in its product that contribute multiples of 8.
struct FirstPiece {
    int4 row;
    int4 leading;
};
ZELK_INLINE FirstPiece first_piece(float4 magnitude, const tables::TrigReduction& k)
{
    // 25 bits of the exponent to a piece; n 2622/2^16 is n/25, cut off, for n < 131.
    const int4 distance = (as_int4(magnitude) >> 23) - k.first_exponent;
    const int4 row = multiply_high_16(distance, k.one_25th);
    const int4 rest = distance - ((row << 4) + (row << 3) + row);
    return {row, rest < k.leading_bits};
}

// The products of X = x 2^-200 with the pieces of two lanes.
struct Products {
    double2 X;
    const std::uint64_t* T0;
    const std::uint64_t* T1;
    [[gnu::always_inline]] double2 operator[](int i) const
    {
        return X * double2{__builtin_bit_cast(double, T0[i]), __builtin_bit_cast(double, T1[i])};
    }
};
ZELK_INLINE Products products_of(double2 magnitude, int4 row, const tables::TrigReduction& k)
{
    return {as_double2(as_long2(magnitude) - k.two_200_exponent), k._DP + _mm_extract_epi16((__m128i)row, 0),
            k._DP + _mm_extract_epi16((__m128i)row, 2)};
}

// Integer part and beginning of the fraction.
struct Split {
    double2 fraction;
    double2 t2;
    long2 N;
};
ZELK_INLINE Split split_off_integer(const Products& product, long2 leading, const tables::TrigReduction& k)
{
    const double2 S = product[0];
    const double2 rest = S - as_double2(as_long2(S) & k.clear_20_bits);
    // Of 50 bits at most, where X has 24 and the pieces 25: the sum is exact.
    const double2 head = as_double2(as_long2(rest) & leading) + product[1];

    // 2^16 <= V < 2^48. Its integer part, from the nearest integer by the rounding mode.
    const double2 t2 = product[2];
    const double2 V = head + t2;
    const double2 shifted = V + k.two_52;
    const double2 rounded = shifted - k.two_52;
    const long2 above = less_lanes(V, rounded);
    const double2 I = rounded - as_double2(above & as_long2(k.double_one));
    const long2 N = as_long2(shifted) + above;
    const long2 odd = as_long2(low_words(as_int4(N << 31)) >> 31);
    return {(head - I) - as_double2(odd & as_long2(k.double_one)), t2, N};
}

ZELK_INLINE Accumulator2 add_products(const Split& split, const Products& product)
{
    Accumulator2 fraction = {split.fraction, double2{}};
    fraction.add(split.t2);
    fraction.add(product[3]);
    fraction.add(product[4]);
    fraction.add(product[5]);
    fraction.add(product[6]);
    return fraction;
}

// The fraction, L its last term, times pi/4.
ZELK_INLINE double2 times_quarter_pi(const Accumulator2& fraction, double2 L, const tables::TrigReduction& k)
{
    const double2 G = fraction.s + L;
    const double2 scaled = G * k._TWO_26H;
    const double2 Fhi = (G + scaled) - scaled;
    const double2 Flo = ((fraction.s - Fhi) + L) + fraction.err;
    const double2 u = Fhi * k._PI04_25x2[0];
    const double2 v = Flo * k._PI04_25x2[0] + (Flo + Fhi) * k._PI04_25x2[1];
    const double2 w = v + u;
    return ((u - w) + v) + w;
}

// Above pi/4 the next multiple of pi/2 is the nearest: q - 3 is q + 1 in the bits that count.
ZELK_INLINE QuadrantReduced2 nearest_quadrant(double2 r, long2 N, const tables::TrigReduction& k)
{
    const long2 far = less_lanes(splat(k._PI04), r);
    return {r - as_double2(far & as_long2(splat(k._PI02))), ((N + k.one) >> 1) - far};
}

// Numbers of 24 significant bits: the lower half into which the scalar routine splits x is 0, and all the
// terms with it. Lanes 0, 1 and lanes 2, 3 go step by step together, as each waits for its own sums.
ZELK_INLINE QuadrantReducedf4 reduce_from_2_30(float4 magnitude, const tables::TrigReduction& k)
{
    const auto [row, leading] = first_piece(magnitude, k);
    const Products low_product = products_of(widen_low(magnitude), row, k);
    const Products high_product = products_of(widen_high(magnitude), high_lanes(row), k);
    const Split low_split = split_off_integer(low_product, duplicate_low(leading), k);
    const Split high_split = split_off_integer(high_product, duplicate_high(leading), k);
    const Accumulator2 low_fraction = add_products(low_split, low_product);
    const Accumulator2 high_fraction = add_products(high_split, high_product);
    const double2 low_r = times_quarter_pi(low_fraction, low_product[7], k);
    const double2 high_r = times_quarter_pi(high_fraction, high_product[7], k);
    const QuadrantReduced2 low = nearest_quadrant(low_r, low_split.N, k);
    const QuadrantReduced2 high = nearest_quadrant(high_r, high_split.N, k);
    return {narrow(low.r, high.r), even_words(as_int4(low.quadrant), as_int4(high.quadrant))};
}

ZELK_INLINE QuadrantReducedf4 select(int4 mask, const QuadrantReducedf4& a, const QuadrantReducedf4& b)
{
    return {select(mask, a.r, b.r), select(mask, a.quadrant, b.quadrant)};
}

// Replaces the lanes of `lanes` by what the scalar reduction gives of their magnitudes.
ZELK_INLINE QuadrantReducedf4 reduce_lanes(float4 magnitude, int4 lanes, QuadrantReducedf4 others)
{
    const auto& k = tables::trig_reduction;
    const int4 from_2_30 = as_int4(magnitude) > k.below_2_30;
    const int4 medium = lanes & ~from_2_30;
    const int4 no_number = lanes & (as_int4(magnitude) > k.largest_finite);
    const int4 huge = lanes & from_2_30 & ~no_number;
    if (lane_mask(medium) != 0)
        others = select(medium, reduce_medium(as_float4(as_int4(magnitude) & medium)), others);
    if (lane_mask(huge) != 0)
        others = select(huge, reduce_from_2_30(select(huge, magnitude, as_float4(k.from_2_30)), k), others);
    // NaNs, quieted, and infinities: these raise invalid.
    const float4 nan = as_float4(as_int4(magnitude) & no_number) * float4{};
    return select(no_number, {nan, int4{}}, others);
}

ZELK_INLINE QuadrantReducedf4 reduce_every_lane(float4 magnitude)
{
    return reduce_lanes(magnitude, int4{-1, -1, -1, -1}, {float4{}, int4{}});
}

} // namespace zelk::ZELK_TIER
