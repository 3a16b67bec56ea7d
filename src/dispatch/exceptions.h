// Exceptions raised on purpose, and what a binary64 pattern stands for.
#pragma once

#include "lanes/lanes.h"

namespace zelk::ZELK_TIER {

// Raises divide-by-zero and nothing else; gives -infinity.
ZELK_INLINE float _raise_zerodivide()
{
    const float dividend = opaque(__builtin_bit_cast(float, 0xFFFFFFFFu << 28));
    return opaque(dividend / opaque(0.0f));
}

// Raises invalid and nothing else; gives the quiet NaN 0xFFCFFFFF.
ZELK_INLINE float _raise_invalid()
{
    const float signalling_nan = opaque(__builtin_bit_cast(float, 0xFF8FFFFFu));
    return opaque(signalling_nan + signalling_nan);
}

// The predicates look at the pattern only: they raise nothing, for signalling NaNs neither.
ZELK_INLINE int __libm_internal_isnan(double x)
{
    return (__builtin_bit_cast(std::uint64_t, x) & 0x7FFFFFFFFFFFFFFF) > 0x7FF0000000000000;
}
ZELK_INLINE int __libm_internal_ispinf(double x)
{
    return __builtin_bit_cast(std::uint64_t, x) == 0x7FF0000000000000;
}
ZELK_INLINE int __libm_internal_isninf(double x)
{
    return __builtin_bit_cast(std::uint64_t, x) == 0xFFF0000000000000;
}
ZELK_INLINE int __libm_internal_isnegzero(double x)
{
    return __builtin_bit_cast(std::uint64_t, x) == 0x8000000000000000;
}

} // namespace zelk::ZELK_TIER
