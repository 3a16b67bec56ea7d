// log2 x on two binary64 lanes.
// Method: x = 2^e m, m = p + d with p the nearest of the points 1 + j/128; log2 x = e + log2 p + log2(1 +
// d/p), with log2 p and 1/p from a table and a degree-6 polynomial in r = d/p. Tier A evaluates it as one
// chain, the others as two.
#include "tables/log22.h"
#include "dispatch/kernels.h"
#include "explog/log_d2.h"

namespace zelk::ZELK_TIER {

using tables::Log22;

// log2(1 + r) - P1 r
ZELK_INLINE double2 tail_polynomial(double2 r, const Log22& k)
{
    if constexpr (tier == Tier::A) {
        return ((((k.P6 * r + k.P5) * r + k.P4) * r + k.P3) * r + k.P2) * r * r;
    } else {
        const double2 q = r * r;
        return ((k.P6 * q + k.P4) * q + k.P2) * q + (k.P5 * q + k.P3) * q * r;
    }
}

// The upper seven fraction bits, rounded by the eighth.
ZELK_INLINE const Log22::Row& row_of(std::uint32_t high, const Log22& k)
{
    return k.Table[((high >> 12 & 0xFF) + 1) >> 1];
}

ZELK_INLINE double2 binary_logarithm(double2 x, const Log22& k)
{
    const auto& row0 = row_of(high_word(x, 0), k);
    const auto& row1 = row_of(high_word(x, 1), k);
    const Decomposedd2 parts = decompose(x);
    const double2 point = (as_double2(as_long2(parts.m) | k.Bias) + k.Shifter) - k.Shifter;
    const double2 r = (parts.m - point) * double2{row0.R, row1.R}; // the difference is exact
    const double2 p = (tail_polynomial(r, k) + double2{row0.T, row1.T}) + k.P1 * r;
    return p + (parts.e + double2{row0.H, row1.H});
}

[[gnu::noinline, gnu::cold]] static double2 subnormal_lanes(double2 x)
{
    const auto& k = tables::log22;
    const Classesd2 classes = classify(x);
    const double2 result = binary_logarithm(classes.argument, k);
    return with_patterns(result + in_subnormal_lanes(k.s_db1022, classes), classes);
}

[[gnu::noinline, gnu::cold]] static double2 spec_dlog22(double2 x, int4 normal)
{
    if (has_subnormal(x)) return subnormal_lanes(x);
    const Replacedd2 lanes = replace_special(x, normal);
    return with_patterns(binary_logarithm(lanes.argument, tables::log22), lanes);
}

double2 log22(double2 x)
{
    const int4 normal = positive_normal(x);
    if (lane_mask(as_double2(normal)) != all_lanes2) [[unlikely]]
        return spec_dlog22(x, normal);
    return binary_logarithm(x, tables::log22);
}

} // namespace zelk::ZELK_TIER
