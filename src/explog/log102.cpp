// log10 x on two binary64 lanes.
// Method: x = 2^e m; b close to 1/m and -log10 b from a table of 64 intervals. r = C (m b - 1) with a short C
// close to 1/ln 10, so that r is the leading term of log10(m b) and its upper part exact; a degree-7
// polynomial in r gives the rest.
#include "tables/log102.h"
#include "dispatch/kernels.h"
#include "explog/log_d2.h"

namespace zelk::ZELK_TIER {

using tables::Log102;

ZELK_INLINE double2 decimal_logarithm(double2 x, const Log102& k)
{
    const auto& rows = tables::log102_BT_Tbl;
    const TableStepd2 s =
        table_step(decompose(x), rows[row_of_64(high_word(x, 0))], rows[row_of_64(high_word(x, 1))],
                   k.iHi33Bits, k.dbC, k.dbLog10_2Hi, k.dbLog10_2Lo);

    // log10(1 + r/C) - r
    const double2 q = s.r * s.r;
    const double2 even = (k.dbP6 * q + k.dbP4) * q + k.dbP2;
    const double2 odd = (k.dbP5 * q + k.dbP3) * q + k.dbP1;
    const double2 polynomial = q * (even * s.r + odd) + k.dbP0 * s.r;
    return ((polynomial + s.lo) + s.rest) + s.leading;
}

[[gnu::noinline, gnu::cold]] static double2 subnormal_lanes(double2 x)
{
    const auto& k = tables::log102;
    const Classesd2 classes = classify(x);
    return finish(decimal_logarithm(classes.argument, k), classes, k.s_db1022xLg2, k.s_db1022xLg2Lo);
}

[[gnu::noinline, gnu::cold]] static double2 special_lanes(double2 x, int4 normal)
{
    if (has_subnormal(x)) return subnormal_lanes(x);
    const Replacedd2 lanes = replace_special(x, normal);
    return with_patterns(decimal_logarithm(lanes.argument, tables::log102), lanes);
}

double2 log102(double2 x)
{
    const int4 normal = positive_normal(x);
    if (lane_mask(as_double2(normal)) != all_lanes2) [[unlikely]]
        return special_lanes(x, normal);
    return decimal_logarithm(x, tables::log102);
}

} // namespace zelk::ZELK_TIER
