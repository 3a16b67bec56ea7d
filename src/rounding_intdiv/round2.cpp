// x to the nearest integer, halfway cases away from zero, on two binary64 lanes.
// Method: |x| = r + d, r an integer and 0 <= d < 1 exactly; 1 more where d >= 1/2.
#include "dispatch/kernels.h"
#include "rounding_intdiv/rounding.h"

namespace zelk::ZELK_TIER {

double2 round2(double2 x)
{
    const auto& k = tables::rounding2;
    const long2 a = as_long2(x) & k.s_dwAbsMask;
    const long2 sign = as_long2(x) ^ a;
    const double2 r = as_double2(a & integral_mask(a, k));
    const double2 d = as_double2(a) - r;
    const int4 below_half = high_words(as_int4(k.s_dwHalf) > as_int4(d)); // of the high words
    const double2 e = as_double2(as_int4(k.s_dwOne) & ~below_half);
    return as_double2(as_long2(r + e) | sign);
}

} // namespace zelk::ZELK_TIER
