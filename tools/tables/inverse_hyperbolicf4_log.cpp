// Cubics a3 m^3 + a2 m^2 + a1 m + a0 for ln m on [1 + i/256, 1 + (i+1)/256), for the scalar routines of
// single precision asinh, acosh and atanh; printed in the order a3, a1, a2, a0, each rounded to nearest
// binary64.
//
// Rows 0 and 255 are the Taylor polynomials of ln at 1 and at 2, so that the results keep their relative
// accuracy where ln m, or ln m - ln 2, goes to zero; their errors reach 5.8e-11 at 1 + 1/256 and 3.7e-12 at 2
// - 1/256. All other rows are the minimax fits of the absolute error, by exchange of the four extrema and the
// two ends: their errors are below 4.5e-13, falling with m^-4.
#include "table_writer.h"

using namespace zelk::generate;

namespace {

struct Cubic {
    Real a[4]; // a[j] is the coefficient of m^j
};

Real ln(const Real& x)
{
    return Real::apply(mpfr_log, x);
}

// ln m = ln c + (m - c)/c - ((m - c)/c)^2 / 2 + ((m - c)/c)^3 / 3, expanded in powers of m.
Cubic taylor(const Real& c)
{
    return {{ln(c) - Real(11.0) / Real(6.0), Real(3.0) / c, Real(-1.5) / (c * c),
             Real(1.0) / (Real(3.0) * c * c * c)}};
}

Real error(const Cubic& p, const Real& m)
{
    return ((p.a[3] * m + p.a[2]) * m + p.a[1]) * m + p.a[0] - ln(m);
}

// The cubic whose error at the five points is +E, -E, +E, -E, +E for some E: the cubic through ln m + (-1)^i
// E by divided differences; the fourth difference of data that a cubic passes through vanishes, which gives
// E.
Cubic levelled(const Real (&x)[5])
{
    Real value[5];
    Real sign[5];
    for (int i = 0; i < 5; ++i) {
        value[i] = ln(x[i]);
        sign[i] = Real(i % 2 == 0 ? 1.0 : -1.0);
    }
    for (int order = 1; order < 5; ++order)
        for (int i = 4; i >= order; --i) {
            value[i] = (value[i] - value[i - 1]) / (x[i] - x[i - order]);
            sign[i] = (sign[i] - sign[i - 1]) / (x[i] - x[i - order]);
        }
    const Real E = Real(0.0) - value[4] / sign[4];

    // Newton's form to powers of m.
    Cubic p{{value[3] + E * sign[3], Real(0.0), Real(0.0), Real(0.0)}};
    for (int i = 2; i >= 0; --i) {
        for (int j = 3; j > 0; --j)
            p.a[j] = p.a[j - 1] - x[i] * p.a[j];
        p.a[0] = value[i] + E * sign[i] - x[i] * p.a[0];
    }
    return p;
}

// An extremum of the error: m p'(m) = 1, by Newton's method from a point near it.
Real extremum(const Cubic& p, Real m)
{
    const Real c3 = Real(3.0) * p.a[3];
    const Real c2 = Real(2.0) * p.a[2];
    for (int step = 0; step < 12; ++step) {
        const Real value = ((c3 * m + c2) * m + p.a[1]) * m - Real(1.0);
        const Real slope = (Real(3.0) * c3 * m + Real(2.0) * c2) * m + p.a[1];
        m = m - value / slope;
    }
    return m;
}

Cubic minimax(const Real& from, const Real& to)
{
    // The extrema of the Chebyshev polynomial of degree 4 are the first guess.
    const double chebyshev[5] = {-1.0, -0.70710678118654752, 0.0, 0.70710678118654752, 1.0};
    Real x[5];
    for (int i = 0; i < 5; ++i)
        x[i] = ((to - from) * Real(chebyshev[i]) + (to + from)) / Real(2.0);
    for (int exchange = 0; exchange < 8; ++exchange) {
        const Cubic p = levelled(x);
        for (int i = 1; i < 4; ++i)
            x[i] = extremum(p, x[i]);
    }
    return levelled(x);
}

} // namespace

int main()
{
    for (int i = 0; i < 256; ++i) {
        const Real from(1.0 + i / 256.0);
        const Real to(1.0 + (i + 1) / 256.0);
        const Cubic p = i == 0 ? taylor(from) : i == 255 ? taylor(to) : minimax(from, to);
        std::printf("{0x%016" PRIX64 ", 0x%016" PRIX64 ", 0x%016" PRIX64 ", 0x%016" PRIX64 "},\n",
                    bits(p.a[3].to_double()), bits(p.a[1].to_double()), bits(p.a[2].to_double()),
                    bits(p.a[0].to_double()));
        const Real end = i == 255 ? from : to; // where the error is largest
        if (i < 2 || i > 253) std::fprintf(stderr, "row %d: error %.3e\n", i, error(p, end).to_double());
    }
}
