// Real and imaginary parts of complex scalars.
#pragma once

#include "lanes/lanes.h"

namespace zelk::ZELK_TIER {

#if defined(__x86_64__)
ZELK_INLINE complex_float make_complex(float re, float im)
{
    return complex_float{re, im};
}
ZELK_INLINE float real(complex_float z)
{
    return z[0];
}
ZELK_INLINE float imag(complex_float z)
{
    return z[1];
}
#else
ZELK_INLINE complex_float make_complex(float re, float im)
{
    complex_float z;
    __real__ z = re;
    __imag__ z = im;
    return z;
}
ZELK_INLINE float real(complex_float z)
{
    return __real__ z;
}
ZELK_INLINE float imag(complex_float z)
{
    return __imag__ z;
}
#endif

ZELK_INLINE complex_double make_complex(double re, double im)
{
    complex_double z;
    __real__ z = re;
    __imag__ z = im;
    return z;
}
ZELK_INLINE double real(complex_double z)
{
    return __real__ z;
}
ZELK_INLINE double imag(complex_double z)
{
    return __imag__ z;
}

} // namespace zelk::ZELK_TIER
