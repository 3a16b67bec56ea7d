#include <zelk/vectorize.h>

int main(void)
{
    float x[11], y[11];
    int i, wrong = 0;
    for (i = 0; i < 11; ++i)
        x[i] = (float)i;
#pragma omp simd
    for (i = 0; i < 11; ++i)
        y[i] = zelk_exp2f(x[i]);
    for (i = 0; i < 11; ++i)
        wrong |= y[i] != (float)(1 << i);
    return wrong;
}
