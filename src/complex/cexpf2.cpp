// e^z = e^x cos y + i e^x sin y on two complex numbers with binary32 parts, z = x + iy.
// Method: e^x = 2^m 2^(j/128) e^r, k = 128 m + j = round(x 128/ln2), by a table of 2^(j/128) in two parts;
// sine and cosine of t = |y| - q pi/2 by polynomials. Numbers with |x| > 87.3365 or |y| > 10000 go through
// cexpf_scalar, and so does everything in tier A.
#include "tables/cexpf2.h"
#include "complex/lane_loop.h"
#include "complex/lane_parts.h"

namespace zelk::ZELK_TIER {

using tables::Cexpf2;

// Rows j0 and j1 of the table: (hi0, hi0, hi1, hi1) and (lo0, lo0, lo1, lo1).
ZELK_INLINE Pairf4 power_rows(int4 j)
{
    const __m128i row0 =
        _mm_loadl_epi64((const __m128i*)tables::exp2f_table[_mm_extract_epi16((__m128i)j, 0)]);
    const float4 rows =
        _mm_loadh_pi((__m128)row0, (const __m64*)tables::exp2f_table[_mm_extract_epi16((__m128i)j, 4)]);
    return {real_parts_twice(rows), imag_parts_twice(rows)};
}

// e^x, |x| <= 87.3365. k has 15 bits and Hi has 9: their product is exact. The low part of the table joins
// the polynomial, where it is not lost.
ZELK_INLINE float4 exponential(float4 x, const Cexpf2& k)
{
    const float4 shifted = x * k.s_dw128DivLog2 + k.s_fRS;
    const float4 kf = shifted - k.s_fRS;
    const int4 n = as_int4(shifted) - as_int4(k.s_fRS);
    const int4 j = n & k.IndexMask;
    const float4 r = (x - kf * k.s_dwLog2Div128_Hi) - kf * k.s_dwLog2Div128_Lo;
    const Pairf4 row = power_rows(j);
    const float4 p = r + k.s_fA2 * (r * r);
    const float4 e = row.first + row.first * (p + row.second);
    // Half of e, which is exact, times 2^(m + 1): m is -127 at the lower end in one rounding mode.
    const float4 power = as_float4(((n - j) << 16) + k.s_dwBiasf);
    return as_float4(as_int4(e) - k.ExponentUnit) * power;
}

// cos y in the real positions, sin y in the imaginary ones, 0 <= y <= 10000. The products with the first
// three parts of pi/2 are exact.
ZELK_INLINE float4 cosine_and_sine(float4 y, const Cexpf2& k)
{
    const float4 shifted = y * k.MMSINVPI + k.MMSRSHIFT;
    const float4 q = shifted - k.MMSRSHIFT;
    const int4 quadrant = as_int4(shifted) + k.RealQuarter;
    const float4 t = (((y - q * k.MMSPI1) - q * k.MMSPI2) - q * k.MMSPI3) - q * k.MMSPI4;
    const float4 z = t * t;
    const float4 sine = t + t * z * (k.MMSA1 + z * (k.MMSA2 + z * k.MMSA3));
    const float4 cosine = k.MMSB0 + z * (k.MMSB1 + z * (k.MMSB2 + z * (k.MMSB3 + z * k.MMSB4)));
    const int4 even = (quadrant & k.MMIPARMASK) == 0;
    const int4 sign = (quadrant & k.MMITWOMASK) << 30;
    return as_float4(as_int4(select(even, sine, cosine)) ^ sign);
}

// Both parts within their bounds.
ZELK_INLINE float4 cexp_in_bounds(float4 z, const Cexpf2& k)
{
    const float4 x = real_parts_twice(z);
    const float4 y = imag_parts_twice(as_float4(as_int4(z) & k.AbsMask));
    const int4 sign = as_int4(z) & k.flSignY;
    // The sine of zero is +0 in every rounding mode.
    const int4 zero_sine = (y == 0) & k.flSignY;
    const float4 turn = as_float4(as_int4(cosine_and_sine(y, k)) & ~zero_sine);
    return as_float4(as_int4(exponential(x, k) * turn) ^ sign);
}

[[gnu::noinline, gnu::cold]] static float4 cexp_beyond(float4 z, int4 beyond)
{
    const int4 special = either_part(beyond);
    float4 result = cexp_in_bounds(as_float4(as_int4(z) & ~special), tables::cexpf2);
    for (int number = 0; number < 2; ++number)
        if (special[2 * number])
            result = with_complex_lane(result, number, dispatched::cexpf_scalar(complex_lane(z, number)));
    return result;
}

float4 cexpf2(float4 z)
{
    if constexpr (tier == Tier::A) return lane_loop(z, dispatched::cexpf_scalar);

    const auto& k = tables::cexpf2;
    const int4 beyond = (as_int4(z) & k.AbsMask) > k.BndExpSin;
    if (lane_mask(beyond) != 0) [[unlikely]]
        return cexp_beyond(z, beyond);
    return cexp_in_bounds(z, k);
}

} // namespace zelk::ZELK_TIER
