#include <zelk/zelk.h>

int main(void)
{
    zelk_float4 cosine;
    const zelk_float4 sine = zelk_sincosf4(_mm_setzero_ps(), &cosine);
    const zelk_double2 power = __zelk_pow2(_mm_set1_pd(2.0), _mm_set1_pd(10.0));
    return !(_mm_cvtss_f32(sine) == 0.0f && _mm_cvtss_f32(cosine) == 1.0f && _mm_cvtsd_f64(power) == 1024.0);
}
