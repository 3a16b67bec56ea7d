// tan(m pi/32 + u) for |u| <= pi/64, m = 0 ... 8: tan(m pi/32) as a pair and the Taylor coefficients of u ...
// u^14 less u itself (the first is tan^2(m pi/32)). Rounded to nearest binary64; the truncated series is good
// to 2^-58 relative.
#include "tan2_intervals.h"

using namespace zelk::generate;

int main()
{
    for (int m = 0; m <= 8; ++m)
        print_row(tangent_series(Real(m) * pi() / Real(32.0)), Real(1.0));
}
