/* Plain loops over the scalar functions, compiled several times as programs would: with ZELK_VARIANT in their
 * names. */
#include "zelk/vectorize.h"

#define ZELK_PASTE(variant, name) loop_##variant##_##name
#define ZELK_LOOP(variant, name) ZELK_PASTE(variant, name)

#define ZELK_SIMD_1(T, name)                                                                                 \
    void ZELK_LOOP(ZELK_VARIANT, name)(const T* x, T* y, int n)                                              \
    {                                                                                                        \
        int i;                                                                                               \
        _Pragma("omp simd") for (i = 0; i < n; ++i) y[i] = zelk_##name(x[i]);                                \
    }
#define ZELK_SIMD_2(T, name)                                                                                 \
    void ZELK_LOOP(ZELK_VARIANT, name)(const T* x, T* y, int n)                                              \
    {                                                                                                        \
        int i;                                                                                               \
        _Pragma("omp simd") for (i = 0; i < n; ++i) y[i] = zelk_##name(x[i], x[i]);                          \
    }
#define ZELK_SIMD(arguments, name, f4, d2)                                                                   \
    ZELK_SIMD_##arguments(float, name##f) ZELK_SIMD_##arguments(double, name)
#include "../simd/functions.def"
