// What the error functions share.
#pragma once

#include "lanes/lanes.h"

namespace zelk::ZELK_TIER {

// Zero in negative lanes.
ZELK_INLINE int4 positive_part(int4 x)
{
    return x & ~(x >> 31);
}

// c0 + t (c1 + t (...)), lane 0 with the coefficients of one row, lane 1 with those of another.
template <int count>
ZELK_INLINE double2 polynomial(double2 t, const double (&row0)[count], const double (&row1)[count])
{
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
