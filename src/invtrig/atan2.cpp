// arctan x on two binary64 lanes (the arc tangent of two arguments is atan22).
// Method: |x| <= 1: a degree-39 odd polynomial. Above: pi/2 - arctan(1/|x|), the same polynomial. Tier A puts
// the sign on the sum, tier L on its terms, which tells in directed rounding only.
#include "invtrig/atan2.h"
#include "dispatch/kernels.h"

namespace zelk::ZELK_TIER {

double2 atan2(double2 x)
{
    const auto& k = tables::atan2;
    const long2 sign = as_long2(x) & k.iSignMask;
    const double2 a = as_double2(as_long2(x) & k.iAbsMask);
    // The patterns are compared, also for the minimum and the maximum: the floating-point operations would
    // raise invalid for a NaN. NaNs are big.
    const long2 big = negative_lanes(as_long2(k.dbOne) - as_long2(a));
    const long2 quarter_turn = as_long2(k.dbPio2hi) & big;
    if constexpr (tier == Tier::A) {
        const double2 q = select(big, k.dbMinusOne, a) / select(big, a, k.dbOne);
        return as_double2(as_long2(arctangent(q, k) + as_double2(quarter_turn)) | sign);
    } else {
        const double2 q = select(big, k.dbOne, a) / select(big, a, k.dbOne);
        const long2 signed_q = as_long2(q) ^ (big & k.iSignMask) ^ sign;
        return arctangent(as_double2(signed_q), k) + as_double2(quarter_turn | sign);
    }
}

} // namespace zelk::ZELK_TIER
