// 1/y - cot y at y = m pi/64 + u for |u| <= pi/128, m = 0 ... 16: its value at m pi/64 as a pair and the
// Taylor coefficients of u ... u^14. Rounded to nearest binary64; the truncated series is good to 2^-80 of
// cot y.
#include "tan2_intervals.h"

using namespace zelk::generate;

int main()
{
    for (int m = 0; m <= 16; ++m)
        print_row(regular_series(Real(m) * pi() / Real(64.0)), Real(0.0));
}
