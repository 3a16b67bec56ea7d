// sinh x on two binary64 lanes.
// Method: |x| = n ln 2/64 + r; e^|x| / 2 and e^-|x| / 2 from a table of 2^(j/64) in two parts, e^r = cosh r +
// sinh r of degree 5. From 708.4 on e^|x| / 2 alone, lane by lane; from 710.4756 on a stored infinity.
#include "dispatch/kernels.h"
#include "hyperbolic/hyperbolic2.h"

namespace zelk::ZELK_TIER {

// The sign of x is put in place of the sum's: equal terms cancel to -0 where the mode rounds down.
ZELK_INLINE double2 signed_sinh(const HalfExponentials& e, double2 x, const tables::Hyperbolic2& k)
{
    return select(k.s_dwSignMask, x, sinh_of(e));
}

static double __zelk_sinh_spec_sd(const SpecBlock& block, double x, int lane)
{
    const auto sign = __builtin_bit_cast(std::uint64_t, x) & 0x8000000000000000;
    return __builtin_bit_cast(double, __builtin_bit_cast(std::uint64_t, near_overflow(block, lane)) | sign);
}

[[gnu::noinline, gnu::cold]] static double2 sinh_near_overflow(double2 x, double2 a)
{
    const auto& k = tables::hyperbolic2;
    const auto [t, r, far, wrapped] = special_lanes(a, k);
    // Special lanes pass through the vector formula as zeros: they must not raise anything there.
    const double2 ordinary = as_double2(as_long2(a) & ~(far | wrapped));
    const SpecBlock block = {a, t, r, wrapped, signed_sinh(half_exponentials(ordinary, k), x, k)};
    return double2{__zelk_sinh_spec_sd(block, x[0], 0), __zelk_sinh_spec_sd(block, x[1], 1)};
}

double2 sinh2(double2 x)
{
    const auto& k = tables::hyperbolic2;
    const double2 a = as_double2(as_long2(x) & k.s_dwAbsMsk);
    if (out_of_range(a, k) != 0) [[unlikely]]
        return sinh_near_overflow(x, a);
    return signed_sinh(half_exponentials(a, k), x, k);
}

} // namespace zelk::ZELK_TIER
