/* The public headers in plain C99: a vector call, and the inline functions with two results among live
 * variables that the call must leave alone. */
#include "zelk/zelk.h"

static int lane(zelk_int4 v)
{
    return _mm_cvtsi128_si32(v);
}

static int divide(int a, int b, int* remainder)
{
    /* A leaf function: its variables may lie in the red zone below the stack pointer. */
    volatile int kept[8] = {a, b, 3, 4, 5, 6, 7, 8};
    zelk_int4 rest;
    const zelk_int4 quotient = zelk_idivrem4(_mm_set1_epi32(a), _mm_set1_epi32(b), &rest);
    *remainder = lane(rest);
    return kept[0] == a && kept[1] == b && kept[2] + kept[7] == 11 ? lane(quotient) : 0;
}

int main(void)
{
    const zelk_float4 y = __zelk_cosf4(_mm_setzero_ps());
    zelk_float4 cosine;
    zelk_double2 cosine2;
    const zelk_float4 sine = zelk_sincosf4(_mm_setzero_ps(), &cosine);
    const zelk_double2 sine2 = zelk_sincos2(_mm_setzero_pd(), &cosine2);
    double sum = 0;
    int remainder;
    int i;
    int wrong = _mm_cvtss_f32(y) != 1.0f;
    wrong |= _mm_cvtss_f32(sine) != 0.0f || _mm_cvtss_f32(cosine) != 1.0f;
    wrong |= _mm_cvtsd_f64(sine2) != 0.0 || _mm_cvtsd_f64(cosine2) != 1.0;
    for (i = 1; i <= 10; ++i) {
        wrong |= divide(100, i, &remainder) != 100 / i || remainder != 100 % i;
        sum += i;
    }
    return wrong || sum != 55;
}
