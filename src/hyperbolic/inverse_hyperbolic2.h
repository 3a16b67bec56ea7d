// What asinh2, acosh2 and atanh2 share: the logarithm and the evaluation of the scalar routines' series.
#pragma once

#include "lanes/lanes.h"
#include "tables/inverse_hyperbolic2.h"

namespace zelk::ZELK_TIER {

// ln y, y positive and normal: y = 2^n (1+f), sqrt(1/2) <= 1+f < sqrt 2;
// ln(1+f) = f - s (f - R(s^2)), s = f/(2+f).
ZELK_INLINE double2 logarithm(double2 y, const tables::InverseHyperbolic2& k)
{
    // The exponent of y, one more from sqrt 2 on, is what y is divided by.
    const long2 power = (as_long2(y) + k.iSqrt2Addition) & k.iExponentMask;
    const int4 exponent = (as_int4(power) >> 20) - k.i1023;
    const double2 n = to_double2(gather_high_words(exponent));
    const double2 f = as_double2((as_ulong2(y) + k.iExponentOfOne) - as_ulong2(power)) - k.dbOne;

    const double2 s = f / (k.dbTwo + f);
    const double2 z = s * s;
    const double2 w = z * z;
    const double2 R = z * (k.dbLg1 + w * (k.dbLg3 + w * (k.dbLg5 + w * k.dbLg7))) +
                      w * (k.dbLg2 + w * (k.dbLg4 + w * k.dbLg6));
    return n * k.dbLn2Hi - (((f - R) * s - n * k.dbLn2Lo) - f);
}

// All ones in the lanes below 1e154; the square of any other may overflow.
ZELK_INLINE long2 is_squarable(double2 x, const tables::InverseHyperbolic2& k)
{
    return negative_lanes(as_long2(x) - k.iHugeArg);
}

// a[last] z^(last/2) + ... of every other coefficient down from the last.
ZELK_INLINE double alternate_terms(const std::uint64_t* coefficients, int last, double z)
{
    double sum = __builtin_bit_cast(double, coefficients[last]);
#pragma GCC unroll 16
    for (int j = last - 2; j >= 0; j -= 2)
        sum = sum * z + __builtin_bit_cast(double, coefficients[j]);
    return sum;
}

// a + a (c1 z + ... + cn z^n), z = a^2, n even.
ZELK_INLINE double odd_series(double a, const std::uint64_t* coefficients, int n)
{
    const double z = a * a;
    const double w = z * z;
    return a +
           a * (z * alternate_terms(coefficients, n - 2, w) + w * alternate_terms(coefficients, n - 1, w));
}

// The default NaN, with invalid raised.
static inline double invalid_result()
{
    const double infinity = __builtin_inf();
    return opaque(infinity) - infinity;
}

} // namespace zelk::ZELK_TIER
