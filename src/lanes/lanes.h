// The helpers that kernels are written in, where no operator on lanes says it.
#pragma once

#include "lanes/tier.h"
#include "lanes/types.h"

#include <emmintrin.h>

namespace zelk::ZELK_TIER {

#define ZELK_INLINE [[gnu::always_inline]] static inline

// The same bits, read as another lane type.
ZELK_INLINE float4 as_float4(int4 x)
{
    return (float4)x;
}
ZELK_INLINE float4 as_float4(uint4 x)
{
    return (float4)x;
}
ZELK_INLINE double2 as_double2(long2 x)
{
    return (double2)x;
}
ZELK_INLINE double2 as_double2(ulong2 x)
{
    return (double2)x;
}
ZELK_INLINE double2 as_double2(int4 x)
{
    return (double2)x;
}
ZELK_INLINE int4 as_int4(float4 x)
{
    return (int4)x;
}
ZELK_INLINE int4 as_int4(double2 x)
{
    return (int4)x;
}
ZELK_INLINE int4 as_int4(long2 x)
{
    return (int4)x;
}
ZELK_INLINE int4 as_int4(uint4 x)
{
    return (int4)x;
}
ZELK_INLINE int4 as_int4(ulong2 x)
{
    return (int4)x;
}
ZELK_INLINE uint4 as_uint4(float4 x)
{
    return (uint4)x;
}
ZELK_INLINE uint4 as_uint4(int4 x)
{
    return (uint4)x;
}
ZELK_INLINE long2 as_long2(double2 x)
{
    return (long2)x;
}
ZELK_INLINE long2 as_long2(int4 x)
{
    return (long2)x;
}
ZELK_INLINE ulong2 as_ulong2(double2 x)
{
    return (ulong2)x;
}
ZELK_INLINE ulong2 as_ulong2(long2 x)
{
    return (ulong2)x;
}

// One value in every lane. Constants do not come from here: they stand in the table modules.
ZELK_INLINE float4 splat(float x)
{
    return float4{x, x, x, x};
}
ZELK_INLINE double2 splat(double x)
{
    return double2{x, x};
}

// Special-lane mask: bit i is the sign bit of lane i.
ZELK_INLINE unsigned lane_mask(int4 x)
{
    return static_cast<unsigned>(_mm_movemask_ps((__m128)x));
}
ZELK_INLINE unsigned lane_mask(float4 x)
{
    return static_cast<unsigned>(_mm_movemask_ps(x));
}
ZELK_INLINE unsigned lane_mask(long2 x)
{
    return static_cast<unsigned>(_mm_movemask_pd((__m128d)x));
}
ZELK_INLINE unsigned lane_mask(double2 x)
{
    return static_cast<unsigned>(_mm_movemask_pd(x));
}
inline constexpr unsigned all_lanes4 = 0xF;
inline constexpr unsigned all_lanes2 = 0x3;

// Bitwise choice: a where the mask lane is all ones, b where it is all zeros.
ZELK_INLINE int4 select(int4 mask, int4 a, int4 b)
{
    return (mask & a) | (~mask & b);
}
ZELK_INLINE float4 select(int4 mask, float4 a, float4 b)
{
    return as_float4(select(mask, as_int4(a), as_int4(b)));
}
ZELK_INLINE long2 select(long2 mask, long2 a, long2 b)
{
    return (mask & a) | (~mask & b);
}
ZELK_INLINE double2 select(long2 mask, double2 a, double2 b)
{
    return as_double2(select(mask, as_long2(a), as_long2(b)));
}

// The high (low) word of every binary64 lane, spread over the whole lane. SSE2 has no 64-bit integer compare;
// a compare of the high words serves most range tests and raises no flag.
ZELK_INLINE int4 high_words(int4 x)
{
    return (int4)_mm_shuffle_epi32((__m128i)x, 0xF5);
}
ZELK_INLINE int4 low_words(int4 x)
{
    return (int4)_mm_shuffle_epi32((__m128i)x, 0xA0);
}

// Conversions. "round" follows the current rounding mode; out-of-range lanes give 0x80000000 and raise
// invalid.
ZELK_INLINE int4 round_to_int(float4 x)
{
    return (int4)_mm_cvtps_epi32(x);
}
ZELK_INLINE int4 trunc_to_int(float4 x)
{
    return (int4)_mm_cvttps_epi32(x);
}
ZELK_INLINE float4 to_float4(int4 x)
{
    return _mm_cvtepi32_ps((__m128i)x);
}
// Two binary64 lanes to the two low 32-bit lanes, the high lanes zero.
ZELK_INLINE int4 round_to_int(double2 x)
{
    return (int4)_mm_cvtpd_epi32(x);
}
ZELK_INLINE int4 trunc_to_int(double2 x)
{
    return (int4)_mm_cvttpd_epi32(x);
}
// The two low 32-bit lanes to binary64.
ZELK_INLINE double2 to_double2(int4 x)
{
    return _mm_cvtepi32_pd((__m128i)x);
}
ZELK_INLINE double2 widen_low(float4 x)
{
    return _mm_cvtps_pd(x);
}
ZELK_INLINE double2 widen_high(float4 x)
{
    return _mm_cvtps_pd(_mm_movehl_ps(x, x));
}
ZELK_INLINE float4 narrow(double2 low, double2 high)
{
    return _mm_movelh_ps(_mm_cvtpd_ps(low), _mm_cvtpd_ps(high));
}
// Lanes 0 and 1 of both: (low0, low1, high0, high1).
ZELK_INLINE int4 join_low(int4 low, int4 high)
{
    return (int4)_mm_unpacklo_epi64((__m128i)low, (__m128i)high);
}
// 32-bit lanes 0, 1 (2, 3) zero-extended to 64 bits.
ZELK_INLINE long2 zero_extend_low(int4 x)
{
    return (long2)_mm_unpacklo_epi32((__m128i)x, _mm_setzero_si128());
}
ZELK_INLINE long2 zero_extend_high(int4 x)
{
    return (long2)_mm_unpackhi_epi32((__m128i)x, _mm_setzero_si128());
}

// The processor's estimates, relative error at most 1.5 * 2^-12.
ZELK_INLINE float4 reciprocal_estimate(float4 x)
{
    return _mm_rcp_ps(x);
}
ZELK_INLINE float4 reciprocal_sqrt_estimate(float4 x)
{
    return _mm_rsqrt_ps(x);
}
ZELK_INLINE float4 square_root(float4 x)
{
    return _mm_sqrt_ps(x);
}
ZELK_INLINE double2 square_root(double2 x)
{
    return _mm_sqrt_pd(x);
}

// Keeps an operation that is done for its rounding or its flag: the compiler must produce x here, and knows
// nothing of its value afterwards.
ZELK_INLINE float4 opaque(float4 x)
{
    asm volatile("" : "+x"(x));
    return x;
}
ZELK_INLINE double2 opaque(double2 x)
{
    asm volatile("" : "+x"(x));
    return x;
}
ZELK_INLINE float opaque(float x)
{
    asm volatile("" : "+x"(x));
    return x;
}
ZELK_INLINE double opaque(double x)
{
#if defined(__SSE2__)
    asm volatile("" : "+x"(x));
#else
    asm volatile("" : "+m"(x));
#endif
    return x;
}

// Last statement of a two-result kernel: `return both(first, second);` leaves first in XMM0, the platform's
// return register, and second in XMM1. Nothing that the compiler still adds (restoring registers, the stack
// pointer, the return) touches a vector register.
template <class Vector>
[[gnu::always_inline]] inline Vector both(Vector first, Vector second)
{
    register Vector xmm1 asm("xmm1") = second;
    register Vector xmm0 asm("xmm0") = first;
    asm volatile("" : "+x"(xmm0), "+x"(xmm1));
    return xmm0;
}

// Upper halves of the unsigned 16 x 16-bit products.
ZELK_INLINE int4 multiply_high_16(int4 a, int4 b)
{
    return (int4)_mm_mulhi_epu16((__m128i)a, (__m128i)b);
}

// Rows (a, b, c, d) of four lanes to the columns' lanes.
ZELK_INLINE void transpose(float4& a, float4& b, float4& c, float4& d)
{
    const float4 ab_low = _mm_unpacklo_ps(a, b);
    const float4 cd_low = _mm_unpacklo_ps(c, d);
    const float4 ab_high = _mm_unpackhi_ps(a, b);
    const float4 cd_high = _mm_unpackhi_ps(c, d);
    a = _mm_movelh_ps(ab_low, cd_low);
    b = _mm_movehl_ps(cd_low, ab_low);
    c = _mm_movelh_ps(ab_high, cd_high);
    d = _mm_movehl_ps(cd_high, ab_high);
}

// The first and the second words of four rows of a table, by row numbers below 2^16.
struct Pairf4 {
    float4 first;
    float4 second;
};
ZELK_INLINE Pairf4 gather_rows(const std::uint32_t (*rows)[2], int4 row)
{
    const auto load = [&](int low, int high) {
        const __m128i words = _mm_loadl_epi64((const __m128i*)rows[low]);
        return _mm_loadh_pi((__m128)words, (const __m64*)rows[high]);
    };
    const float4 rows01 = load(_mm_extract_epi16((__m128i)row, 0), _mm_extract_epi16((__m128i)row, 2));
    const float4 rows23 = load(_mm_extract_epi16((__m128i)row, 4), _mm_extract_epi16((__m128i)row, 6));
    return {_mm_shuffle_ps(rows01, rows23, 0x88), _mm_shuffle_ps(rows01, rows23, 0xDD)};
}

// The high words of both binary64 lanes, in the two low 32-bit lanes.
ZELK_INLINE int4 gather_high_words(int4 x)
{
    return (int4)_mm_shuffle_epi32((__m128i)x, 0xDD);
}

// Lanes 2 and 3 in the place of lanes 0 and 1.
ZELK_INLINE int4 high_lanes(int4 x)
{
    return (int4)_mm_shuffle_epi32((__m128i)x, 0xEE);
}
// The low (high) words of four 64-bit lanes, two in each vector.
ZELK_INLINE int4 even_words(int4 low, int4 high)
{
    return (int4)_mm_shuffle_ps((__m128)low, (__m128)high, 0x88);
}
ZELK_INLINE int4 odd_words(int4 low, int4 high)
{
    return (int4)_mm_shuffle_ps((__m128)low, (__m128)high, 0xDD);
}

// All ones in the 64-bit lanes that are negative. The difference of two magnitudes' bit patterns is negative
// where the first is the smaller: a comparison that raises nothing and takes a NaN for the largest number.
ZELK_INLINE long2 negative_lanes(long2 x)
{
    return as_long2(high_words(as_int4(x)) >> 31);
}

// Every lane through a scalar routine, in order. The routines take and return bit patterns: a NaN that goes
// in or comes back as it is may be a signalling one.
ZELK_INLINE float4 lane_by_lane(float4 x, std::uint32_t (*routine)(std::uint32_t))
{
    uint4 lanes = as_uint4(x);
    for (int lane = 0; lane < 4; ++lane)
        lanes[lane] = routine(lanes[lane]);
    return as_float4(lanes);
}
ZELK_INLINE double2 lane_by_lane(double2 x, std::uint64_t (*routine)(std::uint64_t))
{
    const ulong2 lanes = as_ulong2(x);
    const std::uint64_t low = routine(lanes[0]);
    return as_double2(ulong2{low, routine(lanes[1])});
}

// Tier A of f4 functions on i386 has SSE alone: of the operations on integer lanes only the bitwise ones.
// What follows compares floats there, none of which is a NaN.
#if defined(__SSE2__)
inline constexpr bool integer_lanes = true;
#else
inline constexpr bool integer_lanes = false;
#endif

// All ones in lanes of negative sign, zeros and NaNs included. `sign` is the sign bit.
ZELK_INLINE int4 negative_lanes(float4 x, int4 sign, float4 one)
{
    if constexpr (integer_lanes)
        return as_int4(x) >> 31;
    else
        return as_float4((as_int4(x) & sign) | as_int4(one)) < float4{};
}
// All ones where |x| > bound or x is a NaN. Raises nothing but invalid, for a signalling NaN without SSE2.
ZELK_INLINE int4 magnitude_above(float4 x, int4 abs_mask, float4 bound)
{
    const int4 magnitude = as_int4(x) & abs_mask;
    if constexpr (integer_lanes) {
        return magnitude > as_int4(bound);
    } else {
        const int4 nan = (int4)_mm_cmpunord_ps(x, x);
        return nan | (as_float4(magnitude & ~nan) > bound);
    }
}
// Toward zero through 32-bit integers; lanes that these do not hold give -2^31 and raise invalid.
ZELK_INLINE float4 truncate_through_int(float4 x)
{
    if constexpr (integer_lanes) {
        return to_float4(trunc_to_int(x));
    } else {
        const auto lane = [](float4 at) { return _mm_cvtsi32_ss(float4{}, _mm_cvttss_si32(at)); };
        const float4 even = _mm_unpacklo_ps(lane(x), lane(_mm_movehl_ps(x, x)));
        const float4 odd = _mm_unpacklo_ps(lane(_mm_shuffle_ps(x, x, 1)), lane(_mm_shuffle_ps(x, x, 3)));
        return _mm_unpacklo_ps(even, odd);
    }
}

// The lanes of a mask, lane 0 first, through a scalar routine; the others as they are in the result.
template <class Vector, class Scalar>
ZELK_INLINE Vector replace_lanes(Vector result, Vector x, unsigned mask, Scalar (*routine)(Scalar))
{
    for (int lane = 0; mask != 0; ++lane, mask >>= 1)
        if (mask & 1) result[lane] = routine(x[lane]);
    return result;
}

// 32-bit lanes 0, 1 (2, 3), each twice: a mask of four lanes for two vectors of 64-bit lanes.
ZELK_INLINE long2 duplicate_low(int4 x)
{
    return (long2)_mm_unpacklo_epi32((__m128i)x, (__m128i)x);
}
ZELK_INLINE long2 duplicate_high(int4 x)
{
    return (long2)_mm_unpackhi_epi32((__m128i)x, (__m128i)x);
}
// All ones in every lane if one has its bits set.
ZELK_INLINE int4 any_lane(int4 mask)
{
    const int4 pairs = mask | (int4)_mm_shuffle_epi32((__m128i)mask, 0x4E);
    return pairs | (int4)_mm_shuffle_epi32((__m128i)pairs, 0xB1);
}

// Comparisons of binary64 lanes, none of which is a NaN. What the operators give the compiler takes apart
// into scalars wherever it recognises a choice between 64-bit lanes.
ZELK_INLINE long2 equal_lanes(double2 a, double2 b)
{
    return (long2)_mm_cmpeq_pd(a, b);
}
ZELK_INLINE long2 less_lanes(double2 a, double2 b)
{
    return (long2)_mm_cmplt_pd(a, b);
}

} // namespace zelk::ZELK_TIER
