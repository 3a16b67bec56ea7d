// What the tables of the double precision logarithms share.
#pragma once

#include "table_writer.h"

namespace zelk::generate {

// x as a multiple of 2^exponent.
inline Real to_multiple(const Real& x, long exponent, mpfr_rnd_t mode)
{
    Real result;
    mpfr_mul_2si(result.get(), x.get(), -exponent, MPFR_RNDN);
    mpfr_rint(result.get(), result.get(), mode);
    mpfr_mul_2si(result.get(), result.get(), exponent, MPFR_RNDN);
    return result;
}

// Rows (scale b, scale b, hi, lo) for the points 1 + i/intervals, i = 0..intervals: b is the reciprocal of
// the point to the nearest multiple of 2^reciprocal_exponent, -log b = hi + lo with hi cut off at 2^-43.
// scale b is exact.
template <class Logarithm>
void print_log_rows(int intervals, long reciprocal_exponent, double scale, Logarithm logarithm)
{
    for (int i = 0; i <= intervals; ++i) {
        const Real point(1 + static_cast<double>(i) / intervals);
        const Real b = to_multiple(Real(1.0) / point, reciprocal_exponent, MPFR_RNDN);
        const Real minus_log = Real(0.0) - Real::apply(logarithm, b);
        const Real hi = to_multiple(minus_log, -43, MPFR_RNDZ);
        const double scaled = (Real(scale) * b).to_double();
        std::printf("{{%a, %a}, %a, %a},\n", scaled, scaled, hi.to_double(), (minus_log - hi).to_double());
    }
}

} // namespace zelk::generate
