// Rows for the scalar double precision tangent: the value as a pair, then the coefficients of u, u^2, ...
// u^14.
#pragma once

#include "tan_series.h"

namespace zelk::generate {

inline void print_row(const Series& c, const Real& less_from_linear)
{
    const double head = c[0].to_double();
    std::printf("{%a, %a, {%a", head, (c[0] - Real(head)).to_double(), (c[1] - less_from_linear).to_double());
    for (int n = 2; n < 15; ++n)
        std::printf(", %a", c[n].to_double());
    std::printf("}},\n");
}

} // namespace zelk::generate
