// arcsin x on two binary64 lanes.
// Method: |x| < 1/2: a degree-27 odd polynomial. Above: pi/2 - 2 arcsin sqrt((1 - |x|)/2), the same
// polynomial; +-1 apart. Outside [-1, 1] the root of the negative number gives the NaN and raises invalid.
#include "invtrig/asin2.h"
#include "dispatch/kernels.h"
#include "tables/asin2.h"

namespace zelk::ZELK_TIER {

static constexpr const tables::Asin2& constants = tier == Tier::A ? tables::asin2_A : tables::asin2_L;

// (arcsin y - y)/y from z = y^2 <= 1/4, even and odd coefficients apart.
ZELK_INLINE double2 arcsine_excess(double2 z, const tables::Asin2& k)
{
    const double2 Z = z * z;
    const double2 E =
        (((((k.dbA12 * Z + k.dbA10) * Z + k.dbA08) * Z + k.dbA06) * Z + k.dbA04) * Z + k.dbA02) * Z + k.dbA00;
    const double2 O =
        (((((k.dbA11 * Z + k.dbA09) * Z + k.dbA07) * Z + k.dbA05) * Z + k.dbA03) * Z + k.dbA01) * Z;
    return z * E + O;
}

template <bool inside>
ZELK_INLINE double2 arcsine(double2 x, const tables::Asin2& k)
{
    const Reduced2 reduced = reduce<inside>(x, k);
    const double2 q = arcsine_excess(reduced.z, k);
    // 1, or -2 in big lanes.
    const long2 multiplier = (reduced.big & k.iOtherFactor) ^ as_long2(k.dbOne);
    const long2 addend = as_long2(k.dbPio2hi) & reduced.big;
    double2 r = (q * reduced.y + reduced.y) * as_double2(multiplier) + as_double2(addend);
    if constexpr (!inside) r = select(is_one(x, k), k.dbPio2hi, r);
    return as_double2(as_long2(r) | reduced.sign);
}

[[gnu::noinline, gnu::cold]] static double2 special_lanes(double2 x)
{
    return arcsine<false>(x, constants);
}

double2 asin2(double2 x)
{
    if (!inside_one(x, constants)) [[unlikely]]
        return special_lanes(x);
    return arcsine<true>(x, constants);
}

} // namespace zelk::ZELK_TIER
