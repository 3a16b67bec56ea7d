// Classes of binary32 and binary64 numbers by their bit patterns: asking raises nothing, not even for a
// signalling NaN.
#pragma once

#include "lanes/lanes.h"

namespace zelk::ZELK_TIER {

ZELK_INLINE std::uint32_t pattern(float x)
{
    return __builtin_bit_cast(std::uint32_t, x);
}
ZELK_INLINE std::uint64_t pattern(double x)
{
    return __builtin_bit_cast(std::uint64_t, x);
}

// The patterns of infinity and of the smallest normal number.
ZELK_INLINE std::uint32_t infinity_pattern(float)
{
    return 0x7F800000;
}
ZELK_INLINE std::uint64_t infinity_pattern(double)
{
    return 0x7FF0000000000000;
}
ZELK_INLINE std::uint32_t normal_pattern(float)
{
    return 0x00800000;
}
ZELK_INLINE std::uint64_t normal_pattern(double)
{
    return 0x0010000000000000;
}

template <class Real>
ZELK_INLINE auto magnitude_pattern(Real x)
{
    const auto bits = pattern(x);
    return bits << 1 >> 1;
}
template <class Real>
ZELK_INLINE bool is_negative(Real x) // -0 and NaNs with the sign bit too
{
    return pattern(x) != magnitude_pattern(x);
}
template <class Real>
ZELK_INLINE bool is_finite(Real x)
{
    return magnitude_pattern(x) < infinity_pattern(x);
}
template <class Real>
ZELK_INLINE bool is_infinite(Real x)
{
    return magnitude_pattern(x) == infinity_pattern(x);
}
template <class Real>
ZELK_INLINE bool is_nan(Real x)
{
    return magnitude_pattern(x) > infinity_pattern(x);
}
template <class Real>
ZELK_INLINE bool is_zero(Real x)
{
    return magnitude_pattern(x) == 0;
}
template <class Real>
ZELK_INLINE bool is_denormal(Real x)
{
    return magnitude_pattern(x) - 1 < normal_pattern(x) - 1;
}
template <class Real>
ZELK_INLINE bool is_below_normal(Real x) // a zero too
{
    return magnitude_pattern(x) < normal_pattern(x);
}
template <class Real>
ZELK_INLINE bool is_normal(Real x)
{
    return is_finite(x) && magnitude_pattern(x) >= normal_pattern(x);
}

// 2^-100 <= |x| < 2^100: squares and what is left over of them are far from overflow and underflow.
ZELK_INLINE bool is_moderate(double x)
{
    return magnitude_pattern(x) - 0x39B0000000000000 < 0x4630000000000000 - 0x39B0000000000000;
}

// |magnitude| with the sign of y.
ZELK_INLINE float with_sign_of(float magnitude, float y)
{
    return __builtin_copysignf(magnitude, y);
}
ZELK_INLINE double with_sign_of(double magnitude, double y)
{
    return __builtin_copysign(magnitude, y);
}

// Raises underflow and inexact when a part of the result is denormal, be it exact.
template <class Real>
ZELK_INLINE void signal_denormal(Real re, Real im)
{
    if (!is_denormal(re) && !is_denormal(im)) [[likely]]
        return;
    const Real smallest_normal = opaque(sizeof(Real) == sizeof(float) ? Real(0x1p-126) : Real(0x1p-1022));
    opaque(smallest_normal * smallest_normal);
}

} // namespace zelk::ZELK_TIER
