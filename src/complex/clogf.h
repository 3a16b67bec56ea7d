// What clogf2 and clogf_scalar share: ln |z| of numbers with binary32 parts, in binary64.
#pragma once

#include "explog/log_d2.h"
#include "tables/clogf2.h"

namespace zelk::ZELK_TIER {

// |z|^2 and what its logarithm is taken of.
struct SquaredModulusd2 {
    double2 s; // |z|^2, rounded
    double2 d; // |z|^2 - 1 in the lanes near one, rounded once; 0 in the others
    long2 near_one;
};

// The squares of binary32 numbers are exact. Near one the larger square is at least 0.48 and its distance
// from 1 is exact too; written this way the zero at |z| = 1 is positive in every rounding mode.
ZELK_INLINE SquaredModulusd2 squared_modulus(double2 x, double2 y, const tables::Clogf2& k)
{
    const double2 X = x * x;
    const double2 Y = y * y;
    const double2 s = X + Y;
    const long2 near_one = as_double2(as_long2(s - k.dbOne) & k.DBABSMSK) < k.dbThresh;
    const double2 d = _mm_min_pd(X, Y) - (k.dbOne - _mm_max_pd(X, Y));
    return {s, as_double2(as_long2(d) & near_one), near_one};
}

ZELK_INLINE const tables::LogRow& log_row(double2 s, int lane)
{
    return tables::dLn_table[((high_word(s, lane) >> 11 & 0x1FF) + 1) >> 1];
}

// ln s, s positive and normal: s = 2^e m, r = m c - 1 with c of the table row nearest to m, |r| < 2^-8.9. The
// upper bits of m times c are exact.
ZELK_INLINE double2 log_by_table(double2 s, const tables::Clogf2& k)
{
    const auto& row0 = log_row(s, 0);
    const auto& row1 = log_row(s, 1);
    const auto [e, m] = decompose(s);
    const double2 c = double2{row0.b[0], row1.b[0]};
    const double2 m_upper = as_double2(as_long2(m) & k.upper_bits);
    const double2 r = (m_upper * c - k.dbOne) + (m - m_upper) * c;
    const double2 p = k.r2 + r * (k.r3 + r * (k.r4 + r * (k.r5 + r * k.r6)));
    const double2 hi = e * k.log2_hi + double2{row0.hi, row1.hi};
    return hi + r + r * r * p + (e * k.log2_lo + double2{row0.lo, row1.lo});
}

} // namespace zelk::ZELK_TIER
