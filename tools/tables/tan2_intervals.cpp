// tan(m pi/64 + u) for |u| <= pi/128, m = 0 ... 16: tan(m pi/64) as a pair and the Taylor coefficients of u
// ... u^14 less u itself (the first is tan^2(m pi/64)). Rounded to nearest binary64; the truncated series is
// good to 2^-70 relative.
#include "tan2_intervals.h"

using namespace zelk::generate;

int main()
{
    for (int m = 0; m <= 16; ++m)
        print_row(tangent_series(Real(m) * pi() / Real(64.0)), Real(1.0));
}
