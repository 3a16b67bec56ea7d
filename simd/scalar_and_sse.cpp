// The scalar functions of zelk/vectorize.h and their 128-bit vector forms, under the platform's
// vector-function names: _ZGVbN4v_ for four lanes, _ZGVbN2v_ for two, M in place of N with a mask, vv for two
// arguments. A vector form is a jump to the entry. A scalar function is the entry with its argument in every
// lane.
#include "zelk/zelk.h"

#define ZELK_EXPORT extern "C" [[gnu::visibility("default")]]

namespace {

// Compilers call a lane of the mask active when it is not zero, the masked entries when its sign bit is set.
inline __m128 active(__m128 mask)
{
    const __m128i zero = _mm_cmpeq_epi32(_mm_castps_si128(mask), _mm_setzero_si128());
    return _mm_castsi128_ps(_mm_xor_si128(zero, _mm_set1_epi32(-1)));
}

inline __m128d active(__m128d mask)
{
    const __m128i zero = _mm_cmpeq_epi32(_mm_castpd_si128(mask), _mm_setzero_si128());
    const __m128i both = _mm_and_si128(zero, _mm_shuffle_epi32(zero, 0xB1));
    return _mm_castsi128_pd(_mm_xor_si128(both, _mm_set1_epi32(-1)));
}

} // namespace

#define ZELK_SIMD_1(name, f4, d2)                                                                            \
    ZELK_EXPORT float zelk_##name##f(float x)                                                                \
    {                                                                                                        \
        return _mm_cvtss_f32(f4(_mm_set1_ps(x)));                                                            \
    }                                                                                                        \
    ZELK_EXPORT double zelk_##name(double x)                                                                 \
    {                                                                                                        \
        return _mm_cvtsd_f64(d2(_mm_set1_pd(x)));                                                            \
    }                                                                                                        \
    ZELK_EXPORT __m128 _ZGVbN4v_zelk_##name##f(__m128 x)                                                     \
    {                                                                                                        \
        return f4(x);                                                                                        \
    }                                                                                                        \
    ZELK_EXPORT __m128d _ZGVbN2v_zelk_##name(__m128d x)                                                      \
    {                                                                                                        \
        return d2(x);                                                                                        \
    }                                                                                                        \
    ZELK_EXPORT __m128 _ZGVbM4v_zelk_##name##f(__m128 x, __m128 mask)                                        \
    {                                                                                                        \
        return f4##_mask(x, active(mask));                                                                   \
    }                                                                                                        \
    ZELK_EXPORT __m128d _ZGVbM2v_zelk_##name(__m128d x, __m128d mask)                                        \
    {                                                                                                        \
        return d2##_mask(x, active(mask));                                                                   \
    }

#define ZELK_SIMD_2(name, f4, d2)                                                                            \
    ZELK_EXPORT float zelk_##name##f(float x, float y)                                                       \
    {                                                                                                        \
        return _mm_cvtss_f32(f4(_mm_set1_ps(x), _mm_set1_ps(y)));                                            \
    }                                                                                                        \
    ZELK_EXPORT double zelk_##name(double x, double y)                                                       \
    {                                                                                                        \
        return _mm_cvtsd_f64(d2(_mm_set1_pd(x), _mm_set1_pd(y)));                                            \
    }                                                                                                        \
    ZELK_EXPORT __m128 _ZGVbN4vv_zelk_##name##f(__m128 x, __m128 y)                                          \
    {                                                                                                        \
        return f4(x, y);                                                                                     \
    }                                                                                                        \
    ZELK_EXPORT __m128d _ZGVbN2vv_zelk_##name(__m128d x, __m128d y)                                          \
    {                                                                                                        \
        return d2(x, y);                                                                                     \
    }                                                                                                        \
    ZELK_EXPORT __m128 _ZGVbM4vv_zelk_##name##f(__m128 x, __m128 y, __m128 mask)                             \
    {                                                                                                        \
        return f4##_mask(x, y, active(mask));                                                                \
    }                                                                                                        \
    ZELK_EXPORT __m128d _ZGVbM2vv_zelk_##name(__m128d x, __m128d y, __m128d mask)                            \
    {                                                                                                        \
        return d2##_mask(x, y, active(mask));                                                                \
    }

#define ZELK_SIMD(arguments, name, f4, d2) ZELK_SIMD_##arguments(name, f4, d2)
#include "functions.def"
