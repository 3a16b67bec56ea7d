// Quadratics through a function's values at the three Chebyshev nodes of an interval.
#pragma once

#include "table_writer.h"

namespace zelk::generate {

struct Quadratic {
    Real c0;
    Real c1;
    Real c2;
};

// m^(1/3), or its reciprocal.
inline Real cube_root(const Real& m)
{
    return Real::apply(mpfr_cbrt, m);
}
inline Real reciprocal_cube_root(const Real& m)
{
    return Real(1.0) / cube_root(m);
}

template <class Function>
Quadratic interpolate(Function f, double from, double to)
{
    const Real centre = (Real(from) + Real(to)) / Real(2.0);
    const Real offset = (Real(to) - Real(from)) / Real(4.0) * Real::apply(mpfr_sqrt, Real(3.0));
    const Real x0 = centre - offset;
    const Real x1 = centre;
    const Real x2 = centre + offset;
    const Real slope01 = (f(x1) - f(x0)) / (x1 - x0);
    const Real slope12 = (f(x2) - f(x1)) / (x2 - x1);
    const Real c2 = (slope12 - slope01) / (x2 - x0);
    return {f(x0) - slope01 * x0 + c2 * x0 * x1, slope01 - c2 * (x0 + x1), c2};
}

} // namespace zelk::generate
