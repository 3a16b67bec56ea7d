// erf x on two binary64 lanes.
// Method: a polynomial of degree 13 per quarter of a binade of |x|; below 1/8 and from 6 on one row each.
#include "tables/erf2.h"
#include "dispatch/kernels.h"
#include "roots_erf/erf.h"

namespace zelk::ZELK_TIER {

using tables::ErfTable;

template <int lanes>
ZELK_INLINE double2 erf_of_finite(double2 x, const ErfTable& k)
{
    const long2 magnitude = as_long2(x) & k.abs_mask;
    const int4 quarters = positive_part((as_int4(magnitude) & k.index_mask) - k.index_base);
    const int4 row = select(quarters > k.index_limit, k.index_limit, quarters) >> 18;
    const auto& row0 = k.rows[row[1]];
    const auto& row1 = k.rows[row[3]];

    // Exact: s is 0 or a power of two, and but for row 0, whose o is 0, o and x s lie in [8, 16].
    const double2 t = as_double2(magnitude) * gather<lanes>(row0.s, row1.s) - gather<lanes>(row0.o, row1.o);
    // The last sum of row 0 is x + (2/sqrt(pi) - 1) x: a product with 2/sqrt(pi) itself costs an ulp.
    const long2 in_row0 = as_long2(high_words(quarters == int4{}));
    const double2 P = polynomial<lanes>(t, row0.c, row1.c) + as_double2(magnitude & in_row0);
    return as_double2(as_long2(P) | (as_long2(x) & k.sign_mask));
}

// x as a bit pattern. Inlined for each lane: the two overlap, and no call spills what they share.
ZELK_INLINE std::uint64_t __erf_scalar(std::uint64_t x)
{
    const std::uint64_t infinity = 0x7FF0000000000000;
    const std::uint64_t magnitude = x & 0x7FFFFFFFFFFFFFFF;
    if (magnitude > infinity) return quieted(x);
    if (magnitude == infinity) return (x ^ magnitude) | 0x3FF0000000000000;
    return as_ulong2(erf_of_finite<1>(double2{__builtin_bit_cast(double, x), 0}, tables::erfTable))[0];
}

[[gnu::noinline]] static double2 erf_by_lane(double2 x)
{
    return lane_by_lane(x, __erf_scalar);
}

double2 erf2(double2 x)
{
    const auto& k = tables::erfTable;
    if constexpr (tier == Tier::A) return erf_by_lane(x);
    const int4 magnitude = as_int4(as_long2(x) & k.abs_mask);
    if (lane_mask(as_double2(k.infinity > magnitude)) != all_lanes2) [[unlikely]]
        return erf_by_lane(x);
    return erf_of_finite<2>(x, k);
}

} // namespace zelk::ZELK_TIER
