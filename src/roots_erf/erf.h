// What the error functions share.
#pragma once

#include "lanes/lanes.h"

namespace zelk::ZELK_TIER {

// Zero in negative lanes.
ZELK_INLINE int4 positive_part(int4 x)
{
    return x & ~(x >> 31);
}

// From a table for each lane, or for lane 0 alone, with zero in lane 1: half of the loads for a lane by
// itself.
template <int lanes>
ZELK_INLINE double2 gather(double lane0, double lane1)
{
    return double2{lane0, lanes == 1 ? 0.0 : lane1};
}

// c0 + t (c1 + t (...)), lane 0 with the coefficients of one row, lane 1 with those of another.
template <int lanes = 2, int count>
ZELK_INLINE double2 polynomial(double2 t, const double (&row0)[count], const double (&row1)[count])
{
    if constexpr (lanes == 1) {
        double p = row0[count - 1];
#pragma GCC unroll 16
        for (int i = count - 2; i >= 0; --i)
            p = p * t[0] + row0[i];
        return double2{p, 0};
    }
    double2 p = {row0[count - 1], row1[count - 1]};
#pragma GCC unroll 16
    for (int i = count - 2; i >= 0; --i)
        p = p * t + double2{row0[i], row1[i]};
    return p;
}

// x + x: a NaN's own quieted pattern, and invalid for a signalling one.
ZELK_INLINE std::uint32_t quieted(std::uint32_t bits)
{
    const float x = __builtin_bit_cast(float, bits);
    return __builtin_bit_cast(std::uint32_t, x + x);
}
ZELK_INLINE std::uint64_t quieted(std::uint64_t bits)
{
    const double x = __builtin_bit_cast(double, bits);
    return __builtin_bit_cast(std::uint64_t, x + x);
}

} // namespace zelk::ZELK_TIER
