// ln x on two binary64 lanes.
// Method: x = 2^e m; b close to 1/m and -ln b from a table, so that r = m b - 1 is small and its upper part
// exact; ln x = e ln 2 - ln b + ln(1 + r). Tier A: 64 intervals, degree-7 polynomial; else 256 intervals,
// degree 6.
#include "tables/log2.h"
#include "dispatch/kernels.h"
#include "explog/log_d2.h"

namespace zelk::ZELK_TIER {

using tables::Log2;

ZELK_INLINE const Log2& constants()
{
    if constexpr (tier == Tier::A)
        return tables::log2_A;
    else
        return tables::log2_L;
}

ZELK_INLINE const tables::LogRow& row_of(std::uint32_t high)
{
    if constexpr (tier == Tier::A)
        return tables::log2_BT_Tbl_A[row_of_64(high)];
    else // the upper eight fraction bits, rounded by the ninth
        return tables::log2_BT_Tbl_L[(((high & 0xFF800) + 0x800) & 0x1FF000) >> 12];
}

// ln(1 + r) - r.
ZELK_INLINE double2 log1p_polynomial(double2 r, const Log2& k)
{
    const double2 q = r * r;
    double2 even = k.dbP4 * q + k.dbP2;
    if constexpr (tier == Tier::A) even = (k.dbP6 * q + k.dbP4) * q + k.dbP2;
    const double2 odd = (k.dbP5 * q + k.dbP3) * q + k.dbP1;
    return q * (even * r + odd);
}

ZELK_INLINE double2 natural_logarithm(double2 x, const Log2& k)
{
    const TableStepd2 s = table_step(decompose(x), row_of(high_word(x, 0)), row_of(high_word(x, 1)),
                                     k.iHi43Bits, k.dbOne, k.dbLog2Hi, k.dbLog2Lo);
    return ((log1p_polynomial(s.r, k) + s.lo) + s.rest) + s.leading;
}

[[gnu::noinline, gnu::cold]] static double2 subnormal_lanes(double2 x)
{
    const auto& k = constants();
    const Classesd2 classes = classify(x);
    return finish(natural_logarithm(classes.argument, k), classes, k.s_db1022xLn2, k.s_db1022xLn2Lo);
}

[[gnu::noinline, gnu::cold]] static double2 special_lanes(double2 x, int4 normal)
{
    if (has_subnormal(x)) return subnormal_lanes(x);
    const Replacedd2 lanes = replace_special(x, normal);
    return with_patterns(natural_logarithm(lanes.argument, constants()), lanes);
}

double2 log2(double2 x)
{
    const int4 normal = positive_normal(x);
    if (lane_mask(as_double2(normal)) != all_lanes2) [[unlikely]]
        return special_lanes(x, normal);
    return natural_logarithm(x, constants());
}

} // namespace zelk::ZELK_TIER
