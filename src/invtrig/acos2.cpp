// arccos x on two binary64 lanes.
// Method: |x| < 1/2: pi/2 - arcsin x, a degree-23 odd polynomial. Above: 2 arcsin sqrt((1 - x)/2) by the same
// polynomial, or pi less that of -x; +-1 apart. Outside [-1, 1] the root of the negative number gives the NaN
// and raises invalid.
#include "tables/acos2.h"
#include "dispatch/kernels.h"
#include "invtrig/asin2.h"

namespace zelk::ZELK_TIER {

static constexpr const tables::Acos2& constants = tier == Tier::A ? tables::acos2_A : tables::acos2_L;

// (arcsin y - y)/y from z = y^2 <= 1/4, even and odd coefficients apart.
ZELK_INLINE double2 arcsine_excess(double2 z, const tables::Acos2& k)
{
    const double2 Z = z * z;
    const double2 E = ((((k.dbA10 * Z + k.dbA08) * Z + k.dbA06) * Z + k.dbA04) * Z + k.dbA02) * Z + k.dbA00;
    const double2 O = ((((k.dbA09 * Z + k.dbA07) * Z + k.dbA05) * Z + k.dbA03) * Z + k.dbA01) * Z;
    return z * E + O;
}

template <bool inside>
ZELK_INLINE double2 arccosine(double2 x, const tables::Acos2& k)
{
    const Reduced2 reduced = reduce<inside>(x, k);
    const double2 q = arcsine_excess(reduced.z, k);
    // Big lanes take 2 arcsin y, or pi - 2 arcsin y where x is negative; small ones pi/2 -+ arcsin y.
    const long2 pi_if_negative = as_long2(k.dbPi) & negative_lanes(as_long2(x));
    const long2 multiplier = (reduced.big & k.iOtherFactor) ^ as_long2(k.dbMinusOne) ^ reduced.sign;
    const long2 addend = select(reduced.big, pi_if_negative, as_long2(k.dbPio2hi));
    const double2 r = (q * reduced.y + reduced.y) * as_double2(multiplier) + as_double2(addend);
    if constexpr (inside) return r;
    return select(is_one(x, k), as_double2(pi_if_negative), r);
}

[[gnu::noinline, gnu::cold]] static double2 special_lanes(double2 x)
{
    return arccosine<false>(x, constants);
}

double2 acos2(double2 x)
{
    if (!inside_one(x, constants)) [[unlikely]]
        return special_lanes(x);
    return arccosine<true>(x, constants);
}

} // namespace zelk::ZELK_TIER
