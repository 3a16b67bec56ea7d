/* The public headers in plain C99. */
#include "zelk/zelk.h"

int main(void)
{
    zelk_float4 y = __zelk_cosf4(_mm_setzero_ps());
    return _mm_cvtss_f32(y) == 1.0f ? 0 : 1;
}
