// Taylor coefficients of the tangent and of its regular part at a pole.
#pragma once

#include "table_writer.h"

#include <array>

namespace zelk::generate {

inline constexpr int series_length = 16;
using Series = std::array<Real, series_length>;

// Coefficient n + 1 of a function f with f' = s (1 + f^2) is s ([n = 0] + sum of f_i f_(n-i)) / (n + 1).
inline Series riccati_series(const Real& value, double s)
{
    Series f;
    f[0] = value;
    for (int n = 0; n + 1 < series_length; ++n) {
        Real sum(n == 0 ? 1.0 : 0.0);
        for (int i = 0; i <= n; ++i)
            sum = sum + f[i] * f[n - i];
        f[n + 1] = Real(s) * sum / Real(n + 1);
    }
    return f;
}

// tan at y.
inline Series tangent_series(const Real& y)
{
    return riccati_series(sin(y) / cos(y), 1.0);
}

// g(y) = 1/y - cot y, which is the tangent at y + pi/2 without its pole: tan(y + pi/2) = g(y) - 1/y.
inline Series regular_series(const Real& y)
{
    Series g;
    if (mpfr_zero_p(y.get())) {
        // g' = 1 - 2 g/y + g^2
        for (int n = 0; n + 1 < series_length; ++n) {
            Real sum(n == 0 ? 1.0 : 0.0);
            for (int i = 0; i <= n; ++i)
                sum = sum + g[i] * g[n - i];
            g[n + 1] = sum / Real(n + 3);
        }
        return g;
    }
    const Series cotangent = riccati_series(cos(y) / sin(y), -1.0);
    Real pole = Real(1.0) / y;
    for (int n = 0; n < series_length; ++n) {
        g[n] = pole - cotangent[n];
        pole = Real(0.0) - pole / y;
    }
    return g;
}

} // namespace zelk::generate
