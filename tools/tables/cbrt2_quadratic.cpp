// (a_j m + b_j) m + c_j for m^(-1/3) on [1 + j/128, 1 + (j + 1)/128), j = 0..127: interpolation at the
// interval's three Chebyshev nodes, rounded to nearest binary64; in order (a_j, b_j, c_j). Relative error
// below 2^-28.5 (largest at m = 1: the third derivative, at most 28/27, times (1/256)^3 / 24). One Newton
// step squares it.
#include "cbrt_quadratic.h"

using namespace zelk::generate;

int main()
{
    for (int j = 0; j < 128; ++j) {
        const Quadratic q = interpolate(reciprocal_cube_root, 1.0 + j / 128.0, 1.0 + (j + 1) / 128.0);
        std::printf("{%a, %a, %a},\n", q.c2.to_double(), q.c1.to_double(), q.c0.to_double());
    }
}
