// Rows of double precision log2 x for the points 1 + j/128, j = 0..128: log2 of the point as a multiple of
// 2^-39 and the rest of it, and the reciprocal of the point, both rounded to nearest binary64.
#include "log_rows.h"

using namespace zelk::generate;

int main()
{
    for (int j = 0; j <= 128; ++j) {
        const Real point(1 + j / 128.0);
        const Real logarithm = Real::apply(mpfr_log2, point);
        const Real hi = to_multiple(logarithm, -39, MPFR_RNDN);
        std::printf("{%a, %a, %a},\n", hi.to_double(), (logarithm - hi).to_double(),
                    (Real(1.0) / point).to_double());
    }
}
