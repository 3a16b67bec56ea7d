// Rows (r, hi, lo) of the logarithm of one double, one for each 256th of [1, 2): r is the reciprocal of the
// middle to the nearest multiple of 2^-9, and 1 and 1/2 at the ends, so that the logarithm of numbers next to
// 1 is that of r m alone; |r m - 1| < 2^-8. -ln r = hi + lo, hi a multiple of 2^-42.
#include "log_rows.h"

using namespace zelk::generate;

int main()
{
    constexpr int rows = 256;
    for (int j = 0; j < rows; ++j) {
        const Real middle(1 + (j + 0.5) / rows);
        const Real r = j == 0          ? Real(1.0)
                       : j == rows - 1 ? Real(0.5)
                                       : to_multiple(Real(1.0) / middle, -9, MPFR_RNDN);
        const Real minus_log = Real(0.0) - Real::apply(mpfr_log, r);
        const Real hi = to_multiple(minus_log, -42, MPFR_RNDN);
        // Of r = 1 both are +0.
        std::printf("{%a, %a, %a},\n", r.to_double(), hi.to_double() + 0.0,
                    (minus_log - hi).to_double() + 0.0);
    }
}
