// Vector forms of 256 and 512 bits, which compilers call when a program is compiled for AVX (c), AVX2 (d) or
// AVX-512 (e): 128-bit pieces, each through the entry. This file is compiled for AVX, and for AVX-512 with
// ZELK_512 defined.
#include "zelk/zelk.h"

#include <immintrin.h>

#define ZELK_EXPORT extern "C" [[gnu::visibility("default")]]

namespace {

// f on every 128-bit piece.
template <auto f, class Piece, class Wide, class... Argument>
Wide map(Wide x, Argument... y)
{
    constexpr int count = sizeof(Wide) / sizeof(Piece);
    union Pieces {
        Wide whole;
        Piece piece[count];
    };
    const Pieces in{x};
    Pieces out;
    for (int i = 0; i < count; ++i)
        out.piece[i] = f(in.piece[i], Pieces{y}.piece[i]...);
    return out.whole;
}

} // namespace

#if defined(ZELK_512)
#define ZELK_SIMD_1(name, f4, d2)                                                                            \
    ZELK_EXPORT __m512 _ZGVeN16v_zelk_##name##f(__m512 x)                                                    \
    {                                                                                                        \
        return map<f4, __m128>(x);                                                                           \
    }                                                                                                        \
    ZELK_EXPORT __m512d _ZGVeN8v_zelk_##name(__m512d x)                                                      \
    {                                                                                                        \
        return map<d2, __m128d>(x);                                                                          \
    }
#define ZELK_SIMD_2(name, f4, d2)                                                                            \
    ZELK_EXPORT __m512 _ZGVeN16vv_zelk_##name##f(__m512 x, __m512 y)                                         \
    {                                                                                                        \
        return map<f4, __m128>(x, y);                                                                        \
    }                                                                                                        \
    ZELK_EXPORT __m512d _ZGVeN8vv_zelk_##name(__m512d x, __m512d y)                                          \
    {                                                                                                        \
        return map<d2, __m128d>(x, y);                                                                       \
    }
#else
#define ZELK_SIMD_1(name, f4, d2)                                                                            \
    ZELK_EXPORT __m256 _ZGVcN8v_zelk_##name##f(__m256 x)                                                     \
    {                                                                                                        \
        return map<f4, __m128>(x);                                                                           \
    }                                                                                                        \
    ZELK_EXPORT __m256d _ZGVcN4v_zelk_##name(__m256d x)                                                      \
    {                                                                                                        \
        return map<d2, __m128d>(x);                                                                          \
    }                                                                                                        \
    ZELK_EXPORT [[gnu::alias("_ZGVcN8v_zelk_" #name "f")]] __m256 _ZGVdN8v_zelk_##name##f(__m256 x);         \
    ZELK_EXPORT [[gnu::alias("_ZGVcN4v_zelk_" #name)]] __m256d _ZGVdN4v_zelk_##name(__m256d x);
#define ZELK_SIMD_2(name, f4, d2)                                                                            \
    ZELK_EXPORT __m256 _ZGVcN8vv_zelk_##name##f(__m256 x, __m256 y)                                          \
    {                                                                                                        \
        return map<f4, __m128>(x, y);                                                                        \
    }                                                                                                        \
    ZELK_EXPORT __m256d _ZGVcN4vv_zelk_##name(__m256d x, __m256d y)                                          \
    {                                                                                                        \
        return map<d2, __m128d>(x, y);                                                                       \
    }                                                                                                        \
    ZELK_EXPORT                                                                                              \
    [[gnu::alias("_ZGVcN8vv_zelk_" #name "f")]] __m256 _ZGVdN8vv_zelk_##name##f(__m256 x, __m256 y);         \
    ZELK_EXPORT [[gnu::alias("_ZGVcN4vv_zelk_" #name)]] __m256d _ZGVdN4vv_zelk_##name(__m256d x, __m256d y);
#endif

#define ZELK_SIMD(arguments, name, f4, d2) ZELK_SIMD_##arguments(name, f4, d2)
#include "functions.def"
