// Coefficients c0 ... c7 and c8 for the scalar single precision tangent on 32 intervals of pi/32: row j
// serves arguments near y = j pi/32. Away from the pole: Taylor coefficients of tan at y, c8 = 0. For j = 9
// ... 23: those of tan + 1/(y - pi/2), c8 = 1. Rounded to nearest binary64. The truncated series is good to
// 2^-29 relative.
#include "tan_series.h"

using namespace zelk::generate;

int main()
{
    for (int j = 0; j < 32; ++j) {
        const bool near_pole = j >= 9 && j <= 23;
        // The tangent has the period pi: the upper intervals are those below zero.
        const Real y = Real(near_pole ? j - 16 : (j < 16 ? j : j - 32)) * pi() / Real(32.0);
        const Series c = near_pole ? regular_series(y) : tangent_series(y);
        std::printf("{");
        for (int n = 0; n < 8; ++n)
            std::printf("%a, ", c[n].to_double());
        std::printf("%a},\n", near_pole ? 1.0 : 0.0);
    }
}
